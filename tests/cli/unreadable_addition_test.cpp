// An addition whose reading fails half-way: each system call that reads fails once. Nothing that
// should have been copied is missing after a run that ends with 0.

#include "tests/cli/interrupted_command.h"
#include "tests/support/excel_sheets.h"
#include "tests/support/workbook_bytes.h"

namespace quorbind::testing {
namespace {

const std::vector<Subcommand> kAdditions{
    kInterrupted.front(),
    {"page", {"add", "toc.htm", "--name", "Pumps", "--acro", "PMP"}},
    {"book_file", {"add", "server/Docs/Tools/Guide/Book_GDE.xml"}},
    {"workbook", {"add", "books.xlsx"}},
};

const std::vector<FailingSystemCall> kFailing{
    {"openat", {"EACCES", "EIO"}},
    {"read", {"EIO"}},
    {"getdents64", {"EIO"}},
};

bool isForReading(const SystemCall& call) {
  return call.text.find("O_CREAT") == std::string::npos;
}

class UnreadableAddition : public InterruptedCommand {
 protected:
  void writeInput() const override {
    writeBook();
    disk.write("Manual/alarms.htm", "<img src=\"pictures/a.png\">");
    disk.write("Manual/pictures/a.png", "picture");
    disk.write("toc.htm",
               "<HT><A HREF=\"Manual/cover.htm\">Pumps</A></HT>\n"
               "<K1><A HREF=\"Manual/alarms.htm\">Alarms</A><IBD><Alarm></IBD></K1>\n");
    disk.write("server/Docs/Tools/Quor_LinkID.xml",
               linksFile(link("X2", "GDE@QUOR@Guide", "Tools\\guide.htm", "GDE")));
    disk.write("server/Docs/Tools/Guide/alarms.htm", "<img src=\"a.png\">");
    disk.write("server/Docs/Tools/Guide/a.png", "picture");
    disk.write("server/Docs/Tools/Guide/Book_GDE.xml",
               replaceAll(bookFileOf("Guide", "GDE"),
                          "\t</Book>",
                          "\t\t<Book_Path>Tools\\Guide</Book_Path>\n\t</Book>"));
    disk.write("books.xlsx",
               workbookBytes(WorkbookKind::kXlsx,
                             {headingSheet({{"1", "The Lathe", "Manual\\cover.htm"},
                                            {"2", "Chuck", "alarms.htm"},
                                            {"1", "The Saw", "Manual\\cover.htm"},
                                            {"2", "Blade", "trends.htm"}}),
                              bookSheet({{"Lathe", "LTH", "turning;chuck", "Safety"},
                                         {"Saw", "SAW", "", "Safety;Maps"}})}));
  }

  /// Every file that there was is there, and every XML file is whole. What it holds depends on how
  /// far the addition came.
  void expectWholeFiles(const Tree& now) const {
    for (const auto& [name, content] : before()) {
      EXPECT_TRUE(now.contains(name)) << name;
    }
    for (const auto& [name, content] : now) {
      EXPECT_TRUE(!name.ends_with(".xml") || parses(name)) << name << "\n" << content;
    }
  }
};

TEST_P(UnreadableAddition, EndsWithoutSuccessWhereAnythingIsMissing) {
  const auto points = failurePointsIn(callsOfAWholeRun(), kFailing, isForReading);
  const Tree after = contents();
  ASSERT_NE(after, before());
  ASSERT_GT(points.size(), 20U);
  for (const FailurePoint& point : pointsToTry(points)) {
    SCOPED_TRACE(point.call.text + ": " + point.event);
    const Outcome outcome = runWith(point);
    const Tree now = contents();
    expectWholeFiles(now);
    expectNoFalseSuccess(outcome, now, after);
  }
  RecordProperty("points", static_cast<int>(pointsToTry(points).size()));
}

INSTANTIATE_TEST_SUITE_P(Of, UnreadableAddition, ::testing::ValuesIn(kAdditions), nameOf);

}  // namespace
}  // namespace quorbind::testing
