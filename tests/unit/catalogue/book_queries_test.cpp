#include "catalogue/book_queries.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/catalogue_text.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/world.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::string_view kPath = "C:\\Quor_TOC.xml";

class CatalogueQueries : public ::testing::Test {
 protected:
  void writeCatalogue(std::string_view bytes) { world_.disk.write("Quor_TOC.xml", bytes); }
  void writeBooks(std::string_view books) { writeCatalogue(catalogueWith(books)); }

  std::vector<std::string> names() { return BookInfo(world_.platform(), std::string(kPath)); }
  std::vector<std::string> categoriesOf(const std::string& name) {
    return CategorieInfo(world_.platform(), std::string(kPath), name);
  }
  std::string acronymOf(const std::string& name) {
    return GetBookAcro(world_.platform(), std::string(kPath), name);
  }
  /// Folder and link, which were `old folder` and `old link` before.
  std::vector<std::string> folderAndLinkOf(const std::string& name) {
    std::string folder = "old folder";
    std::string link = "old link";
    strFolderLinkInfo(world_.platform(), std::string(kPath), name, folder, link);
    return {folder, link};
  }
  [[nodiscard]] const std::vector<std::string>& record() const { return world_.user.record(); }

  World world_;
};

// Names of all books

TEST_F(CatalogueQueries, ListThreeBooksAsFourEntriesTheLastOneEmpty) {
  writeBooks(bookEntry("Trends", "TRD") + bookEntry("Alarms", "ALM") + bookEntry("Basics", "BAS"));
  EXPECT_THAT(names(), ElementsAre("Trends", "Alarms", "Basics", ""));
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(CatalogueQueries, ListACatalogueWithoutBooksAsOneEmptyEntry) {
  writeBooks("");
  EXPECT_THAT(names(), ElementsAre(""));
}

TEST_F(CatalogueQueries, ListNamesAsTheyAreStoredAndWhereverTheyStand) {
  writeCatalogue("<Other><Book_Name>R&amp;amp;D</Book_Name><x><Book_Name/></x></Other>");
  EXPECT_THAT(names(), ElementsAre("R&amp;D", "", ""));
}

TEST_F(CatalogueQueries, TellOfACatalogueThatDoesNotLoadWhenTheBooksAreAskedFor) {
  EXPECT_THAT(names(), IsEmpty());
  for (const std::string bytes : {"", "<Quor_Master><Quor_Books>", "PK\x03\x04"}) {
    SCOPED_TRACE(bytes);
    writeCatalogue(bytes);
    world_.user.forget();
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_THAT(record(), ElementsAre("critical: Quor_TOC.xml is not of valid format"));
    EXPECT_EQ(world_.disk.read("Quor_TOC.xml"), bytes);
  }
}

TEST_F(CatalogueQueries, ReadACatalogueInWhateverEncodingItIs) {
  const std::string text = "<Quor_Master><Book_Name>Über</Book_Name></Quor_Master>";
  writeCatalogue(utf16File("<?xml version=\"1.0\" encoding=\"UTF-16\"?>" + text));
  EXPECT_THAT(names(), ElementsAre("Über", ""));
  writeCatalogue("\xEF\xBB\xBF" + text);
  EXPECT_THAT(names(), ElementsAre("Über", ""));
  writeCatalogue(
      "<?xml version=\"1.0\" encoding=\"windows-1252\"?>"
      "<Quor_Master><Book_Name>\xDC"
      "ber</Book_Name></Quor_Master>");
  EXPECT_THAT(names(), ElementsAre("Über", ""));
}

// Categories of a book

std::string bookWithCategories(std::string_view name, std::string_view categories) {
  return "<Book><Book_Name>" + std::string(name) + "</Book_Name><Book_Categories>" +
         std::string(categories) + "</Book_Categories></Book>";
}

TEST_F(CatalogueQueries, ListTheCategoriesOfABookAndAnEmptyEntry) {
  writeBooks(bookWithCategories("Alarms",
                                "<Book_Category>Trends</Book_Category>"
                                "<Book_Category/>"
                                "<Book_Category> Alarms </Book_Category>"));
  EXPECT_THAT(categoriesOf("Alarms"), ElementsAre("Trends", "", " Alarms ", ""));
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(CatalogueQueries, ListEveryChildOfTheCategoriesWhateverItsName) {
  writeBooks(bookWithCategories("Alarms", "<Category>A</Category><!--B-->"));
  EXPECT_THAT(categoriesOf("Alarms"), ElementsAre("A", "B", ""));
}

TEST_F(CatalogueQueries, ListTheCategoriesOfABookWithoutAnyAsOneEmptyEntry) {
  writeBooks(bookEntry("Alarms", "ALM"));
  EXPECT_THAT(categoriesOf("Alarms"), ElementsAre(""));
}

TEST_F(CatalogueQueries, ListNoCategoriesOfABookThatIsNotThereNorOfACatalogueThatDoesNotLoad) {
  writeBooks(bookEntry("Alarms", "ALM"));
  EXPECT_THAT(categoriesOf("alarms"), IsEmpty());
  writeCatalogue("<Quor_Master>");
  EXPECT_THAT(categoriesOf("Alarms"), IsEmpty());
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(CatalogueQueries, FindTheCategoriesByTheNameAsItIsTyped) {
  writeBooks(bookWithCategories("R&amp;amp;D &amp;lt;a&amp;gt; &amp;quot;b&amp;quot; c&amp;apos;s",
                                "<Book_Category>A</Book_Category>"));
  EXPECT_THAT(categoriesOf("R&D <a> \"b\" c's"), ElementsAre("A", ""));
  EXPECT_THAT(categoriesOf("R&amp;D &lt;a&gt; &quot;b&quot; c&apos;s"), ElementsAre("A", ""));
}

TEST_F(CatalogueQueries, ReportAnEntryThatHasNoCategoriesElement) {
  writeBooks("<Book><Book_Name>Alarms</Book_Name></Book>");
  EXPECT_THAT(categoriesOf("Alarms"), IsEmpty());
  EXPECT_THAT(record(),
              ElementsAre("critical: Error(91): Object variable or With block variable not set\r"
                          "Quorbind:Book_Config::CategorieInfo"));
}

TEST_F(CatalogueQueries, ReportTextRulesThatCanNotBeHadWhenCategoriesAreAskedFor) {
  writeBooks(bookEntry("Alarms", "ALM"));
  world_.toolset.breakDown();
  EXPECT_THAT(categoriesOf("Alarms"), IsEmpty());
  EXPECT_THAT(record(),
              ElementsAre("critical: Error(429): ActiveX component can't create object\r"
                          "Quorbind:Book_Config::CategorieInfo"));
}

// Folder and link of a book

TEST_F(CatalogueQueries, FetchFolderAndLinkOfTheFirstBookOfTheName) {
  writeBooks(
      "<Book><Book_Name>Alarms</Book_Name><Book_Key id='ALM@QUOR@1' x='2'>P</Book_Key>"
      "<Book_Folder>Manual</Book_Folder></Book>" +
      bookEntry("Alarms", "AL2"));
  EXPECT_THAT(folderAndLinkOf("Alarms"), ElementsAre("Manual", "ALM@QUOR@1"));
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(CatalogueQueries, EmptyFolderAndLinkForABookThatIsNotThere) {
  writeBooks(bookEntry("Alarms", "ALM"));
  EXPECT_THAT(folderAndLinkOf("Trends"), ElementsAre("", ""));
}

TEST_F(CatalogueQueries, LeaveFolderAndLinkAloneWhenTheCatalogueDoesNotLoad) {
  writeCatalogue("<Quor_Master>");
  EXPECT_THAT(folderAndLinkOf("Alarms"), ElementsAre("old folder", "old link"));
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(CatalogueQueries, LeaveWhatAnEntryDoesNotHaveAsItWas) {
  writeBooks(
      "<Book><Book_Name>A</Book_Name><Book_Folder>F</Book_Folder><Book_Key/></Book>"
      "<Book><Book_Name>B</Book_Name><Book_Key id='L'/></Book>");
  EXPECT_THAT(folderAndLinkOf("A"), ElementsAre("F", "old link"));
  EXPECT_THAT(folderAndLinkOf("B"), ElementsAre("old folder", "L"));
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(CatalogueQueries, FindFolderLinkAndAcronymByTheNameAsItIsStoredOnly) {
  writeBooks(bookEntry("R&amp;amp;D", "RD"));
  EXPECT_THAT(folderAndLinkOf("R&D"), ElementsAre("", ""));
  EXPECT_EQ(acronymOf("R&D"), "");
  EXPECT_THAT(folderAndLinkOf("R&amp;D"), ElementsAre("Manual", ""));
  EXPECT_EQ(acronymOf("R&amp;D"), "RD");
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(CatalogueQueries, AnswerNothingForANameThatHoldsADoubleQuotationMark) {
  writeBooks(bookEntry("a\"b", "AB"));
  EXPECT_THAT(folderAndLinkOf("a\"b"), ElementsAre("", ""));
  EXPECT_EQ(acronymOf("a\"b"), "");
  EXPECT_EQ(acronymOf("\" or \"\"=\""), "");
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(CatalogueQueries, TakeANameThatHoldsAnApostrophe) {
  writeBooks(bookEntry("Driver's", "DRV"));
  EXPECT_THAT(folderAndLinkOf("Driver's"), ElementsAre("Manual", ""));
  EXPECT_EQ(acronymOf("Driver's"), "DRV");
}

// Acronym of a book

TEST_F(CatalogueQueries, AnswerTheAcronymOfTheFirstBookOfTheNameThatHasOne) {
  writeBooks("<Book><Book_Name>Alarms</Book_Name></Book>" + bookEntry("Alarms", "ALM") +
             bookEntry("Alarms", "AL2"));
  EXPECT_EQ(acronymOf("Alarms"), "ALM");
}

TEST_F(CatalogueQueries, AnswerNoAcronymAfterWhateverError) {
  EXPECT_EQ(acronymOf("Alarms"), "");
  writeCatalogue("<Quor_Master>");
  EXPECT_EQ(acronymOf("Alarms"), "");
  writeCatalogue("<Other><Quor_Books>" + bookEntry("Alarms", "ALM") + "</Quor_Books></Other>");
  EXPECT_EQ(acronymOf("Alarms"), "");
  writeBooks(bookEntry("Alarms", "ALM"));
  EXPECT_EQ(acronymOf("alarms"), "");
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(CatalogueQueries, ChangeNothing) {
  writeBooks(bookEntry("Alarms", "ALM"));
  const auto before = world_.disk.contents();
  (void)names();
  (void)categoriesOf("Alarms");
  (void)folderAndLinkOf("Alarms");
  (void)acronymOf("Alarms");
  EXPECT_EQ(world_.disk.contents(), before);
}

}  // namespace
}  // namespace quorbind::testing
