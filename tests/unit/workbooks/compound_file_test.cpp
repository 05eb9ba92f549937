#include "platform/workbooks/compound_file.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/workbooks/workbook_refusal.h"
#include "tests/support/binary_workbook.h"
#include "tests/support/little_endian.h"

namespace quorbind::testing {
namespace {

TEST(CompoundFile, GivesShortAndLongStreamsBack) {
  const std::string longOne(100'000, 'l');
  const std::string bytes = compoundFile({{"Short", "some bytes"},
                                          {"Long", longOne},
                                          {"Empty", ""},
                                          {"Limit", std::string(4096, 'x')}});
  const CompoundFile file(bytes);

  EXPECT_EQ(file.stream("Short"), "some bytes");
  EXPECT_EQ(file.stream("Long"), longOne);
  EXPECT_EQ(file.stream("Empty"), "");
  EXPECT_EQ(file.stream("Limit"), std::string(4096, 'x'));
}

TEST(CompoundFile, StreamsAreFoundInAnyLetterCase) {
  const std::string bytes = compoundFile({{"Workbook", "here"}});
  const CompoundFile file(bytes);

  EXPECT_TRUE(file.has("WORKBOOK"));
  EXPECT_FALSE(file.has("Book"));
  EXPECT_FALSE(file.has("Root Entry"));
  EXPECT_THROW(static_cast<void>(file.stream("Book")), WorkbookRefusal);
}

TEST(CompoundFile, ATableBeyondTheHeaderIsFollowed) {
  // The header lists 109 sectors of the table, which are enough for 7 MB.
  std::string bytes = compoundFile({{"Large", std::string(8'000'000, 'x')}});
  // That many sectors are listed further on, in one that is put at the end.
  constexpr std::size_t kTableCountAt = 44;
  constexpr std::size_t kFurtherAt = 68;
  constexpr std::size_t kInHeader = 109;
  const std::size_t sectors = bytes.size() / 512 - 1;
  const std::size_t tableCount = (sectors + 127) / 128;
  ASSERT_GT(tableCount, kInHeader);
  const std::size_t firstTable = sectors - tableCount;
  std::string further;
  for (std::size_t i = kInHeader; i < tableCount; ++i) {
    further += littleEndian<4>(firstTable + i);
  }
  further.resize(508, '\xFF');
  further += littleEndian<4>(0xFFFFFFFE);
  ASSERT_EQ(bytes.substr(kTableCountAt, 4), littleEndian<4>(tableCount));
  bytes.replace(kFurtherAt, 4, littleEndian<4>(sectors));
  bytes += further;

  EXPECT_EQ(CompoundFile(bytes).stream("Large"), std::string(8'000'000, 'x'));
}

TEST(CompoundFile, AChainThatRunsInACircleIsRefused) {
  std::string bytes = compoundFile({{"Long", std::string(20'000, 'l')}});
  const std::size_t table = bytes.rfind(littleEndian<4>(1) + littleEndian<4>(2));
  ASSERT_NE(table, std::string::npos);
  bytes.replace(table + 4, 4, littleEndian<4>(0));
  const CompoundFile file(bytes);

  EXPECT_EQ(file.stream("Long").size(), 20'000U);
  bytes.replace(48, 4, littleEndian<4>(0));
  EXPECT_THROW(CompoundFile{bytes}, WorkbookRefusal);
}

TEST(CompoundFile, ASectorOfASizeThatNoneHasIsRefused) {
  std::string bytes = compoundFile({{"One", "1"}});
  bytes.replace(30, 2, littleEndian<2>(10));
  EXPECT_THROW(CompoundFile{bytes}, WorkbookRefusal);
}

TEST(CompoundFile, ADirectoryWithoutEntriesIsRefused) {
  std::string bytes = compoundFile({{"One", "1"}});
  bytes.replace(48, 4, littleEndian<4>(0xFFFFFFFE));
  EXPECT_THROW(CompoundFile{bytes}, WorkbookRefusal);
}

TEST(CompoundFile, AStreamThatIsShorterThanItSaysIsRefused) {
  std::string bytes = compoundFile({{"Long", std::string(5000, 'l')}});
  const std::size_t size = bytes.find(littleEndian<4>(5000) + littleEndian<4>(0));
  ASSERT_NE(size, std::string::npos);
  bytes.replace(size, 4, littleEndian<4>(6'000'000));
  EXPECT_THROW(static_cast<void>(CompoundFile(bytes).stream("Long")), WorkbookRefusal);
}

TEST(CompoundFile, ADirectoryThatRunsInACircleIsRefused) {
  std::string bytes = compoundFile({{"One", "1"}, {"Two", "2"}});
  std::string name;
  for (const char letter : std::string("Two")) {
    name += letter;
    name += '\0';
  }
  const std::size_t entry = bytes.find(name);
  ASSERT_NE(entry, std::string::npos);
  bytes.replace(entry + 72, 4, littleEndian<4>(1));

  EXPECT_THROW(CompoundFile{bytes}, WorkbookRefusal);
}

TEST(CompoundFile, AFileThatIsCutOffAnywhereIsRefused) {
  const std::string bytes = compoundFile({{"Long", std::string(5000, 'l')}});
  for (std::size_t size = 0; size < bytes.size(); size += 100) {
    const std::string cut = bytes.substr(0, size);
    EXPECT_THROW(static_cast<void>(CompoundFile(cut).stream("Long")), WorkbookRefusal) << size;
  }
}

}  // namespace
}  // namespace quorbind::testing
