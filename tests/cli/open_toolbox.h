#pragma once

#include <filesystem>
#include <string>

#include "tests/cli/command.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {

/// A copy of the executable where a user without rights has a way in; the executable itself may
/// stand where that user has none.
class OpenToolbox {
 public:
  OpenToolbox() {
    namespace fs = std::filesystem;
    fs::permissions(folder_.path(), fs::perms::others_exec, fs::perm_options::add);
    fs::copy_file(quorbindExecutable(), executable());
  }

  [[nodiscard]] std::string executable() const { return (folder_.path() / "quorbind").string(); }

 private:
  TemporaryFolder folder_;
};

}  // namespace quorbind::testing
