// Adds the pump station's book to a library and tells which folder it has there:
//
//   add_book TOC SERVER LIBRARY
//
// TOC is pump-station\toc-prepared.txt, with its whole path; SERVER the folder of the documentation
// server; LIBRARY the name of a library there.
//
// quorbind_com.h is made from component/quorbind.idl: by this project's build, or by
// `midl /h quorbind_com.h quorbind.idl`.

#include <comdef.h>

#include <cstdio>
#include <string>

#include "quorbind_com.h"

_COM_SMARTPTR_TYPEDEF(_Quor_Book, __uuidof(_Quor_Book));
_COM_SMARTPTR_TYPEDEF(IConnectionPointContainer, __uuidof(IConnectionPointContainer));
_COM_SMARTPTR_TYPEDEF(IConnectionPoint, __uuidof(IConnectionPoint));

namespace {

constexpr short kTextToc = 4;
constexpr DISPID kEvtGetFolderName = 1;

/// Hears the event. Lives in main's frame, so references are not counted.
class FolderListener final : public IDispatch {
 public:
  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    const bool isKnown = id == IID_IUnknown || id == IID_IDispatch || id == __uuidof(__Quor_Book);
    *object = isKnown ? this : nullptr;
    return isKnown ? S_OK : E_NOINTERFACE;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 1; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID member,
                      REFIID,
                      LCID,
                      WORD,
                      DISPPARAMS* arguments,
                      VARIANT*,
                      EXCEPINFO*,
                      UINT*) override {
    if (member != kEvtGetFolderName) {
      return DISP_E_MEMBERNOTFOUND;
    }
    std::wprintf(L"Folder of the book: %ls\n", arguments->rgvarg[0].bstrVal);
    return S_OK;
  }
};

IConnectionPointPtr eventsOf(_Quor_Book* book) {
  IConnectionPointPtr events;
  IConnectionPointContainerPtr container(book);
  _com_util::CheckError(container->FindConnectionPoint(__uuidof(__Quor_Book), &events));
  return events;
}

bool addBook(const std::wstring& toc, const std::wstring& server, const std::wstring& library) {
  const std::wstring docs = server + L"\\Docs\\";
  const std::wstring catalogue = docs + library + L"\\Quor_TOC.xml";
  const _bstr_t none(L"");

  _Quor_BookPtr book;
  _com_util::CheckError(book.CreateInstance(__uuidof(Quor_Book)));
  FolderListener listener;
  DWORD subscription = 0;
  const IConnectionPointPtr events = eventsOf(book);
  _com_util::CheckError(events->Advise(&listener, &subscription));

  VARIANT_BOOL finished = VARIANT_FALSE;
  const HRESULT result = book->Book_Valuator(_bstr_t(toc.c_str()),
                                             _bstr_t(catalogue.c_str()),
                                             kTextToc,
                                             _bstr_t(library.c_str()),
                                             _bstr_t(L"Pump Station"),
                                             _bstr_t(L"PST"),
                                             _bstr_t(L"Operation"),
                                             none,
                                             none,
                                             none,
                                             none,
                                             none,
                                             0,
                                             VARIANT_FALSE,
                                             _bstr_t(docs.c_str()),
                                             &finished);
  events->Unadvise(subscription);
  _com_util::CheckError(result);
  return finished != VARIANT_FALSE;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  if (count != 4) {
    std::fwprintf(stderr, L"usage: add_book TOC SERVER LIBRARY\n");
    return 2;
  }
  if (FAILED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {
    return 1;
  }
  bool finished = false;
  try {
    finished = addBook(arguments[1], arguments[2], arguments[3]);
  } catch (const _com_error& error) {
    std::fwprintf(stderr, L"%ls\n", error.ErrorMessage());
  }
  ::CoUninitialize();
  if (finished) {
    std::wprintf(L"The run came to its end.\n");
  }
  return finished ? 0 : 1;
}
