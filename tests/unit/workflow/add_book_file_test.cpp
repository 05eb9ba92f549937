// Additions whose table of contents is an existing book file.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "platform/text.h"
#include "tests/support/book_run_test.h"

namespace quorbind::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;

class AddBookFile : public BookRunTest {
 protected:
  AddBookFile() : BookRunTest("C:\\in\\pumps.xml", 1, "Docs/Prod") {
    writeBook("Pumps", "PMP", "Old\\Manual");
    for (const char* document : {"a", "b"}) {
      world_.disk.write("in/" + std::string(document) + ".htm", "page <img src=p.png>");
    }
    world_.disk.write("in/p.png", "picture");
  }

  static std::string bookFile(const std::string& name,
                              const std::string& acronym,
                              const std::string& key,
                              const std::string& path,
                              const std::string& headings) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
           "<!--made elsewhere-->\r\n"
           "<Book_Master>\r\n"
           "\t<Book>\r\n"
           "\t\t<Book_Name>" +
           name + "</Book_Name>\r\n\t\t<Book_Acro>" + acronym +
           "</Book_Acro>\r\n\t\t<Book_Key id=\"\">" + key + "</Book_Key>\r\n\t\t<Book_Path>" +
           path + "</Book_Path>\r\n\t</Book>\r\n\t<Book_Headings>\r\n" + headings +
           "\t</Book_Headings>\r\n</Book_Master>\r\n";
  }
  static std::string heading(const std::string& document) {
    return "\t\t<Heading level=\"H1\" type=\"htm\">\r\n\t\t\t<HName>H</HName>\r\n\t\t\t<HFile>" +
           document + "</HFile>\r\n\t\t</Heading>\r\n";
  }
  static std::string usualHeadings() { return heading("a.htm") + heading("b.htm#x"); }

  void writeBook(const std::string& name,
                 const std::string& acronym,
                 const std::string& path,
                 const std::string& headings = usualHeadings()) {
    world_.disk.write("in/pumps.xml", bookFile(name, acronym, "Old", path, headings));
  }

  /// The names below the folder of the library.
  [[nodiscard]] std::vector<std::string> library() const {
    const std::string folder = "Docs/Prod/";
    std::vector<std::string> names;
    for (const auto& [name, content] : world_.disk.contents()) {
      if (name.starts_with(folder) && content != "(folder)") {
        names.push_back(name.substr(folder.size()));
      }
    }
    return names;
  }
};

TEST_F(AddBookFile, GoesThroughItsStagesInOrderAndAsksNothing) {
  EXPECT_TRUE(run());
  EXPECT_EQ(world_.user.record(), everyStage("Manual"));
}

TEST_F(AddBookFile, ArrivesUnderBothItsNamesWithItsDocumentsAndTheirPictures) {
  EXPECT_TRUE(run());
  EXPECT_THAT(library(),
              ElementsAre("Manual/Book_PMP.xml",
                          "Manual/a.htm",
                          "Manual/b.htm",
                          "Manual/p.png",
                          "Manual/pumps.xml",
                          "Quor_TOC.xml"));
  EXPECT_EQ(world_.disk.read("Docs/Prod/Manual/pumps.xml"), world_.disk.read("in/pumps.xml"));
}

TEST_F(AddBookFile, StatesItsNewPlaceInTheFileThatTheCatalogueNames) {
  EXPECT_TRUE(run());
  EXPECT_EQ(world_.disk.read("Docs/Prod/Manual/Book_PMP.xml"),
            bookFile("Pumps", "PMP", "Prod", "Prod\\Manual", usualHeadings()));
  EXPECT_THAT(catalogue(),
              HasSubstr("\t\t<Book>\r\n"
                        "\t\t\t<Book_Name>Pumps</Book_Name>\r\n"
                        "\t\t\t<Book_Acro>PMP</Book_Acro>\r\n"
                        "\t\t\t<Book_Key id=\"\">Prod</Book_Key>\r\n"
                        "\t\t\t<Book_Folder>Manual</Book_Folder>\r\n"
                        "\t\t\t<Book_File>Book_PMP.xml</Book_File>\r\n"
                        "\t\t\t<Book_Categories/>\r\n"
                        "\t\t</Book>\r\n"
                        "\t</Quor_Books>"));
}

TEST_F(AddBookFile, LeavesTheAuthorsFolderAsItWas) {
  const auto before = world_.disk.contents();
  EXPECT_TRUE(run());
  for (const auto& [name, content] : before) {
    if (name.starts_with("in/")) {
      EXPECT_EQ(world_.disk.contents()[name], content) << name;
    }
  }
  EXPECT_EQ(world_.disk.contents().size(), before.size() + 6) << "a folder and five files";
}

TEST_F(AddBookFile, ArrivesOnceWhenItHasItsNameInAnyLetterCase) {
  arguments_.vstrtocpath = "C:\\in\\BOOK_pmp.XML";
  world_.disk.write("in/BOOK_pmp.XML", world_.disk.read("in/pumps.xml"));
  EXPECT_TRUE(run());
  EXPECT_THAT(
      library(),
      ElementsAre(
          "Manual/BOOK_pmp.XML", "Manual/a.htm", "Manual/b.htm", "Manual/p.png", "Quor_TOC.xml"));
  EXPECT_THAT(world_.disk.read("Docs/Prod/Manual/BOOK_pmp.XML"), HasSubstr("Prod\\Manual"));
}

TEST_F(AddBookFile, KeepsItsOwnAcronymInItsNameWhenTheUserGivesAnother) {
  arguments_.vstrBookName = "Given";
  arguments_.vstrBookAcro = "GVN";
  EXPECT_TRUE(run());
  EXPECT_THAT(catalogue(),
              HasSubstr("<Book_Name>Given</Book_Name>\r\n"
                        "\t\t\t<Book_Acro>GVN</Book_Acro>\r\n"));
  EXPECT_THAT(catalogue(), HasSubstr("<Book_File>Book_PMP.xml</Book_File>"));
  EXPECT_TRUE(world_.disk.has("Docs/Prod/Manual/Book_PMP.xml"));
  EXPECT_EQ(world_.state().recordedXmlAcro, "") << "not for the next book";
}

TEST_F(AddBookFile, WithoutAnAcronymIsNamedAfterTheOneThatIsAskedFor) {
  world_.disk.write("in/pumps.xml",
                    "<Book_Master><Book><Book_Key/><Book_Path>P\\Manual</Book_Path></Book><Heading>"
                    "<HFile>a.htm</HFile></Heading></Book_Master>");
  world_.user.answerWith(enterBook("Pumps", "NEW"));
  EXPECT_TRUE(run());
  EXPECT_THAT(world_.user.recordWithoutProgress(),
              ElementsAre("form frmBookInfo", "event [Manual]"));
  EXPECT_TRUE(world_.disk.has("Docs/Prod/Manual/Book_NEW.xml"));
  EXPECT_THAT(catalogue(), HasSubstr("<Book_File>Book_NEW.xml</Book_File>"));
}

TEST_F(AddBookFile, ReplacesAnOlderBookFileButNoDocumentThatIsThere) {
  world_.disk.write("Docs/Prod/Manual/Book_PMP.xml", "old");
  world_.disk.write("Docs/Prod/Manual/A.htm", "old");
  EXPECT_TRUE(run());
  EXPECT_THAT(world_.disk.read("Docs/Prod/Manual/Book_PMP.xml"), HasSubstr("Prod\\Manual"));
  EXPECT_EQ(world_.disk.read("Docs/Prod/Manual/A.htm"), "old");
  EXPECT_THAT(library(), Not(Contains("Manual/a.htm")));
}

TEST_F(AddBookFile, BringsWhatADocumentLinksToAlsoWhereTheDocumentIsThere) {
  world_.disk.write("Docs/Prod/Manual/a.htm", "old");
  world_.disk.write("in/b.htm", "page");
  EXPECT_TRUE(run());
  EXPECT_EQ(world_.disk.read("Docs/Prod/Manual/a.htm"), "old");
  EXPECT_EQ(world_.disk.read("Docs/Prod/Manual/p.png"), "picture");
}

TEST_F(AddBookFile, LeavesWhatADocumentThatIsThereLinksToAsItIs) {
  world_.disk.write("Docs/Prod/Manual/a.htm", "old");
  world_.disk.write("Docs/Prod/Manual/P.png", "old");
  world_.disk.write("in/b.htm", "page");
  EXPECT_TRUE(run());
  EXPECT_EQ(world_.disk.read("Docs/Prod/Manual/P.png"), "old");
  EXPECT_THAT(library(), Not(Contains("Manual/p.png")));
}

TEST_F(AddBookFile, BringsWhatADocumentLinksToAlsoWhereAnotherHasBroughtTheDocument) {
  world_.disk.write("in/a.htm", "page <a href=b.htm>");
  EXPECT_TRUE(run());
  EXPECT_EQ(world_.disk.read("Docs/Prod/Manual/p.png"), "picture");
}

TEST_F(AddBookFile, PutsNothingThatADocumentLinksToInThePlaceOfOneThatIsThere) {
  world_.disk.write("Docs/Prod/Manual/b.htm", "old");
  world_.disk.write("in/a.htm", "page <a href=b.htm>");
  EXPECT_TRUE(run());
  EXPECT_EQ(world_.disk.read("Docs/Prod/Manual/a.htm"), "page <a href=b.htm>");
  EXPECT_EQ(world_.disk.read("Docs/Prod/Manual/b.htm"), "old");
}

TEST_F(AddBookFile, TreatsAPageThatIsABookFileInTruthAsAPage) {
  world_.disk.write("in/a.xml.htm",
                    "<Book_Master><HName src='p.png'/><HFile>c.htm</HFile></Book_Master>");
  world_.disk.write("in/b.htm", "page <a href=a.xml.htm>");
  world_.disk.write("in/c.htm", "page");
  writeBook("Pumps", "PMP", "P\\Manual", heading("b.htm") + heading("a.xml.htm"));
  EXPECT_TRUE(run());
  EXPECT_TRUE(world_.disk.has("Docs/Prod/Manual/a.xml.htm"));
  EXPECT_TRUE(world_.disk.has("Docs/Prod/Manual/p.png"));
  EXPECT_FALSE(world_.disk.has("Docs/Prod/Manual/c.htm"));
}

TEST_F(AddBookFile, KeepsItsDocumentsInTheirPlacesBelowIt) {
  writeBook("Pumps", "PMP", "P\\Manual", heading("deep/c.htm") + heading("") + heading("none.htm"));
  world_.disk.write("in/deep/c.htm", "page <img src=../p.png><img src=q.png>");
  world_.disk.write("in/deep/q.png", "picture");
  EXPECT_TRUE(run());
  EXPECT_THAT(library(),
              ElementsAre("Manual/Book_PMP.xml",
                          "Manual/deep/c.htm",
                          "Manual/deep/q.png",
                          "Manual/pumps.xml",
                          "Quor_TOC.xml"));
}

TEST_F(AddBookFile, BringsNothingFromOutsideItsFolder) {
  world_.disk.write("secret.htm", "secret");
  world_.disk.write("in/nul.htm", "device");
  writeBook("Pumps",
            "PMP",
            "P\\Manual",
            heading("..\\secret.htm") + heading("C:\\secret.htm") + heading("\\secret.htm") +
                heading("\\\\server\\share\\secret.htm") + heading("nul.htm") + heading("a.htm"));
  EXPECT_TRUE(run());
  EXPECT_THAT(library(),
              ElementsAre("Manual/Book_PMP.xml",
                          "Manual/a.htm",
                          "Manual/p.png",
                          "Manual/pumps.xml",
                          "Quor_TOC.xml"));
}

TEST_F(AddBookFile, InTheLibrarysOwnFolderNeverTakesThePlaceOfItsFiles) {
  writeBook("Pumps", "PMP", "Manual", heading("a.htm") + heading("Quor_LinkID.xml"));
  world_.disk.write("in/Quor_TOC.xml", world_.disk.read("in/pumps.xml"));
  world_.disk.write("in/Quor_LinkID.xml", "links of somebody else");
  arguments_.vstrtocpath = "C:\\in\\Quor_TOC.xml";
  EXPECT_TRUE(run());
  EXPECT_THAT(library(), ElementsAre("Book_PMP.xml", "Quor_TOC.xml", "a.htm", "p.png"));
  EXPECT_THAT(catalogue(), HasSubstr("<Book_Acro>ALM</Book_Acro>"));
  EXPECT_THAT(catalogue(),
              HasSubstr("<Book_Acro>PMP</Book_Acro>\r\n"
                        "\t\t\t<Book_Key id=\"\">Prod</Book_Key>\r\n"
                        "\t\t\t<Book_Folder/>\r\n"));
  EXPECT_THAT(world_.disk.read("Docs/Prod/Book_PMP.xml"),
              HasSubstr("<Book_Path>Prod\\</Book_Path>"));
}

TEST_F(AddBookFile, EndsTheRunWhenTheInstalledFileCanNotStateItsNewPlace) {
  const std::string whole = world_.disk.read("in/pumps.xml");
  const std::string before = catalogue();
  for (const auto& [element, installed] :
       {std::pair{"<Book_Key id=\"\">Old</Book_Key>", "Docs/Prod/Manual/Book_PMP.xml"},
        {"<Book_Path>Old\\Manual</Book_Path>", "Docs/Prod/Book_PMP.xml"}}) {
    world_.disk.write("in/pumps.xml", replaceAll(whole, element, ""));
    EXPECT_FALSE(run());
    EXPECT_EQ(world_.disk.read(installed), world_.disk.read("in/pumps.xml")) << "as it was copied";
    EXPECT_EQ(catalogue(), before);
  }
  const std::string box =
      "critical: Error(91): Object variable or With block variable not set\r"
      "Quorbind: Quor_Book::Book_Valuator";
  EXPECT_THAT(world_.user.recordWithoutProgress(), Not(Contains(HasSubstr("event"))));
  EXPECT_THAT(world_.user.recordWithoutProgress(), Contains(box).Times(2));
}

TEST_F(AddBookFile, InTheFolderOfItsBookMayHaveTheNamesOfTheLibrarysFiles) {
  writeBook("Pumps", "PMP", "P\\Manual", heading("a.htm") + heading("Quor_LinkID.xml"));
  world_.disk.write("in/Quor_TOC.xml", world_.disk.read("in/pumps.xml"));
  world_.disk.write("in/Quor_LinkID.xml", "a document");
  arguments_.vstrtocpath = "C:\\in\\Quor_TOC.xml";
  EXPECT_TRUE(run());
  EXPECT_THAT(library(),
              ElementsAre("Manual/Book_PMP.xml",
                          "Manual/Quor_LinkID.xml",
                          "Manual/Quor_TOC.xml",
                          "Manual/a.htm",
                          "Manual/p.png",
                          "Quor_TOC.xml"));
}

TEST_F(AddBookFile, BringsADocumentThatIsABookFileItselfWithoutTheDocumentsOfThat) {
  writeBook("Pumps", "PMP", "P\\Manual", heading("deep/other.xml"));
  world_.disk.write("in/Manual/pumps.xml", world_.disk.read("in/pumps.xml"));
  world_.disk.write("in/Manual/deep/other.xml",
                    "<Book_Master><HFile>secret.htm</HFile><HFile>near.htm</HFile></Book_Master>");
  world_.disk.write("in/Manual/secret.htm", "above the document");
  world_.disk.write("in/Manual/deep/near.htm", "beside the document");
  arguments_.vstrtocpath = "C:\\in\\Manual\\pumps.xml";
  EXPECT_TRUE(run());
  EXPECT_THAT(
      library(),
      ElementsAre(
          "Manual/Book_PMP.xml", "Manual/deep/other.xml", "Manual/pumps.xml", "Quor_TOC.xml"));
  EXPECT_EQ(world_.disk.read("Docs/Prod/Manual/deep/other.xml"),
            world_.disk.read("in/Manual/deep/other.xml"));
}

TEST_F(AddBookFile, MayLieInTheLibraryAlready) {
  arguments_.vstrtocpath = "C:\\Docs\\Prod\\Manual\\Book_PMP.xml";
  world_.disk.write("Docs/Prod/Manual/Book_PMP.xml", world_.disk.read("in/pumps.xml"));
  world_.disk.write("Docs/Prod/Manual/a.htm", "page");
  EXPECT_TRUE(run());
  EXPECT_THAT(world_.user.recordWithoutProgress(), ElementsAre("event [Manual]"));
  EXPECT_THAT(library(), ElementsAre("Manual/Book_PMP.xml", "Manual/a.htm", "Quor_TOC.xml"));
  EXPECT_THAT(world_.disk.read("Docs/Prod/Manual/Book_PMP.xml"), HasSubstr("Prod\\Manual"));
}

TEST_F(AddBookFile, BringsTheLinkIdentifiersOfTheLibraryThatItComesFrom) {
  const std::string links =
      "<LINKS><IBD><ID><LinkID>X1</LinkID><FullLink>PMP@QUOR@A</FullLink><LinkIDSourceFile>Old\\a"
      "</LinkIDSourceFile><BookAcro>PMP</BookAcro></ID></IBD></LINKS>";
  world_.disk.write("Docs/Old/Quor_LinkID.xml", links);
  world_.disk.write("Docs/Old/Manual/pumps.xml", world_.disk.read("in/pumps.xml"));
  arguments_.vstrtocpath = "C:\\Docs\\Old\\Manual\\pumps.xml";
  EXPECT_TRUE(run());
  EXPECT_EQ(world_.text("Docs/Prod/Quor_LinkID.xml"),
            "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"
            "<!--Inter Book Linking data file-->\n"
            "<LINKS>\n"
            "\t<IBD>\n"
            "\t\t<ID>\n"
            "\t\t\t<LinkID>X1</LinkID>\n"
            "\t\t\t<FullLink>PMP@QUOR@A</FullLink>\n"
            "\t\t\t<LinkIDSourceFile>Old\\a</LinkIDSourceFile>\n"
            "\t\t\t<BookAcro>PMP</BookAcro>\n"
            "\t\t</ID>\n"
            "\t</IBD>\n"
            "</LINKS>\n");
  EXPECT_EQ(world_.disk.read("Docs/Old/Quor_LinkID.xml"), links);
}

TEST_F(AddBookFile, BringsTheLinkIdentifiersBeforeItIsEnteredInTheCatalogue) {
  world_.disk.write("Docs/Old/Quor_LinkID.xml", "damaged");
  world_.disk.write("Docs/Old/Manual/pumps.xml", world_.disk.read("in/pumps.xml"));
  arguments_.vstrtocpath = "C:\\Docs\\Old\\Manual\\pumps.xml";
  EXPECT_TRUE(run());
  const std::vector<std::string>& record = world_.user.record();
  const auto box = std::find_if(record.begin(), record.end(), [](const std::string& entry) {
    return entry.ends_with("\rQuorbind: Quor_Book::AddLinkIDInfo");
  });
  ASSERT_NE(box, record.end());
  EXPECT_EQ(*(box - 1), "progress 4/10 File copying in progress...");
  EXPECT_EQ(*(box + 1), "progress 8/10 File copying in progress...");
  EXPECT_THAT(catalogue(), HasSubstr("<Book_Acro>PMP</Book_Acro>")) << "all the same";
  EXPECT_THAT(world_.user.recordWithoutProgress(), Contains("event [Manual]"));
}

TEST_F(AddBookFile, BringsNoLinkIdentifiersFromOutsideALibrary) {
  EXPECT_TRUE(run());
  EXPECT_FALSE(world_.disk.has("Docs/Prod/Quor_LinkID.xml"));
}

TEST_F(AddBookFile, IsAddedWithoutItsDocumentsWhereThereIsNoCopyComponent) {
  world_.toolset.breakFileCopy();
  EXPECT_TRUE(run());
  EXPECT_THAT(world_.user.recordWithoutProgress(), ElementsAre("event [Manual]"));
  EXPECT_THAT(library(), ElementsAre("Manual/Book_PMP.xml", "Manual/pumps.xml", "Quor_TOC.xml"));
}

TEST_F(AddBookFile, AsksTwiceWhenTheUserInsistsOnANameThatIsTaken) {
  writeBook("Alarms", "NEW", "P\\Manual");
  world_.user.answerWith(enterBook("Alarms", "NEW"));
  world_.user.answerWith(enterBook("Alarms", "NEW"));
  EXPECT_TRUE(run());
  EXPECT_THAT(world_.user.recordWithoutProgress(),
              ElementsAre("critical: Error:Book Name Alarms already Exists",
                          "form frmBookInfo",
                          "critical: Error:Book Name Alarms already Exists",
                          "form frmBookInfo",
                          "event [Manual]"));
  EXPECT_TRUE(world_.disk.has("Docs/Prod/Manual/Book_NEW.xml"));
}

TEST_F(AddBookFile, LeavesEverythingAsItWasWhenARuleIsBroken) {
  writeBook("Pumps", "PMP", "P\\..");
  const auto before = world_.disk.contents();
  EXPECT_TRUE(run());
  EXPECT_EQ(world_.disk.contents(), before);
  EXPECT_THAT(
      world_.user.recordWithoutProgress(),
      ElementsAre("critical: Error:Book Folder leads out of the library: P\\..", "event []"));
}

TEST_F(AddBookFile, LeavesEverythingAsItWasWhenTheUserCancels) {
  writeBook("Alarms", "NEW", "P\\Manual");
  const auto before = world_.disk.contents();
  world_.user.answerWith(pressCancel());
  EXPECT_TRUE(run());
  EXPECT_EQ(world_.disk.contents(), before);
  EXPECT_THAT(
      world_.user.recordWithoutProgress(),
      ElementsAre(
          "critical: Error:Book Name Alarms already Exists", "form frmBookInfo", "event []"));
}

TEST_F(AddBookFile, DoesNotGiveItsAcronymToTheFileOfTheNextBookWhenItIsGivenUp) {
  world_.user.answerWith(closeForm());
  writeBook("", "PMP", "P\\Manual");
  EXPECT_TRUE(run());
  EXPECT_THAT(catalogue(), Not(HasSubstr("PMP")));
  world_.disk.write("in/toc.txt", "\"a\" \"b\" \"c\" \"d\"\n\n");
  arguments_.vstrtocpath = "C:\\in\\toc.txt";
  arguments_.vintType = 4;
  arguments_.vstrBookName = "Text";
  arguments_.vstrBookAcro = "TXT";
  world_.user.answerWith(enterFolder("Manual"));
  EXPECT_TRUE(run());
  EXPECT_THAT(catalogue(), HasSubstr("<Book_File>Book_TXT.xml</Book_File>"));
}

TEST_F(AddBookFile, FromACatalogueIsRefusedForItsLackOfHeadings) {
  arguments_.vstrtocpath = "C:\\Docs\\Prod\\Quor_TOC.xml";
  EXPECT_TRUE(run());
  EXPECT_THAT(world_.user.recordWithoutProgress(),
              ElementsAre("information: Error:Book should have at least one heading", "event []"));
}

}  // namespace
}  // namespace quorbind::testing
