#include <GL/gl.h>

#include "gks/kernel/gks_paint.h"

namespace zaview {

namespace {

void Choose(GksColour colour) {
  glColor3f(colour.red, colour.green, colour.blue);
}

void Clear(void*, GksColour paper) {
  glClearColor(paper.red, paper.green, paper.blue, 1.0F);
  glClear(GL_COLOR_BUFFER_BIT);
}

void PutVertices(GLenum what, std::span<const GksPoint> points) {
  glBegin(what);
  for (const GksPoint& point : points) glVertex2f(point.x, point.y);
  glEnd();
}

void Line(void*, const GksPen& pen, std::span<const GksPoint> strip) {
  Choose(pen.colour);
  glLineWidth(pen.width);
  if (pen.pattern != kSolid) {
    glEnable(GL_LINE_STIPPLE);
    glLineStipple(1, pen.pattern);
  }
  PutVertices(GL_LINE_STRIP, strip);
  glDisable(GL_LINE_STIPPLE);
}

void Fill(void*, GksColour colour, std::span<const GksPoint> polygon) {
  Choose(colour);
  PutVertices(GL_POLYGON, polygon);
}

void Glyph(void*, GksColour colour, GksPoint at, const GksGlyph& glyph) {
  Choose(colour);  // ahead of the position, which takes it
  glRasterPos2f(at.x, at.y);
  glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
  glBitmap(glyph.width, glyph.height, glyph.x_origin, glyph.y_origin, 0.0F, 0.0F, glyph.rows);
}

}  // namespace

GksPaint OpenGlPaint(int width, int height) {
  glViewport(0, 0, width, height);
  glMatrixMode(GL_PROJECTION);
  glLoadIdentity();
  glOrtho(0.0, width, 0.0, height, -1.0, 1.0);
  glScalef(1.0F, -1.0F, 1.0F);
  glTranslatef(0.0F, static_cast<float>(-height), 0.0F);
  glMatrixMode(GL_MODELVIEW);
  glLoadIdentity();
  glDisable(GL_DEPTH_TEST);
  glDisable(GL_LINE_STIPPLE);
  glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
  return {nullptr, Clear, Line, Fill, Glyph};
}

}  // namespace zaview
