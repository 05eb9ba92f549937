#pragma once

#include <string_view>

namespace quorbind {

/// The texts without a number by which tables of contents and names are refused, those of run-time
/// errors, and those by which the command itself refuses something, by name. They stand with their
/// explanations in explanations.def.
enum class RuleText {
#define QUOR_EXPLANATION(name, topic, shown, meaning, accepted, mending)
#define QUOR_RULE_TEXT(name, text, topic, shown, meaning, accepted, mending) name,
#include "resources/explanations.def"
#undef QUOR_RULE_TEXT
#undef QUOR_EXPLANATION
};

/// The text of `rule`, letter for letter. Words in braces stand for what differs.
constexpr std::string_view text(RuleText rule) {
  switch (rule) {
#define QUOR_EXPLANATION(name, topic, shown, meaning, accepted, mending)
#define QUOR_RULE_TEXT(name, words, topic, shown, meaning, accepted, mending) \
  case RuleText::name:                                                        \
    return (words);
#include "resources/explanations.def"
#undef QUOR_RULE_TEXT
#undef QUOR_EXPLANATION
  }
  return {};
}

}  // namespace quorbind
