#include "cli/library_change.h"

#include <algorithm>
#include <iostream>
#include <istream>
#include <nlohmann/json.hpp>
#include <ostream>
#include <utility>

#include "cli/failure.h"
#include "cli/json_text.h"
#include "cli/point_of_need.h"
#include "platform/abandoned.h"
#include "platform/portable/visible_text.h"
#include "platform/text.h"

namespace quorbind {

namespace {

std::string_view verbOf(FileChange::Kind kind) {
  switch (kind) {
    case FileChange::Kind::kWritten:
      return "write";
    case FileChange::Kind::kMoved:
      return "move";
    case FileChange::Kind::kDeleted:
      return "delete";
    case FileChange::Kind::kFolderMade:
      break;
  }
  return "make folder";
}

std::string sentenceOf(const FileChange& change) {
  std::string sentence = std::string(verbOf(change.kind)) + " " + nativeName(change.path);
  return change.target.empty() ? sentence : sentence + " to " + nativeName(change.target);
}

Json toJson(const std::vector<FileChange>& changes) {
  Json list = Json::array();
  for (const FileChange& change : changes) {
    Json object = {{"change", verbOf(change.kind)}, {"file", nativeName(change.path)}};
    if (!change.target.empty()) {
      object["to"] = nativeName(change.target);
    }
    list.push_back(std::move(object));
  }
  return list;
}

std::string listOf(const std::vector<FileChange>& changes) {
  std::string list;
  for (const FileChange& change : changes) {
    list.append(list.empty() ? "" : ", ").append(sentenceOf(change));
  }
  return list;
}

}  // namespace

LibraryChange::LibraryChange(const LibraryArguments& place,
                             const ChangeFlags& flags,
                             std::vector<PreparedAnswer> answers)
    : library_(place.library),
      flags_(flags),
      paths_(place.server, place.library),
      terminal_(processTerminal(!flags.noInput)),
      wiring_(paths_.serverRoot,
              terminal_,
              std::move(answers),
              flags.dryRun ? RunKind::kRehearsal : RunKind::kReal) {}

ExitStatus LibraryChange::run(const std::function<std::string()>& work) {
  const ExitStatus status = attempt(work);
  wiring_.ui.unloadProgress();
  tellAccepted(status, wiring_.ui.shown());
  if (status != ExitStatus::kDone) {
    std::cerr << "quorbind: " << visibleText(library_ + ": " + noteOfFailure()) << '\n';
  }
  if (flags_.json) {
    printAsJson(status);
  } else if (status == ExitStatus::kDone) {
    printAsText();
  }
  return status;
}

ExitStatus LibraryChange::attempt(const std::function<std::string()>& work) {
  try {
    return reportingFailures(wiring_.ui, [&] {
      summary_ = work();
      return ExitStatus::kDone;
    });
  } catch (const Abandoned& abandoned) {
    missingAnswer_ = abandoned.what();
    return abandoned.reason() == AbandonReason::kAnswerRefused ? ExitStatus::kRefused
                                                               : ExitStatus::kAnswerMissing;
  }
}

void LibraryChange::confirm(const std::string& question) {
  if (flags_.yes || flags_.dryRun) {
    return;
  }
  if (terminal_.input == nullptr) {
    throw Abandoned(AbandonReason::kAnswerMissing, "give --yes");
  }
  terminal_.output << visibleText(question) << " [y/N] " << std::flush;
  std::string answer;
  std::getline(*terminal_.input, answer);
  if (!equalIgnoringAsciiCase(answer, "y") && !equalIgnoringAsciiCase(answer, "yes")) {
    throw AlreadyTold(ExitStatus::kRefused);
  }
}

/// What a run that did not come to its end has left behind.
std::string LibraryChange::noteOfFailure() const {
  const auto& changes = wiring_.files.changes();
  std::string note;
  if (const auto& failed = wiring_.files.failedWrite()) {
    const bool isWritten = std::any_of(changes.begin(), changes.end(), [&](const auto& change) {
      return change.kind == FileChange::Kind::kWritten && change.path == *failed;
    });
    note =
        nativeName(*failed) + (isWritten ? " could not be flushed; " : " could not be written; ");
  } else if (const auto& unread = wiring_.files.failedRead()) {
    note = nativeName(*unread) + " could not be read; ";
  }
  const bool isUntouched = changes.empty() || flags_.dryRun;
  note.append(isUntouched ? "nothing was changed" : "only a part was done: " + listOf(changes));
  return missingAnswer_.empty() ? note : note + ": " + missingAnswer_;
}

void LibraryChange::printAsText() const {
  std::cout << visibleText(summary_) << '\n';
  if (!flags_.dryRun) {
    return;
  }
  for (const FileChange& change : wiring_.files.changes()) {
    std::cout << "would " << visibleText(sentenceOf(change)) << '\n';
  }
}

void LibraryChange::printAsJson(ExitStatus status) const {
  const bool isDone = status == ExitStatus::kDone;
  Json object = {{"status", static_cast<int>(status)},
                 {"done", isDone && !flags_.dryRun},
                 {"dryRun", flags_.dryRun},
                 {"summary", summary_},
                 {"changes", toJson(wiring_.files.changes())},
                 {"messages", toJson(wiring_.ui.shown())}};
  if (!isDone) {
    object["note"] = noteOfFailure();
  }
  printJson(object);
}

}  // namespace quorbind
