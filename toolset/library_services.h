#pragma once

#include <string>
#include <string_view>

#include "platform/toolset.h"

namespace quorbind {

/// Knows where the documentation server is.
class ReferenceLibraryServices final : public LibraryServices {
 public:
  /// `serverRoot` as ReferenceToolset takes it.
  explicit ReferenceLibraryServices(std::string_view serverRoot);

  /// Raises kServerNotConfiguredError.
  std::string GetQuorServer() override;

  /// The folder that holds the folders of the libraries, ending in `\`. Raises the same.
  std::string docsFolder();

 private:
  std::string serverRoot_;
};

}  // namespace quorbind
