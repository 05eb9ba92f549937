#include "toolset/file_copy.h"

#include <algorithm>
#include <array>
#include <optional>
#include <unordered_map>
#include <unordered_set>
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
#include "toolset/page_links.h"

namespace quorbind {

namespace {

constexpr std::array<std::string_view, 2> kPageExtensions{".HTM", ".HTML"};
constexpr char kBookmark = '#';

bool isPage(std::string_view name) {
  const std::string upper = upperCaseAscii(name);
  return upper.ends_with(kPageExtensions[0]) || upper.ends_with(kPageExtensions[1]);
}

/// Whether a file of that name is one of those that a library keeps its books in. A book's folder
/// can be the library's own, and no document may take the place of the catalogue.
bool isLibraryFile(std::string_view name) {
  const std::string upper = upperCaseAscii(fileNameOf(name));
  return upper.starts_with(upperCaseAscii(server_names::kFilePrefix)) && upper.ends_with(".XML");
}

/// A document's name for a file as a name below some folder; nothing for one that leads elsewhere.
std::optional<std::string> nameBelow(std::string_view text) {
  const std::string path = withBackslashes(text);
  std::string name;
  for (const std::string_view part : Pieces(path, "\\")) {
    const bool isDoubledSeparator = part.empty() && !name.empty();
    if (isDoubledSeparator || part == ".") {
      continue;
    }
    if (!staysInFolder(part)) {
      return std::nullopt;
    }
    name.append(name.empty() ? "" : "\\").append(part);
  }
  return name.empty() ? std::nullopt : std::optional(std::move(name));
}

/// File names, without regard to letter case like the file system's.
class NameSet {
 public:
  explicit NameSet(const Locale& locale) : locale_(locale) {}

  /// Whether the name is new.
  bool add(std::string_view name) { return names_.insert(locale_.upperCase(name)).second; }

 private:
  const Locale& locale_;
  std::unordered_set<std::string> names_;
};

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
    if (name && !isLibraryFile(*name) && known_.add(*name)) {
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

/// Tells what files there are, from one listing of each folder: a book names thousands of documents
/// in a few folders, and to ask the disk for each that is missing would take most of the time.
class FolderListings {
 public:
  FolderListings(FileSystem& files, const Locale& locale) : files_(files), locale_(locale) {}

  [[nodiscard]] bool hasFile(const std::string& path) {
    const Listing& listing = listingOf(std::string(folderPartOf(path)));
    return mayHold(listing, fileNameOf(path)) && files_.fileExists(path);
  }

 private:
  /// Names in upper case, sorted; nothing for a folder that can't be listed.
  using Listing = std::optional<std::vector<std::string>>;

  [[nodiscard]] bool mayHold(const Listing& listing, std::string_view name) const {
    return !listing ||
           std::binary_search(listing->begin(), listing->end(), locale_.upperCase(name));
  }
  const Listing& listingOf(const std::string& folder) {
    const auto found = listings_.find(folder);
    return found != listings_.end() ? found->second
                                    : listings_.emplace(folder, list(folder)).first->second;
  }
  [[nodiscard]] Listing list(const std::string& folder) const {
    Listing listing;
    ignoringErrors([&] { listing = files_.namesIn(folder); });
    if (listing) {
      for (std::string& name : *listing) {
        name = locale_.upperCase(name);
      }
      std::sort(listing->begin(), listing->end());
    }
    return listing;
  }

  FileSystem& files_;
  const Locale& locale_;
  std::unordered_map<std::string, Listing> listings_;
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
  DocumentCopy(FileSystem& files, const Locale& locale, std::string targetFolder)
      : files_(files),
        locale_(locale),
        listings_(files, locale),
        targetFolder_(std::move(targetFolder)),
        settled_(locale) {}

  /// Takes note of a file from `folder` that is in place already.
  void add(const std::string& folder, const std::string& name) {
    settled_.add(name);
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
    settled_.add(name);
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
    if (!isLibraryFile(name) && listings_.hasFile(folder + name) && settled_.add(name)) {
      bring(folder, name);
    }
  }

  FileSystem& files_;
  const Locale& locale_;
  FolderListings listings_;
  std::string targetFolder_;
  std::vector<Page> pages_;
  /// What was found, and so has been copied or can't be.
  NameSet settled_;
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
                                    int /*reservedOverwrite*/,
                                    int /*reservedDialog*/) {
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
  DocumentCopy documents(files_, locale_, std::string(folderPartOf(target)));
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
