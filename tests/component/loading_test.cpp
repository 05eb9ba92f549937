// A program of its own: nothing else here may hold the component.

#include <gtest/gtest.h>

#include "platform/windows/com_types.h"
#include "quorbind_com.h"
#include "tests/component/footprint.h"
#include "tests/component/served_dll.h"
#include "tests/support/long_tier.h"

namespace quorbind::testing {
namespace {

/// Of the slots for what belongs to a thread, of which a process has about a thousand.
DWORD nextFreeSlot() {
  const DWORD slot = ::TlsAlloc();
  ::TlsFree(slot);
  return slot;
}

void loadUseAndUnload() {
  const ServedDll component(L"Quorbind.dll");
  auto book = component.create<_Quor_Book>(CLSID_Quor_Book);
  VARIANT_BOOL exists = VARIANT_TRUE;
  EXPECT_EQ(book->mbCheckQuorTOCForBook(nullptr, nullptr, nullptr, &exists), S_OK);
  book.reset();
  EXPECT_TRUE(component.mayUnload());
}

void goThroughRounds(int rounds) {
  for (int round = 0; round < rounds; ++round) {
    loadUseAndUnload();
    ASSERT_EQ(::GetModuleHandleW(L"Quorbind.dll"), nullptr);
  }
}

TEST(Loading, LeavesNothingBehindHoweverOften) {
  // The compilers' own run-time keeps 2 KB for each thread that met an error, until the thread
  // ends.
  constexpr SIZE_T kLeftByARound = 3 * 1024;
  const int rounds = inThisTier(300, 1000);
  const ComApartment apartment;
  const ServedDll toolset(L"QuorToolset.dll");
  ASSERT_EQ(toolset.registerServer(), S_OK);
  goThroughRounds(100);
  const Footprint before = footprint();
  const DWORD slot = nextFreeSlot();
  goThroughRounds(rounds);
  const Footprint after = footprint();
  EXPECT_EQ(nextFreeSlot(), slot);
  EXPECT_EQ(after.handles, before.handles);
  EXPECT_LT(after.bytes, before.bytes + static_cast<SIZE_T>(rounds) * kLeftByARound);
  EXPECT_EQ(toolset.unregisterServer(), S_OK);
}

}  // namespace
}  // namespace quorbind::testing
