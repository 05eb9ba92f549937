#include "catalogue/book_index.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>

#include "platform/runtime_error.h"
#include "tests/support/catalogue_text.h"
#include "tests/support/raised_error.h"
#include "tests/support/world.h"

namespace quorbind::testing {
namespace {

class BookIndexOfACatalogue : public ::testing::Test {
 protected:
  void load(std::string_view bytes) {
    world_.disk.write("Quor_TOC.xml", bytes);
    ASSERT_TRUE(catalogue_->load("C:\\Quor_TOC.xml")) << bytes;
  }
  /// The `n` attribute of the book that is found; empty when there is none.
  [[nodiscard]] std::string found(std::string_view name, std::string_view acronym) const {
    const XmlNode book = BookIndex(*catalogue_).find(name, acronym);
    return book ? book.attribute("n").text() : "";
  }

  World world_;
  std::unique_ptr<XmlDocument> catalogue_ = world_.platform().xml.createDocument();
};

std::string book(int number, std::string_view children) {
  return "<Book n='" + std::to_string(number) + "'>" + std::string(children) + "</Book>";
}

TEST_F(BookIndexOfACatalogue, FindsABookByNameAndAcronymTogether) {
  load(catalogueWith(book(1, "<Book_Name>A</Book_Name><Book_Acro>1</Book_Acro>") +
                     book(2, "<Book_Name>A</Book_Name><Book_Acro>2</Book_Acro>") +
                     book(3, "<Book_Name>B</Book_Name><Book_Acro>1</Book_Acro>")));
  EXPECT_EQ(found("A", "2"), "2");
  EXPECT_EQ(found("B", "1"), "3");
  EXPECT_EQ(found("B", "2"), "");
  EXPECT_EQ(found("a", "1"), "");
}

TEST_F(BookIndexOfACatalogue, FindsTheFirstOfTwoBooksThatAreCalledTheSame) {
  load(catalogueWith(book(1, "<Book_Name>A</Book_Name><Book_Acro>1</Book_Acro>") +
                     book(2, "<Book_Name>A</Book_Name><Book_Acro>1</Book_Acro>")));
  EXPECT_EQ(found("A", "1"), "1");
}

TEST_F(BookIndexOfACatalogue, RefusesAValueThatHoldsADoubleQuotationMark) {
  load(catalogueWith(book(1, "<Book_Name>a\"b</Book_Name><Book_Acro>1</Book_Acro>")));
  const BookIndex index(*catalogue_);
  EXPECT_EQ(errorRaisedBy([&] { (void)index.find("a\"b", "1"); }), kInvalidQueryError);
  EXPECT_EQ(errorRaisedBy([&] { (void)index.find("a", "\"1"); }), kInvalidQueryError);
}

TEST_F(BookIndexOfACatalogue, FindsNothingInAnEmptyDocument) {
  EXPECT_EQ(found("A", "1"), "");
}

/// Catalogues in which few values meet often: in books that are called the same, with several
/// names, without one, in the wrong place, with quotation marks, comments and elements inside a
/// name.
class RandomCatalogue {
 public:
  explicit RandomCatalogue(unsigned seed) : random_(seed) {}

  std::string bytes() {
    std::string books;
    for (int number = 0; number < 12; ++number) {
      books += book(number, children());
    }
    return "<Quor_Master><Quor_Books>" + books + "</Quor_Books>" + book(99, children()) +
           "<Quor_Books>" + book(100, children()) + "</Quor_Books></Quor_Master>";
  }

  static constexpr std::array<std::string_view, 8> kValues{
      "", " ", "A", "a", "A\"", "A'", "\"A", "B"};

 private:
  std::string children() {
    std::string text;
    for (auto count = random_() % 5; count > 0; --count) {
      text += child(random_() % 2 == 0 ? "Book_Name" : "Book_Acro");
    }
    return text;
  }
  std::string child(const std::string& name) {
    const std::string value(kValues.at(random_() % kValues.size()));
    switch (random_() % 8) {
      case 0:
        return "<" + name + "><!-- x -->" + value + "</" + name + ">";
      case 1:
        return "<" + name + "><x>" + value + "</x></" + name + ">";
      case 2:
        return "<q:" + name + " xmlns:q='urn:q'>" + value + "</q:" + name + ">";
      default:
        return "<" + name + ">" + value + "</" + name + ">";
    }
  }

  std::mt19937 random_;
};

TEST_F(BookIndexOfACatalogue, FindsWhatTheQueryFinds) {
  constexpr unsigned kCatalogues = 200;
  for (unsigned seed = 0; seed < kCatalogues; ++seed) {
    const std::string bytes = RandomCatalogue(seed).bytes();
    SCOPED_TRACE("seed " + std::to_string(seed) + "\n" + bytes);
    load(bytes);
    const BookIndex index(*catalogue_);
    for (const std::string_view name : RandomCatalogue::kValues) {
      for (const std::string_view acronym : RandomCatalogue::kValues) {
        if (name.find('"') != std::string_view::npos ||
            acronym.find('"') != std::string_view::npos) {
          continue;
        }
        const XmlNode queried =
            catalogue_->select("Quor_Master/Quor_Books/Book[Book_Name=\"" + std::string(name) +
                               "\" and Book_Acro=\"" + std::string(acronym) + "\"]");
        const std::string expected = queried ? queried.attribute("n").text() : "";
        const XmlNode book = index.find(name, acronym);
        ASSERT_EQ(book ? book.attribute("n").text() : "", expected) << name << "|" << acronym;
      }
    }
  }
}

}  // namespace
}  // namespace quorbind::testing
