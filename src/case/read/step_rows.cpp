#include "case/read/step_rows.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <span>

namespace zaview {

bool MakeRows(const StepShape& shape, StepRows& rows) {
  constexpr std::size_t kMostReals = 1U << 28;  // no step that could be kept is longer
  if (shape.reals == 0 || shape.reals > kMostReals) return false;
  rows.room = std::max<std::size_t>(1, kRowValues / shape.reals);
  // Not cleared: what is never used costs no memory.
  rows.values.reset(new (std::nothrow) float[rows.room * shape.reals]);
  return rows.values != nullptr;
}

namespace {

// The row under way from `at` on. complete: it is whole.
[[nodiscard]] ScanResult ScanRow(const TextStretch& text, const char* at, const StepShape& shape, StepRows& rows) {
  float* const row = rows.values.get() + rows.count * shape.reals;
  std::size_t given = 0;
  for (std::size_t i = 0; i < rows.lists_taken; ++i) given += shape.lists[i];
  while (rows.lists_taken < shape.lists.size()) {
    const std::size_t n = shape.lists[rows.lists_taken];
    const ScanResult result = ScanReals(at, text.finish, text.last, std::span<float>(row + given, n), rows.scan);
    at = result.at;
    if (result.end == ScanEnd::empty && rows.lists_taken > 0) return {ScanEnd::file_end, at};
    if (result.end != ScanEnd::complete) return result;
    given += n;
    ++rows.lists_taken;
  }
  rows.lists_taken = 0;
  return {ScanEnd::complete, at};
}

}  // namespace

void ScanRows(const TextStretch& text, const StepShape& shape, StepRows& rows) {
  rows.at = text.begin;
  rows.last_begin = rows.last_end = nullptr;
  while (rows.count < rows.room) {
    const bool whole = !rows.under_way();
    const ScanResult result = ScanRow(text, rows.at, shape, rows);
    rows.end = result.end;
    if (result.end == ScanEnd::complete) {
      ++rows.count;
      if (whole) rows.last_begin = rows.at;
      if (whole) rows.last_end = result.at;
    }
    rows.at = result.at;
    if (result.end != ScanEnd::complete || rows.at >= text.stop) return;
  }
}

void DropWholeRows(const StepShape& shape, StepRows& rows) {
  if (rows.count > 0 && rows.under_way())
    std::memmove(rows.values.get(), rows.values.get() + rows.count * shape.reals, shape.reals * sizeof(float));
  rows.count = 0;
}

std::size_t CountLineEnds(const char* begin, const char* finish) {
  constexpr std::ptrdiff_t kPiece = 128;  // its count fits into a byte: the compiler counts 16 at a time
  std::size_t count = 0;
  for (; finish - begin >= kPiece; begin += kPiece) {
    unsigned char in_piece = 0;
    for (std::ptrdiff_t i = 0; i < kPiece; ++i)
      in_piece = static_cast<unsigned char>(in_piece + (begin[i] == '\n' ? 1 : 0));
    count += in_piece;
  }
  return count + static_cast<std::size_t>(std::count(begin, finish, '\n'));
}

const char* GuessStepStart(const char* begin, const char* finish, std::size_t lines) {
  if (lines == 0) return nullptr;
  const char* const middle = begin + (finish - begin) / 2;
  std::size_t wanted = 1;  // line ends from the middle on
  if (lines > 1) wanted = lines - CountLineEnds(begin, middle) % lines;
  const char* p = middle;
  for (; wanted > 0 && p < finish; --wanted) {
    const void* const line_end = std::memchr(p, '\n', static_cast<std::size_t>(finish - p));
    if (line_end == nullptr) return nullptr;
    p = static_cast<const char*>(line_end) + 1;
  }
  return wanted == 0 && p < finish ? p : nullptr;
}

namespace {

// Tells the processor that nothing is done here but waiting.
void Pause() {
#if defined(__x86_64__)
  __builtin_ia32_pause();
#endif
}

// Until the state is another one than `old`: a moment awake, then asleep.
template <typename State>
State NextState(const std::atomic<State>& state, State old, int looks) {
  for (int i = 0; i < looks; ++i) {
    const State now = state.load(std::memory_order_acquire);
    if (now != old) return now;
    Pause();
  }
  state.wait(old, std::memory_order_acquire);
  return state.load(std::memory_order_acquire);
}

constexpr int kLooksForWork = 20'000;  // about half a millisecond: reading the next block and keeping the last rows
constexpr int kLooksForRows = 4'000;

}  // namespace

RowThread::~RowThread() {
  if (!thread_.joinable()) return;
  state_.store(State::quit, std::memory_order_release);
  state_.notify_one();
  thread_.join();
}

bool RowThread::Begin() {
  try {
    thread_ = std::thread([this] { Run(); });
  } catch (const std::exception&) {  // no thread, or no memory for one
    return false;
  }
  return true;
}

void RowThread::Start(const TextStretch& text, const StepShape& shape, StepRows& rows) {
  text_ = text;
  shape_ = &shape;
  rows_ = &rows;
  state_.store(State::offered, std::memory_order_release);
  state_.notify_one();
}

bool RowThread::Finish() {
  State state = State::offered;
  if (state_.compare_exchange_strong(state, State::idle, std::memory_order_acq_rel)) return false;
  while (state != State::done) state = NextState(state_, state, kLooksForRows);
  return true;
}

void RowThread::Run() {
  for (State state = State::idle; state != State::quit; state = NextState(state_, state, kLooksForWork)) {
    if (state != State::offered) continue;
    if (!state_.compare_exchange_strong(state, State::taken, std::memory_order_acq_rel)) continue;
    ScanRows(text_, *shape_, *rows_);
    state_.store(State::done, std::memory_order_release);
    state_.notify_one();
    state = State::done;
  }
}

}  // namespace zaview
