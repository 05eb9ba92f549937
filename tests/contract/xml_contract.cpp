#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/runtime_error.h"
#include "platform/xml_document.h"
#include "platform/xml_writer.h"
#include "tests/contract/adapters.h"
#include "tests/support/damaged_xml.h"
#include "tests/support/raised_error.h"
#include "tests/support/random_xml.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {

namespace {

using namespace std::string_literals;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

constexpr std::int32_t kInvalidCall = 5;
constexpr std::string_view kPath = "C:\\book.xml";

std::vector<std::string> namesOf(const std::vector<XmlNode>& nodes) {
  std::vector<std::string> names;
  names.reserve(nodes.size());
  for (const XmlNode& node : nodes) {
    names.push_back(node.name());
  }
  return names;
}

std::vector<std::string> textsOf(const std::vector<XmlNode>& nodes) {
  std::vector<std::string> texts;
  texts.reserve(nodes.size());
  for (const XmlNode& node : nodes) {
    texts.push_back(node.text());
  }
  return texts;
}

std::string nestedElements(int depth) {
  std::string bytes;
  for (int i = 0; i < depth; ++i) {
    bytes += "<a>";
  }
  for (int i = 0; i < depth; ++i) {
    bytes += "</a>";
  }
  return bytes;
}

/// `C:\book.xml` is the file `book.xml` in the folder `disk_`.
class XmlContract : public ::testing::Test {
 protected:
  XmlLoadResult loadFile(std::string_view bytes) {
    disk_.write("book.xml", bytes);
    return document_->load(kPath);
  }
  /// Loads a document that is expected to load, and answers its root.
  XmlNode load(std::string_view bytes) {
    const XmlLoadResult result = loadFile(bytes);
    EXPECT_TRUE(result) << result.reason;
    return document_->documentElement();
  }
  std::string saved() {
    document_->save(kPath);
    return disk_.read("book.xml");
  }
  std::string savedAfterLoading(std::string_view bytes) {
    load(bytes);
    return saved();
  }

  TemporaryFolder disk_;
  std::unique_ptr<Adapters> adapters_ = makeAdapters(disk_.path());
  std::unique_ptr<XmlDocument> document_ = adapters_->xml().createDocument();
};

// Loading

TEST_F(XmlContract, AWellFormedFileLoads) {
  const XmlLoadResult result = loadFile("<Books><Book/></Books>");

  EXPECT_TRUE(result.loaded);
  EXPECT_TRUE(result);
  EXPECT_EQ(document_->documentElement().name(), "Books");
}

TEST_F(XmlContract, AFileThatIsNotThereIsAFailedLoad) {
  EXPECT_FALSE(document_->load("C:\\missing.xml"));
  EXPECT_FALSE(document_->load("C:\\no folder\\missing.xml"));
}

TEST_F(XmlContract, AFolderIsAFailedLoad) {
  disk_.makeFolder("Docs");

  EXPECT_FALSE(document_->load("C:\\Docs"));
}

TEST_F(XmlContract, AnEmptyFileIsAFailedLoad) {
  EXPECT_FALSE(loadFile(""));
}

TEST_F(XmlContract, AFileThatDoesNotParseIsAFailedLoad) {
  EXPECT_FALSE(loadFile("<Books><Book></Books>"));
  EXPECT_FALSE(loadFile("<Books>"));
  EXPECT_FALSE(loadFile("<Books/><Books/>"));
  EXPECT_FALSE(loadFile("<Books a=1/>"));
  EXPECT_FALSE(loadFile("<Books a='1' a='2'/>"));
  EXPECT_FALSE(loadFile("<Books>&unknown;</Books>"));
  EXPECT_FALSE(loadFile("just text"));
}

TEST_F(XmlContract, AFileInAnotherEncodingThanItDeclaresIsAFailedLoad) {
  EXPECT_FALSE(loadFile(R"(<?xml version="1.0" encoding="UTF-16"?><Books/>)"));
  EXPECT_FALSE(loadFile("<?xml version=\"1.0\" encoding=\"UTF-8\"?><Books>caf\xE9</Books>"));
}

TEST_F(XmlContract, AnUnknownEncodingIsAFailedLoad) {
  EXPECT_FALSE(loadFile(R"(<?xml version="1.0" encoding="no-such-encoding"?><Books/>)"));
}

TEST_F(XmlContract, APrefixThatIsNotDeclaredIsAFailedLoad) {
  EXPECT_FALSE(loadFile("<Books><q:Book/></Books>"));
  EXPECT_FALSE(loadFile("<Books q:kind='1'/>"));
}

TEST_F(XmlContract, AFailedLoadLeavesAnEmptyDocument) {
  load("<Books/>");

  EXPECT_FALSE(loadFile("<Books>"));
  EXPECT_FALSE(document_->documentElement());
}

TEST_F(XmlContract, ALoadReplacesWhatTheDocumentHeld) {
  load("<Books/>");

  EXPECT_EQ(load("<Book_Master/>").name(), "Book_Master");
}

TEST_F(XmlContract, ADocumentTypeDeclarationIsAFailedLoad) {
  EXPECT_FALSE(loadFile("<!DOCTYPE Books><Books/>"));
  EXPECT_FALSE(loadFile("<!DOCTYPE Books SYSTEM 'books.dtd'><Books/>"));
  EXPECT_FALSE(loadFile("<!DOCTYPE Books [<!ENTITY a 'b'>]><Books>&a;</Books>"));
}

TEST_F(XmlContract, NoExternalEntityIsRead) {
  disk_.write("secret.txt", "secret");

  EXPECT_FALSE(loadFile("<!DOCTYPE a [<!ENTITY s SYSTEM 'secret.txt'>]><a>&s;</a>"));
  EXPECT_FALSE(document_->documentElement());
}

TEST_F(XmlContract, ElementsMayStandInsideEachOtherAsDeepAsTheBound) {
  EXPECT_TRUE(loadFile(nestedElements(kMaximumXmlDepth)));
}

TEST_F(XmlContract, ElementsDeeperInsideEachOtherThanTheBoundAreAFailedLoad) {
  const XmlLoadResult result = loadFile(nestedElements(kMaximumXmlDepth + 1));

  EXPECT_FALSE(result);
  EXPECT_THAT(result.reason, Not(IsEmpty()));
}

TEST_F(XmlContract, ALongTextLoadsWhole) {
  std::string text;
  text.resize(12'000'000, 'x');

  EXPECT_TRUE(load("<a>" + text + "</a>").text() == text);
}

// Line and reason of a failed load

TEST_F(XmlContract, LineAndReasonTellWhereAFileDoesNotParse) {
  const XmlLoadResult result = loadFile("<Books>\n<Book>\n</Books>\n");

  EXPECT_EQ(result.line, 3);
  EXPECT_THAT(result.reason, Not(IsEmpty()));
  EXPECT_THAT(result.reason, Not(HasSubstr("\n")));
}

TEST_F(XmlContract, ColumnOfAFailedLoadIsOnTheLineAtFault) {
  const XmlLoadResult result = loadFile("<Books>\n<Book>äöü</Boook>\n</Books>\n");

  EXPECT_EQ(result.line, 2);
  EXPECT_GE(result.column, 10);
  EXPECT_LE(result.column, 18);
}

TEST_F(XmlContract, LineAndReasonCountLinesThatEndWithCrLf) {
  EXPECT_EQ(loadFile("<Books>\r\n<Book>\r\n<\r\n").line, 3);
}

TEST_F(XmlContract, LineAndReasonAreThoseOfTheFirstFault) {
  EXPECT_EQ(loadFile("<Books>\n<Book a=1/>\n<Book>\n</Books>\n").line, 2);
}

TEST_F(XmlContract, LineAndReasonNameADocumentTypeDeclaration) {
  const XmlLoadResult result = loadFile("<?xml version='1.0'?>\n\n<!DOCTYPE Books>\n<Books/>\n");

  EXPECT_EQ(result.line, 3);
  EXPECT_THAT(result.reason, HasSubstr("document type declaration"));
}

TEST_F(XmlContract, LineAndReasonOfAFileThatIsNotThereBlameNoLine) {
  const XmlLoadResult result = document_->load("C:\\missing.xml");

  EXPECT_EQ(result.line, 0);
  EXPECT_EQ(result.column, 0);
  EXPECT_EQ(result.reason, "The system cannot locate the object specified.");
}

TEST_F(XmlContract, LineAndReasonOfAFolderBlameNoLine) {
  disk_.makeFolder("Docs");
  const XmlLoadResult result = document_->load("C:\\Docs");

  EXPECT_EQ(result.line, 0);
  EXPECT_THAT(result.reason, Not(IsEmpty()));
}

TEST_F(XmlContract, LineAndReasonOfASuccessAreEmpty) {
  const XmlLoadResult result = loadFile("<Books/>");

  EXPECT_EQ(result.line, 0);
  EXPECT_THAT(result.reason, IsEmpty());
}

// Nodes

TEST_F(XmlContract, ANodeHasItsQualifiedName) {
  const XmlNode books = load("<q:Books xmlns:q='urn:q' q:kind='1' plain='2'/>");

  EXPECT_EQ(books.name(), "q:Books");
  EXPECT_EQ(books.attribute("q:kind").name(), "q:kind");
  EXPECT_EQ(books.attribute("plain").name(), "plain");
}

TEST_F(XmlContract, ACopyOfAReferenceStandsForTheSameNode) {
  const XmlNode books = load("<Books/>");
  XmlNode copy = books;
  copy.setText("1");
  copy = XmlNode();

  EXPECT_EQ(books.text(), "1");
}

TEST_F(XmlContract, CommentsTextsAndInstructionsHaveNamesToo) {
  EXPECT_THAT(namesOf(load("<a>text<!--c--><?sort by name?><![CDATA[data]]></a>").children()),
              ElementsAre("#text", "#comment", "sort", "#text"));
}

TEST_F(XmlContract, OnlyElementsAreElements) {
  const XmlNode a = load("<a kind='1'><b/>text<!--c--><?d?></a>");

  EXPECT_TRUE(a.isElement());
  EXPECT_FALSE(a.attribute("kind").isElement());
  const std::vector<XmlNode> children = a.children();
  ASSERT_THAT(children, SizeIs(4));
  EXPECT_TRUE(children[0].isElement());
  EXPECT_FALSE(children[1].isElement());
  EXPECT_FALSE(children[2].isElement());
  EXPECT_FALSE(children[3].isElement());
}

TEST_F(XmlContract, WhiteSpaceThatLaysAnElementOutIsNoChild) {
  const XmlNode books = load("<Books>\r\n\t<Book/>\r\n\t<!--c-->\r\n\t<?d?>\r\n</Books>");

  EXPECT_THAT(namesOf(books.children()), ElementsAre("Book", "#comment", "d"));
  EXPECT_EQ(books.text(), "");
}

TEST_F(XmlContract, WhiteSpaceBetweenTheElementsOfAMixedTextIsNoChildEither) {
  EXPECT_THAT(namesOf(load("<p>see <b>this</b> <i>or that</i></p>").children()),
              ElementsAre("#text", "b", "i"));
}

TEST_F(XmlContract, OnlyElementsHaveChildren) {
  const XmlNode a = load("<a kind='1'>text<!--c--><?d e?></a>");

  EXPECT_FALSE(a.attribute("kind").firstChild());
  for (const XmlNode& child : a.children()) {
    EXPECT_FALSE(child.firstChild()) << child.name();
  }
}

TEST_F(XmlContract, AnElementWithoutChildrenHasNoFirstChild) {
  EXPECT_FALSE(load("<a></a>").firstChild());
  EXPECT_FALSE(load("<a>  </a>").firstChild());
}

TEST_F(XmlContract, SiblingsFollowInDocumentOrder) {
  const XmlNode first = load("<a><b/><c/><d/></a>").firstChild();

  EXPECT_EQ(first.name(), "b");
  EXPECT_EQ(first.nextSibling().name(), "c");
  EXPECT_EQ(first.nextSibling().nextSibling().name(), "d");
  EXPECT_FALSE(first.nextSibling().nextSibling().nextSibling());
}

TEST_F(XmlContract, AChildIsFoundByItsName) {
  const XmlNode book = load("<Book><Acro>A</Acro><Name>1</Name><Name>2</Name></Book>");

  EXPECT_EQ(book.child("Name").text(), "1");
  EXPECT_FALSE(book.child("name"));
}

// Text

TEST_F(XmlContract, TextIsNeverTrimmed) {
  EXPECT_EQ(load("<a>  two blanks,\n a line  </a>").text(), "  two blanks,\n a line  ");
}

TEST_F(XmlContract, WhiteSpaceThatIsAllAnElementHasIsItsText) {
  EXPECT_EQ(load("<a>  </a>").text(), "  ");
}

TEST_F(XmlContract, AnElementsTextIsThatOfEverythingBelowIt) {
  EXPECT_EQ(load("<a>1<b>2<c>3</c></b>4</a>").text(), "1234");
  EXPECT_EQ(load("<a>\n  <b>1</b>\n  <b>2</b>\n</a>").text(), "12");
}

TEST_F(XmlContract, AnElementsTextHasTheWhiteSpaceBetweenMixedContent) {
  EXPECT_EQ(load("<p>see <b>this</b> <i>or <u>that</u> <u>one</u></i></p>").text(),
            "see this or that one");
}

TEST_F(XmlContract, AnElementsTextLeavesCommentsAndInstructionsOut) {
  EXPECT_EQ(load("<a>1<!--no--><?no no?>2</a>").text(), "12");
}

TEST_F(XmlContract, CharacterDataAreText) {
  EXPECT_EQ(load("<a>1<![CDATA[<2> & ]]>3</a>").text(), "1<2> & 3");
}

TEST_F(XmlContract, ReferencesInTextsAndAttributesAreResolved) {
  const XmlNode a = load("<a b='&lt;&amp;&quot;&apos;&#65;'>&lt;&amp;&gt;&#x42;</a>");

  EXPECT_EQ(a.text(), "<&>B");
  EXPECT_EQ(a.attribute("b").text(), "<&\"'A");
}

TEST_F(XmlContract, TheTextOfOtherNodesIsTheirValue) {
  const std::vector<XmlNode> children = load("<a>text<!-- c --><?d e f?></a>").children();

  EXPECT_THAT(textsOf(children), ElementsAre("text", " c ", "e f"));
}

TEST_F(XmlContract, SetTextReplacesEverythingBelowAnElement) {
  const XmlNode a = load("<a>1<b>2</b><!--c--></a>");
  a.setText("new <text>");

  EXPECT_EQ(a.text(), "new <text>");
  EXPECT_THAT(namesOf(a.children()), ElementsAre("#text"));
}

TEST_F(XmlContract, SetTextGivesAnEmptyElementAText) {
  const XmlNode a = load("<a/>");
  a.setText("1");
  a.setText("2");

  EXPECT_EQ(a.text(), "2");
}

TEST_F(XmlContract, AnEmptyTextLeavesAnElementWithoutChildren) {
  const XmlNode a = load("<a>1</a>");
  a.setText("");

  EXPECT_FALSE(a.firstChild());
  EXPECT_EQ(saved(), "<a/>\r\n");
}

TEST_F(XmlContract, SetTextGivesOtherNodesAnotherValue) {
  const XmlNode a = load("<a b='1'>text<!--c--><?d e?><![CDATA[f]]></a>");
  a.attribute("b").setText("new <b>");
  for (const XmlNode& child : a.children()) {
    child.setText("new " + child.name());
  }

  EXPECT_EQ(saved(),
            "<a b=\"new &lt;b&gt;\">new #text<!--new #comment--><?d new d?>new #text</a>\r\n");
}

TEST_F(XmlContract, ACommentTakesNoTextThatWouldEndIt) {
  const XmlNode comment = load("<a><!--c--></a>").firstChild();

  EXPECT_EQ(errorRaisedBy([&] { comment.setText("a--b"); }), kInvalidCall);
  EXPECT_EQ(errorRaisedBy([&] { comment.setText("a-"); }), kInvalidCall);
  EXPECT_EQ(comment.text(), "c");
}

TEST_F(XmlContract, AnInstructionTakesNoTextThatWouldEndIt) {
  const XmlNode instruction = load("<a><?b c?></a>").firstChild();

  EXPECT_EQ(errorRaisedBy([&] { instruction.setText("d?>e"); }), kInvalidCall);
  EXPECT_EQ(instruction.text(), "c");
}

TEST_F(XmlContract, WhatXmlCantHoldIsStoredAsAReplacementCharacter) {
  const XmlNode a = load("<a/>");
  a.setText("1\x01"s + '\0' + "2");
  a.setAttribute("b", "\x02");

  EXPECT_EQ(a.text(), "1\uFFFD\uFFFD2");
  EXPECT_EQ(a.attribute("b").text(), "\uFFFD");
}

TEST_F(XmlContract, TextsThatWereSetComeBackAfterSavingAndLoading) {
  const std::string text = " a<b & c>d \"e\" 'f' ]]> \r Ü 目录 😀 ";
  const XmlNode a = load("<?xml version='1.0'?><a b=''/>");
  a.setText(text);
  a.setAttribute("b", text + "\t\n");
  saved();
  ASSERT_TRUE(document_->load(kPath));

  EXPECT_EQ(document_->documentElement().text(), text);
  EXPECT_EQ(document_->documentElement().attribute("b").text(), text + "\t\n");
}

// Attributes

TEST_F(XmlContract, AttributesFollowEachOtherInTheOrderOfTheFile) {
  const XmlNode first = load("<a x='1' y='2'/>").firstAttribute();

  EXPECT_EQ(first.name() + "=" + first.text(), "x=1");
  EXPECT_EQ(first.nextSibling().name() + "=" + first.nextSibling().text(), "y=2");
  EXPECT_FALSE(first.nextSibling().nextSibling());
}

TEST_F(XmlContract, ANodeWithoutAttributesHasNone) {
  const XmlNode a = load("<a>text</a>");

  EXPECT_FALSE(a.firstAttribute());
  EXPECT_FALSE(a.attribute("x"));
  EXPECT_FALSE(a.firstChild().firstAttribute());
  EXPECT_FALSE(a.firstChild().attribute("x"));
}

TEST_F(XmlContract, AttributesAreFoundByTheirExactName) {
  const XmlNode a = load("<a ID='7'/>");

  EXPECT_EQ(a.attribute("ID").text(), "7");
  EXPECT_FALSE(a.attribute("id"));
}

TEST_F(XmlContract, DeclarationsOfNamespacesAreNoAttributes) {
  const XmlNode a = load("<a xmlns='urn:a' xmlns:q='urn:q'/>");

  EXPECT_FALSE(a.firstAttribute());
  EXPECT_FALSE(a.attribute("xmlns"));
  EXPECT_FALSE(a.attribute("xmlns:q"));
}

TEST_F(XmlContract, SetAttributeAddsBehindTheOthersOrReplacesInPlace) {
  const XmlNode a = load("<a x='1' y='2'/>");
  a.setAttribute("z", "3");
  a.setAttribute("x", "new");

  EXPECT_EQ(saved(), "<a x=\"new\" y=\"2\" z=\"3\"/>\r\n");
}

TEST_F(XmlContract, AnAttributeThatWasReplacedIsStillTheSameNode) {
  const XmlNode a = load("<a x='1'/>");
  const XmlNode x = a.attribute("x");
  a.setAttribute("x", "2");

  EXPECT_EQ(x.text(), "2");
}

TEST_F(XmlContract, SetAttributeTakesAPrefixThatIsDeclared) {
  const XmlNode a = load("<a xmlns:q='urn:q'><b/></a>");
  a.firstChild().setAttribute("q:kind", "1");
  a.firstChild().setAttribute("q:kind", "2");
  a.firstChild().setAttribute("xml:space", "preserve");

  EXPECT_EQ(saved(),
            "<a xmlns:q=\"urn:q\">\r\n"
            "\t<b q:kind=\"2\" xml:space=\"preserve\"/>\r\n"
            "</a>\r\n");
}

TEST_F(XmlContract, SetAttributeRaises5ForWhatCanBeNoAttribute) {
  const XmlNode a = load("<a>text</a>");

  EXPECT_EQ(errorRaisedBy([&] { a.setAttribute("", "1"); }), kInvalidCall);
  EXPECT_EQ(errorRaisedBy([&] { a.setAttribute("two words", "1"); }), kInvalidCall);
  EXPECT_EQ(errorRaisedBy([&] { a.setAttribute("q:kind", "1"); }), kInvalidCall);
  EXPECT_EQ(errorRaisedBy([&] { a.setAttribute(":kind", "1"); }), kInvalidCall);
  EXPECT_EQ(errorRaisedBy([&] { a.setAttribute("xmlns", "urn:a"); }), kInvalidCall);
  EXPECT_EQ(errorRaisedBy([&] { a.setAttribute("xmlns:q", "urn:q"); }), kInvalidCall);
  EXPECT_EQ(errorRaisedBy([&] { a.firstChild().setAttribute("x", "1"); }), kInvalidCall);
}

// Selecting

TEST_F(XmlContract, AQueryStartsAtItsNode) {
  const XmlNode books =
      load("<Books><Book><Name>1</Name></Book><Book><Name>2</Name></Book></Books>");
  const XmlNode second = books.children().at(1);

  EXPECT_EQ(second.select("Name").text(), "2");
  EXPECT_THAT(textsOf(second.selectAll("//Name")), ElementsAre("1", "2"));
  EXPECT_EQ(second.select("..").name(), "Books");
}

TEST_F(XmlContract, AQueryOfTheDocumentStartsAboveItsRoot) {
  load("<Books><Book/></Books>");

  EXPECT_EQ(document_->select("Books/Book").name(), "Book");
  EXPECT_EQ(document_->select("/Books").name(), "Books");
  EXPECT_FALSE(document_->select("Book"));
}

TEST_F(XmlContract, AQueryFindsByValue) {
  const XmlNode books = load(
      "<Books><Book ID='1'><Name>A</Name></Book><Book ID='2'><Name>Driver's</Name></Book></Books>");

  EXPECT_EQ(books.select("Book[Name=\"Driver's\"]").attribute("ID").text(), "2");
  EXPECT_EQ(books.select("Book[@ID='1']/Name").text(), "A");
  EXPECT_FALSE(books.select("Book[Name='a']"));
}

TEST_F(XmlContract, MatchesComeInDocumentOrder) {
  const XmlNode a = load("<a><b>1</b><c>2</c><b>3</b><c>4</c></a>");

  EXPECT_THAT(textsOf(a.selectAll("c | b")), ElementsAre("1", "2", "3", "4"));
  EXPECT_THAT(textsOf(a.children().at(3).selectAll("preceding-sibling::*")),
              ElementsAre("1", "2", "3"));
  EXPECT_EQ(a.children().at(3).select("preceding-sibling::*").text(), "1");
}

TEST_F(XmlContract, AttributesTextsCommentsAndInstructionsCanBeSelected) {
  const XmlNode a = load("<a b='1'>2<!--3--><?c 4?></a>");

  EXPECT_EQ(a.select("@b").text(), "1");
  EXPECT_EQ(a.select("text()").text(), "2");
  EXPECT_EQ(a.select("comment()").text(), "3");
  EXPECT_EQ(a.select("processing-instruction('c')").text(), "4");
}

TEST_F(XmlContract, TheDocumentNamespacesAndTextsOfWhiteSpaceAreNoMatches) {
  const XmlNode a = load("<a xmlns:q='urn:q'>see <b/> <b/></a>");

  EXPECT_FALSE(document_->select("/"));
  EXPECT_FALSE(a.select(".."));
  EXPECT_FALSE(a.select("namespace::*"));
  EXPECT_THAT(textsOf(a.selectAll("text()")), ElementsAre("see "));
}

TEST_F(XmlContract, WithoutAMatchThereIsNoNode) {
  const XmlNode a = load("<a/>");

  EXPECT_FALSE(a.select("b"));
  EXPECT_THAT(a.selectAll("b"), IsEmpty());
}

TEST_F(XmlContract, AnEmptyDocumentHasNoMatch) {
  EXPECT_FALSE(document_->select("//*"));
  EXPECT_THAT(document_->selectAll("//*"), IsEmpty());
  EXPECT_THAT(document_->elementsByName("a"), IsEmpty());
  EXPECT_FALSE(document_->documentElement());
}

TEST_F(XmlContract, AnInvalidQueryRaisesItsError) {
  const XmlNode a = load("<a/>");

  for (const std::string& query :
       {""s, "b["s, "b[c='d]"s, "q:b"s, "$b"s, "no-such-function()"s, "b\0c"s}) {
    EXPECT_EQ(errorRaisedBy([&] { (void)a.selectAll(query); }), kInvalidQueryError) << query;
    EXPECT_EQ(errorRaisedBy([&] { (void)document_->select(query); }), kInvalidQueryError) << query;
  }
}

TEST_F(XmlContract, AQueryForSomethingElseThanNodesRaisesTheErrorOfAnInvalidOne) {
  const XmlNode a = load("<a/>");

  EXPECT_EQ(errorRaisedBy([&] { (void)a.select("count(*)"); }), kInvalidQueryError);
  EXPECT_EQ(errorRaisedBy([&] { (void)a.select("'text'"); }), kInvalidQueryError);
  EXPECT_EQ(errorRaisedBy([&] { (void)a.select("1 = 1"); }), kInvalidQueryError);
}

TEST_F(XmlContract, AnInvalidQueryDoesNotSpoilTheNextOne) {
  const XmlNode a = load("<a><b/></a>");

  EXPECT_EQ(errorRaisedBy([&] { (void)a.select("b["); }), kInvalidQueryError);
  EXPECT_EQ(a.select("b").name(), "b");
}

TEST_F(XmlContract, ElementsAreFoundByNameWhereverTheyStand) {
  load("<b n='1'><a><b n='2'><b n='3'/></b></a><!--b--><b n='4'/><c/></b>");

  std::string numbers;
  for (const XmlNode& element : document_->elementsByName("b")) {
    numbers += element.attribute("n").text();
  }
  EXPECT_EQ(numbers, "1234");
}

TEST_F(XmlContract, ElementsAreFoundByTheirQualifiedName) {
  load("<a xmlns:q='urn:q'><q:b/><b/></a>");

  EXPECT_THAT(document_->elementsByName("q:b"), SizeIs(1));
  EXPECT_THAT(document_->elementsByName("b"), SizeIs(1));
  EXPECT_THAT(document_->elementsByName("B"), IsEmpty());
  EXPECT_THAT(document_->elementsByName("q:B"), IsEmpty());
}

TEST_F(XmlContract, ANameWithoutAPrefixFindsTheElementsOfADefaultNamespace) {
  load("<a><b xmlns='urn:q'/><b/></a>");

  EXPECT_THAT(document_->elementsByName("b"), SizeIs(2));
  EXPECT_THAT(document_->selectAll("a/b"), SizeIs(1));
}

TEST_F(XmlContract, ADocumentIsAskedAsItStandsAfterEachChange) {
  const XmlNode books = load("<L><B><N>1</N></B><B><N>2</N></B><B><N>3</N></B></L>");
  const auto expectBooks = [&](const std::string& expected) {
    std::string found;
    std::string named;
    for (const XmlNode& name : document_->elementsByName("N")) {
      named += name.text();
      if (document_->select("L/B[N='" + name.text() + "']/N").text() == name.text()) {
        found += name.text();
      }
    }
    EXPECT_EQ(named, expected);
    EXPECT_EQ(found, expected);
    EXPECT_THAT(document_->selectAll("L/B/N"), SizeIs(expected.size()));
  };
  expectBooks("123");

  document_->select("L/B[N='2']/N").setText("4");
  expectBooks("143");
  EXPECT_FALSE(document_->select("L/B[N='2']"));

  const XmlNode book = document_->createElement("B");
  const XmlNode name = document_->createElement("N");
  name.setText("5");
  book.append(name);
  expectBooks("143");
  books.insertBefore(book, books.firstChild());
  expectBooks("5143");

  books.remove(document_->select("L/B[N='1']"));
  expectBooks("543");

  document_->select("L/B[N='4']").setText("none");
  expectBooks("53");
}

TEST_F(XmlContract, AnEmptiedElementIsAskedForNothingThatItHeld) {
  load("<L><B><N>1</N></B><B/></L>");

  document_->select("L/B[N='1']").setText("");

  EXPECT_THAT(document_->elementsByName("N"), IsEmpty());
  EXPECT_THAT(document_->selectAll("L/B[N='1']"), IsEmpty());
  EXPECT_THAT(document_->selectAll("L/B"), SizeIs(2));
}

// Changing

TEST_F(XmlContract, ANewElementStandsNowhere) {
  const XmlNode a = load("<a/>");
  const XmlNode b = document_->createElement("b");

  EXPECT_EQ(b.name(), "b");
  EXPECT_EQ(b.text(), "");
  EXPECT_FALSE(b.nextSibling());
  EXPECT_FALSE(a.firstChild());
}

TEST_F(XmlContract, ANewElementCanBeFilledBeforeItIsPutAnywhere) {
  const XmlNode a = load("<a/>");
  const XmlNode b = document_->createElement("b");
  const XmlNode c = document_->createElement("c");
  c.setText("1");
  b.append(c);
  b.setAttribute("x", "2");
  a.append(b);

  EXPECT_EQ(saved(), "<a>\r\n\t<b x=\"2\">\r\n\t\t<c>1</c>\r\n\t</b>\r\n</a>\r\n");
}

TEST_F(XmlContract, AnElementCanBeMadeInAnEmptyDocument) {
  const XmlNode b = document_->createElement("b");
  b.setText("1");

  EXPECT_EQ(b.text(), "1");
  EXPECT_FALSE(document_->documentElement());
}

TEST_F(XmlContract, WhatIsNoNameMakesNoElement) {
  EXPECT_EQ(errorRaisedBy([&] { (void)document_->createElement(""); }), kInvalidCall);
  EXPECT_EQ(errorRaisedBy([&] { (void)document_->createElement("1st"); }), kInvalidCall);
  EXPECT_EQ(errorRaisedBy([&] { (void)document_->createElement("two words"); }), kInvalidCall);
  EXPECT_EQ(errorRaisedBy([&] { (void)document_->createElement("q:b"); }), kInvalidCall);
}

TEST_F(XmlContract, AppendPutsAChildBehindTheLastOne) {
  const XmlNode a = load("<a><b/></a>");
  a.append(document_->createElement("c"));
  a.append(document_->createElement("d"));

  EXPECT_THAT(namesOf(a.children()), ElementsAre("b", "c", "d"));
}

TEST_F(XmlContract, InsertBeforePutsAChildInFrontOfAnother) {
  const XmlNode a = load("<a><b/><c/></a>");
  a.insertBefore(document_->createElement("x"), a.child("b"));
  a.insertBefore(document_->createElement("y"), a.child("c"));
  a.insertBefore(document_->createElement("z"), XmlNode());

  EXPECT_THAT(namesOf(a.children()), ElementsAre("x", "b", "y", "c", "z"));
}

TEST_F(XmlContract, AChildThatStandsElsewhereIsMoved) {
  const XmlNode a = load("<a><b><c>1</c></b><d/></a>");
  a.child("d").append(a.child("b").child("c"));

  EXPECT_FALSE(a.child("b").firstChild());
  EXPECT_EQ(a.child("d").text(), "1");
}

TEST_F(XmlContract, AChildCanBeMovedAmongItsSiblings) {
  const XmlNode a = load("<a><b/><c/><d/></a>");
  a.insertBefore(a.child("d"), a.child("b"));
  a.append(a.child("b"));
  a.insertBefore(a.child("c"), a.child("c"));

  EXPECT_THAT(namesOf(a.children()), ElementsAre("d", "c", "b"));
}

TEST_F(XmlContract, TextsThatComeToStandTogetherStayNodes) {
  const XmlNode a = load("<a>1<b/>2</a>");
  const XmlNode one = a.firstChild();
  const XmlNode two = a.children().at(2);
  a.insertBefore(two, one);

  EXPECT_EQ(one.text(), "1");
  EXPECT_EQ(two.text(), "2");
  EXPECT_EQ(saved(), "<a>21<b/></a>\r\n");
}

TEST_F(XmlContract, AnElementThatIsMovedTakesItsNamespacesAlong) {
  const XmlNode a = load("<a><b xmlns:q='urn:q'><q:c q:d='1'/></b></a>");
  a.append(a.child("b").firstChild());

  ASSERT_TRUE(load(saved()));
  EXPECT_EQ(document_->select("a/*[namespace-uri()='urn:q']/@*[namespace-uri()='urn:q']").text(),
            "1");
}

TEST_F(XmlContract, WhatWouldBeNoTreeIsRefused) {
  const XmlNode a = load("<a x='1'>text<b><c/></b></a>");
  const XmlNode b = a.child("b");
  const XmlNode c = b.child("c");
  const XmlNode text = a.firstChild();
  const std::unique_ptr<XmlDocument> other = adapters_->xml().createDocument();

  EXPECT_EQ(errorRaisedBy([&] { c.append(b); }), kInvalidCall);
  EXPECT_EQ(errorRaisedBy([&] { b.append(b); }), kInvalidCall);
  EXPECT_EQ(errorRaisedBy([&] { b.append(a.attribute("x")); }), kInvalidCall);
  EXPECT_EQ(errorRaisedBy([&] { text.append(b); }), kInvalidCall);
  EXPECT_EQ(errorRaisedBy([&] { b.append(other->createElement("d")); }), kInvalidCall);
  EXPECT_EQ(errorRaisedBy([&] { a.insertBefore(document_->createElement("d"), c); }), kInvalidCall);
  EXPECT_EQ(errorRaisedBy([&] { a.insertBefore(b, a.attribute("x")); }), kInvalidCall);
  EXPECT_EQ(saved(), "<a x=\"1\">text<b><c/></b></a>\r\n");
}

TEST_F(XmlContract, RemoveTakesAChildOut) {
  const XmlNode a = load("<a><b/><c/><d/></a>");
  a.remove(a.child("c"));

  EXPECT_THAT(namesOf(a.children()), ElementsAre("b", "d"));
}

TEST_F(XmlContract, ARemovedNodeStaysValidAndCanBePutBack) {
  const XmlNode a = load("<a><b x='1'><c>2</c></b><d/></a>");
  const XmlNode b = a.child("b");
  const XmlNode c = b.child("c");
  a.remove(b);

  EXPECT_EQ(b.attribute("x").text(), "1");
  EXPECT_EQ(c.text(), "2");
  EXPECT_FALSE(b.nextSibling());
  a.append(b);
  EXPECT_THAT(namesOf(a.children()), ElementsAre("d", "b"));
}

TEST_F(XmlContract, NodesThatATextHasReplacedStayValid) {
  const XmlNode a = load("<a><b>1</b></a>");
  const XmlNode b = a.child("b");
  a.setText("2");

  EXPECT_EQ(b.text(), "1");
}

TEST_F(XmlContract, RemoveRaises5ForWhatIsNoChild) {
  const XmlNode a = load("<a x='1'><b><c/></b></a>");

  EXPECT_EQ(errorRaisedBy([&] { a.remove(a.child("b").child("c")); }), kInvalidCall);
  EXPECT_EQ(errorRaisedBy([&] { a.remove(a); }), kInvalidCall);
  EXPECT_EQ(errorRaisedBy([&] { a.remove(a.attribute("x")); }), kInvalidCall);
  EXPECT_EQ(errorRaisedBy([&] { a.remove(document_->createElement("d")); }), kInvalidCall);
}

// Copying

TEST_F(XmlContract, ACopyHasEverythingThatTheNodeHasAndStandsNowhere) {
  const XmlNode a = load("<a><b x='1' y='2'>text<c/><!--d--><?e f?><![CDATA[<g>]]></b><h/></a>");
  const XmlNode copy = document_->copyOf(a.child("b"));

  EXPECT_EQ(describeTree(copy), describeTree(a.child("b")));
  EXPECT_FALSE(copy.nextSibling());
  a.append(copy);
  EXPECT_EQ(saved(),
            "<a>\r\n"
            "\t<b x=\"1\" y=\"2\">text<c/><!--d--><?e f?><![CDATA[<g>]]></b>\r\n"
            "\t<h/>\r\n"
            "\t<b x=\"1\" y=\"2\">text<c/><!--d--><?e f?><![CDATA[<g>]]></b>\r\n"
            "</a>\r\n");
}

TEST_F(XmlContract, ACopyAndItsOriginalChangeApart) {
  const XmlNode a = load("<a><b><c>1</c></b></a>");
  const XmlNode copy = document_->copyOf(a.child("b"));
  copy.child("c").setText("2");
  a.child("b").setAttribute("x", "3");

  EXPECT_EQ(a.child("b").text(), "1");
  EXPECT_EQ(copy.text(), "2");
  EXPECT_FALSE(copy.attribute("x"));
}

TEST_F(XmlContract, ANodeOfAnotherDocumentCanBeCopiedAndStaysThere) {
  disk_.write("other.xml", "<o><b x='1'><c> 2 </c></b><!--d-->e</o>");
  auto other = adapters_->xml().createDocument();
  ASSERT_TRUE(other->load("C:\\other.xml"));
  const std::string otherTree = describeTree(other->documentElement());
  const XmlNode a = load("<a/>");
  for (const XmlNode& child : other->documentElement().children()) {
    a.append(document_->copyOf(child));
  }

  EXPECT_EQ(describeTree(other->documentElement()), otherTree);
  other.reset();
  EXPECT_EQ(saved(), "<a><b x=\"1\"><c> 2 </c></b><!--d-->e</a>\r\n");
}

TEST_F(XmlContract, ACopyDeclaresTheNamespacesThatItUses) {
  disk_.write("other.xml", "<o xmlns:q='urn:q' xmlns:r='urn:r' xmlns:s='urn:s'><q:b r:x='1'/></o>");
  const auto other = adapters_->xml().createDocument();
  ASSERT_TRUE(other->load("C:\\other.xml"));
  const XmlNode a = load("<a/>");
  a.append(document_->copyOf(other->documentElement().firstChild()));

  const std::string bytes = saved();
  EXPECT_THAT(bytes, Not(HasSubstr("urn:s")));
  ASSERT_TRUE(load(bytes));
  EXPECT_EQ(document_->select("a/*[namespace-uri()='urn:q']/@*[namespace-uri()='urn:r']").text(),
            "1");
}

TEST_F(XmlContract, ACopyKeepsTheDeclarationsInsideIt) {
  disk_.write("other.xml", "<o><b xmlns='urn:b'><c xmlns:q='urn:q' q:x='1'/></b></o>");
  const auto other = adapters_->xml().createDocument();
  ASSERT_TRUE(other->load("C:\\other.xml"));
  const XmlNode a = load("<a/>");
  a.append(document_->copyOf(other->documentElement().firstChild()));

  ASSERT_TRUE(load(saved()));
  EXPECT_THAT(document_->selectAll("a/*[namespace-uri()='urn:b']/*[namespace-uri()='urn:b']"),
              SizeIs(1));
  EXPECT_EQ(document_->select("//@*[namespace-uri()='urn:q']").text(), "1");
}

TEST_F(XmlContract, ANodeThatStandsNowhereCanBeCopied) {
  const XmlNode a = load("<a/>");
  const XmlNode b = document_->createElement("b");
  b.setText("1");
  a.append(document_->copyOf(b));
  a.append(b);

  EXPECT_EQ(saved(), "<a>\r\n\t<b>1</b>\r\n\t<b>1</b>\r\n</a>\r\n");
}

TEST_F(XmlContract, TextCanBeCopied) {
  const XmlNode a = load("<a>1\r\n2<b/></a>");
  a.append(document_->copyOf(a.firstChild()));

  EXPECT_EQ(a.text(), "1\n21\n2");
}

TEST_F(XmlContract, AnAttributeIsNotCopiedNorIsNoNode) {
  const XmlNode a = load("<a x='1'/>");

  EXPECT_EQ(errorRaisedBy([&] { (void)document_->copyOf(a.attribute("x")); }), kInvalidCall);
  EXPECT_EQ(errorRaisedBy([&] { (void)document_->copyOf(XmlNode()); }), 91);
}

TEST_F(XmlContract, AnyDocumentsRootCanBeCopiedIntoAnother) {
  constexpr unsigned kDocuments = 50;
  for (unsigned seed = 0; seed < kDocuments; ++seed) {
    const std::string bytes = randomXml(seed);
    SCOPED_TRACE("seed " + std::to_string(seed) + "\n" + bytes);
    disk_.write("other.xml", bytes);
    const auto other = adapters_->xml().createDocument();
    ASSERT_TRUE(other->load("C:\\other.xml"));
    const XmlNode a = load("<a/>");
    a.append(document_->copyOf(other->documentElement()));

    ASSERT_EQ(describeTree(a.firstChild()), describeTree(other->documentElement()));
    ASSERT_TRUE(load(saved()));
    ASSERT_EQ(describeTree(document_->documentElement().firstChild()),
              describeTree(other->documentElement()));
  }
}

// Saving

TEST_F(XmlContract, ADocumentIsLaidOutAnewWithTabsAndCrLf) {
  EXPECT_EQ(savedAfterLoading("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                              "<Books>  <Book><Name>A</Name>\n\n"
                              "      <Acro/></Book><Book></Book>\n</Books>"),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
            "<Books>\r\n"
            "\t<Book>\r\n"
            "\t\t<Name>A</Name>\r\n"
            "\t\t<Acro/>\r\n"
            "\t</Book>\r\n"
            "\t<Book/>\r\n"
            "</Books>\r\n");
}

TEST_F(XmlContract, MixedContentIsLeftAsItIs) {
  EXPECT_EQ(savedAfterLoading("<a><p>see  <b>this <i>or</i> <u> <x/> </u></b>\n that</p></a>"),
            "<a>\r\n"
            "\t<p>see  <b>this <i>or</i> <u> <x/> </u></b>\r\n that</p>\r\n"
            "</a>\r\n");
}

TEST_F(XmlContract, WhiteSpaceThatIsAllAnElementHasIsKept) {
  EXPECT_EQ(savedAfterLoading("<a><b>  </b><c>\n</c></a>"),
            "<a>\r\n\t<b>  </b>\r\n\t<c>\r\n</c>\r\n</a>\r\n");
}

TEST_F(XmlContract, WhiteSpaceThatIsToBePreservedIs) {
  EXPECT_EQ(savedAfterLoading("<a> <b xml:space='preserve'> <c/><d> <e/></d></b></a>"),
            "<a>\r\n\t<b xml:space=\"preserve\"> <c/><d> <e/></d></b>\r\n</a>\r\n");
}

TEST_F(XmlContract, AnElementThatIsToldToPreserveWhiteSpaceGetsNone) {
  const XmlNode b = load("<a><b/></a>").child("b");
  b.setAttribute("xml:space", "preserve");
  b.append(document_->createElement("c"));

  EXPECT_EQ(saved(), "<a>\r\n\t<b xml:space=\"preserve\"><c/></b>\r\n</a>\r\n");
}

TEST_F(XmlContract, AnElementThatHadOnlyWhiteSpaceIsLaidOutWithItsFirstChild) {
  const XmlNode books = load("<Books>\n</Books>");
  books.append(document_->createElement("Book"));

  EXPECT_EQ(saved(), "<Books>\r\n\t<Book/>\r\n</Books>\r\n");
}

TEST_F(XmlContract, CommentsAndInstructionsAreKeptEachOnALine) {
  EXPECT_EQ(
      savedAfterLoading("<?xml version='1.0'?><!-- 1 --><?p q?><a><!--2--><b/><?r?></a><!--3-->"
                        "<?s t?>"),
      "<?xml version=\"1.0\"?>\r\n"
      "<!-- 1 -->\r\n"
      "<?p q?>\r\n"
      "<a>\r\n"
      "\t<!--2-->\r\n"
      "\t<b/>\r\n"
      "\t<?r?>\r\n"
      "</a>\r\n"
      "<!--3-->\r\n"
      "<?s t?>\r\n");
}

TEST_F(XmlContract, LineEndsInsideACommentAreSavedLikeAllOthers) {
  EXPECT_EQ(savedAfterLoading("<a><!--1\n  2--></a>"), "<a>\r\n\t<!--1\r\n  2-->\r\n</a>\r\n");
}

TEST_F(XmlContract, CharacterDataSectionsAreKept) {
  EXPECT_EQ(savedAfterLoading("<a><b><![CDATA[<1> & ]]></b></a>"),
            "<a>\r\n\t<b><![CDATA[<1> & ]]></b>\r\n</a>\r\n");
}

TEST_F(XmlContract, NeighbouringCharacterDataSectionsStayTwo) {
  EXPECT_EQ(savedAfterLoading("<a><![CDATA[1]]]]><![CDATA[>2]]></a>"),
            "<a><![CDATA[1]]]]><![CDATA[>2]]></a>\r\n");
}

TEST_F(XmlContract, NamespacesAreKept) {
  const std::string bytes =
      "<a xmlns=\"urn:a\" xmlns:q=\"urn:q\">\r\n"
      "\t<q:b q:c=\"1\" xmlns=\"\">\r\n"
      "\t\t<d/>\r\n"
      "\t</q:b>\r\n"
      "</a>\r\n";

  load(savedAfterLoading(bytes));
  EXPECT_THAT(document_->selectAll("//*[namespace-uri()='urn:a']"), SizeIs(1));
  EXPECT_THAT(document_->selectAll("//*[namespace-uri()='urn:q']/@*"), SizeIs(1));
  EXPECT_THAT(document_->selectAll("//d"), SizeIs(1));
}

TEST_F(XmlContract, TheDeclarationIsKept) {
  EXPECT_EQ(savedAfterLoading("<?xml version='1.0' encoding='utf-8' standalone='yes'?><a/>"),
            "<?xml version=\"1.0\" encoding=\"utf-8\" standalone=\"yes\"?>\r\n<a/>\r\n");
  EXPECT_EQ(savedAfterLoading("<?xml version='1.0' standalone='no'?><a/>"),
            "<?xml version=\"1.0\" standalone=\"no\"?>\r\n<a/>\r\n");
  EXPECT_EQ(savedAfterLoading("<?xml version='1.0'?><a/>"), "<?xml version=\"1.0\"?>\r\n<a/>\r\n");
}

TEST_F(XmlContract, ADocumentWithoutADeclarationIsSavedWithoutOne) {
  EXPECT_EQ(savedAfterLoading("<a/>"), "<a/>\r\n");
}

TEST_F(XmlContract, ADocumentThatDeclaresNoEncodingIsSavedInUtf8) {
  EXPECT_EQ(savedAfterLoading("<a b='Ü'>目录</a>"), "<a b=\"Ü\">目录</a>\r\n");
  EXPECT_EQ(savedAfterLoading(utf16File("<a b='Ü'>目录</a>")), "<a b=\"Ü\">目录</a>\r\n");
}

TEST_F(XmlContract, ASavedFileIsReplacedWhole) {
  load("<a/>");
  disk_.write("book.xml", std::string(1000, 'x'));

  EXPECT_EQ(saved(), "<a/>\r\n");
  EXPECT_THAT(disk_.contents(), SizeIs(1));
}

TEST_F(XmlContract, ADocumentCanBeSavedToAnotherFile) {
  load("<a/>");
  document_->save("C:\\copy.xml");

  EXPECT_EQ(disk_.read("copy.xml"), "<a/>\r\n");
  EXPECT_EQ(disk_.read("book.xml"), "<a/>");
}

TEST_F(XmlContract, AnEmptyDocumentIsNotSaved) {
  disk_.write("book.xml", "<a>");
  ASSERT_FALSE(document_->load(kPath));

  try {
    document_->save(kPath);
    ADD_FAILURE() << "it was saved";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.number(), kNoTopLevelElementError);
    EXPECT_THAT(error.description(), HasSubstr("XML document must have a top level element."));
  }
  EXPECT_EQ(disk_.read("book.xml"), "<a>");
}

TEST_F(XmlContract, SavingIntoAFolderThatIsNotThereRaisesPathNotFound) {
  load("<a/>");

  EXPECT_EQ(errorRaisedBy([&] { document_->save("C:\\no folder\\book.xml"); }), 76);
}

TEST_F(XmlContract, WhatTheWriterWroteIsSavedUnchanged) {
  std::string text = "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n";
  XmlWriter writer([&text](std::string_view piece) { text += piece; });
  writer.comment(" one ");
  writer.comment("two");
  writer.startElement("Book_Master");
  writer.instruction("sort", "by name");
  writer.comment("three\nlines\n");
  writer.startElement("Book");
  writer.attribute("ID", "<&>\"'\t\r\n Ü 目录 😀");
  writer.textElement("Name", "<&>\"'\t\r\n Ü 目录 😀");
  writer.textElement("Key", "");
  writer.textElement("Blank", " ");
  writer.startElement("P");
  writer.text("see ");
  writer.textElement("B", "this");
  writer.cdata("<or> & that");
  writer.endDocument();
  const std::string bytes = utf16File(text);

  EXPECT_EQ(fromUtf16File(savedAfterLoading(bytes)), text);
}

// Encodings

struct EncodingCase {
  std::string_view name;
  std::string bytes;
  /// What the file is saved as.
  std::string savedBytes;
};

std::string documentIn(std::string_view encoding, std::string_view text) {
  return std::string(R"(<?xml version="1.0" encoding=")")
      .append(encoding)
      .append("\"?>\r\n<a b=\"")
      .append(text)
      .append("\">")
      .append(text)
      .append("</a>\r\n");
}

const std::string kUtf8 = documentIn("UTF-8", "Ü “q”");
const std::string kUtf16 = documentIn("UTF-16", "Ü “q”");
const std::string kWindows1252 = documentIn("windows-1252", "\xDC \x93q\x94");

class XmlEncodingContract : public XmlContract,
                            public ::testing::WithParamInterface<EncodingCase> {};

TEST_P(XmlEncodingContract, AFileLoadsByItsMarkAndDeclaration) {
  const XmlNode a = load(GetParam().bytes);

  EXPECT_EQ(a.text(), "Ü “q”");
  EXPECT_EQ(a.attribute("b").text(), "Ü “q”");
}

TEST_P(XmlEncodingContract, AFileIsSavedInTheEncodingThatItDeclares) {
  EXPECT_EQ(savedAfterLoading(GetParam().bytes), GetParam().savedBytes);
}

TEST_P(XmlEncodingContract, ASecondSaveChangesNothing) {
  const std::string first = savedAfterLoading(GetParam().bytes);

  EXPECT_EQ(savedAfterLoading(first), first);
}

INSTANTIATE_TEST_SUITE_P(
    Encodings,
    XmlEncodingContract,
    ::testing::Values(
        EncodingCase{"Utf8", kUtf8, kUtf8},
        EncodingCase{"Utf8WithMark", "\xEF\xBB\xBF" + kUtf8, kUtf8},
        EncodingCase{"Utf16LittleEndianWithMark", utf16File(kUtf16), utf16File(kUtf16)},
        EncodingCase{
            "Utf16LittleEndianWithoutMark", utf16File(kUtf16).substr(2), utf16File(kUtf16)},
        EncodingCase{"Utf16BigEndianWithMark", utf16BigEndianFile(kUtf16), utf16File(kUtf16)},
        EncodingCase{
            "Utf16BigEndianWithoutMark", utf16BigEndianFile(kUtf16).substr(2), utf16File(kUtf16)},
        EncodingCase{"Windows1252", kWindows1252, kWindows1252},
        EncodingCase{"Latin1",
                     documentIn("ISO-8859-1", "\xDC &#8220;q&#8221;"),
                     documentIn("ISO-8859-1", "\xDC &#8220;q&#8221;")},
        EncodingCase{"Ascii",
                     documentIn("US-ASCII", "&#xDC; &#8220;q&#x201D;"),
                     documentIn("US-ASCII", "&#220; &#8220;q&#8221;")}),
    [](const ::testing::TestParamInfo<EncodingCase>& parameter) {
      return std::string(parameter.param.name);
    });

TEST_F(XmlContract, ACharacterThatTheEncodingLacksBecomesAReference) {
  const XmlNode a = load("<?xml version='1.0' encoding='windows-1252'?><a><b/></a>");
  a.child("b").setText("Ü目😀");
  a.child("b").setAttribute("c", "录");

  EXPECT_EQ(saved(),
            "<?xml version=\"1.0\" encoding=\"windows-1252\"?>\r\n"
            "<a>\r\n\t<b c=\"&#24405;\">\xDC&#30446;&#128512;</b>\r\n</a>\r\n");
}

TEST_F(XmlContract, ATextThatReplacesCharacterDataMayHoldWhatTheEncodingLacks) {
  const XmlNode a = load("<?xml version='1.0' encoding='ISO-8859-1'?><a><![CDATA[1]]></a>");
  a.firstChild().setText("目");

  EXPECT_EQ(load(saved()).text(), "目");
}

TEST_F(XmlContract, ALongDocumentIsSavedInItsEncoding) {
  constexpr int kBooks = 20'000;
  std::string text = "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n<Books>\r\n";
  for (int i = 0; i < kBooks; ++i) {
    text += "\t<Book>目录 " + std::to_string(i) + "</Book>\r\n";
  }
  text += "</Books>\r\n";

  EXPECT_TRUE(savedAfterLoading(utf16File(text)) == utf16File(text));
}

// Damaged files

constexpr std::string_view kSoundBooks =
    "<Books>\r\n"
    "\t<Book Book_Name=\"目录\">Ü</Book>\r\n"
    "</Books>\r\n";

TEST_F(XmlContract, WhatADamageIsDoneToLoads) {
  EXPECT_TRUE(load(kSoundBooks));
}

TEST_F(XmlContract, ADamagedFileIsAFailedLoadWithAReasonAndAnEmptyDocument) {
  const std::vector<XmlDamage> damages = xmlDamagesOf(kSoundBooks);
  EXPECT_GT(damages.size(), 50U);
  for (const XmlDamage& damage : damages) {
    SCOPED_TRACE(damage.name);
    disk_.remove("book.xml");
    load(kSoundBooks);
    damage.putInPlaceOf(disk_, "book.xml");
    const XmlLoadResult result = document_->load(kPath);
    if (damage.kind == XmlDamage::Kind::kForeign) {
      EXPECT_TRUE(result) << result.reason;
      continue;
    }
    EXPECT_FALSE(result);
    EXPECT_THAT(result.reason, Not(IsEmpty()));
    EXPECT_FALSE(document_->documentElement());
    EXPECT_THAT(document_->elementsByName("Book"), IsEmpty());
  }
}

TEST_F(XmlContract, WhatDidNotLoadIsNeverSaved) {
  for (const XmlDamage& damage : xmlDamagesOf(kSoundBooks)) {
    SCOPED_TRACE(damage.name);
    damage.putInPlaceOf(disk_, "book.xml");
    if (document_->load(kPath)) {
      continue;
    }
    const auto before = disk_.contents();
    EXPECT_EQ(errorRaisedBy([&] { document_->save(kPath); }), kNoTopLevelElementError);
    EXPECT_EQ(disk_.contents(), before);
  }
}

// Any document

TEST_F(XmlContract, AnyDocumentIsTheSameTreeAfterSavingAndTheSameBytesAfterSavingAgain) {
  constexpr unsigned kDocuments = 50;
  for (unsigned seed = 0; seed < kDocuments; ++seed) {
    const std::string bytes = randomXml(seed);
    SCOPED_TRACE("seed " + std::to_string(seed) + "\n" + bytes);
    const XmlNode root = load(bytes);
    ASSERT_TRUE(root);
    const std::string tree = describeTree(root);
    const std::string first = saved();

    ASSERT_EQ(describeTree(load(first)), tree);
    ASSERT_EQ(saved(), first);
  }
}

}  // namespace

}  // namespace quorbind::testing
