// Bytes as a binary workbook: either the whole compound file, or the stream of its records, which
// is put into one first.

#include <string>

#include "platform/workbooks/compound_file.h"
#include "tests/fuzz/targets.h"
#include "tests/fuzz/workbook_claims.h"
#include "tests/support/binary_workbook.h"

namespace quorbind::testing {

void fuzzXls(std::string_view bytes) {
  claimWorkbookIsRead(CompoundFile::isOne(bytes) ? std::string(bytes)
                                                 : compoundFile({{"Workbook", std::string(bytes)}}),
                      "book.xls");
}

}  // namespace quorbind::testing
