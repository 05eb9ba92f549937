#include "workflow/inputs/input_check.h"

#include <array>
#include <string>

#include "platform/error_trap.h"
#include "platform/locale.h"
#include "platform/text.h"
#include "resources/messages.h"
#include "resources/rule_texts.h"

namespace quorbind {

namespace {

struct KindRule {
  /// Looked for anywhere in the upper-cased path.
  std::string_view extension;
  std::string_view refusal;
};

/// By kind, from 1.
constexpr std::array kKindRules{
    KindRule{".XML", text(RuleText::kNotAnXmlFile)},
    KindRule{".HTM", text(RuleText::kNotAnHtmlFile)},
    KindRule{".XLS", text(RuleText::kNotAnExcelFile)},
    KindRule{".TXT", text(RuleText::kNotATextFile)},
};

constexpr std::string_view kCatalogueName = "Quor_TOC.xml";
constexpr std::string_view kCatalogueAsInput =
    "Quor_TOC.XML File is internal to Quor, hence you cannot have this named file as input";

std::string refusalOf(std::string_view upperCasePath, std::int16_t kind) {
  if (kind < 1 || kind > static_cast<int>(kKindRules.size())) {
    return std::string(text(Message::kNotAValidTocFile));
  }
  // A mixed-case name is never part of an upper-case path, so this lets every catalogue through.
  // Hosts have come to add catalogues as books, and the guard keeps its published effect: none.
  if (contains(upperCasePath, kCatalogueName)) {
    return std::string(kCatalogueAsInput);
  }
  const KindRule& rule = kKindRules.at(static_cast<std::size_t>(kind - 1));
  return contains(upperCasePath, rule.extension) ? std::string() : std::string(rule.refusal);
}

}  // namespace

bool bCheckForValidInput(Module& module, std::string_view path, std::int16_t vintType) {
  const Platform& platform = module.platform;
  return trapped(platform.ui, source::kCheckForValidInput, false, [&] {
    const std::string refusal = refusalOf(platform.locale.upperCase(path), vintType);
    if (!refusal.empty()) {
      platform.ui.show(criticalMessage(refusal));
    }
    return refusal.empty();
  });
}

}  // namespace quorbind
