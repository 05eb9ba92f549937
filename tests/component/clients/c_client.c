/* A host in C: sorts three names, directly through the interface. Answers 0 and prints them. */

#include <stdio.h>

#define COBJMACROS
#include "quorbind_com.h"

static SAFEARRAY* newNames(void) {
  const wchar_t* const texts[] = {L"pear", L"Apple", L"fig"};
  SAFEARRAY* names = SafeArrayCreateVector(VT_BSTR, 0, 3);
  for (LONG index = 0; names != NULL && index < 3; ++index) {
    BSTR text = SysAllocString(texts[index]);
    SafeArrayPutElement(names, &index, text);
    SysFreeString(text);
  }
  return names;
}

static void print(SAFEARRAY* names) {
  for (LONG index = 0; index < 3; ++index) {
    BSTR text = NULL;
    SafeArrayGetElement(names, &index, &text);
    printf("%ls\n", text);
    SysFreeString(text);
  }
}

static HRESULT sort(void) {
  _cSort* sorter = NULL;
  SAFEARRAY* names = newNames();
  SAFEARRAY* sorted = NULL;
  HRESULT result =
      CoCreateInstance(&CLSID_cSort, NULL, CLSCTX_INPROC_SERVER, &IID__cSort, (void**)&sorter);
  if (SUCCEEDED(result)) {
    result = _cSort_mQuickSort(sorter, &names, 0, 2, &sorted);
    print(sorted);
    _cSort_Release(sorter);
  }
  SafeArrayDestroy(names);
  SafeArrayDestroy(sorted);
  return result;
}

int main(void) {
  HRESULT result = CoInitializeEx(NULL, COINIT_APARTMENTTHREADED);
  if (FAILED(result)) {
    return 2;
  }
  result = sort();
  CoUninitialize();
  return result == S_OK ? 0 : 1;
}
