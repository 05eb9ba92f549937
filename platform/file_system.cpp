#include "platform/file_system.h"

namespace quorbind {

namespace {

class FlushedCopies final : public CopySeries {
 public:
  explicit FlushedCopies(FileSystem& files) : files_(files) {}

  void copy(std::string_view from, std::string_view to) override { files_.copyFile(from, to); }
  void flush() override {}

 private:
  FileSystem& files_;
};

}  // namespace

std::unique_ptr<CopySeries> FileSystem::beginCopies() {
  return std::make_unique<FlushedCopies>(*this);
}

}  // namespace quorbind
