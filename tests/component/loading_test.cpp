// A program of its own: nothing else here may hold the component.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "platform/text.h"
#include "platform/windows/com_types.h"
#include "quorbind_com.h"
#include "tests/component/footprint.h"
#include "tests/component/served_dll.h"
#include "tests/support/long_tier.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;

std::vector<HMODULE> modules() {
  std::vector<HMODULE> found(1024);
  DWORD bytes = 0;
  ::EnumProcessModules(::GetCurrentProcess(),
                       found.data(),
                       static_cast<DWORD>(found.size() * sizeof(HMODULE)),
                       &bytes);
  found.resize(bytes / sizeof(HMODULE));
  return found;
}

/// The modules of this process, by their names in capital letters.
std::set<std::string> moduleNames() {
  std::set<std::string> names;
  for (const HMODULE module : modules()) {
    std::wstring name(MAX_PATH, L'\0');
    name.resize(::GetModuleBaseNameW(
        ::GetCurrentProcess(), module, name.data(), static_cast<DWORD>(name.size())));
    names.insert(upperCaseAscii(toUtf8(name)));
  }
  return names;
}

template <typename Structure>
const Structure* at(HMODULE module, DWORD offset) {
  return reinterpret_cast<const Structure*>(reinterpret_cast<const char*>(module) + offset);
}

/// The import table of a DLL, read without attaching it.
std::vector<std::string> importsOf(const std::wstring& name) {
  const HMODULE module =
      ::LoadLibraryExW(inBuildFolder(name).c_str(), nullptr, DONT_RESOLVE_DLL_REFERENCES);
  std::vector<std::string> names;
  if (module != nullptr) {
    const auto start = static_cast<DWORD>(at<IMAGE_DOS_HEADER>(module, 0)->e_lfanew);
    const auto& headers = *at<IMAGE_NT_HEADERS>(module, start);
    const DWORD table =
        headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
    for (const auto* entry = at<IMAGE_IMPORT_DESCRIPTOR>(module, table); entry->Name != 0;
         ++entry) {
      names.emplace_back(at<char>(module, entry->Name));
    }
    ::FreeLibrary(module);
  }
  return names;
}

/// What is in this process once a DLL is loaded, and was not while only its imports were.
std::vector<std::string> broughtBy(const std::wstring& name) {
  const std::vector<std::string> imports = importsOf(name);
  EXPECT_FALSE(imports.empty());
  for (const std::string& import : imports) {
    EXPECT_NE(::LoadLibraryA(import.c_str()), nullptr) << import;
  }
  const std::set<std::string> before = moduleNames();
  const ServedDll dll(name);
  const std::set<std::string> after = moduleNames();
  std::vector<std::string> brought;
  std::ranges::set_difference(after, before, std::back_inserter(brought));
  return brought;
}

TEST(Loading, AttachesADllAndLoadsNothingElse) {
  EXPECT_THAT(broughtBy(L"Quorbind.dll"), ElementsAre("QUORBIND.DLL"));
  EXPECT_THAT(broughtBy(L"QuorToolset.dll"), ElementsAre("QUORTOOLSET.DLL"));
}

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
