#include "platform/file_system.h"

#include "platform/paths.h"

namespace quorbind {

namespace {

class FlushedCopies final : public CopySeries {
 public:
  explicit FlushedCopies(FileSystem& files) : files_(files) {}

  bool copy(std::string_view from, std::string_view to) override {
    const bool isThere = files_.sameFile(from, to);
    if (!isThere) {
      files_.copyFile(from, to);
    }
    return !isThere;
  }
  void flush() override {}

 private:
  FileSystem& files_;
};

}  // namespace

std::unique_ptr<CopySeries> FileSystem::beginCopies() {
  return std::make_unique<FlushedCopies>(*this);
}

std::vector<std::string> FileSystem::fileNamesIn(std::string_view folder) {
  std::vector<std::string> names = namesIn(folder);
  std::erase_if(names,
                [&](const std::string& name) { return !fileExists(joinedPath(folder, name)); });
  return names;
}

}  // namespace quorbind
