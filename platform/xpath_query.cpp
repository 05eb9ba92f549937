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
  if (xmlCharactersOnly(value) != value) {
    throw RunTimeError(kInvalidQueryError,
                       "A query can't look for a value with a character that XML can't hold.");
  }
}

std::string quotedForQuery(std::string_view value, char quote) {
  requireFitsQuery(value, quote);
  return quote + std::string(value) + quote;
}

}  // namespace quorbind
