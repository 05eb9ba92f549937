#include "platform/path_set.h"

#include "platform/locale.h"
#include "platform/paths.h"

namespace quorbind {

bool PathSet::add(std::string_view path) {
  for (std::size_t number = 0; number < noted_.size(); ++number) {
    addNow(noted_.at(number));
  }
  noted_.clear();
  return addNow(path);
}

bool PathSet::addNow(std::string_view path) {
  return namesIn(folderPartOf(path)).add(fileNameOf(path));
}

NameSet& PathSet::namesIn(std::string_view folder) {
  if (lastNames_ == nullptr || folder != lastFolder_) {
    lastNames_ = &folders_.try_emplace(locale_.upperCase(folder), locale_).first->second;
    lastFolder_ = folder;
  }
  return *lastNames_;
}

}  // namespace quorbind
