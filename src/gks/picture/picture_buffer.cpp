#define GL_GLEXT_PROTOTYPES
#include "gks/picture/picture_buffer.h"

#include <algorithm>
#include <cstddef>

#include <GL/gl.h>
#include <GL/glext.h>

#include "base/grow.h"

namespace zaview {

namespace {

void MakePart(GLuint& part, GLenum format, GLenum place, int width, int height) {
  glGenRenderbuffers(1, &part);
  glBindRenderbuffer(GL_RENDERBUFFER, part);
  glRenderbufferStorage(GL_RENDERBUFFER, format, width, height);
  glFramebufferRenderbuffer(GL_FRAMEBUFFER, place, GL_RENDERBUFFER, part);
}

}  // namespace

void FreePictureBuffer(PictureBuffer& picture) {
  if (picture.frame == 0) return;
  glDeleteFramebuffers(1, &picture.frame);
  glDeleteRenderbuffers(1, &picture.colour);
  glDeleteRenderbuffers(1, &picture.depth);
  picture = PictureBuffer{};
}

bool MakePictureBuffer(PictureBuffer& picture, int width, int height) {
  FreePictureBuffer(picture);
  glGenFramebuffers(1, &picture.frame);
  glBindFramebuffer(GL_FRAMEBUFFER, picture.frame);
  MakePart(picture.colour, GL_RGBA8, GL_COLOR_ATTACHMENT0, width, height);
  MakePart(picture.depth, GL_DEPTH_COMPONENT24, GL_DEPTH_ATTACHMENT, width, height);
  if (glCheckFramebufferStatus(GL_FRAMEBUFFER) != GL_FRAMEBUFFER_COMPLETE) {
    FreePictureBuffer(picture);
    return false;
  }
  picture.width = width;
  picture.height = height;
  glViewport(0, 0, width, height);
  glClearColor(0.0F, 0.0F, 0.0F, 1.0F);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  return true;
}

bool ReadPictureBuffer(const PictureBuffer& picture, int width, int height, unsigned char* rgb) {
  if (width < 1 || height < 1 || width > picture.width || height > picture.height) return false;
  while (glGetError() != GL_NO_ERROR) continue;  // of what was drawn before
  glBindFramebuffer(GL_READ_FRAMEBUFFER, picture.frame);
  glReadBuffer(GL_COLOR_ATTACHMENT0);
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glReadPixels(0, 0, width, height, GL_RGB, GL_UNSIGNED_BYTE, rgb);
  return glGetError() == GL_NO_ERROR;
}

bool MakeImage(PictureImage& image, int width, int height) {
  constexpr int kMostSide = 32768;  // pixels
  if (image.width == width && image.height == height) return true;
  image.width = image.height = 0;
  image.rgb.clear();
  if (std::max(width, height) > kMostSide) return false;
  if (!Grow(image.rgb, static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3)) return false;
  image.width = width;
  image.height = height;
  return true;
}

bool ReadImage(const PictureImage& image, int width, int height, unsigned char* rgb) {
  if (width < 1 || height < 1 || width != image.width || height != image.height) return false;
  std::copy(image.rgb.begin(), image.rgb.end(), rgb);
  return true;
}

}  // namespace zaview
