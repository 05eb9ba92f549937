#pragma once

#include <map>
#include <string>

#include "platform/windows/com_types.h"
#include "tests/component/script_host/counted.h"

namespace quorbind::testing {

/// Hears the events of one object and calls the procedure of a script that has the event's name
/// behind a prefix. Events without such a procedure are nobody's.
class ScriptEvents final : public CountedDispatch {
 public:
  /// Subscribes; the object keeps the subscription. Raises a run-time error when it has no events.
  static void connect(IUnknown* source, ComPtr<IDispatch> script, const std::wstring& prefix);

  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID event,
                      REFIID,
                      LCID locale,
                      WORD kind,
                      DISPPARAMS* arguments,
                      VARIANT* result,
                      EXCEPINFO* exception,
                      UINT* wrongArgument) override;

 private:
  ScriptEvents(REFIID events, std::map<DISPID, std::wstring> procedures, ComPtr<IDispatch> script)
      : events_(events), procedures_(std::move(procedures)), script_(std::move(script)) {}

  bool answersTo(REFIID id) const override {
    return ::IsEqualIID(id, events_) || CountedDispatch::answersTo(id);
  }

  const IID events_;
  const std::map<DISPID, std::wstring> procedures_;
  const ComPtr<IDispatch> script_;
};

}  // namespace quorbind::testing
