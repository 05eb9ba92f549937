#include "toc/toc_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/read_only_files.h"
#include "tests/support/world.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::string_view kHeader = "\"Node Level\" \"Node Name\" \"File Name\" \"Sub Link\"\n\n";

/// An entry line in quotes.
std::string entry(std::string_view level,
                  std::string_view name = "Heading",
                  std::string_view file = "") {
  return "\"" + std::string(level) + "\" \"" + std::string(name) + "\" \"" + std::string(file) +
         "\" \"\"\n";
}

class TextToc : public ::testing::Test {
 protected:
  bool validate(std::string_view text) {
    world_.disk.write("toc.txt", text);
    std::string path = "C:\\toc.txt";
    return check_.mbValidateTocFile(path, TocCheck::kText);
  }
  bool validateLevels(std::initializer_list<std::string_view> levels) {
    std::string text(kHeader);
    for (const std::string_view level : levels) {
      text += entry(level);
    }
    return validate(text);
  }
  [[nodiscard]] const std::vector<std::string>& record() const { return world_.user.record(); }

  World world_;
  TocCheck check_{world_.module};
};

TEST_F(TextToc, IsAcceptedWhenEveryLineObeysTheRules) {
  EXPECT_TRUE(validateLevels({"1", "2", "3", "2", "3", "2"}));
  EXPECT_THAT(record(), IsEmpty());
  EXPECT_EQ(check_.mintPrevLevel(), 2);
}

TEST_F(TextToc, OfNoLinesIsEmpty) {
  EXPECT_FALSE(validate(""));
  EXPECT_THAT(record(), ElementsAre("critical: Error: Text File is Empty"));
}

TEST_F(TextToc, OfAHeaderLineAloneIsEmpty) {
  EXPECT_FALSE(validate("\"a\" \"b\" \"c\" \"d\"\n"));
  EXPECT_THAT(record(), ElementsAre("critical: Error: Text File is Empty"));
}

TEST_F(TextToc, OfAHeaderAndASecondLineIsValid) {
  EXPECT_TRUE(validate(kHeader));
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(TextToc, IsNotAskedAnythingAboutItsSecondLine) {
  EXPECT_TRUE(validate("\"a\" \"b\" \"c\" \"d\"\nmalformed \" line\n"));
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(TextToc, WantsFourQuotedFieldsInItsHeader) {
  EXPECT_FALSE(validate("\"a\" \"b\" \"c\"\n\n"));
  EXPECT_THAT(record(),
              ElementsAre("critical: Error: Text File Does not adhere to Quor TOC Content Spec",
                          "clipboard: \"a\" \"b\" \"c\""));
}

TEST_F(TextToc, RefusesTheSixColumnHeaderOfAnExport) {
  EXPECT_FALSE(
      validate("\"Node Level\" \"Node Name\" \"File Name\" \"Sub Link\" \"FLinkValue\" "
               "\"BookLinkValue\"\n\n"));
  EXPECT_EQ(record().at(0), "critical: Error: Text File Does not adhere to Quor TOC Content Spec");
}

TEST_F(TextToc, RefusesAnEmptyLine) {
  EXPECT_FALSE(validate(std::string(kHeader) + entry("1") + "\n"));
  EXPECT_THAT(record(), ElementsAre("critical: Error:Empty Line in TOC is not valid"));
}

TEST_F(TextToc, RefusesALineOfBlanks) {
  EXPECT_FALSE(validate(std::string(kHeader) + entry("1") + "   "));
  EXPECT_THAT(record(), ElementsAre("critical: Error:Empty Line in TOC is not valid"));
}

TEST_F(TextToc, AcceptsAFinalLineEnd) {
  EXPECT_TRUE(validate(std::string(kHeader) + "\"1\" \"B\" \"\" \"\"\r\n"));
}

TEST_F(TextToc, RefusesALineWithoutEightQuotesAndOffersIt) {
  EXPECT_FALSE(validate(std::string(kHeader) + "\"1\" \"Book\" \"a.htm\"\n"));
  EXPECT_THAT(record(),
              ElementsAre("critical: Line: \"1\" \"Book\" \"a.htm\"\r"
                          "Error: Does not adhere to Quor TOC Content Spec",
                          "clipboard: \"1\" \"Book\" \"a.htm\""));
}

TEST_F(TextToc, ExaminesNothingAroundTheQuotedFields) {
  EXPECT_TRUE(validate(std::string(kHeader) + "x\"1\"y\"B\"z\"\"\"\"$@@$1$@@$\n"));
}

TEST_F(TextToc, RefusesALevelThatIsAWord) {
  EXPECT_FALSE(validateLevels({"x"}));
  EXPECT_THAT(record(),
              ElementsAre("critical: Line: \"x\" \"Heading\" \"\" \"\"\r"
                          "Error:Node Level value can not be String",
                          "clipboard: \"x\" \"Heading\" \"\" \"\""));
}

TEST_F(TextToc, RefusesALevelThatNoSixteenBitsHold) {
  EXPECT_FALSE(validateLevels({"40000"}));
  EXPECT_THAT(record().at(0), ::testing::EndsWith("\rError:Node Level value can not be String"));
}

TEST_F(TextToc, RoundsLevelsAndAllowsBlanksAroundThem) {
  EXPECT_TRUE(validateLevels({" 1 ", "1.5", "2.5"}));
  EXPECT_EQ(check_.mintPrevLevel(), 2);
}

TEST_F(TextToc, RefusesLevelZero) {
  EXPECT_FALSE(validateLevels({"0"}));
  EXPECT_THAT(record(),
              ElementsAre("critical: Line: \"0\" \"Heading\" \"\" \"\"\r"
                          "Error:Invalid Node Level Sequence ",
                          "clipboard: \"0\" \"Heading\" \"\" \"\""));
}

TEST_F(TextToc, RefusesAJumpByTwo) {
  EXPECT_FALSE(validateLevels({"1", "2", "3", "2", "4"}));
  EXPECT_EQ(record().at(0),
            "critical: Line: \"4\" \"Heading\" \"\" \"\"\rError:Invalid Node Level Sequence ");
  EXPECT_EQ(check_.mintPrevLevel(), 2);
}

TEST_F(TextToc, RefusesASecondLevelOne) {
  EXPECT_FALSE(validateLevels({"1", "2", "1"}));
  EXPECT_THAT(record().at(0), ::testing::EndsWith("\rError:Invalid Node Level Sequence "));
}

TEST_F(TextToc, MustBeginWithLevelOne) {
  EXPECT_FALSE(validateLevels({"2"}));
  EXPECT_EQ(record().at(0),
            "critical: Line: \"2\" \"Heading\" \"\" \"\"\rError:Invalid Node Level Sequence ");
}

TEST_F(TextToc, DoesNotRefuseNegativeLevels) {
  EXPECT_TRUE(validateLevels({"1", "-3", "-2"}));
}

TEST_F(TextToc, RefusesAnEmptyNameAfterTakingTheLevelOver) {
  EXPECT_FALSE(validate(std::string(kHeader) + entry("1") + entry("2", "")));
  EXPECT_THAT(record(),
              ElementsAre("critical: Line: \"2\" \"\" \"\" \"\"\rError:Node Name can not be Empty",
                          "clipboard: \"2\" \"\" \"\" \"\""));
  EXPECT_EQ(check_.mintPrevLevel(), 2);
}

TEST_F(TextToc, AcceptsANameOfBlanks) {
  EXPECT_TRUE(validate(std::string(kHeader) + entry("1", " ")));
}

TEST_F(TextToc, StartsFromTheLastLevelOfTheOneBefore) {
  EXPECT_TRUE(validateLevels({"1", "2"}));
  EXPECT_FALSE(validateLevels({"1", "2"}));
  EXPECT_THAT(record().at(0), ::testing::EndsWith("\rError:Invalid Node Level Sequence "));
}

TEST_F(TextToc, GivesTheBookItsNameWhenItHasNone) {
  EXPECT_TRUE(validate(std::string(kHeader) + entry("1", "Pump Station") + entry("2", "Start")));
  EXPECT_EQ(world_.state().currentBookName, "Pump Station");
}

TEST_F(TextToc, KeepsANameThatTheBookHas) {
  world_.state().currentBookName = "Given";
  EXPECT_TRUE(validate(std::string(kHeader) + entry("1", "Pump Station")));
  EXPECT_EQ(world_.state().currentBookName, "Given");
}

TEST_F(TextToc, NotesMissingDocumentsAsTheyAreWrittenAndStopsForNone) {
  EXPECT_TRUE(validate(std::string(kHeader) + entry("1", "B", "Manual\\cover.htm") +
                       entry("2", "H", "Manual\\a.htm#top")));
  EXPECT_THAT(check_.marrsMissingFiles(), ElementsAre("Manual\\cover.htm", "Manual\\a.htm#top"));
  EXPECT_EQ(check_.mstrCurFile(), "Manual\\a.htm");
  EXPECT_EQ(check_.mstrCurBookMark(), "#top");
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(TextToc, LooksDocumentsUpFromTheRootOfTheDrive) {
  world_.disk.write("Manual/a.htm", "page");
  EXPECT_TRUE(validate(std::string(kHeader) + entry("1", "B", "manual/A.HTM#x") +
                       entry("2", "H", "a.htm")));
  EXPECT_THAT(check_.marrsMissingFiles(), ElementsAre("a.htm"));
}

TEST_F(TextToc, ForgetsTheBookmarkOfTheEntryBeforeButNotAtAnEmptyFileName) {
  EXPECT_TRUE(validate(std::string(kHeader) + entry("1", "B", "a.htm#x") + entry("2", "H")));
  EXPECT_EQ(check_.mstrCurBookMark(), "#x");
  EXPECT_TRUE(check_.mbCheckFilePath("", "b.htm", "\\"));
  EXPECT_EQ(check_.mstrCurFile(), "b.htm");
  EXPECT_EQ(check_.mstrCurBookMark(), "");
}

TEST_F(TextToc, CountsNetworkAndDeviceNamesAsMissingWithoutLookingThemUp) {
  world_.disk.write("server/share/a.htm", "page");
  world_.disk.write("con.htm", "page");
  EXPECT_TRUE(validate(std::string(kHeader) + entry("1", "B", "\\server\\share\\a.htm") +
                       entry("2", "H", "con.htm")));
  EXPECT_THAT(check_.marrsMissingFiles(), ElementsAre("\\server\\share\\a.htm", "con.htm"));
}

TEST_F(TextToc, IsReadInEveryEncoding) {
  const std::string text = std::string(kHeader) + entry("1", "Grüße");
  EXPECT_TRUE(validate(utf16File(text)));
  EXPECT_EQ(world_.state().currentBookName, "Grüße");
}

TEST_F(TextToc, CountsADocumentNameThatNoFileCanHaveAsMissing) {
  const std::string name("a\0b", 3);
  EXPECT_TRUE(validate(std::string(kHeader) + entry("1", "B", name) + entry("2")));
  EXPECT_THAT(record(), IsEmpty());
  EXPECT_THAT(check_.marrsMissingFiles(), ElementsAre(name));
}

TEST_F(TextToc, ReportsAClipboardThatCanNotBeReached) {
  world_.user.lockClipboard();
  EXPECT_FALSE(validateLevels({"0"}));
  EXPECT_THAT(record(),
              ElementsAre("critical: Line: \"0\" \"Heading\" \"\" \"\"\r"
                          "Error:Invalid Node Level Sequence ",
                          "critical: Error(70): Permission denied\r"
                          "Quorbind: Quor_Book::mDisplayErrorMessage"));
}

TEST_F(TextToc, ReportsABoxThatCouldNotBeShown) {
  world_.user.failNextShow();
  EXPECT_FALSE(validate(std::string(kHeader) + "\n"));
  EXPECT_THAT(record(),
              ElementsAre("critical: Error(7): Out of memory\r"
                          "Quorbind: Quor_Book::mbValidateTextToc"));
}

class HtmlExport : public ::testing::Test {
 protected:
  /// Exports, and answers whether it succeeded; `path_` is then the path it was changed to.
  bool write(std::string path, std::string_view text) {
    path_ = std::move(path);
    return check_.mHTMLExportToText(path_, text);
  }

  World world_;
  TocCheck check_{world_.module};
  std::string path_;
};

TEST_F(HtmlExport, StandsBesideThePageUnderItsUpperCasedName) {
  world_.disk.makeFolder("Docs");
  EXPECT_TRUE(write("C:\\Docs\\toc.htm", "line\r\nGrüße"));
  EXPECT_EQ(path_, "C:\\DOCS\\TOC_Temp.txt");
  EXPECT_EQ(world_.disk.read("Docs/TOC_Temp.txt"), utf16File("line\r\nGrüße"));
}

TEST_F(HtmlExport, KeepsTheLastLetterOfTheLongerExtension) {
  EXPECT_TRUE(write("C:\\toc.html", ""));
  EXPECT_EQ(path_, "C:\\TOC_Temp.txtL");
  EXPECT_EQ(world_.disk.read("TOC_Temp.txtL"), utf16File(""));
}

TEST_F(HtmlExport, ReplacesEveryOccurrenceOfTheExtension) {
  world_.disk.makeFolder("a_Temp.txt");
  EXPECT_TRUE(write("C:\\a.htm\\toc.htm", ""));
  EXPECT_EQ(path_, "C:\\A_Temp.txt\\TOC_Temp.txt");
}

TEST_F(HtmlExport, ReplacesAnOlderExport) {
  world_.disk.write("TOC_Temp.txt", "old");
  EXPECT_TRUE(write("C:\\toc.htm", "new"));
  EXPECT_EQ(world_.disk.read("TOC_Temp.txt"), utf16File("new"));
}

TEST_F(HtmlExport, ReportsAFolderThatIsNotThere) {
  EXPECT_FALSE(write("C:\\none\\toc.htm", ""));
  EXPECT_THAT(world_.user.record(),
              ElementsAre("critical: Error(76): Path not found\r"
                          "Quorbind: Quor_Book::mHTMLExportToText"));
}

TEST_F(HtmlExport, NamesTheFolderThatAllowsNoFile) {
  ReadOnlyFiles files(world_.platform().files);
  Module module(Platform{files,
                         world_.platform().xml,
                         world_.platform().ui,
                         world_.platform().toolset,
                         world_.platform().locale,
                         world_.platform().spreadsheets});
  TocCheck check(module);
  std::string path = "C:\\Docs\\toc.htm";
  EXPECT_FALSE(check.mHTMLExportToText(path, ""));
  EXPECT_THAT(world_.user.record(),
              ElementsAre("information: A temporary text file has to be created under this C:\\DOCS"
                          "  location,folder in the above does not have a valid permission, please "
                          "go and set the permission"));
}

TEST(TocFile, WhoseBoxCouldNotBeShownIsReported) {
  World world;
  TocCheck check(world.module);
  std::string path = "C:\\none.txt";
  world.user.failNextShow();
  EXPECT_FALSE(check.mbValidateTocFile(path, TocCheck::kText));
  EXPECT_THAT(world.user.record(),
              ElementsAre("critical: Error(7): Out of memory\r"
                          "Quorbind: Quor_Book::mbValidateTocFile"));
}

TEST(TocFile, ThatIsNotThereIsNamed) {
  World world;
  TocCheck check(world.module);
  std::string path = "C:\\none.txt";
  EXPECT_FALSE(check.mbValidateTocFile(path, TocCheck::kText));
  EXPECT_THAT(world.user.record(), ElementsAre("critical: TOC not found at Path\rC:\\none.txt"));
}

TEST(TocFile, OfAnUnknownKindIsRefusedWithoutAMessage) {
  World world;
  world.disk.write("toc.txt", "");
  TocCheck check(world.module);
  std::string path = "C:\\toc.txt";
  EXPECT_FALSE(check.mbValidateTocFile(path, 5));
  EXPECT_THAT(world.user.record(), IsEmpty());
}

TEST(TocFile, ThatIsAFolderCountsAsNotThere) {
  World world;
  world.disk.makeFolder("toc.txt");
  TocCheck check(world.module);
  std::string path = "C:\\toc.txt";
  EXPECT_FALSE(check.mbValidateTocFile(path, TocCheck::kText));
  EXPECT_THAT(world.user.record(), ElementsAre("critical: TOC not found at Path\rC:\\toc.txt"));
}

}  // namespace
}  // namespace quorbind::testing
