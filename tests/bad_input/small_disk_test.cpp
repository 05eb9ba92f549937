// Every operation on a library that stands on a real disk of 64 KiB, with room for fewer and fewer
// files.

#include "tests/support/small_disk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <optional>
#include <utility>

#include "tests/bad_input/library_states.h"

namespace quorbind::testing {
namespace {

using ::testing::IsEmpty;
using Tree = WholeLibrary::Tree;

constexpr const char* kServer = "Docs";
constexpr const char* kFiller = "filler";
constexpr std::size_t kMostPagesFree = 4;

class OnASmallDisk : public ::testing::TestWithParam<LibraryOperation> {
 protected:
  void SetUp() override {
    world_.disk.makeFolder(kServer);
    server_.emplace(world_.disk.path() / kServer);
    ASSERT_TRUE(server_->isMounted()) << SmallDisk::kNotMounted << std::strerror(errno);
  }

  /// Puts the library back, and leaves room for so many files of a page.
  void restore(const Tree& library, std::size_t pagesFree) {
    for (const auto& [name, bytes] : contents()) {
      if (name != kServer) {
        world_.disk.remove(name);
      }
    }
    world_.disk.remove(filler());
    for (const auto& [name, bytes] : library) {
      if (bytes == "(folder)") {
        world_.disk.makeFolder(name);
      } else {
        world_.disk.write(name, bytes);
      }
    }
    server_->fillBut(kFiller, pagesFree);
  }

  OperationEnd run() {
    world_.user.forget();
    Module module(world_.platform());
    GetParam().run(module, world_.user);
    return {world_.user.recordWithoutProgress(), contents()};
  }

  World world_;

 private:
  static std::string filler() { return std::string(kServer) + "/" + kFiller; }
  [[nodiscard]] Tree contents() const {
    Tree tree = world_.disk.contents();
    tree.erase(filler());
    nameExportInCapitals(tree);
    return tree;
  }
  /// On a disk that tells letter cases apart the folder in capitals would be another one; this disk
  /// finds the author's.
  static void nameExportInCapitals(Tree& tree) {
    if (auto file = tree.extract("in/TOC_Temp.txt")) {
      file.key() = "IN/TOC_Temp.txt";
      tree.insert(std::move(file));
    }
  }

  std::optional<SmallDisk> server_;
};

TEST_P(OnASmallDisk, EveryFileIsInAStateThatItPassesThroughAndWhatDidNotFitIsTold) {
  WholeLibrary library;
  const LibraryStates usual(GetParam(), library, library.sound());
  for (std::size_t pages = 0; pages <= kMostPagesFree; ++pages) {
    SCOPED_TRACE(std::to_string(pages) + " pages free");
    restore(library.sound(), pages);
    const OperationEnd end = run();
    EXPECT_THAT(usual.strangersIn(end.tree), IsEmpty());
    if (end.tree != usual.end().tree) {
      EXPECT_NE(end.record, usual.end().record);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Of, OnASmallDisk, ::testing::ValuesIn(libraryOperations()), identifierOf);

}  // namespace
}  // namespace quorbind::testing
