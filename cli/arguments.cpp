#include "cli/arguments.h"

#include <array>
#include <string_view>

#include "platform/text.h"
#include "toc/toc_check.h"

namespace quorbind {

namespace {

struct KindName {
  std::string_view extension;
  std::string_view name;
  TocCheck::Kind kind;
};

constexpr std::array kKindNames{
    KindName{".xml", "xml", TocCheck::kXml},
    KindName{".htm", "html", TocCheck::kHtml},
    KindName{".html", "html", TocCheck::kHtml},
    KindName{".xls", "excel", TocCheck::kExcel},
    KindName{".xlsx", "excel", TocCheck::kExcel},
    KindName{".xlsm", "excel", TocCheck::kExcel},
    KindName{".txt", "text", TocCheck::kText},
};

}  // namespace

bool isGiven(const std::optional<std::string>& flag) {
  return flag && !trimBlanks(*flag).empty();
}

bool isNamed(const AddArguments& arguments) {
  return !arguments.names.empty() || !arguments.acronyms.empty();
}

std::optional<std::string> valueAt(const std::vector<std::string>& values, std::size_t index) {
  return index < values.size() ? std::optional(values[index]) : std::nullopt;
}

std::int16_t kindOf(const std::string& toc, const std::optional<std::string>& kind) {
  for (const KindName& known : kKindNames) {
    const bool told =
        toc.size() > known.extension.size() && endsIgnoringAsciiCase(toc, known.extension);
    if (kind ? *kind == known.name : told) {
      return known.kind;
    }
  }
  return 0;
}

}  // namespace quorbind
