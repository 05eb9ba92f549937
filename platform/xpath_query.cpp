#include "platform/xpath_query.h"

#include "platform/runtime_error.h"

namespace quorbind {

std::string quotedForQuery(std::string_view value, char quote) {
  if (value.find(quote) != std::string_view::npos) {
    throw RunTimeError(kInvalidQueryError,
                       "The value " + std::string(value) +
                           " can't stand in a query between the quote characters it contains.");
  }
  return quote + std::string(value) + quote;
}

}  // namespace quorbind
