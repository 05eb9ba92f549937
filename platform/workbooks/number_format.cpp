#include "platform/workbooks/number_format.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "platform/workbooks/number_display.h"

namespace quorbind {

namespace {

using Kind = FormatToken::Kind;

/// What stands in a cell that has no room for its value, or whose value is no date.
constexpr std::string_view kNotShown = "########";
constexpr std::string_view kGeneral = "General";

/// The sections that a number can choose from; a fourth is for texts.
constexpr std::size_t kNumberSections = 3;

struct BuiltInFormat {
  int id;
  std::string_view code;
};

constexpr std::array kBuiltInFormats{
    BuiltInFormat{1, "0"},
    BuiltInFormat{2, "0.00"},
    BuiltInFormat{3, "#,##0"},
    BuiltInFormat{4, "#,##0.00"},
    BuiltInFormat{5, R"("$"#,##0_);("$"#,##0))"},
    BuiltInFormat{6, R"("$"#,##0_);[Red]("$"#,##0))"},
    BuiltInFormat{7, R"("$"#,##0.00_);("$"#,##0.00))"},
    BuiltInFormat{8, R"("$"#,##0.00_);[Red]("$"#,##0.00))"},
    BuiltInFormat{9, "0%"},
    BuiltInFormat{10, "0.00%"},
    BuiltInFormat{11, "0.00E+00"},
    BuiltInFormat{12, "# ?/?"},
    BuiltInFormat{13, R"(# ??/??)"},
    BuiltInFormat{14, "m/d/yyyy"},
    BuiltInFormat{15, "d-mmm-yy"},
    BuiltInFormat{16, "d-mmm"},
    BuiltInFormat{17, "mmm-yy"},
    BuiltInFormat{18, "h:mm AM/PM"},
    BuiltInFormat{19, "h:mm:ss AM/PM"},
    BuiltInFormat{20, "h:mm"},
    BuiltInFormat{21, "h:mm:ss"},
    BuiltInFormat{22, "m/d/yyyy h:mm"},
    BuiltInFormat{37, "#,##0_);(#,##0)"},
    BuiltInFormat{38, "#,##0_);[Red](#,##0)"},
    BuiltInFormat{39, "#,##0.00_);(#,##0.00)"},
    BuiltInFormat{40, "#,##0.00_);[Red](#,##0.00)"},
    BuiltInFormat{41, R"(_(* #,##0_);_(* (#,##0);_(* "-"_);_(@_))"},
    BuiltInFormat{42, R"(_("$"* #,##0_);_("$"* (#,##0);_("$"* "-"_);_(@_))"},
    BuiltInFormat{43, R"(_(* #,##0.00_);_(* (#,##0.00);_(* "-"??_);_(@_))"},
    BuiltInFormat{44, R"(_("$"* #,##0.00_);_("$"* (#,##0.00);_("$"* "-"??_);_(@_))"},
    BuiltInFormat{45, "mm:ss"},
    BuiltInFormat{46, "[h]:mm:ss"},
    BuiltInFormat{47, "mm:ss.0"},
    BuiltInFormat{48, "##0.0E+0"},
    BuiltInFormat{49, "@"},
};

bool admitsOnlyNegative(const FormatCondition& condition) {
  using Relation = FormatCondition::Relation;
  return (condition.relation == Relation::kBelow && condition.bound <= 0) ||
         (condition.relation == Relation::kAtMost && condition.bound < 0);
}

}  // namespace

std::string NumberFormat::display(double value, DateSystem dates) const {
  const Choice choice = choose(value);
  if (choice.section == nullptr) {
    return std::string(kNotShown);
  }
  if (choice.section->isDate()) {
    return displayDate(*choice.section, value, dates).value_or(std::string(kNotShown));
  }
  return (choice.showsSign && value < 0 ? "-" : "") + displayNumber(*choice.section, value);
}

std::string NumberFormat::display(std::string_view text) const {
  const FormatSection* const section = sectionForTexts();
  if (section == nullptr) {
    return std::string(text);
  }
  std::string shown;
  for (const FormatToken& token : section->tokens) {
    shown += token.is(Kind::kText) ? text : std::string_view(token.text);
  }
  return shown;
}

NumberFormat::Choice NumberFormat::choose(double value) const {
  const bool hasConditions = std::any_of(
      sections_.begin(), sections_.end(), [](const auto& section) { return section.condition; });
  if (hasConditions) {
    return chooseByCondition(value);
  }
  const std::size_t count = std::min(sections_.size(), kNumberSections);
  // A section that is for texts alone is none for numbers.
  const bool lastIsForTexts = sections_.size() == count && count > 1 &&
                              sections_.back().has(Kind::kText) &&
                              !sections_.back().has(Kind::kDigit);
  const std::size_t usable = lastIsForTexts ? count - 1 : count;
  if (value < 0 && usable > 1) {
    return {&sections_[1], false};
  }
  if (value == 0 && usable > 2) {
    return {&sections_[2], false};
  }
  return {sections_.data(), true};
}

/// A section without a condition of its own is for what the ones before it leave; the second of
/// three is then for negative numbers.
NumberFormat::Choice NumberFormat::chooseByCondition(double value) const {
  const std::size_t count = std::min(sections_.size(), kNumberSections);
  for (std::size_t i = 0; i < count; ++i) {
    const FormatSection& section = sections_[i];
    const bool isLast = i + 1 == count;
    if (section.condition) {
      if (section.condition->holds(value)) {
        return {&section, !admitsOnlyNegative(*section.condition)};
      }
    } else if (isLast) {
      return {&section, true};
    } else if (i == 0 ? value > 0 : value < 0) {
      return {&section, i == 0};
    }
  }
  return {nullptr, false};
}

const FormatSection* NumberFormat::sectionForTexts() const {
  const FormatSection& last = sections_.back();
  const bool isForTexts = sections_.size() > kNumberSections || last.has(Kind::kText);
  return isForTexts ? &last : nullptr;
}

std::string_view builtInFormatCode(int id) {
  const auto* const found = std::find_if(
      kBuiltInFormats.begin(), kBuiltInFormats.end(), [id](const BuiltInFormat& format) {
        return format.id == id;
      });
  return found == kBuiltInFormats.end() ? kGeneral : found->code;
}

}  // namespace quorbind
