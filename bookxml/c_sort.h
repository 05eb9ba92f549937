#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/platform.h"

namespace quorbind {

/// The public class that sorts names for a host: ascending, without regard to letter case.
///
/// Ranges of up to 13 elements are sorted by a bubble sort, which keeps the order of equal names;
/// longer ones by a quicksort, which does not.
class cSort {
 public:
  /// Kept by reference.
  explicit cSort(const Platform& platform) : platform_(platform) {}

  /// Sorts the elements from `vllBound` to `vlUBound`, both included, in place, and answers a copy
  /// of the whole array. Bounds outside the array are an error, told once; the array is then
  /// answered as far as it was sorted.
  std::vector<std::string> mQuickSort(std::vector<std::string>& marrscategories,
                                      std::int32_t vllBound,
                                      std::int32_t vlUBound);

 private:
  using Names = std::vector<std::string>;

  /// Answers whether it succeeded; a failure has been told.
  bool sortRange(Names& names, std::int32_t low, std::int32_t high);
  bool bubbleSort(Names& names, std::int32_t low, std::int32_t high);
  /// Answers the final index of the pivot; nothing after a failure, which has been told.
  std::optional<std::int32_t> mlPartition(Names& names, std::int32_t low, std::int32_t high);

  const Platform& platform_;
};

}  // namespace quorbind
