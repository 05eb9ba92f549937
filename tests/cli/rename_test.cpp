#include "tests/cli/library_test.h"
#include "tests/cli/terminal_session.h"

namespace quorbind::testing {
namespace {

class Rename : public LibraryTest {
 protected:
  [[nodiscard]] static Words toAlerts(const Words& more = {}) {
    return joined({"rename", "Alarms", "--name", "Alerts", "--acro", "ALR"}, more);
  }
  [[nodiscard]] std::string books() const { return inPlant({"show"}).out; }

  [[nodiscard]] Command sessionOf(const Words& words) const {
    return {.words = joined({quorbindExecutable()}, plantWords(words)),
            .folder = disk.path().string(),
            .environment = environment};
  }

  void expectRenamed() const {
    EXPECT_EQ(text(kCatalogue),
              replaceAll(catalogueWith(bookEntry("Alerts", "ALR") + bookEntry(kMarkupInXml, "MRK")),
                         "\r\n",
                         "\n"));
    EXPECT_FALSE(disk.has(kBookFile));
    EXPECT_EQ(text("server/Docs/Plant/Manual/Book_ALR.xml"), bookFileOf("Alerts", "ALR"));
  }
};

TEST_F(Rename, ChangesTheEntryTheBookFileAndItsName) {
  const Outcome outcome = inPlant(toAlerts({"--yes"}));
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Renamed Alarms (ALM) to Alerts (ALR) in Plant.\n");
  EXPECT_EQ(outcome.err, "");
  expectRenamed();
}

TEST_F(Rename, AsAnObject) {
  const Outcome outcome = inPlant(toAlerts({"--yes", "--json"}));
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            changeObject("Renamed Alarms (ALM) to Alerts (ALR) in Plant.",
                         {{"move", kBookFile, "server/Docs/Plant/Manual/Book_ALR.xml"},
                          {"write", "server/Docs/Plant/Manual/Book_ALR.xml"},
                          {"write", kCatalogue}}));
}

TEST_F(Rename, ADryRunShowsTheFilesAndTouchesNone) {
  const Tree before = disk.contents();
  const Outcome outcome = inPlant(toAlerts({"--dry-run"}));
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "Would rename Alarms (ALM) to Alerts (ALR) in Plant.\n"
            "would move DISK/server/Docs/Plant/Manual/Book_ALM.xml to "
            "DISK/server/Docs/Plant/Manual/Book_ALR.xml\n"
            "would write DISK/server/Docs/Plant/Manual/Book_ALR.xml\n"
            "would write DISK/server/Docs/Plant/Quor_TOC.xml\n");
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(Rename, ADryRunIsRefusedLikeTheRun) {
  for (const char* flag : {"--dry-run", "--yes"}) {
    expectRefusal({"rename", "Alarms", "--name", "Alerts", "--acro", "MRK", flag},
                  1,
                  "critical: Error:Book Acro MRK already Exists\n"
                  "quorbind: Plant: nothing was changed\n");
  }
}

TEST_F(Rename, TakesTheOldNameAsItIsShown) {
  const Outcome outcome =
      inPlant({"rename", kMarkupName, "--name", "<&>", "--acro", "M2", "--yes"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Renamed A & B < C > D \" E ' F (MRK) to <&> (M2) in Plant.\n");
  EXPECT_EQ(
      text(kCatalogue),
      catalogueWith(
          bookEntry("Alarms", "ALM") +
          replaceAll(bookEntry("&amp;lt;&amp;amp;&amp;gt;", "M2"), "Book_M2.xml", "Book_MRK.xml")));
}

TEST_F(Rename, ABookFileThatIsNotThereIsToldOf) {
  const Outcome outcome = inPlant({"rename", kMarkupName, "--name", "M", "--acro", "M", "--yes"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err,
            "information: DISK/server/Docs/Plant/Manual/Book_MRK.xml: the book file is not "
            "there\n");
}

TEST_F(Rename, TellsWhichSideFilesGoOnNamingTheBook) {
  disk.write(kKeywords, keywordsFile(keywordsOf("Alarms", {"bell"})));
  disk.write(kCategories, categoriesFile(category("Safety", "ALM")));
  disk.write(kLinks, linksFile(link("X1", "ALM@QUOR@Alarms", "Plant\\alarms.htm", "ALM")));
  const Tree before = disk.contents();
  const Outcome outcome = inPlant(toAlerts({"--yes"}));
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err,
            "information: DISK/server/Docs/Plant/Quor_SearchKeywords.xml goes on naming Alarms "
            "(ALM)\n"
            "information: DISK/server/Docs/Plant/Quor_BookCategories.xml goes on naming Alarms "
            "(ALM)\n"
            "information: DISK/server/Docs/Plant/Quor_LinkID.xml goes on naming Alarms (ALM)\n");
  for (const char* file : {kKeywords, kCategories, kLinks}) {
    EXPECT_EQ(disk.read(file), before.at(file)) << file;
  }
}

TEST_F(Rename, ToTheSameNameInAnotherLetterCaseIsTaken) {
  EXPECT_EQ(inPlant({"rename", "Alarms", "--name", "ALARMS", "--acro", "alm", "--yes"}).status, 0);
  EXPECT_EQ(books(),
            "ACRONYM  NAME                   FOLDER\n"
            "alm      ALARMS                 Manual\n"
            "MRK      A & B < C > D \" E ' F  Manual\n");
  EXPECT_TRUE(disk.has("server/Docs/Plant/Manual/Book_alm.xml"));
}

TEST_F(Rename, ABookThatIsNotThereIsRefused) {
  expectRefusal({"rename", "alarms", "--name", "Alerts", "--acro", "ALR", "--yes"},
                1,
                "critical: there is no book alarms in Plant\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(Rename, ABookWhoseNameIsStoredAsItIsTypedIsNotTakenForAnotherOne) {
  disk.write(kCatalogue,
             catalogueWith(bookEntry("R&amp;D", "ONE") + bookEntry("R&amp;amp;D", "TWO")));
  expectRefusal({"rename", "R&D", "--name", "Research", "--acro", "RES", "--yes"},
                1,
                "critical: R&D (ONE) is stored in a form that is not looked up\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(Rename, ANameThatAnotherBookHasInAnyLetterCaseIsRefused) {
  expectRefusal({"rename", kMarkupName, "--name", "ALARMS", "--acro", "NEW", "--yes"},
                1,
                "information: DISK/server/Docs/Plant/Manual/Book_MRK.xml: the book file is not "
                "there\n"
                "critical: Error:Book Name ALARMS already Exists\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(Rename, ReportsARefusalAsOneObject) {
  const Outcome outcome =
      inPlant({"rename", "Alarms", "--name", "Alerts", "--acro", "mrk", "--yes", "--json"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out,
            "{\n  \"format\": 1,\n"
            "  \"status\": 1,\n"
            "  \"done\": false,\n"
            "  \"dryRun\": false,\n"
            "  \"summary\": \"\",\n"
            "  \"changes\": [],\n"
            "  \"messages\": [\n"
            "    {\n"
            "      \"icon\": \"critical\",\n"
            "      \"title\": \"Quorbind\",\n"
            "      \"text\": \"Error:Book Acro mrk already Exists\",\n"
            "      \"clipboard\": null,\n"
            "      \"expected\": \"An acronym that no other book of the library has, in whatever "
            "letter case.\"\n"
            "    }\n"
            "  ],\n"
            "  \"note\": \"nothing was changed\"\n"
            "}\n");
}

TEST_F(Rename, NameAndAcronymPassTheRulesOfTheBookDialog) {
  expectRefusal({"rename", "Alarms", "--name", "Alerts", "--acro", "A/B", "--yes"},
                1,
                "critical: Book Acro can not contain  (/\\:*?\"<>)\n"
                "quorbind: Plant: nothing was changed: other values are needed for --name and "
                "--acro\n");
  expectRefusal({"rename", "Alarms", "--name", "a&amp;b", "--acro", "AB", "--yes"},
                1,
                "information: &amp;Cannot be used in BookName\n"
                "quorbind: Plant: nothing was changed: other values are needed for --name and "
                "--acro\n");
  expectRefusal({"rename", "Alarms", "--name", " ", "--acro", "AB", "--yes"},
                1,
                "critical: Book Name/Book Acro can not be null\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(Rename, AnAcronymThatIsTooLongForAFileIsRefused) {
  expectRefusal({"rename", "Alarms", "--name", "A", "--acro", std::string(300, 'A'), "--yes"},
                1,
                "critical: --acro is too long: the name that it gives has 309 bytes, and 255 are "
                "the most that a name can have\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(Rename, AFileInThePlaceOfTheNewBookFileIsNeverTouched) {
  disk.write("server/Docs/Plant/Manual/Book_ALR.xml", "another's");
  expectRefusal(toAlerts({"--yes"}),
                1,
                "critical: DISK/server/Docs/Plant/Manual/Book_ALR.xml: the file is in the way; "
                "move it or delete it\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(Rename, ABookFileThatDoesNotParseStopsItWithNothingChanged) {
  disk.write(kBookFile, "<Book_Master>\n");
  const Tree before = disk.contents();
  const Outcome outcome = inPlant(toAlerts({"--yes"}));
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.err.rfind("critical: DISK/server/Docs/Plant/Manual/Book_ALM.xml:", 0), 0U)
      << outcome.err;
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(Rename, ABookFileThatIsCalledOtherwiseIsLeftAndTheRunSaysWhatWasDone) {
  disk.write(kBookFile, bookFileOf("Else", "ALM"));
  const Outcome outcome = inPlant(toAlerts({"--yes"}));
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.err,
            "critical: Error(91): Object variable or With block variable not set\n"
            "Quorbind:Book_Config::UpdateBookNameAcro\n"
            "quorbind: Plant: only a part was done: move "
            "DISK/server/Docs/Plant/Manual/Book_ALM.xml to "
            "DISK/server/Docs/Plant/Manual/Book_ALR.xml, write "
            "DISK/server/Docs/Plant/Quor_TOC.xml\n");
  EXPECT_EQ(text("server/Docs/Plant/Manual/Book_ALR.xml"), bookFileOf("Else", "ALM"));
}

TEST_F(Rename, AnEntryThatLeadsOutOfTheLibraryIsNotFollowed) {
  disk.write("server/Docs/Book_ALM.xml", bookFileOf("Alarms", "ALM"));
  disk.write(kCatalogue, replaceAll(disk.read(kCatalogue), ">Manual<", ">..<"));
  expectRefusal(toAlerts({"--yes"}),
                1,
                "critical: DISK/server/Docs/Plant/Quor_TOC.xml: the book file ..\\Book_ALM.xml is "
                "not in the library\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(Rename, WithoutATerminalAnAnswerThatIsMissingIsNamed) {
  expectRefusal({"rename", "Alarms", "--name", "Alerts", "--yes"},
                6,
                "quorbind: Plant: nothing was changed: give --acro\n");
  expectRefusal({"rename", "Alarms", "--yes"},
                6,
                "quorbind: Plant: nothing was changed: give --name and --acro\n");
  expectRefusal(toAlerts(), 6, "quorbind: Plant: nothing was changed: give --yes\n");
}

TEST_F(Rename, OnATerminalWhatIsMissingIsAskedForAndTheOldValuesAreOffered) {
  TerminalSession session(sessionOf({"rename", "Alarms"}));
  session.waitFor("Enter Book Information for :\nAlarms (ALM)\nBook Name: [Alarms] ");
  session.typeLine("Alerts");
  session.waitFor("Book Acro: [ALM] ");
  session.typeLine("ALR");
  session.waitFor("Rename Alarms (ALM) to Alerts (ALR) in Plant? [y/N] ");
  session.typeLine("y");
  session.waitFor("Renamed Alarms (ALM) to Alerts (ALR) in Plant.\n");
  EXPECT_EQ(session.finish().status, 0);
  expectRenamed();
}

TEST_F(Rename, AQuestionThatIsNotAnsweredWithYesChangesNothing) {
  const Tree before = disk.contents();
  for (const char* answer : {"n", "", "yess"}) {
    TerminalSession session(sessionOf(toAlerts()));
    session.waitFor("in Plant? [y/N] ");
    session.typeLine(answer);
    session.waitFor("quorbind: Plant: nothing was changed\n");
    EXPECT_EQ(session.finish().status, 1) << answer;
  }
  TerminalSession session(sessionOf(toAlerts()));
  session.waitFor("in Plant? [y/N] ");
  session.endInput();
  EXPECT_EQ(session.finish().status, 1);
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(Rename, ADialogThatIsCancelledChangesNothing) {
  const Tree before = disk.contents();
  TerminalSession session(sessionOf({"rename", "Alarms"}));
  session.waitFor("Book Name: [Alarms] ");
  session.endInput();
  session.waitFor("quorbind: Plant: nothing was changed\n");
  EXPECT_EQ(session.finish().status, 1);
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(Rename, NothingIsAskedWithNoInput) {
  TerminalSession session(sessionOf(toAlerts({"--no-input"})));
  session.waitFor("quorbind: Plant: nothing was changed: give --yes\n");
  EXPECT_EQ(session.finish().status, 6);
}

}  // namespace
}  // namespace quorbind::testing
