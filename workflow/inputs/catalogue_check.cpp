#include "workflow/inputs/catalogue_check.h"

#include <utility>

#include "catalogue/names.h"
#include "platform/error_trap.h"
#include "platform/toolset.h"
#include "platform/xml_document.h"
#include "platform/xpath_query.h"
#include "resources/messages.h"

namespace quorbind {

namespace {

/// The first book whose child `element` is `value`.
XmlNode findBook(const XmlDocument& catalogue, std::string_view element, std::string_view value) {
  return catalogue.select(elementsWith(catalogue_names::kBookPath, element, value, '\''));
}

void tellOfDuplicate(Module& module, Message what, const std::string& value) {
  module.platform.ui.show(criticalMessage((what + value) + Message::kAlreadyExists));
}

/// A name that is entered is brought into its stored form; the one that was there is left as it is.
/// An acronym that the dialog accepts has no other form.
void askAgain(Module& module,
              XmlTextRules& rules,
              const std::string& name,
              const std::string& acronym) {
  module.bookInfo.txtBookName().setText(name);
  module.bookInfo.txtBookAcro().setText(acronym);
  std::string& current = module.state.currentBookName;
  const std::string before = current;
  module.bookInfo.showModal();
  if (current != before) {
    current = rules.mstrCheckSpecialCharecters(current);
  }
}

/// What was passed in, and the form in which the catalogue would hold it.
struct Searched {
  std::string passed;
  std::string stored;
};

/// Answers whether neither was found.
bool checkAgainst(const XmlDocument& catalogue,
                  Module& module,
                  XmlTextRules& rules,
                  const Searched& name,
                  Searched acronym) {
  bool isQuiet = true;
  if (findBook(catalogue, catalogue_names::kName, name.stored)) {
    isQuiet = false;
    tellOfDuplicate(module, Message::kErrorBookName, name.passed);
    askAgain(module, rules, name.passed, acronym.passed);
    if (module.state.cancelled) {
      return false;
    }
    if (module.state.currentBookAcro != acronym.passed) {
      acronym = {module.state.currentBookAcro, module.state.currentBookAcro};
    }
  }
  if (findBook(catalogue, catalogue_names::kAcro, acronym.stored)) {
    isQuiet = false;
    tellOfDuplicate(module, Message::kErrorBookAcro, acronym.passed);
    askAgain(module, rules, "", "");
  }
  return isQuiet;
}

}  // namespace

bool mbCheckQuorTOCForBook(Module& module,
                           const std::string& vstrQuorTOcPath,
                           const std::string& vstrBookName,
                           const std::string& vstrBookAcro) {
  return checkCatalogueForBook(module, vstrQuorTOcPath, vstrBookName, vstrBookAcro).loads;
}

CheckedCatalogue checkCatalogueForBook(Module& module,
                                       const std::string& cataloguePath,
                                       const std::string& name,
                                       const std::string& acronym) {
  CheckedCatalogue checked;
  checked.loads = trapped(module.platform.ui, source::kCheckQuorTocForBook, false, [&] {
    const auto rules = module.platform.toolset.createXmlTextRules();
    const Searched searchedName{name, rules->mstrCheckSpecialCharecters(name)};
    const Searched searchedAcronym{acronym, rules->mstrCheckSpecialCharecters(acronym)};
    auto catalogue = module.platform.xml.createDocument();
    if (!catalogue->load(cataloguePath)) {
      return false;
    }
    if (checkAgainst(*catalogue, module, *rules, searchedName, searchedAcronym)) {
      checked.stillCurrent = std::move(catalogue);
    }
    return true;
  });
  return checked;
}

}  // namespace quorbind
