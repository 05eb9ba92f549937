#include "sidefiles/acronym_list.h"

#include <utility>

namespace quorbind {

bool AcronymList::has(const std::string& acronym) {
  if (next_ < inOrder_.size() && inOrder_[next_] == acronym) {
    ++next_;
    return true;
  }
  if (!all_) {
    all_.emplace(inOrder_.begin(), inOrder_.end());
  }
  return all_->contains(acronym);
}

void AcronymList::add(std::string acronym) {
  if (all_) {
    all_->insert(acronym);
  }
  inOrder_.push_back(std::move(acronym));
}

}  // namespace quorbind
