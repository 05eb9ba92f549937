#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <cwchar>
#include <string>

namespace quorbind::testing {

/// Makes a class unknown while the object lives: its name leads to no class.
class HiddenClass {
 public:
  explicit HiddenClass(const std::wstring& progId)
      : key_(L"Software\\Classes\\" + progId + L"\\CLSID") {
    auto size = static_cast<DWORD>(sizeof(wchar_t) * classId_.size());
    ::RegGetValueW(
        HKEY_LOCAL_MACHINE, key_.c_str(), L"", RRF_RT_REG_SZ, nullptr, classId_.data(), &size);
    point(L"{00000000-0000-0000-0000-00000000DEAD}");
  }
  ~HiddenClass() { point(classId_.c_str()); }
  HiddenClass(const HiddenClass&) = delete;
  HiddenClass& operator=(const HiddenClass&) = delete;

 private:
  void point(const wchar_t* classId) const {
    const auto size = static_cast<DWORD>(sizeof(wchar_t) * (std::wcslen(classId) + 1));
    EXPECT_EQ(::RegSetKeyValueW(HKEY_LOCAL_MACHINE, key_.c_str(), L"", REG_SZ, classId, size),
              ERROR_SUCCESS);
  }

  const std::wstring key_;
  std::wstring classId_ = std::wstring(64, L'\0');
};

/// A machine without any version of the XML library.
class HiddenXmlLibrary {
  const HiddenClass six_{L"Msxml2.DOMDocument.6.0"};
  const HiddenClass four_{L"Msxml2.DOMDocument.4.0"};
  const HiddenClass three_{L"Msxml2.DOMDocument.3.0"};
};

}  // namespace quorbind::testing
