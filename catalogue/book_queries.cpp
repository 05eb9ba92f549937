#include "catalogue/book_queries.h"

#include "catalogue/book_lookup.h"
#include "catalogue/names.h"
#include "platform/error_trap.h"
#include "platform/toolset.h"
#include "platform/xml_document.h"
#include "platform/xpath_query.h"
#include "resources/messages.h"

namespace quorbind {

std::vector<std::string> BookInfo(const Platform& platform, const std::string& vstrtocpath) {
  using Names = std::vector<std::string>;
  return trapped(platform.ui, source::kBookInfo, Names(), [&]() -> Names {
    const auto catalogue = platform.xml.createDocument();
    if (!catalogue->load(vstrtocpath)) {
      platform.ui.show(criticalMessage(std::string(text(Message::kCatalogueNotValid))));
      return {};
    }
    return publishedList(catalogue->elementsByName(catalogue_names::kName));
  });
}

std::vector<std::string> CategorieInfo(const Platform& platform,
                                       const std::string& vstrtocpath,
                                       const std::string& vstrBookName) {
  using Names = std::vector<std::string>;
  return trapped(platform.ui, source::kCategorieInfo, Names(), [&]() -> Names {
    const std::string name =
        platform.toolset.createXmlTextRules()->mstrCheckSpecialCharecters(vstrBookName);
    const auto catalogue = platform.xml.createDocument();
    if (!catalogue->load(vstrtocpath)) {
      return {};
    }
    const XmlNode book = catalogue->select(booksNamed(name));
    if (!book) {
      return {};
    }
    return publishedList(book.child(catalogue_names::kCategories).children());
  });
}

void strFolderLinkInfo(const Platform& platform,
                       const std::string& vstrtocpath,
                       const std::string& vstrBookName,
                       std::string& rstrFolderName,
                       std::string& rstrFileLink) {
  ignoringErrors([&] {
    const auto catalogue = platform.xml.createDocument();
    if (catalogue->load(vstrtocpath)) {
      readFolderAndLink(*catalogue, vstrBookName, rstrFolderName, rstrFileLink);
    }
  });
}

std::string GetBookAcro(const Platform& platform,
                        const std::string& vstrtocpath,
                        const std::string& vstrBookName) {
  std::optional<std::string> acronym;
  ignoringErrors([&] {
    const auto catalogue = platform.xml.createDocument();
    catalogue->load(vstrtocpath);
    acronym = readAcronym(*catalogue, vstrBookName);
  });
  return acronym.value_or("");
}

void readFolderAndLink(const XmlDocument& catalogue,
                       const std::string& name,
                       std::string& folder,
                       std::string& link) {
  XmlNode book;
  ignoringErrors([&] { book = catalogue.select(booksNamed(name)); });
  if (!book) {
    folder.clear();
    link.clear();
    return;
  }
  ignoringErrors([&] { folder = book.child(catalogue_names::kFolder).text(); });
  ignoringErrors([&] { link = book.child(catalogue_names::kKey).firstAttribute().text(); });
}

std::optional<std::string> readAcronym(const XmlDocument& catalogue, const std::string& name) {
  std::optional<std::string> acronym;
  ignoringErrors([&] {
    acronym = catalogue.select(childrenOf(booksNamed(name), catalogue_names::kAcro)).text();
  });
  return acronym;
}

}  // namespace quorbind
