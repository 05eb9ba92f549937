#include "cli/copy_watch.h"

#include <utility>

#include "platform/paths.h"

namespace quorbind {

class CopyWatch::WatchedCopy final : public FileCopy {
 public:
  WatchedCopy(std::unique_ptr<FileCopy> copy, CopyWatch& watch)
      : copy_(std::move(copy)), watch_(watch) {}

  bool mbCopyFiles(std::string_view destination,
                   std::string_view source,
                   std::int16_t reservedOverwrite,
                   std::int16_t reservedDialog) override {
    // Of two files with one name nobody could tell whose documents these are.
    const auto [entry, isFirst] = watch_.copied_.try_emplace(std::string(fileNameOf(source)));
    Copied& copied = entry->second;
    copied = {};
    static_cast<void>(watch_.scans_.take());
    copied.arrived = copy_->mbCopyFiles(destination, source, reservedOverwrite, reservedDialog);
    copied.named = isFirst ? watch_.scans_.take() : std::nullopt;
    return copied.arrived;
  }
  void copyLinkedFiles(std::string_view destination, std::string_view page) override {
    copy_->copyLinkedFiles(destination, page);
  }
  void flush() override { copy_->flush(); }

 private:
  std::unique_ptr<FileCopy> copy_;
  CopyWatch& watch_;
};

bool CopyWatch::hasArrived(std::string_view file) const {
  const auto found = copied_.find(file);
  return found == copied_.end() || found->second.arrived;
}

std::optional<NamedFiles> CopyWatch::takeNamedFiles(std::string_view file) {
  const auto found = copied_.find(file);
  return found == copied_.end() ? std::nullopt : std::exchange(found->second.named, std::nullopt);
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
  return std::make_unique<WatchedCopy>(toolset_.createFileCopy(), *this);
}

}  // namespace quorbind
