#include "case/read/time_steps.h"

#include <algorithm>
#include <utility>

#include "base/grow.h"
#include "case/read/step_columns.h"
#include "case/read/step_rows.h"

namespace zaview {
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

void BeginSteps(StepReader& r, float t1) {
  r.result.first = FirstStepIndex(r.fresh.control, static_cast<double>(t1) * StepTimeFactor(r.fresh));
  r.most = std::max<std::int64_t>(0, MostSteps(r.fresh) - r.result.first + 1);
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

void AcceptEnd(const CaseStore& fresh, StepsRead& read) {
  const bool enough = read.first + read.kept > fresh.control.NSTEP;
  if (fresh.control.MOTYPE == 1 && enough && read.end == StepsEnd::file_end) read.end = StepsEnd::complete;
}

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
  AcceptEnd(fresh, r.result);
  if (!FinishColumns(r.result.first, r.result.kept, static_cast<int>(threads), fresh))
    r.result.end = StepsEnd::out_of_memory;
  for (float* const time : {&r.result.previous_time, &r.result.new_time})
    *time = static_cast<float>(static_cast<double>(*time) * StepTimeFactor(fresh));
  return r.result;
}

}  // namespace zaview
