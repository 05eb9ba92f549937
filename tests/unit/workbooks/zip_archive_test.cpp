#include "platform/workbooks/zip_archive.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "platform/workbooks/workbook_refusal.h"
#include "tests/support/packed_file.h"

namespace quorbind::testing {
namespace {

using Packing = PackedFile::Packing;

std::string readAll(ByteReader& reader) {
  std::string bytes;
  std::string buffer(1000, '\0');
  for (std::size_t count = reader.read(buffer.data(), buffer.size()); count > 0;
       count = reader.read(buffer.data(), buffer.size())) {
    bytes.append(buffer, 0, count);
  }
  return bytes;
}

/// What reading the part `name` of a file gives, or why it is refused.
std::string outcomeOf(const std::string& file,
                      std::string_view name = "a.xml",
                      const ZipLimits& limits = {}) {
  try {
    ZipArchive archive(file, limits);
    return readAll(*archive.open(name));
  } catch (const WorkbookRefusal& refusal) {
    return std::string("refused: ") + refusal.what();
  }
}

std::string manyLines(std::size_t size) {
  std::string text;
  for (std::size_t i = 0; text.size() < size; ++i) {
    text += "line " + std::to_string(i * i) + "\n";
  }
  text.resize(size);
  return text;
}

TEST(ZipArchive, GivesStoredAndDeflatedPartsBack) {
  PackedFile file;
  file.add("a.xml", "stored", Packing::kStored);
  file.add("b/c.xml", manyLines(300'000));
  file.add("empty", "");

  EXPECT_EQ(outcomeOf(file.bytes()), "stored");
  EXPECT_EQ(outcomeOf(file.bytes(), "b/c.xml"), manyLines(300'000));
  EXPECT_EQ(outcomeOf(file.bytes(), "empty"), "");
}

TEST(ZipArchive, PartsAreFoundInAnyLetterCase) {
  PackedFile file;
  file.add("xl/Workbook.XML", "here");
  const std::string bytes = file.bytes();
  const ZipArchive archive(bytes);

  EXPECT_TRUE(archive.has("XL/workbook.xml"));
  EXPECT_FALSE(archive.has("workbook.xml"));
  EXPECT_EQ(outcomeOf(bytes, "XL/workbook.xml"), "here");
}

TEST(ZipArchive, ACommentMayStandAtTheEnd) {
  PackedFile file;
  file.add("a.xml", "here");

  EXPECT_EQ(outcomeOf(file.bytes("made by hand")), "here");
}

TEST(ZipArchive, APartMayBeReadAgainFromItsBeginning) {
  PackedFile file;
  file.add("a.xml", manyLines(5000));
  const std::string bytes = file.bytes();
  ZipArchive archive(bytes);
  const auto reader = archive.open("a.xml");
  char first = 0;
  ASSERT_EQ(reader->read(&first, 1), 1U);

  reader->rewind();

  EXPECT_EQ(readAll(*reader), manyLines(5000));
}

TEST(ZipArchive, AMissingPartIsRefused) {
  PackedFile file;
  file.add("a.xml", "here");

  EXPECT_EQ(outcomeOf(file.bytes(), "b.xml"), "refused: b.xml is missing.");
}

TEST(ZipArchive, AFileThatIsCutOffAnywhereIsRefused) {
  PackedFile file;
  file.add("a.xml", "some text", Packing::kStored);
  file.add("b.xml", "more text");
  const std::string bytes = file.bytes();

  for (std::size_t size = 0; size < bytes.size(); ++size) {
    EXPECT_THAT(outcomeOf(bytes.substr(0, size)), ::testing::StartsWith("refused: ")) << size;
  }
}

TEST(ZipArchive, APartWhoseBytesAreDamagedIsRefused) {
  PackedFile stored;
  stored.add("a.xml", "some text", Packing::kStored);
  std::string bytes = stored.bytes();
  bytes[bytes.find("some text")] = 'S';
  EXPECT_EQ(outcomeOf(bytes), "refused: a.xml is damaged.");

  PackedFile deflated;
  deflated.add("a.xml", manyLines(5000));
  bytes = deflated.bytes();
  bytes[100] = static_cast<char>(bytes[100] ^ 0x55);
  EXPECT_EQ(outcomeOf(bytes), "refused: a.xml is damaged.");
}

TEST(ZipArchive, AListThatLiesAboutAPartIsRefused) {
  const auto outcomeWith = [](const auto& lie) {
    PackedFile file;
    lie(file.add("a.xml", manyLines(5000)));
    return outcomeOf(file.bytes());
  };
  EXPECT_EQ(outcomeWith([](auto& part) { part.size -= 1; }), "refused: a.xml is damaged.");
  EXPECT_EQ(outcomeWith([](auto& part) { part.checksum ^= 1; }), "refused: a.xml is damaged.");
  EXPECT_EQ(outcomeWith([](auto& part) { part.packedSize -= 9; }), "refused: a.xml is damaged.");
  EXPECT_EQ(outcomeWith([](auto& part) { part.position += 1; }), "refused: a.xml is damaged.");
  EXPECT_EQ(outcomeWith([](auto& part) { part.packedSize = 0xFFFFFFFF; }),
            "refused: The file is damaged or cut off.");
  EXPECT_EQ(outcomeWith([](auto& part) { part.position = 0xFFFFFFFF; }),
            "refused: The file is damaged or cut off.");
  EXPECT_EQ(outcomeWith([](auto& part) { part.method = 12; }),
            "refused: a.xml is packed in an unknown way.");
  EXPECT_EQ(outcomeWith([](auto& part) { part.flags = 1; }), "refused: a.xml is encrypted.");
}

TEST(ZipArchive, APartThatIsListedTwiceIsRefused) {
  PackedFile file;
  const PackedFile::Entry entry = file.add("a.xml", "here");
  file.addEntry(entry);

  EXPECT_EQ(outcomeOf(file.bytes()),
            "refused: The list of the file's parts names one of them twice.");
}

TEST(ZipArchive, MorePartsThanTheLimitAreRefused) {
  PackedFile file;
  file.add("a.xml", "here");
  for (int i = 1; i < 1000; ++i) {
    file.add("part" + std::to_string(i), "");
  }
  EXPECT_EQ(outcomeOf(file.bytes()), "here");

  file.add("one too many", "");
  EXPECT_EQ(outcomeOf(file.bytes()), "refused: The file has more parts than a workbook may have.");
}

TEST(ZipArchive, APartAboveTheLimitOfSizeIsRefused) {
  PackedFile file;
  file.add("a.xml", manyLines(2000));
  const ZipLimits limits{.partSize = 1999};

  EXPECT_EQ(outcomeOf(file.bytes(), "a.xml", limits),
            "refused: a.xml is larger than a part of a workbook may be.");
  EXPECT_EQ(outcomeOf(file.bytes(), "a.xml", {.partSize = 2000}), manyLines(2000));
}

TEST(ZipArchive, PartsThatAreTooLargeTogetherAreRefused) {
  PackedFile file;
  file.add("a.xml", manyLines(2000));
  file.add("b.xml", manyLines(2000));
  const std::string bytes = file.bytes();
  ZipArchive archive(bytes, {.totalSize = 3999});
  readAll(*archive.open("a.xml"));

  EXPECT_THROW(readAll(*archive.open("b.xml")), WorkbookRefusal);
}

TEST(ZipArchive, APartThatIsPackedTooTightlyIsRefusedOnceItIsLarge) {
  PackedFile file;
  file.add("a.xml", std::string(100 << 10, 'x'));
  file.add("b.xml", std::string((100 << 10) + 1, 'x'));
  const std::string bytes = file.bytes();

  EXPECT_EQ(outcomeOf(bytes, "a.xml"), std::string(100 << 10, 'x'));
  EXPECT_EQ(outcomeOf(bytes, "b.xml"),
            "refused: b.xml is packed more tightly than a part of a workbook may be.");
}

TEST(ZipArchive, UsesTheLimitsOfAWorkbook) {
  const ZipLimits limits;
  EXPECT_EQ(limits.parts, 1000U);
  EXPECT_EQ(limits.partSize, 64U * 1024 * 1024);
  EXPECT_EQ(limits.totalSize, 256U * 1024 * 1024);
  EXPECT_EQ(limits.ratio, 100U);
  EXPECT_EQ(limits.ratioAfter, 100U * 1024);
}

}  // namespace
}  // namespace quorbind::testing
