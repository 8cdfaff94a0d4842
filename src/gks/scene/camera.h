// The eye of a view of bodies, shared by all such views. Axes of the scene: x ahead, y to port, z up; degrees at the
// border, lengths in the unit of the scene. Pure.
#pragma once

namespace zaview {

struct ScenePoint {
  double x = 0, y = 0, z = 0;
};
[[nodiscard]] inline double Dot(ScenePoint a, ScenePoint b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}

struct Camera {                // data only
  ScenePoint view_centre;      // what it looks at
  double view_azimuth = 45;    // degrees; 0: the eye is ahead, 90: to port
  double view_elevation = 30;  // degrees up from the horizontal, -90 to 90
  double view_width = 30;      // degrees, the full vertical angle; below 1 drawn as 1
  double view_radius = 0;      // from the centre to the eye; 0: so that all is seen
  bool perspective = true;
};

struct CameraAxes {  // unit vectors, whole at elevations of 90 and -90 too
  ScenePoint right, up, into;
};
[[nodiscard]] CameraAxes AxesOf(const Camera& camera);

// Half the height of the picture, in lengths of the scene at the centre; view_radius is above 0.
[[nodiscard]] double HalfHeight(const Camera& camera);

// The radius from which everything within `reach` of the centre is in a picture of that size.
[[nodiscard]] double FittingRadius(const Camera& camera, double reach, int width, int height);

// An eye as it stands in the scene: that of a camera that looks at its centre, or one that is carried along.
struct Eye {
  ScenePoint place;
  CameraAxes axes;
  double tangent = 1;   // of half the vertical angle
  double distance = 1;  // to what it looks at: there a picture without perspective has the scale of one with it
  bool perspective = true;
  double nearest = 0.1, farthest = 1000;  // along axes.into: what is to be drawn lies between
};
// camera.view_radius is above 0.
[[nodiscard]] Eye EyeOf(const Camera& camera);

struct PicturePoint {
  double x = 0, y = 0;  // pixels from the upper left corner
  double scale = 1;     // over that at the centre; not above 0: behind the eye, x and y tell nothing
};
[[nodiscard]] PicturePoint ToPicture(const Eye& eye, ScenePoint point, int width, int height);
[[nodiscard]] PicturePoint ToPicture(const Camera& camera, ScenePoint point, int width, int height);

}  // namespace zaview
