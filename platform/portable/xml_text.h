#pragma once

// Text between libxml2, which has it in zero-terminated unsigned bytes, and the rest of the house.

#include <libxml/tree.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace quorbind {

/// `text` as libxml2 takes it; valid as long as `text`.
const xmlChar* xmlTextOf(const std::string& text);
/// The same without a zero at its end.
const xmlChar* unendedXmlTextOf(std::string_view text);

// Every tag and every attribute goes through these, so they are inline.

/// libxml2's text; empty for a null pointer.
inline std::string_view viewOf(const xmlChar* text) {
  return text == nullptr ? std::string_view()
                         : std::string_view(reinterpret_cast<const char*>(text));
}
inline std::string_view viewOf(const xmlChar* begin, const xmlChar* end) {
  return {reinterpret_cast<const char*>(begin), static_cast<std::size_t>(end - begin)};
}

/// Whether libxml2's text, which is not a null pointer, is `expected`.
inline bool isSameText(const xmlChar* text, std::string_view expected) {
  for (const char c : expected) {
    if (c == '\0' || *text != static_cast<xmlChar>(c)) {
      return false;
    }
    ++text;
  }
  return *text == '\0';
}

/// `prefix:local`, or `local` alone where there is no prefix.
std::string qualifiedName(const xmlChar* prefix, const xmlChar* local);
/// Whether that is `name`.
bool isNamed(const xmlChar* prefix, const xmlChar* local, std::string_view name);

/// The same for an element or attribute, xmlNode or xmlAttr.
template <typename Named>
std::string qualifiedNameOf(const Named& named) {
  return qualifiedName(named.ns == nullptr ? nullptr : named.ns->prefix, named.name);
}
template <typename Named>
bool hasName(const Named& named, std::string_view name) {
  return isNamed(named.ns == nullptr ? nullptr : named.ns->prefix, named.name, name);
}

/// Whether `text` is only white space as XML knows it, or empty.
bool isBlank(std::string_view text);

/// A message of libxml2, which may be several lines, as one.
std::string oneLine(const char* message);

}  // namespace quorbind
