// The categories file of a library, as hosts make, edit and fill it.

#include "tests/operations/operations_test.h"
#include "tests/support/book_text.h"
#include "tests/support/category_text.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kPath = "C:\\Docs\\Plant\\Quor_BookCategories.xml";
constexpr const char* kFile = "Docs/Plant/Quor_BookCategories.xml";
constexpr const char* kDefaults = "C:\\Docs\\Quor_DefaultCategories.xml";
constexpr const char* kCatalogue = "C:\\Docs\\Plant\\Quor_TOC.xml";
constexpr std::string_view kHeader =
    "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"
    "<!-- Quorbind Documentation Tools, Library Tools Group\n"
    "    Quor Documentation Library\n"
    "    Quorbind Book Categories data file \n"
    "    DATE\n"
    "    Version 0.1 \n"
    "    Information 'quorbind@example.com' -->\n";
constexpr const char* kApostrophe =
    "The value O'Neil can't stand in a query between the quote characters it contains.";

std::string_view withoutLastLineEnd(std::string_view text) {
  return text.ends_with('\n') ? text.substr(0, text.size() - 1) : text;
}

class CategoryOperations : public OperationsTest {
 protected:
  CategoryOperations() {
    write(
        "Docs/Quor_DefaultCategories.xml",
        "<Default_Categories>"
        "<Quor_Developer_Pro><CategoryName>Zeta</CategoryName><CategoryName>R&amp;D</CategoryName>"
        "</Quor_Developer_Pro>"
        "<Quor_Developer><CategoryName>Guides</CategoryName></Quor_Developer>"
        "</Default_Categories>");
    write("Docs/Plant/Quor_TOC.xml",
          catalogueWith(entryOf({"Alarms", "ALM", "", {"Operation"}}) +
                        entryOf({"Trends", "TRD", "", {"Repair", "Operation"}}) +
                        entryOf({"Basics", "BAS", "", {}})));
  }

  void writeFile(std::string_view categories) const { write(kFile, categoriesWith(categories)); }
  void expectFile(const std::string& categories) const {
    EXPECT_EQ(bytes(kFile), saved(categoriesWith(categories)));
  }
  /// A file as it is when it was made and not changed since: it ends directly behind its root.
  void expectMade(std::string_view tree) const {
    EXPECT_EQ(bytes(kFile),
              utf16File(saved(std::string(kHeader).append(withoutLastLineEnd(tree)))));
  }
  /// What became of it when it was saved since.
  void expectSaved(std::string_view tree) const {
    EXPECT_EQ(bytes(kFile), utf16File(saved(std::string(kHeader).append(tree))));
  }
  static std::string wideBox(const std::string& error, const std::string& operation) {
    return "message: Error (" + error + "\nQuorbind::Book_Config - " + operation;
  }
};

// Making the file

TEST_P(CategoryOperations, MakeTheFileFromTheDefaultsOfTheInstallationType) {
  write("Docs/Plant/keep", "");
  EXPECT_EQ(call("CreateBookCateXmlFile", {"C:\\Docs\\", kPath, 1000, false}), "nothing");
  expectMade(categoriesWith(category("Zeta") + category("R&amp;D") + category("Other Category")));
  EXPECT_EQ(call("CreateBookCateXmlFile", {"C:\\Docs\\", kPath, 999}), "nothing");
  expectMade(categoriesWith(category("Guides") + category("Other Category")));
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_P(CategoryOperations, MakeAnEmptyFileWhenTold) {
  EXPECT_EQ(call("CreateBookCateXmlFile", {"C:\\Docs\\", kPath, 1000, true}), "nothing");
  expectMade("<BookSet_Categories/>\n");
  EXPECT_EQ(call("bCheckCategoryinQuorBookCategories", {kPath}), "True");
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_P(CategoryOperations, ReportDefaultsThatDoNotLoadAndLeaveTheHeaderAlone) {
  EXPECT_EQ(call("CreateBookCateXmlFile", {"C:\\Docs", kPath, 1000}), "nothing");
  EXPECT_THAT(shown(),
              ElementsAre(std::string("critical: Error(91):") + kObjectNotSet +
                          "\nQuorbind-Book_Config::CreateBookCateXMLFile"));
  expectMade("");
}

TEST_P(CategoryOperations, ReportAFolderThatIsNotThere) {
  expectRefused("CreateBookCateXmlFile",
                {"C:\\Docs\\", "C:\\no\\categories.xml", 0},
                "nothing",
                "critical: Error(76):Path not found\nQuorbind-Book_Config::CreateBookCateXMLFile");
}

// Editing it

TEST_P(CategoryOperations, AddACategoryInFrontOfTheLastAndRenameIt) {
  writeFile(category("Operation", {"ALM"}) + category("Other Category"));
  EXPECT_EQ(call("AddBookCateToXMLFile", {kPath, "Grüße 中文"}), "nothing");
  expectFile(category("Operation", {"ALM"}) + category("Grüße 中文") + category("Other Category"));
  EXPECT_EQ(call("EditBookCateToXMLFile", {kPath, "R&D", "Operation"}), "nothing");
  expectFile(category("R&amp;D", {"ALM"}) + category("Grüße 中文") + category("Other Category"));
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_P(CategoryOperations, KeepTheFormOfAFileThatTheyMade) {
  call("CreateBookCateXmlFile", {"C:\\Docs\\", kPath, 0});
  call("AddBookCateToXMLFile", {kPath, "New"});
  expectSaved(categoriesWith(category("Guides") + category("New") + category("Other Category")));
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_P(CategoryOperations, ReportAFileThatDoesNotLoadAndLeaveIt) {
  write(kFile, "<BookSet_Categories>");
  expectRefused("AddBookCateToXMLFile",
                {kPath, "New"},
                "nothing",
                std::string("critical: Error(-1072896680):") + kNoTopLevelElement +
                    "\nQuorbind-Book_Config::AddBookCateToXMLFile");
  expectRefused(
      "EditBookCateToXMLFile",
      {kPath, "New", "Old"},
      "nothing",
      wideBox(std::string("-1072896680 ):") + kNoTopLevelElement, "EditBookCateToXMLFile"));
}

TEST_P(CategoryOperations, ReportAnOldNameWithAnApostrophe) {
  writeFile(category("O'Neil"));
  expectRefused("EditBookCateToXMLFile",
                {kPath, "New", "O'Neil"},
                "nothing",
                wideBox(std::string("-2147467259 ):") + kApostrophe, "EditBookCateToXMLFile"));
}

// Asking about it

TEST_P(CategoryOperations, KnowTheDefaultCategoriesToTheLetter) {
  EXPECT_EQ(call("bCheckIfDefaultCategory", {kDefaults, "R&D", 1000}), "True");
  EXPECT_EQ(call("bCheckIfDefaultCategory", {kDefaults, "r&d", 1000}), "False");
  EXPECT_EQ(call("bCheckIfDefaultCategory", {kDefaults, "Guides", 1000}), "False");
  EXPECT_EQ(call("bCheckIfDefaultCategory", {kDefaults, "Guides", -1}), "True");
  EXPECT_EQ(call("bCheckIfDefaultCategory", {"C:\\no.xml", "Guides", 0}), "False");
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_P(CategoryOperations, ReportADefaultCategoryWithAnApostrophe) {
  expectRefused("bCheckIfDefaultCategory",
                {kDefaults, "O'Neil", 0},
                "False",
                wideBox(std::string("-2147467259 ):") + kApostrophe, "bCheckIfDefaultCategory"));
}

TEST_P(CategoryOperations, TellAnEmptyFileFromOneWithACategory) {
  EXPECT_EQ(call("bCheckCategoryinQuorBookCategories", {kPath}), "False");
  write(kFile, "<BookSet_Categories/>");
  EXPECT_EQ(call("bCheckCategoryinQuorBookCategories", {kPath}), "True");
  writeFile(category("Other Category"));
  EXPECT_EQ(call("bCheckCategoryinQuorBookCategories", {kPath}), "False");
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_P(CategoryOperations, ReportAnotherKindOfFileThanOneOfCategories) {
  write(kFile, "<Books/>");
  expectRefused(
      "bCheckCategoryinQuorBookCategories",
      {kPath},
      "False",
      wideBox(std::string("91 ):") + kObjectNotSet, "bCheckCategoryinQuorBookCategories"));
  expectRefused(
      "GetBookAcroInfo",
      {kPath, kCatalogue},
      "nothing",
      std::string("information: [Quorbind::Book_Config-GetBookAcroInfo] 91: ") + kObjectNotSet);
}

// Filing books

TEST_P(CategoryOperations, AnswerTheAcronymsOfACategoryBehindAnEmptyEntry) {
  EXPECT_EQ(call("GetBookAcroValue", {"Operation", kCatalogue}), R"(["", "ALM", "TRD"])");
  EXPECT_EQ(call("GetBookAcroValue", {"operation", kCatalogue}), R"([""])");
  EXPECT_EQ(call("GetBookAcroValue", {"Operation", "C:\\no.xml"}), R"([""])");
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_P(CategoryOperations, BringTheFileUpToDateWithTheCatalogue) {
  writeFile(category("Operation", {"OLD"}) + category("Repair") + category("Other Category"));
  EXPECT_EQ(call("GetBookAcroInfo", {kPath, kCatalogue}), "nothing");
  expectFile(category("Operation", {"OLD", "ALM", "TRD"}) + category("Repair", {"TRD"}) +
             category("Other Category", {"BAS"}));
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_P(CategoryOperations, AddAcronymsToACategoryThatDoesNotHaveThem) {
  writeFile(category("Operation", {"ALM"}) + category("Other Category"));
  EXPECT_EQ(call("AddBookAcro", {"Operation", array({"", "ALM", "TRD"}), kPath}), "nothing");
  EXPECT_EQ(call("AddBookAcro", {"Operation", array({"passed over", "BAS"}, 7), kPath}), "nothing");
  EXPECT_EQ(call("AddBookAcro", {"Unknown", array({"", "ALM"}), kPath}), "nothing");
  expectFile(category("Operation", {"ALM", "TRD", "BAS"}) + category("Other Category"));
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_P(CategoryOperations, ReportACategoryWithAnApostropheUnderTheTitleOfAddingAcronyms) {
  writeFile(category("O'Neil"));
  expectRefused(
      "AddBookAcro",
      {"O'Neil", array({"", "ALM"}), kPath},
      "nothing",
      std::string("information: [Quorbind::Book_Config-AddBookAcro] -2147467259: ") + kApostrophe);
}

TEST_P(CategoryOperations, AddToOtherCategoryTheElementBehindTheAcronymsThatItHas) {
  writeFile(category("Other Category", {"X", "V"}));
  EXPECT_EQ(call("Addothercategory", {"Other Category", array({"", "Y", "Z", "W"}), kPath}),
            "nothing");
  expectFile(category("Other Category", {"X", "V", "Z", "Z", "Z"}));
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_P(CategoryOperations, AddToOtherCategoryOfTheCurrentFileWhenNoneIsNamed) {
  writeFile(category("Operation"));
  call("AddBookCateToXMLFile", {kPath, "Other Category"});
  EXPECT_EQ(call("Addothercategory", {"Other Category", array({"", "Y", "Z"})}), "nothing");
  expectFile(category("Operation") + category("Other Category", {"Y", "Z"}));
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_P(CategoryOperations, ReportAnArrayThatIsTooShortForOtherCategory) {
  writeFile(category("Other Category", {"X", "V"}));
  expectRefused("Addothercategory",
                {"Other Category", array({"", "Y"}), kPath},
                "nothing",
                "information: [Quorbind::Book_Config-AddOtherCategoryBookAcro] 9: Subscript out of "
                "range");
}

TEST_P(CategoryOperations, ReportAnArrayThatWasNeverSet) {
  writeFile(category("Other Category", {"X"}));
  for (const auto& [operation, source] :
       {std::pair("AddBookAcro", "AddBookAcro"),
        std::pair("Addothercategory", "AddOtherCategoryBookAcro")}) {
    expectRefused(operation,
                  {"Other Category", TextArray::unset(), kPath},
                  "nothing",
                  std::string("information: [Quorbind::Book_Config-")
                      .append(source)
                      .append("] 9: Subscript out of range"));
  }
}

TEST_P(CategoryOperations, SortNamesWithTheirAcronymsBehindThePlaceholder) {
  EXPECT_EQ(call("SortArray", {array({"", "b", "A", "c"}), array({"", "2", "1", "3"}), 0}),
            R"(["", "1", "2", "3"], 1: ["", "A", "b", "c"], 2: ["", "1", "2", "3"])");
  EXPECT_EQ(call("SortArray", {array({"", "b", "A"}), array({"", "2"})}),
            R"(["", "2"], 1: ["", "A", "b"])");
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_P(CategoryOperations, FileOneBookUnderACategoryThatIsMadeWhenItIsNew) {
  writeFile(category("Operation") + category("Other Category"));
  EXPECT_EQ(call("AddCategoryNode", {"Operation", "ALM", kPath}), "nothing");
  EXPECT_EQ(call("AddCategoryNode", {"Repair", "ALM"}), "nothing");
  EXPECT_EQ(call("AddCategoryNode", {"Operation", "TRD", "C:\\another.xml"}), "nothing");
  expectFile(category("Operation", {"ALM", "TRD"}) + category("Repair", {"ALM"}) +
             category("Other Category"));
  EXPECT_FALSE(has("another.xml"));
  EXPECT_THAT(shown(), IsEmpty());
}

TEST_P(CategoryOperations, FileTheBookThatTheUserNamedWhenNoneIsGiven) {
  writeFile(category("Operation"));
  host().willEnter("Guide", "GDE");
  call("mbGetFormInput", {"", 4});
  EXPECT_EQ(call("AddCategoryNode", {"Operation", "", kPath}), "nothing");
  expectFile(category("Operation", {"GDE"}));
  EXPECT_THAT(shown(), ElementsAre("form frmBookInfo"));
}

TEST_P(CategoryOperations, ReportAFilingUnderANameWithAnApostrophe) {
  writeFile(category("O'Neil"));
  expectRefused("AddCategoryNode",
                {"O'Neil", "ALM", kPath},
                "nothing",
                std::string("message: Error -2147467259 (") + kApostrophe +
                    ") in procedure AddCategoryNode of Class Module Quor_Book");
}

QUOR_IN_EVERY_WAY(CategoryOperations);

}  // namespace
}  // namespace quorbind::testing
