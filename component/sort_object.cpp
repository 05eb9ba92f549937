#include "component/sort_object.h"

#include <utility>

#include "component/operation.h"

namespace quorbind {

namespace {

/// How far an index is from `first`, the index of an array's first element.
std::int32_t placeOf(LONG index, std::int32_t first) {
  const std::int64_t place = std::int64_t{index} - first;
  if (!std::in_range<std::int32_t>(place)) {
    raise(ErrorNumber::kOverflow);
  }
  return static_cast<std::int32_t>(place);
}

}  // namespace

// The bounds count as the caller's array does.
STDMETHODIMP SortObject::mQuickSort(SAFEARRAY** marrscategories,
                                    LONG vllBound,
                                    LONG vlUBound,
                                    SAFEARRAY** result) {
  return Operation(source::kQuickSort, {marrscategories}).answer(result, [&] {
    TextArray names = textArrayOf(*marrscategories);
    if (vllBound >= vlUBound) {
      return names;
    }
    const std::int32_t first = names.lowerBound;
    TextArray sorted{
        sort_.mQuickSort(names.texts, placeOf(vllBound, first), placeOf(vlUBound, first)), first};
    putTexts(*marrscategories, names.texts);
    return sorted;
  });
}

}  // namespace quorbind
