#include "platform/windows/com_types.h"

#include <cstring>

#include "platform/text_encoding.h"

namespace quorbind {

namespace {

static_assert(sizeof(wchar_t) == 2, "wide text is UTF-16 on this platform");

constexpr std::string_view kUndescribed = "Automation error";

/// Results of the run-time's own kind: this in the upper word, the error's number in the lower.
constexpr std::uint32_t kRunTimeResult = 0x800A0000;
constexpr std::uint32_t kUpperWord = 0xFFFF0000;
constexpr std::int32_t kLargestRunTimeNumber = 0xFFFF;

constexpr bool isRunTimeResult(HRESULT result) {
  return (static_cast<std::uint32_t>(result) & kUpperWord) == kRunTimeResult;
}

std::int32_t errorNumberOf(HRESULT failure) {
  const auto known = [](ErrorNumber number) { return static_cast<std::int32_t>(number); };
  switch (failure) {
    case E_OUTOFMEMORY:
      return known(ErrorNumber::kOutOfMemory);
    case DISP_E_UNKNOWNNAME:
    case DISP_E_MEMBERNOTFOUND:
      return known(ErrorNumber::kMemberNotSupported);
    case DISP_E_TYPEMISMATCH:
      return known(ErrorNumber::kTypeMismatch);
    case DISP_E_OVERFLOW:
      return known(ErrorNumber::kOverflow);
    case DISP_E_BADINDEX:
      return known(ErrorNumber::kSubscriptOutOfRange);
    default:
      return isRunTimeResult(failure) ? failure & kLargestRunTimeNumber : failure;
  }
}

/// What the system says about a result, in one line; empty when it knows nothing.
std::string systemMessage(HRESULT result) {
  constexpr DWORD kOneLine = FORMAT_MESSAGE_MAX_WIDTH_MASK;
  std::wstring text(512, L'\0');
  const DWORD length =
      ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | kOneLine,
                       nullptr,
                       static_cast<DWORD>(result),
                       0,
                       text.data(),
                       static_cast<DWORD>(text.size()),
                       nullptr);
  text.resize(length);
  while (text.ends_with(L' ')) {
    text.pop_back();
  }
  return toUtf8(text);
}

std::string descriptionOf(HRESULT failure, std::int32_t number) {
  const bool isHostsNumber = number >= 0;
  if (isHostsNumber) {
    return std::string(describe(static_cast<ErrorNumber>(number)));
  }
  std::string message = systemMessage(failure);
  return message.empty() ? std::string(kUndescribed) : message;
}

}  // namespace

std::wstring toWide(std::string_view utf8) {
  std::string bytes;
  bytes.reserve(sizeof(wchar_t) * utf8.size());
  appendUtf16LittleEndian(bytes, utf8);
  std::wstring result(bytes.size() / sizeof(wchar_t), L'\0');
  std::memcpy(result.data(), bytes.data(), bytes.size());
  return result;
}

std::string toUtf8(std::wstring_view text) {
  std::string result;
  result.reserve(text.size());
  const std::string_view bytes(reinterpret_cast<const char*>(text.data()),
                               sizeof(wchar_t) * text.size());
  appendUtf8FromUtf16(result, bytes, ByteOrder::kLittleEndian);
  return result;
}

RunTimeError runTimeErrorOf(HRESULT failure) {
  return runTimeErrorOf(failure, std::string());
}

RunTimeError runTimeErrorOf(HRESULT failure, std::string description) {
  const std::int32_t number = errorNumberOf(failure);
  return {number, description.empty() ? descriptionOf(failure, number) : std::move(description)};
}

HRESULT resultOf(const RunTimeError& error) {
  const std::int32_t number = error.number();
  if (number < 0) {
    return number;
  }
  const bool fits = number > 0 && number <= kLargestRunTimeNumber;
  return fits ? static_cast<HRESULT>(kRunTimeResult | static_cast<std::uint32_t>(number)) : E_FAIL;
}

void requireSuccess(HRESULT result) {
  if (FAILED(result)) {
    throw runTimeErrorOf(result);
  }
}

void requireSuccess(HRESULT result, IUnknown* object, REFIID id) {
  if (FAILED(result)) {
    throw runTimeErrorOf(result, descriptionLeftBy(object, id));
  }
}

std::string descriptionLeftBy(IUnknown* object, REFIID id) {
  ComPtr<ISupportErrorInfo> support;
  ComPtr<IErrorInfo> info;
  Bstr description;
  const bool isLeft =
      object != nullptr && SUCCEEDED(object->QueryInterface(support.id(), support.putAny())) &&
      support->InterfaceSupportsErrorInfo(id) == S_OK && ::GetErrorInfo(0, info.put()) == S_OK &&
      SUCCEEDED(info->GetDescription(description.put()));
  return isLeft ? description.text() : std::string();
}

std::string textOf(BSTR text) {
  return toUtf8({text, ::SysStringLen(text)});
}

Bstr::Bstr(std::string_view utf8) {
  const std::wstring text = toWide(utf8);
  text_ = ::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  if (text_ == nullptr) {
    raise(ErrorNumber::kOutOfMemory);
  }
}

BSTR* Bstr::put() {
  ::SysFreeString(detach());
  return &text_;
}

Variant Variant::ofText(std::string_view utf8) {
  Variant result;
  result.value_.bstrVal = Bstr(utf8).detach();
  result.value_.vt = VT_BSTR;
  return result;
}

Variant Variant::ofBoolean(bool value) {
  Variant result;
  result.value_.vt = VT_BOOL;
  result.value_.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
  return result;
}

Variant Variant::ofShort(std::int16_t value) {
  Variant result;
  result.value_.vt = VT_I2;
  result.value_.iVal = value;
  return result;
}

Variant Variant::ofInteger(std::int32_t value) {
  Variant result;
  result.value_.vt = VT_I4;
  result.value_.lVal = value;
  return result;
}

Variant Variant::ofObject(ComPtr<IDispatch> object) {
  Variant result;
  result.value_.vt = VT_DISPATCH;
  result.value_.pdispVal = object.detach();
  return result;
}

Variant Variant::missing() {
  Variant result;
  result.value_.vt = VT_ERROR;
  result.value_.scode = DISP_E_PARAMNOTFOUND;
  return result;
}

Variant Variant::copyOf(const VARIANT& value) {
  Variant result;
  requireSuccess(::VariantCopyInd(&result.value_, const_cast<VARIANT*>(&value)));
  return result;
}

Variant Variant::as(VARTYPE type) const {
  Variant result;
  const HRESULT conversion =
      ::VariantChangeType(&result.value_, const_cast<VARIANT*>(&value_), 0, type);
  if (conversion == DISP_E_OVERFLOW) {
    raise(ErrorNumber::kOverflow);
  }
  if (FAILED(conversion)) {
    raise(ErrorNumber::kTypeMismatch);
  }
  return result;
}

std::string Variant::text() const {
  return textOf(as(VT_BSTR).value_.bstrVal);
}

bool Variant::boolean() const {
  return as(VT_BOOL).value_.boolVal != VARIANT_FALSE;
}

std::int32_t Variant::integer() const {
  return as(VT_I4).value_.lVal;
}

ComPtr<IDispatch> Variant::object() const {
  const Variant direct = copyOf(value_);
  const bool isObject = direct.type() == VT_DISPATCH || direct.type() == VT_UNKNOWN;
  ComPtr<IDispatch> object = isObject
                                 ? ComPtr<IUnknown>::sharing(direct.value_.punkVal).as<IDispatch>()
                                 : ComPtr<IDispatch>();
  if (!object) {
    raise(ErrorNumber::kObjectRequired);
  }
  return object;
}

VARIANT* Variant::put() {
  ::VariantClear(&value_);
  return &value_;
}

VARIANT Variant::detach() {
  VARIANT empty;
  ::VariantInit(&empty);
  return std::exchange(value_, empty);
}

void Handle::close() {
  if (handle_ != nullptr) {
    ::CloseHandle(std::exchange(handle_, nullptr));
  }
}

ComApartment::ComApartment() {
  const HRESULT result = ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  entered_ = SUCCEEDED(result);
  if (result != RPC_E_CHANGED_MODE) {
    requireSuccess(result);
  }
}

ComApartment::~ComApartment() {
  if (entered_) {
    ::CoUninitialize();
  }
}

}  // namespace quorbind
