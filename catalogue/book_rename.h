#pragma once

#include <string>

#include "workflow/forms/module.h"

namespace quorbind {

// Renaming a book to what the boxes of the book dialog hold. The dialog is not shown here: a host
// has had it filled before.

/// Looks the first book of that name up, in the stored form of the name, and renames it. Without
/// such a book, or when it can't be looked up, nothing happens.
void strBookAcroInfo(Module& module,
                     const std::string& vstrtocpath,
                     const std::string& vstrBookName);

/// Puts the boxes' name, in its stored form, and acronym into the book XML file of the book that is
/// called `vstrBookName` and `vstrBookAcro` there.
void UpdateBookNameAcro(Module& module,
                        const std::string& vstrBookPath,
                        const std::string& vstrBookName,
                        const std::string& vstrBookAcro);

}  // namespace quorbind
