// The 3-D layer: lines, markers, faces and texts of bodies go into tables (zb3d_state.h), projected; zb3dFlush draws
// them from the farthest to the nearest, so that nearer faces paint over what they hide. Faces that intersect are not
// parted. Axes and lengths are those of the model, degrees in the camera. Calls of a picture: dgFrame(2), dgPage with
// the aspect of the window, zb3dInit, zb3dView, zb3dStart, entries, zb3dFlush, dgFrame(-3).
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "base/platform.h"
#include "gks/kernel/gks_state.h"
#include "gks/zb3d/zb3d_state.h"

namespace zaview {

struct ZbDraw {  // what every call works on
  const Console& console;
  GksState& gks;
  Zb3dState& zb;
};

void zb3dInit(ZbDraw draw);  // defaults; everything is sorted
// mode -1, -2, -3: along -X, -Y, -Z, whatever the angles are; 0 to 2: by azimuth and elevation. camera.view_radius is
// above 0.
void zb3dView(ZbDraw draw, const Camera& camera, int mode = 0, ScenePoint scale = {1, 1, 1});
void zb3dStart(ZbDraw draw);  // empty tables

// ---- Entries
void zb3dPen(ZbDraw draw, int value);  // 0 paper, 1 foreground; below 0 a colour index; others wrap to 2 .. 15
void ZB3DPENSET(ZbDraw draw, int index, GksColour colour);  // a pen of one's own, as it is to be seen; from 16 on
void zb3dLineStyle(ZbDraw draw, int style);                 // as GSLN
void zb3dMarkerStyle(ZbDraw draw, int type, float size);    // as GSMK, GSMKSC
void zb3dAlign(ZbDraw draw, float fx, float fy);            // as dgAlign
void zb3dCharHeight(ZbDraw draw, float height);             // screen; of texts without one of their own

void zb3dOnTop(ZbDraw draw, bool on);     // entries that nothing hides
void zb3dWithLast(ZbDraw draw, bool on);  // entries that belong to the one ahead of them: drawn right behind it

void zb3dLine(ZbDraw draw, std::span<const ScenePoint> points, bool closed);
void zb3dMarker(ZbDraw draw, std::span<const ScenePoint> points);
enum class ZbFill : unsigned char { paper, plain, shaded };  // plain: the pen's colour
// outline: colour index of a line around it, 0: none.
void zb3dPolygon(ZbDraw draw, std::span<const ScenePoint> points, ZbFill fill, int outline);
void zb3dText(ZbDraw draw, std::string_view text, ScenePoint at);
void zb3dNumber(ZbDraw draw, float value, ScenePoint at);  // at most 5 characters

// The cosine between the normal of a face in the order of its corners, (p(n-1) - p1) x (pn - p2), and the way from its
// middle to the eye, -1 to 1: negative where its back is seen. 0 for a face of no area.
[[nodiscard]] float zb3dShade(const Zb3dState& zb, std::span<const ScenePoint> points);

// ---- The picture
void zb3dFlush(ZbDraw draw);
[[nodiscard]] ZbLimits zb3dLimits(const Zb3dState& zb);  // about all points; 1e20 and -1e20 without any

// ---- Screen to model. Places on the screen as in ZbPoint.
[[nodiscard]] ScenePoint zb3dScreenToModel(const Zb3dState& zb, float sx, float sy);  // in the plane of the centre
// What stands in the tables up to now can be found; what comes behind only helps to read the picture.
void zb3dFindable(ZbDraw draw);
// The point of the table next to a place, of several the one nearest to the eye. False: there is none in front of it.
[[nodiscard]] bool zb3dNearest(const Zb3dState& zb, float sx, float sy, std::size_t& index);

}  // namespace zaview
