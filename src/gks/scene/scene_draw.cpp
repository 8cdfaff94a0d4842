#define GL_GLEXT_PROTOTYPES
#include "gks/scene/scene_draw.h"

#include <array>
#include <cstddef>

#include <GL/gl.h>
#include <GL/glext.h>

namespace zaview {

namespace {

constexpr double kCloser = 1.0e-4;  // of the range of depths

enum Kept : std::size_t { kVertices, kTriangles, kLines };

void SetProjection(const Eye& eye, int width, int height) {
  const double high = eye.tangent * (eye.perspective ? eye.nearest : eye.distance), wide = high * width / height;
  glMatrixMode(GL_PROJECTION);
  glLoadIdentity();
  if (eye.perspective) glFrustum(-wide, wide, -high, high, eye.nearest, eye.farthest);
  else glOrtho(-wide, wide, -high, high, eye.nearest, eye.farthest);
}

// From the axes themselves: they are whole straight above the centre too.
void SetView(const Eye& eye) {
  const ScenePoint &r = eye.axes.right, &u = eye.axes.up, &d = eye.axes.into, &p = eye.place;
  const double view[16] = {r.x, u.x, -d.x, 0, r.y,        u.y,        -d.y,      0,
                           r.z, u.z, -d.z, 0, -Dot(r, p), -Dot(u, p), Dot(d, p), 1};
  glMatrixMode(GL_MODELVIEW);
  glLoadMatrixd(view);
}

// While the view is the identity: at the eye.
void SetLight(SceneLight light) {
  const float at_eye[] = {0, 0, 0, 1}, none[] = {0, 0, 0, 1};
  const float ambient[] = {light.ambient, light.ambient, light.ambient, 1};
  const float rest = 1 - light.ambient, diffuse[] = {rest, rest, rest, 1};
  glMatrixMode(GL_MODELVIEW);
  glLoadIdentity();
  glLightfv(GL_LIGHT0, GL_POSITION, at_eye);
  glLightfv(GL_LIGHT0, GL_AMBIENT, none);
  glLightfv(GL_LIGHT0, GL_DIFFUSE, diffuse);
  glLightfv(GL_LIGHT0, GL_SPECULAR, none);
  glLightModelfv(GL_LIGHT_MODEL_AMBIENT, ambient);
  glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, GL_TRUE);
  glEnable(GL_LIGHT0);
  glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, none);
  glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE);
  glEnable(GL_COLOR_MATERIAL);
}

void Switch(GLenum what, bool on) {
  if (on) glEnable(what);
  else glDisable(what);
}

void SetFaces(SceneFaces faces) {
  Switch(GL_CULL_FACE, faces != SceneFaces::both);
  glCullFace(faces == SceneFaces::front ? GL_BACK : GL_FRONT);
}

bool IsKept(const SceneMesh& mesh) {
  return mesh.generation != 0;
}

// From where the arrays of a mesh are read: the driver's buffer, else memory.
const void* Source(const SceneMesh& mesh, Kept part, const void* memory) {
  const GLenum target = part == kVertices ? GL_ARRAY_BUFFER : GL_ELEMENT_ARRAY_BUFFER;
  glBindBuffer(target, IsKept(mesh) ? mesh.kept[part] : 0);
  return IsKept(mesh) ? nullptr : memory;
}

void SetVertices(const SceneMesh& mesh, bool with_looks) {
  const auto* const first = static_cast<const std::byte*>(Source(mesh, kVertices, mesh.vertices.data()));
  constexpr GLsizei kStride = sizeof(SceneVertex);
  glEnableClientState(GL_VERTEX_ARRAY);
  glVertexPointer(3, GL_FLOAT, kStride, first + offsetof(SceneVertex, place));
  if (!with_looks) return;
  glEnableClientState(GL_NORMAL_ARRAY);
  glNormalPointer(GL_FLOAT, kStride, first + offsetof(SceneVertex, normal));
  glEnableClientState(GL_COLOR_ARRAY);
  glColorPointer(4, GL_UNSIGNED_BYTE, kStride, first + offsetof(SceneVertex, colour));
}

void ForgetArrays() {
  for (const GLenum array : std::array<GLenum, 3>{GL_VERTEX_ARRAY, GL_NORMAL_ARRAY, GL_COLOR_ARRAY})
    glDisableClientState(array);
  glBindBuffer(GL_ARRAY_BUFFER, 0);
  glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, 0);
}

void SetLine(const SceneLine& line) {
  glDisable(GL_LIGHTING);
  glDisable(GL_POLYGON_OFFSET_FILL);
  const bool blend = line.colour[3] < 255;
  Switch(GL_BLEND, blend);
  glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
  glDepthMask(line.depth == SceneDepth::nearer ? GL_TRUE : GL_FALSE);
  Switch(GL_DEPTH_TEST, line.depth != SceneDepth::always);
  glDepthFunc(line.depth == SceneDepth::hidden ? GL_GREATER : GL_LEQUAL);
  glDepthRange(0.0, line.closer ? 1.0 - kCloser : 1.0);
  Switch(GL_LINE_STIPPLE, line.pattern != 0xFFFF);
  glLineStipple(1, line.pattern);
  glLineWidth(line.width);
  glColor4ubv(line.colour.data());
}

void DrawPlaces(std::span<const ScenePlace> places, const SceneLine& line, GLenum how) {
  if (places.size() < 2) return;
  SetLine(line);
  glEnableClientState(GL_VERTEX_ARRAY);
  glVertexPointer(3, GL_FLOAT, 0, places.data());
  glDrawArrays(how, 0, static_cast<GLsizei>(places.size()));
  ForgetArrays();
}

void Fill(GLenum target, unsigned buffer, std::size_t bytes, const void* data) {
  glBindBuffer(target, buffer);
  glBufferData(target, static_cast<GLsizeiptr>(bytes), data, GL_STATIC_DRAW);
}

}  // namespace

void BeginScene(const Eye& eye, int width, int height, std::array<float, 3> paper, SceneLight light) {
  glPushAttrib(GL_ALL_ATTRIB_BITS);
  for (const GLenum matrix : std::array<GLenum, 2>{GL_PROJECTION, GL_MODELVIEW}) {
    glMatrixMode(matrix);
    glPushMatrix();
  }
  glViewport(0, 0, width, height);
  SetProjection(eye, width, height);
  SetLight(light);
  SetView(eye);
  glPushMatrix();
  glShadeModel(GL_SMOOTH);
  glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
  glFrontFace(GL_CCW);
  glPolygonOffset(1, 1);
  glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
  glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
  glDepthMask(GL_TRUE);
  glDepthRange(0.0, 1.0);
  glClearDepth(1.0);
  glClearColor(paper[0], paper[1], paper[2], 1.0F);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

void EndScene() {
  glMatrixMode(GL_MODELVIEW);
  glPopMatrix();
  for (const GLenum matrix : std::array<GLenum, 2>{GL_MODELVIEW, GL_PROJECTION}) {
    glMatrixMode(matrix);
    glPopMatrix();
  }
  glPopAttrib();
}

void PlaceInScene(const Rotation& turn, ScenePoint at) {
  const auto& r = turn.r;
  const double body[16] = {r[0][0], r[1][0], r[2][0], 0, r[0][1], r[1][1], r[2][1], 0,
                           r[0][2], r[1][2], r[2][2], 0, at.x,    at.y,    at.z,    1};
  PlaceAsItComes();
  glMultMatrixd(body);
}

void PlaceAsItComes() {
  glPopMatrix();
  glPushMatrix();
}

void KeepMesh(SceneMesh& mesh, unsigned generation) {
  if (mesh.generation == generation) return;
  glGenBuffers(static_cast<GLsizei>(mesh.kept.size()), mesh.kept.data());
  Fill(GL_ARRAY_BUFFER, mesh.kept[kVertices], mesh.vertices.size() * sizeof(SceneVertex), mesh.vertices.data());
  Fill(GL_ELEMENT_ARRAY_BUFFER, mesh.kept[kTriangles], mesh.triangles.size() * sizeof(std::uint32_t),
       mesh.triangles.data());
  Fill(GL_ELEMENT_ARRAY_BUFFER, mesh.kept[kLines], mesh.lines.size() * sizeof(std::uint32_t), mesh.lines.data());
  ForgetArrays();
  mesh.generation = generation;
}

void DropMesh(SceneMesh& mesh, unsigned generation) {
  if (mesh.generation == generation) glDeleteBuffers(static_cast<GLsizei>(mesh.kept.size()), mesh.kept.data());
  mesh.generation = 0;
}

void DrawFaces(const SceneMesh& mesh, const SceneStyle& style) {
  if (mesh.triangles.empty()) return;
  const GLboolean colour = style.write_colour ? GL_TRUE : GL_FALSE;
  Switch(GL_LIGHTING, style.lit && style.write_colour);
  Switch(GL_BLEND, style.blend);
  Switch(GL_POLYGON_OFFSET_FILL, style.behind_lines);
  SetFaces(style.faces);
  glColorMask(colour, colour, colour, colour);
  glDepthMask(style.write_depth ? GL_TRUE : GL_FALSE);
  glEnable(GL_DEPTH_TEST);
  glDepthFunc(GL_LESS);
  glDepthRange(0.0, 1.0);
  SetVertices(mesh, style.write_colour);
  const void* const corners = Source(mesh, kTriangles, mesh.triangles.data());
  glDrawElements(GL_TRIANGLES, static_cast<GLsizei>(mesh.triangles.size()), GL_UNSIGNED_INT, corners);
  ForgetArrays();
}

void DrawWires(const SceneMesh& mesh, const SceneLine& line) {
  if (mesh.lines.empty()) return;
  SetLine(line);
  SetVertices(mesh, false);
  const void* const ends = Source(mesh, kLines, mesh.lines.data());
  glDrawElements(GL_LINES, static_cast<GLsizei>(mesh.lines.size()), GL_UNSIGNED_INT, ends);
  ForgetArrays();
}

void DrawStrip(std::span<const ScenePlace> places, const SceneLine& line) {
  DrawPlaces(places, line, GL_LINE_STRIP);
}

void DrawSegments(std::span<const ScenePlace> ends, const SceneLine& line) {
  DrawPlaces(ends, line, GL_LINES);
}

}  // namespace zaview
