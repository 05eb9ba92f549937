#include "bench/copied_folder.h"

#include <iterator>

#include "bench/toc_texts.h"
#include "toolset/file_copy.h"
#include "workflow/driver/book_file_copy.h"

namespace quorbind::bench {

namespace {

namespace fs = std::filesystem;

constexpr const char* kBookFile = "Book_BEN.xml";

}  // namespace

CopiedFolder::CopiedFolder(std::size_t documents, const std::string& extension)
    : files_(documents + 1) {
  const bool arePages = extension == kPageExtension;
  const std::string content = arePages ? pageContent() : std::string(kDocumentSize, 'x');
  std::string book = "<Book_Master><Book_Headings>";
  for (std::size_t i = 0; i < documents; ++i) {
    const std::string name = "document" + std::to_string(i) + extension;
    world_.disk.write("in/" + name, content);
    book += "<Heading><HFile>" + name + "</HFile></Heading>";
  }
  world_.disk.write(std::string("in/") + kBookFile, book + "</Book_Headings></Book_Master>");
  if (arePages) {
    for (const char* file : kFilesOfPages) {
      world_.disk.write(std::string("in/") + file, std::string(kDocumentSize, 'x'));
    }
    files_ += kFilesOfPages.size();
  }
  world_.disk.makeFolder("library");
}

bool CopiedFolder::copy() {
  const Platform& platform = world_.platform();
  ReferenceFileCopy copy(platform.files, platform.xml, platform.locale);
  const bool isCopied =
      copy.mbCopyFiles("C:\\library\\" + folder_, std::string("C:\\in\\") + kBookFile, 0, 0);
  copy.flush();
  return isCopied;
}

bool CopiedFolder::takeOver() {
  const std::string book = std::string("C:\\in\\") + kBookFile;
  const std::string library = "C:\\library\\";
  const std::string destination = library + folder_;
  const std::string catalogue = library + "Quor_TOC.xml";
  copyBookFile(world_.platform(),
               {.tocPath = book, .destination = destination, .catalogue = catalogue},
               kBookFile);
  return true;
}

bool CopiedFolder::areCopied() const {
  return fs::exists(target()) &&
         static_cast<std::size_t>(std::distance(fs::directory_iterator(target()), {})) == files_;
}

fs::path CopiedFolder::source() const {
  return world_.disk.path() / "in";
}

fs::path CopiedFolder::target() const {
  return world_.disk.path() / "library" / folder_;
}

}  // namespace quorbind::bench
