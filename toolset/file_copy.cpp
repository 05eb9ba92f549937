#include "toolset/file_copy.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

#include "bookxml/names.h"
#include "catalogue/names.h"
#include "platform/error_trap.h"
#include "platform/file_system.h"
#include "platform/locale.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "platform/xml_document.h"
#include "toolset/folder_listings.h"
#include "toolset/page_links.h"

namespace quorbind {

namespace {

constexpr std::array<std::string_view, 2> kPageExtensions{".HTM", ".HTML"};
constexpr char kBookmark = '#';

bool isPage(std::string_view name) {
  const std::string upper = upperCaseAscii(name);
  return upper.ends_with(kPageExtensions[0]) || upper.ends_with(kPageExtensions[1]);
}

/// Picks the names of the documents out of a book XML file, each once, in their order. Another
/// document has none.
class DocumentNames final : public XmlScanHandler {
 public:
  explicit DocumentNames(const Locale& locale) : known_(locale) {}

  [[nodiscard]] const std::vector<std::string>& names() const { return names_; }

  void startElement(std::string_view name, const XmlScanAttributes& /*attributes*/) override {
    if (!isBook_) {
      isBook_ = name == book_names::kMaster;
    }
    isInName_ = *isBook_ && name == book_names::kHeadingFile;
    text_.clear();
  }
  void text(std::string_view text) override {
    if (isInName_) {
      text_ += text;
    }
  }
  void endElement(std::string_view /*name*/) override {
    if (isInName_) {
      add(std::string_view(text_).substr(0, text_.find(kBookmark)));
      isInName_ = false;
    }
  }

 private:
  void add(std::string_view text) {
    auto name = nameBelow(text);
    if (name && !server_names::isLibraryFile(*name) && known_.add(*name)) {
      names_.push_back(*std::move(name));
    }
  }

  /// Unknown before the root element.
  std::optional<bool> isBook_;
  bool isInName_ = false;
  std::string text_;
  NameSet known_;
  std::vector<std::string> names_;
};

/// Makes a folder and those above it. One that can't be made shows in the copy that needs it.
void makeFolder(FileSystem& files, std::string_view folder) {
  if (folder.empty() || files.folderExists(folder)) {
    return;
  }
  makeFolder(files, folderOf(folder));
  ignoringErrors([&] { files.createFolder(folder); });
}

void copyInto(FileSystem& files, std::string_view source, std::string_view target) {
  makeFolder(files, folderOf(target));
  files.copyFile(source, target);
}

void bringIntoPlace(FileSystem& files, std::string_view source, std::string_view target) {
  if (!files.sameFile(source, target)) {
    copyInto(files, source, target);
  }
}

/// Brings documents from their folders into one target folder, as far as they can be had. Their
/// names are those below the folders; the folders end in `\`.
class DocumentCopy {
 public:
  /// `settled` holds the places that this or an earlier copy has seen to.
  DocumentCopy(FileSystem& files,
               const Locale& locale,
               FolderListings& listings,
               NameSet& settled,
               std::string targetFolder)
      : files_(files),
        locale_(locale),
        listings_(listings),
        settled_(settled),
        targetFolder_(std::move(targetFolder)) {}

  /// Takes note of a file from `folder` that is in place already.
  void add(const std::string& folder, const std::string& name) {
    settle(name);
    addPage(folder, name);
  }

  /// Copies the document `name` from the first of `folders` that has it.
  void copy(const std::string& name, const std::vector<std::string>& folders) {
    const auto folder = std::find_if(folders.begin(), folders.end(), [&](const auto& candidate) {
      return listings_.hasFile(candidate + name);
    });
    if (folder == folders.end()) {
      return;
    }
    settle(name);
    if (bring(*folder, name)) {
      addPage(*folder, name);
    }
  }

  /// Copies what the pages among the documents link to. Comes last, so that no link puts another
  /// file in the place of a document.
  void copyLinkedFiles() {
    for (const Page& page : pages_) {
      ignoringErrors([&] { copyLinkedFilesOf(page); });
    }
  }

 private:
  struct Page {
    std::string folder;
    std::string name;  ///< below the folder
  };

  void addPage(const std::string& folder, const std::string& name) {
    if (isPage(name)) {
      pages_.push_back({folder, name});
    }
  }

  /// Answers whether it succeeded.
  bool bring(const std::string& folder, const std::string& name) {
    return ignoringErrors([&] { bringIntoPlace(files_, folder + name, targetFolder_ + name); }) ==
           0;
  }

  void copyLinkedFilesOf(const Page& page) {
    const std::string text = TextReader(files_, locale_, page.folder + page.name).readAll();
    for (const std::string& link : linksIn(text)) {
      if (const auto name = nameBelow(link)) {
        copyLinkedFile(page.folder, std::string(folderPartOf(page.name)) + *name);
      }
    }
  }

  void copyLinkedFile(const std::string& folder, const std::string& name) {
    if (!server_names::isLibraryFile(name) && listings_.hasFile(folder + name) && settle(name)) {
      bring(folder, name);
    }
  }

  /// Notes that the file was found, and so has been copied or can't be. Answers whether that is
  /// new.
  bool settle(const std::string& name) { return settled_.add(targetFolder_ + name); }

  FileSystem& files_;
  const Locale& locale_;
  FolderListings& listings_;
  NameSet& settled_;
  std::string targetFolder_;
  std::vector<Page> pages_;
};

/// Where the documents of a book XML file in `folder` (with its `\`) are looked for.
std::vector<std::string> documentFolders(std::string_view folder) {
  std::vector<std::string> folders{std::string(folder)};
  const std::string_view above = folderPartOf(folderOf(folder));
  if (!above.empty()) {
    folders.emplace_back(above);
  }
  return folders;
}

}  // namespace

bool ReferenceFileCopy::mbCopyFiles(std::string_view destination,
                                    std::string_view source,
                                    std::int16_t /*reservedOverwrite*/,
                                    std::int16_t /*reservedDialog*/) {
  if (!files_.fileExists(source)) {
    return false;
  }
  bool isInPlace = false;
  ignoringErrors([&] {
    const std::string from = files_.absolutePath(source);
    const std::string to = targetFor(from, destination);
    if (files_.sameFile(from, to)) {
      isInPlace = true;
      return;
    }
    copyInto(files_, from, to);
    isInPlace = true;
    copyWhatBelongsTo(from, to);
  });
  return isInPlace;
}

std::string ReferenceFileCopy::targetFor(std::string_view source,
                                         std::string_view destination) const {
  const std::string_view fileName = fileNameOf(source);
  std::string target = files_.absolutePath(destination);
  if (locale_.upperCase(fileNameOf(target)) == locale_.upperCase(fileName)) {
    return target;
  }
  if (!target.ends_with('\\')) {
    target += '\\';
  }
  return target.append(fileName);
}

void ReferenceFileCopy::copyWhatBelongsTo(const std::string& source, const std::string& target) {
  const std::string folder(folderPartOf(source));
  DocumentCopy documents(files_, locale_, listings_, settled_, std::string(folderPartOf(target)));
  documents.add(folder, std::string(fileNameOf(source)));
  DocumentNames named(locale_);
  if (xml_.scan(source, named)) {
    const auto folders = documentFolders(folder);
    for (const std::string& name : named.names()) {
      documents.copy(name, folders);
    }
  }
  documents.copyLinkedFiles();
}

}  // namespace quorbind
