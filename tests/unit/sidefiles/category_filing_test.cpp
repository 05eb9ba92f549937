#include "sidefiles/category_filing.h"

#include "tests/support/read_only_files.h"
#include "tests/support/watched_xml.h"
#include "tests/unit/sidefiles/side_file_test.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kPath = "C:\\cat.xml";

class CategoryFiling : public SideFileTest {
 protected:
  CategoryFiling() {
    state().currentCategoriesPath = kPath;
    state().currentBookAcro = "CUR";
  }

  void writeFile(std::string_view text) { world_.disk.write("cat.xml", text); }
  [[nodiscard]] std::string file() const { return textOf("cat.xml"); }

  static constexpr const char* kApostropheError =
      "-2147467259: The value O'Neil can't stand in a query between the quote characters it "
      "contains.";
};

class FileBook : public CategoryFiling {
 protected:
  void add(const std::string& category,
           const std::string& acronym = "ALM",
           const std::string& path = {}) {
    AddCategoryNode(platform(), state(), category, acronym, path);
  }
};

TEST_F(FileBook, AddsTheAcronymBehindTheOthersOfTheCategory) {
  writeFile(categoriesWith(category("A", {"TRD"}) + category("Other Category")));
  add("A");
  EXPECT_EQ(file(), categoriesWith(category("A", {"TRD", "ALM"}) + category("Other Category")));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(FileBook, AddsNothingWhenItIsFiledAlreadyAndRewritesTheFile) {
  writeFile(
      "<BookSet_Categories><Category><CategoryName>A</CategoryName>"
      "<BookAcro>ALM</BookAcro></Category></BookSet_Categories>");
  add("A");
  EXPECT_EQ(file(), categoriesWith(category("A", {"ALM"})));
}

TEST_F(FileBook, TellsUpperFromLowerCase) {
  writeFile(categoriesWith(category("A", {"alm"})));
  add("A");
  add("a");
  EXPECT_EQ(file(), categoriesWith(category("A", {"alm", "ALM"}) + category("a", {"ALM"})));
}

TEST_F(FileBook, MakesANewCategoryInFrontOfOtherCategoryWithTheBookAsItsOnlyOne) {
  writeFile(categoriesWith(category("A") + category("Other Category", {"X"})));
  add("R&D");
  EXPECT_EQ(file(),
            categoriesWith(category("A") + category("R&amp;D", {"ALM"}) +
                           category("Other Category", {"X"})));
}

TEST_F(FileBook, MakesANewCategoryAtTheEndWithoutOtherCategory) {
  writeFile(categoriesWith(category("A")));
  add("B");
  add("Other Category");
  add("C");
  EXPECT_EQ(file(),
            categoriesWith(category("A") + category("B", {"ALM"}) + category("C", {"ALM"}) +
                           category("Other Category", {"ALM"})));
}

TEST_F(FileBook, CountsTheAcronymsOfAllCategoriesOfOneNameAndAddsToTheFirst) {
  writeFile(categoriesWith(category("A", {"X"}) + category("A", {"ALM"})));
  add("A");
  EXPECT_EQ(file(), categoriesWith(category("A", {"X"}) + category("A", {"ALM"})));
  add("A", "NEW");
  EXPECT_EQ(file(), categoriesWith(category("A", {"X", "NEW"}) + category("A", {"ALM"})));
}

TEST_F(FileBook, StandsForTheCurrentBookWhenTheAcronymIsEmpty) {
  writeFile(categoriesWith(category("A")));
  add("A", "");
  EXPECT_EQ(file(), categoriesWith(category("A", {"CUR"})));
}

TEST_F(FileBook, WritesToTheCurrentFileWhateverPathIsGiven) {
  writeFile(categoriesWith(category("A")));
  world_.disk.write("other.xml", categoriesWith(category("A")));
  add("A", "ALM", "C:\\other.xml");
  EXPECT_EQ(file(), categoriesWith(category("A", {"ALM"})));
  EXPECT_EQ(textOf("other.xml"), categoriesWith(category("A")));
}

TEST_F(FileBook, TakesTheGivenPathWhereThereIsNoCurrentFileAndMakesItThat) {
  state().currentCategoriesPath = "";
  writeFile(categoriesWith(category("A")));
  add("A", "ALM", kPath);
  EXPECT_EQ(file(), categoriesWith(category("A", {"ALM"})));
  EXPECT_EQ(state().currentCategoriesPath, kPath);
}

TEST_F(FileBook, ChangesNothingForAnUnknownCategoryWithoutAName) {
  const std::string asItStands = "<BookSet_Categories><Category/></BookSet_Categories>";
  writeFile(asItStands);
  add("");
  EXPECT_EQ(file(), asItStands) << "not even rewritten";
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(FileBook, FindsACategoryWhoseNameIsEmpty) {
  writeFile(categoriesWith("\t<Category>\n\t\t<CategoryName/>\n\t</Category>\n"));
  add("");
  EXPECT_EQ(file(),
            categoriesWith("\t<Category>\n\t\t<CategoryName/>\n\t\t<BookAcro>ALM</BookAcro>\n"
                           "\t</Category>\n"));
}

TEST_F(FileBook, ChangesNothingAndSaysNothingWithoutAFileThatLoads) {
  add("A");
  EXPECT_THAT(world_.disk.contents(), IsEmpty());
  writeFile("<BookSet_Categories>");
  add("A");
  EXPECT_EQ(file(), "<BookSet_Categories>");
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(FileBook, ReportsACategoryWithAnApostropheAndChangesNothing) {
  const std::string asItStands = categoriesWith(category("O'Neil"));
  writeFile(asItStands);
  add("O'Neil");
  EXPECT_EQ(file(), asItStands);
  EXPECT_THAT(boxes(),
              ElementsAre("message: Error -2147467259 (The value O'Neil can't stand in a query "
                          "between the quote characters it contains.) in procedure "
                          "AddCategoryNode of Class Module Quor_Book"));
  EXPECT_EQ(world_.user.messages()[0].title, std::nullopt);
}

TEST_F(FileBook, ReportsAFileOfAnotherKindAndLeavesItAsItWas) {
  writeFile("<Books/>");
  add("A");
  EXPECT_EQ(file(), "<Books/>");
  EXPECT_THAT(boxes(),
              ElementsAre("message: Error 91 (Object variable or With block variable not set) in "
                          "procedure AddCategoryNode of Class Module Quor_Book"));
}

TEST_F(FileBook, FilesUnderSeveralCategoriesInOneReadingAndOneWriting) {
  writeFile(categoriesWith(category("A") + category("Other Category")));
  WatchedXml xml(platform().xml, platform().files, "C:\\scratch.xml");
  const Platform& p = platform();
  const Platform watched{p.files, xml, p.ui, p.toolset, p.locale, p.spreadsheets};
  const std::vector<std::string> names{"A", "B", "A", "", "C", "B"};
  AddCategoryNodes(watched, state(), names);
  EXPECT_EQ(file(),
            categoriesWith(category("A", {"CUR"}) + category("B", {"CUR"}) +
                           category("C", {"CUR"}) + category("Other Category")));
  EXPECT_EQ(xml.loadsOf(kPath), 1);
  EXPECT_EQ(xml.savesOf(kPath), 1);
}

TEST_F(FileBook, UnderSeveralCategoriesReportsTheFirstWhenTheFileGoesAway) {
  writeFile(categoriesWith(category("A") + category("B")));
  const std::string before = file();
  WatchedXml xml(platform().xml, platform().files, "C:\\scratch.xml");
  xml.goAwayAtTheFirstSave();
  const Platform& p = platform();
  AddCategoryNodes({p.files, xml, p.ui, p.toolset, p.locale, p.spreadsheets},
                   state(),
                   std::vector<std::string>{"A", "B"});
  EXPECT_EQ(file(), before);
  EXPECT_THAT(boxes(),
              ElementsAre("message: Error 76 (Path not found) in procedure AddCategoryNode of "
                          "Class Module Quor_Book"));
}

class AddAcronyms : public CategoryFiling {
 protected:
  void add(const std::string& category, const TextArray& acronyms) {
    AddBookAcro(platform(), category, acronyms, kPath);
  }
};

TEST_F(AddAcronyms, AddsThoseThatTheCategoryLacksInTheirOrder) {
  writeFile(categoriesWith(category("A", {"X", "V"}) + category("B")));
  add("A", {{"", "Y", "X", "Y", "Z"}});
  EXPECT_EQ(file(), categoriesWith(category("A", {"X", "V", "Y", "Z"}) + category("B")));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(AddAcronyms, AddsToACategoryThatHasOnlyItsName) {
  writeFile(categoriesWith(category("A")));
  add("A", {{"", "Y", "Y", ""}});
  EXPECT_EQ(file(),
            categoriesWith("\t<Category>\n\t\t<CategoryName>A</CategoryName>\n"
                           "\t\t<BookAcro>Y</BookAcro>\n\t\t<BookAcro/>\n\t</Category>\n"));
}

TEST_F(AddAcronyms, AddsNothingToACategoryThatHasMoreThanItsNameButNoAcronym) {
  const std::string asItStands = categoriesWith(
      "\t<Category>\n\t\t<CategoryName>A</CategoryName>\n\t\t<!-- x -->\n\t</Category>\n");
  writeFile(asItStands);
  add("A", {{"", "Y"}});
  EXPECT_EQ(file(), asItStands);
}

TEST_F(AddAcronyms, LooksAtTheAcronymsOfTheFirstCategoryOfThatNameAlone) {
  writeFile(categoriesWith(category("A", {"X"}) + category("A", {"Y"})));
  add("A", {{"", "Y"}});
  EXPECT_EQ(file(), categoriesWith(category("A", {"X", "Y"}) + category("A", {"Y"})));
}

TEST_F(AddAcronyms, LeavesOutTheFirstElementWhateverTheArraysBounds) {
  writeFile(categoriesWith(category("A")));
  add("A", {{"first", "Y"}, 5});
  add("A", {{"alone"}, -3});
  add("A", {});
  EXPECT_EQ(file(), categoriesWith(category("A", {"Y"})));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(AddAcronyms, ReportsAnArrayThatWasNeverSetAndLeavesTheFileAsItIs) {
  const std::string asItStands = "<BookSet_Categories></BookSet_Categories>";
  add("A", TextArray::unset());
  EXPECT_THAT(boxes(), IsEmpty()) << "there is no file to add to";
  writeFile(asItStands);
  add("A", TextArray::unset());
  EXPECT_EQ(file(), asItStands);
  EXPECT_THAT(boxes(),
              ElementsAre("information: [Quorbind::Book_Config-AddBookAcro] "
                          "9: Subscript out of range"));
}

TEST_F(AddAcronyms, AddsNothingToAnUnknownCategoryAndRewritesTheFile) {
  writeFile(
      "<BookSet_Categories><Category><CategoryName>A</CategoryName></Category>"
      "</BookSet_Categories>");
  add("B", {{"", "Y"}});
  EXPECT_EQ(file(), categoriesWith(category("A")));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(AddAcronyms, SaysNothingWithoutAFileThatLoads) {
  add("A", {{"", "Y"}});
  EXPECT_THAT(world_.disk.contents(), IsEmpty());
  writeFile("<BookSet_Categories>");
  add("A", {{"", "Y"}});
  EXPECT_EQ(file(), "<BookSet_Categories>");
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(AddAcronyms, ReportsAnApostropheInItsOwnBox) {
  writeFile(categoriesWith(category("O'Neil")));
  add("O'Neil", {{"", "Y"}});
  EXPECT_EQ(file(), categoriesWith(category("O'Neil")));
  EXPECT_THAT(boxes(),
              ElementsAre(std::string("information: [Quorbind::Book_Config-AddBookAcro] ") +
                          kApostropheError));
}

class AddToOther : public CategoryFiling {
 protected:
  void add(const TextArray& acronyms,
           const std::string& category = "Other Category",
           const std::string& path = {}) {
    Addothercategory(platform(), state(), category, acronyms, path);
  }
};

TEST_F(AddToOther, AppendsForEachUnknownEntryTheElementAtTheCountOfAcronyms) {
  writeFile(categoriesWith(category("Other Category", {"X", "V"})));
  add({{"", "Y", "Z", "W"}});
  EXPECT_EQ(file(), categoriesWith(category("Other Category", {"X", "V", "Z", "Z", "Z"})));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(AddToOther, PassesOverEntriesThatAreThere) {
  writeFile(categoriesWith(category("Other Category", {"X", "V"})));
  add({{"", "V", "Y", "X"}});
  EXPECT_EQ(file(), categoriesWith(category("Other Category", {"X", "V", "Y"})));
}

TEST_F(AddToOther, AppendsAllEntriesToACategoryWithoutAcronyms) {
  writeFile(categoriesWith(category("Other Category")));
  add({{"", "Y", "Y", "Z"}});
  EXPECT_EQ(file(), categoriesWith(category("Other Category", {"Y", "Y", "Z"})));
}

TEST_F(AddToOther, ReportsAnIndexBeyondTheArrayAndKeepsWhatCameBefore) {
  writeFile(categoriesWith(category("Other Category", {"X", "V", "U"})));
  const std::string before = file();
  add({{"", "X", "Y"}});
  EXPECT_EQ(file(), before);
  EXPECT_THAT(boxes(),
              ElementsAre("information: [Quorbind::Book_Config-AddOtherCategoryBookAcro] "
                          "9: Subscript out of range"));
}

TEST_F(AddToOther, CountsTheIndexAsTheCallersArrayDoes) {
  writeFile(categoriesWith(category("Other Category", {"X", "V"})));
  add({{"", "Y", "Z"}, 1});  // element 2 is Y
  EXPECT_EQ(file(), categoriesWith(category("Other Category", {"X", "V", "Y", "Y"})));
  writeFile(categoriesWith(category("Other Category", {"X", "V"})));
  add({{"", "Y"}, 3});
  EXPECT_EQ(file(), categoriesWith(category("Other Category", {"X", "V"})));
  EXPECT_EQ(boxes().size(), 1U) << "there is no element 2";
}

// The acronym without text counts as one, and no entry is like it.
TEST_F(AddToOther, PassesOverAcronymsWithoutText) {
  writeFile(
      "<BookSet_Categories><Category><CategoryName>Other Category</CategoryName>"
      "<BookAcro/></Category></BookSet_Categories>");
  add({{"", "", "Y"}});
  EXPECT_EQ(file(),
            categoriesWith("\t<Category>\n\t\t<CategoryName>Other Category</CategoryName>\n"
                           "\t\t<BookAcro/>\n\t\t<BookAcro/>\n\t\t<BookAcro/>\n\t</Category>\n"));
}

TEST_F(AddToOther, PrefersTheGivenPathToTheCurrentFile) {
  writeFile(categoriesWith(category("A")));
  world_.disk.write("other.xml", categoriesWith(category("A")));
  add({{"", "Y"}}, "A", "C:\\other.xml");
  EXPECT_EQ(file(), categoriesWith(category("A")));
  EXPECT_EQ(textOf("other.xml"), categoriesWith(category("A", {"Y"})));
  add({{"", "Z"}}, "A");
  EXPECT_EQ(file(), categoriesWith(category("A", {"Z"})));
  EXPECT_EQ(state().currentCategoriesPath, kPath);
}

TEST_F(AddToOther, ReportsAnUnknownCategoryUnlessThereIsNothingToAdd) {
  writeFile(categoriesWith(category("A")));
  add({{""}});
  EXPECT_THAT(boxes(), IsEmpty());
  add({{"", "Y"}});
  EXPECT_EQ(file(), categoriesWith(category("A")));
  EXPECT_THAT(boxes(),
              ElementsAre("information: [Quorbind::Book_Config-AddOtherCategoryBookAcro] "
                          "91: Object variable or With block variable not set"));
}

TEST_F(AddToOther, ReportsAnArrayThatWasNeverSetAndLeavesTheFileAsItIs) {
  add(TextArray::unset());
  EXPECT_THAT(boxes(), IsEmpty()) << "there is no file to add to";
  for (const std::string& other : {category("Other Category"), category("Other Category", {"X"})}) {
    writeFile(categoriesWith(other));
    add(TextArray::unset());
    EXPECT_EQ(file(), categoriesWith(other));
  }
  const std::string box =
      "information: [Quorbind::Book_Config-AddOtherCategoryBookAcro] 9: Subscript out of range";
  EXPECT_THAT(boxes(), ElementsAre(box, box));
}

TEST_F(AddToOther, SaysNothingWithoutAFileThatLoads) {
  add({{"", "Y"}});
  writeFile("<BookSet_Categories>");
  add({{"", "Y"}});
  EXPECT_EQ(file(), "<BookSet_Categories>");
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(AddToOther, WritesTheFileOnceForAllEntries) {
  writeFile(categoriesWith(category("Other Category")));
  WatchedXml xml(platform().xml, platform().files, "C:\\scratch.xml");
  const Platform& p = platform();
  Addothercategory({p.files, xml, p.ui, p.toolset, p.locale, p.spreadsheets},
                   state(),
                   "Other Category",
                   {{"", "A", "B", "C"}},
                   "");
  EXPECT_EQ(xml.savesOf(kPath), 1);
}

TEST_F(AddToOther, ReportsAFileThatGoesAway) {
  writeFile(categoriesWith(category("Other Category", {"X"})));
  WatchedXml xml(platform().xml, platform().files, "C:\\scratch.xml");
  xml.goAwayAtTheFirstSave();
  const Platform& p = platform();
  Addothercategory({p.files, xml, p.ui, p.toolset, p.locale, p.spreadsheets},
                   state(),
                   "Other Category",
                   {{"", "A", "B"}},
                   "");
  EXPECT_EQ(file(), categoriesWith(category("Other Category", {"X"})));
  EXPECT_THAT(boxes(),
              ElementsAre("information: [Quorbind::Book_Config-AddOtherCategoryBookAcro] "
                          "76: Path not found"));
}

// Published is one save per entry; where the disk is full for all of them, those that fit stay.
TEST_F(AddToOther, KeepsTheEntriesThatFitOnAFullDiskAndReportsTheFirstThatDoesNot) {
  writeFile(categoriesWith(category("Other Category")));
  WatchedXml xml(platform().xml, platform().files, "C:\\scratch.xml");
  xml.limitSavesTo(categoriesWith(category("Other Category", {"AAA", "BBB"})).size() + 20);
  const Platform& p = platform();
  Addothercategory({p.files, xml, p.ui, p.toolset, p.locale, p.spreadsheets},
                   state(),
                   "Other Category",
                   {{"", "AAA", "BBB", "CCC", "DDD"}},
                   "");
  EXPECT_EQ(file(), categoriesWith(category("Other Category", {"AAA", "BBB"})));
  EXPECT_THAT(boxes(),
              ElementsAre("information: [Quorbind::Book_Config-AddOtherCategoryBookAcro] "
                          "61: Disk full"));
}

}  // namespace
}  // namespace quorbind::testing
