#include "catalogue/book_queries.h"

#include "catalogue/book_lookup.h"
#include "catalogue/names.h"
#include "platform/error_trap.h"
#include "platform/first_element.h"
#include "platform/toolset.h"
#include "platform/xml_document.h"
#include "platform/xpath_query.h"
#include "resources/messages.h"

namespace quorbind {

namespace {

/// What an entry states, as far as it does.
struct FolderAndLink {
  std::optional<std::string> folder;
  std::optional<std::string> link;
};

FolderAndLink folderAndLinkOf(const XmlNode& book) {
  FolderAndLink found;
  ignoringErrors([&] { found.folder = book.child(catalogue_names::kFolder).text(); });
  ignoringErrors([&] { found.link = book.child(catalogue_names::kKey).firstAttribute().text(); });
  return found;
}

/// What is not stated stays as it is.
void take(const FolderAndLink& found, std::string& folder, std::string& link) {
  folder = found.folder.value_or(folder);
  link = found.link.value_or(link);
}

/// The query for the acronym of the book that is stored under that name.
std::string acronymOf(const std::string& name) {
  return childrenOf(booksNamed(name), catalogue_names::kAcro);
}

}  // namespace

std::vector<std::string> BookInfo(const Platform& platform, const std::string& vstrtocpath) {
  using Names = std::vector<std::string>;
  return trapped(platform.ui, source::kBookInfo, Names(), [&]() -> Names {
    auto names = publishedTexts(platform.xml, vstrtocpath, catalogue_names::kName);
    if (!names) {
      platform.ui.show(criticalMessage(std::string(text(Message::kCatalogueNotValid))));
      return {};
    }
    return *std::move(names);
  });
}

std::vector<std::string> CategorieInfo(const Platform& platform,
                                       const std::string& vstrtocpath,
                                       const std::string& vstrBookName) {
  using Names = std::vector<std::string>;
  return trapped(platform.ui, source::kCategorieInfo, Names(), [&]() -> Names {
    const std::string name =
        platform.toolset.createXmlTextRules()->mstrCheckSpecialCharecters(vstrBookName);
    Names categories;
    FirstElement book([&](const XmlNode& entry) {
      categories = publishedList(entry.child(catalogue_names::kCategories).children());
    });
    const bool isLoaded = book.lookFor(platform.xml, vstrtocpath, [&] { return booksNamed(name); });
    return isLoaded && book.isFound() ? categories : Names();
  });
}

void strFolderLinkInfo(const Platform& platform,
                       const std::string& vstrtocpath,
                       const std::string& vstrBookName,
                       std::string& rstrFolderName,
                       std::string& rstrFileLink) {
  ignoringErrors([&] {
    FolderAndLink found;
    FirstElement book([&](const XmlNode& entry) { found = folderAndLinkOf(entry); });
    if (book.lookFor(platform.xml, vstrtocpath, [&] { return booksNamed(vstrBookName); })) {
      bool isFound = false;
      ignoringErrors([&] { isFound = book.isFound(); });
      take(isFound ? found : FolderAndLink{"", ""}, rstrFolderName, rstrFileLink);
    }
  });
}

std::string GetBookAcro(const Platform& platform,
                        const std::string& vstrtocpath,
                        const std::string& vstrBookName) {
  std::string acronym;
  FirstElement element([&](const XmlNode& found) { acronym = found.text(); });
  bool isFound = false;
  ignoringErrors([&] {
    isFound = element.lookFor(platform.xml, vstrtocpath, [&] { return acronymOf(vstrBookName); }) &&
              element.isFound();
  });
  return isFound ? acronym : std::string();
}

void readFolderAndLink(const XmlDocument& catalogue,
                       const std::string& name,
                       std::string& folder,
                       std::string& link) {
  XmlNode book;
  ignoringErrors([&] { book = catalogue.select(booksNamed(name)); });
  take(book ? folderAndLinkOf(book) : FolderAndLink{"", ""}, folder, link);
}

std::optional<std::string> readAcronym(const XmlDocument& catalogue, const std::string& name) {
  std::optional<std::string> acronym;
  ignoringErrors([&] { acronym = catalogue.select(acronymOf(name)).text(); });
  return acronym;
}

}  // namespace quorbind
