#include <sys/stat.h>

#include "tests/cli/library_test.h"
#include "tests/cli/terminal_session.h"

namespace quorbind::testing {
namespace {

class Install : public LibraryTest {
 protected:
  void SetUp() override {
    LibraryTest::SetUp();
    disk.write("in/plan.htm", "<p><img src=\"plan.png\"></p>");
    disk.write("in/plan.png", "a picture");
  }

  [[nodiscard]] static Words sitePlan(const std::string& file, const Words& more = {}) {
    return joined({"install", file, "--type", "html", "--name", "Site plan", "--acro", "PLN"},
                  more);
  }
  [[nodiscard]] static Words plan(const Words& more = {}) { return sitePlan("in/plan.htm", more); }
  static std::string planEntry(std::string_view file = "plan.htm",
                               std::string_view categories = "\t\t\t<Book_Categories/>\n") {
    return "\t\t<Book>\n"
           "\t\t\t<Book_Name>Site plan</Book_Name>\n"
           "\t\t\t<Book_Acro>PLN</Book_Acro>\n"
           "\t\t\t<Book_Key id=\"\">Plant</Book_Key>\n"
           "\t\t\t<Book_Folder>PLN</Book_Folder>\n"
           "\t\t\t<Book_File type=\"html\">" +
           std::string(file) + "</Book_File>\n" + std::string(categories) + "\t\t</Book>\n";
  }
  [[nodiscard]] std::string catalogueAnd(const std::string& entry) const {
    return catalogueWith(bookEntry("Alarms", "ALM") + bookEntry(kMarkupInXml, "MRK") + entry);
  }

  /// The page installed with a person at a terminal.
  [[nodiscard]] Command onTerminal(const Words& more = {}) const {
    return {.words = joined({quorbindExecutable()},
                            plantWords(joined({"install", "in/plan.htm", "--type", "html"}, more))),
            .folder = disk.path().string(),
            .environment = environment};
  }
  void expectPlanInstalled(TerminalSession& session) const {
    session.waitFor("Installed Site plan (PLN) in Plant, folder PLN: plan.htm.\n");
    EXPECT_EQ(session.finish().status, 0);
    EXPECT_EQ(text(kCatalogue), catalogueAnd(planEntry()));
  }
  /// Answers one showing of the book dialog.
  static void answer(TerminalSession& session, std::string_view name, std::string_view acronym) {
    session.waitFor("Book Name: ");
    session.typeLine(name);
    session.waitFor("Book Acro: ");
    session.typeLine(acronym);
  }
};

TEST_F(Install, WhatIsNoFileIsRefusedAlikeByARealRunAndADryRun) {
  ASSERT_EQ(mkfifo((disk.path() / "in/pipe.htm").c_str(), 0600), 0);
  disk.makeFolder("in/folder.htm");
  for (const std::string& file : {std::string("in/pipe.htm"), std::string("in/folder.htm")}) {
    for (const Words& kind : {Words{}, Words{"--dry-run"}}) {
      const Outcome outcome = inPlant(sitePlan(file, kind));
      EXPECT_EQ(outcome.status, 3);
      EXPECT_EQ(
          outcome.err,
          "critical: " + file + ": Path/File access error\nquorbind: Plant: nothing was changed\n");
    }
  }
}

TEST_F(Install, ANameThatTheCatalogueHasInAnotherLetterCaseIsRefused) {
  expectRefusal({"install", "in/plan.htm", "--type", "t", "--name", "ALARMS", "--acro", "N"},
                1,
                "critical: Error:Book Name ALARMS already Exists\n"
                "quorbind: Plant: nothing was changed: other values are needed for --name and "
                "--acro\n");
}

TEST_F(Install, EntersTheDocumentAndCopiesItIntoAFolderOfItsOwn) {
  const Outcome outcome = inPlant(plan());
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Installed Site plan (PLN) in Plant, folder PLN: plan.htm.\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(text(kCatalogue), catalogueAnd(planEntry()));
  EXPECT_EQ(filesBelow("server/Docs/Plant/PLN/"), (Words{"plan.htm", "plan.png"}));
  EXPECT_EQ(disk.read("server/Docs/Plant/PLN/plan.htm"), disk.read("in/plan.htm"));
  EXPECT_TRUE(disk.has("in/plan.htm"));
}

TEST_F(Install, UnderAnotherNameInTheLibrary) {
  EXPECT_EQ(inPlant(plan({"--file-name", "Site & plan.htm"})).out,
            "Installed Site plan (PLN) in Plant, folder PLN: Site & plan.htm.\n");
  EXPECT_EQ(text(kCatalogue), catalogueAnd(planEntry("Site &amp; plan.htm")));
  EXPECT_EQ(disk.read("server/Docs/Plant/PLN/Site & plan.htm"), disk.read("in/plan.htm"));
}

TEST_F(Install, RecordsKeywordsAndCategories) {
  disk.write(kCategories, categoriesFile(category("Safety") + category("Other Category")));
  EXPECT_EQ(inPlant(plan({"--keywords", "site, R&D", "--categories", "Safety; Maps"})).status, 0);
  EXPECT_EQ(text(kCatalogue),
            catalogueAnd(planEntry("plan.htm",
                                   "\t\t\t<Book_Categories>\n"
                                   "\t\t\t\t<Book_Category>Safety</Book_Category>\n"
                                   "\t\t\t\t<Book_Category>Maps</Book_Category>\n"
                                   "\t\t\t</Book_Categories>\n")));
  EXPECT_EQ(text(kCategories),
            categoriesFile(category("Safety", "PLN") + category("Maps", "PLN") +
                           category("Other Category")));
  EXPECT_EQ(inPlant({"keywords", "list"}).out,
            "BOOK       KEYWORDS\n"
            "Site plan  site, R&D\n");
}

TEST_F(Install, ASingleKeywordIsRecordedWithoutAnEmptyOneBesideIt) {
  EXPECT_EQ(inPlant(plan({"--keywords", " site "})).status, 0);
  EXPECT_NE(text(kKeywords).find("\t\t<Keywords>\n"
                                 "\t\t\t<Keyword>site</Keyword>\n"
                                 "\t\t</Keywords>\n"),
            std::string::npos)
      << text(kKeywords);
}

TEST_F(Install, AListThatASemicolonClosesIsNotSplitAtItsCommas) {
  disk.write(kKeywords, keywordsFile(""));
  EXPECT_EQ(inPlant(plan({"--keywords", "a,b;"})).status, 0);
  EXPECT_EQ(text(kKeywords), keywordsFile(keywordsOf("Site plan", {"a,b"})));
}

TEST_F(Install, ASingleCategoryWithACommaIsRefusedBecauseItWouldBecomeTwo) {
  disk.write(kCategories, categoriesFile(category("Safety")));
  expectRefusal(plan({"--categories", "Pumps, valves;"}),
                1,
                "critical: the category Pumps, valves can not be the only one: it holds a comma\n"
                "quorbind: Plant: nothing was changed\n");
  EXPECT_EQ(inPlant(plan({"--categories", "Pumps, valves;Safety"})).status, 0);
  EXPECT_EQ(text(kCategories),
            categoriesFile(category("Safety", "PLN") + category("Pumps, valves", "PLN")));
}

TEST_F(Install, MakesTheCategoriesFileFirstWhereThereIsNone) {
  std::filesystem::remove(disk.path() / kCategories);
  EXPECT_EQ(inPlant(plan({"--categories", "Training", "--create-categories"})).status, 0);
  EXPECT_EQ(inPlant({"categories", "list"}).out,
            "CATEGORY           BOOKS\n"
            "User Guides\n"
            "Reference Manuals\n"
            "Release Notes\n"
            "Training           PLN\n"
            "Other Category\n");
}

TEST_F(Install, DoesNotMakeACategoriesFileAnew) {
  disk.write(kCategories, categoriesFile(category("Safety")));
  const Outcome outcome = inPlant(plan({"--categories", "Safety", "--create-categories"}));
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err,
            "information: --create-categories is not used: the library has a categories file\n");
  EXPECT_EQ(text(kCategories), categoriesFile(category("Safety", "PLN")));
}

TEST_F(Install, AsAnObject) {
  EXPECT_EQ(inPlant(plan({"--json"})).out,
            changeObject("Installed Site plan (PLN) in Plant, folder PLN: plan.htm.",
                         {{"write", kCatalogue},
                          {"make folder", "server/Docs/Plant/PLN"},
                          {"write", "server/Docs/Plant/PLN/plan.htm"},
                          {"write", "server/Docs/Plant/PLN/plan.png"}}));
}

TEST_F(Install, ADryRunShowsTheFilesAndTouchesNone) {
  disk.write(kCategories, categoriesFile(category("Safety")));
  const Tree before = disk.contents();
  const Outcome outcome =
      inPlant(plan({"--keywords", "site", "--categories", "Safety", "--dry-run"}));
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "Would install Site plan (PLN) in Plant, folder PLN: plan.htm.\n"
            "would write DISK/server/Docs/Plant/Quor_TOC.xml\n"
            "would make folder DISK/server/Docs/Plant/PLN\n"
            "would write DISK/server/Docs/Plant/PLN/plan.htm\n"
            "would write DISK/server/Docs/Plant/PLN/plan.png\n"
            "would write DISK/server/Docs/Plant/Quor_SearchKeywords.xml\n"
            "would write DISK/server/Docs/Plant/Quor_BookCategories.xml\n");
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(Install, NamesMayHoldEveryMarkupCharacter) {
  const Outcome outcome = inPlant(
      {"install", "in/plan.htm", "--type", "html", "--name", "<a> & 'b' \"c\"", "--acro", "X"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Installed <a> & 'b' \"c\" (X) in Plant, folder X: plan.htm.\n");
  EXPECT_NE(text(kCatalogue)
                .find("<Book_Name>&amp;lt;a&amp;gt; &amp;amp; &amp;apos;b&amp;apos; "
                      "&amp;quot;c&amp;quot;</Book_Name>"),
            std::string::npos);
}

TEST_F(Install, ADocumentThatIsNotThereIsMissingInput) {
  expectRefusal({"install", "no.htm", "--type", "html", "--name", "N", "--acro", "A"},
                3,
                "critical: no.htm: File not found\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(Install, ATypeIsNeeded) {
  const Outcome outcome = inPlant({"install", "in/plan.htm", "--name", "N", "--acro", "A"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err,
            "--type is required\n"
            "Run with --help for more information.\n");
}

TEST_F(Install, ANameOrAnAcronymThatTheCatalogueHasIsRefused) {
  expectRefusal({"install", "in/plan.htm", "--type", "t", "--name", "Alarms", "--acro", "N"},
                1,
                "critical: Error:Book Name Alarms already Exists\n"
                "quorbind: Plant: nothing was changed: other values are needed for --name and "
                "--acro\n");
  expectRefusal({"install", "in/plan.htm", "--type", "t", "--name", "N", "--acro", "ALM"},
                1,
                "critical: Error:Book Acro ALM already Exists\n"
                "quorbind: Plant: nothing was changed: other values are needed for --name and "
                "--acro\n");
}

TEST_F(Install, NameAndAcronymPassTheRulesOfTheBookDialog) {
  expectRefusal({"install", "in/plan.htm", "--type", "t", "--name", "N", "--acro", "A/B"},
                1,
                "critical: Book Acro can not contain  (/\\:*?\"<>)\n"
                "quorbind: Plant: nothing was changed\n");
  expectRefusal({"install", "in/plan.htm", "--type", "t", "--name", "N", "--acro", ".."},
                1,
                "critical: --acro .. can not be the name of a folder\n"
                "quorbind: Plant: nothing was changed\n");
  expectRefusal(
      {"install", "in/plan.htm", "--type", "t", "--name", "N", "--acro", std::string(250, 'A')},
      1,
      "critical: --acro is too long: the name that it gives has 259 bytes, and 255 are the most "
      "that a name can have\n"
      "quorbind: Plant: nothing was changed\n");
}

TEST_F(Install, AFileNameThatLeadsElsewhereIsRefused) {
  for (const char* name : {"..", "a\\b.htm", "../x", "C:x", "nul"}) {
    expectRefusal(plan({"--file-name", name}),
                  1,
                  "critical: --file-name " + std::string(name) +
                      " can not be the name of a file\n"
                      "quorbind: Plant: nothing was changed\n");
  }
}

TEST_F(Install, KeywordsThatBreakARuleAreToldBeforeAnythingIsWritten) {
  expectRefusal(plan({"--keywords", "site;a##b;c d"}),
                1,
                "message: Search keyword should not contain '##' in it.\n"
                "message: Search keyword should not have any spaces in between the characters\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(Install, ACategoryThatCanNotBeLookedUpIsToldBeforeAnythingIsWritten) {
  disk.write(kCategories, categoriesFile(category("Safety")));
  expectRefusal(plan({"--categories", "Safety;Bob's"}),
                1,
                "critical: the category Bob's can not be looked up: it holds an apostrophe\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(Install, ACategoriesFileThatIsNoneChangesNothing) {
  disk.write(kCategories, "<Categories/>");
  expectRefusal(plan({"--categories", "Safety"}),
                4,
                "critical: DISK/server/Docs/Plant/Quor_BookCategories.xml: the element "
                "BookSet_Categories is missing\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(Install, InALibraryWithoutACategoriesFileCategoriesGoIntoTheEntryAlone) {
  std::filesystem::remove(disk.path() / kCategories);
  std::filesystem::remove(disk.path() / "server/Docs/Quor_DefaultCategories.xml");
  const Outcome outcome = inPlant(plan({"--categories", "Safety", "--create-categories"}));
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err,
            "information: --create-categories is not used: "
            "DISK/server/Docs/Quor_DefaultCategories.xml: File not found\n"
            "information: --categories goes into the entry alone: the library has no categories "
            "file\n");
  EXPECT_NE(text(kCatalogue).find("<Book_Category>Safety</Book_Category>"), std::string::npos);
  EXPECT_FALSE(disk.has(kCategories));
}

TEST_F(Install, AFileInThePlaceOfTheDocumentIsNeverTouched) {
  disk.write("server/Docs/Plant/PLN/plan.htm", "another's");
  expectRefusal(plan(),
                1,
                "critical: DISK/server/Docs/Plant/PLN/plan.htm: the file is in the way; move it or "
                "delete it\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(Install, AFileInThePlaceOfOneThatThePageBringsIsNeverTouched) {
  disk.write("server/Docs/Plant/PLN/plan.png", "another's");
  expectRefusal(plan(),
                1,
                "critical: DISK/server/Docs/Plant/PLN/plan.png: the file is in the way; move it or "
                "delete it\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(Install, APageIsStoredUnderItsOwnNameTooSoThatPlaceHasToBeFree) {
  disk.write("server/Docs/Plant/PLN/plan.htm", "another's");
  for (const Words& more :
       {Words{"--file-name", "new.htm"}, Words{"--file-name", "new.htm", "--dry-run"}}) {
    expectRefusal(plan(more),
                  1,
                  "critical: DISK/server/Docs/Plant/PLN/plan.htm: the file is in the way; move it "
                  "or delete it\n"
                  "quorbind: Plant: nothing was changed\n");
  }
}

TEST_F(Install, ADocumentThatIsNoPageNeedsOnlyTheNameThatItGets) {
  disk.write("in/plan.pdf", "a drawing");
  disk.write("server/Docs/Plant/PLN/plan.pdf", "another's");
  EXPECT_EQ(inPlant(sitePlan("in/plan.pdf", {"--file-name", "new.pdf"})).status, 0);
  EXPECT_EQ(disk.read("server/Docs/Plant/PLN/plan.pdf"), "another's");
  EXPECT_EQ(disk.read("server/Docs/Plant/PLN/new.pdf"), "a drawing");
}

TEST_F(Install, WhatLiesInItsPlaceAlreadyIsNotInTheWay) {
  disk.write("server/Docs/Plant/PLN/plan.htm", "<p><img src=\"plan.png\"></p>");
  disk.write("server/Docs/Plant/PLN/plan.png", "a picture");
  const Outcome outcome = inPlant(sitePlan("server/Docs/Plant/PLN/plan.htm"));
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(text(kCatalogue), catalogueAnd(planEntry()));
}

TEST_F(Install, AFileInThePlaceOfTheFolderIsNeverTouched) {
  disk.write("server/Docs/Plant/PLN", "another's");
  expectRefusal(plan(),
                1,
                "critical: DISK/server/Docs/Plant/PLN: the file is in the way; move it or delete "
                "it\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(Install, TheEntryOfADocumentThatDidNotArriveIsTakenOutAgain) {
  disk.makeFolder("server/Docs/Plant/PLN/plan.htm");
  const Outcome outcome = inPlant(plan());
  EXPECT_EQ(outcome.status, 5);
  EXPECT_EQ(outcome.err,
            "critical: Error(75): Path/File access error\n"
            "Quorbind:Book_Config::CreateQuorBookNodeForSEntry\n"
            "information: the entry of Site plan (PLN) was taken out again\n"
            "quorbind: Plant: DISK/server/Docs/Plant/PLN/plan.htm could not be written; only a "
            "part was done: write DISK/server/Docs/Plant/Quor_TOC.xml\n");
  EXPECT_EQ(text(kCatalogue), catalogueAnd(""));
}

TEST_F(Install, WithoutATerminalAnAnswerThatIsMissingIsNamed) {
  expectRefusal({"install", "in/plan.htm", "--type", "html"},
                6,
                "quorbind: Plant: nothing was changed: give --name and --acro\n");
  expectRefusal({"install", "in/plan.htm", "--type", "html", "--name", "N"},
                6,
                "quorbind: Plant: nothing was changed: give --acro\n");
}

TEST_F(Install, OnATerminalWhatIsMissingIsAskedFor) {
  TerminalSession session(onTerminal({"--acro", "PLN"}));
  session.waitFor("Enter Book Information for :\nin/plan.htm\nBook Name: ");
  session.typeLine("Site plan");
  expectPlanInstalled(session);
}

TEST_F(Install, AValueThatIsRefusedAndCorrectedIsNoFailure) {
  TerminalSession session(onTerminal());
  answer(session, "Site plan", "P/N");
  session.waitFor("Book Acro can not contain  (/\\:*?\"<>)\n");
  answer(session, "", "PLN");
  expectPlanInstalled(session);
}

TEST_F(Install, ANameThatIsTakenIsAskedForAgainAndTheRestFollowsTheNewOne) {
  disk.write(kKeywords, keywordsFile(""));
  disk.write(kCategories, categoriesFile(category("Safety")));
  TerminalSession session(onTerminal(
      {"--name", "Alarms", "--acro", "NEW", "--keywords", "site", "--categories", "Safety"}));
  session.waitFor("Error:Book Name Alarms already Exists\n");
  answer(session, "Bob's R&D", "RD");
  session.waitFor("Installed Bob's R&D (RD) in Plant, folder RD: plan.htm.\n");
  EXPECT_EQ(session.finish().status, 0);
  EXPECT_NE(text(kCatalogue).find("<Book_Name>Bob&amp;apos;s R&amp;amp;D</Book_Name>"),
            std::string::npos);
  EXPECT_EQ(text(kKeywords), keywordsFile(keywordsOf("Bob&amp;apos;s R&amp;amp;D", {"site"})));
  EXPECT_EQ(text(kCategories), categoriesFile(category("Safety", "RD")));
  EXPECT_EQ(filesBelow("server/Docs/Plant/RD/"), (Words{"plan.htm", "plan.png"}));
}

TEST_F(Install, IsAskedForAgainUntilNameAndAcronymAreFree) {
  TerminalSession session(onTerminal({"--name", "Alarms", "--acro", "NEW"}));
  session.waitFor("Error:Book Name Alarms already Exists\n");
  answer(session, "Site plan", "ALM");
  session.waitFor("Error:Book Acro ALM already Exists\n");
  answer(session, "Alarms", "PLN");
  session.waitFor("Error:Book Name Alarms already Exists\n");
  answer(session, "Site plan", "");
  expectPlanInstalled(session);
}

TEST_F(Install, AnAcronymThatIsTypedIsHeldAgainstTheFilesLikeOneThatIsGiven) {
  disk.write("server/Docs/Plant/Manual/plan.htm", "another's");
  const Tree before = disk.contents();
  for (const auto& [acronym, error] :
       {std::pair{"Manual", "/server/Docs/Plant/Manual/plan.htm: the file is in the way; move it"},
        std::pair{"..", "--acro .. can not be the name of a folder"}}) {
    TerminalSession session(onTerminal({"--name", "Site plan"}));
    session.waitFor("Book Acro: ");
    session.typeLine(acronym);
    session.waitFor(error);
    session.waitFor("quorbind: Plant: nothing was changed\n");
    EXPECT_EQ(session.finish().status, 1);
    EXPECT_EQ(disk.contents(), before) << acronym;
  }
}

TEST_F(Install, ADialogThatIsCancelledChangesNothing) {
  const Tree before = disk.contents();
  TerminalSession session(onTerminal());
  session.waitFor("Book Name: ");
  session.endInput();
  session.waitFor("quorbind: Plant: nothing was changed\n");
  EXPECT_EQ(session.finish().status, 1);
  EXPECT_EQ(disk.contents(), before);
}

}  // namespace
}  // namespace quorbind::testing
