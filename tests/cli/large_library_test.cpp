#include <cstddef>

#include "tests/cli/library_test.h"

namespace quorbind::testing {
namespace {

constexpr std::size_t kBooks = 100'000;

std::string numbered(const std::string& text, std::size_t number) {
  return text + std::to_string(number);
}

/// A library that nobody should have, and that the command has to bear nevertheless.
class LargeLibrary : public LibraryTest {
 protected:
  void SetUp() override {
    initLibrary();
    writeBook();
    disk.write(kCatalogue, catalogueWith(entries_));
  }

  static std::string entries() {
    std::string text;
    for (std::size_t book = 0; book < kBooks; ++book) {
      text += bookEntry(numbered("Manual ", book), numbered("B", book));
    }
    return text;
  }

  const std::string entries_ = entries();
};

TEST_F(LargeLibrary, IsListed) {
  std::string names;
  for (std::size_t book = 0; book < kBooks; ++book) {
    names += numbered("Manual ", book) + "\n";
  }
  const Outcome outcome = inPlant({"books"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_TRUE(outcome.out == names);
}

TEST_F(LargeLibrary, IsShown) {
  const Outcome outcome = inPlant({"show"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_TRUE(
      outcome.out.starts_with("ACRONYM  NAME          FOLDER\n"
                              "B0       Manual 0      Manual\n"));
  EXPECT_TRUE(outcome.out.ends_with("B99999   Manual 99999  Manual\n"));
}

TEST_F(LargeLibrary, ShowsWhatARenamingWouldChange) {
  disk.write("server/Docs/Plant/Manual/Book_B99999.xml", bookFileOf("Manual 99999", "B99999"));
  const Outcome outcome =
      inPlant({"rename", "Manual 99999", "--name", "Alarms", "--acro", "ALM", "--dry-run"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out,
            "Would rename Manual 99999 (B99999) to Alarms (ALM) in Plant.\n"
            "would move DISK/server/Docs/Plant/Manual/Book_B99999.xml to "
            "DISK/server/Docs/Plant/Manual/Book_ALM.xml\n"
            "would write DISK/server/Docs/Plant/Manual/Book_ALM.xml\n"
            "would write DISK/server/Docs/Plant/Quor_TOC.xml\n");
}

TEST_F(LargeLibrary, TakesAnotherBook) {
  const Outcome outcome = addAlarms();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out, "Added Alarms (ALM) to Plant, folder Manual: 3 files.\n");
  const std::string added = replaceAll(bookEntry("Alarms", "ALM"), ">Prod<", ">Plant<");
  EXPECT_TRUE(text(kCatalogue) == catalogueWith(entries_ + added));
}

}  // namespace
}  // namespace quorbind::testing
