#include "case/smooth_stored.h"

#include "base/message.h"
#include "case/derived_arrays.h"
#include "case/size_history.h"
#include "case/smoothing.h"

namespace zaview {
namespace {

constexpr std::string_view kInPart =
    "WARNING - only a part of the stored data is smoothed: read the file again to have all as it was";

FilterStatus SmoothHistory(const Console& console, int option, int width, const CaseStore& c, StepHistory& history) {
  FilterStatus status = FilterStatus::ok;
  for (std::vector<float>& column : history.component)
    if (status == FilterStatus::ok) status = SmoothInput(console, option, width, column);
  ClearGaps(c, history);  // of the steps at its ends something has come into a gap
  return status;
}

}  // namespace

bool SmoothStored(const Console& console, int option, int width, CaseStore& case_store) {
  CaseStore& c = case_store;
  FilterStatus status = FilterStatus::ok;
  const auto smooth = [&](StepHistory& history) {
    if (status == FilterStatus::ok) status = SmoothHistory(console, option, width, c, history);
  };
  Trace(console, "SmoothInput opt0= {} npt0= {}", option, width);
  for (StepHistory* history :
       {&c.pmgg, &c.vmg, &c.acc, &c.force, &c.rudder_cmd, &c.rudder_ang, &c.prop_rps, &c.tadm, &c.fimp, &c.measured})
    smooth(*history);
  for (std::size_t kind = 0; kind < c.load_force.size(); ++kind) {
    smooth(c.load_force[kind]);
    smooth(c.load_moment[kind]);
  }
  DropDerived(c);
  if (status != FilterStatus::interrupted) return true;
  SayLine(console, kInPart);
  return false;
}

}  // namespace zaview
