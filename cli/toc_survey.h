#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "cli/line_place.h"
#include "cli/toc_file.h"
#include "platform/platform.h"
#include "toc/book_place.h"
#include "toc/text_toc.h"

namespace quorbind {

/// Why a table of contents is refused.
struct TocRefusal {
  TocViolation violation;
  /// What breaks the rule; no line when none does, because the file ends too early.
  LinePlace place = {};
  /// What is offered on the clipboard, where something is.
  std::string text = {};
};

/// What a text table of contents looks like before the component is asked to take it.
struct TocSurvey {
  /// Nothing when the table breaks no rule.
  std::optional<TocRefusal> refusal;
  std::size_t entries = 0;
  /// Whether an entry carries the marks that the generator reads.
  bool hasMarks = false;
  /// The refusal of the first heading that lies so deep that the book file would be one that no
  /// reader takes. It counts when no rule is broken.
  std::optional<TocRefusal> tooDeep;
  /// Where the table says that the book belongs, and where the file name of the first entry stands,
  /// which says it. Good when no rule is broken.
  StatedPlace statedPlace;
  LinePlace mainFile;
};

/// Told of every entry that is accepted; the entry holds during the call only.
using EntryVisitor = std::function<void(const TextTocLine&, const TextTocEntry&)>;

/// Holds the file against the rules without telling anybody. One that can't be read is a
/// CommandFailure, and so is every run-time error of the visitor.
TocSurvey surveyTextToc(const Platform& platform,
                        const TocFile& toc,
                        const EntryVisitor& visitor = {});

/// The place of a field, a view into its line, together with its quotation marks.
LinePlace placeOfField(const TextTocLine& line, std::string_view field);

/// Shows the box of the rule, and offers the line where the rule does.
void tellRefusal(UserInterface& ui, const TocRefusal& refusal);

/// Whether a heading lies so deep that the book file would be one that no reader takes.
bool isTooDeep(std::int16_t level);
/// The refusal of such a heading, whose level stands at `place`.
TocRefusal refusalOfDepth(const LinePlace& place);

/// The refusal of the place that the table states; nothing when a book may lie there.
std::optional<TocRefusal> refusalOfStatedPlace(const TocSurvey& survey);

}  // namespace quorbind
