#pragma once

// How examinations look at files: what can't be looked at is a finding, and they go on.

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/doctor/finding.h"
#include "platform/file_system.h"

namespace quorbind {

/// Runs a step that reads the file at `path`, which the component names so. Where it ends with a
/// CommandFailure the file is an unreadable one, or else one of `kind`, which `command` mends.
/// Answers whether the step came to its end.
bool readingFile(Findings& findings,
                 const std::string& path,
                 const std::function<void()>& step,
                 FindingKind kind = FindingKind::kDamagedFile,
                 const std::string& command = {});

/// What a folder holds.
struct FolderNames {
  std::vector<std::string> files;
  std::vector<std::string> folders;
};

/// A folder that can't be listed is a finding, and holds nothing.
FolderNames listFolder(FileSystem& files, Findings& findings, const std::string& folder);

/// Tells of temporary files that a killed run has left beside the files that it wrote.
void findLeftovers(Findings& findings, const std::string& folder, const FolderNames& names);

}  // namespace quorbind
