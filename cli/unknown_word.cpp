#include "cli/unknown_word.h"

#include <algorithm>
#include <functional>

#include "cli/suggestion.h"

namespace quorbind {

namespace {

constexpr const char* kEndOfFlags = "--";

bool isFlag(const std::string& word) {
  return word.size() > 1 && word.front() == '-';
}

constexpr std::size_t kLetterFlag = 2;

/// A flag without the value that is joined to it.
std::string flagIn(const std::string& word) {
  return word.starts_with("--") ? word.substr(0, word.find('=')) : word.substr(0, kLetterFlag);
}

/// The flag that a word with a single hyphen and a whole name behind it was meant for: it would be
/// read as one of a letter, with a value joined to it.
std::string flagMeantBy(const std::string& word) {
  const bool hasOneHyphen = !word.starts_with("--") && word.size() > kLetterFlag;
  return hasOneHyphen ? flagIn("-" + word) : flagIn(word);
}

std::vector<std::string> subcommandsOf(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::App* subcommand : app.get_subcommands(std::function<bool(const CLI::App*)>())) {
    names.push_back(subcommand->get_name());
  }
  return names;
}

std::vector<std::string> flagsOf(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::Option* option : app.get_options()) {
    for (const std::string& name : option->get_lnames()) {
      names.push_back("--" + name);
    }
  }
  return names;
}

/// `categories list`; empty for the whole command.
std::string pathOf(const CLI::App& app) {
  std::string path;
  for (const CLI::App* at = &app; at->get_parent() != nullptr; at = at->get_parent()) {
    path.insert(0, at->get_name() + (path.empty() ? "" : " "));
  }
  return path;
}

std::string told(const CLI::App& app,
                 const std::string& kind,
                 const std::string& word,
                 const std::string& suggestion) {
  const std::string path = pathOf(app);
  return (path.empty() ? "There is no " : "'" + path + "' has no ") + kind + " '" + word + "'." +
         suggestion;
}

}  // namespace

std::optional<std::string> unknownWordIn(const CLI::App& app,
                                         const std::vector<std::string>& words) {
  const CLI::App* at = &app;
  for (auto word = words.begin(); word != words.end() && *word != kEndOfFlags; ++word) {
    const std::vector<std::string> subcommands = subcommandsOf(*at);
    if (isFlag(*word)) {
      const std::string flag = flagIn(*word);
      const std::string meant = flagMeantBy(*word);
      const CLI::Option* option = at->get_option_no_throw(flag);
      if (option == nullptr || (meant != flag && at->get_option_no_throw(meant) != nullptr)) {
        return told(*at, "flag", *word, suggestionFor(meant, flagsOf(*at)));
      }
      const bool hasValueBehind = option->get_items_expected_max() > 0 && flag == *word;
      if (hasValueBehind && word + 1 != words.end()) {
        ++word;
      }
    } else if (!subcommands.empty()) {
      const auto named = std::find(subcommands.begin(), subcommands.end(), *word);
      if (named == subcommands.end()) {
        return told(*at, "subcommand", *word, suggestionFor(*word, subcommands));
      }
      at = at->get_subcommand(*word);
    }
  }
  return std::nullopt;
}

}  // namespace quorbind
