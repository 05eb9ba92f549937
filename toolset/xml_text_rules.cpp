#include "toolset/xml_text_rules.h"

#include <algorithm>
#include <array>

#include "platform/text.h"
#include "platform/user_interface.h"
#include "resources/rule_texts.h"

namespace quorbind {

namespace {

constexpr std::string_view kCannotBeUsed = text(RuleText::kCannotBeUsed);

struct Entity {
  char character;
  std::string_view text;
};

constexpr std::array<Entity, 5> kEntities{
    {{'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}, {'\'', "&apos;"}}};

/// No entity of XML, but what some write for `&quot;`.
constexpr std::string_view kMisspeltQuote = "&quote;";

constexpr bool needsEntity(char c) {
  return c == '&' || c == '<' || c == '>' || c == '"' || c == '\'';
}
static_assert(std::all_of(kEntities.begin(), kEntities.end(), [](const Entity& entity) {
  return needsEntity(entity.character);
}));

/// The text of the entity for a character that needs one.
std::string_view entityFor(char c) {
  const auto* const found = std::find_if(
      kEntities.begin(), kEntities.end(), [c](const Entity& each) { return each.character == c; });
  return found->text;
}

bool beginsWithEntity(std::string_view text) {
  return std::any_of(kEntities.begin(), kEntities.end(), [text](const Entity& entity) {
    return text.starts_with(entity.text);
  });
}

std::string withEntities(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (;;) {
    const auto* const markup =
        std::find_if(text.begin(), text.end(), [](char c) { return needsEntity(c); });
    result.append(text.begin(), markup);
    text.remove_prefix(static_cast<std::size_t>(markup - text.begin()));
    if (text.empty()) {
      return result;
    }
    result += beginsWithEntity(text) ? text.substr(0, 1) : entityFor(text.front());
    text.remove_prefix(1);
  }
}

/// An entity text that stands in `text`; empty when there is none.
std::string_view entityIn(std::string_view text) {
  for (const Entity& entity : kEntities) {
    if (contains(text, entity.text)) {
      return entity.text;
    }
  }
  return contains(text, kMisspeltQuote) ? kMisspeltQuote : std::string_view();
}

}  // namespace

std::string ReferenceXmlTextRules::mstrCheckSpecialCharecters(std::string_view text) {
  return withEntities(text);
}

std::string ReferenceXmlTextRules::mstrReplaceSpecialCharecters(std::string_view text) {
  return withEntities(text);
}

std::string ReferenceXmlTextRules::ReplaceSpecCharToXMLChar(std::string_view text) {
  return withEntities(text);
}

bool ReferenceXmlTextRules::CheckReplacedXMLCharacters(std::string_view text,
                                                       std::string_view label) {
  const std::string_view entity = entityIn(text);
  if (entity.empty()) {
    return true;
  }
  ui_.show({.text = std::string(entity).append(kCannotBeUsed).append(label),
            .icon = MessageIcon::kInformation});
  return false;
}

}  // namespace quorbind
