#include "cli/doctor/examined_files.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <system_error>

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
  std::size_t column = 0;
  std::string reason;
};

/// Takes a `:` and the number behind it from the front; 0 where there is none.
std::size_t takeNumber(std::string_view& text) {
  std::size_t number = 0;
  if (text.starts_with(':')) {
    const auto [end, error] = std::from_chars(text.data() + 1, text.data() + text.size(), number);
    if (error == std::errc()) {
      text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    }
  }
  return number;
}

/// The failure's message is `FILE: REASON`, `FILE:LINE: REASON` or `FILE:LINE:COLUMN: REASON`.
FileFailure failureOf(const CommandFailure& failure, const std::string& path) {
  constexpr std::string_view kEndOfPlace = ": ";
  std::string_view message = failure.what();
  const std::string name = nativeName(path);
  if (!message.starts_with(name)) {
    return {.reason = std::string(message)};
  }
  message.remove_prefix(name.size());
  FileFailure parts;
  parts.line = takeNumber(message);
  parts.column = takeNumber(message);
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
    FindingPlace place{path, parts.line, parts.column};
    if (failure.line()) {
      place.lineText = failure.line()->text;
    }
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
    std::sort(names.files.begin(), names.files.end());
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
