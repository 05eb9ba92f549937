#include "tests/fuzz/targets.h"

#include <array>

namespace quorbind::testing {

std::span<const FuzzTarget> fuzzTargets() {
  static constexpr std::array<FuzzTarget, 8> kTargets{{{"text", fuzzText},
                                                       {"html", fuzzHtml},
                                                       {"xml", fuzzXml},
                                                       {"xlsx", fuzzXlsx},
                                                       {"xls", fuzzXls},
                                                       {"numbers", fuzzNumbers},
                                                       {"export-line", fuzzExportLine},
                                                       {"book-list", fuzzBookList}}};
  return kTargets;
}

}  // namespace quorbind::testing
