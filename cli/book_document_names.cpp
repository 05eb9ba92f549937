#include "cli/book_document_names.h"

#include <utility>

#include "bookxml/names.h"
#include "platform/paths.h"

namespace quorbind {

BookDocumentNames::BookDocumentNames(std::string_view path, const Locale& locale)
    : locale_(locale), folder_(std::string(fileNameOf(folderOf(path))) + "\\") {}

std::optional<NamedByBook> BookDocumentNames::take(std::string_view element,
                                                   std::string_view text) {
  const bool isMainFile = element == book_names::kBookFile;
  if (!isMainFile && element != book_names::kHeadingFile) {
    return std::nullopt;
  }
  // The book of a workbook states its main file with the book's folder in front.
  text.remove_prefix(isMainFile && text.starts_with(folder_) ? folder_.size() : 0);
  NamedByBook named;
  named.name = text.substr(0, text.find('#'));
  named.below = nameBelow(named.name);
  const std::string& document = named.below ? *named.below : named.name;
  const bool isNew = !document.empty() && taken_.add(locale_.upperCase(document)).second;
  return isNew ? std::optional(std::move(named)) : std::nullopt;
}

}  // namespace quorbind
