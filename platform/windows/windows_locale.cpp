#include "platform/windows/windows_locale.h"

#include <windows.h>

#include <climits>

#include "platform/runtime_error.h"
#include "platform/windows/com_types.h"

namespace quorbind {

namespace {

WORD word(int value) {
  return static_cast<WORD>(value);
}

/// The length of a text as the platform's calls take it. Raises 7 when it is beyond that.
int lengthOf(std::size_t size) {
  if (size > INT_MAX) {
    raise(ErrorNumber::kOutOfMemory);
  }
  return static_cast<int>(size);
}

/// Runs a call that fills a buffer and answers the length: first for the length, then for the text.
template <typename Call>
std::wstring filled(Call call) {
  std::wstring text(static_cast<std::size_t>(call(nullptr, 0)), L'\0');
  text.resize(static_cast<std::size_t>(call(text.data(), lengthOf(text.size()))));
  return text;
}

std::wstring withoutTerminator(std::wstring text) {
  if (text.ends_with(L'\0')) {
    text.pop_back();
  }
  return text;
}

}  // namespace

LocalTime WindowsLocale::now() const {
  SYSTEMTIME time{};
  ::GetLocalTime(&time);
  return {.year = time.wYear,
          .month = time.wMonth,
          .day = time.wDay,
          .hour = time.wHour,
          .minute = time.wMinute,
          .second = time.wSecond};
}

std::string WindowsLocale::generalDate(const LocalTime& time) const {
  SYSTEMTIME system{};
  system.wYear = word(time.year);
  system.wMonth = word(time.month);
  system.wDay = word(time.day);
  system.wHour = word(time.hour);
  system.wMinute = word(time.minute);
  system.wSecond = word(time.second);
  const std::wstring date = filled([&](wchar_t* buffer, int size) {
    return ::GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &system, nullptr, buffer, size);
  });
  const std::wstring clock = filled([&](wchar_t* buffer, int size) {
    return ::GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &system, nullptr, buffer, size);
  });
  return toUtf8(withoutTerminator(date) + L' ' + withoutTerminator(clock));
}

int WindowsLocale::compareText(std::string_view left, std::string_view right) const {
  const std::wstring wideLeft = toWide(left);
  const std::wstring wideRight = toWide(right);
  const int order = ::CompareStringW(LOCALE_USER_DEFAULT,
                                     NORM_IGNORECASE,
                                     wideLeft.data(),
                                     lengthOf(wideLeft.size()),
                                     wideRight.data(),
                                     lengthOf(wideRight.size()));
  if (order == 0) {
    raise(ErrorNumber::kInvalidProcedureCall);
  }
  return order - CSTR_EQUAL;
}

std::string WindowsLocale::upperCase(std::string_view text) const {
  std::wstring wide = toWide(text);
  ::CharUpperBuffW(wide.data(), static_cast<DWORD>(lengthOf(wide.size())));
  return toUtf8(wide);
}

std::string WindowsLocale::fromSystemCodePage(std::string_view bytes) const {
  return toUtf8(filled([&](wchar_t* buffer, int size) {
    return ::MultiByteToWideChar(CP_ACP, 0, bytes.data(), lengthOf(bytes.size()), buffer, size);
  }));
}

}  // namespace quorbind
