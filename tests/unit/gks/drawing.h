// A window without a display, its kernel, and its picture as numbers.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <string>
#include <vector>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "fake_platform.h"
#include "gks/kernel/gks_control.h"
#include "gks/kernel/gks_draw.h"
#include "gks/window/window_offscreen.h"

namespace zaview {

inline void UseSoftwareDriver() {
  setenv("LIBGL_ALWAYS_SOFTWARE", "1", 1);
  setenv("GALLIUM_DRIVER", "llvmpipe", 1);
}

struct Box {
  int left = 1000000, right = -1, top = 1000000, bottom = -1;  // pixels, y down, ends included
  int count = 0;                                               // of lit pixels in it
  double x = 0, y = 0;                                         // their centre, by strength
  double ink = 0;                                              // white of full strength: the area or length drawn
  [[nodiscard]] int width() const { return right - left + 1; }
  [[nodiscard]] int height() const { return bottom - top + 1; }
};

// A window of the kernel without a display. Pixels are those of one driver on every machine.
inline void OpenWindow(OffscreenWindows* windows, Platform& platform, GksState& gks, int width, int height) {
  UseSoftwareDriver();
  platform.window = OffscreenWindowSystem(windows);
  std::string why;
  EXPECT_TRUE(platform.window.start(platform.window.self, {}, why)) << why;
  gks.window.width = width;
  gks.window.height = height;
  gks.window.id = platform.window.create_window(platform.window.self, "test", 0, 0, width, height);
  gksSetReverse(gks, false);
}

struct Picture {  // of a window, as it was read
  int width = 0, height = 0;
  std::vector<unsigned char> rgb;

  void Read(const Platform& platform, const GksState& gks) {
    width = gks.window.width;
    height = gks.window.height;
    rgb.assign(static_cast<std::size_t>(width * height) * 3, 0);
    EXPECT_TRUE(platform.window.read_picture(platform.window.self, width, height, rgb.data()));
  }
  [[nodiscard]] unsigned At(int x, int y) const {  // 0xRRGGBB, y down
    const auto i = static_cast<std::size_t>((height - 1 - y) * width + x) * 3;
    return static_cast<unsigned>(rgb[i]) << 16U | static_cast<unsigned>(rgb[i + 1]) << 8U | rgb[i + 2];
  }
  // Of the pixels that `strength`, of a colour, is above 0 for.
  template <typename Strength>
  [[nodiscard]] Box BoxOf(Strength strength) const {
    Box box;
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width; ++x) {
        const double ink = strength(At(x, y));
        if (ink <= 0) continue;
        box.left = std::min(box.left, x);
        box.right = std::max(box.right, x);
        box.top = std::min(box.top, y);
        box.bottom = std::max(box.bottom, y);
        box.x += x * ink;
        box.y += y * ink;
        box.ink += ink;
        ++box.count;
      }
    }
    if (box.count > 0) box.x /= box.ink, box.y /= box.ink;
    return box;
  }
};

// White on black, world units are pixels with y up, until a test says otherwise.
struct Drawing : Picture {
  FakePlatform fake;
  OffscreenWindows* windows = MakeOffscreenWindows();
  Platform platform;
  GksState gks;

  Drawing(int width, int height) {
    platform = fake.Get();
    OpenWindow(windows, platform, gks, width, height);
    Clear();
  }
  Drawing(const Drawing&) = delete;
  Drawing& operator=(const Drawing&) = delete;
  ~Drawing() { FreeOffscreenWindows(windows); }

  void Clear() {
    GCLKS(gks);
    gksBeginPicture(platform.window, gks);
    gksOpenTo(gks, GksLevel::active);
    const float w = static_cast<float>(gks.window.width), h = static_cast<float>(gks.window.height);
    GSWKVP(gks, {0, w, 0, h});
    GSWN(gks, 1, {0, w, 0, h});
  }
  void Line(const std::vector<float>& x, const std::vector<float>& y) { GPL(gks, x, y); }
  void Fill(const std::vector<float>& x, const std::vector<float>& y) { GFA(gks, x, y); }
  void Marker(float x, float y) { GPM(gks, std::array{x}, std::array{y}); }

  void Read() {
    GUWK(platform.window, gks);
    Picture::Read(platform, gks);
  }
  Box Lit() {  // all that has not the colour of the paper
    Read();
    return BoxOf([paper = gks.window.reverse_video ? 0xFFFFFFU : 0U](unsigned colour) {
      const unsigned apart = colour ^ paper;  // exact where either is black or white
      return std::max({apart >> 16U, apart >> 8U & 0xFFU, apart & 0xFFU}) / 255.0;
    });
  }
};

}  // namespace zaview
