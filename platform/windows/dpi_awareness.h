#pragma once

#include <windows.h>

namespace quorbind {

/// While it lives, windows made on this thread are drawn for the scale of the screen they stand on,
/// not stretched to it. Without effect on a system that knows no such thing.
class DpiAwareness {
 public:
  DpiAwareness();
  ~DpiAwareness();
  DpiAwareness(const DpiAwareness&) = delete;
  DpiAwareness& operator=(const DpiAwareness&) = delete;

 private:
  DPI_AWARENESS_CONTEXT before_;
};

}  // namespace quorbind
