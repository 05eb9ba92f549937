// The operations as the type library has them: each can be called, and each is tested.

#include <filesystem>

#include "tests/component/attendant.h"
#include "tests/component/component_test.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::UnorderedElementsAreArray;

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

class PublishedOperations : public ComponentTest {
 private:
  const WorkingElsewhere elsewhere_;
};

TEST_F(PublishedOperations, TakeArgumentsWithoutMeaningAndAnswerWithBoxesAlone) {
  const std::vector<std::string> classes = publishedClasses();
  ASSERT_THAT(classes, ElementsAre("Quor_Book", "Book_Config", "CTOCToXML", "cSort"));
  for (const std::string& owner : classes) {
    const auto object = createByName(toWide("Quorbind." + owner).c_str());
    const std::vector<Operation> operations = operationsOf(*object.get());
    EXPECT_THAT(operations, Not(IsEmpty())) << owner;
    for (const Operation& operation : operations) {
      HRESULT result = E_UNEXPECTED;
      Attendant().during([&] { result = callWithoutMeaning(*object.get(), operation); });
      EXPECT_EQ(result, S_OK) << owner << '.' << operation.name;
    }
  }
}

// tests/operations calls what it lists.
TEST_F(PublishedOperations, AreAllInTheListOfThoseThatAreCalledInEveryWay) {
  std::vector<std::string> listed;
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
