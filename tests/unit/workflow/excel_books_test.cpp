#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/book_run_test.h"
#include "tests/support/excel_sheets.h"
#include "workflow/driver/quor_book.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

/// The driver on a workbook of two books.
class AddExcelBooks : public BookRunTest {
 protected:
  AddExcelBooks() : BookRunTest("C:\\in\\book.xls", 3, "Docs/Prod") {
    arguments_.vstrBookName = "Not used";
    arguments_.vstrBookAcro = "NOT";
    arguments_.vstrCategory = "General";
    world_.disk.write("Docs/Prod/Quor_BookCategories.xml", "<BookSet_Categories/>");
    world_.disk.write("in/book.xls", "");
    put(kHeadings, kBooks);
  }

  void put(const std::vector<HeadingRow>& headings, const std::vector<BookRow>& books) {
    world_.spreadsheets.put("C:\\in\\book.xls", {headingSheet(headings), bookSheet(books)});
  }

  inline static const std::vector<HeadingRow> kHeadings{
      {"1", "The Lathe", "Lathe\\cover.htm"},
      {"2", "Chuck", "chuck.htm", "#jaws", "Jaws"},
      {"1", "The Saw", "Saw\\cover.htm"},
      {"2", "Blade", "blade.htm"}};
  inline static const std::vector<BookRow> kBooks{{"Lathe", "LTH", "turning", "Machines"},
                                                  {"Saw", "SAW"}};
};

std::string entryOf(const std::string& name,
                    const std::string& acronym,
                    const std::string& folder,
                    const std::string& category) {
  return "\t\t<Book>\r\n"
         "\t\t\t<Book_Name>" +
         name +
         "</Book_Name>\r\n"
         "\t\t\t<Book_Acro>" +
         acronym +
         "</Book_Acro>\r\n"
         "\t\t\t<Book_Key id=\"\">Prod</Book_Key>\r\n"
         "\t\t\t<Book_Folder>" +
         folder +
         "</Book_Folder>\r\n"
         "\t\t\t<Book_File>Book_" +
         acronym +
         ".xml</Book_File>\r\n"
         "\t\t\t<Book_Categories>\r\n"
         "\t\t\t\t<Book_Category>" +
         category +
         "</Book_Category>\r\n"
         "\t\t\t</Book_Categories>\r\n"
         "\t\t</Book>\r\n";
}

TEST_F(AddExcelBooks, EachBookGoesThroughTheStagesAndTheRunEndsWithoutAFolder) {
  EXPECT_TRUE(run());
  EXPECT_EQ(world_.user.record(), everyStage("", 2));
  EXPECT_EQ(world_.state().currentBookName, "");
  EXPECT_EQ(world_.state().currentBookAcro, "");
}

TEST_F(AddExcelBooks, EveryBookComesIntoTheCatalogueBehindThoseThere) {
  EXPECT_TRUE(run());
  EXPECT_THAT(catalogue(), HasSubstr("<Book_Name>Alarms</Book_Name>"));
  EXPECT_THAT(catalogue(),
              HasSubstr("\t\t</Book>\r\n" + entryOf("Lathe", "LTH", "Lathe", "Machines") +
                        entryOf("Saw", "SAW", "Saw", "General") + "\t</Quor_Books>\r\n"));
}

TEST_F(AddExcelBooks, EveryBookFileIsMadeCopiedAndGoneFromTheWorkbooksFolder) {
  world_.disk.write("in/Lathe/chuck.htm", "chuck");
  EXPECT_TRUE(run());
  EXPECT_EQ(world_.disk.read("Docs/Prod/Lathe/chuck.htm"), "chuck");
  EXPECT_THAT(world_.text("Docs/Prod/Lathe/Book_LTH.xml"),
              HasSubstr("\t\t<Book_File type=\"htm\">Lathe\\cover.htm</Book_File>\n"));
  EXPECT_THAT(world_.text("Docs/Prod/Lathe/Book_LTH.xml"),
              HasSubstr("\t<Book_Headings>\n"
                        "\t\t<Heading level=\"H1\" type=\"htm\">\n"
                        "\t\t\t<HName>Chuck</HName>\n"
                        "\t\t\t<HFile>chuck.htm</HFile>\n"
                        "\t\t</Heading>\n"
                        "\t</Book_Headings>\n"));
  EXPECT_THAT(world_.text("Docs/Prod/Saw/Book_SAW.xml"), HasSubstr("<HName>Blade</HName>"));
  EXPECT_FALSE(world_.disk.has("in/Book_LTH.xml"));
  EXPECT_FALSE(world_.disk.has("in/Lathe/Book_LTH.xml"));
  EXPECT_FALSE(world_.disk.has("in/Book_SAW.xml"));
}

TEST_F(AddExcelBooks, KeywordsCategoriesAndLinkIdentifiersAreRecorded) {
  EXPECT_TRUE(run());
  EXPECT_THAT(
      world_.text("Docs/Prod/Quor_SearchKeywords.xml"),
      HasSubstr("<Book Book_Name=\"Lathe\">\n\t\t<Keywords>\n\t\t\t<Keyword>turning</Keyword>"));
  EXPECT_THAT(world_.disk.read("Docs/Prod/Quor_BookCategories.xml"),
              HasSubstr("<CategoryName>Machines</CategoryName>\r\n\t\t<BookAcro>LTH</BookAcro>"));
  EXPECT_THAT(world_.text("Docs/Prod/Quor_LinkID.xml"),
              HasSubstr("<FullLink>LTH@quor@@quor@The Lathe</FullLink>\n"
                        "\t\t\t<LinkIDSourceFile>Prod\\Lathe\\chuck.htm#jaws</LinkIDSourceFile>"));
}

TEST_F(AddExcelBooks, ABookWithoutAnAcronymIsAskedFor) {
  put(kHeadings, {{"Lathe", ""}, {"Saw", "SAW"}});
  world_.user.answerWith([](ModalForm& form) {
    EXPECT_EQ(form.boxText("txtBookName"), "Lathe");
    EXPECT_EQ(form.boxText("txtBookAcro"), "");
    form.type("txtBookAcro", "TURN");
    form.click("cmdOk");
  });
  EXPECT_TRUE(run());
  EXPECT_THAT(world_.user.recordWithoutProgress(), ElementsAre("form frmBookInfo", "event []"));
  EXPECT_THAT(catalogue(), HasSubstr(entryOf("Lathe", "TURN", "Lathe", "General")));
  EXPECT_THAT(catalogue(), HasSubstr(entryOf("Saw", "SAW", "Saw", "General")));
}

TEST_F(AddExcelBooks, CancelGivesUpTheBookAndThoseBehindIt) {
  put(kHeadings, {{"Lathe", "", "turning"}, {"Saw", "SAW"}});
  world_.user.answerWith(pressCancel());
  const std::string before = catalogue();
  EXPECT_TRUE(run());
  EXPECT_THAT(world_.user.recordWithoutProgress(), ElementsAre("form frmBookInfo", "event []"));
  EXPECT_EQ(catalogue(), before);
  EXPECT_FALSE(world_.disk.has("Docs/Prod/Quor_SearchKeywords.xml"));
}

TEST_F(AddExcelBooks, ABookThatTheCatalogueHasIsAskedAboutOnce) {
  put(kHeadings, {{"Alarms", "LTH"}, {"Saw", "SAW"}});
  world_.user.answerWith(enterBook("Alarms", "LTH"));
  EXPECT_TRUE(run());
  EXPECT_THAT(
      world_.user.recordWithoutProgress(),
      ElementsAre(
          "critical: Error:Book Name Alarms already Exists", "form frmBookInfo", "event []"));
}

TEST_F(AddExcelBooks, ABookWithoutAFolderIsAskedForItOnceForAll) {
  put({{"1", "The Lathe", "cover.htm"},
       {"2", "Chuck", "chuck.htm"},
       {"1", "The Saw", "cover.htm"},
       {"2", "Blade", "blade.htm"}},
      kBooks);
  world_.user.answerWith(enterFolder("Workshop"));
  EXPECT_TRUE(run());
  EXPECT_THAT(world_.user.recordWithoutProgress(), ElementsAre("form frmBookFolder", "event []"));
  EXPECT_TRUE(world_.disk.has("Docs/Prod/Workshop/Book_LTH.xml"));
  EXPECT_TRUE(world_.disk.has("Docs/Prod/Workshop/Book_SAW.xml"));
}

TEST_F(AddExcelBooks, AnErrorOfOneBookIsToldAndTheNextFollows) {
  world_.toolset.breakFileCopy();
  EXPECT_TRUE(run());
  const std::string box =
      "critical: Error 429 (ActiveX component can't create object) in procedure BuildExcelBook of "
      "Class Module Quor_Book";
  EXPECT_THAT(world_.user.recordWithoutProgress(), ElementsAre(box, box, "event []"));
  EXPECT_THAT(catalogue(), Not(HasSubstr("LTH")));
  EXPECT_FALSE(world_.disk.has("Docs/Prod/Quor_SearchKeywords.xml"));
}

TEST_F(AddExcelBooks, ABookFileThatIsGoneAfterTheCopyIsNoError) {
  // The catalogue's folder is the workbook's, so the book file is made where it belongs.
  world_.disk.write("in/Quor_TOC.xml", catalogueWith(""));
  arguments_.vstrQuorTOcPath = "C:\\in\\Quor_TOC.xml";
  EXPECT_TRUE(run());
  EXPECT_THAT(world_.user.recordWithoutProgress(), ElementsAre("event []"));
  EXPECT_TRUE(world_.disk.has("in/Lathe/Book_LTH.xml"));
}

TEST_F(AddExcelBooks, AFileThatIsNoWorkbookEndsThroughTheCommonEnd) {
  world_.disk.write("in/other.xls", "text");
  arguments_.vstrtocpath = "C:\\in\\other.xls";
  EXPECT_TRUE(run());
  EXPECT_THAT(world_.user.recordWithoutProgress(),
              ElementsAre("critical: Not a valid Excel file", "event []"));
}

TEST_F(AddExcelBooks, TheWorkbookItselfIsNeverChanged) {
  world_.disk.write("in/book.xls", "as it was");
  EXPECT_TRUE(run());
  EXPECT_EQ(world_.disk.read("in/book.xls"), "as it was");
  EXPECT_EQ(world_.spreadsheets.openNow(), 0);
}

TEST_F(AddExcelBooks, TheBooksOfASheetAreCountedForAHost) {
  const auto sheet = looseSheet(headingSheet(kHeadings));
  EXPECT_EQ(book_.getExcelBookCount(*sheet, 1), 2);
  EXPECT_THAT(world_.user.record(), IsEmpty());
}

TEST_F(AddExcelBooks, ALevelThatIsNoneEndsAHostsCountWithABox) {
  const auto sheet = looseSheet({{}, {}, {"1"}, {"1"}, {"x"}, {"1"}});
  EXPECT_EQ(book_.getExcelBookCount(*sheet, 1), 2);
  EXPECT_THAT(
      world_.user.record(),
      ElementsAre("critical: Row: 5 Column:1\rError:Node Level should be Integer", "clipboard: x"));
}

}  // namespace
}  // namespace quorbind::testing
