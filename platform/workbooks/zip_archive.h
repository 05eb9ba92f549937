#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "platform/file_system.h"
#include "platform/workbooks/byte_view.h"

namespace quorbind {

/// What an archive may hold. A workbook that people made comes nowhere near; archives beyond are
/// made to fill a memory.
struct ZipLimits {
  std::size_t parts = 1000;
  /// Unpacked bytes of one part, and of all that is read.
  std::uint64_t partSize = std::uint64_t{64} << 20U;
  std::uint64_t totalSize = std::uint64_t{256} << 20U;
  /// Unpacked bytes to one packed byte, once `ratioAfter` of them have come.
  std::uint64_t ratio = 100;
  std::uint64_t ratioAfter = std::uint64_t{100} << 10U;
};

/// The parts of a packed file, found by name in any letter case. They are unpacked piece by piece
/// while they are read; nothing is ever kept whole or written anywhere.
class ZipArchive {
 public:
  /// `bytes` is the whole file and outlives the archive. Throws WorkbookRefusal when it is none, is
  /// damaged, or has too many parts.
  explicit ZipArchive(std::string_view bytes, const ZipLimits& limits = {});
  ZipArchive(const ZipArchive&) = delete;
  ZipArchive& operator=(const ZipArchive&) = delete;

  [[nodiscard]] bool has(std::string_view name) const;

  /// Reads a part from its beginning. It and its reader throw WorkbookRefusal for a part that is
  /// not there, damaged, encrypted, packed in an unknown way, or beyond a limit. The archive
  /// outlives its readers.
  [[nodiscard]] std::unique_ptr<ByteReader> open(std::string_view name);

 private:
  class Inflater;
  class PartReader;

  struct Part {
    std::string name;
    std::uint16_t flags = 0;
    std::uint16_t method = 0;
    std::uint32_t checksum = 0;
    std::uint32_t packedSize = 0;
    std::uint32_t size = 0;
    std::uint32_t position = 0;
  };

  void readDirectory();
  [[nodiscard]] std::size_t directoryEnd() const;
  std::size_t addPart(std::size_t position);
  [[nodiscard]] std::string_view packedBytes(const Part& part) const;
  void count(std::uint64_t bytes);

  ByteView bytes_;
  ZipLimits limits_;
  /// By their names in upper case.
  std::map<std::string, Part, std::less<>> parts_;
  std::uint64_t unpacked_ = 0;
};

}  // namespace quorbind
