#include "sidefiles/category_list.h"

#include "tests/support/read_only_files.h"
#include "tests/unit/sidefiles/side_file_test.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kPath = "C:\\cat.xml";
constexpr const char* kNotLoaded = "XML document must have a top level element.";

class CategoryList : public SideFileTest {
 protected:
  void writeFile(std::string_view text) { world_.disk.write("cat.xml", text); }
  [[nodiscard]] std::string file() const { return textOf("cat.xml"); }
  void add(const std::string& name) { AddBookCateToXMLFile(platform(), state(), kPath, name); }
  void rename(const std::string& old, const std::string& name) {
    EditBookCateToXMLFile(platform(), state(), kPath, name, old);
  }
};

using AddCategory = CategoryList;

TEST_F(AddCategory, PutsItDirectlyInFrontOfOtherCategory) {
  writeFile(categoriesWith(category("Zeta", {"ZZ"}) + category("Other Category")));
  add("A");
  EXPECT_EQ(file(),
            categoriesWith(category("Zeta", {"ZZ"}) + category("A") + category("Other Category")));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(AddCategory, MakesASecondOneOfANameThatIsThere) {
  writeFile(categoriesWith(category("Other Category")));
  add("A");
  add("A");
  EXPECT_EQ(file(), categoriesWith(category("A") + category("A") + category("Other Category")));
}

TEST_F(AddCategory, PutsItAtTheEndWithoutOtherCategory) {
  writeFile(categoriesWith(category("Zeta")));
  add("R&D 'x' <\"y\">");
  EXPECT_EQ(file(), categoriesWith(category("Zeta") + category("R&amp;D 'x' &lt;\"y\"&gt;")));
}

TEST_F(AddCategory, RewritesTheFileUnchangedForAnEmptyName) {
  writeFile(
      "<BookSet_Categories><Category><CategoryName>A</CategoryName></Category>"
      "</BookSet_Categories>");
  add("");
  EXPECT_EQ(file(), categoriesWith(category("A")));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(AddCategory, MakesItsFileTheCurrentOne) {
  state().currentCategoriesPath = "C:\\other.xml";
  add("A");
  EXPECT_EQ(state().currentCategoriesPath, kPath);
}

TEST_F(AddCategory, KeepsEncodingDeclarationCommentsAndForeignElements) {
  writeFile(
      utf16File("<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"
                "<!-- ours\n    kept -->\n"
                "<BookSet_Categories><!-- here --><Note/>" +
                category("Other Category") + "</BookSet_Categories>"));
  add("目录");
  EXPECT_EQ(world_.text("cat.xml"),
            "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"
            "<!-- ours\n    kept -->\n"
            "<BookSet_Categories>\n"
            "\t<!-- here -->\n"
            "\t<Note/>\n" +
                category("目录") + category("Other Category") + "</BookSet_Categories>\n");
}

TEST_F(AddCategory, LeavesAFileThatDoesNotLoadAsItWasAndReportsTheSave) {
  writeFile("<BookSet_Categories>");
  add("A");
  EXPECT_EQ(file(), "<BookSet_Categories>");
  EXPECT_THAT(boxes(),
              ElementsAre(std::string("critical: Error(-1072896680):") + kNotLoaded +
                          "\rQuorbind-Book_Config::AddBookCateToXMLFile"));
  EXPECT_EQ(world_.user.messages()[0].title, std::nullopt);
}

TEST_F(AddCategory, DoesNotMakeAMissingFile) {
  add("A");
  EXPECT_THAT(world_.disk.contents(), IsEmpty());
  EXPECT_EQ(boxes().size(), 1U);
}

TEST_F(AddCategory, LeavesAFileOfAnotherKindAsItWas) {
  writeFile("<Books/>");
  add("A");
  EXPECT_EQ(file(), "<Books/>");
  EXPECT_THAT(boxes(),
              ElementsAre("critical: Error(91):Object variable or With block variable not set\r"
                          "Quorbind-Book_Config::AddBookCateToXMLFile"));
}

using RenameCategory = CategoryList;

TEST_F(RenameCategory, KeepsThePlaceAndTheBooks) {
  writeFile(categoriesWith(category("A", {"X", "Y"}) + category("Other Category")));
  rename("A", "B <&>");
  EXPECT_EQ(file(),
            categoriesWith(category("B &lt;&amp;&gt;", {"X", "Y"}) + category("Other Category")));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(RenameCategory, RenamesTheFirstOfSeveral) {
  writeFile(categoriesWith(category("A") + category("A", {"X"})));
  rename("A", "B");
  EXPECT_EQ(file(), categoriesWith(category("B") + category("A", {"X"})));
}

TEST_F(RenameCategory, SaysNothingOfAnUnknownNameAndRewritesTheFile) {
  writeFile(
      "<BookSet_Categories><Category><CategoryName>A</CategoryName></Category>"
      "</BookSet_Categories>");
  rename("a", "B");
  EXPECT_EQ(file(), categoriesWith(category("A")));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(RenameCategory, MakesItsFileTheCurrentOne) {
  rename("A", "B");
  EXPECT_EQ(state().currentCategoriesPath, kPath);
}

TEST_F(RenameCategory, ReportsAnApostropheInTheOldNameAndChangesNothing) {
  writeFile(categoriesWith(category("O'Neil")));
  rename("O'Neil", "B");
  EXPECT_EQ(file(), categoriesWith(category("O'Neil")));
  EXPECT_THAT(boxes(),
              ElementsAre("message: Error (-2147467259 ):The value O'Neil can't stand in a query "
                          "between the quote characters it contains.\r"
                          "Quorbind::Book_Config - EditBookCateToXMLFile"));
}

TEST_F(RenameCategory, LeavesAFileThatDoesNotLoadAsItWasAndReportsTheSave) {
  writeFile("");
  rename("A", "B");
  EXPECT_EQ(file(), "");
  EXPECT_THAT(boxes(),
              ElementsAre(std::string("message: Error (-1072896680 ):") + kNotLoaded +
                          "\rQuorbind::Book_Config - EditBookCateToXMLFile"));
  EXPECT_EQ(world_.user.messages()[0].title, std::nullopt);
}

class DefaultCategory : public SideFileTest {
 protected:
  DefaultCategory() {
    world_.disk.write("def.xml",
                      "<Default_Categories>"
                      "<Quor_Developer_Pro><CategoryName>Pro</CategoryName></Quor_Developer_Pro>"
                      "<Quor_Developer><CategoryName>Guides</CategoryName>"
                      "<CategoryName>Both</CategoryName></Quor_Developer></Default_Categories>");
  }
  bool check(const std::string& name, std::int32_t type) {
    return bCheckIfDefaultCategory(platform(), "C:\\def.xml", name, type);
  }
};

TEST_F(DefaultCategory, IsOneOfTheListForTheInstallationType) {
  EXPECT_TRUE(check("Pro", 1000));
  EXPECT_FALSE(check("Pro", 999));
  EXPECT_FALSE(check("Pro", 1001));
  EXPECT_TRUE(check("Guides", 0));
  EXPECT_TRUE(check("Both", -1));
  EXPECT_FALSE(check("Guides", 1000));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(DefaultCategory, IsExactInLetterCaseAndBlanks) {
  EXPECT_FALSE(check("guides", 0));
  EXPECT_FALSE(check("Guides ", 0));
  EXPECT_FALSE(check("Other Category", 0));
  EXPECT_FALSE(check("", 0));
}

TEST_F(DefaultCategory, IsNoneInAFileThatDoesNotLoad) {
  world_.disk.write("def.xml", "<Default_Categories>");
  EXPECT_FALSE(check("Guides", 0));
  EXPECT_FALSE(bCheckIfDefaultCategory(platform(), "C:\\none.xml", "Guides", 0));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(DefaultCategory, IsNoNameWithAnApostropheAndThatIsReported) {
  EXPECT_FALSE(check("O'Neil", 0));
  EXPECT_THAT(boxes(),
              ElementsAre("message: Error (-2147467259 ):The value O'Neil can't stand in a query "
                          "between the quote characters it contains.\r"
                          "Quorbind::Book_Config - bCheckIfDefaultCategory"));
}

class NoCategories : public SideFileTest {
 protected:
  bool check(std::string_view text) {
    world_.disk.write("cat.xml", text);
    return bCheckCategoryinQuorBookCategories(platform(), kPath);
  }
};

TEST_F(NoCategories, IsTrueForARootWithNothingInIt) {
  EXPECT_TRUE(check("<BookSet_Categories/>"));
  EXPECT_TRUE(check("<BookSet_Categories>\r\n</BookSet_Categories>"));
}

TEST_F(NoCategories, IsFalseAsSoonAsAnythingStandsInIt) {
  EXPECT_FALSE(check(categoriesWith(category("Other Category"))));
  EXPECT_FALSE(check("<BookSet_Categories><!-- none --></BookSet_Categories>"));
}

TEST_F(NoCategories, IsFalseForAFileThatDoesNotLoad) {
  EXPECT_FALSE(check("<BookSet_Categories>"));
  EXPECT_FALSE(bCheckCategoryinQuorBookCategories(platform(), "C:\\none.xml"));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(NoCategories, IsReportedForAFileOfAnotherKind) {
  EXPECT_FALSE(check("<Books/>"));
  EXPECT_THAT(boxes(),
              ElementsAre("message: Error (91 ):Object variable or With block variable not set\r"
                          "Quorbind::Book_Config - bCheckCategoryinQuorBookCategories"));
}

}  // namespace
}  // namespace quorbind::testing
