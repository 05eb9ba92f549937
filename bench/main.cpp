#include <benchmark/benchmark.h>

#include <string>
#include <utility>

#include "bench/benchmarks.h"

namespace quorbind::bench {

namespace {

void measure(benchmark::State& state, const Work& work) {
  for (auto _ : state) {
    state.PauseTiming();
    work.reset();
    state.ResumeTiming();
    const bool isDone = work.run();
    state.PauseTiming();
    if (!isDone || !work.check()) {
      state.SkipWithError("the work was not done");
      break;
    }
    state.ResumeTiming();
  }
}

}  // namespace

void registerWork(std::string_view name, std::size_t entries, Work work) {
  const std::string fullName = std::string(name) + "/" + std::to_string(entries);
  benchmark::RegisterBenchmark(fullName.c_str(), [work = std::move(work)](benchmark::State& state) {
    measure(state, work);
  })->Unit(benchmark::kMillisecond);
}

}  // namespace quorbind::bench

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
    return 1;
  }
  quorbind::bench::registerAdditions();
  quorbind::bench::registerCopying();
  quorbind::bench::registerLibraryOperations();
  quorbind::bench::registerSideFileOperations();
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
