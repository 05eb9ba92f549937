#pragma once

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text.h"
#include "tests/cli/command.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {

using Words = std::vector<std::string>;
using Tree = std::map<std::string, std::string>;

/// Runs the command in a folder of its own, with the server in `server` and the library `Plant`. In
/// what the command writes, the folder's name is replaced by `DISK`.
class CommandTest : public ::testing::Test {
 protected:
  Outcome quorbind(const Words& arguments) const {
    return runHere(joined({quorbindExecutable()}, arguments));
  }

  [[nodiscard]] Outcome runHere(const Words& words) const {
    Outcome outcome =
        run({.words = words, .folder = disk.path().string(), .environment = environment});
    for (std::string* text : {&outcome.out, &outcome.err}) {
      *text = replaceAll(*text, disk.path().string(), "DISK");
    }
    takeHelpApart(outcome);
    expectToldWhatIsAccepted(outcome);
    return outcome;
  }

  void initLibrary() const {
    ASSERT_EQ(quorbind({"init", "--server", "server", "--library", "Plant"}).status, 0);
  }

  /// `quorbind add toc.txt` to the library, with more arguments.
  [[nodiscard]] Outcome add(const Words& more = {}) const { return quorbind(addWords(more)); }
  [[nodiscard]] static Words addWords(const Words& more) { return addFileWords("toc.txt", more); }
  /// The same for another table of contents.
  [[nodiscard]] Outcome addFile(const std::string& toc, const Words& more = {}) const {
    return quorbind(addFileWords(toc, more));
  }
  [[nodiscard]] static Words addFileWords(const std::string& toc, const Words& more) {
    return joined({"add", toc, "--server", "server", "--library", "Plant"}, more);
  }
  /// The same for a book whose name and acronym are given.
  [[nodiscard]] Outcome addAlarms(const Words& more = {}) const { return add(asAlarms(more)); }
  [[nodiscard]] static Words asAlarms(const Words& more = {}) {
    return joined({"--name", "Alarms", "--acro", "ALM"}, more);
  }

  /// A table of contents from its entries: the header and the empty line are put in front.
  void writeToc(std::string_view entries) const {
    disk.write("toc.txt", std::string(kHeader) + "\n\n" + std::string(entries));
  }
  /// A book of three headings, with its documents.
  void writeBook() const {
    writeToc(
        "\"1\" \"Alarm Handling\" \"Manual\\cover.htm\" \"\"\n"
        "\"2\" \"Alarms\" \"Manual\\alarms.htm\" \"\"\n"
        "\"3\" \"Reset & Test\" \"Manual\\alarms.htm#reset\" \"\"\n"
        "\"2\" \"Trends\" \"Manual\\trends.htm\" \"#top\"\n");
    for (const char* document : {"cover", "alarms", "trends"}) {
      disk.write(std::string("Manual/") + document + ".htm", "<p>text</p>");
    }
  }

  [[nodiscard]] Tree serverTree() const { return below("server/"); }
  /// A "Unicode text" file of the library, line ends as LF.
  [[nodiscard]] std::string libraryText(const std::string& name) const {
    return replaceAll(fromUtf16File(disk.read("server/Docs/Plant/" + name)), "\r\n", "\n");
  }
  /// The names only.
  [[nodiscard]] std::vector<std::string> filesBelow(const std::string& folder) const {
    std::vector<std::string> names;
    for (const auto& [name, content] : below(folder)) {
      if (content != "(folder)") {
        names.push_back(name);
      }
    }
    return names;
  }

  static Words joined(Words words, const Words& more) {
    words.insert(words.end(), more.begin(), more.end());
    return words;
  }

  static constexpr std::string_view kHeader =
      "\"Node Level\" \"Node Name\" \"File Name\" \"Sub Link\"";

  TemporaryFolder disk;
  std::map<std::string, std::string> environment;

 private:
  /// The line at fault with its mark, and what would be accepted: tests of rules look at the boxes,
  /// those of the help (point_of_need_test.cpp) at the rest.
  static void takeHelpApart(Outcome& outcome) {
    std::string boxes;
    std::istringstream lines(outcome.err);
    for (std::string line; std::getline(lines, line);) {
      (isHelp(line) ? outcome.help : boxes).append(line).append("\n");
    }
    if (!outcome.help.empty()) {
      outcome.err = boxes;
    }
  }

  /// A refusal says in a sentence what would be accepted; an error of the component, of which no
  /// rule tells, does not.
  static void expectToldWhatIsAccepted(const Outcome& outcome) {
    const bool isRefusal = outcome.status == 1 && contains(outcome.err, "critical: ");
    if (isRefusal && !contains(outcome.err, "critical: Error(")) {
      EXPECT_TRUE(contains(outcome.help, "accepted: ")) << outcome.err;
    }
  }

  /// A line, or a mark under it, has its number or its cell in front of a bar.
  static bool isHelp(std::string_view line) {
    const std::string_view front = line.substr(0, line.find('|'));
    const bool isMarked =
        front.size() < line.size() && front.starts_with("  ") && front.ends_with(' ') &&
        trimBlanks(front).find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789") ==
            std::string_view::npos;
    return isMarked || line.starts_with("accepted: ");
  }

  [[nodiscard]] Tree below(const std::string& folder) const {
    Tree tree;
    for (const auto& [name, content] : disk.contents()) {
      if (name.rfind(folder, 0) == 0) {
        tree.emplace(name.substr(folder.size()), content);
      }
    }
    return tree;
  }
};

}  // namespace quorbind::testing
