#include "analysis/crane/crane_run.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "analysis/crane/ship_motion.h"
#include "base/angles.h"
#include "base/grow.h"
#include "base/message.h"
#include "base/text.h"
#include "base/vectors.h"
#include "case/case_hull.h"
#include "case/ship_pose.h"
#include "control/input_scales.h"
#include "frame/ground/input_file.h"
#include "frame/ground/progress_line.h"
#include "geometry/input_transform.h"
#include "geometry/read_geometry.h"

namespace zaview {
namespace {

constexpr std::string_view kSimulating = "Crane and cargo";
constexpr std::string_view kReadingCargo = "Reading boat geometry from file: {}";
constexpr std::string_view kNoCargo = "Error opening geometry file for boat model: {}{}";
constexpr std::string_view kLength = "cable length error for crane & cargo model - Execution Aborting";
constexpr std::string_view kLengthAt = "        at step {}";
constexpr std::string_view kTooStiff = "ERROR - crane & cargo model needs more than {} sub-steps of a time step";
constexpr std::string_view kInterrupted = "Crane & cargo simulation interrupted at step {}";
constexpr std::string_view kGap = "ERROR - steps {} to {} hold no motion: crane & cargo need every step in use";
constexpr std::string_view kNoSteps = "ERROR - there are no steps in use";

constexpr double kRigidStretch = 1e-3;  // of the length, for several rigid cables: each takes its share then

// ---- From the input to the model

struct ModelMaking {
  const CraneInput& input;
  const CaseStore& store;
  InputScales scales;

  [[nodiscard]] Vector3 ShipPoint(const Triple& point) const {
    return FromCentre(store, InputToShip(store.control, point));
  }
  [[nodiscard]] Vector3 Lengths(const Triple& v) const { return Times(scales.length, v); }
};

double Stiffness(const ModelMaking& making, double weight) {  // E A
  const CraneInput& input = making.input;
  const ControlRecords& control = making.store.control;
  const double length = making.scales.length;
  if (input.INCABLE == kElasticCable)
    return input.ECABL * input.ACABL / (control.RHOIN * control.GRAVIN) * (length * length * length);
  const double stretch = input.INCABLE == kCableByStretch ? input.R0 : kRigidStretch * input.LCABL0;
  return weight / input.NCBL * input.LCABL0 / stretch;
}

Boom BoomOf(const ModelMaking& making, std::size_t cable) {
  const CraneInput& input = making.input;
  const Triple& given = input.boom[cable];
  Boom boom;
  boom.base = making.ShipPoint(input.RBASE0[cable]);
  if (input.INBOOM == kBoomAngles) {
    boom.length = given[0] * making.scales.length;
    boom.slew = given[1] * kRadians;
    boom.luff = given[2] * kRadians;
    return boom;
  }
  const Vector3 along = Minus(making.ShipPoint(given), boom.base);
  boom.length = Length(along);
  boom.slew = std::atan2(along[1], along[0]);
  boom.luff = std::atan2(along[2], std::hypot(along[0], along[1]));
  return boom;
}

// axis: 0 luff, 2 slew, 3 cable.
AxisLimits LimitsOf(const ModelMaking& making, std::size_t axis) {
  const CraneInput& input = making.input;
  const double unit = axis == 3 ? making.scales.length : kRadians, T = making.scales.time;
  return {input.RTLIM[axis] * unit / T, input.ACLIM[axis] * unit / (T * T), input.LIMIT[2 * axis] * unit,
          input.LIMIT[2 * axis + 1] * unit};
}

// Times of commands are those of the run's own output.
void TakeCommands(const ModelMaking& making, CraneModel& model) {
  const ControlRecords& control = making.store.control;
  const double T = std::sqrt(control.LENOUT / control.GRAVOUT);
  model.luff_limits = LimitsOf(making, 0);
  model.slew_limits = LimitsOf(making, 2);
  model.length_limits = LimitsOf(making, 3);
  for (const std::array<double, 4>& command : making.input.BANG)
    model.commands.push_back(
        {command[0] / T, command[1] * kRadians, command[2] * kRadians, command[3] * making.scales.length});
}

CargoStart StartOf(const ModelMaking& making) {
  const CraneInput& input = making.input;
  CargoStart start;
  start.by_swing = input.INCARGO == kCargoSwing;
  if (start.by_swing) {
    start.azimuth = input.cargo[0] * kRadians;
    start.elevation = input.cargo[1] * kRadians;
    start.stretch = input.cargo[2] * making.scales.length;
  } else {
    start.end = making.ShipPoint(input.cargo);
  }
  if (input.DOF == 6) start.euler = Times(kRadians, input.ACARGO);
  return start;
}

void TakeInertia(const ModelMaking& making, CraneModel& model) {
  const CraneInput& input = making.input;
  for (std::size_t i = 0; i < 3; ++i)
    for (std::size_t j = 0; j < 3; ++j)
      model.inertia[i][j] = (input.ICARGO[i][j] + input.ICARGO[j][i]) / 2 * making.scales.inertia;
  model.rotates = InvertInertia(model.inertia, model.inverse);
  model.s = making.Lengths(input.RCARGO);
}

CraneModel CraneModelOf(const CraneInput& input, const CaseStore& store) {
  const ModelMaking making{input, store, InputScalesOf(store.control)};
  CraneModel model;
  model.cables = static_cast<std::size_t>(input.NCBL);
  model.rigid = input.INCABLE == kRigidCable && input.NCBL == 1;
  model.mass = input.MCARGO * making.scales.mass;
  if (input.DOF == 6) TakeInertia(making, model);
  model.EA = Stiffness(making, model.mass);
  model.length = input.LCABL0 * making.scales.length;
  model.z = input.DMPCBL;
  for (std::size_t b = 0; b < model.cables; ++b) model.booms[b] = BoomOf(making, b);
  if (input.ICNTRL != 0) TakeCommands(making, model);
  model.start = StartOf(making);
  model.sub_steps = std::max(input.ISTP, 1);
  return model;
}

// ---- The cargo's geometry

// About the point where the cables end.
void MoveTo(const Vector3& end, double length, Hull& cargo) {
  const auto move = [&](std::vector<Vector3>& points) {
    for (Vector3& p : points) p = Times(length, Minus(p, end));
  };
  for (HullSurface& surface : cargo.surfaces) move(surface.points);
  move(cargo.mesh.nodes);
  cargo.mesh.on_transom.clear();
}

bool ReadCargoHull(const Platform& platform, const CraneInput& input, std::string_view name, const CaseStore& store,
                   Hull& cargo) {
  if (input.GTOPT == 0 || SplitGeometryName(input.BOAT_FGEOM).format == GeometryFormat::none) return true;
  Say(platform.console, kReadingCargo, input.BOAT_FGEOM);
  GeometryRequest request;
  request.name = input.BOAT_FGEOM;
  request.folder = FolderOf(name);
  request.to_the_end = true;
  request.LENIN = store.control.LENIN;
  const GeometryStatus status = ReadGeometry(platform, request, cargo);
  if (status == GeometryStatus::ok) {
    MoveTo(input.XCARGO, InputScalesOf(store.control).length, cargo);
    return true;
  }
  if (status == GeometryStatus::cannot_open)
    Say(platform.console, kNoCargo, SplitGeometryName(request.name).file,
        WhyGeometryNotOpened(platform.files, request.name, request.folder));
  SayLine(platform.console, kCraneAborted);
  return false;
}

// ---- Faults

CraneFault SayFault(const Console& console, CraneFault fault, int step) {
  if (fault == CraneFault::length) {
    SayLine(console, kLength);
    Say(console, kLengthAt, step);
  }
  if (fault == CraneFault::too_stiff) Say(console, kTooStiff, kMostSubSteps);
  if (fault == CraneFault::interrupted) Say(console, kInterrupted, step);
  if (fault == CraneFault::no_memory) SayLine(console, kNoCraneMemory);
  return fault;
}

bool StepsGood(const Console& console, const CaseStore& store) {
  if (store.last_step < store.first_step) SayLine(console, kNoSteps);
  for (const StepGap& gap : store.gaps) {
    if (gap.from > store.last_step || gap.to < store.first_step) continue;
    Say(console, kGap, std::max(gap.from, store.first_step), std::min(gap.to, store.last_step));
    return false;
  }
  return store.last_step >= store.first_step;
}

CraneFault Advance(ProgressLine& progress, const CaseStore& store, CraneRun& run, int& step) {
  const int last = store.last_step;
  CraneState state;
  ShipMotion ship = ShipMotionAt(store, step);
  CraneFault fault = StartCrane(run.model, ship, state);
  for (std::size_t at = 0; fault == CraneFault::none; ++at) {
    run.steps[at] = SnapshotOf(run.model, ship, state);
    run.time[at] = store.time.at(1, step);
    if (step == last) return fault;
    if (TakeInterrupt(progress.platform->console)) return CraneFault::interrupted;
    ShowProgress(progress, static_cast<double>(at) / static_cast<double>(run.time.size()));
    const ShipMotion next = ShipMotionAt(store, ++step);
    fault = AdvanceCrane(run.model, ship, next, state);
    ship = next;
  }
  return fault;
}

}  // namespace

bool PrepareCrane(const Platform& platform, const CraneInput& input, std::string_view name, const CaseStore& store,
                  CraneRun& run) {
  if (!StepsGood(platform.console, store)) return false;
  run = CraneRun{};
  run.first_step = store.first_step;
  run.model = CraneModelOf(input, store);
  const ShipMotion ship = ShipMotionAt(store, store.first_step);
  CraneState state;
  (void)StartCrane(run.model, ship, state);  // lengths in error are the simulation's to tell
  run.start = SnapshotOf(run.model, ship, state);
  run.start_velocity = state.cargo.velocity;
  return ReadCargoHull(platform, input, name, store, run.cargo);
}

CraneFault SimulateCrane(const Platform& platform, const CaseStore& store, CraneRun& run) {
  const auto steps = static_cast<std::size_t>(store.last_step - store.first_step + 1);
  int step = store.first_step;
  CraneFault fault = CraneFault::no_memory;
  ProgressLine progress = StartProgress(platform, kSimulating);
  if (Grow(run.time, steps) && Grow(run.steps, steps)) fault = Advance(progress, store, run, step);
  EndProgress(progress);
  if (fault != CraneFault::none) run.steps.clear();
  return SayFault(platform.console, fault, step);
}

}  // namespace zaview
