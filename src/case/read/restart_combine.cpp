#include "case/read/restart_combine.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "base/data_fault.h"
#include "base/grow.h"
#include "base/message.h"
#include "base/text.h"
#include "case/size_history.h"
#include "control/input_scales.h"
#include "frame/ground/prompts.h"

namespace zaview {
namespace {

inline constexpr std::string_view kPreviousSteps = "The previously read data was for steps {} through {}";
inline constexpr std::string_view kExplain[] = {
    "so these could be for multiple parts of a restarted ZAVO run",
    "Do you wish to try and combine the output histories or just use the last one?",
    "NOTE that the code cannot guarantee that the files are indeed part",
    "     of the same run or even for the same configuration"};
inline constexpr std::string_view kCombineOrLast = "Enter C to COMBINE or L to use LAST =>";
inline constexpr std::string_view kNobodyToAsk = "Output histories not combined : use -restart or READ_COMB";
inline constexpr std::string_view kCombined = "The combined history runs from step {} through {}";
inline constexpr std::string_view kGap = "but includes a gap from step {} through {}";
inline constexpr std::string_view kGapIsZero = "Data for these time steps will be set to zero";
inline constexpr std::string_view kOtherGeometry = "WARNING - Output histories not combined : geometry or loads differ";
inline constexpr std::string_view kNotLater =
    "WARNING - Output histories not combined : first step {} does not come after step {}";
inline constexpr std::string_view kLongGap =
    "WARNING - Output histories not combined : too long a gap from step {} through {}";

using Histories = std::array<StepHistory CaseStore::*, 8>;
constexpr Histories kHistories = {&CaseStore::time,       &CaseStore::pmgg,    &CaseStore::vmg,
                                  &CaseStore::acc,        &CaseStore::force,   &CaseStore::rudder_cmd,
                                  &CaseStore::rudder_ang, &CaseStore::prop_rps};

// Calls visit(of old, of fresh) for each history that is kept as read; false as soon as it says so.
template <typename Visit>
bool ForHistories(const CaseStore& old, CaseStore& fresh, Visit visit) {
  for (const auto history : kHistories)
    if (!visit(old.*history, fresh.*history)) return false;
  for (std::size_t k = 0; k < fresh.load_force.size(); ++k)
    if (!visit(old.load_force[k], fresh.load_force[k]) || !visit(old.load_moment[k], fresh.load_moment[k]))
      return false;
  return true;
}

// The place of each part of a column of the joined history, from 0.
struct Joint {
  int first;           // step
  std::size_t ahead;   // steps taken from the old case
  std::size_t gap;     // steps that nobody has
  std::size_t behind;  // steps of the new case
  [[nodiscard]] std::size_t total() const { return ahead + gap + behind; }
};

Joint JointOf(const CaseStore& old, const CaseStore& fresh) {
  const std::int64_t first = old.first_read;
  const std::int64_t last_ahead = std::min(old.last_read, fresh.first_read - 1);
  return {old.first_read, static_cast<std::size_t>(last_ahead - first + 1),
          static_cast<std::size_t>(fresh.first_read - 1 - last_ahead), StepsInStore(fresh)};
}

bool ReserveColumns(StepHistory& history, const Joint& joint) {
  return std::all_of(history.component.begin(), history.component.end(),
                     [&](std::vector<float>& column) { return Reserve(column, joint.total()); });
}

// Room is there: nothing can fail. A column that the old file lacks begins with zeros.
void JoinColumns(const StepHistory& old, StepHistory& fresh, const Joint& joint) {
  fresh.first = joint.first;
  for (std::size_t i = 0; i < fresh.component.size(); ++i) {
    std::vector<float>& column = fresh.component[i];
    const std::size_t behind = std::min(column.size(), joint.behind);
    column.resize(joint.total());
    const auto begin = column.begin();
    std::move_backward(begin, begin + static_cast<std::ptrdiff_t>(behind),
                       begin + static_cast<std::ptrdiff_t>(joint.ahead + joint.gap + behind));
    std::fill(begin, begin + static_cast<std::ptrdiff_t>(joint.ahead + joint.gap), 0.0F);
    if (i >= old.component.size()) continue;
    const std::size_t ahead = std::min(old.component[i].size(), joint.ahead);
    std::copy_n(old.component[i].begin(), ahead, begin);
  }
}

void FillGapTimes(const ControlRecords& control, const Joint& joint, StepHistory& time) {
  if (time.component.empty() || joint.gap == 0) return;
  std::vector<float>& column = time.component[0];
  const double last = column[joint.ahead - 1];
  const double step = control.DTH * InputScalesOf(control).time;
  for (std::size_t i = 1; i <= joint.gap; ++i)
    column[joint.ahead - 1 + i] = static_cast<float>(last + static_cast<double>(i) * step);
}

// Gaps of the earlier parts that still stand, then the new one.
bool JoinGaps(const CaseStore& old, const CaseStore& fresh, const Joint& joint, std::vector<StepGap>& gaps) {
  if (!Reserve(gaps, old.gaps.size() + 1)) return false;
  for (const StepGap& gap : old.gaps)
    if (gap.from < fresh.first_read) gaps.push_back({gap.from, std::min(gap.to, fresh.first_read - 1)});
  if (joint.gap > 0) gaps.push_back({old.last_read + 1, fresh.first_read - 1});
  return true;
}

bool SameTransformation(const ControlRecords& a, const ControlRecords& b) {
  return a.GSHIFT == b.GSHIFT && a.GORIG == b.GORIG && a.GROT == b.GROT;
}

bool SameScales(const ControlRecords& a, const ControlRecords& b) {
  return a.GRAVIN == b.GRAVIN && a.RHOIN == b.RHOIN && a.LENIN == b.LENIN && a.ANGIN == b.ANGIN;
}

bool SameFiles(const std::vector<GeometryFileEntry>& a, const std::vector<GeometryFileEntry>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto& x, const auto& y) {
    return x.NCOMPR == y.NCOMPR && x.SYMINPF == y.SYMINPF && x.GSHIFT == y.GSHIFT && x.GORIG == y.GORIG &&
           x.GROT == y.GROT;
  });
}

bool SameCuts(const SectionLoads& a, const SectionLoads& b) {
  return a.NBCA == b.NBCA && a.nycut == b.nycut && a.x_kinds == b.x_kinds && a.y_kinds == b.y_kinds &&
         a.x_cuts == b.x_cuts && a.y_cuts == b.y_cuts;
}

// What is in the way of a combination that was asked for; false: nothing.
bool SayObstacle(const Console& console, const CaseStore& old, const CaseStore& fresh) {
  if (!SameGeometry(old, fresh)) {
    SayLine(console, kOtherGeometry);
  } else if (fresh.first_read <= old.first_read) {
    Say(console, kNotLater, fresh.first_read, old.first_read);
  } else if (std::int64_t{fresh.first_read} - old.last_read - 1 > LongestGap(old, fresh)) {
    Say(console, kLongGap, old.last_read + 1, fresh.first_read - 1);
  } else {
    return false;
  }
  return true;
}

bool WantsCombination(const Console& console, const CaseStore& old) {
  Say(console, kPreviousSteps, old.first_read, old.last_read);
  SayLines(console, kExplain);
  std::string answer;
  if (ask_text(console, kCombineOrLast, "", answer) != Answer::ok) return false;
  const std::string_view word = Trim(answer);
  return !word.empty() && (word.front() == 'C' || word.front() == 'c');
}

void SayCombined(const Console& console, int old_last, int new_first, const CaseStore& fresh) {
  Say(console, kCombined, fresh.first_read, fresh.last_read);
  if (old_last >= new_first - 1) return;
  Say(console, kGap, old_last + 1, new_first - 1);
  SayLine(console, kGapIsZero);
}

}  // namespace

bool SameGeometry(const CaseStore& old, const CaseStore& fresh) {
  constexpr int kImpulsive = 1;
  const ControlRecords& a = old.control;
  const ControlRecords& b = fresh.control;
  return a.MOTYPE != kImpulsive && b.MOTYPE != kImpulsive && std::max(1, old.NSHIP) == std::max(1, fresh.NSHIP) &&
         old.ship == fresh.ship && a.FGEOM == b.FGEOM && SameTransformation(a, b) &&
         a.components.size() == b.components.size() && SameScales(a, b) &&
         SameFiles(old.geometry_files, fresh.geometry_files) && SameCuts(old.loads, fresh.loads);
}

std::int64_t LongestGap(const CaseStore& old, const CaseStore& fresh) {
  constexpr std::int64_t kSteps = 100000;
  constexpr std::int64_t kTimesTheSteps = 10;
  return kSteps + kTimesTheSteps * static_cast<std::int64_t>(StepsInStore(old) + StepsInStore(fresh));
}

bool CombineHistories(const CaseStore& old, CaseStore& fresh) {
  const Joint joint = JointOf(old, fresh);
  std::vector<StepGap> gaps;
  if (!JoinGaps(old, fresh, joint, gaps)) return false;
  const auto reserve = [&](const StepHistory&, StepHistory& history) { return ReserveColumns(history, joint); };
  if (!ForHistories(old, fresh, reserve)) return false;
  (void)ForHistories(old, fresh, [&](const StepHistory& from, StepHistory& to) {
    JoinColumns(from, to, joint);
    return true;
  });
  FillGapTimes(fresh.control, joint, fresh.time);
  fresh.gaps = std::move(gaps);
  fresh.first_read = joint.first;
  fresh.combined = true;
  return true;
}

void OfferCombination(const Console& console, RestartMode mode, bool can_ask, const CaseStore& old, CaseStore& fresh) {
  if (mode == RestartMode::keep_last || !old.has_steps() || !fresh.has_steps()) return;
  const bool asks = mode == RestartMode::ask;
  if (asks && (!SameGeometry(old, fresh) || fresh.first_read <= old.first_read)) return;
  if (asks && !can_ask) return SayLine(console, kNobodyToAsk);
  if (asks && !WantsCombination(console, old)) return;
  if (SayObstacle(console, old, fresh)) return;
  const int new_first = fresh.first_read;
  if (!CombineHistories(old, fresh)) return SayLine(console, kReportNoMemory);
  SayCombined(console, old.last_read, new_first, fresh);
}

}  // namespace zaview
