// The built operations, called directly as compiled hosts do and by name as scripts do.

#include <ocidl.h>

#include <array>

#include "tests/component/component_test.h"
#include "tests/component/window_driver.h"
#include "tests/support/catalogue_text.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kSortMismatch =
    "Error(13): Type mismatch\nQuorbind:Quor_Developer-frmSelPrjTypetoAdd::mQuickSort";

std::string pathIn(const TemporaryFolder& folder, const wchar_t* name) {
  return toUtf8(folder.path().wstring() + L"\\" + name);
}

using EarlyBinding = ComponentTest;

TEST_F(EarlyBinding, SortsInPlaceAndAnswersACopy) {
  const auto sorter = create<_cSort>(CLSID_cSort);
  Variant names = arrayOf(VT_BSTR, {"pear", "Apple", "fig"});
  Variant copy;
  copy.put()->vt = VT_ARRAY | VT_BSTR;
  ASSERT_EQ(sorter->mQuickSort(&arrayIn(names), 0, 2, &arrayIn(copy)), S_OK);
  EXPECT_THAT(textsIn(names), ElementsAre("Apple", "fig", "pear"));
  EXPECT_THAT(textsIn(copy), ElementsAre("Apple", "fig", "pear"));
}

TEST_F(EarlyBinding, AnswersFalseAsZeroAndTrueAsAllBits) {
  const auto book = create<_Quor_Book>(CLSID_Quor_Book);
  const TemporaryFolder library;
  library.write("Quor_TOC.xml", catalogueWith(""));
  VARIANT_BOOL loaded = 7;
  ASSERT_EQ(book->mbCheckQuorTOCForBook(
                Bstr("C:\\nowhere.xml").get(), Bstr("B").get(), Bstr("A").get(), &loaded),
            S_OK);
  EXPECT_EQ(loaded, 0);
  ASSERT_EQ(
      book->mbCheckQuorTOCForBook(
          Bstr(pathIn(library, L"Quor_TOC.xml")).get(), Bstr("B").get(), Bstr("A").get(), &loaded),
      S_OK);
  EXPECT_EQ(loaded, -1);
}

TEST_F(EarlyBinding, TakesANullTextAsAnEmptyOne) {
  const auto book = create<_Quor_Book>(CLSID_Quor_Book);
  VARIANT_BOOL result = VARIANT_TRUE;
  EXPECT_EQ(book->mbCheckQuorTOCForBook(nullptr, nullptr, nullptr, &result), S_OK);
  EXPECT_EQ(result, VARIANT_FALSE);
}

TEST_F(EarlyBinding, RefusesAPlaceThatIsNotThere) {
  const auto book = create<_Quor_Book>(CLSID_Quor_Book);
  EXPECT_EQ(book->mbCheckQuorTOCForBook(nullptr, nullptr, nullptr, nullptr), E_POINTER);
  EXPECT_EQ(book->AddKeywordsToXmlFile(nullptr, nullptr, nullptr), E_POINTER);
  EXPECT_EQ(book->AddKeywords(nullptr, nullptr), E_POINTER);

  const auto sorter = create<_cSort>(CLSID_cSort);
  SAFEARRAY* array = nullptr;
  EXPECT_EQ(sorter->mQuickSort(&array, 0, 0, nullptr), E_POINTER);
  EXPECT_EQ(sorter->mQuickSort(nullptr, 0, 0, &array), E_POINTER);
}

TEST_F(EarlyBinding, TakesABookOutOfItsCatalogue) {
  const TemporaryFolder library;
  library.write("Quor_TOC.xml", catalogueWith(bookEntry("Alarms", "ALM") + bookEntry("B", "B")));
  const auto config = create<_Book_Config>(CLSID_Book_Config);
  ASSERT_EQ(
      config->DeleteQuorNode(Bstr(pathIn(library, L"Quor_TOC.xml")).get(), Bstr("Alarms").get()),
      S_OK);
  EXPECT_EQ(library.read("Quor_TOC.xml").find("ALM"), std::string::npos);
  EXPECT_NE(library.read("Quor_TOC.xml").find("<Book_Acro>B<"), std::string::npos);
}

TEST_F(EarlyBinding, WritesABookFileAndAnswersItsFolder) {
  const TemporaryFolder folder;
  folder.write("toc.txt",
               "h\r\n\r\n$@@$1$@@$ $@@$Grüße 中文$@@$ $@@$Manual\\cover.htm$@@$ $@@$$@@$ "
               "$@@$#NoLink#$@@$ $@@$#NO_BOOKLINK#$@@$\r\n");
  const auto generator = create<_CTOCToXML>(CLSID_CTOCToXML);
  Bstr bookFolder;
  ASSERT_EQ(generator->mstrGenerateXMLFromTOC(Bstr(pathIn(folder, L"toc.txt")).get(),
                                              nullptr,
                                              Bstr("Grüße 中文").get(),
                                              Bstr("GR").get(),
                                              nullptr,
                                              Bstr("Plant").get(),
                                              bookFolder.put()),
            S_OK);
  EXPECT_EQ(bookFolder.text(), "Manual");
  EXPECT_NE(fromUtf16File(folder.read("Book_GR.xml")).find("<Book_Name>Grüße 中文<"),
            std::string::npos);
}

TEST_F(EarlyBinding, AsksForNameAndAcronymInADialog) {
  const auto book = create<_Quor_Book>(CLSID_Quor_Book);
  const Person person([] { answerBookDialog("Grüße 中文", "GR"); });
  VARIANT_BOOL given = VARIANT_FALSE;
  ASSERT_EQ(book->mbGetFormInput(nullptr, 4, &given), S_OK);
  EXPECT_EQ(given, VARIANT_TRUE);
}

TEST_F(EarlyBinding, ShowsEveryObjectTheNamesThatTheFirstOneWasGiven) {
  const auto first = create<_Quor_Book>(CLSID_Quor_Book);
  {
    const Person person([] { answerBookDialog("Alarms", "ALM"); });
    VARIANT_BOOL given = VARIANT_FALSE;
    ASSERT_EQ(first->mbGetFormInput(nullptr, 4, &given), S_OK);
  }
  const auto second = create<_Quor_Book>(CLSID_Quor_Book);
  VARIANT_BOOL given = VARIANT_FALSE;
  ASSERT_EQ(second->mbGetFormInput(nullptr, 4, &given), S_OK);
  EXPECT_EQ(given, VARIANT_TRUE);
}

TEST_F(EarlyBinding, ForgetsTheNamesOnceNothingIsInUse) {
  {
    const Person person([] { answerBookDialog("Alarms", "ALM"); });
    VARIANT_BOOL given = VARIANT_FALSE;
    ASSERT_EQ(create<_Quor_Book>(CLSID_Quor_Book)->mbGetFormInput(nullptr, 4, &given), S_OK);
  }
  ASSERT_TRUE(component.mayUnload());
  const auto book = create<_Quor_Book>(CLSID_Quor_Book);
  const Person person([] { answerBookDialog("Pumps", "PMP"); });
  VARIANT_BOOL given = VARIANT_FALSE;
  ASSERT_EQ(book->mbGetFormInput(nullptr, 4, &given), S_OK);
  EXPECT_EQ(given, VARIANT_TRUE);
}

using LateBinding = ComponentTest;

TEST_F(LateBinding, SortsTheArrayInAScriptsVariable) {
  const auto sorter = createByName(L"Quorbind.cSort");
  for (const VARTYPE type : {VT_BSTR, VT_VARIANT}) {
    Variant names = arrayOf(type, {"pear", "Apple", "fig"});
    const LateAnswer answer =
        callByName(sorter.get(), L"mQuickSort", {variable(names), number(0), number(2)});
    ASSERT_EQ(answer.result, S_OK);
    EXPECT_EQ(answer.value.type(), VT_ARRAY | VT_BSTR);
    EXPECT_THAT(textsIn(answer.value), ElementsAre("Apple", "fig", "pear"));
    EXPECT_EQ(names.type(), VT_ARRAY | type);
    EXPECT_THAT(textsIn(names), ElementsAre("Apple", "fig", "pear"));
  }
}

TEST_F(LateBinding, SortsTheArrayThatIsPassedByReference) {
  const auto sorter = createByName(L"Quorbind.cSort");
  for (const VARTYPE type : {VT_BSTR, VT_VARIANT}) {
    for (const bool inVariable : {false, true}) {
      Variant names = arrayOf(type, {"pear", "Apple", "fig"});
      Variant reference;
      reference.put()->vt = static_cast<VARTYPE>(VT_BYREF | VT_ARRAY | type);
      const_cast<VARIANT&>(reference.get()).pparray = &arrayIn(names);
      const VARIANT array = inVariable ? variable(reference) : reference.get();
      const LateAnswer answer =
          callByName(sorter.get(), L"mQuickSort", {array, number(0), number(2)});
      ASSERT_EQ(answer.result, S_OK);
      EXPECT_THAT(textsIn(names), ElementsAre("Apple", "fig", "pear"));
    }
  }
}

TEST_F(LateBinding, TakesNumbersFromVariablesAndFromTexts) {
  const auto sorter = createByName(L"Quorbind.cSort");
  Variant names = arrayOf(VT_VARIANT, {"c", "b", "a"});
  Variant first = Variant::ofInteger(1);
  Variant last = Variant::ofText("2");
  const LateAnswer answer =
      callByName(sorter.get(), L"mQuickSort", {variable(names), variable(first), variable(last)});
  ASSERT_EQ(answer.result, S_OK);
  EXPECT_THAT(textsIn(names), ElementsAre("c", "a", "b"));
  EXPECT_EQ(last.type(), VT_BSTR);
}

TEST_F(LateBinding, TakesArgumentsByTheirNames) {
  const auto sorter = createByName(L"Quorbind.cSort");
  std::array<const wchar_t*, 4> names{L"mQuickSort", L"vlUBound", L"marrscategories", L"vllBound"};
  std::array<DISPID, 4> ids{};
  ASSERT_EQ(sorter->GetIDsOfNames(
                IID_NULL, const_cast<LPOLESTR*>(names.data()), 4, LOCALE_USER_DEFAULT, ids.data()),
            S_OK);
  Variant fruit = arrayOf(VT_VARIANT, {"pear", "fig"});
  std::array<VARIANT, 3> arguments{number(1), variable(fruit), number(0)};
  DISPPARAMS parameters{arguments.data(), &ids[1], 3, 3};
  EXPECT_EQ(
      sorter->Invoke(ids[0], IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr),
      S_OK);
  EXPECT_THAT(textsIn(fruit), ElementsAre("fig", "pear"));
}

TEST_F(LateBinding, LeavesAnArrayThatIsPassedByValueAsItIs) {
  const auto sorter = createByName(L"Quorbind.cSort");
  const Variant names = arrayOf(VT_VARIANT, {"pear", "Apple"});
  const LateAnswer answer =
      callByName(sorter.get(), L"mQuickSort", {names.get(), number(0), number(1)});
  ASSERT_EQ(answer.result, S_OK);
  EXPECT_THAT(textsIn(answer.value), ElementsAre("Apple", "pear"));
  EXPECT_THAT(textsIn(names), ElementsAre("pear", "Apple"));
}

TEST_F(LateBinding, CountsTheBoundsAsTheCallersArrayDoes) {
  const auto sorter = createByName(L"Quorbind.cSort");
  Variant names = arrayOf(VT_BSTR, {"first", "c", "b", "a"}, 5);
  const LateAnswer answer =
      callByName(sorter.get(), L"mQuickSort", {variable(names), number(6), number(8)});
  ASSERT_EQ(answer.result, S_OK);
  EXPECT_THAT(textsIn(names), ElementsAre("first", "a", "b", "c"));
  LONG lowerBound = 0;
  ASSERT_EQ(::SafeArrayGetLBound(answer.value.get().parray, 1, &lowerBound), S_OK);
  EXPECT_EQ(lowerBound, 5);
}

TEST_F(LateBinding, ReportsAnArrayOfAnotherTypeAndAnswersAnArrayWithoutBounds) {
  const auto sorter = createByName(L"Quorbind.cSort");
  Variant numbers = numberArray();
  const Person person([] { dismissMessage(kSortMismatch); });
  const LateAnswer answer =
      callByName(sorter.get(), L"mQuickSort", {variable(numbers), number(0), number(1)});
  EXPECT_EQ(answer.result, S_OK);
  EXPECT_EQ(answer.value.type(), VT_ARRAY | VT_BSTR);
  EXPECT_EQ(answer.value.get().parray, nullptr);
  EXPECT_THAT(textsIn(answer.value), IsEmpty());
}

TEST_F(LateBinding, RefusesWhatIsNoArrayAndTellsWhich) {
  const auto sorter = createByName(L"Quorbind.cSort");
  Variant text = Variant::ofText("a");
  const LateAnswer answer =
      callByName(sorter.get(), L"mQuickSort", {variable(text), number(0), number(0)});
  EXPECT_EQ(answer.result, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(answer.wrongArgument, 2U);
}

TEST_F(LateBinding, NeverChangesATextThatIsPassedByValue) {
  const auto book = createByName(L"Quorbind.Quor_Book");
  Variant catalogue = Variant::ofText("C:/nowhere/Quor_TOC.xml");
  Variant name = Variant::ofText("A&B");
  const LateAnswer answer =
      callByName(book.get(),
                 L"mbCheckQuorTOCForBook",
                 {variable(catalogue), variable(name), Variant::ofText("A").get()});
  ASSERT_EQ(answer.result, S_OK);
  EXPECT_EQ(answer.value.type(), VT_BOOL);
  EXPECT_EQ(catalogue.text(), "C:/nowhere/Quor_TOC.xml");
  EXPECT_EQ(name.text(), "A&B");
}

TEST_F(LateBinding, KnowsNoMemberThatIsNotPublished) {
  const auto book = createByName(L"Quorbind.Quor_Book");
  for (const wchar_t* member : {L"mbAddBookTocForBook", L"BuildExcelBook", L"evtGetFolderName"}) {
    auto name = const_cast<LPOLESTR>(member);
    DISPID id = 0;
    EXPECT_EQ(book->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id),
              DISP_E_UNKNOWNNAME);
  }
}

TEST_F(LateBinding, RefusesAWrongNumberOfArguments) {
  const auto sorter = createByName(L"Quorbind.cSort");
  Variant names = arrayOf(VT_BSTR, {"b", "a"});
  const auto sort = [&](const std::vector<VARIANT>& arguments) {
    return callByName(sorter.get(), L"mQuickSort", arguments).result;
  };
  EXPECT_TRUE(FAILED(sort({variable(names), number(0)})));
  EXPECT_TRUE(FAILED(sort({variable(names), number(0), number(1), number(1)})));
  EXPECT_THAT(textsIn(names), ElementsAre("b", "a"));
}

using ObjectDescription = ComponentTest;

TEST_F(ObjectDescription, NamesTheClassAndItsEvents) {
  const auto book = create<IProvideClassInfo2>(CLSID_Quor_Book);
  ComPtr<ITypeInfo> info;
  ASSERT_EQ(book->GetClassInfo(info.put()), S_OK);
  Bstr name;
  ASSERT_EQ(info->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr), S_OK);
  EXPECT_EQ(name.text(), "Quor_Book");
  GUID events{};
  ASSERT_EQ(book->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
  EXPECT_TRUE(::IsEqualGUID(events, DIID___Quor_Book));
  EXPECT_EQ(book->GetGUID(0, &events), E_INVALIDARG);
  EXPECT_EQ(book->GetClassInfo(nullptr), E_POINTER);
}

TEST_F(ObjectDescription, OfAClassWithoutEventsNamesNone) {
  GUID events{};
  EXPECT_EQ(
      create<IProvideClassInfo2>(CLSID_cSort)->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events),
      E_NOTIMPL);
}

TEST_F(ObjectDescription, SupportsErrorInfoForTheClasssOwnInterfaceOnly) {
  const auto sorter = create<ISupportErrorInfo>(CLSID_cSort);
  EXPECT_EQ(sorter->InterfaceSupportsErrorInfo(IID__cSort), S_OK);
  EXPECT_EQ(sorter->InterfaceSupportsErrorInfo(IID__Quor_Book), S_FALSE);
}

}  // namespace
}  // namespace quorbind::testing
