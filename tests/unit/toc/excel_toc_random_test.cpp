// The walk through workbooks, which reads them column by column and book by book, against one that
// has all rows before it and cuts them into books first.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/excel_sheets.h"
#include "tests/support/random_choices.h"
#include "tests/support/world.h"
#include "toc/excel_toc_check.h"
#include "toc/toc_check.h"

namespace quorbind::testing {
namespace {

using Texts = std::vector<std::string>;

constexpr std::string_view kWorkbook = "C:\\in\\book.xls";
constexpr std::string_view kExport = "in/BOOK_Temp.txt";
constexpr std::size_t kExportedColumns = 6;

/// The cells of one heading that are exported: level, a note, name, a note, document, a note.
using Heading = std::vector<std::string>;

const std::string& levelCell(const Heading& heading) {
  return heading[0];
}
const std::string& nameCell(const Heading& heading) {
  return heading[2];
}
const std::string& documentCell(const Heading& heading) {
  return heading[4];
}

/// What the check of a workbook leaves behind.
struct WorkbookOutcome {
  bool accepted = true;
  /// Boxes and clipboard texts as ScriptedUserInterface records them, and which books are built.
  Texts record;
  /// What the books that are built are built from.
  Texts exports;
  int lastLevel = 0;
  std::string bookName;
  std::string bookDocument;
  Texts missingFiles;

  bool operator==(const WorkbookOutcome&) const = default;
};

void PrintTo(const WorkbookOutcome& outcome, std::ostream* stream) {
  *stream << (outcome.accepted ? "accepted" : "refused") << " at level " << outcome.lastLevel
          << ", book " << outcome.bookName << ", document " << outcome.bookDocument << ", "
          << ::testing::PrintToString(outcome.record) << ", exports "
          << ::testing::PrintToString(outcome.exports) << ", missing "
          << ::testing::PrintToString(outcome.missingFiles);
}

/// A level as it is typed, and what it means; nothing for what is no number.
using TypedLevel = std::pair<std::string, std::optional<int>>;

const std::vector<TypedLevel>& goodLevels() {
  static const std::vector<TypedLevel> levels{{"2", 2},
                                              {"2", 2},
                                              {"3", 3},
                                              {"4", 4},
                                              {" 2 ", 2},
                                              {"1.5", 2},
                                              {"&H3", 3},
                                              {"2e0", 2},
                                              {"0", 0},
                                              {"-3", -3}};
  return levels;
}

const std::vector<TypedLevel>& firstLevels() {
  static const std::vector<TypedLevel> levels{
      {"1", 1}, {"1", 1}, {" 1", 1}, {"0.6", 1}, {"&H1", 1}};
  return levels;
}

const std::vector<TypedLevel>& badLevels() {
  static const std::vector<TypedLevel> levels{{"x", {}}, {"40000", {}}, {"1 2", {}}};
  return levels;
}

std::optional<int> meaningOf(const std::string& typed) {
  for (const auto* levels : {&goodLevels(), &firstLevels()}) {
    for (const auto& [text, level] : *levels) {
      if (text == typed) {
        return level;
      }
    }
  }
  return std::nullopt;
}

bool isBlank(const std::string& text) {
  return text.find_first_not_of(' ') == std::string::npos;
}

constexpr int kPages = 40;

std::string pageName(std::size_t number) {
  return "sub\\page" + std::to_string(number) + ".htm";
}

/// The spellings that lead to a document that stands.
std::set<std::string> leadingSomewhere() {
  std::set<std::string> names{"a.htm", "A.HTM", "sub\\.\\b.htm", "sub/b.htm", "sub\\..\\a.htm"};
  for (std::size_t page = 0; page < kPages; page += 2) {
    names.insert(pageName(page));
  }
  return names;
}

std::string bookNumbered(std::size_t number) {
  return "Book " + std::to_string(number);
}
std::string acronymNumbered(std::size_t number) {
  return "B" + std::to_string(number);
}

/// The rules as they are told, over the rows of a whole sheet.
class PlainWorkbookCheck {
 public:
  explicit PlainWorkbookCheck(std::vector<Heading> rows) : rows_(std::move(rows)) {
    endAtFirstBlankLevel();
    cutIntoBooks();
  }

  WorkbookOutcome run() {
    if (wrong_) {
      tellWrongLevel();
    }
    for (std::size_t number = 1; number <= books_.size() && outcome_.accepted; ++number) {
      // A first book of one row is taken again and again.
      takeBook(number, books_[0].size() == 1 ? books_[0] : books_[number - 1]);
    }
    return outcome_;
  }

 private:
  /// The rows of a book by their numbers, from 0.
  using Rows = std::vector<std::size_t>;

  void endAtFirstBlankLevel() {
    for (std::size_t row = 0; row < rows_.size(); ++row) {
      if (isBlank(levelCell(rows_[row]))) {
        rows_.resize(row);
      }
    }
  }

  /// A book ends in front of the second level 1. What stands in front of the first belongs to it.
  void cutIntoBooks() {
    Rows before;
    for (std::size_t row = 0; row < rows_.size(); ++row) {
      const std::optional<int> level = meaningOf(levelCell(rows_[row]));
      if (!level && !wrong_) {
        wrong_ = row;
      }
      if (level == 1 && !wrong_) {
        books_.push_back(books_.empty() ? before : Rows());
      }
      (books_.empty() ? before : books_.back()).push_back(row);
    }
  }

  void takeBook(std::size_t number, const Rows& rows) {
    const bool isLast = rows.back() + 1 == rows_.size();
    for (const std::size_t row : rows) {
      if (row == wrong_) {
        tellWrongLevel();
        outcome_.accepted = false;
        return;
      }
      outcome_.lastLevel = *meaningOf(levelCell(rows_[row]));
    }
    if (!isLast) {
      outcome_.lastLevel = 1;
    }
    const Texts names = columnOf(rows, nameCell, endOfNames_);
    const Texts documents = columnOf(rows, documentCell, endOfDocuments_);
    outcome_.bookName = names.front();
    outcome_.bookDocument = documents.front();
    for (const std::string& document : documents) {
      if (!isBlank(document) && standing_.count(document) == 0) {
        outcome_.missingFiles.push_back(document);
      }
    }
    if (endOfNames_ || endOfDocuments_) {
      outcome_.record.emplace_back(
          "critical: Number Of Entry's in Node Level/Node Name/File Name Does not Match");
      return;
    }
    outcome_.record.push_back("build " + bookNumbered(number) + " (" + acronymNumbered(number) +
                              ")");
    outcome_.exports.push_back(exportOf(rows));
  }

  /// What is read of a column. It goes no further than its first blank cell, in this book and in
  /// all that follow; one in the second row is come to from the first.
  Texts columnOf(const Rows& rows,
                 const std::string& (*cell)(const Heading&),
                 std::optional<std::size_t>& end) {
    Texts column;
    if (end) {
      if (*end == 1) {
        column.push_back(cell(rows_[0]));
      }
      column.push_back(cell(rows_[*end]));
      return column;
    }
    for (const std::size_t row : rows) {
      column.push_back(cell(rows_[row]));
      if (isBlank(column.back())) {
        end = row;
        break;
      }
    }
    return column;
  }

  [[nodiscard]] std::string exportOf(const Rows& rows) const {
    std::string text = "$@@$Node Level$@@$ $@@$Node Name$@@$ $@@$File Name$@@$  $@@$\n\n";
    for (const std::size_t row : rows) {
      for (const std::string& cell : rows_[row]) {
        text += cell.empty() ? "" : "$@@$" + cell + "$@@$ ";
      }
      text += " $@@$\n";
    }
    return text;
  }

  void tellWrongLevel() {
    constexpr std::size_t kFirstRow = 3;
    outcome_.record.push_back("critical: Row: " + std::to_string(*wrong_ + kFirstRow) +
                              " Column:1\rError:Node Level should be Integer");
    outcome_.record.push_back("clipboard: " + levelCell(rows_[*wrong_]));
  }

  std::vector<Heading> rows_;
  std::vector<Rows> books_;
  /// The first row whose level is none.
  std::optional<std::size_t> wrong_;
  std::optional<std::size_t> endOfNames_;
  std::optional<std::size_t> endOfDocuments_;
  const std::set<std::string> standing_ = leadingSomewhere();
  WorkbookOutcome outcome_;
};

/// Writes down which books it is to build, and from what.
class NotingBuilder final : public ExcelBookBuilder {
 public:
  NotingBuilder(World& world, Texts& exports) : world_(world), exports_(exports) {}

  bool BuildExcelBook(const std::string& /*tocPath*/,
                      const std::string& /*cataloguePath*/,
                      std::int16_t /*vintType*/,
                      const std::string& /*productName*/,
                      const std::string& /*category*/) override {
    const ProcessState& state = world_.state();
    world_.user.note("build " + state.currentBookName + " (" + state.currentBookAcro + ")");
    exports_.push_back(world_.text(kExport));
    return true;
  }

 private:
  World& world_;
  Texts& exports_;
};

class RandomWorkbookTables : public ::testing::Test {
 protected:
  RandomWorkbookTables() {
    world_.disk.write("in/a.htm", "");
    world_.disk.write("in/sub/b.htm", "");
    world_.disk.write("outside.htm", "");
    for (std::size_t page = 0; page < kPages; page += 2) {
      world_.disk.write("in/sub/page" + std::to_string(page) + ".htm", "");
    }
  }

  /// A sheet of headings of which one in `chances` is out of order.
  std::vector<Heading> sheet(std::size_t headings, std::size_t chances) {
    std::vector<Heading> rows;
    for (std::size_t row = 0; row < headings; ++row) {
      rows.push_back(heading(rows.empty() ? 2 : 5, chances));
    }
    return rows;
  }

  WorkbookOutcome checked(const std::vector<Heading>& rows) {
    PaperSheet headings = headingSheet({});
    headings.insert(headings.end(), rows.begin(), rows.end());
    std::vector<BookRow> books;
    for (std::size_t number = 1; number <= rows.size(); ++number) {
      books.push_back({bookNumbered(number), acronymNumbered(number)});
    }
    world_.spreadsheets.put(kWorkbook, {headings, bookSheet(books)});
    world_.user.forget();
    world_.state().excelBookName.clear();
    WorkbookOutcome outcome;
    NotingBuilder builder(world_, outcome.exports);
    const ExcelRun run{.builder = builder, .keywordsPath = "", .category = ""};
    TocCheck check(world_.module);
    outcome.accepted = check.excel().mbValidateXLToc(kWorkbook, TocCheck::kExcel, &run);
    outcome.record = world_.user.record();
    // Its identifiers are read from all rows once more, and by other rules.
    std::erase_if(outcome.record,
                  [](const std::string& line) { return line.ends_with("UpdateQuorLinkIDFile"); });
    outcome.lastLevel = check.mintPrevLevel();
    outcome.bookName = world_.state().excelBookName;
    outcome.bookDocument = check.mstrBookFile();
    outcome.missingFiles = check.marrsMissingFiles();
    return outcome;
  }

  /// Checks so many sheets. Answers how many books were built of them.
  std::size_t compare(int sheets, std::size_t mostHeadings, std::size_t chances) {
    std::size_t built = 0;
    for (int round = 0; round < sheets && !HasFailure(); ++round) {
      const std::vector<Heading> rows = sheet(random_.below(mostHeadings), chances);
      const WorkbookOutcome outcome = checked(rows);
      EXPECT_EQ(outcome, PlainWorkbookCheck(rows).run()) << ::testing::PrintToString(rows);
      built += outcome.exports.size();
    }
    return built;
  }

 private:
  Heading heading(std::size_t chancesOfFirst, std::size_t chances) {
    const bool isWrong = random_.oneIn(chances);
    const bool opensBook = random_.oneIn(chancesOfFirst);
    Heading cells(kExportedColumns);
    cells[0] =
        isWrong ? wrongLevel() : random_.oneOf(opensBook ? firstLevels() : goodLevels()).first;
    cells[1] = note();
    cells[2] = random_.oneIn(chances) ? blank() : name();
    cells[3] = note();
    cells[4] = random_.oneIn(chances) ? blank() : document();
    cells[5] = note();
    return cells;
  }

  std::string wrongLevel() { return random_.oneIn(2) ? blank() : random_.oneOf(badLevels()).first; }
  std::string blank() { return random_.oneOf<std::string>({"", " ", "   "}); }
  std::string note() { return random_.oneIn(4) ? random_.oneOf<std::string>({"x", " ", "n"}) : ""; }
  std::string name() {
    return random_.oneOf<std::string>(
        {"Pump", " Valve ", "\xC3\x96l \xE2\x82\xAC", "a\"b", "#", "7"});
  }
  std::string document() {
    return random_.oneIn(2) ? pageName(random_.below(kPages))
                            : random_.oneOf<std::string>({"a.htm",
                                                          "A.HTM",
                                                          "sub\\.\\b.htm",
                                                          "sub/b.htm",
                                                          "sub\\..\\a.htm",
                                                          "sub",
                                                          "a.htm#mark",
                                                          "none\\a.htm",
                                                          "b.htm",
                                                          "\xC3\xA4.htm"});
  }

  World world_;
  RandomChoices random_{20260103};
};

TEST_F(RandomWorkbookTables, OfFewRowsAreCheckedAndExportedAsTheyStand) {
  EXPECT_GT(compare(400, 8, 25), 100U);
}

TEST_F(RandomWorkbookTables, OfManyRowsAreCheckedAndExportedAsTheyStand) {
  EXPECT_GT(compare(60, 120, 300), 100U);
}

}  // namespace
}  // namespace quorbind::testing
