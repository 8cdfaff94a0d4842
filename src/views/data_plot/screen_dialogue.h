// Questions on the text screen: the event loop goes on while one stands there, and TopScreenInput takes the answer.
#pragma once

#include <string_view>

#include "frame/session.h"

namespace zaview {

// PlotSessionState::screen_io_option.
inline constexpr int kNoQuestion = 0, kFileQuestion = 2, kSkipFirst = 3, kSkipLast = 4, kTrimFirst = 5, kTrimLast = 6,
                     kStepsQuestion = 7;

// A number of steps: kSkipFirst to kTrimLast. Nothing without a case that has steps; that is said.
void AskStepCount(Session& session, int option);
// The steps at which a trajectory shows the hull.
void AskHullSteps(Session& session);
// The file of the plot's data.
void AskPlotFile(Session& session);

// The answer, as the text screen hands it over.
void TopScreenInput(Session& session, std::string_view text);

}  // namespace zaview
