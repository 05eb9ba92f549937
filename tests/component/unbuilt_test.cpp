// The operations that are published but not part of this version stand in unbuilt.txt, which only
// ever gets shorter.

#include <fstream>

#include "tests/component/component_test.h"
#include "tests/component/window_driver.h"

namespace quorbind::testing {
namespace {

struct Operation {
  std::wstring className;
  std::wstring name;
};

std::vector<Operation> unbuiltOperations() {
  std::ifstream list(besideThisProgram(L"unbuilt.txt").c_str());
  std::vector<Operation> operations;
  for (std::string line; std::getline(list, line);) {
    const std::size_t dot = line.find('.');
    operations.push_back({toWide(line.substr(0, dot)), toWide(line.substr(dot + 1))});
  }
  return operations;
}

/// The dispatch side of a dual interface lists the members of IDispatch first.
constexpr UINT kOfIDispatch = 7;

/// An argument that fits a parameter of that type, without meaning.
VARIANT argumentFor(const TYPEDESC& type, Variant& place) {
  VARIANT argument = number(0);
  const VARTYPE target = type.vt == VT_PTR ? type.lptdesc->vt : type.vt;
  switch (target) {
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

HRESULT callWithoutMeaning(IDispatch* object, const std::wstring& name) {
  ComPtr<ITypeInfo> info;
  FUNCDESC* function = nullptr;
  MEMBERID id = MEMBERID_NIL;
  auto member = const_cast<LPOLESTR>(name.c_str());
  requireSuccess(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.put()));
  requireSuccess(info->GetIDsOfNames(&member, 1, &id));
  requireSuccess(info->GetFuncDesc(static_cast<UINT>(id - 1) + kOfIDispatch, &function));

  std::vector<Variant> places(static_cast<std::size_t>(function->cParams));
  std::vector<VARIANT> arguments;
  for (std::size_t index = 0; index < places.size(); ++index) {
    arguments.push_back(argumentFor(function->lprgelemdescParam[index].tdesc, places[index]));
  }
  info->ReleaseFuncDesc(function);
  return callByName(object, name.c_str(), arguments).result;
}

using UnbuiltOperations = ComponentTest;

TEST_F(UnbuiltOperations, SayThatTheyAreNotPartOfThisVersion) {
  for (const Operation& operation : unbuiltOperations()) {
    const auto object = createByName((L"Quorbind." + operation.className).c_str());
    const std::string blank = operation.className == L"Quor_Book" ? " " : "";
    const std::string box =
        "Error(-2147467263): This operation is not part of this version\nQuorbind:" + blank +
        toUtf8(operation.className + L"::" + operation.name);
    const Person person([&] { dismissMessage(box); });
    EXPECT_EQ(callWithoutMeaning(object.get(), operation.name), S_OK) << box;
  }
}

}  // namespace
}  // namespace quorbind::testing
