#pragma once

#include <string>
#include <string_view>

namespace quorbind {

/// A modal form as a user interface sees it: values by control name, and what a person can do.
///
/// Which controls there are, and where, stands in resources/form_layouts.h under `name()`. A
/// control name that the form does not have raises error 438. Change and click handlers run inside
/// the call that causes them.
class ModalForm {
 public:
  virtual ~ModalForm() = default;

  /// The form's published name, which is also the key of its layout.
  [[nodiscard]] virtual std::string_view name() const = 0;
  /// False as soon as a handler hid or unloaded the form: the modal display ends.
  [[nodiscard]] virtual bool isShown() const = 0;
  /// The text of a label that is set while the program runs.
  [[nodiscard]] virtual std::string labelText(std::string_view label) const = 0;
  [[nodiscard]] virtual std::string boxText(std::string_view textBox) const = 0;

  /// The user changed the text of a box.
  virtual void type(std::string_view textBox, std::string_view text) = 0;
  /// The user clicked a button.
  virtual void click(std::string_view button) = 0;
  /// The user closed the form by its close box: it is unloaded, and nothing else happens.
  virtual void closeByUser() = 0;
};

}  // namespace quorbind
