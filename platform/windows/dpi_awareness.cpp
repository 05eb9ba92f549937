#include "platform/windows/dpi_awareness.h"

namespace quorbind {

namespace {

DPI_AWARENESS_CONTEXT changeAwareness(DPI_AWARENESS_CONTEXT awareness) {
  using Change = DPI_AWARENESS_CONTEXT(WINAPI*)(DPI_AWARENESS_CONTEXT);
  const FARPROC found =
      ::GetProcAddress(::GetModuleHandleW(L"user32.dll"), "SetThreadDpiAwarenessContext");
  const auto change = reinterpret_cast<Change>(reinterpret_cast<void*>(found));
  return change == nullptr ? nullptr : change(awareness);
}

}  // namespace

DpiAwareness::DpiAwareness()
    : before_(changeAwareness(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2)) {}

DpiAwareness::~DpiAwareness() {
  if (before_ != nullptr) {
    changeAwareness(before_);
  }
}

}  // namespace quorbind
