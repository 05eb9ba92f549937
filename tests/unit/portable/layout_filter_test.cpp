#include "platform/portable/layout_filter.h"

#include <gtest/gtest.h>
#include <libxml/parser.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/portable/portable_xml_document.h"
#include "platform/portable/xml_handles.h"
#include "platform/portable/xml_layout.h"
#include "platform/portable/xml_node_body.h"
#include "platform/portable/xml_save.h"
#include "platform/portable/xml_tree.h"
#include "platform/text.h"
#include "tests/support/one_file.h"
#include "tests/support/random_xml.h"

namespace quorbind::testing {
namespace {

/// A file in memory that keeps what it is replaced by.
class KeptFile final : public OneFile {
 public:
  [[nodiscard]] const std::string& saved() const { return saved_; }

  std::unique_ptr<FileReplacement> replace(std::string_view /*path*/) override {
    return std::make_unique<Replacement>(saved_);
  }

 private:
  class Replacement final : public FileReplacement {
   public:
    explicit Replacement(std::string& saved) : saved_(saved) {}
    void write(std::string_view bytes) override { written_ += bytes; }
    void commit() override { saved_ = std::move(written_); }

   private:
    std::string& saved_;
    std::string written_;
  };

  std::string saved_;
};

constexpr const char* kPath = "C:\\book.xml";

/// What a document is to the port, and the bytes that it is saved as.
struct Loaded {
  std::string tree;
  std::string saved;

  friend bool operator==(const Loaded&, const Loaded&) = default;
  friend std::ostream& operator<<(std::ostream& out, const Loaded& loaded) {
    return out << loaded.tree << '\n' << loaded.saved;
  }
};

Loaded filtered(const std::string& bytes) {
  KeptFile file;
  file.put(bytes);
  PortableXmlDocument document(file);
  const XmlLoadResult result = document.load(kPath);
  EXPECT_TRUE(result) << result.reason;
  document.save(kPath);
  return {describeTree(document.documentElement()), file.saved()};
}

/// The plain way: every text becomes a node, and what only lays the document out is freed again.
void dropLayout(xmlNode& element) {
  if (isAsWritten(element)) {
    return;
  }
  for (xmlNode* child = element.children; child != nullptr;) {
    xmlNode* const next = child->next;
    if (child->type == XML_TEXT_NODE && isBlankText(*child)) {
      xmlUnlinkNode(child);
      xmlFreeNode(child);
    } else if (child->type == XML_ELEMENT_NODE) {
      dropLayout(*child);
    }
    child = next;
  }
}

/// Neighbouring sections stay apart.
void addSection(void* context, const xmlChar* text, int length) {
  auto& parser = *static_cast<xmlParserCtxt*>(context);
  xmlAddChild(parser.node, xmlNewCDataBlock(parser.myDoc, text, length));
}

Loaded plain(const std::string& bytes) {
  const XmlParserHandle parser(xmlNewParserCtxt());
  parser->sax->cdataBlock = &addSection;
  XmlTree tree(XmlDocHandle(xmlCtxtReadMemory(parser.get(),
                                              bytes.data(),
                                              static_cast<int>(bytes.size()),
                                              nullptr,
                                              nullptr,
                                              XML_PARSE_NOENT)));
  dropLayout(*tree.root());
  KeptFile file;
  const auto replacement = file.replace(kPath);
  writeXml(tree.document(), *replacement);
  replacement->commit();
  NodeReferences references(tree);
  return {describeTree(references.to(tree.root())), file.saved()};
}

/// Texts longer than the pieces that a parser hands over, and white space in every disguise.
std::string withOddSpaces(std::string xml, unsigned seed) {
  const std::string blanks(700, ' ');
  xml = replaceAll(xml, " two  words ", blanks + "two words" + blanks);
  if (seed % 2 == 0) {
    xml = replaceAll(xml, "Alarms<", "&#32;<");
    xml = replaceAll(xml, "line\nline", blanks);
  }
  if (seed % 3 == 0) {
    xml = replaceAll(xml, "<![CDATA[<d> & ]]>", "<![CDATA[ ]]>");
  }
  return xml;
}

TEST(LayoutFilter, LeavesOutWhatThePlainWayDrops) {
  constexpr unsigned kDocuments = 3000;
  for (unsigned seed = 0; seed < kDocuments; ++seed) {
    const std::string bytes = withOddSpaces(randomXml(seed), seed);
    SCOPED_TRACE("seed " + std::to_string(seed) + "\n" + bytes);
    ASSERT_EQ(filtered(bytes), plain(bytes));
  }
}

std::string savedAs(const std::string& bytes) {
  return replaceAll(filtered(bytes).saved, "\r\n", "\n");
}

TEST(LayoutFilter, KeepsWhiteSpaceInFrontOfTheFirstTextOfAnElement) {
  EXPECT_EQ(savedAs("<a> <b/>\n<!--c-->\t<d/> text</a>"), "<a> <b/>\n<!--c-->\t<d/> text</a>\n");
}

TEST(LayoutFilter, KeepsItInElementsThatCloseBeforeATextOfAnOuterOne) {
  EXPECT_EQ(savedAs("<a> <b> <c/> <d/> </b> <e> </e> text</a>"),
            "<a> <b> <c/> <d/> </b> <e> </e> text</a>\n");
}

TEST(LayoutFilter, LeavesItOutBesideAnElementWithTextInIt) {
  EXPECT_EQ(savedAs("<a> <b> <c/> text</b> <d> <e/> </d> </a>"),
            "<a>\n\t<b> <c/> text</b>\n\t<d>\n\t\t<e/>\n\t</d>\n</a>\n");
}

TEST(LayoutFilter, TakesASectionOfWhiteSpaceForAText) {
  EXPECT_EQ(savedAs("<a> <b/> <![CDATA[ ]]></a>"), "<a> <b/> <![CDATA[ ]]></a>\n");
}

}  // namespace
}  // namespace quorbind::testing
