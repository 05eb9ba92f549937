#include <signal.h>

#include <chrono>
#include <thread>

#include "platform/portable/portable_file_system.h"
#include "platform/portable/xml_library.h"
#include "tests/cli/command_test.h"

namespace quorbind::testing {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::microseconds;

/// Runs that are ended from outside at some moment of their work.
class Killing : public CommandTest {
 protected:
  void SetUp() override {
    initLibrary();
    writeLargeBook();
  }

  void writeLargeBook() const {
    std::string entries = "\"1\" \"Book\" \"Manual\\cover.htm\" \"\"\n";
    for (int i = 0; i < 2000; ++i) {
      const std::string page = "page" + std::to_string(i % 4) + ".htm";
      entries += "\"2\" \"Heading " + std::to_string(i) + "\" \"Manual\\" + page + "\" \"\"\n";
      disk.write("Manual/" + page, "<p>text</p>");
    }
    writeToc(entries);
  }

  [[nodiscard]] Command addCommand(const std::string& acronym) const {
    return {.words = joined({quorbindExecutable()},
                            addWords({"--name", "Book " + acronym, "--acro", acronym})),
            .folder = disk.path().string(),
            .environment = environment};
  }

  [[nodiscard]] microseconds timeOfAWholeRun() const {
    const auto begin = Clock::now();
    EXPECT_EQ(run(addCommand("whole")).status, 0);
    return std::chrono::duration_cast<microseconds>(Clock::now() - begin);
  }

  /// Starts an addition and ends it after `delay`.
  Outcome endAfter(microseconds delay, int signal, const std::string& acronym) const {
    const pid_t process = start(addCommand(acronym));
    std::this_thread::sleep_for(delay);
    kill(process, signal);
    return waitFor(process);
  }

  [[nodiscard]] std::vector<std::string> preparedCopies() const {
    std::vector<std::string> copies;
    for (const auto& [name, content] : disk.contents()) {
      if (name.rfind("quorbind-", 0) == 0) {
        copies.push_back(name);
      }
    }
    return copies;
  }

  /// Of the files that stood there before only the catalogue may have changed, and whatever is new
  /// in the place of an XML file is one.
  void expectWholeFilesSince(const Tree& before) const {
    for (const auto& [name, content] : serverTree()) {
      const auto old = before.find(name);
      if (old != before.end() && old->second == content) {
        continue;
      }
      EXPECT_TRUE(old == before.end() || name == "Docs/Plant/Quor_TOC.xml") << name;
      if (name.ends_with(".xml")) {
        EXPECT_TRUE(parses((disk.path() / "server" / name).string())) << name;
      }
    }
  }

  [[nodiscard]] static bool parses(const std::string& path) {
    PortableFileSystem files;
    return PortableXmlLibrary(files).createDocument()->load(path).loaded;
  }
};

TEST_F(Killing, AtAnyMomentLeavesOldOrNewFilesAndNeverHalfOnes) {
  constexpr int kMoments = 40;
  const microseconds whole = timeOfAWholeRun();
  int cutShort = 0;
  for (int moment = 0; moment < kMoments; ++moment) {
    const std::string acronym = "K" + std::to_string(moment);
    const Tree before = serverTree();
    cutShort += endAfter(whole * moment / kMoments, SIGKILL, acronym).signal == SIGKILL ? 1 : 0;
    expectWholeFilesSince(before);
  }
  EXPECT_GT(cutShort, 0) << "every run was over before it was killed";
  EXPECT_EQ(run(addCommand("after")).status, 0);
}

TEST_F(Killing, ASignalThatCanBeHandledTakesThePreparedCopyAlong) {
  const microseconds whole = timeOfAWholeRun();
  for (const int signal : {SIGHUP, SIGINT, SIGTERM}) {
    for (int moment = 1; moment <= 5; ++moment) {
      endAfter(
          whole * moment / 10, signal, "S" + std::to_string(signal) + "x" + std::to_string(moment));
      EXPECT_EQ(preparedCopies(), Words()) << signal << " at " << moment;
    }
  }
}

}  // namespace
}  // namespace quorbind::testing
