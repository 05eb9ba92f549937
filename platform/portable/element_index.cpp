#include "platform/portable/element_index.h"

#include <libxml/dict.h>

#include "platform/portable/xml_text.h"

namespace quorbind {

void ElementIndex::add(xmlNode& element) {
  if (element.ns == nullptr || element.ns->prefix == nullptr) {
    elements_[element.name].push_back(&element);
  }
}

const std::vector<xmlNode*>& ElementIndex::named(std::string_view name,
                                                 const xmlDoc& document) const {
  static const std::vector<xmlNode*> none;
  const auto found = elements_.find(
      xmlDictExists(document.dict, unendedXmlTextOf(name), static_cast<int>(name.size())));
  return found == elements_.end() ? none : found->second;
}

}  // namespace quorbind
