// The run-time that is a part of this DLL takes a slot of the process for what it keeps of each
// thread, and gives none back. A process has about a thousand: a host that loads and unloads the
// DLL as often would be ended by the run-time. So the slots are noted when they are taken, and
// given back when the DLL goes.

#include <windows.h>

#include <array>
#include <cstddef>

namespace quorbind {

namespace {

constexpr std::size_t kMostSlots = 16;

/// Has no constructor to run: the first slot is taken before those of this DLL are.
struct TakenSlots {
  std::array<DWORD, kMostSlots> slots{};
  std::size_t count = 0;

  void add(DWORD slot) {
    if (slot != TLS_OUT_OF_INDEXES && count < slots.size()) {
      slots[count++] = slot;
    }
  }
  void giveBack() {
    while (count > 0) {
      ::TlsFree(slots[--count]);
    }
  }
};

constinit TakenSlots takenSlots;

DWORD WINAPI takeSlot() {
  const auto systems = reinterpret_cast<DWORD(WINAPI*)()>(
      reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(L"kernel32.dll"), "TlsAlloc")));
  const DWORD slot = systems();
  takenSlots.add(slot);
  return slot;
}

/// Made before everything else that the DLL makes once, it goes after all of it.
struct LastToGo {
  ~LastToGo() { takenSlots.giveBack(); }
};
constexpr int kFirstOfAll = 101;
__attribute__((init_priority(kFirstOfAll))) const LastToGo lastToGo;

}  // namespace

}  // namespace quorbind

// The place through which the run-time calls the system. The linker takes this one and not that of
// the system's library.
#ifdef _WIN64
#define QUOR_PLACE_OF_TLS_ALLOC "__imp_TlsAlloc"
#else
#define QUOR_PLACE_OF_TLS_ALLOC "__imp__TlsAlloc@0"
#endif
extern "C" {
extern decltype(&quorbind::takeSlot) importOfTlsAlloc asm(QUOR_PLACE_OF_TLS_ALLOC);
decltype(&quorbind::takeSlot) importOfTlsAlloc = quorbind::takeSlot;
}
