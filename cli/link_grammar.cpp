// links list|add|check|merge: the identifiers by which books link to each other.

#include "cli/grammar.h"
#include "cli/link_commands.h"

namespace quorbind {

namespace {

void addText(CLI::App& command,
             const std::string& flag,
             std::string& value,
             const std::string& description,
             const std::string& kind) {
  command.add_option(flag, value, description + "; required")
      ->required()
      ->check(refusalOfBlankText)
      ->option_text(kind);
}

void offerLinkList(CLI::App& group, Task& task) {
  auto [command, arguments] = offer(group, task, "list", "List the link identifiers", runListLinks);
  addPlace(command, arguments.place);
  addJson(command, arguments.json);
}

void offerLinkAdd(CLI::App& group, Task& task) {
  auto [command, arguments] =
      offer(group, task, "add", "Record a link identifier of a book", runAddLink);
  addWord(command, "ID", arguments.identifier, "The identifier");
  addPlace(command, arguments.place);
  addText(command,
          "--full",
          arguments.fullLink,
          "Place of the target: acronym and headings, joined by @QUOR@",
          "TEXT");
  addText(command, "--source", arguments.source, "Document of the target", "PATH");
  addText(command, "--acro", arguments.acronym, "Acronym of the book that has it", "TEXT");
  addChange(command, arguments.change);
}

void offerLinkCheck(CLI::App& group, Task& task) {
  auto [command, arguments] =
      offer(group,
            task,
            "check",
            "Look for identifiers of the library that stand more than once on the server",
            runCheckLinks);
  addPlace(command, arguments.place);
  addJson(command, arguments.json);
  command.footer("Nothing is written. With one that does the run ends with status 1.");
}

void offerLinkMerge(CLI::App& group, Task& task) {
  auto [command, arguments] = offer(group,
                                    task,
                                    "merge",
                                    "Take over what the library lacks of another one's identifiers",
                                    runMergeLinks);
  addPlace(command, arguments.place);
  addText(command, "--from", arguments.from, "The other library's Quor_LinkID.xml", "FILE");
  addChange(command, arguments.change);
  command.footer("What both have stays as it is.");
}

}  // namespace

void offerLinkSubcommands(CLI::App& app, Task& task) {
  CLI::App& group = offerGroup(app, "links", "The identifiers by which books link to each other");
  offerLinkList(group, task);
  offerLinkAdd(group, task);
  offerLinkCheck(group, task);
  offerLinkMerge(group, task);
}

}  // namespace quorbind
