#include "frame/quantity_menu.h"

#include <array>
#include <string>
#include <vector>

#include "base/message.h"
#include "case/point_motion.h"
#include "case/quantity_catalogue.h"
#include "case/settings/point_settings.h"
#include "frame/ground/option_menu.h"
#include "frame/ground/prompts.h"

namespace zaview {
namespace {

constexpr std::string_view kReturn = " 0 - Return to main menu";

struct TaskRow {
  QuantityTask task;
  std::string_view title;  // the lines above the items
  bool writes_files;       // 34 to 38 are offered
  bool one_curve;
};
constexpr TaskRow kTasks[] = {
    {QuantityTask::history_plot, "Time Data Plot Options:\nQuantity for Time History Plot:", false, false},
    {QuantityTask::histogram, "Histogram Plot Options:\nQuantity for Histogram Plot:", false, false},
    {QuantityTask::history_file, "Time History File Options:\nQuantity for Time History File:", true, false},
    {QuantityTask::statistics, "Time Data Statistics Options:\nQuantity for Data Statistics:", false, false},
    {QuantityTask::load_plot, "Quantity for Sectional Load Plot:", false, false},
    {QuantityTask::intervals, "Quantity for Statistics with Confidence Interval:", false, false},
    {QuantityTask::ensemble, "Quantity for Ensemble Statistics:", false, false},
    {QuantityTask::ensemble_intervals, "Quantity for Ensemble Statistics with Confidence Interval:", false, false},
    {QuantityTask::interval_plot, "Quantity for Confidence Interval Plot:", false, false},
    {QuantityTask::autocorrelation, "Quantity for Autocorrelation Options:", false, true},
    {QuantityTask::ensemble_autocorrelation, "Quantity for Ensemble Averaged Autocorrelation Options:", false, true},
    {QuantityTask::rates, "Quantity for Upcrossings and Exceedances:", false, true},
    {QuantityTask::spectrum, "Quantity for Spectrum:", false, true},
    {QuantityTask::extremes, "Quantity for Extremes:", false, true},
    {QuantityTask::rainflow, "Quantity for Rainflow Counts:", false, true},
};

// The long label; the words about ship-fixed axes are cut short.
std::string ItemText(int iqnt) {
  constexpr std::string_view kTails[] = {"in ship-fixed coords", "(ship coords)"};
  std::string label(cQntLong(iqnt));
  for (const std::string_view tail : kTails)
    if (label.ends_with(tail)) label.replace(label.size() - tail.size(), tail.size(), "(ship)");
  return fmt::format("{:>2} - {}", iqnt, label);
}

bool Offered(const CaseStore& c, const TaskRow& task, int iqnt) {
  const QuantityRow& row = *FindQuantity(iqnt);
  if (task.task == QuantityTask::load_plot && row.load_kind == 0) return false;
  if (row.need == QuantityNeed::file_only && !task.writes_files) return false;
  return QuantityValid(c, iqnt);
}

bool AskItem(const Console& console, const TaskRow& task, const CaseStore& c, int& iqnt) {
  std::vector<std::string> texts{std::string(kReturn)};
  std::vector<MenuItem> items;
  for (int i = 1; i <= kQuantities; ++i) texts.push_back(ItemText(i));
  for (int i = 0; i <= kQuantities; ++i)
    items.push_back({texts[static_cast<std::size_t>(i)], i == 0 || Offered(c, task, i)});
  return select_option(console, task.title, "Select =>", items, -1, iqnt) == Answer::ok && iqnt > 0;
}

// An impulsive run has two quantities, whatever its file holds; one that it lacks is refused behind the question.
bool AskImpulsiveItem(const Console& console, const TaskRow& task, const CaseStore& c, int& iqnt) {
  const MenuItem items[] = {{kReturn}, {" 1 - Transient Added Mass"}, {" 2 - Impulse Response Function"}};
  int item = 0;
  if (select_option(console, task.title, "Select =>", items, -1, item) != Answer::ok || item == 0) return false;
  iqnt = item;
  if (c.tadm_case) return true;
  if (item == kTransientAddedMass) {
    SayLine(console, "ERROR - Transient Added Mass is not in this output file");
    return false;
  }
  const int functions = static_cast<int>(c.irfs.size());
  const std::string question = fmt::format("Enter index of IRF (1 to {})=>", functions);
  for (iqnt = 1;;) {
    if (ask_integer(console, question, true, iqnt) != Answer::ok) return false;
    if (iqnt >= 1 && iqnt <= functions) return true;
    SayLine(console, "Index out of range - re-enter");
    iqnt = 1;
  }
}

bool AskPoint(const Console& console, OutputSettings& settings, CaseStore& c, QuantityRequest& request) {
  constexpr std::string_view kAxes[] = {"X:", "Y:", "Z:"};
  const bool has_last = settings.point.given;
  if (has_last) request.point = settings.point.point;
  SayLine(console, "Enter point coordinates in the INPUT coordinate system:");
  for (std::size_t i = 0; i < 3; ++i) {
    auto coordinate = static_cast<float>(request.point[i]);
    const float before = coordinate;
    if (ask_real(console, kAxes[i], has_last, coordinate) != Answer::ok) return false;
    if (!has_last || coordinate != before) request.point[i] = static_cast<double>(coordinate);
  }
  const bool missile = FindQuantity(request.iqnt)->need == QuantityNeed::missile;
  if (missile && VINPUT(console, "Enter missile data coefficients", false, request.missile) != Answer::ok) return false;
  RememberPoint(request, settings.point);
  return NodePointMot(console, settings, request.point, c);
}

bool AskCurve(const Console& console, const CaseStore& c, QuantityRequest& request) {
  const int curves = CurveCount(c, request.iqnt);
  request.curve = 1;
  if (curves < 2) return true;
  const std::string question = fmt::format("Enter curve index (1 to {})=>", curves);
  for (;;) {
    if (ask_integer(console, question, true, request.curve) != Answer::ok) return false;
    if (request.curve >= 1 && request.curve <= curves) return true;
    SayLine(console, "Index out of range - re-enter");
    request.curve = 1;
  }
}

}  // namespace

bool quantity_menu(const Console& console, OutputSettings& settings, QuantityTask itask, CaseStore& case_store,
                   QuantityRequest& request) {
  request = QuantityRequest{};
  const TaskRow* task = nullptr;
  for (const TaskRow& row : kTasks)
    if (row.task == itask) task = &row;
  if (task == nullptr) {
    SayLine(console, "LOGIC ERROR - invalid itask in qntmenu");
    return false;
  }
  const bool chosen = case_store.time_history() ? AskItem(console, *task, case_store, request.iqnt)
                                                : AskImpulsiveItem(console, *task, case_store, request.iqnt);
  if (!chosen) return false;
  if (case_store.time_history() && IsPointQuantity(request.iqnt) && !AskPoint(console, settings, case_store, request))
    return false;
  return !task->one_curve || AskCurve(console, case_store, request);
}

}  // namespace zaview
