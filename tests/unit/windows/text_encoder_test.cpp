#include "platform/windows/text_encoder.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/windows/com_types.h"
#include "tests/support/raised_error.h"

namespace quorbind::testing {
namespace {

using namespace std::string_literals;

class TextEncoderTest : public ::testing::Test {
 protected:
  static std::string encoded(std::string_view encoding, std::string_view text) {
    TextEncoder encoder(encoding);
    return std::string(encoder.mark()).append(encoder.encode(text));
  }

 private:
  ComApartment apartment_;
};

TEST_F(TextEncoderTest, Utf8HasNoMarkAndIsTheEncodingWithoutAName) {
  EXPECT_EQ(encoded("UTF-8", "Grüße"), "Grüße");
  EXPECT_EQ(encoded("utf8", "Grüße"), "Grüße");
  EXPECT_EQ(encoded("", "Grüße"), "Grüße");
}

TEST_F(TextEncoderTest, Utf16IsLittleEndianWithAMark) {
  EXPECT_EQ(encoded("UTF-16", "a€"), "\xFF\xFE\x61\x00\xAC\x20"s);
  EXPECT_EQ(encoded("utf-16", "😀"), "\xFF\xFE\x3D\xD8\x00\xDE"s);
}

TEST_F(TextEncoderTest, OtherEncodingsAreKnownByTheNamesOfDeclarations) {
  EXPECT_EQ(encoded("windows-1252", "Grüße €"), "Gr\xFC\xDF"s + "e \x80");
  EXPECT_EQ(encoded("ISO-8859-1", "Grüße"), "Gr\xFC\xDF"s + "e");
  EXPECT_EQ(encoded("iso-8859-15", "€"), "\xA4");
  EXPECT_EQ(encoded("Shift_JIS", "目"), "\x96\xDA");
}

TEST_F(TextEncoderTest, WhatAnEncodingLacksBecomesAReference) {
  EXPECT_EQ(encoded("windows-1252", "ü目😀ß"), "\xFC&#30446;&#128512;\xDF");
  EXPECT_EQ(encoded("us-ascii", "aé"), "a&#233;");
}

TEST_F(TextEncoderTest, NothingIsReplacedByWhatLooksAlike) {
  EXPECT_EQ(encoded("windows-1252", "\u0100"), "&#256;");
}

TEST_F(TextEncoderTest, AnEmptyTextHasNoBytes) {
  EXPECT_EQ(encoded("windows-1252", ""), "");
}

TEST_F(TextEncoderTest, AnEncodingThatCanNotBeWrittenRaises57) {
  EXPECT_EQ(errorRaisedBy([] { TextEncoder("no-such-encoding"); }), 57);
}

}  // namespace
}  // namespace quorbind::testing
