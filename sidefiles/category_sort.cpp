#include "sidefiles/category_sort.h"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

#include "platform/error_trap.h"
#include "platform/locale.h"

namespace quorbind {

namespace {

/// The elements from 1 to `last`, as a caller counts.
struct Range {
  std::int64_t last = 0;

  [[nodiscard]] bool isWithin(const TextArray& array) const {
    return array.lowerBound <= 1 && last <= array.upperBound();
  }
};

/// Where the elements of a range go, so that `names` are in order.
std::vector<std::size_t> orderOf(const Locale& locale, const TextArray& names, Range range) {
  std::vector<std::string> keys;
  for (std::int64_t index = 1; index <= range.last; ++index) {
    keys.push_back(locale.upperCase(names.at(index)));
  }
  std::vector<std::size_t> order(keys.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
    return locale.compareText(keys[left], keys[right]) < 0;
  });
  return order;
}

void arrange(TextArray& array, const std::vector<std::size_t>& order) {
  std::vector<std::string> arranged;
  arranged.reserve(order.size());
  for (const std::size_t place : order) {
    arranged.push_back(std::move(array.at(static_cast<std::int64_t>(place) + 1)));
  }
  for (std::size_t place = 0; place < arranged.size(); ++place) {
    array.at(static_cast<std::int64_t>(place) + 1) = std::move(arranged[place]);
  }
}

void exchangeWithNext(TextArray& array, std::int64_t index) {
  std::swap(array.at(index), array.at(index + 1));
}

/// The published sort, statement by statement: one that fails is passed over, and a comparison that
/// fails counts as one that asks for the exchange.
void sortStepByStep(const Locale& locale, TextArray& names, TextArray& acronyms, Range range) {
  for (std::int64_t end = range.last; end > 0; --end) {
    for (std::int64_t index = 1; index < end; ++index) {
      bool isGreater = true;
      ignoringErrors([&] {
        isGreater = locale.compareText(locale.upperCase(names.at(index)),
                                       locale.upperCase(names.at(index + 1))) > 0;
      });
      if (isGreater) {
        ignoringErrors([&] { exchangeWithNext(names, index); });
        ignoringErrors([&] { exchangeWithNext(acronyms, index); });
      }
    }
  }
}

void sortTogether(const Locale& locale, TextArray& names, TextArray& acronyms) {
  const Range range{names.upperBound() - names.lowerBound};
  std::vector<std::size_t> order;
  const bool canArrange = range.isWithin(names) && range.isWithin(acronyms) &&
                          ignoringErrors([&] { order = orderOf(locale, names, range); }) == 0;
  if (canArrange) {
    arrange(names, order);
    arrange(acronyms, order);
  } else {
    sortStepByStep(locale, names, acronyms, range);
  }
}

}  // namespace

TextArray SortArray(const Platform& platform,
                    TextArray& rarrsBookNames,
                    TextArray& rarrsBookAcros,
                    std::int16_t /*ivalue*/) {
  return trapped(platform.ui, source::kSortArray, TextArray(), [&] {
    sortTogether(platform.locale, rarrsBookNames, rarrsBookAcros);
    return rarrsBookAcros;
  });
}

}  // namespace quorbind
