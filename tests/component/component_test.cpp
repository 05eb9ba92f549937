#include "tests/component/component_test.h"

#include <algorithm>

namespace quorbind::testing {

RegisteredDlls::RegisteredDlls(const std::wstring& componentDll) : component(componentDll) {
  for (const ServedDll* dll : {&component, &toolset}) {
    requireSuccess(dll->registerServer());
  }
}

RegisteredDlls::~RegisteredDlls() {
  for (const ServedDll* dll : {&component, &toolset}) {
    EXPECT_EQ(dll->unregisterServer(), S_OK);
    EXPECT_TRUE(dll->mayUnload());
  }
}

ComPtr<IDispatch> createByName(const wchar_t* progId) {
  CLSID classId{};
  requireSuccess(::CLSIDFromProgID(progId, &classId));
  return create<IDispatch>(classId);
}

LateAnswer callByName(IDispatch* object, const wchar_t* member, std::vector<VARIANT> arguments) {
  DISPID id = DISPID_UNKNOWN;
  auto name = const_cast<LPOLESTR>(member);
  requireSuccess(object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id));

  std::ranges::reverse(arguments);
  DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
  LateAnswer answer;
  EXCEPINFO exception{};
  answer.result = object->Invoke(id,
                                 IID_NULL,
                                 LOCALE_USER_DEFAULT,
                                 DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                                 &parameters,
                                 answer.value.put(),
                                 &exception,
                                 &answer.wrongArgument);
  return answer;
}

VARIANT variable(Variant& value) {
  VARIANT reference;
  ::VariantInit(&reference);
  reference.vt = VT_BYREF | VT_VARIANT;
  reference.pvarVal = const_cast<VARIANT*>(&value.get());
  return reference;
}

VARIANT number(LONG value) {
  VARIANT result;
  ::VariantInit(&result);
  result.vt = VT_I4;
  result.lVal = value;
  return result;
}

Variant arrayOf(VARTYPE type, const std::vector<std::string>& texts, LONG lowerBound) {
  Variant array;
  VARIANT* value = array.put();
  value->vt = static_cast<VARTYPE>(VT_ARRAY | type);
  value->parray = ::SafeArrayCreateVector(type, lowerBound, static_cast<ULONG>(texts.size()));
  for (LONG index = lowerBound; const std::string& text : texts) {
    const Variant element = Variant::ofText(text);
    void* data = type == VT_BSTR ? static_cast<void*>(element.get().bstrVal)
                                 : const_cast<VARIANT*>(&element.get());
    requireSuccess(::SafeArrayPutElement(value->parray, &index, data));
    ++index;
  }
  return array;
}

Variant arrayOf(VARTYPE type, const TextArray& array) {
  if (array.isSet) {
    return arrayOf(type, array.texts, array.lowerBound);
  }
  Variant variable;
  variable.put()->vt = static_cast<VARTYPE>(VT_ARRAY | type);
  return variable;
}

Variant numberArray() {
  Variant array;
  VARIANT* value = array.put();
  value->vt = VT_ARRAY | VT_I4;
  value->parray = ::SafeArrayCreateVector(VT_I4, 0, 2);
  return array;
}

SAFEARRAY*& arrayIn(Variant& array) {
  return const_cast<VARIANT&>(array.get()).parray;
}

TextArray textArrayIn(Variant& array) {
  if (arrayIn(array) == nullptr) {
    return TextArray::unset();
  }
  LONG lowerBound = 0;
  requireSuccess(::SafeArrayGetLBound(arrayIn(array), 1, &lowerBound));
  return {textsIn(array), lowerBound};
}

}  // namespace quorbind::testing
