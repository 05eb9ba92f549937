#include "workflow/inputs/catalogue_check.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "catalogue/names.h"
#include "platform/error_trap.h"
#include "platform/text.h"
#include "platform/text_encoding.h"
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

bool isWhiteSpace(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

void appendWithoutWhiteSpace(std::string& result, std::string_view text) {
  std::copy_if(text.begin(), text.end(), std::back_inserter(result), [](char c) {
    return !isWhiteSpace(c);
  });
}

std::string withoutWhiteSpace(std::string_view text) {
  std::string result;
  appendWithoutWhiteSpace(result, text);
  return result;
}

/// Walks through a catalogue to find out that a name and an acronym are not in it. It takes more
/// for one of them than a query finds: wherever it stands, and however white space lays it out.
class RoughSearch final : public XmlScanHandler {
 public:
  RoughSearch(std::string_view name, std::string_view acronym)
      : name_(withoutWhiteSpace(name)), acronym_(withoutWhiteSpace(acronym)) {}

  [[nodiscard]] bool hasFound() const { return hasFound_; }

  void startElement(std::string_view name, const XmlScanAttributes& /*attributes*/) override {
    if (searchedIn(name) != nullptr) {
      // An element inside of another leaves a part of the outer one's text alone.
      hasFound_ = hasFound_ || isInside_;
      isInside_ = true;
      text_.clear();
    }
  }
  void text(std::string_view text) override {
    if (isInside_) {
      appendWithoutWhiteSpace(text_, text);
    }
  }
  void endElement(std::string_view name) override {
    if (const std::string* const searched = searchedIn(name)) {
      // A character that came in two pieces is read as others.
      hasFound_ = hasFound_ || text_ == *searched || contains(text_, kReplacementCharacter);
      isInside_ = false;
    }
  }

 private:
  [[nodiscard]] const std::string* searchedIn(std::string_view element) const {
    return element == catalogue_names::kName   ? &name_
           : element == catalogue_names::kAcro ? &acronym_
                                               : nullptr;
  }

  const std::string name_;
  const std::string acronym_;
  std::string text_;
  bool isInside_ = false;
  bool hasFound_ = false;
};

bool fitsQuery(const std::string& value) {
  return !errorOf([&value] { requireFitsQuery(value, '\''); });
}

/// Whether the catalogue loads and nothing in it is to be told of. False where that takes a look
/// at its tree.
bool isSurelyFree(Module& module,
                  const std::string& cataloguePath,
                  const Searched& name,
                  const Searched& acronym) {
  if (!fitsQuery(name.stored) || !fitsQuery(acronym.stored)) {
    return false;
  }
  RoughSearch search(name.stored, acronym.stored);
  return module.platform.xml.scan(cataloguePath, search).loaded && !search.hasFound();
}

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

Searched searchedFor(XmlTextRules& rules, const std::string& passed) {
  return {passed, rules.mstrCheckSpecialCharecters(passed)};
}

CheckedCatalogue lookAtTree(Module& module,
                            const std::string& cataloguePath,
                            XmlTextRules& rules,
                            const Searched& name,
                            const Searched& acronym) {
  CheckedCatalogue checked;
  auto catalogue = module.platform.xml.createDocument();
  checked.loads = catalogue->load(cataloguePath).loaded;
  if (checked.loads && checkAgainst(*catalogue, module, rules, name, acronym)) {
    checked.stillCurrent = std::move(catalogue);
  }
  return checked;
}

}  // namespace

bool mbCheckQuorTOCForBook(Module& module,
                           const std::string& vstrQuorTOcPath,
                           const std::string& vstrBookName,
                           const std::string& vstrBookAcro) {
  return trapped(module.platform.ui, source::kCheckQuorTocForBook, false, [&] {
    const auto rules = module.platform.toolset.createXmlTextRules();
    const Searched name = searchedFor(*rules, vstrBookName);
    const Searched acronym = searchedFor(*rules, vstrBookAcro);
    return isSurelyFree(module, vstrQuorTOcPath, name, acronym) ||
           lookAtTree(module, vstrQuorTOcPath, *rules, name, acronym).loads;
  });
}

CheckedCatalogue checkCatalogueForBook(Module& module,
                                       const std::string& cataloguePath,
                                       const std::string& name,
                                       const std::string& acronym) {
  return trapped(module.platform.ui, source::kCheckQuorTocForBook, CheckedCatalogue(), [&] {
    const auto rules = module.platform.toolset.createXmlTextRules();
    const Searched searchedName = searchedFor(*rules, name);
    const Searched searchedAcronym = searchedFor(*rules, acronym);
    return lookAtTree(module, cataloguePath, *rules, searchedName, searchedAcronym);
  });
}

}  // namespace quorbind
