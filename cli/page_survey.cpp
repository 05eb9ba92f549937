#include "cli/page_survey.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <string>

#include "cli/failure.h"
#include "platform/error_trap.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "platform/user_interface.h"
#include "resources/rule_texts.h"
#include "sidefiles/book_link.h"
#include "toc/html_place.h"
#include "toc/html_toc.h"

namespace quorbind {

namespace {

constexpr std::string_view kIdentifiersEnd =
    "the link identifier has no characters between <IBD> and </IBD>; it and those behind it are "
    "not recorded";
constexpr std::string_view kNotLookedUp =
    "the link identifier has an apostrophe and is not recorded";
constexpr std::string_view kEntryCut =
    "a line break in the title or in a value of the heading cuts its entry in two; it does not "
    "come "
    "into the book as it is written, and link identifiers from there on are not recorded";
constexpr char kApostrophe = '\'';

/// Tells lines of ascending positions, so that all together read the page once.
class LineCounter {
 public:
  explicit LineCounter(std::string_view page) : page_(page) {}

  std::size_t lineAt(std::size_t position) {
    const std::string_view skipped = page_.substr(position_, position - position_);
    line_ += static_cast<std::size_t>(std::count(skipped.begin(), skipped.end(), '\n'));
    position_ = position;
    return line_;
  }

 private:
  std::string_view page_;
  std::size_t position_ = 0;
  std::size_t line_ = 1;
};

std::string_view upToLineEnd(std::string_view text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  return line.substr(0, line.size() - (line.ends_with('\r') ? 1 : 0));
}

/// The line of `page` in which `position` lies.
std::string_view lineAround(std::string_view page, std::size_t position) {
  // On the first line there is no line end, and npos is one before the beginning.
  return upToLineEnd(page.substr(page.substr(0, position).rfind('\n') + 1));
}

/// What a mark consists of: everything up to its end.
std::string_view tagOf(std::string_view text) {
  return text.substr(0, text.find('>') + 1);
}

class PageSurveyor final : public HtmlTocListener {
 public:
  PageSurveyor(const Platform& platform,
               std::string_view page,
               PageSurvey& survey,
               const DocumentVisitor& visitor)
      : platform_(platform), page_(page), lines_(page), survey_(survey), visitor_(visitor) {}

  void run() {
    if (checkTitle()) {
      walkHtmlToc(page_, *this);
    }
  }

  bool heading(const HtmlTocPiece& block) override {
    std::int16_t level = 0;
    if (const auto violation = checkHtmlLevel(block.text, previousLevel_, level)) {
      return refuse(block, lines_, *violation, tagOf(block.text).size());
    }
    const auto title = acceptedTitle(block, lines_);
    if (!title) {
      return false;
    }
    const std::size_t line = lines_.lineAt(block.position);
    noteLineBreaksIn(block.text, *title, line);
    noteLinkIdentifierOf(block.text, line);
    note(block, line, level);
    return true;
  }

  void refused(const HtmlTocPiece& tag, HtmlTagFault fault) override {
    const HtmlTagRefusal refusal = refusalOfHtmlTag(tag.text, fault, platform_.locale);
    refuse({tag.position, refusal.tag}, lines_, refusal.violation);
  }

  void refused(const TocViolation& violation) override {
    survey_.rules.refusal = {.violation = violation};
  }

 private:
  bool checkTitle() {
    const auto block = htmlTitleBlockIn(page_);
    // The title may stand behind headings, so its line is counted by itself.
    LineCounter lines(page_);
    if (!block) {
      return true;
    }
    const auto title = acceptedTitle(*block, lines);
    survey_.title = title.value_or("");
    return title && checkLinkIdentifier(*block, lines);
  }

  // The component ends with an error at an identifier of the book that has no characters.
  bool checkLinkIdentifier(const HtmlTocPiece& block, LineCounter& lines) {
    const bool isWhole =
        takeLinkIdentifier(htmlBeforeHeadings(page_), lines.lineAt(block.position));
    return isWhole ||
           refuse(block,
                  lines,
                  {std::string(text(RuleText::kBookWithoutLinkIdentifier)), /*offersLine=*/false});
  }

  // The export has a line for each heading.
  void noteLineBreaksIn(std::string_view heading, std::string_view title, std::size_t line) {
    constexpr std::string_view kLineBreak = "\n";
    if (contains(title, kLineBreak) || contains(*htmlPathIn(heading), kLineBreak) ||
        contains(htmlFLinkValueIn(heading), kLineBreak)) {
      identifiersEnd_ = true;
      survey_.notes.push_back({line, std::string(kEntryCut)});
    }
  }

  // At one of a heading it gives up the identifiers that follow, and goes on.
  void noteLinkIdentifierOf(std::string_view heading, std::size_t line) {
    const bool isWhole = takeLinkIdentifier(heading, line);
    if (!isWhole && !identifiersEnd_) {
      identifiersEnd_ = true;
      survey_.notes.push_back({line, std::string(kIdentifiersEnd)});
    }
  }

  /// Answers whether there is no identifier without characters.
  bool takeLinkIdentifier(std::string_view text, std::size_t line) {
    std::optional<std::string> identifier;
    const bool isWhole = ignoringErrors([&] { identifier = linkIdentifierIn(text); }) == 0;
    if (identifier && !identifiersEnd_) {
      survey_.hasLinkIdentifiers = true;
      if (contains(*identifier, {&kApostrophe, 1})) {
        survey_.notes.push_back({line, std::string(kNotLookedUp)});
      }
    }
    return isWhole;
  }

  /// Checks the document and the title of a heading or of the book; nothing when it refused one.
  std::optional<std::string> acceptedTitle(const HtmlTocPiece& block, LineCounter& lines) {
    const auto path = htmlPathIn(block.text);
    if (!path) {
      refuse(block, lines, htmlPathMissing(block.text));
      return std::nullopt;
    }
    if (!path->empty() && visitor_) {
      visitor_(lines.lineAt(block.position), *path);
    }
    std::string title = withoutHtmlTags(block.text);
    if (const auto violation = checkHtmlTitle(block.text, title)) {
      refuse(block, lines, *violation);
      return std::nullopt;
    }
    return title;
  }

  void note(const HtmlTocPiece& block, std::size_t line, std::int16_t headingLevel) {
    constexpr int kDeepest = std::numeric_limits<std::int16_t>::max();
    const auto level = static_cast<std::int16_t>(std::min(headingLevel + 1, kDeepest));
    TocSurvey& rules = survey_.rules;
    if (++rules.entries == 1) {
      rules.statedPlace = statedPlaceOfPage(page_);
      rules.statedPlace.line = line;
      rules.mainFile = {.line = line};
    }
    if (isTooDeep(level) && !rules.tooDeep) {
      rules.tooDeep = refusalOfDepth(placeOf(block, lines_, tagOf(block.text).size()));
    }
  }

  /// What is to blame begins where the piece does.
  LinePlace placeOf(const HtmlTocPiece& piece, LineCounter& lines, std::size_t blamedLength) {
    const std::string_view line = lineAround(page_, piece.position);
    const std::string_view blamed = upToLineEnd(page_.substr(piece.position, blamedLength));
    return placeOfPart(lines.lineAt(piece.position), line, blamed);
  }

  bool refuse(const HtmlTocPiece& piece,
              LineCounter& lines,
              const TocViolation& violation,
              std::size_t blamedLength) {
    survey_.rules.refusal = {.violation = violation,
                             .place = placeOf(piece, lines, blamedLength),
                             .text = std::string(piece.text)};
    return false;
  }
  bool refuse(const HtmlTocPiece& piece, LineCounter& lines, const TocViolation& violation) {
    return refuse(piece, lines, violation, piece.text.size());
  }

  const Platform& platform_;
  std::string_view page_;
  LineCounter lines_;
  PageSurvey& survey_;
  const DocumentVisitor& visitor_;
  std::int16_t previousLevel_ = 0;
  /// An identifier behind which none is recorded was met.
  bool identifiersEnd_ = false;
};

}  // namespace

PageSurvey surveyHtmlToc(const Platform& platform,
                         const TocFile& toc,
                         const DocumentVisitor& visitor) {
  PageSurvey survey;
  readingInput(toc.name, [&] {
    const std::string page = TextReader(platform.files, platform.locale, toc.path).readAll();
    PageSurveyor(platform, page, survey, visitor).run();
  });
  return survey;
}

void tellNotes(UserInterface& ui, const PageSurvey& survey, const TocFile& toc) {
  for (const PageNote& note : survey.notes) {
    ui.show({.text = placeIn(toc.name, note.line) + note.text, .icon = MessageIcon::kInformation});
  }
}

}  // namespace quorbind
