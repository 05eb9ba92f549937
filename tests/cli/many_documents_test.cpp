// What an addition asks the disk for grows with its documents, and not with their square.

#include <gmock/gmock.h>

#include <algorithm>

#include "tests/cli/library_test.h"
#include "tests/cli/system_calls.h"

namespace quorbind::testing {
namespace {

class ManyDocuments : public LibraryTest {
 protected:
  void SetUp() override {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "what looks for leaks at the end of a process traces it, and only one can";
#endif
    LibraryTest::SetUp();
  }

  void writeBookOf(int documents) const {
    std::string toc = "\"Node Level\" \"Node Name\" \"File Name\" \"Sub Link\"\n\n";
    for (int i = 0; i < documents; ++i) {
      const std::string name = std::to_string(i) + ".htm";
      disk.write("Many/" + name, "<p>text</p>");
      toc.append(i == 0 ? "\"1\"" : "\"2\"")
          .append(" \"Heading\" \"Many\\")
          .append(name)
          .append("\" \"\"\n");
    }
    disk.write("toc.txt", toc);
  }

  /// How often an addition lists a folder, whichever.
  [[nodiscard]] std::size_t listingsOfAnAdditionOf(int documents) const {
    writeBookOf(documents);
    const TemporaryFolder trace;
    const std::string number = std::to_string(documents);
    const std::vector<SystemCall> calls = callsOf(
        {.words = joined({quorbindExecutable()},
                         plantWords({"add", "toc.txt", "--name", number, "--acro", number})),
         .folder = disk.path().string(),
         .environment = environment},
        (trace.path() / "trace").string(),
        {"-e", "trace=openat"});
    EXPECT_TRUE(disk.has("server/Docs/Plant/Many/" + std::to_string(documents - 1) + ".htm"));
    return static_cast<std::size_t>(
        std::count_if(calls.begin(), calls.end(), [](const SystemCall& call) {
          return contains(call.text, "O_DIRECTORY");
        }));
  }
};

TEST_F(ManyDocuments, TakeNoMoreListingsOfFoldersThanAFew) {
  const std::size_t few = listingsOfAnAdditionOf(50);
  ASSERT_GT(few, 0U);
  EXPECT_LE(listingsOfAnAdditionOf(500), few + 5);
}

}  // namespace
}  // namespace quorbind::testing
