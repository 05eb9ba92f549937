#include "workflow/inputs/book_entry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/text.h"
#include "tests/support/catalogue_text.h"
#include "tests/support/world.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class BookEntry : public ::testing::Test {
 protected:
  BookEntry() {
    world_.state().currentBookName = "Pump Station";
    world_.state().currentBookAcro = "PST";
    world_.disk.write("Quor_TOC.xml", catalogueWith(bookEntry("Alarms", "ALM")));
  }
  void add(const std::string& category = "") {
    mbAddBookTocForBook(world_.module, "C:\\Quor_TOC.xml", "Prod", "Manual", category);
  }
  /// The catalogue with its line ends as LF.
  [[nodiscard]] std::string catalogue() const {
    return replaceAll(world_.disk.read("Quor_TOC.xml"), "\r\n", "\n");
  }
  [[nodiscard]] static std::string entryWith(std::string_view categories) {
    return "\t\t<Book>\n"
           "\t\t\t<Book_Name>Pump Station</Book_Name>\n"
           "\t\t\t<Book_Acro>PST</Book_Acro>\n"
           "\t\t\t<Book_Key id=\"\">Prod</Book_Key>\n"
           "\t\t\t<Book_Folder>Manual</Book_Folder>\n"
           "\t\t\t<Book_File>Book_PST.xml</Book_File>\n" +
           std::string(categories) + "\t\t</Book>\n";
  }

  World world_;
};

TEST_F(BookEntry, IsAppendedBehindTheOthersWhoseOrderStays) {
  const std::string others =
      bookEntry("Trends", "TRD") + bookEntry("Alarms", "ALM") + bookEntry("Basics", "BAS");
  world_.disk.write("Quor_TOC.xml", catalogueWith(others));
  add();
  EXPECT_EQ(catalogue(), catalogueWith(others + entryWith("\t\t\t<Book_Categories/>\n")));
  EXPECT_THAT(world_.user.record(), IsEmpty());
}

TEST_F(BookEntry, HoldsOneCategoryWithItsBlanksWhenThereIsNoSeparator) {
  add(" Alarms and events ");
  EXPECT_EQ(catalogue(),
            catalogueWith(bookEntry("Alarms", "ALM") +
                          entryWith("\t\t\t<Book_Categories>\n"
                                    "\t\t\t\t<Book_Category> Alarms and events </Book_Category>\n"
                                    "\t\t\t</Book_Categories>\n")));
}

TEST_F(BookEntry, SplitsCategoriesAtSemicolonsTrimsThemAndKeepsEmptyOnes) {
  add("Alarms;; Trends, old ");
  EXPECT_EQ(catalogue(),
            catalogueWith(bookEntry("Alarms", "ALM") +
                          entryWith("\t\t\t<Book_Categories>\n"
                                    "\t\t\t\t<Book_Category>Alarms</Book_Category>\n"
                                    "\t\t\t\t<Book_Category/>\n"
                                    "\t\t\t\t<Book_Category>Trends, old</Book_Category>\n"
                                    "\t\t\t</Book_Categories>\n")));
}

TEST_F(BookEntry, SplitsAtCommasOnlyWhereThereIsNoSemicolon) {
  add("Alarms, Trends");
  EXPECT_EQ(catalogue(),
            catalogueWith(bookEntry("Alarms", "ALM") +
                          entryWith("\t\t\t<Book_Categories>\n"
                                    "\t\t\t\t<Book_Category>Alarms</Book_Category>\n"
                                    "\t\t\t\t<Book_Category>Trends</Book_Category>\n"
                                    "\t\t\t</Book_Categories>\n")));
}

TEST_F(BookEntry, StoresNamesInTheFormThatXmlHolds) {
  world_.state().currentBookName = "R&D";
  add();
  EXPECT_THAT(catalogue(), ::testing::HasSubstr("<Book_Name>R&amp;amp;D</Book_Name>"));
}

TEST_F(BookEntry, NamesItsFileByTheAcronymThatABookFileStated) {
  world_.state().recordedXmlAcro = "REC";
  add();
  EXPECT_THAT(catalogue(), ::testing::HasSubstr("<Book_File>Book_REC.xml</Book_File>"));
  EXPECT_THAT(catalogue(), ::testing::HasSubstr("<Book_Acro>PST</Book_Acro>"));
}

TEST_F(BookEntry, IsAttachedNowhereInACatalogueWithoutBooks) {
  const std::string before = "<?xml version=\"1.0\"?>\n<Quor_Master>\n\t<Other/>\n</Quor_Master>\n";
  world_.disk.write("Quor_TOC.xml", before);
  add();
  EXPECT_EQ(catalogue(), before);
  EXPECT_THAT(world_.user.record(), IsEmpty());
}

TEST_F(BookEntry, LeavesACatalogueThatDoesNotLoadAsItWas) {
  world_.disk.write("Quor_TOC.xml", "<Quor_Master><Quor_Books>");
  add();
  EXPECT_EQ(world_.disk.read("Quor_TOC.xml"), "<Quor_Master><Quor_Books>");
  EXPECT_THAT(world_.user.record(),
              ElementsAre("critical: Error(91): Object variable or With block variable not set\r"
                          "Quorbind: Quor_Book::mbAddBookTocForBook"));
}

TEST_F(BookEntry, KeepsCommentsAndForeignElementsOfTheCatalogue) {
  world_.disk.write("Quor_TOC.xml",
                    "<!-- ours --><Quor_Master><Note lang='en'>kept</Note><Quor_Books/>"
                    "</Quor_Master>");
  add();
  EXPECT_EQ(catalogue(),
            "<!-- ours -->\n"
            "<Quor_Master>\n"
            "\t<Note lang=\"en\">kept</Note>\n"
            "\t<Quor_Books>\n" +
                entryWith("\t\t\t<Book_Categories/>\n") +
                "\t</Quor_Books>\n"
                "</Quor_Master>\n");
}

}  // namespace
}  // namespace quorbind::testing
