#include "tests/component/window_driver.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <utility>

#include "platform/windows/com_types.h"
#include "resources/form_ids.h"
#include "resources/form_layouts.h"
#include "tests/component/picture_file.h"

namespace quorbind::testing {

namespace {

using Clock = std::chrono::steady_clock;

constexpr DWORD kPauseInMilliseconds = 10;
/// What was drawn is on the screen only after a moment.
constexpr DWORD kTimeToReachTheScreenInMilliseconds = 300;
/// The class of dialogs, message boxes included.
constexpr std::string_view kDialogClass = "#32770";
constexpr int kLongestText = 4096;

/// What a window answers to a message; 0 when its thread reads none any more, as one that waits for
/// the driver to end.
DWORD_PTR answerOf(HWND window, UINT message, WPARAM first = 0, LPARAM second = 0) {
  DWORD_PTR answer = 0;
  ::SendMessageTimeoutW(window,
                        message,
                        first,
                        second,
                        SMTO_NORMAL,
                        static_cast<UINT>(std::chrono::milliseconds(kPatience).count()),
                        &answer);
  return answer;
}

std::string textOf(HWND window) {
  std::wstring text(kLongestText, L'\0');
  text.resize(answerOf(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data())));
  return toUtf8(text);
}

std::string classOf(HWND window) {
  std::wstring name(64, L'\0');
  name.resize(static_cast<std::size_t>(
      ::GetClassNameW(window, name.data(), static_cast<int>(name.size()))));
  return toUtf8(name);
}

LONG_PTR styleOf(HWND window) {
  return ::GetWindowLongPtrW(window, GWL_STYLE);
}

bool hasType(HWND window, LONG_PTR mask, LONG_PTR type) {
  return (styleOf(window) & mask) == type;
}

std::vector<HWND> childrenOf(HWND window) {
  std::vector<HWND> result;
  for (HWND child = ::GetWindow(window, GW_CHILD); child != nullptr;
       child = ::GetWindow(child, GW_HWNDNEXT)) {
    result.push_back(child);
  }
  return result;
}

BOOL CALLBACK collectIfVisible(HWND window, LPARAM windows) {
  DWORD process = 0;
  ::GetWindowThreadProcessId(window, &process);
  if (process == ::GetCurrentProcessId() && ::IsWindowVisible(window)) {
    reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
  }
  return TRUE;
}

std::vector<HWND> windowsOfThisProcess() {
  std::vector<HWND> result;
  ::EnumWindows(collectIfVisible, reinterpret_cast<LPARAM>(&result));
  return result;
}

std::optional<ScreenWindow> find(const std::function<bool(const ScreenWindow&)>& matches) {
  for (const HWND handle : windowsOfThisProcess()) {
    if (const ScreenWindow window(handle); matches(window)) {
      return window;
    }
  }
  return std::nullopt;
}

ScreenWindow waitFor(const std::string& what,
                     const std::function<bool(const ScreenWindow&)>& matches) {
  std::optional<ScreenWindow> found;
  waitUntil(what, [&] {
    found = find(matches);
    return found.has_value();
  });
  return *found;
}

const FormLayout* layoutWithCaption(const std::string& caption) {
  for (const FormLayout* layout : layout::kForms) {
    if (layout->caption == caption) {
      return layout;
    }
  }
  return nullptr;
}

std::string fontOf(HWND control) {
  const auto font = reinterpret_cast<HFONT>(answerOf(control, WM_GETFONT));
  LOGFONTW description{};
  ::GetObjectW(font, sizeof(description), &description);
  return toUtf8(description.lfFaceName);
}

std::string kindOf(HWND control) {
  const std::string name = classOf(control);
  if (name == "Button") {
    return hasType(control, BS_TYPEMASK, BS_DEFPUSHBUTTON) ? "default button" : "button";
  }
  return name == "Edit" ? "box" : name == "Static" ? "label" : "bar";
}

bool isBar(HWND control) {
  return kindOf(control) == "bar";
}

std::string fillingOf(HWND bar) {
  const auto position = answerOf(bar, PBM_GETPOS);
  const auto maximum = answerOf(bar, PBM_GETRANGE, FALSE);
  return std::to_string(position) + '/' + std::to_string(maximum);
}

std::string fontAndTextOf(HWND control) {
  return fontOf(control) + ": " + textOf(control);
}

bool isIcon(HWND control) {
  return classOf(control) == "Static" && hasType(control, SS_TYPEMASK, SS_ICON);
}

void send(std::vector<INPUT> inputs) {
  ::SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

/// Those keys stand on the number pad too, unless the system is told that they do not.
bool isBesideNumberPad(WORD key) {
  return (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_INSERT || key == VK_DELETE;
}

INPUT keyInput(WORD key, DWORD flags = 0) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.dwFlags = flags | (isBesideNumberPad(key) ? KEYEVENTF_EXTENDEDKEY : 0);
  return input;
}

INPUT letterInput(wchar_t unit, DWORD flags = 0) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wScan = unit;
  input.ki.dwFlags = flags | KEYEVENTF_UNICODE;
  return input;
}

INPUT mouseInput(POINT place, DWORD flags) {
  constexpr LONG kWholeScreen = 65536;
  const auto scaled = [](LONG pixel, int length) {
    return (pixel * kWholeScreen + kWholeScreen / 2) / length;
  };
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dx = scaled(place.x, ::GetSystemMetrics(SM_CXSCREEN));
  input.mi.dy = scaled(place.y, ::GetSystemMetrics(SM_CYSCREEN));
  input.mi.dwFlags = MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE | flags;
  return input;
}

void clickAt(POINT place) {
  send({mouseInput(place, 0),
        mouseInput(place, MOUSEEVENTF_LEFTDOWN),
        mouseInput(place, MOUSEEVENTF_LEFTUP)});
}

RECT frameOf(HWND window) {
  RECT frame{};
  ::GetWindowRect(window, &frame);
  return frame;
}

void waitUntilDrawn(const std::vector<HWND>& windows) {
  for (const HWND window : windows) {
    ::RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  }
  ::Sleep(kTimeToReachTheScreenInMilliseconds);
}

std::string bytesOfPicture(const RECT& area) {
  const auto path = std::filesystem::temp_directory_path() / "quorbind-picture.png";
  savePictureOfScreen(area, path.string());
  std::ifstream file(path, std::ios::binary);
  std::string bytes{std::istreambuf_iterator<char>(file), {}};
  file.close();
  std::filesystem::remove(path);
  return bytes;
}

std::optional<std::string> folderForPictures() {
  const char* folder = std::getenv("QUORBIND_PHOTOGRAPHS");
  return folder == nullptr ? std::nullopt : std::optional<std::string>(folder);
}

/// The whole screen, in a file of the test's name; that it can't be had is no second failure.
void photographFailure() {
  const ::testing::TestInfo* test = ::testing::UnitTest::GetInstance()->current_test_info();
  const std::string name = std::string(test->test_suite_name()) + '.' + test->name() + ".png";
  try {
    savePictureOfScreen(frameOf(::GetDesktopWindow()),
                        folderForPictures().value_or(".") + '\\' + name);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
  }
}

}  // namespace

void waitUntil(const std::string& what,
               const std::function<bool()>& condition,
               std::chrono::seconds patience) {
  const auto end = Clock::now() + patience;
  while (!condition()) {
    if (Clock::now() > end) {
      throw std::runtime_error("waited in vain for " + what);
    }
    ::Sleep(kPauseInMilliseconds);
  }
}

std::string ScreenWindow::caption() const {
  return textOf(window_);
}

ScreenWindow ScreenWindow::owner() const {
  return ScreenWindow(::GetWindow(window_, GW_OWNER));
}

RECT ScreenWindow::frame() const {
  return frameOf(window_);
}

std::vector<std::string> ScreenWindow::contents() const {
  std::vector<std::string> result;
  for (const HWND child : childrenOf(window_)) {
    result.push_back(kindOf(child) + ' ' +
                     (isBar(child) ? fillingOf(child) : fontAndTextOf(child)));
  }
  return result;
}

std::string ScreenWindow::text(std::string_view name) const {
  return textOf(control(name));
}

std::string ScreenWindow::picture(std::string_view name) const {
  waitForKeyboard();
  waitUntilDrawn({window_});
  return bytesOfPicture(frameOf(control(name)));
}

std::string ScreenWindow::keyboardFocus() const {
  GUITHREADINFO state{};
  state.cbSize = sizeof(state);
  ::GetGUIThreadInfo(::GetWindowThreadProcessId(window_, nullptr), &state);
  const FormLayout* layout = layoutWithCaption(caption());
  for (std::size_t place = 0; layout != nullptr && place < layout->controls.size(); ++place) {
    if (::GetDlgItem(window_, layout::controlId(*layout, place)) == state.hwndFocus) {
      return std::string(layout->controls[place].name);
    }
  }
  return {};
}

std::string ScreenWindow::messageText() const {
  for (const HWND child : childrenOf(window_)) {
    if (classOf(child) == "Static" && !isIcon(child)) {
      return textOf(child);
    }
  }
  return {};
}

std::string ScreenWindow::messageIcon() const {
  for (const HWND child : childrenOf(window_)) {
    if (!isIcon(child)) {
      continue;
    }
    const auto icon = reinterpret_cast<HICON>(answerOf(child, STM_GETICON));
    if (icon == ::LoadIconW(nullptr, IDI_ERROR)) {
      return "critical";
    }
    if (icon == ::LoadIconW(nullptr, IDI_INFORMATION)) {
      return "information";
    }
  }
  return {};
}

void ScreenWindow::waitForKeyboard() const {
  waitUntil("the keyboard in \"" + caption() + '"',
            [this] { return ::GetForegroundWindow() == window_; });
}

void ScreenWindow::waitForText(std::string_view name, std::string_view expected) const {
  waitUntil('"' + std::string(expected) + "\" in " + std::string(name),
            [&] { return text(name) == expected; });
}

void ScreenWindow::waitForFocus(std::string_view name) const {
  waitUntil("the keyboard in " + std::string(name), [&] { return keyboardFocus() == name; });
}

void ScreenWindow::waitUntilGone() const {
  waitUntil("a window to go", [this] { return !exists(); });
}

void ScreenWindow::press(WORD key) const {
  waitForKeyboard();
  send({keyInput(key), keyInput(key, KEYEVENTF_KEYUP)});
}

void ScreenWindow::press(WORD held, WORD key) const {
  waitForKeyboard();
  send({keyInput(held),
        keyInput(key),
        keyInput(key, KEYEVENTF_KEYUP),
        keyInput(held, KEYEVENTF_KEYUP)});
}

void ScreenWindow::type(std::string_view utf8) const {
  waitForKeyboard();
  for (const wchar_t unit : toWide(utf8)) {
    send({letterInput(unit), letterInput(unit, KEYEVENTF_KEYUP)});
  }
}

void ScreenWindow::enter(std::string_view box, std::string_view text) const {
  click(box);
  waitForFocus(box);
  press(VK_HOME);
  press(VK_SHIFT, VK_END);
  press(VK_DELETE);
  type(text);
  waitForText(box, text);
}

void ScreenWindow::click(std::string_view name) const {
  waitForKeyboard();
  const RECT area = frameOf(control(name));
  clickAt({(area.left + area.right) / 2, (area.top + area.bottom) / 2});
}

void ScreenWindow::clickCloseBox() const {
  waitForKeyboard();
  const RECT area = frame();
  const LONG y = area.top + ::GetSystemMetrics(SM_CYFRAME) + ::GetSystemMetrics(SM_CYCAPTION) / 2;
  const LONG x = area.right - ::GetSystemMetrics(SM_CXFRAME) - ::GetSystemMetrics(SM_CXSIZE) / 2;
  if (answerOf(window_, WM_NCHITTEST, 0, MAKELPARAM(x, y)) != HTCLOSE) {
    throw std::runtime_error("no close box on \"" + caption() + '"');
  }
  clickAt({x, y});
}

void ScreenWindow::pressButton(std::string_view button) const {
  ::SendMessageW(control(button), BM_CLICK, 0, 0);
}

HWND ScreenWindow::control(std::string_view name) const {
  const FormLayout* layout = layoutWithCaption(caption());
  for (std::size_t place = 0; layout != nullptr && place < layout->controls.size(); ++place) {
    if (layout->controls[place].name == name) {
      return ::GetDlgItem(window_, layout::controlId(*layout, place));
    }
  }
  throw std::runtime_error("no control " + std::string(name) + " in \"" + caption() + '"');
}

std::vector<ScreenWindow> dialogsOnScreen() {
  std::vector<ScreenWindow> result;
  for (const HWND window : windowsOfThisProcess()) {
    if (classOf(window) == kDialogClass && ::IsWindowEnabled(window)) {
      result.emplace_back(window);
    }
  }
  return result;
}

ScreenWindow windowCalled(std::string_view caption) {
  return waitFor("a window called \"" + std::string(caption) + '"',
                 [&](const ScreenWindow& window) { return window.caption() == caption; });
}

bool isOnScreen(std::string_view caption) {
  return find([&](const ScreenWindow& window) { return window.caption() == caption; }).has_value();
}

void dismissMessage(std::string_view text) {
  const ScreenWindow box =
      waitFor("a box saying \"" + std::string(text) + '"',
              [&](const ScreenWindow& window) { return window.messageText() == text; });
  box.press(VK_RETURN);
  box.waitUntilGone();
}

void answerBookDialog(std::string_view name, std::string_view acronym) {
  const ScreenWindow dialog = windowCalled(layout::kBookInfo.caption);
  dialog.enter("txtBookName", name);
  dialog.enter("txtBookAcro", acronym);
  dialog.press(VK_RETURN);
}

void answerFolderDialog(std::string_view folder) {
  const ScreenWindow dialog = windowCalled(layout::kBookFolder.caption);
  dialog.enter("Text1", folder);
  dialog.press(VK_RETURN);
}

void photograph(const std::vector<ScreenWindow>& windows, const std::string& name) {
  const std::optional<std::string> folder = folderForPictures();
  if (!folder) {
    return;
  }
  RECT area{};
  std::vector<HWND> handles;
  for (const ScreenWindow& window : windows) {
    const RECT before = std::exchange(area, {});
    const RECT frame = window.frame();
    ::UnionRect(&area, &before, &frame);
    handles.push_back(window.handle());
  }
  waitUntilDrawn(handles);
  savePictureOfScreen(area, *folder + '\\' + name + ".png");
}

std::string clipboardText() {
  waitUntil("the clipboard", [] { return ::OpenClipboard(nullptr) != FALSE; });
  std::string result;
  if (const HANDLE memory = ::GetClipboardData(CF_UNICODETEXT)) {
    result = toUtf8(static_cast<const wchar_t*>(::GlobalLock(memory)));
    ::GlobalUnlock(memory);
  }
  ::CloseClipboard();
  return result;
}

Person::Person(std::function<void()> deeds)
    : thread_([this, deeds = std::move(deeds)] { act(deeds); }) {}

Person::~Person() {
  isAwaited_ = true;
  thread_.join();
}

void Person::act(const std::function<void()>& deeds) {
  try {
    deeds();
    waitUntil(
        "the end of the call under test", [this] { return isAwaited_.load(); }, kPatienceWithCalls);
  } catch (const std::exception& failure) {
    ADD_FAILURE() << failure.what();
    photographFailure();
    closeEverything();
  }
}

// The thread under test may open a window anew each time it is closed; it gets no second chance.
void Person::closeEverything() const {
  const auto end = Clock::now() + kPatience;
  while (!isAwaited_) {
    if (Clock::now() > end) {
      std::fputs("The windows do not close; the test is given up.\n", stderr);
      std::_Exit(EXIT_FAILURE);
    }
    for (const ScreenWindow& dialog : dialogsOnScreen()) {
      ::PostMessageW(dialog.handle(), WM_CLOSE, 0, 0);
    }
    ::Sleep(kPauseInMilliseconds);
  }
}

}  // namespace quorbind::testing
