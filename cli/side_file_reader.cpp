#include "cli/side_file_reader.h"

#include "cli/required_document.h"
#include "platform/file_system.h"
#include "sidefiles/names.h"

namespace quorbind {

namespace {

std::vector<std::string> textsOf(const XmlNode& parent, std::string_view element) {
  std::vector<std::string> texts;
  for (const XmlNode& child : parent.children()) {
    if (child.name() == element) {
      texts.push_back(child.text());
    }
  }
  return texts;
}

BookKeywords keywordsOf(const XmlNode& book) {
  using namespace keyword_names;
  const XmlNode name = book.attribute(kBookName);
  const XmlNode list = book.child(kKeywords);
  BookKeywords keywords{.bookName = name ? name.text() : std::string(), .keywords = {}};
  if (list) {
    keywords.keywords = textsOf(list, kKeyword);
    std::erase(keywords.keywords, "");
  }
  return keywords;
}

}  // namespace

std::vector<ListedCategory> readCategories(const Platform& platform, const std::string& path) {
  using namespace category_names;
  const auto document = loadRequired(platform, path);
  requireElement(*document, path, kSet);
  std::vector<ListedCategory> categories;
  for (const XmlNode& category : document->selectAll(kCategoryPath)) {
    categories.push_back({childText(category, kName), textsOf(category, kBookAcro)});
  }
  return categories;
}

std::vector<BookKeywords> readKeywords(const Platform& platform, const std::string& path) {
  std::vector<BookKeywords> books;
  if (!platform.files.fileExists(path)) {
    return books;
  }
  const auto document = loadRequired(platform, path);
  for (const XmlNode& child : requireElement(*document, path, keyword_names::kBooks).children()) {
    if (child.name() == keyword_names::kBook) {
      books.push_back(keywordsOf(child));
    }
  }
  return books;
}

std::string_view documentOf(const ListedLink& link) {
  const std::string_view source = link.sourceFile;
  // A bookmark may hold one, too.
  const std::size_t slash = source.substr(0, source.find('#')).find('\\');
  return slash == std::string_view::npos ? source : source.substr(slash + 1);
}

std::vector<ListedLink> readLinks(const Platform& platform, const std::string& path) {
  return platform.files.fileExists(path) ? readExistingLinks(platform, path)
                                         : std::vector<ListedLink>();
}

std::vector<ListedLink> readExistingLinks(const Platform& platform, const std::string& path) {
  using namespace link_names;
  const auto document = loadRequired(platform, path);
  requireElement(*document, path, kLinks);
  std::vector<ListedLink> links;
  for (const XmlNode& link : document->selectAll(std::string(kListPath).append("/").append(kId))) {
    links.push_back({.identifier = childText(link, kLinkId),
                     .fullLink = childText(link, kFullLink),
                     .sourceFile = childText(link, kSourceFile),
                     .acronym = childText(link, kBookAcro)});
  }
  return links;
}

}  // namespace quorbind
