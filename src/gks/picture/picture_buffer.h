// Pictures of the window systems, apart from any window: images in memory, and what OpenGL draws into on the way to
// one. Private to them.
#pragma once

#include <string>
#include <vector>

#include "base/window_system.h"

namespace zaview {

// A picture in memory of that size, as it is or made anew, black. False: memory is out, or a side
// longer than 32768; there is none then.
[[nodiscard]] bool MakeImage(PictureImage& image, int width, int height);
[[nodiscard]] bool ReadImage(const PictureImage& image, int width, int height, unsigned char* rgb);

struct DrawnPart {  // names of OpenGL; frame 0: none
  unsigned frame = 0, colour = 0, depth = 0;
};

struct SceneBuffer {  // of the context in which it was made
  int width = 0, height = 0;
  bool smooth = false;              // as it was asked for
  DrawnPart drawn;                  // into
  DrawnPart plain;                  // one sample a pixel, made from `drawn` where that has several
  std::vector<unsigned char> rgba;  // the picture on its way
};

// Binds it, made anew where size or samples are other ones. False, with the cause: it can't be had; there is none
// then.
[[nodiscard]] bool BindSceneBuffer(SceneBuffer& scene, int width, int height, bool smooth, std::string& why);
void FreeSceneBuffer(SceneBuffer& scene);
// Into an image, which gets its size; the window is bound again. False, with the cause: it can't be read.
[[nodiscard]] bool ReadSceneBuffer(SceneBuffer& scene, PictureImage& image, std::string& why);

}  // namespace zaview
