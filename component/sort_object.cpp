#include "component/sort_object.h"

#include <vector>

#include "component/operation.h"

namespace quorbind {

// The bounds count as the caller's array does.
STDMETHODIMP SortObject::mQuickSort(SAFEARRAY** marrscategories,
                                    LONG vllBound,
                                    LONG vlUBound,
                                    SAFEARRAY** result) {
  return Operation(source::kQuickSort, {marrscategories}).answer(result, [&] {
    std::vector<std::string> names = textsOf(*marrscategories);
    const std::int32_t first = lowerBoundOf(*marrscategories);
    TextArray sorted{sort_.mQuickSort(names, vllBound - first, vlUBound - first), first};
    putTexts(*marrscategories, names);
    return sorted;
  });
}

}  // namespace quorbind
