// What people enter into a side file comes back as they entered it, whatever it holds.

#include "tests/support/hard_texts.h"

#include "platform/xml_document.h"
#include "platform/xml_writer.h"
#include "sidefiles/category_filing.h"
#include "sidefiles/category_list.h"
#include "sidefiles/keyword_file.h"
#include "sidefiles/link_file.h"
#include "tests/unit/sidefiles/link_text.h"
#include "tests/unit/sidefiles/side_file_test.h"

namespace quorbind::testing {
namespace {

using ::testing::IsEmpty;

constexpr const char* kPath = "C:\\Docs\\Prod\\side.xml";

class HardTexts : public SideFileTest {
 protected:
  void put(std::string_view text) { world_.disk.write("Docs/Prod/side.xml", text); }
};

TEST_F(HardTexts, ComeBackFromCategories) {
  for (const std::string& text : hardTexts()) {
    put("<BookSet_Categories/>");
    AddBookCateToXMLFile(platform(), state(), kPath, text);
    AddBookCateToXMLFile(platform(), state(), kPath, "plain");
    EditBookCateToXMLFile(platform(), state(), kPath, text + "!", "plain");
    AddBookAcro(platform(), text + "!", {{"", text}}, kPath);
    const auto document = platform().xml.createDocument();
    ASSERT_TRUE(document->load(kPath));
    const auto names = document->selectAll("BookSet_Categories/Category/CategoryName");
    ASSERT_EQ(names.size(), 2U);
    EXPECT_EQ(names[0].text(), xmlCharactersOnly(text));
    EXPECT_EQ(names[1].text(), xmlCharactersOnly(text + "!"));
  }
}

TEST_F(HardTexts, ComeBackFromKeywords) {
  for (const std::string& text : hardTexts()) {
    put("<Books/>");
    AddKeywordsToXmlFile(platform(), kPath, "Alarms", text);
    AddKeywordsToXmlFile(platform(), kPath, "Alarms", "plain");
    EditKeywordsToXmlFile(platform(), kPath, "Alarms", text + "!", "plain");
    const auto document = platform().xml.createDocument();
    ASSERT_TRUE(document->load(kPath));
    const auto keywords = document->selectAll("Books/Book/Keywords/Keyword");
    ASSERT_EQ(keywords.size(), 2U);
    EXPECT_EQ(keywords[0].text(), xmlCharactersOnly(text));
    EXPECT_EQ(keywords[1].text(), xmlCharactersOnly(text + "!"));
    EXPECT_THAT(boxes(), IsEmpty());
  }
}

TEST_F(HardTexts, ComeBackFromLinks) {
  for (const std::string& text : hardTexts()) {
    put(linksWith(""));
    AddToLinkIDFile(platform(), kPath, "N1", text, text, text, text);
    const auto document = platform().xml.createDocument();
    ASSERT_TRUE(document->load(kPath));
    const XmlNode entry = document->select("LINKS/IBD/ID");
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry.child("FullLink").text(), xmlCharactersOnly(text));
    EXPECT_EQ(entry.child("LinkIDSourceFile").text(), xmlCharactersOnly(text + "\\" + text));
    EXPECT_EQ(entry.child("BookAcro").text(), xmlCharactersOnly(text));
    EXPECT_THAT(boxes(), IsEmpty());
  }
}

}  // namespace
}  // namespace quorbind::testing
