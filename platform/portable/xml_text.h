#pragma once

// Text between libxml2, which has it in zero-terminated unsigned bytes, and the rest of the house.

#include <libxml/tree.h>

#include <string>
#include <string_view>

namespace quorbind {

/// `text` as libxml2 takes it; valid as long as `text`.
const xmlChar* xmlTextOf(const std::string& text);
/// The same without a zero at its end.
const xmlChar* unendedXmlTextOf(std::string_view text);

/// libxml2's text; empty for a null pointer.
std::string_view viewOf(const xmlChar* text);
std::string_view viewOf(const xmlChar* begin, const xmlChar* end);

/// Whether libxml2's text, which is not a null pointer, is `expected`.
bool isSameText(const xmlChar* text, std::string_view expected);

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
