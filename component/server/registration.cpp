#include "component/server/registration.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

#include "component/server/own_module.h"
#include "platform/error_trap.h"

namespace quorbind {

namespace {

constexpr std::wstring_view kThreading = L"Apartment";
/// The system's own stand-ins for objects called from other apartments.
constexpr const wchar_t* kDualProxy = L"{00020424-0000-0000-C000-000000000046}";
constexpr const wchar_t* kDispatchProxy = L"{00020420-0000-0000-C000-000000000046}";
/// The language-neutral folder of a type library and the platform in it.
constexpr const wchar_t* kPlatform = sizeof(void*) == 8 ? L"\\0\\win64" : L"\\0\\win32";

std::wstring textOf(REFGUID id) {
  std::array<wchar_t, 39> text{};
  ::StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
  return text.data();
}

std::wstring folderOf(const std::wstring& path) {
  return path.substr(0, path.rfind(L'\\'));
}

std::wstring documentationOf(ITypeLib& library, INT index) {
  Bstr text;
  requireSuccess(library.GetDocumentation(index, nullptr, text.put(), nullptr, nullptr));
  return std::wstring(text.view());
}

std::wstring nameOf(ITypeLib& library, INT index) {
  Bstr text;
  requireSuccess(library.GetDocumentation(index, text.put(), nullptr, nullptr, nullptr));
  return std::wstring(text.view());
}

class TextList {
 public:
  TextList(const ServerDescription& server, std::vector<RegistryText>& texts)
      : server_(server), texts_(texts), path_(ownModulePath()) {}

  void addClass(const ServedClass& served) {
    const std::wstring id = textOf(served.id);
    const std::wstring progId = served.progId;
    const std::wstring versioned = progId + L"." + std::to_wstring(kMajorVersion);

    const std::wstring classKey = L"CLSID\\" + id;
    add(classKey, L"", served.description);
    add(classKey + L"\\InprocServer32", L"", path_);
    add(classKey + L"\\InprocServer32", L"ThreadingModel", std::wstring(kThreading));
    add(classKey + L"\\ProgID", L"", versioned);
    add(classKey + L"\\TypeLib", L"", textOf(server_.typeLibrary));
    add(classKey + L"\\VersionIndependentProgID", L"", progId);

    add(progId, L"", served.description);
    add(progId + L"\\CLSID", L"", id);
    add(progId + L"\\CurVer", L"", versioned);
    add(versioned, L"", served.description);
    add(versioned + L"\\CLSID", L"", id);
  }

  void addTypeLibrary(ITypeLib& library) {
    const std::wstring libraryKey = L"TypeLib\\" + textOf(server_.typeLibrary) + L"\\" + version();
    add(libraryKey, L"", documentationOf(library, kTheLibrary));
    add(libraryKey + kPlatform, L"", path_);
    add(libraryKey + L"\\FLAGS", L"", L"0");
    add(libraryKey + L"\\HELPDIR", L"", folderOf(path_));

    for (UINT index = 0; index < library.GetTypeInfoCount(); ++index) {
      addInterface(library, index);
    }
  }

 private:
  static constexpr INT kTheLibrary = -1;

  [[nodiscard]] static std::wstring version() {
    return std::to_wstring(kMajorVersion) + L"." + std::to_wstring(kMinorVersion);
  }

  void add(const std::wstring& key, const wchar_t* name, const std::wstring& text) {
    texts_.push_back({key, name, text});
  }

  void addInterface(ITypeLib& library, UINT index) {
    TYPEKIND kind{};
    requireSuccess(library.GetTypeInfoType(index, &kind));
    if (kind != TKIND_DISPATCH) {
      return;
    }
    ComPtr<ITypeInfo> info;
    requireSuccess(library.GetTypeInfo(index, info.put()));
    TYPEATTR* attributes = nullptr;
    requireSuccess(info->GetTypeAttr(&attributes));
    const std::wstring interfaceKey = L"Interface\\" + textOf(attributes->guid);
    const bool isDual = (attributes->wTypeFlags & TYPEFLAG_FDUAL) != 0;
    info->ReleaseTypeAttr(attributes);

    add(interfaceKey, L"", nameOf(library, static_cast<INT>(index)));
    add(interfaceKey + L"\\ProxyStubClsid32", L"", isDual ? kDualProxy : kDispatchProxy);
    add(interfaceKey + L"\\TypeLib", L"", textOf(server_.typeLibrary));
    add(interfaceKey + L"\\TypeLib", L"Version", version());
  }

  const ServerDescription& server_;
  std::vector<RegistryText>& texts_;
  const std::wstring path_;
};

/// An open key of the registry, or none.
class RegistryKey {
 public:
  RegistryKey() = default;
  RegistryKey(const RegistryKey&) = delete;
  RegistryKey& operator=(const RegistryKey&) = delete;
  ~RegistryKey() {
    if (key_ != nullptr) {
      ::RegCloseKey(key_);
    }
  }

  [[nodiscard]] HKEY get() const { return key_; }
  HKEY* put() { return &key_; }

 private:
  HKEY key_ = nullptr;
};

void requireWritten(LSTATUS status) {
  requireSuccess(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
}

/// The classes of one scope.
class ClassesRoot {
 public:
  explicit ClassesRoot(RegistrationScope scope) {
    const HKEY hive = scope == RegistrationScope::kUser ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
    requireWritten(create(hive, L"Software\\Classes", root_));
  }

  void write(const RegistryText& text) {
    RegistryKey key;
    requireWritten(create(root_.get(), text.key.c_str(), key));
    const std::size_t bytes = sizeof(wchar_t) * (text.text.size() + 1);
    requireWritten(::RegSetValueExW(key.get(),
                                    text.name.c_str(),
                                    0,
                                    REG_SZ,
                                    reinterpret_cast<const BYTE*>(text.text.c_str()),
                                    static_cast<DWORD>(bytes)));
  }

  void remove(const RegistryText& text) {
    requireGone(::RegDeleteKeyValueW(root_.get(), text.key.c_str(), text.name.c_str()));
    std::wstring key = text.key;
    while (!key.empty() && isEmptyOrMissing(key)) {
      requireGone(::RegDeleteKeyW(root_.get(), key.c_str()));
      const std::size_t end = key.rfind(L'\\');
      key.resize(end == std::wstring::npos ? 0 : end);
    }
  }

 private:
  static LSTATUS create(HKEY parent, const wchar_t* name, RegistryKey& key) {
    return ::RegCreateKeyExW(
        parent, name, 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, key.put(), nullptr);
  }

  static void requireGone(LSTATUS status) {
    if (status != ERROR_FILE_NOT_FOUND) {
      requireWritten(status);
    }
  }

  [[nodiscard]] bool isEmptyOrMissing(const std::wstring& name) const {
    RegistryKey key;
    if (::RegOpenKeyExW(root_.get(), name.c_str(), 0, KEY_READ, key.put()) != ERROR_SUCCESS) {
      return true;
    }
    DWORD keys = 0;
    DWORD values = 0;
    const LSTATUS status = ::RegQueryInfoKeyW(key.get(),
                                              nullptr,
                                              nullptr,
                                              nullptr,
                                              &keys,
                                              nullptr,
                                              nullptr,
                                              &values,
                                              nullptr,
                                              nullptr,
                                              nullptr,
                                              nullptr);
    return status == ERROR_SUCCESS && keys == 0 && values == 0;
  }

  RegistryKey root_;
};

}  // namespace

std::vector<RegistryText> registryTextsOf(const ServerDescription& server) {
  std::vector<RegistryText> texts;
  TextList list(server, texts);
  for (const ServedClass& served : server.classes) {
    list.addClass(served);
  }
  list.addTypeLibrary(*ownTypeLibrary().get());
  return texts;
}

void registerServer(const ServerDescription& server, RegistrationScope scope) {
  const std::vector<RegistryText> texts = registryTextsOf(server);
  ClassesRoot root(scope);
  try {
    for (const RegistryText& text : texts) {
      root.write(text);
    }
  } catch (...) {
    std::for_each(texts.rbegin(), texts.rend(), [&](const RegistryText& text) {
      ignoringErrors([&] { root.remove(text); });
    });
    throw;
  }
}

void unregisterServer(const ServerDescription& server, RegistrationScope scope) {
  ClassesRoot root(scope);
  const std::vector<RegistryText> texts = registryTextsOf(server);
  std::for_each(
      texts.rbegin(), texts.rend(), [&root](const RegistryText& text) { root.remove(text); });
}

}  // namespace quorbind
