#include "tests/cli/library_test.h"
#include "tests/cli/terminal_session.h"

namespace quorbind::testing {
namespace {

class Delete : public LibraryTest {
 protected:
  [[nodiscard]] Command sessionOf(const Words& words) const {
    return {.words = joined({quorbindExecutable()}, plantWords(words)),
            .folder = disk.path().string(),
            .environment = environment};
  }
};

TEST_F(Delete, TakesTheEntryOutAndLeavesTheFiles) {
  const Tree before = disk.contents();
  const Outcome outcome = inPlant({"delete", "Alarms", "--yes"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Deleted Alarms (ALM) from Plant; its files stay where they are.\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(text(kCatalogue), catalogueWith(bookEntry(kMarkupInXml, "MRK")));
  Tree expected = before;
  expected[kCatalogue] = disk.read(kCatalogue);
  EXPECT_EQ(disk.contents(), expected);
}

TEST_F(Delete, TakesTheNameAsItIsShown) {
  EXPECT_EQ(inPlant({"delete", kMarkupName, "--yes"}).status, 0);
  EXPECT_EQ(text(kCatalogue), catalogueWith(bookEntry("Alarms", "ALM")));
}

TEST_F(Delete, AsAnObject) {
  EXPECT_EQ(
      inPlant({"delete", "Alarms", "-y", "--json"}).out,
      changeObject("Deleted Alarms (ALM) from Plant; its files stay where they are.", kCatalogue));
}

TEST_F(Delete, ADryRunAsAnObject) {
  const Tree before = disk.contents();
  EXPECT_EQ(inPlant({"delete", "Alarms", "--dry-run", "--json"}).out,
            changeObject("Would delete Alarms (ALM) from Plant; its files stay where they are.",
                         {{"write", kCatalogue}},
                         /*isDryRun=*/true));
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(Delete, OfTwoBooksWithOneNameTheFirstGoes) {
  disk.write(kCatalogue, catalogueWith(bookEntry("Alarms", "ALM") + bookEntry("Alarms", "NEW")));
  EXPECT_EQ(inPlant({"delete", "Alarms", "--yes"}).out,
            "Deleted Alarms (ALM) from Plant; its files stay where they are.\n");
  EXPECT_EQ(text(kCatalogue), catalogueWith(bookEntry("Alarms", "NEW")));
}

TEST_F(Delete, TellsWhichSideFilesGoOnNamingTheBook) {
  disk.write(kKeywords, keywordsFile(keywordsOf("Alarms", {"bell"})));
  disk.write(kLinks, "damaged, and none of this run's business");
  EXPECT_EQ(inPlant({"delete", "Alarms", "--yes"}).err,
            "information: DISK/server/Docs/Plant/Quor_SearchKeywords.xml goes on naming Alarms "
            "(ALM)\n");
}

TEST_F(Delete, ABookThatIsNotThereIsRefused) {
  expectRefusal({"delete", "Else", "--yes"},
                1,
                "critical: there is no book Else in Plant\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(Delete, ANameThatIsStoredWithAnApostropheCanNotBeLookedUp) {
  disk.write(kCatalogue, catalogueWith(bookEntry("Bob's", "BOB")));
  const Tree before = disk.contents();
  const Outcome outcome = inPlant({"delete", "Bob's", "--yes"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.err.find("\nQuorbind:Book_Config::DeleteNode\n"), std::string::npos)
      << outcome.err;
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(Delete, WithoutATerminalIsNotDoneUnasked) {
  expectRefusal({"delete", "Alarms"}, 6, "quorbind: Plant: nothing was changed: give --yes\n");
}

TEST_F(Delete, OnATerminalIsAskedFor) {
  TerminalSession session(sessionOf({"delete", "Alarms"}));
  session.waitFor("Delete Alarms (ALM) from Plant? [y/N] ");
  session.typeLine("yes");
  session.waitFor("Deleted Alarms (ALM) from Plant");
  EXPECT_EQ(session.finish().status, 0);
  EXPECT_EQ(text(kCatalogue), catalogueWith(bookEntry(kMarkupInXml, "MRK")));
}

TEST_F(Delete, ThatIsNotAgreedToChangesNothing) {
  const Tree before = disk.contents();
  TerminalSession session(sessionOf({"delete", "Alarms"}));
  session.waitFor("[y/N] ");
  session.typeLine("no");
  session.waitFor("quorbind: Plant: nothing was changed\n");
  EXPECT_EQ(session.finish().status, 1);
  EXPECT_EQ(disk.contents(), before);
}

}  // namespace
}  // namespace quorbind::testing
