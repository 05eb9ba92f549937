#pragma once

#include <memory>

#include "platform/locale.h"

struct UCollator;

namespace quorbind {

/// Language by ICU, the clock and its zone by the system.
///
/// Text is compared by the root collation, in which accents count and letter case does not. The
/// collation is loaded when two different texts are compared for the first time, so that a program
/// that compares none starts without it. When it can't be loaded, or a comparison fails, an error
/// is raised: 7 without memory, else 5 with ICU's name for the reason.
///
/// For one thread.
class PortableLocale final : public Locale {
 public:
  [[nodiscard]] LocalTime now() const override;
  [[nodiscard]] std::string generalDate(const LocalTime& time) const override;
  [[nodiscard]] int compareText(std::string_view left, std::string_view right) const override;
  [[nodiscard]] std::string upperCase(std::string_view text) const override;
  [[nodiscard]] std::string fromSystemCodePage(std::string_view bytes) const override;

 private:
  struct CloseCollator {
    void operator()(UCollator* collator) const;
  };

  const UCollator* collator() const;

  mutable std::unique_ptr<UCollator, CloseCollator> collator_;
};

}  // namespace quorbind
