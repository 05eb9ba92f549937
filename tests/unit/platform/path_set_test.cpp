#include "platform/path_set.h"

#include <gtest/gtest.h>

#include <memory>

#include "tests/contract/adapters.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {
namespace {

class PathSetTest : public ::testing::Test {
 protected:
  TemporaryFolder disk_;
  std::unique_ptr<Adapters> adapters_ = makeAdapters(disk_.path());
  PathSet paths_{adapters_->locale()};
};

TEST_F(PathSetTest, TakesPathsInDifferentLetterCaseForOne) {
  EXPECT_TRUE(paths_.add("C:\\Ma\xC3\x9F\\\xC3\x84nderung.htm"));
  EXPECT_FALSE(paths_.add("C:\\Ma\xC3\x9F\\\xC3\xA4NDERUNG.HTM"));
  EXPECT_FALSE(paths_.add("c:\\mA\xC3\x9F\\\xC3\x84nderung.htm"));
}

TEST_F(PathSetTest, TellsTheFilesOfTwoFoldersApart) {
  EXPECT_TRUE(paths_.add("C:\\a\\b.htm"));
  EXPECT_TRUE(paths_.add("C:\\a\\b\\b.htm"));
  EXPECT_TRUE(paths_.add("C:\\b.htm"));
  EXPECT_TRUE(paths_.add("b.htm"));
  EXPECT_FALSE(paths_.add("C:\\A\\B.htm"));
  EXPECT_FALSE(paths_.add("C:\\a\\b\\B.HTM"));
  EXPECT_FALSE(paths_.add("C:\\B.HTM"));
  EXPECT_FALSE(paths_.add("B.htm"));
}

TEST_F(PathSetTest, KnowsThePathsThatWereNoted) {
  paths_.note("C:\\a\\b.htm");
  paths_.note("C:\\c.htm");
  EXPECT_TRUE(paths_.add("C:\\d.htm"));
  EXPECT_FALSE(paths_.add("C:\\A\\B.htm"));
  paths_.note("C:\\e.htm");
  paths_.note("C:\\E.htm");
  EXPECT_FALSE(paths_.add("C:\\c.HTM"));
  EXPECT_FALSE(paths_.add("C:\\e.htm"));
}

}  // namespace
}  // namespace quorbind::testing
