#include "toc/book_place.h"

#include "platform/paths.h"
#include "platform/text.h"
#include "toc/text_form.h"
#include "workflow/forms/name_rules.h"

namespace quorbind {

namespace {

constexpr std::string_view kLeadsOut = "Error:Book Folder leads out of the library: ";

}  // namespace

std::optional<std::string> refusalOfStatedFolder(const std::string& folder,
                                                 std::string_view stated) {
  if (auto refusal = refusalOfFolder(folder)) {
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

StatedPlace statedPlaceOf(std::size_t line, std::string_view document) {
  const std::string file = withBackslashes(document);
  if (!contains(file, "\\")) {
    return {};
  }
  const std::string folder = file.substr(0, file.find('\\'));
  return {.line = line, .folder = folder, .refusal = refusalOfStatedFolder(folder, file)};
}

StatedPlace readStatedPlace(const Platform& platform, std::string_view tocPath) {
  const text_form::BookEntry entry =
      text_form::readBookEntry(platform.files, platform.locale, tocPath);
  const Pieces pieces(entry.text, text_form::kMarker);
  if (pieces.count() <= text_form::kFile) {
    return {};
  }
  return statedPlaceOf(entry.line, pieces.at(text_form::kFile));
}

}  // namespace quorbind
