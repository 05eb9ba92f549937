#include "tests/operations/operations_test.h"

#include "platform/text.h"
#include "tests/support/dates.h"

namespace quorbind::testing {

using ::testing::ElementsAre;

namespace {

constexpr std::string_view kUtf16Mark = "\xFF\xFE";

}  // namespace

std::string OperationsTest::bytes(std::string_view name) const {
  return withoutDateOfMaking(host_->disk().read(name));
}

void OperationsTest::expectRefused(const std::string& operation,
                                   const Arguments& arguments,
                                   const std::string& answer,
                                   const std::string& box) {
  const auto before = allFiles();
  EXPECT_EQ(call(operation, arguments), answer);
  EXPECT_THAT(shown(), ElementsAre(box));
  EXPECT_EQ(allFiles(), before);
}

std::string withoutDateOfMaking(const std::string& bytes) {
  return bytes.starts_with(kUtf16Mark) ? utf16File(withoutDates(fromUtf16File(bytes))) : bytes;
}

std::string saved(std::string_view document) {
  return replaceAll(document, "\n", "\r\n");
}

}  // namespace quorbind::testing
