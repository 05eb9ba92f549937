#pragma once

#include <dispex.h>
#include <ocidl.h>
#include <ole2.h>

#include "component/server/com_object.h"
#include "component/server/failure.h"
#include "component/server/late_call.h"
#include "component/server/own_module.h"

namespace quorbind {

/// An object of a published class: hosts call its dual interface `Dual` directly or by name, as the
/// embedded type library describes it. Its class is `Class` of the library.
///
/// Script engines have an entrance of their own, IDispatchEx: by that one an array of texts that is
/// a result is an array of variants, which is what they can read. Both know the same members.
template <typename Class, typename Dual, typename... Others>
class DualObject
    : public ComObject<Dual, ISupportErrorInfo, IProvideClassInfo2, IDispatchEx, Others...> {
  using Base = ComObject<Dual, ISupportErrorInfo, IProvideClassInfo2, IDispatchEx, Others...>;

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
    if (names == nullptr || ids == nullptr) {
      return E_POINTER;
    }
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

  STDMETHODIMP GetDispID(BSTR name, DWORD /*options*/, DISPID* id) override {
    if (id == nullptr) {
      return E_POINTER;
    }
    *id = DISPID_UNKNOWN;
    return name == nullptr ? E_INVALIDARG : members_->GetIDsOfNames(&name, 1, id);
  }

  STDMETHODIMP InvokeEx(DISPID member,
                        LCID,
                        WORD kind,
                        DISPPARAMS* arguments,
                        VARIANT* result,
                        EXCEPINFO* exception,
                        IServiceProvider* /*caller*/) override {
    return callFromScript(*members_.get(),
                          static_cast<Dual*>(this),
                          {member, kind, arguments, result, exception, nullptr});
  }

  STDMETHODIMP GetMemberName(DISPID member, BSTR* name) override {
    if (name == nullptr) {
      return E_POINTER;
    }
    *name = nullptr;
    UINT count = 0;
    return FAILED(members_->GetNames(member, name, 1, &count)) ? DISP_E_MEMBERNOTFOUND : S_OK;
  }

  // Members neither come nor go, and a script that walks over an object's properties finds none, as
  // in every object that only has a type library.
  STDMETHODIMP DeleteMemberByName(BSTR /*name*/, DWORD /*options*/) override { return S_FALSE; }
  STDMETHODIMP DeleteMemberByDispID(DISPID /*member*/) override { return S_FALSE; }
  STDMETHODIMP GetNextDispID(DWORD /*options*/, DISPID /*member*/, DISPID* /*next*/) override {
    return S_FALSE;
  }
  STDMETHODIMP
  GetMemberProperties(DISPID /*member*/, DWORD /*asked*/, DWORD* /*properties*/) override {
    return E_NOTIMPL;
  }
  STDMETHODIMP GetNameSpaceParent(IUnknown** /*parent*/) override { return E_NOTIMPL; }

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
