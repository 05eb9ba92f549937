#pragma once

// What may go into a library's side files, held against the rules before anything is written, so
// that a list is taken as a whole or not at all.

#include <string>
#include <string_view>
#include <vector>

#include "cli/paths.h"
#include "cli/wiring.h"

namespace quorbind {

/// Tells the user of every word that breaks a rule for keywords or that no file can hold; with one
/// the subcommand ends.
void requireKeywords(Wiring& wiring, const std::vector<std::string>& words);

/// The side file at `path`, where there is one, loads and has the element that `query` finds. Fails
/// as loadRequired does, and with the missing element.
void requireSideFile(const Platform& platform, const std::string& path, std::string_view query);

/// The server's default categories can be read. Making a categories file from defaults that don't
/// load leaves one without any category. Fails as loadRequired does.
void requireDefaultCategories(const Platform& platform, const LibraryPaths& library);

/// Whether the library's categories file may be made: there is none yet, as making one drops all
/// that is filed, and the defaults load. The user is told why not.
bool mayMakeCategories(Wiring& wiring, const LibraryPaths& library);

/// Categories are looked up between apostrophes. A CommandFailure that tells of every name that
/// holds one, or that no file can hold.
void requireCategoryNames(const std::vector<std::string>& names);

/// The same for the categories of an addition, given as one text. A list of several must not hold
/// what the component leaves out of it without a word.
void requireCategoryList(const std::string& list);

}  // namespace quorbind
