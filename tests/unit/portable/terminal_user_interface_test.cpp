#include "platform/portable/terminal_user_interface.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "platform/abandoned.h"
#include "platform/portable/visible_text.h"

namespace quorbind::testing {
namespace {

/// The book dialog without its rules: OK keeps it open while the acronym is `refusedAcronym`.
class BookForm final : public ModalForm {
 public:
  [[nodiscard]] std::string_view name() const override { return "frmBookInfo"; }
  [[nodiscard]] bool isShown() const override { return shown; }
  [[nodiscard]] std::string labelText(std::string_view) const override { return fileLabel; }
  [[nodiscard]] std::string boxText(std::string_view box) const override {
    const auto found = values.find(box);
    return found == values.end() ? std::string() : found->second;
  }
  void type(std::string_view box, std::string_view text) override {
    values[std::string(box)] = text;
  }
  void click(std::string_view button) override {
    clicked += std::string(button) + " ";
    shown = button == "cmdOk" && boxText("txtBookAcro") == refusedAcronym;
  }
  void closeByUser() override { shown = false; }

  bool shown = true;
  std::string fileLabel = "toc.txt";
  std::string refusedAcronym = "?";
  std::string clicked;
  std::map<std::string, std::string, std::less<>> values;
};

/// A form without a cancel button.
class FolderForm final : public ModalForm {
 public:
  [[nodiscard]] std::string_view name() const override { return "frmBookFolder"; }
  [[nodiscard]] bool isShown() const override { return shown; }
  [[nodiscard]] std::string labelText(std::string_view) const override { return {}; }
  [[nodiscard]] std::string boxText(std::string_view) const override { return folder; }
  void type(std::string_view, std::string_view text) override { folder = text; }
  void click(std::string_view) override { shown = false; }
  void closeByUser() override {
    shown = false;
    closed = true;
  }

  bool shown = true;
  bool closed = false;
  std::string folder;
};

class TerminalTest : public ::testing::Test {
 protected:
  /// A person who types `lines`; after them the input is at its end.
  TerminalUserInterface withPerson(const std::string& lines,
                                   std::vector<PreparedAnswer> answers = {}) {
    input.str(lines);
    return {{.output = output, .input = &input}, std::move(answers)};
  }
  TerminalUserInterface withoutPerson(std::vector<PreparedAnswer> answers = {}) {
    return {{.output = output}, std::move(answers)};
  }

  static PreparedAnswer name(std::optional<std::string> text, bool used = false) {
    return {"frmBookInfo", "txtBookName", "--name", std::move(text), used};
  }
  static PreparedAnswer acronym(std::optional<std::string> text, bool used = false) {
    return {"frmBookInfo", "txtBookAcro", "--acro", std::move(text), used};
  }
  static PreparedAnswer folder(std::optional<std::string> text) {
    return {"frmBookFolder", "Text1", "--folder", std::move(text)};
  }

  /// Shows `form`, expects that the run is given up, and answers why.
  static Abandoned abandonedBy(TerminalUserInterface& ui, ModalForm& form) {
    try {
      ui.showModal(form);
    } catch (const Abandoned& abandoned) {
      return abandoned;
    }
    ADD_FAILURE() << "the run goes on";
    return {AbandonReason::kAnswerMissing, ""};
  }

  std::ostringstream output;
  std::istringstream input;
  BookForm bookForm;
  FolderForm folderForm;
};

// Boxes.

TEST_F(TerminalTest, ABoxIsItsIconWordAndItsText) {
  auto ui = withoutPerson();
  ui.show({.text = "Folder is gone", .icon = MessageIcon::kCritical});
  ui.show({.text = "Folder is new", .icon = MessageIcon::kInformation});
  ui.show({.text = "Folder is there"});
  EXPECT_EQ(output.str(),
            "critical: Folder is gone\n"
            "information: Folder is new\n"
            "message: Folder is there\n");
}

TEST_F(TerminalTest, ALoneCarriageReturnIsShownAsALineBreak) {
  auto ui = withoutPerson();
  ui.show(criticalMessage("Line: x\rError: bad\r\nthird\nfourth"));
  EXPECT_EQ(output.str(), "critical: Line: x\nError: bad\nthird\nfourth\n");
}

TEST_F(TerminalTest, TheClipboardTextStandsUnderItsBoxAsTheOffendingLine) {
  auto ui = withoutPerson();
  ui.show(criticalMessage("Error: bad"));
  ui.putOnClipboard("\"1\" \"Alarms\"");
  EXPECT_EQ(output.str(),
            "critical: Error: bad\n"
            "offending line: \"1\" \"Alarms\"\n");
}

TEST_F(TerminalTest, ControlCharactersAreShownAndNotObeyed) {
  auto ui = withoutPerson();
  ui.show(
      criticalMessage("\x1B[2J\a\x7F \xC2\x9B"
                      "31m caf\xC3\xA9\ttab"));
  EXPECT_EQ(output.str(), "critical: \\x1B[2J\\x07\\x7F \\x9B31m caf\xC3\xA9\ttab\n");
}

TEST_F(TerminalTest, BytesThatAreNoTextAreReplaced) {
  auto ui = withoutPerson();
  ui.show(criticalMessage("a\xFF"));
  EXPECT_EQ(output.str(), "critical: a\xEF\xBF\xBD\n");
}

TEST_F(TerminalTest, ALineBeyondTheLimitIsCutBetweenCharacters) {
  auto ui = withoutPerson();
  ui.putOnClipboard(std::string(kLongestVisibleLine - 1, 'x') + "\xC3\xA9" + "tail");
  EXPECT_EQ(
      output.str(),
      "offending line: " + std::string(kLongestVisibleLine - 1, 'x') + "... (6 more bytes)\n");
}

TEST_F(TerminalTest, OnlyTheCriticalWordIsColoured) {
  TerminalUserInterface ui({.output = output, .hasColours = true}, {});
  ui.show(criticalMessage("bad"));
  ui.show({.text = "good", .icon = MessageIcon::kInformation});
  EXPECT_EQ(output.str(), "\x1B[1;31mcritical:\x1B[0m bad\ninformation: good\n");
}

TEST_F(TerminalTest, APathIsShownUnderTheNameThatTheUserKnows) {
  auto ui = withoutPerson();
  ui.showPathAs("\\srv\\quorbind-abc.txt", "toc.txt");
  ui.show(criticalMessage("TOC not found at Path\r\\srv\\quorbind-abc.txt"));
  EXPECT_EQ(output.str(), "critical: TOC not found at Path\ntoc.txt\n");
}

TEST_F(TerminalTest, TheRecordHoldsEveryBoxAsItWasGiven) {
  auto ui = withoutPerson();
  ui.show({.text = "a\rb", .icon = MessageIcon::kCritical, .errorNumber = 70});
  ui.putOnClipboard("line \x1B");
  ui.show({.text = "c", .title = "Categories"});

  ASSERT_EQ(ui.shown().size(), 2U);
  EXPECT_EQ(ui.shown()[0].icon, MessageIcon::kCritical);
  EXPECT_EQ(ui.shown()[0].title, "Quorbind");
  EXPECT_EQ(ui.shown()[0].text, "a\rb");
  EXPECT_EQ(ui.shown()[0].clipboard, "line \x1B");
  EXPECT_EQ(ui.shown()[0].errorNumber, 70);
  EXPECT_EQ(ui.shown()[1].title, "Categories");
  EXPECT_EQ(ui.shown()[1].clipboard, std::nullopt);
}

TEST_F(TerminalTest, ABoxIsSettledAsSoonAsAPersonIsAskedAgain) {
  auto ui = withPerson("Alarms\nALM\n");
  ui.show(criticalMessage("refused"));
  EXPECT_FALSE(ui.shown()[0].isSettled);
  ui.showModal(bookForm);
  ui.show(criticalMessage("refused as well"));
  EXPECT_TRUE(ui.shown()[0].isSettled);
  EXPECT_FALSE(ui.shown()[1].isSettled);
}

TEST_F(TerminalTest, AFormThatTheFlagsAnswerSettlesNothing) {
  auto ui = withoutPerson({name("Alarms"), acronym("ALM")});
  ui.show(criticalMessage("refused"));
  ui.showModal(bookForm);
  EXPECT_FALSE(ui.shown()[0].isSettled);
}

// Answers given beforehand.

TEST_F(TerminalTest, AFormThatTheFlagsAnswerIsNotShown) {
  auto ui = withoutPerson({name("Alarms"), acronym("ALM")});
  ui.showModal(bookForm);
  EXPECT_EQ(bookForm.boxText("txtBookName"), "Alarms");
  EXPECT_EQ(bookForm.boxText("txtBookAcro"), "ALM");
  EXPECT_EQ(bookForm.clicked, "cmdOk ");
  EXPECT_EQ(output.str(), "");
}

TEST_F(TerminalTest, AFormWhoseValuesBreakTheHostsRuleComesBackWithoutItsOwnHandlersWork) {
  auto ui = withPerson("\nALM\n", {name("Alarms"), acronym("alm")});
  ui.holdFormsTo([&ui](const ModalForm& form) {
    const bool isFree = form.boxText("txtBookAcro") != "alm";
    if (!isFree) {
      ui.show(criticalMessage("taken"));
    }
    return isFree;
  });
  ui.showModal(bookForm);
  EXPECT_EQ(bookForm.boxText("txtBookAcro"), "ALM");
  EXPECT_EQ(bookForm.clicked, "cmdOk ");
  EXPECT_TRUE(output.str().starts_with("critical: taken\n")) << output.str();
}

TEST_F(TerminalTest, WithoutAPersonFlagsThatBreakTheHostsRuleAreRefused) {
  auto ui = withoutPerson({name("Alarms"), acronym("alm")});
  ui.holdFormsTo([](const ModalForm& /*form*/) { return false; });
  const Abandoned abandoned = abandonedBy(ui, bookForm);
  EXPECT_EQ(abandoned.reason(), AbandonReason::kAnswerRefused);
  EXPECT_STREQ(abandoned.what(), "other values are needed for --name and --acro");
  EXPECT_EQ(bookForm.clicked, "");
}

TEST_F(TerminalTest, WithoutAPersonAMissingAnswerNamesItsFlag) {
  auto ui = withoutPerson({name("Alarms"), acronym(std::nullopt)});
  const Abandoned abandoned = abandonedBy(ui, bookForm);
  EXPECT_EQ(abandoned.reason(), AbandonReason::kAnswerMissing);
  EXPECT_STREQ(abandoned.what(), "give --acro");
}

TEST_F(TerminalTest, WithoutAPersonSeveralMissingAnswersAreNamedTogether) {
  auto ui = withoutPerson({name(std::nullopt), acronym(std::nullopt)});
  EXPECT_STREQ(abandonedBy(ui, bookForm).what(), "give --name and --acro");
}

TEST_F(TerminalTest, AValueThatTheFormSuggestsIsNoAnswer) {
  auto ui = withoutPerson({name(std::nullopt), acronym("ALM")});
  bookForm.values["txtBookName"] = "From the first entry";
  EXPECT_STREQ(abandonedBy(ui, bookForm).what(), "give --name");
}

TEST_F(TerminalTest, AnAnswerThatTheFormRefusesIsRefused) {
  auto ui = withoutPerson({name("Alarms"), acronym("A/B")});
  bookForm.refusedAcronym = "A/B";
  const Abandoned abandoned = abandonedBy(ui, bookForm);
  EXPECT_EQ(abandoned.reason(), AbandonReason::kAnswerRefused);
  EXPECT_STREQ(abandoned.what(), "other values are needed for --name and --acro");
}

TEST_F(TerminalTest, AFlagAnswersOnce) {
  auto ui = withoutPerson({name("Alarms"), acronym("ALM")});
  ui.showModal(bookForm);
  bookForm.shown = true;
  EXPECT_EQ(abandonedBy(ui, bookForm).reason(), AbandonReason::kAnswerRefused);
}

TEST_F(TerminalTest, AFlagThatIsGivenSeveralTimesAnswersEachFormInTurn) {
  auto ui = withoutPerson({name("Alarms"), acronym("ALM"), name("Bells"), acronym("BLL")});
  ui.showModal(bookForm);
  bookForm.shown = true;
  ui.showModal(bookForm);
  EXPECT_EQ(bookForm.boxText("txtBookName"), "Bells");
  EXPECT_EQ(bookForm.boxText("txtBookAcro"), "BLL");
  bookForm.shown = true;
  EXPECT_STREQ(abandonedBy(ui, bookForm).what(), "other values are needed for --name and --acro");
}

TEST_F(TerminalTest, AFormThatIsKnownToComeBackLeavesTheAnswersForTheNext) {
  auto ui = withPerson("More\nMOR\n", {name("Alarms"), acronym("ALM")});
  bool comesBack = true;
  ui.knowReturnsBy([&comesBack](const ModalForm& /*form*/) { return comesBack; });
  ui.showModal(bookForm);
  EXPECT_EQ(bookForm.boxText("txtBookAcro"), "MOR");
  comesBack = false;
  bookForm.shown = true;
  ui.showModal(bookForm);
  EXPECT_EQ(bookForm.boxText("txtBookAcro"), "ALM");
}

TEST_F(TerminalTest, AnAnswerThatTheProgramWasGivenOtherwiseIsUsedUp) {
  auto ui = withoutPerson({name("Alarms", true), acronym("ALM", true)});
  EXPECT_EQ(abandonedBy(ui, bookForm).reason(), AbandonReason::kAnswerRefused);
}

TEST_F(TerminalTest, TheAnswerOfOneFormIsNoneOfAnother) {
  auto ui = withoutPerson({name("Alarms"), acronym("ALM"), folder(std::nullopt)});
  ui.showModal(bookForm);
  const Abandoned abandoned = abandonedBy(ui, folderForm);
  EXPECT_EQ(abandoned.reason(), AbandonReason::kAnswerMissing);
  EXPECT_STREQ(abandoned.what(), "give --folder");
}

// Questions.

TEST_F(TerminalTest, APersonIsAskedBoxByBox) {
  auto ui = withPerson("Alarms\nALM\n");
  ui.showModal(bookForm);
  EXPECT_EQ(output.str(),
            "Book Information\n"
            "Enter Book Information for :\n"
            "toc.txt\n"
            "Book Name: Book Acro: ");
  EXPECT_EQ(bookForm.boxText("txtBookName"), "Alarms");
  EXPECT_EQ(bookForm.boxText("txtBookAcro"), "ALM");
  EXPECT_EQ(bookForm.clicked, "cmdOk ");
}

TEST_F(TerminalTest, AnEmptyAnswerKeepsTheValueThatIsOffered) {
  auto ui = withPerson("\nALM\n");
  bookForm.values["txtBookName"] = "Alarms";
  ui.showModal(bookForm);
  EXPECT_NE(output.str().find("Book Name: [Alarms] "), std::string::npos);
  EXPECT_EQ(bookForm.boxText("txtBookName"), "Alarms");
}

TEST_F(TerminalTest, APersonIsAskedOnlyForWhatTheFlagsLeaveOpen) {
  auto ui = withPerson("ALM\n", {name("Alarms"), acronym(std::nullopt)});
  ui.showModal(bookForm);
  EXPECT_EQ(output.str(),
            "Book Information\n"
            "Enter Book Information for :\n"
            "toc.txt\n"
            "Book Acro: ");
  EXPECT_EQ(bookForm.boxText("txtBookName"), "Alarms");
}

TEST_F(TerminalTest, AFormThatStaysOpenIsAskedWholeAgain) {
  auto ui = withPerson("\nALM\n", {name("Alarms"), acronym("A/B")});
  bookForm.refusedAcronym = "A/B";
  ui.showModal(bookForm);
  EXPECT_NE(output.str().find("Book Name: [Alarms] Book Acro: [A/B] "), std::string::npos);
  EXPECT_EQ(bookForm.boxText("txtBookAcro"), "ALM");
  EXPECT_EQ(bookForm.clicked, "cmdOk cmdOk ");
}

TEST_F(TerminalTest, TheEndOfInputPressesCancel) {
  auto ui = withPerson("Alarms\n");
  ui.showModal(bookForm);
  EXPECT_EQ(bookForm.clicked, "cmdCancel ");
}

TEST_F(TerminalTest, TheEndOfInputClosesAFormWithoutACancelButton) {
  auto ui = withPerson("");
  ui.showModal(folderForm);
  EXPECT_TRUE(folderForm.closed);
  EXPECT_EQ(output.str(), "Enter Book Folder\nBook Folder: \n");
}

TEST_F(TerminalTest, AnInputThatHasEndedForGoodGivesTheRunUp) {
  auto ui = withPerson("", {folder(std::nullopt)});
  ui.showModal(folderForm);
  folderForm.shown = true;
  const Abandoned abandoned = abandonedBy(ui, folderForm);
  EXPECT_EQ(abandoned.reason(), AbandonReason::kAnswerMissing);
  EXPECT_STREQ(abandoned.what(), "give --folder");
}

TEST_F(TerminalTest, APersonMayGoOnAfterAnEndOfInput) {
  auto ui = withPerson("");
  ui.showModal(folderForm);
  folderForm.shown = true;
  input.str("Manual\n");
  ui.showModal(folderForm);
  EXPECT_EQ(folderForm.folder, "Manual");
}

TEST_F(TerminalTest, AnAnswerThatIsNoTextIsMadeOne) {
  auto ui = withPerson("Ger\xE4te\n");
  ui.showModal(folderForm);
  EXPECT_EQ(folderForm.folder, "Ger\xEF\xBF\xBDte");
}

// Progress.

TEST_F(TerminalTest, ProgressIsNotShownOffATerminal) {
  auto ui = withoutPerson();
  ui.showProgress({.caption = "Quor TOC", .status = "Copying", .value = 5, .maximum = 10});
  ui.unloadProgress();
  EXPECT_EQ(output.str(), "");
}

TEST_F(TerminalTest, ProgressIsOneLineThatIsRewrittenAndThenCleared) {
  TerminalUserInterface ui({.output = output, .showsProgress = true}, {});
  ui.showProgress({.caption = "Quor TOC", .status = "Checking", .value = 0, .maximum = 10});
  ui.showProgress({.caption = "Quor TOC", .status = "Done", .value = 10, .maximum = 10});
  ui.unloadProgress();
  const std::string blank31(31, ' ');
  const std::string blank27(27, ' ');
  EXPECT_EQ(output.str(),
            "[....................] Checking"
            "\r" +
                blank31 +
                "\r"
                "[####################] Done"
                "\r" +
                blank27 + "\r");
}

TEST_F(TerminalTest, ABoxTakesThePlaceOfTheProgressLine) {
  TerminalUserInterface ui({.output = output, .showsProgress = true}, {});
  ui.showProgress({.caption = "Quor TOC", .status = "x", .value = 5, .maximum = 10});
  ui.show(criticalMessage("bad"));
  const std::string blank24(24, ' ');
  EXPECT_EQ(output.str(), "[##########..........] x\r" + blank24 + "\rcritical: bad\n");
}

TEST_F(TerminalTest, ProgressBeyondItsMaximumFillsTheBar) {
  TerminalUserInterface ui({.output = output, .showsProgress = true}, {});
  ui.showProgress({.caption = "Quor TOC", .status = "x", .value = 5, .maximum = 0});
  EXPECT_EQ(output.str(), "[####################] x");
}

}  // namespace
}  // namespace quorbind::testing
