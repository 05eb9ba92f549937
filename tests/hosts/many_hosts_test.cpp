#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "tests/hosts/shelf.h"
#include "tests/support/long_tier.h"
#include "tests/support/other_program.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Key;

constexpr int kWriters = 4;
constexpr int kReaders = 4;

/// How many saves a writer makes.
int savesOfEach() {
  return inThisTier(QUORBIND_SAVES, QUORBIND_SAVES_IN_LONG_TIER) / kWriters;
}

class ManyHosts : public ::testing::Test {
 protected:
  ManyHosts() { disk_.write("Quor_TOC.xml", shelfAfter({0, 0})); }

  void startWriter(int writer) {
    writers_.emplace_back(
        "library_host",
        std::vector<std::string>{
            "write", folder(), std::to_string(writer), std::to_string(savesOfEach())});
  }
  void startReader() {
    readers_.emplace_back("library_host", std::vector<std::string>{"read", folder()});
  }

  void expectThatAllEndWell() {
    for (OtherProgram& writer : writers_) {
      EXPECT_EQ(writer.wait(), 0);
    }
    disk_.write("enough", "");
    for (OtherProgram& reader : readers_) {
      EXPECT_EQ(reader.wait(), 0);
    }
    disk_.remove("enough");
  }

  /// What the file may hold in the end: whoever was last has made all its saves by then.
  [[nodiscard]] static std::vector<std::string> lastSaves() {
    std::vector<std::string> texts;
    for (int writer = 1; writer <= kWriters; ++writer) {
      texts.push_back(shelfAfter({writer, savesOfEach()}));
    }
    return texts;
  }

  const TemporaryFolder disk_;

 private:
  [[nodiscard]] std::string folder() const { return disk_.path().string(); }

  std::vector<OtherProgram> writers_;
  std::vector<OtherProgram> readers_;
};

TEST_F(ManyHosts, ReadWholeFilesAloneAndTheLastWholeWriterWins) {
  for (int reader = 0; reader < kReaders; ++reader) {
    startReader();
  }
  for (int writer = 1; writer <= kWriters; ++writer) {
    startWriter(writer);
  }
  expectThatAllEndWell();
  EXPECT_THAT(disk_.contents(), ElementsAre(Key("Quor_TOC.xml")));
  EXPECT_THAT(lastSaves(), Contains(disk_.read("Quor_TOC.xml")));
}

}  // namespace
}  // namespace quorbind::testing
