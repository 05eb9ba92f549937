// The functions that a COM DLL exports.

#include <ole2.h>
#include <olectl.h>

#include <algorithm>
#include <string_view>

#include "component/server/class_factory.h"
#include "component/server/failure.h"
#include "component/server/registration.h"
#include "component/server/server.h"
#include "component/server/server_use.h"

namespace __gnu_cxx {

/// Of the C++ library that is a part of this DLL: gives back the memory that it keeps for
/// exceptions when there is none else. No header has it.
void __freeres();  // NOLINT(bugprone-reserved-identifier)

}  // namespace __gnu_cxx

namespace quorbind {

namespace {

HRESULT getClassObject(REFCLSID classId, REFIID id, void** object) noexcept {
  if (object == nullptr) {
    return E_POINTER;
  }
  *object = nullptr;
  const std::span<const ServedClass> classes = serverDescription().classes;
  const auto served = std::ranges::find_if(
      classes, [&](const ServedClass& candidate) { return candidate.id == classId; });
  if (served == classes.end()) {
    return CLASS_E_CLASSNOTAVAILABLE;
  }
  HRESULT found = E_UNEXPECTED;
  const HRESULT made =
      guarded([&] { found = makeObject<ClassFactory>(*served)->QueryInterface(id, object); });
  return FAILED(made) ? made : found;
}

HRESULT setRegistered(bool registered, RegistrationScope scope) noexcept {
  return guarded([&] {
    if (registered) {
      registerServer(serverDescription(), scope);
    } else {
      unregisterServer(serverDescription(), scope);
    }
  });
}

HRESULT canUnloadNow() noexcept {
  if (ServerUse::isAny()) {
    return S_FALSE;
  }
  serverDescription().becomeIdle();
  return S_OK;
}

RegistrationScope scopeNamed(const wchar_t* words) {
  const bool forUser = words != nullptr && ::lstrcmpiW(words, L"user") == 0;
  return forUser ? RegistrationScope::kUser : RegistrationScope::kMachine;
}

}  // namespace

}  // namespace quorbind

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, LPVOID* object) {
  return quorbind::getClassObject(classId, id, object);
}

STDAPI DllCanUnloadNow() {
  return quorbind::canUnloadNow();
}

STDAPI DllRegisterServer() {
  return quorbind::setRegistered(true, quorbind::RegistrationScope::kMachine);
}

STDAPI DllUnregisterServer() {
  return quorbind::setRegistered(false, quorbind::RegistrationScope::kMachine);
}

// A host may load and unload the DLL any number of times. When the whole process ends, `ending` is
// set and its memory goes anyway.
BOOL WINAPI DllMain(HINSTANCE /*dll*/, DWORD reason, LPVOID ending) {
  if (reason == DLL_PROCESS_DETACH && ending == nullptr) {
    __gnu_cxx::__freeres();
  }
  return TRUE;
}

// With the word "user" for the current user only, without words for the machine.
STDAPI DllInstall(BOOL install, LPCWSTR words) {
  return quorbind::setRegistered(install != FALSE, quorbind::scopeNamed(words));
}
