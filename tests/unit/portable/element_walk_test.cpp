#include "platform/portable/element_walk.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "platform/portable/xml_library.h"
#include "tests/support/one_file.h"
#include "tests/support/random_xml.h"

namespace quorbind::testing {
namespace {

constexpr const char* kPath = "C:\\book.xml";

/// Describes what it is told.
class Visited final : public XmlElementVisitor {
 public:
  void begin() override { text_.clear(); }
  void visit(const XmlNode& element) override {
    text_ += "- " + element.text() + "\n" + describeTree(element);
  }
  [[nodiscard]] const std::string& text() const { return text_; }

 private:
  std::string text_;
};

/// How a visit ended, and of a file that loads what it told.
std::string outcome(const XmlLoadResult& result, const Visited& visited) {
  return result ? visited.text() : std::to_string(result.line) + ": " + result.reason;
}

class ElementWalk : public ::testing::Test {
 protected:
  void put(const std::string& bytes) { file_.put(bytes); }

  std::string named(const std::string& name) {
    Visited visited;
    return outcome(xml_.visitNamed(kPath, name, visited), visited);
  }
  std::string namedThePlainWay(const std::string& name) {
    Visited visited;
    return outcome(xml_.XmlLibrary::visitNamed(kPath, name, visited), visited);
  }
  std::string selected(const std::string& query) {
    Visited visited;
    return outcome(xml_.visitSelected(kPath, query, visited), visited);
  }
  std::string selectedThePlainWay(const std::string& query) {
    Visited visited;
    return outcome(xml_.XmlLibrary::visitSelected(kPath, query, visited), visited);
  }

  [[nodiscard]] bool walksNamed(const std::string& name) {
    Visited visited;
    return walkElementsNamed(file_, kPath, name, visited).has_value();
  }
  [[nodiscard]] bool walksSelected(const std::string& query) {
    Visited visited;
    return walkElementsSelected(file_, kPath, query, visited).has_value();
  }

 private:
  OneFile file_;
  PortableXmlLibrary xml_{file_};
};

constexpr std::array<const char*, 6> kNames{"Book", "Name", "a.b-c", "P", "n:Book", "Master"};
constexpr std::array<const char*, 10> kQueries{"Master/Book",
                                               "Master/List/Book[Name='Alarms']",
                                               "Master/List/Book[Name='Alarms']/P",
                                               "Master/List[P='1']/Book/Name",
                                               "Master/List/P",
                                               "Master/List/P[.='1']",
                                               "Master/List/Book/Name[.='Alarms']",
                                               "Master",
                                               "Book/Name",
                                               "//Name"};

/// A library as ours are laid out, each with something in it that somebody else may have put there.
std::string library(unsigned seed) {
  return withForeignContent(
      "{aside}\n<Master{own}>\n\t{content}<List>\n\t\t<Book>\n\t\t\t<Name>Alarms</Name>\n"
      "\t\t\t<P> <Book>1</Book> </P>\n\t\t{content}</Book>\n\t\t<Book>\n\t\t\t<Name> </Name>\n"
      "\t\t</Book>\n\t\t<P>1</P>{content}\n\t</List>\n\t<Book{own}/>\n</Master>{aside}",
      seed);
}

TEST_F(ElementWalk, TellsWhatLoadingTheWholeDocumentTells) {
  constexpr unsigned kDocuments = 1500;
  int walks = 0;
  for (unsigned seed = 0; seed < kDocuments; ++seed) {
    std::string bytes = seed % 2 == 0 ? library(seed) : randomXml(seed);
    if (seed % 7 == 0) {
      bytes.resize(bytes.size() - seed % bytes.size() / 2);
    }
    SCOPED_TRACE("seed " + std::to_string(seed) + "\n" + bytes);
    put(bytes);
    for (const char* name : kNames) {
      ASSERT_EQ(named(name), namedThePlainWay(name)) << name;
      walks += walksNamed(name) ? 1 : 0;
    }
    for (const char* query : kQueries) {
      ASSERT_EQ(selected(query), selectedThePlainWay(query)) << query;
      walks += walksSelected(query) ? 1 : 0;
    }
  }
  EXPECT_GT(walks, 1000);
}

TEST_F(ElementWalk, KeepsNothingButTheElementsAtHand) {
  put("<Master><List><Book><Name>Alarms</Name></Book><Book/></List></Master>");
  EXPECT_TRUE(walksNamed("Book"));
  EXPECT_TRUE(walksNamed("Name"));
  EXPECT_TRUE(walksSelected("Master/List/Book[Name='Alarms']/Name"));
}

TEST_F(ElementWalk, LeavesAQueryThatIsNoPathToTheDocument) {
  put("<Master><Book/></Master>");
  EXPECT_FALSE(walksSelected("//Book"));
}

TEST_F(ElementWalk, LeavesElementsBesideTextToTheDocument) {
  put("<Master>text<Book/></Master>");
  EXPECT_FALSE(walksNamed("Book"));
  put("<Master><List><Book/></List><![CDATA[text]]></Master>");
  EXPECT_FALSE(walksNamed("Book"));
  put("<Master><List>text</List><Book/></Master>");
  EXPECT_TRUE(walksNamed("Book"));
}

TEST_F(ElementWalk, LeavesElementsInANamespaceOrInPreservedSpaceToTheDocument) {
  put("<Master xmlns='urn:n'><Book/></Master>");
  EXPECT_FALSE(walksNamed("Book"));
  put("<Master xml:space='preserve'><Book/></Master>");
  EXPECT_FALSE(walksNamed("Book"));
}

TEST_F(ElementWalk, LeavesAFileThatDoesNotParseToTheDocument) {
  put("<Master><Book/>");
  EXPECT_FALSE(walksNamed("Book"));
}

/// So many of the same element in a list.
std::string listOf(std::string_view element, std::size_t count) {
  std::string text = "<List>";
  for (; count > 0; --count) {
    text += element;
  }
  return text + "</List>";
}

TEST_F(ElementWalk, RefusesWhatIsTooMuchForATree) {
  for (const std::string& bytes : {listOf("<a/>", 400'000), listOf("<Book/>", 700'000)}) {
    put(bytes);
    EXPECT_EQ(named("Book"), "1: There are too many elements and attributes for its size.");
    EXPECT_EQ(named("Book"), namedThePlainWay("Book"));
    EXPECT_EQ(selected("List/Book"), selectedThePlainWay("List/Book"));
  }
}

}  // namespace
}  // namespace quorbind::testing
