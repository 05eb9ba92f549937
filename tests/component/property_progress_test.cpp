// The progress window of setting a book's properties.

#include "tests/component/progress_notes.h"
#include "tests/component/window_driver.h"
#include "tests/operations/operations_test.h"
#include "tests/support/book_text.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;

constexpr const char* kCaption = "Book Configuration in Progress....";

using PropertyProgress = OperationsTest;

TEST_P(PropertyProgress, TellsOfTheCopyAndOfBothFiles) {
  const BookCase alarms{"Alarms", "ALM", "", {}};
  write("Quor_TOC.xml", catalogueWith(entryOf(alarms)));
  write("Manual/Book_ALM.xml", bookXmlOf(alarms));
  const ProgressNotes notes;
  EXPECT_EQ(call("mbsetQuorBookProperties",
                 {"C:\\Quor_TOC.xml", "Alarms", array({"Safety"}), "New", "link"}),
            "True");
  EXPECT_FALSE(isOnScreen(kCaption));
  const auto view = [](const std::string& status, const std::string& value) {
    return std::string(kCaption) +
           " | label MS Sans Serif: Status: | label MS Sans Serif: " + status + " | bar " + value +
           "/10";
  };
  const std::string copying = "Copying files to new path";
  const std::string catalogue = "Updating Quor_TOC.XML with Book Info";
  const std::string book = "Updating BookXML with Book Info ";
  EXPECT_THAT(notes.all(),
              ElementsAre(view("", "0"),
                          view(copying, "0"),
                          view(copying, "2"),
                          view(copying, "4"),
                          view(catalogue, "4"),
                          view(catalogue, "6"),
                          view(book, "6"),
                          view(book, "10")));
}

QUOR_IN_EVERY_WAY(PropertyProgress);

}  // namespace
}  // namespace quorbind::testing
