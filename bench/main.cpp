// The benchmarks beside their floors, with the arguments of the library that runs them and one
// more:
//
//   quorbind_bench [--benchmark_...] [--keep-files]
//
// With `--keep-files` their files stay in the folder for temporary files. Where many were deleted,
// whoever makes others in the next minutes pays for it.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>
#include <utility>

#include "bench/benchmarks.h"
#include "bench/memory_at_hand.h"
#include "bench/store.h"

namespace quorbind::bench {

namespace {

/// More than any work uses for one of its entries, be it a small file or the nodes of a tree.
constexpr std::size_t kMemoryForEntry = 8'192;

/// Answers whether the work was done. Time is measured neither before nor behind.
bool measureOnce(benchmark::State& state, const Work& work, std::size_t size) {
  work.reset();
  const MemoryAtHand memory(size * kMemoryForEntry);
  state.ResumeTiming();
  const bool isDone = work.run();
  state.PauseTiming();
  return isDone && work.isSeen();
}

void measure(benchmark::State& state, const Work& work, std::size_t size) {
  for (auto _ : state) {
    state.PauseTiming();
    if (!measureOnce(state, work, size)) {
      state.SkipWithError("the work was not done");
      break;
    }
    state.ResumeTiming();
  }
}

/// How often a work is done for one time. A number of seconds would not do: what waits for the disk
/// takes none of the processor's, and would be done again and again.
benchmark::IterationCount iterationsOf(std::size_t size) {
  constexpr std::size_t kSmall = 3'000;
  constexpr std::size_t kMiddle = 30'000;
  return size <= kSmall ? 8 : size <= kMiddle ? 2 : 1;
}

}  // namespace

void registerWork(std::string_view name, std::size_t entries, Work work) {
  const std::string fullName = std::string(name) + "/" + std::to_string(entries);
  benchmark::RegisterBenchmark(
      fullName.c_str(),
      [work = std::move(work), entries](benchmark::State& state) { measure(state, work, entries); })
      ->Iterations(iterationsOf(entries))
      ->Unit(benchmark::kMillisecond);
}

}  // namespace quorbind::bench

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  const bool keepsFiles = argc > 1 && std::string_view(argv[argc - 1]) == "--keep-files";
  if (benchmark::ReportUnrecognizedArguments(keepsFiles ? argc - 1 : argc, argv)) {
    return 1;
  }
  quorbind::bench::registerBenchmarks(quorbind::bench::Store());
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  if (keepsFiles) {
    std::cout.flush();
    std::quick_exit(0);
  }
  return 0;
}
