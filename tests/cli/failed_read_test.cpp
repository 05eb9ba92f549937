#include "tests/cli/command_test.h"

namespace quorbind::testing {
namespace {

/// Files that can be opened and whose device then fails: a tracer has every read of one file but
/// the first fail.
class FailedRead : public CommandTest {
 protected:
  void SetUp() override {
    initLibrary();
    writeBook();
    if (runHere(joined(tracerFor("toc.txt"), {"true"})).status != 0) {
      GTEST_SKIP() << "a process can't be traced here";
    }
  }

  [[nodiscard]] Outcome quorbindFailingToRead(const std::string& name,
                                              const Words& arguments) const {
    return runHere(joined(tracerFor(name), joined({quorbindExecutable()}, arguments)));
  }

 private:
  /// What looks for leaks at the end of a process traces it, too, and only one can.
  [[nodiscard]] Words tracerFor(const std::string& name) const {
    return {"env",
            "ASAN_OPTIONS=detect_leaks=0",
            "strace",
            "-f",
            "-o",
            "/dev/null",
            "-P",
            (disk.path() / name).string(),
            "-e",
            "inject=read,pread64:error=EIO:when=2+"};
  }
};

TEST_F(FailedRead, OfATableToBeAddedIsInputThatCanNotBeRead) {
  const Tree before = disk.contents();
  const Outcome outcome =
      quorbindFailingToRead("toc.txt", addWords({"--name", "Alarms", "--acro", "ALM"}));
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err,
            "critical: toc.txt: Device I/O error\n"
            "quorbind: toc.txt: nothing was added\n");
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(FailedRead, OfATableToBeCheckedIsInputThatCanNotBeRead) {
  const Outcome outcome = quorbindFailingToRead("toc.txt", {"check", "toc.txt"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err,
            "critical: toc.txt: Device I/O error\n"
            "quorbind: toc.txt: not accepted\n");
}

TEST_F(FailedRead, OfAWorkbookToBeCheckedIsInputThatCanNotBeRead) {
  disk.write("toc.xlsx", std::string(100'000, 'x'));
  const Outcome outcome = quorbindFailingToRead("toc.xlsx", {"check", "toc.xlsx"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err,
            "critical: toc.xlsx: Device I/O error\n"
            "quorbind: toc.xlsx: not accepted\n");
}

TEST_F(FailedRead, OfATableToBePreparedIsInputThatCanNotBeRead) {
  const Outcome outcome = quorbindFailingToRead("toc.txt", {"prepare", "toc.txt", "-o", "out.txt"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err, "critical: toc.txt: Device I/O error\n");
  EXPECT_FALSE(disk.has("out.txt"));
}

TEST_F(FailedRead, OfACatalogueIsInputThatCanNotBeRead) {
  const Outcome outcome = quorbindFailingToRead(
      "server/Docs/Plant/Quor_TOC.xml", {"show", "--server", "server", "--library", "Plant"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err, "critical: DISK/server/Docs/Plant/Quor_TOC.xml: Device I/O error\n");
}

TEST_F(FailedRead, OfABookFileIsInputThatCanNotBeRead) {
  EXPECT_EQ(addAlarms().status, 0);
  const Outcome outcome =
      quorbindFailingToRead("server/Docs/Plant/Manual/Book_ALM.xml",
                            {"show", "--server", "server", "--library", "Plant", "ALM"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err,
            "critical: DISK/server/Docs/Plant/Manual/Book_ALM.xml: Device I/O error\n");
}

}  // namespace
}  // namespace quorbind::testing
