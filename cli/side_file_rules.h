#pragma once

// What may go into a library's side files, held against the rules before anything is written, so
// that a list is taken as a whole or not at all.

#include <string>
#include <vector>

#include "cli/paths.h"
#include "cli/wiring.h"

namespace quorbind {

/// Tells the user of every word that breaks a rule for keywords; with one the subcommand ends.
void requireKeywords(Wiring& wiring, const std::vector<std::string>& words);

/// The server's default categories can be read. Making a categories file from defaults that don't
/// load leaves one without any category. Fails as loadRequired does.
void requireDefaultCategories(const Platform& platform, const LibraryPaths& library);

/// Whether the library's categories file may be made: there is none yet, as making one drops all
/// that is filed, and the defaults load. The user is told why not.
bool mayMakeCategories(Wiring& wiring, const LibraryPaths& library);

/// Categories are looked up between apostrophes. A CommandFailure for a name that holds one.
void requireCategoryNames(const std::vector<std::string>& names);

}  // namespace quorbind
