#include "cli/page_survey.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <string>

#include "cli/failure.h"
#include "platform/error_trap.h"
#include "platform/text_file.h"
#include "sidefiles/book_link.h"
#include "toc/html_toc.h"

namespace quorbind {

namespace {

constexpr std::string_view kNoLinkIdentifier =
    "The link identifier of the book has no characters between <IBD> and </IBD>";

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

/// In characters, from 1.
std::size_t columnAt(std::string_view page, std::size_t position) {
  // On the first line there is no line end, and npos is one before the beginning.
  const std::size_t start = page.substr(0, position).rfind('\n') + 1;
  const std::string_view before = page.substr(start, position - start);
  const auto characters = std::count_if(
      before.begin(), before.end(), [](unsigned char byte) { return (byte & 0xC0U) != 0x80U; });
  return static_cast<std::size_t>(characters) + 1;
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
      return refuse(block, lines_, *violation);
    }
    if (!acceptedTitle(block, lines_)) {
      return false;
    }
    noteLinkIdentifier(block.text);
    note(lines_.lineAt(block.position), level);
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
    const bool isWhole = noteLinkIdentifier(htmlBeforeHeadings(page_));
    return isWhole || refuse(block, lines, {std::string(kNoLinkIdentifier), /*offersLine=*/false});
  }

  /// Answers whether there is no identifier without characters.
  bool noteLinkIdentifier(std::string_view text) {
    bool isThere = false;
    const bool isWhole = ignoringErrors([&] { isThere = linkIdentifierIn(text).has_value(); }) == 0;
    survey_.hasLinkIdentifiers = survey_.hasLinkIdentifiers || isThere;
    return isWhole;
  }

  /// Checks the document and the title of a heading or of the book; nothing when it refused one.
  std::optional<std::string> acceptedTitle(const HtmlTocPiece& block, LineCounter& lines) {
    const auto path = htmlPathIn(block.text);
    if (!path) {
      refuse(block, lines, htmlPathMissing(block.text));
      return std::nullopt;
    }
    if (!path->empty()) {
      document_ = path->substr(0, path->find('#'));
      if (visitor_) {
        visitor_(lines.lineAt(block.position), *path);
      }
    }
    std::string title = withoutHtmlTags(block.text);
    if (const auto violation = checkHtmlTitle(block.text, title)) {
      refuse(block, lines, *violation);
      return std::nullopt;
    }
    return title;
  }

  void note(std::size_t line, std::int16_t headingLevel) {
    constexpr int kDeepest = std::numeric_limits<std::int16_t>::max();
    const auto level = static_cast<std::int16_t>(std::min(headingLevel + 1, kDeepest));
    TocSurvey& rules = survey_.rules;
    if (++rules.entries == 1) {
      survey_.place = statedPlaceOf(document_, line);
    }
    if (level > rules.deepestLevel) {
      rules.deepestLevel = level;
      rules.deepestLine = line;
    }
  }

  bool refuse(const HtmlTocPiece& piece, LineCounter& lines, const TocViolation& violation) {
    survey_.rules.refusal = {.violation = violation,
                             .line = lines.lineAt(piece.position),
                             .text = std::string(piece.text),
                             .column = columnAt(page_, piece.position)};
    return false;
  }

  const Platform& platform_;
  std::string_view page_;
  LineCounter lines_;
  PageSurvey& survey_;
  const DocumentVisitor& visitor_;
  std::int16_t previousLevel_ = 0;
  /// Of the piece looked at last that names one.
  std::string document_;
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

}  // namespace quorbind
