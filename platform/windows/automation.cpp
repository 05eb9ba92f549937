#include "platform/windows/automation.h"

#include <optional>

#include "platform/runtime_error.h"

namespace quorbind {

namespace {

constexpr LCID kLanguageOfMembers = LOCALE_USER_DEFAULT;

/// What an object said about an error, with the texts owned.
struct Complaint {
  EXCEPINFO info{};

  Complaint() = default;
  ~Complaint() {
    ::SysFreeString(info.bstrSource);
    ::SysFreeString(info.bstrDescription);
    ::SysFreeString(info.bstrHelpFile);
  }
  Complaint(const Complaint&) = delete;
  Complaint& operator=(const Complaint&) = delete;

  [[nodiscard]] RunTimeError asError() {
    if (info.pfnDeferredFillIn != nullptr) {
      info.pfnDeferredFillIn(&info);
    }
    const HRESULT result =
        info.wCode != 0 ? resultOf(RunTimeError(static_cast<ErrorNumber>(info.wCode))) : info.scode;
    return runTimeErrorOf(result, textOf(info.bstrDescription));
  }
};

std::optional<DISPID> findMember(const ComPtr<IDispatch>& object, std::string_view member) {
  std::wstring name = toWide(member);
  LPOLESTR names = name.data();
  DISPID identity = DISPID_UNKNOWN;
  const HRESULT found = object->GetIDsOfNames(IID_NULL, &names, 1, kLanguageOfMembers, &identity);
  return SUCCEEDED(found) ? std::optional(identity) : std::nullopt;
}

DISPID memberOf(const ComPtr<IDispatch>& object, std::string_view member) {
  const std::optional<DISPID> identity = findMember(object, member);
  if (!identity) {
    raise(ErrorNumber::kMemberNotSupported);
  }
  return *identity;
}

std::string textAt(SAFEARRAY& array, VARTYPE type, LONG index) {
  if (type == VT_BSTR) {
    Bstr text;
    requireSuccess(::SafeArrayGetElement(&array, &index, text.put()));
    return text.text();
  }
  Variant value;
  requireSuccess(::SafeArrayGetElement(&array, &index, value.put()));
  return value.text();
}

}  // namespace

AutomationObject AutomationObject::create(std::string_view className) {
  CLSID identity{};
  ComPtr<IDispatch> object;
  if (FAILED(::CLSIDFromProgID(toWide(className).c_str(), &identity)) ||
      FAILED(::CoCreateInstance(identity, nullptr, CLSCTX_SERVER, object.id(), object.putAny()))) {
    raise(ErrorNumber::kCannotCreateObject);
  }
  return AutomationObject(std::move(object));
}

bool AutomationObject::has(std::string_view member) const {
  return findMember(object_, member).has_value();
}

Variant AutomationObject::invoke(std::string_view member,
                                 const std::vector<Variant>& reversedArguments) const {
  std::vector<VARIANT> borrowed;
  borrowed.reserve(reversedArguments.size());
  for (const Variant& argument : reversedArguments) {
    borrowed.push_back(argument.get());
  }
  DISPPARAMS parameters{borrowed.data(), nullptr, static_cast<UINT>(borrowed.size()), 0};
  Variant result;
  Complaint complaint;
  const HRESULT outcome = object_->Invoke(memberOf(object_, member),
                                          IID_NULL,
                                          kLanguageOfMembers,
                                          DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                                          &parameters,
                                          result.put(),
                                          &complaint.info,
                                          nullptr);
  if (outcome == DISP_E_EXCEPTION) {
    throw complaint.asError();
  }
  requireSuccess(outcome);
  return result;
}

std::vector<std::string> textsIn(const Variant& array) {
  const Variant direct = Variant::copyOf(array.get());
  const VARTYPE type = direct.type();
  const bool isArrayOfTexts = type == (VT_ARRAY | VT_BSTR) || type == (VT_ARRAY | VT_VARIANT);
  SAFEARRAY* elements = isArrayOfTexts ? direct.get().parray : nullptr;
  if (!isArrayOfTexts || (elements != nullptr && ::SafeArrayGetDim(elements) != 1)) {
    raise(ErrorNumber::kTypeMismatch);
  }
  std::vector<std::string> texts;
  LONG first = 0;
  LONG last = -1;
  if (elements != nullptr) {
    requireSuccess(::SafeArrayGetLBound(elements, 1, &first));
    requireSuccess(::SafeArrayGetUBound(elements, 1, &last));
  }
  for (LONG index = first; index <= last; ++index) {
    texts.push_back(textAt(*elements, type & VT_TYPEMASK, index));
  }
  return texts;
}

}  // namespace quorbind
