#include "platform/portable/xml_text.h"

#include <algorithm>

#include "platform/text.h"
#include "platform/text_encoding.h"

namespace quorbind {

const xmlChar* xmlTextOf(const std::string& text) {
  return reinterpret_cast<const xmlChar*>(text.c_str());
}

const xmlChar* unendedXmlTextOf(std::string_view text) {
  return reinterpret_cast<const xmlChar*>(text.data());
}

std::string qualifiedName(const xmlChar* prefix, const xmlChar* local) {
  if (prefix == nullptr) {
    return std::string(viewOf(local));
  }
  return std::string(viewOf(prefix)).append(":").append(viewOf(local));
}

bool isNamed(const xmlChar* prefix, const xmlChar* local, std::string_view name) {
  if (prefix == nullptr) {
    return isSameText(local, name);
  }
  const std::string_view localName = viewOf(local);
  const std::string_view prefixName = viewOf(prefix);
  return name.size() == prefixName.size() + 1 + localName.size() && name.starts_with(prefixName) &&
         name[prefixName.size()] == ':' && name.ends_with(localName);
}

bool isBlank(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
  });
}

std::string oneLine(const char* message) {
  return std::string(trimBlanks(replaceAll(toValidUtf8(message), "\n", " ")));
}

}  // namespace quorbind
