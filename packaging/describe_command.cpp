// Prints what the command understands, as JSON. The manual page and the completions of the shells
// are made from it while the command is built, so that none of them can lack a flag.

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "cli/grammar.h"

namespace {

using Json = nlohmann::ordered_json;

Json namesOf(const CLI::Option& option) {
  Json names = Json::array();
  for (const std::string& letter : option.get_snames()) {
    names.push_back("-" + letter);
  }
  for (const std::string& word : option.get_lnames()) {
    names.push_back("--" + word);
  }
  return names;
}

/// The words of which a value has to be one; they stand in the type's name between braces. None
/// where other values will do.
Json choicesOf(const CLI::Option& option) {
  Json choices = Json::array();
  const std::string type = option.get_type_name();
  const std::size_t begin = type.find('{');
  const std::size_t end = type.find('}');
  if (begin != std::string::npos && end != std::string::npos) {
    for (const std::string& word :
         CLI::detail::split(type.substr(begin + 1, end - begin - 1), ',')) {
      choices.push_back(word);
    }
  }
  return choices;
}

Json described(const CLI::Option& option) {
  std::string value = option.get_option_text();
  return {{"names", namesOf(option)},
          {"takesValue", option.get_items_expected_max() > 0},
          {"repeats", option.get_items_expected_max() > 1},
          {"value", CLI::detail::trim(value)},
          {"choices", choicesOf(option)},
          {"description", option.get_description()},
          {"environment", option.get_envname()}};
}

Json describedPositional(const CLI::Option& positional) {
  std::string value = positional.get_option_text();
  return {{"name", positional.get_name(true)},
          {"value", CLI::detail::trim(value)},
          {"required", positional.get_required()},
          {"repeats", positional.get_items_expected_max() > 1},
          {"description", positional.get_description()}};
}

Json described(const CLI::App& command) {
  Json options = Json::array();
  Json positionals = Json::array();
  for (const CLI::Option* option : command.get_options()) {
    if (option->get_positional()) {
      positionals.push_back(describedPositional(*option));
    } else {
      options.push_back(described(*option));
    }
  }
  Json subcommands = Json::array();
  for (const CLI::App* subcommand : command.get_subcommands({})) {
    subcommands.push_back(described(*subcommand));
  }
  return {{"name", command.get_name()},
          {"description", command.get_description()},
          {"footer", command.get_footer()},
          {"positionals", positionals},
          {"options", options},
          {"subcommands", subcommands}};
}

}  // namespace

int main() {
  CLI::App app;
  quorbind::Task task;
  quorbind::declareCommand(app, task);
  std::cout << described(app).dump(2) << '\n';
  return std::cout.flush() ? 0 : 1;
}
