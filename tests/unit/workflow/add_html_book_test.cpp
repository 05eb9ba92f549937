// Additions whose table of contents is an HTML page.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/book_run_test.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class AddHtmlBook : public BookRunTest {
 protected:
  AddHtmlBook() : BookRunTest("C:\\in\\toc.htm", 2, "Docs/Prod") {
    writePage("");
    world_.disk.write("in/Manual/start.htm", "page <img src=p.png>");
    world_.disk.write("in/Manual/p.png", "picture");
  }

  void writePage(const std::string& title) {
    world_.disk.write("in/toc.htm",
                      title +
                          "<K1><A HREF=\"Manual/start.htm\" FLINKVALUE=\"S\">Start</A></K1>\r\n"
                          "<K2><A HREF=\"Manual/cold.htm#c\">Cold start</A>"
                          "<IBD><Cold></IBD></K2>\r\n");
  }

  bool run(const std::string& name = "Pump Station", const std::string& acronym = "PST") {
    return BookRunTest::run(name, acronym);
  }
  [[nodiscard]] std::string linkOf(const std::string& acronym) const {
    return "\t\t<ID>\n"
           "\t\t\t<LinkID>Cold</LinkID>\n"
           "\t\t\t<FullLink>" +
           acronym +
           "@QUOR@Start@QUOR@Cold start</FullLink>\n"
           "\t\t\t<LinkIDSourceFile>Prod\\Manual\\cold.htm#c</LinkIDSourceFile>\n";
  }
};

TEST_F(AddHtmlBook, GoesThroughItsStagesInOrder) {
  EXPECT_TRUE(run());
  EXPECT_EQ(world_.user.record(), everyStage("Manual"));
}

TEST_F(AddHtmlBook, BecomesABookFileInTheFolderOfItsFirstHeading) {
  writePage("<HT><A HREF=\"Manual/cover.htm\">Pumps</A></HT>");
  EXPECT_TRUE(run());
  EXPECT_EQ(world_.text("Docs/Prod/Manual/Book_PST.xml"),
            "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"
            "<!--Quorbind Documentation Tools, Library Tools Group-->\n"
            "<!--Library Tools Group, Authoring Tools-->\n"
            "<!--Quor Book Data File -->\n"
            "<!--1/2/2026 3:04:05 PM-->\n"
            "<!--Version 0.1 -->\n"
            "<!--Information 'quorbind@example.com'-->\n"
            "<Book_Master>\n"
            "\t<Book>\n"
            "\t\t<Book_Name>Pump Station</Book_Name>\n"
            "\t\t<Book_Acro>PST</Book_Acro>\n"
            "\t\t<Book_Key id=\"\">Prod</Book_Key>\n"
            "\t\t<Book_Path>Prod\\Manual</Book_Path>\n"
            "\t\t<Book_BuildDate>1/2/2026 3:04:05 PM</Book_BuildDate>\n"
            "\t\t<Book_File type=\"htm\">cover.htm</Book_File>\n"
            "\t\t<Book_Categories/>\n"
            "\t</Book>\n"
            "\t<Book_Headings>\n"
            "\t\t<Heading level=\"H1\" type=\"htm\">\n"
            "\t\t\t<HName FLinkValue=\"S\">Start</HName>\n"
            "\t\t\t<HFile>start.htm</HFile>\n"
            "\t\t\t<Heading level=\"H2\" type=\"htm\">\n"
            "\t\t\t\t<HName>Cold start</HName>\n"
            "\t\t\t\t<HFile BookMark=\"#c\">cold.htm</HFile>\n"
            "\t\t\t</Heading>\n"
            "\t\t</Heading>\n"
            "\t</Book_Headings>\n"
            "</Book_Master>\n");
}

TEST_F(AddHtmlBook, BringsItsDocumentsAndLeavesOnlyItsExportBehind) {
  auto expected = world_.disk.contents();
  EXPECT_TRUE(run());
  auto found = world_.disk.contents();
  EXPECT_EQ(found["Docs/Prod/Manual/start.htm"], "page <img src=p.png>");
  EXPECT_EQ(found["Docs/Prod/Manual/p.png"], "picture");
  EXPECT_EQ(found.erase("in/TOC_Temp.txt"), 1U);
  for (const char* added : {"Docs/Prod/Manual",
                            "Docs/Prod/Manual/Book_PST.xml",
                            "Docs/Prod/Manual/start.htm",
                            "Docs/Prod/Manual/p.png",
                            "Docs/Prod/Quor_LinkID.xml"}) {
    EXPECT_EQ(found.erase(added), 1U) << added;
  }
  expected["Docs/Prod/Quor_TOC.xml"] = found["Docs/Prod/Quor_TOC.xml"];
  EXPECT_EQ(found, expected);
}

TEST_F(AddHtmlBook, BringsNothingFromAboveItsFolder) {
  const std::string page = "<K1><A HREF=\"Other/secret.htm\">Secret</A></K1>";
  world_.disk.write("secret.htm", "of somebody else");
  for (const char* folder : {"in", "Other"}) {
    world_.disk.write(std::string(folder) + "/toc.htm", page);
    arguments_.vstrtocpath = "C:\\" + std::string(folder) + "\\toc.htm";
    EXPECT_TRUE(run(folder, folder));
    EXPECT_TRUE(world_.disk.has("Docs/Prod/Other/Book_" + std::string(folder) + ".xml"));
    EXPECT_FALSE(world_.disk.has("Docs/Prod/Other/secret.htm")) << folder;
  }
}

TEST_F(AddHtmlBook, TakesTheBookFileInTheBooksFolderWhenItsOwnCanNotBeMovedThere) {
  world_.disk.write("in/Manual/Book_PST.xml", "an older one");
  EXPECT_TRUE(run());
  EXPECT_THAT(world_.user.recordWithoutProgress(), ElementsAre("event [Manual]"));
  EXPECT_EQ(world_.disk.read("Docs/Prod/Manual/Book_PST.xml"), "an older one");
  EXPECT_FALSE(world_.disk.has("in/Manual/Book_PST.xml"));
  EXPECT_TRUE(world_.disk.has("in/Book_PST.xml"));
}

TEST_F(AddHtmlBook, OffersTheTitleOfThePageAsItsName) {
  writePage("<HT><A HREF=\"Manual/cover.htm\">Pumps</A></HT>");
  world_.user.answerWith([](ModalForm& form) {
    EXPECT_EQ(form.boxText("txtBookName"), "Pumps");
    form.type("txtBookAcro", "PMP");
    form.click("cmdOk");
  });
  EXPECT_TRUE(run("", ""));
  EXPECT_THAT(world_.disk.read("Docs/Prod/Quor_TOC.xml"), HasSubstr("<Book_Name>Pumps<"));
  EXPECT_TRUE(world_.disk.has("Docs/Prod/Manual/Book_PMP.xml"));
}

TEST_F(AddHtmlBook, RecordsItsLinkIdentifiersBeforeItsAcronymIsKnown) {
  EXPECT_TRUE(run());
  EXPECT_THAT(world_.text("Docs/Prod/Quor_LinkID.xml"),
              HasSubstr(linkOf("") + "\t\t\t<BookAcro/>\n"));
}

TEST_F(AddHtmlBook, RecordsThemWithItsAcronymForAHostThatAsksFirst) {
  world_.user.answerWith(enterBook("Pump Station", "PST"));
  EXPECT_TRUE(book_.mbGetFormInput(arguments_.vstrQuorTOcPath, arguments_.vintType));
  EXPECT_TRUE(run("", ""));
  EXPECT_THAT(world_.user.recordWithoutProgress(),
              ElementsAre("form frmBookInfo", "event [Manual]"));
  EXPECT_THAT(world_.text("Docs/Prod/Quor_LinkID.xml"),
              HasSubstr(linkOf("PST") + "\t\t\t<BookAcro>PST</BookAcro>\n"));
  EXPECT_THAT(world_.disk.read("Docs/Prod/Quor_TOC.xml"), HasSubstr("<Book_Acro>PST</Book_Acro>"));
}

TEST_F(AddHtmlBook, ForgetsTheMainFileOfTheBookBefore) {
  writePage("<HT><A HREF=\"Manual/cover.htm\">Pumps</A></HT>");
  EXPECT_TRUE(run());
  writePage("");
  EXPECT_TRUE(run("Other", "OTH"));
  EXPECT_EQ(world_.text("Docs/Prod/Manual/Book_OTH.xml").find("<Book_File"), std::string::npos);
}

TEST_F(AddHtmlBook, IsRefusedBeforeAnythingIsWrittenWhenTheFolderOfItsFirstHeadingLeadsOut) {
  const std::string title = "<HT><A HREF=\"Manual/cover.htm\">Pumps</A>";
  const std::string identifier = "<IBD>#Book#</IBD>";
  const std::string heading =
      "</HT><K1><A HREF=\"../Manual/start.htm\">Start</A><IBD>#Start#</IBD></K1>";
  for (const std::string& page : {title + heading, title + identifier + heading}) {
    world_.disk.write("in/toc.htm", page);
    world_.user.forget();
    const auto before = world_.disk.contents();
    EXPECT_TRUE(run());
    EXPECT_THAT(
        world_.user.recordWithoutProgress(),
        ElementsAre("critical: Error:Book Folder leads out of the library: ..\\Manual\\start.htm",
                    "event []"));
    EXPECT_EQ(world_.disk.contents(), before);
  }
}

TEST_F(AddHtmlBook, IsRefusedBeforeAnythingIsWrittenWhenItsFirstTitlePassesForAFolderThatLeadsOut) {
  world_.disk.write("in/toc.htm",
                    "<IBD>#Book#</IBD><HT><A HREF=\"Manual/cover.htm\">Pumps</A></HT>"
                    "<K1><A HREF=\"Manual/start.htm\">x$@@$ $@@$..\\e\\y$@@$ $@@$$@@$ $@@$$@@$ "
                    "$@@$Evil@@@s$@@$</A></K1>");
  const auto before = world_.disk.contents();
  EXPECT_TRUE(run());
  EXPECT_THAT(
      world_.user.recordWithoutProgress(),
      ElementsAre("critical: Error:Book Folder leads out of the library: ..\\e\\y", "event []"));
  EXPECT_EQ(world_.disk.contents(), before);
}

TEST_F(AddHtmlBook, LeavesEverythingAsItWasWhenARuleIsBroken) {
  world_.disk.write("in/toc.htm", "<K1><A HREF=\"Manual/start.htm\">Start</A></K2>");
  const auto before = world_.disk.contents();
  EXPECT_TRUE(run());
  EXPECT_EQ(world_.disk.contents(), before);
  EXPECT_THAT(world_.user.recordWithoutProgress(),
              ElementsAre("critical: Line: <K1><A HREF=\"Manual/start.htm\">Start</A></K2>\r"
                          "Error:Start and End Tag does not match ",
                          "clipboard: <K1><A HREF=\"Manual/start.htm\">Start</A></K2>",
                          "event []"));
}

TEST_F(AddHtmlBook, StartsASecondRunWithTheLevelOfTheFirst) {
  EXPECT_TRUE(run());
  world_.disk.write("in/toc.htm", "<K3><A HREF=\"Manual/start.htm\">Start</A></K3>");
  EXPECT_TRUE(run("Other", "OTH"));
  EXPECT_TRUE(world_.disk.has("Docs/Prod/Manual/Book_OTH.xml"));
}

}  // namespace
}  // namespace quorbind::testing
