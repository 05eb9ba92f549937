#include "catalogue/book_merge.h"

#include <optional>

#include "bookxml/names.h"
#include "catalogue/book_index.h"
#include "catalogue/names.h"
#include "platform/error_trap.h"
#include "platform/paths.h"
#include "platform/xml_document.h"

namespace quorbind {

namespace {

/// The text of an entry's own child. Raises 91 when there is none.
std::string textOf(const XmlNode& book, std::string_view element) {
  return book.child(element).text();
}

void copyLink(const XmlNode& otherBook, const XmlNode& key) {
  key.firstAttribute().setText(otherBook.child(catalogue_names::kKey).firstAttribute().text());
}

std::vector<XmlNode> categoriesOf(const XmlNode& otherBook) {
  return otherBook.child(catalogue_names::kCategories).children();
}

void copyCategories(XmlDocument& catalogue, const XmlNode& otherBook, const XmlNode& categories) {
  categories.setText("");
  for (const XmlNode& category : categoriesOf(otherBook)) {
    categories.append(catalogue.copyOf(category));
  }
}

void copyCategoriesToBookXml(XmlDocument& bookXml,
                             const XmlNode& otherBook,
                             const XmlNode& categories) {
  categories.setText("");
  for (const XmlNode& category : categoriesOf(otherBook)) {
    const XmlNode copy = bookXml.createElement(book_names::kCategory);
    copy.setText(category.text());
    categories.append(copy);
  }
}

/// Brings a book XML file up to what the other catalogue says; one that does not load stays as it
/// is.
void updateBookXml(XmlLibrary& xml, const std::string& path, const XmlNode& otherBook) {
  const auto bookXml = xml.createDocument();
  if (!bookXml->load(path)) {
    return;
  }
  for (const XmlNode& child : bookXml->select(book_names::kBookPath).children()) {
    if (child.name() == book_names::kKey) {
      copyLink(otherBook, child);
    } else if (child.name() == book_names::kCategories) {
      copyCategoriesToBookXml(*bookXml, otherBook, child);
    }
  }
  bookXml->save(path);
}

/// Brings an entry of the main catalogue up to what the other one says. Answers where the book XML
/// file lies below the catalogue's folder, put together from folder and file name in the order in
/// which they stand; nothing when the entry names none, only a file with a type, or one that is not
/// in the library.
std::optional<std::string> updateEntry(XmlDocument& catalogue,
                                       const XmlNode& book,
                                       const XmlNode& otherBook) {
  using namespace catalogue_names;
  std::string file;
  bool hasBookXml = false;
  bool isInLibrary = true;
  for (const XmlNode& child : book.children()) {
    const std::string name = child.name();
    if (name == kFolder || name == kBookFile) {
      file.append(file.empty() ? "" : "\\").append(child.text());
      hasBookXml |= name == kBookFile && !child.firstAttribute();
      isInLibrary &= staysInLibrary(child.text());
    } else if (name == kKey) {
      copyLink(otherBook, child);
    } else if (name == kCategories) {
      copyCategories(catalogue, otherBook, child);
    }
  }
  return hasBookXml && isInLibrary ? std::optional(file) : std::nullopt;
}

void mergeBooks(XmlLibrary& xml,
                const std::string& mainPath,
                XmlDocument& main,
                const XmlDocument& other) {
  const BookIndex otherBooks(other);
  for (const XmlNode& book : main.elementsByName(catalogue_names::kBook)) {
    const std::string acronym = textOf(book, catalogue_names::kAcro);
    const std::string name = textOf(book, catalogue_names::kName);
    if (const XmlNode otherBook = otherBooks.find(name, acronym)) {
      if (const auto file = updateEntry(main, book, otherBook)) {
        updateBookXml(xml, std::string(folderPartOf(mainPath)) + *file, otherBook);
      }
    }
  }
}

}  // namespace

void strMatchingBooksInfo(const Platform& platform,
                          const std::string& vstrMainTocPAth,
                          const std::string& vstrtocpath) {
  trapped(platform.ui, source::kMatchingBooksInfo, [&] {
    const std::string mainPath = withBackslashes(vstrMainTocPAth);
    const auto main = platform.xml.createDocument();
    const auto other = platform.xml.createDocument();
    const bool mainIsLoaded = main->load(mainPath).loaded;
    const bool otherIsLoaded = other->load(vstrtocpath).loaded;
    if (mainIsLoaded && otherIsLoaded) {
      mergeBooks(platform.xml, mainPath, *main, *other);
    }
    main->save(mainPath);
  });
}

}  // namespace quorbind
