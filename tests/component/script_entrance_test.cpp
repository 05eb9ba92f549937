// The entrance by which script engines call the component's objects.

#include <dispex.h>

#include "tests/component/component_test.h"
#include "tests/component/window_driver.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kSortMismatch =
    "Error(13): Type mismatch\nQuorbind:Quor_Developer-frmSelPrjTypetoAdd::mQuickSort";

class ScriptEntrance : public ComponentTest {
 protected:
  DISPID idOf(std::string_view member) const {
    DISPID id = DISPID_UNKNOWN;
    EXPECT_EQ(sorter->GetDispID(Bstr(member).get(), fdexNameCaseSensitive, &id), S_OK);
    return id;
  }

  /// Arguments stand as automation wants them: last first, behind those that `names` names.
  LateAnswer call(std::vector<VARIANT> arguments, std::vector<DISPID> names = {}) const {
    DISPPARAMS parameters{arguments.data(),
                          names.data(),
                          static_cast<UINT>(arguments.size()),
                          static_cast<UINT>(names.size())};
    LateAnswer answer;
    EXCEPINFO exception{};
    answer.result = sorter->InvokeEx(idOf("mQuickSort"),
                                     LOCALE_USER_DEFAULT,
                                     DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                                     &parameters,
                                     answer.value.put(),
                                     &exception,
                                     nullptr);
    return answer;
  }

  ComPtr<IDispatchEx> sorter = create<IDispatchEx>(CLSID_cSort);
};

TEST_F(ScriptEntrance, AnswersTextsInAnArrayOfVariantsWithTheBoundsOfTheCallersArray) {
  Variant names = arrayOf(VT_VARIANT, {"pear", "Apple", "fig"}, 5);
  const LateAnswer answer = call({number(7), number(5), variable(names)});
  ASSERT_EQ(answer.result, S_OK);
  EXPECT_EQ(answer.value.type(), VT_ARRAY | VT_VARIANT);
  EXPECT_THAT(textsIn(answer.value), ElementsAre("Apple", "fig", "pear"));
  LONG lowerBound = 0;
  ASSERT_EQ(::SafeArrayGetLBound(answer.value.get().parray, 1, &lowerBound), S_OK);
  EXPECT_EQ(lowerBound, 5);
  EXPECT_THAT(textsIn(names), ElementsAre("Apple", "fig", "pear"));
}

TEST_F(ScriptEntrance, AnswersAnArrayWithoutBoundsAfterAFailure) {
  Variant numbers = numberArray();
  const Person person([] { dismissMessage(kSortMismatch); });
  const LateAnswer answer = call({number(1), number(0), variable(numbers)});
  EXPECT_EQ(answer.result, S_OK);
  EXPECT_EQ(answer.value.type(), VT_ARRAY | VT_VARIANT);
  EXPECT_EQ(answer.value.get().parray, nullptr);
  EXPECT_THAT(textsIn(answer.value), IsEmpty());
}

TEST_F(ScriptEntrance, NeedsNoPlaceForTheResult) {
  Variant names = arrayOf(VT_VARIANT, {"b", "a"});
  std::vector<VARIANT> arguments{number(1), number(0), variable(names)};
  DISPPARAMS parameters{arguments.data(), nullptr, 3, 0};
  EXPECT_EQ(sorter->InvokeEx(
                idOf("mQuickSort"), 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr),
            S_OK);
  EXPECT_THAT(textsIn(names), ElementsAre("a", "b"));
  EXPECT_EQ(
      sorter->InvokeEx(idOf("mQuickSort"), 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr),
      E_INVALIDARG);
}

TEST_F(ScriptEntrance, LeavesOutTheObjectThatAnEnginePassesAsThis) {
  Variant names = arrayOf(VT_VARIANT, {"b", "a"});
  const Variant self = Variant::ofObject(sorter.as<IDispatch>());
  const LateAnswer answer =
      call({self.get(), number(1), number(0), variable(names)}, {DISPID_THIS});
  ASSERT_EQ(answer.result, S_OK);
  EXPECT_THAT(textsIn(answer.value), ElementsAre("a", "b"));
}

TEST_F(ScriptEntrance, KnowsTheMembersThatTheOtherEntranceKnows) {
  EXPECT_EQ(idOf("mQuickSort"), 1);
  EXPECT_EQ(idOf("MQUICKSORT"), 1);
  Bstr name;
  EXPECT_EQ(sorter->GetMemberName(1, name.put()), S_OK);
  EXPECT_EQ(name.text(), "mQuickSort");

  DISPID id = 7;
  EXPECT_EQ(sorter->GetDispID(Bstr("bubbleSort").get(), fdexNameEnsure, &id), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(id, DISPID_UNKNOWN);
  EXPECT_EQ(sorter->GetMemberName(2, name.put()), DISP_E_MEMBERNOTFOUND);
}

TEST_F(ScriptEntrance, RefusesNullPlaces) {
  DISPID id = 0;
  EXPECT_EQ(sorter->GetDispID(nullptr, 0, &id), E_INVALIDARG);
  EXPECT_EQ(sorter->GetDispID(Bstr("mQuickSort").get(), 0, nullptr), E_POINTER);
  EXPECT_EQ(sorter->GetMemberName(1, nullptr), E_POINTER);
}

TEST_F(ScriptEntrance, LetsMembersNeitherBeListedNorDeleted) {
  DISPID next = 0;
  EXPECT_EQ(sorter->GetNextDispID(fdexEnumAll, DISPID_STARTENUM, &next), S_FALSE);
  EXPECT_EQ(sorter->DeleteMemberByDispID(1), S_FALSE);
  EXPECT_EQ(sorter->DeleteMemberByName(Bstr("mQuickSort").get(), 0), S_FALSE);
  EXPECT_EQ(idOf("mQuickSort"), 1);
}

}  // namespace
}  // namespace quorbind::testing
