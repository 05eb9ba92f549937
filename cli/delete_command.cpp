#include "cli/delete_command.h"

#include "catalogue/book_config.h"
#include "cli/book_traces.h"
#include "cli/catalogue_reader.h"
#include "cli/component_call.h"
#include "cli/failure.h"
#include "cli/required_document.h"

namespace quorbind {

namespace {

std::string deleteBook(LibraryChange& change, const std::string& name) {
  const std::string& catalogue = change.paths().catalogue;
  const auto books = readCatalogue(change.platform(), catalogue);
  const ListedBook& book = requireBookNamed(books, name, change.library());
  requireWritable(change.platform().files, catalogue);
  change.confirm("Delete " + titleOf(book) + " from " + change.library() + "?");
  callComponent(change.wiring(),
                [&] { Book_Config(change.module()).DeleteQuorNode(catalogue, book.name); });
  if (readCatalogue(change.platform(), catalogue).size() != books.size() - 1) {
    throw CommandFailure(ExitStatus::kInternal, "the book is still in the catalogue");
  }
  tellTraces(change.wiring(), change.paths(), book);
  return std::string(change.said("Deleted ", "Would delete ")) + titleOf(book) + " from " +
         change.library() + "; its files stay where they are.";
}

}  // namespace

ExitStatus runDelete(const DeleteArguments& arguments) {
  LibraryChange change(arguments.place, arguments.change);
  return change.run([&] { return deleteBook(change, arguments.name); });
}

}  // namespace quorbind
