#include "catalogue/book_lookup.h"

#include "catalogue/names.h"
#include "platform/xpath_query.h"

namespace quorbind {

namespace {

constexpr char kQuote = '"';

}  // namespace

std::string booksNamed(std::string_view name) {
  return elementsWith(catalogue_names::kBookPath, catalogue_names::kName, name, kQuote);
}

std::string booksWithAcronym(std::string_view acronym) {
  return elementsWith(catalogue_names::kBookPath, catalogue_names::kAcro, acronym, kQuote);
}

std::vector<std::string> publishedList(const std::vector<XmlNode>& nodes) {
  std::vector<std::string> texts;
  texts.reserve(nodes.size() + 1);
  for (const XmlNode& node : nodes) {
    texts.push_back(node.text());
  }
  texts.emplace_back();
  return texts;
}

}  // namespace quorbind
