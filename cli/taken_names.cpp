#include "cli/taken_names.h"

#include <algorithm>
#include <utility>

#include "platform/toolset.h"
#include "resources/messages.h"

namespace quorbind {

namespace {

UserMessage boxOf(Message beginning, const std::string& text) {
  return criticalMessage((beginning + text) + Message::kAlreadyExists);
}

template <typename Texts>
std::optional<TakenName> take(Texts& taken, const std::string& text, Message beginning) {
  if (text.empty()) {
    return std::nullopt;
  }
  const auto [first, last] = taken.equal_range(text);
  const bool isTaken = first != last;
  const bool isExact = std::find(first, last, text) != last;
  taken.insert(text);
  return isTaken ? std::optional(TakenName{boxOf(beginning, text), isExact}) : std::nullopt;
}

/// Whether a book has the text in another letter case, and none has the text itself.
bool isHeldInOtherLetterCase(const Locale& locale,
                             const std::vector<ListedBook>& books,
                             std::string ListedBook::*member,
                             const std::string& text) {
  bool isHeld = false;
  for (const ListedBook& book : books) {
    const std::string& held = book.*member;
    if (held == text) {
      return false;
    }
    isHeld = isHeld || (!held.empty() && locale.compareText(held, text) == 0);
  }
  return isHeld;
}

}  // namespace

TakenNames::TakenNames(const Locale& locale)
    : names_([&locale](const std::string& left, const std::string& right) {
        return locale.compareText(left, right) < 0;
      }),
      acronyms_(names_.key_comp()) {}

void TakenNames::take(const ListedBook& book) {
  static_cast<void>(takeName(book.name));
  static_cast<void>(takeAcronym(book.acronym));
}

std::optional<TakenName> TakenNames::takeName(const std::string& name) {
  return quorbind::take(names_, name, Message::kErrorBookName);
}

std::optional<TakenName> TakenNames::takeAcronym(const std::string& acronym) {
  return quorbind::take(acronyms_, acronym, Message::kErrorBookAcro);
}

bool tellTakenInOtherLetterCase(Wiring& wiring,
                                const std::vector<ListedBook>& books,
                                const std::string& name,
                                const std::string& acronym) {
  const auto rules = wiring.toolset.createXmlTextRules();
  const auto isTold =
      [&](std::string ListedBook::*member, const std::string& text, Message beginning) {
        const std::string stored = rules->mstrCheckSpecialCharecters(text);
        const bool isHeld = isHeldInOtherLetterCase(wiring.locale, books, member, stored);
        if (isHeld) {
          wiring.ui.show(boxOf(beginning, readableName(stored)));
        }
        return isHeld;
      };
  return isTold(&ListedBook::name, name, Message::kErrorBookName) ||
         isTold(&ListedBook::acronym, acronym, Message::kErrorBookAcro);
}

}  // namespace quorbind
