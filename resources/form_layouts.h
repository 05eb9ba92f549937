#pragma once

#include <array>
#include <span>
#include <string_view>

#include "platform/runtime_error.h"

namespace quorbind {

/// A path label shows a path on one line, without its middle where it is too long.
enum class ControlKind {
  kLabel,
  kPathLabel,
  kTextBox,
  kDefaultButton,
  kCancelButton,
  kProgressBar
};

constexpr bool isLabel(ControlKind kind) {
  return kind == ControlKind::kLabel || kind == ControlKind::kPathLabel;
}

/// One control of a form: its published name and what it shows at design time. Places and sizes are
/// dialog units of the font in which the form is shown.
struct ControlLayout {
  ControlKind kind;
  std::string_view name;
  std::string_view caption;
  std::string_view font;
  int left;
  int top;
  int width;
  int height;
};

/// A form's window. Controls stand in tab order; a text box follows the label that names it.
struct FormLayout {
  std::string_view name;
  std::string_view caption;
  int width;
  int height;
  std::span<const ControlLayout> controls;
};

namespace layout {

inline constexpr std::string_view kLabelFont = "MS Sans Serif";
inline constexpr std::string_view kBoxFont = "Verdana";

inline constexpr std::array kBookInfoControls{
    ControlLayout{
        ControlKind::kLabel, "Label1", "Enter Book Information for :", kLabelFont, 7, 7, 226, 8},
    ControlLayout{ControlKind::kPathLabel, "lblFileName", "", kLabelFont, 7, 18, 226, 8},
    ControlLayout{ControlKind::kLabel, "lblBookName", "Book Name:", kLabelFont, 7, 37, 46, 8},
    ControlLayout{ControlKind::kTextBox, "txtBookName", "", kBoxFont, 57, 35, 176, 14},
    ControlLayout{ControlKind::kLabel, "lblBookAcro", "Book Acro:", kLabelFont, 7, 57, 46, 8},
    ControlLayout{ControlKind::kTextBox, "txtBookAcro", "", kBoxFont, 57, 55, 176, 14},
    ControlLayout{ControlKind::kDefaultButton, "cmdOk", "OK", kLabelFont, 129, 78, 50, 14},
    ControlLayout{ControlKind::kCancelButton, "cmdCancel", "Cancel", kBoxFont, 183, 78, 50, 14},
};
inline constexpr FormLayout kBookInfo{
    "frmBookInfo", "Book Information", 240, 99, kBookInfoControls};

inline constexpr std::array kBookFolderControls{
    ControlLayout{ControlKind::kLabel, "Label1", "Book Folder", kLabelFont, 7, 9, 46, 8},
    ControlLayout{ControlKind::kTextBox, "Text1", "", kBoxFont, 57, 7, 176, 14},
    ControlLayout{ControlKind::kDefaultButton, "cmdOk", "OK", kLabelFont, 183, 29, 50, 14},
};
inline constexpr FormLayout kBookFolder{
    "frmBookFolder", "Enter Book Folder", 240, 50, kBookFolderControls};

inline constexpr std::array kProgressControls{
    ControlLayout{ControlKind::kLabel, "lblStatus", "Status:", kLabelFont, 7, 7, 30, 8},
    ControlLayout{ControlKind::kLabel, "lblStatusText", "", kLabelFont, 40, 7, 193, 8},
    ControlLayout{ControlKind::kProgressBar, "pbTOCTOXML", "", kLabelFont, 7, 22, 226, 12},
};
inline constexpr FormLayout kProgress{"frmProgBar", "Quor TOC", 240, 41, kProgressControls};

inline constexpr std::array kForms{&kBookInfo, &kBookFolder, &kProgress};

}  // namespace layout

/// The layout of the form called `name`. Raises 424 when there is none.
inline const FormLayout& layoutOf(std::string_view name) {
  for (const FormLayout* form : layout::kForms) {
    if (form->name == name) {
      return *form;
    }
  }
  raise(ErrorNumber::kObjectRequired);
}

}  // namespace quorbind
