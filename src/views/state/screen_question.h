// Questions that a view asks on the text screen: the event loop goes on while one stands there.
#pragma once

#include <initializer_list>
#include <string_view>

#include "frame/session.h"

namespace zaview {

// PlotSessionState::screen_io_option.
inline constexpr int kNoQuestion = 0, kFileQuestion = 2, kSkipFirst = 3, kSkipLast = 4, kTrimFirst = 5, kTrimLast = 6,
                     kStepsQuestion = 7;
inline constexpr int kFirstAnswer = 1;  // screen_io_step
inline constexpr std::string_view kIllegalValue = "Illegal value";
inline constexpr std::string_view kNoStepsToAsk = "ERROR - the case has no time steps";

// Below the lines that tell what is asked for: they go with each answer.
void AskOnScreen(Session& session, std::initializer_list<std::string_view> lines, ScreenMode mode,
                 std::string_view prompt, std::string_view fallback);
void EndQuestion(Session& session);

}  // namespace zaview
