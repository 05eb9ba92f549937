#include "cli/show_command.h"

#include "cli/book_file.h"
#include "cli/catalogue_reader.h"
#include "cli/library_documents.h"
#include "cli/library_model.h"
#include "cli/listing.h"
#include "cli/paths.h"
#include "cli/report.h"
#include "cli/wiring.h"

namespace quorbind {

namespace {

void show(const ShowArguments& arguments, const LibraryPaths& library, Wiring& wiring) {
  const Platform& platform = wiring.module.platform;
  const auto books = readCatalogue(platform, library.catalogue);
  if (!arguments.acronym) {
    printBooks(books, arguments.json);
    return;
  }
  ListedBook book = requireBookWithAcronym(books, *arguments.acronym, arguments.place.library);
  if (!book.fileType) {
    // The link that is in use; the catalogue's may be older.
    book.link = readBookLink(platform, bookFileOf(library, book));
  }
  DocumentFinder finder(platform, library.serverRoot);
  const bool isMissing = book.fileType && findSingleDocument(library, book, finder).isMissing();
  printBook(book, isMissing, readLibraryHeadings(platform, library, book, finder), arguments.json);
}

}  // namespace

ExitStatus runShow(const ShowArguments& arguments) {
  const LibraryPaths library(arguments.place.server, arguments.place.library);
  Wiring wiring(library.serverRoot, processTerminal(/*mayAsk=*/false));
  return runListing(wiring, arguments.json, [&] { show(arguments, library, wiring); });
}

}  // namespace quorbind
