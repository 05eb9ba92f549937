/* Adds the pump station's book to a library and tells which folder it has there:
 *
 *   add_book TOC SERVER LIBRARY
 *
 * TOC is pump-station\toc-prepared.txt, with its whole path; SERVER the folder of the documentation
 * server; LIBRARY the name of a library there.
 *
 * quorbind_com.h is made from component/quorbind.idl: by this project's build, or by
 * `midl /h quorbind_com.h quorbind.idl`, which puts the identities into quorbind_i.c. */

#include <stdio.h>

#define COBJMACROS
#include <initguid.h>
#include <ole2.h>
#include <olectl.h>

#include "quorbind_com.h"

enum { kTextToc = 4, kEvtGetFolderName = 1, kLongestPath = 1024 };

/* What hears the event. It lives as long as the program, so references are not counted. */

static HRESULT STDMETHODCALLTYPE find(IDispatch* self, REFIID id, void** object) {
  const BOOL isKnown = IsEqualIID(id, &IID_IUnknown) || IsEqualIID(id, &IID_IDispatch) ||
                       IsEqualIID(id, &DIID___Quor_Book);
  *object = isKnown ? self : NULL;
  return isKnown ? S_OK : E_NOINTERFACE;
}

static ULONG STDMETHODCALLTYPE count(IDispatch* self) {
  (void)self;
  return 1;
}

static HRESULT STDMETHODCALLTYPE countTypeInfo(IDispatch* self, UINT* infos) {
  (void)self;
  *infos = 0;
  return S_OK;
}

static HRESULT STDMETHODCALLTYPE giveTypeInfo(IDispatch* self,
                                              UINT index,
                                              LCID locale,
                                              ITypeInfo** info) {
  (void)self, (void)index, (void)locale;
  *info = NULL;
  return DISP_E_BADINDEX;
}

static HRESULT STDMETHODCALLTYPE giveIds(
    IDispatch* self, REFIID reserved, LPOLESTR* names, UINT nameCount, LCID locale, DISPID* ids) {
  (void)self, (void)reserved, (void)names, (void)nameCount, (void)locale, (void)ids;
  return E_NOTIMPL;
}

static HRESULT STDMETHODCALLTYPE hear(IDispatch* self,
                                      DISPID member,
                                      REFIID reserved,
                                      LCID locale,
                                      WORD kind,
                                      DISPPARAMS* arguments,
                                      VARIANT* result,
                                      EXCEPINFO* exception,
                                      UINT* wrongArgument) {
  (void)self, (void)reserved, (void)locale, (void)kind, (void)result, (void)exception;
  (void)wrongArgument;
  if (member != kEvtGetFolderName) {
    return DISP_E_MEMBERNOTFOUND;
  }
  wprintf(L"Folder of the book: %ls\n", arguments->rgvarg[0].bstrVal);
  return S_OK;
}

static IDispatchVtbl listenerFunctions = {
    find, count, count, countTypeInfo, giveTypeInfo, giveIds, hear};
static IDispatch listener = {&listenerFunctions};

/* Answers the point to which it is subscribed, or NULL. */
static IConnectionPoint* subscribe(_Quor_Book* book, DWORD* subscription) {
  IConnectionPointContainer* container = NULL;
  IConnectionPoint* events = NULL;
  if (FAILED(_Quor_Book_QueryInterface(book, &IID_IConnectionPointContainer, (void**)&container))) {
    return NULL;
  }
  IConnectionPointContainer_FindConnectionPoint(container, &DIID___Quor_Book, &events);
  IConnectionPointContainer_Release(container);
  if (events != NULL &&
      FAILED(IConnectionPoint_Advise(events, (IUnknown*)&listener, subscription))) {
    IConnectionPoint_Release(events);
    events = NULL;
  }
  return events;
}

static HRESULT addBook(_Quor_Book* book,
                       const wchar_t* toc,
                       const wchar_t* server,
                       const wchar_t* library,
                       VARIANT_BOOL* finished) {
  wchar_t docs[kLongestPath];
  wchar_t catalogue[kLongestPath];
  swprintf(docs, kLongestPath, L"%ls\\Docs\\", server);
  swprintf(catalogue, kLongestPath, L"%ls%ls\\Quor_TOC.xml", docs, library);

  /* A NULL text is an empty one. */
  BSTR texts[] = {SysAllocString(toc),
                  SysAllocString(catalogue),
                  SysAllocString(library),
                  SysAllocString(L"Pump Station"),
                  SysAllocString(L"PST"),
                  SysAllocString(L"Operation"),
                  SysAllocString(docs)};
  HRESULT result = _Quor_Book_Book_Valuator(book,
                                            texts[0],
                                            texts[1],
                                            kTextToc,
                                            texts[2],
                                            texts[3],
                                            texts[4],
                                            texts[5],
                                            NULL,
                                            NULL,
                                            NULL,
                                            NULL,
                                            NULL,
                                            0,
                                            VARIANT_FALSE,
                                            texts[6],
                                            finished);
  for (size_t index = 0; index < sizeof texts / sizeof texts[0]; ++index) {
    SysFreeString(texts[index]);
  }
  return result;
}

static int run(wchar_t** arguments) {
  _Quor_Book* book = NULL;
  DWORD subscription = 0;
  VARIANT_BOOL finished = VARIANT_FALSE;
  if (FAILED(CoCreateInstance(
          &CLSID_Quor_Book, NULL, CLSCTX_INPROC_SERVER, &IID__Quor_Book, (void**)&book))) {
    fwprintf(stderr, L"Quorbind is not registered.\n");
    return 1;
  }
  IConnectionPoint* events = subscribe(book, &subscription);
  HRESULT result = addBook(book, arguments[1], arguments[2], arguments[3], &finished);
  if (events != NULL) {
    IConnectionPoint_Unadvise(events, subscription);
    IConnectionPoint_Release(events);
  }
  _Quor_Book_Release(book);
  if (FAILED(result) || !finished) {
    return 1;
  }
  wprintf(L"The run came to its end.\n");
  return 0;
}

int wmain(int argumentCount, wchar_t** arguments) {
  if (argumentCount != 4) {
    fwprintf(stderr, L"usage: add_book TOC SERVER LIBRARY\n");
    return 2;
  }
  if (FAILED(CoInitializeEx(NULL, COINIT_APARTMENTTHREADED))) {
    return 1;
  }
  int status = run(arguments);
  CoUninitialize();
  return status;
}
