#include "toc/excel_links.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "platform/text.h"
#include "tests/support/excel_sheets.h"
#include "tests/support/random_choices.h"
#include "tests/support/world.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr std::string_view kPath = "C:\\book.xls";
constexpr std::string_view kLinkFile = "Docs/Prod/Quor_LinkID.xml";

/// The server is the drive; its library `Prod` has a book with a folder.
class ExcelLinks : public ::testing::Test {
 protected:
  ExcelLinks() {
    world_.state().currentProductName = "Prod";
    world_.disk.write("Docs/Prod/Quor_TOC.xml",
                      "<Quor_Master><Quor_Books><Book><Book_Name>One</Book_Name>"
                      "<Book_Acro>ONE</Book_Acro><Book_Folder>Manual</Book_Folder></Book>"
                      "</Quor_Books></Quor_Master>");
  }

  void update(const std::vector<HeadingRow>& headings, const std::vector<BookRow>& books) {
    world_.spreadsheets.put(kPath, {headingSheet(headings), bookSheet(books)});
    UpdateQuorLinkIDFile(
        world_.platform(), world_.state(), world_.spreadsheets, std::string(kPath));
  }
  /// The last heading of each level above a row, each behind its mark; the level 0 has none.
  static std::string chainAbove(const std::vector<HeadingRow>& rows, std::size_t row) {
    std::string chain;
    for (int level = 0; level < std::stoi(rows[row].level); ++level) {
      std::string name;
      for (std::size_t before = 0; before < row; ++before) {
        name = rows[before].level == std::to_string(level) ? rows[before].name : name;
      }
      chain += "@quor@" + name;
    }
    return chain;
  }

  /// The identifiers in the file, from its list on.
  [[nodiscard]] std::string links() const {
    const std::string text = world_.text(kLinkFile);
    return text.substr(text.find("\t<IBD>"));
  }

  World world_;
};

TEST_F(ExcelLinks, LeadFromTheAcronymThroughTheHeadingsAboveToTheDocument) {
  update({{"1", "First", "cover.htm"},
          {"2", "Start", "start.htm"},
          {"3", "Cold", "start.htm", "#cold", "Cold1"},
          {"1", "Second", "two.htm", "", "Two"}},
         {{"One", " ONE "}, {"Two", "TWO"}});
  EXPECT_THAT(world_.user.record(), IsEmpty());
  EXPECT_EQ(links(),
            "\t<IBD>\n"
            "\t\t<ID>\n"
            "\t\t\t<LinkID>Cold1</LinkID>\n"
            "\t\t\t<FullLink> ONE @quor@@quor@First@quor@Start</FullLink>\n"
            "\t\t\t<LinkIDSourceFile>Prod\\Manual\\start.htm#cold</LinkIDSourceFile>\n"
            "\t\t\t<BookAcro>ONE</BookAcro>\n"
            "\t\t</ID>\n"
            "\t\t<ID>\n"
            "\t\t\t<LinkID>Two</LinkID>\n"
            "\t\t\t<FullLink>TWO@quor@</FullLink>\n"
            "\t\t\t<LinkIDSourceFile>Prod\\TWO\\two.htm</LinkIDSourceFile>\n"
            "\t\t\t<BookAcro>TWO</BookAcro>\n"
            "\t\t</ID>\n"
            "\t</IBD>\n"
            "</LINKS>\n");
}

TEST_F(ExcelLinks, OfRandomRowsLeadWhereTheRowsSay) {
  RandomChoices random(20260107);
  const std::vector<std::pair<std::string, std::string>> books{
      {"ONE", "Manual"}, {"TWO", "TWO"}, {" ONE ", "Manual"}};
  for (int round = 0; round < 40 && !HasFailure(); ++round) {
    world_.disk.remove("Docs/Prod/Quor_LinkID.xml");
    std::vector<HeadingRow> rows;
    std::vector<BookRow> list;
    std::string expected = "\t<IBD>\n";
    std::size_t level = 0;
    for (std::size_t row = 0; row < 30; ++row) {
      level = row == 0 ? 1 : 1 + random.below(std::min<std::size_t>(level + 1, 5));
      if (level == 1) {
        list.push_back({"Book", random.oneOf(books).first});
      }
      const bool hasIdentifier = row == 0 || random.oneIn(3);
      rows.push_back({std::to_string(level),
                      random.oneOf<std::string>({"Start", "Cold", "\xC3\x84"}),
                      random.oneOf<std::string>({"a.htm", "sub\\b.htm", ""}),
                      random.oneOf<std::string>({"", "#mark"}),
                      hasIdentifier ? "ID" + std::to_string(row) : ""});
      if (!hasIdentifier) {
        continue;
      }
      const std::string& acronymCell = list.back()[1];
      const auto book = std::find_if(books.begin(), books.end(), [&](const auto& candidate) {
        return candidate.first == acronymCell;
      });
      expected += "\t\t<ID>\n\t\t\t<LinkID>" + rows.back().bookLink +
                  "</LinkID>\n\t\t\t<FullLink>" + acronymCell + chainAbove(rows, row) +
                  "</FullLink>\n\t\t\t<LinkIDSourceFile>Prod\\" + book->second + "\\" +
                  rows.back().file + rows.back().subLink + "</LinkIDSourceFile>\n\t\t\t<BookAcro>" +
                  std::string(trimBlanks(acronymCell)) + "</BookAcro>\n\t\t</ID>\n";
    }
    update(rows, list);
    EXPECT_THAT(world_.user.record(), IsEmpty());
    EXPECT_EQ(links(), expected + "\t</IBD>\n</LINKS>\n");
  }
}

TEST_F(ExcelLinks, AWorkbookWithoutIdentifiersMakesNoFileAndNeedsNoListOfBooks) {
  world_.spreadsheets.put(kPath, {headingSheet({{"1", "First", "a.htm"}})});
  UpdateQuorLinkIDFile(world_.platform(), world_.state(), world_.spreadsheets, std::string(kPath));
  EXPECT_THAT(world_.user.record(), IsEmpty());
  EXPECT_FALSE(world_.disk.has(kLinkFile));
}

TEST_F(ExcelLinks, AnIdentifierThatAProductHasIsToldAndTheNextFollows) {
  update({{"1", "First", "a.htm", "", "A"},
          {"2", "Again", "b.htm", "", "A"},
          {"2", "Other", "c.htm", "", "B"}},
         {{"One", "ONE"}});
  EXPECT_THAT(world_.user.record(), ElementsAre("critical: A - Link ID already exist. "));
  EXPECT_THAT(links(), HasSubstr("<LinkID>B</LinkID>"));
}

TEST_F(ExcelLinks, ALevelThatJumpsByTwoEndsTheWalkBeforeAnythingIsRecorded) {
  update({{"1", "First", "a.htm", "", "A"}, {"3", "Deep", "b.htm", "", "B"}}, {{"One", "ONE"}});
  EXPECT_THAT(world_.user.record(),
              ElementsAre("critical: Error(9):Subscript out of range\r"
                          "Quor_Developer-Quor_Book::UpdateQuorLinkIDFile"));
  EXPECT_FALSE(world_.disk.has(kLinkFile));
}

TEST_F(ExcelLinks, ALevelThatIsNoNumberIsReported) {
  update({{"x", "First", "a.htm", "", "A"}}, {{"One", "ONE"}});
  EXPECT_THAT(world_.user.record(),
              ElementsAre("critical: Error(13):Type mismatch\r"
                          "Quor_Developer-Quor_Book::UpdateQuorLinkIDFile"));
}

TEST_F(ExcelLinks, ANegativeLevelIsReported) {
  update({{"-1", "First", "a.htm", "", "A"}}, {{"One", "ONE"}});
  EXPECT_THAT(world_.user.record(),
              ElementsAre("critical: Error(9):Subscript out of range\r"
                          "Quor_Developer-Quor_Book::UpdateQuorLinkIDFile"));
}

TEST_F(ExcelLinks, IdentifiersWithoutAListOfBooksAreReported) {
  world_.spreadsheets.put(kPath, {headingSheet({{"1", "First", "a.htm", "", "A"}})});
  UpdateQuorLinkIDFile(world_.platform(), world_.state(), world_.spreadsheets, std::string(kPath));
  EXPECT_THAT(world_.user.record(),
              ElementsAre("critical: Error(9):Subscript out of range\r"
                          "Quor_Developer-Quor_Book::UpdateQuorLinkIDFile"));
}

TEST_F(ExcelLinks, AWorkbookThatCanNotBeOpenedIsReported) {
  UpdateQuorLinkIDFile(world_.platform(), world_.state(), world_.spreadsheets, "C:\\none.xls");
  EXPECT_THAT(world_.user.record(),
              ElementsAre("critical: Error(432):File name or class name not found during "
                          "Automation operation\r"
                          "Quor_Developer-Quor_Book::UpdateQuorLinkIDFile"));
}

TEST_F(ExcelLinks, TheFileIsReadBehindMoreRowsThanABookMayHave) {
  std::vector<HeadingRow> rows(40'000, {"2", "n", "f"});
  rows.front().level = "1";
  rows.back().bookLink = "Last";
  update(rows, {{"One", "ONE"}});
  EXPECT_THAT(world_.user.record(), IsEmpty());
  EXPECT_THAT(links(), HasSubstr("<LinkID>Last</LinkID>"));
}

}  // namespace
}  // namespace quorbind::testing
