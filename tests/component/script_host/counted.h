#pragma once

#include <ole2.h>

namespace quorbind::testing {

/// A COM object with one interface, destroyed with its last reference.
template <typename Interface>
class Counted : public Interface {
 public:
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    *object = answersTo(id) ? this : nullptr;
    if (*object == nullptr) {
      return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) {
      delete this;
    }
    return left;
  }

 protected:
  Counted() = default;
  virtual ~Counted() = default;

  virtual bool answersTo(REFIID id) const {
    return ::IsEqualIID(id, IID_IUnknown) || ::IsEqualIID(id, __uuidof(Interface));
  }

 private:
  ULONG references_ = 1;
};

/// The same for an object that is called by name: its type is not told.
class CountedDispatch : public Counted<IDispatch> {
 public:
  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
    *info = nullptr;
    return DISP_E_BADINDEX;
  }
};

}  // namespace quorbind::testing
