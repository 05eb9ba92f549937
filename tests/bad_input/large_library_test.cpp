// A library with a hundred thousand books: every operation on its catalogue comes to its end.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "catalogue/book_config.h"
#include "platform/text.h"
#include "tests/bad_input/whole_library.h"

namespace quorbind::testing {
namespace {

using namespace library_file;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int kBooks = QUORBIND_LARGE_LIBRARY;
constexpr int kCategoriesOfServer = 50;

std::string catalogueOf(int books, const std::string& link) {
  std::string text = "<Quor_Master>\r\n\t<Quor_Books>\r\n";
  for (int i = 0; i < books; ++i) {
    const std::string number = std::to_string(i);
    text += "\t\t<Book>\r\n\t\t\t<Book_Name>Book " + number + "</Book_Name>\r\n\t\t\t<Book_Acro>B" +
            number + "</Book_Acro>\r\n\t\t\t<Book_Key id=\"" + link +
            "\">Plant</Book_Key>\r\n\t\t\t<Book_Folder>F" + number +
            "</Book_Folder>\r\n\t\t\t<Book_File>Book_B" + number +
            ".xml</Book_File>\r\n\t\t\t<Book_Categories>\r\n\t\t\t\t<Book_Category>Category " +
            std::to_string(i % kCategoriesOfServer) +
            "</Book_Category>\r\n\t\t\t</Book_Categories>\r\n\t\t</Book>\r\n";
  }
  return text + "\t</Quor_Books>\r\n</Quor_Master>\r\n";
}

class LargeLibrary : public ::testing::Test {
 protected:
  LargeLibrary() { library_.files.write(kCatalogue, catalogueOf(kBooks, "")); }

  [[nodiscard]] std::string catalogue() const { return library_.files.read(kCatalogue); }

  WholeLibrary library_;
  Module module_{library_.platform()};
  Book_Config config_{module_};
  const std::string path_ = componentPath(kCatalogue);
  const std::string last_ = std::to_string(kBooks - 1);
};

TEST_F(LargeLibrary, ListsAllBooksAndFindsTheLast) {
  EXPECT_EQ(config_.BookInfo(path_).size(), kBooks + 1U);
  EXPECT_EQ(config_.GetBookAcro(path_, "Book " + last_), "B" + last_);
  EXPECT_THAT(config_.CategorieInfo(path_, "Book " + last_),
              ElementsAre("Category " + std::to_string((kBooks - 1) % kCategoriesOfServer), ""));
}

TEST_F(LargeLibrary, RenamesAndDeletesTheLastBook) {
  const std::string before = catalogue();
  module_.bookInfo.txtBookName().setText("Other");
  module_.bookInfo.txtBookAcro().setText("OTH");
  config_.strBookAcroInfo(path_, "Book " + last_);
  EXPECT_TRUE(catalogue() == replaceAll(replaceAll(before, ">Book " + last_ + "<", ">Other<"),
                                        ">B" + last_ + "<",
                                        ">OTH<"));
  config_.DeleteQuorNode(path_, "Other");
  EXPECT_TRUE(catalogue() == catalogueOf(kBooks - 1, ""));
  EXPECT_THAT(library_.user.record(), IsEmpty());
}

TEST_F(LargeLibrary, TakesAnotherOfItsSizeOver) {
  library_.files.write(kOtherCatalogue, catalogueOf(kBooks, "link"));
  config_.strMatchingBooksInfo(path_, componentPath(kOtherCatalogue));
  EXPECT_TRUE(catalogue() == catalogueOf(kBooks, "link"));
  EXPECT_THAT(library_.user.record(), IsEmpty());
}

TEST_F(LargeLibrary, FilesEveryBookUnderItsCategory) {
  std::string empty = "<BookSet_Categories>\r\n";
  std::string full = empty;
  for (int category = 0; category < kCategoriesOfServer; ++category) {
    const std::string name = "\t<Category>\r\n\t\t<CategoryName>Category " +
                             std::to_string(category) + "</CategoryName>\r\n";
    empty += name + "\t</Category>\r\n";
    full += name;
    for (int book = category; book < kBooks; book += kCategoriesOfServer) {
      full += "\t\t<BookAcro>B" + std::to_string(book) + "</BookAcro>\r\n";
    }
    full += "\t</Category>\r\n";
  }
  library_.files.write(kCategories, empty + "</BookSet_Categories>\r\n");
  config_.GetBookAcroInfo(componentPath(kCategories), path_);
  EXPECT_TRUE(library_.files.read(kCategories) == full + "</BookSet_Categories>\r\n");
  EXPECT_THAT(library_.user.record(), IsEmpty());
}

}  // namespace
}  // namespace quorbind::testing
