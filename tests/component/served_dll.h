#pragma once

#include <ole2.h>

#include <string>

#include "platform/windows/com_types.h"

namespace quorbind::testing {

/// The full path of what stands beside this program, or in the build's root folder.
std::wstring besideThisProgram(const std::wstring& name);
std::wstring inBuildFolder(const std::wstring& name);

/// One of the built DLLs, loaded while the object lives.
class ServedDll {
 public:
  explicit ServedDll(const std::wstring& name);
  ~ServedDll() { ::FreeLibrary(module_); }
  ServedDll(const ServedDll&) = delete;
  ServedDll& operator=(const ServedDll&) = delete;

  [[nodiscard]] HRESULT registerServer() const;
  [[nodiscard]] HRESULT unregisterServer() const;
  [[nodiscard]] HRESULT install(bool install, const wchar_t* words) const;
  [[nodiscard]] HRESULT getClassObject(REFCLSID classId, REFIID id, void** object) const;
  [[nodiscard]] bool mayUnload() const;

  /// The factory of a class that the DLL serves.
  [[nodiscard]] ComPtr<IClassFactory> factoryOf(REFCLSID classId) const;
  /// A new object, without the registry.
  template <typename Interface>
  [[nodiscard]] ComPtr<Interface> create(REFCLSID classId) const {
    ComPtr<Interface> object;
    requireSuccess(factoryOf(classId)->CreateInstance(nullptr, object.id(), object.putAny()));
    return object;
  }

 private:
  template <typename Function>
  [[nodiscard]] Function entryPoint(const char* name) const {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(module_, name)));
  }

  HMODULE module_;
};

}  // namespace quorbind::testing
