#pragma once

#include <cstddef>

#include "resources/form_layouts.h"

namespace quorbind::layout {

// The numbers by which windows know the controls of a form. A form's dialog resource is called by
// the form's name.

inline constexpr int kDefaultButtonId = 1;
inline constexpr int kCancelButtonId = 2;
inline constexpr int kFirstControlId = 100;

/// The number of the control that stands at `place` in its form's list. Those of the two buttons
/// are the ones for which the platform sends Enter and Escape.
constexpr int controlId(const FormLayout& form, std::size_t place) {
  switch (form.controls[place].kind) {
    case ControlKind::kDefaultButton:
      return kDefaultButtonId;
    case ControlKind::kCancelButton:
      return kCancelButtonId;
    default:
      return kFirstControlId + static_cast<int>(place);
  }
}

}  // namespace quorbind::layout
