#include "cli/link_base.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/temporary_folder.h"

namespace quorbind::testing {
namespace {

namespace fs = std::filesystem;

TEST(LinkBase, IsRelativeWhereBothFoldersMayBeMovedTogether) {
  EXPECT_EQ(linkBase("/srv/pages", "/srv/docs"), "../docs");
  EXPECT_EQ(linkBase("/srv", "/srv/docs/new server"), "docs/new%20server");
  EXPECT_EQ(linkBase("/srv/docs/Docs/Plant", "/srv/docs"), "../..");
  EXPECT_EQ(linkBase("/srv/docs/", "/srv/docs"), ".");
}

TEST(LinkBase, IsTheWholeAddressWhereTheyShareNothing) {
  EXPECT_EQ(linkBase("/home/anna", "/srv/docs #1"), "file:///srv/docs%20%231");
  EXPECT_EQ(linkBase("/home/anna", "/"), "file://");
}

TEST(LinkBase, StartsAtTheWorkingFolderForARelativeName) {
  EXPECT_EQ(linkBase(".", "server"), "server");
  EXPECT_EQ(linkBase("pages/new", "server"), "../../server");
}

TEST(LinkBase, SpellsFoldersAsTheDiskDoes) {
  const TemporaryFolder disk;
  disk.makeFolder("server/Docs");
  disk.makeFolder("pages");
  disk.makeFolder("Pages");
  EXPECT_EQ(linkBase(disk.path(), disk.path() / "SERVER/docs"), "server/Docs");
  EXPECT_EQ(linkBase(disk.path() / "SERVER/DOCS", disk.path() / "server/Docs"), ".");
  EXPECT_EQ(linkBase(disk.path() / "pages", disk.path() / "Pages"), "../Pages");
}

TEST(LinkBase, GoesByTheNamesOfFoldersAndNotByWhatTheirLinksLeadTo) {
  const TemporaryFolder disk;
  disk.makeFolder("far/away/pages");
  disk.makeFolder("server");
  fs::create_directory_symlink(disk.path() / "far/away/pages", disk.path() / "pages");
  EXPECT_EQ(linkBase(disk.path() / "pages", disk.path() / "server"), "../server");
  EXPECT_EQ(linkBase(disk.path() / "pages/..", disk.path() / "server"), "../../server")
      << "behind the link, `..` is the folder that it leads to";
}

}  // namespace
}  // namespace quorbind::testing
