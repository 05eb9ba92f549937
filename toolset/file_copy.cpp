#include "toolset/file_copy.h"

#include <algorithm>
#include <array>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "bookxml/names.h"
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

/// The folder part of a name, with its `\`; empty for a name without one.
std::string_view folderPartOf(std::string_view name) {
  return name.substr(0, name.size() - fileNameOf(name).size());
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

/// File names, told apart as the file system tells them apart.
class NameSet {
 public:
  explicit NameSet(const Locale& locale) : locale_(locale) {}

  /// Whether the name is new.
  bool add(std::string_view name) { return names_.insert(locale_.upperCase(name)).second; }
  [[nodiscard]] bool has(std::string_view name) const {
    return names_.contains(locale_.upperCase(name));
  }

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
    if (name && known_.add(*name)) {
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
    const std::vector<std::string>& names = upperCaseNamesIn(std::string(folderPartOf(path)));
    return std::binary_search(names.begin(), names.end(), locale_.upperCase(fileNameOf(path))) &&
           files_.fileExists(path);
  }

 private:
  /// Sorted; none for a folder that can't be listed.
  const std::vector<std::string>& upperCaseNamesIn(const std::string& folder) {
    const auto [entry, isNew] = listings_.try_emplace(folder);
    std::vector<std::string>& names = entry->second;
    if (isNew) {
      ignoringErrors([&] { names = files_.namesIn(folder); });
      for (std::string& name : names) {
        name = locale_.upperCase(name);
      }
      std::sort(names.begin(), names.end());
    }
    return names;
  }

  FileSystem& files_;
  const Locale& locale_;
  std::unordered_map<std::string, std::vector<std::string>> listings_;
};

/// Makes a folder and those above it. One that can't be made shows in the copy that needs it.
void makeFolder(FileSystem& files, std::string_view folder) {
  if (folder.empty() || files.folderExists(folder)) {
    return;
  }
  makeFolder(files, folderOf(folder));
  ignoringErrors([&] { files.createFolder(folder); });
}

void bringIntoPlace(FileSystem& files, std::string_view source, std::string_view target) {
  makeFolder(files, folderOf(target));
  if (!files.sameFile(source, target)) {
    files.copyFile(source, target);
  }
}

/// Brings documents from their folders into one target folder, as far as they can be had.
class DocumentCopy {
 public:
  /// `targetFolder` and all folders further down end in `\`.
  DocumentCopy(FileSystem& files, const Locale& locale, std::string targetFolder)
      : files_(files),
        locale_(locale),
        listings_(files, locale),
        targetFolder_(std::move(targetFolder)),
        inPlace_(locale),
        lookedAt_(locale) {}

  /// Copies the document `name` from the first of `folders` that has it.
  void copy(std::string_view name, const std::vector<std::string>& folders) {
    for (const std::string& folder : folders) {
      if (listings_.hasFile(folder + std::string(name))) {
        if (copyFrom(folder, name) && isPage(name)) {
          addPage(folder, name);
        }
        return;
      }
    }
  }

  /// Of a page that is in place, copies the linked files with the others.
  void addPage(std::string_view folder, std::string_view name) {
    pages_.push_back({std::string(folder), std::string(name)});
  }

  /// Copies what the pages link to. Comes last, so that no link puts another file in the place of a
  /// document.
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

  bool copyFrom(const std::string& folder, std::string_view name) {
    const bool isCopied =
        ignoringErrors([&] {
          bringIntoPlace(files_, folder + std::string(name), targetFolder_ + std::string(name));
        }) == 0;
    if (isCopied) {
      inPlace_.add(name);
    }
    return isCopied;
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
    if (!inPlace_.has(name) && lookedAt_.add(folder + name) && listings_.hasFile(folder + name)) {
      copyFrom(folder, name);
    }
  }

  FileSystem& files_;
  const Locale& locale_;
  FolderListings listings_;
  std::string targetFolder_;
  std::vector<Page> pages_;
  /// By their names below the target folder.
  NameSet inPlace_;
  /// Linked files by their full names.
  NameSet lookedAt_;
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
  std::string from;
  std::string to;
  const std::int32_t error = ignoringErrors([&] {
    from = files_.absolutePath(source);
    to = targetFor(from, destination);
    bringIntoPlace(files_, from, to);
  });
  if (error != 0) {
    return false;
  }
  ignoringErrors([&] { copyWhatBelongsTo(from, to); });
  return true;
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
  const std::string_view folder = folderPartOf(source);
  DocumentCopy documents(files_, locale_, std::string(folderPartOf(target)));
  if (isPage(source)) {
    documents.addPage(folder, fileNameOf(source));
  }
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
