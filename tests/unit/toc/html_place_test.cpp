#include "toc/html_place.h"

#include <gtest/gtest.h>

#include "tests/support/world.h"
#include "toc/toc_check.h"

namespace quorbind::testing {
namespace {

std::string heading(const std::string& path, const std::string& title = "Title") {
  return "<K1><A HREF=\"" + path + "\">" + title + "</A></K1>";
}

TEST(PlaceOfPage, IsTheFirstFolderOfItsFirstHeading) {
  const StatedPlace place =
      statedPlaceOfPage(heading("Manual/deep/a.htm#x") + heading("Other/a.htm"));
  EXPECT_EQ(place.folder, "Manual");
  EXPECT_EQ(place.refusal, std::nullopt);
}

TEST(PlaceOfPage, IsRefusedWhereItLeadsOutOfTheLibrary) {
  EXPECT_EQ(statedPlaceOfPage(heading("../a.htm")).refusal,
            "Error:Book Folder leads out of the library: ..\\a.htm");
}

TEST(PlaceOfPage, IsThatOfTheDocumentBeforeWhereALinkIsEmpty) {
  const std::string title = "<HT><A HREF=\"Pumps/cover.htm#c\">Pumps</A></HT>";
  EXPECT_EQ(statedPlaceOfPage(title + heading("")).folder, "Pumps");
  EXPECT_EQ(statedPlaceOfPage(title + heading("#top")).folder, std::nullopt);
  EXPECT_EQ(statedPlaceOfPage(heading(""), "Before\\a.htm").folder, "Before");
  EXPECT_EQ(statedPlaceOfPage(title + heading(""), "Before\\a.htm").folder, "Pumps");
}

TEST(PlaceOfPage, IsNoneWithoutAFirstHeadingThatLinksToAFolder) {
  for (const std::string& page : {std::string(),
                                  std::string("<html></html>"),
                                  std::string("<K1>A</K1>"),
                                  std::string("</K1>") + heading("Manual/a.htm"),
                                  heading("a.htm")}) {
    EXPECT_EQ(statedPlaceOfPage(page).folder, std::nullopt) << page;
    EXPECT_EQ(statedPlaceOfPage(page).refusal, std::nullopt) << page;
  }
}

// Titles and links may hold what the export is cut at.
TEST(PlaceOfPage, IsTheOneThatItsExportHas) {
  World world;
  for (const std::string& page : {heading("Manual/a.htm"),
                                  heading("/a.htm"),
                                  heading("Manual/a.htm", "Two\nlines"),
                                  heading("Manual/a.htm", "Two\r\nlines"),
                                  heading("Manual/a.htm", "x$@@$ $@@$y\\z"),
                                  heading("Manual/a.htm", "x$@@$ $@@$y/z$@@$"),
                                  heading("Manual/a.htm", "x$@@$ $@@$y\r\nz$@@$"),
                                  heading("Manual/a.htm", "x$@@$\ny$@@$"),
                                  heading("Man\nual/a.htm"),
                                  heading("Manual/$@@$a.htm"),
                                  heading("$@@$/Manual/a.htm"),
                                  heading("Manual\r\n/a.htm")}) {
    world.disk.write("toc.htm", page);
    TocCheck check(world.module);
    std::string path = "C:\\toc.htm";
    ASSERT_TRUE(check.mbValidateTocFile(path, TocCheck::kHtml)) << page;
    EXPECT_EQ(statedPlaceOfPage(page).folder, readStatedPlace(world.platform(), path).folder)
        << page;
  }
}

}  // namespace
}  // namespace quorbind::testing
