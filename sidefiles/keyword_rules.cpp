#include "sidefiles/keyword_rules.h"

#include <algorithm>
#include <array>

#include "platform/error_trap.h"
#include "platform/text.h"
#include "platform/toolset.h"
#include "resources/messages.h"
#include "resources/rule_texts.h"

namespace quorbind {

namespace {

constexpr std::string_view kHashes = "##";
constexpr std::string_view kCannotBeUsed = text(RuleText::kCannotBeUsed);
/// In the order in which they are looked for; the last one's misspelling is published.
constexpr std::array<std::string_view, 4> kEntityTexts{"&amp;", "&lt;", "&gt;", "&quote;"};

KeywordFault faultThatEndsList(Message message) {
  return {.box = {.text = std::string(text(message))}, .endsList = true};
}

std::optional<UserMessage> refusalOf(std::string_view word, std::string_view field) {
  if (!contains(word, "&")) {
    return std::nullopt;
  }
  const auto* const found = std::find_if(kEntityTexts.begin(),
                                         kEntityTexts.end(),
                                         [&](auto entity) { return contains(word, entity); });
  if (found == kEntityTexts.end()) {
    return std::nullopt;
  }
  return UserMessage{.text = std::string(*found).append(kCannotBeUsed).append(field),
                     .icon = MessageIcon::kInformation};
}

}  // namespace

std::optional<KeywordFault> findKeywordFault(std::string_view keyword) {
  if (contains(keyword, kHashes)) {
    return faultThatEndsList(Message::kKeywordWithHashes);
  }
  const std::string_view word = trimBlanks(keyword);
  if (contains(word, " ")) {
    return faultThatEndsList(Message::kKeywordWithBlanks);
  }
  if (auto refusal = refusalOf(word, kKeywordsField)) {
    return KeywordFault{.box = *std::move(refusal)};
  }
  return std::nullopt;
}

std::string storedKeyword(XmlTextRules& rules, std::string_view keyword) {
  return std::string(trimBlanks(rules.mstrReplaceSpecialCharecters(trimBlanks(keyword))));
}

bool CheckXMLCharacters(const Platform& platform,
                        std::string_view strCurWord,
                        std::string_view strBook) {
  return trapped(platform.ui, source::kCheckXmlCharacters, false, [&] {
    const auto refusal = refusalOf(strCurWord, strBook);
    if (refusal) {
      platform.ui.show(*refusal);
    }
    return !refusal;
  });
}

}  // namespace quorbind
