#pragma once

// What a person does in front of the screen, for tests: finds windows by their captions, reads
// them, types, presses keys, clicks. Everything goes through the keyboard and the mouse as far as
// the system lets a program have them, to windows of this process.
//
// The thread under test waits in its dialogs, so a person is another thread:
//
//   Person person([] {
//     const ScreenWindow dialog = windowCalled("Book Information");
//     dialog.enter("txtBookName", "Alarms");
//     dialog.press(VK_RETURN);
//   });
//   form.showModal();
//
// A step that is not done in time fails the test; so does a dialog that stays when everything was
// done. A photograph of the screen then lies beside the others (see `photograph`), or else in the
// working folder, and the person closes what is still open, so that the thread under test comes
// back.

#include <windows.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace quorbind::testing {

/// Much more than a step needs: the machine may be busy with other things.
inline constexpr std::chrono::seconds kPatience{20};
/// The same for a call under test after the last step.
inline constexpr std::chrono::seconds kPatienceWithCalls{120};

/// A window on the screen. Controls are called by their published names, as the forms' layouts have
/// them.
class ScreenWindow {
 public:
  explicit ScreenWindow(HWND window) : window_(window) {}

  [[nodiscard]] HWND handle() const { return window_; }
  [[nodiscard]] std::string caption() const;
  [[nodiscard]] ScreenWindow owner() const;
  [[nodiscard]] RECT frame() const;
  [[nodiscard]] bool exists() const { return ::IsWindow(window_) != FALSE; }
  [[nodiscard]] bool takesInput() const { return ::IsWindowEnabled(window_) != FALSE; }

  /// What stands in it, in tab order: `label MS Sans Serif: Book Name:`, `box Verdana: Alarms`,
  /// `button Verdana: Cancel`, `default button MS Sans Serif: OK`, `bar 4/10`.
  [[nodiscard]] std::vector<std::string> contents() const;
  [[nodiscard]] std::string text(std::string_view control) const;
  /// What a control looks like, to be compared with another such picture.
  [[nodiscard]] std::string picture(std::string_view control) const;
  /// The name of the control that has the keyboard; empty when that is none of this window's.
  [[nodiscard]] std::string keyboardFocus() const;

  /// The text of a message box, and the word for its icon: `critical`, `information` or empty.
  [[nodiscard]] std::string messageText() const;
  [[nodiscard]] std::string messageIcon() const;

  /// Waits until it is the window that has the keyboard.
  void waitForKeyboard() const;
  void waitForText(std::string_view control, std::string_view text) const;
  void waitForFocus(std::string_view control) const;
  void waitUntilGone() const;

  /// Presses and releases a virtual key.
  void press(WORD key) const;
  /// The same while another key is held down.
  void press(WORD held, WORD key) const;
  /// Types letters of any script to whatever has the keyboard.
  void type(std::string_view utf8) const;
  /// Clicks into a text box, replaces its text, and waits until it stands there.
  void enter(std::string_view box, std::string_view text) const;
  void click(std::string_view control) const;
  void clickCloseBox() const;
  /// Presses a button as programs that read the screen aloud do: comes back when its handler ran.
  void pressButton(std::string_view button) const;

 private:
  [[nodiscard]] HWND control(std::string_view name) const;

  HWND window_;
};

/// The dialogs and boxes of this process that take input at this moment.
std::vector<ScreenWindow> dialogsOnScreen();
/// Waits for a visible window of this process with that caption.
ScreenWindow windowCalled(std::string_view caption);
bool isOnScreen(std::string_view caption);
/// Waits for the message box with that text and presses its OK button by Enter.
void dismissMessage(std::string_view text);
/// Waits for the dialog, fills it in and presses Enter.
void answerBookDialog(std::string_view name, std::string_view acronym);
void answerFolderDialog(std::string_view folder);

/// Waits until `condition` holds; what was waited for is told when it does not in time.
void waitUntil(const std::string& what,
               const std::function<bool()>& condition,
               std::chrono::seconds patience = kPatience);

/// Stores the part of the screen where the windows are as NAME.png in the folder that the
/// environment value QUORBIND_PHOTOGRAPHS names. Without one nothing happens.
void photograph(const std::vector<ScreenWindow>& windows, const std::string& name);

/// The text on the clipboard; empty when there is none.
std::string clipboardText();

/// Does what it is told on a thread of its own. Its end waits until that is done.
class Person {
 public:
  explicit Person(std::function<void()> deeds);
  ~Person();
  Person(const Person&) = delete;
  Person& operator=(const Person&) = delete;

 private:
  void act(const std::function<void()>& deeds);
  void closeEverything() const;

  std::atomic<bool> isAwaited_ = false;
  std::thread thread_;
};

}  // namespace quorbind::testing
