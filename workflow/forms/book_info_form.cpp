#include "workflow/forms/book_info_form.h"

#include <utility>

#include "component/process_state.h"
#include "platform/error_trap.h"
#include "platform/toolset.h"
#include "resources/form_layouts.h"
#include "resources/messages.h"
#include "workflow/forms/name_rules.h"

namespace quorbind {

frmBookInfo::frmBookInfo(const Platform& platform, ProcessState& state)
    : Dialog(platform.ui),
      platform_(platform),
      state_(state),
      bookName_([this] { txtBookName_Change(); }),
      bookAcro_([this] { txtBookAcro_Change(); }) {}

TextBox& frmBookInfo::txtBookName() {
  load();
  return bookName_;
}

TextBox& frmBookInfo::txtBookAcro() {
  load();
  return bookAcro_;
}

void frmBookInfo::setFileNameLabel(std::string text) {
  load();
  fileNameLabel_ = std::move(text);
}

bool frmBookInfo::activeControlValue() const {
  if (!isLoaded()) {
    raise(ErrorNumber::kObjectUnloaded);
  }
  return false;
}

void frmBookInfo::cmdOk_Click() {
  trapped(platform_.ui, source::kBookInfoOk, [this] {
    if (!acceptedByTextRules()) {
      return;
    }
    if (const auto refusal = refusalOfBookName(bookName_.text())) {
      platform_.ui.show(criticalMessage(*refusal));
      return;
    }
    if (const auto refusal = refusalOfAcronym(bookAcro_.text())) {
      platform_.ui.show(criticalMessage(*refusal));
    } else {
      hide();
    }
    state_.currentBookName = bookName_.text();
    state_.currentBookAcro = bookAcro_.text();
  });
}

void frmBookInfo::cmdCancel_Click() {
  trapped(platform_.ui, source::kBookInfoCancel, [this] {
    unload();
    state_.cancelled = true;
    state_.recordedXmlAcro.clear();
  });
}

// Both boxes are always looked at, so that each gets its own report.
bool frmBookInfo::acceptedByTextRules() {
  const auto rules = platform_.toolset.createXmlTextRules();
  const bool nameAccepted =
      rules->CheckReplacedXMLCharacters(bookName_.text(), text(Message::kBookNameLabel));
  const bool acroAccepted =
      rules->CheckReplacedXMLCharacters(bookAcro_.text(), text(Message::kBookAcroLabel));
  return nameAccepted && acroAccepted;
}

void frmBookInfo::txtBookName_Change() {
  trapped(platform_.ui, source::kBookInfoNameChange, [this] {
    if (state_.installationType == ProcessState::kAcronymFollowsName) {
      bookAcro_.setText(bookName_.text());
    }
    if (!bookName_.text().empty()) {
      state_.currentBookName = bookName_.text();
    }
  });
}

void frmBookInfo::txtBookAcro_Change() {
  trapped(platform_.ui, source::kBookInfoAcroChange, [this] {
    if (!bookAcro_.text().empty()) {
      state_.currentBookAcro = bookAcro_.text();
    }
  });
}

std::string_view frmBookInfo::name() const {
  return layout::kBookInfo.name;
}

std::string frmBookInfo::labelText(std::string_view label) const {
  if (label == "lblFileName") {
    return fileNameLabel_;
  }
  raise(ErrorNumber::kMemberNotSupported);
}

std::string frmBookInfo::boxText(std::string_view textBox) const {
  if (textBox == "txtBookName") {
    return bookName_.text();
  }
  if (textBox == "txtBookAcro") {
    return bookAcro_.text();
  }
  raise(ErrorNumber::kMemberNotSupported);
}

void frmBookInfo::type(std::string_view textBox, std::string_view text) {
  if (textBox == "txtBookName") {
    txtBookName().setText(text);
  } else if (textBox == "txtBookAcro") {
    txtBookAcro().setText(text);
  } else {
    raise(ErrorNumber::kMemberNotSupported);
  }
}

void frmBookInfo::click(std::string_view button) {
  if (button == "cmdOk") {
    cmdOk_Click();
  } else if (button == "cmdCancel") {
    cmdCancel_Click();
  } else {
    raise(ErrorNumber::kMemberNotSupported);
  }
}

void frmBookInfo::discardValues() {
  fileNameLabel_.clear();
  bookName_.discard();
  bookAcro_.discard();
}

}  // namespace quorbind
