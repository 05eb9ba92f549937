#pragma once

// The user interface of a command: boxes are lines of text, forms are questions, and the answers
// may have been given beforehand.
//
// A form is answered by the flags of the command line the first time that it is shown; by flags
// that are given several times, so often. What they leave open, and every form that comes back
// because its values were refused or stand in the catalogue already, is asked on the terminal.
// Without a terminal the run is given up: `Abandoned`.

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/portable/prepared_answers.h"
#include "platform/user_interface.h"

namespace quorbind {

/// Where a terminal user interface reads and writes. The streams outlive it.
struct Terminal {
  /// Receives boxes, questions and progress.
  std::ostream& output;
  /// Where a person answers; null when nobody can be asked.
  std::istream* input = nullptr;
  /// The output is a terminal on which a line can be rewritten.
  bool showsProgress = false;
  bool hasColours = false;
};

/// A box as it was shown.
struct ShownMessage {
  MessageIcon icon = MessageIcon::kNone;
  std::string title;
  std::string text;
  /// What was put on the clipboard after it.
  std::optional<std::string> clipboard = std::nullopt;
  /// Number of the run-time error that the box reports; 0 when it reports none.
  std::int32_t errorNumber = 0;
  /// Nothing more is to be said about it: a person was asked again after it, or told how to mend
  /// what it refuses.
  bool isSettled = false;
};

/// The word that stands for an icon: `critical`, `information`, `message`.
std::string_view wordFor(MessageIcon icon);

class TerminalUserInterface final : public UserInterface {
 public:
  TerminalUserInterface(const Terminal& terminal, std::vector<PreparedAnswer> answers);

  /// From now on texts and labels show `path` as `name`, the name under which the user knows it.
  void showPathAs(std::string path, std::string name);

  /// A rule of the host's for the values of a form. One that they break it tells in a box, and
  /// answers false.
  using FormRule = std::function<bool(const ModalForm&)>;
  /// From now on a form whose values break the rule comes back, as one whose own handlers refuse
  /// them does.
  void holdFormsTo(FormRule rule);

  /// Tells of a form that is about to be shown whether it comes back, about what it was answered
  /// for before. Flags do not answer it then, also where they have more answers.
  using ReturnRule = std::function<bool(const ModalForm&)>;
  void knowReturnsBy(ReturnRule rule);

  /// Every box so far, in order.
  [[nodiscard]] const std::vector<ShownMessage>& shown() const { return shown_; }
  /// Notes that nothing more is to be said about the boxes so far.
  void settle();

  void show(const UserMessage& message) override;
  void showModal(ModalForm& form) override;
  void showProgress(const ProgressView& view) override;
  void hideProgress() override;
  void unloadProgress() override;
  void putOnClipboard(std::string_view text) override;

 private:
  void requirePerson(const ModalForm& form, const std::vector<std::string_view>& textBoxes) const;
  void ask(ModalForm& form,
           const FormLayout& layout,
           const std::vector<std::string_view>& textBoxes);
  [[nodiscard]] bool askFor(ModalForm& form, std::string_view textBox, std::string_view label);
  void submit(ModalForm& form, const FormLayout& layout);
  void leave(ModalForm& form, const FormLayout& layout);
  [[nodiscard]] std::optional<std::string> readAnswer();

  [[nodiscard]] std::string asTheUserKnows(std::string_view text) const;
  void clearProgressLine();

  Terminal terminal_;
  PreparedAnswers answers_;
  FormRule rule_ = [](const ModalForm& /*form*/) { return true; };
  ReturnRule comesBack_ = [](const ModalForm& /*form*/) { return false; };
  std::string knownPath_;
  std::string knownName_;
  std::vector<ShownMessage> shown_;
  /// Columns of the progress line on screen.
  std::size_t progressWidth_ = 0;
  /// The answers ended, and none came since.
  bool inputEnded_ = false;
};

}  // namespace quorbind
