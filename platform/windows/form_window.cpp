#include "platform/windows/form_window.h"

#include <commctrl.h>

#include <algorithm>
#include <cstddef>
#include <utility>

#include "platform/runtime_error.h"
#include "platform/windows/com_types.h"
#include "platform/windows/dpi_awareness.h"
#include "resources/form_ids.h"

namespace quorbind {

namespace {

/// Posted to a window of ours when it came to a screen with another scale.
constexpr UINT kScaleChanged = WM_APP;

[[noreturn]] void raiseLastWindowError() {
  throw runTimeErrorOf(HRESULT_FROM_WIN32(::GetLastError()));
}

/// The program or library that this code, and with it the dialog resources, is part of.
HINSTANCE ownInstance() {
  HMODULE module = nullptr;
  ::GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<const wchar_t*>(&ownInstance),
      &module);
  return module;
}

RECT workAreaFor(HWND owner) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof(monitor);
  ::GetMonitorInfoW(::MonitorFromWindow(owner, MONITOR_DEFAULTTOPRIMARY), &monitor);
  return monitor.rcWork;
}

RECT frameOf(HWND window) {
  RECT frame{};
  ::GetWindowRect(window, &frame);
  return frame;
}

/// Where a window of `length` starts so that it stands in the middle of `from` .. `to`, and inside
/// `least` .. `most` if there is room.
LONG middle(LONG from, LONG to, LONG length, LONG least, LONG most) {
  return std::max(least, std::min((from + to - length) / 2, most - length));
}

void moveToTheMiddle(HWND window, HWND owner) {
  const RECT screen = workAreaFor(owner);
  const bool ownerHasPlace = owner != nullptr && ::IsIconic(owner) == FALSE;
  const RECT around = ownerHasPlace ? frameOf(owner) : screen;
  const RECT frame = frameOf(window);
  const LONG left =
      middle(around.left, around.right, frame.right - frame.left, screen.left, screen.right);
  const LONG top =
      middle(around.top, around.bottom, frame.bottom - frame.top, screen.top, screen.bottom);
  ::SetWindowPos(window, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void requireProgressBars() {
  INITCOMMONCONTROLSEX controls{};
  controls.dwSize = sizeof(controls);
  controls.dwICC = ICC_PROGRESS_CLASS;
  ::InitCommonControlsEx(&controls);
}

}  // namespace

std::string windowText(HWND window) {
  std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, L'\0');
  const int length = ::GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
  text.resize(static_cast<std::size_t>(length));
  return toUtf8(text);
}

void setWindowText(HWND window, std::string_view text) {
  if (windowText(window) != text) {
    ::SetWindowTextW(window, toWide(text).c_str());
  }
}

// From here on the object is no longer what it was derived to, so messages must not reach it.
FormWindow::~FormWindow() {
  if (window_ != nullptr) {
    ::SetWindowLongPtrW(window_, DWLP_USER, 0);
    ::DestroyWindow(window_);
  }
}

void FormWindow::runModal(HWND owner) {
  const DpiAwareness sharp;
  const INT_PTR result = ::DialogBoxParamW(
      ownInstance(), resourceName().c_str(), owner, procedure, reinterpret_cast<LPARAM>(this));
  rethrowFailure();
  // A dialog that others destroyed may end the same way, but that one was there.
  if (const bool wasMade = boxFont_ != nullptr; result == -1 && !wasMade) {
    raiseLastWindowError();
  }
}

void FormWindow::endModal() {
  ::EndDialog(window_, 0);
}

void FormWindow::create(HWND owner) {
  const DpiAwareness sharp;
  requireProgressBars();
  const HWND made = ::CreateDialogParamW(
      ownInstance(), resourceName().c_str(), owner, procedure, reinterpret_cast<LPARAM>(this));
  rethrowFailure();
  if (made == nullptr) {
    raiseLastWindowError();
  }
}

void FormWindow::rethrowFailure() {
  if (failure_) {
    std::rethrow_exception(std::exchange(failure_, nullptr));
  }
}

HWND FormWindow::control(std::string_view name) const {
  for (std::size_t place = 0; place < layout_.controls.size(); ++place) {
    if (layout_.controls[place].name == name) {
      return controlAt(place);
    }
  }
  raise(ErrorNumber::kMemberNotSupported);
}

HWND FormWindow::controlAt(std::size_t place) const {
  return ::GetDlgItem(window_, layout::controlId(layout_, place));
}

INT_PTR CALLBACK FormWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    ::SetWindowLongPtrW(window, DWLP_USER, lParam);
    reinterpret_cast<FormWindow*>(lParam)->window_ = window;
  }
  auto* form = reinterpret_cast<FormWindow*>(::GetWindowLongPtrW(window, DWLP_USER));
  if (form == nullptr) {
    return FALSE;
  }
  try {
    return form->dispatch(message, wParam, lParam) ? TRUE : FALSE;
  } catch (...) {
    // No exception may pass through the system's code: it waits for the end of the display.
    form->failure_ = std::current_exception();
    form->endModal();
    return TRUE;
  }
}

bool FormWindow::dispatch(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_INITDIALOG:
      setBoxFont();
      moveToTheMiddle(window_, ::GetWindow(window_, GW_OWNER));
      return onCreated();
    case WM_DPICHANGED:
      // The dialog's own font is made anew after this, and given to every control.
      ::PostMessageW(window_, kScaleChanged, 0, 0);
      return false;
    case kScaleChanged:
      setBoxFont();
      return true;
    case WM_NCDESTROY:
      window_ = nullptr;
      return false;
    default:
      return onMessage(message, wParam, lParam);
  }
}

void FormWindow::setBoxFont() {
  auto* const dialogFont = reinterpret_cast<HFONT>(::SendMessageW(window_, WM_GETFONT, 0, 0));
  LOGFONTW description{};
  ::GetObjectW(dialogFont, sizeof(description), &description);
  const std::wstring face = toWide(layout::kBoxFont);
  *std::copy(face.begin(), face.end(), std::begin(description.lfFaceName)) = L'\0';
  Font font(::CreateFontIndirectW(&description));
  if (!font) {
    raise(ErrorNumber::kOutOfMemory);
  }
  for (std::size_t place = 0; place < layout_.controls.size(); ++place) {
    if (layout_.controls[place].font == layout::kBoxFont) {
      ::SendMessageW(controlAt(place), WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), TRUE);
    }
  }
  boxFont_ = std::move(font);
}

std::wstring FormWindow::resourceName() const {
  return toWide(layout_.name);
}

}  // namespace quorbind
