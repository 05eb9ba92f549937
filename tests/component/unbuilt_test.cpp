// The operations that are published but not part of this version stand in unbuilt.txt: those and no
// others, which is found out by calling every operation of the type library. script/check sees to
// it that the list only ever gets shorter.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/component/attendant.h"
#include "tests/component/component_test.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::UnorderedElementsAreArray;

constexpr const char* kNotPartOfThisVersion = "This operation is not part of this version";

std::string listedAsUnbuilt() {
  std::ifstream list(besideThisProgram(L"unbuilt.txt").c_str());
  return {std::istreambuf_iterator<char>(list), {}};
}

/// An operation as the type library has it.
struct Operation {
  std::string name;
  MEMBERID id = MEMBERID_NIL;
  WORD kind = 0;
  std::vector<VARTYPE> parameters;
};

VARTYPE typeOf(const TYPEDESC& type) {
  return type.vt == VT_PTR ? type.lptdesc->vt : type.vt;
}

Operation operationOf(ITypeInfo& info, const FUNCDESC& function) {
  Bstr name;
  requireSuccess(info.GetDocumentation(function.memid, name.put(), nullptr, nullptr, nullptr));
  Operation operation{name.text(), function.memid, static_cast<WORD>(function.invkind), {}};
  for (SHORT place = 0; place < function.cParams; ++place) {
    operation.parameters.push_back(typeOf(function.lprgelemdescParam[place].tdesc));
  }
  return operation;
}

/// What an object of that class offers, in the order of the type library; what every dual interface
/// has is left out.
std::vector<Operation> operationsOf(IDispatch& object) {
  ComPtr<ITypeInfo> info;
  TYPEATTR* attributes = nullptr;
  requireSuccess(object.GetTypeInfo(0, LOCALE_USER_DEFAULT, info.put()));
  requireSuccess(info->GetTypeAttr(&attributes));
  const UINT count = attributes->cFuncs;
  info->ReleaseTypeAttr(attributes);

  std::vector<Operation> operations;
  for (UINT place = 0; place < count; ++place) {
    FUNCDESC* function = nullptr;
    requireSuccess(info->GetFuncDesc(place, &function));
    if ((function->wFuncFlags & FUNCFLAG_FRESTRICTED) == 0) {
      operations.push_back(operationOf(*info.get(), *function));
    }
    info->ReleaseFuncDesc(function);
  }
  return operations;
}

/// The names of the published classes, in the order of the type library.
std::vector<std::string> publishedClasses() {
  std::vector<std::string> names;
  ComPtr<ITypeLib> library;
  requireSuccess(
      ::LoadTypeLibEx(inBuildFolder(L"Quorbind.dll").c_str(), REGKIND_NONE, library.put()));
  for (UINT place = 0; place < library->GetTypeInfoCount(); ++place) {
    TYPEKIND kind{};
    Bstr name;
    requireSuccess(library->GetTypeInfoType(place, &kind));
    requireSuccess(
        library->GetDocumentation(static_cast<INT>(place), name.put(), nullptr, nullptr, nullptr));
    if (kind == TKIND_COCLASS) {
      names.push_back(name.text());
    }
  }
  return names;
}

/// An argument that fits a parameter of that type, without meaning.
VARIANT argumentFor(VARTYPE type, Variant& place) {
  VARIANT argument = number(0);
  switch (type) {
    case VT_BSTR:
      place = Variant::ofText("");
      return variable(place);
    case VT_SAFEARRAY:
      place = arrayOf(VT_BSTR, {"a"});
      return variable(place);
    case VT_I2:
    case VT_I4:
    case VT_BOOL:
      return argument;
    default:
      argument.vt = VT_DISPATCH;
      argument.pdispVal = nullptr;
      return argument;
  }
}

HRESULT callWithoutMeaning(IDispatch& object, const Operation& operation) {
  std::vector<Variant> places(operation.parameters.size());
  std::vector<VARIANT> arguments;
  for (std::size_t index = places.size(); index-- > 0;) {
    arguments.push_back(argumentFor(operation.parameters[index], places[index]));
  }
  DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
  Variant result;
  return object.Invoke(operation.id,
                       IID_NULL,
                       LOCALE_USER_DEFAULT,
                       operation.kind,
                       &parameters,
                       result.put(),
                       nullptr,
                       nullptr);
}

/// The boxes that come while `call` runs.
std::vector<std::string> boxesDuring(const std::function<void()>& call) {
  Attendant attendant;
  attendant.during(call);
  std::vector<std::string> shown = attendant.takeShown();
  std::erase_if(shown, [](const std::string& line) { return line.starts_with("form "); });
  return shown;
}

/// Makes a folder of its own the working folder, so that operations without meaning write there.
class WorkingElsewhere {
 public:
  WorkingElsewhere() { std::filesystem::current_path(folder_.path()); }
  ~WorkingElsewhere() { std::filesystem::current_path(before_); }
  WorkingElsewhere(const WorkingElsewhere&) = delete;
  WorkingElsewhere& operator=(const WorkingElsewhere&) = delete;

 private:
  const TemporaryFolder folder_;
  const std::filesystem::path before_ = std::filesystem::current_path();
};

class UnbuiltOperations : public ComponentTest {
 protected:
  /// Calls the operation; whether it says that it is not part of this version. Exactly its own box
  /// may say so, and no other.
  static bool isUnbuilt(IDispatch& object, const std::string& owner, const Operation& operation) {
    HRESULT result = E_UNEXPECTED;
    const std::vector<std::string> boxes =
        boxesDuring([&] { result = callWithoutMeaning(object, operation); });
    EXPECT_EQ(result, S_OK) << owner << '.' << operation.name;
    const bool saysSo = std::ranges::any_of(boxes, [](const std::string& text) {
      return text.find(kNotPartOfThisVersion) != std::string::npos;
    });
    if (saysSo) {
      EXPECT_THAT(boxes, ElementsAre(boxOf(owner, operation.name)));
    }
    return saysSo;
  }

 private:
  static std::string boxOf(const std::string& owner, const std::string& operation) {
    const std::string blank = owner == "Quor_Book" ? " " : "";
    return std::string("critical: Error(-2147467263): ") + kNotPartOfThisVersion +
           "\nQuorbind:" + blank + owner + "::" + operation;
  }

  const WorkingElsewhere elsewhere_;
};

TEST_F(UnbuiltOperations, AreTheListedOnesAndNoOthers) {
  const std::vector<std::string> classes = publishedClasses();
  ASSERT_THAT(classes, ElementsAre("Quor_Book", "Book_Config", "CTOCToXML", "cSort"));
  std::string unbuilt;
  for (const std::string& owner : classes) {
    const auto object = createByName(toWide("Quorbind." + owner).c_str());
    const std::vector<Operation> operations = operationsOf(*object.get());
    EXPECT_THAT(operations, Not(IsEmpty())) << owner;
    for (const Operation& operation : operations) {
      if (isUnbuilt(*object.get(), owner, operation)) {
        unbuilt += owner + '.' + operation.name + '\n';
      }
    }
  }
  EXPECT_EQ(unbuilt, listedAsUnbuilt());
}

// tests/operations calls what it lists. Counting the books of a worksheet takes an object.
TEST_F(UnbuiltOperations, AndTheListOfThoseThatAreCalledInEveryWayMissNone) {
  std::vector<std::string> listed{"Quor_Book.getExcelBookCount"};
#define QUOR_PROCEDURE(owner, name) listed.emplace_back(#owner "." #name);
#define QUOR_FUNCTION QUOR_PROCEDURE
#define QUOR_PROPERTY QUOR_PROCEDURE
#include "tests/operations/operations.def"
  std::vector<std::string> published;
  for (const std::string owner : {"Quor_Book", "Book_Config"}) {
    const auto object = createByName(toWide("Quorbind." + owner).c_str());
    for (const Operation& operation : operationsOf(*object.get())) {
      published.push_back(owner + '.' + operation.name);
    }
  }
  EXPECT_THAT(listed, UnorderedElementsAreArray(published));
}

}  // namespace
}  // namespace quorbind::testing
