// Each system call that changes something on a disk, failing as such a call can fail, once.

#include "tests/cli/interrupted_command.h"

namespace quorbind::testing {
namespace {

struct FailingSystemCall {
  const char* name;
  std::vector<const char*> errors;
};

const std::vector<FailingSystemCall> kFailing{
    {"openat", {"EACCES", "ENOSPC"}},
    {"mkdir", {"EACCES", "ENOSPC"}},
    {"write", {"ENOSPC", "EIO"}},
    {"copy_file_range", {"ENOSPC"}},
    {"fsync", {"EIO", "ENOSPC"}},
    {"syncfs", {"EIO"}},
    {"close", {"EIO"}},
    {"rename", {"EACCES", "EIO"}},
    {"renameat2", {"EACCES"}},
};

class FailedCall : public InterruptedCommand {
 protected:
  struct Point {
    SystemCall call;
    std::string event;
  };

  [[nodiscard]] static std::vector<Point> pointsIn(const std::vector<SystemCall>& calls) {
    std::vector<Point> points;
    for (const SystemCall& call : calls) {
      for (const FailingSystemCall& failing : kFailing) {
        if (call.name == failing.name && !isForReading(call)) {
          for (const char* error : failing.errors) {
            points.push_back({call, std::string("error=") + error});
          }
        }
      }
    }
    return points;
  }

 private:
  static bool isForReading(const SystemCall& call) {
    return call.name == "openat" && call.text.find("O_CREAT") == std::string::npos;
  }
};

TEST_P(FailedCall, LeavesOldOrNewFilesNoLitterAndNoSuccessThatIsNone) {
  const std::vector<Point> points = pointsIn(callsOfAWholeRun());
  const Tree after = contents();
  ASSERT_GT(points.size(), 20U);
  for (const Point& point : pointsToTry(points)) {
    SCOPED_TRACE(point.call.text + ": " + point.event);
    restore();
    const Outcome outcome = run(withEventAt(point.call, point.event, command()));
    const Tree now = contents();
    for (const auto& [name, content] : now) {
      EXPECT_TRUE(isOldOrNew(name, content, after)) << name << "\n" << content;
    }
    if (outcome.status == 0) {
      EXPECT_EQ(now, after) << outcome.err;
    } else {
      EXPECT_NE(outcome.err, "");
    }
  }
  RecordProperty("points", static_cast<int>(pointsToTry(points).size()));
}

INSTANTIATE_TEST_SUITE_P(Of, FailedCall, ::testing::ValuesIn(kInterrupted), nameOf);

}  // namespace
}  // namespace quorbind::testing
