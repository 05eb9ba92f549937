// The benchmarks by the clock alone, for a system that has no library for them, and for whoever
// only wants to see that every work is still done: fails at the first one that is not, and at one
// whose traces are there before it.
//
//   quorbind_bench_plain LARGEST REPETITIONS
//
// Runs what is no larger than LARGEST, and prints name, size and the milliseconds of the quickest
// of so many runs. What takes long is not run again.

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <limits>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "bench/benchmarks.h"
#include "bench/store.h"

namespace quorbind::bench {

namespace {

constexpr double kLongMilliseconds = 2'000;

struct Measured {
  std::string name;
  std::size_t size;
  Work work;
  bool hasRun = false;
  double milliseconds = std::numeric_limits<double>::max();
};

std::vector<Measured>& registered() {
  static std::vector<Measured> works;
  return works;
}

/// What is wrong with the work; nothing where it was done.
std::string measure(Measured& measured) {
  using Milliseconds = std::chrono::duration<double, std::milli>;
  measured.work.reset();
  if (measured.work.hasChanged && measured.work.hasChanged()) {
    return "the files are before the work as it should leave them";
  }
  const auto begin = std::chrono::steady_clock::now();
  const bool isDone = measured.work.run();
  const Milliseconds took = std::chrono::steady_clock::now() - begin;
  measured.hasRun = true;
  measured.milliseconds = std::min(measured.milliseconds, took.count());
  return isDone && measured.work.isSeen() ? "" : "the work was not done";
}

bool runAll(std::size_t largest, unsigned long repetitions) {
  std::map<std::string, std::size_t> smallest;
  for (const Measured& measured : registered()) {
    std::size_t& size = smallest.try_emplace(measured.name, measured.size).first->second;
    size = std::min(size, measured.size);
  }
  // Of every work the smallest size at least: those of workbooks begin higher.
  std::erase_if(registered(), [&](const Measured& measured) {
    return measured.size > std::max(largest, smallest[measured.name]);
  });
  for (; repetitions > 0; --repetitions) {
    for (Measured& measured : registered()) {
      const bool isLong = measured.hasRun && measured.milliseconds > kLongMilliseconds;
      const std::string fault = isLong ? "" : measure(measured);
      if (!fault.empty()) {
        std::cerr << measured.name << "/" << measured.size << ": " << fault << '\n';
        return false;
      }
    }
  }
  for (const Measured& measured : registered()) {
    std::cout << measured.name << ' ' << measured.size << ' ' << measured.milliseconds << '\n';
  }
  return true;
}

}  // namespace

void registerWork(std::string_view name, std::size_t size, Work work) {
  registered().push_back({std::string(name), size, std::move(work)});
}

}  // namespace quorbind::bench

int main(int argc, char** argv) {
  using namespace quorbind::bench;
  const std::size_t largest = argc == 3 ? std::strtoul(argv[1], nullptr, 10) : 0;
  const unsigned long repetitions = argc == 3 ? std::strtoul(argv[2], nullptr, 10) : 0;
  if (largest == 0 || repetitions == 0) {
    std::cerr << "usage: quorbind_bench_plain LARGEST REPETITIONS\n";
    return 2;
  }
  try {
    registerBenchmarks(Store());
    return runAll(largest, repetitions) ? 0 : 1;
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
  }
}
