#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "cli/exit_status.h"
#include "cli/toc_file.h"
#include "cli/toc_survey.h"
#include "platform/platform.h"
#include "toc/book_place.h"

namespace quorbind {

/// A document that a book file names, with the line.
struct NamedDocument {
  std::string name;
  std::size_t line = 0;
};

/// What a book file as a table of contents looks like before the component is asked to take it.
struct BookFileSurvey {
  /// Nothing when it breaks no rule.
  std::optional<TocRefusal> refusal;
  /// What a refusal means for the shell.
  ExitStatus status = ExitStatus::kDone;
  std::size_t headings = 0;
  /// The main file of its book and the documents of its headings, as it names them.
  std::vector<NamedDocument> documents;
  /// What its book is called in it, in the stored form; empty where it does not say.
  std::string name;
  std::string acronym;
  /// The folder of its book below the library's; empty for the library's own.
  std::string folder;
  /// An element of its that states a place and that the installed copy has to state anew, when it
  /// lacks one.
  std::optional<std::string> missingElement;
};

/// Holds the file against the rules without telling anybody.
BookFileSurvey surveyBookFile(const Platform& platform, const TocFile& toc);

}  // namespace quorbind
