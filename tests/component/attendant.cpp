#include "tests/component/attendant.h"

#include <algorithm>
#include <atomic>

#include "resources/form_layouts.h"

namespace quorbind::testing {

namespace {

constexpr std::string_view kDefaultCaption = "Quorbind";

const FormLayout* formOf(const ScreenWindow& dialog) {
  for (const FormLayout* form : {&layout::kBookInfo, &layout::kBookFolder}) {
    if (dialog.caption() == form->caption) {
      return form;
    }
  }
  return nullptr;
}

/// The progress window is a dialog too, but nobody can close it.
bool waitsForThePerson(const ScreenWindow& dialog) {
  return std::ranges::any_of(dialog.contents(), [](const std::string& control) {
    return control.find("button") != std::string::npos;
  });
}

}  // namespace

void Attendant::during(const std::function<void()>& call) {
  std::atomic<bool> isOver = false;
  const Person person([&] {
    waitUntil(
        "the end of the call",
        [&] {
          attend();
          return isOver.load();
        },
        kPatienceWithCalls);
  });
  try {
    call();
  } catch (...) {
    isOver = true;
    throw;
  }
  isOver = true;
}

void Attendant::attend() {
  for (const ScreenWindow& dialog : dialogsOnScreen()) {
    if (const FormLayout* form = formOf(dialog)) {
      shown_.push_back("form " + std::string(form->name));
      answerForm(dialog);
    } else if (waitsForThePerson(dialog)) {
      closeBox(dialog);
    }
  }
}

void Attendant::answerForm(const ScreenWindow& form) {
  if (answers_.empty()) {
    ::PostMessageW(form.handle(), WM_CLOSE, 0, 0);
  } else {
    if (const auto& naming = answers_.front()) {
      form.enter("txtBookName", naming->name);
      form.enter("txtBookAcro", naming->acronym);
      form.press(VK_RETURN);
    } else {
      form.click("cmdCancel");
    }
    answers_.pop();
  }
  form.waitUntilGone();
}

void Attendant::closeBox(const ScreenWindow& box) {
  const std::string icon = box.messageIcon();
  const std::string caption = box.caption();
  std::string line = (icon.empty() ? "message" : icon) + ": ";
  if (caption != kDefaultCaption) {
    line += '[' + caption + "] ";
  }
  shown_.push_back(line + box.messageText());
  box.press(VK_RETURN);
  box.waitUntilGone();
}

}  // namespace quorbind::testing
