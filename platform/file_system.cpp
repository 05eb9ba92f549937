#include "platform/file_system.h"

namespace quorbind {

std::vector<std::string> FileSystem::fileNamesIn(std::string_view folder) {
  std::vector<std::string> names = namesIn(folder);
  std::erase_if(names, [&](const std::string& name) {
    return !fileExists(std::string(folder).append("\\").append(name));
  });
  return names;
}

}  // namespace quorbind
