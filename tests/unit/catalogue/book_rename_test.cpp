#include "catalogue/book_rename.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/text.h"
#include "tests/support/catalogue_text.h"
#include "tests/support/read_only_files.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/unsavable_xml.h"
#include "tests/support/world.h"
#include "workflow/inputs/form_input.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::string_view kObjectNotSet =
    "critical: Error(91): Object variable or With block variable not set\r";

/// A book XML file, laid out as a save lays it out but for its LF line ends.
std::string bookXml(std::string_view name, std::string_view acronym) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         "<Book_Master>\n"
         "\t<Book>\n"
         "\t\t<Book_Name>" +
         std::string(name) +
         "</Book_Name>\n"
         "\t\t<Book_Acro>" +
         std::string(acronym) +
         "</Book_Acro>\n"
         "\t</Book>\n"
         "\t<Book_Headings/>\n"
         "</Book_Master>\n";
}

/// The entry of a book whose file still has the name that `fileAcronym` gave it.
std::string entryWithFileOf(std::string_view name,
                            std::string_view acronym,
                            std::string_view fileAcronym) {
  return replaceAll(bookEntry(name, acronym),
                    "Book_" + std::string(acronym) + ".xml",
                    "Book_" + std::string(fileAcronym) + ".xml");
}

class BookRenaming : public ::testing::Test {
 protected:
  BookRenaming() {
    world_.disk.write("Lib/Quor_TOC.xml",
                      catalogueWith(bookEntry("Alarms", "ALM") + bookEntry("Trends", "TRD")));
    world_.disk.write("Lib/Manual/Book_ALM.xml", bookXml("Alarms", "ALM"));
  }

  static void fill(Module& module, const std::string& name, const std::string& acronym) {
    module.bookInfo.txtBookName().setText(name);
    module.bookInfo.txtBookAcro().setText(acronym);
  }
  void rename(const std::string& current, const std::string& name, const std::string& acronym) {
    fill(world_.module, name, acronym);
    strBookAcroInfo(world_.module, "C:\\Lib\\Quor_TOC.xml", current);
  }
  [[nodiscard]] std::string file(std::string_view name) const {
    return replaceAll(world_.disk.read(name), "\r\n", "\n");
  }
  [[nodiscard]] std::string catalogue() const { return file("Lib/Quor_TOC.xml"); }
  [[nodiscard]] const std::vector<std::string>& record() const { return world_.user.record(); }

  /// The rename is refused with this box, and no file changes.
  void expectRefusal(const std::string& current,
                     const std::string& name,
                     const std::string& acronym,
                     const std::string& box) {
    const auto before = world_.disk.contents();
    world_.user.forget();
    rename(current, name, acronym);
    EXPECT_THAT(record(), ElementsAre(box));
    EXPECT_EQ(world_.disk.contents(), before);
  }

  World world_;
};

// A whole rename

TEST_F(BookRenaming, ChangesTheBookFileWhatIsInItAndTheEntry) {
  rename("Alarms", "Warnings", "WRN");

  EXPECT_THAT(record(), IsEmpty());
  EXPECT_EQ(catalogue(), catalogueWith(bookEntry("Warnings", "WRN") + bookEntry("Trends", "TRD")));
  EXPECT_FALSE(world_.disk.has("Lib/Manual/Book_ALM.xml"));
  EXPECT_EQ(file("Lib/Manual/Book_WRN.xml"), bookXml("Warnings", "WRN"));
}

TEST_F(BookRenaming, ChangesTheEntryAloneWhereThatLeadsOutOfTheLibrary) {
  const auto outside = [](const std::string& entry) {
    return catalogueWith(replaceAll(entry, "Manual", "..\\Other"));
  };
  world_.disk.write("Lib/Quor_TOC.xml", outside(bookEntry("Alarms", "ALM")));
  world_.disk.write("Other/Book_ALM.xml", bookXml("Alarms", "ALM"));
  rename("Alarms", "Warnings", "WRN");

  EXPECT_THAT(record(), IsEmpty());
  EXPECT_EQ(catalogue(), outside(entryWithFileOf("Warnings", "WRN", "ALM")));
  EXPECT_EQ(file("Other/Book_ALM.xml"), bookXml("Alarms", "ALM"));
  EXPECT_FALSE(world_.disk.has("Other/Book_WRN.xml"));
}

TEST_F(BookRenaming, TakesTheValuesThatTheUserEnteredWhenTheHostAsked) {
  world_.user.answerWith(enterBook("Warnings", "WRN"));
  EXPECT_TRUE(mbGetFormInput(world_.module, "", 1));
  strBookAcroInfo(world_.module, "C:\\Lib\\Quor_TOC.xml", "Alarms");

  EXPECT_THAT(record(), ElementsAre("form frmBookInfo"));
  EXPECT_EQ(catalogue(), catalogueWith(bookEntry("Warnings", "WRN") + bookEntry("Trends", "TRD")));
}

TEST_F(BookRenaming, ForgetsTheCurrentBookSoThatTheNextRenameAsksAgain) {
  rename("Alarms", "Warnings", "WRN");
  EXPECT_EQ(world_.state().currentBookName, "");
  EXPECT_EQ(world_.state().currentBookAcro, "");
}

TEST_F(BookRenaming, StoresTheNewNameWithItsSpecialCharactersReplaced) {
  rename("Alarms", "R&D <\"a\"> b's", "RD");

  const std::string stored = "R&amp;amp;D &amp;lt;&amp;quot;a&amp;quot;&amp;gt; b&amp;apos;s";
  EXPECT_THAT(record(), IsEmpty());
  EXPECT_EQ(catalogue(), catalogueWith(bookEntry(stored, "RD") + bookEntry("Trends", "TRD")));
  EXPECT_EQ(file("Lib/Manual/Book_RD.xml"), bookXml(stored, "RD"));
}

TEST_F(BookRenaming, FindsTheBookByItsNameAsItIsTyped) {
  world_.disk.write("Lib/Quor_TOC.xml", catalogueWith(bookEntry("R&amp;amp;D", "RD")));
  world_.disk.write("Lib/Manual/Book_RD.xml", bookXml("R&amp;amp;D", "RD"));
  rename("R&D", "Alarms", "ALX");

  EXPECT_THAT(record(), IsEmpty());
  EXPECT_EQ(catalogue(), catalogueWith(bookEntry("Alarms", "ALX")));
  EXPECT_EQ(file("Lib/Manual/Book_ALX.xml"), bookXml("Alarms", "ALX"));
}

TEST_F(BookRenaming, FindsANameThatHoldsADoubleQuotationMark) {
  world_.disk.write("Lib/Quor_TOC.xml", catalogueWith(bookEntry("a&amp;quot;b", "AB")));
  rename("a\"b", "Alarms", "ALX");
  EXPECT_EQ(catalogue(), catalogueWith(entryWithFileOf("Alarms", "ALX", "AB")));
}

TEST_F(BookRenaming, TakesACataloguePathWithForwardSlashes) {
  fill(world_.module, "Warnings", "WRN");
  strBookAcroInfo(world_.module, "C:/Lib/Quor_TOC.xml", "Alarms");
  EXPECT_EQ(file("Lib/Manual/Book_WRN.xml"), bookXml("Warnings", "WRN"));
}

TEST_F(BookRenaming, KeepsBlanksAroundTheNewName) {
  rename("Alarms", " Warnings ", "WRN");
  EXPECT_EQ(catalogue(),
            catalogueWith(bookEntry(" Warnings ", "WRN") + bookEntry("Trends", "TRD")));
}

TEST_F(BookRenaming, KeepsTheEncodingOfBothFiles) {
  const std::string declaration = "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n";
  const auto inUtf16 = [&](std::string text) {
    text.replace(0, text.find('\n') + 1, declaration);
    return utf16File(replaceAll(text, "\n", "\r\n"));
  };
  world_.disk.write("Lib/Quor_TOC.xml", inUtf16(catalogueWith(bookEntry("Alarms", "ALM"))));
  world_.disk.write("Lib/Manual/Book_ALM.xml", inUtf16(bookXml("Alarms", "ALM")));
  rename("Alarms", "Übersicht", "ÜBS");

  EXPECT_EQ(world_.disk.read("Lib/Quor_TOC.xml"),
            inUtf16(catalogueWith(bookEntry("Übersicht", "ÜBS"))));
  EXPECT_EQ(world_.disk.read("Lib/Manual/Book_ÜBS.xml"), inUtf16(bookXml("Übersicht", "ÜBS")));
}

TEST_F(BookRenaming, KeepsTheAcronymWhenOnlyTheNameChanges) {
  rename("Alarms", "Warnings", "ALM");
  EXPECT_THAT(record(), IsEmpty());
  EXPECT_EQ(catalogue(), catalogueWith(bookEntry("Warnings", "ALM") + bookEntry("Trends", "TRD")));
  EXPECT_EQ(file("Lib/Manual/Book_ALM.xml"), bookXml("Warnings", "ALM"));
}

TEST_F(BookRenaming, AcceptsTheBooksOwnNameAndAcronymInAnotherLetterCase) {
  rename("Alarms", "ALARMS", "alm");
  EXPECT_THAT(record(), IsEmpty());
  EXPECT_EQ(catalogue(), catalogueWith(bookEntry("ALARMS", "alm") + bookEntry("Trends", "TRD")));
  EXPECT_EQ(file("Lib/Manual/Book_alm.xml"), bookXml("ALARMS", "alm"));
}

TEST_F(BookRenaming, ChangesTheFirstOfTwoBooksOfOneName) {
  world_.disk.write("Lib/Quor_TOC.xml",
                    catalogueWith(bookEntry("Alarms", "ALM") + bookEntry("Alarms", "AL2")));
  rename("Alarms", "Warnings", "WRN");
  EXPECT_EQ(catalogue(), catalogueWith(bookEntry("Warnings", "WRN") + bookEntry("Alarms", "AL2")));
}

// Without a book file

TEST_F(BookRenaming, KeepsTheOldFileNameInTheEntryWhenThereIsNoBookFile) {
  rename("Trends", "Curves", "CRV");
  EXPECT_THAT(record(), IsEmpty());
  EXPECT_EQ(catalogue(),
            catalogueWith(bookEntry("Alarms", "ALM") + entryWithFileOf("Curves", "CRV", "TRD")));
}

TEST_F(BookRenaming, NeedsNoEntryForABookFileThatIsNotThere) {
  world_.disk.write(
      "Lib/Quor_TOC.xml",
      "<Quor_Master><Quor_Books><Book><Book_Name>A</Book_Name><Book_Acro>B</Book_Acro>"
      "<Book_Folder/></Book></Quor_Books></Quor_Master>");
  rename("A", "C", "D");
  EXPECT_THAT(record(), IsEmpty());
  EXPECT_EQ(catalogue(),
            "<Quor_Master>\n"
            "\t<Quor_Books>\n"
            "\t\t<Book>\n"
            "\t\t\t<Book_Name>C</Book_Name>\n"
            "\t\t\t<Book_Acro>D</Book_Acro>\n"
            "\t\t\t<Book_Folder/>\n"
            "\t\t</Book>\n"
            "\t</Quor_Books>\n"
            "</Quor_Master>\n");
}

TEST_F(BookRenaming, GoesOnWhenTheBooksFolderIsGone) {
  world_.disk.write("Lib/Quor_TOC.xml",
                    replaceAll(catalogueWith(bookEntry("Alarms", "ALM")), "Manual", "Gone"));
  rename("Alarms", "Warnings", "WRN");
  EXPECT_THAT(record(), IsEmpty());
  EXPECT_EQ(catalogue(),
            replaceAll(catalogueWith(entryWithFileOf("Warnings", "WRN", "ALM")), "Manual", "Gone"));
}

// Refusals

TEST_F(BookRenaming, IsRefusedWhileABoxIsBlank) {
  const std::string box = "critical: Enter a valid string for Book Name and Book Acro";
  expectRefusal("Alarms", "", "", box);
  expectRefusal("Alarms", "Warnings", "", box);
  expectRefusal("Alarms", "", "WRN", box);
  expectRefusal("Alarms", "  ", "WRN", box);
  expectRefusal("Alarms", "Warnings", "  ", box);
}

TEST_F(BookRenaming, IsRefusedForAnotherBooksNameInWhateverLetterCase) {
  expectRefusal("Alarms", "Trends", "WRN", "critical: Error:Book Name Trends already Exists");
  expectRefusal("Alarms", "tRENDS", "WRN", "critical: Error:Book Name tRENDS already Exists");
}

TEST_F(BookRenaming, IsRefusedForAnotherBooksAcronymInWhateverLetterCase) {
  expectRefusal("Alarms", "Warnings", "TRD", "critical: Error:Book Acro TRD already Exists");
  expectRefusal("Alarms", "Warnings", "trd", "critical: Error:Book Acro trd already Exists");
}

TEST_F(BookRenaming, NamesTheNameFirstWhenBothAreTaken) {
  expectRefusal("Alarms", "Trends", "TRD", "critical: Error:Book Name Trends already Exists");
}

TEST_F(BookRenaming, ComparesNamesAsTheyAreStoredAndShowsThemAsTheyWereTyped) {
  world_.disk.write("Lib/Quor_TOC.xml",
                    catalogueWith(bookEntry("Alarms", "ALM") + bookEntry("R&amp;amp;D", "RD")));
  expectRefusal("Alarms", "r&d", "WRN", "critical: Error:Book Name r&d already Exists");
}

TEST_F(BookRenaming, IsRefusedWhileTheBookFileCanNotBeMoved) {
  const Platform& ports = world_.platform();
  ReadOnlyFiles files(ports.files);
  Module module({files, ports.xml, ports.ui, ports.toolset, ports.locale, ports.spreadsheets});
  const auto before = world_.disk.contents();
  fill(module, "Warnings", "WRN");
  strBookAcroInfo(module, "C:\\Lib\\Quor_TOC.xml", "Alarms");

  EXPECT_THAT(record(), ElementsAre("critical: Please close file Book_ALM.xml"));
  EXPECT_EQ(world_.disk.contents(), before);
}

TEST_F(BookRenaming, IsRefusedWhenAnotherFileHasTheNewNameAlready) {
  world_.disk.write("Lib/Manual/Book_WRN.xml", "another one");
  expectRefusal("Alarms", "Warnings", "WRN", "critical: Please close file Book_ALM.xml");
}

TEST_F(BookRenaming, KeepsTheCurrentBookWhenItIsRefused) {
  rename("Alarms", "Trends", "WRN");
  EXPECT_EQ(world_.state().currentBookName, "Trends");
  EXPECT_EQ(world_.state().currentBookAcro, "WRN");
}

// Books that can't be looked up

TEST_F(BookRenaming, DoesNothingForABookThatIsNotThere) {
  const auto before = world_.disk.contents();
  rename("alarms", "Warnings", "WRN");
  EXPECT_THAT(record(), IsEmpty());
  EXPECT_EQ(world_.disk.contents(), before);
}

TEST_F(BookRenaming, DoesNothingWithACatalogueThatDoesNotLoad) {
  for (const std::string bytes : {"", "<Quor_Master><Quor_Books>"}) {
    world_.disk.write("Lib/Quor_TOC.xml", bytes);
    rename("Alarms", "Warnings", "WRN");
    EXPECT_EQ(world_.disk.read("Lib/Quor_TOC.xml"), bytes);
  }
  EXPECT_TRUE(world_.disk.has("Lib/Manual/Book_ALM.xml"));
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(BookRenaming, DoesNothingWhenTheTextRulesCanNotBeHad) {
  const auto before = world_.disk.contents();
  world_.toolset.breakDown();
  rename("Alarms", "Warnings", "WRN");
  EXPECT_THAT(record(), IsEmpty());
  EXPECT_EQ(world_.disk.contents(), before);
}

// Damaged entries and files

TEST_F(BookRenaming, ReportsAnEntryWithoutANameAndChangesNothing) {
  world_.disk.write(
      "Lib/Quor_TOC.xml",
      catalogueWith("\t\t<Book/>\n" + bookEntry("Alarms", "ALM") + bookEntry("Trends", "TRD")));
  expectRefusal("Alarms",
                "Warnings",
                "WRN",
                std::string(kObjectNotSet) + "Quorbind:Book_Config::msetMatchingBokkIno");
}

TEST_F(BookRenaming, LooksThroughAllNamesBeforeItMissesAnAcronym) {
  const std::string unfinished = "\t\t<Book>\n\t\t\t<Book_Name>Pumps</Book_Name>\n\t\t</Book>\n";
  world_.disk.write(
      "Lib/Quor_TOC.xml",
      catalogueWith(unfinished + bookEntry("Alarms", "ALM") + bookEntry("Trends", "TRD")));
  expectRefusal("Alarms", "Trends", "WRN", "critical: Error:Book Name Trends already Exists");
  expectRefusal("Alarms",
                "Warnings",
                "TRD",
                std::string(kObjectNotSet) + "Quorbind:Book_Config::msetMatchingBokkIno");
}

TEST_F(BookRenaming, TakesTheFolderFromTheFirstBookOfThatNameThatHasOne) {
  const std::string without = replaceAll(bookEntry("Alarms", "ALM"), "Book_Folder", "Folder");
  world_.disk.write("Lib/Quor_TOC.xml", catalogueWith(without + bookEntry("Alarms", "AL2")));
  rename("Alarms", "Warnings", "WRN");
  EXPECT_THAT(record(), IsEmpty());
  EXPECT_EQ(file("Lib/Manual/Book_WRN.xml"), bookXml("Warnings", "WRN"));
}

TEST_F(BookRenaming, ReportsAnEntryWithoutAFolderBeforeTheFileIsMoved) {
  world_.disk.write("Lib/Quor_TOC.xml",
                    replaceAll(catalogueWith(bookEntry("Alarms", "ALM")), "Book_Folder", "Folder"));
  expectRefusal("Alarms",
                "Warnings",
                "WRN",
                std::string(kObjectNotSet) + "Quorbind:Book_Config::msetMatchingBokkIno");
}

TEST_F(BookRenaming, ReportsAnEntryWithoutAFileNameBeforeTheFileIsMoved) {
  world_.disk.write("Lib/Quor_TOC.xml",
                    replaceAll(catalogueWith(bookEntry("Alarms", "ALM")), "Book_File", "File"));
  expectRefusal("Alarms",
                "Warnings",
                "WRN",
                std::string(kObjectNotSet) + "Quorbind:Book_Config::msetMatchingBokkIno");
}

TEST_F(BookRenaming, ReportsAnAcronymThatHoldsADoubleQuotationMarkBeforeTheFileIsMoved) {
  world_.disk.write("Lib/Quor_TOC.xml", catalogueWith(bookEntry("Alarms", "A\"B")));
  expectRefusal("Alarms",
                "Warnings",
                "WRN",
                "critical: Error(-2147467259): The value A\"B can't stand in a query between the "
                "quote characters it contains.\rQuorbind:Book_Config::msetMatchingBokkIno");
}

TEST_F(BookRenaming, RenamesTheEntryWhenTheBookFileDoesNotLoad) {
  world_.disk.write("Lib/Manual/Book_ALM.xml", "<Book_Master>");
  rename("Alarms", "Warnings", "WRN");
  EXPECT_THAT(record(), IsEmpty());
  EXPECT_EQ(world_.disk.read("Lib/Manual/Book_WRN.xml"), "<Book_Master>");
  EXPECT_EQ(catalogue(), catalogueWith(bookEntry("Warnings", "WRN") + bookEntry("Trends", "TRD")));
}

TEST_F(BookRenaming, ReportsABookFileThatIsCalledOtherwiseAndRenamesTheEntry) {
  world_.disk.write("Lib/Manual/Book_ALM.xml", bookXml("Another", "ALM"));
  rename("Alarms", "Warnings", "WRN");
  EXPECT_THAT(record(),
              ElementsAre(std::string(kObjectNotSet) + "Quorbind:Book_Config::UpdateBookNameAcro"));
  EXPECT_EQ(file("Lib/Manual/Book_WRN.xml"), bookXml("Another", "ALM"));
  EXPECT_EQ(catalogue(), catalogueWith(bookEntry("Warnings", "WRN") + bookEntry("Trends", "TRD")));
}

TEST_F(BookRenaming, ReportsACatalogueThatCanNotBeWritten) {
  const Platform& ports = world_.platform();
  UnsavableXml xml(ports.xml, "C:\\Lib\\Quor_TOC.xml");
  Module module({ports.files, xml, ports.ui, ports.toolset, ports.locale, ports.spreadsheets});
  const std::string before = world_.disk.read("Lib/Quor_TOC.xml");
  fill(module, "Warnings", "WRN");
  strBookAcroInfo(module, "C:\\Lib\\Quor_TOC.xml", "Alarms");

  EXPECT_THAT(record(),
              ElementsAre("critical: Error(70): Permission denied\r"
                          "Quorbind:Book_Config::msetMatchingBokkIno"));
  EXPECT_EQ(world_.disk.read("Lib/Quor_TOC.xml"), before);
  EXPECT_EQ(module.state.currentBookName, "Warnings");
}

// The book file alone

class BookFileRenaming : public BookRenaming {
 protected:
  void update(const std::string& name, const std::string& acronym) {
    UpdateBookNameAcro(world_.module, "C:\\Lib\\Manual\\Book_ALM.xml", name, acronym);
  }
};

TEST_F(BookFileRenaming, PutsTheBoxesIntoTheFile) {
  fill(world_.module, "R&D", "R&D");
  update("Alarms", "ALM");
  EXPECT_THAT(record(), IsEmpty());
  EXPECT_EQ(file("Lib/Manual/Book_ALM.xml"), bookXml("R&amp;amp;D", "R&amp;D"));
}

TEST_F(BookFileRenaming, TakesTheBoxesAsTheyAreAlsoWhenTheyAreEmpty) {
  update("Alarms", "ALM");
  EXPECT_EQ(file("Lib/Manual/Book_ALM.xml"),
            replaceAll(replaceAll(bookXml("", ""), "<Book_Name></Book_Name>", "<Book_Name/>"),
                       "<Book_Acro></Book_Acro>",
                       "<Book_Acro/>"));
}

TEST_F(BookFileRenaming, LooksTheNameUpAsItIsGiven) {
  world_.disk.write("Lib/Manual/Book_ALM.xml", bookXml("R&amp;amp;D", "RD"));
  fill(world_.module, "Warnings", "WRN");
  update("R&D", "RD");
  EXPECT_THAT(record(),
              ElementsAre(std::string(kObjectNotSet) + "Quorbind:Book_Config::UpdateBookNameAcro"));
  EXPECT_EQ(file("Lib/Manual/Book_ALM.xml"), bookXml("R&amp;amp;D", "RD"));
  update("R&amp;D", "RD");
  EXPECT_EQ(file("Lib/Manual/Book_ALM.xml"), bookXml("Warnings", "WRN"));
}

TEST_F(BookFileRenaming, ChangesNothingWhenTheAcronymIsAnotherOne) {
  fill(world_.module, "Warnings", "WRN");
  update("Alarms", "alm");
  EXPECT_THAT(record(),
              ElementsAre(std::string(kObjectNotSet) + "Quorbind:Book_Config::UpdateBookNameAcro"));
  EXPECT_EQ(world_.disk.read("Lib/Manual/Book_ALM.xml"), bookXml("Alarms", "ALM"));
}

TEST_F(BookFileRenaming, ReportsANameThatHoldsADoubleQuotationMark) {
  update("a\"b", "ALM");
  EXPECT_THAT(record(),
              ElementsAre("critical: Error(-2147467259): The value a\"b can't stand in a query "
                          "between the quote characters it contains.\r"
                          "Quorbind:Book_Config::UpdateBookNameAcro"));
}

TEST_F(BookFileRenaming, LeavesWhatDoesNotLoadAsItWas) {
  UpdateBookNameAcro(world_.module, "C:\\Lib\\missing.xml", "Alarms", "ALM");
  world_.disk.write("Lib/Manual/Book_ALM.xml", "<Book_Master>");
  update("Alarms", "ALM");
  EXPECT_EQ(world_.disk.read("Lib/Manual/Book_ALM.xml"), "<Book_Master>");
  EXPECT_FALSE(world_.disk.has("Lib/missing.xml"));
  EXPECT_THAT(record(), IsEmpty());
}

}  // namespace
}  // namespace quorbind::testing
