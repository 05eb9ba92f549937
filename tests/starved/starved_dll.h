#pragma once

#include <windows.h>

#include "tests/starved/starvation.h"

namespace quorbind::testing {

/// Its place in the build folder.
inline constexpr const wchar_t* kStarvedDll = L"tests\\starved\\Starved.dll";

inline constexpr long kUnlimited = -1;

/// What the loaded DLL exports.
inline Starvation& starvation() {
  return *reinterpret_cast<Starvation*>(
      reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(L"Starved.dll"), "starvation")));
}

}  // namespace quorbind::testing
