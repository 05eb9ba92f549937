#include "cli/library_documents.h"

#include <gtest/gtest.h>

#include "cli/wiring.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {
namespace {

using State = FoundDocument::State;

/// Alarms (ALM), whose folder is `Manual`, and what its link identifiers lead to.
class LinkTarget : public ::testing::Test {
 protected:
  void SetUp() override {
    disk_.write("Docs/Plant/Manual/alarms.htm", "");
    disk_.write("Docs/Plant/Manual/pages/lamps.htm", "");
    disk_.write("Docs/Plant/Other/other.htm", "");
    disk_.write("secret.htm", "");
  }

  FoundDocument find(const std::string& source, const std::string& folder = "Manual") {
    const ListedBook book{
        .name = "Alarms", .acronym = "ALM", .folder = folder, .bookFile = "Book_ALM.xml"};
    const ListedLink link{
        .identifier = "X1", .fullLink = "ALM", .sourceFile = source, .acronym = "ALM"};
    return findLinkTarget(LibraryPaths(disk_.path().string(), "Plant"), book, link, finder_);
  }
  void expectFile(const std::string& source, const std::string& file) {
    const FoundDocument found = find(source);
    EXPECT_EQ(found.state, State::kThere) << source;
    EXPECT_EQ(found.file, file) << source;
  }

 private:
  TemporaryFolder disk_;
  Wiring wiring_{"", processTerminal(false)};
  DocumentFinder finder_{wiring_.module.platform, componentFolder(disk_.path().string()) + "\\"};
};

TEST_F(LinkTarget, LiesBelowTheLibrarysFolderWhereTheSourceSays) {
  expectFile("Plant\\Manual\\ALARMS.htm", "Docs\\Plant\\Manual\\alarms.htm");
  expectFile("Plant\\Other/other.htm", "Docs\\Plant\\Other\\other.htm");
}

TEST_F(LinkTarget, LiesInTheBooksFolderWhereTheSourceSaysOrByItsLastName) {
  expectFile("Plant\\pages\\lamps.htm", "Docs\\Plant\\Manual\\pages\\lamps.htm");
  expectFile("Plant\\deeper\\down\\alarms.htm", "Docs\\Plant\\Manual\\alarms.htm");
  expectFile("Plant\\deeper/down/alarms.htm", "Docs\\Plant\\Manual\\alarms.htm");
  expectFile("Plant\\..\\..\\in\\alarms.htm", "Docs\\Plant\\Manual\\alarms.htm");
  expectFile("alarms.htm", "Docs\\Plant\\Manual\\alarms.htm");
}

TEST_F(LinkTarget, HasTheBookmarkOfItsSource) {
  EXPECT_EQ(find("Plant\\Manual\\alarms.htm#reset").bookmark, "reset");
  EXPECT_EQ(find("Plant\\down\\alarms.htm#a\\b").bookmark, "a\\b");
}

TEST_F(LinkTarget, IsNotNamedBehindTheBookmarksSign) {
  EXPECT_TRUE(find("nowhere.htm#x\\alarms.htm").isMissing());
}

TEST_F(LinkTarget, IsTheBookAsAWholeForASourceInFullAndForNone) {
  for (const char* source : {"Plant\\C:\\in\\toc.htm",
                             "Plant\\C:/in/toc.htm",
                             "Plant\\\\home\\anna\\toc.htm",
                             "Plant\\/home/anna/toc.htm",
                             "Plant\\\\\\server\\share\\toc.htm",
                             "Plant\\",
                             ""}) {
    EXPECT_EQ(find(source).state, State::kNone) << source;
  }
}

TEST_F(LinkTarget, IsMissingWhereNothingStandsAndOutsideOfTheLibrary) {
  for (const char* source : {"Plant\\Manual\\gone.htm",
                             "Plant\\..\\..\\secret.htm",
                             "Plant\\http://example.org/a.htm",
                             "Plant\\Manual"}) {
    EXPECT_EQ(find(source).state, State::kMissing) << source;
  }
}

TEST_F(LinkTarget, OfABookThatLeadsOutOfTheLibraryLiesBelowTheLibrarysFolder) {
  EXPECT_EQ(find("Plant\\Manual\\alarms.htm", "..\\..").state, State::kThere);
  EXPECT_EQ(find("Plant\\secret.htm", "..\\..").state, State::kMissing);
}

}  // namespace
}  // namespace quorbind::testing
