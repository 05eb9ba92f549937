#include "tests/component/script_host/script.h"

#include <activscp.h>

#include <utility>

#include "platform/windows/com_types.h"
#include "tests/component/script_host/host_object.h"

namespace quorbind::testing {

namespace {

constexpr const wchar_t* kHostObject = L"WScript";

/// What an engine asks its host.
class ScriptSite final : public Counted<IActiveScriptSite> {
 public:
  explicit ScriptSite(ComPtr<IDispatch> host) : host_(std::move(host)) {}

  [[nodiscard]] const std::string& failure() const { return failure_; }

  STDMETHODIMP GetLCID(LCID*) override { return E_NOTIMPL; }
  STDMETHODIMP
  GetItemInfo(LPCOLESTR name, DWORD asked, IUnknown** object, ITypeInfo** info) override {
    if (info != nullptr) {
      *info = nullptr;
    }
    const bool isKnown = ::lstrcmpiW(name, kHostObject) == 0;
    if (!isKnown || (asked & SCRIPTINFO_IUNKNOWN) == 0) {
      return TYPE_E_ELEMENTNOTFOUND;
    }
    *object = ComPtr<IDispatch>(host_).detach();
    return S_OK;
  }
  STDMETHODIMP GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
  STDMETHODIMP OnStateChange(SCRIPTSTATE) override { return S_OK; }
  STDMETHODIMP OnScriptError(IActiveScriptError* error) override {
    EXCEPINFO info{};
    DWORD context = 0;
    ULONG line = 0;
    LONG column = 0;
    error->GetExceptionInfo(&info);
    error->GetSourcePosition(&context, &line, &column);
    failure_ = "line " + std::to_string(line + 1) + ": " + textOf(info.bstrDescription);
    ::SysFreeString(info.bstrSource);
    ::SysFreeString(info.bstrDescription);
    ::SysFreeString(info.bstrHelpFile);
    return S_OK;
  }
  STDMETHODIMP OnEnterScript() override { return S_OK; }
  STDMETHODIMP OnLeaveScript() override { return S_OK; }

 private:
  ComPtr<IDispatch> host_;
  std::string failure_;
};

ComPtr<IActiveScript> createEngine(const std::wstring& name) {
  CLSID classId{};
  ComPtr<IActiveScript> engine;
  requireSuccess(::CLSIDFromProgID(name.c_str(), &classId));
  requireSuccess(
      ::CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, engine.id(), engine.putAny()));
  return engine;
}

/// Runs it to its end, which may be an error that the site was told of.
void run(const ComPtr<IActiveScript>& engine, IActiveScriptSite* site, const std::wstring& text) {
  const auto parser = engine.as<IActiveScriptParse>();
  requireSuccess(engine->SetScriptSite(site));
  requireSuccess(parser->InitNew());
  requireSuccess(engine->AddNamedItem(kHostObject, SCRIPTITEM_ISVISIBLE));
  requireSuccess(engine->SetScriptState(SCRIPTSTATE_STARTED));
  parser->ParseScriptText(
      text.c_str(), nullptr, nullptr, nullptr, 0, 0, SCRIPTTEXT_ISVISIBLE, nullptr, nullptr);
  engine->Close();
}

}  // namespace

std::string runScript(const std::wstring& engineName,
                      const std::wstring& text,
                      std::vector<std::string> arguments) {
  const ComPtr<IActiveScript> engine = createEngine(engineName);
  const auto procedures = [&engine] {
    ComPtr<IDispatch> script;
    requireSuccess(engine->GetScriptDispatch(nullptr, script.put()));
    return script;
  };
  const auto host = ComPtr<IDispatch>::owning(new HostObject(std::move(arguments), procedures));
  const auto site = ComPtr<ScriptSite>::owning(new ScriptSite(host));
  run(engine, site.get(), text);
  return site->failure();
}

}  // namespace quorbind::testing
