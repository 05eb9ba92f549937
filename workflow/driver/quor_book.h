#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/text_array.h"
#include "toc/toc_check.h"
#include "workflow/driver/book_valuator.h"
#include "workflow/forms/module.h"

namespace quorbind {

/// The public class through which a host adds a book to a library.
///
/// Every call runs to its end on the caller's thread, dialogs included. No call raises an error: a
/// problem is told to the user in a message box, and the call answers its failure value.
class Quor_Book {
 public:
  /// `module` and `events` are kept by reference; without `events` nobody is told.
  explicit Quor_Book(Module& module, QuorBookEvents* events = nullptr);
  Quor_Book(const Quor_Book&) = delete;
  Quor_Book& operator=(const Quor_Book&) = delete;

  /// Adds one book: checks the table of contents, asks for what is missing, converts, copies and
  /// registers. Answers true when the run came to its end, also when a check or a dialog ended it
  /// before the book was added; false when an unexpected error did.
  ///
  /// `vstrtocpath` is the table of contents, `vstrQuorTOcPath` the library's master catalogue, in
  /// whose folder the books' folders lie; `vintType` is 1 XML, 2 HTML, 3 Excel, 4 text. A name and
  /// an acronym that are not empty are taken as given. `vstrCategory` goes into the catalogue's
  /// entry; `strKeyWords` and `strCategory` are lists for the side files named by `spath` and
  /// `vstrBookCategoryPath`; keywords are separated by `;`, categories by `;` or else by `,`. With
  /// `blnChkCateFlag` the categories file is made anew first, from the defaults in `strServerPath`.
  bool Book_Valuator(const std::string& vstrtocpath,
                     const std::string& vstrQuorTOcPath,
                     std::int16_t vintType,
                     const std::string& vstrProductName,
                     const std::string& vstrBookName,
                     const std::string& vstrBookAcro,
                     const std::string& vstrCategory,
                     const std::string& vstrKeywordsPath,
                     const std::string& vstrBookCategoryPath,
                     const std::string& strKeyWords,
                     const std::string& strCategory,
                     const std::string& spath,
                     std::int32_t vlngInstallType,
                     bool blnChkCateFlag,
                     const std::string& strServerPath);

  /// Asks for the book's name and acronym, unless both are known, and offers the dialog again when
  /// the catalogue already has one of them. True unless the user gave up.
  bool mbGetFormInput(const std::string& vstrQuorTOcPath, std::int16_t vintType);

  /// Tells the user when the catalogue already has the name or the acronym, and lets other values
  /// be entered, once each. False when the catalogue does not load.
  bool mbCheckQuorTOCForBook(const std::string& vstrQuorTOcPath,
                             const std::string& vstrBookName,
                             const std::string& vstrBookAcro);

  /// How many books a sheet of headings lists, by the levels in its column `vlCount`. A cell that
  /// is no level is told, and ends the count.
  std::int32_t getExcelBookCount(Worksheet& vobjXLWSheetRead, std::int32_t vlCount);

  // The side files of a library. sidefiles/ tells what each operation does: category_filing.h,
  // keyword_file.h, keyword_list.h, keyword_rules.h and link_file.h.
  void AddKeywordsToXmlFile(const std::string& vstrKeywordsPath,
                            const std::string& sBookName,
                            const std::string& sKeyWord);
  void EditKeywordsToXmlFile(const std::string& vstrKeywordsPath,
                             const std::string& sBookName,
                             const std::string& sKeyWord,
                             const std::string& sOldKeyword);
  void AddCategoryNode(const std::string& vstrCategory,
                       const std::string& vstrBookAcro,
                       const std::string& vstrxmlPath = {});
  void CreateKeywordXmlFile(const std::string& vstrPath);
  void AddKeywords(const TextArray& vstrArrKeywords, const std::string& vstrKeywordsPath);
  bool CheckXMLCharacters(const std::string& strCurWord, const std::string& strBook);
  void AddToLinkIDFile(const std::string& strLinkIDFilePath,
                       const std::string& strLinkID,
                       const std::string& strFullLink,
                       const std::string& strSourceFilePath,
                       const std::string& strProjectName,
                       const std::string& strBookAcro);

 private:
  Module& module_;
  TocCheck tocCheck_;
  BookValuator valuator_;
};

}  // namespace quorbind
