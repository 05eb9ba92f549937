// What `doctor` finds on a server beside the contents of its libraries, and how it tells.

#include <fstream>

#include "tests/cli/doctor_test.h"
#include "tests/cli/refusal_object.h"

namespace quorbind::testing {
namespace {

class DoctorReport : public DoctorTest {};

TEST_F(DoctorReport, OfASoundLibrarySaysSo) {
  expectSound();
}

TEST_F(DoctorReport, OfASoundLibraryAsAnObject) {
  const Outcome outcome = doctor({"--json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out,
            "{\n"
            "  \"format\": 1,\n"
            "  \"status\": 0,\n"
            "  \"server\": \"DISK/server\",\n"
            "  \"errors\": 0,\n"
            "  \"warnings\": 0,\n"
            "  \"findings\": [],\n"
            "  \"libraries\": [\n"
            "    {\n"
            "      \"library\": \"Plant\",\n"
            "      \"books\": 1,\n"
            "      \"headings\": 1,\n"
            "      \"findings\": []\n"
            "    }\n"
            "  ],\n"
            "  \"messages\": []\n"
            "}\n");
}

TEST_F(DoctorReport, OfAFileThatDoesNotParseHasTheLineAtFaultInItsObject) {
  disk.write(kKeywords, "<Books>\n\t</Book>\n</Books>\n");
  const std::string object = doctor({"--json"}).out;
  EXPECT_NE(object.find("          \"file\": \"DISK/server/Docs/Plant/Quor_SearchKeywords.xml\",\n"
                        "          \"line\": 2,\n"
                        "          \"column\": 9,\n"
                        "          \"lineText\": \"\\t</Book>\",\n"
                        "          \"text\": \"it can't be used: "),
            std::string::npos)
      << object;
}

TEST_F(DoctorReport, OfFindingsAsAnObject) {
  disk.remove("server/Docs/Plant/Manual/alarms.htm");
  disk.remove(kCategories);
  const Outcome outcome = doctor({"--json"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out,
            "{\n"
            "  \"format\": 1,\n"
            "  \"status\": 1,\n"
            "  \"server\": \"DISK/server\",\n"
            "  \"errors\": 1,\n"
            "  \"warnings\": 1,\n"
            "  \"findings\": [],\n"
            "  \"libraries\": [\n"
            "    {\n"
            "      \"library\": \"Plant\",\n"
            "      \"books\": 1,\n"
            "      \"headings\": 1,\n"
            "      \"findings\": [\n"
            "        {\n"
            "          \"finding\": \"missing-document\",\n"
            "          \"severity\": \"error\",\n"
            "          \"file\": \"DISK/server/Docs/Plant/Manual/Book_ALM.xml\",\n"
            "          \"line\": 12,\n"
            "          \"text\": \"the document alarms.htm of Alarms (ALM) is not there\",\n"
            "          \"remedy\": \"Copy it to DISK/server/Docs/Plant/Manual, or take its "
            "headings out of the table of contents and add the book again.\"\n"
            "        },\n"
            "        {\n"
            "          \"finding\": \"missing-categories\",\n"
            "          \"severity\": \"warning\",\n"
            "          \"file\": \"DISK/server/Docs/Plant/Quor_BookCategories.xml\",\n"
            "          \"text\": \"the library's categories file is not there\",\n"
            "          \"remedy\": \"Take it from the backup, or make one.\",\n"
            "          \"command\": \"quorbind categories create --server DISK/server --library "
            "Plant\"\n"
            "        }\n"
            "      ]\n"
            "    }\n"
            "  ],\n"
            "  \"messages\": [],\n"
            "  \"note\": \"1 error, 1 warning\"\n"
            "}\n");
}

TEST_F(DoctorReport, HasEachLibraryInAGroupOfItsOwn) {
  ASSERT_EQ(quorbind({"init", "--server", "server", "--library", "Archive"}).status, 0);
  disk.remove("server/Docs/Archive/Quor_BookCategories.xml");
  expectReport(
      "DISK/server: sound\n"
      "Plant, 1 book, 1 heading: sound\n"
      "Archive, 0 books, 0 headings:\n"
      "  warning: DISK/server/Docs/Archive/Quor_BookCategories.xml: the library's categories file "
      "is not there [missing-categories]\n"
      "    Take it from the backup, or make one.\n"
      "    quorbind categories create --server DISK/server --library Archive\n",
      "0 errors, 1 warning");
}

TEST_F(DoctorReport, IsOfOneLibraryWhenItIsNamed) {
  ASSERT_EQ(quorbind({"init", "--server", "server", "--library", "Archive"}).status, 0);
  disk.remove("server/Docs/Archive/Quor_TOC.xml");
  expectReport(
      std::string(kSoundServer) + kSoundPlant, "0 errors, 0 warnings", {"--library", "Plant"});
}

TEST_F(DoctorReport, NamesTheServerInFullWhereverItWasNamedFrom) {
  const Outcome outcome = quorbind({"doctor", "--server", "./server/../server"});
  EXPECT_EQ(outcome.out, std::string(kSoundServer) + kSoundPlant + "0 errors, 0 warnings.\n");
}

TEST_F(DoctorReport, OfAServerThatIsNotThereIsNone) {
  const Outcome outcome = quorbind({"doctor", "--server", "else"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "critical: DISK/else/Docs: Path not found\n");
}

TEST_F(DoctorReport, OfALibraryThatIsNowhereIsNone) {
  const Outcome outcome = doctor({"--library", "Tools", "--json"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err, "critical: DISK/server/Docs/Tools: Path not found\n");
  EXPECT_EQ(outcome.out,
            refusalObject(3,
                          "DISK/server/Docs/Tools: Path not found",
                          "A server, a library and a folder that are there."));
}

TEST_F(DoctorReport, OfALibraryThatNoFolderCanBeIsWrongUsage) {
  EXPECT_EQ(doctor({"--library", "../in"}).status, 2);
}

class DoctorOfAList : public DoctorTest {
 protected:
  void SetUp() override {
    DoctorTest::SetUp();
    writeList(listed("Plant", "Docs\\Plant"));
  }
};

TEST_F(DoctorOfAList, FindsNoneAndExaminesWhatLiesThere) {
  disk.remove(kSelection);
  expectOnServer(
      "  error: DISK/server/Docs/Quor_Selection.xml: the server's list of libraries is not there "
      "[missing-list]\n"
      "    Take it from the backup, or enter each library again.\n"
      "  warning: DISK/server/Docs/Quor_Selection.xml: the server's list lacks the library Plant "
      "[unlisted-library]\n"
      "    Enter it.\n"
      "    quorbind init --server DISK/server --library Plant\n",
      "1 error, 1 warning");
  mend();
  expectSound();
}

TEST_F(DoctorOfAList, FindsADamagedOneAndExaminesWhatLiesThere) {
  disk.write(kSelection, "<Quor_Selection_List>\n<Quors>\n</Quor>");
  const Outcome outcome = doctor();
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(
      outcome.out.starts_with("DISK/server:\n  error: "
                              "DISK/server/Docs/Quor_Selection.xml:3:8: it can't be used: "))
      << outcome.out;
  EXPECT_TRUE(
      outcome.out.ends_with(" [damaged-file]\n"
                            "    3 | </Quor>\n"
                            "      |        ^\n"
                            "    Take it from the backup.\n"
                            "Plant, 1 book, 1 heading: sound\n"))
      << outcome.out;
}

TEST_F(DoctorOfAList, FindsAnotherDocumentInItsPlace) {
  disk.write(kSelection, "<Libraries/>");
  EXPECT_NE(doctor().out.find("  error: DISK/server/Docs/Quor_Selection.xml: it can't be used: the "
                              "element Quors is missing [damaged-file]\n"),
            std::string::npos);
}

TEST_F(DoctorOfAList, FindsAnEntryWithoutAName) {
  writeList(listed("Plant", "Docs\\Plant") + listed(" ", "Docs\\Else"));
  expectOnServer(
      "  error: DISK/server/Docs/Quor_Selection.xml:4: an entry of the list has no name "
      "[nameless-library]\n"
      "    Write the library's name into the entry, or take the entry out.\n",
      "1 error, 0 warnings");
}

TEST_F(DoctorOfAList, FindsANameThatLeadsElsewhereAndLooksForNothingThere) {
  disk.write("in/Quor_TOC.xml", "");
  writeList(listed("Plant", "Docs\\Plant") + listed("..\\..\\in", "Docs\\..\\..\\in"));
  expectOnServer(
      "  error: DISK/server/Docs/Quor_Selection.xml:4: no folder can have the name of the library "
      "..\\..\\in, and nothing is looked for there [unusable-library-name]\n"
      "    Take the entry out, and give the library's folder a name that a folder can have.\n",
      "1 error, 0 warnings");
}

TEST_F(DoctorOfAList, FindsAnEntryWithoutAPlace) {
  writeList(listed("Plant", ""));
  expectOnServer(
      "  error: DISK/server/Docs/Quor_Selection.xml:3: the list does not say where the library "
      "Plant lies [missing-location]\n"
      "    Write Docs\\Plant into the Quor_Location of its entry.\n",
      "1 error, 0 warnings");
}

TEST_F(DoctorOfAList, FindsALibraryThatLiesElsewhere) {
  writeList(listed("Plant", "Old\\Plant"));
  expectOnServer(
      "  warning: DISK/server/Docs/Quor_Selection.xml:3: the list has the library Plant at "
      "Old\\Plant, where this command and link identifiers do not look [library-elsewhere]\n"
      "    Bring its folder to Docs\\Plant, and write that into its Quor_Location.\n",
      "0 errors, 1 warning");
}

TEST_F(DoctorOfAList, TakesAPlaceInAnyLetterCaseAndWithEitherSeparator) {
  writeList(listed("Plant", "docs/PLANT"));
  expectSound();
}

TEST_F(DoctorOfAList, FindsALibraryThatItHasTwice) {
  writeList(listed("Plant", "Docs\\Plant") + listed("PLANT", "Docs\\Else"));
  expectOnServer(
      "  warning: DISK/server/Docs/Quor_Selection.xml:4: the list has the library PLANT already, "
      "in whatever letter case [repeated-library]\n"
      "    Take this entry out, since the first one counts.\n",
      "0 errors, 1 warning");
}

TEST_F(DoctorOfAList, FindsALibraryWithoutItsFolder) {
  writeList(listed("Plant", "Docs\\Plant") + listed("Site plans", "Docs\\Site plans"));
  expectOnServer(
      "  error: DISK/server/Docs/Quor_Selection.xml:4: the folder of the library Site plans is not "
      "there [missing-library]\n"
      "    Take it from the backup, take the entry out of the list, or make the library anew.\n"
      "    quorbind init --server DISK/server --library 'Site plans'\n",
      "1 error, 0 warnings");
  mend();
  expectReport(std::string(kSoundServer) + kSoundPlant + "Site plans, 0 books, 0 headings: sound\n",
               "0 errors, 0 warnings");
}

TEST_F(DoctorOfAList, FindsALibraryThatItLacks) {
  disk.write("server/Docs/Else/Quor_TOC.xml", catalogueWith(""));
  disk.write("server/Docs/Else/Quor_BookCategories.xml", categoriesFile(""));
  expectReport(
      "DISK/server:\n"
      "  warning: DISK/server/Docs/Quor_Selection.xml: the server's list lacks the library Else "
      "[unlisted-library]\n"
      "    Enter it.\n"
      "    quorbind init --server DISK/server --library Else\n"
      "Plant, 1 book, 1 heading: sound\n"
      "Else, 0 books, 0 headings: sound\n",
      "0 errors, 1 warning");
  mend();
  expectReport(std::string(kSoundServer) + kSoundPlant + "Else, 0 books, 0 headings: sound\n",
               "0 errors, 0 warnings");
}

TEST_F(DoctorOfAList, TellsOfTheNamedLibraryAlone) {
  disk.makeFolder("server/Docs/Archive");
  writeList(listed("", "") + listed("Plant", "Docs\\Plant") + listed("Else", "") +
            listed("Archive", "Docs\\Archive"));
  expectReport(
      std::string(kSoundServer) + kSoundPlant, "0 errors, 0 warnings", {"--library", "plant"});
}

TEST_F(DoctorOfAList, FindsThatTheNamedLibraryHasNoFolder) {
  writeList(listed("Plant", "Docs\\Plant") + listed("Else", "Docs\\Else"));
  expectReport(
      "DISK/server:\n"
      "  error: DISK/server/Docs/Quor_Selection.xml:4: the folder of the library Else is not there "
      "[missing-library]\n"
      "    Take it from the backup, take the entry out of the list, or make the library anew.\n"
      "    quorbind init --server DISK/server --library Else\n",
      "1 error, 0 warnings",
      {"--library", "Else"});
}

using DoctorOfAServer = DoctorTest;

TEST_F(DoctorOfAServer, FindsNoDefaultCategories) {
  disk.remove("server/Docs/Quor_DefaultCategories.xml");
  expectOnServer(
      "  warning: DISK/server/Docs/Quor_DefaultCategories.xml: the default categories are not "
      "there, from which a library's are made [missing-default-categories]\n"
      "    Take them from the backup, or have the usual ones made.\n"
      "    quorbind init --server DISK/server --library Plant\n",
      "0 errors, 1 warning");
  mend();
  expectSound();
}

TEST_F(DoctorOfAServer, FindsDefaultCategoriesThatAreNone) {
  disk.write("server/Docs/Quor_DefaultCategories.xml", "<Categories/>");
  expectOnServer(
      "  error: DISK/server/Docs/Quor_DefaultCategories.xml: it can't be used: the element "
      "Default_Categories is missing [damaged-file]\n"
      "    Take it from the backup.\n",
      "1 error, 0 warnings");
}

TEST_F(DoctorOfAServer, FindsWhatAKilledRunHasLeftBesideTheList) {
  disk.write("server/Docs/Quor_Selection.xml.quorbind-1c0ffee5.tmp", "<Quor");
  expectOnServer(
      "  warning: DISK/server/Docs/Quor_Selection.xml.quorbind-1c0ffee5.tmp: it is left from a run "
      "that was killed [leftover]\n"
      "    Delete it when nobody is working on the library.\n"
      "    rm DISK/server/Docs/Quor_Selection.xml.quorbind-1c0ffee5.tmp\n",
      "0 errors, 1 warning");
  mend();
  expectSound();
}

}  // namespace
}  // namespace quorbind::testing
