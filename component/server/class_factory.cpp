#include "component/server/class_factory.h"

#include "component/server/failure.h"

namespace quorbind {

STDMETHODIMP ClassFactory::CreateInstance(IUnknown* outer, REFIID id, void** object) {
  if (object == nullptr) {
    return E_POINTER;
  }
  *object = nullptr;
  if (outer != nullptr) {
    return CLASS_E_NOAGGREGATION;
  }
  HRESULT found = E_UNEXPECTED;
  const HRESULT made = guarded([&] { found = served_.create()->QueryInterface(id, object); });
  return FAILED(made) ? made : found;
}

STDMETHODIMP ClassFactory::LockServer(BOOL lock) {
  if (lock != FALSE) {
    ServerUse::begin();
  } else {
    ServerUse::end();
  }
  return S_OK;
}

}  // namespace quorbind
