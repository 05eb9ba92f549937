#include "tests/component/picture_file.h"

// The imaging library's header needs the other one before it.
// clang-format off
#include <propidl.h>
#include <gdiplus.h>
// clang-format on

#include <stdexcept>

#include "platform/windows/com_types.h"

namespace quorbind::testing {

namespace {

/// The imaging library, started.
class Imaging {
 public:
  Imaging() {
    const Gdiplus::GdiplusStartupInput input;
    require(Gdiplus::GdiplusStartup(&token_, &input, nullptr));
  }
  ~Imaging() { Gdiplus::GdiplusShutdown(token_); }
  Imaging(const Imaging&) = delete;
  Imaging& operator=(const Imaging&) = delete;

  static void require(Gdiplus::Status status) {
    if (status != Gdiplus::Ok) {
      throw std::runtime_error("no picture of the screen: " + std::to_string(status));
    }
  }

 private:
  ULONG_PTR token_ = 0;
};

/// The screen as something to draw from.
class Screen {
 public:
  Screen() = default;
  ~Screen() { ::ReleaseDC(nullptr, context_); }
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;
  [[nodiscard]] HDC get() const { return context_; }

 private:
  HDC context_ = ::GetDC(nullptr);
};

constexpr CLSID kPngEncoder{
    0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

}  // namespace

void savePictureOfScreen(const RECT& area, const std::string& path) {
  const Imaging imaging;
  const int width = area.right - area.left;
  const int height = area.bottom - area.top;
  Gdiplus::Bitmap picture(width, height, PixelFormat24bppRGB);
  {
    Gdiplus::Graphics drawing(&picture);
    const HDC target = drawing.GetHDC();
    const Screen screen;
    ::BitBlt(target, 0, 0, width, height, screen.get(), area.left, area.top, SRCCOPY);
    drawing.ReleaseHDC(target);
  }
  Imaging::require(picture.Save(toWide(path).c_str(), &kPngEncoder, nullptr));
}

}  // namespace quorbind::testing
