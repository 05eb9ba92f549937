#pragma once

// How an operation that works through a list writes its file: once, and as if it had written it
// after every item.
//
// Each item is first tried on the document in memory. What was changed there goes to the file in
// one save, at the end of the list or as soon as an item has something to tell: before a box is
// shown, and before an error ends the list, the file holds everything that came before. Where that
// one save fails, the items are done again alone, each from the file and back, because some of them
// may still fit on the disk and each of them has a failure of its own to tell.

#include <functional>
#include <vector>

#include "sidefiles/side_file.h"

namespace quorbind {

class ListedChanges {
 public:
  /// Changes the document and answers whether it has to be saved. An error must leave the document
  /// as it was. Tells nothing.
  using Change = std::function<bool()>;
  /// Does the same item by itself: reads the file, changes it, saves it, and tells its failures.
  using Alone = std::function<void()>;

  /// Kept by reference.
  explicit ListedChanges(SideFile& file) : file_(file) {}

  /// Does one item: in memory when the file loads and the change succeeds, else alone.
  void make(const Change& change, Alone alone);

  /// Brings the file up to what is in memory. False when the one save failed: the items have then
  /// been done alone, and the next one finds the file as they left it.
  bool settle();

 private:
  SideFile& file_;
  /// The items that are in memory and not in the file.
  std::vector<Alone> unsaved_;
};

/// Runs the walk through a list and settles at its end, also when an error ends it.
void walkAndSettle(const std::function<void()>& walk, const std::function<void()>& settle);

}  // namespace quorbind
