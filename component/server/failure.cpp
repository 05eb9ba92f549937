#include "component/server/failure.h"

#include "platform/error_trap.h"

namespace quorbind {

HRESULT leaveCurrentError(REFIID id) noexcept {
  HRESULT result = E_OUTOFMEMORY;
  guarded([&] {
    const RunTimeError error = currentRunTimeError();
    result = resultOf(error);
    ComPtr<ICreateErrorInfo> info;
    requireSuccess(::CreateErrorInfo(info.put()));
    requireSuccess(info->SetGUID(id));
    requireSuccess(info->SetDescription(Bstr(error.description()).get()));
    requireSuccess(::SetErrorInfo(0, info.as<IErrorInfo>().get()));
  });
  return result;
}

}  // namespace quorbind
