#pragma once

// Tables of contents of any size, all with the same headings: four levels, a bookmark in every
// tenth entry, a character outside ASCII in every name, a document of its own for each entry.

#include <array>
#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

#include "tests/support/excel_sheets.h"

namespace quorbind::bench {

/// The folder of the documents.
inline constexpr const char* kBookFolder = "Manual";
/// In bytes, as long as short pages are.
inline constexpr std::size_t kDocumentSize = 2'000;
/// What every page links to.
inline constexpr std::array<const char*, 2> kFilesOfPages{"book.css", "pump.png"};
/// A page of that size, with its links.
std::string pageContent();
/// How many headings a book of a workbook has, and one of a workbook with very many books.
inline constexpr std::size_t kRowsOfABook = 1'000;
inline constexpr std::size_t kRowsOfASmallBook = 2;

/// The document of the entry that is the `index`-th from 0, without its folder.
std::string documentOf(std::size_t index);

/// A text: every line carries the quotes that the check reads and the marks that the generator
/// reads. The first entry is the book itself.
void writeTextToc(std::ostream& out, std::size_t entries);

/// A page with all of these headings but the first.
void writePage(std::ostream& out, std::size_t entries);
/// A page with as many headings that read alike from their last start mark on.
void writePageOfLikeEnds(std::ostream& out, std::size_t entries);
/// A page with a single heading and as many tags in its title that read alike from their last
/// bracket on.
void writePageOfTags(std::ostream& out, std::size_t entries);

/// The rows of a workbook's headings, and of its list of books.
std::vector<testing::HeadingRow> headingRows(std::size_t rows,
                                             std::size_t rowsOfABook = kRowsOfABook);
std::vector<testing::BookRow> bookRows(std::size_t rows, std::size_t rowsOfABook = kRowsOfABook);
/// The export of the first of these books, in UTF-16.
std::string workbookExport(std::size_t rowsOfABook);
/// The document of a row: in the first of a book with the book's folder.
std::string documentOfRow(std::size_t row, std::size_t rowsOfABook = kRowsOfABook);

}  // namespace quorbind::bench
