#include "platform/windows/com_types.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "tests/support/raised_error.h"

namespace quorbind::testing {
namespace {

using namespace std::string_literals;
using ::testing::IsEmpty;
using ::testing::Not;

/// Counts its references. It complains about its last failure.
class Counted final : public IDispatch, public ISupportErrorInfo {
 public:
  explicit Counted(int& references) : references_(references) {}
  virtual ~Counted() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (id == __uuidof(ISupportErrorInfo)) {
      *object = static_cast<ISupportErrorInfo*>(this);
    } else if (id == __uuidof(IUnknown) || id == __uuidof(IDispatch)) {
      *object = static_cast<IDispatch*>(this);
    } else {
      *object = nullptr;
      return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references_); }
  ULONG STDMETHODCALLTYPE Release() override { return static_cast<ULONG>(--references_); }

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) override {
    return id == __uuidof(IDispatch) ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE
  Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    return E_NOTIMPL;
  }

 private:
  int& references_;
};

void leaveDescription(std::string_view description) {
  ComPtr<ICreateErrorInfo> created;
  requireSuccess(::CreateErrorInfo(created.put()));
  requireSuccess(created->SetDescription(Bstr(description).get()));
  requireSuccess(::SetErrorInfo(0, created.as<IErrorInfo>().get()));
}

RunTimeError errorOf(HRESULT result, Counted& object) {
  try {
    requireSuccess(result, static_cast<IDispatch*>(&object), __uuidof(IDispatch));
  } catch (const RunTimeError& error) {
    return error;
  }
  return {0, "no error"};
}

// Text

TEST(WideText, ComesBackAsItWas) {
  const std::string text = "Grüße 中文 😀"s + '\0' + "end";
  EXPECT_EQ(toUtf8(toWide(text)), text);
  EXPECT_EQ(toWide("é"), L"\u00E9");
}

TEST(WideText, HasAReplacementCharacterForWhatIsInvalid) {
  EXPECT_EQ(toWide("a\xFF"), L"a\uFFFD");
  EXPECT_EQ(toUtf8(std::wstring{L'a', wchar_t{0xD800}}), "a\uFFFD");
}

TEST(BstrTest, IsTheEmptyTextWhenItIsNull) {
  EXPECT_EQ(Bstr().text(), "");
  EXPECT_EQ(textOf(nullptr), "");
}

TEST(BstrTest, KeepsZerosInsideTheText) {
  EXPECT_EQ(Bstr("a\0b"s).text(), "a\0b"s);
}

TEST(BstrTest, IsEmptyWhereACallMayPutAnother) {
  Bstr text("old");
  EXPECT_EQ(*text.put(), nullptr);
  EXPECT_EQ(text.text(), "");
}

TEST(BstrTest, LeavesItsTextToTheOneItIsMovedTo) {
  Bstr from("text");
  const Bstr to(std::move(from));
  EXPECT_EQ(to.text(), "text");
  EXPECT_EQ(from.get(), nullptr);
}

// Objects

TEST(ComPtrTest, OwnsOneReference) {
  int references = 1;
  Counted object(references);
  { const auto pointer = ComPtr<IDispatch>::owning(&object); }
  EXPECT_EQ(references, 0);
}

TEST(ComPtrTest, AddsAReferenceWhenItSharesOrIsCopied) {
  int references = 1;
  Counted object(references);
  {
    const auto shared = ComPtr<IDispatch>::sharing(&object);
    EXPECT_EQ(references, 2);
    const ComPtr<IDispatch> copy = shared;
    EXPECT_EQ(references, 3);
  }
  EXPECT_EQ(references, 1);
}

TEST(ComPtrTest, ReleasesWhatItHeldWhenAnotherIsAssigned) {
  int firstReferences = 1;
  int secondReferences = 1;
  Counted first(firstReferences);
  Counted second(secondReferences);
  auto pointer = ComPtr<IDispatch>::owning(&first);
  pointer = ComPtr<IDispatch>::owning(&second);
  EXPECT_EQ(firstReferences, 0);
  EXPECT_EQ(secondReferences, 1);
  pointer.put();
  EXPECT_EQ(secondReferences, 0);
}

TEST(ComPtrTest, AsksTheObjectForOtherInterfaces) {
  int references = 1;
  Counted object(references);
  const auto pointer = ComPtr<IDispatch>::owning(&object);
  EXPECT_TRUE(pointer.as<ISupportErrorInfo>());
  EXPECT_FALSE(pointer.as<IPersist>());
  EXPECT_EQ(references, 1);
}

// Values

TEST(VariantTest, ConvertsAsAutomationDoes) {
  EXPECT_EQ(Variant::ofText("42").integer(), 42);
  EXPECT_EQ(Variant::ofInteger(42).text(), "42");
  EXPECT_TRUE(Variant::ofInteger(7).boolean());
  EXPECT_EQ(Variant::ofBoolean(true).integer(), -1);
  EXPECT_EQ(Variant().text(), "");
  EXPECT_EQ(Variant::ofShort(-7).integer(), -7);
}

TEST(VariantTest, KeepsTheWidthOfItsNumber) {
  EXPECT_EQ(Variant::ofShort(0).type(), VT_I2);
  EXPECT_EQ(Variant::ofInteger(0).type(), VT_I4);
}

TEST(VariantTest, Raises13ForWhatCanNotBeConverted) {
  EXPECT_EQ(errorRaisedBy([] { (void)Variant::ofText("many").integer(); }), 13);
  EXPECT_EQ(errorRaisedBy([] { (void)Variant::missing().text(); }), 13);
}

TEST(VariantTest, Raises6ForANumberThatIsTooLarge) {
  EXPECT_EQ(errorRaisedBy([] { (void)Variant::ofText("3000000000").integer(); }), 6);
}

TEST(VariantTest, Raises424ForWhatIsNoObject) {
  EXPECT_EQ(errorRaisedBy([] { (void)Variant::ofText("text").object(); }), 424);
  EXPECT_EQ(errorRaisedBy([] { (void)Variant::ofObject({}).object(); }), 424);
}

TEST(VariantTest, OwnsTheReferenceToItsObject) {
  int references = 1;
  Counted object(references);
  {
    const Variant value = Variant::ofObject(ComPtr<IDispatch>::owning(&object));
    EXPECT_EQ(value.object().get(), &object);
    EXPECT_EQ(references, 1);
  }
  EXPECT_EQ(references, 0);
}

TEST(VariantTest, CopiesWhatAReferenceLeadsTo) {
  Bstr text("text");
  BSTR borrowed = text.get();
  VARIANT reference{};
  reference.vt = VT_BSTR | VT_BYREF;
  reference.pbstrVal = &borrowed;
  const Variant copy = Variant::copyOf(reference);
  EXPECT_EQ(copy.type(), VT_BSTR);
  EXPECT_EQ(copy.text(), "text");
}

// Handles

TEST(HandleTest, IsClosedAtItsEnd) {
  HANDLE event = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
  DWORD flags = 0;
  { const Handle handle(event); }
  EXPECT_EQ(::GetHandleInformation(event, &flags), 0);
}

TEST(HandleTest, IsNoneForBothValuesThatMeanNone) {
  EXPECT_FALSE(Handle(INVALID_HANDLE_VALUE));
  EXPECT_FALSE(Handle(nullptr));
}

// Failures

TEST(RunTimeErrorOfAResult, HasTheNumberOfAResultOfTheRunTimesOwnKind) {
  const RunTimeError error = runTimeErrorOf(static_cast<HRESULT>(0x800A0035));
  EXPECT_EQ(error.number(), 53);
  EXPECT_EQ(error.description(), "File not found");
}

TEST(RunTimeErrorOfAResult, HasTheNumberThatAHostKnowsForLateBinding) {
  EXPECT_EQ(runTimeErrorOf(DISP_E_UNKNOWNNAME).number(), 438);
  EXPECT_EQ(runTimeErrorOf(DISP_E_MEMBERNOTFOUND).number(), 438);
  EXPECT_EQ(runTimeErrorOf(DISP_E_TYPEMISMATCH).number(), 13);
  EXPECT_EQ(runTimeErrorOf(DISP_E_OVERFLOW).number(), 6);
  EXPECT_EQ(runTimeErrorOf(DISP_E_BADINDEX).number(), 9);
  EXPECT_EQ(runTimeErrorOf(E_OUTOFMEMORY).number(), 7);
}

TEST(RunTimeErrorOfAResult, KeepsEveryOtherResultAndDescribesItInOneLine) {
  const RunTimeError error = runTimeErrorOf(E_ACCESSDENIED);
  EXPECT_EQ(error.number(), -2147024891);
  EXPECT_THAT(error.description(), Not(IsEmpty()));
  EXPECT_EQ(error.description().find_first_of("\r\n"), std::string::npos);
  EXPECT_FALSE(error.description().ends_with(' '));
}

TEST(RunTimeErrorOfAResult, SaysSomethingAboutAResultThatTheSystemDoesNotKnow) {
  EXPECT_EQ(runTimeErrorOf(static_cast<HRESULT>(0x8FED1234)).description(), "Automation error");
}

TEST(RunTimeErrorOfAResult, HasTheDescriptionOfTheObject) {
  EXPECT_EQ(runTimeErrorOf(E_FAIL, "no server").description(), "no server");
}

TEST(ResultOfARunTimeError, CarriesItsNumber) {
  EXPECT_EQ(resultOf(RunTimeError(ErrorNumber::kFileNotFound)), static_cast<HRESULT>(0x800A0035));
  EXPECT_EQ(resultOf(RunTimeError(-2147220991, "")), -2147220991);
  EXPECT_EQ(runTimeErrorOf(resultOf(RunTimeError(ErrorNumber::kObjectNotSet))).number(), 91);
}

TEST(ResultOfARunTimeError, IsAFailureForANumberThatNoResultCarries) {
  EXPECT_EQ(resultOf(RunTimeError(0, "")), E_FAIL);
  EXPECT_EQ(resultOf(RunTimeError(70'000, "")), E_FAIL);
}

TEST(RequireSuccess, LetsSuccessesPass) {
  EXPECT_EQ(errorRaisedBy([] { requireSuccess(S_OK); }), 0);
  EXPECT_EQ(errorRaisedBy([] { requireSuccess(S_FALSE); }), 0);
}

TEST(RequireSuccess, TellsWhatTheObjectLeftBehind) {
  int references = 1;
  Counted object(references);
  leaveDescription("the books are closed");
  EXPECT_EQ(errorOf(E_FAIL, object).description(), "the books are closed");
}

TEST(RequireSuccess, DoesNotTellItTwice) {
  int references = 1;
  Counted object(references);
  leaveDescription("the books are closed");
  (void)errorOf(E_FAIL, object);
  EXPECT_NE(errorOf(E_FAIL, object).description(), "the books are closed");
}

TEST(RequireSuccess, DoesNotTellWhatAnotherObjectLeftBehind) {
  leaveDescription("the books are closed");
  try {
    requireSuccess(E_FAIL, nullptr, __uuidof(IDispatch));
    FAIL() << "a failure passed";
  } catch (const RunTimeError& error) {
    EXPECT_NE(error.description(), "the books are closed");
  }
  ::SetErrorInfo(0, nullptr);
}

}  // namespace
}  // namespace quorbind::testing
