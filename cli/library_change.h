#pragma once

// One run of a subcommand that changes a library.
//
// What can be known to fail is found out first, then the person is asked where that is due, then
// the component is called, and what it told and what became of the files say how it went. A
// rehearsal does all of it on files that keep the changes in memory (rehearsed_files.h), and asks
// nobody.

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/arguments.h"
#include "cli/exit_status.h"
#include "cli/paths.h"
#include "cli/wiring.h"

namespace quorbind {

/// The flags of every such subcommand.
struct ChangeFlags {
  bool dryRun = false;
  bool json = false;
  /// Nobody is asked, also on a terminal.
  bool noInput = false;
  /// The question whether to go on is answered.
  bool yes = false;
};

class LibraryChange {
 public:
  LibraryChange(const LibraryArguments& place,
                const ChangeFlags& flags,
                std::vector<PreparedAnswer> answers = {});

  /// Runs `work` once and reports how it ended. It answers in one sentence what was done; what
  /// keeps it from that it throws.
  ExitStatus run(const std::function<std::string()>& work);

  [[nodiscard]] const LibraryPaths& paths() const { return paths_; }
  [[nodiscard]] const std::string& library() const { return library_; }
  [[nodiscard]] Wiring& wiring() { return wiring_; }
  [[nodiscard]] const Platform& platform() const { return wiring_.module.platform; }
  [[nodiscard]] Module& module() { return wiring_.module; }

  /// `done`, or in a rehearsal `would`, for the sentence about what was done.
  [[nodiscard]] std::string_view said(std::string_view done, std::string_view would) const {
    return flags_.dryRun ? would : done;
  }

  /// Asks the person to agree, unless a flag does or nothing is at stake. A refusal is AlreadyTold;
  /// with nobody to ask the run is Abandoned.
  void confirm(const std::string& question);

 private:
  [[nodiscard]] ExitStatus attempt(const std::function<std::string()>& work);
  [[nodiscard]] std::string noteOfFailure() const;
  void printAsText() const;
  void printAsJson(ExitStatus status) const;

  const std::string library_;
  const ChangeFlags flags_;
  const LibraryPaths paths_;
  const Terminal terminal_;
  Wiring wiring_;
  std::string summary_;
  /// What the person could have answered.
  std::string missingAnswer_;
};

}  // namespace quorbind
