#include "platform/portable/path_query.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <libxml/parser.h>
#include <libxml/xpath.h>

#include <array>
#include <random>
#include <string>
#include <vector>

#include "platform/portable/xml_handles.h"
#include "platform/portable/xml_messages.h"
#include "platform/portable/xml_text.h"
#include "tests/support/random_xml.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAreArray;

XmlDocHandle parsed(const std::string& bytes) {
  return XmlDocHandle(xmlReadMemory(
      bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr, XML_PARSE_NOENT));
}

/// What XPath finds, for a query that asks for nodes.
std::vector<xmlNode*> foundByXPath(xmlDoc& document, xmlNode& start, const std::string& query) {
  const XmlMessages silence;
  const XPathContextHandle context(xmlXPathNewContext(&document));
  context->node = &start;
  const XPathResultHandle result(xmlXPathEval(xmlTextOf(query), context.get()));
  EXPECT_TRUE(result != nullptr && result->type == XPATH_NODESET) << query;
  std::vector<xmlNode*> nodes;
  for (int i = 0; result != nullptr && i < xmlXPathNodeSetGetLength(result->nodesetval); ++i) {
    nodes.push_back(result->nodesetval->nodeTab[i]);
  }
  return nodes;
}

/// The document itself and every node in it.
std::vector<xmlNode*> nodesOf(xmlDoc& document) {
  std::vector<xmlNode*> nodes{reinterpret_cast<xmlNode*>(&document)};
  for (std::size_t at = 0; at < nodes.size(); ++at) {
    for (xmlNode* child = nodes[at]->children; child != nullptr; child = child->next) {
      nodes.push_back(child);
    }
  }
  return nodes;
}

void addFrom(xmlNode* node, ElementIndex& index) {
  for (; node != nullptr; node = node->next) {
    if (node->type == XML_ELEMENT_NODE) {
      index.add(*node);
      addFrom(node->children, index);
    }
  }
}

/// As a parser fills it.
ElementIndex indexOf(xmlDoc& document) {
  ElementIndex index;
  addFrom(document.children, index);
  return index;
}

class Queries {
 public:
  explicit Queries(unsigned seed) : random_(seed) {}

  std::string path() {
    std::string query = step();
    while (below(3) == 0) {
      query += "/" + step();
    }
    return query;
  }

  /// A path that begins with `root` where a query can name it.
  std::string pathFrom(const xmlNode& root) {
    const std::string name(viewOf(root.name));
    const bool canBeNamed = root.ns == nullptr && PathQuery::read(name);
    return (canBeNamed ? name + conditionOrNone() + "/" : "") + path();
  }

  /// Characters that queries are made of, in any order.
  std::string scrawl() {
    constexpr std::string_view kCharacters = "aB1_-.:/[]='\" @*()\xC2\xB5";
    std::string query;
    for (unsigned left = 1 + below(8); left > 0; --left) {
      query += kCharacters[below(kCharacters.size())];
    }
    return query;
  }

  unsigned below(std::size_t bound) { return static_cast<unsigned>(random_() % bound); }

 private:
  std::string step() { return name() + conditionOrNone(); }

  std::string conditionOrNone() {
    if (below(3) != 0) {
      return "";
    }
    const std::string condition = "[" + (below(3) == 0 ? "." : name()) + "=";
    return condition + (below(2) == 0 ? "'" + value() + "']" : "\"" + value() + "\"]");
  }

  std::string name() {
    constexpr std::array<const char*, 4> kNames{"Book", "Name", "a.b-c", "P"};
    return kNames[below(kNames.size())];
  }

  std::string value() {
    constexpr std::array<const char*, 6> kValues{
        "", "Alarms", "a < b & c", "<d> & ", "Übersicht", "line\nline"};
    return kValues[below(kValues.size())];
  }

  std::mt19937 random_;
};

constexpr unsigned kDocuments = 2000;
constexpr int kQueries = 40;

TEST(PathQuery, FindsWhatXPathFinds) {
  std::size_t found = 0;
  for (unsigned seed = 0; seed < kDocuments; ++seed) {
    const XmlDocHandle document = parsed(randomXml(seed));
    const std::vector<xmlNode*> nodes = nodesOf(*document);
    Queries queries(seed);
    for (int i = 0; i < kQueries; ++i) {
      xmlNode& start = *nodes[queries.below(nodes.size())];
      const std::string text = queries.path();
      SCOPED_TRACE("seed " + std::to_string(seed) + ": " + text);
      const auto query = PathQuery::read(text);
      ASSERT_TRUE(query);
      const auto expected = foundByXPath(*document, start, text);
      ASSERT_THAT(query->find(start), ElementsAreArray(expected));
      found += expected.size();
    }
  }
  EXPECT_GT(found, kDocuments / 4);
}

TEST(PathQuery, FindsTheSameWithAnIndexOfTheElements) {
  std::size_t found = 0;
  for (unsigned seed = 0; seed < kDocuments; ++seed) {
    const XmlDocHandle document = parsed(randomXml(seed));
    const ElementIndex index = indexOf(*document);
    Queries queries(seed);
    for (int i = 0; i < kQueries; ++i) {
      const std::string text = queries.pathFrom(*xmlDocGetRootElement(document.get()));
      SCOPED_TRACE("seed " + std::to_string(seed) + ": " + text);
      const auto query = PathQuery::read(text);
      ASSERT_TRUE(query);
      const auto expected = query->find(*nodesOf(*document).front());
      ASSERT_THAT(query->find(*document, index), ElementsAreArray(expected));
      found += expected.size();
    }
  }
  EXPECT_GT(found, kDocuments / 4);
}

TEST(PathQuery, TakesNothingThatXPathRefusesOrReadsInAnotherWay) {
  constexpr int kScrawls = 200'000;
  const XmlDocHandle document = parsed("<a><B>1</B><aB/><B/></a>");
  xmlNode& start = *xmlDocGetRootElement(document.get());
  Queries queries(1);
  int taken = 0;
  for (int i = 0; i < kScrawls; ++i) {
    const std::string text = queries.scrawl();
    if (const auto query = PathQuery::read(text)) {
      ASSERT_THAT(query->find(start), ElementsAreArray(foundByXPath(*document, start, text)))
          << text;
      ++taken;
    }
  }
  EXPECT_GT(taken, 1000);
}

TEST(PathQuery, LeavesEveryOtherKindOfQueryToXPath) {
  for (const char* text : {"",
                           "/a",
                           "a/",
                           "a//b",
                           "//a",
                           "*",
                           ".",
                           "a[1]",
                           "a[b]",
                           "a[b = 'c']",
                           "a[b='c'][d='e']",
                           "a[@b='c']",
                           "a[.]",
                           "a[. ='c']",
                           "a[.b='c']",
                           "a[..='c']",
                           "a[b='c' and d='e']",
                           "a[b='c'",
                           "a[b='c]",
                           "a[b=c]",
                           "p:a",
                           "a/@b",
                           "text()",
                           "a | b",
                           "\xC2\xB5",
                           "a[b='\x01']",
                           "a[b='\xFF']"}) {
    EXPECT_FALSE(PathQuery::read(text)) << text;
  }
  EXPECT_FALSE(PathQuery::read(std::string_view("a\0", 2)));
  EXPECT_FALSE(PathQuery::read(std::string_view("a[b='\0']", 8)));
}

}  // namespace
}  // namespace quorbind::testing
