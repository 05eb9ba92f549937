#include "toolset/page_links.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(PageLinks, StandInSrcAndHrefAttributesInTheOrderOfThePage) {
  EXPECT_THAT(linksIn("<link href=\"a.css\"><img src=\"b.png\"><a href=\"c.htm\">C</a>"),
              ElementsAre("a.css", "b.png", "c.htm"));
}

TEST(PageLinks, AreFoundInAnyLetterCase) {
  EXPECT_THAT(linksIn("<IMG SRC=\"A.png\"><a HRef=\"B.htm\">"), ElementsAre("A.png", "B.htm"));
}

TEST(PageLinks, StandInEitherQuoteOrNone) {
  EXPECT_THAT(linksIn("<img src='it is \"a\".png'><img src=\"it's b.png\"><img src=c.png>"
                      "<img src=d.png alt=D>"),
              ElementsAre("it is \"a\".png", "it's b.png", "c.png", "d.png"));
}

TEST(PageLinks, MayHaveWhiteSpaceAndLineEndsAroundTheirParts) {
  EXPECT_THAT(linksIn("<img\r\n\tsrc =\r\n \"a.png\"><img\tsrc= b.png\r\n><img src=\" c.png\n\">"),
              ElementsAre("a.png", "b.png", "c.png"));
}

TEST(PageLinks, EndBeforeAQueryOrABookmark) {
  EXPECT_THAT(linksIn("<a href='a.htm#top'><a href='b.htm?x=1#y'><a href='#top'><a href='?x=1'>"),
              ElementsAre("a.htm", "b.htm"));
}

TEST(PageLinks, HaveTheirEscapesTurnedBackIntoCharacters) {
  EXPECT_THAT(
      linksIn("<a href='Two%20words.htm'><a href='%c3%9C%2f1%23.htm'><a href='R&amp;D.htm'>"),
      ElementsAre("Two words.htm", "\u00DC/1#.htm", "R&D.htm"));
}

TEST(PageLinks, KeepWhatIsNoEscape) {
  EXPECT_THAT(linksIn("<a href='100%.htm'><a href='%G1.htm'><a href='%2'><a href='%-1'>"),
              ElementsAre("100%.htm", "%G1.htm", "%2", "%-1"));
}

TEST(PageLinks, AreUtf8WhateverTheirEscapesSay) {
  EXPECT_THAT(linksIn("<a href='%FCber.htm'>"), ElementsAre("\uFFFDber.htm"));
}

TEST(PageLinks, MayLeadAnywhere) {
  EXPECT_THAT(linksIn("<a href='../a.htm'><a href='/b.htm'><a href='http://example.com/c.htm'>"),
              ElementsAre("../a.htm", "/b.htm", "http://example.com/c.htm"));
}

TEST(PageLinks, AreFoundInCommentsAndScripts) {
  EXPECT_THAT(linksIn("<!-- <img src=a.png> --><script>write('<img src=\"b.png\">')</script>"),
              ElementsAre("a.png", "b.png"));
}

TEST(PageLinks, StandInQuotedValuesButNotInOnesWithoutQuotes) {
  EXPECT_THAT(linksIn("<a href='x src=a.png '>"), ElementsAre("x src=a.png", "a.png"));
  EXPECT_THAT(linksIn("<a href=src=a.png>"), ElementsAre("src=a.png"));
  EXPECT_THAT(linksIn("<a href=/src = a.png>"), ElementsAre("/src"));
}

TEST(PageLinks, OfALongPageTakeTimeInProportionToIt) {
  std::string page = "<a ";
  for (int i = 0; i < 1'000'000; ++i) {
    page += "src=";
  }
  EXPECT_EQ(linksIn(page).size(), 1U);
}

TEST(PageLinks, DoNotStandInAttributesWhoseNamesOnlyEndAlike) {
  EXPECT_THAT(linksIn("<img data-src='a.png' xsrc='b.png' x:href='c.htm' _src=d location.href='e' "
                      "1src='f'>"),
              IsEmpty());
}

TEST(PageLinks, NeedAValue) {
  EXPECT_THAT(linksIn("<img src=''><img src=><img src=\"open.png><img src>"), IsEmpty());
  EXPECT_THAT(linksIn("<img src="), IsEmpty());
  EXPECT_THAT(linksIn("<img src='"), IsEmpty());
  EXPECT_THAT(linksIn("src=a"), IsEmpty());
  EXPECT_THAT(linksIn(""), IsEmpty());
}

}  // namespace
}  // namespace quorbind::testing
