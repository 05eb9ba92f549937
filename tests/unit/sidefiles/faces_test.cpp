// The public classes hand the operations on side files on, with every argument in its place.

#include "catalogue/book_config.h"
#include "tests/unit/sidefiles/link_text.h"
#include "tests/unit/sidefiles/side_file_test.h"
#include "workflow/driver/quor_book.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* kPath = "C:\\side.xml";

class CategoriesOfBookConfig : public SideFileTest {
 protected:
  CategoriesOfBookConfig() {
    state().currentCategoriesPath = kPath;
    world_.disk.write("side.xml", categoriesWith(category("A") + category("Other Category")));
    world_.disk.write("Docs/Quor_DefaultCategories.xml",
                      "<Default_Categories><Quor_Developer><CategoryName>D</CategoryName>"
                      "</Quor_Developer></Default_Categories>");
    world_.disk.write("Quor_TOC.xml",
                      "<Quor_Master><Quor_Books><Book><Book_Acro>ALM</Book_Acro><Book_Categories>"
                      "<Book_Category>A</Book_Category></Book_Categories></Book></Quor_Books>"
                      "</Quor_Master>");
  }
  [[nodiscard]] std::string file() const { return textOf("side.xml"); }

  Book_Config config_{world_.module};
};

TEST_F(CategoriesOfBookConfig, AreAddedAndRenamed) {
  config_.AddBookCateToXMLFile(kPath, "B");
  config_.EditBookCateToXMLFile(kPath, "C", "B");
  EXPECT_EQ(file(), categoriesWith(category("A") + category("C") + category("Other Category")));
}

TEST_F(CategoriesOfBookConfig, AreMadeFromTheDefaults) {
  config_.CreateBookCateXmlFile("C:\\Docs\\", "C:\\new.xml", 0);
  EXPECT_THAT(world_.text("new.xml"), HasSubstr(category("D") + category("Other Category")));
  EXPECT_TRUE(config_.bCheckIfDefaultCategory("C:\\Docs\\Quor_DefaultCategories.xml", "D", 0));
  EXPECT_FALSE(config_.bCheckCategoryinQuorBookCategories("C:\\new.xml"));
  config_.CreateBookCateXmlFile("C:\\Docs\\", "C:\\new.xml", 0, true);
  EXPECT_TRUE(config_.bCheckCategoryinQuorBookCategories("C:\\new.xml"));
}

TEST_F(CategoriesOfBookConfig, GetTheirAcronyms) {
  EXPECT_THAT(config_.GetBookAcroValue("A", "C:\\Quor_TOC.xml").texts, ElementsAre("", "ALM"));
  config_.GetBookAcroInfo(kPath, "C:\\Quor_TOC.xml");
  config_.AddBookAcro("A", {{"", "TRD"}}, kPath);
  config_.Addothercategory("Other Category", {{"", "PST"}});
  config_.Addothercategory("A", {{"", "ALM", "NEW"}}, kPath);
  EXPECT_EQ(
      file(),
      categoriesWith(category("A", {"ALM", "TRD", "NEW"}) + category("Other Category", {"PST"})));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(CategoriesOfBookConfig, AreSortedByTheirNames) {
  TextArray names{{"", "b", "a"}};
  TextArray acronyms{{"", "1", "2"}};
  EXPECT_THAT(config_.SortArray(names, acronyms, 7).texts, ElementsAre("", "2", "1"));
  EXPECT_THAT(names.texts, ElementsAre("", "a", "b"));
}

class RecordsOfQuorBook : public SideFileTest {
 protected:
  Quor_Book book_{world_.module};
};

TEST_F(RecordsOfQuorBook, AreItsKeywords) {
  state().currentBookName = "Alarms";
  book_.CreateKeywordXmlFile(kPath);
  book_.AddKeywordsToXmlFile(kPath, "Alarms", "one");
  book_.EditKeywordsToXmlFile(kPath, "Alarms", "first", "one");
  book_.AddKeywords({{"two", "three"}}, kPath);
  EXPECT_THAT(world_.text("side.xml"),
              HasSubstr("\t<Book Book_Name=\"Alarms\">\n"
                        "\t\t<Keywords>\n"
                        "\t\t\t<Keyword>first</Keyword>\n"
                        "\t\t\t<Keyword>two</Keyword>\n"
                        "\t\t\t<Keyword>three</Keyword>\n"
                        "\t\t</Keywords>\n"
                        "\t</Book>\n"));
  EXPECT_FALSE(book_.CheckXMLCharacters("&lt;", "BookName"));
  EXPECT_THAT(boxes(), ElementsAre("information: &lt;Cannot be used in BookName"));
}

TEST_F(RecordsOfQuorBook, AreItsCategoriesAndLinks) {
  world_.disk.write("side.xml", categoriesWith(category("A")));
  book_.AddCategoryNode("A", "ALM", kPath);
  EXPECT_EQ(textOf("side.xml"), categoriesWith(category("A", {"ALM"})));
  world_.disk.write("links.xml", linksWith(""));
  book_.AddToLinkIDFile("C:\\links.xml", "N1", "BK@QUOR@A", "a.htm", "Prod", "BK");
  EXPECT_EQ(textOf("links.xml"), linksWith(link("N1", "BK@QUOR@A", "Prod\\a.htm", "BK")));
}

}  // namespace
}  // namespace quorbind::testing
