#include "platform/windows/xml_prologue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "platform/text_encoding.h"

namespace quorbind::testing {
namespace {

using namespace std::string_literals;

class Bytes final : public ByteReader {
 public:
  explicit Bytes(std::string bytes, std::size_t pieceSize = std::string::npos)
      : bytes_(std::move(bytes)), pieceSize_(pieceSize) {}

  std::size_t read(char* buffer, std::size_t size) override {
    const std::size_t count = bytes_.copy(buffer, std::min(size, pieceSize_), at_);
    at_ += count;
    return count;
  }
  void rewind() override { at_ = 0; }

 private:
  std::string bytes_;
  std::size_t pieceSize_;
  std::size_t at_ = 0;
};

/// 0 for a file without a document type declaration.
int lineIn(std::string bytes) {
  Bytes reader(std::move(bytes));
  return lineOfDocumentType(reader).value_or(0);
}

std::string littleEndian(std::string_view text) {
  std::string bytes;
  appendUtf16LittleEndian(bytes, text);
  return bytes;
}
std::string bigEndian(std::string_view text) {
  std::string bytes = littleEndian(text);
  for (std::size_t at = 0; at < bytes.size(); at += 2) {
    std::swap(bytes[at], bytes[at + 1]);
  }
  return bytes;
}

TEST(XmlPrologue, HasALineForItsDocumentTypeDeclaration) {
  EXPECT_EQ(lineIn("<!DOCTYPE a><a/>"), 1);
  EXPECT_EQ(lineIn("<?xml version='1.0'?>\r\n\r\n<!DOCTYPE a SYSTEM 'a.dtd'>\r\n<a/>"), 3);
}

TEST(XmlPrologue, HasNoneWithoutOne) {
  EXPECT_EQ(lineIn("<?xml version='1.0'?>\n<!-- c -->\n<?pi data?>\n<a/>"), 0);
  EXPECT_EQ(lineIn("just text"), 0);
  EXPECT_EQ(lineIn(""), 0);
}

TEST(XmlPrologue, EndsAtTheRoot) {
  EXPECT_EQ(lineIn("<a>\n<!DOCTYPE b></a>"), 0);
}

TEST(XmlPrologue, HidesNoDeclarationInCommentsAndInstructions) {
  EXPECT_EQ(lineIn("<!-- <!DOCTYPE a> - -- -><?--><?pi <!DOCTYPE a> ? > ?>\n<a/>"), 0);
  EXPECT_EQ(lineIn("<!--\n-->\n<?pi\n?>\n<!DOCTYPE a>"), 5);
}

TEST(XmlPrologue, IsReadInEveryEncoding) {
  const std::string text = "<?xml version='1.0'?>\n<!-- 中㸭 -->\n<!DOCTYPE a><a/>";
  EXPECT_EQ(lineIn(text), 3);
  EXPECT_EQ(lineIn("\xEF\xBB\xBF" + text), 3);
  EXPECT_EQ(lineIn("\xFF\xFE" + littleEndian(text)), 3);
  EXPECT_EQ(lineIn("\xFE\xFF" + bigEndian(text)), 3);
  EXPECT_EQ(lineIn(littleEndian(text)), 3);
  EXPECT_EQ(lineIn(bigEndian(text)), 3);
}

TEST(XmlPrologue, IsReadInWhateverPiecesItComes) {
  Bytes reader("\xFE\xFF" + bigEndian("<?xml version='1.0'?>\n<!DOCTYPE a><a/>"), 1);
  EXPECT_EQ(lineOfDocumentType(reader), 2);
}

TEST(XmlPrologue, MayBeLong) {
  EXPECT_EQ(lineIn("<!--" + std::string(100'000, '-') + "x-->\n<!DOCTYPE a>"), 2);
  EXPECT_EQ(lineIn("<!--" + std::string(100'000, 'x')), 0);
}

TEST(XmlPrologue, MayHoldZeros) {
  EXPECT_EQ(lineIn("\0\0\n<!DOCTYPE a>"s), 2);
  EXPECT_EQ(lineIn(std::string(10'000, '\0')), 0);
}

}  // namespace
}  // namespace quorbind::testing
