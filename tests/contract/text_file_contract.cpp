#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/text_file.h"
#include "tests/contract/adapters.h"
#include "tests/support/raised_error.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {

namespace {

using namespace std::string_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// More than a reader or a writer can hold at once, unless it holds whole files.
constexpr std::size_t kManyBytes = 200'000;

class TextFileContract : public ::testing::Test {
 protected:
  TextReader read(std::string_view bytes) {
    disk_.write("a.txt", bytes);
    return {adapters_->files(), adapters_->locale(), "C:\\a.txt"};
  }

  std::vector<std::string> linesOf(std::string_view bytes) {
    TextReader reader = read(bytes);
    std::vector<std::string> lines;
    while (!reader.atEnd()) {
      lines.emplace_back(reader.readLine());
    }
    return lines;
  }

  std::string textOf(std::string_view bytes) { return read(bytes).readAll(); }

  std::string inSystemCodePage(std::string_view bytes) {
    return adapters_->locale().fromSystemCodePage(bytes);
  }

  TextWriter write(std::string_view path) { return {adapters_->files(), path}; }

  TemporaryFolder disk_;
  std::unique_ptr<Adapters> adapters_ = makeAdapters(disk_.path());
};

/// A disk with one file, which it gives out in pieces of a few bytes, and counts them.
class TricklingFiles final : public FileSystem {
 public:
  TricklingFiles(std::string bytes, std::size_t pieceSize)
      : bytes_(std::move(bytes)), pieceSize_(pieceSize) {}

  std::unique_ptr<ByteReader> open(std::string_view /*path*/) override {
    return std::make_unique<Reader>(*this);
  }
  [[nodiscard]] std::size_t bytesRead() const { return bytesRead_; }
  void shorten(std::size_t size) { bytes_.resize(size); }

  bool fileExists(std::string_view /*path*/) override { return true; }
  bool folderExists(std::string_view /*path*/) override { return false; }
  void createFolder(std::string_view /*path*/) override { refuse(); }
  void copyFile(std::string_view /*from*/, std::string_view /*to*/) override { refuse(); }
  void moveFile(std::string_view /*from*/, std::string_view /*to*/) override { refuse(); }
  void deleteFile(std::string_view /*path*/) override { refuse(); }
  std::string absolutePath(std::string_view path) override { return std::string(path); }
  bool sameFile(std::string_view /*left*/, std::string_view /*right*/) override { return true; }
  std::vector<std::string> namesIn(std::string_view /*folder*/) override { refuse(); }
  std::unique_ptr<FileReplacement> replace(std::string_view /*path*/) override { refuse(); }

 private:
  class Reader final : public ByteReader {
   public:
    explicit Reader(TricklingFiles& files) : files_(files) {}
    std::size_t read(char* buffer, std::size_t size) override {
      const std::size_t count =
          position_ >= files_.bytes_.size()
              ? 0
              : files_.bytes_.copy(buffer, std::min(size, files_.pieceSize_), position_);
      position_ += count;
      files_.bytesRead_ += count;
      return count;
    }
    void rewind() override { position_ = 0; }

   private:
    TricklingFiles& files_;
    std::size_t position_ = 0;
  };

  [[noreturn]] static void refuse() { raise(ErrorNumber::kPermissionDenied); }

  std::string bytes_;
  std::size_t pieceSize_;
  std::size_t bytesRead_ = 0;
};

std::string swapped(std::string bytes) {
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    std::swap(bytes[at], bytes[at + 1]);
  }
  return bytes;
}

// Encodings

TEST_F(TextFileContract, AMarkDecidesForUtf16InLittleEndianOrder) {
  EXPECT_THAT(linesOf("\xFF\xFE"
                      "h\0\xE9\0\n\0\x3D\xD8\x00\xDE"s),
              ElementsAre("hé", "😀"));
}

TEST_F(TextFileContract, AMarkDecidesForUtf16InBigEndianOrder) {
  EXPECT_THAT(linesOf("\xFE\xFF"
                      "\0h\0\xE9\0\n\xD8\x3D\xDE\x00"s),
              ElementsAre("hé", "😀"));
}

TEST_F(TextFileContract, AMarkDecidesForUtf8) {
  EXPECT_THAT(linesOf("\xEF\xBB\xBFhé\n😀"), ElementsAre("hé", "😀"));
}

TEST_F(TextFileContract, WithoutAMarkValidUtf8IsUtf8) {
  EXPECT_THAT(linesOf("hé\n😀"), ElementsAre("hé", "😀"));
}

TEST_F(TextFileContract, WithoutAMarkAnythingElseIsInTheSystemsCodePage) {
  EXPECT_THAT(linesOf("plain\nh\xE9\x80\n"), ElementsAre("plain", inSystemCodePage("h\xE9\x80")));
}

TEST_F(TextFileContract, OneByteAnywhereMakesTheWholeFileTextInTheCodePage) {
  const std::string manyLines(kManyBytes, '\n');

  const std::string text = textOf("h\xC3\xA9" + manyLines + "h\xE9");

  EXPECT_EQ(text, inSystemCodePage("h\xC3\xA9") + manyLines + inSystemCodePage("h\xE9"));
}

TEST_F(TextFileContract, ALineOutsideAsciiIsInTheEncodingOfAllThatFollowsIt) {
  for (const std::size_t before : {0U, 1U, 3U, 65'534U, 65'535U, 65'536U, 200'000U}) {
    const std::string plain = before == 0 ? "" : std::string(before - 1, 'x') + "\n";
    const std::string start = plain + "h\xC3\xA9\n" + std::string(kManyBytes, 'y') + "\n";
    std::vector<std::string> expected{std::string(kManyBytes, 'y'), "end"};
    if (before > 0) {
      expected.insert(expected.begin(), std::string(before - 1, 'x'));
    }
    const auto place = expected.begin() + (before > 0 ? 1 : 0);
    expected.insert(place, "hé");
    EXPECT_TRUE(linesOf(start + "end") == expected) << before;

    expected[before > 0 ? 1 : 0] = inSystemCodePage("h\xC3\xA9");
    expected.back() = inSystemCodePage("\xE9nd");
    EXPECT_TRUE(linesOf(start + "\xE9nd") == expected) << before;
  }
}

TEST_F(TextFileContract, WhatIsLeftAfterLinesOfAsciiIsInTheEncodingOfItself) {
  TextReader utf8 = read("plain\nhé\n");
  utf8.readLine();
  EXPECT_EQ(utf8.readAll(), "hé\n");

  TextReader other = read("plain\nhé\n\xE9");
  other.readLine();
  EXPECT_EQ(other.readAll(), inSystemCodePage("h\xC3\xA9\n\xE9"));
}

TEST_F(TextFileContract, LinesOfAsciiAreReadOnceAndNoFurtherThanTheyAreAskedFor) {
  constexpr std::size_t kPiece = 100;
  TricklingFiles files(std::string(kManyBytes, '\n'), kPiece);
  TextReader reader(files, adapters_->locale(), "C:\\a.txt");
  reader.readLine();
  EXPECT_EQ(files.bytesRead(), kPiece);

  while (!reader.atEnd()) {
    reader.readLine();
  }
  EXPECT_EQ(files.bytesRead(), kManyBytes);
}

TEST_F(TextFileContract, AFileThatIsReadWholeIsReadOnce) {
  for (const std::string bytes : {"hé", "h\xE9"}) {
    TricklingFiles files(bytes, 1);
    TextReader(files, adapters_->locale(), "C:\\a.txt").readAll();
    EXPECT_EQ(files.bytesRead(), bytes.size());
  }
}

TEST_F(TextFileContract, AFileThatWasShortenedBeforeItsEncodingWasKnownEndsWhereItEnds) {
  TricklingFiles files("plain\nmore\nhé\nend", 100);
  TextReader reader(files, adapters_->locale(), "C:\\a.txt");
  EXPECT_EQ(reader.readLine(), "plain");
  EXPECT_EQ(reader.readLine(), "more");

  files.shorten(3);

  EXPECT_EQ(errorRaisedBy([&] { reader.readLine(); }), 62);
  EXPECT_TRUE(reader.atEnd());
}

TEST_F(TextFileContract, ACharacterCutOffByTheEndIsNoUtf8) {
  EXPECT_EQ(textOf("h\xC3"), inSystemCodePage("h\xC3"));
  EXPECT_EQ(textOf("h\xF0\x9F\x98"), inSystemCodePage("h\xF0\x9F\x98"));
}

TEST_F(TextFileContract, ACharacterMayStandAcrossAnyBoundaryOfThePiecesRead) {
  for (std::size_t before = 65'530; before <= 65'540; ++before) {
    const std::string text = std::string(before, 'x') + "😀é\nend";
    EXPECT_TRUE(textOf(text) == text) << before;
    EXPECT_TRUE(textOf(utf16File(text)) == text) << before;
  }
}

TEST_F(TextFileContract, HalfAMarkIsNoMark) {
  EXPECT_THAT(linesOf("\xFF"), ElementsAre(inSystemCodePage("\xFF")));
  EXPECT_THAT(linesOf("\xEF\xBB"), ElementsAre(inSystemCodePage("\xEF\xBB")));
}

TEST_F(TextFileContract, AMarkAloneIsAnEmptyFile) {
  EXPECT_THAT(linesOf("\xFF\xFE"), IsEmpty());
  EXPECT_THAT(linesOf("\xFE\xFF"), IsEmpty());
  EXPECT_THAT(linesOf("\xEF\xBB\xBF"), IsEmpty());
}

TEST_F(TextFileContract, WhatHasNoMeaningInTheEncodingReadsAsReplacementCharacters) {
  EXPECT_THAT(linesOf("\xFF\xFE"
                      "\x3D\xD8"
                      "a\0\n\0\x00\xDE"s),
              ElementsAre("\uFFFDa", "\uFFFD"));
  EXPECT_THAT(linesOf("\xFF\xFE"
                      "a\0b"s),
              ElementsAre("a\uFFFD"));
  EXPECT_THAT(linesOf("\xEF\xBB\xBFh\xE9\nb\n"), ElementsAre("h\uFFFD", "b"));
}

// Lines

TEST_F(TextFileContract, ALineFeedEndsALineWithTheCarriageReturnBeforeIt) {
  EXPECT_THAT(linesOf("a\r\nb\nc"), ElementsAre("a", "b", "c"));
}

TEST_F(TextFileContract, ACarriageReturnAloneIsText) {
  EXPECT_THAT(linesOf("a\rb\r\r\nc\r"), ElementsAre("a\rb\r", "c\r"));
}

TEST_F(TextFileContract, AnEndOfLineAtTheEndBeginsNoFurtherLine) {
  EXPECT_THAT(linesOf("a\r\n"), ElementsAre("a"));
  EXPECT_THAT(linesOf("\n"), ElementsAre(""));
  EXPECT_THAT(linesOf("a\n\r\n\n"), ElementsAre("a", "", ""));
}

TEST_F(TextFileContract, AnEmptyFileHasNoLines) {
  EXPECT_THAT(linesOf(""), IsEmpty());
}

TEST_F(TextFileContract, ReadingBehindTheEndRaises62) {
  TextReader reader = read("a\n");
  EXPECT_EQ(reader.readLine(), "a");
  EXPECT_TRUE(reader.atEnd());

  EXPECT_EQ(errorRaisedBy([&] { reader.readLine(); }), 62);
  EXPECT_EQ(errorRaisedBy([&] { reader.readLine(); }), 62);
}

TEST_F(TextFileContract, LinesOfUtf16EndAtLineFeedsAndNotAtBytesThatLookLikeOne) {
  const std::string first = "\u0A0Aa\u010A\u0A00\u0A41\u0100\u0A41";
  const std::string text = first + "\r\nb\u0A0A\n";

  EXPECT_THAT(linesOf(utf16File(text)), ElementsAre(first, "b\u0A0A"));
  EXPECT_THAT(linesOf(swapped(utf16File(text))), ElementsAre(first, "b\u0A0A"));
}

TEST_F(TextFileContract, ALineEndMayStandAcrossAnyBoundaryOfThePiecesRead) {
  for (std::size_t length = 65'530; length <= 65'540; ++length) {
    const std::string line(length, 'x');
    const std::string half(length / 2, 'x');
    EXPECT_TRUE(linesOf(line + "\r\nend") == (std::vector{line, "end"s})) << length;
    EXPECT_TRUE(linesOf(utf16File(half + "\r\nend")) == (std::vector{half, "end"s})) << length;
    EXPECT_TRUE(linesOf(swapped(utf16File(half + "\r\nend"))) == (std::vector{half, "end"s}))
        << length;
  }
}

TEST_F(TextFileContract, AFileReadsAlikeInWhateverPiecesItComes) {
  const std::string text = "hé\r\n😀\n\n\u0A0A\r";
  for (const std::string& bytes : {text,
                                   "\xEF\xBB\xBF" + text,
                                   utf16File(text),
                                   swapped(utf16File(text)),
                                   "h\xE9\r\n\n\x80"s}) {
    const std::vector<std::string> lines = linesOf(bytes);
    for (const std::size_t pieceSize : {1U, 2U, 3U, 5U}) {
      TricklingFiles files(bytes, pieceSize);
      TextReader reader(files, adapters_->locale(), "a.txt");
      for (const std::string& line : lines) {
        EXPECT_EQ(reader.readLine(), line) << pieceSize;
      }
      EXPECT_TRUE(reader.atEnd()) << pieceSize;
    }
  }
}

TEST_F(TextFileContract, ALineMayBeLong) {
  const std::string line(8'000'000, 'x');

  EXPECT_TRUE(linesOf("first\n" + line + "\r\nlast\n") == (std::vector{"first"s, line, "last"s}));
}

TEST_F(TextFileContract, ManyLinesComeInOrder) {
  std::string text;
  std::vector<std::string> expected;
  while (text.size() < kManyBytes) {
    expected.push_back("line " + std::to_string(expected.size()));
    text += expected.back() + "\r\n";
  }

  EXPECT_EQ(linesOf(text), expected);
  EXPECT_EQ(linesOf(utf16File(text)), expected);
  expected.push_back(inSystemCodePage("\x9F"));
  EXPECT_EQ(linesOf(text + "\x9F"), expected);
}

// Whole files

TEST_F(TextFileContract, TheWholeFileKeepsItsLineEnds) {
  EXPECT_EQ(textOf("\xEF\xBB\xBF"
                   "a\r\nb\rc\n\n"),
            "a\r\nb\rc\n\n");
  EXPECT_EQ(textOf(utf16File("é\r\nb")), "é\r\nb");
}

TEST_F(TextFileContract, TheWholeRestBeginsBehindTheLinesRead) {
  TextReader reader = read("a\r\nb\r\nc");
  reader.readLine();

  EXPECT_EQ(reader.readAll(), "b\r\nc");
  EXPECT_TRUE(reader.atEnd());
  EXPECT_EQ(reader.readAll(), "");
}

TEST_F(TextFileContract, AMissingFileRaises53) {
  EXPECT_EQ(errorRaisedBy([&] {
              const TextReader reader(adapters_->files(), adapters_->locale(), "C:\\missing.txt");
            }),
            53);
}

// Writing

TEST_F(TextFileContract, WhatIsWrittenIsLittleEndianUtf16WithAMark) {
  TextWriter writer = write("C:\\b.txt");
  writer.write("hé");
  writer.writeLine("😀");
  writer.close();

  EXPECT_EQ(disk_.read("b.txt"),
            "\xFF\xFE"
            "h\0\xE9\0\x3D\xD8\x00\xDE\r\0\n\0"s);
}

TEST_F(TextFileContract, LineEndsInsideWhatIsWrittenStay) {
  TextWriter writer = write("C:\\b.txt");
  writer.write("a\nb\r");
  writer.writeLine("");
  writer.close();

  EXPECT_EQ(fromUtf16File(disk_.read("b.txt")), "a\nb\r\r\n");
}

TEST_F(TextFileContract, BytesThatAreNoUtf8AreWrittenAsReplacementCharacters) {
  TextWriter writer = write("C:\\b.txt");
  writer.write("h\xE9\xE9!");
  writer.close();

  EXPECT_EQ(fromUtf16File(disk_.read("b.txt")), "h\uFFFD\uFFFD!");
}

TEST_F(TextFileContract, AnEmptyTextFileIsItsMark) {
  write("C:\\b.txt").close();

  EXPECT_EQ(disk_.read("b.txt"), "\xFF\xFE");
}

TEST_F(TextFileContract, MuchTextIsWrittenWhole) {
  TextWriter writer = write("C:\\b.txt");
  std::string expected;
  for (int line = 0; expected.size() < kManyBytes; ++line) {
    writer.writeLine("Zeile " + std::to_string(line) + " müht sich");
    expected += "Zeile " + std::to_string(line) + " müht sich\r\n";
  }
  writer.close();

  EXPECT_EQ(fromUtf16File(disk_.read("b.txt")), expected);
}

TEST_F(TextFileContract, ALongTextIsWrittenInWholeCharacters) {
  // Behind so many others, so that each byte of a character comes to stand where a piece ends.
  for (const std::size_t before : {0U, 1U, 2U, 3U}) {
    std::string text(before, 'a');
    std::string expected = text;
    while (text.size() < kManyBytes) {
      text += "ä€😀\x84\x84";
      expected += "ä€😀\uFFFD\uFFFD";
    }
    TextWriter writer = write("C:\\b.txt");
    writer.write(text);
    writer.close();
    EXPECT_TRUE(fromUtf16File(disk_.read("b.txt")) == expected) << before;
  }
}

TEST_F(TextFileContract, AWriterDestroyedBeforeItIsClosedHasWrittenNothing) {
  disk_.write("b.txt", "old");
  {
    TextWriter writer = write("C:\\b.txt");
    writer.write(std::string(kManyBytes, 'x'));
  }
  EXPECT_THAT(disk_.contents(), ElementsAre(std::pair("b.txt"s, "old"s)));
}

TEST_F(TextFileContract, WritingIntoAMissingFolderRaises76) {
  EXPECT_EQ(errorRaisedBy([&] { write("C:\\Missing\\b.txt"); }), 76);
}

}  // namespace

}  // namespace quorbind::testing
