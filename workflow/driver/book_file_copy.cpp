#include "workflow/driver/book_file_copy.h"

#include <memory>
#include <string_view>

#include "bookxml/names.h"
#include "catalogue/names.h"
#include "platform/error_trap.h"
#include "platform/file_system.h"
#include "platform/locale.h"
#include "platform/paths.h"
#include "platform/toolset.h"
#include "platform/xml_document.h"

namespace quorbind {

namespace {

class BookFileCopy {
 public:
  BookFileCopy(const Platform& platform, const std::string& tocPath, const std::string& destination)
      : platform_(platform),
        tocPath_(tocPath),
        sourceFolder_(folderPartOf(tocPath)),
        destination_(destination) {}

  void copyFileAs(std::string_view name) {
    if (!server_names::isLibraryFile(name)) {
      ignoringErrors([&] { platform_.files.copyFile(tocPath_, placeOf(name)); });
    }
  }

  void copyDocumentsOf(const XmlDocument& book) {
    std::unique_ptr<FileCopy> copy;
    ignoringErrors([&] { copy = platform_.toolset.createFileCopy(); });
    if (copy == nullptr) {
      return;
    }
    for (const XmlNode& document : book.elementsByName(book_names::kHeadingFile)) {
      ignoringErrors([&] { copyDocument(*copy, document.text()); });
    }
  }

 private:
  void copyDocument(FileCopy& copy, const std::string& document) {
    const auto name = nameBelow(std::string_view(document).substr(0, document.find('#')));
    const bool isWanted = name && !server_names::isLibraryFile(*name) &&
                          !platform_.files.fileExists(placeOf(*name));
    if (isWanted) {
      copy.mbCopyFiles(folderOf(placeOf(*name)), sourceFolder_ + *name, 0, 0);
    }
  }

  [[nodiscard]] std::string placeOf(std::string_view name) const {
    return std::string(destination_).append("\\").append(name);
  }

  const Platform& platform_;
  const std::string& tocPath_;
  std::string sourceFolder_;
  const std::string& destination_;
};

void makeFolder(FileSystem& files, const std::string& folder) {
  if (!files.folderExists(folder)) {
    ignoringErrors([&] { files.createFolder(folder); });
  }
}

}  // namespace

void copyBookFile(const Platform& platform,
                  const std::string& tocPath,
                  const std::string& destination,
                  const std::string& bookFileName) {
  const auto book = platform.xml.createDocument();
  if (!book->load(tocPath)) {
    return;
  }
  makeFolder(platform.files, destination);
  BookFileCopy copy(platform, tocPath, destination);
  const std::string_view ownName = fileNameOf(tocPath);
  copy.copyFileAs(ownName);
  if (platform.locale.upperCase(ownName) != platform.locale.upperCase(bookFileName)) {
    copy.copyFileAs(bookFileName);
  }
  copy.copyDocumentsOf(*book);
}

}  // namespace quorbind
