#include "cli/arguments.h"

#include <CLI/CLI.hpp>
#include <array>
#include <string_view>

#include "platform/paths.h"
#include "platform/text.h"
#include "toc/toc_check.h"
#include "workflow/forms/name_rules.h"

namespace quorbind {

namespace {

struct KindName {
  std::string_view extension;
  std::string_view name;
  TocCheck::Kind kind;
};

constexpr std::array kKindNames{
    KindName{".xml", "xml", TocCheck::kXml},
    KindName{".htm", "html", TocCheck::kHtml},
    KindName{".html", "html", TocCheck::kHtml},
    KindName{".xls", "excel", TocCheck::kExcel},
    KindName{".xlsx", "excel", TocCheck::kExcel},
    KindName{".txt", "text", TocCheck::kText},
};

/// Empty when the name will do, as the parser wants it.
std::string refusalOfLibraryName(const std::string& name) {
  if (!staysInFolder(name) || refusalOfFolder(name) || trimBlanks(name) != name) {
    return "a library is a folder, and '" + name + "' can not be the name of one";
  }
  return {};
}

std::string refusalOfEmptyText(const std::string& text) {
  return text.empty() ? "it must not be empty" : std::string();
}

void addPlace(CLI::App& command, LibraryArguments& place) {
  command
      .add_option(
          "--server",
          place.server,
          "Folder of the documentation server; required, unless the environment names it as "
          "QUOR_SERVER")
      ->envname("QUOR_SERVER")
      ->required()
      ->check(refusalOfEmptyText)
      ->option_text("DIR");
  command.add_option("--library", place.library, "Name of the library on the server; required")
      ->required()
      ->check(refusalOfLibraryName)
      ->option_text("NAME");
}

void addToc(CLI::App& command, std::string& toc) {
  command.add_option("TOC", toc, "The table of contents")
      ->required()
      ->check(refusalOfEmptyText)
      ->option_text("FILE");
}

void addKind(CLI::App& command, std::optional<std::string>& kind) {
  command
      .add_option("--kind",
                  kind,
                  "Kind of the table of contents: xml, html, excel or text; as its extension tells "
                  "when not given")
      ->check(CLI::IsMember({"xml", "html", "excel", "text"}))
      ->option_text("KIND");
}

void addJson(CLI::App& command, bool& json) {
  command.add_flag("--json", json, "Report the whole run as one JSON object");
}

CLI::App& addInit(CLI::App& app, InitArguments& arguments) {
  CLI::App& command = *app.add_subcommand(
      "init", "Make a library: its folder, its catalogue, its entry in the server's list");
  addPlace(command, arguments.place);
  command.footer("What is there already stays as it is. Nothing is done twice.");
  return command;
}

void addAnswers(CLI::App& command, AddArguments& arguments) {
  command.add_option("--name", arguments.name, "Name of the book")->option_text("TEXT");
  command.add_option("--acro", arguments.acronym, "Acronym of the book, part of its file's name")
      ->option_text("TEXT");
  command
      .add_option("--folder",
                  arguments.folder,
                  "Folder of the book, where the table of contents names none")
      ->option_text("TEXT");
  command.add_flag("--no-input", arguments.noInput, "Ask nothing, also on a terminal");
}

void addRecords(CLI::App& command, AddArguments& arguments) {
  command
      .add_option("--category",
                  arguments.category,
                  "Categories for the book's entry in the catalogue, separated by ';' or ','")
      ->option_text("LIST");
  command
      .add_option("--keywords",
                  arguments.keywords,
                  "Search keywords of the book, separated by ';'; not recorded by this version yet")
      ->option_text("LIST");
  command
      .add_option("--categories",
                  arguments.categories,
                  "Categories of the library to file the book under, separated by ';' or ','; not "
                  "recorded by this version yet")
      ->option_text("LIST");
  command.add_option("--install-type", arguments.installType, "Installation type of the library")
      ->option_text("NUMBER");
  command.add_flag("--create-categories",
                   arguments.createCategories,
                   "Make the library's categories file from the server's default categories first");
}

CLI::App& addAdd(CLI::App& app, AddArguments& arguments) {
  CLI::App& command = *app.add_subcommand("add", "Add a book to a library");
  addToc(command, arguments.toc);
  addPlace(command, arguments.place);
  addKind(command, arguments.kind);
  addAnswers(command, arguments);
  addRecords(command, arguments);
  addJson(command, arguments.json);
  command.footer(
      "What is needed and not given is asked on the terminal. Without one the run ends with\n"
      "status 6 and names the flag. A value that is refused, or that the catalogue has already,\n"
      "ends it with status 1.");
  return command;
}

CLI::App& addPrepare(CLI::App& app, PrepareArguments& arguments) {
  CLI::App& command = *app.add_subcommand(
      "prepare", "Write a text table of contents in the form that can be checked and converted");
  addToc(command, arguments.toc);
  command
      .add_option("-o,--output", arguments.output, "File to write; the standard output without it")
      ->check(refusalOfEmptyText)
      ->option_text("OUT");
  command.footer("'add' does this by itself. The text is written as UTF-8.");
  return command;
}

CLI::App& addCheck(CLI::App& app, CheckArguments& arguments) {
  CLI::App& command = *app.add_subcommand(
      "check", "Hold a table of contents against the rules, and look for its documents");
  addToc(command, arguments.toc);
  addKind(command, arguments.kind);
  addJson(command, arguments.json);
  command.footer("Nothing is written. A document that is not there breaks no rule.");
  return command;
}

CLI::App& addShow(CLI::App& app, ShowArguments& arguments) {
  CLI::App& command =
      *app.add_subcommand("show", "Show the books of a library, or the headings of one book");
  addPlace(command, arguments.place);
  command.add_option("ACRO", arguments.acronym, "Acronym of the book")->option_text("TEXT");
  addJson(command, arguments.json);
  return command;
}

/// The whole command line, bound to the values that it fills.
struct Grammar {
  Grammar()
      : app("Adds books to a documentation library.", "quorbind"),
        initCommand(addInit(app, init)),
        addCommand(addAdd(app, add)),
        prepareCommand(addPrepare(app, prepare)),
        checkCommand(addCheck(app, check)),
        showCommand(addShow(app, show)) {
    app.set_version_flag("--version", "quorbind " QUORBIND_VERSION);
    app.require_subcommand(1);
    app.footer(
        "Exit status: 0 done, 1 refused, 2 wrong usage, 3 input missing or unreadable,\n"
        "4 not parseable or over a limit, 5 a write failed, 6 an answer is missing, 70 internal.");
  }

  [[nodiscard]] Arguments chosen() const {
    if (initCommand.parsed()) {
      return init;
    }
    if (addCommand.parsed()) {
      return add;
    }
    if (prepareCommand.parsed()) {
      return prepare;
    }
    if (checkCommand.parsed()) {
      return check;
    }
    return show;
  }

  CLI::App app;
  InitArguments init;
  AddArguments add;
  PrepareArguments prepare;
  CheckArguments check;
  ShowArguments show;
  CLI::App& initCommand;
  CLI::App& addCommand;
  CLI::App& prepareCommand;
  CLI::App& checkCommand;
  CLI::App& showCommand;
};

}  // namespace

std::variant<Arguments, ExitStatus> parseArguments(int count, const char* const* arguments) {
  Grammar grammar;
  try {
    grammar.app.parse(count, arguments);
    return grammar.chosen();
  } catch (const CLI::ParseError& error) {
    return grammar.app.exit(error) == 0 ? ExitStatus::kDone : ExitStatus::kWrongUsage;
  }
}

std::int16_t kindOf(const std::string& toc, const std::optional<std::string>& kind) {
  for (const KindName& known : kKindNames) {
    const std::size_t length = known.extension.size();
    const bool told =
        toc.size() > length &&
        equalIgnoringAsciiCase(std::string_view(toc).substr(toc.size() - length), known.extension);
    if (kind ? *kind == known.name : told) {
      return known.kind;
    }
  }
  return 0;
}

}  // namespace quorbind
