#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quorbind::testing {

/// What the check of an HTML page leaves behind.
struct HtmlTocOutcome {
  bool accepted = false;
  std::string exportText;
  /// Boxes and clipboard texts, as ScriptedUserInterface records them.
  std::vector<std::string> record;
  std::int16_t lastLevel = 0;
  std::vector<std::string> missingFiles;

  bool operator==(const HtmlTocOutcome&) const = default;
};

/// The headings of a page read as the rule is told: the first heading is looked at, every
/// occurrence of its characters is replaced by a blank, and the search begins again in front of the
/// page. Slow and easy to follow, to hold the quick reader against. No document is found, and the
/// page must have no title block.
HtmlTocOutcome checkHeadingsPlainly(std::string_view page);

/// A text without its tags, in the same way.
std::string removeTagsPlainly(std::string_view text);

}  // namespace quorbind::testing
