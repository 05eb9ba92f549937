#include "sidefiles/listed_changes.h"

#include <utility>

#include "platform/error_trap.h"

namespace quorbind {

ListedChanges::ListedChanges(SideFile& file,
                             UserInterface& ui,
                             const ErrorSource& source,
                             Steps steps)
    : file_(file), ui_(ui), source_(source), steps_(std::move(steps)) {}

void ListedChanges::make(std::size_t item) {
  bool isLoaded = false;
  ignoringErrors([&] { isLoaded = file_.load(); });
  if (!isLoaded) {
    steps_.alone(item);
    return;
  }
  bool changed = false;
  if (ignoringErrors([&] { changed = steps_.change(item); }) != 0) {
    settle();
    steps_.alone(item);
    file_.forget();
  } else if (changed || !unsaved_.empty()) {
    // An item that found everything done may have found it in memory only.
    unsaved_.push_back(item);
  }
}

bool ListedChanges::settle() {
  const std::vector<std::size_t> items = std::exchange(unsaved_, {});
  if (items.empty()) {
    return true;
  }
  const auto error = errorOf([this] { file_.save(); });
  if (error) {
    doAgain(items, *error);
  }
  return !error;
}

void ListedChanges::doAgain(std::span<const std::size_t> items, const RunTimeError& saveError) {
  if (file_.isGone() || items.size() == 1) {
    reportError(ui_, source_, saveError);
    items = items.subspan(1);
  }
  for (const std::size_t item : items) {
    steps_.alone(item);
  }
}

void walkAndSettle(const std::function<void()>& walk, const std::function<void()>& settle) {
  try {
    walk();
  } catch (...) {
    settle();
    throw;
  }
  settle();
}

}  // namespace quorbind
