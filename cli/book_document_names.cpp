#include "cli/book_document_names.h"

#include "bookxml/names.h"
#include "cli/document_finder.h"
#include "platform/paths.h"

namespace quorbind {

BookDocumentNames::BookDocumentNames(std::string_view path, const Locale& locale)
    : locale_(locale), folder_(std::string(fileNameOf(folderOf(path))) + "\\") {}

std::optional<std::string> BookDocumentNames::take(std::string_view element,
                                                   std::string_view text) {
  const bool isMainFile = element == book_names::kBookFile;
  if (!isMainFile && element != book_names::kHeadingFile) {
    return std::nullopt;
  }
  // The book of a workbook states its main file with the book's folder in front.
  text.remove_prefix(isMainFile && text.starts_with(folder_) ? folder_.size() : 0);
  std::string name(text.substr(0, text.find('#')));
  const bool isNew = !name.empty() && taken_.add(documentKey(name, locale_)).second;
  return isNew ? std::optional(std::move(name)) : std::nullopt;
}

}  // namespace quorbind
