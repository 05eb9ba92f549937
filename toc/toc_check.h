#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text.h"
#include "toc/text_toc.h"
#include "workflow/forms/module.h"

namespace quorbind {

/// The check of tables of contents, with what a `Quor_Book` object remembers of it. Each operation
/// answers False after it has told the user why.
class TocCheck {
 public:
  /// The kinds of tables of contents, as hosts number them.
  enum Kind : std::int16_t { kXml = 1, kHtml = 2, kExcel = 3, kText = 4 };

  /// `module` is kept by reference.
  explicit TocCheck(Module& module);

  /// Checks the table of contents at `tocPath` by its kind. A kind whose export the generator reads
  /// instead changes `tocPath` to that file.
  bool mbValidateTocFile(std::string& tocPath, std::int16_t vintType);

  bool mbValidateTextToc(std::string_view tocPath);
  /// One entry of a text table of contents; `pieces` is the line cut at the quotes.
  bool mbcheckTTocForValidity(std::string_view line,
                              const Pieces& pieces,
                              std::string_view tocPath);

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
  [[nodiscard]] const std::vector<std::string>& marrsMissingFiles() const {
    return marrsMissingFiles_;
  }

 private:
  class TextTocTeller;

  void tell(std::string_view line, const TocViolation& violation);
  [[nodiscard]] bool documentExists(std::string_view folder, std::string_view fileName);

  Module& module_;
  std::int16_t mintPrevLevel_ = 0;
  std::string mstrCurFile_;
  std::string mstrCurBookMark_;
  std::vector<std::string> marrsMissingFiles_;
};

}  // namespace quorbind
