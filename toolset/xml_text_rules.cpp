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

/// The text of the entity for `c`; empty when it needs none.
std::string_view entityFor(char c) {
  for (const Entity& entity : kEntities) {
    if (entity.character == c) {
      return entity.text;
    }
  }
  return {};
}

bool beginsWithEntity(std::string_view text) {
  return std::any_of(kEntities.begin(), kEntities.end(), [text](const Entity& entity) {
    return text.starts_with(entity.text);
  });
}

std::string withEntities(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (; !text.empty(); text.remove_prefix(1)) {
    const std::string_view entity = entityFor(text.front());
    if (entity.empty() || beginsWithEntity(text)) {
      result += text.front();
    } else {
      result += entity;
    }
  }
  return result;
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
