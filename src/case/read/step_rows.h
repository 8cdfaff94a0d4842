// Steps out of text, row by row, and the second thread that converts a stretch of it ahead of being sure.
#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <new>
#include <thread>
#include <vector>

#include "base/real_scan.h"

namespace zaview {

struct StepShape {
  std::vector<std::size_t> lists;  // reals of each list of a step
  std::size_t reals = 0;           // their sum
};

struct StepRows {
  std::unique_ptr<float[]> values;  // room rows
  std::size_t room = 0;
  std::size_t count = 0;        // whole rows
  std::size_t lists_taken = 0;  // of the row behind them, which is under way
  ListScan scan;
  ScanEnd end = ScanEnd::complete;   // complete: at a step's end, by `stop` or by lack of room; else as for a list
  const char* at = nullptr;          // everything before is taken
  const char* last_begin = nullptr;  // text of the last row that was taken whole in one go, up to last_end
  const char* last_end = nullptr;
  [[nodiscard]] bool under_way() const { return lists_taken > 0 || scan.begun; }
};

// Room for steps of about kRowValues reals together, at least one. False when memory is out.
inline constexpr std::size_t kRowValues = 32'768;
[[nodiscard]] bool MakeRows(const StepShape& shape, StepRows& rows);

struct TextStretch {
  const char* begin = nullptr;
  const char* stop = nullptr;    // no step is begun here or behind
  const char* finish = nullptr;  // end of the text there is
  bool last = false;             // the file ends at finish
};

// Adds whole steps to rows, going on with the row under way.
void ScanRows(const TextStretch& text, const StepShape& shape, StepRows& rows);

// Forgets the whole rows; the one under way comes first.
void DropWholeRows(const StepShape& shape, StepRows& rows);

[[nodiscard]] std::size_t CountLineEnds(const char* begin, const char* finish);

// A line near the middle of [begin, finish) that begins a step if all steps from begin on have `lines` lines. Null if
// there is none. Only a guess: whoever uses it checks that the step before ends there.
[[nodiscard]] const char* GuessStepStart(const char* begin, const char* finish, std::size_t lines);

// One thread for a whole read. Start offers it a stretch; Finish waits until the rows are there, or takes the stretch
// back, if the thread has not got round to it: then nobody waits for a processor that others use. Every Start has its
// Finish. Both sides look out for each other for a moment before they sleep, since a stretch takes no longer than a
// sleeping thread to wake.
class RowThread {
 public:
  RowThread() = default;
  RowThread(const RowThread&) = delete;
  RowThread& operator=(const RowThread&) = delete;
  ~RowThread();
  [[nodiscard]] bool Begin();  // false: there is no further thread to be had
  void Start(const TextStretch& text, const StepShape& shape, StepRows& rows);
  [[nodiscard]] bool Finish();  // false: taken back, the rows are untouched

 private:
  enum class State : int { idle, offered, taken, done, quit };
  void Run();
  std::thread thread_;
  std::atomic<State> state_{State::idle};
  TextStretch text_;
  const StepShape* shape_ = nullptr;
  StepRows* rows_ = nullptr;
};

}  // namespace zaview
