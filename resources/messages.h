#pragma once

#include <string>
#include <string_view>

namespace quorbind {

/// The numbered messages of messages.def, by name; the value is the published number.
enum class Message : int {
#define QUOR_MESSAGE(number, name, text) name = (number),
#include "resources/messages.def"
#undef QUOR_MESSAGE
};

/// The text of `message`, letter for letter.
constexpr std::string_view text(Message message) {
  switch (message) {
#define QUOR_MESSAGE(number, name, text) \
  case Message::name:                    \
    return (text);
#include "resources/messages.def"
#undef QUOR_MESSAGE
  }
  return {};
}

inline std::string operator+(Message left, std::string_view right) {
  return std::string(text(left)).append(right);
}
inline std::string operator+(std::string left, Message right) {
  return left.append(text(right));
}

}  // namespace quorbind
