#include "platform/workbooks/byte_view.h"

#include <algorithm>
#include <bit>

#include "platform/workbooks/workbook_refusal.h"

namespace quorbind {

std::uint8_t ByteView::byteAt(std::size_t position) const {
  return static_cast<std::uint8_t>(numberAt(position, 1));
}

std::uint16_t ByteView::shortAt(std::size_t position) const {
  return static_cast<std::uint16_t>(numberAt(position, 2));
}

std::uint32_t ByteView::longAt(std::size_t position) const {
  return static_cast<std::uint32_t>(numberAt(position, 4));
}

double ByteView::doubleAt(std::size_t position) const {
  return std::bit_cast<double>(numberAt(position, 8));
}

std::string_view ByteView::part(std::size_t position, std::size_t length) const {
  if (position > bytes_.size() || length > bytes_.size() - position) {
    throw WorkbookRefusal("The file is damaged or cut off.");
  }
  return bytes_.substr(position, length);
}

std::string_view ByteView::from(std::size_t position) const {
  return part(position, bytes_.size() - std::min(position, bytes_.size()));
}

std::uint64_t ByteView::numberAt(std::size_t position, std::size_t length) const {
  constexpr unsigned kBitsOfByte = 8;
  std::uint64_t number = 0;
  unsigned shift = 0;
  for (const char byte : part(position, length)) {
    number |= std::uint64_t{static_cast<unsigned char>(byte)} << shift;
    shift += kBitsOfByte;
  }
  return number;
}

}  // namespace quorbind
