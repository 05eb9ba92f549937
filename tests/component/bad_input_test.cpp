// What hosts may hand over by mistake: each has a defined answer, and nothing is touched.

#include <array>
#include <limits>
#include <optional>

#include "tests/component/component_test.h"
#include "tests/component/window_driver.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kSortMismatch =
    "Error(13): Type mismatch\nQuorbind:Quor_Developer-frmSelPrjTypetoAdd::mQuickSort";
constexpr const char* kSortOutOfRange =
    "Error(9): Subscript out of range\nQuor_Developer-frmSelPrjTypetoAdd::bubbleSort";
constexpr const char* kSortOverflow =
    "Error(6): Overflow\nQuorbind:Quor_Developer-frmSelPrjTypetoAdd::mQuickSort";

/// The functions of an object's interface as compiled hosts call them.
class DirectCalls {
 public:
  explicit DirectCalls(REFCLSID classId) : object_(create<IDispatch>(classId)) {
    constexpr UINT kInterfaceBehindDispatch = static_cast<UINT>(-1);
    ComPtr<ITypeInfo> byName;
    HREFTYPE direct = 0;
    requireSuccess(object_->GetTypeInfo(0, LOCALE_USER_DEFAULT, byName.put()));
    requireSuccess(byName->GetRefTypeOfImplType(kInterfaceBehindDispatch, &direct));
    requireSuccess(byName->GetRefTypeInfo(direct, info_.put()));
  }

  /// Calls every function once for each place that it takes, with that place null and all others
  /// given. Answers those that were not refused, and counts the calls.
  std::vector<std::string> notRefusingANullPlace(int& calls) const {
    std::vector<std::string> accepting;
    TYPEATTR* attributes = nullptr;
    requireSuccess(info_->GetTypeAttr(&attributes));
    const UINT count = attributes->cFuncs;
    info_->ReleaseTypeAttr(attributes);
    for (UINT index = 0; index < count; ++index) {
      FUNCDESC* function = nullptr;
      requireSuccess(info_->GetFuncDesc(index, &function));
      for (SHORT place = 0; place < function->cParams; ++place) {
        if (isPlace(*function, place)) {
          ++calls;
          if (callWithNullAt(*function, place) != E_POINTER) {
            accepting.push_back(nameOf(*function) + ", parameter " + std::to_string(place + 1));
          }
        }
      }
      info_->ReleaseFuncDesc(function);
    }
    return accepting;
  }

 private:
  static VARTYPE typeOf(const FUNCDESC& function, SHORT parameter) {
    return function.lprgelemdescParam[parameter].tdesc.vt;
  }
  static bool isPlace(const FUNCDESC& function, SHORT parameter) {
    const TYPEDESC& type = function.lprgelemdescParam[parameter].tdesc;
    return type.vt == VT_PTR && type.lptdesc->vt != VT_USERDEFINED;
  }

  HRESULT callWithNullAt(const FUNCDESC& function, SHORT nullPlace) const {
    constexpr int kMost = 16;
    std::array<void*, kMost> places{};
    std::array<VARTYPE, kMost> types{};
    std::array<VARIANTARG, kMost> values{};
    std::array<VARIANTARG*, kMost> arguments{};
    for (SHORT index = 0; index < function.cParams; ++index) {
      types.at(index) = typeOf(function, index);
      if (isPlace(function, index) && index != nullPlace) {
        values.at(index).byref = &places.at(index);
      }
      arguments.at(index) = &values.at(index);
    }
    Variant answer;
    requireSuccess(::DispCallFunc(object_.get(),
                                  static_cast<ULONG_PTR>(function.oVft),
                                  CC_STDCALL,
                                  VT_ERROR,
                                  static_cast<UINT>(function.cParams),
                                  types.data(),
                                  arguments.data(),
                                  answer.put()));
    return answer.get().scode;
  }

  std::string nameOf(const FUNCDESC& function) const {
    Bstr name;
    requireSuccess(info_->GetDocumentation(function.memid, name.put(), nullptr, nullptr, nullptr));
    return name.text();
  }

  ComPtr<IDispatch> object_;
  ComPtr<ITypeInfo> info_;
};

using BadInput = ComponentTest;

TEST_F(BadInput, EveryOperationRefusesANullPlaceForWhatItGives) {
  int calls = 0;
  for (const CLSID* classId :
       {&CLSID_Quor_Book, &CLSID_Book_Config, &CLSID_CTOCToXML, &CLSID_cSort}) {
    EXPECT_THAT(DirectCalls(*classId).notRefusingANullPlace(calls), IsEmpty());
  }
  EXPECT_EQ(calls, 34);
}

TEST_F(BadInput, CallsByNameRefuseNullPlaces) {
  const auto book = createByName(L"Quorbind.Quor_Book");
  auto name = const_cast<LPOLESTR>(L"mbGetFormInput");
  DISPID id = 0;
  EXPECT_EQ(book->GetTypeInfoCount(nullptr), E_POINTER);
  EXPECT_EQ(book->GetTypeInfo(0, 0, nullptr), E_POINTER);
  EXPECT_EQ(book->GetIDsOfNames(IID_NULL, nullptr, 1, 0, &id), E_POINTER);
  EXPECT_EQ(book->GetIDsOfNames(IID_NULL, &name, 1, 0, nullptr), E_POINTER);
  EXPECT_EQ(book->Invoke(2, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr),
            E_INVALIDARG);
}

TEST_F(BadInput, CallsByNameRefuseWhatIsReserved) {
  const auto book = createByName(L"Quorbind.Quor_Book");
  auto name = const_cast<LPOLESTR>(L"mbGetFormInput");
  DISPID id = 0;
  DISPPARAMS none{};
  EXPECT_EQ(book->GetIDsOfNames(IID_IDispatch, &name, 1, 0, &id), DISP_E_UNKNOWNINTERFACE);
  EXPECT_EQ(book->Invoke(2, IID_IDispatch, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
            DISP_E_UNKNOWNINTERFACE);
  ComPtr<ITypeInfo> info;
  EXPECT_EQ(book->GetTypeInfo(1, 0, info.put()), DISP_E_BADINDEX);
  EXPECT_EQ(book->Invoke(99, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
            DISP_E_MEMBERNOTFOUND);
}

class BadArray : public ComponentTest {
 protected:
  /// Sorts from `first` to `last` and answers the texts of the result. No box: null.
  std::vector<std::string> sort(SAFEARRAY*& names,
                                LONG first,
                                LONG last,
                                const char* expectedBox) const {
    std::optional<Person> person;
    if (expectedBox != nullptr) {
      person.emplace([expectedBox] { dismissMessage(expectedBox); });
    }
    Variant result;
    result.put()->vt = VT_ARRAY | VT_BSTR;
    EXPECT_EQ(sorter_->mQuickSort(&names, first, last, &arrayIn(result)), S_OK);
    return textsIn(result);
  }

 private:
  const ComPtr<_cSort> sorter_ = create<_cSort>(CLSID_cSort);
};

TEST_F(BadArray, ThatIsUnsetHasNoElements) {
  SAFEARRAY* unset = nullptr;
  EXPECT_THAT(sort(unset, 0, -1, nullptr), IsEmpty());
  EXPECT_THAT(sort(unset, 0, 1, kSortOutOfRange), IsEmpty());
  EXPECT_EQ(unset, nullptr);
}

TEST_F(BadArray, WithAnotherLowerBoundIsCountedFromThere) {
  Variant names = arrayOf(VT_BSTR, {"c", "b", "a"}, -3);
  EXPECT_THAT(sort(arrayIn(names), -3, -1, nullptr), ElementsAre("a", "b", "c"));
  EXPECT_THAT(textsIn(names), ElementsAre("a", "b", "c"));
}

TEST_F(BadArray, IsNotLeftByItsBounds) {
  Variant names = arrayOf(VT_BSTR, {"b", "a"}, 1);
  EXPECT_THAT(sort(arrayIn(names), 0, 2, kSortOutOfRange), ElementsAre("b", "a"));
  EXPECT_THAT(textsIn(names), ElementsAre("b", "a"));
}

TEST_F(BadArray, IsNotLeftByIndicesThatAreTooFarFromItsLowerBound) {
  constexpr LONG kLowest = std::numeric_limits<LONG>::min();
  Variant names = arrayOf(VT_BSTR, {"b", "a"}, 1);
  EXPECT_THAT(sort(arrayIn(names), kLowest, 2, kSortOverflow), IsEmpty());
  EXPECT_THAT(sort(arrayIn(names), kLowest, kLowest, nullptr), ElementsAre("b", "a"));
  EXPECT_THAT(textsIn(names), ElementsAre("b", "a"));
}

TEST_F(BadArray, OfNumbersIsATypeMismatch) {
  Variant numbers = numberArray();
  EXPECT_THAT(sort(arrayIn(numbers), 0, 1, kSortMismatch), IsEmpty());
}

TEST_F(BadArray, OfTwoDimensionsIsATypeMismatch) {
  std::array<SAFEARRAYBOUND, 2> bounds{{{2, 0}, {2, 0}}};
  Variant table;
  table.put()->vt = VT_ARRAY | VT_BSTR;
  arrayIn(table) = ::SafeArrayCreate(VT_BSTR, 2, bounds.data());
  EXPECT_THAT(sort(arrayIn(table), 0, 1, kSortMismatch), IsEmpty());
}

TEST_F(BadArray, WithAnElementThatIsNoTextIsATypeMismatchAndStaysAsItIs) {
  Variant names = arrayOf(VT_VARIANT, {"b", "a", ""});
  Variant null;
  null.put()->vt = VT_NULL;
  LONG last = 2;
  requireSuccess(::SafeArrayPutElement(arrayIn(names), &last, const_cast<VARIANT*>(&null.get())));
  EXPECT_THAT(sort(arrayIn(names), 0, 1, kSortMismatch), IsEmpty());
  VARIANT* elements = nullptr;
  requireSuccess(::SafeArrayAccessData(arrayIn(names), reinterpret_cast<void**>(&elements)));
  EXPECT_EQ(textOf(elements[0].bstrVal), "b");
  EXPECT_EQ(elements[2].vt, VT_NULL);
  ::SafeArrayUnaccessData(arrayIn(names));
}

TEST_F(BadArray, OfVariantsMayHoldNumbersThatReadAsTexts) {
  Variant names = arrayOf(VT_VARIANT, {"b", "a", ""});
  Variant seven = Variant::ofInteger(7);
  LONG last = 2;
  requireSuccess(::SafeArrayPutElement(arrayIn(names), &last, const_cast<VARIANT*>(&seven.get())));
  EXPECT_THAT(sort(arrayIn(names), 0, 2, nullptr), ElementsAre("7", "a", "b"));
}

}  // namespace
}  // namespace quorbind::testing
