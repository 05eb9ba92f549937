#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/catalogue_text.h"
#include "tests/support/world.h"
#include "toc/toc_check.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;
using ::testing::StartsWith;

/// A book file with these elements in `Book` and one heading for each document.
std::string bookFile(const std::string& book, const std::vector<std::string>& documents) {
  std::string headings;
  for (const std::string& document : documents) {
    headings += "<Heading level=\"H1\" type=\"htm\"><HName>Heading</HName><HFile>" + document +
                "</HFile></Heading>\n";
  }
  return "<Book_Master>\n<Book>" + book + "</Book>\n<Book_Headings>\n" + headings +
         "</Book_Headings>\n</Book_Master>\n";
}

std::string bookOf(const std::string& name, const std::string& acronym, const std::string& path) {
  return "<Book_Name>" + name + "</Book_Name><Book_Acro>" + acronym + "</Book_Acro><Book_Path>" +
         path + "</Book_Path>";
}

class XmlToc : public ::testing::Test {
 protected:
  XmlToc() {
    world_.disk.write("lib/Quor_TOC.xml", catalogueWith(bookEntry("Alarms", "ALM")));
    world_.state().currentCataloguePath = "C:\\lib\\Quor_TOC.xml";
  }

  bool validate(const std::string& file) {
    world_.disk.write("in/book.xml", file);
    std::string path = "C:\\in\\book.xml";
    return check_.mbValidateTocFile(path, TocCheck::kXml);
  }
  bool validate(const std::string& name, const std::string& acronym, const std::string& path) {
    return validate(bookFile(bookOf(name, acronym, path), {"a.htm"}));
  }
  [[nodiscard]] const std::vector<std::string>& record() const { return world_.user.record(); }
  ProcessState& state() { return world_.state(); }

  World world_;
  TocCheck check_{world_.module};
};

TEST_F(XmlToc, GivesTheBookItsNameItsAcronymAndItsFolder) {
  EXPECT_TRUE(validate("Pumps", "PMP", "Product\\Manuals"));
  EXPECT_EQ(state().currentBookName, "Pumps");
  EXPECT_EQ(state().currentBookAcro, "PMP");
  EXPECT_EQ(state().recordedXmlAcro, "PMP");
  EXPECT_EQ(check_.mstrBookFolder(), "Manuals");
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(XmlToc, KeepsNameAndAcronymThatTheBookHasButRecordsItsOwnAcronym) {
  state().currentBookName = "Given";
  state().currentBookAcro = "GVN";
  EXPECT_TRUE(validate("Pumps", "PMP", "Product\\Manuals"));
  EXPECT_EQ(state().currentBookName, "Given");
  EXPECT_EQ(state().currentBookAcro, "GVN");
  EXPECT_EQ(state().recordedXmlAcro, "PMP");
}

TEST_F(XmlToc, KeepsEachOfNameAndAcronymByItself) {
  state().currentBookAcro = "GVN";
  EXPECT_TRUE(validate("Pumps", "PMP", "Product\\Manuals"));
  EXPECT_EQ(state().currentBookName, "Pumps");
  EXPECT_EQ(state().currentBookAcro, "GVN");
}

TEST_F(XmlToc, HasTheFolderBehindTheProductWhateverTheSeparator) {
  EXPECT_TRUE(validate("Pumps", "PMP", "Product/Manuals/Deep"));
  EXPECT_EQ(check_.mstrBookFolder(), "Manuals");
}

TEST_F(XmlToc, WhosePathHasNoSeparatorLiesInTheLibrarysOwnFolder) {
  EXPECT_TRUE(validate("Pumps", "PMP", "Product\\Before"));
  EXPECT_TRUE(validate("Pumps", "PMP", "Manuals"));
  EXPECT_EQ(check_.mstrBookFolder(), "");
  EXPECT_TRUE(validate("Pumps", "PMP", ""));
  EXPECT_EQ(check_.mstrBookFolder(), "");
}

TEST_F(XmlToc, LeavesOpenWhatItDoesNotSay) {
  EXPECT_TRUE(validate(bookFile("<Book_Key/>", {"a.htm"})));
  EXPECT_EQ(state().currentBookName, "");
  EXPECT_EQ(state().currentBookAcro, "");
  EXPECT_EQ(state().recordedXmlAcro, "");
  EXPECT_EQ(check_.mstrBookFolder(), "");
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(XmlToc, TakesTheFirstOfSeveralBooks) {
  EXPECT_TRUE(
      validate("<Book_Master><Book><Book_Name>A</Book_Name></Book>"
               "<Book><Book_Name>B</Book_Name></Book><HFile/></Book_Master>"));
  EXPECT_EQ(state().currentBookName, "A");
}

TEST_F(XmlToc, ThatIsNotWellFormedIsToldWithLineAndReason) {
  EXPECT_FALSE(validate("<Book_Master>\n<Book>\n</Book_Master>\n"));
  ASSERT_THAT(record(), SizeIs(2));
  const std::string clipboard = "clipboard: ";
  ASSERT_THAT(record().at(1), StartsWith(clipboard));
  const std::string reason = record().at(1).substr(clipboard.size());
  EXPECT_THAT(reason, Not(IsEmpty()));
  EXPECT_EQ(record().at(0), "critical: Line No:3\rError loading XML Document: " + reason);
  EXPECT_EQ(state().currentBookName, "");
}

TEST_F(XmlToc, WithADocumentTypeOrAnEntityIsNotLoaded) {
  for (const char* file : {"<!DOCTYPE Book_Master><Book_Master><HFile>a.htm</HFile></Book_Master>",
                           "<!DOCTYPE a [<!ENTITY s SYSTEM 'file:///C:/secret.txt'>]>"
                           "<Book_Master><HFile>&s;</HFile></Book_Master>",
                           "<!DOCTYPE a [<!ENTITY b 'bbbb'><!ENTITY c '&b;&b;&b;&b;'>]>"
                           "<Book_Master><HFile>&c;</HFile></Book_Master>",
                           "<Book_Master><HFile>&unknown;</HFile></Book_Master>"}) {
    world_.user.forget();
    EXPECT_FALSE(validate(file)) << file;
    ASSERT_THAT(record(), SizeIs(2)) << file;
    EXPECT_THAT(record().at(0), StartsWith("critical: Line No:1\rError loading XML Document: "))
        << file;
  }
}

TEST_F(XmlToc, WithoutAnyDocumentHasNoHeading) {
  EXPECT_FALSE(validate(bookFile(bookOf("Pumps", "PMP", "Product\\Manuals"), {})));
  EXPECT_THAT(record(), ElementsAre("information: Error:Book should have at least one heading"));
  EXPECT_EQ(state().currentBookName, "");
}

TEST_F(XmlToc, LooksForItsDocumentsBesideItselfAndNotesThoseThatAreMissing) {
  world_.disk.write("in/a.htm", "");
  EXPECT_TRUE(validate(bookFile(bookOf("Pumps", "PMP", "P\\M"), {"A.HTM#top", "b.htm#x", ""})));
  EXPECT_THAT(check_.marrsMissingFiles(), ElementsAre("b.htm#x"));
  EXPECT_EQ(check_.mstrCurFile(), "b.htm");
  EXPECT_EQ(check_.mstrCurBookMark(), "#x");
}

TEST_F(XmlToc, LooksNowhereButBelowItsOwnFolder) {
  world_.disk.write("a.htm", "");
  world_.disk.write("in/con.htm", "");
  const std::vector<std::string> documents{
      "..\\a.htm", "\\a.htm", "C:\\a.htm", "\\\\server\\share\\a.htm", "con.htm"};
  EXPECT_TRUE(validate(bookFile(bookOf("Pumps", "PMP", "P\\M"), documents)));
  EXPECT_EQ(check_.marrsMissingFiles(), documents);
}

TEST_F(XmlToc, WhoseFolderLeadsOutIsRefused) {
  for (const char* path :
       {"P\\..", "P/../x", "P\\.. \\x", "P\\nul", "\\\\server\\share", "//server/share"}) {
    world_.user.forget();
    EXPECT_FALSE(validate("Pumps", "PMP", path)) << path;
    EXPECT_THAT(
        record(),
        ElementsAre("critical: Error:Book Folder leads out of the library: " + std::string(path)));
    EXPECT_EQ(state().currentBookName, "");
  }
}

TEST_F(XmlToc, WhoseFolderBreaksTheRulesOfItsDialogIsRefused) {
  EXPECT_FALSE(validate("Pumps", "PMP", "P\\C:"));
  EXPECT_FALSE(validate("Pumps", "PMP", "P\\R'D"));
  EXPECT_THAT(record(),
              ElementsAre("critical: Book Folder can not contain (/\\:*?\"<>)",
                          "critical: Book Folder can not contain ('\"&<>)"));
}

TEST_F(XmlToc, WhoseAcronymBreaksTheRulesOfItsDialogIsRefused) {
  EXPECT_FALSE(validate("Pumps", "..\\..\\x", "P\\M"));
  EXPECT_FALSE(validate("Pumps", "a&amp;b", "P\\M"));
  EXPECT_THAT(record(),
              ElementsAre("critical: Book Acro can not contain  (/\\:*?\"<>)",
                          "critical: Book Acro can not contain ('\"&<>@quor@)"));
  EXPECT_EQ(state().recordedXmlAcro, "");
}

TEST_F(XmlToc, WhosePathLeadsElsewhereBeforeTheFolderIsTaken) {
  EXPECT_TRUE(validate("Pumps", "PMP", "C:\\Manuals"));
  EXPECT_EQ(check_.mstrBookFolder(), "Manuals");
  EXPECT_TRUE(validate("Pumps", "PMP", "..\\Other"));
  EXPECT_EQ(check_.mstrBookFolder(), "Other");
}

// The catalogue

TEST_F(XmlToc, AsksForOtherValuesWhereTheCatalogueHasTheName) {
  world_.user.answerWith(enterBook("Alarms 2", "AL2"));
  EXPECT_TRUE(validate("Alarms", "NEW", "P\\M"));
  EXPECT_THAT(record(),
              ElementsAre("critical: Error:Book Name Alarms already Exists", "form frmBookInfo"));
  EXPECT_EQ(state().currentBookName, "Alarms 2");
  EXPECT_EQ(state().currentBookAcro, "AL2");
  EXPECT_EQ(state().recordedXmlAcro, "NEW") << "the file is still named after its own";
  EXPECT_EQ(check_.mstrBookFolder(), "M");
}

TEST_F(XmlToc, IsGivenUpByCancelInThatDialog) {
  world_.user.answerWith(pressCancel());
  EXPECT_FALSE(validate("New", "ALM", "P\\M"));
  EXPECT_THAT(record(),
              ElementsAre("critical: Error:Book Acro ALM already Exists", "form frmBookInfo"));
  EXPECT_EQ(state().recordedXmlAcro, "");
}

TEST_F(XmlToc, HoldsGivenValuesAgainstTheCatalogueInsteadOfItsOwn) {
  state().currentBookName = "Other";
  state().currentBookAcro = "OTH";
  EXPECT_TRUE(validate("Alarms", "ALM", "P\\M"));
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(XmlToc, AsksForTheFolderWhereThereIsNoCatalogue) {
  state().currentCataloguePath = "C:\\none\\Quor_TOC.xml";
  world_.user.answerWith(enterFolder("Typed"));
  EXPECT_TRUE(validate("Pumps", "PMP", "P\\M"));
  EXPECT_THAT(record(), ElementsAre("form frmBookFolder"));
  EXPECT_EQ(check_.mstrBookFolder(), "Typed");
  EXPECT_EQ(state().rememberedBookFolder, "Typed");
}

TEST_F(XmlToc, PrefersTheRememberedFolderToTheTypedOne) {
  state().currentCataloguePath = "C:\\none\\Quor_TOC.xml";
  state().rememberedBookFolder = "Remembered";
  world_.user.answerWith(enterFolder("Typed"));
  EXPECT_TRUE(validate("Pumps", "PMP", "P\\M"));
  EXPECT_THAT(record(), ElementsAre("form frmBookFolder"));
  EXPECT_EQ(check_.mstrBookFolder(), "Remembered");
  EXPECT_EQ(state().rememberedBookFolder, "Remembered");
}

TEST_F(XmlToc, LiesInTheLibrarysOwnFolderWhenTheFolderDialogIsClosed) {
  state().currentCataloguePath = "C:\\none\\Quor_TOC.xml";
  world_.user.answerWith(closeForm());
  EXPECT_TRUE(validate("Pumps", "PMP", "P\\M"));
  EXPECT_EQ(check_.mstrBookFolder(), "");
}

TEST_F(XmlToc, IsGivenUpWithoutACatalogueWhenTheRunWasCancelled) {
  state().currentCataloguePath = "C:\\none\\Quor_TOC.xml";
  state().cancelled = true;
  EXPECT_FALSE(validate("Pumps", "PMP", "P\\M"));
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(XmlToc, ReportsAnErrorBeforeItsHeadingsAreLookedAt) {
  world_.user.failNextShow();
  EXPECT_FALSE(validate("<Book_Master/>"));
  EXPECT_THAT(record(),
              ElementsAre("critical: Error(7): Out of memory\r"
                          "Quorbind: Quor_Book::mbValidateXMLToc"));
}

TEST_F(XmlToc, GoesOnAfterADocumentNameThatNoFileCanHave) {
  EXPECT_TRUE(validate(
      bookFile(bookOf("Pumps", "PMP", "P\\M"), {std::string(40'000, 'x') + ".htm", "b.htm"})));
  EXPECT_THAT(check_.marrsMissingFiles().back(), "b.htm");
}

TEST_F(XmlToc, ForgetsWhatItSaidOfItsBookForTheNextRun) {
  EXPECT_TRUE(validate("Pumps", "PMP", "P\\M"));
  check_.forgetBook();
  EXPECT_EQ(check_.mstrBookFolder(), "");
  EXPECT_EQ(check_.mstrBookFile(), "");
}

}  // namespace
}  // namespace quorbind::testing
