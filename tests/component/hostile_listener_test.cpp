// Listeners that do what no listener may. The component can't make them right; it must not fall
// with them, and the listeners beside them hear what they should.

#include <memory>
#include <stdexcept>
#include <thread>

#include "tests/component/events.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kNoTextFile = "TOC file is not a Text file";

/// What a listener answers when it is asked whether it hears the events.
class OddListener final : public Listener {
 public:
  std::function<HRESULT(void** object)> face;

  STDMETHODIMP QueryInterface(REFIID /*id*/, void** object) override { return face(object); }
};

/// Lives as long as somebody refers to it.
class MortalListener final : public Listener {
 public:
  explicit MortalListener(bool& isGone) : isGone_(isGone) {}
  ~MortalListener() { isGone_ = true; }

  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = Listener::Release();
    if (left == 0) {
      delete this;
    }
    return left;
  }

 private:
  bool& isGone_;
};

/// Calls the component when it is let go of.
class ClingingListener final : public Listener {
 public:
  std::function<void()> farewell;

  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = Listener::Release();
    if (left == 0) {
      farewell();
    }
    return left;
  }
};

class HostileListeners : public Events {
 protected:
  HRESULT adviseOdd(const std::function<HRESULT(void**)>& face) {
    odd.face = face;
    DWORD cookie = 7;
    const HRESULT result = point()->Advise(&odd, &cookie);
    EXPECT_EQ(cookie, 0U);
    return result;
  }
  /// Another listener hears a run as if nothing had been.
  void expectAnOrdinaryRun() {
    subscribe(second);
    runToItsEnd();
    EXPECT_THAT(second.folders, ElementsAre(""));
  }

  OddListener odd;
};

TEST_F(HostileListeners, ThatHaveNoFaceForEventsAreNotSubscribed) {
  EXPECT_EQ(adviseOdd([](void** object) {
              *object = nullptr;
              return S_OK;
            }),
            CONNECT_E_CANNOTCONNECT);
  EXPECT_EQ(adviseOdd([](void** object) {
              *object = object;
              return E_NOINTERFACE;
            }),
            CONNECT_E_CANNOTCONNECT);
  EXPECT_EQ(adviseOdd([](void**) -> HRESULT { throw std::runtime_error("not allowed here"); }),
            E_UNEXPECTED);
  expectAnOrdinaryRun();
}

TEST_F(HostileListeners, MayEndThemselvesInTheMiddleOfTheirEvent) {
  bool isGone = false;
  auto* mortal = new MortalListener(isGone);
  const DWORD cookie = subscribe(*mortal);
  mortal->reaction = [&, mortal] {
    EXPECT_EQ(point()->Unadvise(cookie), S_OK);
    EXPECT_FALSE(isGone) << mortal->references;
  };
  expectAnOrdinaryRun();
  EXPECT_TRUE(isGone);
}

TEST_F(HostileListeners, MayCallTheComponentWhenTheyAreLetGo) {
  ClingingListener clinging;
  const DWORD cookie = subscribe(clinging);
  HRESULT again = S_OK;
  DWORD newCookie = 0;
  clinging.farewell = [&] {
    again = point()->Unadvise(cookie);
    newCookie = subscribe(second);
  };
  EXPECT_EQ(point()->Unadvise(cookie), S_OK);
  EXPECT_EQ(again, CONNECT_E_NOCONNECTION);
  runToItsEnd();
  EXPECT_THAT(second.folders, ElementsAre(""));
  EXPECT_EQ(point()->Unadvise(newCookie), S_OK);
}

TEST_F(HostileListeners, ThatSubscribeOthersByTheHundredAreHeardOutFirst) {
  subscribe(first);
  std::vector<DWORD> cookies;
  first.reaction = [&] {
    for (int count = 0; count < 100; ++count) {
      cookies.push_back(subscribe(second));
    }
  };
  runToItsEnd();
  EXPECT_THAT(second.folders, IsEmpty());
  first.reaction = [&] {
    for (const DWORD cookie : cookies) {
      EXPECT_EQ(point()->Unadvise(cookie), S_OK);
    }
  };
  runToItsEnd();
  EXPECT_THAT(second.folders, IsEmpty());
  EXPECT_EQ(second.references, 0U);
}

TEST_F(HostileListeners, ThatRunTheOperationAgainAndThrowDoNotEndTheOuterRun) {
  subscribe(first);
  subscribe(second);
  int depth = 0;
  first.reaction = [&] {
    if (++depth < 4) {
      runUntilTheBox();
    }
    throw std::runtime_error("not allowed here");
  };
  const Person person([] {
    for (int box = 0; box < 4; ++box) {
      dismissMessage(kNoTextFile);
    }
  });
  runUntilTheBox();
  EXPECT_EQ(first.folders.size(), 4U);
  EXPECT_EQ(second.folders.size(), 4U);
}

TEST_F(HostileListeners, MayAskInTheirEventWhetherTheComponentCanGo) {
  subscribe(first);
  first.reaction = [&] {
    book.reset();
    EXPECT_FALSE(component.mayUnload());
  };
  runToItsEnd();
  EXPECT_TRUE(component.mayUnload());
}

/// Calls from another thread than the one that is in a call.
class OtherThreads : public Events {
 protected:
  /// Lets another thread call in the middle of a run.
  void duringARun(const std::function<void()>& deed) {
    subscribe(first);
    first.reaction = [&] { std::thread(deed).join(); };
    runToItsEnd();
  }

  HRESULT check() const {
    accepted = VARIANT_TRUE;
    return book->CheckXMLCharacters(Bstr("a").get(), Bstr("BookName").get(), &accepted);
  }

  mutable VARIANT_BOOL accepted = VARIANT_TRUE;
};

TEST_F(OtherThreads, AreRefusedInTheMiddleOfACall) {
  const auto events = point();
  duringARun([&] {
    EXPECT_EQ(check(), RPC_E_WRONG_THREAD);
    EXPECT_EQ(accepted, VARIANT_FALSE);
    DWORD cookie = 7;
    EXPECT_EQ(events->Advise(&second, &cookie), RPC_E_WRONG_THREAD);
    EXPECT_EQ(cookie, 0U);
    EXPECT_EQ(events->Unadvise(1), RPC_E_WRONG_THREAD);
    ComPtr<IEnumConnections> connections;
    EXPECT_EQ(events->EnumConnections(connections.put()), RPC_E_WRONG_THREAD);
  });
  EXPECT_THAT(first.folders, ElementsAre(""));
}

TEST_F(OtherThreads, AreRefusedWhenTheyCallByName) {
  DISPID member = DISPID_UNKNOWN;
  auto name = const_cast<LPOLESTR>(L"CreateKeywordXmlFile");
  ASSERT_EQ(book->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &member), S_OK);
  EXCEPINFO told{};
  duringARun([&] {
    VARIANT path = Variant::ofText("C:\\no\\keywords.xml").detach();
    DISPPARAMS arguments{&path, nullptr, 1, 0};
    EXPECT_EQ(book->Invoke(member,
                           IID_NULL,
                           LOCALE_USER_DEFAULT,
                           DISPATCH_METHOD,
                           &arguments,
                           nullptr,
                           &told,
                           nullptr),
              DISP_E_EXCEPTION);
    ::VariantClear(&path);
  });
  EXPECT_EQ(told.scode, RPC_E_WRONG_THREAD);
}

TEST_F(OtherThreads, AreServedBetweenTwoCalls) {
  std::thread([&] {
    const ComApartment apartmentOfItsOwn;
    EXPECT_EQ(check(), S_OK);
    EXPECT_EQ(accepted, VARIANT_TRUE);
  }).join();
  EXPECT_EQ(check(), S_OK);
}

TEST_F(OtherThreads, AreServedWithObjectsOfTheirOwnOneAfterTheOther) {
  for (int round = 0; round < 3; ++round) {
    std::thread([&] {
      const ComApartment apartmentOfItsOwn;
      const auto other = create<_Quor_Book>(CLSID_Quor_Book);
      VARIANT_BOOL result = VARIANT_FALSE;
      EXPECT_EQ(other->CheckXMLCharacters(Bstr("a").get(), Bstr("BookName").get(), &result), S_OK);
      EXPECT_EQ(result, VARIANT_TRUE);
    }).join();
  }
}

}  // namespace
}  // namespace quorbind::testing
