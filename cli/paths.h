#pragma once

// A shell names files its own way; the component's world names them in full, with `\`, and without
// a drive where the current one is meant.

#include <string>
#include <string_view>

namespace quorbind {

/// The component's name for a file of this machine. Links in the file's folder are followed, the
/// file itself is not looked at.
std::string componentFile(const std::string& native);
/// The same for a folder, without a `\` at its end.
std::string componentFolder(const std::string& native);
/// This machine's name for a file of the component.
std::string nativeName(std::string_view component);

/// Whether a relative name that comes out of a document, with `\`, leads to a place below the
/// folder that it starts at.
bool staysBelow(std::string_view name);

/// The files of one library of a documentation server, as the component names them.
struct LibraryPaths {
  /// `server` is a folder of this machine.
  LibraryPaths(const std::string& server, const std::string& library);

  std::string serverRoot;  ///< with a `\` at its end
  std::string docsFolder;  ///< likewise
  std::string location;    ///< the library's folder below the server's
  std::string folder;      ///< the library's folder in full
  std::string catalogue;
  std::string bookCategories;
  std::string searchKeywords;
  std::string linkIdentifiers;
  std::string selection;  ///< the server's list of libraries
  std::string defaultCategories;
};

}  // namespace quorbind
