#include "workflow/inputs/form_input.h"

#include <functional>

#include "platform/error_trap.h"
#include "platform/text.h"
#include "platform/toolset.h"
#include "platform/xml_document.h"
#include "resources/rule_texts.h"
#include "workflow/inputs/catalogue_check.h"

namespace quorbind {

namespace {

constexpr std::int16_t kXmlKind = 1;
constexpr std::string_view kNameOrAcroMissing = text(RuleText::kNameOrAcroMissing);

void preset(TextBox& box, const std::string& value) {
  if (!value.empty()) {
    box.setText(value);
  }
}

void presentBookForm(Module& module, std::int16_t vintType) {
  frmBookInfo& form = module.bookInfo;
  if (vintType != kXmlKind) {
    module.progress.hide();
    form.txtBookName().setText("");
    form.txtBookAcro().setText("");
  }
  preset(form.txtBookName(), module.state.currentBookName);
  preset(form.txtBookAcro(), module.state.currentBookAcro);
  form.showModal();
}

/// Shows the dialog and takes its values over. False when it was left without usable ones.
bool askForBook(Module& module, std::int16_t vintType, XmlTextRules& rules) {
  presentBookForm(module, vintType);

  frmBookInfo& form = module.bookInfo;
  bool activeControl = false;
  if (ignoringErrors([&] { activeControl = form.activeControlValue(); }) != 0) {
    return false;
  }
  if (trimBlanks(form.txtBookName().text()).empty() ||
      trimBlanks(form.txtBookAcro().text()).empty()) {
    module.platform.ui.show(criticalMessage(std::string(kNameOrAcroMissing)));
    return false;
  }
  if (!activeControl) {
    module.state.currentBookAcro = rules.mstrCheckSpecialCharecters(form.txtBookAcro().text());
    module.state.currentBookName = rules.mstrCheckSpecialCharecters(form.txtBookName().text());
  }
  return true;
}

/// Answers whether the user did not give up. `check` holds the current name and acronym against the
/// catalogue; what that says is the user's business alone, and the run goes on whatever it is.
bool isInputGiven(Module& module, std::int16_t kind, const std::function<void()>& check) {
  return trapped(module.platform.ui, source::kGetFormInput, false, [&] {
    // Asked for first: without it nothing is asked of anybody.
    static_cast<void>(module.platform.xml.createDocument());
    const ProcessState& state = module.state;
    const auto rules = module.platform.toolset.createXmlTextRules();
    const bool bothKnown = !state.currentBookName.empty() && !state.currentBookAcro.empty();
    if (!bothKnown && !askForBook(module, kind, *rules)) {
      return false;
    }
    check();
    return !state.cancelled;
  });
}

}  // namespace

bool mbGetFormInput(Module& module, const std::string& vstrQuorTOcPath, std::int16_t vintType) {
  const ProcessState& state = module.state;
  return isInputGiven(module, vintType, [&] {
    mbCheckQuorTOCForBook(module, vstrQuorTOcPath, state.currentBookName, state.currentBookAcro);
  });
}

FormInput askFormInput(Module& module, const std::string& cataloguePath, std::int16_t kind) {
  FormInput input;
  const ProcessState& state = module.state;
  input.isGiven = isInputGiven(module, kind, [&] {
    input.catalogue =
        checkCatalogueForBook(module, cataloguePath, state.currentBookName, state.currentBookAcro)
            .stillCurrent;
  });
  return input;
}

}  // namespace quorbind
