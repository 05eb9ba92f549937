#include "workflow/inputs/catalogue_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/xml_document.h"
#include "platform/xpath_query.h"
#include "tests/support/catalogue_text.h"
#include "tests/support/random_choices.h"
#include "tests/support/toolset_doubles.h"
#include "tests/support/world.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CatalogueCheck : public ::testing::Test {
 protected:
  CatalogueCheck() {
    world_.disk.write("Quor_TOC.xml",
                      catalogueWith(bookEntry("Alarms", "ALM") + bookEntry("Trends", "TRD") +
                                    bookEntry("R&amp;amp;D&amp;apos;s", "RD")));
  }
  bool check(const std::string& name, const std::string& acronym) {
    return mbCheckQuorTOCForBook(world_.module, "C:\\Quor_TOC.xml", name, acronym);
  }
  [[nodiscard]] const std::vector<std::string>& record() const { return world_.user.record(); }

  World world_;
};

TEST_F(CatalogueCheck, SaysNothingAboutANewBook) {
  EXPECT_TRUE(check("New", "NEW"));
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(CatalogueCheck, AnswersFalseForACatalogueThatDoesNotLoad) {
  world_.disk.write("Quor_TOC.xml", "<Quor_Master>");
  EXPECT_FALSE(check("Alarms", "ALM"));
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(CatalogueCheck, TellsOfARegisteredNameAndShowsTheDialogOnceMore) {
  world_.user.answerWith([](ModalForm& form) {
    EXPECT_EQ(form.boxText("txtBookName"), "Alarms");
    EXPECT_EQ(form.boxText("txtBookAcro"), "NEW");
    form.type("txtBookName", "Alarms 2");
    form.click("cmdOk");
  });
  EXPECT_TRUE(check("Alarms", "NEW"));
  EXPECT_THAT(record(),
              ElementsAre("critical: Error:Book Name Alarms already Exists", "form frmBookInfo"));
  EXPECT_EQ(world_.state().currentBookName, "Alarms 2");
}

TEST_F(CatalogueCheck, AcceptsADuplicateNameThatIsEnteredInThatDialog) {
  world_.user.answerWith(enterBook("Trends", "NEW"));
  EXPECT_TRUE(check("Alarms", "NEW"));
  EXPECT_THAT(record(),
              ElementsAre("critical: Error:Book Name Alarms already Exists", "form frmBookInfo"));
  EXPECT_EQ(world_.state().currentBookName, "Trends");
}

TEST_F(CatalogueCheck, TellsOfARegisteredAcronymAndShowsAnEmptyDialog) {
  world_.user.answerWith([](ModalForm& form) {
    EXPECT_EQ(form.boxText("txtBookName"), "");
    EXPECT_EQ(form.boxText("txtBookAcro"), "");
    form.type("txtBookName", "New");
    form.type("txtBookAcro", "TRD");
    form.click("cmdOk");
  });
  EXPECT_TRUE(check("New", "ALM"));
  EXPECT_THAT(record(),
              ElementsAre("critical: Error:Book Acro ALM already Exists", "form frmBookInfo"));
  EXPECT_EQ(world_.state().currentBookAcro, "TRD");
}

TEST_F(CatalogueCheck, LooksUpTheAcronymThatWasEnteredAfterADuplicateName) {
  world_.user.answerWith(enterBook("New", "TRD"));
  world_.user.answerWith(enterBook("New", "NEW"));
  EXPECT_TRUE(check("Alarms", "NEW"));
  EXPECT_THAT(record(),
              ElementsAre("critical: Error:Book Name Alarms already Exists",
                          "form frmBookInfo",
                          "critical: Error:Book Acro TRD already Exists",
                          "form frmBookInfo"));
}

TEST_F(CatalogueCheck, AsksAtMostTwiceForABookThatIsThereWhole) {
  world_.user.answerWith(enterBook("Alarms", "ALM"));
  world_.user.answerWith(enterBook("Alarms", "ALM"));
  EXPECT_TRUE(check("Alarms", "ALM"));
  EXPECT_THAT(record(),
              ElementsAre("critical: Error:Book Name Alarms already Exists",
                          "form frmBookInfo",
                          "critical: Error:Book Acro ALM already Exists",
                          "form frmBookInfo"));
}

TEST_F(CatalogueCheck, ReturnsAfterCancelWithoutLookingUpTheAcronym) {
  world_.user.answerWith(pressCancel());
  EXPECT_TRUE(check("Alarms", "ALM"));
  EXPECT_THAT(record(),
              ElementsAre("critical: Error:Book Name Alarms already Exists", "form frmBookInfo"));
}

TEST_F(CatalogueCheck, GoesOnWithTheValuesHeldAfterTheCloseBox) {
  world_.user.answerWith(closeForm());
  world_.user.answerWith(enterBook("New", "NEW"));
  EXPECT_TRUE(check("Alarms", "TRD"));
  EXPECT_THAT(record(),
              ElementsAre("critical: Error:Book Name Alarms already Exists",
                          "form frmBookInfo",
                          "critical: Error:Book Acro TRD already Exists",
                          "form frmBookInfo"));
}

TEST_F(CatalogueCheck, FindsNamesInTheFormInWhichTheyAreStored) {
  world_.user.answerWith(enterBook("New", "NEW"));
  EXPECT_TRUE(check("R&D's", "NEW"));
  EXPECT_THAT(record(),
              ElementsAre("critical: Error:Book Name R&D's already Exists", "form frmBookInfo"));
}

TEST_F(CatalogueCheck, BringsANameThatIsEnteredThereIntoItsStoredForm) {
  world_.user.answerWith(enterBook("B&C's <book>", "BC"));
  EXPECT_TRUE(check("Alarms", "NEW"));
  EXPECT_EQ(world_.state().currentBookName, "B&amp;C&apos;s &lt;book&gt;");
  EXPECT_EQ(world_.state().currentBookAcro, "BC");
}

TEST_F(CatalogueCheck, BringsNoNameIntoItsStoredFormTwice) {
  ToolsetWithDoubles toolset(world_.toolset);
  toolset.setStoring(
      [](const std::string& name) { return name == "New" ? "stored " + name : name; });
  const Platform& ports = world_.platform();
  Module module({ports.files, ports.xml, ports.ui, toolset, ports.locale, ports.spreadsheets});
  world_.user.answerWith(enterBook("New", "TRD"));
  world_.user.answerWith(closeForm());
  EXPECT_TRUE(mbCheckQuorTOCForBook(module, "C:\\Quor_TOC.xml", "Alarms", "NEW"));
  EXPECT_THAT(record(),
              ElementsAre("critical: Error:Book Name Alarms already Exists",
                          "form frmBookInfo",
                          "critical: Error:Book Acro TRD already Exists",
                          "form frmBookInfo"));
  EXPECT_EQ(module.state.currentBookName, "stored New");
}

TEST_F(CatalogueCheck, IsExactAboutLetterCase) {
  EXPECT_TRUE(check("ALARMS", "alm"));
  EXPECT_THAT(record(), IsEmpty());
}

TEST_F(CatalogueCheck, AnswersTrueForACatalogueThatHoldsNoBooks) {
  world_.disk.write("Quor_TOC.xml", "<Other/>");
  EXPECT_TRUE(check("Alarms", "ALM"));
}

/// One of the ways to write a book, some of which no query finds.
std::string oddBook(RandomChoices& random) {
  const std::vector<std::string> texts{"A",
                                       " A ",
                                       "\n\t\tA",
                                       "B",
                                       "A B",
                                       "AB",
                                       "A&#32;B",
                                       "",
                                       "  ",
                                       "<i>A</i>",
                                       "A<!-- or -->B",
                                       "<![CDATA[A]]>",
                                       "A<Book_Name>B</Book_Name>",
                                       "<Book_Acro>B</Book_Acro>A"};
  const std::vector<std::string> frames{"Book", "Book", "Book", "Other"};
  const std::string frame = random.oneOf(frames);
  return "<" + frame + "><Book_Name>" + random.oneOf(texts) + "</Book_Name><Book_Acro>" +
         random.oneOf(texts) + "</Book_Acro></" + frame + ">";
}

TEST_F(CatalogueCheck, TellsOfWhatAQueryFindsHoweverItIsWritten) {
  RandomChoices random(20261123);
  const std::vector<std::string> searched{"A", "B", "A B", "AB", "C"};
  int told = 0;
  for (int round = 0; round < 2000 && !HasFailure(); ++round) {
    World world;
    std::string books;
    for (std::size_t count = random.below(4); count > 0; --count) {
      books += oddBook(random);
    }
    world.disk.write("Quor_TOC.xml", catalogueWith(books));
    const auto catalogue = world.platform().xml.createDocument();
    ASSERT_TRUE(catalogue->load("C:\\Quor_TOC.xml"));
    const std::string& name = random.oneOf(searched);
    const std::string& acronym = random.oneOf(searched);
    const std::string list = "Quor_Master/Quor_Books/Book";
    const bool isTaken = catalogue->select(elementsWith(list, "Book_Name", name, '"')) ||
                         catalogue->select(elementsWith(list, "Book_Acro", acronym, '"'));
    world.user.answerWith(enterBook("New", "NEW"));
    world.user.answerWith(enterBook("New", "NEW"));
    EXPECT_TRUE(mbCheckQuorTOCForBook(world.module, "C:\\Quor_TOC.xml", name, acronym));
    EXPECT_EQ(!world.user.record().empty(), isTaken) << name << ' ' << acronym << '\n' << books;
    told += isTaken ? 1 : 0;
  }
  EXPECT_GT(told, 400);
  EXPECT_LT(told, 1600);
}

TEST_F(CatalogueCheck, ReportsAMissingToolSet) {
  world_.toolset.breakDown();
  EXPECT_FALSE(check("Alarms", "ALM"));
  EXPECT_THAT(record(),
              ElementsAre("critical: Error(429): ActiveX component can't create object\r"
                          "Quorbind: Quor_Book::mbcheckQuorTocForBook"));
}

}  // namespace
}  // namespace quorbind::testing
