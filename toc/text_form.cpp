#include "toc/text_form.h"

#include "platform/paths.h"
#include "platform/text.h"
#include "platform/text_file.h"

namespace quorbind::text_form {

namespace {

constexpr std::string_view kExportEnding = "_Temp.txt";

void appendInMarkers(std::string& line, std::string_view field) {
  line.append(kMarker).append(field).append(kMarker);
}

}  // namespace

std::string lineOf(const Entry& entry) {
  std::string line;
  appendInMarkers(line, std::to_string(entry.level));
  for (const std::string_view field :
       {entry.name, entry.file, entry.subLink, entry.fLinkValue, entry.bookLinkValue}) {
    line.append(" ");
    appendInMarkers(line, field);
  }
  return line;
}

std::string exportPathOf(const Locale& locale,
                         std::string_view tocPath,
                         std::string_view extension) {
  return replaceAll(locale.upperCase(tocPath), extension, kExportEnding);
}

BookEntry readBookEntry(FileSystem& files, const Locale& locale, std::string_view path) {
  constexpr std::size_t kLinesBeforeSecondEntry = 3;
  TextReader reader(files, locale, path);
  BookEntry entry;
  while (entry.line < kLinesBeforeSecondEntry && !reader.atEnd()) {
    entry = {entry.line + 1, withBackslashes(reader.readLine())};
  }
  return entry;
}

}  // namespace quorbind::text_form
