#pragma once

#include <string>

#include "workflow/forms/module.h"

namespace quorbind {

/// Appends the current book's entry to the catalogue, as its last one. `category` is a list
/// separated by `;`, else by `,`, else one category that is taken with its blanks.
void mbAddBookTocForBook(Module& module,
                         const std::string& cataloguePath,
                         const std::string& productName,
                         const std::string& bookFolder,
                         const std::string& category);

}  // namespace quorbind
