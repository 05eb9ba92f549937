#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace quorbind {

class ModalForm;

enum class MessageIcon { kNone, kCritical, kInformation };

/// One message box with an OK button.
struct UserMessage {
  std::string text;
  MessageIcon icon = MessageIcon::kNone;
  /// Absent: the adapter gives the box the component's name.
  std::optional<std::string> title = std::nullopt;
  /// Number of the run-time error that the box reports; 0 when it reports none.
  std::int32_t errorNumber = 0;
};

inline UserMessage criticalMessage(std::string text) {
  return {.text = std::move(text), .icon = MessageIcon::kCritical};
}

/// What the progress window shows.
struct ProgressView {
  std::string caption;
  std::string status;
  std::int32_t value = 0;
  std::int32_t maximum = 100;
};

/// Everything that the component shows to, or asks of, the person in front of it.
///
/// All calls come from one thread and return when the person has answered. Implementations own
/// their windows; a form's values live in the form. An implementation without a person behind it
/// may throw `Abandoned` (abandoned.h) out of `show` and `showModal`.
class UserInterface {
 public:
  virtual ~UserInterface() = default;

  /// Shows a message box and waits until it is closed.
  virtual void show(const UserMessage& message) = 0;

  /// Lets the user work on `form` until `form.isShown()` is false: either a handler hid or unloaded
  /// it, or the user closed it and the implementation called `form.closeByUser()`.
  virtual void showModal(ModalForm& form) = 0;

  /// Shows the progress window, or brings the one on screen up to date. Never waits.
  virtual void showProgress(const ProgressView& view) = 0;
  /// Takes the progress window off the screen; it is expected back.
  virtual void hideProgress() = 0;
  /// Ends the progress window. Without one nothing happens.
  virtual void unloadProgress() = 0;

  /// Clears the clipboard, then puts `text` on it as plain text.
  virtual void putOnClipboard(std::string_view text) = 0;
};

}  // namespace quorbind
