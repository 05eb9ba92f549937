#include "tests/cli/library_test.h"

namespace quorbind::testing {
namespace {

class Merge : public LibraryTest {
 protected:
  void SetUp() override {
    LibraryTest::SetUp();
    disk.write("other.xml",
               catalogueWith(entryWithLink("Alarms", "ALM") + entryWithLink(kMarkupInXml, "MRK") +
                             entryWithLink("Alarms", "NEW")));
  }

  /// With the link L and the category Safety.
  static std::string entryWithLink(std::string_view name, std::string_view acronym) {
    const std::string linked = replaceAll(bookEntry(name, acronym), "id=\"\"", "id=\"L\"");
    return replaceAll(linked,
                      "\t\t\t<Book_Categories/>\n",
                      "\t\t\t<Book_Categories>\n"
                      "\t\t\t\t<Book_Category>Safety</Book_Category>\n"
                      "\t\t\t</Book_Categories>\n");
  }
  static Words merge(const Words& more = {}) {
    return joined({"merge", "--from", "other.xml"}, more);
  }
};

TEST_F(Merge, TakesLinkAndCategoriesOverIntoTheCatalogueAndTheBookFiles) {
  const Outcome outcome = inPlant(merge());
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Took link and categories of 2 books over into Plant.\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(text(kCatalogue),
            catalogueWith(entryWithLink("Alarms", "ALM") + entryWithLink(kMarkupInXml, "MRK")));
  EXPECT_EQ(text(kBookFile),
            bookFileOf("Alarms",
                       "ALM",
                       "L",
                       "\t\t<Book_Categories>\n"
                       "\t\t\t<Category>Safety</Category>\n"
                       "\t\t</Book_Categories>\n"));
}

TEST_F(Merge, ASingleDocumentIsLeftAloneWhetherOrNotItParses) {
  const auto asDocument = [](const std::string& entry) {
    return replaceAll(entry, "<Book_File>Book_PLN.xml", "<Book_File type=\"html\">plan.htm");
  };
  for (const char* page : {"<html><body/></html>", "<p>no XML"}) {
    disk.write(kCatalogue,
               catalogueWith(asDocument(bookEntry("Plan", "PLN")) + bookEntry("Alarms", "ALM")));
    disk.write(kBookFile, bookFileOf("Alarms", "ALM"));
    disk.write("server/Docs/Plant/Manual/plan.htm", page);
    disk.write(
        "other.xml",
        catalogueWith(asDocument(entryWithLink("Plan", "PLN")) + entryWithLink("Alarms", "ALM")));
    const Outcome outcome = inPlant(merge());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "Took link and categories of 2 books over into Plant.\n");
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(text(kCatalogue), text("other.xml"));
    EXPECT_EQ(disk.read("server/Docs/Plant/Manual/plan.htm"), page);
    EXPECT_NE(text(kBookFile).find("<Book_Key id=\"L\">"), std::string::npos);
  }
}

TEST_F(Merge, WithoutABookThatBothHaveChangesNoEntry) {
  disk.write("other.xml", catalogueWith(entryWithLink("Alarms", "alm")));
  EXPECT_EQ(inPlant(merge()).out, "Took link and categories of 0 books over into Plant.\n");
  EXPECT_EQ(text(kCatalogue),
            catalogueWith(bookEntry("Alarms", "ALM") + bookEntry(kMarkupInXml, "MRK")));
}

TEST_F(Merge, AsAnObject) {
  EXPECT_EQ(inPlant(merge({"--json"})).out,
            changeObject("Took link and categories of 2 books over into Plant.",
                         {{"write", kBookFile}, {"write", kCatalogue}}));
}

TEST_F(Merge, ADryRunShowsTheFilesAndTouchesNone) {
  const Tree before = disk.contents();
  const Outcome outcome = inPlant(merge({"--dry-run"}));
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "Would take link and categories of 2 books over into Plant.\n"
            "would write DISK/server/Docs/Plant/Manual/Book_ALM.xml\n"
            "would write DISK/server/Docs/Plant/Quor_TOC.xml\n");
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(Merge, AnotherCatalogueThatIsNotThereIsMissingInput) {
  std::filesystem::remove(disk.path() / "other.xml");
  expectRefusal(merge(),
                3,
                "critical: DISK/other.xml: File not found\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(Merge, AnotherCatalogueThatDoesNotParseIsNamedWithItsLine) {
  for (const char* damaged : {"", "<Quor_Master>\n<Quor_Books>"}) {
    disk.write("other.xml", damaged);
    const Tree before = disk.contents();
    const Outcome outcome = inPlant(merge());
    EXPECT_EQ(outcome.status, 4);
    EXPECT_EQ(outcome.err.rfind("critical: DISK/other.xml:", 0), 0U) << outcome.err;
    EXPECT_EQ(disk.contents(), before);
  }
}

TEST_F(Merge, AnotherCatalogueWithAnotherRootIsNone) {
  disk.write("other.xml", "<Books/>");
  expectRefusal(merge(),
                4,
                "critical: DISK/other.xml: the element Quor_Books is missing\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(Merge, ABookFileThatDoesNotParseChangesNothing) {
  disk.write(kBookFile, "<Book_Master>");
  const Tree before = disk.contents();
  const Outcome outcome = inPlant(merge());
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.err.rfind("critical: DISK/server/Docs/Plant/Manual/Book_ALM.xml:", 0), 0U)
      << outcome.err;
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(Merge, AnEntryThatLacksItsLinkIsToldAndWhatWasDone) {
  disk.write("other.xml",
             catalogueWith(entryWithLink("Alarms", "ALM") +
                           replaceAll(entryWithLink(kMarkupInXml, "MRK"), " id=\"L\"", "")));
  const Outcome outcome = inPlant(merge());
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.err,
            "critical: Error(91): Object variable or With block variable not set\n"
            "Quorbind:Book_Config::strMatchingBooksInfo\n"
            "quorbind: Plant: only a part was done: write "
            "DISK/server/Docs/Plant/Manual/Book_ALM.xml\n");
}

}  // namespace
}  // namespace quorbind::testing
