#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tests/bad_input/library_operations.h"
#include "tests/support/damaged_xml.h"

namespace quorbind::testing {

/// How an operation on the library ends when one of its files is damaged.
struct DamagedEnd {
  enum class Files {
    kNothingChanges,
    /// Every other file becomes what it becomes in a sound library.
    kOthersAsUsual,
    /// Every file does: the damaged one is made anew.
    kAllAsUsual,
    /// As kOthersAsUsual, and `target` becomes a UTF-16 file that ends with `text`.
    kTargetIsMade,
    /// As kAllAsUsual, and `target` is the damaged file as it came.
    kMovedToTarget,
    /// As kOthersAsUsual, and `target` is the damaged file as it came, alone in its folder.
    kCopiedToTarget,
    /// As kOthersAsUsual, and `target` stays as it is, too.
    kTargetIsLeft,
    /// `target` alone changes, and becomes `text`.
    kTargetAlone,
  };

  /// Boxes, dialogs and answers, as LibraryOperation says. What a parser says of a damage is `...`,
  /// and so is the line.
  std::vector<std::string> record;
  Files files = Files::kNothingChanges;
  std::string target = {};
  std::string text = {};
};

/// The end that is published for an operation when `file` has such a damage; nothing when the
/// operation is to go as usual, with the damaged file left alone.
std::optional<DamagedEnd> publishedEnd(const std::string& operation,
                                       const std::string& file,
                                       XmlDamage::Kind kind);

}  // namespace quorbind::testing
