#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/xml_document.h"

namespace quorbind {

/// A book as a catalogue lists it. Every text is written as it stands here.
struct CatalogueEntry {
  std::string name;
  std::string acronym;
  std::string product;
  std::string folder;
  std::string file;
  /// What kind of file it is; nothing for a book XML file.
  std::optional<std::string> fileType;
  std::vector<std::string> categories;
};

/// Puts the entry behind the last one of the catalogue, its link empty. A catalogue without a list
/// of books stays as it is; a document without a root raises 91.
void appendEntry(XmlDocument& catalogue, const CatalogueEntry& entry);

}  // namespace quorbind
