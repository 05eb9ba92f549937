#include "cli/show_command.h"

#include <vector>

#include "cli/book_file.h"
#include "cli/catalogue_reader.h"
#include "cli/listing.h"
#include "cli/paths.h"
#include "cli/report.h"
#include "cli/wiring.h"

namespace quorbind {

namespace {

/// A book whose entry has a type is one document, which has no headings to show.
std::vector<BookHeading> headingsOf(Wiring& wiring,
                                    const LibraryPaths& library,
                                    const ListedBook& book) {
  std::vector<BookHeading> headings;
  if (!book.fileType) {
    readHeadings(wiring.module.platform,
                 bookFileOf(library, book),
                 [&headings](const BookHeading& heading) { headings.push_back(heading); });
  }
  return headings;
}

void show(const ShowArguments& arguments, const LibraryPaths& library, Wiring& wiring) {
  const auto books = readCatalogue(wiring.module.platform, library.catalogue);
  if (!arguments.acronym) {
    printBooks(books, arguments.json);
    return;
  }
  ListedBook book = requireBookWithAcronym(books, *arguments.acronym, arguments.place.library);
  if (!book.fileType) {
    // The link that is in use; the catalogue's may be older.
    book.link = readBookLink(wiring.module.platform, bookFileOf(library, book));
  }
  printBook(book, headingsOf(wiring, library, book), arguments.json);
}

}  // namespace

ExitStatus runShow(const ShowArguments& arguments) {
  const LibraryPaths library(arguments.place.server, arguments.place.library);
  Wiring wiring(library.serverRoot, processTerminal(/*mayAsk=*/false));
  return runListing(wiring, arguments.json, [&] { show(arguments, library, wiring); });
}

}  // namespace quorbind
