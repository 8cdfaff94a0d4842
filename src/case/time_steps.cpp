#include "case/time_steps.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "base/grow.h"
#include "base/number_parse.h"
#include "case/step_rows.h"
#include "control/input_scales.h"

namespace zaview {
namespace {

// ---- Layouts

enum class Field : std::uint8_t {
  end,
  list_end,
  time,
  pmgg,
  vmg,
  acc,
  force,
  x_loads,
  y_loads,
  rudder_cmd,
  rudder_ang,
  prop_rps
};

struct StepLayout {
  int from, to;  // VERSION; 0 and below count as the newest
  bool gyre;
  std::array<Field, 16> fields;
};

constexpr int kNewest = std::numeric_limits<int>::max();

constexpr StepLayout kLayouts[] = {
    {362,
     kNewest, false,
     {Field::time, Field::pmgg, Field::vmg, Field::acc, Field::force, Field::x_loads, Field::y_loads, Field::rudder_cmd,
      Field::rudder_ang, Field::prop_rps, Field::list_end}},
};

const StepLayout* FindLayout(const CaseStore& fresh) {
  const int mode = std::abs(std::clamp(fresh.control.AUXOUT[0], -9, 9));
  const bool unformatted = mode == 1 || mode == 2;
  constexpr int kImpulsive = 1;
  if (fresh.NSHIP > 1 || unformatted || fresh.control.MOTYPE == kImpulsive) return nullptr;
  const int version = fresh.labels.VERSION <= 0 ? kNewest : fresh.labels.VERSION;
  for (const StepLayout& layout : kLayouts)
    if (layout.gyre == fresh.labels.gyre && version >= layout.from && version <= layout.to) return &layout;
  return nullptr;
}

constexpr std::size_t kMotions = 6;
constexpr std::size_t kForces = 30;  // five slots of six

[[nodiscard]] bool AddHistory(StepHistory& history, std::size_t components, StepColumns& columns) {
  history = {};
  if (!Grow(history.component, components)) return false;
  const std::size_t before = columns.column.size();
  if (!Grow(columns.column, before + components)) return false;
  for (std::size_t i = 0; i < components; ++i) columns.column[before + i] = &history.component[i];
  return true;
}

[[nodiscard]] bool AddLoads(CaseStore& fresh, const std::vector<int>& kinds, int cuts, StepColumns& columns) {
  const auto n = static_cast<std::size_t>(std::max(0, cuts));
  for (const int kind : kinds) {
    const auto k = static_cast<std::size_t>(std::clamp(kind, 1, 6) - 1);
    if (!AddHistory(fresh.load_force[k], n, columns) || !AddHistory(fresh.load_moment[k], n, columns)) return false;
  }
  return true;
}

[[nodiscard]] bool AddField(CaseStore& fresh, Field field, StepColumns& columns) {
  switch (field) {
    case Field::end:
    case Field::list_end:
      return true;
    case Field::time:
      return AddHistory(fresh.time, 1, columns);
    case Field::pmgg:
      return AddHistory(fresh.pmgg, kMotions, columns);
    case Field::vmg:
      return AddHistory(fresh.vmg, kMotions, columns);
    case Field::acc:
      return AddHistory(fresh.acc, kMotions, columns);
    case Field::force:
      return AddHistory(fresh.force, kForces, columns);
    case Field::x_loads:
      return AddLoads(fresh, fresh.loads.x_kinds, fresh.loads.NBCA, columns);
    case Field::y_loads:
      return AddLoads(fresh, fresh.loads.y_kinds, fresh.loads.nycut, columns);
    case Field::rudder_cmd:
      return AddHistory(fresh.rudder_cmd, 1, columns);
    case Field::rudder_ang:
      return AddHistory(fresh.rudder_ang, 1, columns);
    case Field::prop_rps:
      return AddHistory(fresh.prop_rps, 1, columns);
  }
  return true;
}

void SetFirst(CaseStore& fresh, int first) {
  for (StepHistory* history : {&fresh.time, &fresh.pmgg, &fresh.vmg, &fresh.acc, &fresh.force, &fresh.rudder_cmd,
                               &fresh.rudder_ang, &fresh.prop_rps})
    history->first = first;
  for (StepHistory& history : fresh.load_force) history.first = first;
  for (StepHistory& history : fresh.load_moment) history.first = first;
}

}  // namespace

bool PrepareColumns(CaseStore& fresh, StepColumns& columns) {
  columns = {};
  const StepLayout* const layout = FindLayout(fresh);
  if (layout == nullptr) return false;
  std::size_t listed = 0;
  for (const Field field : layout->fields) {
    if (!AddField(fresh, field, columns)) {
      columns = {};
      return true;
    }
    if (field != Field::list_end) continue;
    columns.lists.push_back(columns.column.size() - listed);
    listed = columns.column.size();
  }
  return true;
}

namespace {

// ---- Steps

struct StepReader {
  BlockStream& stream;
  const std::int64_t file_size;
  CaseStore& fresh;
  StepColumns columns{};
  StepShape shape{};
  StepsRead result{};
  std::int64_t most = 0;     // steps that may be kept
  StepRows rows{}, ahead{};  // in turn; ahead: by the second thread
  RowThread* second = nullptr;
  std::size_t lines = 0;  // of a step, as the last one had; 0: not known
  std::size_t worth = 0;  // bytes from which on two threads are worth it
};

// Step i has time TINIT + (i - 1) DTH; only a restarted part begins behind step 1.
int FirstStep(const ControlRecords& control, float t1) {
  if (control.IRST <= 0) return 1;
  const double time_scale = InputScalesOf(control).time;
  const double steps = (static_cast<double>(t1) - control.TINIT * time_scale) / (control.DTH * time_scale);
  if (!std::isfinite(steps)) return 1;
  return std::max(1, RoundToInt(1.0 + std::round(steps)));
}

void BeginSteps(StepReader& r, float t1) {
  r.result.first = FirstStep(r.fresh.control, t1);
  r.most = std::max<std::int64_t>(0, std::int64_t{r.fresh.control.NSTEP} - r.result.first + 1);
}

// How many steps to make room for, told by the bytes that the first ones took. The margin is never touched.
std::size_t ExpectedSteps(const StepReader& r, std::size_t count, std::int64_t bytes) {
  constexpr double kMargin = 1.02;
  constexpr double kFew = 16;
  double steps = static_cast<double>(count);
  const std::int64_t left = r.file_size - r.stream.offset;
  if (left > 0 && bytes > 0) steps *= std::max(1.0, kMargin * static_cast<double>(left) / static_cast<double>(bytes));
  return static_cast<std::size_t>(std::min(steps + kFew, static_cast<double>(r.most)));
}

// Room for n steps in each column, an eighth more where they have to move: one after the other, so that never more
// than one is held twice.
[[nodiscard]] bool MakeRoom(StepReader& r, std::size_t n) {
  for (std::vector<float>* column : r.columns.column) {
    if (column == nullptr || column->capacity() >= n) continue;
    const std::size_t eighth = column->capacity() / 8;
    if (!Reserve(*column, std::max(n, column->capacity() + eighth)) && !Reserve(*column, n)) return false;
  }
  return true;
}

// Rows from..from + n - 1 behind the steps kept: few enough that they stay in the first cache while column after column
// is picked out of them.
[[nodiscard]] bool AppendTile(StepReader& r, const StepRows& rows, std::size_t from, std::size_t n) {
  const auto kept = static_cast<std::size_t>(r.result.kept);
  const std::size_t stride = r.shape.reals;
  for (std::size_t c = 0; c < r.columns.column.size(); ++c) {
    std::vector<float>* const column = r.columns.column[c];
    if (column == nullptr) continue;
    if (!Grow(*column, kept + n)) return false;
    const float* const value = rows.values.get() + from * stride + c;
    float* const to = column->data() + kept;
    for (std::size_t i = 0; i < n; ++i) to[i] = value[i * stride];
  }
  r.result.kept += static_cast<int>(n);
  return true;
}

[[nodiscard]] bool AppendRows(StepReader& r, const StepRows& rows, std::size_t n) {
  if (!MakeRoom(r, static_cast<std::size_t>(r.result.kept) + n)) return false;
  constexpr std::size_t kTileReals = 4096;  // 16 kB
  const std::size_t tile = std::max<std::size_t>(1, kTileReals / r.shape.reals);
  for (std::size_t from = 0; from < n; from += tile)
    if (!AppendTile(r, rows, from, std::min(tile, n - from))) return false;
  return true;
}

// How many of the rows come one after the other in time; the end is told if it isn't all.
std::size_t CountAscending(StepReader& r, const StepRows& rows, std::size_t n) {
  float previous = r.result.previous_time;
  for (std::size_t i = 0; i < n; ++i) {
    const float time = rows.values[i * r.shape.reals];
    const bool first = r.result.kept == 0 && i == 0;
    if (!first && !(time > previous)) {
      r.result.end = StepsEnd::not_ascending;
      r.result.previous_time = previous;
      r.result.new_time = time;
      return i;
    }
    previous = time;
  }
  r.result.previous_time = previous;
  return n;
}

// Keeps the whole rows, which took `bytes` bytes. False: the read is over.
[[nodiscard]] bool KeepRows(StepReader& r, const StepRows& rows, std::int64_t bytes) {
  if (rows.count == 0) return true;
  const bool first = r.result.kept == 0;
  if (first) BeginSteps(r, rows.values[0]);
  const auto left = static_cast<std::uint64_t>(r.most - r.result.kept);
  const auto n = static_cast<std::size_t>(std::min<std::uint64_t>(rows.count, left));
  const std::size_t ascending = CountAscending(r, rows, n);
  // Where there is not as much memory as expected, the columns grow as long as there is some.
  if (first) static_cast<void>(MakeRoom(r, ExpectedSteps(r, rows.count, bytes)));
  if (!AppendRows(r, rows, ascending)) {
    r.result.end = StepsEnd::out_of_memory;
    return false;
  }
  if (ascending < n) return false;
  if (r.result.kept < r.most) return true;
  r.result.end = StepsEnd::complete;
  return false;
}

void NoteLines(StepReader& r, const StepRows& rows) {
  if (r.second == nullptr || rows.last_begin == nullptr) return;
  r.lines = CountLineEnds(rows.last_begin, rows.last_end);
}

// Where a read failed the text is cut, not ended: a number that was being read there is not whole.
[[nodiscard]] bool AtTextEnd(const BlockStream& stream) {
  return stream.at_end && !stream.fault;
}

// Steps from [begin, finish), by both threads if the start of a step in the middle can be guessed. What the second
// one made is taken only if the first one, going through the text in order, ends a step at just that place.
// False: the read is over.
[[nodiscard]] bool TakeStretch(StepReader& r, const char* begin, const char* finish) {
  TextStretch text{begin, finish, finish, AtTextEnd(r.stream)};
  const char* guess = nullptr;
  if (r.second != nullptr && r.rows.under_way()) {
    text.stop = begin;
  } else if (r.second != nullptr && static_cast<std::size_t>(finish - begin) >= r.worth) {
    guess = GuessStepStart(begin, finish, r.lines);
  }
  if (guess != nullptr) {
    text.stop = guess;
    r.ahead.count = r.ahead.lists_taken = 0;
    r.ahead.scan = {};
    r.second->Start({guess, finish, finish, text.last}, r.shape, r.ahead);
  }
  ScanRows(text, r.shape, r.rows);
  if (guess != nullptr && !r.second->Finish()) guess = nullptr;
  NoteLines(r, r.rows);
  if (!KeepRows(r, r.rows, r.rows.at - begin)) return false;
  DropWholeRows(r.shape, r.rows);
  if (guess == nullptr || r.rows.end != ScanEnd::complete || r.rows.at != guess) return true;
  std::swap(r.rows, r.ahead);
  NoteLines(r, r.rows);
  if (!KeepRows(r, r.rows, r.rows.at - guess)) return false;
  DropWholeRows(r.shape, r.rows);
  return true;
}

void FillBlock(BlockStream& stream, std::size_t block) {
  std::size_t left = stream.end - stream.begin;
  const std::size_t wanted = std::max(block, left + block / 2 + 1);  // a cut item may be longer than a block
  while (left < wanted && FillStream(stream, wanted - left)) left = stream.end - stream.begin;
}

void SetEnd(StepReader& r) {
  r.result.begun = true;
  if (r.rows.end == ScanEnd::error || r.stream.fault) {
    r.result.end = StepsEnd::bad_value;
    r.result.fault_offset = r.stream.offset;
    return;
  }
  r.result.begun = r.rows.end == ScanEnd::file_end;
  r.result.end = r.result.begun || r.result.kept > 0 ? StepsEnd::file_end : StepsEnd::no_record;
}

void ReadSteps(StepReader& r, const StepProgress& progress, std::size_t block) {
  for (;;) {
    FillBlock(r.stream, block);
    do {
      const char* const begin = r.stream.buffer.data() + r.stream.begin;
      const char* const finish = r.stream.buffer.data() + r.stream.end;
      const bool goes_on = TakeStretch(r, begin, finish);
      r.stream.begin += static_cast<std::size_t>(r.rows.at - begin);
      r.stream.offset += r.rows.at - begin;
      if (!goes_on) return;
    } while (r.rows.end == ScanEnd::complete);
    if (progress.taken != nullptr) progress.taken(progress.self, r.stream.offset);
    if (r.rows.end == ScanEnd::more && !r.stream.fault) continue;
    SetEnd(r);
    return;
  }
}

}  // namespace

StepsRead ReadTimeSteps(BlockStream& stream, std::int64_t file_size, CaseStore& fresh, const StepProgress& progress,
                        unsigned threads, std::size_t block) {
  StepReader r{stream, file_size, fresh};
  if (!PrepareColumns(fresh, r.columns)) {
    r.result.end = StepsEnd::no_record;
    return r.result;
  }
  if (fresh.control.NSTEP <= 0) return r.result;
  r.shape = {r.columns.lists, r.columns.column.size()};
  r.worth = block / 8;
  RowThread second;
  if (!MakeRows(r.shape, r.rows) || (threads > 1 && !MakeRows(r.shape, r.ahead))) {
    r.result.end = StepsEnd::out_of_memory;
    return r.result;
  }
  if (threads > 1 && second.Begin()) r.second = &second;
  ReadSteps(r, progress, std::max<std::size_t>(block, 1));
  for (std::vector<float>* column : r.columns.column)
    if (column != nullptr) column->resize(static_cast<std::size_t>(r.result.kept));
  SetFirst(fresh, r.result.first);
  return r.result;
}

}  // namespace zaview
