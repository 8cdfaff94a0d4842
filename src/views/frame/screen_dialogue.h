// The answers on the text screen, and the questions that belong to all views.
#pragma once

#include <string_view>

#include "frame/session.h"
#include "views/state/screen_question.h"

namespace zaview {

// A number of steps: kSkipFirst to kTrimLast. Nothing without a case that has steps; that is said.
void AskStepCount(Session& session, int option);

// The answer, as the text screen hands it over.
void TopScreenInput(Session& session, std::string_view text);

}  // namespace zaview
