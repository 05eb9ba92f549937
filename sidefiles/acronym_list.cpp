#include "sidefiles/acronym_list.h"

#include <utility>

namespace quorbind {

bool AcronymList::has(const std::string& acronym) {
  if (next_ < inOrder_.size() && inOrder_[next_] == acronym) {
    ++next_;
    return true;
  }
  if (inOrder_.empty()) {
    return false;
  }
  if (all_ == nullptr) {
    auto all = std::make_unique<TextIndex>();
    for (const std::string& each : inOrder_) {
      all->add(each);
    }
    all_ = std::move(all);
  }
  return all_->contains(acronym);
}

void AcronymList::add(std::string acronym) {
  if (all_ != nullptr) {
    all_->add(acronym);
  }
  inOrder_.push_back(std::move(acronym));
}

}  // namespace quorbind
