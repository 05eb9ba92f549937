#include "bookxml/c_sort.h"

#include <cstddef>
#include <utility>

#include "platform/error_trap.h"
#include "platform/locale.h"

namespace quorbind {

namespace {

/// The widest range, as high - low, that is left to the bubble sort.
constexpr std::int64_t kShortRange = 12;

std::string& at(std::vector<std::string>& names, std::int32_t index) {
  if (index < 0 || static_cast<std::size_t>(index) >= names.size()) {
    raise(ErrorNumber::kSubscriptOutOfRange);
  }
  return names[static_cast<std::size_t>(index)];
}

/// Index arithmetic is 32 bits wide; leaving that range is an error like any other.
std::int32_t index(std::int64_t value) {
  if (value != static_cast<std::int32_t>(value)) {
    raise(ErrorNumber::kOverflow);
  }
  return static_cast<std::int32_t>(value);
}

std::int32_t distance(std::int32_t low, std::int32_t high) {
  return index(std::int64_t{high} - low);
}

}  // namespace

std::vector<std::string> cSort::mQuickSort(std::vector<std::string>& marrscategories,
                                           std::int32_t vllBound,
                                           std::int32_t vlUBound) {
  trapped(
      platform_.ui, source::kQuickSort, [&] { sortRange(marrscategories, vllBound, vlUBound); });
  return marrscategories;
}

// Recursion takes the smaller part and the loop the larger one, so the depth stays logarithmic. A
// part whose sorting failed has told so, and ends everything.
bool cSort::sortRange(Names& names, std::int32_t low, std::int32_t high) {
  while (low < high) {
    if (distance(low, high) <= kShortRange) {
      return bubbleSort(names, low, high);
    }
    const auto pivot = mlPartition(names, low, high);
    if (!pivot) {
      return false;
    }
    const std::int32_t leftEnd = index(std::int64_t{*pivot} - 1);
    const std::int32_t rightStart = index(std::int64_t{*pivot} + 1);
    const bool leftIsLarger = distance(low, *pivot) > distance(*pivot, high);
    if (!(leftIsLarger ? sortRange(names, rightStart, high) : sortRange(names, low, leftEnd))) {
      return false;
    }
    (leftIsLarger ? high : low) = leftIsLarger ? leftEnd : rightStart;
  }
  return true;
}

bool cSort::bubbleSort(Names& names, std::int32_t low, std::int32_t high) {
  const Locale& locale = platform_.locale;
  return trapped(platform_.ui, source::kBubbleSort, [&] {
    bool exchanged = true;
    while (exchanged) {
      exchanged = false;
      for (std::int32_t j = low; j < high; ++j) {
        std::string& left = at(names, j);
        std::string& right = at(names, j + 1);
        if (locale.compareText(locale.upperCase(left), locale.upperCase(right)) > 0) {
          std::swap(left, right);
          exchanged = true;
        }
      }
    }
  });
}

std::optional<std::int32_t> cSort::mlPartition(Names& names, std::int32_t low, std::int32_t high) {
  const Locale& locale = platform_.locale;
  using Index = std::optional<std::int32_t>;
  return trapped(platform_.ui, source::kPartition, Index(), [&]() -> Index {
    // Elements are only ever exchanged, so that none is lost where a comparison fails.
    const std::string& pivotName = at(names, low);
    at(names, high);
    std::swap(at(names, low + distance(low, high) / 2), at(names, low));
    std::int32_t left = index(std::int64_t{low} + 1);
    std::int32_t right = high;
    for (;;) {
      while (right > left && locale.compareText(pivotName, at(names, left)) > 0) {
        ++left;
      }
      while (right >= left && locale.compareText(at(names, right), pivotName) > 0) {
        --right;
      }
      if (left >= right) {
        std::swap(at(names, low), at(names, right));
        return right;
      }
      std::swap(at(names, left), at(names, right));
      ++left;
      --right;
    }
  });
}

}  // namespace quorbind
