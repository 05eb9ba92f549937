#pragma once

#include <libxml/tree.h>

#include <string_view>
#include <unordered_map>
#include <vector>

namespace quorbind {

/// The elements of a document as it was read, by their names: those whose names have no prefix,
/// each name's in document order.
///
/// The elements of a large document do not fit into the processor's cache. Looking at those of one
/// name alone takes a fraction of the time of going from each element to the next.
class ElementIndex {
 public:
  /// Elements come in document order, their names out of the dictionary of their document.
  void add(xmlNode& element);

  [[nodiscard]] const std::vector<xmlNode*>& named(std::string_view name,
                                                   const xmlDoc& document) const;

 private:
  std::unordered_map<const xmlChar*, std::vector<xmlNode*>> elements_;
};

}  // namespace quorbind
