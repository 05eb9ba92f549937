#include "component/sort_object.h"

#include <utility>
#include <vector>

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
    std::vector<std::string> names = textsOf(*marrscategories);
    const std::int32_t first = lowerBoundOf(*marrscategories);
    if (vllBound >= vlUBound) {
      return TextArray{names, first};
    }
    TextArray sorted{sort_.mQuickSort(names, placeOf(vllBound, first), placeOf(vlUBound, first)),
                     first};
    putTexts(*marrscategories, names);
    return sorted;
  });
}

}  // namespace quorbind
