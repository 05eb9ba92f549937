// What stands in a side file is the library's: whatever is wrong with the file, with what is
// written into it, or with the disk, an operation changes what it means to change or nothing.

#include <filesystem>
#include <functional>

#include "platform/xml_document.h"
#include "platform/xml_writer.h"
#include "sidefiles/category_filing.h"
#include "sidefiles/category_list.h"
#include "sidefiles/category_rebuild.h"
#include "sidefiles/keyword_file.h"
#include "sidefiles/keyword_list.h"
#include "sidefiles/link_file.h"
#include "tests/support/watched_xml.h"
#include "tests/unit/sidefiles/link_text.h"
#include "tests/unit/sidefiles/side_file_test.h"

namespace quorbind::testing {
namespace {

using ::testing::IsEmpty;

constexpr const char* kPath = "C:\\Docs\\Prod\\side.xml";

/// An operation that changes the file at kPath.
struct Change {
  const char* name;
  std::function<void(const Platform&, ProcessState&)> run;
};

std::vector<Change> changes() {
  return {
      {"AddBookCateToXMLFile",
       [](const Platform& p, ProcessState& s) { AddBookCateToXMLFile(p, s, kPath, "New"); }},
      {"EditBookCateToXMLFile",
       [](const Platform& p, ProcessState& s) { EditBookCateToXMLFile(p, s, kPath, "New", "A"); }},
      {"AddCategoryNode",
       [](const Platform& p, ProcessState& s) { AddCategoryNode(p, s, "New", "ALM", kPath); }},
      {"AddCategoryNodes",
       [](const Platform& p, ProcessState& s) {
         s.currentCategoriesPath = kPath;
         const std::vector<std::string> names{"New", "A"};
         AddCategoryNodes(p, s, names);
       }},
      {"AddBookAcro",
       [](const Platform& p, ProcessState& /*s*/) {
         AddBookAcro(p, "A", {{"", "NEW"}}, kPath);
       }},
      {"Addothercategory",
       [](const Platform& p, ProcessState& s) {
         Addothercategory(p, s, "A", {{"", "NEW"}}, kPath);
       }},
      {"GetBookAcroInfo",
       [](const Platform& p, ProcessState& s) {
         GetBookAcroInfo(p, s, kPath, "C:\\Docs\\Prod\\Quor_TOC.xml");
       }},
      {"GetBookAcroValue",
       [](const Platform& p, ProcessState& s) {
         s.currentCategoriesPath = kPath;
         GetBookAcroValue(p, s, "A", "C:\\Docs\\Prod\\Quor_TOC.xml");
       }},
      {"AddKeywordsToXmlFile",
       [](const Platform& p, ProcessState& /*s*/) {
         AddKeywordsToXmlFile(p, kPath, "Alarms", "new");
       }},
      {"EditKeywordsToXmlFile",
       [](const Platform& p, ProcessState& /*s*/) {
         EditKeywordsToXmlFile(p, kPath, "Alarms", "new", "net");
       }},
      {"AddKeywords",
       [](const Platform& p, ProcessState& s) {
         AddKeywords(p, s, {{"new", "newer"}}, kPath);
       }},
      {"AddToLinkIDFile",
       [](const Platform& p, ProcessState& /*s*/) {
         AddToLinkIDFile(p, kPath, "NEW", "F", "s", "Prod", "ALM");
       }},
  };
}

/// Files that no operation can work with.
std::vector<std::string> damagedFiles() {
  const std::string sound = categoriesWith(category("A", {"X"}) + category("Other Category"));
  std::vector<std::string> files{
      "",
      " ",
      "\xFF\xFE",
      std::string(64, '\0'),
      "words",
      "<",
      "<?xml version=\"1.0\" encoding=\"UTF-16\"?>",
      "<?xml version=\"1.0\" encoding=\"no-such-code\"?><BookSet_Categories/>",
      "<!DOCTYPE x [<!ENTITY a 'b'>]><BookSet_Categories>&a;</BookSet_Categories>",
      "<BookSet_Categories>&nbsp;</BookSet_Categories>",
      "<BookSet_Categories></Books>",
      "<BookSet_Categories/><Books/>",
      "<Books><Book Book_Name='Alarms' Book_Name='x'/></Books>",
      "<LINKS><IBD>\x01</IBD></LINKS>",
      "<LINKS><IBD>\xC3\x28</IBD></LINKS>",
      "<x:LINKS><IBD/></x:LINKS>",
      utf16File("<?xml version=\"1.0\" encoding=\"UTF-16\"?><LINKS><IBD/></LINKS>").substr(1),
  };
  for (std::size_t length = 5; length < sound.size() - 20; length += 13) {
    files.push_back(sound.substr(0, length));
  }
  std::string deep;
  for (int depth = 0; depth < 300; ++depth) {
    deep += "<a>";
  }
  files.push_back(deep);
  return files;
}

class BadSideFile : public SideFileTest {
 protected:
  BadSideFile() {
    state().currentBookName = "Alarms";
    state().currentBookAcro = "ALM";
    state().currentProductName = "Prod";
    world_.disk.write("Docs/Prod/Quor_TOC.xml",
                      "<Quor_Master><Quor_Books><Book><Book_Acro>ALM</Book_Acro>"
                      "<Book_Categories/></Book></Quor_Books></Quor_Master>");
  }
  void put(std::string_view text) { world_.disk.write("Docs/Prod/side.xml", text); }
};

TEST_F(BadSideFile, ThatDoesNotLoadIsNeverWrittenOver) {
  for (const std::string& text : damagedFiles()) {
    put(text);
    const auto before = world_.disk.contents();
    for (const Change& change : changes()) {
      change.run(platform(), state());
      EXPECT_EQ(world_.disk.contents(), before) << change.name << " on " << text;
    }
  }
}

TEST_F(BadSideFile, OfAnotherKindGetsNothingThatIsNotItsOwn) {
  put("<Foreign><Category/></Foreign>");
  for (const Change& change : changes()) {
    change.run(platform(), state());
    EXPECT_EQ(replaceAll(replaceAll(textOf("Docs/Prod/side.xml"), "\n", ""), "\t", ""),
              "<Foreign><Category/></Foreign>")
        << change.name;
  }
}

TEST_F(BadSideFile, ThatIsMissingIsMadeByThoseThatAddKeywordsAndLinksAlone) {
  for (const Change& change : changes()) {
    change.run(platform(), state());
    const bool makesIt = contains(change.name, "AddKeywords") || contains(change.name, "AddToLink");
    EXPECT_EQ(world_.disk.has("Docs/Prod/side.xml"), makesIt) << change.name;
    std::filesystem::remove(world_.disk.path() / "Docs/Prod/side.xml");
  }
}

TEST_F(BadSideFile, OnAFullDiskStaysAsItIsAndThatIsReported) {
  WatchedXml xml(platform().xml, platform().files, "C:\\scratch.xml");
  xml.limitSavesTo(1);
  const Platform& p = platform();
  const Platform full{p.files, xml, p.ui, p.toolset, p.locale, p.spreadsheets};
  for (const std::string& text : {categoriesWith(category("A") + category("Other Category")),
                                  std::string("<Books/>"),
                                  linksWith("")}) {
    put(text);
    const auto before = world_.disk.contents();
    for (const Change& change : changes()) {
      world_.user.forget();
      const int savesBefore = xml.savesOf(kPath);
      change.run(full, state());
      EXPECT_EQ(world_.disk.contents(), before) << change.name;
      if (xml.savesOf(kPath) > savesBefore) {
        EXPECT_EQ(world_.user.messages().at(0).errorNumber, 61) << change.name;
      }
    }
  }
}

/// Texts that are hard on names, keywords and identifiers.
std::vector<std::string> hardTexts() {
  return {"a & b",
          "<tag>",
          "say \"x\"",
          "]]>",
          "&gt;",
          "&amp;amp;",
          "-->",
          "a  b",
          "  blanks  ",
          "line\r\nline",
          "\ttab",
          "目录 😀",
          "עברית",
          "ÄÖÜß",
          "e\u0301",
          "\x01\x02",
          "\xFF\xFE",
          std::string(10'000, 'x'),
          "a;b,c"};
}

TEST_F(BadSideFile, GetsHardNamesBackAsTheyWere) {
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

TEST_F(BadSideFile, GetsHardKeywordsBackAsTheyWere) {
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

TEST_F(BadSideFile, GetsHardLinksBackAsTheyWere) {
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
