#include "toc/text_toc.h"

#include <string>

#include "platform/number.h"
#include "platform/runtime_error.h"
#include "resources/rule_texts.h"

namespace quorbind {

namespace {

constexpr std::string_view kQuote = "\"";
/// Four fields in eight quotes.
constexpr std::size_t kPieces = 9;
enum Piece : std::size_t { kLevel = 1, kName = 3, kFile = 5, kSubLink = 7 };

constexpr std::string_view kEmptyFile = text(RuleText::kTextTocEmpty);
constexpr std::string_view kBadHeader = text(RuleText::kTextHeaderForm);
constexpr std::string_view kBadLine = text(RuleText::kTextLineForm);
constexpr std::string_view kEmptyLine = text(RuleText::kTextLineEmpty);
constexpr std::string_view kLevelIsText = text(RuleText::kTextLevelIsText);
constexpr std::string_view kLevelOutOfSequence = text(RuleText::kTextLevelOutOfSequence);
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
  if (countPieces(line.text, kQuote) != kPieces) {
    listener.refused(line, {std::string(kBadHeader)});
    return false;
  }
  reader.readLine();
  for (line.number = 3; !reader.atEnd(); ++line.number) {
    line.text = reader.readLine();
    const Pieces pieces(line.text, kQuote);
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
    entry.level = toInteger16(pieces.at(kLevel));
  } catch (const RunTimeError&) {
    return violationIn(line, kLevelIsText);
  }
  if (!follows(entry.level, previousLevel)) {
    return violationIn(line, kLevelOutOfSequence);
  }
  previousLevel = entry.level;
  entry.name = pieces.at(kName);
  entry.file = pieces.at(kFile);
  entry.subLink = pieces.at(kSubLink);
  if (entry.name.empty()) {
    return violationIn(line, kNameIsEmpty);
  }
  return std::nullopt;
}

}  // namespace quorbind
