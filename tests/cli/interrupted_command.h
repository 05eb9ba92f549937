#pragma once

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/portable/portable_file_system.h"
#include "platform/portable/xml_library.h"
#include "platform/temporary_name.h"
#include "tests/cli/library_subcommands.h"
#include "tests/cli/system_calls.h"
#include "tests/support/dates.h"

namespace quorbind::testing {

/// What is tried with an end, or a failure, at every moment.
inline const std::vector<Subcommand> kInterrupted{
    {"add",
     {"add",
      "toc.txt",
      "--name",
      "Pumps",
      "--acro",
      "PMP",
      "--keywords",
      "pump;motor",
      "--categories",
      "Safety;Maps"}},
    {"rename", {"rename", "Alarms", "--name", "Warnings", "--acro", "WRN", "--yes"}},
    {"categories_rename", {"categories", "rename", "Safety", "Maps"}},
    {"keywords_add", {"keywords", "add", "Alarms", "horn"}},
};

/// A system call and the errors that it is made to end with.
struct FailingSystemCall {
  const char* name;
  std::vector<const char*> errors;
};

/// One call of a run, and what happens to it in the tracer's words.
struct FailurePoint {
  SystemCall call;
  std::string event;
};

/// Each of the calls that are `failing` and `isTried`, with each of its errors.
template <typename Filter>
std::vector<FailurePoint> failurePointsIn(const std::vector<SystemCall>& calls,
                                          const std::vector<FailingSystemCall>& failing,
                                          Filter isTried) {
  std::vector<FailurePoint> points;
  for (const SystemCall& call : calls) {
    for (const FailingSystemCall& kind : failing) {
      if (call.name == kind.name && isTried(call)) {
        for (const char* error : kind.errors) {
          points.push_back({call, std::string("error=") + error});
        }
      }
    }
  }
  return points;
}

/// A subcommand on a library that is put back as often as wanted.
class InterruptedCommand : public CompleteLibrary {
 protected:
  void SetUp() override {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "a sanitizer makes system calls of its own, which would be disturbed as well";
#endif
    CompleteLibrary::SetUp();
    writeInput();
    before_ = contents();
    onDisk_ = disk.contents();
  }

  /// What the subcommand reads beside the library.
  virtual void writeInput() const {
    writeBook();
  }

  [[nodiscard]] const Tree& before() const {
    return before_;
  }

  void restore() const {
    const Tree now = disk.contents();
    for (const auto& [name, content] : now) {
      if (!onDisk_.contains(name)) {
        std::filesystem::remove_all(disk.path() / name);
      }
    }
    for (const auto& [name, content] : onDisk_) {
      if (content == kFolder) {
        disk.makeFolder(name);
      } else if (const auto found = now.find(name);
                 found == now.end() || found->second != content) {
        disk.write(name, content);
      }
    }
  }

  /// What stands on the disk, but for line ends, and the moment at which a file was made that tells
  /// it.
  [[nodiscard]] Tree contents() const {
    Tree tree = disk.contents();
    for (auto& [name, content] : tree) {
      if (statesItsDate(name)) {
        const bool isUtf16 = content.starts_with("\xFF\xFE");
        content = withoutDates(isUtf16 ? fromUtf16File(content) : content);
      }
      content = replaceAll(content, "\r\n", "\n");
    }
    return tree;
  }

  [[nodiscard]] Command command() const {
    return {.words = joined({quorbindExecutable()}, words()),
            .folder = disk.path().string(),
            .environment = environment};
  }

  /// The calls after start-up of a run that nothing happens to.
  [[nodiscard]] std::vector<SystemCall> callsOfAWholeRun() const {
    return callsSince(disk.path().string(), callsOf(command(), (trace_.path() / "trace").string()));
  }

  /// From the library as it was, with this failure.
  [[nodiscard]] Outcome runWith(const FailurePoint& point) const {
    restore();
    return run(withEventAt(point.call, point.event, command()));
  }

  /// A run ends with 0 only where everything is as it should be, and else tells something.
  static void expectNoFalseSuccess(const Outcome& outcome, const Tree& now, const Tree& after) {
    if (outcome.status == 0) {
      EXPECT_EQ(now, after) << outcome.err;
    } else {
      EXPECT_NE(outcome.err, "");
    }
  }

  /// A file of the system's own that a process leaves which had no time to clean up: what was to
  /// replace a file, or the prepared copy of a table of contents.
  [[nodiscard]] static bool isTemporary(const std::string& name) {
    return (name.find(kTemporaryInfix) != std::string::npos &&
            name.ends_with(kTemporaryExtension)) ||
           name.starts_with("quorbind-");
  }

  /// Whether a file on the disk is an XML document.
  [[nodiscard]] bool parses(const std::string& name) const {
    PortableFileSystem files;
    return PortableXmlLibrary(files).createDocument()->load((disk.path() / name).string()).loaded;
  }

  [[nodiscard]] bool isOldOrNew(const std::string& name,
                                const std::string& content,
                                const Tree& after) const {
    const auto is = [&](const Tree& tree) {
      const auto found = tree.find(name);
      return found != tree.end() && found->second == content;
    };
    return is(before_) || is(after) || isGenerated(name) || isRenamed(content);
  }

  static constexpr const char* kFolder = "(folder)";

 private:
  /// Whether it is a book file or one that a library keeps beside its catalogue.
  [[nodiscard]] static bool statesItsDate(const std::string& name) {
    const std::string file = std::filesystem::path(name).filename().string();
    return file.starts_with("Book_") || file.starts_with("Quor_");
  }
  /// Whether an old file stands under its new name.
  [[nodiscard]] bool isRenamed(const std::string& content) const {
    const auto old = before_.find("server/Docs/Plant/Manual/Book_ALM.xml");
    return old != before_.end() && old->second == content;
  }

  /// The book file that an addition makes beside the table of contents, and takes away again.
  [[nodiscard]] static bool isGenerated(const std::string& name) {
    return !name.starts_with("server/") && name.ends_with("Book_PMP.xml");
  }

  TemporaryFolder trace_;
  Tree before_;
  Tree onDisk_;
};

}  // namespace quorbind::testing
