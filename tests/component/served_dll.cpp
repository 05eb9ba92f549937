#include "tests/component/served_dll.h"

#include <stdexcept>

namespace quorbind::testing {

namespace {

std::wstring folderOf(const std::wstring& path) {
  return path.substr(0, path.rfind(L'\\'));
}

std::wstring thisFolder() {
  std::wstring path(32768, L'\0');
  path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return folderOf(path);
}

}  // namespace

std::wstring besideThisProgram(const std::wstring& name) {
  return thisFolder() + L"\\" + name;
}

std::wstring inBuildFolder(const std::wstring& name) {
  return folderOf(folderOf(thisFolder())) + L"\\" + name;
}

ServedDll::ServedDll(const std::wstring& name)
    : module_(::LoadLibraryW(inBuildFolder(name).c_str())) {
  if (module_ == nullptr) {
    throw std::runtime_error("not loaded: " + toUtf8(inBuildFolder(name)));
  }
}

HRESULT ServedDll::registerServer() const {
  return entryPoint<HRESULT(STDAPICALLTYPE*)()>("DllRegisterServer")();
}

HRESULT ServedDll::unregisterServer() const {
  return entryPoint<HRESULT(STDAPICALLTYPE*)()>("DllUnregisterServer")();
}

HRESULT ServedDll::install(bool install, const wchar_t* words) const {
  using Install = HRESULT(STDAPICALLTYPE*)(BOOL, LPCWSTR);
  return entryPoint<Install>("DllInstall")(install ? TRUE : FALSE, words);
}

HRESULT ServedDll::getClassObject(REFCLSID classId, REFIID id, void** object) const {
  using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, LPVOID*);
  return entryPoint<GetClassObject>("DllGetClassObject")(classId, id, object);
}

bool ServedDll::mayUnload() const {
  return entryPoint<HRESULT(STDAPICALLTYPE*)()>("DllCanUnloadNow")() == S_OK;
}

ComPtr<IClassFactory> ServedDll::factoryOf(REFCLSID classId) const {
  ComPtr<IClassFactory> factory;
  requireSuccess(getClassObject(classId, factory.id(), factory.putAny()));
  return factory;
}

}  // namespace quorbind::testing
