// Stands between the component and the memory that it takes. Linked into a component of its own,
// which is otherwise the published one, object by object.

#include <ole2.h>

#include <cstdlib>
#include <new>

#include "tests/starved/starvation.h"

extern "C" __declspec(dllexport) quorbind::testing::Starvation starvation;
quorbind::testing::Starvation starvation;

namespace {

bool mayHaveMemory() {
  ++starvation.asked;
  return starvation.successesLeft < 0 || starvation.successesLeft-- > 0;
}

/// A function of the system under the name that the component calls.
template <typename Function>
Function fromSystem(const wchar_t* dll, const char* name) {
  return reinterpret_cast<Function>(
      reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(dll), name)));
}

BSTR WINAPI makeText(const OLECHAR* text, UINT length) {
  static const auto kSystems =
      fromSystem<BSTR(WINAPI*)(const OLECHAR*, UINT)>(L"oleaut32.dll", "SysAllocStringLen");
  return mayHaveMemory() ? kSystems(text, length) : nullptr;
}

SAFEARRAY* WINAPI makeArray(VARTYPE type, UINT dimensions, SAFEARRAYBOUND* bounds) {
  static const auto kSystems = fromSystem<SAFEARRAY*(WINAPI*)(VARTYPE, UINT, SAFEARRAYBOUND*)>(
      L"oleaut32.dll", "SafeArrayCreate");
  return mayHaveMemory() ? kSystems(type, dimensions, bounds) : nullptr;
}

int WINAPI noteBox(HWND /*owner*/, const wchar_t* text, const wchar_t* /*title*/, UINT /*style*/) {
  ++starvation.boxes;
  ::lstrcpynW(starvation.lastBox.data(), text, static_cast<int>(starvation.lastBox.size()));
  return IDOK;
}

}  // namespace

// The places through which a program calls functions of other DLLs. The linker takes these and not
// those of the system's.
extern "C" {
extern decltype(&makeText) importOfSysAllocStringLen asm("__imp_SysAllocStringLen");
extern decltype(&makeArray) importOfSafeArrayCreate asm("__imp_SafeArrayCreate");
extern decltype(&noteBox) importOfMessageBoxW asm("__imp_MessageBoxW");
decltype(&makeText) importOfSysAllocStringLen = makeText;
decltype(&makeArray) importOfSafeArrayCreate = makeArray;
decltype(&noteBox) importOfMessageBoxW = noteBox;
}

void* operator new(std::size_t size) {
  void* memory = mayHaveMemory() ? std::malloc(size > 0 ? size : 1) : nullptr;
  if (memory == nullptr) {
    throw std::bad_alloc();
  }
  ++starvation.alive;
  return memory;
}

void operator delete(void* memory) noexcept {
  if (memory != nullptr) {
    --starvation.alive;
    std::free(memory);
  }
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
  operator delete(memory);
}
