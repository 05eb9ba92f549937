// A trace of the cases in tests/bad_input/external_content_test.cpp: while they read their
// documents, the process opens the files that it is told of, and nothing else.

#include <gmock/gmock.h>

#include <filesystem>
#include <sstream>

#include "tests/cli/command_test.h"

namespace quorbind::testing {
namespace {

using ::testing::IsEmpty;

/// The name between the first quotation marks of a line of a trace.
std::string nameIn(const std::string& line) {
  const std::size_t begin = line.find('"') + 1;
  return line.substr(begin, line.find('"', begin) - begin);
}

class ExternalContentTrace : public CommandTest {
 protected:
  /// The lines of the trace behind the sign that the documents begin.
  [[nodiscard]] Words traceOf(const std::string& testCase) const {
    // What looks for leaks at the end of a process traces it, too, and only one can.
    const Outcome outcome = runHere({"env",
                                     "ASAN_OPTIONS=detect_leaks=0",
                                     "strace",
                                     "-f",
                                     "--seccomp-bpf",
                                     "-o",
                                     "trace.txt",
                                     "-e",
                                     "trace=%network,open,openat,openat2,creat,newfstatat,statx",
                                     QUORBIND_BAD_INPUT_TESTS,
                                     "--gtest_filter=ExternalContent." + testCase});
    EXPECT_EQ(outcome.status, 0) << outcome.out << outcome.err;
    std::istringstream trace(disk.read("trace.txt"));
    Words lines;
    bool hasBegun = false;
    for (std::string line; std::getline(trace, line);) {
      if (hasBegun) {
        lines.push_back(line);
      }
      hasBegun = hasBegun || contains(line, "here the documents begin");
    }
    EXPECT_TRUE(hasBegun);
    return lines;
  }

  /// Whether a call opens a file of the test's own: one of its folders, or a file below them. What
  /// nobody may read there is written by the test.
  static bool opensOwnFile(const std::string& line) {
    const std::string name = nameIn(line);
    const bool isInListedFolder = contains(line, "O_DIRECTORY") && !name.starts_with("/");
    const bool isRead = contains(line, "O_RDONLY");
    return isInListedFolder ||
           (name.starts_with(temporaryFolder()) && !(isRead && contains(name, "secret")));
  }

  static std::string temporaryFolder() { return std::filesystem::temp_directory_path().string(); }
};

TEST_F(ExternalContentTrace, ShowsNoOtherFileAndNoConnection) {
  Words strange;
  std::size_t opened = 0;
  for (const std::string& line : traceOf("*")) {
    const bool isQuestion = contains(line, " newfstatat(") || contains(line, " statx(");
    const bool isOpening = contains(line, " open") || contains(line, " creat(");
    if (isOpening && opensOwnFile(line)) {
      ++opened;
    } else if (!isQuestion && contains(line, "(")) {
      strange.push_back(line);
    }
  }
  EXPECT_THAT(strange, IsEmpty());
  EXPECT_GT(opened, 1000U);
}

}  // namespace
}  // namespace quorbind::testing
