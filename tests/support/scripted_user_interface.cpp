#include "tests/support/scripted_user_interface.h"

#include <stdexcept>
#include <utility>

#include "platform/runtime_error.h"

namespace quorbind::testing {

namespace {

std::string_view iconWord(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::kCritical:
      return "critical: ";
    case MessageIcon::kInformation:
      return "information: ";
    case MessageIcon::kNone:
      break;
  }
  return "message: ";
}

}  // namespace

std::vector<std::string> ScriptedUserInterface::recordWithoutProgress() const {
  std::vector<std::string> result;
  for (const std::string& line : record_) {
    if (!line.starts_with("progress ")) {
      result.push_back(line);
    }
  }
  return result;
}

void ScriptedUserInterface::forget() {
  record_.clear();
  messages_.clear();
  captions_.clear();
}

void ScriptedUserInterface::show(const UserMessage& message) {
  if (std::exchange(failNextShow_, false)) {
    raise(ErrorNumber::kOutOfMemory);
  }
  messages_.push_back(message);
  std::string line(iconWord(message.icon));
  if (message.title) {
    line += "[" + *message.title + "] ";
  }
  record_.push_back(line + message.text);
  look_();
}

void ScriptedUserInterface::showModal(ModalForm& form) {
  record_.push_back("form " + std::string(form.name()));
  if (answers_.empty()) {
    throw std::logic_error("no answer is left for " + std::string(form.name()));
  }
  const Answer answer = std::move(answers_.front());
  answers_.pop_front();
  answer(form);
  if (form.isShown()) {
    throw std::logic_error("the answer leaves " + std::string(form.name()) + " on screen");
  }
}

void ScriptedUserInterface::showProgress(const ProgressView& view) {
  record_.push_back("progress " + std::to_string(view.value) + "/" + std::to_string(view.maximum) +
                    " " + view.status);
  if (captions_.empty() || captions_.back() != view.caption) {
    captions_.push_back(view.caption);
  }
}

void ScriptedUserInterface::hideProgress() {
  record_.emplace_back("progress hidden");
}

void ScriptedUserInterface::unloadProgress() {
  record_.emplace_back("progress unloaded");
}

void ScriptedUserInterface::putOnClipboard(std::string_view text) {
  if (clipboardIsLocked_) {
    raise(ErrorNumber::kPermissionDenied);
  }
  record_.push_back("clipboard: " + std::string(text));
}

ScriptedUserInterface::Answer enterBook(std::string name, std::string acronym) {
  return [name = std::move(name), acronym = std::move(acronym)](ModalForm& form) {
    form.type("txtBookName", name);
    form.type("txtBookAcro", acronym);
    form.click("cmdOk");
  };
}

ScriptedUserInterface::Answer enterFolder(std::string folder) {
  return [folder = std::move(folder)](ModalForm& form) {
    form.type("Text1", folder);
    form.click("cmdOk");
  };
}

ScriptedUserInterface::Answer pressCancel() {
  return [](ModalForm& form) { form.click("cmdCancel"); };
}

ScriptedUserInterface::Answer closeForm() {
  return [](ModalForm& form) { form.closeByUser(); };
}

}  // namespace quorbind::testing
