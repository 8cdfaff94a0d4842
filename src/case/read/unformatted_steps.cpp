#include "case/read/unformatted_steps.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <limits>
#include <vector>

#include "base/grow.h"
#include "base/large_pages.h"
#include "case/read/step_columns.h"

namespace zaview {
namespace {

static_assert(std::endian::native == std::endian::little, "companions are read as they stand");

constexpr std::size_t kMark = 4;     // bytes of a length
constexpr std::size_t kHeader = 12;  // bytes of a step header

std::int32_t WordAt(const char* p) {
  std::int32_t word = 0;
  std::memcpy(&word, p, sizeof word);
  return word;
}

float RealAt(const char* p) {
  float value = 0;
  std::memcpy(&value, p, sizeof value);
  return value;
}

std::size_t Framed(std::size_t bytes) {
  return bytes + 2 * kMark;
}

// Bytes [begin, end) of the stream at least `wanted`, if the file has them.
void FillTo(BlockStream& stream, std::size_t wanted) {
  std::size_t left = stream.end - stream.begin;
  while (left < wanted && FillStream(stream, wanted - left)) left = stream.end - stream.begin;
}

void Take(BlockStream& stream, std::size_t bytes) {
  stream.begin += bytes;
  stream.offset += static_cast<std::int64_t>(bytes);
}

enum class Frame : std::uint8_t { whole, cut, bad };  // cut: the bytes end inside

// The record of `bytes` bytes at p, of which `available` are there.
Frame CheckRecord(const char* p, std::size_t available, std::size_t bytes) {
  const auto mark = static_cast<std::int32_t>(bytes);
  if (available < kMark) return Frame::cut;
  if (WordAt(p) != mark) return Frame::bad;
  if (available < Framed(bytes)) return Frame::cut;
  return WordAt(p + kMark + bytes) == mark ? Frame::whole : Frame::bad;
}

struct Source {  // one column and where its value stands in a step
  std::vector<float>* column;
  std::size_t offset;
};

struct BodyReader {
  BlockStream& stream;
  const std::int64_t file_size;
  CaseStore& fresh;
  CompanionRead result{};
  std::vector<std::size_t> bodies{};  // bytes of each
  std::vector<Source> sources{};      // but for the time
  std::vector<float> times{};         // of a tile
  std::size_t step_bytes = 0;
  std::size_t tile = 1;  // steps
  double time_factor = 1;
  bool begun = false;     // the first step has been seen
  std::int64_t most = 0;  // steps that may be kept
};

// False: no step of that shape can be in a file, or memory is out.
[[nodiscard]] bool PlanSteps(const StepColumns& columns, BodyReader& r) {
  constexpr std::size_t kMostReals = std::numeric_limits<std::int32_t>::max() / sizeof(float);
  constexpr std::size_t kTileBytes = 16'384;  // stays in the first cache while column after column is picked out of it
  constexpr std::size_t kFewestSteps = 64;    // some lines of the cache in each column
  std::size_t at = Framed(kHeader), c = 1;    // the first list is the time
  for (std::size_t i = 1; i < columns.lists.size(); ++i) {
    const std::size_t n = columns.lists[i];
    if (n > kMostReals || !Grow(r.bodies, i) || !Grow(r.sources, c + n - 1)) return false;
    for (std::size_t k = 0; k < n; ++k, ++c) r.sources[c - 1] = {columns.column[c], at + kMark + k * sizeof(float)};
    r.bodies[i - 1] = n * sizeof(float);
    at += Framed(r.bodies[i - 1]);
  }
  std::erase_if(r.sources, [](const Source& source) { return source.column == nullptr; });
  r.step_bytes = at;
  r.tile = std::max(kFewestSteps, kTileBytes / at);
  r.time_factor = StepTimeFactor(r.fresh);
  return !r.bodies.empty() && Grow(r.times, r.tile);
}

// The step at p. One is `whole` only if all its records are.
Frame CheckStep(const BodyReader& r, const char* p, std::size_t available) {
  Frame frame = CheckRecord(p, available, kHeader);
  std::size_t at = Framed(kHeader);
  for (std::size_t i = 0; frame == Frame::whole && i < r.bodies.size(); ++i) {
    frame = CheckRecord(p + at, available - at, r.bodies[i]);
    at += Framed(r.bodies[i]);
  }
  return frame;
}

bool ValidIndex(const BodyReader& r, int index) {
  return index >= 1 && index <= MostSteps(r.fresh);
}

// Room for the steps that the file still holds. Where there is not as much memory, columns grow as long as there is
// some.
void MakeRoom(BodyReader& r) {
  const std::int64_t left = std::max<std::int64_t>(0, r.file_size - r.stream.offset);
  const std::int64_t steps = std::min(r.most, r.result.steps.kept + left / static_cast<std::int64_t>(r.step_bytes));
  const auto n = static_cast<std::size_t>(steps);
  std::vector<Room> rooms;
  if (!Grow(rooms, r.sources.size() + 1)) return;
  for (std::size_t s = 0; s < rooms.size(); ++s) {
    std::vector<float>& column = s == 0 ? r.fresh.time.component[0] : *r.sources[s - 1].column;
    if (!Reserve(column, n)) return;
    rooms[s] = {column.data(), n * sizeof(float)};
  }
  UseLargePages(rooms);
}

// The header record of the first step is whole.
void BeginSteps(BodyReader& r, const char* header) {
  const ControlRecords& control = r.fresh.control;
  const int index = WordAt(header + kMark);
  const double t1 = static_cast<double>(RealAt(header + 2 * kMark)) * r.time_factor;
  r.begun = true;
  r.result.steps.first = control.IRST > 0 && ValidIndex(r, index) ? index : FirstStepIndex(control, t1);
  r.most = std::max<std::int64_t>(0, MostSteps(r.fresh) - r.result.steps.first + 1);
}

// A writer may repeat the header of the first step: no body is as short.
void DropRepeatedHeader(BodyReader& r) {
  const char* const p = r.stream.buffer.data() + r.stream.begin;
  const std::size_t available = r.stream.end - r.stream.begin;
  if (CheckRecord(p, available, kHeader) != Frame::whole) return;
  BeginSteps(r, p);
  const std::size_t second = Framed(kHeader);
  if (CheckRecord(p + second, available - second, kHeader) == Frame::whole) Take(r.stream, second);
}

// The time of the step at p, which would be the i-th kept.
float StepTime(BodyReader& r, const char* p, std::int64_t i) {
  const float time = RealAt(p + 2 * kMark);
  const ControlRecords& control = r.fresh.control;
  if (ValidIndex(r, WordAt(p + kMark))) return time;
  ++r.result.bad_indices;
  if (!(control.DTH > 0)) return time;
  const auto step = static_cast<int>(r.result.steps.first + i - 1);
  return static_cast<float>(static_cast<double>(PlannedTime(control, step)) / r.time_factor);
}

// What ended the read, if it has ended.
enum class TileEnd : std::uint8_t { none, need_bytes, over };

TileEnd EndAtFrame(BodyReader& r, Frame frame, std::size_t available) {
  StepsRead& steps = r.result.steps;
  if (frame == Frame::cut && !r.stream.at_end) return TileEnd::need_bytes;
  if (r.stream.fault) frame = Frame::bad;  // the end isn't the file's
  steps.begun = available > 0;
  steps.end = frame == Frame::bad             ? StepsEnd::bad_value
              : steps.begun || steps.kept > 0 ? StepsEnd::file_end
                                              : StepsEnd::no_record;
  if (frame == Frame::bad) steps.fault_offset = r.stream.offset;
  return TileEnd::over;
}

using Four __attribute__((vector_size(4 * sizeof(float)))) = float;

Four FourAt(const char* p) {
  Four values{};
  std::memcpy(&values, p, sizeof values);
  return values;
}

// n values of a column from every `stride` bytes.
void Pick(const char* from, std::size_t stride, std::size_t n, float* to) {
  for (std::size_t i = 0; i < n; ++i, from += stride) to[i] = RealAt(from);
}

// The same for four columns that stand side by side: four steps at a time are turned in registers.
void PickFour(const char* from, std::size_t stride, std::size_t n, const std::array<float*, 4>& to) {
  std::size_t i = 0;
  for (; i + 4 <= n; i += 4, from += 4 * stride) {
    const Four a = FourAt(from), b = FourAt(from + stride), c = FourAt(from + 2 * stride),
               d = FourAt(from + 3 * stride);
    const Four ab12 = __builtin_shufflevector(a, b, 0, 4, 1, 5), cd12 = __builtin_shufflevector(c, d, 0, 4, 1, 5);
    const Four ab34 = __builtin_shufflevector(a, b, 2, 6, 3, 7), cd34 = __builtin_shufflevector(c, d, 2, 6, 3, 7);
    const Four turned[] = {
        __builtin_shufflevector(ab12, cd12, 0, 1, 4, 5), __builtin_shufflevector(ab12, cd12, 2, 3, 6, 7),
        __builtin_shufflevector(ab34, cd34, 0, 1, 4, 5), __builtin_shufflevector(ab34, cd34, 2, 3, 6, 7)};
    for (std::size_t k = 0; k < 4; ++k) std::memcpy(to[k] + i, &turned[k], sizeof turned[k]);
  }
  for (std::size_t k = 0; k < 4; ++k) Pick(from + k * sizeof(float), stride, n - i, to[k] + i);
}

// n steps at p behind those kept.
[[nodiscard]] bool AppendTile(BodyReader& r, const char* p, std::size_t n) {
  const auto kept = static_cast<std::size_t>(r.result.steps.kept);
  std::vector<float>& time = r.fresh.time.component[0];
  if (!Grow(time, kept + n)) return false;
  std::copy_n(r.times.begin(), n, time.begin() + static_cast<std::ptrdiff_t>(kept));
  for (const Source& source : r.sources)
    if (!Grow(*source.column, kept + n)) return false;
  const auto to = [&](std::size_t s) { return r.sources[s].column->data() + kept; };
  for (std::size_t s = 0; s < r.sources.size();) {
    const std::size_t offset = r.sources[s].offset;
    if (s + 3 < r.sources.size() && r.sources[s + 3].offset == offset + 3 * sizeof(float)) {
      PickFour(p + offset, r.step_bytes, n, {to(s), to(s + 1), to(s + 2), to(s + 3)});
      s += 4;
    } else {
      Pick(p + offset, r.step_bytes, n, to(s));
      ++s;
    }
  }
  r.result.steps.kept += static_cast<int>(n);
  return true;
}

// As many steps as a tile holds, out of the bytes that are there.
TileEnd TakeTile(BodyReader& r) {
  StepsRead& steps = r.result.steps;
  const char* const p = r.stream.buffer.data() + r.stream.begin;
  const std::size_t available = r.stream.end - r.stream.begin;
  const auto room =
      static_cast<std::size_t>(std::min<std::int64_t>(static_cast<std::int64_t>(r.tile), r.most - steps.kept));
  TileEnd end = TileEnd::none;
  std::size_t n = 0;
  for (; n < room && end == TileEnd::none; ++n) {
    const std::size_t at = n * r.step_bytes;
    const Frame frame = CheckStep(r, p + at, available - at);
    if (frame != Frame::whole && n > 0) break;  // told when it comes first
    if (frame != Frame::whole) return EndAtFrame(r, frame, available);
    const float time = StepTime(r, p + at, steps.kept + static_cast<std::int64_t>(n) + 1);
    if ((steps.kept > 0 || n > 0) && !(time > steps.previous_time)) {
      steps.end = StepsEnd::not_ascending;
      steps.new_time = time;
      end = TileEnd::over;
      break;
    }
    steps.previous_time = r.times[n] = time;
  }
  if (!AppendTile(r, p, n)) {
    steps.end = StepsEnd::out_of_memory;
    return TileEnd::over;
  }
  Take(r.stream, n * r.step_bytes);
  return end == TileEnd::none && steps.kept >= r.most ? TileEnd::over : end;
}

void ReadSteps(BodyReader& r, const StepProgress& progress, std::size_t block) {
  const std::size_t tile = std::clamp(r.step_bytes * r.tile, block, 2 * block);
  const std::size_t wanted = std::max(tile, r.step_bytes + Framed(kHeader));
  FillTo(r.stream, wanted);
  DropRepeatedHeader(r);
  if (r.begun && r.most == 0) return;
  if (!r.begun) r.most = MostSteps(r.fresh);  // the first tile tells what is wrong
  bool roomy = false;
  for (;;) {
    const TileEnd end = TakeTile(r);
    if (end == TileEnd::over) return;
    if (!roomy && r.result.steps.kept > 0) {
      MakeRoom(r);
      roomy = true;
    }
    if (end != TileEnd::need_bytes) continue;
    FillTo(r.stream, wanted);
    if (progress.taken != nullptr) progress.taken(progress.self, r.stream.offset);
  }
}

}  // namespace

std::string CompanionName(std::string_view primary) {
  constexpr std::string_view kXml = ".XML";
  std::string name(primary);
  if (!primary.ends_with(kXml)) return name += 'u';
  name.insert(name.size() - kXml.size(), 1, 'u');
  return name;
}

bool ReadCompanionVersion(BlockStream& stream, int& version) {
  FillTo(stream, Framed(sizeof version));
  const char* const p = stream.buffer.data() + stream.begin;
  if (CheckRecord(p, stream.end - stream.begin, sizeof version) != Frame::whole) return false;
  version = WordAt(p + kMark);
  Take(stream, Framed(sizeof version));
  return true;
}

bool VersionsDiffer(int formatted, int unformatted) {
  constexpr int kAnyVersion = 407;
  return formatted != 0 && unformatted != 0 && formatted != unformatted && unformatted != kAnyVersion;
}

CompanionRead ReadUnformattedSteps(BlockStream& stream, std::int64_t file_size, CaseStore& fresh,
                                   const StepProgress& progress, std::size_t block) {
  BodyReader r{stream, file_size, fresh};
  StepsRead& steps = r.result.steps;
  StepColumns columns;
  if (!PrepareColumns(fresh, columns) || !PlanSteps(columns, r)) {
    steps.end = StepsEnd::out_of_memory;
    return r.result;
  }
  if (fresh.control.NSTEP <= 0) return r.result;
  ReadSteps(r, progress, block);
  AcceptEnd(fresh, steps);
  constexpr int kAllThreads = 0;
  if (!FinishColumns(steps.first, steps.kept, kAllThreads, fresh)) steps.end = StepsEnd::out_of_memory;
  for (float* const time : {&steps.previous_time, &steps.new_time})
    *time = static_cast<float>(static_cast<double>(*time) * r.time_factor);
  return r.result;
}

}  // namespace zaview
