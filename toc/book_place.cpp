#include "toc/book_place.h"

#include "platform/paths.h"
#include "platform/text.h"
#include "resources/rule_texts.h"
#include "toc/text_form.h"
#include "workflow/forms/name_rules.h"

namespace quorbind {

namespace {

constexpr std::string_view kLeadsOut = text(RuleText::kFolderLeadsOut);

/// The line that a reader of text finds first in `lines`.
std::string_view firstLineOf(std::string_view lines) {
  const std::size_t end = lines.find('\n');
  if (end == std::string_view::npos) {
    return lines;
  }
  const std::string_view line = lines.substr(0, end);
  return line.substr(0, line.size() - (line.ends_with('\r') ? 1 : 0));
}

}  // namespace

std::optional<std::string> refusalOfStatedFolder(const std::string& folder,
                                                 std::string_view stated) {
  if (auto refusal = refusalOfFolder(folder)) {
    return refusal;
  }
  if (auto refusal = refusalOfCharacters(folder)) {
    return refusal;
  }
  // An empty folder is the library's own, unless the name begins with `\\` because it leads
  // elsewhere.
  const bool leadsOut = folder.empty() ? leadsToNetworkOrDevice(stated) : !staysInFolder(folder);
  if (leadsOut) {
    return std::string(kLeadsOut).append(stated);
  }
  return std::nullopt;
}

StatedPlace statedPlaceOf(std::string_view file, std::size_t line) {
  const std::string path = withBackslashes(file);
  if (!contains(path, "\\")) {
    return {};
  }
  const std::string folder = path.substr(0, path.find('\\'));
  return {.line = line, .folder = folder, .refusal = refusalOfStatedFolder(folder, path)};
}

StatedPlace statedPlaceInEntries(std::string_view entries, std::size_t line) {
  const std::string entry = withBackslashes(firstLineOf(entries));
  const Pieces pieces(entry, text_form::kMarker);
  if (pieces.count() <= text_form::kFile) {
    return {};
  }
  return statedPlaceOf(pieces.at(text_form::kFile), line);
}

StatedPlace readStatedPlace(const Platform& platform, std::string_view tocPath) {
  const text_form::BookEntry entry =
      text_form::readBookEntry(platform.files, platform.locale, tocPath);
  return statedPlaceInEntries(entry.text, entry.line);
}

}  // namespace quorbind
