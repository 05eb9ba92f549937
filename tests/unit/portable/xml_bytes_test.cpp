#include "platform/portable/xml_bytes.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>

#include "platform/portable/portable_xml_document.h"
#include "platform/text_encoding.h"
#include "platform/xml_writer.h"
#include "tests/support/one_file.h"
#include "tests/support/random_xml.h"

namespace quorbind::testing {
namespace {

using namespace std::string_literals;

constexpr const char* kPath = "C:\\book.xml";

std::string utf16(std::string_view text) {
  std::string bytes = "\xFF\xFE";
  appendUtf16LittleEndian(bytes, text);
  return bytes;
}

std::string beginning() {
  return utf16(kUnicodeDeclaration);
}
/// The same to every reader of XML, but not begun as ours are.
std::string otherBeginning() {
  return utf16("<?xml version='1.0' encoding='UTF-16'?>");
}

/// What comes out of a file, taken in pieces of this size.
struct Taken {
  std::string bytes;
  bool areRecoded = false;
  bool endedEarly = false;
};

Taken take(const std::string& file, XmlBytes::Utf16 utf16, std::size_t pieces = 4000) {
  OneFile disk;
  disk.put(file);
  XmlBytes bytes(disk.open(kPath), utf16);
  std::string taken;
  std::string piece(pieces, '\0');
  while (const std::size_t count = bytes.take(piece.data(), piece.size())) {
    taken.append(piece, 0, count);
  }
  return {taken, bytes.areRecoded(), bytes.endedEarly()};
}

std::string described(const std::string& file) {
  OneFile disk;
  disk.put(file);
  PortableXmlDocument document(disk);
  const XmlLoadResult result = document.load(kPath);
  return result ? describeDocument(document) : std::to_string(result.line) + ": " + result.reason;
}

TEST(XmlBytes, GivesAFileThatBeginsAsOursDoInUtf8) {
  const Taken taken = take(beginning() + utf16("<a>é😀</a>").substr(2), XmlBytes::Utf16::kAsUtf8);
  EXPECT_EQ(taken.bytes, R"(<?xml version="1.0" encoding="UTF-8"?><a>é😀</a>)");
  EXPECT_TRUE(taken.areRecoded);
  EXPECT_FALSE(taken.endedEarly);
}

TEST(XmlBytes, GivesEveryOtherFileAsItStands) {
  for (const std::string& file :
       {otherBeginning(), "<a/>"s, ""s, "\xFF\xFE"s, beginning().substr(0, 20)}) {
    const Taken taken = take(file, XmlBytes::Utf16::kAsUtf8);
    EXPECT_EQ(taken.bytes, file);
    EXPECT_FALSE(taken.areRecoded);
  }
}

TEST(XmlBytes, GivesOursAsTheyStandWhenAsked) {
  EXPECT_EQ(take(beginning(), XmlBytes::Utf16::kAsItStands).bytes, beginning());
}

TEST(XmlBytes, EndsWhereAFileHoldsNoUtf16) {
  for (const std::string& end : {"\0\xDC"s, "x"s, "\0\xD8"s, "\0\xD8x\0"s}) {
    const Taken taken = take(beginning() + "a\0"s + end, XmlBytes::Utf16::kAsUtf8);
    EXPECT_TRUE(taken.bytes.ends_with("?>a"));
    EXPECT_TRUE(taken.endedEarly);
  }
}

TEST(XmlBytes, PutsCharactersTogetherThatTheBufferCutsApart) {
  std::string text;
  while (text.size() < 300'000) {
    text += text.size() % 7 == 0 ? "😀" : "aé";
  }
  const Taken taken =
      take(beginning() + utf16(text).substr(2), XmlBytes::Utf16::kAsUtf8, /*pieces=*/17);
  EXPECT_EQ(taken.bytes.substr(taken.bytes.find("?>") + 2), text);
}

TEST(XmlBytes, MakeTheSameDocumentOrFailureInBothWays) {
  constexpr unsigned kDocuments = 2000;
  for (unsigned seed = 0; seed < kDocuments; ++seed) {
    std::mt19937 random(seed);
    std::string xml = randomXml(seed);
    if (xml.starts_with("<?xml ")) {
      xml.erase(0, xml.find("?>") + 2);
    }
    std::string content = utf16(xml).substr(2);
    if (seed % 3 == 0) {
      content.resize(random() % (content.size() + 1));
    }
    for (auto damages = seed % 4; damages > 1 && !content.empty(); --damages) {
      content[random() % content.size()] = static_cast<char>(random());
    }
    SCOPED_TRACE("seed " + std::to_string(seed) + "\n" + xml);
    ASSERT_EQ(described(beginning() + content), described(otherBeginning() + content));
  }
}

}  // namespace
}  // namespace quorbind::testing
