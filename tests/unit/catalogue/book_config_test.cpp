#include "catalogue/book_config.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/text.h"
#include "tests/support/catalogue_text.h"
#include "tests/support/world.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DeleteQuorNode : public ::testing::Test {
 protected:
  void remove(const std::string& name) {
    Book_Config(world_.module).DeleteQuorNode("C:\\Quor_TOC.xml", name);
  }
  [[nodiscard]] std::string catalogue() const {
    return replaceAll(world_.disk.read("Quor_TOC.xml"), "\r\n", "\n");
  }

  World world_;
};

TEST_F(DeleteQuorNode, TakesTheFirstBookOfThatNameOut) {
  world_.disk.write("Quor_TOC.xml",
                    catalogueWith(bookEntry("Alarms", "ALM") + bookEntry("Trends", "TRD") +
                                  bookEntry("Alarms", "AL2")));
  remove("Alarms");
  EXPECT_EQ(catalogue(), catalogueWith(bookEntry("Trends", "TRD") + bookEntry("Alarms", "AL2")));
}

TEST_F(DeleteQuorNode, SavesTheCatalogueAsItIsForAnUnknownName) {
  world_.disk.write("Quor_TOC.xml", catalogueWith(bookEntry("Alarms", "ALM")));
  remove("alarms");
  EXPECT_EQ(catalogue(), catalogueWith(bookEntry("Alarms", "ALM")));
  EXPECT_THAT(world_.user.record(), IsEmpty());
}

TEST_F(DeleteQuorNode, LooksTheNameUpAsItIsGiven) {
  world_.disk.write("Quor_TOC.xml", catalogueWith(bookEntry("R&amp;amp;D", "RD")));
  remove("R&D");
  EXPECT_EQ(catalogue(), catalogueWith(bookEntry("R&amp;amp;D", "RD")));
  remove("R&amp;D");
  EXPECT_EQ(catalogue(),
            replaceAll(catalogueWith(""), "<Quor_Books>\n\t</Quor_Books>", "<Quor_Books/>"));
}

TEST_F(DeleteQuorNode, ReportsANameThatHoldsAnApostropheAndChangesNothing) {
  const std::string before = catalogueWith(bookEntry("Alarms", "ALM"));
  world_.disk.write("Quor_TOC.xml", before);
  remove("' or '1'='1");
  EXPECT_EQ(world_.disk.read("Quor_TOC.xml"), before);
  ASSERT_EQ(world_.user.messages().size(), 1U);
  EXPECT_EQ(world_.user.messages()[0].errorNumber, -2147467259);
  EXPECT_TRUE(world_.user.messages()[0].text.ends_with("\rQuorbind:Book_Config::DeleteNode"));
}

TEST_F(DeleteQuorNode, LeavesACatalogueThatDoesNotLoadAsItWas) {
  world_.disk.write("Quor_TOC.xml", "<Quor_Master>");
  remove("Alarms");
  EXPECT_EQ(world_.disk.read("Quor_TOC.xml"), "<Quor_Master>");
  EXPECT_THAT(world_.user.record(), IsEmpty());
}

}  // namespace
}  // namespace quorbind::testing
