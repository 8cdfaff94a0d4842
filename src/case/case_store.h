// The one case in store: its control data, its histories, the steps in use. Histories are non-dimensional, angles in
// radians. Data only; a read fills a new store and moves it here when it is good.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "case/step_history.h"
#include "control/control_records.h"
#include "geometry/hull.h"
#include "waves/seaway.h"

namespace zaview {

enum class FileKind : signed char {
  standard_output = -1,
  unknown = 0,
  primary = 1,
  pressure = 2,
  geometry = 3,
  balance_check = 4,
  beam = 5
};

struct OutputLabels {  // of the preamble
  int VERSION = 0;     // 0 or below: read as the current layout
  bool gyre = false;
  FileKind kind = FileKind::unknown;
};

struct GeometryFileEntry {  // of the parsing data
  int NCOMPR = 0;
  int SYMINPF = 0;
  Triple GSHIFT{}, GORIG{}, GROT{};
};

struct DerivedShip {  // of the derived data echo, non-dimensional
  double mass = 0;
  std::array<Triple, 3> inertia{};
  Triple centre{};  // centre of gravity in ship axes
};

// Sectional loads. Kinds 1 to 3 are vertical, horizontal and axial/torsional at X cuts, 4 to 6 the same at Y cuts.
struct SectionLoads {
  int ibcax = 0, IVM = 0, IHM = 0, ITM = 0, ibcay = 0, ivmy = 0, ihmy = 0, itmy = 0;
  int NBCA = 0;                        // X cuts
  int nycut = 0;                       // Y cuts
  std::vector<Triple> x_cuts, y_cuts;  // of the derived data, ship axes, non-dimensional
  std::vector<int> x_kinds, y_kinds;   // active kinds in file order
};

enum class IrfKind : unsigned char {  // in the order in which labels are tried
  steady,
  surge,
  sway,
  heave,
  roll,
  pitch,
  yaw,
  diffraction_head,
  diffraction_follow_1,
  diffraction_follow_2,
  diffraction_follow_3,
  added_mass,
  air_cushion
};

struct IrfBlock {  // an impulse response function of an impulsive run, non-dimensional
  std::string label;
  IrfKind kind = IrfKind::steady;
  int ship = 1;
  double heading = 0;  // degrees; diffraction kinds
  bool has_matrices = false;
  // Frequency-independent added mass, damping, stiffness; [i][j]: force i by motion j.
  std::array<std::array<std::array<float, 6>, 6>, 3> matrices{};
  StepHistory time;           // one component
  StepHistory force;          // six components; diffraction: the diffraction force
  StepHistory froude_krylov;  // six components, diffraction kinds only
};

struct StepGap {  // steps that no part of a combined case holds, both ends included
  int from = 1, to = 0;
};

struct DerivedCache {  // which derived arrays are built
  bool motion = false, vmgshp = false, vmgg = false, accg = false, force_ship = false, maneuver = false;
  bool point_motion = false, relative_motion = false, eta_cg = false, eta_origin = false;
  std::array<double, 3> point{};  // for which point_motion is built, INPUT axes and units
};

struct StepContents {  // what the layout of the file's steps has; the rest is 0 in store and no quantity
  bool force = true, other_force = true, load_moment = true, rudder = true, prop_rps = true;
};

struct MeasuredColumn {    // of a table of measured data
  std::string name, unit;  // as they stand in its heading; unit blank: none there
};

enum class Tried : unsigned char { not_yet, there, failed };  // what is made on first need

struct CaseStore {
  std::uint64_t serial = 0;  // another one for each read and each change of the histories in store
  std::string file_name;     // as opened
  std::string base_name;     // without directory, ".XML" and ".out"
  OutputLabels labels;
  int NSHIP = 0;
  int ship = 1;  // the selected one, from 1: control, histories and impulse response functions are its own
  std::vector<GeometryFileEntry> geometry_files;
  std::vector<DerivedShip> ships;
  std::vector<std::vector<double>> unnamed_derived;  // what stands behind the cuts, by line
  ControlRecords control;
  std::vector<ControlRecords> ship_texts;  // of a file with several ships: its control texts as read; else none
  SectionLoads loads;

  bool irf_case = false;
  bool tadm_case = false;
  bool has_case = false;  // a header has been accepted
  StepContents holds;
  [[nodiscard]] bool time_history() const { return !irf_case && !tadm_case; }

  int nstep_expected = 0;             // NSTEP of the echo
  int first_read = 1, last_read = 0;  // steps in store
  int first_step = 1, last_step = 0;  // steps in use, after trimming
  int skip_effective = 0;             // initial steps left out of statistics
  int current_step = 1;
  [[nodiscard]] bool has_steps() const { return last_read >= first_read; }
  [[nodiscard]] bool has_data() const { return has_steps() || (irf_case && !irfs.empty()); }

  // As read.
  StepHistory time, pmgg, vmg, acc;
  StepHistory force;                      // component 6 (slot - 1) + i
  std::array<StepHistory, 6> load_force;  // [kind - 1], a component a cut
  std::array<StepHistory, 6> load_moment;
  StepHistory rudder_cmd, rudder_ang, prop_rps;
  StepHistory tadm, fimp;      // impulsive runs: transient added mass and impulse, of the selected ship
  std::vector<IrfBlock> irfs;  // impulsive runs
  int rvm = 0;                 // impulsive runs: the mode of the impulse

  // Made on first need (derived_arrays.h, point_motion.h).
  StepHistory motion, vmgshp, vmgg, accg, force_ship, maneuver, point_motion;
  StepHistory eta_cg, eta_origin;  // incident wave elevation at the CG and at the global origin (wave_at_cg.h)
  DerivedCache built;

  PhaseLists phases;        // read with the case
  bool kino_input = false;  // motions, seaway and hull came from separate files, or motions from a table
  // A case from a table of measured data: its columns but the time, unscaled, and whether motions are among them.
  std::vector<MeasuredColumn> measured_columns;
  StepHistory measured;
  bool motions_known = true;
  [[nodiscard]] bool from_table() const { return !measured_columns.empty(); }
  Tried seaway_tried = Tried::not_yet;
  Seaway seaway;  // on first need (wave_at_cg.h)
  IncidentWave wave;
  Tried hull_tried = Tried::not_yet;
  Hull hull;  // ship axes, non-dimensional; on first need (case_hull.h)

  std::vector<int> kmstep;    // key steps
  bool combined = false;      // joined from parts of a restarted run
  std::vector<StepGap> gaps;  // of a combined case: all values but the times are 0 there
};

}  // namespace zaview
