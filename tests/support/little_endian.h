#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace quorbind::testing {

/// A number as so many bytes, the lowest first.
template <std::size_t kBytes>
std::string littleEndian(std::uint64_t number) {
  constexpr unsigned kBitsOfByte = 8;
  std::string bytes;
  for (std::size_t i = 0; i < kBytes; ++i) {
    bytes += static_cast<char>(number >> (kBitsOfByte * i) & 0xFFU);
  }
  return bytes;
}

}  // namespace quorbind::testing
