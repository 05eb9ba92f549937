#pragma once

#include <cstdint>
#include <string>

#include "platform/user_interface.h"

namespace quorbind {

/// The progress window. It never waits for the user, and the user can't close it.
class frmProgBar {
 public:
  explicit frmProgBar(UserInterface& ui);

  void setCaption(std::string caption);
  void setMaximum(std::int32_t maximum);
  void setValue(std::int32_t value);
  void setStatus(std::string status);

  void show();
  void hide();
  /// Ends the window and forgets what it showed.
  void unload();

 private:
  void refresh();

  UserInterface& ui_;
  ProgressView view_;
  bool shown_ = false;
};

}  // namespace quorbind
