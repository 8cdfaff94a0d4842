#include "case/read/step_columns.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <cstdint>
#include <limits>
#include <span>

#include "base/grow.h"
#include "base/number_parse.h"
#include "base/side_by_side.h"
#include "control/input_scales.h"

namespace zaview {
namespace {

// ---- Layouts

enum class Field : std::uint8_t {
  end,
  list_end,
  ships_begin,  // what follows stands once for each ship
  time,
  motions,  // pmgg, vmg, acc
  force,    // five slots of six
  force_3,  // three slots of six
  drop_6,   // six values that nobody needs
  x_loads,  // forces and moments
  x_forces,
  x_moments,
  y_loads,
  rudder,  // command and angle
  prop_rps,
  tadm,  // six for each ship
  fimp
};

enum class Form : std::uint8_t {
  one_ship,
  gyre,
  ships,
  impulsive,
  body,
  body_2,
  body_ships,
  body_ships_2,
  body_impulsive
};

struct StepLayout {
  Form form;
  int from, to;  // VERSION; 0 and below count as the newest
  std::array<Field, 12> fields;
};

constexpr int kNewest = std::numeric_limits<int>::max();

using enum Field;
constexpr StepLayout kLayouts[] = {
    {Form::one_ship, 1, 290, {time, motions, force_3, x_forces, list_end}},
    {Form::one_ship, 291, 291, {time, list_end, motions, force_3, x_forces, list_end, drop_6, x_moments, list_end}},
    {Form::one_ship, 292, 298, {time, motions, force_3, x_forces, list_end}},
    {Form::one_ship, 299, 361, {time, motions, force, x_forces, list_end}},
    {Form::one_ship, 362, kNewest, {time, motions, force, x_loads, y_loads, rudder, prop_rps, list_end}},
    {Form::gyre, 1, kNewest, {time, motions, force_3, drop_6, x_forces, list_end}},
    {Form::ships, 1, 357, {time, list_end, ships_begin, motions, force, list_end}},
    {Form::ships, 358, 361, {time, list_end, ships_begin, motions, force, rudder, list_end}},
    {Form::ships, 362, kNewest, {time, list_end, ships_begin, motions, force, rudder, prop_rps, list_end}},
    {Form::impulsive, 1, kNewest, {time, tadm, fimp, list_end}},
    {Form::body, 1, kNewest, {time, list_end, motions, force, x_loads, y_loads, rudder, prop_rps, list_end}},
    {Form::body_2, 1, kNewest, {time, list_end, motions, x_loads, y_loads, rudder, prop_rps, list_end}},
    {Form::body_ships, 1, kNewest, {time, list_end, ships_begin, motions, force, rudder, prop_rps, list_end}},
    {Form::body_ships_2, 1, kNewest, {time, list_end, ships_begin, motions, rudder, prop_rps, list_end}},
    {Form::body_impulsive, 1, kNewest, {time, list_end, tadm, fimp, list_end}},
};

bool Impulsive(const CaseStore& fresh) {
  constexpr int kImpulsive = 1;
  return fresh.control.MOTYPE == kImpulsive;
}

Form FormOf(const CaseStore& fresh) {
  const int mode = CompanionMode(fresh);
  if (Impulsive(fresh)) return mode == 0 ? Form::impulsive : Form::body_impulsive;
  if (fresh.NSHIP > 1) return mode == 0 ? Form::ships : mode == 1 ? Form::body_ships : Form::body_ships_2;
  if (mode != 0) return mode == 1 ? Form::body : Form::body_2;
  return fresh.labels.gyre ? Form::gyre : Form::one_ship;
}

const StepLayout* FindLayout(const CaseStore& fresh) {
  const int version = fresh.labels.VERSION <= 0 ? kNewest : fresh.labels.VERSION;
  constexpr int kTimesApart = 291;  // nobody knows what its impulsive steps of several ships look like
  const Form form = FormOf(fresh);
  if (form == Form::impulsive && version == kTimesApart && fresh.NSHIP > 1) return nullptr;
  for (const StepLayout& layout : kLayouts)
    if (layout.form == form && version >= layout.from && version <= layout.to) return &layout;
  return nullptr;
}

bool Has(const StepLayout& layout, std::initializer_list<Field> fields) {
  return std::find_first_of(layout.fields.begin(), layout.fields.end(), fields.begin(), fields.end()) !=
         layout.fields.end();
}

StepContents ContentsOf(const StepLayout& layout) {
  return {.force = Has(layout, {Field::force, Field::force_3}),
          .other_force = Has(layout, {Field::force}),
          .load_moment = Has(layout, {Field::x_loads, Field::x_moments, Field::y_loads}),
          .rudder = Has(layout, {Field::rudder}),
          .prop_rps = Has(layout, {Field::prop_rps})};
}

void DropLoadsNotIn(const StepLayout& layout, SectionLoads& loads) {
  if (!Has(layout, {Field::x_loads, Field::x_forces})) {
    loads.x_kinds.clear();
    loads.NBCA = 0;
  }
  if (!Has(layout, {Field::y_loads})) {
    loads.y_kinds.clear();
    loads.nycut = 0;
  }
}

// ---- Histories

constexpr std::size_t kMotions = 6;
constexpr std::size_t kForces = 30;

std::size_t Count(int n) {
  return static_cast<std::size_t>(std::max(0, n));
}

[[nodiscard]] bool MakeLoads(const std::vector<int>& kinds, int cuts, CaseStore& fresh) {
  for (const int kind : kinds) {
    const auto k = static_cast<std::size_t>(std::clamp(kind, 1, 6) - 1);
    if (!Grow(fresh.load_force[k].component, Count(cuts)) || !Grow(fresh.load_moment[k].component, Count(cuts)))
      return false;
  }
  return true;
}

struct HistoryRow {
  StepHistory CaseStore::*history;
  std::size_t components;
  bool impulsive;  // of an impulsive run, or of any other
};
constexpr HistoryRow kHistories[] = {
    {&CaseStore::pmgg, kMotions, false}, {&CaseStore::vmg, kMotions, false}, {&CaseStore::acc, kMotions, false},
    {&CaseStore::force, kForces, false}, {&CaseStore::rudder_cmd, 1, false}, {&CaseStore::rudder_ang, 1, false},
    {&CaseStore::prop_rps, 1, false},    {&CaseStore::tadm, kMotions, true}, {&CaseStore::fimp, kMotions, true},
};

[[nodiscard]] bool MakeHistories(CaseStore& fresh) {
  fresh.time = {};
  for (StepHistory& history : fresh.load_force) history = {};
  for (StepHistory& history : fresh.load_moment) history = {};
  bool made = Grow(fresh.time.component, 1);
  for (const HistoryRow& row : kHistories) {
    StepHistory& history = fresh.*row.history;
    history = {};
    if (row.impulsive == Impulsive(fresh)) made = made && Grow(history.component, row.components);
  }
  return made && MakeLoads(fresh.loads.x_kinds, fresh.loads.NBCA, fresh) &&
         MakeLoads(fresh.loads.y_kinds, fresh.loads.nycut, fresh);
}

// ---- Columns

[[nodiscard]] bool AddDropped(std::size_t n, StepColumns& columns) {
  return Grow(columns.column, columns.column.size() + n);
}

[[nodiscard]] bool AddFirst(StepHistory& history, std::size_t n, bool kept, StepColumns& columns) {
  const std::size_t before = columns.column.size();
  if (!AddDropped(n, columns)) return false;
  for (std::size_t i = 0; kept && i < n; ++i) columns.column[before + i] = &history.component[i];
  return true;
}

[[nodiscard]] bool AddLoads(CaseStore& fresh, const std::vector<int>& kinds, bool forces, bool moments,
                            StepColumns& columns) {
  for (const int kind : kinds) {
    const auto k = static_cast<std::size_t>(std::clamp(kind, 1, 6) - 1);
    const std::size_t n = fresh.load_force[k].component.size();
    if (forces && !AddFirst(fresh.load_force[k], n, true, columns)) return false;
    if (moments && !AddFirst(fresh.load_moment[k], n, true, columns)) return false;
  }
  return true;
}

// Six values of each ship, ships in order.
[[nodiscard]] bool AddOfShips(CaseStore& fresh, StepHistory& history, StepColumns& columns) {
  for (int ship = 1; ship <= std::max(1, fresh.NSHIP); ++ship)
    if (!AddFirst(history, kMotions, ship == fresh.ship, columns)) return false;
  return true;
}

// kept: the values are those of the selected ship.
[[nodiscard]] bool AddField(CaseStore& fresh, Field field, bool kept, StepColumns& columns) {
  constexpr std::size_t kThreeSlots = 18;
  switch (field) {
    case Field::end:
    case Field::list_end:
    case Field::ships_begin:
      return true;
    case Field::time:
      return AddFirst(fresh.time, 1, kept, columns);
    case Field::motions:
      return AddFirst(fresh.pmgg, kMotions, kept, columns) && AddFirst(fresh.vmg, kMotions, kept, columns) &&
             AddFirst(fresh.acc, kMotions, kept, columns);
    case Field::force:
      return AddFirst(fresh.force, kForces, kept, columns);
    case Field::force_3:
      return AddFirst(fresh.force, kThreeSlots, kept, columns);
    case Field::drop_6:
      return AddDropped(6, columns);
    case Field::x_loads:
      return AddLoads(fresh, fresh.loads.x_kinds, true, true, columns);
    case Field::x_forces:
      return AddLoads(fresh, fresh.loads.x_kinds, true, false, columns);
    case Field::x_moments:
      return AddLoads(fresh, fresh.loads.x_kinds, false, true, columns);
    case Field::y_loads:
      return AddLoads(fresh, fresh.loads.y_kinds, true, true, columns);
    case Field::rudder:
      return AddFirst(fresh.rudder_cmd, 1, kept, columns) && AddFirst(fresh.rudder_ang, 1, kept, columns);
    case Field::prop_rps:
      return AddFirst(fresh.prop_rps, 1, kept, columns);
    case Field::tadm:
      return AddOfShips(fresh, fresh.tadm, columns);
    case Field::fimp:
      return AddOfShips(fresh, fresh.fimp, columns);
  }
  return true;
}

[[nodiscard]] bool AddFields(CaseStore& fresh, std::span<const Field> fields, bool kept, StepColumns& columns) {
  std::size_t listed = columns.column.size();
  for (const Field field : fields) {
    if (!AddField(fresh, field, kept, columns)) return false;
    if (field != Field::list_end) continue;
    columns.lists.push_back(columns.column.size() - listed);
    listed = columns.column.size();
  }
  return true;
}

[[nodiscard]] bool AddLayout(CaseStore& fresh, const StepLayout& layout, StepColumns& columns) {
  const std::span<const Field> fields(layout.fields);
  const auto begin = std::find(fields.begin(), fields.end(), Field::ships_begin);
  const auto of_run = static_cast<std::size_t>(begin - fields.begin());
  if (!AddFields(fresh, fields.first(of_run), true, columns)) return false;
  if (begin == fields.end()) return true;
  for (int ship = 1; ship <= fresh.NSHIP; ++ship)
    if (!AddFields(fresh, fields.subspan(of_run), ship == fresh.ship, columns)) return false;
  return true;
}

// ---- After the last step

// All columns there are, whose first value belongs to step `first` from now on.
[[nodiscard]] bool ListColumns(int first, CaseStore& fresh, std::vector<std::vector<float>*>& all) {
  const auto list = [&](StepHistory& history) {
    history.first = first;
    const std::size_t before = all.size();
    if (!Grow(all, before + history.component.size())) return false;
    for (std::size_t i = 0; i < history.component.size(); ++i) all[before + i] = &history.component[i];
    return true;
  };
  bool listed = list(fresh.time);
  for (const HistoryRow& row : kHistories) listed = list(fresh.*row.history) && listed;
  for (StepHistory& history : fresh.load_force) listed = list(history) && listed;
  for (StepHistory& history : fresh.load_moment) listed = list(history) && listed;
  return listed;
}

// Added masses and impulses over rho g L^3, those of moments over rho g L^4.
void MakeNonDimensional(int threads, CaseStore& fresh) {
  const ControlRecords& r = fresh.control;
  const double factor = StepTimeFactor(fresh);
  for (float& t : fresh.time.component[0]) t = static_cast<float>(static_cast<double>(t) * factor);
  const double L = r.LENOUT;
  const double force = r.RHOOUT * r.GRAVOUT * L * L * L;
  for (StepHistory* history : {&fresh.tadm, &fresh.fimp}) {
    SideBySide(history->component.size(), threads, [&](std::size_t i) {
      const auto unit = static_cast<float>(i < 3 ? force : force * L);
      for (float& value : history->component[i]) value /= unit;
    });
  }
}

}  // namespace

int CompanionMode(const CaseStore& fresh) {
  const int mode = fresh.control.AUXOUT[0];
  if (fresh.NSHIP > 1 && mode > 0) return 0;
  return mode == 1 || mode == -1 ? 1 : mode == 2 || mode == -2 ? 2 : 0;
}

bool PrepareColumns(CaseStore& fresh, StepColumns& columns) {
  columns = {};
  const StepLayout* const layout = FindLayout(fresh);
  if (layout == nullptr) return false;
  fresh.holds = ContentsOf(*layout);
  DropLoadsNotIn(*layout, fresh.loads);
  if (!MakeHistories(fresh) || !AddLayout(fresh, *layout, columns)) columns = {};
  return true;
}

bool FinishColumns(int first, int kept, int threads, CaseStore& fresh) {
  constexpr int kFewSteps = 10'000;  // done sooner than a thread begins
  if (kept < kFewSteps) threads = 1;
  std::vector<std::vector<float>*> all;
  std::atomic<bool> covered = ListColumns(first, fresh, all);
  SideBySide(all.size(), threads, [&](std::size_t i) {
    if (!Grow(*all[i], Count(kept))) covered = false;
  });
  if (covered && Impulsive(fresh)) MakeNonDimensional(threads, fresh);
  return covered;
}

double StepTimeFactor(const CaseStore& fresh) {
  return Impulsive(fresh) ? std::sqrt(fresh.control.GRAVOUT / fresh.control.LENOUT) : 1.0;
}

std::int64_t MostSteps(const CaseStore& fresh) {
  const std::int64_t NSTEP = fresh.control.NSTEP;
  return fresh.control.MOTYPE == 1 ? std::min<std::int64_t>(2 * NSTEP, std::numeric_limits<int>::max()) : NSTEP;
}

int FirstStepIndex(const ControlRecords& control, double t1) {
  if (control.IRST <= 0) return 1;
  const double time_scale = InputScalesOf(control).time;
  const double steps = (t1 - control.TINIT * time_scale) / (control.DTH * time_scale);
  if (!std::isfinite(steps)) return 1;
  return std::max(1, RoundToInt(1.0 + std::round(steps)));
}

float PlannedTime(const ControlRecords& control, int i) {
  return static_cast<float>((control.TINIT + (i - 1.0) * control.DTH) * InputScalesOf(control).time);
}

}  // namespace zaview
