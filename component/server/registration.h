#pragma once

#include <string>
#include <vector>

#include "component/server/server.h"

// What stands about this server in the registry, written and taken away again from one list.

namespace quorbind {

/// For whom the server is registered.
enum class RegistrationScope { kMachine, kUser };

/// One text in the registry, below the classes of a scope. An empty name is the key's default.
struct RegistryText {
  std::wstring key;
  std::wstring name;
  std::wstring text;
};

/// Everything that registering this server writes, keys before the keys inside them: its classes,
/// its type library and that library's interfaces. Raises a run-time error when the library can't
/// be read.
std::vector<RegistryText> registryTextsOf(const ServerDescription& server);

/// Writes all of them, over what is there. After a failure nothing of them is left; a failure is a
/// run-time error.
void registerServer(const ServerDescription& server, RegistrationScope scope);

/// Takes all of them away, and the keys that are empty without them. What is missing is no failure.
void unregisterServer(const ServerDescription& server, RegistrationScope scope);

}  // namespace quorbind
