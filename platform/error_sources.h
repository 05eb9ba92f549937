#pragma once

#include <optional>
#include <string_view>

#include "platform/user_interface.h"

namespace quorbind {

/// How the box of an unexpected error is worded; `n` is its number, `d` its description.
enum class ErrorWording {
  kSourceLine,       ///< "Error(n): d", carriage return, source
  kTightSourceLine,  ///< "Error(n):d", carriage return, source
  kWideSourceLine,   ///< "Error (n ):d", carriage return, source
  kInProcedure,      ///< "Error n (d) in procedure ", source
  kUnderTitle,       ///< "n: d", in a box whose title is the source
};

/// The fixed text with which one procedure reports unexpected errors.
struct ErrorSource {
  std::string_view text;
  ErrorWording wording = ErrorWording::kSourceLine;
  MessageIcon icon = MessageIcon::kCritical;
};

/// The source texts of all procedures, in one place because hosts and support scripts match on
/// them. Their blanks, their spelling and the foreign names in some of them are published and stay.
namespace source {

inline constexpr ErrorSource kBookValuator{"Quorbind: Quor_Book::Book_Valuator"};
inline constexpr ErrorSource kCheckForValidInput{"Quorbind: Quor_Book::bCheckForValidInput"};
inline constexpr ErrorSource kGetFormInput{"Quorbind: Quor_Book::mbGetFormInput"};
inline constexpr ErrorSource kCheckQuorTocForBook{"Quorbind: Quor_Book::mbcheckQuorTocForBook"};
inline constexpr ErrorSource kAddBookTocForBook{"Quorbind: Quor_Book::mbAddBookTocForBook"};
inline constexpr ErrorSource kDisplayErrorMessage{"Quorbind: Quor_Book::mDisplayErrorMessage"};

inline constexpr ErrorSource kValidateTocFile{"Quorbind: Quor_Book::mbValidateTocFile"};
inline constexpr ErrorSource kValidateTextToc{"Quorbind: Quor_Book::mbValidateTextToc"};
inline constexpr ErrorSource kCheckTTocForValidity{"Quorbind: Quor_Book::mbcheckTTocForValidity"};
inline constexpr ErrorSource kCheckFilePath{"Quorbind: Quor_Book::mbCheckFilePath"};
inline constexpr ErrorSource kHtmlExportToText{"Quorbind: Quor_Book::mHTMLExportToText"};
inline constexpr ErrorSource kValidateHtmlToc{"Quorbind: Quor_Book::mbValidateHTMLToc"};
inline constexpr ErrorSource kCheckHtmlTocBookTitle{"Quorbind: Quor_Book::mcheckHTMLTocBookTitle"};
inline constexpr ErrorSource kParseFile{"Quorbind: Quor_Book::mstrParseFile"};
inline constexpr ErrorSource kCheckStartEndTagsHtml{"Quorbind: Quor_Book::mbCheckStartEndTagsHTML"};
inline constexpr ErrorSource kCheckForHeadingHtml{"Quorbind: Quor_Book::mbCheckForHeadingHTML"};
inline constexpr ErrorSource kCheckFlink{"Quorbind: Quor_Book::mstrCheckFlink"};
inline constexpr ErrorSource kCheckHtmlForValidity{"Quorbind: Quor_Book::mbCheckHTMLForValidity"};
inline constexpr ErrorSource kRemoveTagsFromHtml{"Quorbind: Quor_Book::mstrRemoveTagsFromHTML"};
inline constexpr ErrorSource kValidateXmlToc{"Quorbind: Quor_Book::mbValidateXMLToc"};

inline constexpr ErrorSource kValidateXlToc{"Quorbind: Quor_Book::mbValidateXLToc"};
inline constexpr ErrorSource kCheckXlForNodeLevel{"Quorbind: Quor_Book::mbcheckXLForNodeLevel"};
inline constexpr ErrorSource kCheckXlForNodeName{"Quorbind: Quor_Book::mbcheckXLForNodeName"};
inline constexpr ErrorSource kCheckXlForFileName{"Quorbind: Quor_Book::mbcheckXLForFileName"};
inline constexpr ErrorSource kXlExportToText{"Quorbind: Quor_Book::mXLExportToText"};
inline constexpr ErrorSource kGetBookInfoFromExcel{"Quorbind: Quor_Book::GetBookInfofromExcel"};
inline constexpr ErrorSource kGetExcelBookCount{"getExcelBookCount of Class Module Quor_Book",
                                                ErrorWording::kInProcedure};
inline constexpr ErrorSource kBuildExcelBook{"BuildExcelBook of Class Module Quor_Book",
                                             ErrorWording::kInProcedure};

inline constexpr ErrorSource kBookInfoOk{"cmdOk_Click of Form frmBookInfo",
                                         ErrorWording::kInProcedure};
inline constexpr ErrorSource kBookInfoCancel{"cmdCancel_Click of Form frmBookInfo",
                                             ErrorWording::kInProcedure};
inline constexpr ErrorSource kBookInfoNameChange{"txtBookName_Change of Form frmBookInfo",
                                                 ErrorWording::kInProcedure};
inline constexpr ErrorSource kBookInfoAcroChange{"txtBookAcro_Change of Form frmBookInfo",
                                                 ErrorWording::kInProcedure};
inline constexpr ErrorSource kBookFolderOk{"cmdOk_Click of Form frmBookFolder",
                                           ErrorWording::kInProcedure};

inline constexpr ErrorSource kGenerateXmlFromToc{"Quorbind:CTOCToXML::GenereateXMLFromTOC"};
inline constexpr ErrorSource kAddComment{"Quorbind:CTOCToXML::maddComment"};
inline constexpr ErrorSource kGenerateBookNode{"Quorbind:CTOCToXML::mGenerateBookNode"};
inline constexpr ErrorSource kGenerateBookCategories{"Quorbind:CTOCToXML::mGenerateBookCateGories"};
inline constexpr ErrorSource kGenerateBookHeadings{"Quorbind:CTOCToXML::mGenerateBookHeadings"};
inline constexpr ErrorSource kGenerateTypeAttribute{"Quorbind:CTOCToXML::mGenerateTypeAttribute"};
inline constexpr ErrorSource kGenerateXmlTag{"Quorbind:CTOCToXML::mGenereateXMLTag"};

inline constexpr ErrorSource kQuickSort{"Quorbind:Quor_Developer-frmSelPrjTypetoAdd::mQuickSort"};
inline constexpr ErrorSource kBubbleSort{"Quor_Developer-frmSelPrjTypetoAdd::bubbleSort"};
inline constexpr ErrorSource kPartition{"Quor_Developer-frmSelPrjTypetoAdd::mlPartition"};

inline constexpr ErrorSource kQuorLocation{"Quorbind:Book_Config::strQuorLoacation"};
inline constexpr ErrorSource kQuorNames{"Quorbind:Book_Config::QuorNames"};
inline constexpr ErrorSource kBookInfo{"Quorbind:Book_Config::BookInfo"};
inline constexpr ErrorSource kCategorieInfo{"Quorbind:Book_Config::CategorieInfo"};
inline constexpr ErrorSource kDeleteNode{"Quorbind:Book_Config::DeleteNode"};
inline constexpr ErrorSource kUpdateBookNameAcro{"Quorbind:Book_Config::UpdateBookNameAcro"};
inline constexpr ErrorSource kSetMatchingBookInfo{"Quorbind:Book_Config::msetMatchingBokkIno"};
inline constexpr ErrorSource kMatchingBooksInfo{"Quorbind:Book_Config::strMatchingBooksInfo"};
inline constexpr ErrorSource kSetQuorBookProperties{"Quorbind:Book_Config::mserQuorBookProperties"};
inline constexpr ErrorSource kSetQuorProperties{"Quorbind:Book_Config::msetQuorProperties"};
inline constexpr ErrorSource kSetBookProperties{"Quorbind:Book_Config::msetBookProperties"};
inline constexpr ErrorSource kSetBookCategories{"Quorbind:Book_Config::msetBookCategories"};
inline constexpr ErrorSource kCreateQuorBookNodeForSEntry{
    "Quorbind:Book_Config::CreateQuorBookNodeForSEntry"};

// Categories.
inline constexpr ErrorSource kAddBookCateToXmlFile{"Quorbind-Book_Config::AddBookCateToXMLFile",
                                                   ErrorWording::kTightSourceLine};
inline constexpr ErrorSource kCreateBookCateXmlFile{"Quorbind-Book_Config::CreateBookCateXMLFile",
                                                    ErrorWording::kTightSourceLine};
inline constexpr ErrorSource kGenerateCategoryTag{"ctlBooksTab::GenerateXML Tag"};
inline constexpr ErrorSource kGetBookAcroInfo{
    "Quorbind::Book_Config-GetBookAcroInfo", ErrorWording::kUnderTitle, MessageIcon::kInformation};
inline constexpr ErrorSource kGetBookAcroValue{
    "Quorbind::Book_Config-GetBookAcroValue", ErrorWording::kUnderTitle, MessageIcon::kInformation};
inline constexpr ErrorSource kAddBookAcro{
    "Quorbind::Book_Config-AddBookAcro", ErrorWording::kUnderTitle, MessageIcon::kInformation};
inline constexpr ErrorSource kAddOtherCategory{"Quorbind::Book_Config-AddOtherCategoryBookAcro",
                                               ErrorWording::kUnderTitle,
                                               MessageIcon::kInformation};
inline constexpr ErrorSource kEditBookCateToXmlFile{"Quorbind::Book_Config - EditBookCateToXMLFile",
                                                    ErrorWording::kWideSourceLine,
                                                    MessageIcon::kNone};
inline constexpr ErrorSource kCheckIfDefaultCategory{
    "Quorbind::Book_Config - bCheckIfDefaultCategory",
    ErrorWording::kWideSourceLine,
    MessageIcon::kNone};
inline constexpr ErrorSource kCheckCategoryInQuorBookCategories{
    "Quorbind::Book_Config - bCheckCategoryinQuorBookCategories",
    ErrorWording::kWideSourceLine,
    MessageIcon::kNone};
inline constexpr ErrorSource kAddCategoryNode{
    "AddCategoryNode of Class Module Quor_Book", ErrorWording::kInProcedure, MessageIcon::kNone};
inline constexpr ErrorSource kSortArray{"Quorbind:Global_Variables::SortArray"};

// Search keywords. Renaming one reports under the name of adding one.
inline constexpr ErrorSource kAddKeywordsToXmlFile{"Quorbind-Quor_Book::AddKeywordsToXmlFile",
                                                   ErrorWording::kTightSourceLine};
inline constexpr ErrorSource kCreateKeywordXmlFile{"Quorbind-Quor_Book::CreateKeywordXmlFile",
                                                   ErrorWording::kTightSourceLine};
inline constexpr ErrorSource kAddKeywords{
    "AddKeywords of User Control ctlBooksTab", ErrorWording::kInProcedure, MessageIcon::kNone};
inline constexpr ErrorSource kCheckXmlCharacters{"Quor_Developer-ctlBooksTab::CheckXMLCharacters",
                                                 ErrorWording::kTightSourceLine};

// Link identifiers.
inline constexpr ErrorSource kAddToLinkIdFile{"Quorbind-Quor_Book::AddToLinkIDFile",
                                              ErrorWording::kTightSourceLine};
inline constexpr ErrorSource kCheckBookLink{"Quorbind: Quor_Book::mstrCheckBookLink"};
inline constexpr ErrorSource kGenerateBookLinkId{"Quorbind: Quor_Book::GenerateBookLinkID"};
inline constexpr ErrorSource kCheckDuplicateLinkId{"Quorbind: Quor_Book::CheckDuplicateLinkID"};
inline constexpr ErrorSource kUpdateQuorLinkIdFile{"Quor_Developer-Quor_Book::UpdateQuorLinkIDFile",
                                                   ErrorWording::kTightSourceLine};
inline constexpr ErrorSource kAddLinkIdInfo{
    "Quorbind: Quor_Book::AddLinkIDInfo", ErrorWording::kSourceLine, MessageIcon::kNone};

}  // namespace source

}  // namespace quorbind
