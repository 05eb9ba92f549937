#include "platform/windows/progress_window.h"

#include <commctrl.h>

#include <algorithm>

namespace quorbind {

ProgressWindow::ProgressWindow(HWND owner) : FormWindow(layout::kProgress) {
  create(owner);
}

void ProgressWindow::show(const ProgressView& view) {
  setWindowText(window(), view.caption);
  setWindowText(control("lblStatusText"), view.status);
  const HWND bar = control("pbTOCTOXML");
  ::SendMessageW(bar, PBM_SETRANGE32, 0, std::max<LPARAM>(view.maximum, 1));
  ::SendMessageW(bar, PBM_SETPOS, static_cast<WPARAM>(std::max(view.value, 0)), 0);
  // The keyboard stays where it is.
  ::ShowWindow(window(), SW_SHOWNOACTIVATE);
  paint();
}

void ProgressWindow::hide() {
  ::ShowWindow(window(), SW_HIDE);
}

bool ProgressWindow::isVisible() const {
  return ::IsWindowVisible(window()) != FALSE;
}

bool ProgressWindow::onMessage(UINT message, WPARAM /*wParam*/, LPARAM /*lParam*/) {
  return message == WM_CLOSE;
}

// Looking at the queue, without taking anything from it, tells the system that the window is alive
// and lets it say which parts were uncovered.
void ProgressWindow::paint() {
  MSG message{};
  ::PeekMessageW(&message, window(), 0, 0, PM_NOREMOVE | PM_QS_PAINT);
  ::RedrawWindow(window(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

}  // namespace quorbind
