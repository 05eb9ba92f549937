#pragma once

#include "component/server/com_object.h"
#include "component/server/server.h"

namespace quorbind {

/// Makes the objects of one class.
class ClassFactory final : public ComObject<IClassFactory> {
 public:
  explicit ClassFactory(const ServedClass& served) : served_(served) {}

  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** object) override;
  STDMETHODIMP LockServer(BOOL lock) override;

 private:
  const ServedClass& served_;
};

}  // namespace quorbind
