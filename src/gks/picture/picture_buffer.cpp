#define GL_GLEXT_PROTOTYPES
#include "gks/picture/picture_buffer.h"

#include <algorithm>
#include <cstddef>

#include <GL/gl.h>
#include <GL/glext.h>
#include <fmt/format.h>

#include "base/grow.h"

namespace zaview {

namespace {

constexpr fmt::string_view kTooLarge = "OpenGL draws pictures of {} pixels a side at most here";
constexpr std::string_view kNoFrame = "OpenGL has no memory for the picture";
constexpr std::string_view kNoRoom = "no memory for the picture";
constexpr std::string_view kUnread = "the picture drawn by OpenGL can't be read";

constexpr int kSamples = 4;  // a pixel, of smooth pictures
constexpr std::size_t kParts = 3, kDrawnParts = 4;

void MakeStore(GLuint& store, int samples, GLenum format, GLenum place, int width, int height) {
  glGenRenderbuffers(1, &store);
  glBindRenderbuffer(GL_RENDERBUFFER, store);
  glRenderbufferStorageMultisample(GL_RENDERBUFFER, samples, format, width, height);
  glFramebufferRenderbuffer(GL_FRAMEBUFFER, place, GL_RENDERBUFFER, store);
}

void FreePart(DrawnPart& part) {
  if (part.frame == 0) return;
  glDeleteFramebuffers(1, &part.frame);
  glDeleteRenderbuffers(1, &part.colour);
  if (part.depth != 0) glDeleteRenderbuffers(1, &part.depth);
  part = DrawnPart{};
}

// The frame is bound.
bool MakePart(DrawnPart& part, int samples, bool with_depth, int width, int height) {
  glGenFramebuffers(1, &part.frame);
  glBindFramebuffer(GL_FRAMEBUFFER, part.frame);
  MakeStore(part.colour, samples, GL_RGBA8, GL_COLOR_ATTACHMENT0, width, height);
  if (with_depth) MakeStore(part.depth, samples, GL_DEPTH_COMPONENT24, GL_DEPTH_ATTACHMENT, width, height);
  if (glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE) return true;
  FreePart(part);
  return false;
}

bool MakeParts(SceneBuffer& scene, int width, int height, bool smooth) {
  if (smooth && MakePart(scene.plain, 0, false, width, height)) {
    if (MakePart(scene.drawn, kSamples, true, width, height)) return true;
    FreePart(scene.plain);
  }
  return MakePart(scene.drawn, 0, true, width, height);
}

std::string WhyNoParts(int side) {
  GLint most = 0;
  glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &most);
  return side > most ? fmt::format(kTooLarge, most) : std::string(kNoFrame);
}

void TakeColours(const unsigned char* drawn, std::size_t pixels, unsigned char* rgb) {
  for (std::size_t i = 0; i < pixels; ++i)
    for (std::size_t k = 0; k < kParts; ++k) rgb[i * kParts + k] = drawn[i * kDrawnParts + k];
}

}  // namespace

bool MakeImage(PictureImage& image, int width, int height) {
  constexpr int kMostSide = 32768;  // pixels
  if (image.width == width && image.height == height) return true;
  image.width = image.height = 0;
  image.rgb.clear();
  if (std::max(width, height) > kMostSide) return false;
  if (!Grow(image.rgb, static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * kParts)) return false;
  image.width = width;
  image.height = height;
  return true;
}

bool ReadImage(const PictureImage& image, int width, int height, unsigned char* rgb) {
  if (width < 1 || height < 1 || width != image.width || height != image.height) return false;
  std::copy(image.rgb.begin(), image.rgb.end(), rgb);
  return true;
}

void FreeSceneBuffer(SceneBuffer& scene) {
  FreePart(scene.drawn);
  FreePart(scene.plain);
  scene = SceneBuffer{};
}

bool BindSceneBuffer(SceneBuffer& scene, int width, int height, bool smooth, std::string& why) {
  if (scene.width != width || scene.height != height || scene.smooth != smooth) {
    FreeSceneBuffer(scene);
    const std::size_t bytes = static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * kDrawnParts;
    const bool made = MakeParts(scene, width, height, smooth);
    if (!made || !Grow(scene.rgba, bytes)) {
      why = made ? std::string(kNoRoom) : WhyNoParts(std::max(width, height));
      FreeSceneBuffer(scene);
      return false;
    }
    scene.width = width;
    scene.height = height;
    scene.smooth = smooth;
  }
  glBindFramebuffer(GL_FRAMEBUFFER, scene.drawn.frame);
  return true;
}

bool ReadSceneBuffer(SceneBuffer& scene, PictureImage& image, std::string& why) {
  const int w = scene.width, h = scene.height;
  if (!MakeImage(image, w, h)) {
    why = kNoRoom;
    return false;
  }
  constexpr int kErrorFlags = 16;  // more than there are: a context that is lost tells errors without end
  for (int i = 0; i < kErrorFlags && glGetError() != GL_NO_ERROR; ++i) continue;  // of what was drawn before
  glBindFramebuffer(GL_READ_FRAMEBUFFER, scene.drawn.frame);
  if (scene.plain.frame != 0) {
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, scene.plain.frame);
    glBlitFramebuffer(0, 0, w, h, 0, 0, w, h, GL_COLOR_BUFFER_BIT, GL_NEAREST);
    glBindFramebuffer(GL_READ_FRAMEBUFFER, scene.plain.frame);
  }
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glReadPixels(0, 0, w, h, GL_RGBA, GL_UNSIGNED_BYTE, scene.rgba.data());  // as it was drawn: other forms are slow
  const bool read = glGetError() == GL_NO_ERROR;
  glBindFramebuffer(GL_FRAMEBUFFER, 0);
  if (read) TakeColours(scene.rgba.data(), static_cast<std::size_t>(w) * static_cast<std::size_t>(h), image.rgb.data());
  else why = kUnread;
  return read;
}

}  // namespace zaview
