#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/toc_file.h"
#include "cli/toc_survey.h"
#include "platform/platform.h"

namespace quorbind {

/// Something to be said of a heading, or of the title, that begins on this line.
struct PageNote {
  std::size_t line = 0;
  std::string text;
};

/// What an HTML page as a table of contents looks like before the component is asked to take it.
struct PageSurvey {
  /// Its entries are the headings, their levels those of the export. A refusal names the place of
  /// the heading, the title or the tag at fault; that of the stated place the line of the heading.
  TocSurvey rules;
  /// The title of the book; empty when the page has none.
  std::string title;
  /// Whether it has link identifiers to be recorded.
  bool hasLinkIdentifiers = false;
  /// What will not come out as its author meant it, although no rule is broken.
  std::vector<PageNote> notes;
};

/// Told of every document that the title or a heading links to, with the line on which that begins.
using DocumentVisitor = std::function<void(std::size_t line, std::string_view document)>;

/// Holds the page against the rules without telling anybody. One that can't be read is a
/// CommandFailure.
PageSurvey surveyHtmlToc(const Platform& platform,
                         const TocFile& toc,
                         const DocumentVisitor& visitor = {});

/// Shows the notes in information boxes.
void tellNotes(UserInterface& ui, const PageSurvey& survey, const TocFile& toc);

}  // namespace quorbind
