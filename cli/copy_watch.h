#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "cli/scan_watch.h"
#include "platform/toolset.h"

namespace quorbind {

/// A tool set that remembers what its copying answered, and which documents it found named in the
/// book files. The driver goes on after a copy that failed, and an older file of the same name may
/// stand where the new one should be: whether a book arrived can't be told from the library alone.
class CopyWatch final : public Toolset {
 public:
  /// Both are kept by reference. `scans` is what the tool set reads book files by.
  CopyWatch(Toolset& toolset, ScanWatch& scans) : toolset_(toolset), scans_(scans) {}

  /// Whether the last copy of a file of that name put it in place; true where there was none.
  [[nodiscard]] bool hasArrived(std::string_view file) const;

  /// What the book file of that name that was copied names, to the first who asks; nothing where it
  /// was not walked through, or where several were copied.
  [[nodiscard]] std::optional<NamedFiles> takeNamedFiles(std::string_view file);

  std::unique_ptr<LibraryServices> createLibraryServices() override;
  std::unique_ptr<XmlTextRules> createXmlTextRules() override;
  std::unique_ptr<LinkFileServices> createLinkFileServices() override;
  std::unique_ptr<ProductServices> createProductServices() override;
  std::unique_ptr<FileCopy> createFileCopy() override;

 private:
  class WatchedCopy;

  struct Copied {
    bool arrived = false;
    std::optional<NamedFiles> named;
  };

  Toolset& toolset_;
  ScanWatch& scans_;
  /// By the names of the files.
  std::map<std::string, Copied, std::less<>> copied_;
};

}  // namespace quorbind
