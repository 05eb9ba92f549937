#include "platform/portable/terminal_user_interface.h"

#include <algorithm>
#include <istream>
#include <ostream>

#include "platform/abandoned.h"
#include "platform/portable/visible_text.h"
#include "platform/text.h"
#include "platform/text_encoding.h"

namespace quorbind {

namespace {

constexpr std::string_view kDefaultTitle = "Quorbind";
constexpr std::string_view kCriticalColour = "\x1B[1;31m";
constexpr std::string_view kNoColour = "\x1B[0m";

std::string_view controlOf(const FormLayout& layout, ControlKind kind) {
  for (const ControlLayout& control : layout.controls) {
    if (control.kind == kind) {
      return control.name;
    }
  }
  return {};
}

std::string textOf(const ModalForm& form, const ControlLayout& label) {
  return label.caption.empty() ? form.labelText(label.name) : std::string(label.caption);
}

std::string progressLine(const ProgressView& view) {
  constexpr std::int32_t kBarWidth = 20;
  const std::int32_t maximum = std::max(view.maximum, 1);
  const std::int32_t value = std::clamp(view.value, 0, maximum);
  const auto filled = static_cast<std::size_t>(std::int64_t{kBarWidth} * value / maximum);
  return "[" + std::string(filled, '#') + std::string(kBarWidth - filled, '.') + "] " +
         visibleText(view.status);
}

}  // namespace

std::string_view wordFor(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::kCritical:
      return "critical";
    case MessageIcon::kInformation:
      return "information";
    case MessageIcon::kNone:
      break;
  }
  return "message";
}

TerminalUserInterface::TerminalUserInterface(const Terminal& terminal,
                                             std::vector<PreparedAnswer> answers)
    : terminal_(terminal), answers_(std::move(answers)) {}

void TerminalUserInterface::showPathAs(std::string path, std::string name) {
  knownPath_ = std::move(path);
  knownName_ = std::move(name);
}

void TerminalUserInterface::holdFormsTo(FormRule rule) {
  rule_ = std::move(rule);
}

void TerminalUserInterface::knowReturnsBy(ReturnRule rule) {
  comesBack_ = std::move(rule);
}

void TerminalUserInterface::show(const UserMessage& message) {
  shown_.push_back({.icon = message.icon,
                    .title = message.title.value_or(std::string(kDefaultTitle)),
                    .text = asTheUserKnows(message.text),
                    .errorNumber = message.errorNumber});
  clearProgressLine();
  const bool coloured = terminal_.hasColours && message.icon == MessageIcon::kCritical;
  terminal_.output << (coloured ? kCriticalColour : "") << wordFor(message.icon) << ':'
                   << (coloured ? kNoColour : "") << ' ' << visibleLines(shown_.back().text)
                   << std::endl;
}

void TerminalUserInterface::settle() {
  for (ShownMessage& message : shown_) {
    message.isSettled = true;
  }
}

void TerminalUserInterface::putOnClipboard(std::string_view text) {
  if (!shown_.empty()) {
    shown_.back().clipboard = text;
  }
  clearProgressLine();
  terminal_.output << "offending line: " << visibleLines(text) << std::endl;
}

void TerminalUserInterface::showModal(ModalForm& form) {
  clearProgressLine();
  const FormLayout& layout = layoutOf(form.name());
  std::vector<std::string_view> textBoxes =
      comesBack_(form) ? textBoxesOf(layout) : answers_.fillIn(form, layout);
  if (textBoxes.empty()) {
    submit(form, layout);
    textBoxes = textBoxesOf(layout);
  }
  while (form.isShown()) {
    requirePerson(form, textBoxes);
    ask(form, layout, textBoxes);
    textBoxes = textBoxesOf(layout);
  }
}

// An answer that was used and did not do is refused even where others are missing too: giving these
// would not have helped.
void TerminalUserInterface::requirePerson(const ModalForm& form,
                                          const std::vector<std::string_view>& textBoxes) const {
  if (terminal_.input != nullptr) {
    return;
  }
  const std::string flags = answers_.flagsFor(form.name(), textBoxes);
  if (textBoxes.size() == textBoxesOf(layoutOf(form.name())).size() &&
      answers_.answered(form.name())) {
    throw Abandoned(AbandonReason::kAnswerRefused, "other values are needed for " + flags);
  }
  throw Abandoned(AbandonReason::kAnswerMissing, "give " + flags);
}

void TerminalUserInterface::ask(ModalForm& form,
                                const FormLayout& layout,
                                const std::vector<std::string_view>& textBoxes) {
  settle();
  terminal_.output << layout.caption << '\n';
  std::string label;
  for (const ControlLayout& control : layout.controls) {
    if (isLabel(control.kind)) {
      terminal_.output << (label.empty() ? "" : visibleText(label) + "\n");
      label = asTheUserKnows(textOf(form, control));
    } else if (control.kind == ControlKind::kTextBox) {
      const bool open =
          std::find(textBoxes.begin(), textBoxes.end(), control.name) != textBoxes.end();
      if (open && !askFor(form, control.name, label)) {
        leave(form, layout);
        return;
      }
      label.clear();
    }
  }
  submit(form, layout);
}

void TerminalUserInterface::submit(ModalForm& form, const FormLayout& layout) {
  if (rule_(form)) {
    form.click(controlOf(layout, ControlKind::kDefaultButton));
  }
}

/// Asks for the value of one box; an empty answer leaves it as it is. False when the answers ended.
bool TerminalUserInterface::askFor(ModalForm& form,
                                   std::string_view textBox,
                                   std::string_view label) {
  const std::string current = form.boxText(textBox);
  terminal_.output << visibleText(label) << (label.ends_with(':') ? " " : ": ");
  if (!current.empty()) {
    terminal_.output << '[' << visibleText(current) << "] ";
  }
  terminal_.output << std::flush;
  const auto answer = readAnswer();
  if (answer && !answer->empty()) {
    form.type(textBox, *answer);
  }
  return answer.has_value();
}

// A form without a cancel button may come back at once. When the answers have ended for good, that
// would go on for ever.
void TerminalUserInterface::leave(ModalForm& form, const FormLayout& layout) {
  terminal_.output << std::endl;
  if (std::exchange(inputEnded_, true)) {
    throw Abandoned(AbandonReason::kAnswerMissing,
                    "give " + answers_.flagsFor(form.name(), textBoxesOf(layout)));
  }
  const std::string_view cancel = controlOf(layout, ControlKind::kCancelButton);
  if (cancel.empty()) {
    form.closeByUser();
  } else {
    form.click(cancel);
  }
}

std::optional<std::string> TerminalUserInterface::readAnswer() {
  // A terminal's end of input holds for one answer only.
  terminal_.input->clear();
  std::string line;
  if (!std::getline(*terminal_.input, line)) {
    return std::nullopt;
  }
  inputEnded_ = false;
  return toValidUtf8(line);
}

void TerminalUserInterface::showProgress(const ProgressView& view) {
  if (!terminal_.showsProgress) {
    return;
  }
  const std::string line = progressLine(view);
  clearProgressLine();
  progressWidth_ = line.size();
  terminal_.output << line << std::flush;
}

void TerminalUserInterface::hideProgress() {
  clearProgressLine();
}

void TerminalUserInterface::unloadProgress() {
  clearProgressLine();
}

void TerminalUserInterface::clearProgressLine() {
  if (progressWidth_ > 0) {
    terminal_.output << '\r' << std::string(progressWidth_, ' ') << '\r' << std::flush;
    progressWidth_ = 0;
  }
}

std::string TerminalUserInterface::asTheUserKnows(std::string_view text) const {
  return knownPath_.empty() ? std::string(text) : replaceAll(text, knownPath_, knownName_);
}

}  // namespace quorbind
