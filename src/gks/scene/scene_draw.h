// Bodies in a picture, by OpenGL, between gksBeginScene and gksEndScene. All calls stand between BeginScene and
// EndScene, which leaves the state of OpenGL as it was. Places and lengths in the unit of the scene, relative to an
// origin near to what is seen: they are 4 bytes.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "base/rotation.h"
#include "gks/scene/camera.h"
#include "gks/scene/scene_mesh.h"

namespace zaview {

struct SceneLight {  // at the eye: brightness ambient + (1 - ambient) |n.v|, both sides alike
  bool on = true;
  float ambient = 0.3F;  // 0 to 1
};

enum class SceneDepth : std::uint8_t { nearer, hidden, always };  // than what is drawn
enum class SceneFaces : std::uint8_t { both, front, back };

struct SceneStyle {
  bool lit = false;
  bool blend = false;         // by the colours' fourth part
  bool write_depth = true;    // it hides what is drawn later
  bool write_colour = true;   // false: it can't be seen, but hides
  bool behind_lines = false;  // its own wires are to be seen on it
  SceneFaces faces = SceneFaces::both;
};

struct SceneLine {
  SceneColour colour{};
  float width = 1;                 // pixels
  std::uint16_t pattern = 0xFFFF;  // bit by bit along the line
  SceneDepth depth = SceneDepth::nearer;
  bool closer = false;  // lies on a face: drawn a little nearer to the eye
};

// paper: the picture's colour, 0 to 1.
void BeginScene(const Eye& eye, int width, int height, std::array<float, 3> paper, SceneLight light);
void EndScene();

// What is drawn from here on is turned and stands at a place of the scene; as it comes: no turn, 0.
void PlaceInScene(const Rotation& turn, ScenePoint at);
void PlaceAsItComes();

// Of a mesh that stays the same over many pictures: the driver keeps it. generation: of the context, above 0. What it
// kept for another one is gone already.
void KeepMesh(SceneMesh& mesh, unsigned generation);
void DropMesh(SceneMesh& mesh, unsigned generation);

void DrawFaces(const SceneMesh& mesh, const SceneStyle& style);
void DrawWires(const SceneMesh& mesh, const SceneLine& line);  // its `lines`, in one colour
void DrawStrip(std::span<const ScenePlace> places, const SceneLine& line);
void DrawSegments(std::span<const ScenePlace> ends, const SceneLine& line);  // two each

}  // namespace zaview
