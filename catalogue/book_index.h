#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/xml_document.h"

namespace quorbind {

/// Finds the books of a catalogue by name and acronym together, from one walk through it: a query
/// for each book of another catalogue would walk through all of this one every time.
class BookIndex {
 public:
  /// The document must not change afterwards, and outlives the index.
  explicit BookIndex(const XmlDocument& catalogue);

  /// The book that `Quor_Master/Quor_Books/Book[Book_Name="NAME" and Book_Acro="ACRONYM"]` would
  /// find first; no node when there is none. A value that holds a double quotation mark makes the
  /// query invalid: raises kInvalidQueryError.
  [[nodiscard]] XmlNode find(std::string_view name, std::string_view acronym) const;

 private:
  void add(const XmlNode& book);

  std::unordered_map<std::string, XmlNode> books_;
};

}  // namespace quorbind
