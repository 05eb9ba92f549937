#include "workflow/inputs/input_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/world.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class InputCheck : public ::testing::Test {
 protected:
  bool check(std::string_view path, std::int16_t kind) {
    return bCheckForValidInput(world_.module, path, kind);
  }
  [[nodiscard]] const std::vector<std::string>& record() const { return world_.user.record(); }

  World world_;
};

TEST_F(InputCheck, AcceptsEachKindByItsExtension) {
  EXPECT_TRUE(check("C:\\docs\\book.xml", 1));
  EXPECT_TRUE(check("C:\\docs\\toc.htm", 2));
  EXPECT_TRUE(check("C:\\docs\\toc.html", 2));
  EXPECT_TRUE(check("C:\\docs\\toc.xlsx", 3));
  EXPECT_TRUE(check("C:\\docs\\toc.TxT", 4));
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(InputCheck, FindsTheExtensionAnywhereInThePath) {
  EXPECT_TRUE(check("C:\\MY.XLS.BAK", 3));
  EXPECT_TRUE(check("C:\\all.txt.files\\toc", 4));
}

TEST_F(InputCheck, LetsTheCatalogueItselfThrough) {
  EXPECT_TRUE(check("C:\\docs\\Quor_TOC.xml", 1));
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(InputCheck, RefusesKindsThatDoNotExist) {
  EXPECT_FALSE(check("C:\\docs\\toc.txt", 0));
  EXPECT_FALSE(check("C:\\docs\\toc.txt", 5));
  EXPECT_FALSE(check("C:\\docs\\toc.txt", -1));
  EXPECT_THAT(record(),
              ElementsAre("critical: Not a valid TOC file",
                          "critical: Not a valid TOC file",
                          "critical: Not a valid TOC file"));
}

TEST_F(InputCheck, NamesTheKindThatTheExtensionDoesNotFit) {
  EXPECT_FALSE(check("C:\\docs\\toc.txt", 1));
  EXPECT_FALSE(check("C:\\docs\\toc.txt", 2));
  EXPECT_FALSE(check("C:\\docs\\toc.txt", 3));
  EXPECT_FALSE(check("C:\\docs\\toc.xml", 4));
  EXPECT_THAT(record(),
              ElementsAre("critical: TOC file is not a XML file",
                          "critical: TOC file is not a HTML file",
                          "critical: TOC file is not a EXCEL file",
                          "critical: TOC file is not a Text file"));
}

TEST_F(InputCheck, ReportsAnErrorAndRefuses) {
  world_.locale.breakDown();
  EXPECT_FALSE(check("C:\\docs\\toc.txt", 4));
  EXPECT_THAT(record(),
              ElementsAre("critical: Error(5): Invalid procedure call or argument\r"
                          "Quorbind: Quor_Book::bCheckForValidInput"));
}

TEST_F(InputCheck, GivesItsBoxesNoTitleOfTheirOwn) {
  check("C:\\docs\\toc.txt", 0);
  EXPECT_EQ(world_.user.messages().at(0).title, std::nullopt);
}

}  // namespace
}  // namespace quorbind::testing
