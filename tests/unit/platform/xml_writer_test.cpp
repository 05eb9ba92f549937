#include "platform/xml_writer.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/support/raised_error.h"

namespace quorbind::testing {

namespace {

template <typename Steps>
std::string written(Steps&& steps) {
  std::string text;
  XmlWriter writer([&text](std::string_view piece) { text += piece; });
  steps(writer);
  writer.endDocument();
  return text;
}

template <typename Step>
std::int32_t errorOf(Step&& step) {
  std::int32_t number = 0;
  written([&](XmlWriter& writer) {
    writer.startElement("Book");
    number = errorRaisedBy([&] { step(writer); });
  });
  return number;
}

std::string asText(std::string_view text) {
  return written([&](XmlWriter& writer) { writer.textElement("T", text); });
}

std::string asAttribute(std::string_view value) {
  return written([&](XmlWriter& writer) {
    writer.startElement("T");
    writer.attribute("a", value);
  });
}

std::string asComment(std::string_view text) {
  return written([&](XmlWriter& writer) { writer.comment(text); });
}

TEST(XmlWriter, LaysADocumentOutWithOneTabPerDepth) {
  EXPECT_EQ(written([](XmlWriter& writer) {
              writer.startElement("Books");
              writer.startElement("Book");
              writer.textElement("Name", "Alarms");
              writer.textElement("Acro", "ALM");
              writer.endElement();
              writer.endElement();
            }),
            "<Books>\r\n"
            "\t<Book>\r\n"
            "\t\t<Name>Alarms</Name>\r\n"
            "\t\t<Acro>ALM</Acro>\r\n"
            "\t</Book>\r\n"
            "</Books>\r\n");
}

TEST(XmlWriter, MakesAnEmptyElementTagOfAnElementWithoutContent) {
  EXPECT_EQ(written([](XmlWriter& writer) {
              writer.startElement("Books");
              writer.endElement();
            }),
            "<Books/>\r\n");
}

TEST(XmlWriter, TakesAnEmptyTextForNoContent) {
  EXPECT_EQ(asText(""), "<T/>\r\n");
}

TEST(XmlWriter, KeepsATextOfBlanks) {
  EXPECT_EQ(asText("  "), "<T>  </T>\r\n");
}

TEST(XmlWriter, WritesAttributesInTheOrderGiven) {
  EXPECT_EQ(written([](XmlWriter& writer) {
              writer.startElement("Key");
              writer.attribute("ID", "7");
              writer.attribute("Kind", "");
              writer.text("Quor");
              writer.endElement();
            }),
            "<Key ID=\"7\" Kind=\"\">Quor</Key>\r\n");
}

TEST(XmlWriter, GivesEachCommentOutsideTheRootALine) {
  EXPECT_EQ(written([](XmlWriter& writer) {
              writer.comment(" one ");
              writer.comment("two");
              writer.startElement("Books");
              writer.endElement();
              writer.comment("three");
            }),
            "<!-- one -->\r\n"
            "<!--two-->\r\n"
            "<Books/>\r\n"
            "<!--three-->\r\n");
}

TEST(XmlWriter, LeavesTheLastLineOpenWhenItIsAskedTo) {
  std::string text;
  XmlWriter writer([&text](std::string_view piece) { text += piece; });
  writer.comment("one");
  writer.startElement("Books");
  writer.startElement("Book");
  writer.endDocument(XmlLastLine::kOpen);
  EXPECT_EQ(text, "<!--one-->\r\n<Books>\r\n\t<Book/>\r\n</Books>");
}

TEST(XmlWriter, GivesCommentsAndInstructionsInsideAnElementALineToo) {
  EXPECT_EQ(written([](XmlWriter& writer) {
              writer.startElement("Books");
              writer.comment("none yet");
              writer.instruction("sort", "by name");
              writer.instruction("end", "");
              writer.endElement();
            }),
            "<Books>\r\n"
            "\t<!--none yet-->\r\n"
            "\t<?sort by name?>\r\n"
            "\t<?end?>\r\n"
            "</Books>\r\n");
}

TEST(XmlWriter, AddsNothingInsideAnElementOnceItHasText) {
  EXPECT_EQ(written([](XmlWriter& writer) {
              writer.startElement("P");
              writer.text("see ");
              writer.startElement("B");
              writer.textElement("I", "this");
              writer.comment("or that");
              writer.endElement();
              writer.text("!");
              writer.endElement();
            }),
            "<P>see <B><I>this</I><!--or that--></B>!</P>\r\n");
}

TEST(XmlWriter, AddsNothingInsideAnElementThatIsLaidOutByTheCaller) {
  EXPECT_EQ(written([](XmlWriter& writer) {
              writer.startElement("P", XmlLayout::kAsWritten);
              writer.startElement("B", XmlLayout::kIndented);
              writer.textElement("I", "this");
            }),
            "<P><B><I>this</I></B></P>\r\n");
}

TEST(XmlWriter, GoesOnIndentingBehindAnElementWithText) {
  EXPECT_EQ(written([](XmlWriter& writer) {
              writer.startElement("Books");
              writer.textElement("Name", "A");
              writer.startElement("Book");
              writer.textElement("Name", "B");
            }),
            "<Books>\r\n"
            "\t<Name>A</Name>\r\n"
            "\t<Book>\r\n"
            "\t\t<Name>B</Name>\r\n"
            "\t</Book>\r\n"
            "</Books>\r\n");
}

TEST(XmlWriter, WritesMarkupCharactersOfATextAsReferences) {
  EXPECT_EQ(asText("a<b & c>d \"e\" 'f'"), "<T>a&lt;b &amp; c&gt;d \"e\" 'f'</T>\r\n");
}

TEST(XmlWriter, WritesLineEndsOfATextSoThatAParserGivesThemBack) {
  EXPECT_EQ(asText("a\nb\rc\td"), "<T>a\r\nb&#13;c\td</T>\r\n");
}

TEST(XmlWriter, WritesMarkupCharactersOfAnAttributeAsReferences) {
  EXPECT_EQ(asAttribute("a<b & c>d \"e\" 'f'"),
            "<T a=\"a&lt;b &amp; c&gt;d &quot;e&quot; 'f'\"/>\r\n");
}

TEST(XmlWriter, WritesLineEndsAndTabsOfAnAttributeAsReferences) {
  EXPECT_EQ(asAttribute("a\nb\rc\td"), "<T a=\"a&#10;b&#13;c&#9;d\"/>\r\n");
}

TEST(XmlWriter, WritesLettersOfAllLanguagesAsTheyAre) {
  EXPECT_EQ(asText("Übersicht 目录 😀"), "<T>Übersicht 目录 😀</T>\r\n");
  EXPECT_EQ(asAttribute("Übersicht 目录 😀"), "<T a=\"Übersicht 目录 😀\"/>\r\n");
}

TEST(XmlWriter, WritesWhatXmlCantHoldAsReplacementCharacters) {
  EXPECT_EQ(asText(std::string_view("a\0b\x01\x1F", 5)), "<T>a\uFFFDb\uFFFD\uFFFD</T>\r\n");
  EXPECT_EQ(asAttribute("\x0B"), "<T a=\"\uFFFD\"/>\r\n");
  EXPECT_EQ(asComment("\x0C"), "<!--\uFFFD-->\r\n");
  EXPECT_EQ(asText("\xEF\xBF\xBE and \xEF\xBF\xBF"), "<T>\uFFFD and \uFFFD</T>\r\n");
}

TEST(XmlWriter, WritesBytesThatAreNoCharacterAsReplacementCharacters) {
  EXPECT_EQ(asText("caf\xE9 au lait"), "<T>caf\uFFFD au lait</T>\r\n");
}

TEST(XmlWriter, LeavesMarkupInCommentsAndInstructionsAlone) {
  EXPECT_EQ(asComment(" <a> & \"b\" "), "<!-- <a> & \"b\" -->\r\n");
  EXPECT_EQ(written([](XmlWriter& writer) { writer.instruction("x", "a=\"<&>\""); }),
            "<?x a=\"<&>\"?>\r\n");
}

TEST(XmlWriter, WritesLineEndsInCommentsLikeItsOwnAndACrAsABlank) {
  EXPECT_EQ(asComment("a\nb\rc"), "<!--a\r\nb c-->\r\n");
}

TEST(XmlWriter, WritesCharacterDataWithoutReferences) {
  EXPECT_EQ(written([](XmlWriter& writer) {
              writer.startElement("T");
              writer.cdata("a<b & c");
            }),
            "<T><![CDATA[a<b & c]]></T>\r\n");
}

TEST(XmlWriter, SplitsCharacterDataThatHoldTheirOwnEnd) {
  EXPECT_EQ(written([](XmlWriter& writer) {
              writer.startElement("T");
              writer.cdata("a]]>b");
            }),
            "<T><![CDATA[a]]]]><![CDATA[>b]]></T>\r\n");
}

TEST(XmlWriter, EndsAllOpenElementsAtTheEndOfTheDocument) {
  EXPECT_EQ(written([](XmlWriter& writer) {
              writer.startElement("A");
              writer.startElement("B");
              writer.text("c");
            }),
            "<A>\r\n\t<B>c</B>\r\n</A>\r\n");
}

TEST(XmlWriter, KnowsHowManyElementsAreOpen) {
  XmlWriter writer([](std::string_view) {});
  EXPECT_EQ(writer.depth(), 0U);
  writer.startElement("A");
  writer.startElement("B");
  EXPECT_EQ(writer.depth(), 2U);
  writer.endElement();
  EXPECT_EQ(writer.depth(), 1U);
}

TEST(XmlWriter, RefusesAnAttributeBehindContent) {
  EXPECT_EQ(errorOf([](XmlWriter& writer) {
              writer.text("x");
              writer.attribute("a", "1");
            }),
            5);
}

TEST(XmlWriter, RefusesToEndWhatIsNotOpen) {
  EXPECT_EQ(errorOf([](XmlWriter& writer) {
              writer.endElement();
              writer.endElement();
            }),
            5);
}

TEST(XmlWriter, RefusesTextOutsideOfTheRoot) {
  EXPECT_EQ(errorOf([](XmlWriter& writer) {
              writer.endElement();
              writer.text("x");
            }),
            5);
  EXPECT_EQ(errorOf([](XmlWriter& writer) {
              writer.endElement();
              writer.cdata("x");
            }),
            5);
}

TEST(XmlWriter, RefusesCommentsAndInstructionsThatWouldEndEarly) {
  EXPECT_EQ(errorOf([](XmlWriter& writer) { writer.comment("a--b"); }), 5);
  EXPECT_EQ(errorOf([](XmlWriter& writer) { writer.comment("a-"); }), 5);
  EXPECT_EQ(errorOf([](XmlWriter& writer) { writer.instruction("x", "a?>b"); }), 5);
}

TEST(XmlWriter, HandsALongDocumentOverInPiecesThatEndBetweenCharacters) {
  constexpr int kElements = 20'000;
  std::vector<std::string> pieces;
  XmlWriter writer([&pieces](std::string_view piece) { pieces.emplace_back(piece); });
  writer.startElement("Books");
  std::string expected = "<Books>";
  for (int i = 0; i < kElements; ++i) {
    writer.textElement("Name", "目录");
    expected += "\r\n\t<Name>目录</Name>";
  }
  writer.endDocument();
  expected += "\r\n</Books>\r\n";

  std::string text;
  for (const std::string& piece : pieces) {
    EXPECT_EQ(xmlCharactersOnly(piece), piece);
    text += piece;
  }
  EXPECT_EQ(text, expected);
  EXPECT_GT(pieces.size(), 5U);
}

TEST(XmlCharactersOnly, KeepsWhatXmlCanHold) {
  EXPECT_EQ(xmlCharactersOnly("a\t\r\n<&>\" Ü 目 😀"), "a\t\r\n<&>\" Ü 目 😀");
}

TEST(XmlCharactersOnly, AreAskedForWithTheSameAnswer) {
  for (const std::string_view text : {"",
                                      "a\t\r\n<&>\" Ü 目 😀",
                                      "\x08",
                                      "a\x1F",
                                      "\xEF\xBF\xBE",
                                      "\x80",
                                      "\xC3",
                                      "\xED\xA0\x80"}) {
    EXPECT_EQ(isXmlCharactersOnly(text), xmlCharactersOnly(text) == text) << text;
  }
}

TEST(XmlCharactersOnly, ReplacesEveryOtherCharacter) {
  EXPECT_EQ(xmlCharactersOnly(std::string_view("\0\x08\x0B\x0C\x0E\x1F", 6)),
            "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(xmlCharactersOnly("\xEF\xBF\xBE|\xEF\xBF\xBF"), "\uFFFD|\uFFFD");
}

TEST(XmlCharactersOnly, ReplacesEveryByteThatIsNoCharacter) {
  EXPECT_EQ(xmlCharactersOnly("\x80|\xC3|\xED\xA0\x80"), "\uFFFD|\uFFFD|\uFFFD\uFFFD\uFFFD");
}

}  // namespace

}  // namespace quorbind::testing
