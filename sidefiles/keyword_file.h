#pragma once

// A library's search keywords. Each operation tells an unexpected error in a box.

#include <optional>
#include <string>
#include <string_view>

#include "platform/platform.h"
#include "platform/text_index.h"
#include "sidefiles/side_file.h"

namespace quorbind {

/// Makes a keywords file without books, replacing one that stands there.
void CreateKeywordXmlFile(const Platform& platform, const std::string& vstrPath);

/// Adds a keyword as it is given to a book, which is entered when the file lacks it; a keyword that
/// the book has, and a blank one, change nothing. A missing file is made, and then takes even a
/// blank keyword. The user is told of a file that does not load.
void AddKeywordsToXmlFile(const Platform& platform,
                          const std::string& vstrKeywordsPath,
                          const std::string& sBookName,
                          const std::string& sKeyWord);

/// Replaces every `sOldKeyword` of the book by `sKeyWord`, which is not checked in any way; a blank
/// one changes nothing. The user is told of a file that does not load or is missing. Errors are
/// reported under the name of AddKeywordsToXmlFile.
void EditKeywordsToXmlFile(const Platform& platform,
                           const std::string& vstrKeywordsPath,
                           const std::string& sBookName,
                           const std::string& sKeyWord,
                           const std::string& sOldKeyword);

/// A keywords file in memory, for the keywords of one book. The book is looked up as a query
/// between apostrophes would find it: a name that holds an apostrophe raises kInvalidQueryError. In
/// a document with another root, and for a book without its list, adding raises 91. An error leaves
/// the document as it was.
class KeywordFile final : public SideFile {
 public:
  KeywordFile(const Platform& platform, std::string path, std::string bookName);

  /// Adds a keyword to the book. False when nothing was done: it is blank, or there already.
  bool add(std::string_view keyword);
  /// Enters the book with one keyword, whatever is there already.
  void enterBook(std::string_view keyword);
  /// Replaces every `old` of the book.
  void rename(std::string_view old, std::string_view keyword);

 private:
  void dropIndex() override;
  void requireBook();
  [[nodiscard]] bool has(std::string_view keyword);
  const TextIndex& known();
  [[nodiscard]] std::string bookQuery() const;
  [[nodiscard]] std::string listQuery() const;
  [[nodiscard]] std::string keywordQuery() const;
  void append(std::string_view keyword);

  std::string bookName_;
  /// The book's list, once the book was looked up; no node while the document lacks the book.
  XmlNode keywords_;
  bool lookedUp_ = false;
  /// Whether a keyword was looked for in that list.
  bool searched_ = false;
  /// The list's keywords; made when a second one is looked for.
  std::optional<TextIndex> known_;
};

}  // namespace quorbind
