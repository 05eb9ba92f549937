// Prints the forms as dialog resources. Built and run while the Windows component is built, so that
// a form's layout stands in form_layouts.h alone.

#include <cstddef>
#include <iostream>
#include <string>
#include <string_view>

#include "resources/form_ids.h"
#include "resources/form_layouts.h"

namespace {

using quorbind::ControlKind;
using quorbind::ControlLayout;
using quorbind::FormLayout;

constexpr int kPointSize = 8;

std::string quoted(std::string_view text) {
  std::string result = "\"";
  for (const char c : text) {
    result.append(c == '"' ? 2 : 1, c);
  }
  return result + "\"";
}

struct WindowClass {
  std::string_view name;
  std::string_view style;
};

WindowClass windowClassOf(ControlKind kind) {
  switch (kind) {
    case ControlKind::kLabel:
      return {"Static", "SS_LEFT | SS_NOPREFIX"};
    case ControlKind::kPathLabel:
      return {"Static", "SS_LEFT | SS_NOPREFIX | SS_PATHELLIPSIS"};
    case ControlKind::kTextBox:
      return {"Edit", "ES_LEFT | ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP"};
    case ControlKind::kDefaultButton:
      return {"Button", "BS_DEFPUSHBUTTON | WS_TABSTOP"};
    case ControlKind::kCancelButton:
      return {"Button", "BS_PUSHBUTTON | WS_TABSTOP"};
    case ControlKind::kProgressBar:
      return {"msctls_progress32", "WS_BORDER"};
  }
  return {};
}

// The progress window has no close box: only the program ends it.
std::string_view closeBoxStyleOf(const FormLayout& form) {
  for (const ControlLayout& control : form.controls) {
    if (control.kind == ControlKind::kProgressBar) {
      return "";
    }
  }
  return " | WS_SYSMENU";
}

void printControl(const FormLayout& form, std::size_t place) {
  const ControlLayout& control = form.controls[place];
  const auto [name, style] = windowClassOf(control.kind);
  std::cout << "  CONTROL " << quoted(control.caption) << ", "
            << quorbind::layout::controlId(form, place) << ", " << quoted(name) << ", " << style
            << ", " << control.left << ", " << control.top << ", " << control.width << ", "
            << control.height << '\n';
}

void printForm(const FormLayout& form) {
  std::cout << '\n'
            << form.name << " DIALOGEX 0, 0, " << form.width << ", " << form.height << '\n'
            << "STYLE DS_SETFONT | DS_MODALFRAME | WS_POPUP | WS_CAPTION" << closeBoxStyleOf(form)
            << '\n'
            << "CAPTION " << quoted(form.caption) << '\n'
            << "FONT " << kPointSize << ", " << quoted(quorbind::layout::kLabelFont) << '\n'
            << "BEGIN\n";
  for (std::size_t place = 0; place < form.controls.size(); ++place) {
    printControl(form, place);
  }
  std::cout << "END\n";
}

}  // namespace

int main() {
  std::cout << "#include <windows.h>\n";
  for (const FormLayout* form : quorbind::layout::kForms) {
    printForm(*form);
  }
  std::cout.flush();
  return std::cout ? 0 : 1;
}
