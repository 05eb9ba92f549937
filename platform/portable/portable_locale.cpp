#include "platform/portable/portable_locale.h"

#include <unicode/ucol.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <utility>

#include "platform/portable/upper_case.h"
#include "platform/runtime_error.h"
#include "platform/text_encoding.h"

namespace quorbind {

namespace {

/// The name by which ICU knows the collation that belongs to no language.
constexpr const char* kRootCollation = "";

void requireSuccess(UErrorCode status) {
  if (U_SUCCESS(status) != 0) {
    return;
  }
  if (status == U_MEMORY_ALLOCATION_ERROR) {
    raise(ErrorNumber::kOutOfMemory);
  }
  throw RunTimeError(static_cast<std::int32_t>(ErrorNumber::kInvalidProcedureCall),
                     u_errorName(status));
}

}  // namespace

void PortableLocale::CloseCollator::operator()(UCollator* collator) const {
  ucol_close(collator);
}

LocalTime PortableLocale::now() const {
  const time_t moment = ::time(nullptr);
  struct tm local {};
  ::tzset();
  if (::localtime_r(&moment, &local) == nullptr) {
    raise(ErrorNumber::kOverflow);
  }
  return {.year = local.tm_year + 1900,
          .month = local.tm_mon + 1,
          .day = local.tm_mday,
          .hour = local.tm_hour,
          .minute = local.tm_min,
          .second = local.tm_sec};
}

std::string PortableLocale::generalDate(const LocalTime& time) const {
  const bool isMorning = time.hour < 12;
  const int hourOnDial = time.hour % 12 == 0 ? 12 : time.hour % 12;
  std::array<char, 96> buffer{};
  std::snprintf(buffer.data(),
                buffer.size(),
                "%d/%d/%04d %d:%02d:%02d %s",
                time.month,
                time.day,
                time.year,
                hourOnDial,
                time.minute,
                time.second,
                isMorning ? "AM" : "PM");
  return buffer.data();
}

int PortableLocale::compareText(std::string_view left, std::string_view right) const {
  if (left == right) {
    return 0;
  }
  UErrorCode status = U_ZERO_ERROR;
  const UCollationResult result = ucol_strcollUTF8(collator(),
                                                   left.data(),
                                                   static_cast<std::int32_t>(left.size()),
                                                   right.data(),
                                                   static_cast<std::int32_t>(right.size()),
                                                   &status);
  requireSuccess(status);
  return result;
}

std::string PortableLocale::upperCase(std::string_view text) const {
  return simpleUpperCase(text);
}

std::string PortableLocale::fromSystemCodePage(std::string_view bytes) const {
  std::string text;
  appendUtf8FromWindows1252(text, bytes);
  return text;
}

const UCollator* PortableLocale::collator() const {
  if (!collator_) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<UCollator, CloseCollator> opened(ucol_open(kRootCollation, &status));
    requireSuccess(status);
    ucol_setStrength(opened.get(), UCOL_SECONDARY);
    collator_ = std::move(opened);
  }
  return collator_.get();
}

}  // namespace quorbind
