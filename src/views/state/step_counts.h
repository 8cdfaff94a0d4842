// How many steps statistics skip, and how many are cut from all output, at either end: asked for by keys, typed into
// menus.
#pragma once

#include <string_view>

#include "views/state/option_row.h"

namespace zaview {

enum class StepEnd : unsigned char { skip_first, skip_last, trim_first, trim_last };

[[nodiscard]] int StepCountAt(const Session& session, StepEnd end);  // in force
// What is said of a number that is refused, which changes nothing: below 0, or it leaves no step, or fewer than the
// plot that is shown takes. Blank: it is taken.
[[nodiscard]] std::string_view SetStepCount(Session& session, StepEnd end, int n);
[[nodiscard]] std::string_view SetStepStride(Session& session, int n);  // every n-th step; likewise

template <StepEnd end>
inline constexpr OptionBinding StepCountOf = {
    [](Session& s, int) { return OptionValue{.integer = StepCountAt(s, end)}; },
    [](Session& s, const OptionEvent& event) { return SetStepCount(s, end, event.integer); }};

}  // namespace zaview
