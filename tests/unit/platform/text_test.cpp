#include "platform/text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/support/raised_error.h"

namespace quorbind::testing {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string_view> piecesOf(std::string_view text, std::string_view separator) {
  const Pieces pieces(text, separator);
  return {pieces.begin(), pieces.end()};
}

TEST(TrimBlanks, TakesTheBlanksOffBothEnds) {
  EXPECT_EQ(trimBlanks("  Pump  station "), "Pump  station");
  EXPECT_EQ(trimBlanks("Pump"), "Pump");
}

TEST(TrimBlanks, LeavesNothingOfBlanksAlone) {
  EXPECT_EQ(trimBlanks("   "), "");
  EXPECT_EQ(trimBlanks(""), "");
}

TEST(TrimBlanks, LeavesEveryOtherWhiteSpace) {
  EXPECT_EQ(trimBlanks(" \tPump\r\n\u00A0"), "\tPump\r\n\u00A0");
}

TEST(PiecesOfAText, AreWhatStandsBetweenTheSeparators) {
  EXPECT_THAT(piecesOf("$@@$1$@@$ $@@$Alarms$@@$", "$@@$"),
              ElementsAre("", "1", " ", "Alarms", ""));
}

TEST(PiecesOfAText, AreTheTextItselfWithoutASeparator) {
  EXPECT_THAT(piecesOf("Alarms", ";"), ElementsAre("Alarms"));
}

TEST(PiecesOfAText, AreNoneOfAnEmptyText) {
  EXPECT_THAT(piecesOf("", ";"), IsEmpty());
}

TEST(PiecesOfAText, AreCutAtSeparatorsThatDoNotOverlap) {
  EXPECT_THAT(piecesOf("a;;;b", ";;"), ElementsAre("a", ";b"));
}

TEST(PiecesOfAText, AreReachedByTheirNumber) {
  const Pieces pieces("a;b", ";");

  EXPECT_EQ(pieces.count(), 2U);
  EXPECT_EQ(pieces.at(0), "a");
  EXPECT_EQ(pieces.at(1), "b");
  EXPECT_EQ(pieces.last(), "b");
}

TEST(PiecesOfAText, RaiseErrorNineWhenNotThere) {
  EXPECT_EQ(errorRaisedBy([] { static_cast<void>(Pieces("a;b", ";").at(2)); }), 9);
  EXPECT_EQ(errorRaisedBy([] { static_cast<void>(Pieces("", ";").at(0)); }), 9);
  EXPECT_EQ(errorRaisedBy([] { static_cast<void>(Pieces("", ";").last()); }), 9);
}

std::vector<std::string> entriesOf(std::string_view list) {
  const Pieces entries = listEntries(list);
  return {entries.begin(), entries.end()};
}

TEST(EntriesOfAList, AreSeparatedBySemicolonsAndElseByCommas) {
  EXPECT_THAT(entriesOf("Alarms; Trends ;a,b"), ElementsAre("Alarms", " Trends ", "a,b"));
  EXPECT_THAT(entriesOf("Alarms, Trends"), ElementsAre("Alarms", " Trends"));
}

TEST(EntriesOfAList, AreEmptyBetweenNeighbouringSeparators) {
  EXPECT_THAT(entriesOf(";"), ElementsAre("", ""));
  EXPECT_THAT(entriesOf("a,,b,"), ElementsAre("a", "", "b", ""));
}

TEST(EntriesOfAList, AreTheTextItselfWithoutASeparatorAndNoneOfAnEmptyOne) {
  EXPECT_THAT(entriesOf(" Alarms and events "), ElementsAre(" Alarms and events "));
  EXPECT_THAT(entriesOf(""), IsEmpty());
}

TEST(PiecesOfAText, AreCountedWithoutBeingCut) {
  EXPECT_EQ(countPieces("", ";"), 0U);
  EXPECT_EQ(countPieces("a", ";"), 1U);
  EXPECT_EQ(countPieces(";a;", ";"), 3U);
  EXPECT_EQ(countPieces("a;;;b", ";;"), 2U);
}

TEST(Contains, FindsAPartInTheSameLetterCase) {
  EXPECT_TRUE(contains("Quor_TOC.xml", "TOC"));
  EXPECT_FALSE(contains("Quor_TOC.xml", "toc"));
}

TEST(ContainsAnyOf, FindsOneOfSeveralCharacters) {
  EXPECT_TRUE(containsAnyOf("a<b", "<>"));
  EXPECT_FALSE(containsAnyOf("a=b", "<>"));
  EXPECT_FALSE(containsAnyOf("", "<>"));
}

TEST(ReplaceAll, TurnsEveryOccurrence) {
  EXPECT_EQ(replaceAll("TOC.HTM.HTM", ".HTM", "_Temp.txt"), "TOC_Temp.txt_Temp.txt");
  EXPECT_EQ(replaceAll("TOC.HTML", ".HTM", "_Temp.txt"), "TOC_Temp.txtL");
  EXPECT_EQ(replaceAll("toc.htm", ".HTM", "_Temp.txt"), "toc.htm");
}

TEST(ReplaceAll, DoesNotLookIntoWhatItPutIn) {
  EXPECT_EQ(replaceAll("aa", "a", "aa"), "aaaa");
  EXPECT_EQ(replaceAll("a&b", "&", ""), "ab");
}

TEST(UpperCaseAscii, FoldsAToZAndNothingElse) {
  EXPECT_EQ(upperCaseAscii("azAZ09_{é"), "AZAZ09_{é");
}

TEST(EqualIgnoringAsciiCase, ComparesWithoutTheCaseOfAToZ) {
  EXPECT_TRUE(equalIgnoringAsciiCase("Toc.TXT", "tOC.txt"));
  EXPECT_TRUE(equalIgnoringAsciiCase("", ""));
  EXPECT_FALSE(equalIgnoringAsciiCase("toc", "toc."));
  EXPECT_FALSE(equalIgnoringAsciiCase("é", "É"));
  EXPECT_FALSE(equalIgnoringAsciiCase("[", "{"));
}

TEST(StartsIgnoringAsciiCase, ComparesTheBeginningWithoutTheCaseOfAToZ) {
  EXPECT_TRUE(startsIgnoringAsciiCase("Quor_TOC.xml", "qUOR_"));
  EXPECT_TRUE(startsIgnoringAsciiCase("toc", "toc"));
  EXPECT_TRUE(startsIgnoringAsciiCase("", ""));
  EXPECT_FALSE(startsIgnoringAsciiCase("to", "toc"));
  EXPECT_FALSE(startsIgnoringAsciiCase("étoc", "É"));
}

TEST(EndsIgnoringAsciiCase, ComparesTheEndWithoutTheCaseOfAToZ) {
  EXPECT_TRUE(endsIgnoringAsciiCase("Quor_TOC.xml", ".XmL"));
  EXPECT_TRUE(endsIgnoringAsciiCase("toc", "toc"));
  EXPECT_TRUE(endsIgnoringAsciiCase("toc", ""));
  EXPECT_FALSE(endsIgnoringAsciiCase("ml", ".xml"));
  EXPECT_FALSE(endsIgnoringAsciiCase("page.xml ", ".xml"));
}

TEST(FindIgnoringAsciiCase, FindsAPartFromAPositionOn) {
  EXPECT_EQ(findIgnoringAsciiCase("a<ibd>b<IBD>", "<IBD>"), 1U);
  EXPECT_EQ(findIgnoringAsciiCase("a<ibd>b<IBD>", "<IBD>", 2), 7U);
  EXPECT_EQ(findIgnoringAsciiCase("a<ibd>", "<IBD>", 2), std::string_view::npos);
  EXPECT_EQ(findIgnoringAsciiCase("abc", "C", 2), 2U);
  EXPECT_EQ(findIgnoringAsciiCase("abc", "C", 3), std::string_view::npos);
  EXPECT_EQ(findIgnoringAsciiCase("abc", "C", 4), std::string_view::npos);
  EXPECT_EQ(findIgnoringAsciiCase("{", "["), std::string_view::npos);
}

}  // namespace

}  // namespace quorbind::testing
