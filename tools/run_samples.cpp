// The physics of the samples and of the benchmark runs: motions as sums of (damped) harmonics, everything else from
// their exact derivatives. All values non-dimensional: length over L, time times sqrt(g/L).
#include <algorithm>
#include <charconv>
#include <cmath>
#include <complex>
#include <numbers>

#include <fmt/format.h>

#include "run_writer.h"

namespace run_writer {

namespace {

using Vec3 = std::array<double, 3>;
using Mat3 = std::array<Vec3, 3>;

constexpr double kPi = std::numbers::pi;

// amplitude exp(-decay t) cos(frequency t + angle), in one of the six modes.
struct Harmonic {
  int mode = 3;
  double amplitude = 0, frequency = 0, angle = 0, decay = 0;
};

struct Motions {
  std::array<double, 6> mean{};
  double speed = 0;
  std::vector<Harmonic> harmonics;
};

struct Modes {
  std::array<double, 6> x{}, v{}, a{};
};

Modes ModesAt(const Motions& motions, double t) {
  Modes modes;
  modes.x = motions.mean;
  modes.x[0] += motions.speed * t;
  modes.v[0] = motions.speed;
  for (const Harmonic& h : motions.harmonics) {
    const size_t i = static_cast<size_t>(h.mode - 1);
    const double size = h.amplitude * std::exp(-h.decay * t);
    const double re = size * std::cos(h.frequency * t + h.angle), im = size * std::sin(h.frequency * t + h.angle);
    const double vr = -h.decay * re - h.frequency * im, vi = -h.decay * im + h.frequency * re;  // times (-decay + i w)
    modes.x[i] += re;
    modes.v[i] += vr;
    modes.a[i] += -h.decay * vr - h.frequency * vi;
  }
  return modes;
}

// R = Rz(yaw) Ry(pitch) Rx(roll), ship to global.
Mat3 Rotation(const std::array<double, 6>& x) {
  const double cr = std::cos(x[3]), sr = std::sin(x[3]), cp = std::cos(x[4]), sp = std::sin(x[4]), cy = std::cos(x[5]),
               sy = std::sin(x[5]);
  return {{{cy * cp, cy * sp * sr - sy * cr, cy * sp * cr + sy * sr},
           {sy * cp, sy * sp * sr + cy * cr, sy * sp * cr - cy * sr},
           {-sp, cp * sr, cp * cr}}};
}

Vec3 ToGlobal(const Mat3& r, const Vec3& v) {
  Vec3 out{};
  for (size_t i = 0; i < 3; ++i) out[i] = r[i][0] * v[0] + r[i][1] * v[1] + r[i][2] * v[2];
  return out;
}

Vec3 ToShip(const Mat3& r, const Vec3& v) {
  Vec3 out{};
  for (size_t i = 0; i < 3; ++i) out[i] = r[0][i] * v[0] + r[1][i] * v[1] + r[2][i] * v[2];
  return out;
}

// Body rates and their time derivatives from the Euler angles, their rates and accelerations.
void BodyRates(const Modes& m, Vec3& w, Vec3& dw) {
  const double cr = std::cos(m.x[3]), sr = std::sin(m.x[3]), cp = std::cos(m.x[4]), sp = std::sin(m.x[4]);
  const double roll = m.v[3], pitch = m.v[4], yaw = m.v[5];
  w = {roll - yaw * sp, pitch * cr + yaw * sr * cp, -pitch * sr + yaw * cr * cp};
  dw = {m.a[3] - m.a[5] * sp - yaw * cp * pitch,
        m.a[4] * cr - pitch * sr * roll + m.a[5] * sr * cp + yaw * (cr * roll * cp - sr * sp * pitch),
        -m.a[4] * sr - pitch * cr * roll + m.a[5] * cr * cp - yaw * (sr * roll * cp + cr * sp * pitch)};
}

// Euler's equations: the moment about the CG in ship axes.
Vec3 Moment(const Vec3& w, const Vec3& dw) {
  const Vec3 h = {kInertia[0] * w[0], kInertia[1] * w[1], kInertia[2] * w[2]};
  return {kInertia[0] * dw[0] + w[1] * h[2] - w[2] * h[1], kInertia[1] * dw[1] + w[2] * h[0] - w[0] * h[2],
          kInertia[2] * dw[2] + w[0] * h[1] - w[1] * h[0]};
}

struct Writer {
  std::span<float> out;
  size_t at = 0;
  void Put(double value) { out[at++] = static_cast<float>(value); }
  void Put(const Vec3& v) {
    for (const double value : v) Put(value);
  }
};

// The five slots sum to mass times acceleration: 1 takes what 2 to 5 leave, 5 is the weight, 3 the buoyancy.
void PutForces(const Vec3& force, const Vec3& moment, double heave, Writer& writer) {
  const double buoyancy = kMass - 0.1 * heave;
  const Vec3 nonlinear = {0, 0, 0.01 * force[2]};
  writer.Put({force[0], force[1], force[2] - nonlinear[2] - buoyancy + kMass});
  writer.Put(moment);
  writer.Put(nonlinear);
  writer.Put(Vec3{});
  writer.Put({0, 0, buoyancy});
  writer.Put(Vec3{});
  writer.Put(Vec3{});
  writer.Put(Vec3{});
  writer.Put({0, 0, -kMass});
  writer.Put(Vec3{});
}

// Shear f sin(2 pi s) and its integral to the end, f (1 + cos(2 pi s)) / (2 pi): antisymmetric and symmetric about
// s = 0, both 0 at the ends s = -1/2 and 1/2. The kinds have shares 1, 1/4, 1/10 of f.
void PutLoads(const std::array<int, 3>& kinds, const std::vector<double>& stations, double f, Writer& writer) {
  constexpr std::array<double, 3> kShares = {1.0, 0.25, 0.1};
  for (size_t kind = 0; kind < 3; ++kind) {
    if (kinds[kind] <= 0) continue;
    for (const double s : stations) writer.Put(kShares[kind] * f * std::sin(2 * kPi * s));
    for (const double s : stations) writer.Put(kShares[kind] * f * (1 + std::cos(2 * kPi * s)) / (2 * kPi));
  }
}

// Loads follow heave: f = 0.01 of its unsteady part. Y cuts stand across a beam of L/5.
void SetFill(const Motions& motions, RunSpec& spec) {
  std::vector<double> x_stations, y_stations;
  for (const auto& cut : spec.x_cuts) x_stations.push_back(cut[0] / spec.len);
  for (const auto& cut : spec.y_cuts) y_stations.push_back(cut[1] / (0.2 * spec.len));
  spec.fill = [motions, x_stations, y_stations, x_kinds = spec.x_kinds, y_kinds = spec.y_kinds](
                  int /*step*/, double time, std::span<float> values) {
    const Modes m = ModesAt(motions, time);
    const Mat3 r = Rotation(m.x);
    Vec3 w{}, dw{};
    BodyRates(m, w, dw);
    const Vec3 a = {m.a[0], m.a[1], m.a[2]};
    Writer writer{values};
    for (const double x : m.x) writer.Put(x);
    writer.Put({m.v[0], m.v[1], m.v[2]});
    writer.Put(w);
    writer.Put(ToShip(r, a));
    writer.Put(dw);
    const double heave = m.x[2] - motions.mean[2];
    PutForces({kMass * a[0], kMass * a[1], kMass * a[2]}, ToGlobal(r, Moment(w, dw)), heave, writer);
    PutLoads(x_kinds, x_stations, 0.01 * heave, writer);
    PutLoads(y_kinds, y_stations, 0.01 * heave, writer);
    writer.Put(0.1 * m.x[5]);
    writer.Put(0.08 * m.x[5]);
    writer.Put(2.0);
  };
}

// Non-dimensional frequency of a wave or motion of `period` input time units.
double Frequency(const RunSpec& spec, double period) {
  return 2 * kPi / period * std::sqrt(spec.len / spec.grav);
}

Motions AtRest(RunSpec& spec) {
  spec.pmgin = {0, 0, -1.25, 0, 0, 0};
  Motions motions;
  motions.mean[2] = spec.pmgin[2] / spec.len;
  motions.speed = spec.uship / std::sqrt(spec.grav * spec.len);
  return motions;
}

// One wave of 1 m, w 0.5, against the bow; the speed makes the encounter period 10 s, 40 steps. eta = cos(we t).
// Heave 0.8 m, 36 degrees (4 steps) behind the wave; pitch 2 degrees, 90 degrees ahead.
void RegularHead(RunSpec& spec) {
  spec.title = "Regular head wave 1 m, heave 0.8 m lagging 36 deg, encounter period 10 s";
  spec.nstep = spec.steps = 400;
  const double we = 2 * kPi / 10, w = 0.5;
  spec.uship = (we - w) * spec.grav / (w * w);
  spec.seaway = {"1", "1 0", "0.5 0.0 1.0 180.0"};
  Motions motions = AtRest(spec);
  const double frequency = Frequency(spec, 10);
  motions.harmonics = {{3, 0.008, frequency, -kPi / 5, 0}, {5, kPi / 90, frequency, kPi / 2, 0}};
  SetFill(motions, spec);
}

constexpr int kSeas = 3;  // among the samples

// Twelve waves of 0.05 m to 0.6 m; heave 0.7, pitch 1 degree per metre, surge 0.2 of each, all in phase with it.
// realization: another set of phases.
void TwelveWaves(int realization, RunSpec& spec) {
  spec.uship = 7.5;
  spec.seaway = {"1", "12 0"};
  Motions motions = AtRest(spec);
  for (int i = 0; i < 12; ++i) {
    const double w = 0.35 + 0.05 * i, phase = (i * 77 + realization * (i * i * 41 + 23)) % 360;
    const double amplitude = 0.6 - 0.05 * i;
    spec.seaway.push_back(fmt::format("{:.10g} {:.10g} {:.10g} 180.0", w, phase, amplitude));
    const double we = (w + spec.uship * w * w / spec.grav) * std::sqrt(spec.len / spec.grav);
    const double angle = -phase * kPi / 180, share = amplitude / spec.len;
    motions.harmonics.push_back({1, 0.2 * share, we, angle, 0});
    motions.harmonics.push_back({3, 0.7 * share, we, angle, 0});
    motions.harmonics.push_back({5, amplitude * kPi / 180, we, angle, 0});
  }
  SetFill(motions, spec);
}

void IrregularHead(RunSpec& spec) {
  spec.title = "Twelve head waves, vertical and horizontal loads at 5 X cuts";
  spec.nstep = spec.steps = 300;
  spec.x_kinds = {1, 1, 0};
  for (const double x : {37.5, 25.0, 0.0, -25.0, -37.5}) spec.x_cuts.push_back({x, 0, 5});
  TwelveWaves(0, spec);
}

void Sea(int realization, RunSpec& spec) {
  spec.title = fmt::format("Twelve head waves, realization {}{}", realization, realization <= kSeas ? " of 3" : "");
  spec.nstep = spec.steps = 400;
  TwelveWaves(realization, spec);
}

// Eight waves from 45 degrees off the stern, 0.15 to 0.9 m; the ship of ship.geo with a rudder. Heave 0.8 and roll 14
// degrees a metre near resonance, pitch 0.9 degrees; roll a quarter behind, pitch a quarter ahead of the wave.
void Quartering(RunSpec& spec) {
  spec.title = "Eight waves from the quarter, roll near resonance, hull with a rudder";
  spec.nstep = spec.steps = 240;
  spec.uship = 5;
  spec.geometry = "ship.geo";
  spec.fins = {{-47, 0, 2.5, 0, 0, 1, 1, 0, 0, 4, 3, 0}};
  spec.seaway = {"1", "8 0"};
  Motions motions = AtRest(spec);
  constexpr double kOffStern = kPi / 4, kRoll = 0.55, kWidth = 0.12;  // rad/s
  for (int i = 0; i < 8; ++i) {
    const double w = 0.45 + 0.06 * i, phase = (i * 131) % 360, amplitude = 0.9 - 0.75 * std::abs(i - 3) / 4;
    spec.seaway.push_back(fmt::format("{:.10g} {:.10g} {:.10g} 45.0", w, phase, amplitude));
    const double met = w - spec.uship * w * w / spec.grav * std::cos(kOffStern);
    const double we = met * std::sqrt(spec.len / spec.grav);
    const double angle = -phase * kPi / 180, near = (met - kRoll) / kWidth;
    motions.harmonics.push_back({3, 0.8 * amplitude / spec.len, we, angle, 0});
    motions.harmonics.push_back({4, 14 * amplitude / (1 + near * near) * kPi / 180, we, angle - kPi / 2, 0});
    motions.harmonics.push_back({5, 0.9 * amplitude * kPi / 180, we, angle + kPi / 2, 0});
    motions.harmonics.push_back({6, 0.5 * amplitude * kPi / 180, we, angle, 0});
  }
  SetFill(motions, spec);
}

// Free roll in calm water from 10 degrees: exp(-0.05 wn t) cos(wd t), damped period 12 s.
void RollDecay(RunSpec& spec) {
  spec.title = "Free roll decay from 10 deg, 5 % of critical damping, period 12 s";
  spec.nstep = spec.steps = 300;
  Motions motions = AtRest(spec);
  spec.pmgin[3] = 10;
  const double damped = Frequency(spec, 12), natural = damped / std::sqrt(1 - 0.05 * 0.05);
  motions.harmonics = {{4, kPi / 18, damped, 0, 0.05 * natural}};
  SetFill(motions, spec);
}

void ForcedHeave(RunSpec& spec) {
  spec.title = "Forced heave 1 m, period 10 s, calm water";
  spec.motype = 0;
  spec.nstep = spec.steps = 200;
  spec.ampm[2] = 1;
  spec.omegm[2] = 2 * kPi / 10;
  Motions motions = AtRest(spec);
  motions.harmonics = {{3, 0.01, Frequency(spec, 10), -kPi / 2, 0}};
  SetFill(motions, spec);
}

void ShortCut(RunSpec& spec) {
  RegularHead(spec);
  spec.title = "Regular head wave, the file ends inside step 121 of 400";
  spec.steps = 121;
  spec.cut_last_step = true;
}

void EqualTimes(RunSpec& spec) {
  RegularHead(spec);
  spec.title = "Regular head wave, steps 100 and 101 have one time";
  spec.nstep = spec.steps = 150;
  spec.equal_time_at = 101;
}

void Restarted(RunSpec& spec) {
  RegularHead(spec);
  spec.title = "Regular head wave, restarted: steps 201 to 400";
  spec.irst = 1;
  spec.first_step = 201;
  spec.steps = 200;
}

void YCuts(RunSpec& spec) {
  RegularHead(spec);
  spec.title = "Regular head wave, vertical and horizontal loads at 3 Y cuts";
  spec.nstep = spec.steps = 150;
  spec.y_kinds = {1, 1, 0};
  spec.y_cuts = {{0, 2.5, 6.25}, {0, 0, 6.25}, {0, -2.5, 6.25}};
  Motions motions = AtRest(spec);
  motions.harmonics = {{3, 0.008, Frequency(spec, 10), -kPi / 5, 0}};
  SetFill(motions, spec);
}

// The kernel of impulsive runs: exp(-t/2) cos(w t).
double Kernel(double w, double t) {
  return std::exp(-0.5 * t) * std::cos(w * t);
}

// `count` lists: time at steps of 0.1, then shares of the kernels, six of w 2, six (of a diffraction record) of w 1.5.
void AppendResponse(std::string_view label, int count, std::span<const double> shares, RunSpec& spec) {
  const size_t number = static_cast<size_t>(
      1 + std::count_if(spec.irf_lines.begin(), spec.irf_lines.end(), [](const auto& line) { return line[0] == '!'; }));
  spec.irf_lines.push_back(fmt::format("!IRF{:4}        {}, ship 1, {} steps (no aij, etc.)", number, label, count));
  for (int i = 0; i < count; ++i) {
    std::string line = fmt::format("{:.1f}", 0.1 * i);
    for (size_t k = 0; k < shares.size(); ++k)
      line += fmt::format(" {:.8E}", shares[k] * Kernel(k < 6 ? 2.0 : 1.5, 0.1 * i));
    spec.irf_lines.push_back(line);
  }
}

void ImpulseResponses(RunSpec& spec) {
  spec.title = "Impulse responses exp(-t/2) cos(w t), w 2, Froude-Krylov 1.5";
  spec.motype = 1;
  spec.nstep = 31;
  spec.steps = 0;
  const double heave[] = {0, 0, 0.004, 0, 0.001, 0};
  const double head[] = {0.002, 0, 0.003, 0, -0.0005, 0, 0, 0, 0.008, 0, 0.0025, 0};
  AppendResponse("radiation in heave", 31, heave, spec);
  spec.irf_lines.push_back("!IRF   2        added mass, ship 1, 0 steps (with aij, etc.)");
  for (int row = 0; row < 18; ++row) {  // added mass, damping, stiffness: diagonals 0.001 .. 0.018
    std::string line;
    for (int k = 0; k < 6; ++k) line += k == row % 6 ? fmt::format(" {:.3f}", 0.001 * (row + 1)) : " 0.0";
    spec.irf_lines.push_back(line);
  }
  AppendResponse("diffraction head, heading 180.0", 31, head, spec);
  spec.irf_lines.push_back("!END OF INPUT FILE ECHO");
}

void TransientAddedMass(RunSpec& spec) {
  spec.title = "Impulse in heave: tadm exp(-t/2) cos 2t, fimp exp(-t/2) cos 1.5t";
  spec.motype = 1;
  spec.mixed = 2;
  spec.nstep = spec.steps = 60;
  spec.irf_lines = {"!END OF INPUT FILE ECHO"};
  const double force = spec.rho * spec.grav * std::pow(spec.len, 3), moment = force * spec.len;
  const double to_own = std::sqrt(spec.grav / spec.len);
  spec.fill = [=](int, double time, std::span<float> values) {
    std::fill(values.begin(), values.end(), 0.0F);
    values[2] = static_cast<float>(0.004 * Kernel(2, time * to_own) * force);
    values[4] = static_cast<float>(0.001 * Kernel(2, time * to_own) * moment);
    values[8] = static_cast<float>(0.0005 * Kernel(1.5, time * to_own) * force);
  };
}

struct Sample {
  std::string_view name;
  void (*make)(RunSpec& spec);
};

constexpr std::array<Sample, 14> kSamples = {{
    {"regular_head", RegularHead},
    {"irregular_head", IrregularHead},
    {"sea_1", [](RunSpec& spec) { Sea(1, spec); }},
    {"sea_2", [](RunSpec& spec) { Sea(2, spec); }},
    {"sea_3", [](RunSpec& spec) { Sea(3, spec); }},
    {"quartering", Quartering},
    {"roll_decay", RollDecay},
    {"forced_heave", ForcedHeave},
    {"short_cut", ShortCut},
    {"equal_times", EqualTimes},
    {"restarted", Restarted},
    {"y_cuts", YCuts},
    {"impulse_responses", ImpulseResponses},
    {"transient_added_mass", TransientAddedMass},
}};

// sea_N, another realization.
bool SeaSpec(std::string_view name, RunSpec& spec) {
  constexpr std::string_view kSea = "sea_";
  int realization = 0;
  if (!name.starts_with(kSea)) return false;
  name.remove_prefix(kSea.size());
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), realization);
  if (error != std::errc() || end != name.data() + name.size() || realization < 1) return false;
  Sea(realization, spec);
  return true;
}

}  // namespace

std::vector<std::string_view> SampleNames() {
  std::vector<std::string_view> names;
  for (const Sample& sample : kSamples) names.push_back(sample.name);
  return names;
}

bool SampleSpec(std::string_view name, RunSpec& spec) {
  const auto found = std::find_if(kSamples.begin(), kSamples.end(), [&](const Sample& s) { return s.name == name; });
  spec = RunSpec();
  if (found == kSamples.end()) return SeaSpec(name, spec);
  found->make(spec);
  return true;
}

RunSpec BenchmarkSpec(std::int64_t bytes, int cuts) {
  RunSpec spec;
  // So many that the motions lose their memory, as in a seaway.
  constexpr int kHarmonics = 24;
  spec.title = "Benchmark: 24 frequencies in each mode";
  spec.uship = 7.5;
  spec.x_kinds = {cuts > 0 ? 1 : 0, 0, 0};
  for (int i = 0; i < cuts; ++i) spec.x_cuts.push_back({45.0 - 90.0 * i / std::max(cuts - 1, 1), 0, 5});
  spec.seaway = {"1", "1 0", "0.5 0.0 1.0 180.0"};
  Motions motions = AtRest(spec);
  for (int mode = 1; mode <= 6; ++mode) {
    for (int k = 0; k < kHarmonics; ++k) {
      const double place = std::fmod(0.61803 * k + 0.1 * mode, 1.0);  // in the band, never evenly spaced
      const double amplitude = (mode <= 3 ? 0.01 : 0.02) * place * (1.0 - place);
      motions.harmonics.push_back({mode, amplitude, 1.0 + 1.6 * place, 0.7 * mode + 2.1 * k * k, 0});
    }
  }
  SetFill(motions, spec);
  const std::int64_t values = ValuesPerStep(spec) + 1;
  const std::int64_t per_step = values * 16 + (values + spec.values_per_line - 1) / spec.values_per_line;
  const std::int64_t header = static_cast<std::int64_t>(HeaderText(spec).size());
  spec.nstep = spec.steps = static_cast<int>(std::clamp<std::int64_t>((bytes - header) / per_step, 1, 100'000'000));
  return spec;
}

}  // namespace run_writer
