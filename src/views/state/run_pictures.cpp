#include "views/state/run_pictures.h"

#include <algorithm>

#include "gks/window/gks_window.h"
#include "views/state/start_plot.h"
#include "views/state/step_run.h"

namespace zaview {

namespace {

constexpr double kLeastRate = 1.0, kMostRate = 60.0;

}  // namespace

RunOutputOrder OrderOfSteps(const Session& session, RunOutputOrder order, int first, int last) {
  const int stride = StepStride(session);
  order.count = (last - first) / stride + 1;
  if (order.count < 2) return order;
  const int end = first + (order.count - 1) * stride;
  const double shown = (ShownTimeOf(session, end) - ShownTimeOf(session, first)) *
                       static_cast<double>(session.plot_session.run_sync_factor);
  order.rate = shown > 0 ? std::clamp((order.count - 1) / shown, kLeastRate, kMostRate) : kMostRate;
  return order;
}

bool StartAnimation(Session& session, const AnimationOrder& order, int suboption) {
  PlotSessionState& p = session.plot_session;
  gksReadEnvironment(session.platform, session.gks);
  DropOrder(p);
  p.order = order;
  if (session.gks.dump.dump_only) p.order.pictures = true;
  if (p.order.pictures) session.gks.dump.waiting = true;
  if (StartView(session, PlotModule::animation, suboption)) return true;
  DropOrder(p);
  return false;
}

void DropOrder(PlotSessionState& state) {
  state.run_output.reset();
  state.order = {};
  state.ordered = {};
}

}  // namespace zaview
