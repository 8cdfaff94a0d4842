#include "case/read/table_steps.h"

#include <algorithm>
#include <cmath>

#include "base/grow.h"

namespace zaview {
namespace {

constexpr double kRounding = 1.05;  // of a unit of the last place: the unit itself is no exact number
constexpr double kMostOpen = 0.3;   // of a step: else a row that is left out would pass
constexpr double kReal4 = 1.2E-7;   // relative accuracy of times that went through 4-byte reals

struct Printed {  // how times are printed
  int decimals, digits;

  // What the digits of a time leave open.
  [[nodiscard]] double Open(double time) const {
    const double size = std::fabs(time);
    const double fixed = decimals < 0 ? 0 : std::pow(10.0, -decimals);
    const double floating = size > 0 && digits > 0 ? std::pow(10.0, std::floor(std::log10(size)) + 1 - digits) : 0;
    return kRounding * std::max(fixed, floating) + kReal4 * size;
  }
};

// Whole steps between two neighbouring rows.
std::size_t StepsBetween(double from, double to, double step) {
  return std::max<std::size_t>(1, static_cast<std::size_t>(std::llround(std::min((to - from) / step, 1E9))));
}

bool IsEven(const std::vector<double>& time, double step, bool rows_missing, const Printed& printed) {
  double place = 0;
  for (std::size_t i = 1; i < time.size(); ++i) {
    place += rows_missing ? static_cast<double>(StepsBetween(time[i - 1], time[i], step)) : 1;
    if (std::fabs(time[i] - (time[0] + place * step)) > std::min(printed.Open(time[i]), kMostOpen * step)) return false;
  }
  return true;
}

double MostUsualStep(const std::vector<double>& time) {
  constexpr std::size_t kLooked = 10'001;  // steps, enough to know the one in the middle
  const std::size_t every = time.size() / kLooked + 1;
  std::vector<double> steps;
  if (!Reserve(steps, time.size() / every + 1)) return 0;
  for (std::size_t i = 1; i < time.size(); i += every) steps.push_back(time[i] - time[i - 1]);
  const auto middle = steps.begin() + static_cast<std::ptrdiff_t>(steps.size() / 2);
  std::nth_element(steps.begin(), middle, steps.end());
  return *middle;
}

// The step that fits all rows if some are left out; 0: none does.
double StepWithHoles(const std::vector<double>& time, const Printed& printed, std::size_t& steps) {
  const double usual = MostUsualStep(time);
  if (!(usual > 0)) return 0;
  double places = 0;
  for (std::size_t i = 1; i < time.size(); ++i)
    places += static_cast<double>(StepsBetween(time[i - 1], time[i], usual));
  const double step = (time.back() - time.front()) / places;
  if (!IsEven(time, step, true, printed)) return 0;
  steps = static_cast<std::size_t>(places) + 1;
  return step;
}

void FindHoles(const TableRows& rows, TableSampling& sampling) {
  sampling.shortest = sampling.longest = rows.time[1] - rows.time[0];
  for (std::size_t i = 1; i < rows.time.size(); ++i) {
    const double step = rows.time[i] - rows.time[i - 1];
    sampling.shortest = std::min(sampling.shortest, step);
    sampling.longest = std::max(sampling.longest, step);
    const std::size_t hole = StepsBetween(rows.time[i - 1], rows.time[i], sampling.step) - 1;
    if (hole > sampling.hole) sampling.hole_line = rows.line[i];
    sampling.hole = std::max(sampling.hole, hole);
  }
}

// Where a row stands among the steps, from 0.
double PlaceOf(const TableRows& rows, const TableSampling& sampling, std::size_t row) {
  if (sampling.spacing == Spacing::even) return static_cast<double>(row);
  const double place = (rows.time[row] - sampling.first) / sampling.step;
  return sampling.spacing == Spacing::rows_missing ? std::round(place) : place;
}

void NoteGap(std::size_t length, std::int64_t line, ColumnGaps& gaps) {
  if (length > gaps.longest) gaps.line = line;
  gaps.longest = std::max(gaps.longest, length);
}

// Steps up to the place of value `b`, on a straight line from `a`.
struct Sample {
  double place;
  float value;
};
void FillTo(const Sample& a, const Sample& b, std::size_t steps, std::vector<float>& samples) {
  while (samples.size() < steps && static_cast<double>(samples.size()) <= b.place + 1E-6) {
    const double part = (static_cast<double>(samples.size()) - a.place) / (b.place - a.place);
    const double value = part >= 1 - 1E-6 ? b.value : (1 - part) * double{a.value} + part * double{b.value};
    samples.push_back(static_cast<float>(value));
  }
}

}  // namespace

TableSampling FindSampling(const TableRows& rows) {
  TableSampling sampling;
  const std::vector<double>& time = rows.time;
  sampling.first = time.front();
  sampling.steps = time.size();
  sampling.step = 1;  // of a single row: any length will do
  if (time.size() < 2) return sampling;
  const Printed printed{rows.decimals, rows.digits};
  const double mean = (time.back() - time.front()) / static_cast<double>(time.size() - 1);
  sampling.step = mean;
  if (!IsEven(time, mean, false, printed)) {
    const double step = StepWithHoles(time, printed, sampling.steps);
    sampling.spacing = step > 0 ? Spacing::rows_missing : Spacing::uneven;
    if (step > 0) sampling.step = step;
    sampling.missing = sampling.steps - time.size();
  }
  FindHoles(rows, sampling);
  return sampling;
}

bool SampleColumn(const TableRows& rows, const TableSampling& sampling, std::size_t column, std::vector<float>& samples,
                  ColumnGaps& gaps) {
  const std::vector<float>& cell = rows.cell[column];
  samples.clear();
  if (!Grow(samples, sampling.steps)) return false;
  samples.clear();
  gaps = {};
  Sample before{-1, 0};
  std::size_t known = 0, row_before = 0;
  for (std::size_t row = 0; row < cell.size(); ++row) {
    if (std::isnan(cell[row])) {
      ++gaps.cells;
      continue;
    }
    const Sample here{PlaceOf(rows, sampling, row), cell[row]};
    const std::size_t first_gap = known == 0 ? 0 : row_before + 1;
    if (row > first_gap)
      NoteGap(static_cast<std::size_t>(std::lround(here.place - before.place)) - 1, rows.line[first_gap], gaps);
    if (known++ == 0) before.value = here.value;  // held ahead of the first
    FillTo(before, here, sampling.steps, samples);
    before = here;
    row_before = row;
  }
  if (known == 0) {
    gaps.longest = sampling.steps;
    gaps.line = rows.line.front();
    return true;
  }
  if (row_before + 1 < cell.size()) NoteGap(sampling.steps - samples.size(), rows.line[row_before + 1], gaps);
  samples.resize(sampling.steps, before.value);
  return true;
}

}  // namespace zaview
