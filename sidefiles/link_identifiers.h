#pragma once

// The link identifiers of the book that is being added. The HTML reader calls GenerateBookLinkID
// behind its export, the driver AddLinkIDInfo behind the copy of a book file. The product is the
// current one of the process in both.

#include <string>
#include <string_view>

#include "component/process_state.h"
#include "platform/platform.h"

namespace quorbind {

/// Joins the acronym and the names of the headings in the full link to a place in an HTML book.
inline constexpr std::string_view kLinkJoint = "@QUOR@";

/// Records the identifiers that the export `exportPath` of an HTML page carries. The full link of
/// each is the acronym and the headings down to its own, blank ones left out. One that any product
/// has is not recorded; the user is told, and the next follows.
///
/// The acronym is the current one of the process. The page is validated before the run asks for
/// name and acronym, so it is the book's only when the host has called mbGetFormInput before.
///
/// A line with fewer pieces than an entry has, a level that is no number or jumps by more than one,
/// and a file that can't be read end the walk with a report; what was recorded stays.
void GenerateBookLinkID(const Platform& platform,
                        const ProcessState& state,
                        const std::string& bookAcronym,
                        const std::string& exportPath);

/// The file of identifiers of the product that a book file is taken from, whether it is there or
/// not. `serverFolder` holds the products' folders and ends with a separator: a host's
/// `strServerPath`. `bookFolder` is where the book file lies; the part behind its first "Docs"
/// names the product.
std::string linkFileBesideBook(const std::string& serverFolder, const std::string& bookFolder);

/// Brings the identifiers of another product, from which a book file is added, into those of the
/// current one. The folders are as for linkFileBesideBook; `bookFolder` is the driver's working
/// folder. Where the other product has no file nothing happens. Errors are told.
void AddLinkIDInfo(const Platform& platform,
                   const ProcessState& state,
                   const std::string& serverFolder,
                   const std::string& bookFolder);

}  // namespace quorbind
