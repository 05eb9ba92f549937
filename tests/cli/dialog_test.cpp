#include "tests/cli/command_test.h"
#include "tests/cli/terminal_session.h"

namespace quorbind::testing {
namespace {

/// The dialogs, with a person at a terminal.
class Dialogs : public CommandTest {
 protected:
  void SetUp() override {
    initLibrary();
    writeBook();
  }

  [[nodiscard]] Command addCommand(const Words& more = {}) const {
    return {.words = joined({quorbindExecutable()}, addWords(more)),
            .folder = disk.path().string(),
            .environment = environment};
  }
  [[nodiscard]] std::string books() const {
    return quorbind({"show", "--server", "server", "--library", "Plant"}).out;
  }
};

TEST_F(Dialogs, AskForNameAndAcronymAndOfferTheNameOfTheFirstEntry) {
  TerminalSession session(addCommand());
  session.waitFor("Book Information\nEnter Book Information for :\ntoc.txt\n");
  session.waitFor("Book Name: [Alarm Handling] ");
  session.typeLine("");
  session.waitFor("Book Acro: ");
  session.typeLine("ALM");
  session.waitFor("Added Alarm Handling (ALM) to Plant, folder Manual: 3 files.\n");
  EXPECT_EQ(session.finish().status, 0);
}

TEST_F(Dialogs, AskOnlyForWhatTheFlagsLeaveOpen) {
  TerminalSession session(addCommand({"--name", "Alarms"}));
  session.waitFor("toc.txt\nBook Acro: ");
  session.typeLine("ALM");
  session.waitFor("Added Alarms (ALM)");
  EXPECT_EQ(session.finish().status, 0);
}

TEST_F(Dialogs, StayOpenWithAMessageUntilTheValuesWillDo) {
  TerminalSession session(addCommand());
  session.waitFor("Book Name: [Alarm Handling] ");
  session.typeLine("Alarms");
  session.waitFor("Book Acro: ");
  session.typeLine("A/B");
  session.waitFor("Book Acro can not contain  (/\\:*?\"<>)\n");
  session.waitFor("Book Name: [Alarms] ");
  session.typeLine("");
  session.waitFor("Book Acro: [A/B] ");
  session.typeLine("AB");
  session.waitFor("Added Alarms (AB)");
  EXPECT_EQ(session.finish().status, 0);
}

TEST_F(Dialogs, AskAgainForANameThatTheCatalogueHas) {
  EXPECT_EQ(addAlarms().status, 0);
  TerminalSession session(addCommand({"--name", "Alarms", "--acro", "NEW"}));
  session.waitFor("Error:Book Name Alarms already Exists\n");
  session.waitFor("Book Name: [Alarms] ");
  session.typeLine("More Alarms");
  session.waitFor("Book Acro: [NEW] ");
  session.typeLine("");
  session.waitFor("Added More Alarms (NEW)");
  EXPECT_EQ(session.finish().status, 0);
}

TEST_F(Dialogs, AskAgainForAnAcronymThatTheCatalogueHasInAnotherLetterCase) {
  EXPECT_EQ(addAlarms().status, 0);
  TerminalSession session(addCommand({"--name", "More Alarms"}));
  session.waitFor("Book Acro: ");
  session.typeLine("alm");
  session.waitFor("Error:Book Acro alm already Exists\n");
  session.waitFor("Book Name: [More Alarms] ");
  session.typeLine("");
  session.waitFor("Book Acro: [alm] ");
  session.typeLine("NEW");
  session.waitFor("Added More Alarms (NEW)");
  EXPECT_EQ(session.finish().status, 0);
  EXPECT_EQ(books(),
            "ACRONYM  NAME         FOLDER\n"
            "ALM      Alarms       Manual\n"
            "NEW      More Alarms  Manual\n");
}

TEST_F(Dialogs, GiveTheBookAndItsKeywordsOneNameAlsoAfterADuplicate) {
  EXPECT_EQ(addAlarms().status, 0);
  TerminalSession session(
      addCommand({"--name", "Alarms", "--acro", "NEW", "--keywords", "bell;horn"}));
  session.waitFor("Book Name: [Alarms] ");
  session.typeLine("Bob's R&D");
  session.waitFor("Book Acro: [NEW] ");
  session.typeLine("");
  session.waitFor("Added Bob's R&D (NEW)");
  EXPECT_EQ(session.finish().status, 0);
  EXPECT_NE(fromUtf16File(disk.read("server/Docs/Plant/Quor_TOC.xml"))
                .find("<Book_Name>Bob&amp;apos;s R&amp;amp;D</Book_Name>"),
            std::string::npos);
  EXPECT_NE(fromUtf16File(disk.read("server/Docs/Plant/Quor_SearchKeywords.xml"))
                .find("<Book Book_Name=\"Bob&amp;apos;s R&amp;amp;D\">"),
            std::string::npos);
}

TEST_F(Dialogs, TellOfAnEntryWithoutABookFileThatCanNotBeTakenOutBecauseAnotherHasItsName) {
  EXPECT_EQ(addAlarms().status, 0);
  disk.makeFolder("server/Docs/Plant/Manual/Book_NEW.xml");
  TerminalSession session(addCommand({"--name", "Alarms", "--acro", "NEW"}));
  session.waitFor("Book Name: [Alarms] ");
  session.typeLine("");
  session.waitFor("Book Acro: [NEW] ");
  session.typeLine("");
  session.waitFor(
      "/server/Docs/Plant/Manual/Book_NEW.xml could not be written; the entry of NEW is left in "
      "the catalogue without it\n");
  EXPECT_EQ(session.finish().status, 5);
  EXPECT_EQ(books(),
            "ACRONYM  NAME    FOLDER\n"
            "ALM      Alarms  Manual\n"
            "NEW      Alarms  Manual\n");
}

TEST_F(Dialogs, AskForAFolderThatTheTableDoesNotName) {
  writeToc("\"1\" \"Book\" \"cover.htm\" \"\"\n");
  TerminalSession session(addCommand({"--name", "Alarms", "--acro", "ALM"}));
  session.waitFor("Enter Book Folder\nBook Folder: ");
  session.typeLine("Manual");
  session.waitFor("Added Alarms (ALM) to Plant, folder Manual: 1 file.\n");
  EXPECT_EQ(session.finish().status, 0);
}

TEST_F(Dialogs, AskAgainForWhatNoXmlFileCanHold) {
  writeToc("\"1\" \"Book\" \"cover.htm\" \"\"\n");
  TerminalSession session(addCommand());
  const auto waitForRefusal = [&session](const std::string& text) {
    session.waitFor("the text " + text + " can not be kept: ");
  };
  session.waitFor("Book Name: [Book] ");
  session.typeLine(
      "Al\x01"
      "arms");
  session.waitFor("Book Acro: ");
  session.typeLine("ALM");
  waitForRefusal("Al\\x01arms");
  session.waitFor("Book Name: ");
  session.typeLine("Alarms");
  session.waitFor("Book Acro: ");
  session.typeLine("A\x01M");
  waitForRefusal("A\\x01M");
  session.waitFor("Book Name: [Alarms] ");
  session.typeLine("");
  session.waitFor("Book Acro: ");
  session.typeLine("ALM");
  session.waitFor("Enter Book Folder\nBook Folder: ");
  session.typeLine("Man\x01ual");
  waitForRefusal("Man\\x01ual");
  session.waitFor("Book Folder: ");
  session.typeLine("Manual");
  session.waitFor("Added Alarms (ALM) to Plant, folder Manual: 1 file.\n");
  EXPECT_EQ(session.finish().status, 0);
}

TEST_F(Dialogs, TheEndOfInputCancelsAndNothingIsAdded) {
  const Tree before = disk.contents();
  TerminalSession session(addCommand());
  session.waitFor("Book Name: [Alarm Handling] ");
  session.endInput();
  session.waitFor("quorbind: toc.txt: nothing was added\n");
  EXPECT_EQ(session.finish().status, 1);
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(Dialogs, AFolderDialogThatIsClosedIsShownAgain) {
  writeToc("\"1\" \"Book\" \"cover.htm\" \"\"\n");
  TerminalSession session(addCommand({"--name", "Alarms", "--acro", "ALM"}));
  session.waitFor("Book Folder: ");
  session.endInput();
  session.waitFor("Book Folder: ");
  session.typeLine("Manual");
  session.waitFor("Added Alarms (ALM)");
  EXPECT_EQ(session.finish().status, 0);
}

TEST_F(Dialogs, AreNotShownWithNoInput) {
  TerminalSession session(addCommand({"--no-input"}));
  session.waitFor("quorbind: toc.txt: nothing was added: give --name and --acro\n");
  EXPECT_EQ(session.finish().status, 6);
}

TEST_F(Dialogs, ADuplicateIsNotAskedForWithNoInput) {
  EXPECT_EQ(addAlarms().status, 0);
  TerminalSession session(addCommand({"--name", "Alarms", "--acro", "NEW", "--no-input"}));
  session.waitFor("already Exists\n");
  EXPECT_EQ(session.finish().status, 1);
}

TEST_F(Dialogs, AnInterruptTakesThePreparedCopyAlong) {
  const Tree before = disk.contents();
  TerminalSession session(addCommand());
  session.waitFor("Book Name: [Alarm Handling] ");
  EXPECT_NE(disk.contents(), before) << "there is no copy that could be left behind";
  session.interrupt();
  EXPECT_EQ(session.finish().signal, SIGINT);
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(Dialogs, ProgressIsShownOnATerminalAndCleared) {
  TerminalSession session(addCommand({"--name", "Alarms", "--acro", "ALM"}));
  const Outcome outcome = session.finish();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_NE(outcome.out.find("[########............] File copying in progress..."),
            std::string::npos)
      << outcome.out;
  EXPECT_NE(outcome.out.find(" \rAdded Alarms (ALM)"), std::string::npos) << outcome.out;
}

TEST_F(Dialogs, ColoursAreLeftOutWhenTheUserWantsNone) {
  writeToc("");
  disk.write("toc.txt", "");
  TerminalSession coloured(addCommand());
  EXPECT_NE(coloured.finish().out.find("\x1B[1;31mcritical:\x1B[0m Error: Text File is Empty"),
            std::string::npos);

  environment["NO_COLOR"] = "1";
  TerminalSession plain(addCommand());
  EXPECT_EQ(plain.finish().out.find('\x1B'), std::string::npos);
}

}  // namespace
}  // namespace quorbind::testing
