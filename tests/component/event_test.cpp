#include <stdexcept>

#include "tests/component/events.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(Events, ReachEveryListenerOncePerRun) {
  subscribe(first);
  subscribe(second);
  runToItsEnd();
  EXPECT_THAT(first.folders, ElementsAre(""));
  EXPECT_THAT(second.folders, ElementsAre(""));
  runToItsEnd();
  EXPECT_THAT(first.folders, ElementsAre("", ""));
  book.reset();
  EXPECT_EQ(first.references, 0U);
  EXPECT_EQ(second.references, 0U);
}

TEST_F(Events, DoNotReachAListenerThatHasUnsubscribed) {
  const DWORD cookie = subscribe(first);
  EXPECT_EQ(point()->Unadvise(cookie), S_OK);
  EXPECT_EQ(first.references, 0U);
  runToItsEnd();
  EXPECT_THAT(first.folders, IsEmpty());
  EXPECT_EQ(point()->Unadvise(cookie), CONNECT_E_NOCONNECTION);
}

TEST_F(Events, ReachTheNextListenerAlthoughOneFails) {
  for (const HRESULT failure : {DISP_E_EXCEPTION, E_FAIL, DISP_E_MEMBERNOTFOUND}) {
    first.answer = failure;
    second.folders.clear();
    const DWORD one = subscribe(first);
    const DWORD other = subscribe(second);
    runToItsEnd();
    EXPECT_THAT(second.folders, ElementsAre(""));
    EXPECT_EQ(point()->Unadvise(one), S_OK);
    EXPECT_EQ(point()->Unadvise(other), S_OK);
  }
}

TEST_F(Events, LetAListenerUnsubscribeItselfAndTheNextOne) {
  const DWORD one = subscribe(first);
  const DWORD other = subscribe(second);
  first.reaction = [&] {
    EXPECT_EQ(point()->Unadvise(one), S_OK);
    EXPECT_EQ(point()->Unadvise(other), S_OK);
  };
  runToItsEnd();
  EXPECT_THAT(first.folders, ElementsAre(""));
  EXPECT_THAT(second.folders, IsEmpty());
  EXPECT_EQ(first.references + second.references, 0U);
}

TEST_F(Events, LetAListenerCallTheComponentAgain) {
  subscribe(first);
  bool isFirstEvent = true;
  first.reaction = [&] {
    if (std::exchange(isFirstEvent, false)) {
      runUntilTheBox();
    }
  };
  const Person person([] {
    dismissMessage("TOC file is not a Text file");
    dismissMessage("TOC file is not a Text file");
  });
  runUntilTheBox();
  EXPECT_THAT(first.folders, ElementsAre("", ""));
}

TEST_F(Events, ReachTheNextListenerAlthoughOneThrows) {
  subscribe(first);
  subscribe(second);
  first.reaction = [] { throw std::runtime_error("not allowed here"); };
  runToItsEnd();
  EXPECT_THAT(first.folders, ElementsAre(""));
  EXPECT_THAT(second.folders, ElementsAre(""));
}

TEST_F(Events, LetAListenerLetGoOfTheObjectWhichStaysUntilTheRunHasEnded) {
  subscribe(first);
  const auto left = point();
  const auto ownerOf = [](const ComPtr<IConnectionPoint>& connectionPoint) {
    ComPtr<IConnectionPointContainer> owner;
    return connectionPoint->GetConnectionPointContainer(owner.put());
  };
  first.reaction = [&] {
    book.reset();
    EXPECT_EQ(ownerOf(left), S_OK);
  };
  runToItsEnd();
  EXPECT_EQ(ownerOf(left), E_UNEXPECTED);
  EXPECT_EQ(first.references, 0U);
}

TEST_F(Events, OfAnotherInterfaceHaveNoConnectionPoint) {
  ComPtr<IConnectionPoint> none;
  const auto container = book.as<IConnectionPointContainer>();
  EXPECT_EQ(container->FindConnectionPoint(IID_IDispatch, none.put()), CONNECT_E_NOCONNECTION);
  EXPECT_FALSE(none);
  EXPECT_EQ(container->FindConnectionPoint(DIID___Quor_Book, nullptr), E_POINTER);
  EXPECT_EQ(container->EnumConnectionPoints(nullptr), E_POINTER);
}

TEST_F(Events, AreFoundByWalkingTheConnectionPoints) {
  ComPtr<IEnumConnectionPoints> points;
  ASSERT_EQ(book.as<IConnectionPointContainer>()->EnumConnectionPoints(points.put()), S_OK);
  ComPtr<IConnectionPoint> found;
  ULONG count = 0;
  ASSERT_EQ(points->Next(1, found.put(), &count), S_OK);
  EXPECT_EQ(count, 1U);
  IID id{};
  EXPECT_EQ(found->GetConnectionInterface(&id), S_OK);
  EXPECT_TRUE(::IsEqualIID(id, DIID___Quor_Book));
  ComPtr<IConnectionPointContainer> container;
  EXPECT_EQ(found->GetConnectionPointContainer(container.put()), S_OK);
  EXPECT_EQ(container.as<IUnknown>().get(), book.as<IUnknown>().get());

  ComPtr<IConnectionPoint> none;
  EXPECT_EQ(points->Next(1, none.put(), &count), S_FALSE);
  EXPECT_EQ(count, 0U);
  EXPECT_EQ(points->Skip(1), S_FALSE);
  EXPECT_EQ(points->Reset(), S_OK);
  EXPECT_EQ(points->Skip(1), S_OK);
}

TEST_F(Events, HaveTheirListenersInTheOrderInWhichTheySubscribed) {
  const DWORD one = subscribe(first);
  const DWORD other = subscribe(second);
  ComPtr<IEnumConnections> connections;
  ASSERT_EQ(point()->EnumConnections(connections.put()), S_OK);
  ComPtr<IEnumConnections> clone;
  ASSERT_EQ(connections->Skip(1), S_OK);
  ASSERT_EQ(connections->Clone(clone.put()), S_OK);
  ASSERT_EQ(connections->Reset(), S_OK);

  CONNECTDATA listeners[3]{};
  ULONG count = 0;
  EXPECT_EQ(connections->Next(3, listeners, &count), S_FALSE);
  ASSERT_EQ(count, 2U);
  EXPECT_EQ(listeners[0].dwCookie, one);
  EXPECT_EQ(listeners[1].dwCookie, other);
  listeners[0].pUnk->Release();
  listeners[1].pUnk->Release();

  EXPECT_EQ(clone->Next(1, listeners, nullptr), S_OK);
  EXPECT_EQ(listeners[0].dwCookie, other);
  listeners[0].pUnk->Release();
}

TEST_F(Events, RefuseAListenerThatCanNotBeCalled) {
  const auto deaf = component.factoryOf(CLSID_cSort);
  DWORD cookie = 7;
  EXPECT_EQ(point()->Advise(deaf.get(), &cookie), CONNECT_E_CANNOTCONNECT);
  EXPECT_EQ(cookie, 0U);
  EXPECT_EQ(point()->Advise(nullptr, &cookie), E_POINTER);
  EXPECT_EQ(point()->Advise(&first, nullptr), E_POINTER);
}

TEST_F(Events, EndWithTheirObject) {
  const auto left = point();
  subscribe(first);
  book.reset();
  EXPECT_EQ(first.references, 0U);
  DWORD cookie = 0;
  EXPECT_EQ(left->Advise(&first, &cookie), E_UNEXPECTED);
  ComPtr<IConnectionPointContainer> none;
  EXPECT_EQ(left->GetConnectionPointContainer(none.put()), E_UNEXPECTED);
}

}  // namespace
}  // namespace quorbind::testing
