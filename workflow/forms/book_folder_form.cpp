#include "workflow/forms/book_folder_form.h"

#include "platform/error_trap.h"
#include "platform/toolset.h"
#include "resources/form_layouts.h"
#include "resources/messages.h"
#include "workflow/forms/name_rules.h"

namespace quorbind {

frmBookFolder::frmBookFolder(const Platform& platform) : Dialog(platform.ui), platform_(platform) {}

TextBox& frmBookFolder::Text1() {
  load();
  return folder_;
}

void frmBookFolder::cmdOk_Click() {
  trapped(platform_.ui, source::kBookFolderOk, [this] {
    if (folder_.text().empty()) {
      platform_.ui.show(criticalMessage(std::string(text(Message::kEnterNonEmptyFolder))));
      return;
    }
    if (!acceptedByTextRules()) {
      return;
    }
    if (const auto refusal = refusalOfFolder(folder_.text())) {
      platform_.ui.show(criticalMessage(*refusal));
      return;
    }
    hide();
  });
}

bool frmBookFolder::acceptedByTextRules() {
  return platform_.toolset.createXmlTextRules()->CheckReplacedXMLCharacters(
      folder_.text(), text(Message::kFolderNameLabel));
}

std::string_view frmBookFolder::name() const {
  return layout::kBookFolder.name;
}

std::string frmBookFolder::labelText(std::string_view /*label*/) const {
  raise(ErrorNumber::kMemberNotSupported);
}

std::string frmBookFolder::boxText(std::string_view textBox) const {
  if (textBox == "Text1") {
    return folder_.text();
  }
  raise(ErrorNumber::kMemberNotSupported);
}

void frmBookFolder::type(std::string_view textBox, std::string_view text) {
  if (textBox != "Text1") {
    raise(ErrorNumber::kMemberNotSupported);
  }
  Text1().setText(text);
}

void frmBookFolder::click(std::string_view button) {
  if (button != "cmdOk") {
    raise(ErrorNumber::kMemberNotSupported);
  }
  cmdOk_Click();
}

void frmBookFolder::discardValues() {
  folder_.discard();
}

}  // namespace quorbind
