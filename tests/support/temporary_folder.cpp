#include "tests/support/temporary_folder.h"

#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <utility>

#include "platform/text_encoding.h"

namespace quorbind::testing {

namespace fs = std::filesystem;

namespace {

/// Names are UTF-8 on every system.
fs::path pathOf(std::string_view name) {
  return {std::u8string(name.begin(), name.end())};
}
std::string textOf(const fs::path& path) {
  const std::u8string text = path.generic_u8string();
  return {text.begin(), text.end()};
}

fs::path nameOfOnesOwn() {
  return fs::temp_directory_path() / ("quorbind-test-" + std::to_string(std::random_device{}()));
}

/// Not every system deletes what may not be written.
void makeDeletable(const fs::path& folder) {
  std::error_code error;
  for (fs::recursive_directory_iterator entry(folder, error); !error && entry != fs::end(entry);
       entry.increment(error)) {
    std::error_code ignored;
    if (entry->is_regular_file(ignored)) {
      fs::permissions(*entry, fs::perms::owner_write, fs::perm_options::add, ignored);
    }
  }
}

}  // namespace

TemporaryFolder::TemporaryFolder() : path_(nameOfOnesOwn()) {
  while (!fs::create_directory(path_)) {
    path_ = nameOfOnesOwn();
  }
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  makeDeletable(path_);
  fs::remove_all(path_, ignored);
}

void TemporaryFolder::write(std::string_view name, std::string_view bytes) const {
  const fs::path path = path_ / pathOf(name);
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << bytes;
}

std::string TemporaryFolder::read(std::string_view name) const {
  std::ifstream file(path_ / pathOf(name), std::ios::binary);
  if (!file) {
    throw std::runtime_error("no file " + std::string(name));
  }
  return {std::istreambuf_iterator<char>(file), {}};
}

bool TemporaryFolder::has(std::string_view name) const {
  return fs::exists(path_ / pathOf(name));
}

void TemporaryFolder::makeFolder(std::string_view name) const {
  fs::create_directories(path_ / pathOf(name));
}

void TemporaryFolder::remove(std::string_view name) const {
  fs::remove_all(path_ / pathOf(name));
}

std::map<std::string, std::string> TemporaryFolder::contents() const {
  std::map<std::string, std::string> result;
  for (const auto& entry : fs::recursive_directory_iterator(path_)) {
    const std::string name = textOf(fs::relative(entry.path(), path_));
    result[name] = entry.is_directory() ? "(folder)" : read(name);
  }
  return result;
}

std::string utf16File(std::string_view utf8) {
  std::string bytes = "\xFF\xFE";
  appendUtf16LittleEndian(bytes, utf8);
  return bytes;
}

std::string utf16BigEndianFile(std::string_view utf8) {
  std::string bytes = utf16File(utf8);
  for (std::size_t at = 0; at < bytes.size(); at += 2) {
    std::swap(bytes[at], bytes[at + 1]);
  }
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
