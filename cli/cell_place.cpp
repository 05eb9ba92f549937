#include "cli/cell_place.h"

#include <array>
#include <string_view>
#include <utility>

namespace quorbind {

std::string placeIn(const std::string& file, const CellPlace& cell) {
  const std::array<std::pair<std::string_view, std::int32_t>, 3> parts{
      {{": sheet ", cell.sheet}, {", row ", cell.row}, {", column ", cell.column}}};
  std::string place = file;
  for (const auto& [name, number] : parts) {
    if (number == 0) {
      break;
    }
    place.append(name).append(std::to_string(number));
  }
  return place;
}

std::string cellName(const CellPlace& cell) {
  constexpr std::int32_t kLetters = 26;
  std::string letters;
  for (std::int32_t rest = cell.column; rest > 0; rest = (rest - 1) / kLetters) {
    letters.insert(letters.begin(), static_cast<char>('A' + (rest - 1) % kLetters));
  }
  return letters + std::to_string(cell.row);
}

}  // namespace quorbind
