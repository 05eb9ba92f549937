#include "platform/windows/automation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/raised_error.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// With an object that every system has: a dictionary.
class AutomationTest : public ::testing::Test {
 private:
  ComApartment apartment_;

 protected:
  void add(std::string_view key, std::string_view item) {
    dictionary_.call("Add", Variant::ofText(key), Variant::ofText(item));
  }

  AutomationObject dictionary_ = AutomationObject::create("Scripting.Dictionary");
};

TEST_F(AutomationTest, ArgumentsArriveInTheirOrder) {
  add("PST", "Pump Station");

  EXPECT_EQ(dictionary_.call("Item", Variant::ofText("PST")).text(), "Pump Station");
}

TEST_F(AutomationTest, MembersAreMethodsOrProperties) {
  add("PST", "Pump Station");

  EXPECT_EQ(dictionary_.call("Count").integer(), 1);
  EXPECT_TRUE(dictionary_.call("Exists", Variant::ofText("PST")).boolean());
}

TEST_F(AutomationTest, TellsWhichMembersThereAre) {
  EXPECT_TRUE(dictionary_.has("Count"));
  EXPECT_FALSE(dictionary_.has("NoSuchMember"));
}

TEST_F(AutomationTest, AMissingMemberRaises438) {
  EXPECT_EQ(errorRaisedBy([&] { dictionary_.call("NoSuchMember"); }), 438);
}

TEST_F(AutomationTest, AnObjectsOwnErrorKeepsItsNumber) {
  add("PST", "Pump Station");

  EXPECT_EQ(errorRaisedBy([&] { add("PST", "again"); }), 457);
}

TEST_F(AutomationTest, AClassThatIsNotRegisteredRaises429) {
  EXPECT_EQ(errorRaisedBy([] { AutomationObject::create("No_Such.clsClass"); }), 429);
}

TEST_F(AutomationTest, AnArrayOfVariantsIsReadAsTexts) {
  add("PST", "Pump Station");
  add("ALM", "Alarms");

  EXPECT_THAT(textsIn(dictionary_.call("Keys")), ElementsAre("PST", "ALM"));
}

TEST_F(AutomationTest, AnArrayOfTextsIsReadFromItsOwnFirstIndexOn) {
  SAFEARRAYBOUND bound{.cElements = 2, .lLbound = 5};
  VARIANT array{};
  array.vt = VT_ARRAY | VT_BSTR;
  array.parray = ::SafeArrayCreate(VT_BSTR, 1, &bound);
  LONG index = 5;
  ::SafeArrayPutElement(array.parray, &index, Bstr("first").get());
  index = 6;
  ::SafeArrayPutElement(array.parray, &index, Bstr("second").get());
  Variant value;
  *value.put() = array;

  EXPECT_THAT(textsIn(value), ElementsAre("first", "second"));
}

TEST_F(AutomationTest, AnArrayWithoutBoundsHasNoTexts) {
  Variant value;
  value.put()->vt = VT_ARRAY | VT_BSTR;

  EXPECT_THAT(textsIn(value), IsEmpty());
}

TEST_F(AutomationTest, WhatIsNoArrayOfTextsRaises13) {
  Variant numbers;
  numbers.put()->vt = VT_ARRAY | VT_I4;

  EXPECT_EQ(errorRaisedBy([&] { (void)textsIn(numbers); }), 13);
  EXPECT_EQ(errorRaisedBy([&] { (void)textsIn(Variant::ofText("text")); }), 13);
}

}  // namespace
}  // namespace quorbind::testing
