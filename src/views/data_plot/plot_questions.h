// Questions of the data plot on the text screen.
#pragma once

#include <string_view>

#include "frame/session.h"

namespace zaview {

void AskPlotFile(Session& session);   // of the plot's data
void AskHullSteps(Session& session);  // at which a trajectory shows the hull
void TakeFileAnswer(Session& session, std::string_view text);
void TakeHullSteps(Session& session, std::string_view text);

}  // namespace zaview
