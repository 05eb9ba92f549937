#include "workflow/inputs/book_entry.h"

#include <vector>

#include "bookxml/names.h"
#include "platform/error_trap.h"
#include "platform/text.h"
#include "platform/toolset.h"
#include "platform/xml_document.h"
#include "workflow/inputs/catalogue_entry.h"

namespace quorbind {

namespace {

/// A category that is the only one keeps its blanks.
std::vector<std::string> categoriesIn(const std::string& category) {
  const Pieces entries = listEntries(category);
  std::vector<std::string> categories;
  for (const std::string_view entry : entries) {
    categories.emplace_back(entries.count() == 1 ? entry : trimBlanks(entry));
  }
  return categories;
}

}  // namespace

void mbAddBookTocForBook(Module& module,
                         const std::string& cataloguePath,
                         const std::string& productName,
                         const std::string& bookFolder,
                         const std::string& category) {
  trapped(module.platform.ui, source::kAddBookTocForBook, [&] {
    const ProcessState& state = module.state;
    const auto document = module.platform.xml.createDocument();
    document->load(cataloguePath);
    const auto rules = module.platform.toolset.createXmlTextRules();
    appendEntry(*document,
                {.name = rules->mstrCheckSpecialCharecters(state.currentBookName),
                 .acronym = rules->mstrCheckSpecialCharecters(state.currentBookAcro),
                 .product = productName,
                 .folder = bookFolder,
                 .file = book_names::fileOf(state.acroOfBookFile()),
                 .fileType = std::nullopt,
                 .categories = categoriesIn(category)});
    document->save(cataloguePath);
  });
}

}  // namespace quorbind
