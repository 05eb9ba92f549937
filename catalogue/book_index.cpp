#include "catalogue/book_index.h"

#include "catalogue/names.h"
#include "platform/text.h"
#include "platform/xpath_query.h"

namespace quorbind {

namespace {

constexpr char kAcronymQuote = '"';

/// One text for both values; what stands between the marks can't hold them.
std::string keyOf(std::string_view name, std::string_view acronym) {
  return quotedForQuery(name, kAcronymQuote) + quotedForQuery(acronym, kAcronymQuote);
}

bool canBeAskedFor(const std::string& value) {
  return !contains(value, std::string_view(&kAcronymQuote, 1));
}

}  // namespace

BookIndex::BookIndex(const XmlDocument& catalogue) {
  for (const XmlNode& book : catalogue.selectAll(catalogue_names::kBookPath)) {
    add(book);
  }
}

XmlNode BookIndex::find(std::string_view name, std::string_view acronym) const {
  const auto found = books_.find(keyOf(name, acronym));
  return found == books_.end() ? XmlNode() : found->second;
}

// A book is found by each of its names with each of its acronyms, the first book by any of them.
void BookIndex::add(const XmlNode& book) {
  const std::vector<XmlNode> acronyms = book.selectAll(catalogue_names::kAcro);
  for (const XmlNode& nameNode : book.selectAll(catalogue_names::kName)) {
    const std::string name = nameNode.text();
    for (const XmlNode& acronymNode : acronyms) {
      const std::string acronym = acronymNode.text();
      if (canBeAskedFor(name) && canBeAskedFor(acronym)) {
        books_.emplace(keyOf(name, acronym), book);
      }
    }
  }
}

}  // namespace quorbind
