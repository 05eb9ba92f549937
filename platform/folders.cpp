#include "platform/folders.h"

#include "platform/error_trap.h"
#include "platform/file_system.h"
#include "platform/paths.h"

namespace quorbind {

void makeFolders(FileSystem& files, std::string_view folder) {
  if (folder.empty() || files.folderExists(folder)) {
    return;
  }
  makeFolders(files, folderOf(folder));
  ignoringErrors([&] { files.createFolder(folder); });
}

}  // namespace quorbind
