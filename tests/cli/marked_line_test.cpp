#include "cli/marked_line.h"

#include <gtest/gtest.h>

#include "cli/cell_place.h"
#include "cli/message_story.h"

namespace quorbind::testing {
namespace {

TEST(MarkedLine, HasTheMarkUnderTheCharactersAtFault) {
  EXPECT_EQ(markedLine("34", R"("6" "Slope" "a.htm" "#slope")", 5, 7),
            "  34 | \"6\" \"Slope\" \"a.htm\" \"#slope\"\n"
            "     |     ^^^^^^^\n");
}

TEST(MarkedLine, HasNoMarkWhereThePlaceInItIsNotKnown) {
  EXPECT_EQ(markedLine("1", "Node Level", 0, 0), "  1 | Node Level\n");
}

TEST(MarkedLine, ThatIsEmptyIsItsNumber) {
  EXPECT_EQ(markedLine("5", "   ", 0, 0), "  5 |\n");
}

TEST(MarkedLine, OfACellIsLabelledWithItsName) {
  EXPECT_EQ(markedLine(cellName({1, 7, 1}), "2a", 1, 2),
            "  A7 | 2a\n"
            "     | ^^\n");
}

TEST(MarkedLine, CountsATabAsItIsShown) {
  EXPECT_EQ(markedLine("2", "\ta\t<K3>", 4, 4),
            "  2 |     a    <K3>\n"
            "    |          ^^^^\n");
}

TEST(MarkedLine, CountsAWideCharacterAsTwoColumns) {
  EXPECT_EQ(markedLine("2", "「警報」<K3>", 5, 4),
            "  2 | 「警報」<K3>\n"
            "    |         ^^^^\n");
  EXPECT_EQ(markedLine("2", "警報", 2, 1),
            "  2 | 警報\n"
            "    |   ^^\n");
}

TEST(MarkedLine, CountsAMarkOverALetterAsNoColumn) {
  EXPECT_EQ(markedLine("2", "e\xCC\x81\xCC\xA3 <K3>", 5, 4),
            "  2 | e\xCC\x81\xCC\xA3 <K3>\n"
            "    |   ^^^^\n");
}

TEST(MarkedLine, CountsRightToLeftTextInTheOrderInWhichItIsStored) {
  EXPECT_EQ(markedLine("2", "אזעקה \"0\"", 7, 3),
            "  2 | אזעקה \"0\"\n"
            "    |       ^^^\n");
}

TEST(MarkedLine, WritesOutWhatMovesTheCursorOrTurnsTheText) {
  EXPECT_EQ(markedLine("2", "\x1B[2J\xE2\x80\xAE<K3>", 6, 4),
            "  2 | \\x1B[2J\\u{202E}<K3>\n"
            "    |                ^^^^\n");
}

TEST(MarkedLine, ShowsBytesThatAreNoCharacterAsOneColumn) {
  EXPECT_EQ(markedLine("2", "\xFF<K3>", 2, 4),
            "  2 | \xEF\xBF\xBD<K3>\n"
            "    |  ^^^^\n");
}

TEST(MarkedLine, IsCutBehindWhatFitsWhenTheMarkStandsAtItsBeginning) {
  EXPECT_EQ(markedLine("2", "<K3>" + std::string(100, 'x'), 1, 4),
            "  2 | <K3>" + std::string(68, 'x') +
                "...\n"
                "    | ^^^^\n");
}

TEST(MarkedLine, IsCutOnBothSidesOfAMarkInItsMiddle) {
  EXPECT_EQ(markedLine("2", std::string(500, 'x') + "<K3>" + std::string(500, 'y'), 501, 4),
            "  2 | ..." + std::string(32, 'x') + "<K3>" + std::string(36, 'y') +
                "...\n"
                "    |    " +
                std::string(32, ' ') + "^^^^\n");
}

TEST(MarkedLine, MarksOnlyWhatIsShownOfALongFault) {
  EXPECT_EQ(markedLine("2", std::string(500, 'x'), 1, 500),
            "  2 | " + std::string(72, 'x') +
                "...\n"
                "    | " +
                std::string(72, '^') + "\n");
}

TEST(MarkedLine, MarksTheEndOfALineThatIsShorterThanThePlace) {
  EXPECT_EQ(markedLine("2", "ab", 9, 3),
            "  2 | ab\n"
            "    |   ^\n");
}

TEST(CellName, IsThatOfSpreadsheetPrograms) {
  EXPECT_EQ(cellName({1, 7, 1}), "A7");
  EXPECT_EQ(cellName({1, 1, 26}), "Z1");
  EXPECT_EQ(cellName({1, 1, 27}), "AA1");
  EXPECT_EQ(cellName({1, 32766, 702}), "ZZ32766");
}

TEST(WhatIsAccepted, IsFoundByTheLastLineOfTheBoxThatIsARule) {
  EXPECT_EQ(acceptedInsteadOf("Row: 7 Column:1\rError:Node Level should be Integer"),
            "A whole number from 1.");
  EXPECT_EQ(acceptedInsteadOf("Not a valid Excel file\rthe file is encrypted"),
            "A workbook (.xlsx, .xlsm, or .xls from Excel 97 on) without a password.");
}

TEST(WhatIsAccepted, IsNotToldByWhatTheLineAtFaultSays) {
  EXPECT_EQ(acceptedInsteadOf("Line: \"x\" \"Error:Node Name can not be Empty\" \"\" \"\"\r"
                              "Error:Node Level value can not be String"),
            "A whole number from 1.");
}

TEST(WhatIsAccepted, IsNothingForABoxThatTheTableDoesNotKnow) {
  EXPECT_EQ(acceptedInsteadOf("the printer is on fire"), "");
  EXPECT_EQ(acceptedInsteadOf(""), "");
}

}  // namespace
}  // namespace quorbind::testing
