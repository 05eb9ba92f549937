#include <gtest/gtest.h>

#include <map>

#include "platform/form.h"
#include "tests/contract/adapters.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {
namespace {

using ::testing::Test;
using Texts = std::vector<std::string>;

/// The book dialog with one rule: OK closes it unless the acronym is `bad`. It notes what is done
/// to it.
class BookForm final : public ModalForm {
 public:
  void show() { shown_ = true; }

  [[nodiscard]] std::string_view name() const override { return "frmBookInfo"; }
  [[nodiscard]] bool isShown() const override { return shown_; }
  [[nodiscard]] std::string labelText(std::string_view) const override { return "toc.txt"; }
  [[nodiscard]] std::string boxText(std::string_view box) const override {
    const auto found = texts_.find(box);
    return found == texts_.end() ? std::string() : found->second;
  }
  void type(std::string_view box, std::string_view text) override {
    texts_[std::string(box)] = text;
  }
  void click(std::string_view button) override {
    done.emplace_back(button);
    shown_ = button == "cmdOk" && boxText("txtBookAcro") == "bad";
  }
  void closeByUser() override {
    done.emplace_back("closed");
    shown_ = false;
  }

  Texts done;

 private:
  bool shown_ = true;
  std::map<std::string, std::string, std::less<>> texts_;
};

class FolderForm final : public ModalForm {
 public:
  [[nodiscard]] std::string_view name() const override { return "frmBookFolder"; }
  [[nodiscard]] bool isShown() const override { return shown_; }
  [[nodiscard]] std::string labelText(std::string_view) const override { return {}; }
  [[nodiscard]] std::string boxText(std::string_view) const override { return text_; }
  void type(std::string_view, std::string_view text) override { text_ = text; }
  void click(std::string_view button) override {
    done.emplace_back(button);
    shown_ = false;
  }
  void closeByUser() override {
    done.emplace_back("closed");
    shown_ = false;
  }

  Texts done;

 private:
  bool shown_ = true;
  std::string text_;
};

class UserInterfaceContract : public Test {
 protected:
  TemporaryFolder drive;
  std::unique_ptr<Adapters> adapters = makeAdapters(drive.path());
  std::unique_ptr<AttendedUserInterface> person = adapters->makeUserInterface();
  UserInterface& ui = person->ui();
};

TEST_F(UserInterfaceContract, BoxesAreSeenInTheirOrderWithTheirIcons) {
  ui.show({.text = "first", .icon = MessageIcon::kCritical});
  ui.show({.text = "second", .icon = MessageIcon::kInformation});
  ui.show({.text = "third"});
  EXPECT_EQ(person->boxes(), (Texts{"critical: first", "information: second", "message: third"}));
}

TEST_F(UserInterfaceContract, ABoxKeepsItsTextLetterForLetter) {
  ui.show(
      criticalMessage("Line: \"1\" \"Gr\xC3\xB6\xC3\x9F"
                      "e\"\rError: bad "));
  EXPECT_EQ(person->boxes(),
            (Texts{"critical: Line: \"1\" \"Gr\xC3\xB6\xC3\x9F"
                   "e\"\rError: bad "}));
}

TEST_F(UserInterfaceContract, TheClipboardHoldsTheTextPutThereLast) {
  ui.show(criticalMessage("bad"));
  ui.putOnClipboard("the first line");
  ui.putOnClipboard("the \xC3\xA9 line");
  EXPECT_EQ(person->clipboard(), "the \xC3\xA9 line");
}

TEST_F(UserInterfaceContract, AnAnsweredFormHoldsWhatWasEntered) {
  BookForm form;
  person->willEnter({"Alarms", "ALM"});
  ui.showModal(form);
  EXPECT_EQ(form.boxText("txtBookName"), "Alarms");
  EXPECT_EQ(form.boxText("txtBookAcro"), "ALM");
  EXPECT_EQ(form.done, (Texts{"cmdOk"}));
}

TEST_F(UserInterfaceContract, AFormIsOnScreenUntilItsHandlerEndsThat) {
  BookForm form;
  person->willEnter({"Alarms", "bad"});
  person->willEnter({"Alarms", "ALM"});
  ui.showModal(form);
  EXPECT_FALSE(form.isShown());
  EXPECT_EQ(form.boxText("txtBookAcro"), "ALM");
  EXPECT_EQ(form.done, (Texts{"cmdOk", "cmdOk"}));
}

TEST_F(UserInterfaceContract, LeavingAFormPressesItsCancelButton) {
  BookForm form;
  person->willLeave();
  ui.showModal(form);
  EXPECT_EQ(form.done, (Texts{"cmdCancel"}));
}

TEST_F(UserInterfaceContract, LeavingAFormWithoutACancelButtonClosesIt) {
  FolderForm form;
  person->willLeave();
  ui.showModal(form);
  EXPECT_EQ(form.done, (Texts{"closed"}));
}

TEST_F(UserInterfaceContract, AFormMayBeShownAgain) {
  BookForm form;
  person->willLeave();
  ui.showModal(form);
  form.show();
  person->willEnter({"Alarms", "ALM"});
  ui.showModal(form);
  EXPECT_EQ(form.boxText("txtBookName"), "Alarms");
  EXPECT_EQ(form.done, (Texts{"cmdCancel", "cmdOk"}));
}

TEST_F(UserInterfaceContract, ProgressWaitsForNobodyAndLeavesBoxesAlone) {
  ui.unloadProgress();
  ui.showProgress({.caption = "Quor TOC", .status = "Working", .value = 1, .maximum = 10});
  ui.hideProgress();
  ui.showProgress({.caption = "Quor TOC", .status = "Working", .value = 2, .maximum = 10});
  ui.show(criticalMessage("bad"));
  ui.unloadProgress();
  EXPECT_EQ(person->boxes(), (Texts{"critical: bad"}));
}

}  // namespace
}  // namespace quorbind::testing
