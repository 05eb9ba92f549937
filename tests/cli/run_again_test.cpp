// A process that is killed between any two of its system calls, and what then brings its work to
// the end: what is left is taken away as docs/reliability.md says, and the same is run again.

#include <signal.h>

#include "tests/cli/interrupted_command.h"

namespace quorbind::testing {
namespace {

class RunAgain : public InterruptedCommand {
 protected:
  /// From each point: an end there, `takeAway`, and the same again, which leaves what one run
  /// leaves that nothing happens to.
  template <typename TakeAway>
  void expectTheSameEnd(TakeAway takeAway) const {
    const std::vector<SystemCall> points = pointsToTry(callsOfAWholeRun());
    const Tree after = withoutTemporaries(contents());
    ASSERT_NE(after, before());
    ASSERT_GT(points.size(), 10U);
    for (const SystemCall& call : points) {
      SCOPED_TRACE(call.text);
      restore();
      const Outcome killed = run(withEventAt(call, "signal=KILL", command()));
      if (killed.signal != SIGKILL) {
        continue;
      }
      takeAway();
      const Outcome outcome = run(command());
      EXPECT_EQ(outcome.status, 0) << outcome.err;
      EXPECT_EQ(withoutTemporaries(contents()), after);
    }
  }

  /// The entry of the book, where the catalogue has it.
  void deleteEntry(const std::string& book) const {
    if (text(kCatalogue).find("<Book_Name>" + book + "</Book_Name>") != std::string::npos) {
      EXPECT_EQ(inPlant({"delete", book, "--yes"}).status, 0);
    }
  }

 private:
  static Tree withoutTemporaries(Tree tree) {
    std::erase_if(tree, [](const auto& file) { return isTemporary(file.first); });
    return tree;
  }
};

class KilledInstallation : public RunAgain {
 protected:
  void writeInput() const override {
    disk.write("in/plan.htm", "<p>plan <img src=\"plan.png\"></p>");
    disk.write("in/plan.png", "a picture");
  }
};

TEST_P(KilledInstallation, IsDoneAgainWithoutItsEntryAndWhatCameIntoItsFolder) {
  expectTheSameEnd([&] {
    deleteEntry("N");
    disk.remove("server/Docs/Plant/A");
  });
}

INSTANTIATE_TEST_SUITE_P(Of, KilledInstallation, ::testing::Values(kInstallWithKeywords), nameOf);

class KilledInit : public RunAgain {
 protected:
  void writeInput() const override { disk.remove("server"); }
};

TEST_P(KilledInit, IsDoneAgainAsItStands) {
  expectTheSameEnd([] {});
}

INSTANTIATE_TEST_SUITE_P(Of, KilledInit, ::testing::Values(Subcommand{"server", {"init"}}), nameOf);

/// The first page brings the second, which has a picture of its own.
class KilledAdditionOfABookFile : public RunAgain {
 protected:
  void writeInput() const override {
    disk.write("in/guide.xml",
               replaceAll(replaceAll(bookFileOf("Guide", "GDE"),
                                     "\t</Book>",
                                     "\t\t<Book_Path>Tools\\Guide</Book_Path>\n\t</Book>"),
                          "\t</Book_Headings>",
                          "\t\t<Heading level=\"H1\"><HName>Bells</HName>"
                          "<HFile>bells.htm</HFile></Heading>\n\t</Book_Headings>"));
    disk.write("in/alarms.htm", "<a href=\"bells.htm\"><img src=\"pictures/a.png\">");
    disk.write("in/bells.htm", "<img src=\"pictures/b.png\">");
    disk.write("in/pictures/a.png", "picture");
    disk.write("in/pictures/b.png", "picture");
  }
};

TEST_P(KilledAdditionOfABookFile, IsDoneAgainWithoutItsEntry) {
  expectTheSameEnd([&] { deleteEntry("Guide"); });
}

INSTANTIATE_TEST_SUITE_P(Of,
                         KilledAdditionOfABookFile,
                         ::testing::Values(Subcommand{"guide", {"add", "in/guide.xml"}}),
                         nameOf);

}  // namespace
}  // namespace quorbind::testing
