#include "sidefiles/category_rebuild.h"

#include "tests/support/missing_xml.h"
#include "tests/support/watched_xml.h"
#include "tests/unit/sidefiles/side_file_test.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kPath = "C:\\cat.xml";
constexpr const char* kCatalogue = "C:\\Quor_TOC.xml";

std::string book(std::string_view acronym, std::initializer_list<std::string_view> categories) {
  std::string text = "<Book><Book_Name>Book " + std::string(acronym) + "</Book_Name><Book_Acro>" +
                     std::string(acronym) + "</Book_Acro><Book_Categories>";
  for (const std::string_view name : categories) {
    text += "<Book_Category>" + std::string(name) + "</Book_Category>";
  }
  return text + "</Book_Categories></Book>";
}

class CategoryRebuild : public SideFileTest {
 protected:
  CategoryRebuild() { state().currentCategoriesPath = kPath; }

  void writeFile(std::string_view text) { world_.disk.write("cat.xml", text); }
  void writeCatalogue(std::string_view books) {
    world_.disk.write(
        "Quor_TOC.xml",
        "<Quor_Master><Quor_Books>" + std::string(books) + "</Quor_Books></Quor_Master>");
  }
  [[nodiscard]] std::string file() const { return textOf("cat.xml"); }
};

class AcronymsOfCategory : public CategoryRebuild {
 protected:
  TextArray acronymsOf(const std::string& category) {
    return GetBookAcroValue(platform(), state(), category, kCatalogue);
  }
};

TEST_F(AcronymsOfCategory, AreThoseOfTheBooksThatNameItBehindAnEmptyElement) {
  writeCatalogue(book("ALM", {"A", "B"}) + book("TRD", {"B"}) + book("PST", {"b", "A"}));
  const TextArray acronyms = acronymsOf("A");
  EXPECT_THAT(acronyms.texts, ElementsAre("", "ALM", "PST"));
  EXPECT_EQ(acronyms.lowerBound, 0);
  EXPECT_THAT(acronymsOf("b").texts, ElementsAre("", "PST"));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(AcronymsOfCategory, AreNoneButTheEmptyElementWhenNoBookNamesIt) {
  writeCatalogue(book("ALM", {"A"}));
  EXPECT_THAT(acronymsOf("C").texts, ElementsAre(""));
}

TEST_F(AcronymsOfCategory, AreNoneWithoutACatalogueThatLoads) {
  EXPECT_THAT(acronymsOf("A").texts, ElementsAre(""));
  world_.disk.write("Quor_TOC.xml", "<Quor_Master>");
  EXPECT_THAT(acronymsOf("A").texts, ElementsAre(""));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(AcronymsOfCategory, CountABookThatNamesItTwiceTwice) {
  writeCatalogue(book("ALM", {"A", "A"}));
  EXPECT_THAT(acronymsOf("A").texts, ElementsAre("", "ALM", "ALM"));
}

TEST_F(AcronymsOfCategory, FindBooksWhereverTheyStand) {
  writeCatalogue("<Shelf>" + book("ALM", {"A"}) + "</Shelf>");
  EXPECT_THAT(acronymsOf("A").texts, ElementsAre("", "ALM"));
}

TEST_F(AcronymsOfCategory, KnowOfABookWhatStandsInFrontOfItsCategories) {
  writeCatalogue(
      "<Book><Book_Categories><Book_Category>A</Book_Category></Book_Categories>"
      "<Book_Acro>LATE</Book_Acro></Book>" +
      book("ALM", {"A"}));
  EXPECT_THAT(acronymsOf("A").texts, ElementsAre("", "", "ALM"));
}

TEST_F(AcronymsOfCategory, FileTheBooksWithoutOneUnderOtherCategoryOfTheCurrentFile) {
  writeFile(categoriesWith(category("A") + category("Other Category", {"TRD"})));
  writeCatalogue(book("ALM", {}) + book("TRD", {}) + book("PST", {"A"}) + book("DOS", {}));
  EXPECT_THAT(acronymsOf("A").texts, ElementsAre("", "PST"));
  EXPECT_EQ(file(),
            categoriesWith(category("A") + category("Other Category", {"TRD", "ALM", "DOS"})));
}

TEST_F(AcronymsOfCategory, LeaveTheCurrentFileAloneWhenEveryBookHasOne) {
  const std::string asItStands = "<BookSet_Categories><Category/></BookSet_Categories>";
  writeFile(asItStands);
  writeCatalogue(book("PST", {"A"}));
  acronymsOf("A");
  EXPECT_EQ(file(), asItStands);
}

// Each book is followed by a call of its own, from the first one without a category on.
TEST_F(AcronymsOfCategory, ReportAFileThatCanNotBeSavedOncePerBook) {
  writeFile(categoriesWith(category("Other Category")));
  writeCatalogue(book("PST", {"A"}) + book("ALM", {}) + book("TRD", {"A"}));
  WatchedXml xml(platform().xml, platform().files, "C:\\scratch.xml");
  xml.limitSavesTo(1);
  const Platform& p = platform();
  const TextArray acronyms = GetBookAcroValue(
      {p.files, xml, p.ui, p.toolset, p.locale, p.spreadsheets}, state(), "A", kCatalogue);
  EXPECT_THAT(acronyms.texts, ElementsAre("", "PST", "TRD"));
  const std::string box = "information: [Quorbind::Book_Config-AddBookAcro] 61: Disk full";
  EXPECT_THAT(boxes(), ElementsAre(box, box));
}

TEST_F(AcronymsOfCategory, ReportAFileThatGoesAwayOnce) {
  writeFile(categoriesWith(category("Other Category")));
  writeCatalogue(book("PST", {"A"}) + book("ALM", {}) + book("TRD", {}));
  WatchedXml xml(platform().xml, platform().files, "C:\\scratch.xml");
  xml.goAwayAtTheFirstSave();
  const Platform& p = platform();
  const TextArray acronyms = GetBookAcroValue(
      {p.files, xml, p.ui, p.toolset, p.locale, p.spreadsheets}, state(), "A", kCatalogue);
  EXPECT_THAT(acronyms.texts, ElementsAre("", "PST"));
  EXPECT_THAT(boxes(),
              ElementsAre("information: [Quorbind::Book_Config-AddBookAcro] 76: Path not found"));
}

// Reading the catalogue is the operation's own; what filing meets AddBookAcro tells.
TEST_F(AcronymsOfCategory, CanNotBeHadWithoutXml) {
  MissingXml xml;
  const Platform& p = platform();
  const TextArray acronyms = GetBookAcroValue(
      {p.files, xml, p.ui, p.toolset, p.locale, p.spreadsheets}, state(), "A", kCatalogue);
  EXPECT_THAT(acronyms.texts, IsEmpty());
  EXPECT_THAT(boxes(),
              ElementsAre("information: [Quorbind::Book_Config-GetBookAcroValue] "
                          "429: ActiveX component can't create object"));
}

class RebuildCategories : public CategoryRebuild {
 protected:
  void rebuild() { GetBookAcroInfo(platform(), state(), kPath, kCatalogue); }
};

TEST_F(RebuildCategories, ReportsAFileThatGoesAwayOnce) {
  writeFile(categoriesWith(category("A") + category("O'Neil") + category("Other Category")));
  for (const std::string& uncategorised : {std::string(), book("TRD", {}) + book("DOS", {})}) {
    writeCatalogue(book("ALM", {"A"}) + uncategorised);
    WatchedXml xml(platform().xml, platform().files, "C:\\scratch.xml");
    xml.goAwayAtTheFirstSave();
    const Platform& p = platform();
    GetBookAcroInfo(
        {p.files, xml, p.ui, p.toolset, p.locale, p.spreadsheets}, state(), kPath, kCatalogue);
  }
  const std::string box = "information: [Quorbind::Book_Config-AddBookAcro] 76: Path not found";
  EXPECT_THAT(boxes(), ElementsAre(box, box)) << "once each";
}

TEST_F(RebuildCategories, FilesEveryBookUnderItsCategories) {
  writeFile(categoriesWith(category("A", {"OLD"}) + category("B") + category("Other Category")));
  writeCatalogue(book("ALM", {"A", "B", "C"}) + book("TRD", {}) + book("PST", {"A"}));
  rebuild();
  EXPECT_EQ(file(),
            categoriesWith(category("A", {"OLD", "ALM", "PST"}) + category("B", {"ALM"}) +
                           category("Other Category", {"TRD"})))
      << "no category is made, and no acronym goes";
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(RebuildCategories, FilesTheUncategorisedInFrontOfThoseThatNameOtherCategory) {
  writeFile(categoriesWith(category("Other Category")));
  writeCatalogue(book("ALM", {"Other Category"}) + book("TRD", {}));
  rebuild();
  EXPECT_EQ(file(), categoriesWith(category("Other Category", {"TRD", "ALM"})));
}

TEST_F(RebuildCategories, TakesItsPathForTheCurrentFile) {
  state().currentCategoriesPath = "C:\\other.xml";
  world_.disk.write("other.xml", categoriesWith(category("Other Category")));
  writeFile(categoriesWith(category("Other Category")));
  writeCatalogue(book("TRD", {}));
  rebuild();
  EXPECT_EQ(state().currentCategoriesPath, kPath);
  EXPECT_EQ(file(), categoriesWith(category("Other Category", {"TRD"})));
  EXPECT_EQ(textOf("other.xml"), categoriesWith(category("Other Category")));
}

TEST_F(RebuildCategories, RewritesTheFileWithoutACatalogueAndLeavesAnEmptyOne) {
  writeFile(
      "<BookSet_Categories><Category><CategoryName>A</CategoryName></Category>"
      "</BookSet_Categories>");
  rebuild();
  EXPECT_EQ(file(), categoriesWith(category("A")));
  writeFile("<BookSet_Categories></BookSet_Categories>");
  rebuild();
  EXPECT_EQ(file(), "<BookSet_Categories></BookSet_Categories>");
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(RebuildCategories, SaysNothingWithoutAFileThatLoads) {
  writeCatalogue(book("TRD", {}));
  rebuild();
  EXPECT_FALSE(world_.disk.has("cat.xml"));
  writeFile("<BookSet_Categories>");
  rebuild();
  EXPECT_EQ(file(), "<BookSet_Categories>");
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(RebuildCategories, ReportsAFileOfAnotherKind) {
  writeFile("<Books/>");
  rebuild();
  EXPECT_EQ(file(), "<Books/>");
  EXPECT_THAT(boxes(),
              ElementsAre("information: [Quorbind::Book_Config-GetBookAcroInfo] "
                          "91: Object variable or With block variable not set"));
}

TEST_F(RebuildCategories, GoesOnBehindACategoryWithAnApostrophe) {
  writeFile(categoriesWith(category("A") + category("O'Neil") + category("B") +
                           category("Other Category")));
  writeCatalogue(book("ALM", {"A", "O'Neil", "B"}) + book("TRD", {}));
  rebuild();
  EXPECT_EQ(file(),
            categoriesWith(category("A", {"ALM"}) + category("O'Neil") + category("B", {"ALM"}) +
                           category("Other Category", {"TRD"})));
  EXPECT_THAT(boxes(),
              ElementsAre("information: [Quorbind::Book_Config-AddBookAcro] -2147467259: The value "
                          "O'Neil can't stand in a query between the quote characters it "
                          "contains."));
}

TEST_F(RebuildCategories, ReadsBothFilesOnceAndWritesOneOnce) {
  std::string categories;
  std::string books;
  for (int i = 0; i < 50; ++i) {
    categories += category("C" + std::to_string(i), {"X" + std::to_string(i)});
    books += book("B" + std::to_string(i), {"C1", "C" + std::to_string(i)}) + book("U", {});
  }
  writeFile(categoriesWith(categories + category("Other Category")));
  writeCatalogue(books);
  WatchedXml xml(platform().xml, platform().files, "C:\\scratch.xml");
  const Platform& p = platform();
  GetBookAcroInfo(
      {p.files, xml, p.ui, p.toolset, p.locale, p.spreadsheets}, state(), kPath, kCatalogue);
  EXPECT_EQ(xml.loadsOf(kPath), 1);
  EXPECT_EQ(xml.loadsOf(kCatalogue), 1);
  EXPECT_EQ(xml.savesOf(kPath), 1);
}

}  // namespace
}  // namespace quorbind::testing
