#include "sidefiles/listed_changes.h"

#include <utility>

#include "platform/error_trap.h"

namespace quorbind {

void ListedChanges::make(const Change& change, Alone alone) {
  bool isLoaded = false;
  ignoringErrors([&] { isLoaded = file_.load(); });
  if (!isLoaded) {
    alone();
    return;
  }
  bool changed = false;
  if (ignoringErrors([&] { changed = change(); }) != 0) {
    settle();
    alone();
    file_.forget();
  } else if (changed || !unsaved_.empty()) {
    // An item that found everything done may have found it in memory only.
    unsaved_.push_back(std::move(alone));
  }
}

bool ListedChanges::settle() {
  const std::vector<Alone> items = std::exchange(unsaved_, {});
  if (items.empty()) {
    return true;
  }
  const auto error = errorOf([this] { file_.save(); });
  if (error) {
    doAgain(items, *error);
  }
  return !error;
}

void ListedChanges::doAgain(std::span<const Alone> items, const RunTimeError& saveError) {
  if (file_.isGone() || items.size() == 1) {
    reportError(ui_, source_, saveError);
    items = items.subspan(1);
  }
  for (const Alone& alone : items) {
    alone();
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
