// Writes primary output files with known physics: samples/, test inputs, and benchmark files of any size. Stands apart
// from src/: what it writes is computed here from closed forms, so that a test compares two programs.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace run_writer {

// The hull of every run, non-dimensional: mass over rho L^3, moments of inertia by radii of gyration over L.
inline constexpr double kMass = 1.0 / 360;
inline constexpr std::array<double, 3> kInertia = {kMass * 0.035 * 0.035, kMass * 0.25 * 0.25, kMass * 0.25 * 0.25};

struct RunSpec {
  std::string title = "Run";
  std::string version_line = " VERSION   : 4.1.7 / April 28, 2022";  // blank: none
  std::string kind_line = " ZAVO Primary Output File";
  int version = 417;             // decides layout of derived data and steps
  int motype = 2;                // 0 forced, 1 impulsive, 2 free
  int mixed = 0;                 // of impulsive runs: 2 transient added mass, else impulse response functions alone
  int nstep = 100;               // planned (NSTEP of the control text)
  int steps = 100;               // written
  int irst = 0, first_step = 1;  // a restarted part begins at first_step
  std::string geometry;          // file of the whole hull, two surfaces; blank: none
  std::vector<std::array<double, 12>> fins;  // centre, span and chord vectors, span, chord, deflection; input units
  double tinit = 0, dth = 0.25;              // input time units
  double uship = 0, depth = 0;               // input units
  std::array<double, 6> pmgin{}, ampm{}, omegm{};
  double grav = 9.81, rho = 1025, len = 100, ang = 57.29578;  // records 22 and 23
  double lenout = 0;                                          // 0: as len
  std::vector<std::string> seaway = {"0"};                    // data lines of record 21
  std::vector<std::string> modules;                           // lines behind record 33
  std::array<int, 3> x_kinds{}, y_kinds{};                    // switches
  std::vector<std::array<double, 3>> x_cuts, y_cuts;          // input units
  std::vector<std::string> irf_lines;                         // of impulsive runs: behind the header, to the end line
  int values_per_line = 6;                                    // 0: a whole step on one line
  int equal_time_at = 0;       // this step gets the time of the step ahead of it; 0: none
  bool cut_last_step = false;  // the file ends in the middle of the last step
  // Fills the reals of step i (from 1) behind the time, in file order: pmgg vmg acc force 1..5, loads, three scalars;
  // of impulsive runs: tadm fimp, in output units.
  std::function<void(int step, double time, std::span<float> values)> fill;
  // Must depend on its arguments alone: long files call it from two threads.
};

[[nodiscard]] int ValuesPerStep(const RunSpec& spec);          // behind the time
[[nodiscard]] double StepTime(const RunSpec& spec, int step);  // as in the file
[[nodiscard]] std::string HeaderText(const RunSpec& spec);     // through END_OF_HEADER and irf_lines
void AppendStep(const RunSpec& spec, int step, std::string& text);
[[nodiscard]] std::string RunText(const RunSpec& spec);  // the whole file

// Streams to a file through one buffer, for files of any size. False: it can't be written.
[[nodiscard]] bool WriteRunFile(const RunSpec& spec, const std::string& path);

// The project's samples by name ("regular_head", ...), each with its physics told in its title.
[[nodiscard]] std::vector<std::string_view> SampleNames();
[[nodiscard]] bool SampleSpec(std::string_view name, RunSpec& spec);
// A run whose file has about `bytes` bytes, motions of several frequencies, loads at `cuts` X cuts.
[[nodiscard]] RunSpec BenchmarkSpec(std::int64_t bytes, int cuts);

}  // namespace run_writer
