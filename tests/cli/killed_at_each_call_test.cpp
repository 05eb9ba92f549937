// A process that is killed between any two of its system calls: what it was writing is old or new.

#include <signal.h>

#include <ostream>

#include "tests/cli/interrupted_command.h"

namespace quorbind::testing {
namespace {

class KilledAtEachCall : public InterruptedCommand {
 protected:
  /// One point, and one more of so many, may be missed.
  static constexpr std::size_t kMostOf = 50;

  void expectWholeFiles(const Tree& after) const {
    for (const auto& [name, content] : contents()) {
      if (isTemporary(name)) {
        continue;
      }
      EXPECT_TRUE(isOldOrNew(name, content, after)) << name << "\n" << content;
      if (name.ends_with(".xml")) {
        EXPECT_TRUE(parses(name)) << name;
      }
    }
    for (const auto& [name, content] : before()) {
      EXPECT_TRUE(disk.has(name) || !after.contains(name)) << name;
    }
  }
};

TEST_P(KilledAtEachCall, LeavesOldOrNewFilesAndNothingElseButTemporaries) {
  const std::vector<SystemCall> calls = callsOfAWholeRun();
  const Tree after = contents();
  ASSERT_GT(calls.size(), 50U);
  const std::vector<SystemCall> points = pointsToTry(calls);
  std::size_t killed = 0;
  for (const SystemCall& call : points) {
    SCOPED_TRACE(call.text);
    restore();
    const Outcome outcome = run(withEventAt(call, "signal=KILL", command()));
    killed += outcome.signal == SIGKILL ? 1 : 0;
    // How often a folder is looked at depends on how long ago it changed: the last of these calls
    // may not be made.
    EXPECT_TRUE(outcome.signal == SIGKILL || (outcome.status == 0 && contents() == after));
    expectWholeFiles(after);
  }
  EXPECT_LE(points.size() - killed, 1 + points.size() / kMostOf);
  RecordProperty("points", static_cast<int>(points.size()));
}

INSTANTIATE_TEST_SUITE_P(Of, KilledAtEachCall, ::testing::ValuesIn(kInterrupted), nameOf);

}  // namespace
}  // namespace quorbind::testing
