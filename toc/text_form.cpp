#include "toc/text_form.h"

#include "platform/paths.h"
#include "platform/text.h"
#include "platform/text_file.h"

namespace quorbind::text_form {

namespace {

std::string inMarkers(std::string_view field) {
  return std::string(kMarker).append(field).append(kMarker);
}

}  // namespace

std::string lineOf(const Entry& entry) {
  std::string line = inMarkers(std::to_string(entry.level));
  for (const std::string_view field :
       {entry.name, entry.file, entry.subLink, entry.fLinkValue, entry.bookLinkValue}) {
    line.append(" ").append(inMarkers(field));
  }
  return line;
}

std::string readBookEntry(FileSystem& files, const Locale& locale, std::string_view path) {
  constexpr int kLinesBeforeSecondEntry = 3;
  TextReader reader(files, locale, path);
  std::string entry;
  for (int line = 0; line < kLinesBeforeSecondEntry && !reader.atEnd(); ++line) {
    entry = withBackslashes(reader.readLine());
  }
  return entry;
}

}  // namespace quorbind::text_form
