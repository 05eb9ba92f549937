#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "platform/platform.h"
#include "toc/text_toc.h"

namespace quorbind {

/// What a text table of contents looks like before the component is asked to take it.
struct TocSurvey {
  bool accepted = false;
  /// The line that breaks a rule; 0 when none does, or the file ends too early.
  std::size_t refusedLine = 0;
  std::size_t entries = 0;
  /// Whether an entry carries the marks that the generator reads.
  bool hasMarks = false;
  std::int16_t deepestLevel = 0;
  std::size_t deepestLine = 0;
};

/// Told of every entry that is accepted; the entry holds during the call only.
using EntryVisitor = std::function<void(const TextTocLine&, const TextTocEntry&)>;

/// Holds the file against the rules without telling anybody. Raises what reading it raises.
TocSurvey surveyTextToc(const Platform& platform,
                        std::string_view path,
                        const EntryVisitor& visitor = {});

/// Fails when the headings lie so deep that the book file would be one that no reader takes. `name`
/// is the user's name for the table of contents.
void requireReadableDepth(const TocSurvey& survey, const std::string& name);

}  // namespace quorbind
