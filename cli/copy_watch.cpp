#include "cli/copy_watch.h"

#include <string_view>
#include <utility>

namespace quorbind {

class CopyWatch::WatchedCopy final : public FileCopy {
 public:
  WatchedCopy(std::unique_ptr<FileCopy> copy, bool& arrived)
      : copy_(std::move(copy)), arrived_(arrived) {}

  bool mbCopyFiles(std::string_view destination,
                   std::string_view source,
                   std::int16_t reservedOverwrite,
                   std::int16_t reservedDialog) override {
    arrived_ = false;
    arrived_ = copy_->mbCopyFiles(destination, source, reservedOverwrite, reservedDialog);
    return arrived_;
  }

 private:
  std::unique_ptr<FileCopy> copy_;
  bool& arrived_;
};

std::unique_ptr<LibraryServices> CopyWatch::createLibraryServices() {
  return toolset_.createLibraryServices();
}

std::unique_ptr<XmlTextRules> CopyWatch::createXmlTextRules() {
  return toolset_.createXmlTextRules();
}

std::unique_ptr<LinkFileServices> CopyWatch::createLinkFileServices() {
  return toolset_.createLinkFileServices();
}

std::unique_ptr<ProductServices> CopyWatch::createProductServices() {
  return toolset_.createProductServices();
}

std::unique_ptr<FileCopy> CopyWatch::createFileCopy() {
  return std::make_unique<WatchedCopy>(toolset_.createFileCopy(), lastCopyArrived_);
}

}  // namespace quorbind
