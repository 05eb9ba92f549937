#include "sidefiles/keyword_file.h"

#include "tests/support/keyword_text.h"
#include "tests/support/read_only_files.h"
#include "tests/unit/sidefiles/side_file_test.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kPath = "C:\\kw.xml";

constexpr std::string_view kHeader =
    "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n"
    "<!-- Quorbind Documentation Tools, Library Tools Group-->\r\n"
    "<!-- Quor Documentation Library, Authoring Tools-->\r\n"
    "<!-- Library Tools Group, Quor Data File -->\r\n"
    " <!--1/2/2026 3:04:05 PM-->\r\n"
    "<!-- Version 0.1-->\r\n"
    " <!-- Information 'quorbind@example.com' -->\r\n";

/// The same as a save of the document leaves it, with LF line ends.
constexpr std::string_view kSavedHeader =
    "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"
    "<!-- Quorbind Documentation Tools, Library Tools Group-->\n"
    "<!-- Quor Documentation Library, Authoring Tools-->\n"
    "<!-- Library Tools Group, Quor Data File -->\n"
    "<!--1/2/2026 3:04:05 PM-->\n"
    "<!-- Version 0.1-->\n"
    "<!-- Information 'quorbind@example.com' -->\n";

class KeywordsTest : public SideFileTest {
 protected:
  void writeFile(std::string_view text) { world_.disk.write("kw.xml", text); }
  [[nodiscard]] std::string file() const { return textOf("kw.xml"); }
  void add(const std::string& word, const std::string& book = "Alarms") {
    AddKeywordsToXmlFile(platform(), kPath, book, word);
  }
  void rename(const std::string& old, const std::string& word, const std::string& book = "Alarms") {
    EditKeywordsToXmlFile(platform(), kPath, book, word, old);
  }
};

using CreateKeywords = KeywordsTest;

TEST_F(CreateKeywords, WritesTheHeaderAndAnEmptyRoot) {
  CreateKeywordXmlFile(platform(), kPath);
  EXPECT_EQ(world_.disk.read("kw.xml"), utf16File(std::string(kHeader) + "<Books/>"));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(CreateKeywords, ReplacesTheFileThatStandsThere) {
  writeFile("what stood here before");
  CreateKeywordXmlFile(platform(), kPath);
  EXPECT_EQ(world_.disk.read("kw.xml"), utf16File(std::string(kHeader) + "<Books/>"));
}

TEST_F(CreateKeywords, ReportsAFolderThatIsNotThere) {
  CreateKeywordXmlFile(platform(), "C:\\no\\kw.xml");
  EXPECT_THAT(boxes(),
              ElementsAre("critical: Error(76):Path not found\r"
                          "Quorbind-Quor_Book::CreateKeywordXmlFile"));
  EXPECT_THAT(world_.disk.contents(), IsEmpty());
}

TEST_F(CreateKeywords, LeavesTheOldFileWhenTheDateCanNotBeHad) {
  writeFile("what stood here before");
  world_.locale.breakDown();
  CreateKeywordXmlFile(platform(), kPath);
  EXPECT_EQ(file(), "what stood here before");
  EXPECT_THAT(boxes(),
              ElementsAre("critical: Error(5):Invalid procedure call or argument\r"
                          "Quorbind-Quor_Book::CreateKeywordXmlFile"));
}

using AddKeyword = KeywordsTest;

TEST_F(AddKeyword, MakesAMissingFileWithOneBookAndOneKeyword) {
  add("net");
  EXPECT_EQ(world_.text("kw.xml"),
            std::string(kSavedHeader) + keywordsWith(keywordsOf("Alarms", {"net"})));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(AddKeyword, KeepsTheEncodingOfTheFileItMade) {
  add("net");
  add("目录");
  EXPECT_EQ(world_.text("kw.xml"),
            std::string(kSavedHeader) + keywordsWith(keywordsOf("Alarms", {"net", "目录"})));
}

TEST_F(AddKeyword, AddsOneThatTheBookHasNoSecondTime) {
  writeFile(
      "<Books><Book Book_Name='Alarms'><Keywords><Keyword>net</Keyword></Keywords></Book>"
      "</Books>");
  const std::string before = file();
  add("net");
  EXPECT_EQ(file(), before) << "not even rewritten";
  add("Net");
  add("net", "Trends");
  EXPECT_EQ(file(),
            keywordsWith(keywordsOf("Alarms", {"net", "Net"}) + keywordsOf("Trends", {"net"})));
}

TEST_F(AddKeyword, StoresItAndTheBookAsTheyAreGiven) {
  writeFile("<Books/>");
  add(" a & b <c> \"d\" 'e' ", "R&D \"x\"");
  EXPECT_EQ(file(),
            keywordsWith(keywordsOf("R&amp;D &quot;x&quot;", {" a &amp; b &lt;c&gt; \"d\" 'e' "})));
}

TEST_F(AddKeyword, WritesABlankOneIntoAFileThatItMakesAndIntoNoOther) {
  add("");
  const std::string made = world_.text("kw.xml");
  EXPECT_EQ(made,
            std::string(kSavedHeader) +
                keywordsWith("\t<Book Book_Name=\"Alarms\">\n\t\t<Keywords>\n\t\t\t<Keyword/>\n"
                             "\t\t</Keywords>\n\t</Book>\n"));
  add("");
  add("  ", "Trends");
  EXPECT_EQ(world_.text("kw.xml"), made);
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(AddKeyword, TellsThatAFileThatDoesNotLoadDoesNotExist) {
  writeFile("<Books>");
  add("net");
  add("");
  EXPECT_EQ(file(), "<Books>");
  const std::string box = "information: File does not exist";
  EXPECT_THAT(boxes(), ElementsAre(box, box));
  EXPECT_EQ(world_.user.messages()[0].title, std::nullopt);
}

TEST_F(AddKeyword, ReportsAMissingFileThatCanNotBeMadeAndGoesNoFurther) {
  AddKeywordsToXmlFile(platform(), "C:\\no\\kw.xml", "Alarms", "net");
  EXPECT_THAT(boxes(),
              ElementsAre("critical: Error(76):Path not found\r"
                          "Quorbind-Quor_Book::CreateKeywordXmlFile"));
  EXPECT_THAT(world_.disk.contents(), IsEmpty());
}

TEST_F(AddKeyword, ReportsABookWithAnApostropheUnlessTheFileIsNew) {
  add("net", "O'Neil");
  EXPECT_EQ(world_.text("kw.xml"),
            std::string(kSavedHeader) + keywordsWith(keywordsOf("O'Neil", {"net"})));
  EXPECT_THAT(boxes(), IsEmpty());
  add("net", "O'Neil");
  EXPECT_THAT(boxes(),
              ElementsAre("critical: Error(-2147467259):The value O'Neil can't stand in a query "
                          "between the quote characters it contains.\r"
                          "Quorbind-Quor_Book::AddKeywordsToXmlFile"));
}

TEST_F(AddKeyword, ReportsAFileOfAnotherKindAndABookWithoutItsList) {
  const std::string box =
      "critical: Error(91):Object variable or With block variable not set\r"
      "Quorbind-Quor_Book::AddKeywordsToXmlFile";
  for (const char* text : {"<LINKS/>", "<Books><Book Book_Name='Alarms'/></Books>"}) {
    writeFile(text);
    world_.user.forget();
    add("net");
    EXPECT_EQ(file(), text);
    EXPECT_THAT(boxes(), ElementsAre(box));
  }
}

TEST_F(AddKeyword, ReportsAMissingFileThatMayNotBeMade) {
  ReadOnlyFiles files(platform().files);
  const Platform& p = platform();
  AddKeywordsToXmlFile(
      {files, p.xml, p.ui, p.toolset, p.locale, p.spreadsheets}, "C:\\new.xml", "Alarms", "net");
  EXPECT_FALSE(world_.disk.has("new.xml"));
  EXPECT_THAT(boxes(),
              ElementsAre("critical: Error(70):Permission denied\r"
                          "Quorbind-Quor_Book::CreateKeywordXmlFile"));
}

using RenameKeyword = KeywordsTest;

TEST_F(RenameKeyword, RenamesAllOccurrencesInTheBook) {
  writeFile(
      keywordsWith(keywordsOf("Alarms", {"net", "Net", "net"}) + keywordsOf("Trends", {"net"})));
  rename("net", "a & b");
  EXPECT_EQ(file(),
            keywordsWith(keywordsOf("Alarms", {"a &amp; b", "Net", "a &amp; b"}) +
                         keywordsOf("Trends", {"net"})));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(RenameKeyword, ChecksTheNewOneAgainstNothing) {
  writeFile(keywordsWith(keywordsOf("Alarms", {"net", "x"})));
  rename("net", "x");
  rename("x", "## &lt;");
  EXPECT_EQ(file(), keywordsWith(keywordsOf("Alarms", {"## &amp;lt;", "## &amp;lt;"})));
}

TEST_F(RenameKeyword, RewritesTheFileForAnUnknownKeywordAndNotForABlankOne) {
  const std::string asItStands = "<Books><Book Book_Name='Alarms'><Keywords/></Book></Books>";
  writeFile(asItStands);
  rename("net", "  ");
  EXPECT_EQ(file(), asItStands);
  rename("net", "x");
  EXPECT_EQ(file(), keywordsWith("\t<Book Book_Name=\"Alarms\">\n\t\t<Keywords/>\n\t</Book>\n"));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(RenameKeyword, TellsThatAFileThatIsMissingOrDoesNotLoadDoesNotExist) {
  rename("net", "x");
  writeFile("<Books>");
  rename("net", "");
  EXPECT_EQ(file(), "<Books>");
  const std::string box = "information: File does not exist";
  EXPECT_THAT(boxes(), ElementsAre(box, box));
}

TEST_F(RenameKeyword, ReportsErrorsUnderTheNameOfAddingOne) {
  writeFile(keywordsWith(keywordsOf("O'Neil", {"net"})));
  rename("net", "x", "O'Neil");
  EXPECT_EQ(file(), keywordsWith(keywordsOf("O'Neil", {"net"})));
  EXPECT_THAT(boxes(),
              ElementsAre("critical: Error(-2147467259):The value O'Neil can't stand in a query "
                          "between the quote characters it contains.\r"
                          "Quorbind-Quor_Book::AddKeywordsToXmlFile"));
}

}  // namespace
}  // namespace quorbind::testing
