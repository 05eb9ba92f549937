#include "cli/copy_watch.h"

#include <utility>

#include "platform/paths.h"

namespace quorbind {

class CopyWatch::WatchedCopy final : public FileCopy {
 public:
  WatchedCopy(std::unique_ptr<FileCopy> copy, std::map<std::string, bool, std::less<>>& arrived)
      : copy_(std::move(copy)), arrived_(arrived) {}

  bool mbCopyFiles(std::string_view destination,
                   std::string_view source,
                   std::int16_t reservedOverwrite,
                   std::int16_t reservedDialog) override {
    bool& arrived = arrived_[std::string(fileNameOf(source))];
    arrived = false;
    arrived = copy_->mbCopyFiles(destination, source, reservedOverwrite, reservedDialog);
    return arrived;
  }
  void copyLinkedFiles(std::string_view destination, std::string_view page) override {
    copy_->copyLinkedFiles(destination, page);
  }
  void flush() override { copy_->flush(); }

 private:
  std::unique_ptr<FileCopy> copy_;
  std::map<std::string, bool, std::less<>>& arrived_;
};

bool CopyWatch::hasArrived(std::string_view file) const {
  const auto found = arrived_.find(file);
  return found == arrived_.end() || found->second;
}

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
  return std::make_unique<WatchedCopy>(toolset_.createFileCopy(), arrived_);
}

}  // namespace quorbind
