#include "cli/books_command.h"

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "catalogue/book_config.h"
#include "cli/catalogue_reader.h"
#include "cli/component_call.h"
#include "cli/json_text.h"
#include "cli/listing.h"
#include "cli/paths.h"
#include "cli/text_list.h"
#include "cli/wiring.h"
#include "platform/portable/visible_text.h"

namespace quorbind {

namespace {

std::vector<std::string> namesOf(Wiring& wiring, const std::string& catalogue) {
  // The component says of every catalogue that does not load that its format is not valid; this
  // says why and where.
  static_cast<void>(readCatalogue(wiring.module.platform, catalogue));
  std::vector<std::string> names;
  callComponent(wiring, [&] { names = Book_Config(wiring.module).BookInfo(catalogue); });
  names = withoutLastEntry(std::move(names));
  std::transform(names.begin(), names.end(), names.begin(), readableName);
  return names;
}

}  // namespace

ExitStatus runBooks(const BooksArguments& arguments) {
  const LibraryPaths library(arguments.place.server, arguments.place.library);
  Wiring wiring(library.serverRoot, processTerminal(/*mayAsk=*/false));
  return runListing(wiring, arguments.json, [&] {
    const std::vector<std::string> names = namesOf(wiring, library.catalogue);
    if (arguments.json) {
      printJson({{"books", names}});
      return;
    }
    for (const std::string& name : names) {
      std::cout << visibleText(name) << '\n';
    }
  });
}

}  // namespace quorbind
