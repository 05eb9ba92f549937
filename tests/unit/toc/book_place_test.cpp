#include "toc/book_place.h"

#include <gtest/gtest.h>

#include "tests/support/world.h"
#include "toc/text_form.h"

namespace quorbind::testing {
namespace {

class BookPlace : public ::testing::Test {
 protected:
  StatedPlace placeOf(std::string_view file) {
    world_.disk.write("toc.txt",
                      "header\n\n" + text_form::lineOf({.level = 1, .name = "B", .file = file}));
    return readStatedPlace(world_.platform(), "C:\\toc.txt");
  }

  World world_;
};

TEST_F(BookPlace, IsTheFirstFolderOfTheBookEntrysFileName) {
  EXPECT_EQ(placeOf("Manual\\cover.htm").folder, "Manual");
  EXPECT_EQ(placeOf("Manual/deep/cover.htm").folder, "Manual");
  EXPECT_EQ(placeOf("Manual\\cover.htm").refusal, std::nullopt);
}

TEST_F(BookPlace, IsNotStatedByAFileNameWithoutAFolder) {
  EXPECT_EQ(placeOf("cover.htm").folder, std::nullopt);
  EXPECT_EQ(placeOf("").folder, std::nullopt);
}

TEST_F(BookPlace, IsNotStatedByALineWithoutMarkers) {
  world_.disk.write("toc.txt", "header\n\n\"1\" \"B\" \"Manual\\cover.htm\" \"\"\n");
  EXPECT_EQ(readStatedPlace(world_.platform(), "C:\\toc.txt").folder, std::nullopt);
}

TEST_F(BookPlace, IsTheLibrarysOwnFolderForANameFromTheRoot) {
  EXPECT_EQ(placeOf("\\cover.htm").folder, "");
  EXPECT_EQ(placeOf("\\cover.htm").refusal, std::nullopt);
}

TEST_F(BookPlace, IsRefusedWhereItLeadsOutOfTheLibrary) {
  for (const char* file : {"..\\cover.htm",
                           ".\\cover.htm",
                           ".. \\cover.htm",
                           "...\\cover.htm",
                           "CON\\cover.htm",
                           "nul.txt\\cover.htm",
                           "\\\\server\\share\\cover.htm",
                           "//server/share/cover.htm"}) {
    const auto refusal = placeOf(file).refusal;
    ASSERT_TRUE(refusal.has_value()) << file;
    EXPECT_TRUE(refusal->starts_with("Error:Book Folder leads out of the library: ")) << file;
  }
}

TEST_F(BookPlace, IsRefusedWhereItBreaksTheRulesOfTheFolderDialog) {
  EXPECT_EQ(placeOf("C:\\cover.htm").refusal, "Book Folder can not contain (/\\:*?\"<>)");
  EXPECT_EQ(placeOf("A*B\\cover.htm").refusal, "Book Folder can not contain (/\\:*?\"<>)");
  EXPECT_EQ(placeOf("R&D\\cover.htm").refusal, "Book Folder can not contain ('\"&<>)");
}

}  // namespace
}  // namespace quorbind::testing
