#include "tests/cli/library_test.h"
#include "tests/cli/refusal_object.h"

namespace quorbind::testing {
namespace {

constexpr const char* kSelection = "server/Docs/Quor_Selection.xml";

class Libraries : public LibraryTest {
 protected:
  [[nodiscard]] Outcome libraries(const Words& more = {}) const {
    return quorbind(joined({"libraries", "--server", "server"}, more));
  }
  [[nodiscard]] Outcome where(const std::string& library, const Words& more = {}) const {
    return quorbind(joined({"where", library, "--server", "server"}, more));
  }

  void writeSelection(std::string_view libraries) const {
    disk.write(
        kSelection,
        "<Quor_Selection_List><Quors>" + std::string(libraries) + "</Quors></Quor_Selection_List>");
  }
};

TEST_F(Libraries, AreListedInTheOrderOfTheServersList) {
  ASSERT_EQ(quorbind({"init", "--server", "server", "--library", "Archive"}).status, 0);
  const Outcome outcome = libraries();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Plant\nArchive\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(Libraries, AsAnObject) {
  EXPECT_EQ(libraries({"--json"}).out,
            "{\n  \"format\": 1,\n"
            "  \"libraries\": [\n"
            "    \"Plant\"\n"
            "  ]\n"
            "}\n");
}

TEST_F(Libraries, OfAServerWithoutAny) {
  writeSelection("");
  EXPECT_EQ(libraries().out, "");
  EXPECT_EQ(libraries({"--json"}).out, "{\n  \"format\": 1,\n  \"libraries\": []\n}\n");
}

TEST_F(Libraries, WhereALibraryIsIsTheFullNameOfItsCatalogue) {
  const Outcome outcome = where("Plant");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "DISK/server/Docs/Plant/Quor_TOC.xml\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(Libraries, WhereALibraryIsComesFromTheListAndNeedNotExist) {
  writeSelection(
      "<Quor><Quor_Name>A &amp; 'B'</Quor_Name><Quor_Location>Other\\Place</Quor_Location></Quor>");
  EXPECT_EQ(where("A & 'B'").out, "DISK/server/Other/Place/Quor_TOC.xml\n");
}

TEST_F(Libraries, APlaceThatLeadsOutOfTheServerIsRefused) {
  for (const char* place : {"..\\evil", "Docs\\..\\..\\evil", "../evil", "Docs\\nul"}) {
    writeSelection(std::string("<Quor><Quor_Name>Plant</Quor_Name><Quor_Location>") + place +
                   "</Quor_Location></Quor>");
    const Outcome outcome = where("Plant");
    EXPECT_EQ(outcome.status, 1) << place;
    EXPECT_EQ(outcome.out, "") << place;
    EXPECT_EQ(outcome.err,
              "critical: DISK/server/Docs/Quor_Selection.xml: the place of Plant is not on the "
              "server\n");
  }
}

TEST_F(Libraries, WhereALibraryIsAsAnObject) {
  const Outcome outcome = where("Plant", {"--json"});
  EXPECT_EQ(replaceAll(outcome.out, disk.path().string(), "DISK"),
            "{\n  \"format\": 1,\n"
            "  \"library\": \"Plant\",\n"
            "  \"catalogue\": \"DISK/server/Docs/Plant/Quor_TOC.xml\"\n"
            "}\n");
}

TEST_F(Libraries, ALibraryIsNamedInItsOwnLetterCase) {
  const Outcome outcome = where("plant", {"--json"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "critical: Productplantis not present in Quor_TOC.xml\n");
  EXPECT_EQ(outcome.out,
            refusalObject(1,
                          "Productplantis not present in Quor_TOC.xml",
                          "The name of a library of the server, in its own letter "
                          "case."));
}

TEST_F(Libraries, ALibraryWithoutAPlaceIsRefused) {
  writeSelection("<Quor><Quor_Name>Plant</Quor_Name><Quor_Location/></Quor>");
  const Outcome outcome = where("Plant");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err,
            "critical: Quor_Location Tag is missing in Quor_Selection.xml For Plant\n");
}

TEST_F(Libraries, ANameWithAQuotationMarkCanNotBeLookedUp) {
  const Outcome outcome = where("a\"b");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(outcome.err.ends_with("\nQuorbind:Book_Config::strQuorLoacation\n")) << outcome.err;
}

TEST_F(Libraries, AListThatIsNotThereIsMissingInput) {
  std::filesystem::remove(disk.path() / kSelection);
  for (const Outcome& outcome : {libraries(), where("Plant")}) {
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "critical: DISK/server/Docs/Quor_Selection.xml: File not found\n");
  }
}

TEST_F(Libraries, AListThatDoesNotParseIsNamedWithItsLine) {
  for (const char* damaged : {"", "<Quor_Selection_List>\n<Quors>"}) {
    disk.write(kSelection, damaged);
    for (const Outcome& outcome : {libraries(), where("Plant")}) {
      EXPECT_EQ(outcome.status, 4);
      EXPECT_EQ(outcome.err.rfind("critical: DISK/server/Docs/Quor_Selection.xml:", 0), 0U)
          << outcome.err;
    }
  }
}

TEST_F(Libraries, AListWithAnotherRootIsNoList) {
  disk.write(kSelection, "<Libraries><Quor_Name>Plant</Quor_Name></Libraries>");
  for (const Outcome& outcome : {libraries(), where("Plant")}) {
    EXPECT_EQ(outcome.status, 4);
    EXPECT_EQ(outcome.err,
              "critical: DISK/server/Docs/Quor_Selection.xml: the element Quors is missing\n");
  }
}

using Books = LibraryTest;

TEST_F(Books, AreListedByTheNamesThatWereTyped) {
  const Outcome outcome = inPlant({"books"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Alarms\nA & B < C > D \" E ' F\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(Books, AsAnObject) {
  EXPECT_EQ(inPlant({"books", "--json"}).out,
            "{\n  \"format\": 1,\n"
            "  \"books\": [\n"
            "    \"Alarms\",\n"
            "    \"A & B < C > D \\\" E ' F\"\n"
            "  ]\n"
            "}\n");
}

TEST_F(Books, AsAnObjectHaveNothingThatATerminalWouldObey) {
  disk.write(kCatalogue,
             catalogueWith(bookEntry("\xC2\x9B"
                                     "2J|\xC2\x85|\x7F|\xE2\x80\xAE|\xC3\xA4|&#9;",
                                     "X")));
  EXPECT_EQ(inPlant({"books", "--json"}).out,
            "{\n  \"format\": 1,\n"
            "  \"books\": [\n"
            "    \"\\u009b2J|\\u0085|\\u007f|\\u202e|\xC3\xA4|\\t\"\n"
            "  ]\n"
            "}\n");
}

TEST_F(Books, OfALibraryWithoutAny) {
  disk.write(kCatalogue, catalogueWith(""));
  EXPECT_EQ(inPlant({"books"}).out, "");
  EXPECT_EQ(inPlant({"books", "--json"}).out, "{\n  \"format\": 1,\n  \"books\": []\n}\n");
}

}  // namespace
}  // namespace quorbind::testing
