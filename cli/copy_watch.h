#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "platform/toolset.h"

namespace quorbind {

/// A tool set that remembers what its copying answered. The driver goes on after a copy that
/// failed, and an older file of the same name may stand where the new one should be: whether a book
/// arrived can't be told from the library alone.
class CopyWatch final : public Toolset {
 public:
  /// Kept by reference.
  explicit CopyWatch(Toolset& toolset) : toolset_(toolset) {}

  /// Whether the last copy of a file of that name put it in place; true where there was none.
  [[nodiscard]] bool hasArrived(std::string_view file) const;

  std::unique_ptr<LibraryServices> createLibraryServices() override;
  std::unique_ptr<XmlTextRules> createXmlTextRules() override;
  std::unique_ptr<LinkFileServices> createLinkFileServices() override;
  std::unique_ptr<ProductServices> createProductServices() override;
  std::unique_ptr<FileCopy> createFileCopy() override;

 private:
  class WatchedCopy;

  Toolset& toolset_;
  /// By the names of the files.
  std::map<std::string, bool, std::less<>> arrived_;
};

}  // namespace quorbind
