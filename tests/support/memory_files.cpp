#include "tests/support/memory_files.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "platform/paths.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

namespace quorbind::testing {

namespace {

constexpr std::string_view kDrive = "C:\\";
constexpr const char* kFolder = "(folder)";

std::string keyOf(std::string_view name) {
  return upperCaseAscii(name);
}

/// A component's path from the root, with `/`: without a drive, `.`, `..` and doubled separators.
std::string nameOf(std::string_view path) {
  const std::string all = replaceAll(path, "/", "\\");
  const std::size_t drive = all.find(':');
  std::vector<std::string> parts;
  std::size_t begin = drive == std::string::npos ? 0 : drive + 1;
  while (begin <= all.size()) {
    const std::size_t end = std::min(all.find('\\', begin), all.size());
    const std::string part = all.substr(begin, end - begin);
    if (part == "..") {
      parts.resize(parts.empty() ? 0 : parts.size() - 1);
    } else if (!part.empty() && part != ".") {
      parts.push_back(part);
    }
    begin = end + 1;
  }
  std::string name;
  for (const std::string& part : parts) {
    name.append(name.empty() ? "" : "/").append(part);
  }
  return name;
}

std::string folderOfName(const std::string& name) {
  const std::size_t end = name.rfind('/');
  return end == std::string::npos ? std::string() : name.substr(0, end);
}

}  // namespace

class MemoryFiles::Reader final : public ByteReader {
 public:
  explicit Reader(std::shared_ptr<const std::string> bytes) : bytes_(std::move(bytes)) {}

  std::size_t read(char* buffer, std::size_t size) override {
    const std::size_t count = bytes_->copy(buffer, size, at_);
    at_ += count;
    return count;
  }
  void rewind() override { at_ = 0; }

 private:
  const std::shared_ptr<const std::string> bytes_;
  std::size_t at_ = 0;
};

class MemoryFiles::Replacement final : public FileReplacement {
 public:
  Replacement(MemoryFiles& disk, std::string name) : disk_(disk), name_(std::move(name)) {}

  void write(std::string_view bytes) override {
    disk_.requireRoom(bytes_.size() + bytes.size());
    bytes_.append(bytes);
  }
  void commit() override {
    disk_.put(name_, std::make_shared<const std::string>(std::move(bytes_)));
    --disk_.filesLeft_;
  }

 private:
  MemoryFiles& disk_;
  const std::string name_;
  std::string bytes_;
};

MemoryFiles::MemoryFiles() {
  put("", nullptr);
}

void MemoryFiles::write(std::string_view name, std::string_view bytes) {
  const std::string file(name);
  makeFolder(folderOfName(file));
  put(file, std::make_shared<const std::string>(bytes));
}

std::string MemoryFiles::read(std::string_view name) const {
  const Entry* entry = find(keyOf(name));
  if (entry == nullptr || !entry->bytes) {
    throw std::runtime_error("no file " + std::string(name));
  }
  return *entry->bytes;
}

bool MemoryFiles::has(std::string_view name) const {
  return find(keyOf(name)) != nullptr;
}

void MemoryFiles::makeFolder(std::string_view name) {
  for (std::string folder(name); !has(folder); folder = folderOfName(folder)) {
    put(folder, nullptr);
  }
}

void MemoryFiles::remove(std::string_view name) {
  const std::string key = keyOf(name);
  std::erase_if(entries_, [&](const auto& entry) {
    return entry.first == key || entry.first.starts_with(key + "/");
  });
}

std::map<std::string, std::string> MemoryFiles::contents() const {
  std::map<std::string, std::string> result;
  for (const auto& [key, entry] : entries_) {
    if (!entry.name.empty()) {
      result[entry.name] = entry.bytes ? *entry.bytes : kFolder;
    }
  }
  return result;
}

void MemoryFiles::restore(const std::map<std::string, std::string>& contents) {
  *this = MemoryFiles();
  for (const auto& [name, bytes] : contents) {
    if (bytes == kFolder) {
      makeFolder(name);
    } else {
      write(name, bytes);
    }
  }
}

void MemoryFiles::protect(std::string_view name) {
  protected_.insert(keyOf(name));
}

bool MemoryFiles::fileExists(std::string_view path) {
  const Entry* entry = find(keyOf(nameOf(path)));
  return entry != nullptr && entry->bytes != nullptr;
}

bool MemoryFiles::folderExists(std::string_view path) {
  const Entry* entry = find(keyOf(nameOf(path)));
  return entry != nullptr && entry->bytes == nullptr;
}

void MemoryFiles::createFolder(std::string_view path) {
  const std::string name = nameOf(path);
  if (has(name)) {
    raise(ErrorNumber::kFileAlreadyExists);
  }
  if (!folderExists(folderOfName(name))) {
    raise(ErrorNumber::kPathNotFound);
  }
  put(name, nullptr);
}

void MemoryFiles::copyFile(std::string_view from, std::string_view to) {
  const auto bytes = bytesOf(from);
  if (sameFile(from, to)) {
    raise(ErrorNumber::kPermissionDenied);
  }
  requireTarget(to);
  requireRoom(bytes->size());
  put(nameOf(to), bytes);
  --filesLeft_;
}

void MemoryFiles::moveFile(std::string_view from, std::string_view to) {
  const auto bytes = bytesOf(from);
  if (fileExists(to) && !sameFile(from, to)) {
    raise(ErrorNumber::kFileAlreadyExists);
  }
  requireTarget(from);
  requireTarget(to);
  remove(nameOf(from));
  put(nameOf(to), bytes);
}

void MemoryFiles::deleteFile(std::string_view path) {
  [[maybe_unused]] const auto bytes = bytesOf(path);
  requireTarget(path);
  remove(nameOf(path));
}

void MemoryFiles::requireRoom(std::size_t bytes) const {
  if (bytes > limit_ || filesLeft_ == 0) {
    raise(ErrorNumber::kDiskFull);
  }
}

std::string MemoryFiles::absolutePath(std::string_view path) {
  return std::string(kDrive) + withBackslashes(nameOf(path));
}

bool MemoryFiles::sameFile(std::string_view left, std::string_view right) {
  return fileExists(left) && keyOf(nameOf(left)) == keyOf(nameOf(right));
}

std::vector<std::string> MemoryFiles::namesIn(std::string_view folder) {
  const std::string key = keyOf(nameOf(folder));
  if (!folderExists(folder)) {
    raise(ErrorNumber::kPathNotFound);
  }
  std::vector<std::string> names;
  for (const auto& [entryKey, entry] : entries_) {
    if (!entry.name.empty() && folderOfName(entryKey) == key) {
      names.push_back(entry.name.substr(key.empty() ? 0 : key.size() + 1));
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::unique_ptr<ByteReader> MemoryFiles::open(std::string_view path) {
  return std::make_unique<Reader>(bytesOf(path));
}

std::unique_ptr<FileReplacement> MemoryFiles::replace(std::string_view path) {
  requireTarget(path);
  return std::make_unique<Replacement>(*this, nameOf(path));
}

const MemoryFiles::Entry* MemoryFiles::find(const std::string& key) const {
  const auto found = entries_.find(key);
  return found == entries_.end() ? nullptr : &found->second;
}

std::shared_ptr<const std::string> MemoryFiles::bytesOf(std::string_view path) {
  const std::string name = nameOf(path);
  if (!folderExists(folderOfName(name))) {
    raise(ErrorNumber::kPathNotFound);
  }
  if (folderExists(path)) {
    raise(ErrorNumber::kPathFileAccessError);
  }
  const Entry* entry = find(keyOf(name));
  if (entry == nullptr) {
    raise(ErrorNumber::kFileNotFound);
  }
  return entry->bytes;
}

// A file that stands there already keeps the spelling of its name.
void MemoryFiles::put(const std::string& name, std::shared_ptr<const std::string> bytes) {
  const auto [entry, isNew] = entries_.try_emplace(keyOf(name), Entry{name, nullptr});
  entry->second.bytes = std::move(bytes);
}

void MemoryFiles::requireTarget(std::string_view path) {
  const std::string name = nameOf(path);
  if (!folderExists(folderOfName(name))) {
    raise(ErrorNumber::kPathNotFound);
  }
  if (folderExists(path)) {
    raise(ErrorNumber::kPathFileAccessError);
  }
  if (protected_.contains(keyOf(name))) {
    raise(ErrorNumber::kPermissionDenied);
  }
}

}  // namespace quorbind::testing
