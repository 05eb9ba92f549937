// Names made of what queries are made of: every look-up by a name finds what a walk through the
// whole document finds, and a name with the quotation mark of its query finds nothing.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>
#include <vector>

#include "catalogue/book_config.h"
#include "platform/text.h"
#include "platform/toolset.h"
#include "platform/xml_writer.h"
#include "platform/xpath_query.h"
#include "sidefiles/names.h"
#include "tests/bad_input/whole_library.h"
#include "tests/support/raised_error.h"
#include "workflow/driver/quor_book.h"

namespace quorbind::testing {
namespace {

using namespace library_file;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using Names = std::vector<std::string>;

constexpr std::size_t kNamesInDocument = 40;
constexpr int kLookups = QUORBIND_RANDOM_LOOKUPS;

/// Numbers a name by its place in a document, so that every entry can be told apart.
std::string markOf(std::size_t place) {
  return "M" + std::to_string(place);
}

class RandomQueries : public ::testing::Test {
 protected:
  RandomQueries() {
    for (std::size_t i = 0; i < kNamesInDocument; ++i) {
      names_.push_back(makeName());
    }
  }

  std::size_t below(std::size_t bound) { return random_() % bound; }

  std::string makeName() {
    constexpr std::array kPieces{"a",      "b", "'",     "\"",  " or ", "1=1",   "='a'",
                                 "=\"a\"", "]", "[",     "/..", "//*",  "|",     "concat(",
                                 ")",      "&", "&amp;", "<",   ".",    "\u00E4"};
    std::string name = below(2) == 0 ? "a" : "b";
    for (std::size_t left = below(4); left > 0; --left) {
      name += kPieces[below(kPieces.size())];
    }
    return name;
  }
  /// One of the document, or any other.
  std::string nameToLookUp() { return below(2) == 0 ? names_[below(names_.size())] : makeName(); }

  /// An element of that name with a text in it.
  static std::string element(std::string_view tag, std::string_view text) {
    std::string bytes;
    XmlWriter writer([&bytes](std::string_view piece) { bytes += piece; });
    writer.textElement(tag, text);
    writer.endDocument();
    return bytes;
  }

  /// Writes a file with one entry for each name, made by `entry` of name and mark.
  template <typename Entry>
  void write(const char* file, const std::string& begin, Entry entry, const std::string& end) {
    std::string text = begin;
    for (std::size_t i = 0; i < names_.size(); ++i) {
      text += entry(names_[i], markOf(i));
    }
    library_.files.write(file, text + end);
  }
  void writeCatalogue() {
    write(
        kCatalogue,
        "<Quor_Master><Quor_Books>",
        [](const std::string& name, const std::string& mark) {
          return "<Book>" + element("Book_Name", name) + element("Book_Acro", mark) +
                 "<Book_Key id=\"\"/>" + element("Book_Folder", mark) + "<Book_Categories>" +
                 element("Book_Category", mark) + "</Book_Categories></Book>";
        },
        "</Quor_Books></Quor_Master>");
  }

  /// The mark of the first entry of that name, by a walk; empty when there is none or when the name
  /// holds the query's quotation mark.
  [[nodiscard]] std::string markFor(const std::string& name, char quote) const {
    const auto found = std::find(names_.begin(), names_.end(), name);
    return !fits(name, quote) || found == names_.end()
               ? std::string()
               : markOf(static_cast<std::size_t>(found - names_.begin()));
  }
  [[nodiscard]] static bool fits(const std::string& name, char quote) {
    return name.find(quote) == std::string::npos;
  }
  [[nodiscard]] bool has(const std::string& name) const {
    return std::find(names_.begin(), names_.end(), name) != names_.end();
  }

  template <typename Check>
  void lookUpOften(Check check) {
    for (int i = 0; i < kLookups && !HasFailure(); ++i) {
      const std::string name = nameToLookUp();
      SCOPED_TRACE(name);
      library_.user.forget();
      check(name);
    }
  }
  /// The boxes of a look-up: one for a name that does not fit.
  void expectBoxes(const std::string& name, char quote) {
    EXPECT_THAT(library_.user.record(), SizeIs(fits(name, quote) ? 0 : 1));
    for (const UserMessage& box : library_.user.messages()) {
      EXPECT_EQ(box.errorNumber, kInvalidQueryError);
    }
  }

  /// The texts of `tag` in those elements `entry` that have a `child` with the text `wanted`, by a
  /// walk through the file.
  Names entriesWith(const char* file,
                    std::string_view entry,
                    std::string_view child,
                    const std::string& wanted,
                    std::string_view tag) {
    const auto document = library_.platform().xml.createDocument();
    EXPECT_TRUE(document->load(componentPath(file)));
    Names texts;
    for (const XmlNode& node : document->elementsByName(entry)) {
      const auto children = node.children();
      if (std::any_of(children.begin(), children.end(), [&](const XmlNode& one) {
            return one.name() == child && one.text() == wanted;
          })) {
        texts.push_back(node.child(tag).text());
      }
    }
    return texts;
  }

  std::mt19937 random_{20260102};
  Names names_;
  WholeLibrary library_;
  Module module_{library_.platform()};
  Book_Config config_{module_};
  Quor_Book book_{module_};
};

TEST_F(RandomQueries, FindTheElementsThatAWalkFinds) {
  writeCatalogue();
  const auto document = library_.platform().xml.createDocument();
  ASSERT_TRUE(document->load(componentPath(kCatalogue)));
  const auto books = document->elementsByName("Book");
  int found = 0;
  lookUpOften([&](const std::string& name) {
    for (const char quote : {'\'', '"'}) {
      Names marks;
      const std::int32_t error = errorRaisedBy([&] {
        for (const XmlNode& book : document->selectAll(
                 elementsWith("Quor_Master/Quor_Books/Book", "Book_Name", name, quote))) {
          marks.push_back(book.child("Book_Acro").text());
        }
      });
      EXPECT_EQ(error, fits(name, quote) ? 0 : kInvalidQueryError);
      Names expected;
      for (const XmlNode& book : books) {
        if (fits(name, quote) && book.child("Book_Name").text() == name) {
          expected.push_back(book.child("Book_Acro").text());
        }
      }
      EXPECT_EQ(marks, expected);
      found += marks.empty() ? 0 : 1;
    }
  });
  EXPECT_GT(found, kLookups / 4);
}

TEST_F(RandomQueries, FindTheAcronymOfABook) {
  writeCatalogue();
  lookUpOften([&](const std::string& name) {
    EXPECT_EQ(config_.GetBookAcro(componentPath(kCatalogue), name), markFor(name, '"'));
  });
}

TEST_F(RandomQueries, FindTheFolderOfABook) {
  writeCatalogue();
  lookUpOften([&](const std::string& name) {
    std::string folder;
    std::string link;
    config_.strFolderLinkInfo(componentPath(kCatalogue), name, folder, link);
    EXPECT_EQ(folder, markFor(name, '"'));
  });
}

TEST_F(RandomQueries, FindTheCategoriesOfABookByItsStoredName) {
  writeCatalogue();
  const auto rules = library_.platform().toolset.createXmlTextRules();
  lookUpOften([&](const std::string& name) {
    const std::string mark = markFor(rules->mstrCheckSpecialCharecters(name), '"');
    EXPECT_EQ(config_.CategorieInfo(componentPath(kCatalogue), name),
              mark.empty() ? Names() : Names({mark, ""}));
  });
}

TEST_F(RandomQueries, DeleteTheBookAndNoOther) {
  lookUpOften([&](const std::string& name) {
    writeCatalogue();
    config_.DeleteQuorNode(componentPath(kCatalogue), name);
    expectBoxes(name, '\'');
    library_.user.forget();
    Names left = names_;
    if (!markFor(name, '\'').empty()) {
      left.erase(std::find(left.begin(), left.end(), name));
    }
    left.emplace_back();
    EXPECT_EQ(config_.BookInfo(componentPath(kCatalogue)), left);
  });
}

TEST_F(RandomQueries, FindTheFolderOfALibrary) {
  write(
      kSelection,
      "<Quor_Selection_List><Quors>",
      [](const std::string& name, const std::string& mark) {
        return "<Quor>" + element("Quor_Name", name) + element("Quor_Location", mark) + "</Quor>";
      },
      "</Quors></Quor_Selection_List>");
  lookUpOften([&](const std::string& name) {
    const std::string mark = markFor(name, '"');
    EXPECT_EQ(config_.QuorLocation(name),
              mark.empty() ? std::string() : "C:\\" + mark + "\\Quor_TOC.xml");
  });
}

TEST_F(RandomQueries, FindADefaultCategory) {
  write(
      kDefaults,
      "<Default_Categories><Quor_Developer>",
      [](const std::string& name, const std::string&) { return element("CategoryName", name); },
      "</Quor_Developer></Default_Categories>");
  lookUpOften([&](const std::string& name) {
    EXPECT_EQ(config_.bCheckIfDefaultCategory(componentPath(kDefaults), name, 0),
              fits(name, '\'') && has(name));
    expectBoxes(name, '\'');
  });
}

TEST_F(RandomQueries, FileABookUnderOneCategoryAlone) {
  lookUpOften([&](const std::string& name) {
    write(
        kCategories,
        "<BookSet_Categories>",
        [](const std::string& category, const std::string&) {
          return "<Category>" + element("CategoryName", category) + "</Category>";
        },
        "</BookSet_Categories>");
    book_.AddCategoryNode(name, "NEW", componentPath(kCategories));
    expectBoxes(name, '\'');
    EXPECT_EQ(entriesWith(kCategories, "Category", "BookAcro", "NEW", "CategoryName"),
              fits(name, '\'') ? Names({name}) : Names());
  });
}

TEST_F(RandomQueries, GiveAKeywordToOneBookAlone) {
  const auto document = library_.platform().xml.createDocument();
  lookUpOften([&](const std::string& name) {
    library_.files.write(kKeywords, "<Books/>");
    for (const std::string& held : names_) {
      if (fits(held, '\'')) {
        book_.AddKeywordsToXmlFile(componentPath(kKeywords), held, "bell");
      }
    }
    book_.AddKeywordsToXmlFile(componentPath(kKeywords), name, "horn");
    expectBoxes(name, '\'');
    ASSERT_TRUE(document->load(componentPath(kKeywords)));
    Names given;
    for (const XmlNode& book : document->selectAll("Books/Book")) {
      if (contains(book.text(), "horn")) {
        given.push_back(book.attribute("Book_Name").text());
      }
    }
    EXPECT_EQ(given, fits(name, '\'') ? Names({name}) : Names());
  });
}

TEST_F(RandomQueries, FindALinkIdentifier) {
  const auto rules = library_.platform().toolset.createXmlTextRules();
  const auto document = library_.platform().xml.createDocument();
  lookUpOften([&](const std::string& name) {
    write(
        kLinks,
        "<LINKS><IBD>",
        [](const std::string& identifier, const std::string& mark) {
          return "<ID>" + element("LinkID", identifier) + element("FullLink", mark) + "</ID>";
        },
        "</IBD></LINKS>");
    book_.AddToLinkIDFile(componentPath(kLinks), name, "NEW", "a.htm", "Plant", "ALM");
    ASSERT_TRUE(document->load(componentPath(kLinks)));
    Names expected = names_;
    if (fits(name, '\'') && !has(name)) {
      expected.push_back(rules->ReplaceSpecCharToXMLChar(name));
    }
    Names held;
    for (const XmlNode& id : document->elementsByName(link_names::kLinkId)) {
      held.push_back(id.text());
    }
    EXPECT_EQ(held, expected);
  });
}

}  // namespace
}  // namespace quorbind::testing
