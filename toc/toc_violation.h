#pragma once

#include <string>
#include <string_view>

#include "platform/user_interface.h"
#include "resources/messages.h"

namespace quorbind {

/// A rule that a table of contents breaks.
struct TocViolation {
  /// The text that tells the user.
  std::string message;
  /// Whether the offending text is also offered on the clipboard.
  bool offersLine = true;
  MessageIcon icon = MessageIcon::kCritical;
};

/// The violation that is told with the text that it stands in.
inline TocViolation violationIn(std::string_view line, std::string_view error) {
  return {(Message::kLine + line).append("\r").append(error)};
}

}  // namespace quorbind
