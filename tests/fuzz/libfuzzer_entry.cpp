// The entry of one fuzzer: QUORBIND_FUZZ_TARGET names its target.

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "tests/fuzz/targets.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using quorbind::testing::FuzzTarget;
  static const FuzzTarget& target =
      *std::ranges::find(quorbind::testing::fuzzTargets(), QUORBIND_FUZZ_TARGET, &FuzzTarget::name);
  target.run({reinterpret_cast<const char*>(data), size});
  return 0;
}
