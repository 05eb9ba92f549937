#include "toc/html_toc.h"

#include <gtest/gtest.h>

namespace quorbind::testing {
namespace {

TEST(HtmlTags, BecomeBlanksOfWhichThoseAtTheEndsGo) {
  EXPECT_EQ(withoutHtmlTags("<K1><A HREF=\"a.htm\">Start</A></K1>"), "Start");
  EXPECT_EQ(withoutHtmlTags("Start<b>and</b>stop"), "Start and stop");
  EXPECT_EQ(withoutHtmlTags("  Start  "), "Start");
  EXPECT_EQ(withoutHtmlTags("<b></b>"), "");
  EXPECT_EQ(withoutHtmlTags(""), "");
}

TEST(HtmlTags, KeepOtherWhiteSpaceAtTheEnds) {
  EXPECT_EQ(withoutHtmlTags("<b>\tStart\r\n</b>"), "\tStart\r\n");
}

TEST(HtmlTags, ReachFromTheFirstBracketToTheFirstThatCloses) {
  EXPECT_EQ(withoutHtmlTags("a <b <c> d"), "a   d");
}

TEST(HtmlTags, GoWithEverythingThatReadsLikeThem) {
  EXPECT_EQ(withoutHtmlTags("<b>x <<b>y>"), "x");
  EXPECT_EQ(withoutHtmlTags("x <<b>y>"), "x  y>");
}

TEST(HtmlTags, StayBehindABracketThatClosesNothing) {
  EXPECT_EQ(withoutHtmlTags("a > b <c>"), "a > b <c>");
  EXPECT_EQ(withoutHtmlTags("<b>a > c<b>"), "a > c");
  EXPECT_EQ(withoutHtmlTags("a < b"), "a < b");
}

TEST(HtmlTitleBlock, StandsBetweenItsTagsInAnyLetterCase) {
  const auto block = htmlTitleBlockIn("<p><ht>Title</Ht><HT>Other</HT>");
  ASSERT_TRUE(block.has_value());
  EXPECT_EQ(block->position, 3U);
  EXPECT_EQ(block->text, "Title");
}

TEST(HtmlTitleBlock, NeedsBothTagsInTheirOrder) {
  EXPECT_FALSE(htmlTitleBlockIn("").has_value());
  EXPECT_FALSE(htmlTitleBlockIn("<HT>Title").has_value());
  EXPECT_FALSE(htmlTitleBlockIn("</HT>Title<HT>").has_value());
}

TEST(HtmlTitleFile, IsTheLastPartOfThePathBeforeTheBookmark) {
  EXPECT_EQ(htmlTitleFile("cover.htm"), "cover.htm");
  EXPECT_EQ(htmlTitleFile("a/b/cover.htm#x/y"), "cover.htm");
  EXPECT_EQ(htmlTitleFile("a\\cover.htm"), "a\\cover.htm");
  EXPECT_EQ(htmlTitleFile("a/"), "");
  EXPECT_EQ(htmlTitleFile("#x"), "");
}

TEST(HtmlPath, StandsBetweenTheFirstQuotesBehindHref) {
  EXPECT_EQ(htmlPathIn("<a href=\"a.htm\" HREF=\"b.htm\">"), "a.htm");
  EXPECT_EQ(htmlPathIn("<a href=\"\">"), "");
  EXPECT_EQ(htmlPathIn("<a href='a.htm'>"), std::nullopt);
  EXPECT_EQ(htmlPathIn("<a href=\"a.htm>"), std::nullopt);
}

TEST(HtmlBeforeHeadings, IsAllOfAPageWithoutHeadings) {
  EXPECT_EQ(htmlBeforeHeadings("a</K1><k1>b"), "a</K1>");
  EXPECT_EQ(htmlBeforeHeadings("a"), "a");
}

}  // namespace
}  // namespace quorbind::testing
