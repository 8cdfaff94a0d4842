#include "case/smooth_stored.h"

#include "base/message.h"
#include "case/derived_arrays.h"
#include "case/size_history.h"
#include "case/smoothing.h"

namespace zaview {
namespace {

bool SmoothHistory(int option, int width, const CaseStore& c, StepHistory& history) {
  bool done = true;
  for (std::vector<float>& column : history.component) done = done && SmoothInput(option, width, column);
  ClearGaps(c, history);  // of the steps at its ends something has come into a gap
  return done;
}

}  // namespace

void SmoothStored(const Console& console, int option, int width, CaseStore& case_store) {
  CaseStore& c = case_store;
  bool done = true;
  Trace(console, "SmoothInput opt0= {} npt0= {}", option, width);
  for (StepHistory* history :
       {&c.pmgg, &c.vmg, &c.acc, &c.force, &c.rudder_cmd, &c.rudder_ang, &c.prop_rps, &c.tadm, &c.fimp, &c.measured})
    done = done && SmoothHistory(option, width, c, *history);
  for (std::size_t kind = 0; kind < c.load_force.size(); ++kind)
    done = done && SmoothHistory(option, width, c, c.load_force[kind]) &&
           SmoothHistory(option, width, c, c.load_moment[kind]);
  if (!done) SayLine(console, SmoothingSkipped(option));
  DropDerived(c);
}

}  // namespace zaview
