#include "tests/component/progress_notes.h"

#include <commctrl.h>

#include "tests/component/window_driver.h"

namespace quorbind::testing {

ProgressNotes* ProgressNotes::listening_ = nullptr;

ProgressNotes::ProgressNotes()
    : hook_(::SetWindowsHookExW(WH_CALLWNDPROCRET, afterMessage, nullptr, ::GetCurrentThreadId())) {
  listening_ = this;
}

ProgressNotes::~ProgressNotes() {
  ::UnhookWindowsHookEx(hook_);
  listening_ = nullptr;
}

LRESULT CALLBACK ProgressNotes::afterMessage(int code, WPARAM self, LPARAM data) {
  const auto& message = *reinterpret_cast<const CWPRETSTRUCT*>(data);
  if (code == HC_ACTION && message.message == PBM_SETPOS) {
    const ScreenWindow window(::GetParent(message.hwnd));
    std::string note = window.caption();
    for (const std::string& control : window.contents()) {
      note.append(" | ").append(control);
    }
    listening_->notes_.push_back(note);
  }
  return ::CallNextHookEx(nullptr, code, self, data);
}

}  // namespace quorbind::testing
