// The component on a machine where something that it needs is not installed.

#include "tests/component/component_test.h"
#include "tests/component/hidden_class.h"
#include "tests/component/window_driver.h"
#include "tests/support/catalogue_text.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {
namespace {

constexpr const char* kCheckCannotCreate =
    "Error(429): ActiveX component can't create object\nQuorbind: Quor_Book::mbcheckQuorTocForBook";
constexpr const char* kInputCannotCreate =
    "Error(429): ActiveX component can't create object\nQuorbind: Quor_Book::mbGetFormInput";
constexpr const char* kRunCannotCreate =
    "Error(429): ActiveX component can't create object\nQuorbind: Quor_Book::Book_Valuator";

class MissingPart : public ComponentTest {
 protected:
  void checkABook() const {
    VARIANT_BOOL result = VARIANT_TRUE;
    EXPECT_EQ(book_->mbCheckQuorTOCForBook(
                  Bstr("C:\\Quor_TOC.xml").get(), Bstr("B").get(), Bstr("A").get(), &result),
              S_OK);
    EXPECT_EQ(result, VARIANT_FALSE);
  }

  void askForABook() const {
    VARIANT_BOOL given = VARIANT_TRUE;
    EXPECT_EQ(book_->mbGetFormInput(nullptr, 4, &given), S_OK);
    EXPECT_EQ(given, VARIANT_FALSE);
  }

  /// Adds a book that breaks no rule; answers whether the run came to its end.
  bool addABook() const {
    const auto path = [this](const char* name) { return Bstr(folder_.path().string() + name); };
    VARIANT_BOOL finished = VARIANT_FALSE;
    EXPECT_EQ(book_->Book_Valuator(path("\\toc.txt").get(),
                                   path("\\Docs\\Plant\\Quor_TOC.xml").get(),
                                   4,
                                   Bstr("Plant").get(),
                                   Bstr("Alarms").get(),
                                   Bstr("ALM").get(),
                                   nullptr,
                                   nullptr,
                                   nullptr,
                                   nullptr,
                                   nullptr,
                                   nullptr,
                                   0,
                                   VARIANT_FALSE,
                                   path("\\Docs\\").get(),
                                   &finished),
              S_OK);
    return finished != VARIANT_FALSE;
  }
  void expectNothingChanged() const { EXPECT_EQ(folder_.contents(), before_); }

 private:
  static TemporaryFolder& withABookToAdd(TemporaryFolder& folder) {
    folder.write("toc.txt",
                 "\"Node Level\" \"Node Name\" \"File Name\" \"Sub Link\"\r\n\r\n"
                 "\"1\" \"Alarms\" \"Manual\\cover.htm\" \"\" "
                 "$@@$1$@@$ $@@$Alarms$@@$ $@@$Manual\\cover.htm$@@$ $@@$$@@$ "
                 "$@@$#NoLink#$@@$ $@@$#NO_BOOKLINK#$@@$\r\n");
    folder.write("Docs/Plant/Quor_TOC.xml", catalogueWith(""));
    return folder;
  }

  TemporaryFolder folder_;
  const std::map<std::string, std::string> before_ = withABookToAdd(folder_).contents();
  const ComPtr<_Quor_Book> book_ = create<_Quor_Book>(CLSID_Quor_Book);
};

TEST_F(MissingPart, ToolsetIsError429) {
  ASSERT_EQ(toolset.unregisterServer(), S_OK);
  {
    const Person person([] { dismissMessage(kCheckCannotCreate); });
    checkABook();
  }
  const Person person([] { dismissMessage(kInputCannotCreate); });
  EXPECT_TRUE(addABook());
  expectNothingChanged();
}

TEST_F(MissingPart, XmlLibraryIsError429) {
  const HiddenXmlLibrary hidden;
  {
    const Person person([] { dismissMessage(kCheckCannotCreate); });
    checkABook();
  }
  {
    const Person person([] { dismissMessage(kInputCannotCreate); });
    askForABook();
  }
  const Person person([] { dismissMessage(kRunCannotCreate); });
  EXPECT_FALSE(addABook());
  expectNothingChanged();
}

}  // namespace
}  // namespace quorbind::testing
