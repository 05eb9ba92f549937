#include "cli/link_places.h"

#include "cli/text_list.h"
#include "platform/text.h"

namespace quorbind {

std::string linkKeyOf(const ListedLink& link) {
  return std::string(trimBlanks(link.identifier));
}

std::string textOf(const std::vector<LinkPlace>& places) {
  std::vector<std::string> texts;
  texts.reserve(places.size());
  for (const LinkPlace& place : places) {
    texts.push_back(place.library + " (" + place.acronym + ")");
  }
  return joined(texts, ", ");
}

}  // namespace quorbind
