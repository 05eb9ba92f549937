#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "tests/component/served_dll.h"
#include "tests/component/type_library_text.h"

namespace quorbind::testing {
namespace {

std::string fileText(const std::wstring& path) {
  std::ifstream file(path.c_str(), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string publishedBy(const wchar_t* dll) {
  ComPtr<ITypeLib> library;
  requireSuccess(::LoadTypeLibEx(inBuildFolder(dll).c_str(), REGKIND_NONE, library.put()));
  return describe(*library.get());
}

TEST(TypeLibrary, OfTheComponentIsWhatHostsWereCompiledAgainst) {
  EXPECT_EQ(publishedBy(L"Quorbind.dll"), fileText(besideThisProgram(L"typelib.golden")));
}

TEST(TypeLibrary, OfTheToolsetIsWhatHostsWereCompiledAgainst) {
  EXPECT_EQ(publishedBy(L"QuorToolset.dll"),
            fileText(besideThisProgram(L"toolset_typelib.golden")));
}

}  // namespace
}  // namespace quorbind::testing
