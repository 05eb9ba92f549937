#include "tests/support/temporary_folder.h"

#include <stdlib.h>

#include <fstream>
#include <iterator>
#include <stdexcept>

#include "platform/text_encoding.h"

namespace quorbind::testing {

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder() {
  std::string name = (fs::temp_directory_path() / "quorbind-test-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) {
    throw std::runtime_error("can't make a temporary folder");
  }
  path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

void TemporaryFolder::write(std::string_view name, std::string_view bytes) const {
  const fs::path path = path_ / name;
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << bytes;
}

std::string TemporaryFolder::read(std::string_view name) const {
  std::ifstream file(path_ / name, std::ios::binary);
  if (!file) {
    throw std::runtime_error("no file " + std::string(name));
  }
  return {std::istreambuf_iterator<char>(file), {}};
}

bool TemporaryFolder::has(std::string_view name) const {
  return fs::exists(path_ / name);
}

void TemporaryFolder::makeFolder(std::string_view name) const {
  fs::create_directories(path_ / name);
}

std::map<std::string, std::string> TemporaryFolder::contents() const {
  std::map<std::string, std::string> result;
  for (const auto& entry : fs::recursive_directory_iterator(path_)) {
    const std::string name = fs::relative(entry.path(), path_).generic_string();
    result[name] = entry.is_directory() ? "(folder)" : read(name);
  }
  return result;
}

std::string utf16File(std::string_view utf8) {
  std::string bytes = "\xFF\xFE";
  appendUtf16LittleEndian(bytes, utf8);
  return bytes;
}

std::string fromUtf16File(std::string_view bytes) {
  if (bytes.substr(0, 2) != "\xFF\xFE") {
    throw std::runtime_error("no UTF-16 byte-order mark");
  }
  std::string utf8;
  appendUtf8FromUtf16(utf8, bytes.substr(2), ByteOrder::kLittleEndian);
  return utf8;
}

}  // namespace quorbind::testing
