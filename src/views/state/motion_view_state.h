// What scripts, keys and menus have set for the motion animation, and what is kept of it from step to step. Data only.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/run_event.h"
#include "analysis/wetness_state.h"
#include "base/rotation.h"
#include "case/plot_data.h"
#include "geometry/wetted_hull.h"
#include "gks/plot/dense_curve.h"
#include "gks/scene/camera.h"
#include "gks/scene/scene_mesh.h"
#include "views/state/axes_state.h"
#include "views/state/plot_key.h"

namespace zaview {

inline constexpr int kGraphs = 6;          // overlay graphs
inline constexpr int kScriptedGraphs = 4;  // those that a script reaches
inline constexpr int kColours = 16;
inline constexpr std::string_view kColourNames[kColours] = {  // 0 is the background, 1 the foreground
    "BLACK",    "WHITE",  "RED", "GREEN",  "BLUE", "YELLOW", "CYAN", "MAGENTA",
    "SEAGREEN", "ORANGE", "TAN", "VIOLET", "GOLD", "BROWN",  "GREY", "DARKGREEN"};

struct MotionGraph {
  bool on = false;
  QuantityRequest request{.iqnt = 1, .curve = 3};  // heave, until another one is chosen
  int colour = 1;                                  // index into the colour names
  bool blank = true, scroll = false, time_bar = true, mark = false, value = false;
  float scroll_time = 60;  // output time units, above 0

  PlotDataKey made_of;              // of the data; `none`: there are none
  PlotData data;                    // its curve over all steps in use
  std::vector<CurvePoints> coarse;  // of a long run, the curves as they are drawn whole
  float y_low = 0, y_high = 1;      // of its axis: the same at every step
};

// Where the camera stands. All but the bridge look at `view_centre` from the CG on the still water.
enum class CameraStand : std::uint8_t {
  ship,     // goes along with the ship, turned as the earth
  heading,  // turns with its heading as well: azimuth 180 looks along the ship from astern
  earth,    // stays where the ship was when it was chosen
  bridge    // on the ship, as its watch looks ahead: moves and turns with the hull
};

enum class HullColour : std::uint8_t {
  plain,
  wetness  // wet at this step, wet at one before, dry up to now
};

struct EarthStand {  // where CameraStand::earth looks at
  bool chosen = false;
  double x = 0, y = 0;  // CG, global, output lengths
  std::uint64_t case_serial = 0;
};

struct MotionEvents {   // of the steps in use, in their order; made on first need
  PlotDataKey made_of;  // `none`: there are none
  std::vector<RunEvent> list;
};

struct HullDrawnKey {  // what its mesh was made of
  std::uint64_t case_serial = 0;
  float length = 0;  // of the scale
  bool transparent = false;
  HullColour colour = HullColour::plain;
  bool operator==(const HullDrawnKey&) const = default;
};

struct HullExtent {  // of its points from the CG, ship axes, output lengths
  double reach = 0;  // of the farthest
  Vector3 low{}, high{};
};

struct MotionSceneState {  // kept from picture to picture; the scene's lengths are output lengths
  HullDrawnKey hull_of;    // case 0: nothing is made
  HullExtent extent;
  ClosedHull closed;                 // axes and lengths of the hull
  SceneMesh hull, strips, plates;    // ship axes, from the CG; strips close it at the top
  std::vector<Vector3> hull_points;  // its vertices, non-dimensional; where its colours tell where it is wet
  HullWetness wetness;
  SceneMesh fins;  // at the rudder angle of the step

  std::vector<double> grid_x, grid_y;  // of the sea's points, from the CG
  std::vector<double> wave_x, wave_y;  // where they are, global, non-dimensional
  std::vector<float> eta;              // at [j * grid_x.size() + i]
  SceneMesh sea, sea_below;            // as they look from above, from below

  std::vector<Vector3> wet_places;  // of the closed hull's vertices, in the scene
  std::vector<double> wet_depths;
  WettedHull wetted;  // under the sea as drawn
  WetSums wet_sums;
  std::vector<ScenePlace> waterline;  // two ends each
  std::vector<ScenePlace> track;
};

struct MotionViewState {
  Camera view;  // view_centre: from (x, y) of the CG on the still water; global, output lengths
  CameraStand stand = CameraStand::ship;
  EarthStand earth;

  bool hull_solid = true, hull_wire = false;  // both off: no hull
  bool body_transparent = false;
  HullColour hull_colour = HullColour::plain;
  bool show_rudders = true;
  bool show_track = false;      // of the CG
  bool show_waterline = false;  // of the moment
  bool show_centres = false;    // CG and centre of buoyancy
  bool mark_point = false;      // on the ship: that of the ship-fixed quantities

  bool fs_solid = true, fs_wire = false;  // free surface
  bool horizon = false;                   // and a coarse sea around it
  float fs_opacity = 0.6F;                // 0 to 1
  float fs_grid_size = 0;                 // output lengths; 0: by the ship

  bool shading_on = true;
  float ambient = 0.3F;  // 0 to 1

  bool show_title = true, show_time = true;
  float text_size = 0.14F;                        // page units
  float line_thickness = 0, graph_thickness = 0;  // page units
  bool frame_too = false;                         // the frames of graphs are as thick
  bool show_events = false;                       // along the time bar
  MotionEvents events;
  std::array<MotionGraph, kGraphs> graphs;

  std::string of_case;   // the file for which these settings were; blank: of none yet
  int initial_step = 0;  // the view opens there, once; 0: at the current step
  PopupState popup;
  MotionSceneState scene;
};

}  // namespace zaview
