#include "cli/link_base.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/support/temporary_folder.h"

namespace quorbind::testing {
namespace {

namespace fs = std::filesystem;

/// The link to a file `a.htm` of the target.
std::string linkFrom(const std::string& from, const std::string& target) {
  return LinkBase(from, target).to("a.htm");
}

TEST(LinkBase, IsRelativeWhereBothFoldersMayBeMovedTogether) {
  EXPECT_EQ(linkFrom("/srv/pages", "/srv/docs"), "../docs/a.htm");
  EXPECT_EQ(linkFrom("/srv", "/srv/docs/new server"), "docs/new%20server/a.htm");
  EXPECT_EQ(linkFrom("/srv/docs/", "/srv/docs"), "./a.htm");
  EXPECT_EQ(LinkBase("/srv", "/srv/docs").to("Docs\\new plant\\a.htm"),
            "docs/Docs/new%20plant/a.htm");
}

TEST(LinkBase, GoesNoFurtherUpThanAPageBelowTheTargetHasTo) {
  const LinkBase plant("/srv/docs/Docs/new plant", "/srv/docs");
  EXPECT_EQ(plant.to("Docs\\new plant\\Manual\\a b.htm"), "Manual/a%20b.htm");
  EXPECT_EQ(plant.to("Docs\\new plant\\a.htm"), "a.htm");
  EXPECT_EQ(plant.to("Docs\\new plant 2\\a.htm"), "../new%20plant%202/a.htm");
  EXPECT_EQ(plant.to("Docs\\a.htm"), "../a.htm");
  EXPECT_EQ(plant.to("new plant\\a.htm"), "../../new%20plant/a.htm");
}

TEST(LinkBase, IsTheWholeAddressWhereTheyShareNothing) {
  EXPECT_EQ(linkFrom("/home/anna", "/srv/docs #1"), "file:///srv/docs%20%231/a.htm");
  EXPECT_EQ(linkFrom("/home/anna", "/"), "file:///a.htm");
}

TEST(LinkBase, StartsAtTheWorkingFolderForARelativeName) {
  EXPECT_EQ(linkFrom(".", "server"), "server/a.htm");
  EXPECT_EQ(linkFrom("pages/new", "server"), "../../server/a.htm");
  EXPECT_EQ(linkFrom("server/Docs", "server"), "../a.htm");
}

TEST(LinkBase, SpellsFoldersAsTheDiskDoes) {
  const TemporaryFolder disk;
  disk.makeFolder("server/Docs");
  disk.makeFolder("pages");
  disk.makeFolder("Pages");
  EXPECT_EQ(linkFrom(disk.path(), disk.path() / "SERVER/docs"), "server/Docs/a.htm");
  EXPECT_EQ(linkFrom(disk.path() / "SERVER/DOCS", disk.path() / "server/Docs"), "./a.htm");
  EXPECT_EQ(LinkBase(disk.path() / "SERVER/DOCS", disk.path() / "server").to("Docs\\a.htm"),
            "a.htm");
  EXPECT_EQ(linkFrom(disk.path() / "pages", disk.path() / "Pages"), "../Pages/a.htm");
}

TEST(LinkBase, GoesByTheNamesOfFoldersAndNotByWhatTheirLinksLeadTo) {
  const TemporaryFolder disk;
  disk.makeFolder("far/away/pages");
  disk.makeFolder("server");
  fs::create_directory_symlink(disk.path() / "far/away/pages", disk.path() / "pages");
  EXPECT_EQ(linkFrom(disk.path() / "pages", disk.path() / "server"), "../server/a.htm");
  EXPECT_EQ(linkFrom(disk.path() / "pages/..", disk.path() / "server"), "../../server/a.htm")
      << "behind the link, `..` is the folder that it leads to";
}

}  // namespace
}  // namespace quorbind::testing
