// Bytes as a packed workbook: either the whole file, or its parts in plain, which are packed first.
// In plain each part begins with a line `== NAME`.

#include <algorithm>
#include <string>

#include "tests/fuzz/targets.h"
#include "tests/fuzz/workbook_claims.h"
#include "tests/support/packed_file.h"

namespace quorbind::testing {

namespace {

constexpr std::string_view kPartBegin = "== ";

std::string packed(std::string_view parts) {
  PackedFile file;
  while (parts.starts_with(kPartBegin)) {
    parts.remove_prefix(kPartBegin.size());
    const std::size_t size = std::min(parts.find("\n== "), parts.size());
    const std::string_view part = parts.substr(0, size);
    const std::size_t nameEnd = std::min(part.find('\n'), part.size());
    file.add(part.substr(0, nameEnd), part.substr(std::min(nameEnd + 1, part.size())));
    parts.remove_prefix(std::min(size + 1, parts.size()));
  }
  return file.bytes();
}

}  // namespace

void fuzzXlsx(std::string_view bytes) {
  claimWorkbookIsRead(bytes.starts_with(kPartBegin) ? packed(bytes) : std::string(bytes),
                      "book.xlsx");
}

}  // namespace quorbind::testing
