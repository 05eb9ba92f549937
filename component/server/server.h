#pragma once

#include <ole2.h>

#include <span>

#include "component/server/com_object.h"
#include "platform/windows/com_types.h"

// What a DLL that serves COM classes tells about itself. Class factories, registration and
// unregistration are made from this one description.

namespace quorbind {

/// One class that hosts can create.
struct ServedClass {
  const CLSID& id;
  /// Without version: `Program.Class`.
  const wchar_t* progId;
  const wchar_t* description;
  /// Makes an object. Raises a run-time error or std::bad_alloc.
  ComPtr<IUnknown> (*create)();
};

/// For ServedClass::create.
template <typename Object>
ComPtr<IUnknown> create() {
  return makeObject<Object>().template as<IUnknown>();
}

struct ServerDescription {
  /// The library is embedded in the DLL as its type library resource 1.
  const GUID& typeLibrary;
  std::span<const ServedClass> classes;
  /// Called when nothing of the server is in use any more and it may be unloaded.
  void (*becomeIdle)() noexcept;
};

/// Defined once by each DLL.
const ServerDescription& serverDescription();

/// Version of the type library, the class registrations and the ProgIDs.
inline constexpr WORD kMajorVersion = 1;
inline constexpr WORD kMinorVersion = 0;

}  // namespace quorbind
