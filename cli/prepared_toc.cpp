#include "cli/prepared_toc.h"

#include <string>

#include "cli/toc_survey.h"
#include "toc/text_form.h"

namespace quorbind {

namespace {

/// The header and the second line, which has to be empty: the generator would take it for an entry.
constexpr std::string_view kHead =
    "\"Node Level\" \"Node Name\" \"File Name\" \"Sub Link\"\n"
    "\n";

/// A name that is nothing but a bookmark stays as it is: an entry without any file has no type.
TextTocEntry withBookmarkMoved(TextTocEntry entry) {
  const std::size_t bookmark = entry.file.find('#');
  if (entry.subLink.empty() && bookmark != std::string_view::npos && bookmark > 0) {
    entry.subLink = entry.file.substr(bookmark);
    entry.file = entry.file.substr(0, bookmark);
  }
  return entry;
}

std::string quotedField(std::string_view field) {
  return "\"" + std::string(field) + "\" ";
}

std::string preparedLine(const TextTocEntry& entry) {
  return quotedField(std::to_string(entry.level)) + quotedField(entry.name) +
         quotedField(entry.file) + quotedField(entry.subLink) +
         text_form::lineOf({.level = entry.level,
                            .name = entry.name,
                            .file = entry.file,
                            .subLink = entry.subLink}) +
         "\n";
}

}  // namespace

void writePreparedToc(const Platform& platform,
                      const TocFile& toc,
                      const std::function<void(std::string_view)>& sink) {
  sink(kHead);
  surveyTextToc(platform, toc, [&sink](const TextTocLine&, const TextTocEntry& entry) {
    sink(preparedLine(withBookmarkMoved(entry)));
  });
}

}  // namespace quorbind
