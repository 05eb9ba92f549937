#include "cli/doctor/examined_files.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "cli/doctor/mending_command.h"
#include "cli/failure.h"
#include "cli/paths.h"
#include "platform/error_trap.h"
#include "platform/paths.h"
#include "platform/temporary_name.h"

namespace quorbind {

namespace {

/// What a failure that concerns a file says of it.
struct FileFailure {
  std::size_t line = 0;
  std::string reason;
};

/// The failure's message is `FILE: REASON` or `FILE:LINE: REASON`.
FileFailure failureOf(const CommandFailure& failure, const std::string& path) {
  constexpr std::string_view kEndOfPlace = ": ";
  std::string_view message = failure.what();
  const std::string name = nativeName(path);
  if (!message.starts_with(name)) {
    return {.reason = std::string(message)};
  }
  message.remove_prefix(name.size());
  FileFailure parts;
  if (message.starts_with(':')) {
    std::from_chars(message.data() + 1, message.data() + message.size(), parts.line);
  }
  parts.reason =
      message.substr(std::min(message.find(kEndOfPlace) + kEndOfPlace.size(), message.size()));
  return parts;
}

}  // namespace

bool readingFile(Findings& findings,
                 const std::string& path,
                 const std::function<void()>& step,
                 FindingKind kind,
                 const std::string& command) {
  try {
    step();
    return true;
  } catch (const CommandFailure& failure) {
    const FileFailure parts = failureOf(failure, path);
    const FindingPlace place{path, parts.line};
    if (failure.status() == ExitStatus::kInputMissing) {
      findings.add(FindingKind::kUnreadableFile, place, {{"REASON", parts.reason}});
    } else {
      findings.add(kind, place, {{"REASON", parts.reason}}, command);
    }
    return false;
  }
}

FolderNames listFolder(FileSystem& files, Findings& findings, const std::string& folder) {
  FolderNames names;
  const auto error = errorOf([&] {
    const std::vector<std::string> all = files.namesIn(folder);
    names.files = files.fileNamesIn(folder);
    std::set_difference(all.begin(),
                        all.end(),
                        names.files.begin(),
                        names.files.end(),
                        std::back_inserter(names.folders));
    std::erase_if(names.folders, [&](const std::string& name) {
      return !files.folderExists(joinedPath(folder, name));
    });
  });
  if (error) {
    findings.add(
        FindingKind::kUnreadableFolder, {folder}, {{"REASON", std::string(error->description())}});
  }
  return names;
}

void findLeftovers(Findings& findings, const std::string& folder, const FolderNames& names) {
  for (const std::string& name : names.files) {
    if (isTemporaryName(name)) {
      const std::string file = joinedPath(folder, name);
      findings.add(FindingKind::kLeftover, {file}, {}, deletingCommand(file));
    }
  }
}

}  // namespace quorbind
