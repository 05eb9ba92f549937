#include "catalogue/book_installation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/text.h"
#include "tests/support/catalogue_text.h"
#include "tests/support/toolset_doubles.h"
#include "tests/support/unsavable_xml.h"
#include "tests/support/watched_xml.h"
#include "tests/support/world.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::string_view kCatalogue = "Docs/Plant/Quor_TOC.xml";
constexpr std::string_view kCategories = "Docs/Plant/Quor_BookCategories.xml";
constexpr std::string_view kKeywords = "Docs/Plant/Quor_SearchKeywords.xml";
constexpr std::string_view kSource = "Quorbind:Book_Config::CreateQuorBookNodeForSEntry";

/// The entry that an installation makes; `categories` are the lines of the element.
std::string installedEntry(std::string_view name,
                           std::string_view acronym,
                           std::string_view categories = "\t\t\t<Book_Categories/>\n") {
  return "\t\t<Book>\n"
         "\t\t\t<Book_Name>" +
         std::string(name) +
         "</Book_Name>\n"
         "\t\t\t<Book_Acro>" +
         std::string(acronym) +
         "</Book_Acro>\n"
         "\t\t\t<Book_Key id=\"\">Plant</Book_Key>\n"
         "\t\t\t<Book_Folder>" +
         std::string(acronym) +
         "</Book_Folder>\n"
         "\t\t\t<Book_File type=\"pdf\">guide.pdf</Book_File>\n" +
         std::string(categories) + "\t\t</Book>\n";
}

std::string categoriesOf(const std::vector<std::string>& categories) {
  std::string lines = "\t\t\t<Book_Categories>\n";
  for (const std::string& category : categories) {
    lines += category.empty() ? "\t\t\t\t<Book_Category/>\n"
                              : "\t\t\t\t<Book_Category>" + category + "</Book_Category>\n";
  }
  return lines + "\t\t\t</Book_Categories>\n";
}

std::string category(std::string_view name, std::string_view acronym) {
  return "\t<Category>\n"
         "\t\t<CategoryName>" +
         std::string(name) +
         "</CategoryName>\n"
         "\t\t<BookAcro>" +
         std::string(acronym) +
         "</BookAcro>\n"
         "\t</Category>\n";
}

std::string categoriesFileWith(std::string_view categories) {
  return "<BookSet_Categories>\n" + std::string(categories) +
         "\t<Category>\n"
         "\t\t<CategoryName>Other Category</CategoryName>\n"
         "\t</Category>\n"
         "</BookSet_Categories>\n";
}

std::string keywordsFileWith(std::string_view book, const std::vector<std::string>& keywords) {
  std::string text = "<Books>\n\t<Book Book_Name=\"" + std::string(book) + "\">\n\t\t<Keywords>\n";
  for (const std::string& keyword : keywords) {
    text += "\t\t\t<Keyword>" + keyword + "</Keyword>\n";
  }
  return text + "\t\t</Keywords>\n\t</Book>\n</Books>\n";
}

class BookInstallation : public ::testing::Test {
 protected:
  BookInstallation() {
    world_.disk.write(kCatalogue, catalogueWith(bookEntry("Alarms", "ALM")));
    world_.disk.write(kCategories, categoriesFileWith(""));
    world_.disk.write(kKeywords, "<Books/>");
    world_.disk.write("In/guide.pdf", "the document");
  }

  struct Call {
    std::string file = "C:\\In\\guide.pdf";
    std::string fileName = "guide.pdf";
    std::string type = "pdf";
    std::int32_t installationType = 999;
    bool makeCategoriesFile = false;
  };
  void install(Module& module, const Call& call, const TextArray& info) {
    CreateQuorBookNodeForSEntry(module,
                                call.file,
                                call.fileName,
                                call.type,
                                "Plant",
                                call.installationType,
                                call.makeCategoriesFile,
                                info);
  }
  void install(const Call& call, const std::vector<std::string>& info) {
    install(world_.module, call, {info, 0});
  }
  void install(const std::vector<std::string>& info) { install(Call(), info); }

  [[nodiscard]] std::string file(std::string_view name) const {
    return replaceAll(world_.disk.read(name), "\r\n", "\n");
  }
  [[nodiscard]] std::string catalogue() const { return file(kCatalogue); }
  [[nodiscard]] static std::string catalogueAnd(std::string_view entry) {
    return catalogueWith(bookEntry("Alarms", "ALM") + std::string(entry));
  }
  [[nodiscard]] const std::vector<std::string>& record() const { return world_.user.record(); }

  World world_;
};

// A whole installation

TEST_F(BookInstallation, EntersTheBookCopiesItsFileAndAddsToBothSideFiles) {
  install({"Guide", "GDE", "pump;motor", "Operation;Repair"});

  EXPECT_THAT(record(), IsEmpty());
  EXPECT_EQ(catalogue(),
            catalogueAnd(installedEntry("Guide", "GDE", categoriesOf({"Operation", "Repair"}))));
  EXPECT_EQ(world_.disk.read("Docs/Plant/GDE/guide.pdf"), "the document");
  EXPECT_EQ(file(kCategories),
            categoriesFileWith(category("Operation", "GDE") + category("Repair", "GDE")));
  EXPECT_EQ(file(kKeywords), keywordsFileWith("Guide", {"pump", "motor"}));
  EXPECT_EQ(world_.disk.read("In/guide.pdf"), "the document");
}

TEST_F(BookInstallation, StoresTheFileUnderTheNameThatTheHostGives) {
  install({.fileName = "Guide 2.pdf"}, {"Guide", "GDE", "", ""});
  EXPECT_EQ(world_.disk.read("Docs/Plant/GDE/Guide 2.pdf"), "the document");
  EXPECT_EQ(catalogue(),
            catalogueAnd(replaceAll(installedEntry("Guide", "GDE"), "guide.pdf", "Guide 2.pdf")));
}

TEST_F(BookInstallation, ReplacesAnOlderFileOfThatName) {
  world_.disk.write("Docs/Plant/GDE/guide.pdf", "an older one");
  install({"Guide", "GDE", "", ""});
  EXPECT_EQ(world_.disk.read("Docs/Plant/GDE/guide.pdf"), "the document");
}

TEST_F(BookInstallation, TakesADocumentThatLiesInTheBooksFolderAlready) {
  world_.disk.write("Docs/Plant/GDE/guide.pdf", "the document");
  install({.file = "C:\\Docs\\Plant\\GDE\\guide.pdf"}, {"Guide", "GDE", "pump", ""});
  EXPECT_THAT(record(), IsEmpty());
  EXPECT_EQ(world_.disk.read("Docs/Plant/GDE/guide.pdf"), "the document");
  EXPECT_EQ(file(kKeywords), keywordsFileWith("Guide", {"pump"}));
}

TEST_F(BookInstallation, StoresTheNameWithItsSpecialCharactersReplaced) {
  install({"R&D <\"a\"> b's", "RD", "", ""});
  EXPECT_THAT(record(), IsEmpty());
  EXPECT_EQ(catalogue(),
            catalogueAnd(installedEntry(
                "R&amp;amp;D &amp;lt;&amp;quot;a&amp;quot;&amp;gt; b&amp;apos;s", "RD")));
}

TEST_F(BookInstallation, LeavesTheSideFilesAloneWithoutKeywordsAndCategories) {
  world_.disk.write(kKeywords, "no XML");
  world_.disk.write(kCategories, "no XML");
  install({"Guide", "GDE", "", ""});
  EXPECT_THAT(record(), IsEmpty());
  EXPECT_EQ(world_.disk.read(kKeywords), "no XML");
  EXPECT_EQ(world_.disk.read(kCategories), "no XML");
}

// Pages and XML files bring what belongs to them

TEST_F(BookInstallation, HandsPagesAndXmlFilesToTheCopyComponent) {
  ToolsetWithDoubles toolset(world_.toolset);
  std::vector<std::string> calls;
  toolset.setCopying([&](const std::string& destination,
                         const std::string& source,
                         std::int16_t reservedOverwrite,
                         std::int16_t reservedDialog) {
    calls.push_back(destination + "|" + source + "|" + std::to_string(reservedOverwrite) +
                    std::to_string(reservedDialog));
    return false;
  });
  const Platform& ports = world_.platform();
  Module module({ports.files, ports.xml, ports.ui, toolset, ports.locale, ports.spreadsheets});
  for (const std::string name :
       {"a.htm", "b.HTML", "c.xml", "d.Xml.bak", "e.txt", "page.htm.files/f.pdf"}) {
    world_.disk.write("In/" + name, "the document");
    install(module,
            {.file = "C:\\In\\" + replaceAll(name, "/", "\\")},
            {{"Guide " + name, "G" + std::to_string(calls.size()), "", ""}, 0});
  }
  EXPECT_THAT(calls,
              ElementsAre("C:\\Docs\\Plant\\G0|C:\\In\\a.htm|00",
                          "C:\\Docs\\Plant\\G1|C:\\In\\b.HTML|00",
                          "C:\\Docs\\Plant\\G2|C:\\In\\c.xml|00",
                          "C:\\Docs\\Plant\\G3|C:\\In\\d.Xml.bak|00"));
  EXPECT_EQ(world_.disk.read("Docs/Plant/G0/guide.pdf"), "the document");
}

TEST_F(BookInstallation, BringsThePicturesOfAPage) {
  world_.disk.write("In/guide.htm", "<img src='pump.png'>");
  world_.disk.write("In/pump.png", "picture");
  install({.file = "C:\\In\\guide.htm", .fileName = "index.htm", .type = "htm"},
          {"Guide", "GDE", "", ""});
  EXPECT_EQ(world_.disk.read("Docs/Plant/GDE/pump.png"), "picture");
  EXPECT_EQ(world_.disk.read("Docs/Plant/GDE/guide.htm"), "<img src='pump.png'>");
  EXPECT_EQ(world_.disk.read("Docs/Plant/GDE/index.htm"), "<img src='pump.png'>");
}

// Categories and keywords

TEST_F(BookInstallation, MakesThreeCategoriesOfThreeNamesBetweenSemicolonsWithoutTheirBlanks) {
  install({"Guide", "GDE", "", "A ; B;  C, D "});
  EXPECT_EQ(catalogue(),
            catalogueAnd(installedEntry("Guide", "GDE", categoriesOf({"A", "B", "C, D"}))));
  EXPECT_EQ(
      file(kCategories),
      categoriesFileWith(category("A", "GDE") + category("B", "GDE") + category("C, D", "GDE")));
}

TEST_F(BookInstallation, MakesTwoCategoriesOfTwoNamesBetweenCommas) {
  install({"Guide", "GDE", "", "A, B"});
  EXPECT_EQ(catalogue(), catalogueAnd(installedEntry("Guide", "GDE", categoriesOf({"A", "B"}))));
}

TEST_F(BookInstallation, MakesOneCategoryOfASingleNameWithoutItsBlanks) {
  install({"Guide", "GDE", "", " A and B "});
  EXPECT_EQ(catalogue(), catalogueAnd(installedEntry("Guide", "GDE", categoriesOf({"A and B"}))));
  EXPECT_EQ(file(kCategories), categoriesFileWith(category("A and B", "GDE")));
}

TEST_F(BookInstallation, KeepsAnEmptyPieceAsAnEmptyCategoryOfTheEntryAlone) {
  install({"Guide", "GDE", "", "A;;B"});
  EXPECT_EQ(catalogue(),
            catalogueAnd(installedEntry("Guide", "GDE", categoriesOf({"A", "", "B"}))));
  EXPECT_EQ(file(kCategories), categoriesFileWith(category("A", "GDE") + category("B", "GDE")));
}

TEST_F(BookInstallation, StoresASingleKeyword) {
  install({"Guide", "GDE", "pump", ""});
  EXPECT_EQ(file(kKeywords), keywordsFileWith("Guide", {"pump"}));
}

TEST_F(BookInstallation, SplitsKeywordsAtCommasWhereThereIsNoSemicolon) {
  install({"Guide", "GDE", "pump, motor", ""});
  EXPECT_EQ(file(kKeywords), keywordsFileWith("Guide", {"pump", "motor"}));
}

TEST_F(BookInstallation, TellsOfAKeywordThatIsRefusedAndAddsTheCategories) {
  install({"Guide", "GDE", "pump;big motor;valve", "A"});
  EXPECT_THAT(
      record(),
      ElementsAre("message: Search keyword should not have any spaces in between the characters"));
  EXPECT_EQ(file(kKeywords), keywordsFileWith("Guide", {"pump"}));
  EXPECT_EQ(file(kCategories), categoriesFileWith(category("A", "GDE")));
}

TEST_F(BookInstallation, MakesTheCategoriesFileAnewFirstWhenItIsAskedTo) {
  world_.disk.write("Docs/Quor_DefaultCategories.xml",
                    "<Default_Categories><Quor_Developer_Pro>"
                    "<CategoryName>Pro</CategoryName></Quor_Developer_Pro><Quor_Developer>"
                    "<CategoryName>Plain</CategoryName></Quor_Developer></Default_Categories>");
  install({.installationType = 1000, .makeCategoriesFile = true}, {"Guide", "GDE", "", "A"});
  EXPECT_THAT(record(), IsEmpty());
  const std::string text = world_.text(kCategories);
  EXPECT_EQ(text.substr(text.find("<BookSet_Categories>")),
            "<BookSet_Categories>\n"
            "\t<Category>\n"
            "\t\t<CategoryName>Pro</CategoryName>\n"
            "\t</Category>\n" +
                category("A", "GDE") +
                "\t<Category>\n"
                "\t\t<CategoryName>Other Category</CategoryName>\n"
                "\t</Category>\n"
                "</BookSet_Categories>\n");
}

// Asking for name and acronym

TEST_F(BookInstallation, AsksForWhatIsMissingAndShowsTheDocument) {
  world_.user.answerWith([](ModalForm& form) {
    EXPECT_EQ(form.labelText("lblFileName"), "C:\\In\\guide.pdf");
    EXPECT_EQ(form.boxText("txtBookName"), "Guide");
    EXPECT_EQ(form.boxText("txtBookAcro"), "");
    form.type("txtBookName", "R&D");
    form.type("txtBookAcro", "RD");
    form.click("cmdOk");
  });
  install({"Guide", "", "", ""});
  EXPECT_THAT(record(), ElementsAre("form frmBookInfo"));
  EXPECT_EQ(catalogue(), catalogueAnd(installedEntry("R&amp;amp;D", "RD")));
}

TEST_F(BookInstallation, LetsTheAcronymFollowTheNameForItsInstallationType) {
  world_.user.answerWith([](ModalForm& form) {
    form.type("txtBookName", "Guide");
    EXPECT_EQ(form.boxText("txtBookAcro"), "Guide");
    form.click("cmdOk");
  });
  install({.installationType = 500}, {"", "", "", ""});
  EXPECT_EQ(catalogue(), catalogueAnd(installedEntry("Guide", "Guide")));
}

TEST_F(BookInstallation, OffersTheDialogAgainForANameThatIsTakenAndStoresWhatIsEnteredThere) {
  world_.user.answerWith(enterBook("R&D's", "RD"));
  install({"Alarms", "GDE", "pump;motor", "A"});
  EXPECT_THAT(record(),
              ElementsAre("critical: Error:Book Name Alarms already Exists", "form frmBookInfo"));
  EXPECT_EQ(catalogue(),
            catalogueAnd(installedEntry("R&amp;amp;D&amp;apos;s", "RD", categoriesOf({"A"}))));
  EXPECT_TRUE(world_.disk.has("Docs/Plant/RD/guide.pdf"));
  EXPECT_EQ(file(kKeywords), keywordsFileWith("R&amp;amp;D&amp;apos;s", {"pump", "motor"}));
  EXPECT_EQ(file(kCategories), categoriesFileWith(category("A", "RD")));
}

TEST_F(BookInstallation, BringsEachNameIntoItsStoredFormOnceAndNothingThatIsMissing) {
  ToolsetWithDoubles toolset(world_.toolset);
  std::vector<std::string> brought;
  toolset.setStoring([&](const std::string& name) {
    brought.push_back(name);
    return "stored " + name;
  });
  const Platform& ports = world_.platform();
  Module module({ports.files, ports.xml, ports.ui, toolset, ports.locale, ports.spreadsheets});
  install(module, Call(), {{"Guide", "GDE", "pump;motor", ""}, 0});
  EXPECT_EQ(catalogue(), catalogueAnd(installedEntry("stored Guide", "stored GDE")));
  EXPECT_EQ(file(kKeywords), keywordsFileWith("stored Guide", {"pump", "motor"}));

  brought.clear();
  world_.user.answerWith(enterBook("Other", "OTH"));
  install(module, Call(), {{"", "", "", ""}, 0});
  EXPECT_THAT(brought, ElementsAre("OTH", "Other", "stored Other", "stored OTH"))
      << "by the dialog, then by the look into the catalogue";
}

TEST_F(BookInstallation, ReadsTheCatalogueOnceWhenNobodyIsAsked) {
  const Platform& platform = world_.platform();
  WatchedXml xml(platform.xml, platform.files, "C:\\scratch.xml");
  Module module(Platform{
      platform.files, xml, platform.ui, platform.toolset, platform.locale, platform.spreadsheets});
  install(module, Call(), {{"Guide", "GDE", "", ""}, 0});
  EXPECT_EQ(catalogue(), catalogueAnd(installedEntry("Guide", "GDE")));
  EXPECT_EQ(xml.loadsOf("C:\\Docs\\Plant\\Quor_TOC.xml"), 1);
}

TEST_F(BookInstallation, KeepsWhatAnotherEnteredInTheCatalogueWhileTheUserWasAsked) {
  world_.user.answerWith([this](ModalForm& form) {
    world_.disk.write(kCatalogue,
                      catalogueWith(bookEntry("Alarms", "ALM") + bookEntry("Trends", "TRD")));
    form.type("txtBookName", "Guide");
    form.type("txtBookAcro", "GDE");
    form.click("cmdOk");
  });
  install({"Alarms", "GDE", "", ""});
  EXPECT_EQ(catalogue(),
            catalogueWith(bookEntry("Alarms", "ALM") + bookEntry("Trends", "TRD") +
                          installedEntry("Guide", "GDE")));
}

TEST_F(BookInstallation, EndsSilentlyWhenTheUserCancels) {
  const auto before = world_.disk.contents();
  world_.user.answerWith(pressCancel());
  install({"", "", "pump", "A"});
  EXPECT_THAT(record(), ElementsAre("form frmBookInfo"));
  EXPECT_EQ(world_.disk.contents(), before);
}

TEST_F(BookInstallation, EndsWhenTheUserCancelsTheDialogThatFollowsADuplicate) {
  const auto before = world_.disk.contents();
  world_.user.answerWith(pressCancel());
  install({"Alarms", "GDE", "pump", "A"});
  EXPECT_THAT(record(),
              ElementsAre("critical: Error:Book Name Alarms already Exists", "form frmBookInfo"));
  EXPECT_EQ(world_.disk.contents(), before);
}

TEST_F(BookInstallation, EndsWhenABoxIsLeftEmpty) {
  const auto before = world_.disk.contents();
  world_.user.answerWith(enterBook("Guide", " "));
  install({"", "", "", ""});
  EXPECT_THAT(record(),
              ElementsAre("form frmBookInfo", "critical: Book Name/Book Acro can not be null"));
  EXPECT_EQ(world_.disk.contents(), before);
}

TEST_F(BookInstallation, ClearsACancelThatIsLeftFromAnEarlierRun) {
  world_.state().cancelled = true;
  install({"Guide", "GDE", "", ""});
  EXPECT_EQ(catalogue(), catalogueAnd(installedEntry("Guide", "GDE")));
}

// What is kept for the process

TEST_F(BookInstallation, LeavesItsPathsAndItsTypeInTheProcessAndForgetsTheBook) {
  install({"Guide", "GDE", "", ""});
  EXPECT_EQ(world_.state().installationType, 999);
  EXPECT_EQ(world_.state().currentTocPath, "C:\\In\\guide.pdf");
  EXPECT_EQ(world_.state().currentCategoriesPath, "C:\\Docs\\Plant\\Quor_BookCategories.xml");
  EXPECT_EQ(world_.state().currentBookName, "");
  EXPECT_EQ(world_.state().currentBookAcro, "");
}

TEST_F(BookInstallation, ForgetsTheBookHoweverItEnds) {
  const auto expectForgotten = [this] {
    EXPECT_EQ(world_.state().currentBookName, "");
    EXPECT_EQ(world_.state().currentBookAcro, "");
  };
  world_.user.answerWith([](ModalForm& form) {
    form.type("txtBookName", "Guide");
    form.click("cmdCancel");
  });
  install({"", "", "", ""});
  expectForgotten();

  world_.state().currentBookName = "Guide";
  install({"too few"});
  expectForgotten();

  world_.disk.write(kCatalogue, "no XML");
  install({"Guide", "GDE", "", ""});
  expectForgotten();
}

// What can't be done

TEST_F(BookInstallation, ReportsAnArrayWithFewerThanFourEntries) {
  const auto before = world_.disk.contents();
  const std::string box = "critical: Error(9): Subscript out of range\r" + std::string(kSource);
  install({"Guide", "GDE", "pump"});
  install(std::vector<std::string>());
  install(world_.module, Call(), {{"Guide", "GDE", "pump", "A"}, 1});
  EXPECT_THAT(record(), ElementsAre(box, box, box));
  EXPECT_EQ(world_.disk.contents(), before);
}

TEST_F(BookInstallation, TakesNoNoticeOfFurtherEntries) {
  install({"Guide", "GDE", "", "", "more"});
  EXPECT_EQ(catalogue(), catalogueAnd(installedEntry("Guide", "GDE")));
}

TEST_F(BookInstallation, ReportsAServerThatCanNotBeAskedFor) {
  const auto before = world_.disk.contents();
  world_.toolset.breakDown();
  install({"Guide", "GDE", "", ""});
  EXPECT_THAT(record(),
              ElementsAre("critical: Error(429): ActiveX component can't create object\r" +
                          std::string(kSource)));
  EXPECT_EQ(world_.disk.contents(), before);
}

TEST_F(BookInstallation, ChangesNothingWhenTheCatalogueDoesNotLoad) {
  for (const std::string bytes : {"", "<Quor_Master><Quor_Books>"}) {
    world_.disk.write(kCatalogue, bytes);
    const auto before = world_.disk.contents();
    install({"Guide", "GDE", "pump", "A"});
    EXPECT_EQ(world_.disk.contents(), before);
  }
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(BookInstallation, EntersTheBookNowhereInACatalogueWithoutAListOfBooks) {
  world_.disk.write(kCatalogue, "<Quor_Master>\r\n\t<Other/>\r\n</Quor_Master>\r\n");
  install({"Guide", "GDE", "", ""});
  EXPECT_THAT(record(), IsEmpty());
  EXPECT_EQ(world_.disk.read(kCatalogue), "<Quor_Master>\r\n\t<Other/>\r\n</Quor_Master>\r\n");
  EXPECT_TRUE(world_.disk.has("Docs/Plant/GDE/guide.pdf"));
}

TEST_F(BookInstallation, CopiesNothingWhenTheCatalogueCanNotBeWritten) {
  const Platform& ports = world_.platform();
  UnsavableXml xml(ports.xml, "C:\\Docs\\Plant\\Quor_TOC.xml");
  Module module({ports.files, xml, ports.ui, ports.toolset, ports.locale, ports.spreadsheets});
  const auto before = world_.disk.contents();
  install(module, Call(), {{"Guide", "GDE", "pump", "A"}, 0});
  EXPECT_THAT(record(),
              ElementsAre("critical: Error(70): Permission denied\r" + std::string(kSource)));
  EXPECT_EQ(world_.disk.contents(), before);
}

TEST_F(BookInstallation, ReportsADocumentThatIsNotThereAndAddsNothingToTheSideFiles) {
  install({.file = "C:\\In\\missing.pdf"}, {"Guide", "GDE", "pump", "A"});
  EXPECT_THAT(record(),
              ElementsAre("critical: Error(53): File not found\r" + std::string(kSource)));
  EXPECT_EQ(world_.disk.read(kKeywords), "<Books/>");
  EXPECT_EQ(file(kCategories), categoriesFileWith(""));
}

TEST_F(BookInstallation, KeepsTheEntryAndTheKeywordsWhenTheCategoriesFileDoesNotLoad) {
  world_.disk.write(kCategories, "no XML");
  install({"Guide", "GDE", "pump", "A"});
  EXPECT_THAT(record(), IsEmpty());
  EXPECT_EQ(world_.disk.read(kCategories), "no XML");
  EXPECT_EQ(file(kKeywords), keywordsFileWith("Guide", {"pump"}));
}

}  // namespace
}  // namespace quorbind::testing
