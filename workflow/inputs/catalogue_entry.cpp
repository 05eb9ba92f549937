#include "workflow/inputs/catalogue_entry.h"

#include "catalogue/names.h"

namespace quorbind {

namespace {

XmlNode appendElement(XmlDocument& document,
                      const XmlNode& parent,
                      std::string_view name,
                      std::string_view text) {
  XmlNode element = document.createElement(name);
  element.setText(text);
  parent.append(element);
  return element;
}

// Readers rely on the order of the children.
XmlNode makeBook(XmlDocument& catalogue, const CatalogueEntry& entry) {
  using namespace catalogue_names;
  XmlNode book = catalogue.createElement(kBook);
  appendElement(catalogue, book, kName, entry.name);
  appendElement(catalogue, book, kAcro, entry.acronym);
  appendElement(catalogue, book, kKey, entry.product).setAttribute(kKeyId, "");
  appendElement(catalogue, book, kFolder, entry.folder);
  const XmlNode file = appendElement(catalogue, book, kBookFile, entry.file);
  if (entry.fileType) {
    file.setAttribute(kBookFileType, *entry.fileType);
  }
  const XmlNode categories = appendElement(catalogue, book, kCategories, "");
  for (const std::string& category : entry.categories) {
    appendElement(catalogue, categories, kCategory, category);
  }
  return book;
}

}  // namespace

void appendEntry(XmlDocument& catalogue, const CatalogueEntry& entry) {
  const XmlNode book = makeBook(catalogue, entry);
  if (const XmlNode books = catalogue.documentElement().child(catalogue_names::kBooks)) {
    books.append(book);
  }
}

}  // namespace quorbind
