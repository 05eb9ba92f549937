#include "platform/portable/prepared_answers.h"

#include <algorithm>

namespace quorbind {

std::vector<std::string_view> textBoxesOf(const FormLayout& layout) {
  std::vector<std::string_view> boxes;
  for (const ControlLayout& control : layout.controls) {
    if (control.kind == ControlKind::kTextBox) {
      boxes.push_back(control.name);
    }
  }
  return boxes;
}

std::vector<std::string_view> PreparedAnswers::fillIn(ModalForm& form, const FormLayout& layout) {
  std::vector<std::string_view> left;
  for (const std::string_view box : textBoxesOf(layout)) {
    PreparedAnswer* answer = next(form.name(), box);
    if (answer == nullptr || !answer->text) {
      left.push_back(box);
    } else {
      answer->used = true;
      form.type(box, *answer->text);
    }
  }
  return left;
}

bool PreparedAnswers::answered(std::string_view form) const {
  return std::any_of(answers_.begin(), answers_.end(), [form](const PreparedAnswer& answer) {
    return answer.form == form && answer.used;
  });
}

std::string PreparedAnswers::flagsFor(std::string_view form,
                                      const std::vector<std::string_view>& textBoxes) const {
  std::string flags;
  for (const std::string_view box : textBoxes) {
    const auto answer =
        std::find_if(answers_.begin(), answers_.end(), [&](const PreparedAnswer& prepared) {
          return prepared.form == form && prepared.textBox == box;
        });
    if (answer != answers_.end()) {
      flags.append(flags.empty() ? "" : " and ").append(answer->flag);
    }
  }
  return flags;
}

PreparedAnswer* PreparedAnswers::next(std::string_view form, std::string_view textBox) {
  const auto found =
      std::find_if(answers_.begin(), answers_.end(), [&](const PreparedAnswer& answer) {
        return answer.form == form && answer.textBox == textBox && !answer.used;
      });
  return found == answers_.end() ? nullptr : &*found;
}

}  // namespace quorbind
