#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace quorbind::testing {

/// A folder of its own for one test, gone with it.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }

  /// Writes `bytes` to the file `name` (with `/`), making its folders.
  void write(std::string_view name, std::string_view bytes) const;
  [[nodiscard]] std::string read(std::string_view name) const;
  [[nodiscard]] bool has(std::string_view name) const;
  void makeFolder(std::string_view name) const;
  /// Takes a file, or a folder with everything in it, away.
  void remove(std::string_view name) const;
  /// Every file below the folder with its bytes, names with `/`: two of these compare a whole tree.
  [[nodiscard]] std::map<std::string, std::string> contents() const;

 private:
  std::filesystem::path path_;
};

/// The bytes of a "Unicode text" file that holds `utf8`: UTF-16, little-endian, with its mark.
std::string utf16File(std::string_view utf8);
/// The same in the other byte order.
std::string utf16BigEndianFile(std::string_view utf8);
/// What a file in UTF-16, little-endian, holds, as UTF-8.
std::string fromUtf16File(std::string_view bytes);

}  // namespace quorbind::testing
