#include "catalogue/book_deletion.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/text.h"
#include "tests/support/catalogue_text.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/unsavable_xml.h"
#include "tests/support/world.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class BookDeletion : public ::testing::Test {
 protected:
  void remove(const std::string& name) {
    quorbind::DeleteQuorNode(world_.platform(), "C:\\Quor_TOC.xml", name);
  }
  [[nodiscard]] std::string catalogue() const {
    return replaceAll(world_.disk.read("Quor_TOC.xml"), "\r\n", "\n");
  }

  World world_;
};

TEST_F(BookDeletion, TakesTheFirstBookOfThatNameOut) {
  world_.disk.write("Quor_TOC.xml",
                    catalogueWith(bookEntry("Alarms", "ALM") + bookEntry("Trends", "TRD") +
                                  bookEntry("Alarms", "AL2")));
  remove("Alarms");
  EXPECT_EQ(catalogue(), catalogueWith(bookEntry("Trends", "TRD") + bookEntry("Alarms", "AL2")));
}

TEST_F(BookDeletion, SavesTheCatalogueAsItIsForAnUnknownName) {
  world_.disk.write("Quor_TOC.xml", catalogueWith(bookEntry("Alarms", "ALM")));
  remove("alarms");
  EXPECT_EQ(catalogue(), catalogueWith(bookEntry("Alarms", "ALM")));
  EXPECT_THAT(world_.user.record(), IsEmpty());
}

TEST_F(BookDeletion, LooksTheNameUpAsItIsGiven) {
  world_.disk.write("Quor_TOC.xml", catalogueWith(bookEntry("R&amp;amp;D", "RD")));
  remove("R&D");
  EXPECT_EQ(catalogue(), catalogueWith(bookEntry("R&amp;amp;D", "RD")));
  remove("R&amp;D");
  EXPECT_EQ(catalogue(),
            replaceAll(catalogueWith(""), "<Quor_Books>\n\t</Quor_Books>", "<Quor_Books/>"));
}

TEST_F(BookDeletion, ReportsANameThatHoldsAnApostropheAndChangesNothing) {
  const std::string before = catalogueWith(bookEntry("Alarms", "ALM"));
  world_.disk.write("Quor_TOC.xml", before);
  remove("' or '1'='1");
  EXPECT_EQ(world_.disk.read("Quor_TOC.xml"), before);
  ASSERT_EQ(world_.user.messages().size(), 1U);
  EXPECT_EQ(world_.user.messages()[0].errorNumber, -2147467259);
  EXPECT_TRUE(world_.user.messages()[0].text.ends_with("\rQuorbind:Book_Config::DeleteNode"));
}

TEST_F(BookDeletion, TakesANameThatHoldsADoubleQuotationMark) {
  world_.disk.write("Quor_TOC.xml",
                    catalogueWith(bookEntry("a\"b", "AB") + bookEntry("Alarms", "ALM")));
  remove("a\"b");
  EXPECT_EQ(catalogue(), catalogueWith(bookEntry("Alarms", "ALM")));
}

TEST_F(BookDeletion, KeepsTheEncodingOfTheCatalogue) {
  const std::string declaration = "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n";
  world_.disk.write(
      "Quor_TOC.xml",
      utf16File(declaration + "<Quor_Master><Quor_Books><Book><Book_Name>Ü</Book_Name></Book>"
                              "<Book><Book_Name>Ö</Book_Name></Book></Quor_Books></Quor_Master>"));
  remove("Ü");
  EXPECT_EQ(world_.disk.read("Quor_TOC.xml"),
            utf16File(declaration + "<Quor_Master>\r\n"
                                    "\t<Quor_Books>\r\n"
                                    "\t\t<Book>\r\n"
                                    "\t\t\t<Book_Name>Ö</Book_Name>\r\n"
                                    "\t\t</Book>\r\n"
                                    "\t</Quor_Books>\r\n"
                                    "</Quor_Master>\r\n"));
}

TEST_F(BookDeletion, ReportsACatalogueThatCanNotBeWritten) {
  const std::string before = catalogueWith(bookEntry("Alarms", "ALM"));
  world_.disk.write("Quor_TOC.xml", before);
  const Platform& ports = world_.platform();
  UnsavableXml xml(ports.xml, "C:\\Quor_TOC.xml");
  quorbind::DeleteQuorNode(
      {ports.files, xml, ports.ui, ports.toolset, ports.locale, ports.spreadsheets},
      "C:\\Quor_TOC.xml",
      "Alarms");
  EXPECT_EQ(world_.disk.read("Quor_TOC.xml"), before);
  EXPECT_THAT(world_.user.record(),
              ElementsAre("critical: Error(70): Permission denied\r"
                          "Quorbind:Book_Config::DeleteNode"));
}

TEST_F(BookDeletion, LeavesWhatDoesNotLoadAsItWas) {
  remove("Alarms");
  for (const std::string bytes : {"", "<Quor_Master>", "<!DOCTYPE a><Quor_Master/>"}) {
    world_.disk.write("Quor_TOC.xml", bytes);
    remove("Alarms");
    EXPECT_EQ(world_.disk.read("Quor_TOC.xml"), bytes);
  }
  EXPECT_THAT(world_.user.record(), IsEmpty());
}

}  // namespace
}  // namespace quorbind::testing
