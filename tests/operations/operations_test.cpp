#include "tests/operations/operations_test.h"

#include <algorithm>

#include "platform/text.h"

namespace quorbind::testing {

using ::testing::ElementsAre;

namespace {

constexpr std::string_view kUtf16Mark = "\xFF\xFE";

/// The first date with its time, and nothing else, is of these letters and has two of each
/// separator.
std::string withoutDate(const std::string& text) {
  constexpr std::string_view kDigits = "0123456789";
  constexpr std::string_view kLetters = "0123456789/: APM";
  for (std::size_t from = text.find_first_of(kDigits); from != std::string::npos;) {
    const std::size_t to = std::min(text.find_first_not_of(kLetters, from), text.size());
    const std::string run = text.substr(from, to - from);
    if (std::ranges::count(run, '/') == 2 && std::ranges::count(run, ':') == 2) {
      return text.substr(0, from) + "DATE" + text.substr(to);
    }
    from = text.find_first_of(kDigits, to);
  }
  return text;
}

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
  return bytes.starts_with(kUtf16Mark) ? utf16File(withoutDate(fromUtf16File(bytes))) : bytes;
}

std::string saved(std::string_view document) {
  return replaceAll(document, "\n", "\r\n");
}

}  // namespace quorbind::testing
