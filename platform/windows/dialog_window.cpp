#include "platform/windows/dialog_window.h"

#include "platform/runtime_error.h"
#include "resources/form_ids.h"

namespace quorbind {

static_assert(layout::kDefaultButtonId == IDOK && layout::kCancelButtonId == IDCANCEL,
              "the system sends Enter and Escape under these numbers");

DialogWindow::DialogWindow(ModalForm& form) : FormWindow(layoutOf(form.name())), form_(form) {}

void DialogWindow::run(HWND owner) {
  runModal(owner);
  if (form_.isShown()) {
    form_.closeByUser();
    raise(ErrorNumber::kObjectUnloaded);
  }
}

bool DialogWindow::onCreated() {
  constexpr WPARAM kUnlimited = 0;
  for (std::size_t place = 0; place < layout().controls.size(); ++place) {
    const ControlLayout& control = layout().controls[place];
    if (control.kind == ControlKind::kTextBox) {
      ::SendMessageW(controlAt(place), EM_SETLIMITTEXT, kUnlimited, 0);
    }
    if (isLabel(control.kind) && control.caption.empty()) {
      setWindowText(controlAt(place), form_.labelText(control.name));
    }
  }
  follow();
  return true;
}

bool DialogWindow::onMessage(UINT message, WPARAM wParam, LPARAM /*lParam*/) {
  switch (message) {
    case WM_COMMAND:
      return onCommand(LOWORD(wParam), HIWORD(wParam));
    case WM_CLOSE:
      form_.closeByUser();
      follow();
      return true;
    default:
      return false;
  }
}

bool DialogWindow::onCommand(int id, int notification) {
  if (id == layout::kDefaultButtonId && notification == BN_CLICKED) {
    press(ControlKind::kDefaultButton);
    return true;
  }
  if (id == layout::kCancelButtonId && notification == BN_CLICKED) {
    press(ControlKind::kCancelButton);
    return true;
  }
  if (id >= layout::kFirstControlId && notification == EN_CHANGE) {
    onTyped(static_cast<std::size_t>(id - layout::kFirstControlId));
    return true;
  }
  return false;
}

// A box that was set to what the form holds reports a change too, which is none to the form.
void DialogWindow::onTyped(std::size_t place) {
  const std::string_view box = layout().controls[place].name;
  const std::string text = windowText(controlAt(place));
  if (text != form_.boxText(box)) {
    form_.type(box, text);
    follow();
  }
}

// Escape asks for a cancel button also where there is none; it leaves the form by its close box.
void DialogWindow::press(ControlKind button) {
  for (const ControlLayout& control : layout().controls) {
    if (control.kind == button) {
      form_.click(control.name);
      follow();
      return;
    }
  }
  form_.closeByUser();
  follow();
}

void DialogWindow::follow() {
  if (!form_.isShown()) {
    endModal();
    return;
  }
  for (std::size_t place = 0; place < layout().controls.size(); ++place) {
    const ControlLayout& control = layout().controls[place];
    if (control.kind == ControlKind::kTextBox) {
      setWindowText(controlAt(place), form_.boxText(control.name));
    }
  }
}

}  // namespace quorbind
