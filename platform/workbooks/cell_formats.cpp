#include "platform/workbooks/cell_formats.h"

#include <utility>

namespace quorbind {

void CellFormats::define(int id, std::string code) {
  codes_.insert_or_assign(id, std::move(code));
}

const NumberFormat& CellFormats::ofStyle(std::size_t style) {
  const int id = style < styles_.size() ? styles_[style] : 0;
  const auto known = formats_.find(id);
  if (known != formats_.end()) {
    return known->second;
  }
  const auto own = codes_.find(id);
  return formats_
      .try_emplace(id, own != codes_.end() ? std::string_view(own->second) : builtInFormatCode(id))
      .first->second;
}

}  // namespace quorbind
