#pragma once

#include <string>
#include <string_view>

#include "platform/locale.h"

namespace quorbind {

/// The user's language, settings and clock.
class WindowsLocale final : public Locale {
 public:
  [[nodiscard]] LocalTime now() const override;
  [[nodiscard]] std::string generalDate(const LocalTime& time) const override;
  [[nodiscard]] int compareText(std::string_view left, std::string_view right) const override;
  [[nodiscard]] std::string upperCase(std::string_view text) const override;
  [[nodiscard]] std::string fromSystemCodePage(std::string_view bytes) const override;
};

}  // namespace quorbind
