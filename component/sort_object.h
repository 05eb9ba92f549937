#pragma once

#include "bookxml/c_sort.h"
#include "component/component_module.h"
#include "component/server/dual_object.h"
#include "quorbind_com.h"

namespace quorbind {

/// `cSort` as hosts see it.
class SortObject final : public DualObject<::cSort, _cSort> {
 public:
  STDMETHODIMP mQuickSort(SAFEARRAY** marrscategories,
                          LONG vllBound,
                          LONG vlUBound,
                          SAFEARRAY** result) override;

 private:
  cSort sort_{componentModule().platform};
};

}  // namespace quorbind
