// A program of its own: nothing else here may hold the component.

#include <gtest/gtest.h>

#include "platform/windows/com_types.h"
#include "quorbind_com.h"
#include "tests/component/served_dll.h"

namespace quorbind::testing {
namespace {

DWORD handleCount() {
  DWORD count = 0;
  ::GetProcessHandleCount(::GetCurrentProcess(), &count);
  return count;
}

void loadUseAndUnload() {
  const ServedDll component(L"Quorbind.dll");
  auto book = component.create<_Quor_Book>(CLSID_Quor_Book);
  VARIANT_BOOL exists = VARIANT_TRUE;
  EXPECT_EQ(book->mbCheckQuorTOCForBook(nullptr, nullptr, nullptr, &exists), S_OK);
  book.reset();
  EXPECT_TRUE(component.mayUnload());
}

TEST(Loading, LeavesNothingBehindAfterAHundredRounds) {
  const ComApartment apartment;
  const ServedDll toolset(L"QuorToolset.dll");
  ASSERT_EQ(toolset.registerServer(), S_OK);
  for (int round = 0; round < 10; ++round) {
    loadUseAndUnload();
  }
  const DWORD before = handleCount();
  for (int round = 0; round < 100; ++round) {
    loadUseAndUnload();
    ASSERT_EQ(::GetModuleHandleW(L"Quorbind.dll"), nullptr);
  }
  EXPECT_EQ(handleCount(), before);
  EXPECT_EQ(toolset.unregisterServer(), S_OK);
}

}  // namespace
}  // namespace quorbind::testing
