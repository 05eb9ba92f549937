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

}  // namespace quorbind
