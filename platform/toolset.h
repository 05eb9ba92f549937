#pragma once

// The in-house components of the library tool set: made one by one, called by member name. Their
// insides are outside this component; toolset/ holds reference implementations. Member names are
// the published ones. Any member may raise a run-time error of its own component.

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quorbind {

class LibraryServices {
 public:
  virtual ~LibraryServices() = default;
  /// The documentation server's root folder, ending in `\`.
  virtual std::string GetQuorServer() = 0;
};

class XmlTextRules {
 public:
  virtual ~XmlTextRules() = default;
  /// The form in which a name is stored in XML and looked up: no `<`, `>`, `"` or `'` is left in
  /// it.
  virtual std::string mstrCheckSpecialCharecters(std::string_view text) = 0;
  virtual std::string mstrReplaceSpecialCharecters(std::string_view text) = 0;
  virtual std::string ReplaceSpecCharToXMLChar(std::string_view text) = 0;
  /// Whether `text` is acceptable in the field `label`. When it is not, the user has been told.
  virtual bool CheckReplacedXMLCharacters(std::string_view text, std::string_view label) = 0;
};

class LinkFileServices {
 public:
  virtual ~LinkFileServices() = default;
  /// Creates (or replaces) `path`: a comment with `description` and the empty element `root`.
  virtual void GenerateXMLHeader(std::string_view path,
                                 std::string_view description,
                                 std::string_view root) = 0;
  /// Appends to `target` every identifier of `source` that it does not have.
  virtual void MergeLinkIDFiles(std::string_view target, std::string_view source) = 0;
  /// The folder of the book with that acronym.
  virtual std::string GetFolderName(std::string_view acronym, std::string_view product) = 0;
};

class ProductServices {
 public:
  virtual ~ProductServices() = default;
  virtual std::vector<std::string> GetAvailableProducts() = 0;
};

class FileCopy {
 public:
  virtual ~FileCopy() = default;
  /// Copies the file `source` to `destination` (a folder, or a file of the same name), and for a
  /// book XML file the documents that it names. True exactly when the file itself is in place. The
  /// two integers are reserved.
  virtual bool mbCopyFiles(std::string_view destination,
                           std::string_view source,
                           std::int16_t reservedOverwrite,
                           std::int16_t reservedDialog) = 0;
  /// Brings what the page `page` links to into the folder `destination`, as mbCopyFiles does with a
  /// page, but neither the page itself nor anything in the place of a file that stands there. For a
  /// page that needs no copy; another file brings nothing. No published member; a component without
  /// it brings nothing.
  virtual void copyLinkedFiles(std::string_view destination, std::string_view page) = 0;
  /// Ends a copy of any number of files: what was copied through this object outlasts the machine.
  /// Raises 61 or 57. No published member; a component without it flushes in its own way.
  virtual void flush() = 0;
};

/// Makes the components. A component that can't be made raises 429.
class Toolset {
 public:
  virtual ~Toolset() = default;
  virtual std::unique_ptr<LibraryServices> createLibraryServices() = 0;
  virtual std::unique_ptr<XmlTextRules> createXmlTextRules() = 0;
  virtual std::unique_ptr<LinkFileServices> createLinkFileServices() = 0;
  virtual std::unique_ptr<ProductServices> createProductServices() = 0;
  virtual std::unique_ptr<FileCopy> createFileCopy() = 0;
};

}  // namespace quorbind
