#include "workflow/inputs/book_entry.h"

#include <string_view>

#include "bookxml/names.h"
#include "catalogue/names.h"
#include "platform/error_trap.h"
#include "platform/text.h"
#include "platform/toolset.h"
#include "platform/xml_document.h"

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

void appendCategories(XmlDocument& document, const XmlNode& parent, const std::string& category) {
  const std::string_view separator = contains(category, ";")   ? ";"
                                     : contains(category, ",") ? ","
                                                               : "";
  if (!separator.empty()) {
    for (const std::string_view entry : Pieces(category, separator)) {
      appendElement(document, parent, catalogue_names::kCategory, trimBlanks(entry));
    }
  } else if (!category.empty()) {
    appendElement(document, parent, catalogue_names::kCategory, category);
  }
}

XmlNode makeEntry(XmlDocument& document,
                  Module& module,
                  const std::string& productName,
                  const std::string& bookFolder,
                  const std::string& category) {
  using namespace catalogue_names;
  const ProcessState& state = module.state;
  const auto rules = module.platform.toolset.createXmlTextRules();

  XmlNode book = document.createElement(kBook);
  appendElement(document, book, kName, rules->mstrCheckSpecialCharecters(state.currentBookName));
  appendElement(document, book, kAcro, rules->mstrCheckSpecialCharecters(state.currentBookAcro));
  appendElement(document, book, kKey, productName).setAttribute(kKeyId, "");
  appendElement(document, book, kFolder, bookFolder);
  appendElement(document, book, kBookFile, book_names::fileOf(state.acroOfBookFile()));
  appendCategories(document, appendElement(document, book, kCategories, ""), category);
  return book;
}

}  // namespace

void mbAddBookTocForBook(Module& module,
                         const std::string& cataloguePath,
                         const std::string& productName,
                         const std::string& bookFolder,
                         const std::string& category) {
  trapped(module.platform.ui, source::kAddBookTocForBook, [&] {
    const auto document = module.platform.xml.createDocument();
    document->load(cataloguePath);
    const XmlNode book = makeEntry(*document, module, productName, bookFolder, category);
    for (const XmlNode& child : document->documentElement().children()) {
      if (child.name() == catalogue_names::kBooks) {
        child.append(book);
        break;
      }
    }
    document->save(cataloguePath);
  });
}

}  // namespace quorbind
