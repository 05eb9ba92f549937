#include "tests/cli/library_test.h"

namespace quorbind::testing {
namespace {

class Set : public LibraryTest {
 protected:
  static std::string withCategories(std::string_view entry, std::string_view categories) {
    return replaceAll(
        entry,
        "\t\t\t<Book_Categories/>\n",
        "\t\t\t<Book_Categories>\n" + std::string(categories) + "\t\t\t</Book_Categories>\n");
  }
  /// Alarms with the categories Operation and Safety.
  static std::string filedEntry() {
    return withCategories(bookEntry("Alarms", "ALM"),
                          "\t\t\t\t<Book_Category>Operation</Book_Category>\n"
                          "\t\t\t\t<Book_Category>Safety</Book_Category>\n");
  }
  static std::string filedBookFile(std::string_view link) {
    return bookFileOf("Alarms",
                      "ALM",
                      link,
                      "\t\t<Book_Categories>\n"
                      "\t\t\t<Category>Operation</Category>\n"
                      "\t\t\t<Category>Safety</Category>\n"
                      "\t\t</Book_Categories>\n");
  }
  /// A single document.
  static std::string documentEntry() {
    return replaceAll(
        bookEntry("Plan", "PLN"), "<Book_File>Book_PLN.xml", "<Book_File type=\"html\">plan.htm");
  }
};

TEST_F(Set, CategoriesAreSplitAtSemicolonsAndTrimmed) {
  const Outcome outcome = inPlant({"set", "Alarms", "--categories", " Operation ;Safety; "});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Set categories of Alarms (ALM) in Plant.\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(text(kCatalogue), catalogueWith(filedEntry() + bookEntry(kMarkupInXml, "MRK")));
  EXPECT_EQ(text(kBookFile), filedBookFile(""));
}

TEST_F(Set, CategoriesWithoutASemicolonAreSplitAtCommas) {
  EXPECT_EQ(inPlant({"set", "Alarms", "--categories", "Operation, Safety"}).status, 0);
  EXPECT_EQ(text(kBookFile), filedBookFile(""));
}

TEST_F(Set, AnEmptyListTakesAllCategoriesAway) {
  ASSERT_EQ(inPlant({"set", "Alarms", "--categories", "Operation"}).status, 0);
  EXPECT_EQ(inPlant({"set", "Alarms", "--categories", ""}).status, 0);
  EXPECT_EQ(text(kCatalogue),
            catalogueWith(bookEntry("Alarms", "ALM") + bookEntry(kMarkupInXml, "MRK")));
}

TEST_F(Set, TheLinkGoesIntoTheBookFileAndNothingElseChanges) {
  disk.write(kCatalogue, catalogueWith(filedEntry()));
  disk.write(kBookFile, filedBookFile("old"));
  const Outcome outcome = inPlant({"set", "Alarms", "--link", "a&b<'\">"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Set link of Alarms (ALM) in Plant.\n");
  EXPECT_EQ(text(kCatalogue), catalogueWith(filedEntry()));
  EXPECT_EQ(text(kBookFile), filedBookFile("a&amp;b&lt;'&quot;&gt;"));
  EXPECT_EQ(inPlant({"show", "ALM"}).out,
            "Alarms (ALM), folder Manual\n"
            "link: a&b<'\">\n"
            "categories: Operation; Safety\n"
            "  Alarms  alarms.htm\n");
}

TEST_F(Set, WhatIsNotGivenStaysAsItIs) {
  disk.write(kBookFile, bookFileOf("Alarms", "ALM", "kept"));
  EXPECT_EQ(inPlant({"set", "Alarms", "--categories", "Operation;Safety"}).status, 0);
  EXPECT_EQ(text(kBookFile), filedBookFile("kept"));
}

TEST_F(Set, TheCategoriesOfTheEntryGoIntoTheBookFileAndEmptyOnesAreDropped) {
  const std::string withEmptyOne =
      replaceAll(filedEntry(),
                 "\t\t\t\t<Book_Category>Safety",
                 "\t\t\t\t<Book_Category/>\n\t\t\t\t<Book_Category>Safety");
  disk.write(kCatalogue, catalogueWith(withEmptyOne));
  const Outcome outcome = inPlant({"set", "Alarms", "--link", "L"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(text(kCatalogue), catalogueWith(filedEntry()));
  EXPECT_EQ(text(kBookFile), filedBookFile("L"));
}

TEST_F(Set, AnotherFolderGetsACopyThatIsChanged) {
  const Outcome outcome = inPlant({"set", "Alarms", "--folder", "New", "--link", "L"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "Set folder and link of Alarms (ALM) in Plant. The catalogue goes on naming folder "
            "Manual.\n");
  EXPECT_EQ(text("server/Docs/Plant/New/Book_ALM.xml"), bookFileOf("Alarms", "ALM", "L"));
  EXPECT_EQ(disk.read("server/Docs/Plant/New/alarms.htm"), "<p>text</p>");
  EXPECT_EQ(text(kBookFile), bookFileOf("Alarms", "ALM"));
}

TEST_F(Set, TheFolderThatABookHasIsNotCopied) {
  const Outcome outcome = inPlant({"set", "Alarms", "--folder", " Manual ", "--link", "L"});
  EXPECT_EQ(outcome.out, "Set link of Alarms (ALM) in Plant.\n");
  EXPECT_EQ(filesBelow("server/Docs/Plant/Manual"), (Words{"/Book_ALM.xml", "/alarms.htm"}));
}

TEST_F(Set, TakesTheNameAsItIsShown) {
  disk.write("server/Docs/Plant/Manual/Book_MRK.xml", bookFileOf(kMarkupInXml, "MRK"));
  EXPECT_EQ(inPlant({"set", kMarkupName, "--link", "L"}).status, 0);
  EXPECT_EQ(text("server/Docs/Plant/Manual/Book_MRK.xml"), bookFileOf(kMarkupInXml, "MRK", "L"));
}

TEST_F(Set, ASingleDocumentHasItsCategoriesInTheCatalogueAlone) {
  disk.write(kCatalogue, catalogueWith(documentEntry()));
  disk.write("server/Docs/Plant/Manual/plan.htm", "<p>plan</p>");
  EXPECT_EQ(inPlant({"set", "Plan", "--categories", "Operation"}).status, 0);
  EXPECT_EQ(text(kCatalogue),
            catalogueWith(withCategories(documentEntry(),
                                         "\t\t\t\t<Book_Category>Operation</Book_Category>\n")));
  EXPECT_EQ(disk.read("server/Docs/Plant/Manual/plan.htm"), "<p>plan</p>");
}

TEST_F(Set, ASingleDocumentTakesNoLink) {
  disk.write(kCatalogue, catalogueWith(documentEntry()));
  disk.write("server/Docs/Plant/Manual/plan.htm", "<p>plan</p>");
  expectRefusal({"set", "Plan", "--link", "L"},
                1,
                "critical: Plan (PLN) is a single document, which holds no link\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(Set, AsAnObject) {
  EXPECT_EQ(inPlant({"set", "Alarms", "--link", "L", "--json"}).out,
            changeObject("Set link of Alarms (ALM) in Plant.",
                         {{"write", kCatalogue}, {"write", kBookFile}}));
}

TEST_F(Set, ADryRunShowsTheFilesAndTouchesNone) {
  const Tree before = disk.contents();
  const Outcome outcome = inPlant({"set", "Alarms", "--folder", "New", "--dry-run"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "Would set folder of Alarms (ALM) in Plant. The catalogue goes on naming folder "
            "Manual.\n"
            "would make folder DISK/server/Docs/Plant/New\n"
            "would write DISK/server/Docs/Plant/New/Book_ALM.xml\n"
            "would write DISK/server/Docs/Plant/New/alarms.htm\n"
            "would write DISK/server/Docs/Plant/Quor_TOC.xml\n");
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(Set, NothingToSetIsWrongUsage) {
  expectRefusal({"set", "Alarms"},
                2,
                "set: give --folder, --categories or --link\n"
                "Run with --help for more information.\n");
}

TEST_F(Set, ABookThatIsNotThereIsRefused) {
  expectRefusal({"set", "Else", "--link", "L"},
                1,
                "critical: there is no book Else in Plant\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(Set, TheFolderPassesTheRulesOfTheFolderDialog) {
  expectRefusal({"set", "Alarms", "--folder", "A\\B"},
                1,
                "critical: Book Folder can not contain (/\\:*?\"<>)\n"
                "quorbind: Plant: nothing was changed\n");
  expectRefusal({"set", "Alarms", "--folder", " "},
                1,
                "critical: Enter a Non-empty string for folder name\n"
                "quorbind: Plant: nothing was changed\n");
  expectRefusal({"set", "Alarms", "--folder", ".."},
                1,
                "critical: --folder .. leads out of the library\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(Set, ABookFileThatIsNotThereIsMissingInput) {
  expectRefusal({"set", kMarkupName, "--link", "L"},
                3,
                "critical: DISK/server/Docs/Plant/Manual/Book_MRK.xml: File not found\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(Set, ABookFileThatDoesNotParseChangesNothing) {
  disk.write(kBookFile, "<Book_Master><Book>");
  const Tree before = disk.contents();
  EXPECT_EQ(inPlant({"set", "Alarms", "--categories", "A"}).status, 4);
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(Set, ABookFileWithAnotherRootIsNone) {
  disk.write(kBookFile, "<html/>");
  expectRefusal({"set", "Alarms", "--link", "L"},
                4,
                "critical: DISK/server/Docs/Plant/Manual/Book_ALM.xml: the element Book is "
                "missing\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(Set, AnEntryThatTakesNoCategoriesIsToldOf) {
  disk.write(kCatalogue, replaceAll(disk.read(kCatalogue), "\t\t\t<Book_Categories/>\n", ""));
  const Outcome outcome = inPlant({"set", "Alarms", "--categories", "A"});
  EXPECT_EQ(outcome.status, 4);
  EXPECT_TRUE(
      outcome.err.starts_with("critical: DISK/server/Docs/Plant/Quor_TOC.xml: the entry "
                              "of Alarms (ALM) takes no categories\n"
                              "quorbind: Plant: only a part was done: "))
      << outcome.err;
}

TEST_F(Set, ABookThatTakesNoLinkIsToldOf) {
  disk.write(kBookFile, replaceAll(disk.read(kBookFile), " id=\"\"", ""));
  const Outcome outcome = inPlant({"set", "Alarms", "--link", "L"});
  EXPECT_EQ(outcome.status, 4);
  EXPECT_NE(outcome.err.find("\nQuorbind:Book_Config::msetBookProperties\n"), std::string::npos)
      << outcome.err;
}

}  // namespace
}  // namespace quorbind::testing
