#include "catalogue/book_merge.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "platform/text.h"
#include "tests/support/book_text.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/unsavable_xml.h"
#include "tests/support/world.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::string_view kSource = "Quorbind:Book_Config::strMatchingBooksInfo";
constexpr std::string_view kObjectNotSet =
    "critical: Error(91): Object variable or With block variable not set\r";

class BookMerge : public ::testing::Test {
 protected:
  void writeMain(std::string_view bytes) { world_.disk.write("Main/Quor_TOC.xml", bytes); }
  void writeOther(std::string_view bytes) { world_.disk.write("Other/Quor_TOC.xml", bytes); }
  void writeBookXml(const BookCase& book) {
    world_.disk.write("Main/Manual/Book_" + book.acronym + ".xml", bookXmlOf(book));
  }
  void merge() {
    strMatchingBooksInfo(world_.platform(), "C:\\Main\\Quor_TOC.xml", "C:\\Other\\Quor_TOC.xml");
  }
  [[nodiscard]] std::string file(std::string_view name) const {
    return replaceAll(world_.disk.read(name), "\r\n", "\n");
  }
  [[nodiscard]] const std::vector<std::string>& record() const { return world_.user.record(); }

  World world_;
};

TEST_F(BookMerge, CopiesLinkAndCategoriesIntoTheEntryAndIntoTheBookFile) {
  const BookCase before{"Alarms", "ALM", "", {"Old"}};
  const BookCase after{"Alarms", "ALM", "ALM@QUOR@1", {"New", "Newer"}};
  writeMain(catalogueWith(entryOf(before) + bookEntry("Trends", "TRD")));
  writeOther(catalogueWith(bookEntry("Basics", "BAS") + entryOf(after)));
  writeBookXml(before);
  const std::string other = world_.disk.read("Other/Quor_TOC.xml");
  merge();

  EXPECT_THAT(record(), IsEmpty());
  EXPECT_EQ(file("Main/Quor_TOC.xml"), catalogueWith(entryOf(after) + bookEntry("Trends", "TRD")));
  EXPECT_EQ(file("Main/Manual/Book_ALM.xml"), bookXmlOf(after));
  EXPECT_EQ(world_.disk.read("Other/Quor_TOC.xml"), other);
}

TEST_F(BookMerge, LeavesABookFileAloneThatTheEntryLeadsOutOfTheLibraryTo) {
  const BookCase before{"Alarms", "ALM", "", {"Old"}};
  const BookCase after{"Alarms", "ALM", "ALM@QUOR@1", {"New"}};
  for (const char* folder : {"..\\Other", "Manual\\..\\..\\Other", "C:\\Other"}) {
    const auto outside = [folder](const BookCase& book) {
      return catalogueWith(replaceAll(entryOf(book), "Manual", folder));
    };
    writeMain(outside(before));
    writeOther(catalogueWith(entryOf(after)));
    world_.disk.write("Other/Book_ALM.xml", bookXmlOf(before));
    merge();

    EXPECT_THAT(record(), IsEmpty()) << folder;
    EXPECT_EQ(file("Main/Quor_TOC.xml"), outside(after)) << folder;
    EXPECT_EQ(file("Other/Book_ALM.xml"), bookXmlOf(before)) << folder;
  }
}

TEST_F(BookMerge, TakesAwayWhatTheOtherCatalogueDoesNotHave) {
  const BookCase before{"Alarms", "ALM", "old link", {"Old", "Older"}};
  const BookCase after{"Alarms", "ALM", "", {}};
  writeMain(catalogueWith(entryOf(before)));
  writeOther(catalogueWith(entryOf(after)));
  writeBookXml(before);
  merge();

  EXPECT_EQ(file("Main/Quor_TOC.xml"), catalogueWith(entryOf(after)));
  EXPECT_EQ(file("Main/Manual/Book_ALM.xml"), bookXmlOf(after));
}

TEST_F(BookMerge, MatchesABookByNameAndAcronymTogether) {
  writeMain(catalogueWith(bookEntry("Alarms", "ALM") + bookEntry("Trends", "TRD")));
  writeOther(catalogueWith(entryOf({"Alarms", "TRD", "1", {"1"}}) +
                           entryOf({"Trends", "ALM", "2", {"2"}}) +
                           entryOf({"alarms", "ALM", "3", {"3"}})));
  merge();
  EXPECT_THAT(record(), IsEmpty());
  EXPECT_EQ(file("Main/Quor_TOC.xml"),
            catalogueWith(bookEntry("Alarms", "ALM") + bookEntry("Trends", "TRD")));
}

TEST_F(BookMerge, ServesTwoEntriesThatAreCalledTheSameFromOneEntry) {
  writeMain(catalogueWith(bookEntry("Alarms", "ALM") + bookEntry("Alarms", "ALM")));
  const BookCase other{"Alarms", "ALM", "1", {"A", "B"}};
  writeOther(catalogueWith(entryOf(other)));
  merge();
  EXPECT_EQ(file("Main/Quor_TOC.xml"), catalogueWith(entryOf(other) + entryOf(other)));
}

TEST_F(BookMerge, ComparesNamesInTheirStoredForm) {
  const BookCase other{"R&amp;amp;D &amp;lt;&amp;gt;&amp;quot;&amp;apos;", "RD", "1", {"A"}};
  writeMain(catalogueWith(bookEntry(other.name, "RD")));
  writeOther(catalogueWith(entryOf(other)));
  merge();
  EXPECT_EQ(file("Main/Quor_TOC.xml"), catalogueWith(entryOf(other)));
}

TEST_F(BookMerge, KeepsTheNamesOfTheElementsInTheEntryAndNotInTheBookFile) {
  writeMain(
      "<Quor_Master><Quor_Books><Book><Book_Name>A</Book_Name><Book_Acro>1</Book_Acro>"
      "<Book_File>b.xml</Book_File><Book_Categories/></Book></Quor_Books></Quor_Master>");
  writeOther(
      "<Quor_Master><Quor_Books><Book><Book_Name>A</Book_Name><Book_Acro>1</Book_Acro>"
      "<Book_Categories><Other x='1'>C</Other><!--D--></Book_Categories></Book>"
      "</Quor_Books></Quor_Master>");
  world_.disk.write("Main/b.xml",
                    "<Book_Master><Book><Book_Categories>x</Book_Categories></Book></Book_Master>");
  merge();

  EXPECT_EQ(file("Main/Quor_TOC.xml"),
            "<Quor_Master>\n"
            "\t<Quor_Books>\n"
            "\t\t<Book>\n"
            "\t\t\t<Book_Name>A</Book_Name>\n"
            "\t\t\t<Book_Acro>1</Book_Acro>\n"
            "\t\t\t<Book_File>b.xml</Book_File>\n"
            "\t\t\t<Book_Categories>\n"
            "\t\t\t\t<Other x=\"1\">C</Other>\n"
            "\t\t\t\t<!--D-->\n"
            "\t\t\t</Book_Categories>\n"
            "\t\t</Book>\n"
            "\t</Quor_Books>\n"
            "</Quor_Master>\n");
  EXPECT_EQ(file("Main/b.xml"),
            "<Book_Master>\n"
            "\t<Book>\n"
            "\t\t<Book_Categories>\n"
            "\t\t\t<Category>C</Category>\n"
            "\t\t\t<Category>D</Category>\n"
            "\t\t</Book_Categories>\n"
            "\t</Book>\n"
            "</Book_Master>\n");
}

TEST_F(BookMerge, FindsABookFileInTheLibrarysOwnFolder) {
  const BookCase after{"Alarms", "ALM", "1", {"A"}};
  writeMain(replaceAll(catalogueWith(bookEntry("Alarms", "ALM")), "Manual", ""));
  writeOther(catalogueWith(entryOf(after)));
  world_.disk.write("Main/Book_ALM.xml", bookXmlOf({"Alarms", "ALM", "", {}}));
  merge();
  EXPECT_EQ(file("Main/Book_ALM.xml"), bookXmlOf(after));
}

TEST_F(BookMerge, FindsNoBookFileWhenTheFileNameStandsBeforeTheFolder) {
  writeMain(
      "<Quor_Master><Quor_Books><Book><Book_Name>Alarms</Book_Name><Book_Acro>ALM</Book_Acro>"
      "<Book_File>Book_ALM.xml</Book_File><Book_Folder>Manual</Book_Folder>"
      "</Book></Quor_Books></Quor_Master>");
  writeOther(catalogueWith(entryOf({"Alarms", "ALM", "1", {"A"}})));
  const BookCase book{"Alarms", "ALM", "", {}};
  writeBookXml(book);
  merge();
  EXPECT_THAT(record(), IsEmpty());
  EXPECT_EQ(world_.disk.read("Main/Manual/Book_ALM.xml"), bookXmlOf(book));
}

TEST_F(BookMerge, UpdatesTheEntryWhenTheBookFileIsMissingOrDoesNotLoad) {
  const BookCase alarms{"Alarms", "ALM", "1", {"A"}};
  const BookCase trends{"Trends", "TRD", "2", {"B"}};
  writeMain(catalogueWith(bookEntry("Alarms", "ALM") + bookEntry("Trends", "TRD")));
  writeOther(catalogueWith(entryOf(alarms) + entryOf(trends)));
  world_.disk.write("Main/Manual/Book_ALM.xml", "<Book_Master>");
  merge();
  EXPECT_THAT(record(), IsEmpty());
  EXPECT_EQ(world_.disk.read("Main/Manual/Book_ALM.xml"), "<Book_Master>");
  EXPECT_FALSE(world_.disk.has("Main/Manual/Book_TRD.xml"));
  EXPECT_EQ(file("Main/Quor_TOC.xml"), catalogueWith(entryOf(alarms) + entryOf(trends)));
}

TEST_F(BookMerge, LeavesTheFileOfAnEntryWithATypeAloneWhateverIsInIt) {
  const BookCase before{"Plan", "PLN", "", {}};
  const BookCase after{"Plan", "PLN", "1", {"A"}};
  const BookCase alarms{"Alarms", "ALM", "2", {"B"}};
  const auto withType = [](const std::string& entry) {
    return replaceAll(entry, "<Book_File>Book_PLN", "<Book_File type=\"htm\">Book_PLN");
  };
  for (const std::string& document :
       {std::string("<html><body/></html>"), std::string("<p>no XML"), bookXmlOf(before)}) {
    writeMain(catalogueWith(withType(entryOf(before)) + bookEntry("Alarms", "ALM")));
    writeOther(catalogueWith(entryOf(after) + entryOf(alarms)));
    writeBookXml({"Alarms", "ALM", "", {}});
    world_.disk.write("Main/Manual/Book_PLN.xml", document);
    merge();
    EXPECT_THAT(record(), IsEmpty());
    EXPECT_EQ(file("Main/Quor_TOC.xml"), catalogueWith(withType(entryOf(after)) + entryOf(alarms)));
    EXPECT_EQ(world_.disk.read("Main/Manual/Book_PLN.xml"), document);
    EXPECT_EQ(file("Main/Manual/Book_ALM.xml"), bookXmlOf(alarms));
  }
}

TEST_F(BookMerge, TakesAMainPathWithForwardSlashes) {
  const BookCase after{"Alarms", "ALM", "1", {"A"}};
  writeMain(catalogueWith(bookEntry("Alarms", "ALM")));
  writeOther(catalogueWith(entryOf(after)));
  writeBookXml({"Alarms", "ALM", "", {}});
  strMatchingBooksInfo(world_.platform(), "C:/Main/Quor_TOC.xml", "C:/Other/Quor_TOC.xml");
  EXPECT_EQ(file("Main/Manual/Book_ALM.xml"), bookXmlOf(after));
}

TEST_F(BookMerge, ChangesNothingWhenTheOtherCatalogueIsTheMainOne) {
  const BookCase book{"Alarms", "ALM", "1", {"A", "B"}};
  writeMain(catalogueWith(entryOf(book)));
  writeBookXml(book);
  strMatchingBooksInfo(world_.platform(), "C:\\Main\\Quor_TOC.xml", "C:\\Main\\Quor_TOC.xml");
  EXPECT_EQ(file("Main/Quor_TOC.xml"), catalogueWith(entryOf(book)));
  EXPECT_EQ(file("Main/Manual/Book_ALM.xml"), bookXmlOf(book));
}

TEST_F(BookMerge, TakesTheOtherCatalogueInWhateverEncodingItIs) {
  const BookCase after{"Übersicht", "UBS", "Ü@QUOR@1", {"Ä"}};
  writeMain(catalogueWith(bookEntry("Übersicht", "UBS")));
  writeOther(utf16File(replaceAll(catalogueWith(entryOf(after)), "UTF-8", "UTF-16")));
  merge();
  EXPECT_EQ(file("Main/Quor_TOC.xml"), catalogueWith(entryOf(after)));
}

// What can't be done

TEST_F(BookMerge, SavesTheMainCatalogueAsItIsWhenTheOtherOneDoesNotLoad) {
  writeMain("<Quor_Master><Quor_Books/></Quor_Master>");
  merge();
  EXPECT_THAT(record(), IsEmpty());
  EXPECT_EQ(file("Main/Quor_TOC.xml"), "<Quor_Master>\n\t<Quor_Books/>\n</Quor_Master>\n");
}

TEST_F(BookMerge, ReportsAMainCatalogueThatDoesNotLoadAndLeavesItAsItWas) {
  writeOther(catalogueWith(bookEntry("Alarms", "ALM")));
  const std::string box =
      "critical: Error(-1072896680): XML document must have a top level element.\r" +
      std::string(kSource);
  for (const std::string bytes : {"", "<Quor_Master><Quor_Books>"}) {
    writeMain(bytes);
    world_.user.forget();
    merge();
    EXPECT_THAT(record(), ElementsAre(box));
    EXPECT_EQ(world_.disk.read("Main/Quor_TOC.xml"), bytes);
  }
}

TEST_F(BookMerge, MakesNoMainCatalogueWhereThereIsNone) {
  writeOther(catalogueWith(bookEntry("Alarms", "ALM")));
  merge();
  EXPECT_EQ(world_.user.messages().size(), 1U);
  EXPECT_FALSE(world_.disk.has("Main/Quor_TOC.xml"));
}

TEST_F(BookMerge, EndsAtANameThatHoldsADoubleQuotationMarkAndSavesNoCatalogue) {
  const BookCase after{"Alarms", "ALM", "1", {"A"}};
  const std::string before =
      catalogueWith(bookEntry("Alarms", "ALM") + bookEntry("a\"b", "AB") + bookEntry("T", "T"));
  writeMain(before);
  writeOther(catalogueWith(entryOf(after) + entryOf({"T", "T", "2", {}})));
  writeBookXml({"Alarms", "ALM", "", {}});
  writeBookXml({"T", "T", "", {}});
  merge();
  EXPECT_THAT(record(),
              ElementsAre("critical: Error(-2147467259): The value a\"b can't stand in a query "
                          "between the quote characters it contains.\r" +
                          std::string(kSource)));
  EXPECT_EQ(world_.disk.read("Main/Quor_TOC.xml"), before);
  EXPECT_EQ(file("Main/Manual/Book_ALM.xml"), bookXmlOf(after));
  EXPECT_EQ(file("Main/Manual/Book_T.xml"), bookXmlOf({"T", "T", "", {}}));
}

TEST_F(BookMerge, ReportsAnEntryWithoutAName) {
  const std::string before = catalogueWith("\t\t<Book/>\n");
  writeMain(before);
  writeOther(catalogueWith(""));
  merge();
  EXPECT_THAT(record(), ElementsAre(std::string(kObjectNotSet) + std::string(kSource)));
  EXPECT_EQ(world_.disk.read("Main/Quor_TOC.xml"), before);
}

TEST_F(BookMerge, ReportsAKeyWithoutALink) {
  const std::string before = replaceAll(catalogueWith(bookEntry("Alarms", "ALM")), " id=\"\"", "");
  writeMain(before);
  writeOther(catalogueWith(entryOf({"Alarms", "ALM", "1", {}})));
  merge();
  EXPECT_THAT(record(), ElementsAre(std::string(kObjectNotSet) + std::string(kSource)));
  EXPECT_EQ(world_.disk.read("Main/Quor_TOC.xml"), before);
}

TEST_F(BookMerge, ReportsABookFileWithAnotherRootAndLeavesItAsItWas) {
  const std::string before = catalogueWith(bookEntry("Alarms", "ALM"));
  writeMain(before);
  writeOther(catalogueWith(entryOf({"Alarms", "ALM", "1", {"A"}})));
  world_.disk.write("Main/Manual/Book_ALM.xml", "<html><body/></html>");
  merge();
  EXPECT_THAT(record(), ElementsAre(std::string(kObjectNotSet) + std::string(kSource)));
  EXPECT_EQ(world_.disk.read("Main/Manual/Book_ALM.xml"), "<html><body/></html>");
  EXPECT_EQ(world_.disk.read("Main/Quor_TOC.xml"), before);
}

TEST_F(BookMerge, ReportsAMainCatalogueThatCanNotBeWritten) {
  const std::string before = catalogueWith(bookEntry("Alarms", "ALM"));
  writeMain(before);
  writeOther(catalogueWith(bookEntry("Alarms", "ALM")));
  const Platform& ports = world_.platform();
  UnsavableXml xml(ports.xml, "C:\\Main\\Quor_TOC.xml");
  strMatchingBooksInfo(
      {ports.files, xml, ports.ui, ports.toolset, ports.locale, ports.spreadsheets},
      "C:\\Main\\Quor_TOC.xml",
      "C:\\Other\\Quor_TOC.xml");
  EXPECT_THAT(record(),
              ElementsAre("critical: Error(70): Permission denied\r" + std::string(kSource)));
  EXPECT_EQ(world_.disk.read("Main/Quor_TOC.xml"), before);
}

// Many books

TEST_F(BookMerge, MatchesEachOfManyBooksWithItsOwn) {
  constexpr int kBooks = 2'000;
  std::vector<BookCase> books;
  for (int number = 0; number < kBooks; ++number) {
    const std::string text = std::to_string(number);
    books.push_back({"Book " + text, "B" + text, "link " + text, {"category " + text}});
  }
  std::string before;
  std::string after;
  for (const BookCase& book : books) {
    before += bookEntry(book.name, book.acronym);
    after += entryOf(book);
  }
  std::mt19937 random(1);
  std::shuffle(books.begin(), books.end(), random);
  std::string other;
  for (const BookCase& book : books) {
    other += entryOf(book);
  }
  writeMain(catalogueWith(before));
  writeOther(catalogueWith(other));
  merge();
  EXPECT_THAT(record(), IsEmpty());
  EXPECT_TRUE(file("Main/Quor_TOC.xml") == catalogueWith(after));
}

}  // namespace
}  // namespace quorbind::testing
