#include "toc/text_form.h"

#include <gtest/gtest.h>

#include "platform/runtime_error.h"
#include "platform/text.h"
#include "tests/support/world.h"

namespace quorbind::testing {
namespace {

TEST(TextForm, PutsEachFieldBetweenMarkersABlankApart) {
  EXPECT_EQ(text_form::lineOf(
                {.level = 2, .name = "Start-up", .file = "Manual\\start.htm", .subLink = "#cold"}),
            "$@@$2$@@$ $@@$Start-up$@@$ $@@$Manual\\start.htm$@@$ $@@$#cold$@@$ "
            "$@@$#NoLink#$@@$ $@@$#NO_BOOKLINK#$@@$");
}

TEST(TextForm, IsReadBackByItsPieces) {
  const std::string line = text_form::lineOf({.level = 3,
                                              .name = "Net",
                                              .file = "net\\a.htm",
                                              .subLink = "",
                                              .fLinkValue = "F1",
                                              .bookLinkValue = "N1@@@net\\a.htm"});
  const Pieces pieces(line, text_form::kMarker);
  EXPECT_EQ(pieces.at(text_form::kLevel), "3");
  EXPECT_EQ(pieces.at(text_form::kName), "Net");
  EXPECT_EQ(pieces.at(text_form::kFile), "net\\a.htm");
  EXPECT_EQ(pieces.at(text_form::kSubLink), "");
  EXPECT_EQ(pieces.at(text_form::kFLinkValue), "F1");
  EXPECT_EQ(pieces.at(text_form::kBookLinkValue), "N1@@@net\\a.htm");
  EXPECT_EQ(pieces.count(), 13U);
}

class BookEntryLine : public ::testing::Test {
 protected:
  std::string readFrom(std::string_view text) {
    world_.disk.write("toc.txt", text);
    const text_form::BookEntry entry =
        text_form::readBookEntry(world_.platform().files, world_.platform().locale, "C:\\toc.txt");
    return std::to_string(entry.line) + ": " + entry.text;
  }

  World world_;
};

TEST_F(BookEntryLine, IsTheThirdLine) {
  EXPECT_EQ(readFrom("h\n\nentry\nnext\n"), "3: entry");
}

TEST_F(BookEntryLine, IsTheLastLineOfAShorterFile) {
  EXPECT_EQ(readFrom("h\nsecond\n"), "2: second");
  EXPECT_EQ(readFrom("h\n"), "1: h");
  EXPECT_EQ(readFrom(""), "0: ");
}

TEST_F(BookEntryLine, IsReadWithBackslashes) {
  EXPECT_EQ(readFrom("h\n\n$@@$Manual/cover.htm$@@$"), "3: $@@$Manual\\cover.htm$@@$");
}

TEST_F(BookEntryLine, OfAMissingFileIsAnError) {
  EXPECT_THROW(
      text_form::readBookEntry(world_.platform().files, world_.platform().locale, "C:\\none.txt"),
      RunTimeError);
}

}  // namespace
}  // namespace quorbind::testing
