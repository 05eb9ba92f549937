#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <optional>

#include "platform/windows/msxml_library.h"
#include "platform/windows/windows_file_system.h"
#include "platform/windows/windows_locale.h"
#include "platform/windows/windows_user_interface.h"
#include "platform/workbooks/file_spreadsheets.h"
#include "tests/component/window_driver.h"
#include "tests/support/raised_error.h"
#include "toolset/reference_toolset.h"
#include "workflow/forms/module.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::Test;

constexpr std::string_view kBookCaption = "Book Information";
constexpr std::string_view kFolderCaption = "Enter Book Folder";

/// A host with one window on the screen.
class HostWindow {
 public:
  HostWindow()
      : window_(::CreateWindowExW(0,
                                  L"STATIC",
                                  L"Host",
                                  WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                  100,
                                  80,
                                  700,
                                  500,
                                  nullptr,
                                  nullptr,
                                  nullptr,
                                  nullptr)) {
    ::SetForegroundWindow(window_);
  }
  ~HostWindow() { close(); }
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;

  [[nodiscard]] HWND handle() const { return window_; }
  void close() {
    if (window_ != nullptr) {
      ::DestroyWindow(std::exchange(window_, nullptr));
    }
  }

 private:
  HWND window_;
};

ProgressView progressAt(std::int32_t value, std::int32_t maximum) {
  return {.caption = "Quor TOC", .status = "", .value = value, .maximum = maximum};
}

class Windows : public Test {
 protected:
  HostWindow host;
  WindowsFileSystem files;
  MsxmlLibrary xml{files};
  WindowsLocale locale;
  WindowsUserInterface ui;
  ReferenceToolset toolset{{files, xml, ui, locale}, ""};
  FileSpreadsheets spreadsheets{files, xml};
  Module module{Platform{files, xml, ui, toolset, locale, spreadsheets}};
};

// The book dialog

class BookDialog : public Windows {
 protected:
  /// Shows the dialog to a person who does that with it.
  void showTo(const std::function<void(const ScreenWindow&)>& deeds) {
    const Person person([&deeds] { deeds(windowCalled(kBookCaption)); });
    module.bookInfo.showModal();
  }
  [[nodiscard]] std::string name() { return module.bookInfo.txtBookName().text(); }
  [[nodiscard]] std::string acronym() { return module.bookInfo.txtBookAcro().text(); }
};

TEST_F(BookDialog, HasItsControlsInTheirOrderAndFonts) {
  module.bookInfo.setFileNameLabel("C:\\R&D\\toc.txt");
  module.bookInfo.txtBookName().setText("Alarms");
  showTo([](const ScreenWindow& dialog) {
    EXPECT_THAT(dialog.contents(),
                ElementsAre("label MS Sans Serif: Enter Book Information for :",
                            "label MS Sans Serif: C:\\R&D\\toc.txt",
                            "label MS Sans Serif: Book Name:",
                            "box Verdana: Alarms",
                            "label MS Sans Serif: Book Acro:",
                            "box Verdana: ",
                            "default button MS Sans Serif: OK",
                            "button Verdana: Cancel"));
    dialog.press(VK_ESCAPE);
  });
}

TEST_F(BookDialog, StandsInTheMiddleOfTheHostsWindowAndIsOwnedByIt) {
  showTo([this](const ScreenWindow& dialog) {
    EXPECT_EQ(dialog.owner().handle(), host.handle());
    const RECT around = dialog.owner().frame();
    const RECT frame = dialog.frame();
    EXPECT_NEAR(frame.left + frame.right, around.left + around.right, 1);
    EXPECT_NEAR(frame.top + frame.bottom, around.top + around.bottom, 1);
    dialog.press(VK_ESCAPE);
  });
}

TEST_F(BookDialog, StaysOnTheScreenWhenTheHostsWindowIsAtItsEdge) {
  ::SetWindowPos(host.handle(), nullptr, -650, -450, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  showTo([](const ScreenWindow& dialog) {
    EXPECT_EQ(dialog.frame().left, 0);
    EXPECT_EQ(dialog.frame().top, 0);
    dialog.press(VK_ESCAPE);
  });
}

TEST_F(BookDialog, IsReachedByTheTabKeyControlAfterControl) {
  showTo([](const ScreenWindow& dialog) {
    for (const char* control :
         {"txtBookName", "txtBookAcro", "cmdOk", "cmdCancel", "txtBookName"}) {
      dialog.waitForFocus(control);
      dialog.press(VK_TAB);
    }
    dialog.press(VK_ESCAPE);
  });
}

TEST_F(BookDialog, TakesLettersOfAnyScript) {
  showTo([](const ScreenWindow& dialog) {
    dialog.enter("txtBookName", "Grüße 中文 𝄞");
    dialog.enter("txtBookAcro", "ГРЮ");
    dialog.press(VK_RETURN);
  });
  EXPECT_EQ(name(), "Grüße 中文 𝄞");
  EXPECT_EQ(acronym(), "ГРЮ");
}

TEST_F(BookDialog, TakesTextsOfAnyLength) {
  const std::string longName(70'000, 'n');
  ui.putOnClipboard(longName);
  showTo([](const ScreenWindow& dialog) {
    dialog.enter("txtBookAcro", "ALM");
    dialog.click("txtBookName");
    dialog.press(VK_CONTROL, 'V');
    dialog.press(VK_RETURN);
  });
  EXPECT_EQ(name(), longName);
}

TEST_F(BookDialog, ShowsTheFormsValuesAndKeepsThemOnOk) {
  module.bookInfo.setFileNameLabel("C:\\Manuals\\Alarms.txt");
  module.bookInfo.txtBookName().setText("Alarms & Events");
  module.bookInfo.txtBookAcro().setText("ALM");
  showTo([](const ScreenWindow& dialog) {
    EXPECT_EQ(dialog.text("txtBookName"), "Alarms & Events");
    EXPECT_EQ(dialog.text("txtBookAcro"), "ALM");
    dialog.waitForKeyboard();
    photograph({dialog}, "book-information");
    dialog.click("cmdOk");
  });
  EXPECT_EQ(name(), "Alarms & Events");
  EXPECT_EQ(acronym(), "ALM");
}

TEST_F(BookDialog, ShowsWhichFileALongPathLeadsTo) {
  const auto pictureFor = [this](const std::string& file) {
    module.bookInfo.setFileNameLabel("C:\\" + std::string(200, 'x') + "\\" + file);
    std::string picture;
    showTo([&picture](const ScreenWindow& dialog) {
      picture = dialog.picture("lblFileName");
      dialog.press(VK_ESCAPE);
    });
    return picture;
  };
  const std::string picture = pictureFor("Alarms.txt");
  EXPECT_EQ(pictureFor("Alarms.txt"), picture);
  EXPECT_NE(pictureFor("Traps.txt"), picture);
}

TEST_F(BookDialog, ReplacesTheSelectedNameWhenTheUserTypesAtOnce) {
  module.bookInfo.txtBookName().setText("Alarms");
  showTo([](const ScreenWindow& dialog) {
    dialog.waitForFocus("txtBookName");
    dialog.type("Traps");
    dialog.waitForText("txtBookName", "Traps");
    dialog.press(VK_RETURN);
  });
  EXPECT_EQ(name(), "Traps");
}

TEST_F(BookDialog, IsCancelledByEscape) {
  showTo([](const ScreenWindow& dialog) { dialog.press(VK_ESCAPE); });
  EXPECT_FALSE(module.bookInfo.isLoaded());
  EXPECT_TRUE(module.state.cancelled);
}

TEST_F(BookDialog, IsCancelledByItsCancelButton) {
  showTo([](const ScreenWindow& dialog) { dialog.click("cmdCancel"); });
  EXPECT_FALSE(module.bookInfo.isLoaded());
  EXPECT_TRUE(module.state.cancelled);
}

TEST_F(BookDialog, IsUnloadedByItsCloseBoxButNotCancelled) {
  showTo([](const ScreenWindow& dialog) { dialog.clickCloseBox(); });
  EXPECT_FALSE(module.bookInfo.isLoaded());
  EXPECT_FALSE(module.state.cancelled);
}

TEST_F(BookDialog, RunsItsChangeHandlersWhileTheUserTypes) {
  showTo([](const ScreenWindow& dialog) {
    dialog.enter("txtBookName", "Alarms");
    dialog.clickCloseBox();
  });
  EXPECT_EQ(module.state.currentBookName, "Alarms");
}

TEST_F(BookDialog, LetsTheAcronymFollowTheNameLetterByLetter) {
  module.state.installationType = ProcessState::kAcronymFollowsName;
  showTo([](const ScreenWindow& dialog) {
    dialog.type("A");
    dialog.waitForText("txtBookAcro", "A");
    dialog.type("lé");
    dialog.waitForText("txtBookAcro", "Alé");
    dialog.press(VK_RETURN);
  });
  EXPECT_EQ(acronym(), "Alé");
}

TEST_F(BookDialog, StaysOpenUnderTheBoxThatSaysWhyAnAcronymIsRefused) {
  module.bookInfo.setFileNameLabel("C:\\Manuals\\Alarms.txt");
  showTo([this](const ScreenWindow& dialog) {
    dialog.enter("txtBookName", "Alarms");
    dialog.enter("txtBookAcro", "A/B");
    dialog.press(VK_RETURN);
    const ScreenWindow box = windowCalled("Quorbind");
    EXPECT_EQ(box.messageText(), "Book Acro can not contain  (/\\:*?\"<>)");
    EXPECT_EQ(box.messageIcon(), "critical");
    EXPECT_EQ(box.owner().handle(), dialog.handle());
    EXPECT_FALSE(dialog.takesInput());
    EXPECT_FALSE(ScreenWindow(host.handle()).takesInput());
    box.press(VK_RETURN);
    box.waitUntilGone();
    dialog.enter("txtBookAcro", "AB");
    dialog.press(VK_RETURN);
  });
  EXPECT_EQ(acronym(), "AB");
  EXPECT_TRUE(ScreenWindow(host.handle()).takesInput());
}

TEST_F(BookDialog, KeepsVerdanaInItsBoxesOnAScreenOfAnotherScale) {
  showTo([](const ScreenWindow& dialog) {
    const auto heightOf = [](HWND window) {
      LOGFONTW font{};
      ::GetObjectW(
          reinterpret_cast<HFONT>(::SendMessageW(window, WM_GETFONT, 0, 0)), sizeof(font), &font);
      return font.lfHeight;
    };
    RECT place = dialog.frame();
    ::SendMessageW(dialog.handle(), WM_DPICHANGED, MAKEWPARAM(192, 192), LPARAM(&place));
    waitUntil("fonts of one height", [&] {
      const HWND box = ::GetWindow(::GetWindow(dialog.handle(), GW_CHILD), GW_HWNDNEXT);
      return heightOf(box) == heightOf(dialog.handle());
    });
    EXPECT_EQ(dialog.contents().at(3), "box Verdana: ");
    dialog.press(VK_ESCAPE);
  });
}

// The folder dialog

class FolderDialog : public Windows {
 protected:
  void showTo(const std::function<void(const ScreenWindow&)>& deeds) {
    const Person person([&deeds] { deeds(windowCalled(kFolderCaption)); });
    module.bookFolder.showModal();
  }
};

TEST_F(FolderDialog, HasItsControlsInTheirOrderAndFonts) {
  showTo([](const ScreenWindow& dialog) {
    EXPECT_THAT(dialog.contents(),
                ElementsAre("label MS Sans Serif: Book Folder",
                            "box Verdana: ",
                            "default button MS Sans Serif: OK"));
    dialog.type("Alarms");
    dialog.waitForText("Text1", "Alarms");
    photograph({dialog}, "book-folder");
    dialog.press(VK_ESCAPE);
  });
}

TEST_F(FolderDialog, TakesTheFolderOnEnter) {
  showTo([](const ScreenWindow& dialog) {
    dialog.enter("Text1", "Größen");
    dialog.press(VK_RETURN);
  });
  EXPECT_TRUE(module.bookFolder.isLoaded());
  EXPECT_EQ(module.bookFolder.Text1().text(), "Größen");
}

TEST_F(FolderDialog, HoldsTheUserUntilAFolderIsEntered) {
  showTo([](const ScreenWindow& dialog) {
    dialog.click("cmdOk");
    dismissMessage("Enter a Non-empty string for folder name");
    dialog.enter("Text1", "Alarms");
    dialog.click("cmdOk");
  });
  EXPECT_EQ(module.bookFolder.Text1().text(), "Alarms");
}

TEST_F(FolderDialog, IsClosedByEscapeAsByItsCloseBox) {
  for (const bool byEscape : {true, false}) {
    showTo([byEscape](const ScreenWindow& dialog) {
      dialog.enter("Text1", "Alarms");
      byEscape ? dialog.press(VK_ESCAPE) : dialog.clickCloseBox();
    });
    EXPECT_FALSE(module.bookFolder.isLoaded());
    EXPECT_EQ(module.bookFolder.Text1().text(), "");
    EXPECT_FALSE(module.state.cancelled);
  }
}

// A form whose handlers misbehave

class FailingForm final : public ModalForm {
 public:
  [[nodiscard]] std::string_view name() const override { return "frmBookFolder"; }
  [[nodiscard]] bool isShown() const override { return !isClosed; }
  [[nodiscard]] std::string labelText(std::string_view) const override { return {}; }
  [[nodiscard]] std::string boxText(std::string_view) const override { return {}; }
  void type(std::string_view, std::string_view) override {}
  void click(std::string_view) override { raise(ErrorNumber::kTypeMismatch); }
  void closeByUser() override { isClosed = true; }

  bool isClosed = false;
};

TEST_F(Windows, AHandlersErrorEndsTheDialogAndComesOutOfIt) {
  FailingForm form;
  const Person person([] { windowCalled(kFolderCaption).press(VK_RETURN); });
  EXPECT_EQ(errorRaisedBy([&] { ui.showModal(form); }), 13);
  EXPECT_FALSE(isOnScreen(kFolderCaption));
}

TEST_F(Windows, ABoxIsSetBackToWhatItsFormHolds) {
  FailingForm form;
  const Person person([] {
    const ScreenWindow dialog = windowCalled(kFolderCaption);
    dialog.type("x");
    dialog.waitForText("Text1", "");
    dialog.press(VK_ESCAPE);
  });
  ui.showModal(form);
}

TEST_F(Windows, ADialogThatGoesWithTheHostsWindowCountsAsClosed) {
  FailingForm form;
  const Person person([this] {
    windowCalled(kFolderCaption).waitForKeyboard();
    ::PostMessageW(host.handle(), WM_CLOSE, 0, 0);
  });
  EXPECT_EQ(errorRaisedBy([&] { ui.showModal(form); }), 364);
  EXPECT_TRUE(form.isClosed);
}

TEST_F(Windows, ADialogCountsAsClosedWhenTheHostIsToEnd) {
  FailingForm form;
  const Person person([this] {
    windowCalled(kFolderCaption).waitForKeyboard();
    ::PostThreadMessageW(::GetWindowThreadProcessId(host.handle(), nullptr), WM_QUIT, 0, 0);
  });
  EXPECT_EQ(errorRaisedBy([&] { ui.showModal(form); }), 364);
  EXPECT_TRUE(form.isClosed);
  MSG message{};
  EXPECT_TRUE(::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE))
      << "the host still learns that it is to end";
}

// Message boxes

class MessageBoxes : public Windows {
 protected:
  void showTo(const UserMessage& message,
              std::string_view caption,
              const std::function<void(const ScreenWindow&)>& deeds) {
    const Person person([&] {
      const ScreenWindow box = windowCalled(caption);
      deeds(box);
      box.press(VK_RETURN);
    });
    ui.show(message);
  }
  [[nodiscard]] std::string textShownFor(const std::string& text) {
    std::string shown;
    showTo({.text = text}, "Quorbind", [&shown](const ScreenWindow& box) {
      shown = box.messageText();
    });
    return shown;
  }
};

TEST_F(MessageBoxes, HaveOneButtonAndTheComponentsName) {
  showTo(criticalMessage("File does not exist"), "Quorbind", [](const ScreenWindow& box) {
    EXPECT_EQ(box.messageText(), "File does not exist");
    EXPECT_EQ(box.messageIcon(), "critical");
    const auto contents = box.contents();
    EXPECT_EQ(std::ranges::count_if(contents,
                                    [](const std::string& line) {
                                      return line.find("button") == 0 || line.find("default") == 0;
                                    }),
              1);
  });
}

TEST_F(MessageBoxes, HaveTheTitleAndTheIconThatTheyAreGiven) {
  showTo({.text = "done", .icon = MessageIcon::kInformation, .title = "Book Category"},
         "Book Category",
         [](const ScreenWindow& box) { EXPECT_EQ(box.messageIcon(), "information"); });
}

TEST_F(MessageBoxes, HaveNoIconWithoutOne) {
  showTo({.text = "plain"}, "Quorbind", [](const ScreenWindow& box) {
    EXPECT_EQ(box.messageIcon(), "");
  });
}

TEST_F(MessageBoxes, BreakTheLineAtALoneCarriageReturn) {
  EXPECT_EQ(textShownFor("Line: \"1\"\rError: Größe\r\nend "), "Line: \"1\"\nError: Größe\r\nend ");
}

TEST_F(MessageBoxes, ShowWhatStandsBehindANull) {
  EXPECT_EQ(textShownFor(std::string("Line: \0\rError: bad", 17)), "Line:  \nError: ba");
}

TEST_F(MessageBoxes, ShowATextThatNoScreenHoldsWithoutItsMiddle) {
  EXPECT_EQ(textShownFor("Line: " + std::string(1'000'000, 'x') + "Error: bad"),
            "Line: " + std::string(994, 'x') + " … " + std::string(990, 'x') + "Error: bad");
}

TEST_F(MessageBoxes, AreOwnedByTheHostsWindowWhichTakesNoInputMeanwhile) {
  showTo({.text = "wait"}, "Quorbind", [this](const ScreenWindow& box) {
    EXPECT_EQ(box.owner().handle(), host.handle());
    EXPECT_FALSE(ScreenWindow(host.handle()).takesInput());
  });
  EXPECT_TRUE(ScreenWindow(host.handle()).takesInput());
}

TEST_F(MessageBoxes, AreOwnedByTheProgressWindowWhileItIsThere) {
  ui.showProgress(progressAt(0, 10));
  showTo({.text = "wait"}, "Quorbind", [this](const ScreenWindow& box) {
    EXPECT_EQ(box.owner().caption(), "Quor TOC");
    EXPECT_FALSE(ScreenWindow(host.handle()).takesInput());
  });
  ui.hideProgress();
  showTo({.text = "wait"}, "Quorbind", [this](const ScreenWindow& box) {
    EXPECT_EQ(box.owner().handle(), host.handle());
  });
}

TEST_F(MessageBoxes, NeedNoHostWindow) {
  host.close();
  EXPECT_EQ(textShownFor("alone"), "alone");
}

// The progress window

class ProgressWindows : public Windows {
 protected:
  [[nodiscard]] static HWND barOf(const ScreenWindow& window) {
    return ::FindWindowExW(window.handle(), nullptr, L"msctls_progress32", nullptr);
  }
  /// The colour of the bar, as it is on the screen, where a tenth of it ends.
  [[nodiscard]] static COLORREF colourOfFirstTenth(const ScreenWindow& window) {
    const RECT area = ScreenWindow(barOf(window)).frame();
    const HDC screen = ::GetDC(nullptr);
    const COLORREF colour =
        ::GetPixel(screen, area.left + (area.right - area.left) / 20, (area.top + area.bottom) / 2);
    ::ReleaseDC(nullptr, screen);
    return colour;
  }
};

TEST_F(ProgressWindows, HaveTheirControlsAndShowWhatTheyAreTold) {
  ui.showProgress({.caption = "Quor TOC",
                   .status = "Toc Validation in Progress...",
                   .value = 4,
                   .maximum = 10});
  const ScreenWindow window = windowCalled("Quor TOC");
  EXPECT_THAT(window.contents(),
              ElementsAre("label MS Sans Serif: Status:",
                          "label MS Sans Serif: Toc Validation in Progress...",
                          "bar 4/10"));
  EXPECT_EQ(window.owner().handle(), host.handle());
  photograph({window}, "progress");
}

TEST_F(ProgressWindows, ChangeTheirCaption) {
  ui.showProgress(progressAt(0, 10));
  const ScreenWindow window = windowCalled("Quor TOC");
  ui.showProgress({.caption = "Book Configuration in Progress....", .status = ""});
  EXPECT_EQ(window.caption(), "Book Configuration in Progress....");
}

TEST_F(ProgressWindows, ArePaintedWithoutAnyHelpOfTheHost) {
  ui.showProgress(progressAt(0, 10));
  const ScreenWindow window = windowCalled("Quor TOC");
  const COLORREF empty = colourOfFirstTenth(window);
  ui.showProgress(progressAt(5, 10));
  EXPECT_FALSE(::GetUpdateRect(window.handle(), nullptr, FALSE));
  EXPECT_FALSE(::GetUpdateRect(barOf(window), nullptr, FALSE));
  EXPECT_NE(colourOfFirstTenth(window), empty);
}

TEST_F(ProgressWindows, LeaveTheHostsMessagesAlone) {
  ui.showProgress(progressAt(0, 10));
  ::PostMessageW(host.handle(), WM_APP, 0, 0);
  ::PostMessageW(windowCalled("Quor TOC").handle(), WM_SYSCOMMAND, SC_MOVE, 0);
  ui.showProgress(progressAt(1, 10));
  MSG message{};
  EXPECT_TRUE(::PeekMessageW(&message, host.handle(), WM_APP, WM_APP, PM_REMOVE));
}

TEST_F(ProgressWindows, AreNotClosedByTheUser) {
  ui.showProgress(progressAt(0, 10));
  const ScreenWindow window = windowCalled("Quor TOC");
  EXPECT_EQ(::GetWindowLongPtrW(window.handle(), GWL_STYLE) & WS_SYSMENU, 0);
  ::SendMessageW(window.handle(), WM_SYSCOMMAND, SC_CLOSE, 0);
  ::SendMessageW(window.handle(), WM_CLOSE, 0, 0);
  ::SendMessageW(window.handle(), WM_COMMAND, IDCANCEL, 0);
  EXPECT_TRUE(window.exists());
  EXPECT_TRUE(isOnScreen("Quor TOC"));
}

TEST_F(ProgressWindows, LeaveTheKeyboardToTheHost) {
  const HWND before = ::GetActiveWindow();
  ui.showProgress(progressAt(0, 10));
  EXPECT_EQ(::GetActiveWindow(), before);
}

TEST_F(ProgressWindows, AreHiddenAndShownAgainAndEnd) {
  ui.unloadProgress();
  ui.showProgress(progressAt(0, 10));
  const ScreenWindow window = windowCalled("Quor TOC");
  ui.hideProgress();
  EXPECT_FALSE(isOnScreen("Quor TOC"));
  ui.showProgress(progressAt(0, 10));
  EXPECT_EQ(windowCalled("Quor TOC").handle(), window.handle());
  ui.unloadProgress();
  EXPECT_FALSE(window.exists());
}

TEST_F(ProgressWindows, ComeBackAfterTheHostDestroyedTheirOwner) {
  ui.showProgress(progressAt(0, 10));
  host.close();
  EXPECT_FALSE(isOnScreen("Quor TOC"));
  ui.hideProgress();
  ui.showProgress(progressAt(0, 10));
  EXPECT_TRUE(isOnScreen("Quor TOC"));
}

TEST_F(ProgressWindows, TakeAMaximumOfNothing) {
  ui.showProgress(progressAt(-1, 0));
  EXPECT_EQ(windowCalled("Quor TOC").contents().back(), "bar 0/1");
}

// The clipboard

TEST_F(Windows, TheClipboardHoldsTheTextPutThereLast) {
  ui.putOnClipboard("\"1\" \"first\"");
  EXPECT_EQ(clipboardText(), "\"1\" \"first\"");
  ui.putOnClipboard("Grüße 中文");
  EXPECT_EQ(clipboardText(), "Grüße 中文");
}

TEST_F(Windows, AClipboardThatAnotherHoldsRaisesTheSystemsError) {
  std::atomic<bool> isHeld = false;
  std::atomic<bool> isDone = false;
  const Person other([&] {
    ::OpenClipboard(nullptr);
    isHeld = true;
    waitUntil("the end of the attempts", [&] { return isDone.load(); });
    ::CloseClipboard();
  });
  waitUntil("the clipboard to be held", [&] { return isHeld.load(); });
  EXPECT_EQ(errorRaisedBy([&] { ui.putOnClipboard("text"); }),
            HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED));
  isDone = true;
}

}  // namespace
}  // namespace quorbind::testing
