// Operations on a library that meet what no host's files can bring about: each has its box, and its
// failure value.

#include "tests/component/bound_host.h"
#include "tests/component/hidden_class.h"
#include "tests/support/book_text.h"
#include "tests/support/category_text.h"
#include "tests/support/keyword_text.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kCatalogue = "C:\\Quor_TOC.xml";
constexpr const char* kCategories = "C:\\Quor_BookCategories.xml";
constexpr const char* kKeywords = "C:\\Quor_SearchKeywords.xml";
constexpr const char* kDefaults = "C:\\Quor_DefaultCategories.xml";

/// A call with what it shows; `box` is empty for one that shows nothing.
struct FailingCall {
  std::string operation;
  Arguments arguments;
  std::string answer;
  std::string box;
};

class LibraryFaults : public ::testing::Test {
 protected:
  LibraryFaults() {
    host->disk().write("Docs/Quor_Selection.xml",
                       "<Quor_Selection_List><Quors><Quor><Quor_Name>Plant</Quor_Name>"
                       "<Quor_Location>Docs\\Plant</Quor_Location></Quor></Quors>"
                       "</Quor_Selection_List>");
    host->disk().write("Quor_TOC.xml", catalogueWith(bookEntry("Alarms", "ALM")));
    host->disk().write("Quor_BookCategories.xml", categoriesWith(category("Other Category")));
    host->disk().write("Quor_SearchKeywords.xml", keywordsWith(""));
    host->disk().write("Manual/Book_ALM.xml", bookXmlOf({"Alarms", "ALM", "", {}}));
  }

  /// Each call fails in its box, and no file changes.
  void expectFailures(const std::vector<FailingCall>& calls) const {
    const auto before = host->disk().contents();
    for (const FailingCall& call : calls) {
      SCOPED_TRACE(call.operation);
      EXPECT_EQ(host->call(call.operation, call.arguments), call.answer);
      const std::vector<std::string> shown = host->takeShown();
      EXPECT_EQ(shown, call.box.empty() ? std::vector<std::string>() : std::vector{call.box});
    }
    EXPECT_EQ(host->disk().contents(), before);
  }

  const std::unique_ptr<ComponentHost> host = makeLateBoundHost();
  const TextArray entries{{"", "ALM"}};
  /// What an installation is called with.
  const Arguments installation{"C:\\guide.pdf",
                               "guide.pdf",
                               "",
                               "pdf",
                               "Plant",
                               0,
                               false,
                               TextArray{{"Guide", "GDE", "", ""}}};
};

/// The five wordings of an error's box.
std::string ordinary(const std::string& error, const std::string& source) {
  return "critical: Error(" + error + "\nQuorbind:Book_Config::" + source;
}
std::string tight(const std::string& error, const std::string& source) {
  return "critical: Error(" + error + "\nQuorbind-" + source;
}
std::string wide(const std::string& error, const std::string& source) {
  return "message: Error (" + error + "\nQuorbind::Book_Config - " + source;
}
std::string underTitle(const std::string& error, const std::string& source) {
  return "information: [Quorbind::Book_Config-" + source + "] " + error;
}
std::string inProcedure(const std::string& error, const std::string& source) {
  return "message: Error " + error + " in procedure " + source;
}

TEST_F(LibraryFaults, AreError429WithoutTheXmlLibrary) {
  const HiddenXmlLibrary hidden;
  const std::string what = "ActiveX component can't create object";
  const std::string colon = "429): " + what;
  const std::string noBlank = "429):" + what;
  const std::string wideColon = "429 ):" + what;
  const std::string number = "429: " + what;
  expectFailures({
      {"QuorLocation", {"Plant"}, R"("")", ordinary(colon, "strQuorLoacation")},
      {"QuorNames", {}, "nothing", ordinary(colon, "QuorNames")},
      {"BookInfo", {kCatalogue}, "nothing", ordinary(colon, "BookInfo")},
      {"CategorieInfo", {kCatalogue, "Alarms"}, "nothing", ordinary(colon, "CategorieInfo")},
      {"strFolderLinkInfo", {kCatalogue, "Alarms", "old", "old"}, "nothing", ""},
      {"GetBookAcro", {kCatalogue, "Alarms"}, R"("")", ""},
      {"strBookAcroInfo", {kCatalogue, "Alarms"}, "nothing", ""},
      {"UpdateBookNameAcro",
       {"C:\\Manual\\Book_ALM.xml", "Alarms", "ALM"},
       "nothing",
       ordinary(colon, "UpdateBookNameAcro")},
      {"DeleteQuorNode", {kCatalogue, "Alarms"}, "nothing", ordinary(colon, "DeleteNode")},
      {"strMatchingBooksInfo",
       {kCatalogue, kCatalogue},
       "nothing",
       ordinary(colon, "strMatchingBooksInfo")},
      {"mbsetQuorBookProperties",
       {kCatalogue, "Alarms", entries, "Manual", ""},
       "False",
       ordinary(colon, "mserQuorBookProperties")},
      {"AddBookCateToXMLFile",
       {kCategories, "New"},
       "nothing",
       tight(noBlank, "Book_Config::AddBookCateToXMLFile")},
      {"EditBookCateToXMLFile",
       {kCategories, "New", "Other Category"},
       "nothing",
       wide(wideColon, "EditBookCateToXMLFile")},
      {"bCheckIfDefaultCategory",
       {kDefaults, "New", 0},
       "False",
       wide(wideColon, "bCheckIfDefaultCategory")},
      {"bCheckCategoryinQuorBookCategories",
       {kCategories},
       "False",
       wide(wideColon, "bCheckCategoryinQuorBookCategories")},
      {"GetBookAcroInfo",
       {kCategories, kCatalogue},
       "nothing",
       underTitle(number, "GetBookAcroInfo")},
      {"GetBookAcroValue", {"A", kCatalogue}, "nothing", underTitle(number, "GetBookAcroValue")},
      {"AddBookAcro", {"A", entries, kCategories}, "nothing", underTitle(number, "AddBookAcro")},
      {"Addothercategory",
       {"A", entries, kCategories},
       "nothing",
       underTitle(number, "AddOtherCategoryBookAcro")},
      {"AddCategoryNode",
       {"A", "ALM", kCategories},
       "nothing",
       inProcedure("429 (" + what + ")", "AddCategoryNode of Class Module Quor_Book")},
      {"AddKeywordsToXmlFile",
       {kKeywords, "Alarms", "net"},
       "nothing",
       tight(noBlank, "Quor_Book::AddKeywordsToXmlFile")},
      {"EditKeywordsToXmlFile",
       {kKeywords, "Alarms", "net", "old"},
       "nothing",
       tight(noBlank, "Quor_Book::AddKeywordsToXmlFile")},
      {"AddToLinkIDFile",
       {kKeywords, "X1", "", "", "", ""},
       "nothing",
       tight(noBlank, "Quor_Book::AddToLinkIDFile")},
  });
}

TEST_F(LibraryFaults, AreError429WithoutTheTextRules) {
  const HiddenClass hidden(L"Quor_XmlTextRules.clsXmlTextRules");
  const std::string what = "ActiveX component can't create object";
  expectFailures({
      {"CategorieInfo",
       {kCatalogue, "Alarms"},
       "nothing",
       ordinary("429): " + what, "CategorieInfo")},
      {"strBookAcroInfo", {kCatalogue, "Alarms"}, "nothing", ""},
      {"AddKeywords",
       {entries, kKeywords},
       "nothing",
       inProcedure("429 (" + what + ")", "AddKeywords of User Control ctlBooksTab")},
      {"CreateQuorBookNodeForSEntry",
       installation,
       "nothing",
       ordinary("429): " + what, "CreateQuorBookNodeForSEntry")},
  });
}

TEST_F(LibraryFaults, NameTheServerThatNobodyConfigured) {
  ::SetEnvironmentVariableW(L"QUOR_SERVER", nullptr);
  const std::string error = "-2147220991): The documentation server folder is not configured";
  expectFailures({
      {"QuorLocation", {"Plant"}, R"("")", ordinary(error, "strQuorLoacation")},
      {"QuorNames", {}, "nothing", ordinary(error, "QuorNames")},
      {"CreateQuorBookNodeForSEntry",
       installation,
       "nothing",
       ordinary(error, "CreateQuorBookNodeForSEntry")},
  });
}

TEST_F(LibraryFaults, AreReportedAtTheCopyWithoutTheCopyComponent) {
  const HiddenClass hidden(L"Quor_FileCopy.clsFileCopy");
  expectFailures(
      {{"mbsetQuorBookProperties",
        {kCatalogue, "Alarms", entries, "New", ""},
        "False",
        ordinary("429): ActiveX component can't create object", "mserQuorBookProperties")}});
}

/// Arrays that hosts hand over by mistake, and those that they never set.
class ArrayFaults : public ComponentTest {
 protected:
  /// Calls with a text array of numbers in the place of each array; answers the only box.
  std::string boxOf(const wchar_t* progId,
                    const wchar_t* operation,
                    std::vector<VARIANT> arguments) const {
    const auto object = createByName(progId);
    Attendant attendant;
    attendant.during([&] {
      const LateAnswer answer = callByName(object.get(), operation, std::move(arguments));
      EXPECT_EQ(answer.result, S_OK);
      EXPECT_TRUE(answer.value.type() != VT_BOOL || !answer.value.boolean());
    });
    const std::vector<std::string> shown = attendant.takeShown();
    EXPECT_EQ(shown.size(), 1U);
    return shown.empty() ? "" : shown.front();
  }
  std::string boxOfConfig(const wchar_t* operation, std::vector<VARIANT> arguments) const {
    return boxOf(L"Quorbind.Book_Config", operation, std::move(arguments));
  }

  Variant numbers = numberArray();
  Variant empty = Variant::ofText("");
};

TEST_F(ArrayFaults, OfNumbersAreATypeMismatchOfTheOperation) {
  const VARIANT array = variable(numbers);
  const VARIANT text = variable(empty);
  EXPECT_EQ(boxOfConfig(L"mbsetQuorBookProperties", {text, text, array, text, text}),
            ordinary("13): Type mismatch", "mserQuorBookProperties"));
  EXPECT_EQ(boxOfConfig(L"CreateQuorBookNodeForSEntry",
                        {text, text, text, text, text, number(0), number(0), array}),
            ordinary("13): Type mismatch", "CreateQuorBookNodeForSEntry"));
  EXPECT_EQ(boxOfConfig(L"AddBookAcro", {text, array, text}),
            underTitle("13: Type mismatch", "AddBookAcro"));
  EXPECT_EQ(boxOfConfig(L"Addothercategory", {text, array}),
            underTitle("13: Type mismatch", "AddOtherCategoryBookAcro"));
  EXPECT_EQ(boxOfConfig(L"SortArray", {array, array}),
            "critical: Error(13): Type mismatch\nQuorbind:Global_Variables::SortArray");
  EXPECT_EQ(boxOf(L"Quorbind.Quor_Book", L"AddKeywords", {array, text}),
            inProcedure("13 (Type mismatch)", "AddKeywords of User Control ctlBooksTab"));
}

TEST_F(ArrayFaults, ThatAreUnsetHaveNoElementsWhereNoFileIsLookedAt) {
  const auto config = create<_Book_Config>(CLSID_Book_Config);
  SAFEARRAY* unset = nullptr;
  Variant sorted;
  sorted.put()->vt = VT_ARRAY | VT_BSTR;
  EXPECT_EQ(config->SortArray(&unset, &unset, 0, &arrayIn(sorted)), S_OK);
  EXPECT_EQ(unset, nullptr);
  EXPECT_THAT(textsIn(sorted), IsEmpty());
  EXPECT_EQ(config->AddBookAcro(nullptr, &unset, nullptr), S_OK);
  EXPECT_EQ(config->Addothercategory(nullptr, &unset, nullptr), S_OK);
}

/// Texts that are passed by reference.
using TextVariables = ComponentTest;

TEST_F(TextVariables, AreFilledWhateverTheyHeldBefore) {
  const TemporaryFolder disk;
  disk.write("Quor_TOC.xml", catalogueWith(bookEntry("Alarms", "ALM")));
  const Bstr catalogue(toUtf8(disk.path().wstring()) + "\\Quor_TOC.xml");
  const auto config = create<_Book_Config>(CLSID_Book_Config);
  BSTR folder = nullptr;
  BSTR link = ::SysAllocString(L"old");
  EXPECT_EQ(config->strFolderLinkInfo(catalogue.get(), Bstr("Alarms").get(), &folder, &link), S_OK);
  EXPECT_EQ(textOf(folder), "Manual");
  EXPECT_EQ(textOf(link), "");
  ::SysFreeString(folder);
  ::SysFreeString(link);
}

TEST_F(TextVariables, OfAScriptNeedNotHoldATextBefore) {
  const TemporaryFolder disk;
  disk.write("Quor_TOC.xml", catalogueWith(bookEntry("Alarms", "ALM")));
  const auto config = createByName(L"Quorbind.Book_Config");
  Variant catalogue = Variant::ofText(toUtf8(disk.path().wstring()) + "\\Quor_TOC.xml");
  Variant name = Variant::ofText("Alarms");
  Variant folder;
  Variant link = Variant::ofInteger(7);
  const LateAnswer answer =
      callByName(config.get(),
                 L"strFolderLinkInfo",
                 {variable(catalogue), variable(name), variable(folder), variable(link)});
  EXPECT_EQ(answer.result, S_OK);
  EXPECT_EQ(folder.text(), "Manual");
  EXPECT_EQ(link.text(), "");
}

}  // namespace
}  // namespace quorbind::testing
