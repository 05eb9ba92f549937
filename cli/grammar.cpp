#include "cli/grammar.h"

#include "platform/paths.h"
#include "platform/text.h"
#include "workflow/forms/name_rules.h"

namespace quorbind {

CLI::App& offerGroup(CLI::App& app, const std::string& name, const std::string& description) {
  CLI::App& group = *app.add_subcommand(name, description);
  group.require_subcommand(1);
  return group;
}

std::string refusalOfLibraryName(const std::string& name) {
  if (!staysInFolder(name) || refusalOfFolder(name) || trimBlanks(name) != name) {
    return "a library is a folder, and '" + name + "' can not be the name of one";
  }
  return {};
}

std::string refusalOfEmptyText(const std::string& text) {
  return text.empty() ? "it must not be empty" : std::string();
}

std::string refusalOfBlankText(const std::string& text) {
  return refusalOfEmptyText(std::string(trimBlanks(text)));
}

void addServer(CLI::App& command, std::string& server) {
  command
      .add_option(
          "--server",
          server,
          "Folder of the documentation server; required, unless the environment names it as "
          "QUOR_SERVER")
      ->envname(kServerVariable)
      ->required()
      ->check(refusalOfEmptyText)
      ->option_text("DIR");
}

void addPlace(CLI::App& command, LibraryArguments& place) {
  addServer(command, place.server);
  command.add_option("--library", place.library, "Name of the library on the server; required")
      ->required()
      ->check(refusalOfLibraryName)
      ->option_text("NAME");
}

void addOptionalLibrary(CLI::App& command, std::optional<std::string>& library) {
  command
      .add_option("--library", library, "Name of the library on the server; all of them without")
      ->check(refusalOfLibraryName)
      ->option_text("NAME");
}

void addJson(CLI::App& command, bool& json) {
  command.add_flag("--json", json, "Report the whole run as one JSON object");
}

void addChange(CLI::App& command, ChangeFlags& change) {
  command.add_flag("--dry-run",
                   change.dryRun,
                   "Check everything and show what would be changed; change nothing");
  addJson(command, change.json);
}

void addConfirmation(CLI::App& command, ChangeFlags& change) {
  command.add_flag("-y,--yes", change.yes, "Do it without asking");
  addNoInput(command, change.noInput);
}

void addNoInput(CLI::App& command, bool& noInput) {
  command.add_flag("--no-input", noInput, "Ask nothing, also on a terminal");
}

void addInstallType(CLI::App& command, std::int32_t& installType) {
  command
      .add_option("--install-type",
                  installType,
                  "Installation type of the library: 1000 has default categories of its own")
      ->option_text("NUMBER");
}

void addWord(CLI::App& command,
             const std::string& name,
             std::string& value,
             const std::string& description) {
  command.add_option(name, value, description)
      ->required()
      ->check(refusalOfBlankText)
      ->option_text(" ");
}

}  // namespace quorbind
