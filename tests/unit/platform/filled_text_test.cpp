#include "platform/filled_text.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace quorbind {
namespace {

TEST(FilledText, HasItsWordsInBracesPutIn) {
  EXPECT_EQ(filledText("{FILE}: the element {ELEMENT} is missing",
                       {{"ELEMENT", "LINKS"}, {"FILE", "a.xml"}, {"OTHER", "not used"}}),
            "a.xml: the element LINKS is missing");
}

TEST(FilledText, LeavesBracesOfAValueAsTheyAre) {
  EXPECT_EQ(filledText("{A} and {B}", {{"A", "{B}"}, {"B", "{A}"}}), "{B} and {A}");
}

TEST(FilledText, NeedsEachOfItsWords) {
  EXPECT_THROW(filledText("{A}", {{"B", ""}}), std::logic_error);
}

}  // namespace
}  // namespace quorbind
