#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <map>
#include <string>

#include "platform/windows/com_types.h"
#include "quorbind_com.h"
#include "tests/component/served_dll.h"

namespace quorbind::testing {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;
using ::testing::Pair;
using ::testing::StrCaseEq;
using ::testing::UnorderedElementsAre;

using RegistryTexts = std::map<std::string, std::string>;

std::string textIn(const BYTE* bytes, DWORD size) {
  std::wstring text(reinterpret_cast<const wchar_t*>(bytes), size / sizeof(wchar_t));
  while (text.ends_with(L'\0')) {
    text.pop_back();
  }
  return toUtf8(text);
}

void addValues(HKEY key, const std::string& name, RegistryTexts& texts) {
  std::array<wchar_t, 1024> valueName{};
  std::array<BYTE, 4096> value{};
  for (DWORD index = 0;; ++index) {
    auto nameSize = static_cast<DWORD>(valueName.size());
    auto size = static_cast<DWORD>(value.size());
    DWORD type = 0;
    const LSTATUS status = ::RegEnumValueW(
        key, index, valueName.data(), &nameSize, nullptr, &type, value.data(), &size);
    if (status == ERROR_NO_MORE_ITEMS) {
      return;
    }
    const bool isText = status == ERROR_SUCCESS && type == REG_SZ;
    texts[name + " " + toUtf8({valueName.data(), nameSize})] =
        isText ? textIn(value.data(), size) : "something else";
  }
}

void addKey(HKEY parent, const std::string& name, const std::string& path, RegistryTexts& texts) {
  HKEY key = nullptr;
  if (::RegOpenKeyExW(parent, toWide(name).c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) {
    return;
  }
  texts[path];
  addValues(key, path, texts);
  std::array<wchar_t, 256> child{};
  for (DWORD index = 0; ::RegEnumKeyW(key, index, child.data(), 256) == ERROR_SUCCESS; ++index) {
    addKey(key, toUtf8(child.data()), path + "\\" + toUtf8(child.data()), texts);
  }
  ::RegCloseKey(key);
}

/// Every key and text below the classes of the machine or of the user.
RegistryTexts classesOf(HKEY hive) {
  RegistryTexts texts;
  addKey(hive, "Software\\Classes", "", texts);
  return texts;
}

/// What `after` has and `before` has not, or otherwise.
RegistryTexts difference(const RegistryTexts& before, const RegistryTexts& after) {
  RegistryTexts result;
  for (const auto& [key, text] : after) {
    const auto old = before.find(key);
    if (old == before.end() || old->second != text) {
      result[key] = text;
    }
  }
  return result;
}

class Registration : public ::testing::Test {
 private:
  /// Whoever used this machine before may have left it registered.
  static bool unregisterAll() {
    for (const wchar_t* name : {L"Quorbind.dll", L"QuorToolset.dll"}) {
      const ServedDll dll(name);
      requireSuccess(dll.unregisterServer());
      requireSuccess(dll.install(false, L"user"));
    }
    return true;
  }

  const bool isClean_ = unregisterAll();

 protected:
  const ServedDll component_{L"Quorbind.dll"};
  const RegistryTexts machineBefore_ = classesOf(HKEY_LOCAL_MACHINE);
  const RegistryTexts userBefore_ = classesOf(HKEY_CURRENT_USER);
};

TEST_F(Registration, WritesTheClassWithItsServerAndNames) {
  const std::string classKey = "\\CLSID\\{4F5B74DF-3FDA-4795-9C9E-7BBEBECD7A07}";
  ASSERT_EQ(component_.registerServer(), S_OK);
  RegistryTexts added;
  for (const auto& [key, text] : difference(machineBefore_, classesOf(HKEY_LOCAL_MACHINE))) {
    if (key.starts_with(classKey) && !text.empty()) {
      added[key.substr(classKey.size())] = text;
    }
  }
  EXPECT_THAT(
      added,
      UnorderedElementsAre(Pair(" ", "Quorbind book"),
                           Pair("\\InprocServer32 ", toUtf8(inBuildFolder(L"Quorbind.dll"))),
                           Pair("\\InprocServer32 ThreadingModel", "Apartment"),
                           Pair("\\ProgID ", "Quorbind.Quor_Book.1"),
                           Pair("\\TypeLib ", "{10B4E241-9CF5-4639-93B3-5B199E7F5B70}"),
                           Pair("\\VersionIndependentProgID ", "Quorbind.Quor_Book")));
  EXPECT_EQ(component_.unregisterServer(), S_OK);
}

TEST_F(Registration, WritesTheProgramIdentifiersOfEveryClass) {
  ASSERT_EQ(component_.registerServer(), S_OK);
  const RegistryTexts classes = classesOf(HKEY_LOCAL_MACHINE);
  for (const auto& [name, id] : {std::pair{"Quor_Book", "{4F5B74DF-3FDA-4795-9C9E-7BBEBECD7A07}"},
                                 std::pair{"Book_Config", "{2555FBA2-A2DC-455E-AF83-48627FD41032}"},
                                 std::pair{"CTOCToXML", "{637636DF-9D9C-4FC5-A765-BEA33B35CA1D}"},
                                 std::pair{"cSort", "{CB515D3D-2E1A-4E8B-A8EC-E085E3E012CC}"}}) {
    const std::string progId = std::string("\\Quorbind.") + name;
    EXPECT_THAT(classes, Contains(Pair(progId + "\\CLSID ", id)));
    EXPECT_THAT(classes, Contains(Pair(progId + "\\CurVer ", progId.substr(1) + ".1")));
    EXPECT_THAT(classes, Contains(Pair(progId + ".1\\CLSID ", id)));
  }
  EXPECT_EQ(component_.unregisterServer(), S_OK);
}

TEST_F(Registration, WritesTheTypeLibraryAndItsInterfaces) {
  const std::string library = "{10B4E241-9CF5-4639-93B3-5B199E7F5B70}";
  ASSERT_EQ(component_.registerServer(), S_OK);
  const RegistryTexts classes = classesOf(HKEY_LOCAL_MACHINE);
  EXPECT_THAT(classes,
              Contains(Pair(StrCaseEq("\\TypeLib\\" + library + "\\1.0\\0\\win64 "),
                            toUtf8(inBuildFolder(L"Quorbind.dll")))));
  for (const auto& [id, name] :
       {std::pair{"{6FAFEC25-4012-4E6D-BD40-F43FC42A0970}", "_Quor_Book"},
        std::pair{"{7340A172-333F-4526-BB42-2D37F1B0FBD4}", "_Book_Config"},
        std::pair{"{31418A77-FD68-45A1-A488-EC5CDC2E5619}", "_CTOCToXML"},
        std::pair{"{E465F72F-B715-4D56-9E7D-AA4F523EE627}", "_cSort"},
        std::pair{"{1707E4CD-A492-4C76-B3C2-CA1069BDDFAD}", "__Quor_Book"}}) {
    const std::string key = std::string("\\Interface\\") + id;
    EXPECT_THAT(classes, Contains(Pair(key + " ", name)));
    EXPECT_THAT(classes, Contains(Pair(key + "\\TypeLib ", library)));
  }
  ComPtr<ITypeLib> found;
  EXPECT_EQ(::LoadRegTypeLib(LIBID_Quorbind, 1, 0, 0, found.put()), S_OK);
  found.reset();
  EXPECT_EQ(component_.unregisterServer(), S_OK);
}

TEST_F(Registration, ForTheMachineIsTakenBackWhole) {
  ASSERT_EQ(component_.registerServer(), S_OK);
  EXPECT_THAT(difference(userBefore_, classesOf(HKEY_CURRENT_USER)), IsEmpty());
  ASSERT_EQ(component_.unregisterServer(), S_OK);
  EXPECT_EQ(classesOf(HKEY_LOCAL_MACHINE), machineBefore_);
}

TEST_F(Registration, ForTheUserIsTakenBackWhole) {
  ASSERT_EQ(component_.install(true, L"user"), S_OK);
  EXPECT_THAT(difference(machineBefore_, classesOf(HKEY_LOCAL_MACHINE)), IsEmpty());
  EXPECT_THAT(classesOf(HKEY_CURRENT_USER),
              Contains(Pair("\\Quorbind.cSort\\CLSID ", "{CB515D3D-2E1A-4E8B-A8EC-E085E3E012CC}")));
  ASSERT_EQ(component_.install(false, L"user"), S_OK);
  EXPECT_EQ(classesOf(HKEY_CURRENT_USER), userBefore_);
}

TEST_F(Registration, ByInstallWithoutWordsIsForTheMachine) {
  ASSERT_EQ(component_.install(true, nullptr), S_OK);
  EXPECT_THAT(classesOf(HKEY_LOCAL_MACHINE),
              Contains(Pair("\\Quorbind.cSort\\CLSID ", "{CB515D3D-2E1A-4E8B-A8EC-E085E3E012CC}")));
  ASSERT_EQ(component_.install(false, nullptr), S_OK);
  EXPECT_EQ(classesOf(HKEY_LOCAL_MACHINE), machineBefore_);
}

TEST_F(Registration, TwiceIsAsOnce) {
  ASSERT_EQ(component_.registerServer(), S_OK);
  const RegistryTexts once = classesOf(HKEY_LOCAL_MACHINE);
  ASSERT_EQ(component_.registerServer(), S_OK);
  EXPECT_EQ(classesOf(HKEY_LOCAL_MACHINE), once);

  ASSERT_EQ(component_.unregisterServer(), S_OK);
  ASSERT_EQ(component_.unregisterServer(), S_OK);
  EXPECT_EQ(classesOf(HKEY_LOCAL_MACHINE), machineBefore_);
}

TEST_F(Registration, LeavesWhatOthersPutBesideItsOwn) {
  ASSERT_EQ(component_.registerServer(), S_OK);
  const wchar_t* others = L"Software\\Classes\\Quorbind.cSort\\DefaultIcon";
  ASSERT_EQ(::RegSetKeyValueW(HKEY_LOCAL_MACHINE, others, L"", REG_SZ, L"x", 2 * sizeof(wchar_t)),
            ERROR_SUCCESS);
  ASSERT_EQ(component_.unregisterServer(), S_OK);
  EXPECT_THAT(classesOf(HKEY_LOCAL_MACHINE), Contains(Pair("\\Quorbind.cSort\\DefaultIcon ", "x")));
  ::RegDeleteTreeW(HKEY_LOCAL_MACHINE, L"Software\\Classes\\Quorbind.cSort");
  EXPECT_EQ(classesOf(HKEY_LOCAL_MACHINE), machineBefore_);
}

TEST_F(Registration, OfTheToolsetUsesThePublishedProgramIdentifiers) {
  const ServedDll toolset(L"QuorToolset.dll");
  ASSERT_EQ(toolset.registerServer(), S_OK);
  for (const wchar_t* progId : {L"Quor_LibraryServices.clsLibraryServices",
                                L"Quor_XmlTextRules.clsXmlTextRules",
                                L"Quor_LinkFileServices.clsLinkFileServices",
                                L"Quor_ProductServices.clsProductServices",
                                L"Quor_FileCopy.clsFileCopy"}) {
    CLSID classId{};
    EXPECT_EQ(::CLSIDFromProgID(progId, &classId), S_OK) << toUtf8(progId);
  }
  ASSERT_EQ(toolset.unregisterServer(), S_OK);
  EXPECT_EQ(classesOf(HKEY_LOCAL_MACHINE), machineBefore_);
}

/// What Windows finds in a manifest while the object lives.
class Activation {
 public:
  explicit Activation(const std::wstring& manifest) {
    ACTCTXW context{};
    context.cbSize = sizeof context;
    context.lpSource = manifest.c_str();
    context_ = ::CreateActCtxW(&context);
    isActive_ = context_ != INVALID_HANDLE_VALUE && ::ActivateActCtx(context_, &cookie_) != FALSE;
  }
  ~Activation() {
    if (isActive_) {
      ::DeactivateActCtx(0, cookie_);
    }
    if (context_ != INVALID_HANDLE_VALUE) {
      ::ReleaseActCtx(context_);
    }
  }
  Activation(const Activation&) = delete;
  Activation& operator=(const Activation&) = delete;

  [[nodiscard]] bool isActive() const { return isActive_; }

 private:
  HANDLE context_;
  ULONG_PTR cookie_ = 0;
  bool isActive_ = false;
};

TEST_F(Registration, IsNotNeededWithTheManifest) {
  const ComApartment apartment;
  const Activation activation(inBuildFolder(L"Quorbind.X.manifest"));
  ASSERT_TRUE(activation.isActive());
  for (const wchar_t* progId : {L"Quorbind.Quor_Book",
                                L"Quorbind.Book_Config.1",
                                L"Quorbind.CTOCToXML",
                                L"Quorbind.cSort.1"}) {
    CLSID classId{};
    ASSERT_EQ(::CLSIDFromProgID(progId, &classId), S_OK) << toUtf8(progId);
    ComPtr<IDispatch> object;
    EXPECT_EQ(
        ::CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, object.id(), object.putAny()),
        S_OK);
  }
}

}  // namespace
}  // namespace quorbind::testing
