// A table of contents that breaks a rule, as a person at the screen sees it.

#include "tests/component/component_test.h"
#include "tests/component/window_driver.h"
#include "tests/support/catalogue_text.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;

constexpr std::string_view kHeader =
    "\"Node Level\" \"Node Name\" \"File Name\" \"Sub Link\"\r\n\r\n"
    "\"1\" \"Pump Station\" \"Manual\\cover.htm\" \"\"\r\n";
constexpr std::string_view kWrongLine =
    "\"3\" \"Chemicals & filters\" \"Manual\\safety.htm\" \"#chemicals\"";

class RuleViolation : public ComponentTest {
 protected:
  RuleViolation() {
    folder.write("toc.txt", std::string(kHeader).append(kWrongLine) + "\r\n");
    folder.write("Docs/Plant/Quor_TOC.xml", catalogueWith(""));
  }

  bool addTheBook() const {
    const auto path = [this](const char* name) { return Bstr(folder.path().string() + name); };
    const auto book = create<_Quor_Book>(CLSID_Quor_Book);
    VARIANT_BOOL finished = VARIANT_FALSE;
    EXPECT_EQ(book->Book_Valuator(path("\\toc.txt").get(),
                                  path("\\Docs\\Plant\\Quor_TOC.xml").get(),
                                  4,
                                  Bstr("Plant").get(),
                                  nullptr,
                                  nullptr,
                                  nullptr,
                                  nullptr,
                                  nullptr,
                                  nullptr,
                                  nullptr,
                                  nullptr,
                                  0,
                                  VARIANT_FALSE,
                                  path("\\Docs\\").get(),
                                  &finished),
              S_OK);
    return finished != VARIANT_FALSE;
  }

  TemporaryFolder folder;
};

TEST_F(RuleViolation, IsShownOverTheProgressWindowAndItsLinePutOnTheClipboard) {
  const auto before = folder.contents();
  {
    const Person person([] {
      const ScreenWindow box = windowCalled("Quorbind");
      EXPECT_EQ(box.messageText(),
                "Line: " + std::string(kWrongLine) + "\nError:Invalid Node Level Sequence ");
      EXPECT_EQ(box.messageIcon(), "critical");
      const ScreenWindow progress = windowCalled("Quor TOC");
      EXPECT_EQ(box.owner().handle(), progress.handle());
      EXPECT_THAT(progress.contents(),
                  ElementsAre("label MS Sans Serif: Status:",
                              "label MS Sans Serif: Toc Validation in Progress...",
                              "bar 0/10"));
      box.waitForKeyboard();
      photograph({progress, box}, "rule-violation");
      box.press(VK_RETURN);
    });
    EXPECT_TRUE(addTheBook());
  }
  EXPECT_EQ(clipboardText(), kWrongLine);
  EXPECT_FALSE(isOnScreen("Quor TOC"));
  EXPECT_EQ(folder.contents(), before);
}

}  // namespace
}  // namespace quorbind::testing
