#include "platform/windows/message_box.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "platform/windows/com_types.h"
#include "platform/windows/dpi_awareness.h"

namespace quorbind {

namespace {

constexpr std::string_view kDefaultTitle = "Quorbind";
constexpr std::size_t kLongestText = 2000;
constexpr std::wstring_view kLeftOut = L" \u2026 ";

bool isSecondHalf(wchar_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

// The reason stands at the end of a message and the place at its beginning.
std::wstring withoutItsMiddle(std::wstring text) {
  if (text.size() <= kLongestText) {
    return text;
  }
  std::size_t from = kLongestText / 2;
  std::size_t to = text.size() - kLongestText / 2;
  from -= isSecondHalf(text[from]) ? 1 : 0;
  to += isSecondHalf(text[to]) ? 1 : 0;
  return text.replace(from, to - from, kLeftOut);
}

std::wstring withLineBreaks(const std::wstring& text) {
  std::wstring result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isLoneReturn = text[i] == L'\r' && (i + 1 == text.size() || text[i + 1] != L'\n');
    result += isLoneReturn ? L'\n' : text[i];
  }
  return result;
}

// The system takes a null for the text's end, and what follows may be the reason.
std::wstring visibleText(std::string_view message) {
  std::wstring text = withoutItsMiddle(toWide(message));
  std::replace(text.begin(), text.end(), L'\0', L' ');
  return withLineBreaks(text);
}

UINT styleFor(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::kCritical:
      return MB_ICONERROR;
    case MessageIcon::kInformation:
      return MB_ICONINFORMATION;
    case MessageIcon::kNone:
      break;
  }
  return 0;
}

}  // namespace

void showMessageBox(HWND owner, const UserMessage& message) {
  const DpiAwareness sharp;
  const std::wstring text = visibleText(message.text);
  const std::wstring title = toWide(message.title ? *message.title : kDefaultTitle);
  if (::MessageBoxW(owner, text.c_str(), title.c_str(), MB_OK | styleFor(message.icon)) == 0) {
    throw runTimeErrorOf(HRESULT_FROM_WIN32(::GetLastError()));
  }
}

}  // namespace quorbind
