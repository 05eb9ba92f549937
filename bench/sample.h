#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "bench/toc_texts.h"
#include "tests/support/world.h"

namespace quorbind::bench {

/// Whether the documents stand where the check of the table of contents looks for them.
enum class Documents { kMissing, kStanding };

/// What one addition starts from, on a disk of its own: a table of contents as it reaches the
/// component, and a library with one book in it. Where the documents are missing, there are also a
/// page and a book file with the same headings, and pages that are hard to read.
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

  /// The system's path of a file on the disk, named with `/`.
  [[nodiscard]] std::string systemPath(std::string_view name) const;

  /// Puts the library back to one book.
  void resetLibrary();

  testing::World world;

 private:
  void write(const char* name, void (*text)(std::ostream&, std::size_t)) const;
  void writeOtherKinds();
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
inline constexpr const char* kBookTocFile = "in/book.xml";
inline constexpr const char* kBookToc = R"(C:\in\book.xml)";
inline constexpr const char* kGeneratedFile = "in/Book_BEN.xml";
inline constexpr const char* kCatalogueFile = "library/Quor_TOC.xml";
inline constexpr const char* kCatalogue = R"(C:\library\Quor_TOC.xml)";

inline constexpr const char* kBookName = "Bench";
inline constexpr const char* kBookAcro = "BEN";
inline constexpr const char* kProduct = "Prod";

/// Samples by size and documents; each is made when it is first asked for and stays until the end.
class Samples {
 public:
  Sample& at(std::size_t entries, Documents documents);

 private:
  std::map<std::pair<std::size_t, Documents>, std::unique_ptr<Sample>> samples_;
};

// What the component does with a sample. Each answers whether it was done, without a message to the
// user.

/// Checks the text.
bool checkText(Sample& sample);
/// Checks a page and exports it; its documents would stand beside it.
bool exportPage(Sample& sample, const std::string& page, std::size_t headings);
bool checkBookFile(Sample& sample);
/// Writes the book file of the text.
bool generateBook(Sample& sample);
/// Adds the book to the library, as a host does.
bool addBook(Sample& sample);

}  // namespace quorbind::bench
