#include "tests/component/script_host/script_events.h"

#include <ocidl.h>

#include <utility>

namespace quorbind::testing {

namespace {

/// The description of the events that a class has by default.
ComPtr<ITypeInfo> defaultEventsOf(ITypeInfo& classInfo) {
  constexpr int kDefaultSource = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
  TYPEATTR* attributes = nullptr;
  requireSuccess(classInfo.GetTypeAttr(&attributes));
  const UINT count = attributes->cImplTypes;
  classInfo.ReleaseTypeAttr(attributes);
  ComPtr<ITypeInfo> events;
  for (UINT index = 0; index < count; ++index) {
    int flags = 0;
    HREFTYPE type = 0;
    requireSuccess(classInfo.GetImplTypeFlags(index, &flags));
    if ((flags & kDefaultSource) == kDefaultSource) {
      requireSuccess(classInfo.GetRefTypeOfImplType(index, &type));
      requireSuccess(classInfo.GetRefTypeInfo(type, events.put()));
    }
  }
  return events;
}

std::map<DISPID, std::wstring> proceduresFor(ITypeInfo& events, const std::wstring& prefix) {
  std::map<DISPID, std::wstring> procedures;
  FUNCDESC* function = nullptr;
  for (UINT index = 0; SUCCEEDED(events.GetFuncDesc(index, &function)); ++index) {
    const MEMBERID id = function->memid;
    events.ReleaseFuncDesc(function);
    Bstr name;
    requireSuccess(events.GetDocumentation(id, name.put(), nullptr, nullptr, nullptr));
    procedures[id] = prefix + std::wstring(name.view());
  }
  return procedures;
}

}  // namespace

void ScriptEvents::connect(IUnknown* source, ComPtr<IDispatch> script, const std::wstring& prefix) {
  const auto object = ComPtr<IUnknown>::sharing(source);
  const auto description = object.as<IProvideClassInfo2>();
  const auto container = object.as<IConnectionPointContainer>();
  IID id{};
  ComPtr<ITypeInfo> classInfo;
  if (!description || !container) {
    raise(ErrorNumber::kMemberNotSupported);
  }
  requireSuccess(description->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &id));
  requireSuccess(description->GetClassInfo(classInfo.put()));
  const ComPtr<ITypeInfo> events = defaultEventsOf(*classInfo.get());

  const auto sink = ComPtr<ScriptEvents>::owning(
      new ScriptEvents(id, proceduresFor(*events.get(), prefix), std::move(script)));
  ComPtr<IConnectionPoint> point;
  DWORD cookie = 0;
  requireSuccess(container->FindConnectionPoint(id, point.put()));
  requireSuccess(point->Advise(sink.get(), &cookie));
}

STDMETHODIMP ScriptEvents::Invoke(DISPID event,
                                  REFIID,
                                  LCID locale,
                                  WORD kind,
                                  DISPPARAMS* arguments,
                                  VARIANT* result,
                                  EXCEPINFO* exception,
                                  UINT* wrongArgument) {
  const auto procedure = procedures_.find(event);
  if (procedure == procedures_.end()) {
    return DISP_E_MEMBERNOTFOUND;
  }
  DISPID id = DISPID_UNKNOWN;
  auto name = const_cast<LPOLESTR>(procedure->second.c_str());
  const HRESULT found = script_->GetIDsOfNames(IID_NULL, &name, 1, locale, &id);
  return FAILED(found)
             ? found
             : script_->Invoke(
                   id, IID_NULL, locale, kind, arguments, result, exception, wrongArgument);
}

}  // namespace quorbind::testing
