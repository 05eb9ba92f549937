#pragma once

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/form.h"
#include "platform/user_interface.h"

namespace quorbind::testing {

/// A user who answers forms by a script, and a record of everything shown, in order.
///
/// Record lines: `critical: TEXT`, `information: TEXT`, `message: TEXT` (a title stands in brackets
/// before the text), `clipboard: TEXT`, `progress V/M STATUS`, `progress hidden`,
/// `progress unloaded`, and `form NAME`.
class ScriptedUserInterface final : public UserInterface {
 public:
  using Answer = std::function<void(ModalForm&)>;

  /// What to do when the next form is shown. A form that no answer is left for, or that an answer
  /// leaves standing, is a fault of the test and throws std::logic_error.
  void answerWith(Answer answer) { answers_.push_back(std::move(answer)); }

  [[nodiscard]] const std::vector<std::string>& record() const { return record_; }
  /// The record without its progress lines.
  [[nodiscard]] std::vector<std::string> recordWithoutProgress() const;
  [[nodiscard]] std::vector<UserMessage> messages() const { return messages_; }
  /// The captions that the progress window had, one after the other.
  [[nodiscard]] const std::vector<std::string>& progressCaptions() const { return captions_; }
  /// Adds a line of the test's own, to see where in the order something else happened.
  void note(std::string line) { record_.push_back(std::move(line)); }
  void forget();
  /// What to look at while a message box is on the screen.
  void atEachBox(std::function<void()> look) { look_ = std::move(look); }
  /// The next message box can't be shown: error 7.
  void failNextShow() { failNextShow_ = true; }
  /// The clipboard can't be reached: error 70.
  void lockClipboard() { clipboardIsLocked_ = true; }

  void show(const UserMessage& message) override;
  void showModal(ModalForm& form) override;
  void showProgress(const ProgressView& view) override;
  void hideProgress() override;
  void unloadProgress() override;
  void putOnClipboard(std::string_view text) override;

 private:
  std::deque<Answer> answers_;
  std::vector<std::string> record_;
  std::vector<UserMessage> messages_;
  std::vector<std::string> captions_;
  std::function<void()> look_ = [] {};
  bool failNextShow_ = false;
  bool clipboardIsLocked_ = false;
};

/// Answers for the two dialogs.
ScriptedUserInterface::Answer enterBook(std::string name, std::string acronym);
ScriptedUserInterface::Answer enterFolder(std::string folder);
ScriptedUserInterface::Answer pressCancel();
ScriptedUserInterface::Answer closeForm();

}  // namespace quorbind::testing
