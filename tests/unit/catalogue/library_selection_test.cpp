#include "catalogue/library_selection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/missing_xml.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/toolset_doubles.h"
#include "tests/support/world.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::string_view kFile = "Docs/Quor_Selection.xml";

std::string library(std::string_view name, std::string_view location) {
  return "<Quor><Quor_Name>" + std::string(name) + "</Quor_Name><Quor_Location>" +
         std::string(location) + "</Quor_Location></Quor>";
}

std::string listOf(std::string_view libraries) {
  return "<Quor_Selection_List><Quors>" + std::string(libraries) + "</Quors></Quor_Selection_List>";
}

class LibrarySelection : public ::testing::Test {
 protected:
  void writeList(std::string_view bytes) { world_.disk.write(kFile, bytes); }
  std::string location(const std::string& name) { return QuorLocation(platform(), name); }
  std::vector<std::string> names() { return QuorNames(platform()); }
  [[nodiscard]] Platform platform() { return platformWith(world_.platform().xml); }
  [[nodiscard]] Platform platformWith(XmlLibrary& xml) {
    const Platform& ports = world_.platform();
    return {ports.files, xml, ports.ui, toolset_, ports.locale, ports.spreadsheets};
  }
  [[nodiscard]] const std::vector<std::string>& record() const { return world_.user.record(); }

  World world_;
  ToolsetWithDoubles toolset_{world_.toolset};
};

// Where a library is

TEST_F(LibrarySelection, AnswersTheFullPathOfALibrarysCatalogueWhichNeedNotExist) {
  writeList(listOf(library("Plant", "Docs\\Plant") + library("Pumps", "Docs\\Old\\Pumps")));
  EXPECT_EQ(location("Plant"), "C:\\Docs\\Plant\\Quor_TOC.xml");
  EXPECT_EQ(location("Pumps"), "C:\\Docs\\Old\\Pumps\\Quor_TOC.xml");
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(LibrarySelection, AnswersTheFirstOfTwoLibrariesOfOneName) {
  writeList(listOf(library("Plant", "One") + library("Plant", "Two")));
  EXPECT_EQ(location("Plant"), "C:\\One\\Quor_TOC.xml");
}

TEST_F(LibrarySelection, TellsOfAListThatIsNotThere) {
  EXPECT_EQ(location("Plant"), "");
  EXPECT_THAT(record(), ElementsAre("critical: Quor_Selection.XML is not found"));
}

TEST_F(LibrarySelection, TellsOfAListThatDoesNotLoad) {
  for (const std::string bytes : {"", "<Quor_Selection_List><Quors>", "Quor_Selection"}) {
    SCOPED_TRACE(bytes);
    writeList(bytes);
    world_.user.forget();
    EXPECT_EQ(location("Plant"), "");
    EXPECT_THAT(record(), ElementsAre("critical: Quor_Selection.XML is not of valid format"));
    EXPECT_EQ(world_.disk.read(kFile), bytes);
  }
}

TEST_F(LibrarySelection, TellsOfALibraryThatTheListDoesNotHaveWithoutAnyBlank) {
  writeList(listOf(library("Plant", "Docs\\Plant")));
  EXPECT_EQ(location("Pumps"), "");
  EXPECT_THAT(record(), ElementsAre("critical: ProductPumpsis not present in Quor_TOC.xml"));
}

TEST_F(LibrarySelection, ComparesTheNameLetterByLetter) {
  writeList(listOf(library("lib", "Docs\\lib")));
  EXPECT_EQ(location("Lib"), "");
  EXPECT_EQ(location(" lib"), "");
  EXPECT_EQ(location(""), "");
  EXPECT_THAT(record(),
              ElementsAre("critical: ProductLibis not present in Quor_TOC.xml",
                          "critical: Product libis not present in Quor_TOC.xml",
                          "critical: Productis not present in Quor_TOC.xml"));
}

TEST_F(LibrarySelection, FindsNoLibraryInAListWithAnotherRoot) {
  writeList("<Other><Quors>" + library("Plant", "Docs\\Plant") + "</Quors></Other>");
  EXPECT_EQ(location("Plant"), "");
  EXPECT_THAT(record(), ElementsAre("critical: ProductPlantis not present in Quor_TOC.xml"));
}

TEST_F(LibrarySelection, TellsOfALibraryWithoutALocation) {
  writeList(listOf("<Quor><Quor_Name>Plant</Quor_Name></Quor>"));
  EXPECT_EQ(location("Plant"), "");
  EXPECT_THAT(
      record(),
      ElementsAre("critical: Quor_Location Tag is missing in Quor_Selection.xml For Plant"));
}

TEST_F(LibrarySelection, TellsOfALibraryWithAnEmptyLocationInTheSameWords) {
  writeList(listOf(library("Plant", "")));
  EXPECT_EQ(location("Plant"), "");
  EXPECT_THAT(
      record(),
      ElementsAre("critical: Quor_Location Tag is missing in Quor_Selection.xml For Plant"));
}

TEST_F(LibrarySelection, FindsNamesWithSpecialCharactersAsTheyAre) {
  writeList(listOf(library("R&amp;D &lt;new&gt; Driver's", "Docs\\RD")));
  EXPECT_EQ(location("R&D <new> Driver's"), "C:\\Docs\\RD\\Quor_TOC.xml");
}

TEST_F(LibrarySelection, ReportsANameThatHoldsADoubleQuotationMark) {
  writeList(listOf(library("a\"b", "Docs\\ab")));
  EXPECT_EQ(location("a\"b"), "");
  EXPECT_THAT(record(),
              ElementsAre("critical: Error(-2147467259): The value a\"b can't stand in a query "
                          "between the quote characters it contains.\r"
                          "Quorbind:Book_Config::strQuorLoacation"));
}

TEST_F(LibrarySelection, ReadsTheListInWhateverEncodingItIs) {
  const std::string text = listOf(library("Übersicht", "Docs\\Ü"));
  writeList(utf16File("<?xml version=\"1.0\" encoding=\"UTF-16\"?>" + text));
  EXPECT_EQ(location("Übersicht"), "C:\\Docs\\Ü\\Quor_TOC.xml");
  writeList("\xEF\xBB\xBF" + text);
  EXPECT_EQ(location("Übersicht"), "C:\\Docs\\Ü\\Quor_TOC.xml");
  writeList("<?xml version=\"1.0\" encoding=\"windows-1252\"?>" + listOf(library("\xDC"
                                                                                 "bersicht",
                                                                                 "Docs\\\xDC")));
  EXPECT_EQ(location("Übersicht"), "C:\\Docs\\Ü\\Quor_TOC.xml");
}

TEST_F(LibrarySelection, PutsNoSeparatorBehindTheServersRoot) {
  world_.disk.write("Server/" + std::string(kFile), listOf(library("Plant", "Docs\\Plant")));
  toolset_.setServer("C:\\Server\\");
  EXPECT_EQ(location("Plant"), "C:\\Server\\Docs\\Plant\\Quor_TOC.xml");
  toolset_.setServer("C:\\Server");
  EXPECT_EQ(location("Plant"), "");
  EXPECT_THAT(names(), IsEmpty());
  EXPECT_THAT(record(),
              ElementsAre("critical: Quor_Selection.XML is not found",
                          "critical: Quor_Selection.XML is not of valid format"));
}

TEST_F(LibrarySelection, ReportsAServerThatCanNotBeAskedFor) {
  writeList(listOf(library("Plant", "Docs\\Plant")));
  world_.toolset.breakDown();
  EXPECT_EQ(location("Plant"), "");
  EXPECT_THAT(names(), IsEmpty());
  EXPECT_THAT(record(),
              ElementsAre("critical: Error(429): ActiveX component can't create object\r"
                          "Quorbind:Book_Config::strQuorLoacation",
                          "critical: Error(429): ActiveX component can't create object\r"
                          "Quorbind:Book_Config::QuorNames"));
}

TEST_F(LibrarySelection, MissesTheXmlBeforeTheServerAndTheServerBeforeTheList) {
  MissingXml xml("no XML here");
  EXPECT_EQ(QuorLocation(platformWith(xml), "Plant"), "");
  world_.toolset.breakDown();
  EXPECT_EQ(QuorLocation(platformWith(xml), "Plant"), "");
  EXPECT_EQ(location("Plant"), "");
  EXPECT_THAT(record(),
              ElementsAre("critical: Error(429): no XML here\r"
                          "Quorbind:Book_Config::strQuorLoacation",
                          "critical: Error(429): no XML here\r"
                          "Quorbind:Book_Config::strQuorLoacation",
                          "critical: Error(429): ActiveX component can't create object\r"
                          "Quorbind:Book_Config::strQuorLoacation"));
}

// Which libraries there are

TEST_F(LibrarySelection, MissesTheServerBeforeTheXmlWhenNamesAreAskedFor) {
  MissingXml xml("no XML here");
  EXPECT_THAT(QuorNames(platformWith(xml)), IsEmpty());
  world_.toolset.breakDown();
  EXPECT_THAT(QuorNames(platformWith(xml)), IsEmpty());
  EXPECT_THAT(record(),
              ElementsAre("critical: Error(429): no XML here\r"
                          "Quorbind:Book_Config::QuorNames",
                          "critical: Error(429): ActiveX component can't create object\r"
                          "Quorbind:Book_Config::QuorNames"));
}

TEST_F(LibrarySelection, ListsAllNamesInTheirOrderAndAnEmptyEntry) {
  writeList(listOf(library("Plant", "Docs\\Plant") + library("Alarms", "Docs\\Alarms")));
  EXPECT_THAT(names(), ElementsAre("Plant", "Alarms", ""));
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(LibrarySelection, ListsNamesWhereverTheyStand) {
  writeList("<Other><Quor_Name>A</Quor_Name><x><Quor_Name>B</Quor_Name></x></Other>");
  EXPECT_THAT(names(), ElementsAre("A", "B", ""));
}

TEST_F(LibrarySelection, ListsOneEmptyEntryForAServerWithoutLibraries) {
  writeList(listOf(""));
  EXPECT_THAT(names(), ElementsAre(""));
}

TEST_F(LibrarySelection, CallsAListThatIsNotThereDamagedWhenItsNamesAreAskedFor) {
  EXPECT_THAT(names(), IsEmpty());
  EXPECT_THAT(record(), ElementsAre("critical: Quor_Selection.XML is not of valid format"));
}

TEST_F(LibrarySelection, ListsNothingOfAListThatDoesNotLoad) {
  writeList(listOf(library("Plant", "Docs\\Plant")).substr(0, 50));
  EXPECT_THAT(names(), IsEmpty());
  EXPECT_THAT(record(), ElementsAre("critical: Quor_Selection.XML is not of valid format"));
}

TEST_F(LibrarySelection, ItsBoxesHaveNoTitle) {
  (void)names();
  ASSERT_EQ(world_.user.messages().size(), 1U);
  EXPECT_EQ(world_.user.messages()[0].title, std::nullopt);
}

}  // namespace
}  // namespace quorbind::testing
