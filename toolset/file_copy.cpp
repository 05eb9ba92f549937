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
#include "platform/folder_listings.h"
#include "platform/folders.h"
#include "platform/locale.h"
#include "platform/path_set.h"
#include "platform/paths.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "platform/xml_document.h"
#include "toolset/page_links.h"

namespace quorbind {

namespace {

constexpr char kBookmark = '#';
/// What a library and the server are known by.
constexpr std::array<std::string_view, 2> kListFiles{catalogue_names::kFile,
                                                     server_names::kSelectionFile};

/// Picks the names of the documents out of a book XML file, each once, in their order. Another
/// document has none.
class DocumentNames final : public XmlScanHandler {
 public:
  explicit DocumentNames(const Locale& locale) : names_(locale) {}

  [[nodiscard]] NameSet take() { return std::move(names_); }

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
    if (const auto name = nameBelow(text)) {
      names_.add(*name);
    }
  }

  /// Unknown before the root element.
  std::optional<bool> isBook_;
  bool isInName_ = false;
  std::string text_;
  NameSet names_;
};

/// Bytes that somebody else reads, who does not tell what a read raised.
class WatchedBytes final : public ByteReader {
 public:
  /// What a read raises is left in `error`.
  WatchedBytes(std::unique_ptr<ByteReader> bytes, std::optional<RunTimeError>& error)
      : bytes_(std::move(bytes)), error_(error) {}

  std::size_t read(char* buffer, std::size_t size) override {
    std::size_t count = 0;
    error_ = errorOf([&] { count = bytes_->read(buffer, size); });
    if (error_) {
      throw RunTimeError(*error_);
    }
    return count;
  }
  void rewind() override { bytes_->rewind(); }

 private:
  std::unique_ptr<ByteReader> bytes_;
  std::optional<RunTimeError>& error_;
};

/// Whether a file may be one of the library's own kind, which have to be whole at any moment, also
/// when the machine goes down. Of all files only these, and pages, are read.
bool mayBeBookFile(std::string_view path) {
  return book_names::mayBeFile(fileNameOf(path));
}

/// Brings documents from their folders into one target folder, as far as they can be had. Their
/// names are those below the folders; the folders end in `\`.
class DocumentCopy {
 public:
  /// `settled` holds the places that this or an earlier copy has seen to: their file was found, and
  /// so has been copied or can't be.
  DocumentCopy(FileSystem& files,
               CopySeries& copies,
               const Locale& locale,
               FolderListings& listings,
               PathSet& settled,
               std::string targetFolder)
      : files_(files),
        copies_(copies),
        locale_(locale),
        listings_(listings),
        settled_(settled),
        targetFolder_(std::move(targetFolder)) {}

  /// From now on what a page links to is brought only where nothing stands.
  void keepWhatStands() { keepsWhatStands_ = true; }

  /// Takes note of a file from `folder` that is in place already.
  void add(const std::string& folder, const std::string& name) {
    settled_.note(targetFolder_ + name);
    addPage(folder, name);
  }

  /// Copies the document `name` from the first of `folders` that has it.
  void copy(const std::string& name, const std::vector<std::string>& folders) {
    if (isLibrarysOwn(name)) {
      return;
    }
    for (const std::string& folder : folders) {
      const std::string source = folder + name;
      if (listings_.hasFile(source)) {
        const std::string target = targetFolder_ + name;
        settled_.note(target);
        if (bring(source, target)) {
          addPage(folder, name);
        }
        return;
      }
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
    if (book_names::isPage(name)) {
      pages_.push_back({folder, name});
    }
  }

  /// Answers whether it succeeded.
  bool bring(const std::string& source, const std::string& target) {
    return ignoringErrors([&] {
             makeFolderFor(target);
             copies_.copy(source, target);
           }) == 0;
  }

  void makeFolderFor(const std::string& target) {
    const std::string_view folder = folderOf(target);
    if (folder != madeFolder_) {
      makeFolders(files_, folder);
      madeFolder_ = folder;
    }
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
    if (isLibrarysOwn(name)) {
      return;
    }
    const std::string source = folder + name;
    const std::string target = targetFolder_ + name;
    if (listings_.hasFile(source) && !isKept(target) && settled_.add(target)) {
      bring(source, target);
    }
  }

  [[nodiscard]] bool isKept(const std::string& target) {
    return keepsWhatStands_ && listings_.hasFile(target);
  }

  /// Whether it would take the place of one of the files that a library, or the server, keeps its
  /// books in. In the folder of a book nothing of that name is theirs.
  [[nodiscard]] bool isLibrarysOwn(const std::string& name) {
    if (!server_names::isLibraryFile(name)) {
      return false;
    }
    const std::string folder(folderPartOf(targetFolder_ + name));
    return std::any_of(kListFiles.begin(), kListFiles.end(), [&](std::string_view list) {
      return files_.fileExists(folder + std::string(list));
    });
  }

  FileSystem& files_;
  CopySeries& copies_;
  const Locale& locale_;
  FolderListings& listings_;
  PathSet& settled_;
  std::string targetFolder_;
  bool keepsWhatStands_ = false;
  /// The last one that was made, or stood.
  std::string madeFolder_;
  std::vector<Page> pages_;
};

}  // namespace

ReferenceFileCopy::ReferenceFileCopy(FileSystem& files, XmlLibrary& xml, const Locale& locale)
    : files_(files),
      xml_(xml),
      locale_(locale),
      copies_(files.beginCopies()),
      listings_(files, locale),
      settled_(locale) {}

// For an owner that has not flushed; one that has, has been told.
ReferenceFileCopy::~ReferenceFileCopy() {
  ignoringErrors([this] { flush(); });
}

bool ReferenceFileCopy::mbCopyFiles(std::string_view destination,
                                    std::string_view source,
                                    std::int16_t /*reservedOverwrite*/,
                                    std::int16_t /*reservedDialog*/) {
  std::string from;
  const bool isNamed = ignoringErrors([&] { from = files_.absolutePath(source); }) == 0;
  if (!isNamed || !isThere(from)) {
    return false;
  }
  std::string to;
  bool isCopied = false;
  const bool isInPlace = ignoringErrors([&] {
                           to = targetFor(from, destination);
                           isCopied = copyItself(from, to);
                         }) == 0;
  if (isCopied) {
    copyWhatBelongsTo(from, to, wasMovedIntoBookFolder(source, destination));
  }
  return isInPlace;
}

void ReferenceFileCopy::copyLinkedFiles(std::string_view destination, std::string_view page) {
  ignoringErrors([&] {
    const std::string from = files_.absolutePath(page);
    const std::string to = targetFor(from, destination);
    if (files_.sameFile(from, to)) {
      return;
    }
    DocumentCopy documents(
        files_, *copies_, locale_, listings_, settled_, std::string(folderPartOf(to)));
    documents.keepWhatStands();
    documents.add(std::string(folderPartOf(from)), std::string(fileNameOf(from)));
    documents.copyLinkedFiles();
  });
}

void ReferenceFileCopy::flush() {
  copies_->flush();
}

/// A book file may have been made a moment ago; documents stood before.
bool ReferenceFileCopy::isThere(const std::string& source) {
  return mayBeBookFile(source) ? files_.fileExists(source) : listings_.hasFile(source);
}

bool ReferenceFileCopy::copyItself(const std::string& source, const std::string& target) {
  makeFolders(files_, folderOf(target));
  if (!mayBeBookFile(source)) {
    return copies_->copy(source, target);
  }
  const bool isInPlace = files_.sameFile(source, target);
  if (!isInPlace) {
    files_.copyFile(source, target);
  }
  return !isInPlace;
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

// The name tells it. The driver moves a book file that it has made into the book's folder beside
// the table of contents, where there is one; the folder above is that of the table then. One that
// stays beside the table comes with a doubled separator, because working folders end in one, and
// the folder above has nothing to do with it.
bool ReferenceFileCopy::wasMovedIntoBookFolder(std::string_view source,
                                               std::string_view destination) const {
  const std::string folder(folderOf(withBackslashes(source)));
  const std::string bookFolder = files_.absolutePath(destination);
  return !folder.ends_with('\\') &&
         locale_.upperCase(fileNameOf(folder)) == locale_.upperCase(fileNameOf(bookFolder));
}

void ReferenceFileCopy::copyWhatBelongsTo(const std::string& source,
                                          const std::string& target,
                                          bool hasTableAbove) {
  const std::string folder(folderPartOf(source));
  const std::string fileName(fileNameOf(source));
  DocumentCopy documents(
      files_, *copies_, locale_, listings_, settled_, std::string(folderPartOf(target)));
  documents.add(folder, fileName);
  if (mayBeBookFile(source)) {
    std::vector<std::string> folders{folder};
    if (hasTableAbove) {
      folders.emplace_back(folderPartOf(folderOf(folder)));
    }
    const NameSet names = documentsOf(source);
    for (std::size_t number = 0; number < names.size(); ++number) {
      documents.copy(std::string(names.at(number)), folders);
    }
  }
  documents.copyLinkedFiles();
}

/// None where the file is no XML. Raises what reading it raises.
NameSet ReferenceFileCopy::documentsOf(const std::string& source) const {
  DocumentNames named(locale_);
  std::optional<RunTimeError> unreadable;
  const XmlLoadResult scanned =
      xml_.scan(std::make_unique<WatchedBytes>(files_.open(source), unreadable), named);
  if (unreadable) {
    throw RunTimeError(*unreadable);
  }
  return scanned ? named.take() : NameSet(locale_);
}

}  // namespace quorbind
