#pragma once

#include <ocidl.h>
#include <olectl.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/component/component_test.h"
#include "tests/component/window_driver.h"

namespace quorbind::testing {

/// A host's listener. Its owner keeps it; references are only counted.
class Listener : public IDispatch {
 public:
  std::vector<std::string> folders;
  std::function<void()> reaction = [] {};
  HRESULT answer = S_OK;
  ULONG references = 0;

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    const bool isKnown = ::IsEqualIID(id, IID_IUnknown) || ::IsEqualIID(id, IID_IDispatch) ||
                         ::IsEqualIID(id, DIID___Quor_Book);
    *object = isKnown ? this : nullptr;
    references += isKnown ? 1 : 0;
    return isKnown ? S_OK : E_NOINTERFACE;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
  STDMETHODIMP_(ULONG) Release() override { return --references; }
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID member,
                      REFIID,
                      LCID,
                      WORD,
                      DISPPARAMS* arguments,
                      VARIANT*,
                      EXCEPINFO* exception,
                      UINT*) override {
    EXPECT_EQ(member, 1);
    EXPECT_EQ(arguments->cArgs, 1U);
    folders.push_back(Variant::copyOf(arguments->rgvarg[0]).text());
    if (answer == DISP_E_EXCEPTION) {
      exception->bstrDescription = ::SysAllocString(L"The listener has failed");
    }
    reaction();
    return answer;
  }
};

/// Objects with listeners, and runs that end with their first box.
class Events : public ComponentTest {
 protected:
  ComPtr<IConnectionPoint> point() const {
    ComPtr<IConnectionPoint> found;
    requireSuccess(
        book.as<IConnectionPointContainer>()->FindConnectionPoint(DIID___Quor_Book, found.put()));
    return found;
  }

  DWORD subscribe(IUnknown& listener) const {
    DWORD cookie = 0;
    EXPECT_EQ(point()->Advise(&listener, &cookie), S_OK);
    return cookie;
  }

  /// A run that ends with its first box: the table of contents is not of its kind.
  void runToItsEnd() const {
    const Person person([] { dismissMessage("TOC file is not a Text file"); });
    runUntilTheBox();
  }

  void runUntilTheBox() const {
    const Bstr empty;
    VARIANT_BOOL finished = VARIANT_FALSE;
    EXPECT_EQ(book->Book_Valuator(Bstr("C:\\toc.doc").get(),
                                  Bstr("C:\\Quor_TOC.xml").get(),
                                  4,
                                  empty.get(),
                                  empty.get(),
                                  empty.get(),
                                  empty.get(),
                                  empty.get(),
                                  empty.get(),
                                  empty.get(),
                                  empty.get(),
                                  empty.get(),
                                  0,
                                  VARIANT_FALSE,
                                  empty.get(),
                                  &finished),
              S_OK);
    EXPECT_EQ(finished, VARIANT_TRUE);
  }

  ComPtr<_Quor_Book> book = create<_Quor_Book>(CLSID_Quor_Book);
  Listener first;
  Listener second;
};

}  // namespace quorbind::testing
