#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/windows/com_types.h"
#include "tests/component/script_host/counted.h"

namespace quorbind::testing {

/// What a script sees as `WScript`: `Arguments(index)`, `Echo(text)` and
/// `ConnectObject(object, prefix)`. Texts that are echoed go to the standard output as UTF-8.
class HostObject final : public CountedDispatch {
 public:
  /// `script` answers the script's own procedures; asked while the script runs.
  HostObject(std::vector<std::string> arguments, std::function<ComPtr<IDispatch>()> script)
      : arguments_(std::move(arguments)), script_(std::move(script)) {}

  STDMETHODIMP
  GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
  STDMETHODIMP Invoke(DISPID member,
                      REFIID,
                      LCID,
                      WORD,
                      DISPPARAMS* arguments,
                      VARIANT* result,
                      EXCEPINFO*,
                      UINT*) override;

 private:
  Variant call(DISPID member, const std::vector<Variant>& given);
  [[nodiscard]] Variant argument(const Variant& index) const;

  std::vector<std::string> arguments_;
  std::function<ComPtr<IDispatch>()> script_;
};

}  // namespace quorbind::testing
