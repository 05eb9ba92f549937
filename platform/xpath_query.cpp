#include "platform/xpath_query.h"

#include "platform/runtime_error.h"
#include "platform/xml_writer.h"

namespace quorbind {

void requireFitsQuery(std::string_view value, char quote) {
  if (value.find(quote) != std::string_view::npos) {
    throw RunTimeError(kInvalidQueryError,
                       "The value " + std::string(value) +
                           " can't stand in a query between the quote characters it contains.");
  }
  if (!isXmlCharactersOnly(value)) {
    throw RunTimeError(kInvalidQueryError,
                       "A query can't look for a value with a character that XML can't hold.");
  }
}

std::string quotedForQuery(std::string_view value, char quote) {
  requireFitsQuery(value, quote);
  return quote + std::string(value) + quote;
}

std::string elementsWith(std::string_view path,
                         std::string_view child,
                         std::string_view value,
                         char quote) {
  return std::string(path)
      .append("[")
      .append(child)
      .append("=")
      .append(quotedForQuery(value, quote))
      .append("]");
}

std::string childrenOf(std::string_view path, std::string_view child) {
  return std::string(path).append("/").append(child);
}

}  // namespace quorbind
