#include "cli/show_command.h"

#include <algorithm>
#include <vector>

#include "cli/book_file.h"
#include "cli/catalogue_reader.h"
#include "cli/failure.h"
#include "cli/paths.h"
#include "cli/report.h"
#include "cli/wiring.h"

namespace quorbind {

namespace {

const CatalogueEntry& findBook(const std::vector<CatalogueEntry>& books,
                               const ShowArguments& arguments) {
  const auto found = std::find_if(books.begin(), books.end(), [&](const CatalogueEntry& book) {
    return readableName(book.acronym) == *arguments.acronym;
  });
  if (found == books.end()) {
    throw CommandFailure(
        ExitStatus::kRefused,
        "there is no book " + *arguments.acronym + " in " + arguments.place.library);
  }
  return *found;
}

std::vector<BookHeading> headingsOf(Wiring& wiring,
                                    const LibraryPaths& library,
                                    const CatalogueEntry& book) {
  std::vector<BookHeading> headings;
  readHeadings(wiring.module.platform,
               bookFileOf(library, book),
               [&headings](const BookHeading& heading) { headings.push_back(heading); });
  return headings;
}

ExitStatus show(const ShowArguments& arguments, const LibraryPaths& library, Wiring& wiring) {
  const auto books = readCatalogue(wiring.module.platform, library.catalogue);
  if (!arguments.acronym) {
    printBooks(books, arguments.json);
    return ExitStatus::kDone;
  }
  const CatalogueEntry& book = findBook(books, arguments);
  printBook(book, headingsOf(wiring, library, book), arguments.json);
  return ExitStatus::kDone;
}

}  // namespace

ExitStatus runShow(const ShowArguments& arguments) {
  const LibraryPaths library(arguments.place.server, arguments.place.library);
  Wiring wiring(library.serverRoot, processTerminal(/*mayAsk=*/false));
  const ExitStatus status =
      reportingFailures(wiring.ui, [&] { return show(arguments, library, wiring); });
  if (status != ExitStatus::kDone && arguments.json) {
    printFailure(status, wiring.ui.shown(), "nothing was shown");
  }
  return status;
}

}  // namespace quorbind
