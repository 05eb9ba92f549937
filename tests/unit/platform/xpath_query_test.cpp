#include "platform/xpath_query.h"

#include <gtest/gtest.h>

#include "tests/support/raised_error.h"

namespace quorbind::testing {

namespace {

TEST(QuotedForQuery, PutsAValueBetweenTheQuotes) {
  EXPECT_EQ(quotedForQuery("Alarms", '\''), "'Alarms'");
  EXPECT_EQ(quotedForQuery("Alarms", '"'), "\"Alarms\"");
  EXPECT_EQ(quotedForQuery("", '\''), "''");
}

TEST(QuotedForQuery, LeavesTheOtherQuoteInAValueAlone) {
  EXPECT_EQ(quotedForQuery("the \"new\" one", '\''), "'the \"new\" one'");
  EXPECT_EQ(quotedForQuery("Driver's Guide", '"'), "\"Driver's Guide\"");
}

TEST(QuotedForQuery, RefusesAValueThatWouldEndTheLiteral) {
  EXPECT_EQ(errorRaisedBy([] { (void)quotedForQuery("' or '1'='1", '\''); }), kInvalidQueryError);
  EXPECT_EQ(errorRaisedBy([] { (void)quotedForQuery("a\"b", '"'); }), kInvalidQueryError);
}

TEST(QuotedForQuery, RefusesAValueThatNoDocumentCanHold) {
  for (const char* value : {"\x01", "a\x1F", "\xEF\xBF\xBE", "\xFF"}) {
    EXPECT_EQ(errorRaisedBy([&] { (void)quotedForQuery(value, '\''); }), kInvalidQueryError);
  }
  EXPECT_EQ(quotedForQuery("a\tb\r\n\xEF\xBF\xBD", '\''), "'a\tb\r\n\xEF\xBF\xBD'");
}

TEST(AQueryByAChild, NamesThePathTheChildAndItsText) {
  EXPECT_EQ(elementsWith("Books/Book", "Name", "Driver's", '"'), "Books/Book[Name=\"Driver's\"]");
  EXPECT_EQ(elementsWith("Books/Book", "Name", "a\"b", '\''), "Books/Book[Name='a\"b']");
}

TEST(AQueryByAChild, CanBeNarrowedAndLedFurther) {
  EXPECT_EQ(
      childrenOf(elementsWith(elementsWith("Book", "Name", "A", '"'), "Acro", "1", '\''), "Key"),
      "Book[Name=\"A\"][Acro='1']/Key");
}

TEST(AQueryByAChild, RefusesATextThatHoldsTheQuote) {
  EXPECT_EQ(errorRaisedBy([] { (void)elementsWith("Book", "Name", "a\"b", '"'); }),
            kInvalidQueryError);
  EXPECT_EQ(errorRaisedBy([] { (void)elementsWith("Book", "Name", "a'b", '\''); }),
            kInvalidQueryError);
}

}  // namespace

}  // namespace quorbind::testing
