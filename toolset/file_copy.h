#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/folder_listings.h"
#include "platform/path_set.h"
#include "platform/toolset.h"

namespace quorbind {

class CopySeries;
class FileSystem;
class Locale;
class XmlLibrary;

/// Copies a file, and with a book XML file or an HTML page what belongs to it.
///
/// The target is the folder `destination`, made with all folders above it, or the folder that
/// `destination` lies in when its last part is the source's own file name. A file that stands there
/// is overwritten. False, and nothing made, when there is no source; False as well when it could
/// not be brought into place.
///
/// To a book XML file, which has `.xml` in its name and is no page, belong the documents that its
/// headings name, up to a `#`: those beside it, and where it was moved from its table of contents
/// into the book's folder, else those beside the table, one folder higher. It was moved when its
/// folder has the name of the folder `destination` and `source` names it without a doubled
/// separator in front of the file, as the driver does. To a page, be it one of these documents or
/// the source itself, belong the local files that it links to by `src` and `href` and that lie
/// below its own folder; pages among these are copied and not read. Everything keeps its place
/// below the target folder. `copyLinkedFiles` brings the same for a page in place, but where
/// something stands already. What is missing or can't be copied is passed over, and changes nothing
/// in the result. A source in place that can't be read for the names of its documents raises what
/// the read raised: nobody knows what is missing then.
///
/// An object serves one book. For as long as it lives it looks at a folder once, and brings a file
/// that several pages link to once, also when the pages are handed over one by one. An XML file
/// that is handed over is flushed at once; documents are flushed together by `flush`, or when the
/// object of an owner goes that does not call it, and then nobody learns of a failure.
///
/// Names in documents are confined: one with a drive, a scheme, a root or a device in it, or that
/// leads out by `..`, is never looked at. In a folder that holds a library's catalogue or the
/// server's list, no document takes the name of one of their files (server_names::isLibraryFile).
class ReferenceFileCopy final : public FileCopy {
 public:
  /// Kept by reference.
  ReferenceFileCopy(FileSystem& files, XmlLibrary& xml, const Locale& locale);
  ~ReferenceFileCopy() override;
  ReferenceFileCopy(const ReferenceFileCopy&) = delete;
  ReferenceFileCopy& operator=(const ReferenceFileCopy&) = delete;

  bool mbCopyFiles(std::string_view destination,
                   std::string_view source,
                   std::int16_t reservedOverwrite,
                   std::int16_t reservedDialog) override;
  void copyLinkedFiles(std::string_view destination, std::string_view page) override;
  void flush() override;

 private:
  [[nodiscard]] bool isThere(const std::string& source);
  /// Answers false where both are one file.
  bool copyItself(const std::string& source, const std::string& target);
  [[nodiscard]] std::string targetFor(std::string_view source, std::string_view destination) const;
  [[nodiscard]] bool wasMovedIntoBookFolder(std::string_view source,
                                            std::string_view destination) const;
  void copyWhatBelongsTo(const std::string& source, const std::string& target, bool hasTableAbove);
  [[nodiscard]] NameSet documentsOf(const std::string& source) const;

  FileSystem& files_;
  XmlLibrary& xml_;
  const Locale& locale_;
  std::unique_ptr<CopySeries> copies_;
  FolderListings listings_;
  PathSet settled_;
};

}  // namespace quorbind
