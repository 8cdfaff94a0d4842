#include "case/read/kino_case.h"

#include <array>
#include <utility>
#include <vector>

#include "base/angles.h"
#include "base/grow.h"
#include "base/number_parse.h"
#include "base/text.h"
#include "case/size_history.h"
#include "control/input_scales.h"
#include "waves/incident_wave.h"

namespace zaview {
namespace {

// A control text for what the files tell: everything in input units, which are those of the motions file.
void FillControl(const KinoCase& kino, ControlRecords& control) {
  const KinoMotions& motions = kino.motions;
  const std::vector<double>& time = motions.column[0];
  control.DESCR = Trim(std::string_view(motions.comment).substr(StartsWith(motions.comment, "!") ? 1 : 0));
  control.FGEOM = kino.geometry;
  control.MOTYPE = 0;
  control.NSTEP = static_cast<int>(motions.steps());
  control.TINIT = time.front();
  control.DTH = time.size() > 1 ? (time.back() - time.front()) / static_cast<double>(time.size() - 1) : 0;
  control.GRAVIN = control.GRAVOUT = kino.g;
  control.RHOIN = control.RHOOUT = kino.rho;
  control.LENIN = control.LENOUT = motions.length;
  control.ANGIN = control.ANGOUT = kDegrees;
  control.RGRAV = kino.centre;
}

// The file tells times, the case counts steps.
void ScaleBySteps(double TINIT, double DTH, WaveScaling& scaling) {
  if (!(DTH > 0)) DTH = 1;  // a single step: any length will do
  for (double& position : scaling.WSCSTP) {
    const double time = scaling.TINIT + (position - 1) * scaling.DTH;
    position = 1 + (time - TINIT) / DTH;
  }
  scaling.TINIT = TINIT;
  scaling.DTH = DTH;
}

// The components as the control data of a run would list them.
bool FillSeawayRecord(const Seaway& sea, ControlRecords& control) {
  const InputScales scales = InputScalesOf(control);
  SeawayInput& record = control.seaway;
  control.WDEPTH = sea.WDEPTH / scales.length;
  record.ISEA = sea.ISEA;
  record.WSPEC = sea.WSPEC;
  record.WAVEDIM1 = sea.alternative.WAVEDIM1;
  record.WAVEDIM2 = sea.alternative.WAVEDIM2;
  record.WAVE_HEAD = sea.modes.WAVE_HEAD;
  const WaveScaling& scaling = sea.scaling;
  const std::size_t factors = scaling.WSCSTP.size();
  record.NWSC = static_cast<int>(factors);
  record.WSCFAC = scaling.WSCFAC;
  if (!Grow(record.WSCSTP, factors)) return false;
  for (std::size_t i = 0; i < factors; ++i) record.WSCSTP[i] = RoundToInt(scaling.WSCSTP[i]);
  if (!Grow(record.waves, sea.waves.size()) || !Grow(record.alternative, sea.alternative.FREQ.size()) ||
      !Grow(record.modes, sea.modes.MODE_FREQ.size()))
    return false;
  for (std::size_t i = 0; i < record.waves.size(); ++i)
    record.waves[i] = {sea.waves.FREQW[i] / scales.frequency, sea.waves.PHASEW[i], sea.waves.AMPW0[i] / scales.length,
                       sea.waves.HEADW[i]};
  const AlternativeWaves& a = sea.alternative;
  for (std::size_t i = 0; i < record.alternative.size(); ++i)
    record.alternative[i] = {a.KX[i] * scales.length,      a.KY[i] * scales.length,
                             a.AMP[i] / scales.length,     a.PHASE[i],
                             a.FREQ[i] / scales.frequency, a.HEAD[i]};
  for (std::size_t i = 0; i < record.modes.size(); ++i)
    record.modes[i] = {sea.modes.MODE_AMP[i] / scales.length, sea.modes.MODE_PHASE[i],
                       sea.modes.MODE_FREQ[i] / scales.frequency};
  return true;
}

// From the reference point to the CG: position + R (centre - reference).
bool FillHistories(const KinoCase& kino, CaseStore& c) {
  constexpr std::size_t kSix = 6;
  if (!SizeHistory(c, 1, c.time) || !SizeHistory(c, kSix, c.pmgg)) return false;
  // Nothing is known of these: QuantityValid refuses all that would show them.
  if (!SizeHistory(c, kSix, c.vmg) || !SizeHistory(c, kSix, c.acc)) return false;
  const double L = kino.motions.length;
  const double time_scale = InputScalesOf(c.control).time;
  Vector3 offset{};
  for (std::size_t i = 0; i < 3; ++i) offset[i] = kino.centre[i] - kino.reference[i];
  const bool shifted = offset != Vector3{};
  for (std::size_t s = 0; s < kino.motions.steps(); ++s) {
    const auto of_file = [&](std::size_t i) { return kino.motions.column[i][s]; };
    c.time.component[0][s] = static_cast<float>(of_file(0) * time_scale);
    std::array<float, 3> angles{};
    for (std::size_t i = 0; i < 3; ++i)
      c.pmgg.component[3 + i][s] = angles[i] = static_cast<float>(of_file(4 + i) / kDegrees);
    Vector3 moved{};
    if (shifted) moved = ToGlobal(ShipToGlobal(angles[0], angles[1], angles[2]), offset);
    for (std::size_t i = 0; i < 3; ++i) c.pmgg.component[i][s] = static_cast<float>((of_file(1 + i) + moved[i]) / L);
  }
  for (std::size_t i = 0; i < kSix; ++i) c.control.PMGIN[i] = c.pmgg.component[i][0] * (i < 3 ? L : kDegrees);
  return true;
}

void ScaleHull(double factor, Hull& hull) {
  const auto scale = [factor](std::vector<Vector3>& points) {
    for (Vector3& p : points)
      for (double& x : p) x *= factor;
  };
  for (HullSurface& surface : hull.surfaces) scale(surface.points);
  scale(hull.mesh.nodes);
}

// The name of the motions file without directory and extension.
std::string BaseOf(std::string_view name) {
  name.remove_prefix(name.rfind('/') + 1);
  if (name.size() > kMotionsExtension.size() && name.ends_with(kMotionsExtension))
    name.remove_suffix(kMotionsExtension.size());
  return std::string(name);
}

}  // namespace

KinoBuild BuildKinoCase(KinoCase& kino, CaseStore& fresh) {
  CaseStore& c = fresh;
  c.file_name = "KINO file " + kino.name;
  c.base_name = BaseOf(kino.name);
  c.NSHIP = 1;
  c.kino_input = true;
  c.holds = {false, false, false, false, false};
  FillControl(kino, c.control);
  c.first_read = 1;
  c.last_read = c.nstep_expected = c.control.NSTEP;
  c.ships.resize(1);
  for (std::size_t i = 0; i < 3; ++i) c.ships[0].centre[i] = kino.centre[i] / kino.motions.length;
  if (!FillHistories(kino, c)) return KinoBuild::no_history_memory;
  const InputScales scales = InputScalesOf(c.control);
  c.seaway = std::move(kino.seaway);
  ScaleBySteps(c.control.TINIT * scales.time, c.control.DTH * scales.time, c.seaway.scaling);
  c.seaway_tried = Tried::there;
  if (!FillSeawayRecord(c.seaway, c.control) || !PrepareIncidentWave(c.seaway, c.wave)) return KinoBuild::no_memory;
  c.hull = std::move(kino.hull);
  ScaleHull(1 / kino.motions.length, c.hull);
  c.hull_tried = kino.geometry.empty() ? Tried::failed : Tried::there;
  return KinoBuild::ok;
}

}  // namespace zaview
