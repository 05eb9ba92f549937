#include "toc/text_toc.h"

#include <string>

#include "platform/number.h"
#include "platform/runtime_error.h"
#include "resources/rule_texts.h"

namespace quorbind {

namespace {

constexpr std::string_view kFieldQuote = "\"";
/// Four fields in eight quotes.
constexpr std::size_t kPieces = 9;
enum Piece : std::size_t { kLevelAt = 1, kNameAt = 3, kFileAt = 5, kSubLinkAt = 7 };

constexpr std::string_view kEmptyFile = text(RuleText::kTextTocEmpty);
constexpr std::string_view kBadHeader = text(RuleText::kTextHeaderForm);
constexpr std::string_view kBadLine = text(RuleText::kTextLineForm);
constexpr std::string_view kEmptyLine = text(RuleText::kTextLineEmpty);
constexpr std::string_view kTextLevelIsText = text(RuleText::kTextLevelIsText);
constexpr std::string_view kTextLevelOutOfSequence = text(RuleText::kTextLevelOutOfSequence);
constexpr std::string_view kNameIsEmpty = text(RuleText::kTextNameEmpty);

bool follows(int level, int previousLevel) {
  return level - previousLevel <= 1 && level != 0 && (level != 1 || previousLevel == 0);
}

std::optional<TocViolation> checkForm(std::string_view line, const Pieces& pieces) {
  if (trimBlanks(line).empty()) {
    return TocViolation{std::string(kEmptyLine), /*offersLine=*/false};
  }
  if (pieces.count() != kPieces) {
    return violationIn(line, kBadLine);
  }
  return std::nullopt;
}

}  // namespace

bool walkTextToc(TextReader& reader, TextTocListener& listener) {
  TextTocLine line{1, reader.readLine()};
  if (countPieces(line.text, kFieldQuote) != kPieces) {
    listener.refused(line, {std::string(kBadHeader)});
    return false;
  }
  reader.readLine();
  Pieces pieces;
  for (line.number = 3; !reader.atEnd(); ++line.number) {
    line.text = reader.readLine();
    pieces.split(line.text, kFieldQuote);
    if (const auto violation = checkForm(line.text, pieces)) {
      listener.refused(line, *violation);
      return false;
    }
    if (!listener.entry(line, pieces)) {
      return false;
    }
  }
  return true;
}

TocViolation emptyTextToc() {
  return {std::string(kEmptyFile), /*offersLine=*/false};
}

std::optional<TocViolation> checkTextEntry(std::string_view line,
                                           const Pieces& pieces,
                                           std::int16_t& previousLevel,
                                           TextTocEntry& entry) {
  try {
    entry.level = toInteger16(pieces.at(kLevelAt));
  } catch (const RunTimeError&) {
    return violationIn(line, kTextLevelIsText);
  }
  if (!follows(entry.level, previousLevel)) {
    return violationIn(line, kTextLevelOutOfSequence);
  }
  previousLevel = entry.level;
  entry.name = pieces.at(kNameAt);
  entry.file = pieces.at(kFileAt);
  entry.subLink = pieces.at(kSubLinkAt);
  if (entry.name.empty()) {
    return violationIn(line, kNameIsEmpty);
  }
  return std::nullopt;
}

}  // namespace quorbind
