#include <algorithm>
#include <atomic>
#include <deque>
#include <mutex>
#include <stdexcept>

#include "platform/windows/windows_user_interface.h"
#include "resources/form_layouts.h"
#include "tests/component/window_driver.h"
#include "tests/contract/adapters.h"

namespace quorbind::testing {

namespace {

/// A person who closes every box and answers the forms as told.
class AttendedWindows final : public AttendedUserInterface {
 public:
  ~AttendedWindows() override { isOver_ = true; }

  UserInterface& ui() override { return ui_; }
  void willEnter(const std::vector<std::string>& texts) override {
    willDo([texts](const ScreenWindow& form, const FormLayout& layout) {
      auto text = texts.begin();
      for (const ControlLayout& control : layout.controls) {
        if (control.kind == ControlKind::kTextBox && text != texts.end()) {
          form.enter(control.name, *text++);
        }
      }
      form.pressButton("cmdOk");
    });
  }
  void willLeave() override {
    willDo([](const ScreenWindow& form, const FormLayout& layout) {
      if (layout.name == layout::kBookInfo.name) {
        form.pressButton("cmdCancel");
      } else {
        form.clickCloseBox();
        form.waitUntilGone();
      }
    });
  }

  [[nodiscard]] std::vector<std::string> boxes() const override {
    const std::lock_guard lock(guard_);
    return boxes_;
  }
  [[nodiscard]] std::string clipboard() const override { return clipboardText(); }

 private:
  using Answer = std::function<void(const ScreenWindow&, const FormLayout&)>;

  void willDo(Answer answer) {
    const std::lock_guard lock(guard_);
    answers_.push_back(std::move(answer));
  }

  void attend() {
    while (!isOver_) {
      for (const ScreenWindow& dialog : dialogsOnScreen()) {
        dealWith(dialog);
      }
      ::Sleep(5);
    }
  }
  void dealWith(const ScreenWindow& dialog) {
    const std::string caption = dialog.caption();
    for (const FormLayout* form : {&layout::kBookInfo, &layout::kBookFolder}) {
      if (caption == form->caption) {
        answer(dialog, *form);
      }
    }
    if (caption == "Quorbind") {
      noteBox(dialog);
      dialog.press(VK_RETURN);
      dialog.waitUntilGone();
    }
  }
  void answer(const ScreenWindow& dialog, const FormLayout& layout) {
    Answer answer;
    {
      const std::lock_guard lock(guard_);
      if (answers_.empty()) {
        return;
      }
      answer = std::move(answers_.front());
      answers_.pop_front();
    }
    answer(dialog, layout);
  }
  void noteBox(const ScreenWindow& box) {
    const std::string icon = box.messageIcon();
    std::string text = box.messageText();
    std::replace(text.begin(), text.end(), '\n', '\r');
    const std::lock_guard lock(guard_);
    boxes_.push_back((icon.empty() ? "message" : icon) + ": " + text);
  }

  WindowsUserInterface ui_;
  mutable std::mutex guard_;
  std::deque<Answer> answers_;
  std::vector<std::string> boxes_;
  std::atomic<bool> isOver_ = false;
  Person person_{[this] { attend(); }};
};

/// Where there is a screen, only what needs one is tested.
class ScreenAdapters final : public Adapters {
 public:
  FileSystem& files() override { refuse(); }
  XmlLibrary& xml() override { refuse(); }
  std::unique_ptr<XmlLibrary> makeXml(FileSystem& /*files*/) override { refuse(); }
  Locale& locale() override { refuse(); }
  Spreadsheets& spreadsheets() override { refuse(); }
  Spreadsheets& spreadsheetProgram() override { refuse(); }
  std::unique_ptr<Toolset> makeToolset(UserInterface& /*ui*/) override { refuse(); }
  std::unique_ptr<AttendedUserInterface> makeUserInterface() override {
    return std::make_unique<AttendedWindows>();
  }

 private:
  [[noreturn]] static void refuse() {
    throw std::logic_error("this adapter is tested without a screen");
  }
};

}  // namespace

std::unique_ptr<Adapters> makeAdapters(const std::filesystem::path& /*root*/) {
  return std::make_unique<ScreenAdapters>();
}

}  // namespace quorbind::testing
