#include "platform/file_bytes.h"

#include <memory>

#include "platform/file_system.h"

namespace quorbind {

std::optional<std::string> bytesOf(FileSystem& files, std::string_view path, std::size_t limit) {
  constexpr std::size_t kChunk = std::size_t{64} << 10U;
  const std::unique_ptr<ByteReader> reader = files.open(path);
  std::string bytes;
  std::size_t count = 0;
  do {
    const std::size_t size = bytes.size();
    bytes.resize(size + kChunk);
    count = reader->read(bytes.data() + size, kChunk);
    bytes.resize(size + count);
    if (bytes.size() > limit) {
      return std::nullopt;
    }
  } while (count > 0);
  return bytes;
}

void requireReadable(FileSystem& files, std::string_view path) {
  char first = 0;
  static_cast<void>(files.open(path)->read(&first, 1));
}

}  // namespace quorbind
