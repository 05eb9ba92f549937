// The component on a machine where something that it needs is not installed.

#include <cwchar>

#include "tests/component/component_test.h"
#include "tests/component/window_driver.h"

namespace quorbind::testing {
namespace {

constexpr const char* kCheckCannotCreate =
    "Error(429): ActiveX component can't create object\nQuorbind: Quor_Book::mbcheckQuorTocForBook";

class MissingPart : public ComponentTest {
 protected:
  void checkABook() const {
    VARIANT_BOOL result = VARIANT_TRUE;
    EXPECT_EQ(book_->mbCheckQuorTOCForBook(
                  Bstr("C:\\Quor_TOC.xml").get(), Bstr("B").get(), Bstr("A").get(), &result),
              S_OK);
    EXPECT_EQ(result, VARIANT_FALSE);
  }

 private:
  const ComPtr<_Quor_Book> book_ = create<_Quor_Book>(CLSID_Quor_Book);
};

TEST_F(MissingPart, ToolsetIsError429) {
  ASSERT_EQ(toolset.unregisterServer(), S_OK);
  const Person person([] { dismissMessage(kCheckCannotCreate); });
  checkABook();
}

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

TEST_F(MissingPart, XmlLibraryIsError429) {
  const HiddenClass six(L"Msxml2.DOMDocument.6.0");
  const HiddenClass four(L"Msxml2.DOMDocument.4.0");
  const HiddenClass three(L"Msxml2.DOMDocument.3.0");
  const Person person([] { dismissMessage(kCheckCannotCreate); });
  checkABook();
}

}  // namespace
}  // namespace quorbind::testing
