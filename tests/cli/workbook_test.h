#pragma once

#include <string>
#include <vector>

#include "tests/cli/command_test.h"
#include "tests/support/excel_sheets.h"
#include "tests/support/workbook_bytes.h"

namespace quorbind::testing {

/// A workbook as a table of contents, run with each kind of file. In what the command writes, the
/// workbook's name is `BOOKS`.
class WorkbookTest : public CommandTest, public ::testing::WithParamInterface<WorkbookKind> {
 protected:
  void SetUp() override { initLibrary(); }

  [[nodiscard]] static std::string name() { return "books" + extensionOf(GetParam()); }

  void write(const std::vector<PaperSheet>& sheets, const WorkbookTraits& traits = {}) const {
    disk.write(name(), workbookBytes(GetParam(), sheets, traits));
  }
  void write(const std::vector<HeadingRow>& headings, const std::vector<BookRow>& books) const {
    write({headingSheet(headings), bookSheet(books)});
  }
  /// Two books with their documents.
  void writeTwoBooks() const {
    write(kHeadings, kBooks);
    for (const char* document :
         {"Lathe/cover.htm", "Lathe/chuck.htm", "Saw/cover.htm", "Saw/blade.htm"}) {
      disk.write(document, "<p>text</p>");
    }
  }

  [[nodiscard]] Outcome run(const Words& words) const {
    Outcome outcome = quorbind(words);
    for (std::string* text : {&outcome.out, &outcome.err}) {
      *text = replaceAll(*text, name(), "BOOKS");
    }
    return outcome;
  }
  [[nodiscard]] static Words addWordsOf(const Words& more) {
    return joined({"add", name(), "--server", "server", "--library", "Plant"}, more);
  }
  [[nodiscard]] Outcome addBooks(const Words& more = {}) const { return run(addWordsOf(more)); }

  /// Adding and checking are refused with these boxes and places, and nothing changes anywhere.
  void expectRefused(int status, const std::string& told) const {
    expectAdditionRefused(status, told, "nothing was added");
    const Tree before = disk.contents();
    const Outcome checked = run({"check", name()});
    EXPECT_EQ(checked.status, status);
    EXPECT_EQ(checked.err, told + "quorbind: BOOKS: not accepted\n");
    EXPECT_EQ(disk.contents(), before);
  }
  /// Adding alone is refused.
  void expectAdditionRefused(int status,
                             const std::string& told,
                             const std::string& note,
                             const Words& more = {}) const {
    const Tree before = disk.contents();
    const Outcome outcome = addBooks(more);
    EXPECT_EQ(outcome.status, status);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, told + "quorbind: BOOKS: " + note + "\n");
    EXPECT_EQ(disk.contents(), before);
  }

  inline static const std::vector<HeadingRow> kHeadings{
      {"1", "The Lathe", "Lathe\\cover.htm"},
      {"2", "Chuck", "chuck.htm", "#jaws", "Jaws"},
      {"1", "The Saw", "Saw\\cover.htm"},
      {"2", "Blade", "blade.htm"}};
  inline static const std::vector<BookRow> kBooks{{"Lathe", "LTH", "turning;chuck", "Machines"},
                                                  {"Saw", "SAW", "", "Machines,Wood"}};
};

inline std::string kindName(const ::testing::TestParamInfo<WorkbookKind>& info) {
  return extensionOf(info.param).substr(1);
}

}  // namespace quorbind::testing
