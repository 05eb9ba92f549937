#include "platform/portable/visible_text.h"

#include <gtest/gtest.h>

#include "platform/portable/text_cells.h"

namespace quorbind::testing {
namespace {

TEST(VisibleText, OfAPlainTextIsThatText) {
  // A soft hyphen, joiners, marks that lie inside a text from right to left, a mark above a letter.
  for (const char* text : {"Pumps \t1",
                           "Ger\xC3\xA4te",
                           "\xC2\xADsoft",
                           "\xD9\x85\xDB\x8C\xE2\x80\x8C\xD8\xAE",
                           "\xE2\x80\x8D",
                           "\xE2\x80\x8E\xE2\x80\x8F",
                           "e\xCC\x81",
                           "\xE2\x80\xA6\xE2\x82\xAC"}) {
    EXPECT_EQ(visibleText(text), text);
    EXPECT_EQ(visibleLines(text), text);
  }
}

TEST(VisibleText, WritesOutWhatMovesTheCursor) {
  EXPECT_EQ(visibleText("a\x1B[2J\x7F\r\n\xC2\x9B"), "a\\x1B[2J\\x7F\\x0D\\x0A\\x9B");
}

TEST(VisibleText, WritesOutWhatTurnsTheTextBehindItRoundOrEndsALine) {
  EXPECT_EQ(
      visibleText("\xE2\x80\xAA|\xE2\x80\xAE|\xE2\x81\xA6|\xE2\x81\xA9|\xE2\x80\xA8|\xE2\x80\xA9"),
      "\\u{202A}|\\u{202E}|\\u{2066}|\\u{2069}|\\u{2028}|\\u{2029}");
  EXPECT_EQ(visibleLines("exe.\xE2\x80\xAEtxt\rb"), "exe.\\u{202E}txt\nb");
}

TEST(ColumnsOf, CountsWideCharactersTwiceAndThoseWithoutAShapeNot) {
  EXPECT_EQ(columnsOf(""), 0U);
  EXPECT_EQ(columnsOf("Ger\xC3\xA4te"), 6U);
  EXPECT_EQ(columnsOf("警報"), 4U);
  EXPECT_EQ(columnsOf("e\xCC\x81\xE2\x80\x8D"), 1U);
}

}  // namespace
}  // namespace quorbind::testing
