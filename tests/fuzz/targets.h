#pragma once

// What hostile bytes are tried on. A target takes one input, hands it to everything that reads
// bytes of its kind, and claims what must hold of any input: what two readers of one kind agree on,
// what comes back when it is written and read again, what stays as it was.
//
// The same targets run under libFuzzer and, over the inputs that are kept, in the ordinary tests.

#include <span>
#include <string>
#include <string_view>

namespace quorbind::testing {

void fuzzText(std::string_view bytes);
void fuzzHtml(std::string_view bytes);
void fuzzXml(std::string_view bytes);
/// The operation and the file that two bytes and more choose there, such as `BookInfo-Quor_TOC`.
std::string xmlCaseOf(std::string_view bytes);
void fuzzXlsx(std::string_view bytes);
void fuzzXls(std::string_view bytes);
void fuzzNumbers(std::string_view bytes);
void fuzzExportLine(std::string_view bytes);
void fuzzBookList(std::string_view bytes);

struct FuzzTarget {
  /// Also that of the folder of its inputs in tests/fuzz/data.
  std::string_view name;
  /// Throws BrokenClaim.
  void (*run)(std::string_view bytes);
};

std::span<const FuzzTarget> fuzzTargets();

}  // namespace quorbind::testing
