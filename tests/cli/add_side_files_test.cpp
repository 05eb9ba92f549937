#include <filesystem>

#include "tests/cli/command_test.h"

namespace quorbind::testing {
namespace {

constexpr const char* kKeywords = "server/Docs/Plant/Quor_SearchKeywords.xml";
constexpr const char* kCategories = "server/Docs/Plant/Quor_BookCategories.xml";

class AddWithRecords : public CommandTest {
 protected:
  void SetUp() override {
    initLibrary();
    writeBook();
  }

  /// What a side file holds from its root on.
  [[nodiscard]] std::string tree(const std::string& file, const std::string& root) const {
    const std::string text = replaceAll(fromUtf16File(disk.read(file)), "\r\n", "\n");
    return text.substr(text.find("<" + root));
  }
  void expectNothingAdded(const Outcome& outcome, int status, const std::string& error) const {
    EXPECT_EQ(outcome.status, status);
    EXPECT_EQ(outcome.err, error);
    EXPECT_FALSE(disk.has("server/Docs/Plant/Manual/Book_ALM.xml"));
  }
};

TEST_F(AddWithRecords, RecordsTheKeywordsOfTheBook) {
  const Outcome outcome = addAlarms({"--keywords", "alarm; limit>high"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(tree(kKeywords, "Books"),
            "<Books>\n"
            "\t<Book Book_Name=\"Alarms\">\n"
            "\t\t<Keywords>\n"
            "\t\t\t<Keyword>alarm</Keyword>\n"
            "\t\t\t<Keyword>limit&amp;gt;high</Keyword>\n"
            "\t\t</Keywords>\n"
            "\t</Book>\n"
            "</Books>\n");
}

TEST_F(AddWithRecords, RecordsKeywordsUnderTheNameThatTheCatalogueHas) {
  for (const char* acronym : {"ONE", "TWO"}) {
    disk.write("server/Docs/Plant/Quor_TOC.xml", "<Quor_Master><Quor_Books/></Quor_Master>");
    const Outcome outcome =
        add({"--name", "The Driver's R&D", "--acro", acronym, "--keywords", "x;y"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
  }
  EXPECT_EQ(tree(kKeywords, "Books"),
            "<Books>\n"
            "\t<Book Book_Name=\"The Driver&amp;apos;s R&amp;amp;D\">\n"
            "\t\t<Keywords>\n"
            "\t\t\t<Keyword>x</Keyword>\n"
            "\t\t\t<Keyword>y</Keyword>\n"
            "\t\t</Keywords>\n"
            "\t</Book>\n"
            "</Books>\n");
}

TEST_F(AddWithRecords, FilesTheBookUnderItsCategories) {
  const Outcome outcome = addAlarms({"--categories", "Training; Alarm Handling"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(tree(kCategories, "BookSet_Categories"),
            "<BookSet_Categories>\n"
            "\t<Category>\n"
            "\t\t<CategoryName>User Guides</CategoryName>\n"
            "\t</Category>\n"
            "\t<Category>\n"
            "\t\t<CategoryName>Reference Manuals</CategoryName>\n"
            "\t</Category>\n"
            "\t<Category>\n"
            "\t\t<CategoryName>Release Notes</CategoryName>\n"
            "\t</Category>\n"
            "\t<Category>\n"
            "\t\t<CategoryName>Training</CategoryName>\n"
            "\t\t<BookAcro>ALM</BookAcro>\n"
            "\t</Category>\n"
            "\t<Category>\n"
            "\t\t<CategoryName>Alarm Handling</CategoryName>\n"
            "\t\t<BookAcro>ALM</BookAcro>\n"
            "\t</Category>\n"
            "\t<Category>\n"
            "\t\t<CategoryName>Other Category</CategoryName>\n"
            "\t</Category>\n"
            "</BookSet_Categories>\n");
}

TEST_F(AddWithRecords, AKeywordThatBreaksARuleIsRefusedBeforeAnythingIsWritten) {
  const Tree before = disk.contents();
  const std::string end = "quorbind: toc.txt: nothing was added\n";
  expectNothingAdded(addAlarms({"--keywords", "alarm;a##"}),
                     1,
                     "message: Search keyword should not contain '##' in it.\n" + end);
  expectNothingAdded(
      addAlarms({"--keywords", "two words"}),
      1,
      "message: Search keyword should not have any spaces in between the characters\n" + end);
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(AddWithRecords, ACategoryThatCouldNotBeRecordedIsRefusedBeforeAnythingIsWritten) {
  const Tree before = disk.contents();
  const std::string end = "quorbind: toc.txt: nothing was added\n";
  expectNothingAdded(
      addAlarms({"--categories", "O'Neil"}),
      1,
      "critical: the category O'Neil can not be looked up: it holds an apostrophe\n" + end);
  expectNothingAdded(addAlarms({"--categories", "c\x01y"}),
                     1,
                     "critical: the category c\\x01y can not be kept: it holds a character that no "
                     "XML file can hold\n" +
                         end);
  for (const char* separator : {";", ","}) {
    expectNothingAdded(
        addAlarms(
            {"--categories", std::string("Training") + separator + " R&D" + separator + "O'Neil"}),
        1,
        "critical: the category R&D can not be one of several: it holds one of & < > \" '\n"
        "the category O'Neil can not be one of several: it holds one of & < > \" '\n" +
            end);
  }
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(AddWithRecords, ASingleCategoryMayHoldMarkupCharacters) {
  const Outcome outcome = addAlarms({"--categories", " R&D <x> "});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_NE(tree(kCategories, "BookSet_Categories")
                .find("\t\t<CategoryName>R&amp;D &lt;x&gt;</CategoryName>\n"
                      "\t\t<BookAcro>ALM</BookAcro>\n"),
            std::string::npos);
}

TEST_F(AddWithRecords, EveryKeywordThatBreaksARuleIsTold) {
  expectNothingAdded(
      addAlarms({"--keywords", "a##;alarm;two words;x\x01y"}),
      1,
      "message: Search keyword should not contain '##' in it.\n"
      "message: Search keyword should not have any spaces in between the characters\n"
      "critical: the keyword x\\x01y can not be kept: it holds a character that no XML file can "
      "hold\n"
      "quorbind: toc.txt: nothing was added\n");
}

TEST_F(AddWithRecords, NoCategoriesFileIsMadeForABookWithoutCategories) {
  std::filesystem::remove(disk.path() / kCategories);
  const Outcome outcome = addAlarms({"--create-categories"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err,
            "information: --create-categories is not used: there are no --categories\n");
  EXPECT_FALSE(disk.has(kCategories));
}

TEST_F(AddWithRecords, NoCategoriesFileIsMadeFromDefaultsOfAnotherKind) {
  std::filesystem::remove(disk.path() / kCategories);
  disk.write("server/Docs/Quor_DefaultCategories.xml", "<Defaults/>");
  const Outcome outcome = addAlarms({"--create-categories", "--categories", "Training"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err,
            "information: --create-categories is not used: "
            "DISK/server/Docs/Quor_DefaultCategories.xml: the element Default_Categories is "
            "missing\n"
            "information: --categories is not used: the library has no categories file\n");
  EXPECT_FALSE(disk.has(kCategories));
}

TEST_F(AddWithRecords, TheCategoriesFileIsMadeOnlyWhereThereIsNone) {
  const Outcome kept = addAlarms({"--create-categories", "--categories", "Training"});
  EXPECT_EQ(kept.status, 0);
  EXPECT_EQ(kept.err,
            "information: --create-categories is not used: the library has a categories file\n");

  std::filesystem::remove(disk.path() / kCategories);
  const Outcome made = add({"--name",
                            "Trends",
                            "--acro",
                            "TRD",
                            "--create-categories",
                            "--categories",
                            "Training",
                            "--install-type",
                            "1000"});
  EXPECT_EQ(made.status, 0);
  EXPECT_EQ(made.err, "");
  const std::string categories = tree(kCategories, "BookSet_Categories");
  EXPECT_NE(categories.find("<BookAcro>TRD</BookAcro>"), std::string::npos);
  EXPECT_EQ(categories.find("<BookAcro>ALM</BookAcro>"), std::string::npos);
}

TEST_F(AddWithRecords, TheCategoriesFileIsNotMadeWithoutDefaultsThatLoad) {
  std::filesystem::remove(disk.path() / kCategories);
  disk.write("server/Docs/Quor_DefaultCategories.xml", "<Default_Categories>\n</x>");
  const Outcome outcome = addAlarms({"--create-categories", "--categories", "Training"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_TRUE(
      outcome.err.starts_with("information: --create-categories is not used: "
                              "DISK/server/Docs/Quor_DefaultCategories.xml:2:5: "))
      << outcome.err;
  EXPECT_TRUE(outcome.err.ends_with(
      "\ninformation: --categories is not used: the library has no categories file\n"))
      << outcome.err;
  EXPECT_FALSE(disk.has(kCategories));
}

TEST_F(AddWithRecords, ASideFileThatDoesNotParseIsRefusedBeforeAnythingIsWritten) {
  for (const auto& [flag, file, root] : {std::tuple{"--keywords", kKeywords, "Books"},
                                         {"--categories", kCategories, "BookSet_Categories"}}) {
    disk.write(file, "<A>\n</B>");
    const Outcome damaged = addAlarms({flag, "alarm"});
    EXPECT_EQ(damaged.status, 4);
    EXPECT_TRUE(damaged.err.starts_with(std::string("critical: DISK/") + file + ":2:5: "))
        << damaged.err;
    disk.write(file, "<A/>");
    expectNothingAdded(addAlarms({flag, "alarm"}),
                       4,
                       std::string("critical: DISK/") + file + ": the element " + root +
                           " is missing\nquorbind: toc.txt: nothing was added\n");
    EXPECT_EQ(disk.read(file), "<A/>");
  }
}

TEST_F(AddWithRecords, ADamagedSideFileThatTheBookDoesNotNeedIsNoHindrance) {
  disk.write(kKeywords, "damaged");
  disk.write(kCategories, "damaged");
  EXPECT_EQ(addAlarms().status, 0);
  EXPECT_EQ(disk.read(kKeywords), "damaged");
  EXPECT_EQ(disk.read(kCategories), "damaged");
}

TEST_F(AddWithRecords, ReportsWhatIsNotUsedInTheObjectToo) {
  const Outcome outcome = addAlarms({"--json", "--create-categories", "--keywords", "alarm"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "{\n  \"format\": 1,\n"
            "  \"status\": 0,\n"
            "  \"added\": true,\n"
            "  \"folder\": \"Manual\",\n"
            "  \"files\": [\n"
            "    \"Book_ALM.xml\",\n"
            "    \"alarms.htm\",\n"
            "    \"trends.htm\"\n"
            "  ],\n"
            "  \"missing\": [],\n"
            "  \"messages\": [\n"
            "    {\n"
            "      \"icon\": \"information\",\n"
            "      \"title\": \"Quorbind\",\n"
            "      \"text\": \"--create-categories is not used: the library has a categories "
            "file\",\n"
            "      \"clipboard\": null\n"
            "    }\n"
            "  ]\n"
            "}\n");
}

}  // namespace
}  // namespace quorbind::testing
