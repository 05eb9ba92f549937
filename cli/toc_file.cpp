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

std::string placeIn(const std::string& file, std::size_t line, std::size_t column) {
  std::string place = file;
  for (const std::size_t number : {line, column}) {
    if (number > 0) {
      place.append(":").append(std::to_string(number));
    }
  }
  return place.append(": ");
}

}  // namespace quorbind
