#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/xml_document.h"

namespace quorbind {

/// Tells on which lines the elements of one kind stand in a file, which a document in memory does
/// not know. The file is looked through when that is asked for first.
class EntryLines {
 public:
  /// `elements` is the row of names that leads from the root to such an element, with `/` between
  /// them. The library is kept by reference.
  EntryLines(XmlLibrary& xml, std::string file, std::string elements)
      : xml_(xml), file_(std::move(file)), elements_(std::move(elements)) {}

  /// Of the `index`-th element, from 0; 0 where it can't be told.
  [[nodiscard]] std::size_t lineOf(std::size_t index);

 private:
  XmlLibrary& xml_;
  const std::string file_;
  const std::string elements_;
  std::optional<std::vector<std::size_t>> lines_;
};

}  // namespace quorbind
