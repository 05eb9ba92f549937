#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/workbooks/byte_view.h"

namespace quorbind {

/// The streams at the root of a compound file, the form in which older workbooks and encrypted ones
/// are kept: sectors in chains, found by name in a directory.
class CompoundFile {
 public:
  /// Whether the bytes begin as such a file does.
  static bool isOne(std::string_view bytes);

  /// `bytes` is the whole file and outlives this. Throws WorkbookRefusal when it is damaged.
  explicit CompoundFile(std::string_view bytes);

  [[nodiscard]] bool has(std::string_view name) const;
  /// The bytes of a stream. Throws WorkbookRefusal when it is not there or damaged.
  [[nodiscard]] std::string stream(std::string_view name) const;

 private:
  struct Entry {
    std::string name;
    std::uint8_t type = 0;
    std::uint32_t left = 0;
    std::uint32_t right = 0;
    std::uint32_t child = 0;
    std::uint32_t start = 0;
    std::uint32_t size = 0;
  };

  void readSectorTable();
  void readDirectory();
  void collectRootEntries();
  [[nodiscard]] std::string_view sector(std::uint32_t number) const;
  /// The bytes of a chain of sectors, at most `size` of them.
  [[nodiscard]] std::string chain(std::uint32_t start, std::size_t size) const;
  [[nodiscard]] std::string shortStream(const Entry& entry) const;
  [[nodiscard]] const Entry* find(std::string_view name) const;

  ByteView bytes_;
  std::size_t sectorSize_ = 0;
  /// Of every sector the number of the next one in its chain.
  std::vector<std::uint32_t> next_;
  std::vector<Entry> entries_;
  /// The numbers of the entries that lie at the root.
  std::vector<std::uint32_t> atRoot_;
};

}  // namespace quorbind
