#include "sidefiles/book_link.h"

#include "tests/unit/sidefiles/side_file_test.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class BookLink : public SideFileTest {
 protected:
  std::string check(std::string_view anchor,
                    std::string_view file = "net/sub/a.htm",
                    std::string_view bookmark = "") {
    return mstrCheckBookLink(platform(), anchor, file, bookmark);
  }
};

TEST_F(BookLink, IsTheIdentifierAndTheDocumentWithItsBookmark) {
  EXPECT_EQ(check("<K1><IBD>#N1#</IBD>Net</K1>", "net/sub/a.htm", "#top"),
            "N1@@@net\\sub\\a.htm#top");
  EXPECT_EQ(check("<IBD>#N1#</IBD>"), "N1@@@net\\sub\\a.htm");
  EXPECT_EQ(check("<IBD>#N1#</IBD>", ""), "N1@@@");
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(BookLink, HasItsTagsInAnyLetterCaseAndKeepsThatOfTheIdentifier) {
  EXPECT_EQ(check("<ibd>#A7#</ibd>", "f"), "A7@@@f");
  EXPECT_EQ(check("<Ibd>\"a/B\"</iBD>", "f"), "a/B@@@f");
}

TEST_F(BookLink, IsNoneWithoutBothTags) {
  for (const char* anchor :
       {"", "Net", "<IBD>#A7#", "#A7#</IBD>", "</IBD>#A7#<IBD>", "<IBD>", "<IBD></IBD>"}) {
    EXPECT_EQ(check(anchor), "#NO_BOOKLINK#") << anchor;
  }
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(BookLink, DropsOneCharacterOnEachSideWhateverItIs) {
  EXPECT_EQ(check("<IBD>xA7y</IBD>", "f"), "A7@@@f");
  EXPECT_EQ(check("<IBD>«Ä7»</IBD>", "f"), "Ä7@@@f");
  EXPECT_EQ(check("<IBD>😀目录😀</IBD>", "f"), "目录@@@f");
  EXPECT_EQ(check("<IBD>##</IBD>", "f"), "@@@f");
}

TEST_F(BookLink, LooksForTheEndBehindTheFirstCharacter) {
  EXPECT_EQ(check("<IBD></IBD>x</IBD>", "f"), "/IBD>@@@f");
}

TEST_F(BookLink, TakesTheFirstOfSeveral) {
  EXPECT_EQ(check("<IBD>#A#</IBD><IBD>#B#</IBD>", "f"), "A@@@f");
}

TEST_F(BookLink, IsReportedAndEmptyForASingleCharacterBetweenTheTags) {
  EXPECT_EQ(check("<IBD>#</IBD>"), "");
  EXPECT_EQ(check("<IBD>Ä</IBD>"), "");
  const std::string box =
      "critical: Error(5): Invalid procedure call or argument\r"
      "Quorbind: Quor_Book::mstrCheckBookLink";
  EXPECT_THAT(boxes(), ElementsAre(box, box));
}

}  // namespace
}  // namespace quorbind::testing
