// Every operation, with each of its calls that change something failing in each way that such a
// call can fail: what could not be written is as it was, nothing half done is left, and the user
// learns of it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>

#include "tests/bad_input/library_states.h"

namespace quorbind::testing {
namespace {

using Kind = ChangingCall::Kind;

class FailingCall : public ::testing::TestWithParam<LibraryOperation> {
 protected:
  using Tree = WholeLibrary::Tree;

  /// Each of the calls with which the operation changes the library `before`, failing in each way.
  void expectKnownStatesAndTold(const Tree& before) {
    const LibraryStates usual(GetParam(), library_, before);
    int faults = 0;
    for (std::size_t number = 0; number < usual.calls().size(); ++number) {
      const ChangingCall& call = usual.calls()[number];
      for (const FileFault& fault : faultsOf(call.kind)) {
        ++faults;
        SCOPED_TRACE(call.path + ", call " + std::to_string(number) + ": " + fault.name);
        const OperationEnd end = runWith(before, number, fault);
        ASSERT_EQ(library_.calls.calls()[number], call);
        for (const std::string& name : usual.strangersIn(end.tree)) {
          EXPECT_TRUE(isWrittenAfter(number, name)) << name;
        }
        const bool isUnsafe = end.tree != usual.end().tree || call.kind == Kind::kFlush;
        if (isUnsafe && !isPassedOver(call.kind)) {
          EXPECT_NE(end.record, usual.end().record);
        }
      }
    }
    RecordProperty("faults", faults);
  }

  WholeLibrary library_;

 private:
  OperationEnd runWith(const Tree& before, std::size_t number, const FileFault& fault) {
    library_.files.restore(before);
    library_.calls.reset();
    library_.user.forget();
    library_.calls.failAt(number, fault);
    return endOf(GetParam(), library_);
  }

  /// Documents that can't be copied are passed over, and so is a folder that can't be made: what
  /// needs it tells. An addition goes on without its book file as well.
  static bool isPassedOver(Kind kind) {
    const bool isAddition = GetParam().name.starts_with("Book_Valuator");
    return kind == Kind::kCopy || kind == Kind::kCreateFolder ||
           (isAddition && (kind == Kind::kCopyFile || kind == Kind::kMoveFile));
  }

  /// A later step may still write what an earlier one could not: it does so whole, from the old
  /// file, and has come to its end then.
  [[nodiscard]] bool isWrittenAfter(std::size_t number, const std::string& name) const {
    const std::vector<ChangingCall>& calls = library_.calls.calls();
    return std::find(calls.begin() + static_cast<std::ptrdiff_t>(number) + 1,
                     calls.end(),
                     ChangingCall{Kind::kCommit, componentPath(name)}) != calls.end();
  }
};

TEST_P(FailingCall, LeavesEveryFileInAStateThatItPassesThroughAndIsTold) {
  expectKnownStatesAndTold(library_.sound());
}

TEST_P(FailingCall, DoesSoWhereThereAreNoSideFiles) {
  Tree before = library_.sound();
  for (const char* file :
       {library_file::kCategories, library_file::kKeywords, library_file::kLinks}) {
    before.erase(file);
  }
  expectKnownStatesAndTold(before);
}

INSTANTIATE_TEST_SUITE_P(Of, FailingCall, ::testing::ValuesIn(libraryOperations()), identifierOf);

}  // namespace
}  // namespace quorbind::testing
