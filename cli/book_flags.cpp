#include "cli/book_flags.h"

#include "cli/catalogue_reader.h"
#include "cli/failure.h"
#include "cli/kept_text.h"
#include "cli/taken_names.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "platform/toolset.h"
#include "resources/form_layouts.h"

namespace quorbind {

namespace {

constexpr std::string_view kNameBox = "txtBookName";
constexpr std::string_view kAcronymBox = "txtBookAcro";
constexpr std::string_view kFolderBox = "Text1";
constexpr std::string_view kOkButton = "cmdOk";

/// The dialogs' own handlers judge, in a module that the run doesn't use.
template <typename Typing>
void judgeByDialog(Wiring& wiring, Typing&& typing) {
  Module scratch(wiring.module.platform);
  const std::size_t boxes = wiring.ui.shown().size();
  typing(scratch);
  if (wiring.ui.shown().size() > boxes) {
    throw AlreadyTold(ExitStatus::kRefused);
  }
}

}  // namespace

std::vector<PreparedAnswer> bookAnswers(const BookNaming& naming) {
  const std::string form(layout::kBookInfo.name);
  return {{form, std::string(kNameBox), "--name", naming.name},
          {form, std::string(kAcronymBox), "--acro", naming.acronym}};
}

void holdDialogsTo(Wiring& wiring, const std::string& catalogue) {
  wiring.ui.holdFormsTo([&wiring, catalogue](const ModalForm& form) {
    if (form.name() != layout::kBookInfo.name) {
      return form.name() != layout::kBookFolder.name ||
             !tellNotKept(wiring, form.boxText(kFolderBox));
    }
    const std::string name = form.boxText(kNameBox);
    const std::string acronym = form.boxText(kAcronymBox);
    return !tellNotKept(wiring, name) && !tellNotKept(wiring, acronym) &&
           !tellTakenInOtherLetterCase(
               wiring, readCatalogue(wiring.module.platform, catalogue), name, acronym);
  });
}

void requireUsableNaming(Wiring& wiring, const BookNaming& naming) {
  const std::string name = naming.name.value_or("");
  const std::string acronym = naming.acronym.value_or("");
  requireKeptText(name);
  requireKeptText(acronym);
  judgeByDialog(wiring, [&](Module& scratch) {
    scratch.bookInfo.type(kNameBox, name);
    scratch.bookInfo.type(kAcronymBox, acronym);
    scratch.bookInfo.click(kOkButton);
  });
}

void requireUsableFolder(Wiring& wiring, const std::string& folder) {
  requireKeptText(folder);
  const std::string name(trimBlanks(folder));
  judgeByDialog(wiring, [&](Module& scratch) {
    scratch.bookFolder.type(kFolderBox, name);
    scratch.bookFolder.click(kOkButton);
  });
  if (!staysInFolder(name)) {
    throw brokenRule(RuleText::kFolderFlagLeadsOut, {{"FOLDER", folder}});
  }
  requireNameThatFits(name, "--folder");
}

void requireNameThatFits(std::string_view name, std::string_view flag) {
  if (name.size() > kLongestName) {
    throw brokenRule(RuleText::kNameTooLong,
                     {{"FLAG", std::string(flag)},
                      {"SIZE", std::to_string(name.size())},
                      {"MOST", std::to_string(kLongestName)}});
  }
}

}  // namespace quorbind
