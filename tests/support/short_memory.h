#pragma once

#include <cstddef>
#include <new>

namespace quorbind::testing {

/// While one lives, the C++ allocation of this thread behind so many others fails; those after it
/// succeed again. For programs that have short_memory.cpp among their sources.
class ShortMemory {
 public:
  explicit ShortMemory(std::size_t successes);
  ~ShortMemory();
  ShortMemory(const ShortMemory&) = delete;
  ShortMemory& operator=(const ShortMemory&) = delete;
};

/// Does the deed with the first allocation refused, then, after `prepare`, with the second, and so
/// on until none is; looks at what each refusal left with `check`. Answers how many there were.
template <typename Prepare, typename Deed, typename Check>
std::size_t refusingEachAllocation(Prepare&& prepare, Deed&& deed, Check&& check) {
  for (std::size_t refusals = 0;; ++refusals) {
    prepare();
    try {
      const ShortMemory memory(refusals);
      deed();
      return refusals;
    } catch (const std::bad_alloc&) {
    }
    check();
  }
}

}  // namespace quorbind::testing
