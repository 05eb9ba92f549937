#include <objsafe.h>
#include <ocidl.h>

#include <array>

#include "tests/component/component_test.h"
#include "tests/component/footprint.h"

namespace quorbind::testing {
namespace {

const std::array kClasses{&CLSID_Quor_Book, &CLSID_Book_Config, &CLSID_CTOCToXML, &CLSID_cSort};

using ClassFactoryTest = ComponentTest;

TEST_F(ClassFactoryTest, KnowsTheFourPublicClasses) {
  for (const CLSID* classId : kClasses) {
    EXPECT_TRUE(component.create<IDispatch>(*classId));
  }
}

TEST_F(ClassFactoryTest, RefusesAnyOtherClass) {
  ComPtr<IClassFactory> factory;
  EXPECT_EQ(component.getClassObject(IID_IUnknown, factory.id(), factory.putAny()),
            CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_FALSE(factory);
}

TEST_F(ClassFactoryTest, RefusesNullPlaces) {
  EXPECT_EQ(component.getClassObject(CLSID_cSort, IID_IClassFactory, nullptr), E_POINTER);
  const auto factory = component.factoryOf(CLSID_cSort);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IDispatch, nullptr), E_POINTER);
  EXPECT_EQ(factory->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST_F(ClassFactoryTest, RefusesAggregation) {
  const auto outer = component.create<IUnknown>(CLSID_cSort);
  ComPtr<IUnknown> inner;
  EXPECT_EQ(
      component.factoryOf(CLSID_cSort)->CreateInstance(outer.get(), IID_IUnknown, inner.putAny()),
      CLASS_E_NOAGGREGATION);
  EXPECT_FALSE(inner);
}

TEST_F(ClassFactoryTest, RefusesInterfacesThatAnObjectDoesNotHave) {
  for (const CLSID* classId : kClasses) {
    const auto object = component.create<IUnknown>(*classId);
    for (const IID* id : {&IID_IObjectSafety, &IID_IObjectWithSite, &IID_IPersistStream}) {
      void* none = &none;
      EXPECT_EQ(object->QueryInterface(*id, &none), E_NOINTERFACE);
      EXPECT_EQ(none, nullptr);
    }
  }
}

TEST_F(ClassFactoryTest, GivesEachObjectOneIdentity) {
  const auto book = component.create<IUnknown>(CLSID_Quor_Book);
  for (const IID* id : {&IID_IDispatch,
                        &IID__Quor_Book,
                        &IID_IConnectionPointContainer,
                        &IID_IProvideClassInfo,
                        &IID_IProvideClassInfo2,
                        &IID_ISupportErrorInfo}) {
    ComPtr<IUnknown> face;
    ASSERT_EQ(book->QueryInterface(*id, face.putAny()), S_OK);
    EXPECT_EQ(face.as<IUnknown>().get(), book.get());
  }
}

TEST_F(ClassFactoryTest, KeepsTheComponentLoadedWhileAnythingOfItIsInUse) {
  EXPECT_TRUE(component.mayUnload());
  auto factory = component.factoryOf(CLSID_Quor_Book);
  EXPECT_FALSE(component.mayUnload());
  auto book = component.create<IConnectionPointContainer>(CLSID_Quor_Book);
  factory.reset();
  EXPECT_FALSE(component.mayUnload());

  ComPtr<IConnectionPoint> point;
  ASSERT_EQ(book->FindConnectionPoint(DIID___Quor_Book, point.put()), S_OK);
  book.reset();
  EXPECT_FALSE(component.mayUnload());
  ComPtr<IEnumConnections> connections;
  ASSERT_EQ(point->EnumConnections(connections.put()), S_OK);
  point.reset();
  EXPECT_FALSE(component.mayUnload());
  connections.reset();
  EXPECT_TRUE(component.mayUnload());
}

TEST_F(ClassFactoryTest, KeepsTheComponentLoadedWhileItIsLocked) {
  component.factoryOf(CLSID_cSort)->LockServer(TRUE);
  component.factoryOf(CLSID_cSort)->LockServer(TRUE);
  component.factoryOf(CLSID_cSort)->LockServer(FALSE);
  EXPECT_FALSE(component.mayUnload());
  component.factoryOf(CLSID_cSort)->LockServer(FALSE);
  EXPECT_TRUE(component.mayUnload());
}

TEST_F(ClassFactoryTest, LeavesNothingBehindAfterAThousandObjectsOfEachClass) {
  const auto makeAndRelease = [&](int rounds) {
    for (int round = 0; round < rounds; ++round) {
      for (const CLSID* classId : kClasses) {
        EXPECT_TRUE(create<IDispatch>(*classId));
      }
    }
  };
  makeAndRelease(100);
  const Footprint before = footprint();
  makeAndRelease(1000);
  const Footprint after = footprint();
  EXPECT_EQ(after.handles, before.handles);
  EXPECT_LE(after.bytes, before.bytes + 256 * 1024);
  EXPECT_TRUE(component.mayUnload());
}

}  // namespace
}  // namespace quorbind::testing
