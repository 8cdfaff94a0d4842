// The tables of the 3-D layer: what a picture of bodies consists of until it is sorted by depth and drawn. Data only.
// Owner: the zb3d calls of the view that draws bodies (views/geometry); the room of the tables is kept from picture to
// picture.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "gks/scene/camera.h"

namespace zaview {

inline constexpr int kPenLimit = 256;   // GKS colours
inline constexpr int kFirstShade = 16;  // colours above the pens: own ones (ZB3DPENSET), then shades
inline constexpr int kZbTextRoom = 80;  // characters

struct ZbPoint {              // a row of zbufpt
  float x = 0, y = 0, z = 0;  // of the model
  float sx = 0, sy = 0;       // on the screen: lengths of the model at the centre, right and up
  float depth = 0;            // from the centre, growing towards the eye
  float t = 1;                // perspective ratio, 1 at the centre
};

enum class ZbKind : int { polyline = 1, marker = 2, polygon = 3, text = 4, shaded = 5 };

struct ZbEntity {  // a row of zbufen; pens are colour indices
  ZbKind kind = ZbKind::polyline;
  int points = 0, first = 0;  // in zbufpt
  int pen = 1;                // of a face: its filling
  int style = 1;              // of lines, as GSLN takes it
  int option = 0;             // a marker's type; the pen of a face's outline, 0: none
  int text = 0;               // in zbuftx
  float size = 1;             // of a marker
};

struct ZbText {  // a row of zbuftx
  int length = 0;
  std::array<char, kZbTextRoom> characters{};
  float height = 0;  // screen
  int align_x = 1, align_y = 4;
};

struct ZbLimits {
  float wx0 = 0, wx1 = 0, wy0 = 0, wy1 = 0;  // screen
};

struct Zb3dState {
  // View; zb3dView sets it.
  Camera view;
  CameraAxes axes{};
  ScenePoint scale{1, 1, 1};  // stretches the model about the centre
  ZbLimits window;            // of the picture
  float ambient = 0.3F;
  bool shading = true;     // else faces have the plain colour of their pen
  bool zbuffer_on = true;  // else lines and markers are drawn at once

  // What the next entries get.
  int pen = 1, style = 1, marker = 0;
  float marker_size = 1, char_height = 0;
  bool on_top = false;     // whatever hides it
  bool with_last = false;  // at the depth of the entity before it
  int align_x = 1, align_y = 4;

  int first_shade = kFirstShade;
  std::vector<ZbPoint> zbufpt;
  std::vector<ZbEntity> zbufen;
  std::vector<float> depth;  // of each entity: what it is sorted by
  std::vector<ZbText> zbuftx;
  std::size_t findable = 0;    // so many points of the table, from the first, are found by the mouse
  bool out_of_memory = false;  // since zb3dStart; said

  // Of drawing.
  std::vector<std::uint32_t> order;
  std::vector<float> x, y;
};

}  // namespace zaview
