#include "component/server/own_module.h"

namespace quorbind {

namespace {

HMODULE ownModule() {
  HMODULE module = nullptr;
  const DWORD howFound =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  ::GetModuleHandleExW(howFound, reinterpret_cast<LPCWSTR>(&ownModule), &module);
  return module;
}

}  // namespace

std::wstring ownModulePath() {
  constexpr std::size_t kLongestPath = 32768;
  for (std::wstring path(MAX_PATH, L'\0');; path.resize(2 * path.size())) {
    const DWORD length =
        ::GetModuleFileNameW(ownModule(), path.data(), static_cast<DWORD>(path.size()));
    const bool fits = length > 0 && length < path.size();
    if (fits) {
      path.resize(length);
      return path;
    }
    if (length == 0 || path.size() >= kLongestPath) {
      raise(ErrorNumber::kPathFileAccessError);
    }
  }
}

ComPtr<ITypeLib> ownTypeLibrary() {
  ComPtr<ITypeLib> library;
  requireSuccess(::LoadTypeLibEx(ownModulePath().c_str(), REGKIND_NONE, library.put()));
  return library;
}

ComPtr<ITypeInfo> ownTypeInfo(REFGUID id) {
  ComPtr<ITypeInfo> info;
  requireSuccess(ownTypeLibrary()->GetTypeInfoOfGuid(id, info.put()));
  return info;
}

}  // namespace quorbind
