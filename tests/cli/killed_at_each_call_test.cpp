// A process that is killed between any two of its system calls: what it was writing is old or new.

#include <signal.h>

#include <algorithm>
#include <ostream>

#include "tests/cli/interrupted_command.h"

namespace quorbind::testing {
namespace {

class KilledAtEachCall : public InterruptedCommand {
 protected:
  /// How often a folder is looked at depends on how long ago it changed, so the last of these calls
  /// may not be made, and the run is not killed. Where there is time for all points, a missed one
  /// is tried so often; otherwise one point, and one more of so many, may be missed.
  static constexpr int kTriesInLongTier = 5;
  static constexpr std::size_t kMostOf = 50;

  /// Whether a run was killed at the call. What it leaves is whole in either case.
  [[nodiscard]] bool killAt(const SystemCall& call, const Tree& after) const {
    restore();
    const Outcome outcome = run(withEventAt(call, "signal=KILL", command()));
    const bool isKilled = outcome.signal == SIGKILL;
    EXPECT_TRUE(isKilled || (outcome.status == 0 && contents() == after));
    expectWholeFiles(after);
    return isKilled;
  }

  [[nodiscard]] bool killInSomeTryAt(const SystemCall& call, const Tree& after) const {
    const int tries = isLongRun() ? kTriesInLongTier : 1;
    for (int i = 0; i < tries; ++i) {
      if (killAt(call, after)) {
        return true;
      }
    }
    return false;
  }

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

/// Whether no call of that name stands behind it.
bool isLastOfItsName(const SystemCall& call, const std::vector<SystemCall>& calls) {
  return std::none_of(calls.begin(), calls.end(), [&](const SystemCall& other) {
    return other.name == call.name && other.occurrence > call.occurrence;
  });
}

TEST_P(KilledAtEachCall, LeavesOldOrNewFilesAndNothingElseButTemporaries) {
  const std::vector<SystemCall> calls = callsOfAWholeRun();
  const Tree after = contents();
  ASSERT_GT(calls.size(), 50U);
  const std::vector<SystemCall> points = pointsToTry(calls);
  std::vector<SystemCall> missed;
  for (const SystemCall& call : points) {
    SCOPED_TRACE(call.text);
    if (!killInSomeTryAt(call, after)) {
      missed.push_back(call);
    }
  }
  if (isLongRun()) {
    for (const SystemCall& call : missed) {
      EXPECT_TRUE(isLastOfItsName(call, calls)) << call.text;
    }
  } else {
    EXPECT_LE(missed.size(), 1 + points.size() / kMostOf);
  }
  RecordProperty("points", static_cast<int>(points.size()));
}

INSTANTIATE_TEST_SUITE_P(Of, KilledAtEachCall, ::testing::ValuesIn(kInterrupted), nameOf);

}  // namespace
}  // namespace quorbind::testing
