#include "workflow/forms/name_rules.h"

#include "platform/filled_text.h"
#include "platform/text.h"
#include "platform/xml_writer.h"
#include "resources/messages.h"
#include "resources/rule_texts.h"

namespace quorbind {

namespace {

// The characters stand in the order in which the messages list them.
constexpr std::string_view kFileNameCharacters = "/\\:*?\"<>";
constexpr std::string_view kMarkupCharacters = "'\"&<>";
/// Joins the parts of a link between books.
constexpr std::string_view kReservedWord = "@quor@";

std::string inParentheses(std::string_view characters) {
  return "(" + std::string(characters) + ")";
}

}  // namespace

std::optional<std::string> refusalOfBookName(std::string_view name) {
  if (contains(name, kReservedWord)) {
    return Message::kBookNameCanNotContain + kReservedWord;
  }
  return std::nullopt;
}

std::optional<std::string> refusalOfAcronym(std::string_view acronym) {
  if (containsAnyOf(acronym, kFileNameCharacters)) {
    return Message::kBookAcroCanNotContain + " " + inParentheses(kFileNameCharacters);
  }
  if (contains(acronym, kReservedWord) || containsAnyOf(acronym, kMarkupCharacters)) {
    return Message::kBookAcroCanNotContain +
           inParentheses(std::string(kMarkupCharacters).append(kReservedWord));
  }
  return std::nullopt;
}

std::optional<std::string> refusalOfFolder(std::string_view folder) {
  if (containsAnyOf(folder, kFileNameCharacters)) {
    return Message::kBookFolderCanNotContain + inParentheses(kFileNameCharacters);
  }
  if (containsAnyOf(folder, kMarkupCharacters)) {
    return Message::kBookFolderCanNotContain + inParentheses(kMarkupCharacters);
  }
  return std::nullopt;
}

std::optional<std::string> refusalOfCharacters(std::string_view text) {
  if (!isXmlCharactersOnly(text)) {
    return filledText(quorbind::text(RuleText::kTextNotKept), {{"TEXT", std::string(text)}});
  }
  return std::nullopt;
}

}  // namespace quorbind
