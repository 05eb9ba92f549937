// What `doctor` finds in a library's categories, search keywords and link identifiers.

#include "tests/cli/doctor_test.h"

namespace quorbind::testing {
namespace {

using DoctorOfCategories = DoctorTest;

TEST_F(DoctorOfCategories, FindsThatTheirFileIsNotThere) {
  disk.remove(kCategories);
  expectInPlant(
      "  warning: DISK/server/Docs/Plant/Quor_BookCategories.xml: the library's categories file is "
      "not there [missing-categories]\n"
      "    Take it from the backup, or make one.\n"
      "    quorbind categories create --server DISK/server --library Plant\n",
      "0 errors, 1 warning");
  mend();
  expectSound();
}

TEST_F(DoctorOfCategories, FindsAnAcronymThatNoBookHas) {
  disk.write(kCategories,
             categoriesFile(category("Safety", "ALM") + category("Maps", "ALM") +
                            category("Operation", "alm")));
  expectInPlant(
      "  warning: DISK/server/Docs/Plant/Quor_BookCategories.xml:13: under the category Operation "
      "stands alm, which no book has for an acronym [unknown-filed-book]\n"
      "    Take the BookAcro out, or write the acronym that the book has now.\n",
      "0 errors, 1 warning");
}

TEST_F(DoctorOfCategories, FindsACategoryThatStandsTwice) {
  disk.write(kCategories, categoriesFile(category("Safety", "ALM") + category("Safety")));
  expectInPlant(
      "  warning: DISK/server/Docs/Plant/Quor_BookCategories.xml:7: the category Safety stands "
      "more "
      "than once, and books are filed under the first [repeated-category]\n"
      "    Take this one out when its books stand under the first.\n",
      "0 errors, 1 warning");
}

TEST_F(DoctorOfCategories, FindsABookThatIsNotFiledAsItsEntrySays) {
  disk.write(
      kCategories,
      categoriesFile(category("Safety", "ALM") + category("Maps") + category("Other Category")));
  writeEntries(entryWith("<Book_Categories/>",
                         "<Book_Categories><Book_Category>Safety</Book_Category><Book_Category/>"
                         "<Book_Category>Maps</Book_Category>"
                         "<Book_Category>R&amp;D</Book_Category></Book_Categories>"));
  expectInPlant(
      "  warning: DISK/server/Docs/Plant/Quor_TOC.xml:4: Alarms (ALM) is not filed under Maps, "
      "R&D, "
      "which its entry names [unfiled-book]\n"
      "    File it.\n"
      "    quorbind categories file ALM Maps 'R&D' --server DISK/server --library Plant\n",
      "0 errors, 1 warning");
  mend();
  expectSound();
}

TEST_F(DoctorOfCategories, FindsACategoryUnderWhichNoBookIsFound) {
  writeEntries(entryWith("<Book_Categories/>",
                         "<Book_Categories><Book_Category>Driver's</Book_Category>"
                         "</Book_Categories>"));
  expectInPlant(
      "  warning: DISK/server/Docs/Plant/Quor_TOC.xml:4: the entry of Alarms (ALM) names Driver's, "
      "and no book is found under a category with an apostrophe [unusable-category]\n"
      "    Give the book other categories with quorbind set.\n",
      "0 errors, 1 warning");
}

using DoctorOfKeywords = DoctorTest;

TEST_F(DoctorOfKeywords, FindsThoseOfABookThatIsNotThere) {
  disk.write(kKeywords,
             keywordsFile(keywordsOf("Alarms", {"bell"}) + keywordsOf("R&amp;amp;D", {"horn"})));
  expectInPlant(
      "  warning: DISK/server/Docs/Plant/Quor_SearchKeywords.xml:8: there are keywords of R&D, and "
      "no book has that name [unknown-keyword-book]\n"
      "    Take the Book out, or write the name that the book has now.\n",
      "0 errors, 1 warning");
}

class DoctorOfLinks : public DoctorTest {
 protected:
  static std::string alarmLink(std::string_view identifier,
                               std::string_view fullLink = "ALM@QUOR@Alarms",
                               std::string_view source = "Plant\\Manual\\alarms.htm#top") {
    return link(identifier, fullLink, source, "ALM");
  }
};

TEST_F(DoctorOfLinks, AreSoundWhenTheyLeadSomewhere) {
  disk.write(kLinks,
             linksFile(alarmLink("X1") + alarmLink("X2", "ALM@QUOR@Manual@QUOR@ Alarms ") +
                       alarmLink("X3", "ALM@quor@@quor@Manual@quor@Gone") +
                       alarmLink("X4", "ALM@QUOR@Manual", "Plant\\C:\\in\\toc.htm") +
                       alarmLink("X5", "ALM@QUOR@Manual", "Plant\\deeper\\down\\ALARMS.htm") +
                       alarmLink("X6", "ALM@QUOR@Manual", "Plant\\..\\..\\in\\alarms.htm") +
                       alarmLink("X7", "ALM@QUOR@Manual", "Plant\\/in/toc.htm")));
  expectSound();
}

TEST_F(DoctorOfLinks, LeadNowhereWhereAPageSaysSoToo) {
  const auto finding = [](const std::string& line, const std::string& text) {
    return "  warning: DISK/server/Docs/Plant/Quor_LinkID.xml:" + line + ": the identifier " +
           text +
           " of Alarms (ALM), which is not there [unresolved-identifier]\n"
           "    Take its ID out, and record it again with quorbind links add.\n";
  };
  disk.write(kLinks,
             linksFile(alarmLink("X1", "ALM@QUOR@Manual", "Plant\\/in/toc.htm") +
                       alarmLink("X2", "ALM@QUOR@Manual", "Plant\\..\\..\\in\\gone.htm") +
                       alarmLink("X3", "ALM@QUOR@Manual", "gone.htm") +
                       alarmLink("X4", "ALM@QUOR@Manual", "Plant\\in\\alarms.htm")));
  expectInPlant(finding("10", "X2 leads to the document Plant\\..\\..\\in\\gone.htm") +
                    finding("16", "X3 leads to the document gone.htm"),
                "0 errors, 2 warnings");
  EXPECT_EQ(inPlant({"view"}).out,
            "Wrote library.html: 1 book, 1 heading.\n"
            "link identifiers that lead nowhere: 2\n");
}

TEST_F(DoctorOfLinks, FindsOneOfABookThatIsNotThere) {
  disk.write(kLinks, linksFile(alarmLink("X1") + link("X&amp;amp;2", "F", "Plant\\a.htm", "OLD")));
  expectInPlant(
      "  warning: DISK/server/Docs/Plant/Quor_LinkID.xml:10: the identifier X&2 is of the book "
      "'OLD', which the library does not have [unknown-link-book]\n"
      "    Take its ID out, or write the acronym that the book has now.\n",
      "0 errors, 1 warning");
}

TEST_F(DoctorOfLinks, FindsOneThatStandsInAnotherLibraryToo) {
  ASSERT_EQ(quorbind({"init", "--server", "server", "--library", "Archive"}).status, 0);
  disk.write(kLinks, linksFile(alarmLink("X1") + alarmLink(" X1 ")));
  disk.write("server/Docs/Archive/Quor_LinkID.xml", linksFile(link("X1", "F", "", "OLD")));
  const std::string inPlant =
      "Plant, 1 book, 1 heading:\n"
      "  error: DISK/server/Docs/Plant/Quor_LinkID.xml:4: the identifier X1 stands more than once "
      "on "
      "the server: Plant (ALM), Plant (ALM), Archive (OLD) [repeated-identifier]\n"
      "    Take out all of its IDs but one.\n";
  expectReport(
      kSoundServer + inPlant +
          "Archive, 0 books, 0 headings:\n"
          "  error: DISK/server/Docs/Archive/Quor_LinkID.xml:4: the identifier X1 stands more than "
          "once on the server: Plant (ALM), Plant (ALM), Archive (OLD) [repeated-identifier]\n"
          "    Take out all of its IDs but one.\n"
          "  warning: DISK/server/Docs/Archive/Quor_LinkID.xml:4: the identifier X1 is of the book "
          "'OLD', which the library does not have [unknown-link-book]\n"
          "    Take its ID out, or write the acronym that the book has now.\n",
      "2 errors, 1 warning");
  expectReport(kSoundServer + inPlant, "1 error, 0 warnings", {"--library", "Plant"});
}

TEST_F(DoctorOfLinks, FindsThatThoseOfAnotherLibraryCanNotBeCompared) {
  ASSERT_EQ(quorbind({"init", "--server", "server", "--library", "Archive"}).status, 0);
  disk.write("server/Docs/Archive/Quor_LinkID.xml", "<IBD/>");
  expectReport(
      "DISK/server:\n"
      "  error: DISK/server/Docs/Archive/Quor_LinkID.xml: it can't be used: the element LINKS is "
      "missing [damaged-file]\n"
      "    Take it from the backup.\n" +
          std::string(kSoundPlant),
      "1 error, 0 warnings",
      {"--library", "Plant"});
}

TEST_F(DoctorOfLinks, FindsOneThatLeadsNowhere) {
  disk.write(kLinks, linksFile(alarmLink("X1", " ")));
  expectInPlant(
      "  error: DISK/server/Docs/Plant/Quor_LinkID.xml:4: the identifier X1 has no full link and "
      "leads nowhere [blank-identifier]\n"
      "    Take its ID out, and record it again with quorbind links add.\n",
      "1 error, 0 warnings");
}

TEST_F(DoctorOfLinks, FindsOneThatHasNoIdentifier) {
  disk.write(kLinks, linksFile(alarmLink("") + alarmLink(" ")));
  const auto finding = [](const std::string& line) {
    return "  warning: DISK/server/Docs/Plant/Quor_LinkID.xml:" + line +
           ": an ID of the book 'ALM' has no identifier, and nothing can link to it "
           "[nameless-identifier]\n"
           "    Take it out. If the page has an empty identifier for a heading, give it one there "
           "too.\n";
  };
  expectInPlant(finding("4") + finding("10"), "0 errors, 2 warnings");
}

TEST_F(DoctorOfLinks, FindsOneWhoseDocumentIsNotThere) {
  disk.write(kLinks, linksFile(alarmLink("X1", "ALM@QUOR@Alarms", "Plant\\Manual\\gone.htm#top")));
  expectInPlant(
      "  warning: DISK/server/Docs/Plant/Quor_LinkID.xml:4: the identifier X1 leads to the "
      "document "
      "Plant\\Manual\\gone.htm of Alarms (ALM), which is not there [unresolved-identifier]\n"
      "    Take its ID out, and record it again with quorbind links add.\n",
      "0 errors, 1 warning");
}

TEST_F(DoctorOfLinks, FindsOneWhoseHeadingIsNotThere) {
  disk.write(kLinks,
             linksFile(alarmLink("X1", "ALM@QUOR@Manual@QUOR@Gone") +
                       alarmLink("X2", "ALM@QUOR@Manual@QUOR@Alarms")));
  expectInPlant(
      "  warning: DISK/server/Docs/Plant/Quor_LinkID.xml:4: the identifier X1 leads to the heading "
      "Gone of Alarms (ALM), which is not there [unresolved-identifier]\n"
      "    Take its ID out, and record it again with quorbind links add.\n",
      "0 errors, 1 warning");
}

}  // namespace
}  // namespace quorbind::testing
