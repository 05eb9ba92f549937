#include "cli/toc_file.h"

#include "cli/failure.h"
#include "cli/paths.h"
#include "platform/file_system.h"
#include "resources/messages.h"

namespace quorbind {

TocFile::TocFile(FileSystem& files, const std::string& tocName)
    : name(tocName), path(componentFile(tocName)) {
  if (!files.fileExists(path)) {
    throw CommandFailure(ExitStatus::kInputMissing, Message::kTocNotFoundAtPath + "\r" + name);
  }
  requireReadable(files, path, name);
}

std::string placeIn(const std::string& file, std::size_t line) {
  return line == 0 ? file + ": " : file + ":" + std::to_string(line) + ": ";
}

}  // namespace quorbind
