#include "platform/error_trap.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "tests/support/scripted_user_interface.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr ErrorSource kSource{"Quorbind: Some_Class::Procedure"};

class ErrorTrap : public ::testing::Test {
 protected:
  template <typename Exception>
  int trap(const Exception& exception) {
    return trapped(user_, kSource, -1, [&]() -> int { throw exception; });
  }

  ScriptedUserInterface user_;
};

TEST_F(ErrorTrap, AnswersWhatItsBodyAnswers) {
  EXPECT_EQ(trapped(user_, kSource, -1, [] { return 5; }), 5);
  EXPECT_TRUE(trapped(user_, kSource, [] {}));
  EXPECT_THAT(user_.record(), IsEmpty());
}

TEST_F(ErrorTrap, ShowsAnErrorOnceAndAnswersTheFailureValue) {
  EXPECT_EQ(trap(RunTimeError(ErrorNumber::kPathNotFound)), -1);
  EXPECT_THAT(user_.record(),
              ElementsAre("critical: Error(76): Path not found\rQuorbind: Some_Class::Procedure"));
  EXPECT_EQ(user_.messages().at(0).errorNumber, 76);
  EXPECT_EQ(user_.messages().at(0).title, std::nullopt);
}

TEST_F(ErrorTrap, AnswersFalseForABodyWithoutAResult) {
  EXPECT_FALSE(trapped(user_, kSource, [] { raise(ErrorNumber::kOverflow); }));
}

TEST_F(ErrorTrap, ShowsTheErrorsOfObjectsWithTheirOwnNumbers) {
  trap(RunTimeError(-2147467259, "own words"));
  EXPECT_THAT(
      user_.record(),
      ElementsAre("critical: Error(-2147467259): own words\rQuorbind: Some_Class::Procedure"));
}

TEST_F(ErrorTrap, TellsShortMemoryAndWhateverElseEscapes) {
  trap(std::bad_alloc());
  trap(std::logic_error("unheard of"));
  EXPECT_THAT(user_.record(),
              ElementsAre("critical: Error(7): Out of memory\rQuorbind: Some_Class::Procedure",
                          "critical: Error(5): Invalid procedure call or argument\r"
                          "Quorbind: Some_Class::Procedure"));
}

TEST_F(ErrorTrap, WordsEachSourceAsItWasPublished) {
  using enum ErrorWording;
  for (const ErrorWording wording :
       {kSourceLine, kTightSourceLine, kWideSourceLine, kInProcedure, kUnderTitle}) {
    reportError(user_,
                ErrorSource{"Some_Class::Procedure", wording, MessageIcon::kNone},
                RunTimeError(ErrorNumber::kPathNotFound));
  }
  EXPECT_THAT(user_.record(),
              ElementsAre("message: Error(76): Path not found\rSome_Class::Procedure",
                          "message: Error(76):Path not found\rSome_Class::Procedure",
                          "message: Error (76 ):Path not found\rSome_Class::Procedure",
                          "message: Error 76 (Path not found) in procedure Some_Class::Procedure",
                          "message: [Some_Class::Procedure] 76: Path not found"));
}

TEST_F(ErrorTrap, LetsARunThatWasGivenUpPass) {
  EXPECT_THROW(trap(Abandoned(AbandonReason::kAnswerMissing, "nobody to ask")), Abandoned);
  EXPECT_THROW(ignoringErrors([] { throw Abandoned(AbandonReason::kAnswerRefused, "no"); }),
               Abandoned);
  EXPECT_THAT(user_.record(), IsEmpty());
}

TEST(IgnoringErrors, AnswersTheNumberOfTheErrorAndNoughtForNone) {
  EXPECT_EQ(ignoringErrors([] { raise(ErrorNumber::kDiskFull); }), 61);
  EXPECT_EQ(ignoringErrors([] { throw std::bad_alloc(); }), 7);
  EXPECT_EQ(ignoringErrors([] {}), 0);
}

TEST(IgnoringErrors, LeavesTheTargetOfAFailingStatementAsItWas) {
  int target = 1;
  ignoringErrors([&] { target = []() -> int { raise(ErrorNumber::kOverflow); }(); });
  EXPECT_EQ(target, 1);
}

TEST(RunTimeErrors, HaveOneDescriptionEach) {
  const std::vector<std::pair<int, std::string_view>> published{
      {5, "Invalid procedure call or argument"},
      {6, "Overflow"},
      {7, "Out of memory"},
      {9, "Subscript out of range"},
      {13, "Type mismatch"},
      {52, "Bad file name or number"},
      {53, "File not found"},
      {57, "Device I/O error"},
      {58, "File already exists"},
      {61, "Disk full"},
      {62, "Input past end of file"},
      {70, "Permission denied"},
      {75, "Path/File access error"},
      {76, "Path not found"},
      {91, "Object variable or With block variable not set"},
      {364, "Object was unloaded"},
      {424, "Object required"},
      {429, "ActiveX component can't create object"},
      {432, "File name or class name not found during Automation operation"},
      {438, "Object doesn't support this property or method"},
  };
  for (const auto& [number, description] : published) {
    EXPECT_EQ(RunTimeError(static_cast<ErrorNumber>(number)).description(), description);
  }
}

/// Hosts and support scripts match on these, misspellings included.
TEST(ErrorSources, ReadAsTheyWerePublished) {
  using enum ErrorWording;
  struct Published {
    const ErrorSource& source;
    ErrorWording wording;
    std::string_view text;
    MessageIcon icon = MessageIcon::kCritical;
  };
  const std::vector<Published> published{
      {source::kBookValuator, kSourceLine, "Quorbind: Quor_Book::Book_Valuator"},
      {source::kCheckForValidInput, kSourceLine, "Quorbind: Quor_Book::bCheckForValidInput"},
      {source::kGetFormInput, kSourceLine, "Quorbind: Quor_Book::mbGetFormInput"},
      {source::kCheckQuorTocForBook, kSourceLine, "Quorbind: Quor_Book::mbcheckQuorTocForBook"},
      {source::kAddBookTocForBook, kSourceLine, "Quorbind: Quor_Book::mbAddBookTocForBook"},
      {source::kDisplayErrorMessage, kSourceLine, "Quorbind: Quor_Book::mDisplayErrorMessage"},
      {source::kValidateTocFile, kSourceLine, "Quorbind: Quor_Book::mbValidateTocFile"},
      {source::kValidateTextToc, kSourceLine, "Quorbind: Quor_Book::mbValidateTextToc"},
      {source::kCheckTTocForValidity, kSourceLine, "Quorbind: Quor_Book::mbcheckTTocForValidity"},
      {source::kCheckFilePath, kSourceLine, "Quorbind: Quor_Book::mbCheckFilePath"},
      {source::kHtmlExportToText, kSourceLine, "Quorbind: Quor_Book::mHTMLExportToText"},
      {source::kValidateHtmlToc, kSourceLine, "Quorbind: Quor_Book::mbValidateHTMLToc"},
      {source::kCheckHtmlTocBookTitle, kSourceLine, "Quorbind: Quor_Book::mcheckHTMLTocBookTitle"},
      {source::kParseFile, kSourceLine, "Quorbind: Quor_Book::mstrParseFile"},
      {source::kCheckStartEndTagsHtml, kSourceLine, "Quorbind: Quor_Book::mbCheckStartEndTagsHTML"},
      {source::kCheckForHeadingHtml, kSourceLine, "Quorbind: Quor_Book::mbCheckForHeadingHTML"},
      {source::kCheckFlink, kSourceLine, "Quorbind: Quor_Book::mstrCheckFlink"},
      {source::kCheckHtmlForValidity, kSourceLine, "Quorbind: Quor_Book::mbCheckHTMLForValidity"},
      {source::kRemoveTagsFromHtml, kSourceLine, "Quorbind: Quor_Book::mstrRemoveTagsFromHTML"},
      {source::kValidateXmlToc, kSourceLine, "Quorbind: Quor_Book::mbValidateXMLToc"},
      {source::kBookInfoOk, kInProcedure, "cmdOk_Click of Form frmBookInfo"},
      {source::kBookInfoCancel, kInProcedure, "cmdCancel_Click of Form frmBookInfo"},
      {source::kBookInfoNameChange, kInProcedure, "txtBookName_Change of Form frmBookInfo"},
      {source::kBookInfoAcroChange, kInProcedure, "txtBookAcro_Change of Form frmBookInfo"},
      {source::kBookFolderOk, kInProcedure, "cmdOk_Click of Form frmBookFolder"},
      {source::kGenerateXmlFromToc, kSourceLine, "Quorbind:CTOCToXML::GenereateXMLFromTOC"},
      {source::kAddComment, kSourceLine, "Quorbind:CTOCToXML::maddComment"},
      {source::kGenerateBookNode, kSourceLine, "Quorbind:CTOCToXML::mGenerateBookNode"},
      {source::kGenerateBookCategories, kSourceLine, "Quorbind:CTOCToXML::mGenerateBookCateGories"},
      {source::kGenerateBookHeadings, kSourceLine, "Quorbind:CTOCToXML::mGenerateBookHeadings"},
      {source::kGenerateTypeAttribute, kSourceLine, "Quorbind:CTOCToXML::mGenerateTypeAttribute"},
      {source::kGenerateXmlTag, kSourceLine, "Quorbind:CTOCToXML::mGenereateXMLTag"},
      {source::kQuickSort, kSourceLine, "Quorbind:Quor_Developer-frmSelPrjTypetoAdd::mQuickSort"},
      {source::kBubbleSort, kSourceLine, "Quor_Developer-frmSelPrjTypetoAdd::bubbleSort"},
      {source::kPartition, kSourceLine, "Quor_Developer-frmSelPrjTypetoAdd::mlPartition"},
      {source::kDeleteNode, kSourceLine, "Quorbind:Book_Config::DeleteNode"},
      {source::kAddBookCateToXmlFile,
       kTightSourceLine,
       "Quorbind-Book_Config::AddBookCateToXMLFile"},
      {source::kCreateBookCateXmlFile,
       kTightSourceLine,
       "Quorbind-Book_Config::CreateBookCateXMLFile"},
      {source::kGenerateCategoryTag, kSourceLine, "ctlBooksTab::GenerateXML Tag"},
      {source::kGetBookAcroInfo,
       kUnderTitle,
       "Quorbind::Book_Config-GetBookAcroInfo",
       MessageIcon::kInformation},
      {source::kGetBookAcroValue,
       kUnderTitle,
       "Quorbind::Book_Config-GetBookAcroValue",
       MessageIcon::kInformation},
      {source::kAddBookAcro,
       kUnderTitle,
       "Quorbind::Book_Config-AddBookAcro",
       MessageIcon::kInformation},
      {source::kAddOtherCategory,
       kUnderTitle,
       "Quorbind::Book_Config-AddOtherCategoryBookAcro",
       MessageIcon::kInformation},
      {source::kEditBookCateToXmlFile,
       kWideSourceLine,
       "Quorbind::Book_Config - EditBookCateToXMLFile",
       MessageIcon::kNone},
      {source::kCheckIfDefaultCategory,
       kWideSourceLine,
       "Quorbind::Book_Config - bCheckIfDefaultCategory",
       MessageIcon::kNone},
      {source::kCheckCategoryInQuorBookCategories,
       kWideSourceLine,
       "Quorbind::Book_Config - bCheckCategoryinQuorBookCategories",
       MessageIcon::kNone},
      {source::kAddCategoryNode,
       kInProcedure,
       "AddCategoryNode of Class Module Quor_Book",
       MessageIcon::kNone},
      {source::kSortArray, kSourceLine, "Quorbind:Global_Variables::SortArray"},
      {source::kAddKeywordsToXmlFile, kTightSourceLine, "Quorbind-Quor_Book::AddKeywordsToXmlFile"},
      {source::kCreateKeywordXmlFile, kTightSourceLine, "Quorbind-Quor_Book::CreateKeywordXmlFile"},
      {source::kAddKeywords,
       kInProcedure,
       "AddKeywords of User Control ctlBooksTab",
       MessageIcon::kNone},
      {source::kCheckXmlCharacters,
       kTightSourceLine,
       "Quor_Developer-ctlBooksTab::CheckXMLCharacters"},
      {source::kAddToLinkIdFile, kTightSourceLine, "Quorbind-Quor_Book::AddToLinkIDFile"},
      {source::kCheckBookLink, kSourceLine, "Quorbind: Quor_Book::mstrCheckBookLink"},
      {source::kGenerateBookLinkId, kSourceLine, "Quorbind: Quor_Book::GenerateBookLinkID"},
      {source::kCheckDuplicateLinkId, kSourceLine, "Quorbind: Quor_Book::CheckDuplicateLinkID"},
      {source::kAddLinkIdInfo,
       kSourceLine,
       "Quorbind: Quor_Book::AddLinkIDInfo",
       MessageIcon::kNone},
  };
  for (const Published& row : published) {
    EXPECT_EQ(row.source.text, row.text);
    EXPECT_EQ(row.source.wording, row.wording) << row.text;
    EXPECT_EQ(row.source.icon, row.icon) << row.text;
  }
}

}  // namespace
}  // namespace quorbind::testing
