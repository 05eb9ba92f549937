#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text.h"
#include "platform/text_store.h"
#include "platform/xml_document.h"
#include "toc/book_place.h"
#include "toc/excel_toc_check.h"
#include "toc/html_toc.h"
#include "toc/text_toc.h"
#include "toc/toc_violation.h"
#include "workflow/forms/module.h"

namespace quorbind {

class FolderListings;

/// The check of tables of contents, with what a `Quor_Book` object remembers of it. Each operation
/// answers False after it has told the user why.
class TocCheck {
 public:
  /// The kinds of tables of contents, as hosts number them.
  enum Kind : std::int16_t { kXml = 1, kHtml = 2, kExcel = 3, kText = 4 };

  /// `module` is kept by reference.
  explicit TocCheck(Module& module);

  /// Checks the table of contents at `tocPath` by its kind. A kind whose export the generator reads
  /// instead changes `tocPath` to that file. The books of a workbook are added meanwhile, as `run`
  /// says; the answer for a workbook is always False.
  bool mbValidateTocFile(std::string& tocPath,
                         std::int16_t vintType,
                         const ExcelRun* run = nullptr);

  bool mbValidateTextToc(std::string_view tocPath);
  /// One entry of a text table of contents; `pieces` is the line cut at the quotes.
  bool mbcheckTTocForValidity(std::string_view line,
                              const Pieces& pieces,
                              std::string_view tocPath);

  /// Checks an HTML page and puts its export, the headings in the intermediate text form, into
  /// `exportText`. The book's own link identifier, where the page has one, is recorded meanwhile;
  /// a page whose book may not lie where it states is refused before that.
  bool mbValidateHTMLToc(std::string_view tocPath, std::string& exportText);
  /// The whole text of a page; empty when it can't be read.
  std::string mstrParseFile(std::string_view tocPath);
  /// The title of the book in a page, which may have none: becomes the book's name unless it has
  /// one, and its document the book's main file. `folder` is that of the page, ending in `\`.
  bool mcheckHTMLTocBookTitle(std::string_view page,
                              std::string_view folder,
                              std::string_view tocPath);
  /// One heading of a page; its line is appended to `exportText`.
  bool mbCheckHTMLForValidity(std::string_view block,
                              std::string_view folder,
                              std::string& exportText);
  /// The level that a heading has in the export; nothing when its levels are refused.
  std::optional<std::int16_t> mbCheckForHeadingHTML(std::string_view block);
  std::string mstrCheckFlink(std::string_view block);
  std::string mstrRemoveTagsFromHTML(std::string_view text);

  /// Checks an existing book file and takes over what it says of its book: name and acronym unless
  /// the book has them, the folder, and the acronym that the file is named after. Tells the user
  /// when the catalogue has the name or the acronym already; where there is no catalogue, asks for
  /// the folder.
  bool mbValidateXMLToc(std::string_view tocPath);

  /// The check of workbooks.
  [[nodiscard]] ExcelTocCheck& excel() { return excel_; }

  /// Looks whether the document of an entry is there. A missing one is noted and stops nothing: the
  /// answer is always True.
  bool mbCheckFilePath(std::string_view line, std::string_view fileName, std::string_view folder);

  /// Writes `text`, the export of an HTML table of contents, as a "Unicode text" file, and changes
  /// `tocPath` to its name: the upper-cased path with every `.HTM` as `_Temp.txt`. Where the folder
  /// does not allow a file, the user is told of the folder.
  bool mHTMLExportToText(std::string& tocPath, std::string_view text);

  /// Shows `message`, then leaves `offendingText` on the clipboard, so that the user can paste it
  /// into an editor and find it.
  void mDisplayErrorMessage(std::string_view message, std::string_view offendingText);

  // What the checks remember, for as long as the object lives: no check starts afresh.

  /// The level of the entry accepted last; 0 before the first.
  [[nodiscard]] std::int16_t mintPrevLevel() const { return mintPrevLevel_; }
  /// The document of the entry examined last, and `#` with the bookmark that followed it.
  [[nodiscard]] const std::string& mstrCurFile() const { return mstrCurFile_; }
  [[nodiscard]] const std::string& mstrCurBookMark() const { return mstrCurBookMark_; }
  /// The documents that were not there, as the tables of contents name them.
  [[nodiscard]] std::vector<std::string> marrsMissingFiles() const {
    return marrsMissingFiles_.texts();
  }

  // What the table of contents of the current run said of its book.

  /// Forgets it: a run begins.
  void forgetBook();
  /// The book's main file, from the title of a page or the first row of a workbook's book; empty
  /// for every other kind.
  [[nodiscard]] const std::string& mstrBookFile() const { return mstrBookFile_; }
  /// The folder of a book file's book, below the library's.
  [[nodiscard]] const std::string& mstrBookFolder() const { return mstrBookFolder_; }

 private:
  friend class ExcelTocCheck;
  class TextTocTeller;
  class HtmlTocTeller;

  void tell(std::string_view line, const TocViolation& violation);
  /// Whether nothing is violated; the user is told of what is.
  bool accepts(std::string_view line, const std::optional<TocViolation>& violation);
  bool exportHtmlToc(std::string& tocPath);
  bool placeIsAllowed(const StatedPlace& stated);
  std::optional<std::string_view> takeHtmlPath(std::string_view block, std::string_view folder);
  void recordBookLink(const std::string& identifier,
                      std::string_view title,
                      std::string_view tocPath);
  void takeBookFrom(const XmlDocument& book);
  void takeFolderFrom(const XmlDocument& book);
  void askForFolder();
  [[nodiscard]] bool documentExists(std::string_view folder, std::string_view fileName);
  [[nodiscard]] bool fileExists(const std::string& path);

  Module& module_;
  std::int16_t mintPrevLevel_ = 0;
  std::string mstrCurFile_;
  std::string mstrCurBookMark_;
  TextStore marrsMissingFiles_;
  std::string mstrBookFile_;
  std::string mstrBookFolder_;
  /// Of the check that is running; null without one.
  FolderListings* listings_ = nullptr;
  ExcelTocCheck excel_;
};

}  // namespace quorbind
