#pragma once

#include <cstddef>
#include <string>

#include "tests/support/world.h"

namespace quorbind::bench {

/// Whether the documents stand where the check of the table of contents looks for them.
enum class Documents { kMissing, kStanding };

/// What one addition starts from, on a disk of its own: a table of contents as it reaches the
/// component, with one document for each entry, and a library with one book in it.
///
/// The copy to the library finds no document, whatever the check found: the check looks from the
/// root of the drive, the copy beside the table. So what is measured is looking documents up, and
/// not copying them.
class Sample {
 public:
  Sample(std::size_t entries, Documents documents);

  [[nodiscard]] std::size_t entries() const { return entries_; }
  [[nodiscard]] std::size_t headings() const { return entries_ - 1; }
  [[nodiscard]] Documents documents() const { return documents_; }
  /// The document of the entry that is the `index`-th from 0, without its folder.
  [[nodiscard]] static std::string documentOf(std::size_t index);
  /// The size of the table of contents in bytes.
  [[nodiscard]] std::size_t tocSize() const;

  /// The system's path of a file on the disk, named with `/`.
  [[nodiscard]] std::string systemPath(std::string_view name) const;

  /// Writes the same headings as an HTML page.
  void writePage() const;
  /// Writes as many headings that read alike from their last start mark on, as an HTML page.
  void writePageOfLikeEnds() const;
  /// Writes a single heading with as many tags in its title that read alike from their last bracket
  /// on, as an HTML page.
  void writePageOfTags() const;
  /// Puts the library back to one book.
  void resetLibrary() const;

  testing::World world;

 private:
  void writeToc() const;
  void writeDocuments() const;

  std::size_t entries_;
  Documents documents_;
};

// Names on the disk, as the system has them, and as the component is told them.
inline constexpr const char* kTocFile = "in/toc.txt";
inline constexpr const char* kToc = R"(C:\in\toc.txt)";
inline constexpr const char* kPageFile = "in/toc.htm";
inline constexpr const char* kPage = R"(C:\in\toc.htm)";
inline constexpr const char* kPageOfLikeEndsFile = "in/ends.htm";
inline constexpr const char* kPageOfLikeEnds = R"(C:\in\ends.htm)";
inline constexpr const char* kPageOfTagsFile = "in/tags.htm";
inline constexpr const char* kPageOfTags = R"(C:\in\tags.htm)";
inline constexpr const char* kBookFolder = "Manual";
inline constexpr const char* kGeneratedFile = "in/Book_BEN.xml";
inline constexpr const char* kCatalogueFile = "library/Quor_TOC.xml";
inline constexpr const char* kCatalogue = R"(C:\library\Quor_TOC.xml)";

inline constexpr const char* kBookName = "Bench";
inline constexpr const char* kBookAcro = "BEN";
inline constexpr const char* kProduct = "Prod";

/// Adds the book to the library, as a host does. Answers whether the run came to its end without a
/// message to the user.
bool addBook(Sample& sample);

}  // namespace quorbind::bench
