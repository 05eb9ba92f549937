#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

#include "platform/workbooks/zip_archive.h"
#include "platform/xml_document.h"

namespace quorbind {

/// A part that another one names.
struct XlsxRelation {
  /// The last part of its type's name: `worksheet`, `styles`...
  std::string kind;
  /// The part's name; empty when it lies outside of the file.
  std::string part;
};

/// By their ids.
using XlsxRelations = std::map<std::string, XlsxRelation, std::less<>>;

/// The XML parts of a packed workbook and what they name each other.
class XlsxPackage {
 public:
  /// Both are kept by reference.
  XlsxPackage(ZipArchive& archive, XmlLibrary& xml) : archive_(archive), xml_(xml) {}

  /// Walks through a part. Throws WorkbookRefusal when it is not there or does not parse.
  void scan(std::string_view part, XmlScanHandler& handler);

  /// What `part` names; of the file as a whole when that is empty. A part without a list of them
  /// names none.
  [[nodiscard]] XlsxRelations relationsOf(std::string_view part);

 private:
  ZipArchive& archive_;
  XmlLibrary& xml_;
};

/// The name of an element without its prefix.
inline std::string_view localNameOf(std::string_view name) {
  return name.substr(name.rfind(':') + 1);
}

}  // namespace quorbind
