#pragma once

// What is measured: works of the component, and the floors under them, on real files. script/bench
// runs them all and puts both sides together in tables.

#include <array>
#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <string_view>
#include <utility>

namespace quorbind::bench {

struct Store;

struct Work {
  /// Brings back what the work starts from. Not measured.
  std::function<void()> reset;
  /// Answers whether the work was done, as far as that is seen at once.
  std::function<bool()> run;
  /// Looks closer. Not measured.
  std::function<bool()> check = [] { return true; };
  /// Whether the files are as the work leaves them, which they are not before. Not measured;
  /// nothing where a work leaves none behind that are told from those before.
  std::function<bool()> hasChanged = nullptr;

  /// Whether the work, which has run, has left what it should.
  [[nodiscard]] bool isSeen() const { return check() && (!hasChanged || hasChanged()); }
};

/// Has `work` measured as `name/size`. Nothing of it is called before the measuring begins, so
/// that samples which nobody asks for are not made. Every program with benchmarks has one of its
/// own.
void registerWork(std::string_view name, std::size_t size, Work work);

/// Of tables of contents, catalogues and side files in entries, of folders in documents.
inline constexpr std::array<std::size_t, 3> kSizes{1'000, 10'000, 100'000};
/// Of workbooks, in rows: a sheet ends with row 32,766.
inline constexpr std::array<std::size_t, 2> kWorkbookSizes{3'000, 30'000};

/// Samples by their size; each is made when it is first asked for and stays until the end.
template <typename Sample>
class MadeOnce {
 public:
  Sample& at(std::size_t size) {
    auto& sample = samples_[size];
    if (!sample) {
      sample = std::make_unique<Sample>(size);
    }
    return *sample;
  }

 private:
  std::map<std::size_t, std::unique_ptr<Sample>> samples_;
};

/// Whether a function of the floor answered what it should have counted.
inline bool counted(long answer, std::size_t expected) {
  return answer >= 0 && static_cast<std::size_t>(answer) == expected;
}

/// An operation on a sample of its own size.
template <typename Sample>
struct Operation {
  const char* name;
  bool (*run)(Sample&);
  void (*reset)(Sample&) = [](Sample& sample) { sample.reset(); };
  /// What is to be seen behind it.
  bool (*check)(const Sample&) = [](const Sample& sample) { return sample.isQuiet(); };
  /// As in Work.
  bool (*hasChanged)(const Sample&) = nullptr;
};

template <typename Sample, typename Operations, typename Sizes>
void registerOperations(const std::shared_ptr<MadeOnce<Sample>>& samples,
                        const Operations& operations,
                        const Sizes& sizes) {
  for (const Operation<Sample> operation : operations) {
    for (const std::size_t size : sizes) {
      const auto sample = [samples, size]() -> Sample& { return samples->at(size); };
      Work work{.reset = [sample, operation] { operation.reset(sample()); },
                .run = [sample, operation] { return operation.run(sample()); },
                .check = [sample, operation] { return operation.check(sample()); }};
      if (operation.hasChanged != nullptr) {
        work.hasChanged = [sample, operation] { return operation.hasChanged(sample()); };
      }
      registerWork(operation.name, size, std::move(work));
    }
  }
}

/// Has everything measured that this build can: the native one the component and the floors, the
/// other one the component alone.
void registerBenchmarks(const Store& store);

// The component's side.
void registerAdditions(const Store& store);
void registerCopying(const Store& store);
void registerLibraryOperations(const Store& store);
void registerSideFileOperations(const Store& store);
void registerWorkbooks(const Store& store);

// The floor's side.
void registerAdditionFloors(const Store& store);
void registerCopyFloors(const Store& store);
void registerLibraryFloors(const Store& store);
void registerSideFileFloors(const Store& store);
void registerWorkbookFloors(const Store& store);

}  // namespace quorbind::bench
