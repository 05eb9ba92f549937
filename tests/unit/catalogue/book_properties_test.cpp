#include "catalogue/book_properties.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/text.h"
#include "tests/support/catalogue_text.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/toolset_doubles.h"
#include "tests/support/unsavable_xml.h"
#include "tests/support/world.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::string_view kObjectNotSet =
    "critical: Error(91): Object variable or With block variable not set\r";

/// A list of categories inside `Book`, where the book's entry has it.
std::string entryWith(std::string_view categories, std::string_view type = "") {
  const std::string file =
      type.empty() ? "<Book_File>" : "<Book_File type=\"" + std::string(type) + "\">";
  return "\t\t<Book>\n"
         "\t\t\t<Book_Name>Alarms</Book_Name>\n"
         "\t\t\t<Book_Acro>ALM</Book_Acro>\n"
         "\t\t\t<Book_Key id=\"entry link\">Prod</Book_Key>\n"
         "\t\t\t<Book_Folder>Manual</Book_Folder>\n"
         "\t\t\t" +
         file + "Book_ALM.xml</Book_File>\n" + std::string(categories) + "\t\t</Book>\n";
}

constexpr std::string_view kEntryCategories =
    "\t\t\t<Book_Categories>\n"
    "\t\t\t\t<Book_Category>Old</Book_Category>\n"
    "\t\t\t</Book_Categories>\n";
constexpr std::string_view kNewEntryCategories =
    "\t\t\t<Book_Categories>\n"
    "\t\t\t\t<Book_Category>New</Book_Category>\n"
    "\t\t\t\t<Book_Category> Newer </Book_Category>\n"
    "\t\t\t</Book_Categories>\n";
constexpr std::string_view kNoEntryCategories = "\t\t\t<Book_Categories/>\n";

std::string bookXmlWith(std::string_view link, std::string_view categories) {
  return "<Book_Master>\n"
         "\t<Book>\n"
         "\t\t<Book_Name>Alarms</Book_Name>\n"
         "\t\t<Book_Key id=\"" +
         std::string(link) + "\">Prod</Book_Key>\n" + std::string(categories) +
         "\t</Book>\n"
         "\t<Book_Headings/>\n"
         "</Book_Master>\n";
}

constexpr std::string_view kBookCategories =
    "\t\t<Book_Categories>\n"
    "\t\t\t<Category>Old</Category>\n"
    "\t\t</Book_Categories>\n";
constexpr std::string_view kNewBookCategories =
    "\t\t<Book_Categories>\n"
    "\t\t\t<Category>New</Category>\n"
    "\t\t\t<Category> Newer </Category>\n"
    "\t\t</Book_Categories>\n";

class BookProperties : public ::testing::Test {
 protected:
  BookProperties() {
    writeCatalogue(catalogueWith(entryWith(kEntryCategories) + bookEntry("Trends", "TRD")));
    world_.disk.write("Lib/Manual/Book_ALM.xml", bookXmlWith("old link", kBookCategories));
  }
  void writeCatalogue(std::string_view bytes) { world_.disk.write("Lib/Quor_TOC.xml", bytes); }

  bool set(Module& module,
           const std::string& folder,
           const TextArray& categories = newCategories()) {
    return mbsetQuorBookProperties(
        module, "C:\\Lib\\Quor_TOC.xml", "Alarms", categories, folder, "new link");
  }
  bool set(const std::string& folder, const TextArray& categories = newCategories()) {
    return set(world_.module, folder, categories);
  }
  [[nodiscard]] static TextArray newCategories() { return {{"New", "", " Newer ", ""}, 0}; }

  [[nodiscard]] std::string file(std::string_view name) const {
    return replaceAll(world_.disk.read(name), "\r\n", "\n");
  }
  [[nodiscard]] std::string catalogue() const { return file("Lib/Quor_TOC.xml"); }
  [[nodiscard]] static std::string changedCatalogue() {
    return catalogueWith(entryWith(kNewEntryCategories) + bookEntry("Trends", "TRD"));
  }
  [[nodiscard]] const std::vector<std::string>& record() const { return world_.user.record(); }
  [[nodiscard]] std::vector<std::string> boxes() const {
    return world_.user.recordWithoutProgress();
  }

  World world_;
};

// In the same folder

TEST_F(BookProperties, AreNotWrittenToABookFileThatTheEntryLeadsOutOfTheLibraryTo) {
  const auto outside = [](const std::string& entry) {
    return catalogueWith(replaceAll(entry, "Manual", "..\\Other"));
  };
  writeCatalogue(outside(entryWith(kEntryCategories)));
  world_.disk.write("Other/Book_ALM.xml", bookXmlWith("old link", kBookCategories));

  EXPECT_TRUE(set("..\\Other"));
  EXPECT_EQ(catalogue(), outside(entryWith(kNewEntryCategories)));
  EXPECT_EQ(file("Other/Book_ALM.xml"), bookXmlWith("old link", kBookCategories));

  const auto before = world_.disk.contents();
  EXPECT_FALSE(set("New"));
  EXPECT_EQ(world_.disk.contents(), before);
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(BookProperties, ChangeTheEntrysCategoriesAndTheBookFilesCategoriesAndLink) {
  EXPECT_TRUE(set("Manual"));
  EXPECT_EQ(catalogue(), changedCatalogue());
  EXPECT_EQ(file("Lib/Manual/Book_ALM.xml"), bookXmlWith("new link", kNewBookCategories));
}

TEST_F(BookProperties, ShowTheirProgressAndCopyNothingInTheSameFolder) {
  const std::size_t filesBefore = world_.disk.contents().size();
  EXPECT_TRUE(set("  Manual "));
  EXPECT_THAT(record(),
              ElementsAre("progress 0/10 ",
                          "progress 0/10 Updating Quor_TOC.XML with Book Info",
                          "progress 6/10 Updating Quor_TOC.XML with Book Info",
                          "progress 6/10 Updating BookXML with Book Info ",
                          "progress 10/10 Updating BookXML with Book Info ",
                          "progress unloaded"));
  EXPECT_THAT(world_.user.progressCaptions(), ElementsAre("Book Configuration in Progress...."));
  EXPECT_EQ(world_.disk.contents().size(), filesBefore);
}

TEST_F(BookProperties, TakeACataloguePathWithForwardSlashes) {
  EXPECT_TRUE(mbsetQuorBookProperties(
      world_.module, "C:/Lib/Quor_TOC.xml", "Alarms", newCategories(), "Manual", "new link"));
  EXPECT_EQ(catalogue(), changedCatalogue());
  EXPECT_EQ(file("Lib/Manual/Book_ALM.xml"), bookXmlWith("new link", kNewBookCategories));
}

TEST_F(BookProperties, FindABookFileInTheLibrarysOwnFolder) {
  writeCatalogue(replaceAll(catalogueWith(entryWith(kEntryCategories)), "Manual", ""));
  world_.disk.write("Lib/Book_ALM.xml", bookXmlWith("old link", kBookCategories));
  EXPECT_TRUE(set(" "));
  EXPECT_EQ(file("Lib/Book_ALM.xml"), bookXmlWith("new link", kNewBookCategories));
}

TEST_F(BookProperties, KeepTheEncodingOfBothFiles) {
  const auto inUtf16 = [](const std::string& text) {
    const std::string body = text.starts_with("<?xml") ? text.substr(text.find('\n') + 1) : text;
    return utf16File(
        replaceAll("<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n" + body, "\n", "\r\n"));
  };
  writeCatalogue(inUtf16(catalogueWith(entryWith(kEntryCategories))));
  world_.disk.write("Lib/Manual/Book_ALM.xml", inUtf16(bookXmlWith("Ü", kBookCategories)));
  EXPECT_TRUE(set("Manual"));
  EXPECT_EQ(world_.disk.read("Lib/Quor_TOC.xml"),
            inUtf16(catalogueWith(entryWith(kNewEntryCategories))));
  EXPECT_EQ(world_.disk.read("Lib/Manual/Book_ALM.xml"),
            inUtf16(bookXmlWith("new link", kNewBookCategories)));
}

// Into another folder

TEST_F(BookProperties, CopyTheBookFileIntoAnotherFolderAndChangeItThere) {
  EXPECT_TRUE(set("New"));
  EXPECT_THAT(record(),
              ElementsAre("progress 0/10 ",
                          "progress 0/10 Copying files to new path",
                          "progress 2/10 Copying files to new path",
                          "progress 4/10 Copying files to new path",
                          "progress 4/10 Updating Quor_TOC.XML with Book Info",
                          "progress 6/10 Updating Quor_TOC.XML with Book Info",
                          "progress 6/10 Updating BookXML with Book Info ",
                          "progress 10/10 Updating BookXML with Book Info ",
                          "progress unloaded"));
  EXPECT_EQ(file("Lib/New/Book_ALM.xml"), bookXmlWith("new link", kNewBookCategories));
  EXPECT_EQ(world_.disk.read("Lib/Manual/Book_ALM.xml"), bookXmlWith("old link", kBookCategories));
  EXPECT_EQ(catalogue(), changedCatalogue());
}

TEST_F(BookProperties, TakeAFolderInAnotherLetterCaseForAnotherFolder) {
  EXPECT_TRUE(set("MANUAL"));
  EXPECT_EQ(record()[1], "progress 0/10 Copying files to new path");
}

TEST_F(BookProperties, HandTheAbsolutePathsOfBothFilesToTheCopyComponent) {
  ToolsetWithDoubles toolset(world_.toolset);
  std::vector<std::string> calls;
  toolset.setCopying([&](const std::string& destination,
                         const std::string& source,
                         std::int16_t reservedOverwrite,
                         std::int16_t reservedDialog) {
    calls.push_back(destination + "|" + source + "|" + std::to_string(reservedOverwrite) +
                    std::to_string(reservedDialog));
    return true;
  });
  const Platform& ports = world_.platform();
  Module module({ports.files, ports.xml, ports.ui, toolset, ports.locale, ports.spreadsheets});
  EXPECT_TRUE(set(module, "..\\Other\\.\\New"));
  EXPECT_THAT(calls, ElementsAre("C:\\Other\\New\\Book_ALM.xml|C:\\Lib\\Manual\\Book_ALM.xml|00"));
}

TEST_F(BookProperties, LeaveBothFilesAsTheyWereWhenTheCopyFails) {
  ToolsetWithDoubles toolset(world_.toolset);
  toolset.setCopying([](const auto&...) { return false; });
  const Platform& ports = world_.platform();
  Module module({ports.files, ports.xml, ports.ui, toolset, ports.locale, ports.spreadsheets});
  const auto before = world_.disk.contents();
  EXPECT_FALSE(set(module, "New"));
  EXPECT_THAT(record(),
              ElementsAre("progress 0/10 ",
                          "progress 0/10 Copying files to new path",
                          "progress 2/10 Copying files to new path",
                          "progress unloaded"));
  EXPECT_EQ(world_.disk.contents(), before);
}

TEST_F(BookProperties, KeepWhatSomebodyElseChangedInTheCatalogueDuringTheCopy) {
  ToolsetWithDoubles toolset(world_.toolset);
  toolset.setCopying([this](const auto&...) {
    writeCatalogue(catalogueWith(bookEntry("Basics", "BAS") + entryWith(kEntryCategories)));
    return true;
  });
  const Platform& ports = world_.platform();
  Module module({ports.files, ports.xml, ports.ui, toolset, ports.locale, ports.spreadsheets});
  EXPECT_TRUE(set(module, "New"));
  EXPECT_EQ(catalogue(),
            catalogueWith(bookEntry("Basics", "BAS") + entryWith(kNewEntryCategories)));
}

TEST_F(BookProperties, LeaveACatalogueAloneThatNoLongerLoadsAfterTheCopy) {
  ToolsetWithDoubles toolset(world_.toolset);
  toolset.setCopying([this](const auto&...) {
    writeCatalogue("<Quor_Master>");
    return true;
  });
  const Platform& ports = world_.platform();
  Module module({ports.files, ports.xml, ports.ui, toolset, ports.locale, ports.spreadsheets});
  EXPECT_TRUE(set(module, "New"));
  EXPECT_THAT(record(),
              ElementsAre("progress 0/10 ",
                          "progress 0/10 Copying files to new path",
                          "progress 2/10 Copying files to new path",
                          "progress 4/10 Copying files to new path",
                          "progress 4/10 Updating Quor_TOC.XML with Book Info",
                          "progress unloaded"));
  EXPECT_EQ(world_.disk.read("Lib/Quor_TOC.xml"), "<Quor_Master>");
}

TEST_F(BookProperties, FailWhenTheFolderOfTheBookIsGone) {
  writeCatalogue(replaceAll(catalogueWith(entryWith(kEntryCategories)), "Manual", "Gone"));
  const auto before = world_.disk.contents();
  EXPECT_FALSE(set("New"));
  EXPECT_THAT(boxes(), IsEmpty());
  EXPECT_EQ(world_.disk.contents(), before);
}

TEST_F(BookProperties, ReportACopyComponentThatCanNotBeHadAndTakeTheProgressAway) {
  world_.toolset.breakFileCopy();
  const auto before = world_.disk.contents();
  EXPECT_FALSE(set("New"));
  EXPECT_THAT(record(),
              ElementsAre("progress 0/10 ",
                          "progress 0/10 Copying files to new path",
                          "critical: Error(429): ActiveX component can't create object\r"
                          "Quorbind:Book_Config::mserQuorBookProperties",
                          "progress unloaded"));
  EXPECT_EQ(world_.disk.contents(), before);
}

// Books without a book XML file

TEST_F(BookProperties, LeaveTheFileOfABookWithATypeAlone) {
  writeCatalogue(catalogueWith(entryWith(kEntryCategories, "htm")));
  EXPECT_TRUE(set("Manual"));
  EXPECT_THAT(record(),
              ElementsAre("progress 0/10 ",
                          "progress 0/10 Updating Quor_TOC.XML with Book Info",
                          "progress unloaded"));
  EXPECT_EQ(catalogue(), catalogueWith(entryWith(kNewEntryCategories, "htm")));
  EXPECT_EQ(world_.disk.read("Lib/Manual/Book_ALM.xml"), bookXmlWith("old link", kBookCategories));
}

TEST_F(BookProperties, ReachTheBookFileWhenOneOfTwoFilesOfAnEntryHasNoType) {
  writeCatalogue(replaceAll(catalogueWith(entryWith(kEntryCategories)),
                            "\t\t\t<Book_Categories>",
                            "\t\t\t<Book_File type=\"htm\">a.htm</Book_File>\n"
                            "\t\t\t<Book_Categories>"));
  EXPECT_TRUE(set("Manual"));
  EXPECT_EQ(file("Lib/Manual/Book_ALM.xml"), bookXmlWith("new link", kNewBookCategories));
}

TEST_F(BookProperties, SkipABookFileThatIsMissingOrDoesNotLoad) {
  world_.disk.write("Lib/Manual/Book_ALM.xml", "<Book_Master>");
  EXPECT_TRUE(set("Manual"));
  EXPECT_THAT(boxes(), IsEmpty());
  EXPECT_EQ(world_.disk.read("Lib/Manual/Book_ALM.xml"), "<Book_Master>");
  EXPECT_EQ(catalogue(), changedCatalogue());
}

// Categories

TEST_F(BookProperties, TakeAllCategoriesAwayForAnUnsetArray) {
  EXPECT_TRUE(set("Manual", {}));
  EXPECT_THAT(boxes(), IsEmpty());
  EXPECT_EQ(catalogue(), catalogueWith(entryWith(kNoEntryCategories) + bookEntry("Trends", "TRD")));
  EXPECT_EQ(file("Lib/Manual/Book_ALM.xml"), bookXmlWith("new link", "\t\t<Book_Categories/>\n"));
}

TEST_F(BookProperties, MakeNoElementOfAnEmptyEntry) {
  EXPECT_TRUE(set("Manual", {{""}, 0}));
  EXPECT_EQ(catalogue(), catalogueWith(entryWith(kNoEntryCategories) + bookEntry("Trends", "TRD")));
}

TEST_F(BookProperties, StoreCategoriesAsTheyAre) {
  EXPECT_TRUE(set("Manual", {{"R&D", "<a> \"b\" c's", " "}, 0}));
  EXPECT_EQ(catalogue(),
            catalogueWith(entryWith("\t\t\t<Book_Categories>\n"
                                    "\t\t\t\t<Book_Category>R&amp;D</Book_Category>\n"
                                    "\t\t\t\t<Book_Category>&lt;a&gt; \"b\" c's</Book_Category>\n"
                                    "\t\t\t\t<Book_Category> </Book_Category>\n"
                                    "\t\t\t</Book_Categories>\n") +
                          bookEntry("Trends", "TRD")));
}

TEST_F(BookProperties, CountTheArrayFromZeroWhereverItBegins) {
  EXPECT_TRUE(set("Manual", {{"A", "B", "C"}, -1}));
  EXPECT_THAT(boxes(), IsEmpty());
  EXPECT_EQ(catalogue(),
            catalogueWith(entryWith("\t\t\t<Book_Categories>\n"
                                    "\t\t\t\t<Book_Category>B</Book_Category>\n"
                                    "\t\t\t\t<Book_Category>C</Book_Category>\n"
                                    "\t\t\t</Book_Categories>\n") +
                          bookEntry("Trends", "TRD")));
}

TEST_F(BookProperties, ReportAnArrayThatHasNoElementZeroOnceForEachFile) {
  EXPECT_TRUE(set("Manual", {{"A", "B"}, 1}));
  const std::string box =
      "critical: Error(9): Subscript out of range\rQuorbind:Book_Config::msetBookCategories";
  EXPECT_THAT(boxes(), ElementsAre(box, box));
  EXPECT_EQ(catalogue(), catalogueWith(entryWith(kNoEntryCategories) + bookEntry("Trends", "TRD")));
}

TEST_F(BookProperties, TakeAnArrayUpToTheLargestPublishedIndex) {
  TextArray categories;
  categories.texts.resize(32'768);
  categories.texts.back() = "Last";
  EXPECT_TRUE(set("Manual", categories));
  const std::string lastAlone =
      catalogueWith(entryWith("\t\t\t<Book_Categories>\n"
                              "\t\t\t\t<Book_Category>Last</Book_Category>\n"
                              "\t\t\t</Book_Categories>\n") +
                    bookEntry("Trends", "TRD"));
  EXPECT_EQ(catalogue(), lastAlone);
  categories.texts.emplace_back("Beyond");
  EXPECT_TRUE(set("Manual", categories));
  EXPECT_THAT(boxes(), IsEmpty());
  EXPECT_EQ(catalogue(), catalogueWith(entryWith(kNoEntryCategories) + bookEntry("Trends", "TRD")));
}

// Books and catalogues that can't be had

TEST_F(BookProperties, LookTheNameUpAsItIsGiven) {
  writeCatalogue(catalogueWith(bookEntry("R&amp;amp;D", "RD")));
  EXPECT_FALSE(mbsetQuorBookProperties(
      world_.module, "C:\\Lib\\Quor_TOC.xml", "R&D", newCategories(), "Manual", ""));
  EXPECT_THAT(
      record(),
      ElementsAre(std::string(kObjectNotSet) + "Quorbind:Book_Config::mserQuorBookProperties"));
  EXPECT_TRUE(mbsetQuorBookProperties(
      world_.module, "C:\\Lib\\Quor_TOC.xml", "R&amp;D", newCategories(), "Manual", ""));
}

TEST_F(BookProperties, ReportABookThatIsNotThereWithoutShowingProgress) {
  const auto before = world_.disk.contents();
  EXPECT_FALSE(mbsetQuorBookProperties(
      world_.module, "C:\\Lib\\Quor_TOC.xml", "alarms", newCategories(), "Manual", ""));
  EXPECT_THAT(
      record(),
      ElementsAre(std::string(kObjectNotSet) + "Quorbind:Book_Config::mserQuorBookProperties"));
  EXPECT_EQ(world_.disk.contents(), before);
}

TEST_F(BookProperties, ReportANameThatHoldsADoubleQuotationMark) {
  EXPECT_FALSE(mbsetQuorBookProperties(
      world_.module, "C:\\Lib\\Quor_TOC.xml", "a\"b", newCategories(), "Manual", ""));
  EXPECT_THAT(record(),
              ElementsAre("critical: Error(-2147467259): The value a\"b can't stand in a query "
                          "between the quote characters it contains.\r"
                          "Quorbind:Book_Config::mserQuorBookProperties"));
}

TEST_F(BookProperties, DoNothingWithACatalogueThatDoesNotLoad) {
  for (const std::string bytes : {"", "<Quor_Master><Quor_Books>"}) {
    writeCatalogue(bytes);
    const auto before = world_.disk.contents();
    EXPECT_TRUE(set("New"));
    EXPECT_EQ(world_.disk.contents(), before);
  }
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(BookProperties, ReportACatalogueThatCanNotBeWrittenAndLeaveTheBookFileAlone) {
  const Platform& ports = world_.platform();
  UnsavableXml xml(ports.xml, "C:\\Lib\\Quor_TOC.xml");
  Module module({ports.files, xml, ports.ui, ports.toolset, ports.locale, ports.spreadsheets});
  const auto before = world_.disk.contents();
  EXPECT_TRUE(set(module, "Manual"));
  EXPECT_THAT(record(),
              ElementsAre("progress 0/10 ",
                          "progress 0/10 Updating Quor_TOC.XML with Book Info",
                          "critical: Error(70): Permission denied\r"
                          "Quorbind:Book_Config::msetQuorProperties",
                          "progress unloaded"));
  EXPECT_EQ(world_.disk.contents(), before);
}

TEST_F(BookProperties, ReportABookFileWithAnotherRootAndLeaveItAsItWas) {
  world_.disk.write("Lib/Manual/Book_ALM.xml", "<html/>");
  EXPECT_TRUE(set("Manual"));
  EXPECT_THAT(boxes(),
              ElementsAre(std::string(kObjectNotSet) + "Quorbind:Book_Config::msetBookProperties"));
  EXPECT_EQ(world_.disk.read("Lib/Manual/Book_ALM.xml"), "<html/>");
  EXPECT_EQ(catalogue(), changedCatalogue());
}

TEST_F(BookProperties, ReportAKeyWithoutALinkAndLeaveTheBookFileAsItWas) {
  const std::string before = replaceAll(bookXmlWith("", kBookCategories), " id=\"\"", "");
  world_.disk.write("Lib/Manual/Book_ALM.xml", before);
  EXPECT_TRUE(set("Manual"));
  EXPECT_THAT(boxes(),
              ElementsAre(std::string(kObjectNotSet) + "Quorbind:Book_Config::msetBookProperties"));
  EXPECT_EQ(world_.disk.read("Lib/Manual/Book_ALM.xml"), before);
}

}  // namespace
}  // namespace quorbind::testing
