#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/filled_text.h"

namespace quorbind {

enum class Severity {
  kWarning,  ///< the library can be used as it is
  kError
};

/// What can be wrong with a server and its libraries. See findings.def.
enum class FindingKind {
#define QUOR_FINDING(name, id, severity, sentence, remedy) name,
#include "cli/doctor/findings.def"
#undef QUOR_FINDING
};

/// What stands for the words in braces of a finding's texts, by the word.
using FindingWords = TextWords;

/// Something that is wrong, with what to do about it.
struct Finding {
  std::string_view id;
  Severity severity = Severity::kError;
  /// The file or folder that it concerns, as the component names it; and the line, and the
  /// character on it, 0 for none.
  std::string file;
  std::size_t line = 0;
  std::size_t column = 0;
  /// The whole line, of a file that does not parse.
  std::optional<std::string> lineText;
  /// What is wrong, and what to do, each in one sentence.
  std::string text;
  std::string remedy;
  /// A command line that mends it; empty when there is none.
  std::string command;
};

/// Where something is wrong.
struct FindingPlace {
  std::string file;
  std::size_t line = 0;
  std::size_t column = 0;
  std::optional<std::string> lineText = std::nullopt;
};

/// What was found, in its order.
class Findings {
 public:
  void add(FindingKind kind,
           const FindingPlace& place,
           const FindingWords& words = {},
           std::string command = {});

  [[nodiscard]] const std::vector<Finding>& all() const { return findings_; }
  [[nodiscard]] std::size_t count(Severity severity) const;

 private:
  std::vector<Finding> findings_;
};

/// A severity in one word.
std::string_view wordFor(Severity severity);

}  // namespace quorbind
