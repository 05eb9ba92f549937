#include "platform/path_set.h"

#include "platform/locale.h"
#include "platform/paths.h"

namespace quorbind {

bool PathSet::add(std::string_view path) {
  Names& names = namesIn(folderPartOf(path));
  for (std::size_t number = 0; number < names.noted.size(); ++number) {
    names.known.add(names.noted.at(number));
  }
  names.noted.clear();
  return names.known.add(fileNameOf(path));
}

void PathSet::note(std::string_view path) {
  namesIn(folderPartOf(path)).noted.add(fileNameOf(path));
}

PathSet::Names& PathSet::namesIn(std::string_view folder) {
  if (lastNames_ == nullptr || folder != lastFolder_) {
    lastNames_ = nullptr;
    lastFolder_ = folder;
    lastNames_ =
        &folders_.try_emplace(locale_.upperCase(folder), Names{NameSet(locale_)}).first->second;
  }
  return *lastNames_;
}

}  // namespace quorbind
