#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quorbind {

/// Bytes of a file as numbers, little-endian. Whatever lies beyond them is a refusal: the file is
/// cut off, or points to where it has nothing.
class ByteView {
 public:
  explicit ByteView(std::string_view bytes) : bytes_(bytes) {}

  [[nodiscard]] std::size_t size() const { return bytes_.size(); }
  [[nodiscard]] std::uint8_t byteAt(std::size_t position) const;
  [[nodiscard]] std::uint16_t shortAt(std::size_t position) const;
  [[nodiscard]] std::uint32_t longAt(std::size_t position) const;
  [[nodiscard]] double doubleAt(std::size_t position) const;
  [[nodiscard]] std::string_view part(std::size_t position, std::size_t length) const;
  [[nodiscard]] std::string_view from(std::size_t position) const;

 private:
  [[nodiscard]] std::uint64_t numberAt(std::size_t position, std::size_t length) const;

  std::string_view bytes_;
};

}  // namespace quorbind
