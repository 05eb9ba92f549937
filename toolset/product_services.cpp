#include "toolset/product_services.h"

#include <utility>

#include "catalogue/names.h"
#include "platform/file_system.h"
#include "toolset/loaded_document.h"

namespace quorbind {

ReferenceProductServices::ReferenceProductServices(FileSystem& files,
                                                   XmlLibrary& xml,
                                                   ReferenceLibraryServices library)
    : files_(files), xml_(xml), library_(std::move(library)) {}

std::vector<std::string> ReferenceProductServices::GetAvailableProducts() {
  const std::string docsFolder = library_.docsFolder();
  const std::string selectionFile = docsFolder + std::string(server_names::kSelectionFile);
  return files_.fileExists(selectionFile) ? productsIn(selectionFile)
                                          : foldersWithCatalogue(docsFolder);
}

std::vector<std::string> ReferenceProductServices::productsIn(std::string_view selectionFile) {
  const auto selection = loadDocument(xml_, selectionFile);
  std::vector<std::string> products;
  for (const XmlNode& name : selection->elementsByName(selection_names::kName)) {
    products.push_back(name.text());
  }
  return products;
}

std::vector<std::string> ReferenceProductServices::foldersWithCatalogue(
    const std::string& docsFolder) {
  std::vector<std::string> products;
  for (std::string& name : files_.namesIn(docsFolder)) {
    if (files_.fileExists((docsFolder + name).append("\\").append(catalogue_names::kFile))) {
      products.push_back(std::move(name));
    }
  }
  return products;
}

}  // namespace quorbind
