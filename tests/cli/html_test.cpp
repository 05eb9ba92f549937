#include <algorithm>

#include "tests/cli/command_test.h"
#include "tests/cli/terminal_session.h"

namespace quorbind::testing {
namespace {

/// An HTML page as a table of contents.
class HtmlPage : public CommandTest {
 protected:
  void SetUp() override { initLibrary(); }

  /// A book of two headings with their documents, of which one shows a picture.
  void writePage() const {
    disk.write("toc.htm",
               "<html><body>\n"
               "<HT><A HREF=\"Manual/cover.htm\">Alarm Handling</A></HT>\n"
               "<K1><A HREF=\"Manual/alarms.htm\" FLINKVALUE=\"A\">Alarms</A></K1>\n"
               "<K2><A HREF=\"Manual/reset.htm#r\">Reset</A><IBD><Reset></IBD></K2>\n"
               "</body></html>\n");
    disk.write("Manual/cover.htm", "cover");
    disk.write("Manual/alarms.htm", "<link href=\"manual.css\"><img src=\"pictures/a.png\">");
    disk.write("Manual/reset.htm", "reset");
    disk.write("Manual/manual.css", "style");
    disk.write("Manual/pictures/a.png", "picture");
  }

  [[nodiscard]] Outcome check(const Words& more = {}) const {
    const Tree before = disk.contents();
    const Outcome outcome = quorbind(joined({"check", "toc.htm"}, more));
    EXPECT_EQ(disk.contents(), before);
    return outcome;
  }
  [[nodiscard]] Outcome addPage(const Words& more = {}) const {
    return addFile("toc.htm", joined({"--name", "Alarms", "--acro", "ALM"}, more));
  }
  /// Adds and expects this end, with nothing changed anywhere.
  void expectRefusal(int status, const std::string& errors, const Words& more = {}) const {
    const Tree before = disk.contents();
    const Outcome outcome = addPage(more);
    EXPECT_EQ(outcome.status, status);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, errors);
    EXPECT_EQ(disk.contents(), before);
  }
  /// The same for a page of these bytes.
  void expectPageRefused(const std::string& page,
                         const std::string& box,
                         const std::string& place) const {
    disk.write("toc.htm", page);
    expectRefusal(1, box + "quorbind: toc.htm" + place + ": nothing was added\n");
    const Outcome outcome = check();
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, box + "quorbind: toc.htm" + place + ": not accepted\n");
  }
  static std::string boxOf(const std::string& block, const std::string& error) {
    return "critical: Line: " + block + "\n" + error + "\noffending line: " + block + "\n";
  }

  [[nodiscard]] std::string shown() const {
    return quorbind({"show", "--server", "server", "--library", "Plant", "ALM"}).out;
  }
};

// Adding

TEST_F(HtmlPage, IsAddedWithItsDocumentsTheirPicturesAndStyleSheets) {
  writePage();
  const Outcome outcome = addPage();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "Added Alarms (ALM) to Plant, folder Manual: 3 files.\n"
            "missing: cover.htm\n")
      << "no heading names the main file, so it does not come along";
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(filesBelow("server/Docs/Plant/Manual/"),
            (Words{"Book_ALM.xml", "alarms.htm", "manual.css", "pictures/a.png", "reset.htm"}));
  EXPECT_EQ(shown(),
            "Alarms (ALM), folder Manual\n"
            "  Alarms  alarms.htm\n"
            "    Reset  reset.htm#r\n");
}

TEST_F(HtmlPage, LeavesNothingBesideItself) {
  writePage();
  const std::vector<std::string> before = filesBelow("");
  EXPECT_EQ(addPage().status, 0);
  std::vector<std::string> left;
  for (const std::string& name : filesBelow("")) {
    if (!name.starts_with("server/")) {
      left.push_back(name);
    }
  }
  for (const std::string& name : left) {
    EXPECT_NE(std::find(before.begin(), before.end(), name), before.end()) << name;
  }
  EXPECT_EQ(left.size(), 6U);
}

TEST_F(HtmlPage, GivesItsLinkIdentifiersTheAcronymOfTheBook) {
  writePage();
  EXPECT_EQ(addPage().status, 0);
  EXPECT_EQ(libraryText("Quor_LinkID.xml"),
            "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"
            "<!--Inter Book Linking data file-->\n"
            "<LINKS>\n"
            "\t<IBD>\n"
            "\t\t<ID>\n"
            "\t\t\t<LinkID>Reset</LinkID>\n"
            "\t\t\t<FullLink>ALM@QUOR@Alarms@QUOR@Reset</FullLink>\n"
            "\t\t\t<LinkIDSourceFile>Plant\\Manual\\reset.htm#r</LinkIDSourceFile>\n"
            "\t\t\t<BookAcro>ALM</BookAcro>\n"
            "\t\t</ID>\n"
            "\t</IBD>\n"
            "</LINKS>\n");
}

TEST_F(HtmlPage, NamesTheMainFileOfItsBook) {
  writePage();
  EXPECT_EQ(addPage().status, 0);
  EXPECT_NE(
      libraryText("Manual/Book_ALM.xml").find("<Book_File type=\"htm\">cover.htm</Book_File>"),
      std::string::npos);
}

TEST_F(HtmlPage, OfTheLongerExtensionIsAddedLikewise) {
  writePage();
  disk.write("toc.html", disk.read("toc.htm"));
  const Tree before = disk.contents();
  EXPECT_EQ(addFile("toc.html", {"--name", "Alarms", "--acro", "ALM"}).status, 0);
  for (const auto& [name, content] : disk.contents()) {
    EXPECT_TRUE(name.starts_with("server/") || before.count(name) == 1) << name;
  }
}

TEST_F(HtmlPage, ListsTheDocumentsThatAReaderWouldNotFind) {
  writePage();
  std::filesystem::remove(disk.path() / "Manual/reset.htm");
  const Outcome outcome = addPage({"--json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "{\n  \"format\": 1,\n"
            "  \"status\": 0,\n"
            "  \"added\": true,\n"
            "  \"folder\": \"Manual\",\n"
            "  \"files\": [\n"
            "    \"Book_ALM.xml\",\n"
            "    \"alarms.htm\"\n"
            "  ],\n"
            "  \"missing\": [\n"
            "    \"cover.htm\",\n"
            "    \"reset.htm\"\n"
            "  ],\n"
            "  \"messages\": []\n"
            "}\n");
}

TEST_F(HtmlPage, WhoseHeadingsNameNoFolderTakesThatOfTheFlag) {
  disk.write("toc.htm", "<K1><A HREF=\"a.htm\">A</A></K1>");
  disk.write("a.htm", "page");
  EXPECT_EQ(addPage({"--folder", "Manual"}).out,
            "Added Alarms (ALM) to Plant, folder Manual: 2 files.\n");
}

TEST_F(HtmlPage, AsksForNameAndAcronymFirstAndOffersItsTitle) {
  writePage();
  TerminalSession session(
      {.words =
           {quorbindExecutable(), "add", "toc.htm", "--server", "server", "--library", "Plant"},
       .folder = disk.path().string(),
       .environment = environment});
  session.waitFor("Enter Book Information for :\ntoc.htm\nBook Name: [Alarm Handling] ");
  session.typeLine("");
  session.waitFor("Book Acro: ");
  EXPECT_FALSE(disk.has("server/Docs/Plant/Quor_LinkID.xml"));
  session.typeLine("ALM");
  session.waitFor("Added Alarm Handling (ALM) to Plant, folder Manual: 3 files.\n");
  EXPECT_EQ(session.finish().status, 0);
  EXPECT_NE(libraryText("Quor_LinkID.xml").find("<BookAcro>ALM</BookAcro>"), std::string::npos);
}

TEST_F(HtmlPage, AnInterruptTakesItsExportAlong) {
  disk.write("toc.htm", "<K1><A HREF=\"a.htm\">A</A></K1>");
  TerminalSession session({.words = joined({quorbindExecutable()},
                                           {"add",
                                            "toc.htm",
                                            "--server",
                                            "server",
                                            "--library",
                                            "Plant",
                                            "--name",
                                            "Alarms",
                                            "--acro",
                                            "ALM"}),
                           .folder = disk.path().string(),
                           .environment = environment});
  session.waitFor("Book Folder: ");
  EXPECT_TRUE(disk.has("TOC_Temp.txt")) << "there is nothing that could be left behind";
  session.interrupt();
  EXPECT_EQ(session.finish().signal, SIGINT);
  EXPECT_FALSE(disk.has("TOC_Temp.txt"));
}

// Before anything is written

TEST_F(HtmlPage, ThatBreaksARuleRecordsNoLinkIdentifierEither) {
  expectPageRefused(
      "<K1><A HREF=\"a.htm\">A</A><IBD><A1></IBD></K1>\n"
      "text <K3><A HREF=\"b.htm\">B</A></K3>\n",
      boxOf("<K3><A HREF=\"b.htm\">B</A></K3>", "Error:Heading Tag does not follow sequence "),
      ":2:6");
}

TEST_F(HtmlPage, IsNotAddedWithoutNameAndAcronymAndATerminal) {
  writePage();
  const Tree before = disk.contents();
  const Outcome neither = addFile("toc.htm");
  EXPECT_EQ(neither.status, 6);
  EXPECT_EQ(neither.err, "quorbind: toc.htm: nothing was added: give --name and --acro\n");
  const Outcome one = addFile("toc.htm", {"--acro", "ALM"});
  EXPECT_EQ(one.status, 6);
  EXPECT_EQ(one.err, "quorbind: toc.htm: nothing was added: give --name\n");
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(HtmlPage, IsNotAddedWithoutAFolderAndATerminal) {
  disk.write("toc.htm", "<K1><A HREF=\"a.htm\">A</A><IBD><A1></IBD></K1>");
  expectRefusal(6, "quorbind: toc.htm: nothing was added: give --folder\n");
}

TEST_F(HtmlPage, WithANameThatTheCatalogueHasIsNotAdded) {
  writePage();
  EXPECT_EQ(addPage().status, 0);
  expectRefusal(1,
                "critical: Error:Book Name Alarms already Exists\n"
                "quorbind: toc.htm: nothing was added: other values are needed for --name and "
                "--acro\n");
}

TEST_F(HtmlPage, WithANameThatTheCatalogueHasInAnotherLetterCaseIsNotAdded) {
  disk.write("toc.htm", "<K1><A HREF=\"Manual/a.htm\">A</A></K1>");
  EXPECT_EQ(addFile("toc.htm", {"--name", "ALARMS", "--acro", "OTH"}).status, 0);
  expectRefusal(1,
                "critical: Error:Book Name Alarms already Exists\n"
                "quorbind: toc.htm: nothing was added: other values are needed for --name and "
                "--acro\n");
}

TEST_F(HtmlPage, WhoseFirstHeadingLeadsOutOfTheLibraryIsNotAdded) {
  disk.write("toc.htm", "<p>\n<K1><A HREF=\"../Manual/a.htm\">A</A><IBD><A1></IBD></K1>");
  expectRefusal(1,
                "critical: Error:Book Folder leads out of the library: ..\\Manual\\a.htm\n"
                "quorbind: toc.htm:2: nothing was added\n");
}

TEST_F(HtmlPage, WhoseFirstTitlePassesForAFolderThatLeadsOutIsNotAdded) {
  disk.write("toc.htm",
             "<HT><A HREF=\"c.htm\">T</A><IBD>#B#</IBD></HT>\n"
             "<K1><A HREF=\"M/a.htm\">x$@@$ $@@$..\\e\\y$@@$ $@@$$@@$ $@@$$@@$ "
             "$@@$Evil@@@s$@@$</A></K1>");
  expectRefusal(1,
                "critical: Error:Book Folder leads out of the library: ..\\e\\y\n"
                "quorbind: toc.htm:2: nothing was added\n");
}

TEST_F(HtmlPage, WhoseFirstTitleRunsOverTwoLinesStatesNoFolder) {
  disk.write("toc.htm",
             "<HT><A HREF=\"c.htm\">T</A><IBD>#B#</IBD></HT>"
             "<K1><A HREF=\"M/a.htm\">Two\nlines</A></K1>");
  const std::string note =
      "information: toc.htm:1: a line break in the title or in a value of the heading cuts its "
      "entry "
      "in two; it does not come into the book as it is written, and link identifiers from there on "
      "are not recorded\n";
  EXPECT_EQ(check().err, note);
  expectRefusal(6, note + "quorbind: toc.htm: nothing was added: give --folder\n");
  const Outcome outcome = addPage({"--folder", "Other"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "Added Alarms (ALM) to Plant, folder Other: 1 file.\n"
            "missing: c.htm\n");
  EXPECT_EQ(outcome.err,
            note +
                "critical: Error(9): Subscript out of range\n"
                "Quorbind: Quor_Book::GenerateBookLinkID\n"
                "critical: Error(9): Subscript out of range\n"
                "Quorbind:CTOCToXML::mGenerateBookHeadings\n");
}

TEST_F(HtmlPage, NeverTakesThePlaceOfAFileThatStandsWhereItsExportGoes) {
  writePage();
  disk.write("toc_temp.TXT", "the author's own");
  expectRefusal(1,
                "critical: DISK/TOC_Temp.txt: the file is in the way; move it or delete it\n"
                "quorbind: toc.htm: nothing was added\n");
}

TEST_F(HtmlPage, NeverTakesThePlaceOfABookFile) {
  writePage();
  disk.write("Manual/Book_ALM.xml", "the author's own");
  expectRefusal(1,
                "critical: DISK/Manual/Book_ALM.xml: the file is in the way; move it or delete it\n"
                "quorbind: toc.htm: nothing was added\n");
}

TEST_F(HtmlPage, IsNotAddedWhereItsLinkIdentifiersCanNotBeRecorded) {
  writePage();
  disk.write("server/Docs/Plant/Quor_LinkID.xml", "<LINKS>\n<IBD>\n</LINKS>");
  const Tree before = disk.contents();
  const Outcome damaged = addPage();
  EXPECT_EQ(damaged.status, 4);
  EXPECT_TRUE(damaged.err.starts_with("critical: DISK/server/Docs/Plant/Quor_LinkID.xml:3:9: "))
      << damaged.err;
  EXPECT_EQ(disk.contents(), before);
  disk.write("server/Docs/Plant/Quor_LinkID.xml", "<Books/>");
  expectRefusal(4,
                "critical: DISK/server/Docs/Plant/Quor_LinkID.xml: the element LINKS is missing\n"
                "quorbind: toc.htm: nothing was added\n");
  disk.write("toc.htm", "<K1><A HREF=\"Manual/a.htm\">A</A></K1>");
  EXPECT_EQ(addPage().status, 0) << "it has none";
}

TEST_F(HtmlPage, IsAddedWhereARunHasEndedWhileItMadeTheFileOfLinkIdentifiers) {
  writePage();
  disk.write("server/Docs/Plant/Quor_LinkID.xml", "<LINKS/>");
  EXPECT_EQ(addPage().status, 0);
  EXPECT_NE(disk.read("server/Docs/Plant/Quor_LinkID.xml").find("<LinkID>Reset</LinkID>"),
            std::string::npos);
}

TEST_F(HtmlPage, TellsOfALinkIdentifierThatIsTakenAndIsAddedWithoutIt) {
  writePage();
  EXPECT_EQ(addPage().status, 0);
  const std::string before = disk.read("server/Docs/Plant/Quor_LinkID.xml");
  const Outcome outcome = addFile("toc.htm", {"--name", "Other", "--acro", "OTH"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "critical: Reset - Link ID already exist. \n");
  EXPECT_EQ(disk.read("server/Docs/Plant/Quor_LinkID.xml"), before);
}

TEST_F(HtmlPage, RecordsItsKeywords) {
  writePage();
  EXPECT_EQ(addPage({"--keywords", "alarm;reset"}).status, 0);
  EXPECT_NE(libraryText("Quor_SearchKeywords.xml").find("<Keyword>reset</Keyword>"),
            std::string::npos);
}

TEST_F(HtmlPage, ThatHasATwinInAnotherLetterCaseIsNotAdded) {
  writePage();
  disk.write("TOC.HTM", "<K1><A HREF=\"other.htm\">Other</A></K1>");
  expectRefusal(1,
                "critical: toc.htm: the name of another file differs from it in letter case "
                "alone; rename one of them\n"
                "quorbind: toc.htm: nothing was added\n");
}

TEST_F(HtmlPage, WithHeadingsBeyondWhatAReaderTakesIsNotAdded) {
  std::string page;
  for (int level = 1; level <= 254; ++level) {
    const std::string number = std::to_string(level);
    page += "<K" + number + "><A HREF=\"M/a.htm\">A</A></K" + number + ">\n";
  }
  disk.write("toc.htm", page);
  expectRefusal(4,
                "critical: The heading lies too deep\n"
                "quorbind: toc.htm:254:1: nothing was added\n");
}

TEST_F(HtmlPage, ThatBreaksARuleBeyondThatDepthIsRefusedForTheRuleAlone) {
  std::string page;
  for (int level = 1; level <= 259; ++level) {
    const std::string number = std::to_string(level);
    page += "<K" + number + "><A HREF=\"M/a.htm\">A</A></K" + number + ">\n";
  }
  expectPageRefused(page + "<K0>A</K0>",
                    boxOf("<K0>A</K0>", "Error:Heading level should be positive "),
                    ":260:1");
}

TEST_F(HtmlPage, TellsOfLinkIdentifiersThatWillNotBeRecorded) {
  disk.write("toc.htm",
             "<K1><A HREF=\"M/a.htm\">A</A><IBD>#A1#</IBD></K1>\n"
             "<K1><A HREF=\"M/b.htm\">B</A><IBD>#B'1#</IBD></K1>\n"
             "<K1><A HREF=\"M/c.htm\">C</A><IBD>x</IBD></K1>\n"
             "<K1><A HREF=\"M/d.htm\">D</A><IBD>#D1#</IBD></K1>\n");
  const std::string notes =
      "information: toc.htm:2: the link identifier has an apostrophe and is not recorded\n"
      "information: toc.htm:3: the link identifier has no characters between <IBD> and </IBD>; it "
      "and those behind it are not recorded\n";
  EXPECT_EQ(check().err, notes);
  const Outcome outcome = addPage();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err.substr(0, notes.size()), notes);
  const std::string recorded = libraryText("Quor_LinkID.xml");
  EXPECT_NE(recorded.find("<LinkID>A1<"), std::string::npos);
  EXPECT_EQ(recorded.find("B'1"), std::string::npos);
  EXPECT_EQ(recorded.find("D1"), std::string::npos);
}

// Checking

TEST_F(HtmlPage, IsCheckedWithItsDocuments) {
  writePage();
  EXPECT_EQ(check().out, "toc.htm: accepted, 2 entries.\n");
  std::filesystem::remove_all(disk.path() / "Manual");
  EXPECT_EQ(check().out,
            "toc.htm:2: missing: Manual/cover.htm\n"
            "toc.htm:3: missing: Manual/alarms.htm\n"
            "toc.htm:4: missing: Manual/reset.htm#r\n"
            "toc.htm: accepted, 2 entries.\n");
}

TEST_F(HtmlPage, NamesTheHeadingAtFaultByLineAndCharacter) {
  expectPageRefused(
      "<p>\r\n\xC3\xA4\xC3\xB6 <K1><A HREF=\"a.htm\">A</A></K2>",
      boxOf("<K1><A HREF=\"a.htm\">A</A></K2>", "Error:Start and End Tag does not match "),
      ":2:4");
}

TEST_F(HtmlPage, NamesATagAtFault) {
  expectPageRefused("<K1><A HREF=\"a.htm\">A</A></K1>\n </k1>",
                    "critical: End Tag </K1> Does Not Have a Start Tag\n"
                    "offending line: </K1>\n",
                    ":2:2");
  expectPageRefused("\n<K1>",
                    "critical: Start Tag <K1> Does Not Have a End Tag\n"
                    "offending line: <K1>\n",
                    ":2:1");
}

TEST_F(HtmlPage, NamesTheTitleAtFault) {
  expectPageRefused("<K1><A HREF=\"a.htm\">A</A></K1>\n <HT>Title</HT>",
                    boxOf("Title", "Error:File Path information is missing"),
                    ":2:2");
  expectPageRefused("<HT><A HREF=\"a.htm\">A</A><IBD>x</IBD></HT><K1><A HREF=\"a.htm\">A</A></K1>",
                    "critical: The link identifier of the book has no characters between <IBD> and "
                    "</IBD>\n",
                    ":1:1");
}

TEST_F(HtmlPage, ReportsTheCharacterInItsObject) {
  disk.write("toc.htm", " <K0></K0>");
  const Outcome outcome = check({"--json"});
  EXPECT_EQ(outcome.out,
            "{\n  \"format\": 1,\n"
            "  \"status\": 1,\n"
            "  \"accepted\": false,\n"
            "  \"entries\": 0,\n"
            "  \"missing\": [],\n"
            "  \"messages\": [\n"
            "    {\n"
            "      \"icon\": \"critical\",\n"
            "      \"title\": \"Quorbind\",\n"
            "      \"text\": \"Line: <K0></K0>\\rError:Heading level should be positive \",\n"
            "      \"clipboard\": \"<K0></K0>\",\n"
            "      \"expected\": \"A level from 1.\"\n"
            "    }\n"
            "  ],\n"
            "  \"line\": 1,\n"
            "  \"column\": 2,\n"
            "  \"length\": 4,\n"
            "  \"text\": \" <K0></K0>\",\n"
            "  \"expected\": \"A level from 1.\",\n"
            "  \"note\": \"not accepted\"\n"
            "}\n");
}

// Bad and unusual input

TEST_F(HtmlPage, WithoutHeadings) {
  const std::string box = "critical: Error:Book Should Have at least one Heading\n";
  expectPageRefused("<html></html>", box, "");
  expectPageRefused("", box, "");
  expectPageRefused(std::string(1000, '\0'), box, "");
}

TEST_F(HtmlPage, WithLevelsThatAreNone) {
  for (const char* level : {"", "one", "40000", "1x", "True"}) {
    const std::string block = "<K" + std::string(level) + "></K1>";
    expectPageRefused(block, boxOf(block, "Error:Not Valid Begining and End Tags"), ":1:1");
  }
  expectPageRefused("<K1></Kx>", "critical: Error:Not Valid Begining and End Tags\n", ":1:1");
}

TEST_F(HtmlPage, WithoutAPathOrATitle) {
  expectPageRefused(
      "<K1>A</K1>", boxOf("<K1>A</K1>", "Error:File Path information is missing"), ":1:1");
  const std::string unclosed = "<K1><A HREF=\"a.htm>A</A></K1>";
  expectPageRefused(unclosed, boxOf(unclosed, "Error:File Path information is missing"), ":1:1");
  const std::string untitled = "<K1><A HREF=\"a.htm\"></A></K1>";
  expectPageRefused(untitled, boxOf(untitled, "Error:File Title Information is missing"), ":1:1");
}

TEST_F(HtmlPage, CutOffAtAnyCharacterNeverChangesAnything) {
  const std::string page = "<K1><A HREF=\"a.htm\">A</A><IBD><A1></IBD></K1>";
  for (std::size_t size = 0; size < page.size(); ++size) {
    disk.write("toc.htm", page.substr(0, size));
    const Tree before = disk.contents();
    EXPECT_EQ(addPage().status, 1) << size;
    EXPECT_EQ(disk.contents(), before) << size;
  }
}

TEST_F(HtmlPage, OfTenMegabytesInOneLine) {
  const std::string filler(5'000'000, 'x');
  disk.write("toc.htm",
             filler + "<K1><A HREF=\"Manual/a.htm\">A</A></K1>" + filler +
                 "<K2><A HREF=\"Manual/b.htm\">B</A></K2>");
  const Outcome outcome = addPage();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "Added Alarms (ALM) to Plant, folder Manual: 1 file.\n"
            "missing: a.htm\n"
            "missing: b.htm\n");
  EXPECT_EQ(shown(),
            "Alarms (ALM), folder Manual\n  A  a.htm  (missing)\n    B  b.htm  (missing)\n");
}

TEST_F(HtmlPage, InEachEncoding) {
  const std::string title = "Ger\xC3\xA4te \xE2\x82\xAC";
  const std::string page = "<K1><A HREF=\"Manual/a.htm\">" + title + "</A></K1>";
  std::string swapped = utf16File(page);
  for (std::size_t i = 0; i + 1 < swapped.size(); i += 2) {
    std::swap(swapped[i], swapped[i + 1]);
  }
  const Words encoded{page,
                      "\xEF\xBB\xBF" + page,
                      utf16File(page),
                      swapped,
                      "<K1><A HREF=\"Manual/a.htm\">Ger\xE4te \x80</A></K1>"};
  for (const std::string& bytes : encoded) {
    disk.write("toc.htm", bytes);
    EXPECT_EQ(addPage().status, 0);
    EXPECT_EQ(shown(), "Alarms (ALM), folder Manual\n  " + title + "  a.htm  (missing)\n");
    std::filesystem::remove_all(disk.path() / "server");
    initLibrary();
  }
}

TEST_F(HtmlPage, WithNamesThatLeadOutLooksAndBringsNothingFromThere) {
  disk.write("secret.htm", "secret");
  disk.write("sub/toc.htm",
             "<K1><A HREF=\"Manual/a.htm\">A</A></K1>\n"
             "<K1><A HREF=\"../secret.htm\">B</A></K1>\n"
             "<K1><A HREF=\"C:/secret.htm\">C</A></K1>\n"
             "<K1><A HREF=\"//server/secret.htm\">D</A></K1>\n"
             "<K1><A HREF=\"Manual/nul.htm\">E</A></K1>\n");
  disk.write("sub/Manual/a.htm", "<img src=\"../../secret.htm\">");
  disk.write("sub/Manual/nul.htm", "device");
  EXPECT_EQ(quorbind({"check", "sub/toc.htm"}).out,
            "sub/toc.htm:2: missing: ../secret.htm\n"
            "sub/toc.htm:3: missing: C:/secret.htm\n"
            "sub/toc.htm:4: missing: //server/secret.htm\n"
            "sub/toc.htm:5: missing: Manual/nul.htm\n"
            "sub/toc.htm: accepted, 5 entries.\n");
  EXPECT_EQ(addFile("sub/toc.htm", {"--name", "Alarms", "--acro", "ALM"}).status, 0);
  EXPECT_EQ(filesBelow("server/Docs/Plant/Manual/"), (Words{"Book_ALM.xml", "a.htm"}));
}

}  // namespace
}  // namespace quorbind::testing
