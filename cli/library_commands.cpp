#include "cli/library_commands.h"

#include <iostream>
#include <nlohmann/json.hpp>
#include <vector>

#include "catalogue/book_config.h"
#include "catalogue/names.h"
#include "cli/component_call.h"
#include "cli/failure.h"
#include "cli/json_text.h"
#include "cli/listing.h"
#include "cli/paths.h"
#include "cli/required_document.h"
#include "cli/text_list.h"
#include "cli/wiring.h"
#include "platform/portable/visible_text.h"

namespace quorbind {

namespace {

/// The component says of every list that does not load that its format is not valid; why and where
/// is found out first.
void requireSelection(const Platform& platform, const LibraryPaths& server) {
  const auto selection = loadRequired(platform, server.selection);
  requireElement(*selection,
                 server.selection,
                 std::string(selection_names::kList).append("/").append(selection_names::kQuors));
}

void printLibraries(const std::vector<std::string>& names, bool json) {
  if (json) {
    printJson({{"libraries", names}});
    return;
  }
  for (const std::string& name : names) {
    std::cout << visibleText(name) << '\n';
  }
}

void printPlace(const std::string& library, const std::string& catalogue, bool json) {
  if (json) {
    printJson({{"library", library}, {"catalogue", catalogue}});
  } else {
    std::cout << visibleText(catalogue) << '\n';
  }
}

/// The list is a document like any other, and its names may lead out of the server.
void requireBelowServer(const LibraryPaths& server,
                        const std::string& library,
                        const std::string& catalogue) {
  if (!catalogue.starts_with(server.serverRoot) ||
      !staysBelow(std::string_view(catalogue).substr(server.serverRoot.size()))) {
    throw brokenRule(RuleText::kPlaceOffServer,
                     {{"FILE", nativeName(server.selection)}, {"LIBRARY", library}});
  }
}

/// Runs what asks the server's list of libraries.
template <typename Question>
ExitStatus askSelection(const std::string& server, bool json, Question&& question) {
  const LibraryPaths paths(server, "");
  Wiring wiring(paths.serverRoot, processTerminal(/*mayAsk=*/false));
  return runListing(wiring, json, [&] {
    requireSelection(wiring.module.platform, paths);
    question(wiring, paths);
  });
}

}  // namespace

ExitStatus runLibraries(const LibrariesArguments& arguments) {
  return askSelection(arguments.server, arguments.json, [&](Wiring& wiring, const LibraryPaths&) {
    std::vector<std::string> names;
    callComponent(wiring, [&] { names = Book_Config(wiring.module).QuorNames(); });
    printLibraries(withoutLastEntry(std::move(names)), arguments.json);
  });
}

ExitStatus runWhere(const WhereArguments& arguments) {
  return askSelection(
      arguments.server, arguments.json, [&](Wiring& wiring, const LibraryPaths& server) {
        std::string catalogue;
        callComponent(wiring, [&] {
          catalogue = Book_Config(wiring.module).QuorLocation(arguments.library);
        });
        requireBelowServer(server, arguments.library, catalogue);
        printPlace(arguments.library, nativeName(catalogue), arguments.json);
      });
}

}  // namespace quorbind
