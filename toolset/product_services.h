#pragma once

#include <string>
#include <vector>

#include "platform/toolset.h"
#include "toolset/library_services.h"

namespace quorbind {

class FileSystem;
class XmlLibrary;

/// Lists the server's libraries.
class ReferenceProductServices final : public ProductServices {
 public:
  /// The ports are kept by reference.
  ReferenceProductServices(FileSystem& files, XmlLibrary& xml, ReferenceLibraryServices library);

  /// The names in the server's list of libraries, in its order. On a server without that file, the
  /// folders that hold a master catalogue, sorted by their bytes. Raises kServerNotConfiguredError,
  /// kDocumentNotLoadedError, or what reading the folder raises.
  std::vector<std::string> GetAvailableProducts() override;

 private:
  std::vector<std::string> productsIn(std::string_view selectionFile);
  std::vector<std::string> foldersWithCatalogue(const std::string& docsFolder);

  FileSystem& files_;
  XmlLibrary& xml_;
  ReferenceLibraryServices library_;
};

}  // namespace quorbind
