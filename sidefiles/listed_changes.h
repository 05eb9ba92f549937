#pragma once

// How an operation that works through a list writes its file: once, and as if it had written it
// after every item.
//
// Each item is first tried on the document in memory. What was changed there goes to the file in
// one save, at the end of the list or as soon as an item has something to tell: before a box is
// shown, and before an error ends the list, the file holds everything that came before. Where that
// one save fails, the items are done again alone, each from the file and back, because some of them
// may still fit on the disk and each of them has a failure of its own to tell. A single item has
// had its save: its failure is told as it came. So is that of the first of several when the file
// can't even be read any more, as it would not get as far as that save.

#include <cstddef>
#include <functional>
#include <span>
#include <vector>

#include "platform/error_sources.h"
#include "platform/runtime_error.h"
#include "platform/user_interface.h"
#include "sidefiles/side_file.h"

namespace quorbind {

/// The changes of one list to one file. Its owner knows the items by their numbers.
class ListedChanges {
 public:
  struct Steps {
    /// Changes the document and answers whether it has to be saved. An error must leave the
    /// document as it was. Tells nothing.
    std::function<bool(std::size_t item)> change;
    /// Does the same item by itself: reads the file, changes it, saves it, and tells its failures.
    std::function<void(std::size_t item)> alone;
  };

  /// `file`, `ui` and `source` are kept by reference. `source` words what an item alone would tell
  /// of a save.
  ListedChanges(SideFile& file, UserInterface& ui, const ErrorSource& source, Steps steps);

  /// Does one item: in memory when the file loads and the change succeeds, else alone.
  void make(std::size_t item);

  /// Brings the file up to what is in memory. False when the one save failed: the items have then
  /// been done alone, and the next one finds the file as they left it.
  bool settle();

 private:
  void doAgain(std::span<const std::size_t> items, const RunTimeError& saveError);

  SideFile& file_;
  UserInterface& ui_;
  const ErrorSource& source_;
  Steps steps_;
  /// The items since the last save, from the first that changed something on.
  std::vector<std::size_t> unsaved_;
};

/// Runs the walk through a list and settles at its end, also when an error ends it.
void walkAndSettle(const std::function<void()>& walk, const std::function<void()>& settle);

}  // namespace quorbind
