#include "cli/catalogue_reader.h"

#include <gtest/gtest.h>

#include "cli/failure.h"
#include "cli/wiring.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {
namespace {

/// What requiring a catalogue and reading it fail with; empty where they don't.
class CatalogueReader : public ::testing::Test {
 protected:
  std::string failureOf(void (*use)(const Platform& platform, const std::string& path),
                        const std::string& catalogue) {
    disk_.write("Quor_TOC.xml", catalogue);
    try {
      use(wiring_.module.platform, componentFile((disk_.path() / "Quor_TOC.xml").string()));
    } catch (const CommandFailure& failure) {
      return failure.what();
    }
    return {};
  }

  void expectList(const std::string& catalogue, bool isThere) {
    const std::string failure = failureOf(requireCatalogue, catalogue);
    EXPECT_EQ(failure.empty(), isThere) << catalogue << failure;
    EXPECT_EQ(
        failure,
        failureOf([](const Platform& platform,
                     const std::string& path) { static_cast<void>(readCatalogue(platform, path)); },
                  catalogue));
  }

  std::vector<ListedBook> booksIn(const std::string& catalogue) {
    disk_.write("Quor_TOC.xml", catalogue);
    return readCatalogue(wiring_.module.platform,
                         componentFile((disk_.path() / "Quor_TOC.xml").string()));
  }

 private:
  TemporaryFolder disk_;
  Wiring wiring_{"", processTerminal(false)};
};

TEST_F(CatalogueReader, FindsTheListWhereverItStandsInTheRoot) {
  expectList("<Quor_Master><Quor_Books/></Quor_Master>", true);
  expectList("<Quor_Master><A><B/></A><Quor_Books><Quor_Book/></Quor_Books></Quor_Master>", true);
}

TEST_F(CatalogueReader, TakesNoOtherElementForTheList) {
  expectList("<Quor_Master/>", false);
  expectList("<Quor_Books/>", false);
  expectList("<Quor_Master><A><Quor_Books/></A></Quor_Master>", false);
  expectList("<A><Quor_Master><Quor_Books/></Quor_Master></A>", false);
  expectList("<Quor_Master><A/><A><Quor_Master><Quor_Books/></Quor_Master></A></Quor_Master>",
             false);
}

ListedBook bookNamed(const std::string& name) {
  return {.name = name, .acronym = name, .folder = "", .bookFile = ""};
}

std::vector<ListedBook> booksNamed(std::string_view letters) {
  std::vector<ListedBook> books;
  for (const char letter : letters) {
    books.push_back(bookNamed({letter}));
  }
  return books;
}

TEST(AddedBooks, StandBehindTheOthersOfTheList) {
  EXPECT_EQ(addedBooks(booksNamed("ab"), booksNamed("abc")), booksNamed("c"));
  EXPECT_EQ(addedBooks(booksNamed(""), booksNamed("ab")), booksNamed("ab"));
  EXPECT_EQ(addedBooks(booksNamed("ab"), booksNamed("ab")), booksNamed(""));
}

TEST(AddedBooks, StandInFrontOfTheBooksOfASecondList) {
  EXPECT_EQ(addedBooks(booksNamed("abxy"), booksNamed("abcxy")), booksNamed("c"));
  EXPECT_EQ(addedBooks(booksNamed("x"), booksNamed("abx")), booksNamed("ab"));
}

TEST(AddedBooks, AreNotThoseThatAnotherHostHasRenamed) {
  EXPECT_EQ(addedBooks(booksNamed("abc"), booksNamed("xbcd")), booksNamed("d"));
  EXPECT_EQ(addedBooks(booksNamed("abc"), booksNamed("ab")), booksNamed(""));
}

TEST_F(CatalogueReader, ReadsEntriesHoweverTheyAreWritten) {
  const std::vector<ListedBook> books = booksIn(
      "<Quor_Master>\n<Quor_Books>\n<!-- old -->\n<Book/>\n"
      "<Book><?Book_Acro X?><Book_Acro>A</Book_Acro><Book_Name>Al<i>ar</i>ms</Book_Name>"
      "<Book_Key id=\"k\">Plant</Book_Key><Book_Name>Other</Book_Name>"
      "<Book_Folder> </Book_Folder><Book_File type=\"pdf\">a.pdf</Book_File>"
      "<Book_Categories>\n<Category>One</Category>\n<Category>Two</Category></Book_Categories>"
      "</Book></Quor_Books><Quor_Books><Book><Book_File kind=\"\">b.xml</Book_File></Book>"
      "</Quor_Books></Quor_Master>");
  ASSERT_EQ(books.size(), 3U);
  EXPECT_EQ(books[0], ListedBook());
  EXPECT_EQ(books[1].name, "Alarms");
  EXPECT_EQ(books[1].acronym, "A");
  EXPECT_EQ(books[1].folder, " ");
  EXPECT_EQ(books[1].bookFile, "a.pdf");
  EXPECT_EQ(books[1].fileType, "pdf");
  EXPECT_EQ(books[1].link, "k");
  EXPECT_EQ(books[1].categories, (std::vector<std::string>{"One", "Two"}));
  EXPECT_EQ(books[2].bookFile, "b.xml");
  EXPECT_EQ(books[2].fileType, "");
}

TEST_F(CatalogueReader, FindsNoListInANamespace) {
  EXPECT_THROW(
      booksIn("<Quor_Master xmlns=\"urn:x\"><Quor_Books><Book/></Quor_Books></Quor_Master>"),
      CommandFailure);
}

TEST_F(CatalogueReader, TellsWhereACatalogueDoesNotParse) {
  expectList("<Quor_Master><Quor_Books/>\n</Quor_Mast>", false);
}

}  // namespace
}  // namespace quorbind::testing
