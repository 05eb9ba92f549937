#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <utility>

#include "platform/xml_document.h"
#include "tests/support/book_run_test.h"
#include "tests/support/catalogue_text.h"
#include "tests/support/toolset_doubles.h"
#include "toc/text_form.h"
#include "workflow/driver/quor_book.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

/// A listener that does what the test tells it.
class RunningEvents final : public QuorBookEvents {
 public:
  explicit RunningEvents(std::function<void(std::string_view)> reaction)
      : reaction_(std::move(reaction)) {}
  void evtGetFolderName(std::string_view sFolderName) override { reaction_(sFolderName); }

  Quor_Book* book = nullptr;

 private:
  std::function<void(std::string_view)> reaction_;
};

class AddBook : public BookRunTest {
 protected:
  AddBook() : BookRunTest("C:\\in\\toc.txt", 4, "lib") { writeToc("Manual\\"); }

  /// A table of contents of a book and two headings, as the generator and the rules both read it.
  void writeToc(const std::string& folder) {
    std::string text = "\"Node Level\" \"Node Name\" \"File Name\" \"Sub Link\"\r\n\r\n";
    for (const auto& [level, name, file] : {std::tuple{1, "Pump Station", "cover.htm"},
                                            std::tuple{2, "Start", "start.htm"},
                                            std::tuple{3, "Cold start", "cold.htm"}}) {
      const std::string path = folder + file;
      text += "\"" + std::to_string(level) + "\" \"" + name + "\" \"" + path + "\" \"\" " +
              text_form::lineOf({.level = level, .name = name, .file = path}) + "\r\n";
    }
    world_.disk.write("in/toc.txt", text);
  }

  bool run(const std::string& name = "Pump Station", const std::string& acronym = "PST") {
    return BookRunTest::run(name, acronym);
  }
};

TEST_F(AddBook, GoesThroughItsStagesInOrder) {
  EXPECT_TRUE(run());
  EXPECT_EQ(world_.user.record(), everyStage("Manual"));
}

TEST_F(AddBook, BringsTheBookFileIntoTheLibraryAndLeavesNoneBehind) {
  EXPECT_TRUE(run());
  EXPECT_TRUE(world_.disk.has("lib/Manual/Book_PST.xml"));
  EXPECT_FALSE(world_.disk.has("in/Book_PST.xml"));
  EXPECT_THAT(world_.text("lib/Manual/Book_PST.xml"),
              HasSubstr("<Book_Path>Prod\\Manual</Book_Path>"));
}

TEST_F(AddBook, BringsTheDocumentsThatStandInTheBooksFolder) {
  world_.disk.write("in/Manual/start.htm", "start page");
  world_.disk.write("in/Manual/other.htm", "not named");
  EXPECT_TRUE(run());
  EXPECT_EQ(world_.disk.read("lib/Manual/start.htm"), "start page");
  EXPECT_FALSE(world_.disk.has("lib/Manual/other.htm"));
  EXPECT_TRUE(world_.disk.has("lib/Manual/Book_PST.xml"));
  EXPECT_FALSE(world_.disk.has("in/Manual/Book_PST.xml"));
}

TEST_F(AddBook, RegistersTheBookAsTheLastOfTheCatalogue) {
  arguments_.vstrCategory = "Operation";
  EXPECT_TRUE(run());
  EXPECT_THAT(catalogue(),
              HasSubstr("</Book>\r\n"
                        "\t\t<Book>\r\n"
                        "\t\t\t<Book_Name>Pump Station</Book_Name>\r\n"
                        "\t\t\t<Book_Acro>PST</Book_Acro>\r\n"
                        "\t\t\t<Book_Key id=\"\">Prod</Book_Key>\r\n"
                        "\t\t\t<Book_Folder>Manual</Book_Folder>\r\n"
                        "\t\t\t<Book_File>Book_PST.xml</Book_File>\r\n"
                        "\t\t\t<Book_Categories>\r\n"
                        "\t\t\t\t<Book_Category>Operation</Book_Category>\r\n"
                        "\t\t\t</Book_Categories>\r\n"
                        "\t\t</Book>\r\n"
                        "\t</Quor_Books>"));
}

TEST_F(AddBook, UnderstandsForwardSlashesInThePathsOfAHost) {
  arguments_.vstrtocpath = "C:/in/toc.txt";
  arguments_.vstrQuorTOcPath = "C:/lib/Quor_TOC.xml";
  EXPECT_TRUE(run());
  EXPECT_TRUE(world_.disk.has("lib/Manual/Book_PST.xml"));
  EXPECT_THAT(catalogue(), HasSubstr("<Book_Acro>PST</Book_Acro>"));
  EXPECT_THAT(world_.user.recordWithoutProgress(), ElementsAre("event [Manual]"));
}

// What an author writes without the marks passes the check and gives a book without headings.
TEST_F(AddBook, RegistersATableWithoutMarksAsABookWithoutHeadings) {
  world_.disk.write("in/toc.txt",
                    "\"a\" \"b\" \"c\" \"d\"\n\n\"1\" \"B\" \"Manual\\c.htm\" \"\"\n");
  world_.user.answerWith(enterFolder("Manual"));
  EXPECT_TRUE(run());
  EXPECT_THAT(world_.user.recordWithoutProgress(),
              ElementsAre("form frmBookFolder",
                          "critical: Error(9): Subscript out of range\r"
                          "Quorbind:CTOCToXML::mGenerateBookHeadings",
                          "event [Manual]"));
  EXPECT_THAT(world_.text("lib/Manual/Book_PST.xml"), HasSubstr("<Book_Headings/>"));
  EXPECT_THAT(catalogue(), HasSubstr("<Book_Acro>PST</Book_Acro>"));
}

TEST_F(AddBook, GoesOnWithEmptyValuesOfTheLastDialog) {
  world_.user.answerWith(enterBook("", ""));
  EXPECT_TRUE(run("Pump Station", "ALM"));
  EXPECT_THAT(
      world_.user.recordWithoutProgress(),
      ElementsAre(
          "critical: Error:Book Acro ALM already Exists", "form frmBookInfo", "event [Manual]"));
  EXPECT_TRUE(world_.disk.has("lib/Manual/Book_.xml"));
  EXPECT_THAT(catalogue(), HasSubstr("<Book_Acro/>"));
}

TEST_F(AddBook, AsksForNameAcronymAndFolderThatNobodyGave) {
  writeToc("");
  world_.user.answerWith([](ModalForm& form) {
    EXPECT_EQ(form.labelText("lblFileName"), "C:\\in\\toc.txt");
    EXPECT_EQ(form.boxText("txtBookName"), "Pump Station") << "from the table of contents";
    form.type("txtBookAcro", "PST");
    form.click("cmdOk");
  });
  world_.user.answerWith(enterFolder("Manual"));
  EXPECT_TRUE(run("", ""));
  EXPECT_TRUE(world_.disk.has("lib/Manual/Book_PST.xml"));
  EXPECT_THAT(world_.user.record(),
              ElementsAre("progress 0/10 ",
                          "progress 0/10 Toc Validation in Progress...",
                          "progress 2/10 Toc Validation in Progress...",
                          "progress 2/10 TOC to XML Conversion in Progress...",
                          "progress hidden",
                          "form frmBookInfo",
                          "progress 2/10 TOC to XML Conversion in Progress...",
                          "form frmBookFolder",
                          "progress 4/10 TOC to XML Conversion in Progress...",
                          "progress 4/10 File copying in progress...",
                          "progress 8/10 File copying in progress...",
                          "progress 8/10 Adding Book to Quor_TOC.XML....",
                          "progress 8/10 Toc Addition Complete",
                          "progress unloaded",
                          "event [Manual]"));
}

TEST_F(AddBook, ForgetsNameAndAcronymAtItsEnd) {
  EXPECT_TRUE(run());
  EXPECT_EQ(world_.state().currentBookName, "");
  EXPECT_EQ(world_.state().currentBookAcro, "");
  EXPECT_EQ(world_.module.bookInfo.txtBookName().text(), "");
}

TEST_F(AddBook, StoresWhatTheOtherOperationsReadFromTheProcess) {
  EXPECT_TRUE(run());
  EXPECT_EQ(world_.state().currentProductName, "Prod");
  EXPECT_EQ(world_.state().currentTocPath, "C:\\in\\toc.txt");
  EXPECT_EQ(world_.state().currentCataloguePath, "C:\\lib\\Quor_TOC.xml");
  EXPECT_EQ(world_.state().currentCategoriesPath, "C:\\lib\\Quor_BookCategories.xml");
}

TEST_F(AddBook, AnswersTrueAndRaisesTheEventForATableOfContentsThatIsNotThere) {
  arguments_.vstrtocpath = "C:\\in\\none.txt";
  EXPECT_TRUE(run());
  EXPECT_THAT(world_.user.recordWithoutProgress(),
              ElementsAre("critical: TOC not found at Path\rC:\\in\\none.txt", "event []"));
  EXPECT_THAT(catalogue(), Not(HasSubstr("PST")));
}

TEST_F(AddBook, AnswersTrueAndRaisesTheEventForAWrongExtension) {
  arguments_.vintType = 1;
  EXPECT_TRUE(run());
  EXPECT_THAT(world_.user.record(),
              ElementsAre("progress 0/10 ",
                          "progress 0/10 Toc Validation in Progress...",
                          "critical: TOC file is not a XML file",
                          "progress unloaded",
                          "event []"));
}

TEST_F(AddBook, AnswersTrueAndRaisesTheEventForACancelledDialog) {
  world_.user.answerWith(pressCancel());
  const auto before = world_.disk.contents();
  EXPECT_TRUE(run("", ""));
  EXPECT_THAT(world_.user.recordWithoutProgress(), ElementsAre("form frmBookInfo", "event []"));
  EXPECT_EQ(world_.disk.contents(), before);
}

TEST_F(AddBook, ClearsTheCancelFlagOfTheRunBefore) {
  world_.state().cancelled = true;
  EXPECT_TRUE(run());
  EXPECT_TRUE(world_.disk.has("lib/Manual/Book_PST.xml"));
}

TEST_F(AddBook, LeavesEverythingAsItWasWhenARuleIsBroken) {
  world_.disk.write("in/toc.txt", "\"a\" \"b\" \"c\" \"d\"\n\n\"2\" \"B\" \"\" \"\"\n");
  const auto before = world_.disk.contents();
  EXPECT_TRUE(run());
  EXPECT_EQ(world_.disk.contents(), before);
  EXPECT_THAT(world_.user.recordWithoutProgress(),
              ElementsAre("critical: Line: \"2\" \"B\" \"\" \"\"\r"
                          "Error:Invalid Node Level Sequence ",
                          "clipboard: \"2\" \"B\" \"\" \"\"",
                          "event []"));
}

TEST_F(AddBook, LeavesEverythingAsItWasWhenTheStatedFolderLeadsOut) {
  writeToc("..\\");
  world_.disk.write("in/Book_PST.xml", "the author's own");
  const auto before = world_.disk.contents();
  EXPECT_TRUE(run());
  EXPECT_EQ(world_.disk.contents(), before);
  EXPECT_THAT(world_.user.recordWithoutProgress(),
              ElementsAre("critical: Error:Book Folder leads out of the library: ..\\cover.htm",
                          "event []"));
}

TEST_F(AddBook, AsksAgainForADuplicateNameAndAcceptsWhatIsEnteredThen) {
  world_.user.answerWith(enterBook("Alarms 2", "AL2"));
  EXPECT_TRUE(run("Alarms", "AL2"));
  EXPECT_THAT(
      world_.user.recordWithoutProgress(),
      ElementsAre(
          "critical: Error:Book Name Alarms already Exists", "form frmBookInfo", "event [Manual]"));
  EXPECT_THAT(catalogue(), HasSubstr("<Book_Name>Alarms 2</Book_Name>"));
  EXPECT_TRUE(world_.disk.has("lib/Manual/Book_AL2.xml"));
}

TEST_F(AddBook, KeepsABookFileThatWasMadeWhereItBelongs) {
  arguments_.vstrtocpath = "C:\\lib\\toc.txt";
  world_.disk.write("lib/toc.txt", world_.disk.read("in/toc.txt"));
  world_.disk.makeFolder("lib/Manual");
  EXPECT_TRUE(run());
  EXPECT_TRUE(world_.disk.has("lib/Manual/Book_PST.xml"));
  EXPECT_THAT(world_.user.recordWithoutProgress(), ElementsAre("event [Manual]"));
}

TEST_F(AddBook, EndsWithoutTheEventWhenThereIsNoCopyComponent) {
  world_.toolset.breakFileCopy();
  EXPECT_FALSE(run());
  EXPECT_THAT(world_.user.recordWithoutProgress(),
              ElementsAre("critical: Error(429): ActiveX component can't create object\r"
                          "Quorbind: Quor_Book::Book_Valuator"));
  EXPECT_EQ(world_.user.record().back(), "progress unloaded");
  EXPECT_EQ(world_.state().currentBookAcro, "PST") << "the next run starts from it";
}

// The book file can't be made, so there is none to delete either, and the run ends before the
// catalogue.
TEST_F(AddBook, EndsWithoutTheEventWhenNoBookFileCouldBeMade) {
  const auto before = world_.disk.contents();
  EXPECT_FALSE(run("Pump", "no\\such\\folder"));
  EXPECT_THAT(world_.user.recordWithoutProgress(),
              ElementsAre("critical: Error(76): Path not found\r"
                          "Quorbind:CTOCToXML::GenereateXMLFromTOC",
                          "critical: Error(76): Path not found\r"
                          "Quorbind: Quor_Book::Book_Valuator"));
  EXPECT_EQ(world_.user.record().back(), "progress unloaded");
  EXPECT_EQ(world_.disk.contents(), before);
}

TEST_F(AddBook, GoesOnAfterASubOperationReportedAnError) {
  world_.disk.write("lib/Quor_TOC.xml", "<Quor_Master>");
  EXPECT_TRUE(run());
  EXPECT_THAT(world_.user.recordWithoutProgress(),
              ElementsAre("critical: Error(91): Object variable or With block variable not set\r"
                          "Quorbind: Quor_Book::mbAddBookTocForBook",
                          "event [Manual]"));
  EXPECT_EQ(catalogue(), "<Quor_Master>");
}

TEST_F(AddBook, EndsAWorkbookThroughTheCommonEndAfterItsCheck) {
  arguments_.vintType = 3;
  arguments_.vstrtocpath = "C:\\in\\toc.xls";
  world_.disk.write("in/toc.xls", "workbook");
  EXPECT_TRUE(run());
  EXPECT_EQ(world_.user.recordWithoutProgress().back(), "event []");
}

class RecordBook : public AddBook {
 protected:
  RecordBook() {
    arguments_.spath = "C:\\lib\\kw.xml";
    world_.disk.write("lib/kw.xml", "<Books/>");
    world_.disk.write("lib/Quor_BookCategories.xml",
                      "<BookSet_Categories><Category><CategoryName>A</CategoryName></Category>"
                      "<Category><CategoryName>Other Category</CategoryName></Category>"
                      "</BookSet_Categories>");
    world_.disk.write("Quor_DefaultCategories.xml",
                      "<Default_Categories>"
                      "<Quor_Developer_Pro><CategoryName>Pro</CategoryName></Quor_Developer_Pro>"
                      "<Quor_Developer><CategoryName>Guides</CategoryName></Quor_Developer>"
                      "</Default_Categories>");
  }

  /// The texts of what a query finds in a file of the disk.
  [[nodiscard]] std::vector<std::string> texts(const std::string& path,
                                               std::string_view query) const {
    const auto document = world_.platform().xml.createDocument();
    EXPECT_TRUE(document->load(path)) << path;
    std::vector<std::string> result;
    for (const XmlNode& node : document->selectAll(query)) {
      result.push_back(node.text());
    }
    return result;
  }
  [[nodiscard]] std::vector<std::string> keywords() const {
    return texts("C:\\lib\\kw.xml", "Books/Book[@Book_Name='Pump Station']/Keywords/Keyword");
  }
  [[nodiscard]] std::vector<std::string> categories() const {
    return texts("C:\\lib\\Quor_BookCategories.xml", "BookSet_Categories/Category/CategoryName");
  }
  /// The categories under which the book is filed.
  [[nodiscard]] std::vector<std::string> categoriesOfBook() const {
    return texts("C:\\lib\\Quor_BookCategories.xml",
                 "BookSet_Categories/Category[BookAcro='PST']/CategoryName");
  }
};

TEST_F(RecordBook, SplitsKeywordsAtSemicolons) {
  arguments_.strKeyWords = "pump; station";
  EXPECT_TRUE(run());
  EXPECT_THAT(keywords(), ElementsAre("pump", "station"));
  EXPECT_THAT(world_.user.recordWithoutProgress(), ElementsAre("event [Manual]"));
}

TEST_F(RecordBook, RecordsKeywordsUnderTheNameThatTheCatalogueHasAlsoAfterADuplicate) {
  arguments_.strKeyWords = "pump;station";
  world_.user.answerWith(enterBook("R&D's", "RD"));
  EXPECT_TRUE(run("Alarms", "RD"));
  EXPECT_THAT(catalogue(), HasSubstr("<Book_Name>R&amp;amp;D&amp;apos;s</Book_Name>"));
  EXPECT_THAT(texts("C:\\lib\\kw.xml", "Books/Book[@Book_Name='R&amp;D&apos;s']/Keywords/Keyword"),
              ElementsAre("pump", "station"));
}

TEST_F(RecordBook, TakesKeywordsWithACommaAsOneBesideAnEmptyOne) {
  arguments_.strKeyWords = "a,b";
  EXPECT_TRUE(run());
  EXPECT_THAT(keywords(), ElementsAre("a,b"));
}

TEST_F(RecordBook, WritesTheEmptyKeywordBesideASingleOneIntoAFileThatIsMadeForIt) {
  std::filesystem::remove(world_.disk.path() / "lib/kw.xml");
  arguments_.strKeyWords = "pump";
  EXPECT_TRUE(run());
  EXPECT_THAT(keywords(), ElementsAre("", "pump"));
}

TEST_F(RecordBook, WritesKeywordsToThePathForThem) {
  arguments_.vstrKeywordsPath = "C:\\lib\\other.xml";
  arguments_.strKeyWords = "pump";
  EXPECT_TRUE(run());
  EXPECT_THAT(keywords(), ElementsAre("pump"));
  EXPECT_FALSE(world_.disk.has("lib/other.xml"));
}

TEST_F(RecordBook, LeavesTheSideFilesAloneWithoutKeywordsAndCategories) {
  const std::string before = world_.disk.read("lib/Quor_BookCategories.xml");
  arguments_.blnChkCateFlag = true;
  EXPECT_TRUE(run());
  EXPECT_EQ(world_.disk.read("lib/kw.xml"), "<Books/>");
  EXPECT_EQ(world_.disk.read("lib/Quor_BookCategories.xml"), before)
      << "no category, so the file is not made anew either";
}

TEST_F(RecordBook, FilesTheBookUnderTrimmedCategoriesAndSkipsThoseWithMarkupCharacters) {
  arguments_.strCategory = " A ;R&D;a<b;a>b;say \"x\";O'Neil;B, C;";
  EXPECT_TRUE(run());
  EXPECT_THAT(categoriesOfBook(), ElementsAre("A", "B, C"));
  EXPECT_THAT(categories(), ElementsAre("A", "B, C", "Other Category"));
  EXPECT_THAT(world_.user.recordWithoutProgress(), ElementsAre("event [Manual]"));
}

TEST_F(RecordBook, SplitsCategoriesAtCommasOnlyWhereThereIsNoSemicolon) {
  arguments_.strCategory = "B , C";
  EXPECT_TRUE(run());
  EXPECT_THAT(categoriesOfBook(), ElementsAre("B", "C"));
}

TEST_F(RecordBook, TakesASingleCategoryTrimmedWhateverItHolds) {
  arguments_.strCategory = " R&D ";
  EXPECT_TRUE(run());
  EXPECT_THAT(categoriesOfBook(), ElementsAre("R&D"));
}

TEST_F(RecordBook, MakesTheCategoriesFileFirstWhenToldSo) {
  arguments_.strCategory = "B";
  arguments_.blnChkCateFlag = true;
  arguments_.vlngInstallType = 1000;
  EXPECT_TRUE(run());
  EXPECT_THAT(categories(), ElementsAre("Pro", "B", "Other Category"));
  EXPECT_THAT(categoriesOfBook(), ElementsAre("B"));
}

TEST_F(RecordBook, RecordsKeywordsBeforeCategoriesBehindTheLastStatus) {
  arguments_.strKeyWords = "a b;c";
  arguments_.strCategory = "O'Neil";
  EXPECT_TRUE(run());
  EXPECT_THAT(keywords(), ::testing::IsEmpty());
  const std::vector<std::string>& record = world_.user.record();
  EXPECT_THAT(
      std::vector<std::string>(record.end() - 5, record.end()),
      ElementsAre("progress 8/10 Toc Addition Complete",
                  "message: Search keyword should not have any spaces in between the characters",
                  "message: Error -2147467259 (The value O'Neil can't stand in a query between the "
                  "quote characters it contains.) in procedure AddCategoryNode of Class Module "
                  "Quor_Book",
                  "progress unloaded",
                  "event [Manual]"));
}

TEST_F(RecordBook, RecordsNothingOfABookThatTheUserGaveUp) {
  const auto before = world_.disk.contents();
  arguments_.strKeyWords = "pump";
  arguments_.strCategory = "A";
  arguments_.blnChkCateFlag = true;
  world_.user.answerWith(pressCancel());
  EXPECT_TRUE(run("", ""));
  EXPECT_EQ(world_.disk.contents(), before);
}

TEST_F(AddBook, TellsTheFolderThatWasUsedAlthoughTheListenerRunsTheSameObjectAgain) {
  const std::string longFolder = "A folder with a long name";
  writeToc(longFolder + "\\");
  std::vector<std::string> heard;
  RunningEvents events([&](std::string_view folder) {
    if (heard.empty()) {
      heard.emplace_back("first run over");
      // Its level goes on from the first run's, so that this one finds no folder.
      runBook(*events.book, arguments_);
    }
    heard.emplace_back(folder);
  });
  Quor_Book book(world_.module, &events);
  events.book = &book;
  arguments_.vstrBookName = "Pump Station";
  arguments_.vstrBookAcro = "PST";
  EXPECT_TRUE(runBook(book, arguments_));
  EXPECT_THAT(heard, ElementsAre("first run over", "", longFolder));
}

TEST_F(AddBook, HandsTheCopyComponentTheBooksFolderTheBookFileAndTwoZeros) {
  ToolsetWithDoubles toolset(world_.toolset);
  std::vector<std::string> calls;
  toolset.setCopying([&](const std::string& destination,
                         const std::string& source,
                         std::int16_t reservedOverwrite,
                         std::int16_t reservedDialog) {
    calls.push_back(destination + " " + source + " " + std::to_string(reservedOverwrite) + " " +
                    std::to_string(reservedDialog));
    return true;
  });
  const Platform& ports = world_.platform();
  Module module(
      Platform{ports.files, ports.xml, ports.ui, toolset, ports.locale, ports.spreadsheets});
  Quor_Book book(module, &events_);
  arguments_.vstrBookName = "Pump Station";
  arguments_.vstrBookAcro = "PST";
  EXPECT_TRUE(runBook(book, arguments_));
  EXPECT_THAT(calls, ElementsAre("C:\\lib\\Manual C:\\in\\\\Book_PST.xml 0 0"));
  EXPECT_TRUE(world_.platform().files.folderExists("C:\\lib\\Manual"));
}

TEST_F(AddBook, StartsASecondRunWithTheLevelOfTheFirst) {
  EXPECT_TRUE(run());
  world_.user.forget();
  EXPECT_TRUE(run("Other", "OTH"));
  EXPECT_THAT(world_.user.recordWithoutProgress().at(0),
              ::testing::EndsWith("\rError:Invalid Node Level Sequence "));
}

}  // namespace
}  // namespace quorbind::testing
