#include "workflow/driver/book_file_copy.h"

#include <memory>
#include <string_view>

#include "bookxml/names.h"
#include "catalogue/names.h"
#include "platform/error_trap.h"
#include "platform/file_system.h"
#include "platform/folder_listings.h"
#include "platform/folders.h"
#include "platform/locale.h"
#include "platform/paths.h"
#include "platform/toolset.h"
#include "platform/xml_document.h"

namespace quorbind {

namespace {

/// Learns the name of a document's root.
class RootName final : public XmlScanHandler {
 public:
  [[nodiscard]] const std::string& name() const { return name_; }

  void startElement(std::string_view name, const XmlScanAttributes& /*attributes*/) override {
    if (name_.empty()) {
      name_ = name;
    }
  }
  void text(std::string_view /*text*/) override {}
  void endElement(std::string_view /*name*/) override {}

 private:
  std::string name_;
};

class BookFileCopy {
 public:
  BookFileCopy(const Platform& platform, const BookFileWay& way)
      : platform_(platform),
        files_(platform.files),
        tocPath_(way.tocPath),
        sourceFolder_(folderPartOf(way.tocPath)),
        destination_(way.destination),
        listings_(platform.files, platform.locale),
        seen_(platform.locale),
        isLibraryFolder_(fullName(destination_) == fullName(folderPartOf(way.catalogue))),
        isInPlace_(files_.sameFile(tocPath_, placeOf(fileNameOf(tocPath_)))) {}

  void copyFileAs(std::string_view name) {
    if (!isLibrarysOwn(name) && !files_.sameFile(tocPath_, placeOf(name))) {
      ignoringErrors([&] { files_.copyFile(tocPath_, placeOf(name)); });
    }
  }

  /// Raises what their flush raises.
  void copyDocumentsOf(const XmlDocument& book) {
    std::unique_ptr<FileCopy> copy;
    ignoringErrors([&] { copy = platform_.toolset.createFileCopy(); });
    if (copy == nullptr) {
      return;
    }
    for (const Document& document : documentsToCome(book, *copy)) {
      ignoringErrors([&] { copyDocument(*copy, document); });
    }
    copy->flush();
  }

 private:
  /// A document that does not stand in the destination before the first is copied.
  struct Document {
    std::string name;
    bool isThere;  ///< beside the book file
  };

  /// Those that stand already get what they link to first, so that no other page brings something
  /// into their places.
  [[nodiscard]] std::vector<Document> documentsToCome(const XmlDocument& book, FileCopy& copy) {
    std::vector<Document> documents;
    for (const XmlNode& heading : book.elementsByName(book_names::kHeadingFile)) {
      ignoringErrors([&] {
        const std::string text = heading.text();
        const auto name = nameBelow(std::string_view(text).substr(0, text.find('#')));
        if (!name || isLibrarysOwn(*name) || !seen_.add(*name)) {
          return;
        }
        Document document{*name, listings_.hasFile(files_.absolutePath(sourceOf(*name)))};
        if (listings_.hasFile(files_.absolutePath(placeOf(*name)))) {
          bringLinkedFiles(copy, document);
        } else {
          documents.push_back(std::move(document));
        }
      });
    }
    return documents;
  }

  void copyDocument(FileCopy& copy, const Document& document) {
    const std::string source = sourceOf(document.name);
    const std::string place = placeOf(document.name);
    const std::string folder(folderOf(place));
    if (document.isThere && isBookFile(source)) {
      makeFolders(files_, folder);
      files_.copyFile(source, place);
    } else {
      copy.mbCopyFiles(folder, source, 0, 0);
    }
  }

  /// A page that stands may have come in a run that ended before what it links to had come.
  void bringLinkedFiles(FileCopy& copy, const Document& document) {
    if (!document.isThere || isInPlace_) {
      return;
    }
    const std::string source = sourceOf(document.name);
    if (!isBookFile(source)) {
      copy.copyLinkedFiles(folderOf(placeOf(document.name)), source);
    }
  }

  [[nodiscard]] bool isBookFile(const std::string& path) const {
    RootName root;
    return book_names::mayBeFile(fileNameOf(path)) && platform_.xml.scan(path, root) &&
           root.name() == book_names::kMaster;
  }

  /// Below the library's folder its files have no place.
  [[nodiscard]] bool isLibrarysOwn(std::string_view name) const {
    return isLibraryFolder_ && folderOf(name).empty() && server_names::isLibraryFile(name);
  }

  /// Comparable with other names.
  [[nodiscard]] std::string fullName(std::string_view path) const {
    return platform_.locale.upperCase(files_.absolutePath(path));
  }

  [[nodiscard]] std::string sourceOf(std::string_view name) const {
    return std::string(sourceFolder_).append(name);
  }

  [[nodiscard]] std::string placeOf(std::string_view name) const {
    return joinedPath(destination_, name);
  }

  const Platform& platform_;
  FileSystem& files_;
  const std::string& tocPath_;
  std::string sourceFolder_;
  const std::string& destination_;
  FolderListings listings_;
  /// Several headings may name one document.
  NameSet seen_;
  bool isLibraryFolder_;
  /// Whether the book file lies in the destination, and its documents with it.
  bool isInPlace_;
};

}  // namespace

void copyBookFile(const Platform& platform,
                  const BookFileWay& way,
                  const std::string& bookFileName) {
  const auto book = platform.xml.createDocument();
  if (!book->load(way.tocPath)) {
    return;
  }
  makeFolders(platform.files, way.destination);
  BookFileCopy copy(platform, way);
  const std::string_view ownName = fileNameOf(way.tocPath);
  copy.copyFileAs(ownName);
  if (platform.locale.upperCase(ownName) != platform.locale.upperCase(bookFileName)) {
    copy.copyFileAs(bookFileName);
  }
  copy.copyDocumentsOf(*book);
}

}  // namespace quorbind
