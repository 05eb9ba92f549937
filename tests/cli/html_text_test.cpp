#include "cli/html_text.h"

#include <gtest/gtest.h>

#include "tests/support/hostile_names.h"

namespace quorbind::testing {
namespace {

TEST(HtmlText, HasItsMarkupCharactersReplaced) {
  EXPECT_EQ(htmlText("</script><b a='x' c=\"y\">&amp;"),
            "&lt;/script&gt;&lt;b a=&#39;x&#39; c=&quot;y&quot;&gt;&amp;amp;");
}

TEST(HtmlText, HasItsControlCharactersWrittenOut) {
  EXPECT_EQ(htmlText("a\x1B[2J\r\n\xC2\x85"), "a\\x1B[2J\\x0D\\x0A\\x85");
}

TEST(HtmlText, ThatIsNoUtf8ShowsSo) {
  EXPECT_EQ(htmlText("a\xFFz"), "a\xEF\xBF\xBDz");
}

TEST(IsolatedText, KeepsItsDirectionToItself) {
  EXPECT_EQ(isolatedText("\xD7\x90<"), "<bdi>\xD7\x90&lt;</bdi>");
}

TEST(IsolatedText, WritesOutWhatWouldChangeTheDirectionOfThePage) {
  EXPECT_EQ(isolatedText("\xE2\x80\xAA\xE2\x80\xAE"), "<bdi>\\u{202A}\\u{202E}</bdi>");
  EXPECT_EQ(isolatedText("\xE2\x81\xA6\xE2\x81\xA9"), "<bdi>\\u{2066}\\u{2069}</bdi>");
  EXPECT_EQ(isolatedText("\xE2\x80\x8D\xE2\x81\xAA"), "<bdi>\xE2\x80\x8D\xE2\x81\xAA</bdi>");
}

TEST(LinkPiece, WritesOutWhateverHasAMeaningInALink) {
  EXPECT_EQ(linkPiece("a b#c?d%e/f\\g:h&i\"j'k<l"),
            "a%20b%23c%3Fd%25e%2Ff%5Cg%3Ah%26i%22j%27k%3Cl");
  EXPECT_EQ(linkPiece("Ger\xC3\xA4te-1.0_~"), "Ger%C3%A4te-1.0_~");
}

TEST(LinkPath, IsJoinedBySlashes) {
  EXPECT_EQ(linkPath("Docs\\Plant/a b.htm"), "Docs/Plant/a%20b.htm");
  EXPECT_EQ(linkPath("/srv/docs"), "/srv/docs");
  EXPECT_EQ(linkPath("../.."), "../..");
}

TEST(LinkPath, OfNoHostileNameIsAScheme) {
  for (const HostileName& name : hostileNames()) {
    EXPECT_EQ(linkPath(name.name).find_first_of(":\"'<>&# "), std::string::npos) << name.name;
  }
}

}  // namespace
}  // namespace quorbind::testing
