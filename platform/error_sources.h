#pragma once

#include <optional>
#include <string_view>

#include "platform/user_interface.h"

namespace quorbind {

/// How the box of an unexpected error is worded; `n` is its number, `d` its description.
enum class ErrorWording {
  kSourceLine,   ///< "Error(n): d", carriage return, source
  kInProcedure,  ///< "Error n (d) in procedure ", source
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

inline constexpr ErrorSource kDeleteNode{"Quorbind:Book_Config::DeleteNode"};

}  // namespace source

}  // namespace quorbind
