#include "workflow/driver/run_lists.h"

#include <string_view>

#include "platform/text.h"

namespace quorbind {

namespace {

constexpr std::string_view kSeparator = ";";
constexpr std::string_view kOtherSeparator = ",";
constexpr std::string_view kMarkupCharacters = "&<>\"'";

TextArray piecesOf(const std::string& list, std::string_view separator) {
  TextArray pieces;
  for (const std::string_view piece : Pieces(list, separator)) {
    pieces.texts.emplace_back(piece);
  }
  return pieces;
}

}  // namespace

TextArray keywordsIn(const std::string& list) {
  return contains(list, kSeparator) ? piecesOf(list, kSeparator) : TextArray{{"", list}};
}

ChosenCategories chooseCategories(const std::string& list) {
  const TextArray pieces =
      piecesOf(list, contains(list, kSeparator) ? kSeparator : kOtherSeparator);
  const bool isSingle = pieces.upperBound() < 1;
  ChosenCategories chosen;
  for (const std::string& piece : pieces.texts) {
    const bool isTaken = isSingle || !containsAnyOf(piece, kMarkupCharacters);
    (isTaken ? chosen.taken : chosen.leftOut).emplace_back(trimBlanks(piece));
  }
  return chosen;
}

}  // namespace quorbind
