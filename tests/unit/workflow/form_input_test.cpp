#include "workflow/inputs/form_input.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/world.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FormInput : public ::testing::Test {
 protected:
  bool ask(std::int16_t kind = 4) {
    return mbGetFormInput(world_.module, "C:\\no catalogue.xml", kind);
  }

  World world_;
};

TEST_F(FormInput, ShowsNoDialogWhenNameAndAcronymAreKnown) {
  world_.state().currentBookName = "Alarms";
  world_.state().currentBookAcro = "ALM";
  EXPECT_TRUE(ask());
  EXPECT_THAT(world_.user.record(), IsEmpty());
}

TEST_F(FormInput, AsksWhenOnlyOneIsKnownAndOffersIt) {
  world_.state().currentBookName = "Alarms";
  world_.user.answerWith([](ModalForm& form) {
    EXPECT_EQ(form.boxText("txtBookName"), "Alarms");
    EXPECT_EQ(form.boxText("txtBookAcro"), "");
    form.type("txtBookAcro", "ALM");
    form.click("cmdOk");
  });
  EXPECT_TRUE(ask());
  EXPECT_EQ(world_.state().currentBookName, "Alarms");
  EXPECT_EQ(world_.state().currentBookAcro, "ALM");
}

TEST_F(FormInput, StoresNamesInTheFormThatXmlHolds) {
  world_.user.answerWith(enterBook("R&D's <book>", "RD"));
  EXPECT_TRUE(ask());
  EXPECT_EQ(world_.state().currentBookName, "R&amp;D&apos;s &lt;book&gt;");
}

TEST_F(FormInput, HidesTheProgressWindowBehindTheDialogButNotForABookFile) {
  world_.module.progress.show();
  world_.user.forget();
  world_.user.answerWith(enterBook("Alarms", "ALM"));
  EXPECT_TRUE(ask(4));
  EXPECT_THAT(world_.user.record(), ElementsAre("progress hidden", "form frmBookInfo"));

  world_.state().currentBookName.clear();
  world_.module.progress.show();
  world_.user.forget();
  world_.user.answerWith(enterBook("Alarms", "ALM"));
  EXPECT_TRUE(ask(1));
  EXPECT_THAT(world_.user.record(), ElementsAre("form frmBookInfo"));
}

TEST_F(FormInput, StartsWithEmptyBoxesButForABookFile) {
  world_.module.bookInfo.txtBookName().setText("Left over");
  world_.state().currentBookName.clear();
  world_.user.answerWith([](ModalForm& form) {
    EXPECT_EQ(form.boxText("txtBookName"), "Left over");
    form.closeByUser();
  });
  EXPECT_FALSE(ask(1));

  world_.module.bookInfo.txtBookName().setText("Left over");
  world_.state().currentBookName.clear();
  world_.user.answerWith([](ModalForm& form) {
    EXPECT_EQ(form.boxText("txtBookName"), "");
    form.closeByUser();
  });
  EXPECT_FALSE(ask(4));
}

TEST_F(FormInput, EndsAtCancel) {
  world_.user.answerWith(pressCancel());
  EXPECT_FALSE(ask());
  EXPECT_TRUE(world_.state().cancelled);
  EXPECT_THAT(world_.user.record(), ElementsAre("form frmBookInfo"));
}

TEST_F(FormInput, EndsAtTheCloseBoxWithoutTheCancelFlag) {
  world_.user.answerWith(closeForm());
  EXPECT_FALSE(ask());
  EXPECT_FALSE(world_.state().cancelled);
}

TEST_F(FormInput, RefusesAnEmptyNameOrAcronym) {
  for (const auto& [name, acronym] :
       {std::pair{"", "ALM"}, std::pair{"Alarms", ""}, std::pair{"  ", "ALM"}}) {
    world_.user.forget();
    world_.state().currentBookName.clear();
    world_.state().currentBookAcro.clear();
    world_.user.answerWith(enterBook(name, acronym));
    EXPECT_FALSE(ask());
    EXPECT_THAT(world_.user.record(),
                ElementsAre("form frmBookInfo", "critical: Book Name/Book Acro can not be null"));
  }
}

TEST_F(FormInput, SaysNoWhenTheCancelFlagIsStillSet) {
  world_.state().currentBookName = "Alarms";
  world_.state().currentBookAcro = "ALM";
  world_.state().cancelled = true;
  EXPECT_FALSE(ask());
}

TEST_F(FormInput, PresetsOfInstallationType500OverwriteTheAcronym) {
  world_.state().installationType = 500;
  world_.state().currentBookName = "Alarms";
  world_.state().currentBookAcro = "";
  world_.user.answerWith([](ModalForm& form) {
    EXPECT_EQ(form.boxText("txtBookAcro"), "Alarms");
    form.click("cmdOk");
  });
  EXPECT_TRUE(ask());
  EXPECT_EQ(world_.state().currentBookAcro, "Alarms");
}

TEST_F(FormInput, ReportsAMissingToolSet) {
  world_.toolset.breakDown();
  EXPECT_FALSE(ask());
  EXPECT_THAT(world_.user.record(),
              ElementsAre("critical: Error(429): ActiveX component can't create object\r"
                          "Quorbind: Quor_Book::mbGetFormInput"));
}

}  // namespace
}  // namespace quorbind::testing
