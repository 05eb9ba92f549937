#include "platform/portable/xml_decoding.h"

#include <gtest/gtest.h>

namespace quorbind::testing {
namespace {

using namespace std::string_view_literals;

TEST(DecodedXml, IsInTheEncodingThatAMarkShows) {
  EXPECT_EQ(decodedXml("\xFF\xFE<\0\xE4\0>\0"sv), "<ä>");
  EXPECT_EQ(decodedXml("\xFE\xFF\0<\0\xE4\0>"sv), "<ä>");
  EXPECT_EQ(decodedXml("\xEF\xBB\xBF<ä>"), "<ä>");
}

TEST(DecodedXml, IsInUtf16WithoutAMarkWhenItsFirstCharacterShowsIt) {
  EXPECT_EQ(decodedXml("<\0\xE4\0>\0"sv), "<ä>");
  EXPECT_EQ(decodedXml("\0<\0\xE4\0>"sv), "<ä>");
}

TEST(DecodedXml, IsInTheEncodingThatItDeclares) {
  EXPECT_EQ(decodedXml("<?xml version='1.0' encoding='windows-1251'?><\xC0>"),
            "<?xml version='1.0' encoding='windows-1251'?><А>");
  EXPECT_EQ(decodedXml("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\xE4"),
            "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>ä");
}

TEST(DecodedXml, IsInUtf8WhereNothingElseIsTold) {
  EXPECT_EQ(decodedXml("<ä>"), "<ä>");
  EXPECT_EQ(decodedXml("<?xml version='1.0' encoding='UTF-16'?>ä"),
            "<?xml version='1.0' encoding='UTF-16'?>ä");
  EXPECT_EQ(decodedXml("<?xml version='1.0' encoding='nobody-knows'?>ä\xFF"),
            "<?xml version='1.0' encoding='nobody-knows'?>ä\xEF\xBF\xBD");
  EXPECT_EQ(decodedXml("<?xml encoding='UTF-8"), "<?xml encoding='UTF-8");
  EXPECT_EQ(decodedXml("<a encoding='windows-1251'>ä"), "<a encoding='windows-1251'>ä");
  EXPECT_EQ(decodedXml(""), "");
}

}  // namespace
}  // namespace quorbind::testing
