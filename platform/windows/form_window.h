#pragma once

#include <windows.h>

#include <cstddef>
#include <exception>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

#include "resources/form_layouts.h"

namespace quorbind {

/// What the user reads in a window: its caption, its label or the text typed into it.
std::string windowText(HWND window);
/// Sets that. A window that shows `text` already is left alone: it does not flicker, and a text box
/// does not report a change.
void setWindowText(HWND window, std::string_view text);

/// The window of one form, made from the dialog resource that its layout became: the fonts of the
/// controls, the place on the screen and the way of its messages into C++.
///
/// A window belongs to the thread that made it. It has the sharpness of the screen it stands on
/// even where its host's windows have not.
class FormWindow {
 public:
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;
  virtual ~FormWindow();

  /// The window; null before it is made and from the moment it is destroyed, which whoever destroys
  /// its owner does too.
  [[nodiscard]] HWND window() const { return window_; }

 protected:
  explicit FormWindow(const FormLayout& layout) : layout_(layout) {}

  /// Makes the window, in the middle of `owner` (of the screen without one), and shows it until
  /// `endModal`. The owner takes no input as long. What a handler threw comes out of here, and the
  /// window is gone then too.
  void runModal(HWND owner);
  void endModal();
  /// Makes the window, hidden.
  void create(HWND owner);

  /// The window was made and has its place; it isn't on the screen yet. Answers whether it wants
  /// the keyboard.
  virtual bool onCreated() = 0;
  /// Answers whether the message is dealt with. May throw.
  virtual bool onMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;

  [[nodiscard]] const FormLayout& layout() const { return layout_; }
  [[nodiscard]] HWND control(std::string_view name) const;
  [[nodiscard]] HWND controlAt(std::size_t place) const;

 private:
  struct FontDeleter {
    void operator()(HFONT font) const { ::DeleteObject(font); }
  };
  using Font = std::unique_ptr<std::remove_pointer_t<HFONT>, FontDeleter>;

  static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  bool dispatch(UINT message, WPARAM wParam, LPARAM lParam);
  void rethrowFailure();
  void setBoxFont();
  [[nodiscard]] std::wstring resourceName() const;

  const FormLayout& layout_;
  HWND window_ = nullptr;
  Font boxFont_;
  std::exception_ptr failure_;
};

}  // namespace quorbind
