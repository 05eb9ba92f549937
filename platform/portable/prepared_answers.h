#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/form.h"
#include "resources/form_layouts.h"

namespace quorbind {

/// What one flag of the command line answers in a form. One that is given several times has several
/// answers, one behind the other.
struct PreparedAnswer {
  std::string form;
  std::string textBox;
  /// The flag as a user writes it.
  std::string flag;
  /// Absent when the flag was not given.
  std::optional<std::string> text = std::nullopt;
  /// The answer has reached the program in another way, so that a form finds it used up.
  bool used = false;
};

/// The answers that were given before a run. Each answers once; of several for one text box each
/// form that is shown takes the next. A form that comes back is for a person to answer.
class PreparedAnswers {
 public:
  explicit PreparedAnswers(std::vector<PreparedAnswer> answers) : answers_(std::move(answers)) {}

  /// Types the answers for `form` that were not used yet. Answers the text boxes that are left to
  /// be asked for: none when every box was answered, all of them when none was.
  std::vector<std::string_view> fillIn(ModalForm& form, const FormLayout& layout);

  /// Whether any answer for the form was used.
  [[nodiscard]] bool answered(std::string_view form) const;
  /// The flags that answer these text boxes of the form, as an enumeration for a message.
  [[nodiscard]] std::string flagsFor(std::string_view form,
                                     const std::vector<std::string_view>& textBoxes) const;

 private:
  /// The first answer for the text box that was not used yet; null where there is none.
  [[nodiscard]] PreparedAnswer* next(std::string_view form, std::string_view textBox);

  std::vector<PreparedAnswer> answers_;
};

/// The text boxes of a form, in tab order.
std::vector<std::string_view> textBoxesOf(const FormLayout& layout);

}  // namespace quorbind
