// Each system call that changes something on a disk, failing as such a call can fail, once.

#include "tests/cli/interrupted_command.h"

namespace quorbind::testing {
namespace {

const std::vector<FailingSystemCall> kFailing{
    {"openat", {"EACCES", "ENOSPC"}},
    {"mkdir", {"EACCES", "ENOSPC"}},
    {"write", {"ENOSPC", "EIO"}},
    {"copy_file_range", {"ENOSPC"}},
    {"linkat", {"EACCES", "ENOSPC", "EEXIST", "ENOENT"}},
    {"fsync", {"EIO", "ENOSPC"}},
    {"syncfs", {"EIO"}},
    {"close", {"EIO"}},
    {"rename", {"EACCES", "EIO"}},
    {"renameat2", {"EACCES"}},
};

bool isForWriting(const SystemCall& call) {
  const auto has = [&](std::string_view flag) { return call.text.find(flag) != std::string::npos; };
  return call.name != "openat" || has("O_CREAT") || has("O_TMPFILE");
}

using FailedCall = InterruptedCommand;

TEST_P(FailedCall, LeavesOldOrNewFilesNoLitterAndNoSuccessThatIsNone) {
  const auto points = failurePointsIn(callsOfAWholeRun(), kFailing, isForWriting);
  const Tree after = contents();
  ASSERT_GT(points.size(), 20U);
  for (const FailurePoint& point : pointsToTry(points)) {
    SCOPED_TRACE(point.call.text + ": " + point.event);
    const Outcome outcome = runWith(point);
    const Tree now = contents();
    for (const auto& [name, content] : now) {
      EXPECT_TRUE(isOldOrNew(name, content, after)) << name << "\n" << content;
    }
    expectNoFalseSuccess(outcome, now, after);
  }
  RecordProperty("points", static_cast<int>(pointsToTry(points).size()));
}

INSTANTIATE_TEST_SUITE_P(Of, FailedCall, ::testing::ValuesIn(kInterrupted), nameOf);

/// A side file that is missing is made in several steps.
class FailedCallOfMaking : public InterruptedCommand {
 protected:
  void writeInput() const override {
    disk.remove(kKeywords);
    disk.remove(kLinks);
  }
};

TEST_P(FailedCallOfMaking, LeavesNothingThatKeepsTheNextRunFromItsEnd) {
  const auto points = failurePointsIn(callsOfAWholeRun(), kFailing, isForWriting);
  const Tree after = contents();
  ASSERT_GT(points.size(), 10U);
  for (const FailurePoint& point : pointsToTry(points)) {
    SCOPED_TRACE(point.call.text + ": " + point.event);
    const Outcome outcome = runWith(point);
    expectNoFalseSuccess(outcome, contents(), after);
    if (contents() != after) {
      EXPECT_EQ(run(command()).status, 0);
      EXPECT_EQ(contents(), after);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    Of,
    FailedCallOfMaking,
    ::testing::Values(Subcommand{"keywords", {"keywords", "add", "Alarms", "horn"}},
                      Subcommand{
                          "links",
                          {"links", "add", "X3", "--full", "F", "--source", "s", "--acro", "ALM"}}),
    nameOf);

}  // namespace
}  // namespace quorbind::testing
