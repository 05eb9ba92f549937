#include "sidefiles/link_identifiers.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/random_choices.h"
#include "tests/support/watched_xml.h"
#include "tests/unit/sidefiles/link_text.h"
#include "tests/unit/sidefiles/side_file_test.h"
#include "toc/text_form.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class LinksOfBook : public SideFileTest {
 protected:
  LinksOfBook() {
    state().currentProductName = "Prod";
    world_.disk.write("Docs/Quor_Selection.xml",
                      "<Quor_Selection_List><Quors>"
                      "<Quor><Quor_Name>Prod</Quor_Name></Quor>"
                      "<Quor><Quor_Name>Other</Quor_Name></Quor></Quors></Quor_Selection_List>");
    world_.disk.write("Docs/Prod/Quor_LinkID.xml", linksWith(""));
  }

  static std::string line(std::int32_t level, std::string_view name, std::string_view bookLink) {
    return text_form::lineOf({.level = level, .name = name, .bookLinkValue = bookLink}) + "\r\n";
  }
  void generate(std::string_view lines) {
    world_.disk.write("toc_Temp.txt",
                      utf16File("\"Node Level\" \"Node Name\"\r\n\r\n" + std::string(lines)));
    GenerateBookLinkID(platform(), state(), "BK", "C:\\toc_Temp.txt");
  }
  [[nodiscard]] std::string links() const { return textOf("Docs/Prod/Quor_LinkID.xml"); }

  static constexpr const char* kNone = "#NO_BOOKLINK#";
};

TEST_F(LinksOfBook, LeadThroughTheHeadingsDownToTheirOwn) {
  generate(line(1, "Intro", kNone) + line(2, "Setup", kNone) + line(3, "Net", "N1@@@net\\a.htm"));
  EXPECT_EQ(links(),
            linksWith(link("N1", "BK@QUOR@Intro@QUOR@Setup@QUOR@Net", "Prod\\net\\a.htm", "BK")));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(LinksOfBook, LeaveOutHeadingsWithoutAName) {
  generate(line(1, "  ", kNone) + line(2, " Setup ", kNone) + line(3, "", "N1@@@ a.htm "));
  EXPECT_EQ(links(), linksWith(link("N1", "BK@QUOR@Setup", "Prod\\a.htm", "BK")));
}

TEST_F(LinksOfBook, FollowTheHeadingsUpAndDownAgain) {
  generate(line(1, "A", kNone) + line(2, "B", "N1@@@b") + line(3, "C", "N2@@@c") +
           line(2, "D", "N3@@@d") + line(3, "E", " N4 @@@e"));
  EXPECT_EQ(links(),
            linksWith(link("N1", "BK@QUOR@A@QUOR@B", "Prod\\b", "BK") +
                      link("N2", "BK@QUOR@A@QUOR@B@QUOR@C", "Prod\\c", "BK") +
                      link("N3", "BK@QUOR@A@QUOR@D", "Prod\\d", "BK") +
                      link("N4", "BK@QUOR@A@QUOR@D@QUOR@E", "Prod\\e", "BK")));
}

TEST_F(LinksOfBook, AreMadeIntoAFileOfTheProductThatHasNone) {
  std::filesystem::remove(world_.disk.path() / "Docs/Prod/Quor_LinkID.xml");
  generate(line(1, "A", "N1@@@a") + line(2, "B", "N2@@@b") + line(2, "B", "N1@@@b"));
  EXPECT_EQ(world_.text("Docs/Prod/Quor_LinkID.xml"),
            "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"
            "<!--Inter Book Linking data file-->\n" +
                linksWith(link("N1", "BK@QUOR@A", "Prod\\a", "BK") +
                          link("N2", "BK@QUOR@A@QUOR@B", "Prod\\b", "BK")));
  EXPECT_THAT(boxes(), ElementsAre("critical: N1 - Link ID already exist. "));
}

TEST_F(LinksOfBook, PassOverEmptyLinesAndThoseWithoutMarks) {
  generate("\r\nwords\r\n \r\n" + line(1, "A", "N1@@@a"));
  EXPECT_EQ(links(), linksWith(link("N1", "BK@QUOR@A", "Prod\\a", "BK")));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(LinksOfBook, TellOfADuplicateAndGoOnWithTheNextLine) {
  generate(line(1, "A", "N1@@@a") + line(2, "B", "N1@@@b") + line(2, "C", "N2@@@c"));
  EXPECT_EQ(links(),
            linksWith(link("N1", "BK@QUOR@A", "Prod\\a", "BK") +
                      link("N2", "BK@QUOR@A@QUOR@C", "Prod\\c", "BK")));
  EXPECT_THAT(boxes(), ElementsAre("critical: N1 - Link ID already exist. "));
}

TEST_F(LinksOfBook, AreNotRecordedWhenAnotherProductHasThem) {
  world_.disk.write("Docs/Other/Quor_LinkID.xml", linksWith(link("N1", "F", "s", "X")));
  generate(line(1, "A", "N1@@@a") + line(2, "B", "N2@@@b"));
  EXPECT_EQ(links(), linksWith(link("N2", "BK@QUOR@A@QUOR@B", "Prod\\b", "BK")));
  EXPECT_THAT(boxes(), ElementsAre("critical: N1 - Link ID already exist. "));
}

TEST_F(LinksOfBook, AreNotRecordedWhenAnotherBookOfTheProductHasThem) {
  const std::string standing =
      link("N1", "OLD@QUOR@A", "Prod\\old.htm", "OLD") + link(" N2 ", "F", "Prod\\o.htm", "OLD");
  world_.disk.write("Docs/Prod/Quor_LinkID.xml", linksWith(standing));
  generate(line(1, "A", "N1@@@a") + line(2, "B", "N2@@@b") + line(2, "C", "N3@@@c"));
  EXPECT_EQ(links(), linksWith(standing + link("N3", "BK@QUOR@A@QUOR@C", "Prod\\c", "BK")));
  EXPECT_THAT(boxes(),
              ElementsAre("critical: N1 - Link ID already exist. ",
                          "critical: N2 - Link ID already exist. "));
}

TEST_F(LinksOfBook, AreToldOnceWhenTheBookIsAddedAgain) {
  const std::string book = line(1, "A", "N1@@@a") + line(2, "B", "N2@@@b");
  generate(book);
  const std::string before = links();
  generate(book);
  EXPECT_EQ(links(), before);
  EXPECT_THAT(boxes(),
              ElementsAre("critical: N1 - Link ID already exist. ",
                          "critical: N2 - Link ID already exist. "));
}

TEST_F(LinksOfBook, EndAtALevelThatJumpsByTwoAndKeepWhatCameBefore) {
  generate(line(1, "A", "N1@@@a") + line(3, "B", "N2@@@b") + line(2, "C", "N3@@@c"));
  EXPECT_EQ(links(), linksWith(link("N1", "BK@QUOR@A", "Prod\\a", "BK")));
  EXPECT_THAT(boxes(),
              ElementsAre("critical: Error(9): Subscript out of range\r"
                          "Quorbind: Quor_Book::GenerateBookLinkID"));
}

TEST_F(LinksOfBook, EndAtALineWithTwoToElevenPieces) {
  for (const char* bad : {"$@@$", "$@@$1$@@$ $@@$A$@@$ $@@$f", "$@@$1$@@$a$@@$b$@@$c$@@$d$@@$e"}) {
    world_.user.forget();
    world_.disk.write("Docs/Prod/Quor_LinkID.xml", linksWith(""));
    generate(line(1, "A", "N1@@@a") + bad + "\r\n" + line(2, "C", "N3@@@c"));
    EXPECT_EQ(links(), linksWith(link("N1", "BK@QUOR@A", "Prod\\a", "BK"))) << bad;
    EXPECT_EQ(boxes().size(), 1U) << bad;
  }
}

TEST_F(LinksOfBook, EndAtALevelThatIsNoNumberOrNone) {
  for (const auto& [level, error] : {std::pair{"one", "13): Type mismatch"},
                                     {"40000", "6): Overflow"},
                                     {"-1", "9): Subscript out of range"}}) {
    world_.user.forget();
    generate(std::string("$@@$") + level + "$@@$ $@@$A$@@$ $@@$$@@$ $@@$$@@$ $@@$$@@$ $@@$x$@@$");
    EXPECT_THAT(boxes(),
                ElementsAre(std::string("critical: Error(") + error +
                            "\rQuorbind: Quor_Book::GenerateBookLinkID"));
  }
}

TEST_F(LinksOfBook, EndAtABookLinkWithoutASeparator) {
  generate(line(1, "A", "N1"));
  EXPECT_EQ(links(), linksWith(""));
  EXPECT_THAT(boxes(),
              ElementsAre("critical: Error(9): Subscript out of range\r"
                          "Quorbind: Quor_Book::GenerateBookLinkID"));
}

TEST_F(LinksOfBook, ReportAnExportThatIsNotThere) {
  GenerateBookLinkID(platform(), state(), "BK", "C:\\none.txt");
  EXPECT_THAT(boxes(),
              ElementsAre("critical: Error(53): File not found\r"
                          "Quorbind: Quor_Book::GenerateBookLinkID"));
}

TEST_F(LinksOfBook, AskForNoServerWithoutIdentifiers) {
  world_.toolset.breakDown();
  generate(line(1, "A", kNone) + line(2, "B", " #NO_BOOKLINK# "));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(LinksOfBook, EndWithoutAServer) {
  world_.toolset.breakDown();
  generate(line(1, "A", "N1@@@a") + line(2, "B", "N2@@@b"));
  EXPECT_THAT(boxes(),
              ElementsAre("critical: Error(429): ActiveX component can't create object\r"
                          "Quorbind: Quor_Book::CheckDuplicateLinkID",
                          "critical: Error(429): ActiveX component can't create object\r"
                          "Quorbind: Quor_Book::GenerateBookLinkID"));
}

TEST_F(LinksOfBook, AreRecordedAndReportedWithoutTheListOfProducts) {
  world_.toolset.breakProductServices();
  generate(line(1, "A", "N1@@@a") + line(2, "B", "N1@@@b") + line(2, "C", "N2@@@c"));
  EXPECT_EQ(links(),
            linksWith(link("N1", "BK@QUOR@A", "Prod\\a", "BK") +
                      link("N2", "BK@QUOR@A@QUOR@C", "Prod\\c", "BK")));
  const std::string unknown =
      "critical: Error(429): ActiveX component can't create object\r"
      "Quorbind: Quor_Book::CheckDuplicateLinkID";
  EXPECT_THAT(boxes(),
              ElementsAre(unknown, unknown, "critical: N1 - Link ID already exist. ", unknown));
}

TEST_F(LinksOfBook, ReportTextRulesThatCanNotBeHadForEachIdentifier) {
  world_.toolset.breakTextRules();
  generate(line(1, "A", "N1@@@a") + line(2, "B", "N2@@@b"));
  EXPECT_EQ(links(), linksWith(""));
  const std::string box =
      "critical: Error(429):ActiveX component can't create object\r"
      "Quorbind-Quor_Book::AddToLinkIDFile";
  EXPECT_THAT(boxes(), ElementsAre(box, box));
}

TEST_F(LinksOfBook, AreReadOnceFromEachProductAndWrittenOnce) {
  world_.disk.write("Docs/Other/Quor_LinkID.xml", linksWith(link("T1", "F", "s", "X")));
  std::string lines;
  for (int i = 0; i < 100; ++i) {
    lines += line(1, "A", "N" + std::to_string(i) + "@@@a");
  }
  world_.disk.write("toc_Temp.txt", lines);
  WatchedXml xml(platform().xml, platform().files, "C:\\scratch.xml");
  const Platform& p = platform();
  GenerateBookLinkID(
      {p.files, xml, p.ui, p.toolset, p.locale, p.spreadsheets}, state(), "BK", "C:\\toc_Temp.txt");
  EXPECT_EQ(xml.loadsOf("C:\\Docs\\Prod\\Quor_LinkID.xml"), 1);
  EXPECT_EQ(xml.loadsOf("C:\\Docs\\Other\\Quor_LinkID.xml"), 1);
  EXPECT_EQ(xml.savesOf("C:\\Docs\\Prod\\Quor_LinkID.xml"), 1);
}

class MergeLinks : public SideFileTest {
 protected:
  MergeLinks() {
    state().currentProductName = "Prod";
    world_.disk.write("Docs/Old/Quor_LinkID.xml", linksWith(link("N1", "F", "s", "X")));
    world_.disk.write("Docs/Prod/Quor_LinkID.xml", linksWith(link("N2", "G", "t", "Y")));
  }
  void merge(const std::string& serverFolder, const std::string& bookFolder) {
    AddLinkIDInfo(platform(), state(), serverFolder, bookFolder);
  }
  [[nodiscard]] std::string links() const { return textOf("Docs/Prod/Quor_LinkID.xml"); }

  const std::string unmerged_ = linksWith(link("N2", "G", "t", "Y"));
  const std::string merged_ = linksWith(link("N2", "G", "t", "Y") + link("N1", "F", "s", "X"));
};

TEST_F(MergeLinks, BringsThoseOfTheProductBehindDocsIntoTheCurrentOnes) {
  merge("C:\\Docs\\", "C:\\Docs\\Old\\Manual");
  EXPECT_EQ(links(), merged_);
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(MergeLinks, TakesTheFirstDocsExactlyAsItIsSpelled) {
  merge("C:\\Docs\\", "C:\\docs\\Old\\Manual");
  EXPECT_EQ(links(), unmerged_);
  merge("C:\\Docs\\", "D:\\Docs\\Old\\Docs\\Prod");
  EXPECT_EQ(links(), merged_);
}

TEST_F(MergeLinks, TakesNoDocsAtTheEnd) {
  merge("C:\\Docs\\", "C:\\Old\\Docs");
  EXPECT_EQ(links(), unmerged_);
}

TEST_F(MergeLinks, LooksDirectlyInTheServerFolderWithoutDocs) {
  merge("C:\\Docs\\", "C:\\Books\\Manual");
  EXPECT_EQ(links(), unmerged_);
  world_.disk.write("Docs/Quor_LinkID.xml", linksWith(link("N1", "F", "s", "X")));
  merge("C:\\Docs\\", "C:\\Books\\Manual");
  EXPECT_EQ(links(), merged_);
}

TEST_F(MergeLinks, AddsNoDocsToTheServerFolder) {
  merge("C:\\", "C:\\Docs\\Old\\Manual");
  EXPECT_EQ(links(), unmerged_);
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(MergeLinks, OfRandomFilesLeavesWhatTwoListsBecome) {
  RandomChoices random(20260106);
  const auto someLinks = [&random] {
    std::vector<std::pair<std::string, std::string>> links;
    for (std::size_t count = random.below(12); count > 0; --count) {
      const auto identifier =
          random.oneOf<std::string>({"N1", "n1", "N2", " N2", "\xC3\x84", "N3"});
      const auto target = random.oneOf<std::string>({"A@QUOR@B", "\xE2\x82\xAC", "a b"});
      links.emplace_back(identifier, link(identifier, target, "s", "X"));
    }
    return links;
  };
  for (int round = 0; round < 150; ++round) {
    auto merged = someLinks();
    const auto others = someLinks();
    const auto fileOf = [](const auto& links) {
      std::string entries;
      for (const auto& [identifier, entry] : links) {
        entries += entry;
      }
      return linksWith(entries);
    };
    world_.disk.write("Docs/Prod/Quor_LinkID.xml", fileOf(merged));
    world_.disk.write("Docs/Old/Quor_LinkID.xml", fileOf(others));
    merge("C:\\Docs\\", "C:\\Docs\\Old\\Manual");

    for (const auto& other : others) {
      if (std::none_of(merged.begin(), merged.end(), [&](const auto& known) {
            return known.first == other.first;
          })) {
        merged.push_back(other);
      }
    }
    EXPECT_EQ(links(), fileOf(merged));
  }
}

TEST_F(MergeLinks, ReportsAMergeThatFailsInABoxWithoutAnIcon) {
  world_.toolset.breakDown();
  merge("C:\\Docs\\", "C:\\Docs\\Old\\Manual");
  EXPECT_EQ(links(), unmerged_);
  EXPECT_THAT(boxes(),
              ElementsAre("message: Error(429): ActiveX component can't create object\r"
                          "Quorbind: Quor_Book::AddLinkIDInfo"));
  EXPECT_EQ(world_.user.messages()[0].title, std::nullopt);
}

}  // namespace
}  // namespace quorbind::testing
