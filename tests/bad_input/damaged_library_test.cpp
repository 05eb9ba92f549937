// Every file of a library, with everything that can be wrong with it, under every operation: what
// does not load is never written over, unless it is made anew by the operation's own rule.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>

#include "tests/bad_input/damage_rules.h"
#include "tests/bad_input/library_operations.h"
#include "tests/bad_input/library_tree.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {
namespace {

using Tree = WholeLibrary::Tree;
using Files = DamagedEnd::Files;

constexpr std::size_t kDamageStep = QUORBIND_DAMAGE_STEP;

/// Puts `...` in the place of what stands between `begin` and `end`.
std::string withoutPart(std::string line, std::string_view begin, std::string_view end) {
  const std::size_t from = line.find(begin);
  if (from != std::string::npos) {
    const std::size_t behind = from + begin.size();
    line.replace(behind, end.empty() ? std::string::npos : line.find(end, behind) - behind, "...");
  }
  return line;
}

/// The record without what a parser says, which is its own.
std::vector<std::string> withoutReasons(const std::vector<std::string>& record,
                                        const std::string& file) {
  const std::string loadError = "Error(-2147220990): " + componentPath(file);
  bool isParserTold = false;
  std::vector<std::string> lines;
  for (std::string line : record) {
    line = withoutPart(line, loadError, "\r");
    line = withoutPart(line, "critical: Line No:", "");
    if (isParserTold) {
      line = withoutPart(line, "clipboard: ", "");
    }
    isParserTold = isParserTold || line == "critical: Line No:...";
    lines.push_back(line);
  }
  return lines;
}

/// One damage of one file, and how the library looked.
struct DamagedCase {
  const std::string& file;
  const XmlDamage& damage;
  const Tree& before;
  /// What the operation leaves in a sound library.
  const Tree& usual;
};

Tree expectedTree(const DamagedEnd& end, const DamagedCase& library, const Tree& after) {
  Tree tree = library.usual;
  if (end.files != Files::kAllAsUsual && end.files != Files::kMovedToTarget) {
    take(tree, library.file, library.before);
  }
  switch (end.files) {
    case Files::kNothingChanges:
      return library.before;
    case Files::kTargetAlone:
      tree = library.before;
      tree[end.target] = end.text;
      break;
    case Files::kTargetIsLeft:
      take(tree, end.target, library.before);
      break;
    case Files::kTargetIsMade:
      // In front stands a comment, which is as usual.
      take(tree, end.target, after);
      break;
    case Files::kCopiedToTarget:
      erase(tree, end.target.substr(0, end.target.rfind('/')));
      tree[end.target.substr(0, end.target.rfind('/'))] = "(folder)";
      tree[end.target] = library.damage.bytes;
      break;
    case Files::kMovedToTarget:
      tree[end.target] = library.damage.bytes;
      break;
    case Files::kOthersAsUsual:
    case Files::kAllAsUsual:
      break;
  }
  return tree;
}

class DamagedLibrary : public ::testing::TestWithParam<LibraryOperation> {
 protected:
  void runOnDamaged(const std::string& file, const OperationEnd& usual) {
    for (const XmlDamage& damage : damagesOf(file)) {
      SCOPED_TRACE(file + ": " + damage.name);
      library_.reset();
      damage.putInPlaceOf(library_.files, file);
      const Tree before = library_.files.contents();
      const OperationEnd end = endOf(GetParam(), library_);

      const DamagedEnd expected = publishedEnd(GetParam().name, file, damage.kind)
                                      .value_or(DamagedEnd{usual.record, Files::kOthersAsUsual});
      EXPECT_EQ(withoutReasons(end.record, file), expected.record);
      EXPECT_EQ(end.tree, expectedTree(expected, {file, damage, before, usual.tree}, end.tree));
      if (expected.files == Files::kTargetIsMade) {
        EXPECT_TRUE(fromUtf16File(end.tree.at(expected.target)).ends_with(expected.text))
            << fromUtf16File(end.tree.at(expected.target));
      }
    }
  }

  WholeLibrary library_;

 private:
  /// All of them, or every so many, others for the next operation.
  static std::vector<XmlDamage> damagesOf(const std::string& file) {
    const auto& operations = libraryOperations();
    const auto operation = std::find_if(operations.begin(), operations.end(), [](const auto& one) {
      return one.name == GetParam().name;
    });
    auto next = static_cast<std::size_t>(operation - operations.begin());
    std::vector<XmlDamage> damages = xmlDamagesOf(soundText(file));
    std::erase_if(damages, [&](const XmlDamage&) { return next++ % kDamageStep != 0; });
    return damages;
  }
};

TEST_P(DamagedLibrary, LosesNothingAndIsToldAsPublished) {
  const OperationEnd usual = endOf(GetParam(), library_);
  for (const std::string& file : xmlFilesOfLibrary()) {
    runOnDamaged(file, usual);
  }
}

INSTANTIATE_TEST_SUITE_P(Of,
                         DamagedLibrary,
                         ::testing::ValuesIn(libraryOperations()),
                         identifierOf);

}  // namespace
}  // namespace quorbind::testing
