#pragma once

// What is measured: works of the component, and the floors under them, on real files. script/bench
// runs them all and puts both sides together in tables.

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <string_view>

namespace quorbind::bench {

struct Work {
  /// Brings back what the work starts from. Not measured.
  std::function<void()> reset;
  /// Answers whether the work was done, as far as that is seen at once.
  std::function<bool()> run;
  /// Looks closer. Not measured.
  std::function<bool()> check = [] { return true; };
};

/// Has `work` measured as `name/entries`. Nothing of it is called before the measuring begins, so
/// that samples which nobody asks for are not made.
void registerWork(std::string_view name, std::size_t entries, Work work);

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

void registerAdditions();
void registerCopying();
void registerLibraryOperations();
void registerSideFileOperations();

}  // namespace quorbind::bench
