// What an addition asks the disk for grows with its documents, and not with their square; and what
// is not there is not asked for one by one.

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
    writeTableOf(documents);
    for (int i = 0; i < documents; ++i) {
      disk.write("Many/" + std::to_string(i) + ".htm", "<p>text</p>");
    }
  }

  void writeTableOf(int documents) const {
    std::string toc = "\"Node Level\" \"Node Name\" \"File Name\" \"Sub Link\"\n\n";
    for (int i = 0; i < documents; ++i) {
      const std::string name = std::to_string(i) + ".htm";
      toc.append(i == 0 ? "\"1\"" : "\"2\"")
          .append(" \"Heading\" \"Many\\")
          .append(name)
          .append("\" \"\"\n");
    }
    disk.write("toc.txt", toc);
  }

  [[nodiscard]] std::vector<SystemCall> callsOfAnAdditionOf(int documents,
                                                            const std::string& filter) const {
    const std::string number = std::to_string(documents);
    return callsOfCommand(plantWords({"add", "toc.txt", "--name", number, "--acro", number}),
                          filter);
  }

  [[nodiscard]] std::vector<SystemCall> callsOfCommand(const Words& words,
                                                       const std::string& filter) const {
    const TemporaryFolder trace;
    return callsOf({.words = joined({quorbindExecutable()}, words),
                    .folder = disk.path().string(),
                    .environment = environment},
                   (trace.path() / "trace").string(),
                   {"-e", filter});
  }

  /// How often an addition lists a folder, whichever.
  [[nodiscard]] std::size_t listingsOfAnAdditionOf(int documents) const {
    writeBookOf(documents);
    const std::vector<SystemCall> calls = callsOfAnAdditionOf(documents, "trace=openat");
    EXPECT_TRUE(disk.has("server/Docs/Plant/Many/" + std::to_string(documents - 1) + ".htm"));
    return listingsAmong(calls);
  }

  /// The same of a book file with pages that stand beside it and link on, and as many that don't.
  [[nodiscard]] std::size_t listingsOfABookFileOf(int documents) const {
    const std::string number = std::to_string(documents);
    const std::string folder = "in " + number + "/";
    std::string headings;
    for (int i = 0; i < documents; ++i) {
      const std::string page = std::to_string(i) + ".htm";
      disk.write(folder + page, "<a href='" + std::to_string(i + 1) + ".htm'>on</a>");
      headings += "<Heading level=\"H1\"><HName>a</HName><HFile>" + page + "</HFile></Heading>" +
                  "<Heading level=\"H1\"><HName>b</HName><HFile>no " + page + "</HFile></Heading>";
    }
    disk.write(folder + "b.xml",
               "<Book_Master><Book><Book_Name>" + number + "</Book_Name><Book_Acro>" + number +
                   "</Book_Acro><Book_Key id=\"\">Plant</Book_Key><Book_Path>Plant\\" + number +
                   "</Book_Path></Book><Book_Headings>" + headings +
                   "</Book_Headings></Book_Master>");
    const std::vector<SystemCall> calls =
        callsOfCommand(plantWords({"add", folder + "b.xml", "--no-input"}), "trace=openat");
    EXPECT_TRUE(
        disk.has("server/Docs/Plant/" + number + "/" + std::to_string(documents - 1) + ".htm"));
    return listingsAmong(calls);
  }

  static std::size_t listingsAmong(const std::vector<SystemCall>& calls) {
    return static_cast<std::size_t>(
        std::count_if(calls.begin(), calls.end(), [](const SystemCall& call) {
          return contains(call.text, "O_DIRECTORY");
        }));
  }
};

/// A folder that changed a moment ago is listed again, and a slow run has more such moments.
constexpr std::size_t kMoreInASlowRun = 50;

TEST_F(ManyDocuments, TakeNoMoreListingsOfFoldersThanAFew) {
  const std::size_t few = listingsOfAnAdditionOf(50);
  ASSERT_GT(few, 0U);
  EXPECT_LE(listingsOfAnAdditionOf(500), few + kMoreInASlowRun);
}

TEST_F(ManyDocuments, OfABookFileTakeNoMoreListingsOfFoldersThanAFew) {
  const std::size_t few = listingsOfABookFileOf(50);
  ASSERT_GT(few, 0U);
  EXPECT_LE(listingsOfABookFileOf(500), few + kMoreInASlowRun);
}

constexpr const char* kNames = "trace=openat,newfstatat,stat,lstat,faccessat,access";

TEST_F(ManyDocuments, ThatAreNotThereAreNotAskedForOneByOneInACheck) {
  writeTableOf(100);
  const std::size_t few = callsOfCommand({"check", "toc.txt"}, kNames).size();
  ASSERT_GT(few, 0U);
  writeTableOf(1'000);
  EXPECT_LE(callsOfCommand({"check", "toc.txt"}, kNames).size(), few + 5);
}

TEST_F(ManyDocuments, ThatAreNotThereAreNotAskedForOneByOneInAnAddition) {
  writeTableOf(100);
  const std::size_t few = callsOfAnAdditionOf(100, kNames).size();
  ASSERT_GT(few, 0U);
  writeTableOf(1'000);
  EXPECT_LE(callsOfAnAdditionOf(1'000, kNames).size(), few + 20);
}

}  // namespace
}  // namespace quorbind::testing
