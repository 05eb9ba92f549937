// Books that hosts change or install.

#include "tests/operations/operations_test.h"
#include "tests/support/book_text.h"
#include "tests/support/category_text.h"
#include "tests/support/keyword_text.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kCatalogue = "C:\\Docs\\Plant\\Quor_TOC.xml";
constexpr const char* kCatalogueFile = "Docs/Plant/Quor_TOC.xml";
constexpr const char* kCategoriesFile = "Docs/Plant/Quor_BookCategories.xml";
constexpr const char* kKeywordsFile = "Docs/Plant/Quor_SearchKeywords.xml";

class BookPropertyOperations : public OperationsTest {
 protected:
  BookPropertyOperations() {
    write(kCatalogueFile, catalogueWith(entryOf(alarms)));
    write("Docs/Plant/Manual/Book_ALM.xml", bookXmlOf(alarms));
  }

  std::string set(const std::string& folder, const TextArray& categories) {
    return call("mbsetQuorBookProperties",
                {kCatalogue, "Alarms", categories, folder, "ALM@QUOR@2"});
  }

  const BookCase alarms{"Alarms", "ALM", "ALM@QUOR@1", {"Operation"}};
  const BookCase inCatalogue{"Alarms", "ALM", "ALM@QUOR@1", {"Safety", "R&amp;D"}};
  const BookCase inFile{"Alarms", "ALM", "ALM@QUOR@2", {"Safety", "R&amp;D"}};
};

TEST_P(BookPropertyOperations, SetCategoriesAndLinkWhereTheBookIs) {
  EXPECT_EQ(set(" Manual ", array({"Safety", "", "R&D", ""})), "True");
  EXPECT_THAT(shown(), IsEmpty());
  EXPECT_EQ(bytes(kCatalogueFile), saved(catalogueWith(entryOf(inCatalogue))));
  EXPECT_EQ(bytes("Docs/Plant/Manual/Book_ALM.xml"), saved(bookXmlOf(inFile)));
}

TEST_P(BookPropertyOperations, SetThemInACopyInAnotherFolder) {
  EXPECT_EQ(set("Neu\\Größe", array({"Safety", "R&D"})), "True");
  EXPECT_THAT(shown(), IsEmpty());
  EXPECT_EQ(bytes(kCatalogueFile), saved(catalogueWith(entryOf(inCatalogue))));
  EXPECT_EQ(bytes("Docs/Plant/Neu/Größe/Book_ALM.xml"), saved(bookXmlOf(inFile)));
  EXPECT_EQ(bytes("Docs/Plant/Manual/Book_ALM.xml"), bookXmlOf(alarms));
}

TEST_P(BookPropertyOperations, AnswerFalseAfterACopyThatFailedAndChangeNothing) {
  std::filesystem::remove(host().disk().path() / "Docs/Plant/Manual/Book_ALM.xml");
  const auto before = allFiles();
  EXPECT_EQ(set("New", array({"Safety"})), "False");
  EXPECT_THAT(shown(), IsEmpty());
  EXPECT_EQ(allFiles(), before);
}

TEST_P(BookPropertyOperations, ReportABookThatIsNotInTheCatalogue) {
  expectRefused("mbsetQuorBookProperties",
                {kCatalogue, "Trends", array({"Safety"}), "Manual", ""},
                "False",
                std::string("critical: Error(91): ") + kObjectNotSet +
                    "\nQuorbind:Book_Config::mserQuorBookProperties");
}

TEST_P(BookPropertyOperations, ReportAnArrayWithoutElementZeroForEachFile) {
  EXPECT_EQ(set("Manual", array({"Safety"}, 1)), "True");
  const std::string box =
      "critical: Error(9): Subscript out of range\nQuorbind:Book_Config::msetBookCategories";
  EXPECT_THAT(shown(), ElementsAre(box, box));
}

TEST_P(BookPropertyOperations, ReportABookFileThatIsNone) {
  write("Docs/Plant/Manual/Book_ALM.xml", "<Books/>");
  EXPECT_EQ(set("Manual", array({"Safety", "R&D"})), "True");
  EXPECT_THAT(shown(),
              ElementsAre(std::string("critical: Error(91): ") + kObjectNotSet +
                          "\nQuorbind:Book_Config::msetBookProperties"));
  EXPECT_EQ(bytes("Docs/Plant/Manual/Book_ALM.xml"), "<Books/>");
}

class InstallationOperations : public OperationsTest {
 protected:
  InstallationOperations() {
    write(kCatalogueFile, catalogueWith(""));
    write(kCategoriesFile, categoriesWith(category("Other Category")));
    write(kKeywordsFile, keywordsWith(""));
    write("In/guide.pdf", "the document");
  }

  /// With the host's details in `info`.
  static Arguments installing(const TextArray& info) {
    return {"C:\\In\\guide.pdf", "Guide.pdf", "ignored", "pdf", "Plant", 999, false, info};
  }
  std::string install(const TextArray& info) {
    return call("CreateQuorBookNodeForSEntry", installing(info));
  }
  void expectInstalled(const BookCase& book) const {
    std::string entry = entryOf(book);
    entry = replaceAll(entry, ">Prod<", ">Plant<");
    entry = replaceAll(entry, ">Manual<", ">" + book.acronym + "<");
    entry = replaceAll(
        entry, "<Book_File>Book_" + book.acronym + ".xml", "<Book_File type=\"pdf\">Guide.pdf");
    EXPECT_EQ(bytes(kCatalogueFile), saved(catalogueWith(entry)));
    EXPECT_EQ(bytes("Docs/Plant/" + book.acronym + "/Guide.pdf"), "the document");
    EXPECT_EQ(bytes("In/guide.pdf"), "the document");
  }
};

TEST_P(InstallationOperations, InstallADocumentWithItsKeywordsAndCategories) {
  EXPECT_EQ(install(array({"Guide", "GDE", "pump;motor", "Operation; Repair"})), "nothing");
  EXPECT_THAT(shown(), IsEmpty());
  expectInstalled({"Guide", "GDE", "", {"Operation", "Repair"}});
  EXPECT_EQ(bytes(kKeywordsFile), saved(keywordsWith(keywordsOf("Guide", {"pump", "motor"}))));
  EXPECT_EQ(bytes(kCategoriesFile),
            saved(categoriesWith(category("Operation", {"GDE"}) + category("Repair", {"GDE"}) +
                                 category("Other Category"))));
}

TEST_P(InstallationOperations, AskForTheNaming) {
  host().willEnter("R&D 中文", "RD");
  EXPECT_EQ(install(array({"", "", "", ""})), "nothing");
  EXPECT_THAT(shown(), ElementsAre("form frmBookInfo"));
  expectInstalled({"R&amp;amp;D 中文", "RD", "", {}});
}

TEST_P(InstallationOperations, EndWithoutAWordWhenTheUserCancels) {
  host().willCancel();
  expectRefused("CreateQuorBookNodeForSEntry",
                installing(array({"", "", "pump", "Operation"})),
                "nothing",
                "form frmBookInfo");
}

TEST_P(InstallationOperations, ReportFewerThanFourDetails) {
  expectRefused("CreateQuorBookNodeForSEntry",
                installing(array({"Guide", "GDE", "pump"})),
                "nothing",
                "critical: Error(9): Subscript out of range\n"
                "Quorbind:Book_Config::CreateQuorBookNodeForSEntry");
}

QUOR_IN_EVERY_WAY(BookPropertyOperations);
QUOR_IN_EVERY_WAY(InstallationOperations);

}  // namespace
}  // namespace quorbind::testing
