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

/// The elements of an entry that tell of the book; no nodes where there are none.
struct EntryParts {
  XmlNode name;
  XmlNode acronym;
  XmlNode key;
  XmlNode folder;
  XmlNode bookFile;
  XmlNode categories;
};

constexpr std::array<std::pair<std::string_view, XmlNode EntryParts::*>, 6> kParts{
    {{kName, &EntryParts::name},
     {kAcro, &EntryParts::acronym},
     {kKey, &EntryParts::key},
     {kFolder, &EntryParts::folder},
     {kBookFile, &EntryParts::bookFile},
     {kCategories, &EntryParts::categories}}};

/// Of several elements with one name the first counts.
EntryParts partsOf(const XmlNode& book) {
  EntryParts parts;
  for (XmlNode child = book.firstChild(); child; child = child.nextSibling()) {
    const std::string name = child.name();
    const auto* const part = std::find_if(
        kParts.begin(), kParts.end(), [&name](const auto& known) { return known.first == name; });
    if (part != kParts.end() && child.isElement() && !(parts.*part->second)) {
      parts.*part->second = child;
    }
  }
  return parts;
}

std::string textOf(const XmlNode& node) {
  return node ? node.text() : std::string();
}

std::vector<std::string> textsIn(const XmlNode& list) {
  std::vector<std::string> texts;
  if (list) {
    for (const XmlNode& child : list.children()) {
      texts.push_back(child.text());
    }
  }
  return texts;
}

std::string attributeText(const XmlNode& element, std::string_view attribute) {
  return element ? textOf(element.attribute(attribute)) : std::string();
}

/// Any attribute makes the file one that is no book XML file.
std::optional<std::string> fileTypeOf(const XmlNode& bookFile) {
  const bool hasType = bookFile && bookFile.firstAttribute();
  return hasType ? std::optional(attributeText(bookFile, kBookFileType)) : std::nullopt;
}

ListedBook entryOf(const XmlNode& book) {
  const EntryParts parts = partsOf(book);
  return {.name = textOf(parts.name),
          .acronym = textOf(parts.acronym),
          .folder = textOf(parts.folder),
          .bookFile = textOf(parts.bookFile),
          .fileType = fileTypeOf(parts.bookFile),
          .link = attributeText(parts.key, kKeyId),
          .categories = textsIn(parts.categories)};
}

/// Makes an entry of each book that it is shown.
class BookList final : public XmlElementVisitor {
 public:
  [[nodiscard]] std::vector<ListedBook> take() { return std::move(books_); }

  void begin() override { books_.clear(); }
  void visit(const XmlNode& element) override { books_.push_back(entryOf(element)); }

 private:
  std::vector<ListedBook> books_;
};

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
  requireReadable(platform.files, path, nativeName(path));
  BookList list;
  if (const XmlLoadResult result = platform.xml.visitSelected(path, kBookPath, list); !result) {
    throw loadFailure(platform, path, result);
  }
  std::vector<ListedBook> books = list.take();
  if (books.empty()) {
    static_cast<void>(requireElement(*loadRequired(platform, path), path, kBooksPath));
  }
  return books;
}

std::vector<ListedBook> addedBooks(const std::vector<ListedBook>& before,
                                   const std::vector<ListedBook>& after) {
  if (after.size() <= before.size()) {
    return {};
  }
  const auto end =
      std::mismatch(before.rbegin(), before.rend(), after.rbegin(), after.rend()).second.base();
  return {end - static_cast<std::ptrdiff_t>(after.size() - before.size()), end};
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
    throw brokenRule(RuleText::kBookFileOutside,
                     {{"FILE", nativeName(library.catalogue)}, {"BOOK", file}});
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
