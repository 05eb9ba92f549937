#include "platform/windows/clipboard.h"

#include <windows.h>

#include <cstring>
#include <memory>
#include <string>
#include <type_traits>

#include "platform/windows/com_types.h"

namespace quorbind {

namespace {

constexpr int kAttempts = 10;
constexpr DWORD kPauseInMilliseconds = 50;

void requireDone(bool success) {
  if (!success) {
    throw runTimeErrorOf(HRESULT_FROM_WIN32(::GetLastError()));
  }
}

struct WindowDeleter {
  void operator()(HWND window) const { ::DestroyWindow(window); }
};
using Window = std::unique_ptr<std::remove_pointer_t<HWND>, WindowDeleter>;

struct MemoryDeleter {
  void operator()(HGLOBAL memory) const { ::GlobalFree(memory); }
};
using Memory = std::unique_ptr<void, MemoryDeleter>;

/// The clipboard takes nothing from a program that did not open it with a window.
Window makeInvisibleWindow() {
  Window window(
      ::CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr));
  requireDone(window != nullptr);
  return window;
}

class OpenedClipboard {
 public:
  explicit OpenedClipboard(HWND window) { requireDone(isOpened(window)); }
  ~OpenedClipboard() { ::CloseClipboard(); }
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;

 private:
  static bool isOpened(HWND window) {
    for (int attempt = 1; ::OpenClipboard(window) == FALSE; ++attempt) {
      if (attempt == kAttempts) {
        return false;
      }
      ::Sleep(kPauseInMilliseconds);
    }
    return true;
  }
};

Memory inSharedMemory(const std::wstring& text) {
  const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
  Memory memory(::GlobalAlloc(GMEM_MOVEABLE, bytes));
  requireDone(memory != nullptr);
  void* place = ::GlobalLock(memory.get());
  requireDone(place != nullptr);
  std::memcpy(place, text.c_str(), bytes);
  ::GlobalUnlock(memory.get());
  return memory;
}

}  // namespace

void putTextOnClipboard(std::string_view text) {
  Memory memory = inSharedMemory(toWide(text));
  const Window window = makeInvisibleWindow();
  const OpenedClipboard clipboard(window.get());
  requireDone(::EmptyClipboard() != FALSE);
  requireDone(::SetClipboardData(CF_UNICODETEXT, memory.get()) != nullptr);
  static_cast<void>(memory.release());  // the clipboard's from now on
}

}  // namespace quorbind
