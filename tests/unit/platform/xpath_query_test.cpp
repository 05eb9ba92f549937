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

}  // namespace

}  // namespace quorbind::testing
