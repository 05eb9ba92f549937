#include "cli/component_call.h"

#include "cli/failure.h"
#include "platform/runtime_error.h"

namespace quorbind {

namespace {

ExitStatus statusOf(const ShownMessage& box) {
  const std::int32_t number = box.errorNumber;
  if (isWriteError(number)) {
    return ExitStatus::kWriteFailed;
  }
  if (number == static_cast<std::int32_t>(ErrorNumber::kObjectNotSet) || isLackOfMemory(number)) {
    return ExitStatus::kNotParseable;
  }
  return number == 0 || number == kInvalidQueryError ? ExitStatus::kRefused : ExitStatus::kInternal;
}

}  // namespace

void callComponent(Wiring& wiring, const std::function<void()>& call) {
  const std::size_t boxesBefore = wiring.ui.shown().size();
  call();
  wiring.ui.unloadProgress();
  if (wiring.files.failedWrite()) {
    throw AlreadyTold(ExitStatus::kWriteFailed);
  }
  if (wiring.files.failedRead()) {
    throw AlreadyTold(ExitStatus::kInputMissing);
  }
  const auto& boxes = wiring.ui.shown();
  if (boxes.size() > boxesBefore) {
    throw AlreadyTold(statusOf(boxes[boxesBefore]));
  }
}

}  // namespace quorbind
