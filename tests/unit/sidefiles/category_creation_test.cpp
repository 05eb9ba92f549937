#include "sidefiles/category_creation.h"

#include "tests/support/read_only_files.h"
#include "tests/unit/sidefiles/side_file_test.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::string_view kHeader =
    "<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n"
    "<!-- Quorbind Documentation Tools, Library Tools Group\r\n"
    "    Quor Documentation Library\r\n"
    "    Quorbind Book Categories data file \r\n"
    "    1/2/2026 3:04:05 PM\r\n"
    "    Version 0.1 \r\n"
    "    Information 'quorbind@example.com' -->\r\n";

class CreateCategories : public SideFileTest {
 protected:
  CreateCategories() {
    world_.disk.write("Docs/Quor_DefaultCategories.xml",
                      "<Default_Categories>"
                      "<Quor_Developer_Pro><CategoryName>Zeta</CategoryName>"
                      "<CategoryName>R&amp;D</CategoryName></Quor_Developer_Pro>"
                      "<Quor_Developer><CategoryName>User Guides</CategoryName></Quor_Developer>"
                      "</Default_Categories>");
  }

  void create(std::int32_t installationType, bool crm = false) {
    CreateBookCateXmlFile(
        platform(), "C:\\Docs\\", "C:\\Quor_BookCategories.xml", installationType, crm);
  }
  void expectFile(std::string_view tree) const {
    EXPECT_EQ(world_.disk.read("Quor_BookCategories.xml"),
              utf16File(std::string(kHeader) + std::string(tree)));
  }

  static constexpr std::string_view kOrdinary =
      "<BookSet_Categories>\r\n"
      "\t<Category>\r\n"
      "\t\t<CategoryName>User Guides</CategoryName>\r\n"
      "\t</Category>\r\n"
      "\t<Category>\r\n"
      "\t\t<CategoryName>Other Category</CategoryName>\r\n"
      "\t</Category>\r\n"
      "</BookSet_Categories>";
};

TEST_F(CreateCategories, TakesTheNamesOfTheLargerProductInOrderForInstallationType1000) {
  create(1000);
  expectFile(
      "<BookSet_Categories>\r\n"
      "\t<Category>\r\n"
      "\t\t<CategoryName>Zeta</CategoryName>\r\n"
      "\t</Category>\r\n"
      "\t<Category>\r\n"
      "\t\t<CategoryName>R&amp;D</CategoryName>\r\n"
      "\t</Category>\r\n"
      "\t<Category>\r\n"
      "\t\t<CategoryName>Other Category</CategoryName>\r\n"
      "\t</Category>\r\n"
      "</BookSet_Categories>");
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(CreateCategories, TakesTheOrdinaryNamesForEveryOtherInstallationType) {
  for (const std::int32_t type : {999, 1001, 0, -1000}) {
    create(type);
    expectFile(kOrdinary);
  }
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(CreateCategories, WritesTheHeaderAndAnEmptyRootWithoutReadingTheDefaultsWhenToldSo) {
  world_.disk.write("Docs/Quor_DefaultCategories.xml", "damaged");
  create(1000, true);
  expectFile("<BookSet_Categories/>");
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(CreateCategories, ReplacesTheFileThatStandsThere) {
  world_.disk.write("Quor_BookCategories.xml", "what stood here before");
  create(0);
  expectFile(kOrdinary);
}

TEST_F(CreateCategories, LeavesTheHeaderAloneAndReportsDefaultsThatDoNotLoad) {
  world_.disk.write("Docs/Quor_DefaultCategories.xml", "<Default_Categories>");
  create(0);
  expectFile("");
  EXPECT_THAT(boxes(),
              ElementsAre("critical: Error(91):Object variable or With block variable not set\r"
                          "Quorbind-Book_Config::CreateBookCateXMLFile"));
}

TEST_F(CreateCategories, LooksForTheDefaultsDirectlyBehindTheServerPath) {
  CreateBookCateXmlFile(platform(), "C:\\Docs", "C:\\Quor_BookCategories.xml", 0);
  expectFile("");
  world_.disk.write("DocsQuor_DefaultCategories.xml",
                    "<Default_Categories><Quor_Developer/></Default_Categories>");
  CreateBookCateXmlFile(platform(), "C:\\Docs", "C:\\Quor_BookCategories.xml", 0);
  expectFile(
      "<BookSet_Categories>\r\n"
      "\t<Category>\r\n"
      "\t\t<CategoryName>Other Category</CategoryName>\r\n"
      "\t</Category>\r\n"
      "</BookSet_Categories>");
  EXPECT_EQ(boxes().size(), 1U) << "for the defaults that were not there";
}

TEST_F(CreateCategories, ReportsAFolderThatIsNotThereAndMakesNothing) {
  const auto before = world_.disk.contents();
  CreateBookCateXmlFile(platform(), "C:\\Docs\\", "C:\\no\\Quor_BookCategories.xml", 0);
  EXPECT_THAT(boxes(),
              ElementsAre("critical: Error(76):Path not found\r"
                          "Quorbind-Book_Config::CreateBookCateXMLFile"));
  EXPECT_EQ(world_.disk.contents(), before);
}

TEST_F(CreateCategories, LeavesTheOldFileWhenItMayNotBeReplaced) {
  create(0);
  const auto before = world_.disk.contents();
  ReadOnlyFiles files(platform().files);
  const Platform& p = platform();
  CreateBookCateXmlFile({files, p.xml, p.ui, p.toolset, p.locale, p.spreadsheets},
                        "C:\\Docs\\",
                        "C:\\Quor_BookCategories.xml",
                        1000);
  EXPECT_THAT(boxes(),
              ElementsAre("critical: Error(70):Permission denied\r"
                          "Quorbind-Book_Config::CreateBookCateXMLFile"));
  EXPECT_EQ(world_.disk.contents(), before);
}

TEST_F(CreateCategories, LeavesTheOldFileWhenTheDateCanNotBeHad) {
  create(0);
  const auto before = world_.disk.contents();
  world_.locale.breakDown();
  create(1000);
  EXPECT_THAT(boxes(),
              ElementsAre("critical: Error(5):Invalid procedure call or argument\r"
                          "Quorbind-Book_Config::CreateBookCateXMLFile"));
  EXPECT_EQ(world_.disk.contents(), before);
}

}  // namespace
}  // namespace quorbind::testing
