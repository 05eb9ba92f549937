#include "cli/document_finder.h"

#include <gtest/gtest.h>

#include "cli/paths.h"
#include "cli/wiring.h"
#include "tests/support/hostile_names.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {
namespace {

class Finder : public ::testing::Test {
 protected:
  void SetUp() override {
    disk_.write("docs/Plant/Manual/Alarms.htm", "");
    disk_.write("docs/Plant/Manual/alarms.HTM", "");
    disk_.write("docs/Plant/Manual/pump.htm", "");
    disk_.makeFolder("docs/Plant/Manual/folder.htm");
    disk_.write("secret.htm", "");
  }

  FoundDocument find(std::string_view name, std::string_view bookmark = "") {
    return finder_.find("Docs\\Plant\\MANUAL", name, bookmark);
  }
  void expectFile(std::string_view name, const std::string& file) {
    const FoundDocument found = find(name);
    EXPECT_EQ(found.state, FoundDocument::State::kThere) << name;
    EXPECT_EQ(found.file, file);
  }

 private:
  TemporaryFolder disk_;
  Wiring wiring_{"", processTerminal(false)};
  DocumentFinder finder_{wiring_.module.platform, componentFolder(disk_.path().string()) + "\\"};
};

TEST_F(Finder, SpellsADocumentAndItsFoldersAsTheDiskDoes) {
  expectFile("PUMP.htm", "docs\\Plant\\Manual\\pump.htm");
}

TEST_F(Finder, PrefersTheVeryNameAndElseTheFirst) {
  expectFile("alarms.HTM", "docs\\Plant\\Manual\\alarms.HTM");
  expectFile("Alarms.htm", "docs\\Plant\\Manual\\Alarms.htm");
  expectFile("ALARMS.HTM", "docs\\Plant\\Manual\\Alarms.htm");
}

TEST_F(Finder, TakesTheBookmarkFromItsFieldAndElseFromTheName) {
  EXPECT_EQ(find("pump.htm", "#top").bookmark, "top");
  EXPECT_EQ(find("pump.htm", "top").bookmark, "top");
  EXPECT_EQ(find("pump.htm#seal").bookmark, "seal");
  EXPECT_EQ(find("pump.htm#seal", "#top").bookmark, "top");
  EXPECT_EQ(find("pump.htm#seal").file, "docs\\Plant\\Manual\\pump.htm");
}

TEST_F(Finder, FindsNoneWhereNoneIsNamed) {
  EXPECT_EQ(find("").state, FoundDocument::State::kNone);
  EXPECT_EQ(find("#top").state, FoundDocument::State::kNone);
}

TEST_F(Finder, MissesWhatIsNotThereAndWhatIsNoFile) {
  EXPECT_TRUE(find("other.htm").isMissing());
  EXPECT_TRUE(find("folder.htm").isMissing());
  EXPECT_TRUE(find("none\\pump.htm").isMissing());
}

TEST_F(Finder, NeverLeavesTheFolder) {
  EXPECT_TRUE(find("..\\..\\..\\secret.htm").isMissing());
  for (const HostileName& name : hostileNames()) {
    EXPECT_NE(find(name.name).state, FoundDocument::State::kThere) << name.name;
  }
}

}  // namespace
}  // namespace quorbind::testing
