// What hosts do with objects, and the operations of the two small classes, when memory runs short.

#include <functional>
#include <ios>
#include <string>
#include <vector>

#include "tests/component/component_test.h"
#include "tests/component/events.h"
#include "tests/component/footprint.h"
#include "tests/starved/starved_dll.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {
namespace {

class StarvedObjects : public ::testing::Test, protected RegisteredDlls {
 protected:
  StarvedObjects() : RegisteredDlls(kStarvedDll) {}

  /// Does it with all the memory that it wants, then with each of its allocations refused, and with
  /// all again: it succeeds, or ends with E_OUTOFMEMORY, and nothing is left of it.
  static void atEachPlace(const std::function<HRESULT()>& deed) {
    ASSERT_EQ(deed(), S_OK);
    starvation().asked = 0;
    starvation().boxes = 0;
    ASSERT_EQ(deed(), S_OK);
    const long places = starvation().asked;
    ASSERT_GT(places, 0);
    ASSERT_EQ(starvation().boxes, 0);
    const long alive = starvation().alive;
    const DWORD handles = footprint().handles;
    long refusals = 0;
    for (long place = 0; place < places; ++place) {
      SCOPED_TRACE("allocation " + std::to_string(place) + " of " + std::to_string(places));
      starvation().successesLeft = place;
      const HRESULT result = deed();
      starvation().successesLeft = kUnlimited;
      EXPECT_TRUE(result == S_OK || result == E_OUTOFMEMORY) << std::hex << result;
      EXPECT_EQ(starvation().alive, alive);
      refusals += result == E_OUTOFMEMORY ? 1 : 0;
    }
    EXPECT_EQ(deed(), S_OK);
    EXPECT_EQ(starvation().alive, alive);
    EXPECT_EQ(footprint().handles, handles);
    EXPECT_GT(refusals + starvation().boxes, 0) << "nothing was felt of it";
  }

  /// An object of the class, by its factory.
  [[nodiscard]] HRESULT make(REFCLSID classId, ComPtr<IDispatch>& object) const {
    ComPtr<IClassFactory> factory;
    const HRESULT found = component.getClassObject(classId, factory.id(), factory.putAny());
    return FAILED(found) ? found : factory->CreateInstance(nullptr, object.id(), object.putAny());
  }

  const TemporaryFolder disk;
};

TEST_F(StarvedObjects, OfEachClassAreMadeOrNot) {
  for (const CLSID* classId :
       {&CLSID_Quor_Book, &CLSID_Book_Config, &CLSID_CTOCToXML, &CLSID_cSort}) {
    // What the DLL has once is made by the first object, and stays with this one.
    const auto first = component.create<IDispatch>(*classId);
    atEachPlace([&] {
      ComPtr<IDispatch> object;
      return make(*classId, object);
    });
  }
}

TEST_F(StarvedObjects, AreTheFirstOfTheDllOrNot) {
  atEachPlace([&] {
    ComPtr<IDispatch> object;
    const HRESULT result = make(CLSID_Quor_Book, object);
    object.reset();
    EXPECT_TRUE(component.mayUnload());
    return result;
  });
}

TEST_F(StarvedObjects, TakeListenersOrNot) {
  const auto book = component.create<IConnectionPointContainer>(CLSID_Quor_Book);
  Listener listener;
  atEachPlace([&] {
    ComPtr<IEnumConnectionPoints> points;
    ComPtr<IConnectionPoint> point;
    ComPtr<IEnumConnections> connections;
    ComPtr<IEnumConnections> clone;
    DWORD cookie = 0;
    HRESULT result = book->EnumConnectionPoints(points.put());
    result = FAILED(result) ? result : points->Next(1, point.put(), nullptr);
    result = FAILED(result) ? result : point->Advise(&listener, &cookie);
    if (SUCCEEDED(result)) {
      result = point->EnumConnections(connections.put());
      result = FAILED(result) ? result : connections->Clone(clone.put());
      EXPECT_EQ(point->Unadvise(cookie), S_OK);
    }
    return result;
  });
  EXPECT_EQ(listener.references, 0U);
}

TEST_F(StarvedObjects, SortOrGiveBackTheSameNames) {
  const auto sorter = component.create<_cSort>(CLSID_cSort);
  // More than are sorted without being parted.
  std::vector<std::string> all;
  for (char last = 'p'; last >= 'a'; --last) {
    all.push_back(std::string("a name that is long enough ") + last);
  }
  atEachPlace([&] {
    Variant names = arrayOf(VT_BSTR, all);
    Variant sorted;
    sorted.put()->vt = VT_ARRAY | VT_BSTR;
    const HRESULT result =
        sorter->mQuickSort(&arrayIn(names), 0, static_cast<LONG>(all.size()) - 1, &arrayIn(sorted));
    EXPECT_THAT(textsIn(names), ::testing::UnorderedElementsAreArray(all));
    return result;
  });
}

TEST_F(StarvedObjects, AreCalledByNameOrNot) {
  const auto sorter = createByName(L"Quorbind.cSort");
  atEachPlace([&] {
    Variant names = arrayOf(VT_VARIANT, {"a name that is long enough", "another long name"});
    return callByName(sorter.get(), L"mQuickSort", {variable(names), number(0), number(1)}).result;
  });
}

TEST_F(StarvedObjects, WriteABookFileOrNone) {
  disk.write("toc.txt",
             "\"Node Level\" \"Node Name\" \"File Name\" \"Sub Link\"\r\n\r\n"
             "\"1\" \"Alarms\" \"Manual\\cover.htm\" \"\" "
             "$@@$1$@@$ $@@$Alarms$@@$ $@@$Manual\\cover.htm$@@$ $@@$$@@$ "
             "$@@$#NoLink#$@@$ $@@$#NO_BOOKLINK#$@@$\r\n");
  const auto generator = component.create<_CTOCToXML>(CLSID_CTOCToXML);
  const auto path = [this](const char* name) {
    return Bstr(toUtf8((disk.path() / name).wstring()));
  };
  atEachPlace([&] {
    Bstr folder;
    const HRESULT result = generator->mstrGenerateXMLFromTOC(path("toc.txt").get(),
                                                             path("Quor_TOC.xml").get(),
                                                             Bstr("Alarms").get(),
                                                             Bstr("ALM").get(),
                                                             Bstr("Book_ALM.xml").get(),
                                                             Bstr("Plant").get(),
                                                             folder.put());
    for (const auto& [name, bytes] : disk.contents()) {
      EXPECT_TRUE(name == "toc.txt" ||
                  (name == "Book_ALM.xml" && fromUtf16File(bytes).ends_with("</Book_Master>\r\n")))
          << name << '\n'
          << bytes;
    }
    return result;
  });
}

}  // namespace
}  // namespace quorbind::testing
