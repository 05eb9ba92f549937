// The check of text tables of contents, which reads a stream and lists folders, against one that
// has the whole text before it and a list of the documents that are there.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/runtime_error.h"
#include "platform/text_file.h"
#include "tests/support/memory_files.h"
#include "tests/support/random_choices.h"
#include "tests/support/world.h"
#include "toc/text_toc.h"
#include "toc/toc_check.h"

namespace quorbind::testing {
namespace {

using Texts = std::vector<std::string>;

/// What the check of a table leaves behind.
struct TextTocOutcome {
  bool accepted = false;
  /// That of the refusal, counted from 1; 0 without one.
  std::size_t line = 0;
  /// Boxes and clipboard texts, as ScriptedUserInterface records them.
  Texts record;
  int lastLevel = 0;
  std::string bookName;
  std::string file;
  std::string bookmark;
  Texts missingFiles;

  bool operator==(const TextTocOutcome&) const = default;
};

void PrintTo(const TextTocOutcome& outcome, std::ostream* stream) {
  *stream << (outcome.accepted ? "accepted" : "refused") << " in line " << outcome.line
          << " at level " << outcome.lastLevel << ", book " << outcome.bookName << ", file "
          << outcome.file << outcome.bookmark << ", " << ::testing::PrintToString(outcome.record)
          << ", missing " << ::testing::PrintToString(outcome.missingFiles);
}

/// Levels as they are typed, and what they mean; nothing for what is no number.
const std::map<std::string, std::optional<int>>& typedLevels() {
  static const std::map<std::string, std::optional<int>> levels{{"1", 1},
                                                                {"2", 2},
                                                                {"3", 3},
                                                                {"4", 4},
                                                                {" 2 ", 2},
                                                                {"1.5", 2},
                                                                {"2.5", 2},
                                                                {"0", 0},
                                                                {"0.5", 0},
                                                                {"-3", -3},
                                                                {"&H3", 3},
                                                                {"2e0", 2},
                                                                {"x", {}},
                                                                {"", {}},
                                                                {"40000", {}},
                                                                {"1 2", {}},
                                                                {"\xC3\xA4", {}}};
  return levels;
}

constexpr int kPagesOfFolder = 60;

/// The documents of the disk, as one may name them from its root.
std::set<std::string> standingDocuments() {
  std::set<std::string> names{"docs/a.htm", "b.htm", "docs/deep/er.htm"};
  for (int page = 0; page < kPagesOfFolder; page += 2) {
    names.insert("docs/page" + std::to_string(page) + ".htm");
  }
  return names;
}

/// Names of documents in all kinds of spellings, and which document each leads to; nothing for one
/// that must not be looked up.
const std::vector<std::pair<std::string, std::optional<std::string>>>& spellings() {
  static const std::vector<std::pair<std::string, std::optional<std::string>>> names{
      {"docs\\a.htm", "docs/a.htm"},
      {"DOCS/A.HTM", "docs/a.htm"},
      {"docs\\\\a.htm", "docs/a.htm"},
      {".\\docs\\deep\\..\\a.htm", "docs/a.htm"},
      {"..\\b.htm", "b.htm"},
      {"b.htm", "b.htm"},
      {"docs/deep/er.htm", "docs/deep/er.htm"},
      {"docs", "docs"},
      {"none\\a.htm", "none/a.htm"},
      {"docs\\a.htm ", "docs/a.htm "},
      {"docs\\a.htm.", "docs/a.htm."},
      {"\xC3\xA4.htm", "\xC3\xA4.htm"},
      {"\\b.htm", std::nullopt},
      {"/b.htm", std::nullopt},
      {"\\\\server\\share\\b.htm", std::nullopt},
      {"docs\\con.htm", std::nullopt}};
  return names;
}

Texts cut(const std::string& text, char separator) {
  Texts pieces{""};
  for (const char c : text) {
    if (c == separator) {
      pieces.emplace_back();
    } else {
      pieces.back() += c;
    }
  }
  return text.empty() ? Texts() : pieces;
}

/// The rules as they are told, over the text of a whole table. What one check leaves behind, the
/// next begins with.
class PlainTextCheck {
 public:
  TextTocOutcome check(const std::string& text) {
    outcome_.record.clear();
    outcome_.line = 0;
    outcome_.accepted = checkLines(linesOf(text));
    return outcome_;
  }

 private:
  static Texts linesOf(const std::string& text) {
    Texts lines = cut(text, '\n');
    if (!lines.empty() && lines.back().empty()) {
      lines.pop_back();
    }
    for (std::size_t i = 0; i < lines.size(); ++i) {
      const bool isEnded = i + 1 < lines.size() || text.back() == '\n';
      if (isEnded && !lines[i].empty() && lines[i].back() == '\r') {
        lines[i].pop_back();
      }
    }
    return lines;
  }

  bool checkLines(const Texts& lines) {
    if (lines.empty()) {
      return show("Error: Text File is Empty");
    }
    if (cut(lines[0], '"').size() != 9) {
      outcome_.line = 1;
      return report("Error: Text File Does not adhere to Quor TOC Content Spec", lines[0]);
    }
    if (lines.size() == 1) {
      return show("Error: Text File is Empty");
    }
    for (std::size_t i = 2; i < lines.size(); ++i) {
      if (!checkLine(lines[i])) {
        outcome_.line = i + 1;
        return false;
      }
    }
    return true;
  }

  bool checkLine(const std::string& line) {
    if (line.find_first_not_of(' ') == std::string::npos) {
      return show("Error:Empty Line in TOC is not valid");
    }
    const Texts pieces = cut(line, '"');
    if (pieces.size() != 9) {
      return refuse(line, "Error: Does not adhere to Quor TOC Content Spec");
    }
    const std::optional<int> level = levelOf(pieces[1]);
    if (!level) {
      return refuse(line, "Error:Node Level value can not be String");
    }
    if (*level - outcome_.lastLevel > 1 || *level == 0 ||
        (*level == 1 && outcome_.lastLevel != 0)) {
      return refuse(line, "Error:Invalid Node Level Sequence ");
    }
    outcome_.lastLevel = *level;
    if (pieces[3].empty()) {
      return refuse(line, "Error:Node Name can not be Empty");
    }
    if (*level == 1 && outcome_.bookName.empty()) {
      outcome_.bookName = pieces[3];
    }
    lookUp(pieces[5]);
    return true;
  }

  /// What else the tests write for a level is no number either.
  static std::optional<int> levelOf(const std::string& typed) {
    const auto known = typedLevels().find(typed);
    return known == typedLevels().end() ? std::nullopt : known->second;
  }

  void lookUp(const std::string& name) {
    if (name.empty()) {
      return;
    }
    const Texts parts = cut(name, '#');
    outcome_.file = parts[0];
    outcome_.bookmark = parts.size() > 1 ? "#" + parts[1] : "";
    if (!isStanding(parts[0])) {
      outcome_.missingFiles.push_back(name);
    }
  }

  [[nodiscard]] bool isStanding(const std::string& file) const {
    for (const auto& [spelling, document] : spellings()) {
      if (spelling == file) {
        return document && standing_.count(*document) > 0;
      }
    }
    return standing_.count(file) > 0;
  }

  bool refuse(const std::string& line, const std::string& error) {
    return report("Line: " + line + "\r" + error, line);
  }
  bool report(const std::string& message, const std::string& offending) {
    show(message);
    outcome_.record.push_back("clipboard: " + offending);
    return false;
  }
  bool show(const std::string& message) {
    outcome_.record.push_back("critical: " + message);
    return false;
  }

  const std::set<std::string> standing_ = standingDocuments();
  TextTocOutcome outcome_;
};

/// Notes on which line a walk ends.
class LineOfRefusal final : public TextTocListener {
 public:
  explicit LineOfRefusal(std::int16_t previousLevel) : previousLevel_(previousLevel) {}

  bool entry(const TextTocLine& line, const Pieces& pieces) override {
    TextTocEntry entry;
    const bool isRefused = checkTextEntry(line.text, pieces, previousLevel_, entry).has_value();
    line_ = isRefused ? line.number : 0;
    return !isRefused;
  }
  void refused(const TextTocLine& line, const TocViolation& /*violation*/) override {
    line_ = line.number;
  }

  [[nodiscard]] std::size_t line() const { return line_; }

 private:
  std::int16_t previousLevel_;
  std::size_t line_ = 0;
};

class RandomTextTables : public ::testing::Test {
 protected:
  RandomTextTables() {
    for (const std::string& document : standingDocuments()) {
      files_.write(document, "");
    }
    files_.write("docs/con.htm", "");
    files_.write("server/share/b.htm", "");
  }

  /// Checks `tables` one after the other with one object, and the same plainly. Answers how many
  /// were accepted.
  int compare(const Texts& tables) {
    module_.state.currentBookName.clear();
    TocCheck check(module_);
    PlainTextCheck plain;
    int accepted = 0;
    for (const std::string& table : tables) {
      const TextTocOutcome outcome = checked(check, table);
      EXPECT_EQ(outcome, plain.check(table)) << table;
      accepted += outcome.accepted ? 1 : 0;
    }
    return accepted;
  }

  /// A table of `entries`, of which one in `chances` is out of order.
  std::string table(std::size_t entries, std::size_t chances) {
    std::string text = random_.oneIn(chances) ? random_.textOf({"\"", "a", " "}, random_.below(12))
                                              : "\"a\" \"b\" \"c\" \"d\"";
    const std::string_view lineEnd = random_.oneIn(2) ? "\r\n" : "\n";
    text.append(lineEnd).append(random_.oneOf<std::string_view>({"", "x\"", "\r", " "}));
    level_ = 0;
    for (std::size_t i = 0; i < entries; ++i) {
      text.append(lineEnd).append(random_.oneIn(chances) ? strangeLine() : entry(chances));
    }
    return text.append(random_.oneIn(2) ? lineEnd : "");
  }

  RandomChoices random_{20260102};

 private:
  TextTocOutcome checked(TocCheck& check, const std::string& table) {
    files_.write("toc.txt", encoded(table));
    world_.user.forget();
    LineOfRefusal refusal(check.mintPrevLevel());
    std::string path = "C:\\toc.txt";
    TextTocOutcome outcome;
    outcome.accepted = check.mbValidateTocFile(path, TocCheck::kText);
    outcome.line = lineOf(refusal);
    outcome.record = world_.user.record();
    outcome.lastLevel = check.mintPrevLevel();
    outcome.bookName = module_.state.currentBookName;
    outcome.file = check.mstrCurFile();
    outcome.bookmark = check.mstrCurBookMark();
    outcome.missingFiles = check.marrsMissingFiles();
    return outcome;
  }

  std::size_t lineOf(LineOfRefusal& refusal) {
    try {
      TextReader reader(files_, world_.locale, "C:\\toc.txt");
      walkTextToc(reader, refusal);
    } catch (const RunTimeError&) {
      // The file ends before its second line.
    }
    return refusal.line();
  }

  std::string encoded(const std::string& text) {
    switch (random_.below(4)) {
      case 0:
        return utf16File(text);
      case 1:
        return utf16BigEndianFile(text);
      case 2:
        return "\xEF\xBB\xBF" + text;
      default:
        return text;
    }
  }

  std::string strangeLine() {
    return random_.textOf({"\"", "\"2\"", " ", " ", "\"n\"", "\r", "$@@$", "\"\""},
                          random_.below(8));
  }

  std::string entry(std::size_t chances) {
    level_ = level_ == 0 ? 1 : 2 + random_.below(level_);
    std::string level = std::to_string(level_);
    if (random_.oneIn(chances)) {
      level = std::next(typedLevels().begin(), random_.below(typedLevels().size()))->first;
    } else if (level_ > 4) {
      level = std::to_string(level_ = 3);
    }
    const std::string name =
        random_.oneIn(chances) ? "" : random_.textOf({"Pump", " ", "\xC3\xA4", "\xE7\x9B\xAE"}, 3);
    return around() + "\"" + level + "\"" + around() + "\"" + name + "\"" + around() + "\"" +
           document() + "\"" + around() + "\"" + around() + "\"" + around();
  }

  std::string around() { return random_.oneIn(2) ? " " : random_.textOf({"", "x", "$@@$"}, 1); }

  std::string document() {
    const std::string name =
        random_.oneIn(3) ? random_.oneOf(spellings()).first
                         : "docs/page" + std::to_string(random_.below(kPagesOfFolder)) + ".htm";
    return random_.oneIn(8) ? random_.textOf({"", "#top"}, 1)
                            : name + random_.textOf({"", "", "#top", "#a#b", "#"}, 1);
  }

  std::size_t level_ = 0;
  World world_;
  MemoryFiles files_;
  Module module_{Platform{files_,
                          world_.platform().xml,
                          world_.platform().ui,
                          world_.platform().toolset,
                          world_.platform().locale,
                          world_.platform().spreadsheets}};
};

TEST_F(RandomTextTables, OfAFewEntriesAreCheckedAlike) {
  int accepted = 0;
  for (int round = 0; round < 1'500 && !HasFailure(); ++round) {
    accepted += compare({table(random_.below(6), 20)});
  }
  EXPECT_GT(accepted, 500);
}

TEST_F(RandomTextTables, OfSoManyEntriesThatFoldersAreListedAreCheckedAlike) {
  int accepted = 0;
  for (int round = 0; round < 80 && !HasFailure(); ++round) {
    accepted += compare({table(40 + random_.below(100), 2'000)});
  }
  EXPECT_GT(accepted, 30);
}

TEST_F(RandomTextTables, BeginWhereTheTableBeforeThemEnded) {
  int accepted = 0;
  for (int round = 0; round < 500 && !HasFailure(); ++round) {
    accepted += compare({table(random_.below(3), 10), table(random_.below(3), 10)});
  }
  EXPECT_GT(accepted, 300);
}

TEST_F(RandomTextTables, OfStrangeLinesAreCheckedAlike) {
  for (int round = 0; round < 1'000 && !HasFailure(); ++round) {
    compare({table(1 + random_.below(4), 2)});
  }
}

TEST_F(RandomTextTables, ThatEndAnywhereAreCheckedAlike) {
  const std::string whole = table(3, 1'000'000);
  for (std::size_t size = 0; size <= whole.size() && !HasFailure(); ++size) {
    const bool isInsideCharacter = size < whole.size() && (whole[size] & 0xC0) == 0x80;
    if (!isInsideCharacter) {
      compare({whole.substr(0, size)});
    }
  }
}

/// Longer than what is read at a time.
TEST_F(RandomTextTables, OfThousandsOfEntriesAreCheckedAlike) {
  int accepted = 0;
  for (int round = 0; round < 2 && !HasFailure(); ++round) {
    accepted += compare({table(4'000, 1'000'000)});
  }
  EXPECT_EQ(accepted, 2);
}

}  // namespace
}  // namespace quorbind::testing
