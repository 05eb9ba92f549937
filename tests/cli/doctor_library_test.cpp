// What `doctor` finds in a library: its catalogue, its books, its folders. Each finding is provoked
// alone, told whole, and mended by the command that it names.

#include "tests/cli/doctor_test.h"

namespace quorbind::testing {
namespace {

class DoctorOfACatalogue : public DoctorTest {
 protected:
  /// A second book, sound by itself.
  void writeOther(std::string_view name, std::string_view acronym, std::string_view folder) const {
    writeEntries(bookEntry("Alarms", "ALM") +
                 replaceAll(bookEntry(name, acronym), ">Manual<", ">" + std::string(folder) + "<"));
    const std::string place = "server/Docs/Plant/" + std::string(folder);
    disk.write(place + "/Book_" + std::string(acronym) + ".xml", bookFileOf(name, acronym));
    disk.write(place + "/alarms.htm", "<p>text</p>");
  }
  void expectInBoth(const std::string& findings, const std::string& counts) const {
    expectReport(kSoundServer + ("Plant, 2 books, 2 headings:\n" + findings), counts);
  }
  void expectBothSound() const {
    expectReport(std::string(kSoundServer) + "Plant, 2 books, 2 headings: sound\n",
                 "0 errors, 0 warnings");
  }
};

TEST_F(DoctorOfACatalogue, FindsThatItIsNotThere) {
  disk.remove(kCatalogue);
  disk.remove("server/Docs/Plant/Manual");
  expectReport(
      "DISK/server: sound\n"
      "Plant, 0 books, 0 headings:\n"
      "  error: DISK/server/Docs/Plant/Quor_TOC.xml: the library's catalogue is not there "
      "[missing-catalogue]\n"
      "    Take it from the backup, or make an empty one and add the books again.\n"
      "    quorbind init --server DISK/server --library Plant\n",
      "1 error, 0 warnings");
  mend();
  expectReport("DISK/server: sound\nPlant, 0 books, 0 headings: sound\n", "0 errors, 0 warnings");
}

TEST_F(DoctorOfACatalogue, FindsThatItDoesNotParseAndGoesOn) {
  disk.write(kCatalogue, "<Quor_Master>\n<Quor_Books>\n</Quor_Master>");
  disk.write(kCategories, "<Categories/>");
  disk.write(kKeywords, "<Keywords/>");
  disk.write(kLinks, "<Links/>");
  const Outcome outcome = doctor();
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "quorbind: DISK/server: 4 errors, 0 warnings\n");
  EXPECT_NE(
      outcome.out.find("  error: DISK/server/Docs/Plant/Quor_TOC.xml:3:15: it can't be used: "),
      std::string::npos)
      << outcome.out;
  EXPECT_NE(outcome.out.find("  error: DISK/server/Docs/Plant/Quor_BookCategories.xml: it can't be "
                             "used: the element BookSet_Categories is missing [damaged-file]\n"
                             "    Take it from the backup.\n"
                             "  error: DISK/server/Docs/Plant/Quor_SearchKeywords.xml: it can't be "
                             "used: the element Books is missing [damaged-file]\n"),
            std::string::npos)
      << outcome.out;
  EXPECT_NE(outcome.out.find("  error: DISK/server/Docs/Plant/Quor_LinkID.xml: it can't be used: "
                             "the element LINKS is missing [damaged-file]\n"),
            std::string::npos)
      << outcome.out;
}

TEST_F(DoctorOfACatalogue, FindsWhatAnEntryLacks) {
  writeEntries(bookEntry("Alarms", "ALM") + "<Book>\n<Book_Name>Else</Book_Name></Book>\n");
  expectReport(
      "DISK/server: sound\n"
      "Plant, 2 books, 1 heading:\n"
      "  error: DISK/server/Docs/Plant/Quor_TOC.xml:12: the entry of Else () has no Book_Acro "
      "[incomplete-entry]\n"
      "    Write the element into the entry, or take the entry out and add the book again.\n"
      "  error: DISK/server/Docs/Plant/Quor_TOC.xml:12: the entry of Else () has no Book_File "
      "[incomplete-entry]\n"
      "    Write the element into the entry, or take the entry out and add the book again.\n",
      "2 errors, 0 warnings");
}

TEST_F(DoctorOfACatalogue, FindsANameThatIsStoredAsItWasTyped) {
  writeEntries(entryWith(">Alarms<", ">R&amp;D 'new'<"));
  changeBookFile(">Alarms</Book_Name>", ">R&amp;D 'new'</Book_Name>");
  expectInPlant(
      "  warning: DISK/server/Docs/Plant/Quor_TOC.xml:4: the name of R&D 'new' (ALM) is stored as "
      "it was typed, so that the book can't be renamed [unreplaced-name]\n"
      "    Write R&amp;amp;D &amp;apos;new&amp;apos; into its Book_Name.\n",
      "0 errors, 1 warning");
  writeEntries(entryWith(">Alarms<", ">R&amp;amp;D &amp;apos;new&amp;apos;<"));
  changeBookFile(">Alarms</Book_Name>", ">R&amp;amp;D &amp;apos;new&amp;apos;</Book_Name>");
  expectSound();
}

TEST_F(DoctorOfACatalogue, FindsABookThatIsEnteredTwice) {
  writeEntries(bookEntry("Alarms", "ALM") + bookEntry("Alarms", "ALM"));
  expectReport(
      "DISK/server: sound\n"
      "Plant, 2 books, 1 heading:\n"
      "  error: DISK/server/Docs/Plant/Quor_TOC.xml:12: the book Alarms (ALM) is entered more than "
      "once [repeated-entry]\n"
      "    Delete one of its entries; the files stay.\n"
      "    quorbind delete Alarms --server DISK/server --library Plant\n",
      "1 error, 0 warnings");
  mend(" --yes");
  expectSound();
}

TEST_F(DoctorOfACatalogue, FindsANameThatTwoBooksHave) {
  writeOther("ALARMS", "ALT", "Else");
  expectInBoth(
      "  error: DISK/server/Docs/Plant/Quor_TOC.xml:12: ALARMS (ALT) has the name of Alarms (ALM), "
      "in whatever letter case [repeated-name]\n"
      "    Give one of them another name.\n"
      "    quorbind rename ALARMS --server DISK/server --library Plant\n",
      "1 error, 0 warnings");
  mend(" --name 'Other alarms' --acro ALT --yes");
  expectBothSound();
}

TEST_F(DoctorOfACatalogue, FindsOneNameInOneLetterCase) {
  writeOther("Alarms", "ALT", "Else");
  mend(" --name 'Other alarms' --acro ALX --yes");
  expectBothSound();
}

TEST_F(DoctorOfACatalogue, FindsAnAcronymThatTwoBooksHave) {
  writeOther("Trends", "ALM", "Else");
  expectInBoth(
      "  error: DISK/server/Docs/Plant/Quor_TOC.xml:12: Trends (ALM) has the acronym of Alarms "
      "(ALM), in whatever letter case [repeated-acronym]\n"
      "    Give one of them another acronym.\n"
      "    quorbind rename Alarms --server DISK/server --library Plant\n",
      "1 error, 0 warnings");
  mend(" --name Alarms --acro AL2 --yes");
  expectBothSound();
}

TEST_F(DoctorOfACatalogue, FindsAnAcronymThatTwoBooksHaveInDifferentLetterCases) {
  writeOther("Trends", "alm", "Else");
  expectInBoth(
      "  error: DISK/server/Docs/Plant/Quor_TOC.xml:12: Trends (alm) has the acronym of Alarms "
      "(ALM), in whatever letter case [repeated-acronym]\n"
      "    Give one of them another acronym.\n"
      "    quorbind rename Trends --server DISK/server --library Plant\n",
      "1 error, 0 warnings");
  mend(" --name Trends --acro TRD --yes");
  expectBothSound();
}

TEST_F(DoctorOfACatalogue, FindsTwoBooksWithOneFile) {
  writeEntries(bookEntry("Alarms", "ALM") + bookEntry("Trends", "ALM"));
  expectReport(
      "DISK/server: sound\n"
      "Plant, 2 books, 1 heading:\n"
      "  error: DISK/server/Docs/Plant/Quor_TOC.xml:12: Trends (ALM) has the book file of Alarms "
      "(ALM) [shared-book-file]\n"
      "    Delete this entry, and add the book again with an acronym of its own.\n"
      "    quorbind delete Trends --server DISK/server --library Plant\n",
      "1 error, 0 warnings");
  mend(" --yes");
  expectSound();
}

TEST_F(DoctorOfACatalogue, FindsABookOutsideTheLibraryAndLooksForNothingThere) {
  disk.write("in/Book_OUT.xml", "no book file");
  writeEntries(bookEntry("Alarms", "ALM") +
               replaceAll(bookEntry("Outside", "OUT"), ">Manual<", ">..\\..\\..\\in<"));
  expectReport(
      "DISK/server: sound\n"
      "Plant, 2 books, 1 heading:\n"
      "  error: DISK/server/Docs/Plant/Quor_TOC.xml:12: ..\\..\\..\\in\\Book_OUT.xml of Outside "
      "(OUT) leads out of the library and is never looked for [outside-book]\n"
      "    Delete the entry, and add the book again.\n"
      "    quorbind delete Outside --server DISK/server --library Plant\n",
      "1 error, 0 warnings");
  mend(" --yes");
  expectSound();
}

TEST_F(DoctorOfACatalogue, FindsABookWithoutItsFolder) {
  writeEntries(bookEntry("Alarms", "ALM") +
               replaceAll(bookEntry("Trends", "TRD"), ">Manual<", ">Gone<"));
  expectReport(
      "DISK/server: sound\n"
      "Plant, 2 books, 1 heading:\n"
      "  error: DISK/server/Docs/Plant/Quor_TOC.xml:12: the folder Gone of Trends (TRD) is not "
      "there [missing-book-folder]\n"
      "    Take it from the backup, or delete the entry and add the book again.\n"
      "    quorbind delete Trends --server DISK/server --library Plant\n",
      "1 error, 0 warnings");
  mend(" --yes");
  expectSound();
}

TEST_F(DoctorOfACatalogue, FindsABookWithoutItsFile) {
  writeEntries(bookEntry("Alarms", "ALM") + bookEntry(kMarkupInXml, "MRK"));
  expectReport(
      "DISK/server: sound\n"
      "Plant, 2 books, 1 heading:\n"
      "  error: DISK/server/Docs/Plant/Quor_TOC.xml:12: the file Book_MRK.xml of A & B < C > D \" "
      "E "
      "' F (MRK) is not there [missing-book-file]\n"
      "    Take it from the backup, or delete the entry and add the book again.\n"
      "    quorbind delete 'A & B < C > D \" E '\\'' F' --server DISK/server --library Plant\n",
      "1 error, 0 warnings");
  mend(" --yes");
  expectSound();
}

TEST_F(DoctorOfACatalogue, FindsASingleDocumentThatIsNotThere) {
  writeEntries(bookEntry("Alarms", "ALM") + replaceAll(bookEntry("Plan", "PLN"),
                                                       "<Book_File>Book_PLN.xml",
                                                       "<Book_File type=\"htm\">plan.htm"));
  expectReport(
      "DISK/server: sound\n"
      "Plant, 2 books, 1 heading:\n"
      "  error: DISK/server/Docs/Plant/Quor_TOC.xml:12: the file plan.htm of Plan (PLN) is not "
      "there [missing-book-file]\n"
      "    Take it from the backup, or delete the entry and add the book again.\n"
      "    quorbind delete Plan --server DISK/server --library Plant\n",
      "1 error, 0 warnings");
  disk.write("server/Docs/Plant/Manual/plan.htm", "no book file");
  expectReport("DISK/server: sound\nPlant, 2 books, 1 heading: sound\n", "0 errors, 0 warnings");
}

TEST_F(DoctorOfACatalogue, NamesNoCommandThatWouldTakeAnotherEntry) {
  writeEntries(bookEntry("Alarms", "ALM") +
               replaceAll(bookEntry("Alarms", "ALT"), ">Manual<", ">Gone<"));
  const std::string report = doctor().out;
  EXPECT_NE(report.find("the folder Gone of Alarms (ALT) is not there [missing-book-folder]\n"
                        "    Take it from the backup, or delete the entry and add the book "
                        "again.\n"),
            std::string::npos)
      << report;
  EXPECT_EQ(report.find("quorbind delete"), std::string::npos) << report;
}

TEST_F(DoctorOfACatalogue, FindsAnEntryThatStillNamesTheFileOfAnOldAcronym) {
  writeEntries(entryWith("Book_ALM.xml", "Book_OLD.xml"));
  expectReport(
      "DISK/server: sound\n"
      "Plant, 1 book, 0 headings:\n"
      "  error: DISK/server/Docs/Plant/Quor_TOC.xml:4: the entry of Alarms (ALM) names "
      "Book_OLD.xml, "
      "which is not there, and not Book_ALM.xml, which is [stale-book-file]\n"
      "    Have the entry name the file that is there.\n"
      "    quorbind rename Alarms --name Alarms --acro ALM --server DISK/server --library Plant\n",
      "1 error, 0 warnings");
  mend(" --yes");
  expectSound();
}

TEST_F(DoctorOfACatalogue, FindsABookFileUnderAnotherNameThanARenameLooksFor) {
  writeEntries(entryWith("Book_ALM.xml", "Book_OLD.xml"));
  disk.write("server/Docs/Plant/Manual/Book_OLD.xml", disk.read(kBookFile));
  disk.remove(kBookFile);
  expectInPlant(
      "  warning: DISK/server/Docs/Plant/Quor_TOC.xml:4: the file of Alarms (ALM) is Book_OLD.xml, "
      "and a rename looks for Book_ALM.xml [misnamed-book-file]\n"
      "    Give the file that name, and write it into the Book_File of the entry.\n",
      "0 errors, 1 warning");
}

TEST_F(DoctorOfACatalogue, TakesFoldersAndFilesInAnyLetterCase) {
  writeEntries(replaceAll(entryWith(">Manual<", ">MANUAL<"), ">Book_ALM.xml<", ">BOOK_alm.XML<"));
  changeBookFile(">alarms.htm<", ">Alarms.HTM<");
  expectSound();
}

using DoctorOfABook = DoctorTest;

TEST_F(DoctorOfABook, FindsThatItsFileDoesNotParse) {
  disk.write(kBookFile, "<Book_Master>\n<Book>\n</Book_Master>");
  const std::string report = doctor().out;
  EXPECT_NE(
      report.find("\n  error: DISK/server/Docs/Plant/Manual/Book_ALM.xml:3:15: it can't be used: "),
      std::string::npos)
      << report;
  EXPECT_TRUE(
      report.ends_with(" [damaged-book-file]\n"
                       "    3 | </Book_Master>\n"
                       "      |               ^\n"
                       "    Take it from the backup, or delete the entry and add the book again.\n"
                       "    quorbind delete Alarms --server DISK/server --library Plant\n"))
      << report;
}

TEST_F(DoctorOfABook, FindsThatItsFileDescribesNone) {
  disk.write(kBookFile, "<Book><Book_Name>Alarms</Book_Name></Book>");
  expectReport(
      "DISK/server: sound\n"
      "Plant, 1 book, 0 headings:\n"
      "  error: DISK/server/Docs/Plant/Manual/Book_ALM.xml: it can't be used: the element Book is "
      "missing [damaged-book-file]\n"
      "    Take it from the backup, or delete the entry and add the book again.\n"
      "    quorbind delete Alarms --server DISK/server --library Plant\n",
      "1 error, 0 warnings");
}

TEST_F(DoctorOfABook, FindsThatItsFileSaysSomethingElseThanTheCatalogue) {
  disk.write(kBookFile,
             replaceAll(bookFileOf("Bells", "BEL"),
                        "</Book_Key>",
                        "</Book_Key>\n<Book_Path>Plant\\Else</Book_Path>"));
  expectInPlant(
      "  warning: DISK/server/Docs/Plant/Manual/Book_ALM.xml:4: its Book_Name says 'Bells', and "
      "the "
      "catalogue 'Alarms' [disagreeing-book-file]\n"
      "    Write what the catalogue says into the book file.\n"
      "  warning: DISK/server/Docs/Plant/Manual/Book_ALM.xml:5: its Book_Acro says 'BEL', and the "
      "catalogue 'ALM' [disagreeing-book-file]\n"
      "    Write what the catalogue says into the book file.\n"
      "  warning: DISK/server/Docs/Plant/Manual/Book_ALM.xml:7: its Book_Path says 'Else', and the "
      "catalogue 'Manual' [disagreeing-book-file]\n"
      "    Write what the catalogue says into the book file.\n",
      "0 errors, 3 warnings");
}

TEST_F(DoctorOfABook, TakesAFolderInAnyLetterCase) {
  changeBookFile("</Book_Key>", "</Book_Key><Book_Path>Plant\\MANUAL</Book_Path>");
  expectSound();
}

TEST_F(DoctorOfABook, FindsADocumentThatIsNotThereOnceForAllItsHeadings) {
  changeBookFile("</Book_Headings>",
                 "<Heading><HName>A</HName><HFile BookMark=\"#a\">gone.htm</HFile></Heading>\n"
                 "<Heading><HName>B</HName><HFile>GONE.htm#b</HFile></Heading>\n"
                 "<Heading><HName>C</HName><HFile/></Heading></Book_Headings>");
  expectReport(
      "DISK/server: sound\n"
      "Plant, 1 book, 4 headings:\n"
      "  error: DISK/server/Docs/Plant/Manual/Book_ALM.xml:14: the document gone.htm of Alarms "
      "(ALM) "
      "is not there [missing-document]\n"
      "    Copy it to DISK/server/Docs/Plant/Manual, or take its headings out of the table of "
      "contents and add the book again.\n",
      "1 error, 0 warnings");
}

TEST_F(DoctorOfABook, FindsThatItsMainFileIsNotThere) {
  changeBookFile("</Book_Key>", "</Book_Key><Book_File type=\"htm\">Manual\\main.htm</Book_File>");
  expectInPlant(
      "  error: DISK/server/Docs/Plant/Manual/Book_ALM.xml:6: the document main.htm of Alarms "
      "(ALM) "
      "is not there [missing-document]\n"
      "    Copy it to DISK/server/Docs/Plant/Manual, or take its headings out of the table of "
      "contents and add the book again.\n",
      "1 error, 0 warnings");
}

TEST_F(DoctorOfABook, TellsOfADocumentOutsideAndDoesNotLookForIt) {
  disk.write("server/Docs/Plant/else.htm", "<p>text</p>");
  changeBookFile(">alarms.htm<", ">..\\else.htm<");
  expectInPlant(
      "  warning: DISK/server/Docs/Plant/Manual/Book_ALM.xml:12: the document ..\\else.htm of "
      "Alarms "
      "(ALM) lies outside the book's folder and is never looked for [outside-document]\n"
      "    Put it into the book's folder, unless it is meant to be elsewhere.\n",
      "0 errors, 1 warning");
}

class DoctorOfFolders : public DoctorTest {
 protected:
  static constexpr const char* kLost = "server/Docs/Plant/Lost/Book_LST.xml";

  /// A book that no entry names.
  void writeLost() const {
    disk.write(kLost,
               replaceAll(bookFileOf("Lost", "LST"),
                          "</Book_Key>",
                          "</Book_Key><Book_Path>Plant\\Lost</Book_Path>"));
    disk.write("server/Docs/Plant/Lost/alarms.htm", "<p>text</p>");
  }
};

TEST_F(DoctorOfFolders, FindsABookThatNoEntryNames) {
  writeLost();
  expectInPlant(
      "  warning: DISK/server/Docs/Plant/Lost/Book_LST.xml: no entry of the catalogue names this "
      "book file [orphan-book-file]\n"
      "    Add the book, or delete what nobody needs.\n"
      "    quorbind add DISK/server/Docs/Plant/Lost/Book_LST.xml --server DISK/server --library "
      "Plant\n",
      "0 errors, 1 warning");
  mend();
  expectReport("DISK/server: sound\nPlant, 2 books, 2 headings: sound\n", "0 errors, 0 warnings");
}

TEST_F(DoctorOfFolders, NamesNoCommandForABookFileThatBelongsElsewhere) {
  disk.write(kLost, bookFileOf("Lost", "LST"));
  expectInPlant(
      "  warning: DISK/server/Docs/Plant/Lost/Book_LST.xml: no entry of the catalogue names this "
      "book file [orphan-book-file]\n"
      "    Add the book, or delete what nobody needs.\n",
      "0 errors, 1 warning");
}

TEST_F(DoctorOfFolders, FindsABookFileThatNobodyCanRead) {
  disk.write("server/Docs/Plant/Manual/Book_X.xml", "<Book_Master>");
  expectInPlant(
      "  warning: DISK/server/Docs/Plant/Manual/Book_X.xml: no entry of the catalogue names this "
      "book file [orphan-book-file]\n"
      "    Add the book, or delete what nobody needs.\n",
      "0 errors, 1 warning");
}

TEST_F(DoctorOfFolders, FindsASecondFileOfABook) {
  disk.write("server/Docs/Plant/Old place/Book_ALM.xml", disk.read(kBookFile));
  expectInPlant(
      "  warning: DISK/server/Docs/Plant/Old place/Book_ALM.xml: no entry of the catalogue names "
      "this book file, and Alarms (ALM) has its name or its acronym [superfluous-book-file]\n"
      "    Delete it if nobody needs it.\n"
      "    rm 'DISK/server/Docs/Plant/Old place/Book_ALM.xml'\n",
      "0 errors, 1 warning");
  mend();
  expectInPlant(
      "  warning: DISK/server/Docs/Plant/Old place: no book of the catalogue has this folder "
      "[orphan-folder]\n"
      "    Add the book that belongs here, or delete what nobody needs.\n",
      "0 errors, 1 warning");
}

TEST_F(DoctorOfFolders, TakesABookFileThatIsADocumentOfABookForNoBook) {
  disk.write("server/Docs/Plant/Manual/Book_LST.xml", bookFileOf("Lost", "LST"));
  changeBookFile(">alarms.htm<", ">book_lst.xml<");
  expectSound();
}

TEST_F(DoctorOfFolders, TakesFoldersInsideABooksFolderForThatBooks) {
  disk.write("server/Docs/Plant/Manual/pictures/flow.svg", "<svg/>");
  expectSound();
}

TEST_F(DoctorOfFolders, TakesFoldersForThoseOfABookThatLiesInTheLibrarysOwn) {
  writeEntries(entryWith(">Manual<", "><"));
  disk.write("server/Docs/Plant/Book_ALM.xml", disk.read(kBookFile));
  disk.write("server/Docs/Plant/alarms.htm", "<p>text</p>");
  disk.remove("server/Docs/Plant/Manual");
  disk.makeFolder("server/Docs/Plant/pictures");
  expectSound();
}

TEST_F(DoctorOfFolders, FindsWhatKilledRunsHaveLeftAnywhere) {
  const std::string left = "server/Docs/Plant/Manual/pictures/a'b.svg.quorbind-00000001.tmp";
  disk.write(left, "");
  disk.write("server/Docs/Plant/Manual/mine.tmp", "");
  disk.write("server/Docs/Plant/Manual/.quorbind-00000001.tmp", "");
  disk.write("server/Docs/Plant/Manual/a.quorbind-1.tmp", "");
  expectInPlant(
      "  warning: DISK/server/Docs/Plant/Manual/pictures/a'b.svg.quorbind-00000001.tmp: it is left "
      "from a run that was killed [leftover]\n"
      "    Delete it when nobody is working on the library.\n"
      "    rm 'DISK/server/Docs/Plant/Manual/pictures/a'\\''b.svg.quorbind-00000001.tmp'\n",
      "0 errors, 1 warning");
  mend();
  EXPECT_FALSE(disk.has(left));
  expectSound();
}

TEST_F(DoctorOfFolders, IsNotLedInCirclesByLinks) {
  std::filesystem::create_directory_symlink("..", disk.path() / "server/Docs/Plant/Manual/up");
  std::filesystem::create_directory_symlink(".", disk.path() / "server/Docs/Plant/Manual/here");
  expectSound();
  disk.write("server/Docs/Plant/Manual/a.htm.quorbind-00000001.tmp", "");
  expectInPlant(
      "  warning: DISK/server/Docs/Plant/Manual/a.htm.quorbind-00000001.tmp: it is left from a run "
      "that was killed [leftover]\n"
      "    Delete it when nobody is working on the library.\n"
      "    rm DISK/server/Docs/Plant/Manual/a.htm.quorbind-00000001.tmp\n",
      "0 errors, 1 warning");
}

TEST_F(DoctorOfFolders, LooksAtNothingThatALinkLeadsTo) {
  disk.write("elsewhere/a.htm.quorbind-00000001.tmp", "");
  std::filesystem::create_directory_symlink(disk.path() / "elsewhere",
                                            disk.path() / "server/Docs/Plant/Manual/out");
  expectSound();
}

TEST_F(DoctorOfFolders, NamesNoFileOutsideThatANameWithSeparatorsWouldLeadTo) {
  disk.makeFolder("server/Docs/Plant/x");
  disk.write("server/Docs/Plant/x\\..\\..\\..\\precious.quorbind-00000001.tmp", "");
  const Outcome outcome = doctor();
  EXPECT_FALSE(contains(outcome.out, "precious")) << outcome.out;
}

TEST_F(DoctorOfFolders, HasNoCommandForANameThatIsShownOtherwise) {
  disk.write("server/Docs/Plant/Manual/a\nb.quorbind-00000001.tmp", "");
  disk.write("server/Docs/Plant/Manual/\xE2\x80\xAE.quorbind-00000001.tmp", "");
  const Outcome outcome = doctor();
  EXPECT_TRUE(contains(outcome.out, "0 errors, 2 warnings.")) << outcome.out;
  EXPECT_FALSE(contains(outcome.out, "rm ")) << outcome.out;
}

}  // namespace
}  // namespace quorbind::testing
