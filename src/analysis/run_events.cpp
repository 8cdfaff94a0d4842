#include "analysis/run_events.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <limits>

#include "base/grow.h"
#include "case/ship_pose.h"
#include "case/size_history.h"

namespace zaview {

namespace {

// In the order of RunEventKind.
constexpr RunEventRow kRows[] = {
    {RunEventKind::slam, "SLAM", "Slam", 'S'},
    {RunEventKind::deck_wet, "DECK_WET", "Water on deck", 'W'},
    {RunEventKind::roll_max, "ROLL_MAX", "Largest roll", 'R'},
    {RunEventKind::roll_min, "ROLL_MIN", "Smallest roll", 'r'},
    {RunEventKind::pitch_max, "PITCH_MAX", "Largest pitch", 'P'},
    {RunEventKind::pitch_min, "PITCH_MIN", "Smallest pitch", 'p'},
};
static_assert(std::all_of(std::begin(kRows), std::end(kRows), [](const RunEventRow& row) {
  return &row - kRows == static_cast<std::ptrdiff_t>(row.kind);
}));

class Finder {
 public:
  Finder(const RunHistories& run, std::vector<RunEvent>& events) : run_(run), events_(events) {}

  void Extremes(std::span<const float> x, RunEventKind largest, RunEventKind smallest) {
    std::size_t high = x.size(), low = x.size();
    for (std::size_t i = 0; i < x.size(); ++i) {
      if (!Known(i) || !std::isfinite(x[i])) continue;
      if (high == x.size() || x[i] > x[high]) high = i;
      if (low == x.size() || x[i] < x[low]) low = i;
    }
    if (high == low) return;
    Add(largest, high);
    Add(smallest, low);
  }

  void Slams() {
    const std::span<const float> d = run_.point_immersion, t = run_.time;
    for (std::size_t i = 1; i < std::min(d.size(), t.size()); ++i) {
      if (!(d[i - 1] <= 0.0F && d[i] > 0.0F && Known(i - 1) && Known(i))) continue;
      const double deeper = static_cast<double>(d[i]) - static_cast<double>(d[i - 1]);
      const double passed = static_cast<double>(t[i]) - static_cast<double>(t[i - 1]);
      if (deeper >= run_.slam_velocity * passed) Add(RunEventKind::slam, i);
    }
  }

  void WetSpells() {
    bool wet = false;
    for (std::size_t i = 0; i < run_.deck_immersion.size(); ++i) {
      const bool now = Known(i) && run_.deck_immersion[i] > 0.0F;
      if (now && !wet) Add(RunEventKind::deck_wet, i);
      wet = now;
    }
  }

 private:
  [[nodiscard]] int StepOf(std::size_t i) const { return run_.first_step + static_cast<int>(i); }
  [[nodiscard]] bool Known(std::size_t i) const {
    const int step = StepOf(i);
    return std::none_of(run_.gaps.begin(), run_.gaps.end(),
                        [step](const StepGap& gap) { return step >= gap.from && step <= gap.to; });
  }
  void Add(RunEventKind kind, std::size_t i) { events_.push_back({kind, StepOf(i)}); }

  const RunHistories& run_;
  std::vector<RunEvent>& events_;
};

}  // namespace

const RunEventRow& RowOf(RunEventKind kind) {
  return kRows[static_cast<std::size_t>(kind)];
}

const RunEventRow* FindRunEvent(std::string_view word) {
  const auto row =
      std::find_if(std::begin(kRows), std::end(kRows), [&](const RunEventRow& r) { return r.word == word; });
  return row == std::end(kRows) ? nullptr : row;
}

bool FindEvents(const RunHistories& run, std::vector<RunEvent>& events) {
  events.clear();
  return Guarded(
      [&] {
        Finder finder(run, events);
        finder.Extremes(run.roll, RunEventKind::roll_max, RunEventKind::roll_min);
        finder.Extremes(run.pitch, RunEventKind::pitch_max, RunEventKind::pitch_min);
        finder.Slams();
        finder.WetSpells();
        std::sort(events.begin(), events.end(), [](const RunEvent& a, const RunEvent& b) {
          return a.step != b.step ? a.step < b.step : a.kind < b.kind;
        });
        return true;
      },
      false);
}

const RunEvent* NextEvent(std::span<const RunEvent> events, int step, int direction) {
  const RunEvent* before = nullptr;
  for (const RunEvent& event : events) {
    if (direction > 0 && event.step > step) return &event;
    if (event.step < step) before = &event;
  }
  return direction > 0 ? nullptr : before;
}

const RunEvent* FirstOf(std::span<const RunEvent> events, RunEventKind kind) {
  const auto event = std::find_if(events.begin(), events.end(), [kind](const RunEvent& e) { return e.kind == kind; });
  return event == events.end() ? nullptr : &*event;
}

EventSteps StepsAbout(std::span<const float> time, int first_step, int step, double length) {
  const int last = first_step + static_cast<int>(time.size()) - 1;
  EventSteps range{step, step};
  const auto near = [&](int other) {
    const double apart = static_cast<double>(time[static_cast<std::size_t>(other - first_step)]) -
                         static_cast<double>(time[static_cast<std::size_t>(step - first_step)]);
    return std::abs(apart) <= length / 2;
  };
  while (range.first > first_step && near(range.first - 1)) --range.first;
  while (range.last < last && near(range.last + 1)) ++range.last;
  return range;
}

WaveAnswer DeckImmersion(const Console& console, const CaseStore& store, std::span<const Vector3> points,
                         std::vector<float>& deepest) {
  const std::size_t n = StepsInStore(store);
  const auto from = static_cast<std::size_t>(store.first_step - store.first_read);
  const auto used = static_cast<std::size_t>(std::max(store.last_step - store.first_step + 1, 0));
  std::vector<ShipPose> poses;
  std::vector<float> x, y, eta;
  deepest.clear();
  if (!Reserve(poses, n) || !Grow(x, n) || !Grow(y, n) || !Grow(eta, n) || !Grow(deepest, used))
    return WaveAnswer::no_memory;
  for (std::size_t s = 0; s < n; ++s) poses.push_back(PoseAtStep(store, store.first_read + static_cast<int>(s)));
  std::fill(deepest.begin(), deepest.end(), -std::numeric_limits<float>::infinity());
  for (const Vector3& point : points) {
    const Vector3 from_centre = FromCentre(store, point);
    for (std::size_t s = 0; s < n; ++s) {
      const Vector3 p = ShipToEarth(poses[s], from_centre);
      x[s] = static_cast<float>(p[0]);
      y[s] = static_cast<float>(p[1]);
    }
    if (const WaveAnswer answer = WaveAlong(console, store, x, y, eta); answer != WaveAnswer::ok) return answer;
    for (std::size_t s = 0; s < used; ++s) {
      const double z = ShipToEarth(poses[from + s], from_centre)[2];
      deepest[s] = std::max(deepest[s], static_cast<float>(static_cast<double>(eta[from + s]) - z));
    }
  }
  return WaveAnswer::ok;
}

}  // namespace zaview
