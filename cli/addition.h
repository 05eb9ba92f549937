#pragma once

// One addition, as a host runs it: what can be known to fail is found out first, then the component
// is called, then the library is looked at, because the component's answer tells that a run came to
// its end and not that a book was added.

#include <string>
#include <string_view>
#include <vector>

#include "cli/addition_run.h"
#include "cli/arguments.h"
#include "cli/paths.h"
#include "cli/report.h"
#include "cli/wiring.h"
#include "workflow/driver/book_valuator.h"

namespace quorbind {

class Addition final : private QuorBookEvents {
 public:
  /// All are kept by reference; `wiring` was given `answersOf(arguments)`.
  Addition(const AddArguments& arguments, const LibraryPaths& library, Wiring& wiring);

  /// What the flags answer in the forms.
  static std::vector<PreparedAnswer> answersOf(const AddArguments& arguments);

  /// Runs it once. Every failure is told to the user and in the report.
  AdditionReport run();

 private:
  void evtGetFolderName(std::string_view sFolderName) override;

  [[nodiscard]] ExitStatus addBook();
  void requireUsableLibrary();
  void considerCategories();
  void requireUsableSideFiles();
  [[nodiscard]] bool flagsAreAccepted();
  void requireRecordableLists();
  void requireNamesInOwnLetters();
  void requireOneNaming() const;
  void requireFolderInLibrary() const;
  void requireUsableNames() const;
  [[nodiscard]] bool callComponent(const std::string& tocPath);

  AdditionRun run_;
};

/// Runs one addition as a process of its own would: with a component that has kept nothing of
/// another. `messages` receives every box.
AdditionReport addBook(const AddArguments& arguments, std::vector<ShownMessage>& messages);

}  // namespace quorbind
