#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "platform/text_index.h"

namespace quorbind {

/// The acronyms that stand in one category.
///
/// They are mostly asked for in the order in which they stand, since both come from the catalogue.
/// So the one behind the last that was found is looked at first, and a set of them all is made only
/// when that fails.
class AcronymList {
 public:
  [[nodiscard]] bool empty() const { return inOrder_.empty(); }
  [[nodiscard]] bool has(const std::string& acronym);
  void add(std::string acronym);

 private:
  std::vector<std::string> inOrder_;
  /// Where the one behind the last that was found stands.
  std::size_t next_ = 0;
  /// Most lists never have one, and there is a list for each category.
  std::unique_ptr<TextIndex> all_;
};

}  // namespace quorbind
