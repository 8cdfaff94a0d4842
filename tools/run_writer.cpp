#include "run_writer.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <memory>
#include <thread>

#include <fmt/format.h>

namespace run_writer {

namespace {

constexpr double kOriginZ = 0.0625, kCgZ = 0.05;  // GORIG and RGRAV over L, above the keel

bool IsCurrent(int version) {
  return version > 361 || version <= 0;
}

bool IsGyre(const RunSpec& spec) {
  return spec.version_line.find("GYRE") != std::string::npos;
}

int ActiveKinds(const std::array<int, 3>& kinds) {
  return static_cast<int>(std::count_if(kinds.begin(), kinds.end(), [](int k) { return k > 0; }));
}

int LoadCount(const std::array<int, 3>& kinds, size_t cuts) {
  return ActiveKinds(kinds) * static_cast<int>(cuts);
}

// "  1.23456789E+00": 9 significant digits, so that a 4-byte value reads back; 16 columns.
constexpr size_t kCell = 16;

constexpr auto kPowers = [] {
  std::array<double, 128> powers{};
  for (size_t i = 0; i < powers.size(); ++i) {
    double value = 1;
    const int exponent = static_cast<int>(i) - 64;
    for (int k = 0; k < (exponent < 0 ? -exponent : exponent); ++k) value *= 10;
    powers[i] = exponent < 0 ? 1 / value : value;
  }
  return powers;
}();

double PowerOf10(int exponent) {
  return kPowers[static_cast<size_t>(exponent + 64)];
}

void PutCell(float value, char* cell) {
  if (!std::isfinite(value)) {
    fmt::format_to_n(cell, kCell, "{:>16}", std::isnan(value) ? "NaN" : value < 0 ? "-Inf" : "Inf");
    return;
  }
  const double size = std::fabs(static_cast<double>(value));
  int exponent = 0;
  std::uint64_t digits = 0;
  if (size > 0) {
    exponent = static_cast<int>(std::floor(std::ilogb(size) * 0.30103));
    if (size >= PowerOf10(exponent + 1)) ++exponent;
    digits = static_cast<std::uint64_t>(size * PowerOf10(8 - exponent) + 0.5);
    if (digits >= 1000000000) {
      ++exponent;
      digits = static_cast<std::uint64_t>(size * PowerOf10(8 - exponent) + 0.5);
    }
  }
  cell[0] = ' ';
  cell[1] = std::signbit(value) ? '-' : ' ';
  for (size_t i = 11; i >= 4; --i) {
    cell[i] = static_cast<char>('0' + digits % 10);
    digits /= 10;
  }
  cell[3] = '.';
  cell[2] = static_cast<char>('0' + digits);
  cell[12] = 'E';
  cell[13] = exponent < 0 ? '-' : '+';
  const int shown = exponent < 0 ? -exponent : exponent;
  cell[14] = static_cast<char>('0' + shown / 10);
  cell[15] = static_cast<char>('0' + shown % 10);
}

// One list on lines of `per_line` values (0: all on one line).
void AppendList(std::span<const float> values, int per_line, std::string& text) {
  const size_t per = per_line > 0 ? static_cast<size_t>(per_line) : std::max<size_t>(values.size(), 1);
  size_t at = text.size();
  text.resize(at + values.size() * kCell + (values.size() + per - 1) / per);
  for (size_t i = 0; i < values.size(); ++i) {
    PutCell(values[i], text.data() + at);
    at += kCell;
    if ((i + 1) % per == 0 || i + 1 == values.size()) text[at++] = '\n';
  }
}

void Line(std::string& out, std::string_view line) {
  out += line;
  out += '\n';
}

std::string Reals(std::span<const double> values) {
  std::string line;
  for (const double value : values) line += fmt::format("{}{:.10g}", line.empty() ? "" : " ", value);
  return line;
}

void AppendNames(const RunSpec& spec, std::string& out) {
  Line(out, "!01 DESCR - Descriptive Title (max 80 char)");
  Line(out, spec.title);
  Line(out, "!02 FPROG - Source file for programmer's input (blank for defaults)\n");
  Line(out, "!03 FAPLT - Source file for autopilot input (blank for defaults)\n");
  Line(out, "!04 FGEOM - Source file for geometry definition\n" + spec.geometry);
  Line(out, "!05 FOUT - Destination file for primary output\nrun.out");
  Line(out, "!06 Output frequency for pressure, geometry, etc.");
  Line(out, "!           POUT              GOUT              SOUT              BOUT\n0 0 0 0");
  Line(out, "!07 FPOUT - File for pressure data output\n");
  Line(out, "!08 FGOUT - File for geometry output\n");
  Line(out, "!09 FSOUT - File for balance check output\n");
  Line(out, "!10 FBOUT - File for elastic beam output\n");
  Line(out, "!11 AUXOUT(20) - Flags for auxiliary output files\n20*0");
  Line(out, "!12 IVEC - Use Non-vectorized (0) or vectorized (1) kernel\n1");
}

void AppendRun(const RunSpec& spec, std::string& out) {
  Line(out, "!13 ZVOTYP (1-4)  MOTYPE (forced/impulsive/free)  MIXED (Rankine/mixed/IRF)");
  Line(out, fmt::format("1 {} {}", spec.motype, spec.mixed));
  Line(out, "!13 (cont) IFSMIX NXFS NYFS  IMSMIX NXMS NZMS - mixed-source surface points\n6*0");
  Line(out, "!13 (cont) XMIX  YMIX  ZMIX - mixed-source surface extent\n3*0.0");
  Line(out, "!13 (cont) FIRF0 - Root name for impulse response function files\n");
  Line(out, "!14 TINIT NSTEP DTH IRST - Initial Time, Number of Steps, Time Step, Restart");
  Line(out, fmt::format("{:.10g} {} {:.10g} {}", spec.tinit, spec.nstep, spec.dth, spec.irst));
  Line(out, fmt::format("!14 (cont) FRST - Name for restart file\n{}", spec.irst > 0 ? "run.rst" : ""));
  Line(out, "!14 (cont) FBDMEM - Name for body panel TGF influence file\n");
  Line(out, "!14 (cont) FWLMEM - Name for waterline TGF influence file\n");
  Line(out, "!15 USHIP  UCURNT  DCURNT  WDEPTH - Steady speed, current vel/dir, water depth");
  Line(out, fmt::format("{:.10g} 0.0 0.0 {:.10g}", spec.uship, spec.depth));
  Line(out, "!16 PMGIN(1:6) Initial position and orientation in global frame");
  Line(out, Reals(spec.pmgin));
  Line(out, "!17 VMGSHP(1:6) Initial Velocity and Rotation rate in ship fixed system");
  Line(out, fmt::format("{:.10g} 5*0.0", spec.uship));
  Line(out, "!18 AMPM(1:6) Amplitude for forced sinusoidal motion (if MOTYPE=0)");
  Line(out, Reals(spec.ampm));
  Line(out, "!19 OMEGM(1:6) Frequency for forced sinusoidal motion (if MOTYPE=0)");
  Line(out, Reals(spec.omegm));
  Line(out, "!20 SWTCH(1:6) Sets which modes of motion will be considered");
  Line(out, spec.motype == 1 ? "0 0 1 0 0 0" : "6*1");  // an impulse in heave
  Line(out, "!21 ISEA - Seaway specifier");
  for (const std::string& line : spec.seaway) Line(out, line);
}

double OutputLength(const RunSpec& spec) {
  return spec.lenout > 0 ? spec.lenout : spec.len;
}

void AppendShip(const RunSpec& spec, std::string& out) {
  const double l = spec.len, mass = spec.rho * l * l * l, inertia = mass * l * l;
  Line(out, "!22 GRAVIN  RHOIN  LENIN  ANGIN - Scale Factors for Input");
  Line(out, Reals(std::array{spec.grav, spec.rho, l, spec.ang}));
  Line(out, "!23 GRAVOUT  RHOOUT  LENOUT  ANGOUT - Scale Factors for Output");
  Line(out, Reals(std::array{spec.grav, spec.rho, OutputLength(spec), spec.ang}));
  Line(out, "!24 GSHIFT(3), GORIG(3), GROT(3) - Input geometry transformation");
  Line(out, fmt::format("0.0 0.0 0.0\n0.0 0.0 {:.10g}\n0.0 0.0 0.0", kOriginZ * l));
  Line(out, "!25 SMA - Ship mass, SMI(1,1),(2,1),(3,1),(1,2)...(3,3) Mom. of Inertia");
  Line(out, fmt::format("{:.10g}\n{:.10g} 0.0 0.0\n0.0 {:.10g} 0.0\n0.0 0.0 {:.10g}", kMass * mass,
                        kInertia[0] * inertia, kInertia[1] * inertia, kInertia[2] * inertia));
  Line(out, "!26 RGRAV - center of gravity in input system");
  Line(out, fmt::format("0.0 0.0 {:.10g}", kCgZ * l));
  const bool hull = !spec.geometry.empty();
  Line(out, "!27 SYMGEO= 1 for symmetry in calc., SYMINP =1 for symmetry in input");
  Line(out, hull ? "1 0" : "1 1");
  Line(out, hull ? "!28 NCOMP0 ...\n2" : "!28 NCOMP0 ...\n0");
  if (hull) Line(out, "!28 (cont) KCTYPE0 NEWWL0 KSPWL0 SPWL0 NEWST0 KSPST0 SPST0,1->NCOMP0");
  for (int i = 0; hull && i < 2; ++i) Line(out, "1 0 0 0.0 0 0 0.0");
  Line(out, "!29 IVM, IHM, ITM, NBCA, NBMX ...");
  Line(out, fmt::format("{} {} {} {} 0", spec.x_kinds[0], spec.x_kinds[1], spec.x_kinds[2], spec.x_cuts.size()));
  if (!spec.x_cuts.empty()) Line(out, "!29 (cont) XMC(123,1->NBCA)");
  for (const auto& cut : spec.x_cuts) Line(out, Reals(cut));
  Line(out, "!30 KINVIS (kinematic viscosity)  IHROLL (roll damping option)\n1.19E-6 0");
  Line(out, "!31 IHLIFT (hull lift option)\n0");
  Line(out, "!32 NFIN - Number of wing-like lifting appendages (e.g. rudder, fins)");
  Line(out, std::to_string(spec.fins.size()));
  if (!spec.fins.empty()) Line(out, "!32 (cont) center, span vec, chord vec, span length, chord length, defl angle");
  for (const auto& fin : spec.fins) Line(out, Reals(fin));
  Line(out, "!33 NBK - Number of plate-like lifting appendages (e.g. bilge keels)\n0");
  for (const std::string& line : spec.modules) Line(out, line);
  if (spec.y_cuts.empty()) return;
  Line(out, "$YCUTLOADS:\n!YCUTLOADS01 IVMY IHMY ITMY NBCY");
  Line(out, fmt::format("{} {} {} {}", spec.y_kinds[0], spec.y_kinds[1], spec.y_kinds[2], spec.y_cuts.size()));
  Line(out, "!YCUTLOADS02 XMCY(123,1->NBCY)");
  for (const auto& cut : spec.y_cuts) Line(out, Reals(cut));
}

void AppendCuts(const RunSpec& spec, const std::vector<std::array<double, 3>>& cuts, std::string& out) {
  for (const auto& cut : cuts) {
    Line(out, "  " + Reals(std::array{cut[0] / spec.len, cut[1] / spec.len, cut[2] / spec.len - kOriginZ}));
  }
}

void AppendDerived(const RunSpec& spec, std::string& out) {
  Line(out, "!------------ FILE_PARSING_DATA ------------\n  1\n  0");
  Line(out, "!------------ DERIVED_DATA_ECHO ------------");
  Line(out, fmt::format("  {:.10g}\n  {:.10g} 0.0 0.0\n  0.0 {:.10g} 0.0\n  0.0 0.0 {:.10g}\n  0.0 0.0 {:.10g}", kMass,
                        kInertia[0], kInertia[1], kInertia[2], kCgZ - kOriginZ));
  if (spec.version >= 400 || spec.version <= 0) {
    Line(out,
         fmt::format("  {} {} {} {} {} {} {} {}", spec.x_cuts.empty() ? 0 : 1, spec.x_kinds[0], spec.x_kinds[1],
                     spec.x_kinds[2], spec.y_cuts.empty() ? 0 : 1, spec.y_kinds[0], spec.y_kinds[1], spec.y_kinds[2]));
  }
  Line(out, fmt::format("  {}", spec.x_cuts.size()));
  AppendCuts(spec, spec.x_cuts, out);
  Line(out, fmt::format("  {}", spec.y_cuts.size()));
  // Versions ahead of 308 repeat the X cuts here.
  AppendCuts(spec, spec.version >= 308 || spec.version <= 0 ? spec.y_cuts : spec.x_cuts, out);
  Line(out, "  0.0125\n!------------ END_OF_HEADER ------------");
}

// Lists of one step: version 291 breaks a step into three.
std::vector<int> ListsOfStep(const RunSpec& spec) {
  const int all = ValuesPerStep(spec) + 1;
  if (spec.version != 291 || IsGyre(spec)) return {all};
  const int x = LoadCount(spec.x_kinds, spec.x_cuts.size());
  return {1, 36 + x, 6 + x};
}

void AppendSteps(const RunSpec& spec, int begin, int end, std::string& text) {
  const std::vector<int> lists = ListsOfStep(spec);
  std::vector<float> values(static_cast<size_t>(ValuesPerStep(spec)) + 1);
  for (int step = begin; step < end; ++step) {
    const size_t start = text.size();
    values[0] = static_cast<float>(StepTime(spec, step == spec.equal_time_at ? step - 1 : step));
    if (spec.fill) spec.fill(step, StepTime(spec, step), std::span(values).subspan(1));
    size_t at = 0;
    for (const int count : lists) {
      AppendList(std::span(values).subspan(at, static_cast<size_t>(count)), spec.values_per_line, text);
      at += static_cast<size_t>(count);
    }
    const bool last = step == spec.first_step + spec.steps - 1;
    if (!last || !spec.cut_last_step) continue;
    const size_t middle = text.find('\n', start + (text.size() - start) / 2);
    if (middle != std::string::npos && middle + 1 < text.size()) text.resize(middle + 1);
  }
}

}  // namespace

int ValuesPerStep(const RunSpec& spec) {
  if (spec.motype == 1) return 12;
  const int x = LoadCount(spec.x_kinds, spec.x_cuts.size()), y = LoadCount(spec.y_kinds, spec.y_cuts.size());
  if (IsGyre(spec)) return 42 + x;
  if (IsCurrent(spec.version)) return 51 + 2 * x + 2 * y;
  if (spec.version == 291) return 42 + 2 * x;
  return (spec.version >= 299 ? 48 : 36) + x;
}

double StepTime(const RunSpec& spec, int step) {
  const double time = spec.tinit + (step - 1) * spec.dth;
  return spec.motype == 1 ? time : time * std::sqrt(spec.grav / spec.len);  // impulsive runs: in output units
}

std::string HeaderText(const RunSpec& spec) {
  std::string out;
  Line(out, " ZAVO - time-domain simulation of ship motions and loads");
  if (!spec.version_line.empty()) Line(out, spec.version_line);
  if (!spec.kind_line.empty()) Line(out, spec.kind_line);
  Line(out, "!------------ INPUT_FILE_ECHO ------------");
  AppendNames(spec, out);
  AppendRun(spec, out);
  AppendShip(spec, out);
  AppendDerived(spec, out);
  for (const std::string& line : spec.irf_lines) Line(out, line);
  return out;
}

void AppendStep(const RunSpec& spec, int step, std::string& text) {
  AppendSteps(spec, step, step + 1, text);
}

std::string RunText(const RunSpec& spec) {
  std::string text = HeaderText(spec);
  AppendSteps(spec, spec.first_step, spec.first_step + spec.steps, text);
  return text;
}

bool WriteRunFile(const RunSpec& spec, const std::string& path) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "wb"), std::fclose);
  if (!file) return false;
  const std::string header = HeaderText(spec);
  if (std::fwrite(header.data(), 1, header.size(), file.get()) != header.size()) return false;
  // Two threads format neighbouring blocks, which are written in order.
  constexpr int kBlock = 4096;
  std::array<std::string, 2> text;
  const int end = spec.first_step + spec.steps;
  for (int step = spec.first_step; step < end;) {
    const int middle = step + std::min(kBlock, end - step);
    const int next = middle + std::min(kBlock, end - middle);
    for (std::string& block : text) block.clear();
    std::thread other([&] { AppendSteps(spec, middle, next, text[1]); });
    AppendSteps(spec, step, middle, text[0]);
    other.join();
    for (const std::string& block : text) {
      if (std::fwrite(block.data(), 1, block.size(), file.get()) != block.size()) return false;
    }
    step = next;
  }
  return std::fflush(file.get()) == 0;
}

}  // namespace run_writer
