#include "toc/html_toc.h"

#include <algorithm>
#include <utility>

#include "platform/filled_text.h"
#include "platform/number.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "platform/text_encoding.h"
#include "resources/rule_texts.h"
#include "toc/block_removal.h"
#include "toc/text_form.h"

namespace quorbind {

namespace {

constexpr std::size_t kNowhere = std::string_view::npos;

// What a mark begins with; one of a heading ends with the next kTagEnd.
constexpr std::string_view kStartMark = "<K";
constexpr std::string_view kEndMark = "</K";
constexpr std::string_view kTitleStart = "<HT>";
constexpr std::string_view kTitleEnd = "</HT>";
constexpr std::string_view kPathStart = "HREF=\"";
constexpr std::string_view kFLinkStart = "FLINKVALUE=\"";
constexpr char kTagStart = '<';
constexpr char kTagEnd = '>';
constexpr char kAttributeQuote = '"';
/// An end mark whose level has one digit, such as `</K1>`.
constexpr std::size_t kUsualEndMarkLength = 5;

constexpr std::string_view kNoHeading = text(RuleText::kPageWithoutHeading);
constexpr std::string_view kLevelIsText = text(RuleText::kHeadingLevelIsText);
constexpr std::string_view kLevelsDiffer = text(RuleText::kHeadingLevelsDiffer);
constexpr std::string_view kLevelNotPositive = text(RuleText::kHeadingLevelNotPositive);
constexpr std::string_view kLevelOutOfSequence = text(RuleText::kHeadingOutOfSequence);
constexpr std::string_view kPathMissing = text(RuleText::kHeadingPathMissing);
constexpr std::string_view kTitleMissing = text(RuleText::kHeadingTitleMissing);
constexpr std::string_view kTitleHasBrackets = text(RuleText::kHeadingHasBrackets);

/// The position `count` characters behind `position`, or the end of `text`.
std::size_t charactersBehind(std::string_view text, std::size_t position, std::size_t count) {
  for (; count > 0 && position < text.size(); --count) {
    do {
      ++position;
    } while (position < text.size() && isInsideCharacter(text[position]));
  }
  return position;
}

/// The position `count` characters before `position`; there are as many.
std::size_t charactersBefore(std::string_view text, std::size_t position, std::size_t count) {
  for (; count > 0; --count) {
    do {
      --position;
    } while (isInsideCharacter(text[position]));
  }
  return position;
}

bool hasMarkAt(std::string_view text, std::size_t position, std::string_view mark) {
  return startsIgnoringAsciiCase(text.substr(position), mark);
}

/// The position of the first bracket from `position` on, or the end of `text`. The library's search
/// for one of several characters asks for each anew.
std::size_t bracketFrom(std::string_view text, std::size_t position) {
  const auto isBracket = [](char c) { return c == kTagStart || c == kTagEnd; };
  const std::string_view rest = text.substr(position);
  return position +
         static_cast<std::size_t>(std::find_if(rest.begin(), rest.end(), isBracket) - rest.begin());
}

/// From `position` to the next end of a tag, that included.
std::string_view tagAt(std::string_view text, std::size_t position) {
  const std::size_t end = text.find(kTagEnd, position);
  return text.substr(position, end == kNowhere ? kNowhere : end + 1 - position);
}

/// One walk through a page.
class HeadingWalk {
 public:
  HeadingWalk(std::string_view page, HtmlTocListener& listener)
      : page_(page), listener_(listener), rest_(page) {}

  bool run() {
    readOn();
    if (!rest_.firstStartMark() && !rest_.firstEndMark()) {
      listener_.refused({std::string(kNoHeading), /*offersLine=*/false});
      return false;
    }
    while (rest_.firstStartMark() || rest_.firstEndMark()) {
      if (!takeHeading()) {
        return false;
      }
      isFirst_ = false;
      readOn();
    }
    return true;
  }

 private:
  using Mark = BlockRemoval::Mark;

  /// Where the first end mark of what is left is taken to begin, and the block before it to end.
  struct BlockEnd {
    std::size_t mark = 0;
    std::size_t behind = 0;
  };

  /// Reads on to the end of the next end mark that stays, or to the end of the page.
  void readOn() {
    while (at() < page_.size()) {
      rest_.pass(nextBracket() - at());
      if (at() == page_.size() || readMark()) {
        return;
      }
    }
  }

  /// The end of a tag is one behind an end mark only.
  [[nodiscard]] std::size_t nextBracket() const {
    return rest_.isAtEndMark() ? bracketFrom(page_, at())
                               : std::min(page_.find(kTagStart, at()), page_.size());
  }

  /// Reads what stands at a bracket. Answers whether it ends an end mark that stays.
  bool readMark() {
    if (page_[at()] == kTagEnd) {
      rest_.pass(1);
      return !rest_.completeEndMark();
    }
    if (hasMarkAt(page_, at(), kEndMark)) {
      rest_.beginEndMark();
      rest_.pass(isFirst_ ? usualEndMarkHere() : kEndMark.size());
      return isFirst_;
    }
    if (hasMarkAt(page_, at(), kStartMark)) {
      rest_.beginStartMark();
    }
    rest_.pass(1);
    return false;
  }

  // Of the first heading the end mark counts with one digit, wherever its bracket is.
  [[nodiscard]] std::size_t usualEndMarkHere() const {
    return charactersBehind(page_, at(), kUsualEndMarkLength) - at();
  }

  bool takeHeading() {
    const auto start = rest_.firstStartMark();
    const auto end = rest_.firstEndMark();
    if (!end) {
      refuse(*start, start->position, HtmlTagFault::kNoEndTag);
      return false;
    }
    const BlockEnd blockEnd = endOfBlock(end->position);
    if (!start || start->position > blockEnd.mark) {
      refuse(*end, blockEnd.mark, HtmlTagFault::kNoStartTag);
      return false;
    }
    const std::string_view text = rest_.text();
    const bool accepted = listener_.heading(
        {start->origin, text.substr(start->position, blockEnd.behind - start->position)});
    if (accepted) {
      rest_.takeOutFirstBlock();
    }
    return accepted;
  }

  // All end marks but the first are found by their bracket, and taken to be of the usual length
  // before it. That moves the beginning of those with another, and with it what a refusal shows.
  [[nodiscard]] BlockEnd endOfBlock(std::size_t mark) const {
    const std::string_view text = rest_.text();
    const std::size_t bracket = isFirst_ ? kNowhere : text.find(kTagEnd, mark);
    if (bracket == kNowhere) {
      return {mark, charactersBehind(text, mark, kUsualEndMarkLength)};
    }
    return {charactersBefore(text, bracket, kUsualEndMarkLength - 1), bracket + 1};
  }

  void refuse(const Mark& mark, std::size_t position, HtmlTagFault fault) {
    // Nothing was taken out before the first heading, so that the page itself is what is left.
    const std::string_view text = isFirst_ ? page_ : rest_.text();
    listener_.refused({mark.origin, tagAt(text, position)}, fault);
  }

  /// How far the page has been read.
  [[nodiscard]] std::size_t at() const { return rest_.passed(); }

  std::string_view page_;
  HtmlTocListener& listener_;

  /// The page up to there, without the headings taken out.
  BlockRemoval rest_;
  bool isFirst_ = true;
};

/// `text` with a blank for each tag, if none has a bracket inside: no tag reads like a part of
/// another then, and no blank makes one.
std::optional<std::string> withoutPlainTags(std::string_view text) {
  std::string rest;
  rest.reserve(text.size());
  std::size_t at = 0;
  for (;;) {
    const std::size_t start = bracketFrom(text, at);
    rest.append(text.substr(at, start - at));
    if (start == text.size()) {
      return rest;
    }
    const std::size_t end = bracketFrom(text, start + 1);
    if (end == text.size() || text[start] == kTagEnd || text[end] == kTagStart) {
      return std::nullopt;
    }
    rest += ' ';
    at = end + 1;
  }
}

/// The same for tags of any kind.
std::string withoutAnyTags(std::string_view text) {
  BlockRemoval rest(text);
  bool isOver = false;
  for (std::size_t found = bracketFrom(text, 0); found < text.size();
       found = bracketFrom(text, rest.passed())) {
    rest.pass(found - rest.passed());
    if (text[found] == kTagStart) {
      rest.beginStartMark();
      rest.pass(1);
      continue;
    }
    rest.beginEndMark();
    rest.pass(1);
    if (rest.completeEndMark() || isOver) {
      continue;
    }
    isOver = !rest.firstStartMark();
    if (!isOver) {
      rest.takeOutFirstBlock();
    }
  }
  rest.pass(text.size() - rest.passed());
  return rest.text();
}

/// What stands between `start` and the next quote.
std::optional<std::string_view> valueBehind(std::string_view block, std::string_view start) {
  const std::size_t found = findIgnoringAsciiCase(block, start);
  if (found == kNowhere) {
    return std::nullopt;
  }
  const std::size_t begin = found + start.size();
  const std::size_t end = block.find(kAttributeQuote, begin);
  return end == kNowhere ? std::nullopt : std::optional(block.substr(begin, end - begin));
}

/// The level in the first tag that begins with `mark`. Raises what reading a number raises, 13 too
/// where there is no such tag.
std::int16_t levelIn(std::string_view block, std::string_view mark) {
  const std::size_t start = findIgnoringAsciiCase(block, mark);
  const std::size_t end = start == kNowhere ? kNowhere : block.find(kTagEnd, start);
  if (end == kNowhere) {
    raise(ErrorNumber::kTypeMismatch);
  }
  const std::size_t begin = start + mark.size();
  return toInteger16(block.substr(begin, end - begin));
}

std::optional<std::int16_t> readableLevelIn(std::string_view block, std::string_view mark) {
  try {
    return levelIn(block, mark);
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

}  // namespace

bool walkHtmlToc(std::string_view page, HtmlTocListener& listener) {
  return HeadingWalk(page, listener).run();
}

HtmlTagRefusal refusalOfHtmlTag(std::string_view tag, HtmlTagFault fault, const Locale& locale) {
  std::string shown = locale.upperCase(tag);
  const RuleText rule =
      fault == HtmlTagFault::kNoStartTag ? RuleText::kEndTagAlone : RuleText::kStartTagAlone;
  std::string message = filledText(text(rule), {{"TAG", shown}});
  return {std::move(shown), {std::move(message)}};
}

std::optional<TocViolation> checkHtmlLevel(std::string_view block,
                                           std::int16_t& previousLevel,
                                           std::int16_t& level) {
  const auto startLevel = readableLevelIn(block, kStartMark);
  if (!startLevel) {
    return violationIn(block, kLevelIsText);
  }
  const auto endLevel = readableLevelIn(block, kEndMark);
  if (!endLevel) {
    return TocViolation{std::string(kLevelIsText), /*offersLine=*/false};
  }
  if (*startLevel != *endLevel) {
    return violationIn(block, kLevelsDiffer);
  }
  if (*startLevel <= 0) {
    return violationIn(block, kLevelNotPositive);
  }
  if (*startLevel - previousLevel > 1) {
    return violationIn(block, kLevelOutOfSequence);
  }
  previousLevel = level = *startLevel;
  return std::nullopt;
}

std::optional<std::string_view> htmlPathIn(std::string_view block) {
  return valueBehind(block, kPathStart);
}

TocViolation htmlPathMissing(std::string_view block) {
  return violationIn(block, kPathMissing);
}

std::string withoutHtmlTags(std::string_view text) {
  std::optional<std::string> rest = withoutPlainTags(text);
  if (!rest) {
    rest = withoutAnyTags(text);
  }
  return std::string(trimBlanks(*rest));
}

std::optional<TocViolation> checkHtmlTitle(std::string_view block, std::string_view title) {
  if (title.empty()) {
    return violationIn(block, kTitleMissing);
  }
  if (containsAnyOf(title, "<>")) {
    return violationIn(block, kTitleHasBrackets);
  }
  return std::nullopt;
}

std::string_view htmlFLinkValueIn(std::string_view block) {
  return valueBehind(block, kFLinkStart).value_or(text_form::kNoLink);
}

std::optional<HtmlTocPiece> htmlTitleBlockIn(std::string_view page) {
  const std::size_t start = findIgnoringAsciiCase(page, kTitleStart);
  if (start == kNowhere) {
    return std::nullopt;
  }
  const std::size_t begin = start + kTitleStart.size();
  const std::size_t end = findIgnoringAsciiCase(page, kTitleEnd, begin);
  if (end == kNowhere) {
    return std::nullopt;
  }
  return HtmlTocPiece{start, page.substr(begin, end - begin)};
}

std::string_view htmlTitleFile(std::string_view path) {
  path = path.substr(0, path.find('#'));
  return path.substr(path.rfind('/') + 1);
}

std::string_view htmlBeforeHeadings(std::string_view page) {
  return page.substr(0, findIgnoringAsciiCase(page, kStartMark));
}

}  // namespace quorbind
