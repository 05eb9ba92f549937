#pragma once

#include <ole2.h>
#include <psapi.h>

namespace quorbind::testing {

/// What this process has of the system.
struct Footprint {
  DWORD handles = 0;
  SIZE_T bytes = 0;
};

inline Footprint footprint() {
  Footprint result;
  PROCESS_MEMORY_COUNTERS memory{};
  ::GetProcessHandleCount(::GetCurrentProcess(), &result.handles);
  ::GetProcessMemoryInfo(::GetCurrentProcess(), &memory, sizeof memory);
  result.bytes = memory.PagefileUsage;
  return result;
}

}  // namespace quorbind::testing
