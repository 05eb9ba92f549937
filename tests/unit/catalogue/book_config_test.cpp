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

/// A server with the libraries Plant, which has books, and Old. Each operation is tested in a file
/// of its own; here that the class hands every argument on to the right one.
class BookConfig : public ::testing::Test {
 protected:
  BookConfig() {
    world_.disk.write("Docs/Quor_Selection.xml",
                      "<Quor_Selection_List><Quors>"
                      "<Quor><Quor_Name>Plant</Quor_Name>"
                      "<Quor_Location>Docs\\Plant</Quor_Location></Quor>"
                      "<Quor><Quor_Name>Old</Quor_Name>"
                      "<Quor_Location>Docs\\Old</Quor_Location></Quor>"
                      "</Quors></Quor_Selection_List>");
    world_.disk.write("Docs/Plant/Quor_TOC.xml", catalogueWith(entry("1", "A")));
    world_.disk.write("Docs/Old/Quor_TOC.xml", catalogueWith(entry("2", "B")));
    world_.disk.write("Docs/Plant/Manual/Book_ALM.xml", bookXml("Alarms", "ALM", "1", "A"));
  }
  static std::string entry(const std::string& link, const std::string& category) {
    return replaceAll(replaceAll(bookEntry("Alarms", "ALM"), "id=\"\"", "id=\"" + link + "\""),
                      "<Book_Categories/>",
                      "<Book_Categories>\n"
                      "\t\t\t\t<Book_Category>" +
                          category +
                          "</Book_Category>\n"
                          "\t\t\t</Book_Categories>");
  }
  static std::string bookXml(const std::string& name,
                             const std::string& acronym,
                             const std::string& link,
                             const std::string& category) {
    return "<Book_Master>\n"
           "\t<Book>\n"
           "\t\t<Book_Name>" +
           name + "</Book_Name>\n\t\t<Book_Acro>" + acronym + "</Book_Acro>\n\t\t<Book_Key id=\"" +
           link + "\"/>\n\t\t<Book_Categories>\n\t\t\t<Category>" + category +
           "</Category>\n"
           "\t\t</Book_Categories>\n"
           "\t</Book>\n"
           "</Book_Master>\n";
  }
  [[nodiscard]] std::string file(std::string_view name) const {
    return replaceAll(world_.disk.read(name), "\r\n", "\n");
  }

  World world_;
  Book_Config config_{world_.module};
  const std::string catalogue_ = "C:\\Docs\\Plant\\Quor_TOC.xml";
};

TEST_F(BookConfig, KnowsTheLibraries) {
  EXPECT_EQ(config_.QuorLocation("Plant"), catalogue_);
  EXPECT_THAT(config_.QuorNames(), ElementsAre("Plant", "Old", ""));
}

TEST_F(BookConfig, KnowsTheBooks) {
  std::string folder;
  std::string link;
  config_.strFolderLinkInfo(catalogue_, "Alarms", folder, link);

  EXPECT_THAT(config_.BookInfo(catalogue_), ElementsAre("Alarms", ""));
  EXPECT_THAT(config_.CategorieInfo(catalogue_, "Alarms"), ElementsAre("A", ""));
  EXPECT_EQ(folder, "Manual");
  EXPECT_EQ(link, "1");
  EXPECT_EQ(config_.GetBookAcro(catalogue_, "Alarms"), "ALM");
}

TEST_F(BookConfig, RenamesABook) {
  world_.module.bookInfo.txtBookName().setText("Warnings");
  world_.module.bookInfo.txtBookAcro().setText("WRN");
  config_.strBookAcroInfo(catalogue_, "Alarms");
  EXPECT_EQ(config_.GetBookAcro(catalogue_, "Warnings"), "WRN");
  EXPECT_EQ(file("Docs/Plant/Manual/Book_WRN.xml"), bookXml("Warnings", "WRN", "1", "A"));
}

TEST_F(BookConfig, RenamesWhatABookFileSays) {
  world_.module.bookInfo.txtBookName().setText("Warnings");
  world_.module.bookInfo.txtBookAcro().setText("WRN");
  config_.UpdateBookNameAcro("C:\\Docs\\Plant\\Manual\\Book_ALM.xml", "Alarms", "ALM");
  EXPECT_EQ(file("Docs/Plant/Manual/Book_ALM.xml"), bookXml("Warnings", "WRN", "1", "A"));
}

TEST_F(BookConfig, DeletesABook) {
  config_.DeleteQuorNode(catalogue_, "Alarms");
  EXPECT_THAT(config_.BookInfo(catalogue_), ElementsAre(""));
}

TEST_F(BookConfig, MergesAnotherCatalogueIntoTheMainOne) {
  config_.strMatchingBooksInfo(catalogue_, "C:\\Docs\\Old\\Quor_TOC.xml");
  EXPECT_EQ(file("Docs/Plant/Quor_TOC.xml"), catalogueWith(entry("2", "B")));
  EXPECT_EQ(file("Docs/Plant/Manual/Book_ALM.xml"), bookXml("Alarms", "ALM", "2", "B"));
}

TEST_F(BookConfig, SetsThePropertiesOfABook) {
  EXPECT_TRUE(config_.mbsetQuorBookProperties(catalogue_, "Alarms", {{"C"}, 0}, "New", "new link"));
  EXPECT_EQ(file("Docs/Plant/Quor_TOC.xml"), catalogueWith(entry("1", "C")));
  EXPECT_EQ(file("Docs/Plant/New/Book_ALM.xml"), bookXml("Alarms", "ALM", "new link", "C"));
}

TEST_F(BookConfig, InstallsABookInTheFolderOfItsAcronymWhateverFolderIsGiven) {
  world_.disk.write("In/guide.pdf", "the document");
  config_.CreateQuorBookNodeForSEntry("C:\\In\\guide.pdf",
                                      "manual.pdf",
                                      "Elsewhere",
                                      "pdf",
                                      "Plant",
                                      999,
                                      false,
                                      {{"Guide", "GDE", "", ""}, 0});
  EXPECT_THAT(world_.user.record(), IsEmpty());
  EXPECT_EQ(world_.disk.read("Docs/Plant/GDE/manual.pdf"), "the document");
  EXPECT_FALSE(world_.disk.has("Docs/Plant/Elsewhere"));
  EXPECT_EQ(config_.GetBookAcro(catalogue_, "Guide"), "GDE");
}

}  // namespace
}  // namespace quorbind::testing
