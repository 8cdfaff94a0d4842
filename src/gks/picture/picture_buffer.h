// A picture that is drawn into, apart from any window: colour and depth in the current context. Private to the window
// systems.
#pragma once

#include "base/window_system.h"

namespace zaview {

struct PictureBuffer {
  int width = 0, height = 0;                  // 0: none yet
  unsigned frame = 0, colour = 0, depth = 0;  // names of OpenGL
};

// Makes it anew, black, and binds it. False: it can't be that large; there is none then.
[[nodiscard]] bool MakePictureBuffer(PictureBuffer& picture, int width, int height);
void FreePictureBuffer(PictureBuffer& picture);
// width x height x 3 bytes, bottom row first. False: it isn't that large, or can't be read.
[[nodiscard]] bool ReadPictureBuffer(const PictureBuffer& picture, int width, int height, unsigned char* rgb);

// A picture in memory of that size, as it is or made anew, black. False: memory is out, or a side
// longer than 32768; there is none then.
[[nodiscard]] bool MakeImage(PictureImage& image, int width, int height);
[[nodiscard]] bool ReadImage(const PictureImage& image, int width, int height, unsigned char* rgb);

}  // namespace zaview
