#include "toolset/library_services.h"

#include <gtest/gtest.h>

#include "platform/runtime_error.h"

namespace quorbind::testing {
namespace {

TEST(ReferenceLibraryServicesTest, GivesTheServerFolderItsSeparator) {
  EXPECT_EQ(ReferenceLibraryServices("C:\\srv").GetQuorServer(), "C:\\srv\\");
  EXPECT_EQ(ReferenceLibraryServices("C:\\srv\\").GetQuorServer(), "C:\\srv\\");
  EXPECT_EQ(ReferenceLibraryServices("//files/srv/").GetQuorServer(), "\\\\files\\srv\\");
}

TEST(ReferenceLibraryServicesTest, FindsTheLibrariesInTheServerFolder) {
  EXPECT_EQ(ReferenceLibraryServices("C:\\srv").docsFolder(), "C:\\srv\\Docs\\");
}

TEST(ReferenceLibraryServicesTest, RaisesItsOwnErrorWithoutAServerFolder) {
  try {
    ReferenceLibraryServices("").GetQuorServer();
    FAIL() << "answered a server folder";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.number(), -2147220991);
    EXPECT_EQ(error.description(), "The documentation server folder is not configured");
  }
}

}  // namespace
}  // namespace quorbind::testing
