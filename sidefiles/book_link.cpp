#include "sidefiles/book_link.h"

#include <algorithm>

#include "platform/error_trap.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "platform/text_encoding.h"
#include "toc/text_form.h"

namespace quorbind {

namespace {

constexpr std::string_view kBegin = "<IBD>";
constexpr std::string_view kEnd = "</IBD>";

std::size_t firstCharacterOf(std::string_view text) {
  return text.empty() ? 0 : std::max<std::size_t>(firstUtf8Character(text).length, 1);
}

/// Where the last character of `text`, which is not empty, begins.
std::size_t lastCharacterIn(std::string_view text) {
  std::size_t begin = text.size() - 1;
  while (begin > 0 && isInsideCharacter(text[begin])) {
    --begin;
  }
  return begin;
}

}  // namespace

std::optional<std::string> linkIdentifierIn(std::string_view anchorText) {
  const std::size_t tag = findIgnoringAsciiCase(anchorText, kBegin);
  if (tag == std::string_view::npos) {
    return std::nullopt;
  }
  const std::size_t inside = tag + kBegin.size();
  const std::size_t begin = inside + firstCharacterOf(anchorText.substr(inside));
  const std::size_t end = findIgnoringAsciiCase(anchorText, kEnd, begin);
  if (end == std::string_view::npos) {
    return std::nullopt;
  }
  const std::size_t last = inside + lastCharacterIn(anchorText.substr(inside, end - inside));
  if (last < begin) {
    raise(ErrorNumber::kInvalidProcedureCall);
  }
  return std::string(anchorText.substr(begin, last - begin));
}

std::string mstrCheckBookLink(const Platform& platform,
                              std::string_view anchorText,
                              std::string_view curFile,
                              std::string_view curBookMark) {
  return trapped(platform.ui, source::kCheckBookLink, std::string(), [&] {
    const auto identifier = linkIdentifierIn(anchorText);
    if (!identifier) {
      return std::string(text_form::kNoBookLink);
    }
    return std::string(*identifier)
        .append(kBookLinkSeparator)
        .append(withBackslashes(curFile))
        .append(curBookMark);
  });
}

}  // namespace quorbind
