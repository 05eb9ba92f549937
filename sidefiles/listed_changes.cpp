#include "sidefiles/listed_changes.h"

#include <utility>

#include "platform/error_trap.h"

namespace quorbind {

void ListedChanges::make(const Change& change, Alone alone) {
  if (!file_.load()) {
    alone();
    return;
  }
  bool changed = false;
  if (ignoringErrors([&] { changed = change(); }) != 0) {
    settle();
    alone();
    file_.forget();
  } else if (changed) {
    unsaved_.push_back(std::move(alone));
  }
}

bool ListedChanges::settle() {
  const std::vector<Alone> items = std::exchange(unsaved_, {});
  if (items.empty() || ignoringErrors([this] { file_.save(); }) == 0) {
    return true;
  }
  for (const Alone& alone : items) {
    alone();
  }
  return false;
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
