#pragma once

#include "platform/form.h"
#include "platform/user_interface.h"

namespace quorbind {

/// What the modal dialogs have in common: being unloaded, loaded but hidden, or shown.
///
/// A dialog's values outlive its window: hiding keeps them, unloading discards them, and reaching
/// for a control of an unloaded dialog loads it again with empty boxes.
class Dialog : public ModalForm {
 public:
  explicit Dialog(UserInterface& ui) : ui_(ui) {}

  /// Loads the dialog if need be, shows it, and returns when the user is done with it.
  void showModal() {
    load();
    shown_ = true;
    ui_.showModal(*this);
  }
  void unload() {
    discardValues();
    loaded_ = false;
    shown_ = false;
  }

  [[nodiscard]] bool isLoaded() const { return loaded_; }
  [[nodiscard]] bool isShown() const override { return shown_; }
  void closeByUser() override { unload(); }

 protected:
  void load() { loaded_ = true; }
  void hide() { shown_ = false; }
  virtual void discardValues() = 0;

 private:
  UserInterface& ui_;
  bool loaded_ = false;
  bool shown_ = false;
};

}  // namespace quorbind
