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
        isLibraryFolder_(fullName(destination_) == fullName(folderPartOf(way.catalogue))) {}

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
    for (const XmlNode& document : book.elementsByName(book_names::kHeadingFile)) {
      ignoringErrors([&] { copyDocument(*copy, document.text()); });
    }
    copy->flush();
  }

 private:
  void copyDocument(FileCopy& copy, const std::string& document) {
    const auto name = nameBelow(std::string_view(document).substr(0, document.find('#')));
    if (!name || isLibrarysOwn(*name)) {
      return;
    }
    const std::string source = sourceFolder_ + *name;
    const bool isThere = listings_.hasFile(files_.absolutePath(source));
    if (hasArrived(*name, isThere)) {
      return;
    }
    const std::string folder(folderOf(placeOf(*name)));
    if (isThere && isBookFile(source)) {
      makeFolders(files_, folder);
      files_.copyFile(source, placeOf(*name));
    } else {
      copy.mbCopyFiles(folder, source, 0, 0);
    }
  }

  /// What was not listed has come since, if it has, from where it stands now.
  [[nodiscard]] bool hasArrived(const std::string& name, bool isThere) {
    const std::string place = placeOf(name);
    return listings_.hasFile(files_.absolutePath(place)) || (isThere && files_.fileExists(place));
  }

  [[nodiscard]] bool isBookFile(const std::string& path) const {
    RootName root;
    return platform_.xml.scan(path, root) && root.name() == book_names::kMaster;
  }

  /// Below the library's folder its files have no place.
  [[nodiscard]] bool isLibrarysOwn(std::string_view name) const {
    return isLibraryFolder_ && folderOf(name).empty() && server_names::isLibraryFile(name);
  }

  /// Comparable with other names.
  [[nodiscard]] std::string fullName(std::string_view path) const {
    return platform_.locale.upperCase(files_.absolutePath(path));
  }

  [[nodiscard]] std::string placeOf(std::string_view name) const {
    return std::string(destination_).append("\\").append(name);
  }

  const Platform& platform_;
  FileSystem& files_;
  const std::string& tocPath_;
  std::string sourceFolder_;
  const std::string& destination_;
  FolderListings listings_;
  bool isLibraryFolder_;
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
