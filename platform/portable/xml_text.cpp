#include "platform/portable/xml_text.h"

#include "platform/text.h"
#include "platform/text_encoding.h"

namespace quorbind {

namespace {

const char* charsOf(const xmlChar* text) {
  return reinterpret_cast<const char*>(text);
}

}  // namespace

const xmlChar* xmlTextOf(const std::string& text) {
  return reinterpret_cast<const xmlChar*>(text.c_str());
}

std::string_view viewOf(const xmlChar* text) {
  return text == nullptr ? std::string_view() : std::string_view(charsOf(text));
}

std::string_view viewOf(const xmlChar* begin, const xmlChar* end) {
  return {charsOf(begin), static_cast<std::size_t>(end - begin)};
}

std::string qualifiedName(const xmlChar* prefix, const xmlChar* local) {
  if (prefix == nullptr) {
    return std::string(viewOf(local));
  }
  return std::string(viewOf(prefix)).append(":").append(viewOf(local));
}

bool isNamed(const xmlChar* prefix, const xmlChar* local, std::string_view name) {
  const std::string_view localName = viewOf(local);
  if (prefix == nullptr) {
    return name == localName;
  }
  const std::string_view prefixName = viewOf(prefix);
  return name.size() == prefixName.size() + 1 + localName.size() && name.starts_with(prefixName) &&
         name[prefixName.size()] == ':' && name.ends_with(localName);
}

bool isBlank(std::string_view text) {
  return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

std::string oneLine(const char* message) {
  return std::string(trimBlanks(replaceAll(toValidUtf8(message), "\n", " ")));
}

}  // namespace quorbind
