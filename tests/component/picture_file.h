#pragma once

#include <windows.h>

#include <string>

namespace quorbind::testing {

/// Writes what the screen shows in `area` to a PNG file. `path` is UTF-8; its folder must exist.
void savePictureOfScreen(const RECT& area, const std::string& path);

}  // namespace quorbind::testing
