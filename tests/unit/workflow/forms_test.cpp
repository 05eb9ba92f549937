#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/runtime_error.h"
#include "tests/support/world.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class BookInfoForm : public ::testing::Test {
 protected:
  /// Types a name and an acronym, clicks OK, and answers whether the dialog closed.
  bool closesWith(std::string_view name, std::string_view acronym) {
    bool closed = false;
    world_.user.answerWith([&](ModalForm& form) {
      form.type("txtBookName", name);
      form.type("txtBookAcro", acronym);
      form.click("cmdOk");
      closed = !form.isShown();
      if (!closed) {
        form.closeByUser();
      }
    });
    world_.module.bookInfo.showModal();
    return closed;
  }
  [[nodiscard]] std::vector<std::string> boxes() const {
    std::vector<std::string> result;
    for (const UserMessage& message : world_.user.messages()) {
      result.push_back(message.text);
    }
    return result;
  }

  World world_;
};

TEST_F(BookInfoForm, ClosesOnOkAndStoresWhatWasTyped) {
  EXPECT_TRUE(closesWith("Alarms", "ALM"));
  EXPECT_EQ(world_.state().currentBookName, "Alarms");
  EXPECT_EQ(world_.state().currentBookAcro, "ALM");
  EXPECT_FALSE(world_.state().cancelled);
}

TEST_F(BookInfoForm, AcceptsSlashAndAmpersandInTheName) {
  EXPECT_TRUE(closesWith("Input/Output & Alarms", "IO"));
  EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(BookInfoForm, RefusesAnEntityTextInEitherBoxWithAReportForEach) {
  EXPECT_FALSE(closesWith("A&amp;B", "A&lt;"));
  EXPECT_THAT(boxes(),
              ElementsAre("&amp;Cannot be used in BookName", "&lt;Cannot be used in BookAcro"));
}

TEST_F(BookInfoForm, RefusesTheReservedWordInTheNameByItsLetterCase) {
  EXPECT_FALSE(closesWith("A @quor@ B", "AB"));
  EXPECT_TRUE(closesWith("A @QUOR@ B", "AB"));
  EXPECT_THAT(boxes(), ElementsAre("Book Name can not contain @quor@"));
}

TEST_F(BookInfoForm, RefusesFileNameCharactersInTheAcronym) {
  for (const char* acronym : {"A/B", "A\\B", "A:B", "A*B", "A?B", "A\"B", "A<B", "A>B"}) {
    world_.user.forget();
    EXPECT_FALSE(closesWith("Alarms", acronym)) << acronym;
    EXPECT_THAT(boxes(), ElementsAre("Book Acro can not contain  (/\\:*?\"<>)")) << acronym;
  }
}

TEST_F(BookInfoForm, RefusesMarkupCharactersAndTheReservedWordInTheAcronym) {
  for (const char* acronym : {"A&B", "A'B", "A@quor@B"}) {
    world_.user.forget();
    EXPECT_FALSE(closesWith("Alarms", acronym)) << acronym;
    EXPECT_THAT(boxes(), ElementsAre("Book Acro can not contain ('\"&<>@quor@)")) << acronym;
  }
}

TEST_F(BookInfoForm, StoresARefusedAcronymAllTheSame) {
  EXPECT_FALSE(closesWith("Alarms", "A/B"));
  EXPECT_EQ(world_.state().currentBookAcro, "A/B");
}

TEST_F(BookInfoForm, ShowsItsBoxesWithTheCriticalIcon) {
  closesWith("Alarms", "A/B");
  closesWith("@quor@", "AB");
  for (const UserMessage& message : world_.user.messages()) {
    EXPECT_EQ(message.icon, MessageIcon::kCritical);
    EXPECT_EQ(message.title, std::nullopt);
  }
}

TEST_F(BookInfoForm, KeepsTheLastTypedValuesAfterCancel) {
  world_.state().recordedXmlAcro = "REC";
  world_.user.answerWith([](ModalForm& form) {
    form.type("txtBookName", "Typed");
    form.type("txtBookAcro", "TYP");
    form.click("cmdCancel");
  });
  world_.module.bookInfo.showModal();
  EXPECT_EQ(world_.state().currentBookName, "Typed");
  EXPECT_EQ(world_.state().currentBookAcro, "TYP");
  EXPECT_TRUE(world_.state().cancelled);
  EXPECT_EQ(world_.state().recordedXmlAcro, "");
  EXPECT_FALSE(world_.module.bookInfo.isLoaded());
}

TEST_F(BookInfoForm, DoesNotEmptyTheCurrentValuesWhenABoxIsEmptied) {
  world_.module.bookInfo.txtBookName().setText("Alarms");
  world_.module.bookInfo.txtBookName().setText("");
  EXPECT_EQ(world_.state().currentBookName, "Alarms");
}

TEST_F(BookInfoForm, LetsTheAcronymFollowTheNameForInstallationType500Only) {
  world_.module.bookInfo.txtBookName().setText("First");
  EXPECT_EQ(world_.module.bookInfo.txtBookAcro().text(), "");
  world_.state().installationType = 500;
  world_.module.bookInfo.txtBookName().setText("Second");
  EXPECT_EQ(world_.module.bookInfo.txtBookAcro().text(), "Second");
  EXPECT_EQ(world_.state().currentBookAcro, "Second");
}

TEST_F(BookInfoForm, IsUnloadedByItsCloseBoxWithoutSettingTheCancelFlag) {
  world_.state().recordedXmlAcro = "REC";
  world_.user.answerWith(closeForm());
  world_.module.bookInfo.showModal();
  EXPECT_FALSE(world_.state().cancelled);
  EXPECT_EQ(world_.state().recordedXmlAcro, "REC");
  EXPECT_THROW(static_cast<void>(world_.module.bookInfo.activeControlValue()), RunTimeError);
}

TEST_F(BookInfoForm, IsLoadedWithEmptyBoxesByReachingForAControl) {
  world_.module.bookInfo.txtBookName().setText("Alarms");
  world_.module.bookInfo.unload();
  EXPECT_EQ(world_.module.bookInfo.txtBookName().text(), "");
  EXPECT_TRUE(world_.module.bookInfo.isLoaded());
  EXPECT_FALSE(world_.module.bookInfo.activeControlValue());
}

TEST_F(BookInfoForm, ReportsAnErrorOfAHandlerAndStaysAsItWas) {
  world_.toolset.breakDown();
  EXPECT_FALSE(closesWith("Alarms", "ALM"));
  EXPECT_THAT(boxes(),
              ElementsAre("Error 429 (ActiveX component can't create object) in procedure "
                          "cmdOk_Click of Form frmBookInfo"));
  EXPECT_EQ(world_.user.messages().at(0).icon, MessageIcon::kCritical);
}

TEST_F(BookInfoForm, RaisesAnErrorForControlsThatItDoesNotHave) {
  EXPECT_THROW(world_.module.bookInfo.type("Text1", "x"), RunTimeError);
  EXPECT_THROW(world_.module.bookInfo.click("cmdHelp"), RunTimeError);
}

class BookFolderForm : public ::testing::Test {
 protected:
  bool closesWith(std::string_view folder) {
    bool closed = false;
    world_.user.answerWith([&](ModalForm& form) {
      form.type("Text1", folder);
      form.click("cmdOk");
      closed = !form.isShown();
      if (!closed) {
        form.closeByUser();
      }
    });
    world_.module.bookFolder.showModal();
    return closed;
  }

  World world_;
};

TEST_F(BookFolderForm, ClosesOnOkWithAFolderName) {
  EXPECT_TRUE(closesWith("Manual 2"));
  EXPECT_EQ(world_.module.bookFolder.Text1().text(), "Manual 2");
}

TEST_F(BookFolderForm, WantsAName) {
  EXPECT_FALSE(closesWith(""));
  EXPECT_THAT(
      world_.user.record(),
      ElementsAre("form frmBookFolder", "critical: Enter a Non-empty string for folder name"));
}

TEST_F(BookFolderForm, RefusesFileNameCharactersWithoutTheSecondBlankOfTheAcronym) {
  EXPECT_FALSE(closesWith("A/B"));
  EXPECT_THAT(
      world_.user.record(),
      ElementsAre("form frmBookFolder", "critical: Book Folder can not contain (/\\:*?\"<>)"));
}

TEST_F(BookFolderForm, RefusesMarkupCharacters) {
  EXPECT_FALSE(closesWith("R&D"));
  EXPECT_THAT(world_.user.record(),
              ElementsAre("form frmBookFolder", "critical: Book Folder can not contain ('\"&<>)"));
}

TEST_F(BookFolderForm, LeavesEntityTextsToTheTextRules) {
  EXPECT_FALSE(closesWith("A&gt;B"));
  EXPECT_THAT(world_.user.record(),
              ElementsAre("form frmBookFolder", "information: &gt;Cannot be used in Folder Name"));
}

TEST_F(BookFolderForm, ReportsAnErrorOfItsHandler) {
  world_.toolset.breakDown();
  EXPECT_FALSE(closesWith("Manual"));
  EXPECT_THAT(world_.user.record(),
              ElementsAre("form frmBookFolder",
                          "critical: Error 429 (ActiveX component can't create object) in "
                          "procedure cmdOk_Click of Form frmBookFolder"));
}

TEST(ProgressForm, ShowsEveryChangeWhileItIsOnScreenAndNothingElse) {
  ScriptedUserInterface user;
  frmProgBar form(user);
  form.setMaximum(10);
  form.show();
  form.setStatus("Working");
  form.hide();
  form.setValue(4);
  form.show();
  form.unload();
  EXPECT_THAT(user.record(),
              ElementsAre("progress 0/10 ",
                          "progress 0/10 Working",
                          "progress hidden",
                          "progress 4/10 Working",
                          "progress unloaded"));
}

TEST(ProgressForm, ForgetsWhatItShowedWhenItIsUnloaded) {
  ScriptedUserInterface user;
  frmProgBar form(user);
  form.setStatus("Working");
  form.setCaption("Configuring");
  form.unload();
  user.forget();
  form.show();
  EXPECT_THAT(user.record(), ElementsAre("progress 0/100 "));
  EXPECT_THAT(user.progressCaptions(), ElementsAre("Quor TOC"));
}

TEST(ProgressForm, TakesAnotherCaptionWhileItIsOnScreen) {
  ScriptedUserInterface user;
  frmProgBar form(user);
  form.show();
  form.setCaption("Configuring");
  EXPECT_THAT(user.progressCaptions(), ElementsAre("Quor TOC", "Configuring"));
}

}  // namespace
}  // namespace quorbind::testing
