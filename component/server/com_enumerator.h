#pragma once

#include <ole2.h>

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "component/server/com_object.h"
#include "component/server/failure.h"

namespace quorbind {

/// An enumerator over what there was when it was made. `Item` owns one element and hands a copy out
/// by `Element copy() const`.
template <typename Enumerator, typename Element, typename Item>
class ComEnumerator final : public ComObject<Enumerator> {
 public:
  explicit ComEnumerator(std::vector<Item> items, std::size_t position = 0)
      : items_(std::move(items)), position_(position) {}

  STDMETHODIMP Next(ULONG count, Element* elements, ULONG* fetched) override {
    if (elements == nullptr || (fetched == nullptr && count != 1)) {
      return E_POINTER;
    }
    const ULONG given = std::min(count, left());
    for (ULONG index = 0; index < given; ++index) {
      elements[index] = items_[position_++].copy();
    }
    if (fetched != nullptr) {
      *fetched = given;
    }
    return given == count ? S_OK : S_FALSE;
  }

  STDMETHODIMP Skip(ULONG count) override {
    const ULONG skipped = std::min(count, left());
    position_ += skipped;
    return skipped == count ? S_OK : S_FALSE;
  }

  STDMETHODIMP Reset() override {
    position_ = 0;
    return S_OK;
  }

  STDMETHODIMP Clone(Enumerator** clone) override {
    if (clone == nullptr) {
      return E_POINTER;
    }
    *clone = nullptr;
    return guarded([&] { *clone = makeObject<ComEnumerator>(items_, position_).detach(); });
  }

 private:
  [[nodiscard]] ULONG left() const { return static_cast<ULONG>(items_.size() - position_); }

  std::vector<Item> items_;
  std::size_t position_;
};

}  // namespace quorbind
