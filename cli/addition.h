#pragma once

// One addition, as a host runs it: what can be known to fail is found out first, then the component
// is called, then the library is looked at, because the component's answer tells that a run came to
// its end and not that a book was added.

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "cli/arguments.h"
#include "cli/paths.h"
#include "cli/report.h"
#include "cli/temporary_file.h"
#include "cli/toc_file.h"
#include "cli/wiring.h"
#include "toc/book_place.h"
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
  [[nodiscard]] bool flagsAreAccepted();
  void requireFolderInLibrary() const;
  void requireNamesThatFit() const;

  /// The file to hand to the component: the table itself, or a copy in the form that the generator
  /// reads.
  [[nodiscard]] std::string readyToc(const TocFile& toc);
  [[nodiscard]] std::string preparedCopyOf(const TocFile& toc);
  void considerFolder(const std::string& tocPath);
  void requireFreeBookFile(const std::string& tocPath, const std::string& folder);

  [[nodiscard]] bool callComponent(const std::string& tocPath, std::int16_t kind);
  [[nodiscard]] ExitStatus judge(bool finished);
  [[nodiscard]] ExitStatus judgeWithoutEntry(bool finished);
  [[nodiscard]] std::string generatedFile() const;
  void takeOut(const CatalogueEntry& book, const std::vector<CatalogueEntry>& books);
  void describeBook(const CatalogueEntry& book);
  [[nodiscard]] bool wasWriteErrorShown() const;
  [[nodiscard]] bool wasPlaceRefused() const;

  /// Runs a step that writes; `what` names the file, also in the note of a failure.
  void writing(const std::string& what, const std::function<void()>& step);

  const AddArguments& arguments_;
  const LibraryPaths& library_;
  Wiring& wiring_;
  AdditionReport report_;
  std::vector<CatalogueEntry> booksBefore_;
  StatedPlace statedPlace_;
  std::optional<TemporaryFile> preparedCopy_;
};

}  // namespace quorbind
