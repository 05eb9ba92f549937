#pragma once

#include <ocidl.h>
#include <ole2.h>

#include "component/server/com_object.h"
#include "component/server/failure.h"
#include "component/server/late_call.h"
#include "component/server/own_module.h"

namespace quorbind {

/// An object of a published class: hosts call its dual interface `Dual` directly or by name, as the
/// embedded type library describes it. Its class is `Class` of the library.
template <typename Class, typename Dual, typename... Others>
class DualObject : public ComObject<Dual, ISupportErrorInfo, IProvideClassInfo2, Others...> {
  using Base = ComObject<Dual, ISupportErrorInfo, IProvideClassInfo2, Others...>;

 public:
  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) {
      return E_POINTER;
    }
    *count = 1;
    return S_OK;
  }

  STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** info) override {
    if (info == nullptr) {
      return E_POINTER;
    }
    *info = nullptr;
    if (index != 0) {
      return DISP_E_BADINDEX;
    }
    *info = ComPtr<ITypeInfo>(members_).detach();
    return S_OK;
  }

  STDMETHODIMP
  GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    return reserved == IID_NULL ? members_->GetIDsOfNames(names, count, ids)
                                : DISP_E_UNKNOWNINTERFACE;
  }

  STDMETHODIMP Invoke(DISPID member,
                      REFIID reserved,
                      LCID,
                      WORD kind,
                      DISPPARAMS* arguments,
                      VARIANT* result,
                      EXCEPINFO* exception,
                      UINT* wrongArgument) override {
    if (reserved != IID_NULL) {
      return DISP_E_UNKNOWNINTERFACE;
    }
    return callLate(*members_.get(),
                    static_cast<Dual*>(this),
                    {member, kind, arguments, result, exception, wrongArgument});
  }

  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID id) override {
    return id == __uuidof(Dual) ? S_OK : S_FALSE;
  }

  STDMETHODIMP GetClassInfo(ITypeInfo** info) override {
    if (info == nullptr) {
      return E_POINTER;
    }
    *info = nullptr;
    return guarded([&] { *info = ownTypeInfo(__uuidof(Class)).detach(); });
  }

  STDMETHODIMP GetGUID(DWORD kind, GUID* id) override {
    if (id == nullptr) {
      return E_POINTER;
    }
    *id = GUID_NULL;
    return kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID ? defaultSource(id) : E_INVALIDARG;
  }

 protected:
  DualObject() : members_(ownTypeInfo(__uuidof(Dual))) {}

  void* find(REFIID id) override {
    if (id == IID_IDispatch) {
      return static_cast<Dual*>(this);
    }
    if (id == IID_IProvideClassInfo) {
      return static_cast<IProvideClassInfo2*>(this);
    }
    return Base::find(id);
  }

  /// The interface of the class's events; a failure for a class without.
  virtual HRESULT defaultSource(GUID* /*id*/) { return E_NOTIMPL; }

 private:
  ComPtr<ITypeInfo> members_;
};

}  // namespace quorbind
