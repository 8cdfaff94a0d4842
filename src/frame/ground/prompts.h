// Console questions. Each shows a prompt and a default, reads one line and understands QUIT and BLANK. End of input
// counts as QUIT, so that piped input stops a dialogue and not the process. If input is no terminal the answer is
// echoed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/platform.h"

namespace zaview {

enum class Answer : std::uint8_t { ok, quit, end_of_input };  // end_of_input is told apart for loops that must stop

inline constexpr std::size_t kAnswerLine = 256;  // columns of an answer; the rest is dropped

// One line as typed (no QUIT, no BLANK): the ground of all questions and menus. "prompt [shown] " stands ahead of it;
// of a prompt of several lines the last one waits. At the end of input, and for Ctrl-C (quit), the answer is untouched.
// typed: the line with the blanks and tabs that end it.
[[nodiscard]] Answer ReadAnswer(const Console& console, std::string_view prompt, std::string_view shown,
                                std::string& answer, std::string* typed = nullptr);
[[nodiscard]] bool IsQuit(std::string_view answer);  // begins with QUIT, Quit or quit

// "prompt [shown] "; an empty answer takes `fallback`, BLANK gives an empty answer. On QUIT the answer is untouched.
[[nodiscard]] Answer ask_text(const Console& console, std::string_view prompt, std::string_view fallback,
                              std::string& answer);
// A bad number repeats the question; an empty answer keeps `value` when has_default. Integers: nearest, halves away.
[[nodiscard]] Answer ask_integer(const Console& console, std::string_view prompt, bool has_default, int& value);
[[nodiscard]] Answer ask_real(const Console& console, std::string_view prompt, bool has_default, float& value);
// values.size() (1 to 64) reals on one line; fewer: asked again; more: ignored.
[[nodiscard]] Answer VINPUT(const Console& console, std::string_view prompt, bool has_default, std::span<float> values);
// Ranges of indices: one number a line means that index, two a range, three a range with a step. Each line adds to
// `indices`; 0 ends the list, and -1, where `offers_all`, means all of first..last. Indices outside first..last are
// asked again.
[[nodiscard]] Answer ask_step_list(const Console& console, bool offers_all, int first, int last,
                                   std::vector<int>& indices);
// One line of that list. bad: nothing was taken of it.
enum class StepAnswer : std::uint8_t { more, end, bad };
[[nodiscard]] StepAnswer TakeStepAnswer(std::string_view answer, bool offers_all, int first, int last,
                                        std::vector<int>& indices);
// "Hit RETURN to continue...", one line read and ignored.
void pause_for_return(const Console& console);

}  // namespace zaview
