#include "tests/cli/library_test.h"

namespace quorbind::testing {
namespace {

class CategoriesCommand : public LibraryTest {
 protected:
  void SetUp() override {
    LibraryTest::SetUp();
    disk.write(kCategories, categoriesFile(category("Safety", "ALM") + category("Other Category")));
  }

  /// The server's default categories, for installation type 1000 and for all others.
  void writeDefaults() const {
    disk.write("server/Docs/Quor_DefaultCategories.xml",
               "<Default_Categories>"
               "<Quor_Developer_Pro><CategoryName>Pro</CategoryName></Quor_Developer_Pro>"
               "<Quor_Developer><CategoryName>Guides</CategoryName></Quor_Developer>"
               "</Default_Categories>");
  }
};

using CategoryList = CategoriesCommand;

TEST_F(CategoryList, IsATableOfTheCategoriesAndTheirBooks) {
  const Outcome outcome = inPlant({"categories", "list"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "CATEGORY        BOOKS\n"
            "Safety          ALM\n"
            "Other Category\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(CategoryList, AsAnObject) {
  EXPECT_EQ(inPlant({"categories", "list", "--json"}).out,
            "{\n  \"format\": 1,\n"
            "  \"categories\": [\n"
            "    {\n"
            "      \"name\": \"Safety\",\n"
            "      \"books\": [\n"
            "        \"ALM\"\n"
            "      ]\n"
            "    },\n"
            "    {\n"
            "      \"name\": \"Other Category\",\n"
            "      \"books\": []\n"
            "    }\n"
            "  ]\n"
            "}\n");
}

using CategoryAdd = CategoriesCommand;

TEST_F(CategoryAdd, PutsItInFrontOfTheOneForAllOtherBooks) {
  const Outcome outcome = inPlant({"categories", "add", "Maps"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Added the category Maps to Plant.\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(
      text(kCategories),
      categoriesFile(category("Safety", "ALM") + category("Maps") + category("Other Category")));
}

TEST_F(CategoryAdd, AsAnObject) {
  EXPECT_EQ(inPlant({"categories", "add", "Maps", "--json"}).out,
            changeObject("Added the category Maps to Plant.", kCategories));
}

TEST_F(CategoryAdd, TakesMarkupCharactersAsTheyAreTyped) {
  EXPECT_EQ(inPlant({"categories", "add", "R&D <x> \"y\""}).status, 0);
  EXPECT_EQ(inPlant({"categories", "list"}).out,
            "CATEGORY        BOOKS\n"
            "Safety          ALM\n"
            "R&D <x> \"y\"\n"
            "Other Category\n");
}

TEST_F(CategoryAdd, ANameThatIsThereAlreadyIsRefused) {
  expectRefusal({"categories", "add", "Safety"},
                1,
                "critical: there is a category Safety in Plant already\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(CategoryAdd, ANameThatCouldNotBeLookedUpIsRefused) {
  expectRefusal({"categories", "add", "Bob's"},
                1,
                "critical: the category Bob's can not be looked up: it holds an apostrophe\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(CategoryAdd, ANameThatNoFileCanHoldIsRefused) {
  for (const auto& [name, shown] : {std::pair{"c\x01y", "c\\x01y"}, {"c\xFFy", "c\uFFFDy"}}) {
    expectRefusal({"categories", "add", name},
                  1,
                  std::string("critical: the category ") + shown +
                      " can not be kept: it holds a character that no XML file can hold\n"
                      "quorbind: Plant: nothing was changed\n");
  }
}

TEST_F(CategoryAdd, ABlankNameIsWrongUsage) {
  expectRefusal({"categories", "add", " "},
                2,
                "NAME: it must not be empty\n"
                "Run with --help for more information.\n");
}

using CategoryRename = CategoriesCommand;

TEST_F(CategoryRename, KeepsPlaceAndBooks) {
  const Outcome outcome = inPlant({"categories", "rename", "Safety", "R&D"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Renamed the category Safety to R&D in Plant.\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(text(kCategories),
            categoriesFile(category("R&amp;D", "ALM") + category("Other Category")));
  EXPECT_EQ(inPlant({"categories", "rename", "R&D", "<\">"}).status, 0);
  EXPECT_EQ(text(kCategories),
            categoriesFile(category("&lt;\"&gt;", "ALM") + category("Other Category")));
}

TEST_F(CategoryRename, AsAnObject) {
  EXPECT_EQ(inPlant({"categories", "rename", "Safety", "Maps", "--json"}).out,
            changeObject("Renamed the category Safety to Maps in Plant.", kCategories));
}

TEST_F(CategoryRename, ACategoryThatIsNotThereIsRefused) {
  expectRefusal({"categories", "rename", "safety", "Maps"},
                1,
                "critical: there is no category safety in Plant\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(CategoryRename, ANameThatIsThereAlreadyIsRefused) {
  disk.write(kCategories, categoriesFile(category("Safety") + category("Maps")));
  expectRefusal({"categories", "rename", "Safety", "Maps"},
                1,
                "critical: there is a category Maps in Plant already\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(CategoryRename, ANameWithAnApostropheIsRefused) {
  disk.write(kCategories, categoriesFile(category("Bob's") + category("Safety")));
  expectRefusal({"categories", "rename", "Bob's", "Maps"},
                1,
                "critical: the category Bob's can not be looked up: it holds an apostrophe\n"
                "quorbind: Plant: nothing was changed\n");
  expectRefusal({"categories", "rename", "Safety", "Ann's"},
                1,
                "critical: the category Ann's can not be looked up: it holds an apostrophe\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(CategoryRename, ANameThatNoFileCanHoldIsRefused) {
  expectRefusal({"categories", "rename", "Safety", "c\x01y"},
                1,
                "critical: the category c\\x01y can not be kept: it holds a character that no XML "
                "file can hold\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(CategoryRename, TheDefaultsOfTheInstallationTypeKeepTheirNames) {
  writeDefaults();
  disk.write(kCategories,
             categoriesFile(category("Guides") + category("Pro") + category("Other Category")));
  expectRefusal({"categories", "rename", "Guides", "Maps"},
                1,
                "critical: the category Guides is a default of the server and keeps its name\n"
                "quorbind: Plant: nothing was changed\n");
  expectRefusal({"categories", "rename", "Pro", "Maps", "--install-type", "1000"},
                1,
                "critical: the category Pro is a default of the server and keeps its name\n"
                "quorbind: Plant: nothing was changed\n");
  EXPECT_EQ(inPlant({"categories", "rename", "Pro", "Maps"}).status, 0);
}

TEST_F(CategoryRename, TheOneForAllOtherBooksKeepsItsName) {
  expectRefusal(
      {"categories", "rename", "Other Category", "Maps"},
      1,
      "critical: the category Other Category is a default of the server and keeps its name\n"
      "quorbind: Plant: nothing was changed\n");
}

using CategoryFileBook = CategoriesCommand;

TEST_F(CategoryFileBook, FilesUnderEachAndMakesThoseThatAreMissing) {
  const Outcome outcome = inPlant({"categories", "file", "MRK", "Safety", "R&D"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Filed A & B < C > D \" E ' F (MRK) under Safety, R&D in Plant.\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(text(kCategories),
            categoriesFile("\t<Category>\n"
                           "\t\t<CategoryName>Safety</CategoryName>\n"
                           "\t\t<BookAcro>ALM</BookAcro>\n"
                           "\t\t<BookAcro>MRK</BookAcro>\n"
                           "\t</Category>\n" +
                           category("R&amp;D", "MRK") + category("Other Category")));
}

TEST_F(CategoryFileBook, ABookThatIsFiledAlreadyStaysFiledOnce) {
  const std::string before = text(kCategories);
  EXPECT_EQ(inPlant({"categories", "file", "ALM", "Safety"}).status, 0);
  EXPECT_EQ(text(kCategories), before);
}

TEST_F(CategoryFileBook, AsAnObject) {
  EXPECT_EQ(inPlant({"categories", "file", "ALM", "Safety", "--json"}).out,
            changeObject("Filed Alarms (ALM) under Safety in Plant.", kCategories));
}

TEST_F(CategoryFileBook, ABookThatIsNotThereIsRefused) {
  expectRefusal({"categories", "file", "NEW", "Safety"},
                1,
                "critical: there is no book NEW in Plant\n"
                "quorbind: Plant: nothing was changed\n");
}

TEST_F(CategoryFileBook, WithOnesThatCanNotBeLookedUpNothingIsFiledAndEachIsTold) {
  expectRefusal({"categories", "file", "MRK", "Safety", "Bob's", "c\x01y"},
                1,
                "critical: the category Bob's can not be looked up: it holds an apostrophe\n"
                "the category c\\x01y can not be kept: it holds a character that no XML file can "
                "hold\n"
                "quorbind: Plant: nothing was changed\n");
}

using CategoryRebuild = CategoriesCommand;

TEST_F(CategoryRebuild, FilesTheBooksAsTheCatalogueSays) {
  const std::string filed = replaceAll(bookEntry("Alarms", "ALM"),
                                       "\t\t\t<Book_Categories/>\n",
                                       "\t\t\t<Book_Categories>\n"
                                       "\t\t\t\t<Book_Category>Maps</Book_Category>\n"
                                       "\t\t\t</Book_Categories>\n");
  disk.write(kCatalogue, catalogueWith(filed + bookEntry(kMarkupInXml, "MRK")));
  disk.write(kCategories, categoriesFile(category("Maps") + category("Other Category")));
  const Outcome outcome = inPlant({"categories", "rebuild"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Filed the books of Plant (2) as the catalogue says.\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(text(kCategories),
            categoriesFile(category("Maps", "ALM") + category("Other Category", "MRK")));
}

TEST_F(CategoryRebuild, AsAnObject) {
  EXPECT_EQ(inPlant({"categories", "rebuild", "--json"}).out,
            changeObject("Filed the books of Plant (2) as the catalogue says.", kCategories));
}

TEST_F(CategoryRebuild, ACategoryThatCanNotBeLookedUpIsToldOf) {
  disk.write(kCategories, categoriesFile(category("Bob's") + category("Other Category")));
  const Outcome outcome = inPlant({"categories", "rebuild"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_TRUE(outcome.err.starts_with("information: -2147467259: ")) << outcome.err;
  EXPECT_TRUE(
      outcome.err.ends_with("quorbind: Plant: only a part was done: write "
                            "DISK/server/Docs/Plant/Quor_BookCategories.xml\n"))
      << outcome.err;
}

class CategoryCreate : public CategoriesCommand {
 protected:
  void SetUp() override {
    CategoriesCommand::SetUp();
    writeDefaults();
    std::filesystem::remove(disk.path() / kCategories);
  }
};

TEST_F(CategoryCreate, MakesTheFileFromTheDefaults) {
  const Outcome outcome = inPlant({"categories", "create"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "Made the categories of Plant: 2 categories.\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(inPlant({"categories", "list"}).out,
            "CATEGORY        BOOKS\n"
            "Guides\n"
            "Other Category\n");
}

TEST_F(CategoryCreate, TheInstallationTypeChoosesTheDefaults) {
  EXPECT_EQ(inPlant({"categories", "create", "--install-type", "1000"}).status, 0);
  EXPECT_EQ(inPlant({"categories", "list"}).out,
            "CATEGORY        BOOKS\n"
            "Pro\n"
            "Other Category\n");
}

TEST_F(CategoryCreate, AsAnObject) {
  EXPECT_EQ(inPlant({"categories", "create", "--json"}).out,
            changeObject("Made the categories of Plant: 2 categories.", kCategories));
}

TEST_F(CategoryCreate, CategoriesThatAreThereAreNotLostUnasked) {
  disk.write(kCategories, categoriesFile(category("Safety", "ALM")));
  expectRefusal({"categories", "create"},
                1,
                "critical: Plant has categories, which would be lost; --replace makes the file "
                "anew\n"
                "quorbind: Plant: nothing was changed\n");
  EXPECT_EQ(inPlant({"categories", "create", "--replace"}).status, 0);
}

TEST_F(CategoryCreate, AFileWithoutCategoriesIsMadeAnew) {
  disk.write(kCategories, categoriesFile(""));
  EXPECT_EQ(inPlant({"categories", "create"}).status, 0);
}

TEST_F(CategoryCreate, ADamagedFileIsMadeAnewOnDemand) {
  disk.write(kCategories, "<BookSet_Categories>");
  EXPECT_EQ(inPlant({"categories", "create"}).status, 4);
  EXPECT_EQ(inPlant({"categories", "create", "--replace"}).status, 0);
}

TEST_F(CategoryCreate, WithoutDefaultsNothingIsMade) {
  disk.write(kCategories, categoriesFile(category("Safety", "ALM")));
  std::filesystem::remove(disk.path() / "server/Docs/Quor_DefaultCategories.xml");
  expectRefusal({"categories", "create", "--replace"},
                3,
                "critical: DISK/server/Docs/Quor_DefaultCategories.xml: File not found\n"
                "quorbind: Plant: nothing was changed\n");
  disk.write("server/Docs/Quor_DefaultCategories.xml", "<Defaults/>");
  expectRefusal({"categories", "create", "--replace"},
                4,
                "critical: DISK/server/Docs/Quor_DefaultCategories.xml: the element "
                "Default_Categories is missing\n"
                "quorbind: Plant: nothing was changed\n");
}

}  // namespace
}  // namespace quorbind::testing
