#include "bookxml/toc_to_xml.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/world.h"
#include "toc/text_form.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr std::string_view kTop =
    "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"
    "<!--Quorbind Documentation Tools, Library Tools Group-->\n"
    "<!--Library Tools Group, Authoring Tools-->\n"
    "<!--Quor Book Data File -->\n"
    "<!--1/2/2026 3:04:05 PM-->\n"
    "<!--Version 0.1 -->\n"
    "<!--Information 'quorbind@example.com'-->\n";

class BookXml : public ::testing::Test {
 protected:
  struct Arguments {
    std::string path = "C:\\in\\toc.txt";
    std::string name = "Pump Station";
    std::string acronym = "PST";
    std::string file = "";
    std::string product = "Prod";
  };

  std::string generate(std::string_view text) { return generate(text, Arguments()); }
  std::string generate(std::string_view text, const Arguments& arguments) {
    world_.disk.write("in/toc.txt", text);
    return CTOCToXML(world_.module)
        .mstrGenerateXMLFromTOC(arguments.path,
                                "C:\\lib\\Quor_TOC.xml",
                                arguments.name,
                                arguments.acronym,
                                arguments.file,
                                arguments.product);
  }
  /// A table of contents with a book entry in Manual and one entry per level.
  static std::string withLevels(std::initializer_list<int> levels) {
    std::string text = "header\r\n\r\n";
    for (const int level : levels) {
      text += text_form::lineOf(
                  {.level = level, .name = "L" + std::to_string(level), .file = "Manual\\p.htm"}) +
              "\r\n";
    }
    return text;
  }
  static std::string line(const text_form::Entry& entry) { return text_form::lineOf(entry) + "\n"; }

  [[nodiscard]] std::string written() const { return world_.text("in/Book_PST.xml"); }
  /// What stands inside Book_Headings, with the tag.
  [[nodiscard]] std::string headings() const {
    const std::string text = written();
    const std::size_t start = text.find("\t<Book_Headings");
    return text.substr(start, text.rfind("</Book_Master>") - start);
  }
  /// The headings' level attributes as the tree nests them, such as "H1(H2 H2)H1".
  [[nodiscard]] std::string tree() const {
    std::string result;
    const std::string text = headings();
    for (std::size_t at = text.find('<'); at != std::string::npos; at = text.find('<', at + 1)) {
      if (text.compare(at, 15, "<Heading level=") == 0) {
        result += "(" + text.substr(at + 16, text.find('"', at + 16) - at - 16);
      } else if (text.compare(at, 10, "</Heading>") == 0) {
        result += ")";
      }
    }
    return result;
  }

  World world_;
};

TEST_F(BookXml, DescribesTheBookAndNestsItsHeadings) {
  EXPECT_EQ(generate("header\n\n" +
                     line({.level = 1, .name = "Pump Station", .file = "Manual\\cover.htm"}) +
                     line({.level = 2, .name = "Start", .file = "Manual/start.htm"}) +
                     line({.level = 3,
                           .name = "Cold start",
                           .file = "Manual\\start.htm",
                           .subLink = "#cold",
                           .fLinkValue = "F7"}) +
                     line({.level = 2, .name = "Stop & go", .file = "Manual\\stop.htm"})),
            "Manual");
  EXPECT_EQ(written(),
            std::string(kTop) +
                "<Book_Master>\n"
                "\t<Book>\n"
                "\t\t<Book_Name>Pump Station</Book_Name>\n"
                "\t\t<Book_Acro>PST</Book_Acro>\n"
                "\t\t<Book_Key id=\"\">Prod</Book_Key>\n"
                "\t\t<Book_Path>Prod\\Manual</Book_Path>\n"
                "\t\t<Book_BuildDate>1/2/2026 3:04:05 PM</Book_BuildDate>\n"
                "\t\t<Book_Categories/>\n"
                "\t</Book>\n"
                "\t<Book_Headings>\n"
                "\t\t<Heading level=\"H1\" type=\"htm\">\n"
                "\t\t\t<HName>Start</HName>\n"
                "\t\t\t<HFile>start.htm</HFile>\n"
                "\t\t\t<Heading level=\"H2\" type=\"htm\">\n"
                "\t\t\t\t<HName FLinkValue=\"F7\">Cold start</HName>\n"
                "\t\t\t\t<HFile BookMark=\"#cold\">start.htm</HFile>\n"
                "\t\t\t</Heading>\n"
                "\t\t</Heading>\n"
                "\t\t<Heading level=\"H1\" type=\"htm\">\n"
                "\t\t\t<HName>Stop &amp;amp; go</HName>\n"
                "\t\t\t<HFile>stop.htm</HFile>\n"
                "\t\t</Heading>\n"
                "\t</Book_Headings>\n"
                "</Book_Master>\n");
  EXPECT_THAT(world_.user.record(), IsEmpty());
}

TEST_F(BookXml, IsWrittenInUtf16WithItsMarkAndCrLf) {
  generate(withLevels({1}));
  const std::string bytes = world_.disk.read("in/Book_PST.xml");
  EXPECT_EQ(bytes.substr(0, 2), "\xFF\xFE");
  const std::string text = fromUtf16File(bytes);
  EXPECT_THAT(text, HasSubstr("?>\r\n<!--"));
  EXPECT_THAT(text, ::testing::EndsWith("</Book_Master>\r\n"));
}

TEST_F(BookXml, OfTheHeaderLineAloneHasEmptyHeadings) {
  world_.state().rememberedBookFolder = "Manual";
  EXPECT_EQ(generate("header\n"), "Manual");
  EXPECT_THAT(written(), HasSubstr("\t<Book_Headings/>\n"));
  EXPECT_THAT(world_.user.record(), IsEmpty());
}

TEST_F(BookXml, OfTheBookEntryAloneHasEmptyHeadings) {
  EXPECT_EQ(generate(withLevels({1})), "Manual");
  EXPECT_THAT(written(), HasSubstr("\t<Book_Headings/>\n"));
  EXPECT_THAT(world_.user.record(), IsEmpty());
}

TEST_F(BookXml, NestsByLevel) {
  generate(withLevels({1, 2, 3, 3, 2}));
  EXPECT_EQ(tree(), "(H1(H2)(H2))(H1)");
  generate(withLevels({1, 2, 3, 4, 2, 3}));
  EXPECT_EQ(tree(), "(H1(H2(H3)))(H1(H2))");
}

TEST_F(BookXml, TakesTheFirstHeadingForTheBookEntryWhenThereIsNone) {
  EXPECT_EQ(generate(withLevels({2, 3})), "Manual");
  EXPECT_EQ(tree(), "(H1(H2))");
}

TEST_F(BookXml, TakesASecondLineThatIsNotEmptyForAnEntry) {
  generate("header\n" + line({.level = 2, .name = "A", .file = "Manual\\a.htm"}) +
           line({.level = 2, .name = "B", .file = "Manual\\b.htm"}));
  EXPECT_EQ(tree(), "(H1)(H1)");
}

TEST_F(BookXml, SkipsEmptyLinesAmongTheEntries) {
  generate("header\n\n" + line({.level = 2, .name = "A", .file = "Manual\\a.htm"}) + "\n\n" +
           line({.level = 3, .name = "B", .file = "Manual\\b.htm"}) + "\n");
  EXPECT_EQ(tree(), "(H1(H2))");
}

TEST_F(BookXml, KeepsTheSecondComponentOfAFileName) {
  generate("header\n\n" + line({.level = 2, .name = "A", .file = "Manual\\intro.htm"}) +
           line({.level = 2, .name = "B", .file = "Manual\\deep\\page.htm"}) +
           line({.level = 2, .name = "C", .file = "page.htm"}));
  EXPECT_THAT(headings(), HasSubstr("<HFile>intro.htm</HFile>"));
  EXPECT_THAT(headings(), HasSubstr("<HFile>deep</HFile>"));
  EXPECT_THAT(headings(), HasSubstr("<HFile>page.htm</HFile>"));
}

TEST_F(BookXml, TakesTheTypeFromBehindTheLastDot) {
  generate("header\n\n" + line({.level = 2, .name = "A", .file = "Docs\\intro.htm"}) +
           line({.level = 2, .name = "B", .file = "intro.v2.pdf"}) +
           line({.level = 2, .name = "C", .file = "intro.htm#top"}) +
           line({.level = 2, .name = "D", .file = "readme"}));
  EXPECT_THAT(headings(), HasSubstr("type=\"htm\""));
  EXPECT_THAT(headings(), HasSubstr("type=\"pdf\""));
  EXPECT_THAT(headings(), HasSubstr("type=\"htm#top\""));
  EXPECT_THAT(headings(), HasSubstr("type=\"none\""));
}

TEST_F(BookXml, ReportsAnEmptyFileNameAndLeavesItsTypeOut) {
  generate("header\n\n" + line({.level = 2, .name = "A", .file = "Manual\\a.htm"}) +
           line({.level = 2, .name = "B"}));
  EXPECT_THAT(headings(),
              HasSubstr("\t\t<Heading level=\"H1\">\n"
                        "\t\t\t<HName>B</HName>\n"
                        "\t\t\t<HFile/>\n"));
  EXPECT_THAT(world_.user.record(),
              ElementsAre("critical: Error(9): Subscript out of range\r"
                          "Quorbind:CTOCToXML::mGenerateTypeAttribute"));
}

TEST_F(BookXml, NamesTheMainFileAndItsType) {
  generate(withLevels({1}), {.file = "report.pdf"});
  EXPECT_THAT(written(),
              HasSubstr("</Book_BuildDate>\n"
                        "\t\t<Book_File type=\"pdf\">report.pdf</Book_File>\n"
                        "\t\t<Book_Categories/>"));
}

TEST_F(BookXml, HasTheProductAloneAsPathWhenTheFolderIsEmpty) {
  EXPECT_EQ(generate("header\n\n" + line({.level = 1, .name = "B", .file = "\\cover.htm"})), "");
  EXPECT_THAT(written(), HasSubstr("<Book_Path>Prod</Book_Path>"));
}

TEST_F(BookXml, TakesTheFolderThatTheUserIsAskedFor) {
  world_.user.answerWith(enterFolder(" Manuals "));
  EXPECT_EQ(generate("header\n\n" + line({.level = 1, .name = "B", .file = "cover.htm"})),
            "Manuals");
  EXPECT_THAT(written(), HasSubstr("<Book_Path>Prod\\Manuals</Book_Path>"));
  EXPECT_FALSE(world_.module.bookFolder.isLoaded());
}

TEST_F(BookXml, NeverAsksForAFolderThatIsRemembered) {
  world_.user.answerWith(enterFolder("Manuals"));
  generate("header\n\n" + line({.level = 1, .name = "B"}));
  world_.user.forget();
  EXPECT_EQ(generate("header\n\n" + line({.level = 1, .name = "C"})), "Manuals");
  EXPECT_THAT(world_.user.record(), IsEmpty());
}

TEST_F(BookXml, ShowsTheFolderDialogAgainWhenItWasClosedEmpty) {
  world_.user.answerWith(closeForm());
  world_.user.answerWith([](ModalForm& form) {
    form.type("Text1", "  ");
    form.click("cmdOk");
  });
  world_.user.answerWith(enterFolder("Manuals"));
  EXPECT_EQ(generate("header\n\n" + line({.level = 1, .name = "B"})), "Manuals");
  EXPECT_THAT(world_.user.record(),
              ElementsAre("form frmBookFolder", "form frmBookFolder", "form frmBookFolder"));
}

TEST_F(BookXml, WritesNothingWhenTheUserCancelled) {
  world_.state().cancelled = true;
  world_.user.answerWith(closeForm());
  EXPECT_EQ(generate("header\n\n" + line({.level = 1, .name = "B"})), "");
  EXPECT_FALSE(world_.disk.has("in/Book_PST.xml"));
  EXPECT_EQ(world_.state().rememberedBookFolder, "");
}

TEST_F(BookXml, IsNotWrittenForAFolderThatLeadsOutOfTheLibrary) {
  EXPECT_EQ(generate("header\n\n" + line({.level = 1, .name = "B", .file = "..\\cover.htm"})), "");
  EXPECT_FALSE(world_.disk.has("in/Book_PST.xml"));
  EXPECT_THAT(world_.user.record(),
              ElementsAre("critical: Error:Book Folder leads out of the library: ..\\cover.htm"));
}

TEST_F(BookXml, OfLinesWithoutMarkersHasEmptyHeadingsAndABox) {
  world_.state().rememberedBookFolder = "Manual";
  EXPECT_EQ(generate("\"a\" \"b\" \"c\" \"d\"\n\n\"1\" \"B\" \"Manual\\c.htm\" \"\"\n"), "Manual");
  EXPECT_THAT(written(), HasSubstr("\t<Book_Headings/>\n"));
  EXPECT_THAT(world_.user.record(),
              ElementsAre("critical: Error(9): Subscript out of range\r"
                          "Quorbind:CTOCToXML::mGenerateBookHeadings"));
}

TEST_F(BookXml, EndsItsHeadingsAtALevelThatIsAWordBeforeTheFirstHeading) {
  generate("header\n\n" + line({.level = 1, .name = "B", .file = "Manual\\c.htm"}) +
           "$@@$x$@@$ $@@$A$@@$ $@@$Manual\\a.htm$@@$\n" + withLevels({2}));
  EXPECT_THAT(written(), HasSubstr("\t<Book_Headings/>\n"));
  EXPECT_THAT(world_.user.record(),
              ElementsAre("critical: Error(13): Type mismatch\r"
                          "Quorbind:CTOCToXML::mGenerateBookHeadings"));
}

TEST_F(BookXml, SkipsBadLinesAfterTheFirstHeading) {
  generate("header\n\n" + line({.level = 2, .name = "A", .file = "Manual\\a.htm"}) +
           "no markers\n" + "$@@$x$@@$ $@@$C$@@$ $@@$c.htm$@@$\n" +
           line({.level = 2, .name = "D", .file = "Manual\\d.htm"}));
  EXPECT_EQ(tree(), "(H1)(H1)");
  EXPECT_THAT(headings(), Not(HasSubstr("<HName>C</HName>")));
  EXPECT_THAT(world_.user.record(), IsEmpty());
}

TEST_F(BookXml, LosesOnlyWhatAShortLineLacks) {
  generate("header\n\n" + line({.level = 2, .name = "A", .file = "Manual\\a.htm"}) +
           "$@@$3$@@$ $@@$B$@@$\n" + line({.level = 2, .name = "C", .file = "Manual\\c.htm"}));
  EXPECT_EQ(headings(),
            "\t<Book_Headings>\n"
            "\t\t<Heading level=\"H1\" type=\"htm\">\n"
            "\t\t\t<HName>A</HName>\n"
            "\t\t\t<HFile>a.htm</HFile>\n"
            "\t\t\t<Heading level=\"H2\">\n"
            "\t\t\t\t<HName>B</HName>\n"
            "\t\t\t</Heading>\n"
            "\t\t</Heading>\n"
            "\t\t<Heading level=\"H1\" type=\"htm\">\n"
            "\t\t\t<HName>C</HName>\n"
            "\t\t\t<HFile>c.htm</HFile>\n"
            "\t\t</Heading>\n"
            "\t</Book_Headings>\n");
}

TEST_F(BookXml, StaysWellFormedWhateverTheLevelsAre) {
  generate(withLevels({1, 2, 1, 5, -7, 3, 9, 1, 2}));
  const auto document = world_.platform().xml.createDocument();
  EXPECT_TRUE(document->load("C:\\in\\Book_PST.xml"));
}

TEST_F(BookXml, ReplacesAnOlderFile) {
  world_.disk.write("in/Book_PST.xml", "old");
  generate(withLevels({1}));
  EXPECT_THAT(written(), Not(HasSubstr("old")));
}

TEST_F(BookXml, UnderstandsForwardSlashesInThePath) {
  EXPECT_EQ(generate(withLevels({1}), {.path = "C:/in/toc.txt"}), "Manual");
  EXPECT_TRUE(world_.disk.has("in/Book_PST.xml"));
}

TEST_F(BookXml, ReportsATableOfContentsThatIsNotThere) {
  EXPECT_EQ(generate("", {.path = "C:\\in\\none.txt"}), "");
  EXPECT_THAT(world_.user.record(),
              ElementsAre("critical: Error(53): File not found\r"
                          "Quorbind:CTOCToXML::GenereateXMLFromTOC"));
}

TEST_F(BookXml, IsStillWrittenWithoutAClockAndSaysWhatFailed) {
  world_.locale.breakDown();
  EXPECT_EQ(generate(withLevels({1, 2})), "Manual");
  EXPECT_EQ(tree(), "(H1)");
  EXPECT_THAT(world_.user.record(),
              ElementsAre("critical: Error(5): Invalid procedure call or argument\r"
                          "Quorbind:CTOCToXML::maddComment",
                          "critical: Error(5): Invalid procedure call or argument\r"
                          "Quorbind:CTOCToXML::mGenerateBookNode"));
}

TEST_F(BookXml, IsStillWrittenWithoutTheToolSetAndSaysWhatIsMissing) {
  world_.toolset.breakDown();
  EXPECT_EQ(generate(withLevels({1, 2})), "Manual");
  EXPECT_THAT(world_.user.record(),
              ElementsAre("critical: Error(429): ActiveX component can't create object\r"
                          "Quorbind:CTOCToXML::mGenerateBookNode",
                          "critical: Error(429): ActiveX component can't create object\r"
                          "Quorbind:CTOCToXML::mGenerateBookHeadings"));
}

}  // namespace
}  // namespace quorbind::testing
