#include "tests/cli/command_test.h"

namespace quorbind::testing {
namespace {

class Init : public CommandTest {
 protected:
  [[nodiscard]] Outcome init(const std::string& library) const {
    return quorbind({"init", "--server", "server", "--library", library});
  }
  [[nodiscard]] std::string text(const std::string& name) const {
    return replaceAll(fromUtf16File(disk.read(name)), "\r\n", "\n");
  }
};

TEST_F(Init, MakesTheServersListTheDefaultCategoriesAndTheCatalogue) {
  const Outcome outcome = init("Plant");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "wrote DISK/server\n"
            "wrote DISK/server/Docs\n"
            "wrote DISK/server/Docs/Plant\n"
            "wrote DISK/server/Docs/Plant/Quor_TOC.xml\n"
            "wrote DISK/server/Docs/Quor_DefaultCategories.xml\n"
            "wrote DISK/server/Docs/Plant/Quor_BookCategories.xml\n"
            "wrote DISK/server/Docs/Quor_Selection.xml\n");
  EXPECT_EQ(outcome.err, "");

  EXPECT_EQ(text("server/Docs/Quor_Selection.xml"),
            "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"
            "<Quor_Selection_List>\n"
            "\t<Quors>\n"
            "\t\t<Quor>\n"
            "\t\t\t<Quor_Name>Plant</Quor_Name>\n"
            "\t\t\t<Quor_Location>Docs\\Plant</Quor_Location>\n"
            "\t\t</Quor>\n"
            "\t</Quors>\n"
            "</Quor_Selection_List>\n");
  EXPECT_EQ(text("server/Docs/Plant/Quor_TOC.xml"),
            "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"
            "<Quor_Master>\n"
            "\t<Quor_Books/>\n"
            "</Quor_Master>\n");
  EXPECT_EQ(text("server/Docs/Quor_DefaultCategories.xml"),
            "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"
            "<Default_Categories>\n"
            "\t<Quor_Developer_Pro>\n"
            "\t\t<CategoryName>User Guides</CategoryName>\n"
            "\t\t<CategoryName>Reference Manuals</CategoryName>\n"
            "\t\t<CategoryName>Release Notes</CategoryName>\n"
            "\t\t<CategoryName>Training</CategoryName>\n"
            "\t</Quor_Developer_Pro>\n"
            "\t<Quor_Developer>\n"
            "\t\t<CategoryName>User Guides</CategoryName>\n"
            "\t\t<CategoryName>Reference Manuals</CategoryName>\n"
            "\t\t<CategoryName>Release Notes</CategoryName>\n"
            "\t\t<CategoryName>Training</CategoryName>\n"
            "\t</Quor_Developer>\n"
            "</Default_Categories>\n");
}

TEST_F(Init, TellsAProgramWhatItWrote) {
  initLibrary();
  const Words words{"init", "--server", "server", "--library", "Tools", "--json"};
  const std::string beginning =
      "{\n"
      "  \"format\": 1,\n"
      "  \"status\": 0,\n"
      "  \"library\": \"Tools\",\n";
  EXPECT_EQ(quorbind(words).out,
            beginning +
                "  \"written\": [\n"
                "    \"DISK/server/Docs/Tools\",\n"
                "    \"DISK/server/Docs/Tools/Quor_TOC.xml\",\n"
                "    \"DISK/server/Docs/Tools/Quor_BookCategories.xml\",\n"
                "    \"DISK/server/Docs/Quor_Selection.xml\"\n"
                "  ],\n"
                "  \"messages\": []\n"
                "}\n");
  EXPECT_EQ(quorbind(words).out,
            beginning +
                "  \"written\": [],\n"
                "  \"messages\": []\n"
                "}\n");
}

TEST_F(Init, TellsAProgramWhyALibraryIsRefused) {
  initLibrary();
  const Outcome outcome = quorbind({"init", "--server", "server", "--library", "plant", "--json"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(
      outcome.out,
      "{\n"
      "  \"format\": 1,\n"
      "  \"status\": 1,\n"
      "  \"library\": \"plant\",\n"
      "  \"written\": [],\n"
      "  \"messages\": [\n"
      "    {\n"
      "      \"icon\": \"critical\",\n"
      "      \"title\": \"Quorbind\",\n"
      "      \"text\": \"plant would have the folder of the library Plant, which is there "
      "already\",\n"
      "      \"clipboard\": null,\n"
      "      \"expected\": \"A name that no library of the server has in another letter case.\"\n"
      "    }\n"
      "  ],\n"
      "  \"note\": \"nothing was written\"\n"
      "}\n");
}

TEST_F(Init, TellsAProgramThatOnlyAPartWasWritten) {
  initLibrary();
  disk.remove("server/Docs/Quor_Selection.xml");
  disk.makeFolder("server/Docs/Quor_Selection.xml");
  const Outcome outcome = quorbind({"init", "--server", "server", "--library", "Tools", "--json"});
  EXPECT_EQ(outcome.status, 5);
  EXPECT_EQ(outcome.out,
            "{\n"
            "  \"format\": 1,\n"
            "  \"status\": 5,\n"
            "  \"library\": \"Tools\",\n"
            "  \"written\": [\n"
            "    \"DISK/server/Docs/Tools\",\n"
            "    \"DISK/server/Docs/Tools/Quor_TOC.xml\",\n"
            "    \"DISK/server/Docs/Tools/Quor_BookCategories.xml\"\n"
            "  ],\n"
            "  \"messages\": [\n"
            "    {\n"
            "      \"icon\": \"critical\",\n"
            "      \"title\": \"Quorbind\",\n"
            "      \"text\": \"DISK/server/Docs/Quor_Selection.xml: Path/File access error\",\n"
            "      \"clipboard\": null\n"
            "    }\n"
            "  ],\n"
            "  \"note\": \"only a part was written\"\n"
            "}\n");
}

TEST_F(Init, MakesTheCategoriesFileFromTheDefaultsOfTheServer) {
  initLibrary();
  disk.write("server/Docs/Quor_DefaultCategories.xml",
             "<Default_Categories><Quor_Developer><CategoryName>R&amp;D</CategoryName>"
             "</Quor_Developer></Default_Categories>");
  EXPECT_EQ(init("Tools").status, 0);
  const std::string categories = text("server/Docs/Tools/Quor_BookCategories.xml");
  EXPECT_EQ(categories.substr(categories.find("<BookSet_Categories>")),
            "<BookSet_Categories>\n"
            "\t<Category>\n"
            "\t\t<CategoryName>R&amp;D</CategoryName>\n"
            "\t</Category>\n"
            "\t<Category>\n"
            "\t\t<CategoryName>Other Category</CategoryName>\n"
            "\t</Category>\n"
            "</BookSet_Categories>");
}

TEST_F(Init, DefaultCategoriesThatDoNotLoadOrAreNoneMakeNoLibrary) {
  initLibrary();
  for (const auto& [bytes, fault] :
       {std::pair{"<Default_Categories>\n<", ":2:2: "},
        {"<Defaults/>", ": the element Default_Categories is missing\n"}}) {
    disk.write("server/Docs/Quor_DefaultCategories.xml", bytes);
    const Tree before = disk.contents();
    const Outcome outcome = init("Tools");
    EXPECT_EQ(outcome.status, 4);
    EXPECT_EQ(outcome.out, "");
    EXPECT_TRUE(outcome.err.starts_with(
        std::string("critical: DISK/server/Docs/Quor_DefaultCategories.xml") + fault))
        << outcome.err;
    EXPECT_EQ(disk.contents(), before);
  }
}

TEST_F(Init, ACategoriesFileThatIsThereStaysAsItIs) {
  initLibrary();
  disk.write("server/Docs/Plant/Quor_BookCategories.xml", "the library's own");
  disk.write("server/Docs/Quor_DefaultCategories.xml", "damaged");
  EXPECT_EQ(init("Plant").status, 0);
  EXPECT_EQ(disk.read("server/Docs/Plant/Quor_BookCategories.xml"), "the library's own");
}

TEST_F(Init, RunAgainChangesNoByte) {
  initLibrary();
  const Tree before = disk.contents();
  const Outcome outcome = init("Plant");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Nothing to do: Plant is complete.\n");
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(Init, ASecondLibraryIsAddedToTheServersList) {
  initLibrary();
  const std::string categories = disk.read("server/Docs/Quor_DefaultCategories.xml");
  const Outcome outcome = init("Tools");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "wrote DISK/server/Docs/Tools\n"
            "wrote DISK/server/Docs/Tools/Quor_TOC.xml\n"
            "wrote DISK/server/Docs/Tools/Quor_BookCategories.xml\n"
            "wrote DISK/server/Docs/Quor_Selection.xml\n");
  EXPECT_EQ(text("server/Docs/Quor_Selection.xml"),
            "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"
            "<Quor_Selection_List>\n"
            "\t<Quors>\n"
            "\t\t<Quor>\n"
            "\t\t\t<Quor_Name>Plant</Quor_Name>\n"
            "\t\t\t<Quor_Location>Docs\\Plant</Quor_Location>\n"
            "\t\t</Quor>\n"
            "\t\t<Quor>\n"
            "\t\t\t<Quor_Name>Tools</Quor_Name>\n"
            "\t\t\t<Quor_Location>Docs\\Tools</Quor_Location>\n"
            "\t\t</Quor>\n"
            "\t</Quors>\n"
            "</Quor_Selection_List>\n");
  EXPECT_EQ(disk.read("server/Docs/Quor_DefaultCategories.xml"), categories);
}

TEST_F(Init, FoldersThatStandInAnotherLetterCaseAreUsed) {
  disk.makeFolder("server/docs");
  EXPECT_EQ(init("Plant").status, 0);
  EXPECT_TRUE(disk.has("server/docs/Plant/Quor_TOC.xml"));
  EXPECT_FALSE(disk.has("server/Docs"));
}

TEST_F(Init, ALibraryWhoseFolderAnotherHasInOtherLetterCaseIsRefused) {
  initLibrary();
  const Tree before = disk.contents();
  const Outcome outcome = init("plant");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err,
            "critical: plant would have the folder of the library Plant, which is there already\n");
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(Init, LetterCaseIsThatOfAllLanguages) {
  ASSERT_EQ(init("Größe").status, 0);
  EXPECT_EQ(init("GRÖßE").status, 1);
}

TEST_F(Init, AListThatDoesNotParseIsNotTouchedAndNothingIsMade) {
  disk.write("server/Docs/Quor_Selection.xml", "<Quor_Selection_List>\n<Quors>\n");
  const Tree before = disk.contents();
  const Outcome outcome = init("Plant");
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.err.rfind("critical: DISK/server/Docs/Quor_Selection.xml:", 0), 0U)
      << outcome.err;
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(Init, AListWithoutItsContainerIsNotTouchedAndNothingIsMade) {
  disk.write("server/Docs/Quor_Selection.xml", "<Quor_Selection_List/>");
  const Tree before = disk.contents();
  const Outcome outcome = init("Plant");
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.err,
            "critical: DISK/server/Docs/Quor_Selection.xml: the element Quors is missing\n");
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(Init, AFileInTheWayOfAFolderIsAFailedWrite) {
  disk.write("server", "a file");
  const Outcome outcome = init("Plant");
  EXPECT_EQ(outcome.status, 5);
  EXPECT_EQ(outcome.err.rfind("critical: DISK/server", 0), 0U) << outcome.err;
  EXPECT_EQ(disk.read("server"), "a file");
}

}  // namespace
}  // namespace quorbind::testing
