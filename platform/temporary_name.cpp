#include "platform/temporary_name.h"

#include <cstddef>

namespace quorbind {

namespace {

constexpr std::string_view kDigits = "0123456789abcdef";
constexpr std::size_t kDigitCount = 8;

}  // namespace

std::string temporaryEnding(std::uint32_t number) {
  std::string ending(kTemporaryInfix);
  for (std::size_t digit = 0; digit < kDigitCount; ++digit, number >>= 4U) {
    ending.push_back(kDigits[number & 0xFU]);
  }
  return ending.append(kTemporaryExtension);
}

bool isTemporaryName(std::string_view name) {
  constexpr std::size_t kLength = kTemporaryInfix.size() + kDigitCount + kTemporaryExtension.size();
  if (name.size() <= kLength || !name.ends_with(kTemporaryExtension)) {
    return false;
  }
  const std::string_view ending = name.substr(name.size() - kLength);
  const std::string_view digits = ending.substr(kTemporaryInfix.size(), kDigitCount);
  return ending.starts_with(kTemporaryInfix) &&
         digits.find_first_not_of(kDigits) == std::string_view::npos;
}

}  // namespace quorbind
