#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "platform/text_array.h"
#include "platform/windows/automation.h"
#include "quorbind_com.h"
#include "tests/component/served_dll.h"

namespace quorbind::testing {

/// Both DLLs on a thread of their kind, registered for the machine, since Wine finds no classes
/// that are registered for a user only. At its end nothing of theirs may be in use.
class RegisteredDlls {
 public:
  /// `componentDll` is the component, or one that stands for it, by its place in the build folder.
  explicit RegisteredDlls(const std::wstring& componentDll = L"Quorbind.dll");
  ~RegisteredDlls();
  RegisteredDlls(const RegisteredDlls&) = delete;
  RegisteredDlls& operator=(const RegisteredDlls&) = delete;

  ComApartment apartment;
  const ServedDll component;
  const ServedDll toolset{L"QuorToolset.dll"};
};

/// A host of the component.
class ComponentTest : public ::testing::Test, protected RegisteredDlls {};

/// An object by the name of its class, as a script makes it.
ComPtr<IDispatch> createByName(const wchar_t* progId);
/// The same by its class, as a compiled host makes it.
template <typename Interface>
ComPtr<Interface> create(REFCLSID classId) {
  ComPtr<Interface> object;
  requireSuccess(
      ::CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, object.id(), object.putAny()));
  return object;
}

/// How a call by name ended.
struct LateAnswer {
  HRESULT result = E_UNEXPECTED;
  Variant value;
  UINT wrongArgument = 0;
};

/// Calls a member by name. The arguments stand in the order of the parameters and stay the
/// caller's.
LateAnswer callByName(IDispatch* object, const wchar_t* member, std::vector<VARIANT> arguments);

/// An argument that refers to a variable, as scripts pass theirs.
VARIANT variable(Variant& value);
VARIANT number(LONG value);

/// An array with elements of type VT_BSTR or VT_VARIANT.
Variant arrayOf(VARTYPE type, const std::vector<std::string>& texts, LONG lowerBound = 0);
/// The same, or a variable for one that was never set.
Variant arrayOf(VARTYPE type, const TextArray& array);
/// An array of numbers.
Variant numberArray();
/// The array in an array variant; stays the variant's.
SAFEARRAY*& arrayIn(Variant& array);

/// What such an array holds.
TextArray textArrayIn(Variant& array);

}  // namespace quorbind::testing
