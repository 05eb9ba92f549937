#include "cli/catalogue_reader.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "catalogue/names.h"
#include "cli/failure.h"
#include "cli/required_document.h"
#include "platform/paths.h"
#include "platform/text.h"

namespace quorbind {

namespace {

using namespace catalogue_names;

std::vector<std::string> categoriesOf(const XmlNode& book) {
  std::vector<std::string> categories;
  if (const XmlNode list = book.child(kCategories)) {
    for (const XmlNode& category : list.children()) {
      categories.push_back(category.text());
    }
  }
  return categories;
}

std::string attributeText(const XmlNode& element, std::string_view attribute) {
  const XmlNode found = element ? element.attribute(attribute) : XmlNode();
  return found ? found.text() : std::string();
}

/// Any attribute makes the file one that is no book XML file.
std::optional<std::string> fileTypeOf(const XmlNode& book) {
  const XmlNode file = book.child(kBookFile);
  if (!file || !file.firstAttribute()) {
    return std::nullopt;
  }
  return attributeText(file, kBookFileType);
}

ListedBook entryOf(const XmlNode& book) {
  return {.name = childText(book, kName),
          .acronym = childText(book, kAcro),
          .folder = childText(book, kFolder),
          .bookFile = childText(book, kBookFile),
          .fileType = fileTypeOf(book),
          .link = attributeText(book.child(kKey), kKeyId),
          .categories = categoriesOf(book)};
}

/// Tells whether a document has an element at a path, which it knows by its names alone.
class ElementAt final : public XmlScanHandler {
 public:
  explicit ElementAt(std::string_view path) : path_(path, "/") {}

  [[nodiscard]] bool isThere() const { return isThere_; }

  void startElement(std::string_view name, const XmlScanAttributes& /*attributes*/) override {
    if (matched_ == depth_ && matched_ < path_.count() && path_.at(matched_) == name) {
      ++matched_;
      isThere_ = isThere_ || matched_ == path_.count();
    }
    ++depth_;
  }
  void text(std::string_view /*text*/) override {}
  void endElement(std::string_view /*name*/) override {
    --depth_;
    matched_ = std::min(matched_, depth_);
  }

 private:
  Pieces path_;
  /// How many elements are open, and how many of these, from the root, are of the path.
  std::size_t depth_ = 0;
  std::size_t matched_ = 0;
  bool isThere_ = false;
};

const ListedBook& requireBook(const std::vector<ListedBook>& books,
                              std::string ListedBook::*stored,
                              const std::string& typed,
                              const std::string& library) {
  const auto found = std::find_if(books.begin(), books.end(), [&](const ListedBook& book) {
    return readableName(book.*stored) == typed;
  });
  if (found == books.end()) {
    throw brokenRule(RuleText::kNoSuchBook, {{"BOOK", typed}, {"LIBRARY", library}});
  }
  return *found;
}

}  // namespace

std::vector<ListedBook> readCatalogue(const Platform& platform, const std::string& path) {
  const auto document = loadRequired(platform, path);
  std::vector<ListedBook> books;
  for (const XmlNode& child : requireElement(*document, path, kBooksPath).children()) {
    if (child.name() == kBook) {
      books.push_back(entryOf(child));
    }
  }
  return books;
}

void requireCatalogue(const Platform& platform, const std::string& path) {
  requireReadable(platform.files, path, nativeName(path));
  ElementAt list(kBooksPath);
  if (const XmlLoadResult result = platform.xml.scan(path, list); !result) {
    throw loadFailure(platform, path, result);
  }
  if (!list.isThere()) {
    throw missingElement(path, Pieces(kBooksPath, "/").last());
  }
}

const ListedBook& requireBookNamed(const std::vector<ListedBook>& books,
                                   const std::string& name,
                                   const std::string& library) {
  return requireBook(books, &ListedBook::name, name, library);
}

const ListedBook& requireBookWithAcronym(const std::vector<ListedBook>& books,
                                         const std::string& acronym,
                                         const std::string& library) {
  return requireBook(books, &ListedBook::acronym, acronym, library);
}

std::string bookFileOf(const LibraryPaths& library, const ListedBook& book) {
  const std::string file = joinedPath(book.folder, book.bookFile);
  if (!staysBelow(file)) {
    throw CommandFailure(
        ExitStatus::kRefused,
        nativeName(library.catalogue) + ": the book file " + file + " is not in the library");
  }
  return joinedPath(library.folder, file);
}

std::string readableName(std::string_view stored) {
  constexpr std::array<std::pair<std::string_view, std::string_view>, 5> kReplacements{
      {{"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&apos;", "'"}, {"&amp;", "&"}}};
  std::string name(stored);
  for (const auto& [replacement, character] : kReplacements) {
    name = replaceAll(name, replacement, character);
  }
  return name;
}

std::string legibleName(const std::string& typed) {
  return trimBlanks(typed).empty() ? "(no title)" : typed;
}

std::string titleOf(const ListedBook& book) {
  return readableName(book.name) + " (" + readableName(book.acronym) + ")";
}

std::string folderTitle(const std::string& folder) {
  return folder.empty() ? "the library's own folder" : "folder " + folder;
}

std::string placeOf(const ListedBook& book) {
  return folderTitle(book.folder);
}

}  // namespace quorbind
