#include "frame/ground/prompts.h"

#include <cmath>
#include <limits>
#include <vector>

#include "base/message.h"
#include "base/number_format.h"
#include "base/number_parse.h"
#include "base/text.h"

namespace zaview {

namespace {

constexpr std::string_view kHitReturn = "Hit RETURN to continue...";
constexpr std::string_view kStepList = "Enter IBEG [ IEND [ INC ] ] -or- 0";
constexpr std::string_view kStepListOrAll = "Enter IBEG [ IEND [ INC ] ] -or- 0 -or- -1 to";
constexpr std::string_view kQuitWords[] = {"QUIT", "Quit", "quit"};
constexpr std::string_view kBlankWords[] = {"BLANK", "blank"};

bool BeginsWithOneOf(std::string_view text, std::span<const std::string_view> words) {
  for (const std::string_view word : words)
    if (StartsWith(text, word)) return true;
  return false;
}

// Asks again until `take` likes the answer. An empty answer with a fallback keeps the values as they are, so that none
// is rounded by its own text.
template <typename Take>
Answer AskNumbers(const Console& console, std::string_view prompt, std::string_view fallback, Take take) {
  for (;;) {
    std::string answer;
    const Answer status = ReadAnswer(console, prompt, fallback, answer);
    if (status != Answer::ok) return status;
    if (IsQuit(answer)) return Answer::quit;
    if (!fallback.empty() && IsBlank(answer)) return Answer::ok;
    if (take(answer)) return Answer::ok;
  }
}

struct StepRange {
  int numbers = 0;  // how many stood on the line
  int begin = 0, end = 0, step = 1;
};

StepRange ParseStepRange(std::string_view answer) {
  StepRange range;
  int* const slots[] = {&range.begin, &range.end, &range.step};
  std::size_t position = 0;
  double number = 0;
  while (range.numbers < 3 && parse_real(answer, position, number) != ParseEnd::none)
    *slots[range.numbers++] = RoundToInt(number);
  if (range.numbers < 2) range.end = range.begin;
  return range;
}

bool FitsFloat(double value) {
  return std::fabs(value) <= static_cast<double>(std::numeric_limits<float>::max());
}

}  // namespace

bool IsQuit(std::string_view answer) {
  return BeginsWithOneOf(answer, kQuitWords);
}

Answer ReadAnswer(const Console& console, std::string_view prompt, std::string_view shown, std::string& answer,
                  std::string* typed) {
  std::string text(TrimEnd(prompt));
  const std::string_view fallback = TrimEnd(shown);
  if (!fallback.empty()) text += fmt::format("{}[{}]", text.empty() ? "" : " ", fallback);
  // Without a terminal the blank behind the prompt waits for the echo: no line of a log ends in blanks.
  if (console.input_is_terminal) text += ' ';
  console.write(console.self, text);
  console.flush(console.self);

  std::string line;
  const bool got = console.read_line(console.self, line);
  const std::string_view kept = TrimEnd(std::string_view(line).substr(0, kAnswerLine));
  if (!console.input_is_terminal && !kept.empty()) console.write(console.self, fmt::format(" {}", kept));
  if (!console.input_is_terminal || !got) console.write(console.self, "\n");
  console.flush(console.self);
  if (!got) return TakeInterrupt(console) ? Answer::quit : Answer::end_of_input;
  answer = kept;
  if (typed != nullptr) *typed = line;
  return Answer::ok;
}

Answer ask_text(const Console& console, std::string_view prompt, std::string_view fallback, std::string& answer) {
  std::string line;
  const Answer status = ReadAnswer(console, prompt, fallback, line);
  if (status != Answer::ok) return status;
  if (IsQuit(line)) return Answer::quit;
  if (IsBlank(line)) line = TrimEnd(fallback);
  if (BeginsWithOneOf(line, kBlankWords)) line.clear();
  answer = std::move(line);
  return Answer::ok;
}

Answer ask_integer(const Console& console, std::string_view prompt, bool has_default, int& value) {
  return AskNumbers(console, prompt, has_default ? fmt::format("{}", value) : "", [&](std::string_view answer) {
    std::size_t position = 0;
    double number = 0;
    if (parse_real(answer, position, number) == ParseEnd::none) return false;
    value = RoundToInt(number);
    return true;
  });
}

Answer ask_real(const Console& console, std::string_view prompt, bool has_default, float& value) {
  return VINPUT(console, prompt, has_default, std::span(&value, 1));
}

Answer VINPUT(const Console& console, std::string_view prompt, bool has_default, std::span<float> values) {
  std::string fallback;
  if (has_default)
    for (const float value : values) fallback += (fallback.empty() ? "" : " ") + DefaultNumber(value);
  return AskNumbers(console, prompt, fallback, [&](std::string_view answer) {
    std::vector<float> numbers;
    std::size_t position = 0;
    double number = 0;
    while (numbers.size() < values.size() && parse_real(answer, position, number) != ParseEnd::none) {
      if (!FitsFloat(number)) return false;
      numbers.push_back(static_cast<float>(number));
    }
    if (numbers.size() < values.size()) return false;
    std::copy(numbers.begin(), numbers.end(), values.begin());
    return true;
  });
}

StepAnswer TakeStepAnswer(std::string_view answer, bool offers_all, int first, int last, std::vector<int>& indices) {
  StepRange range = ParseStepRange(answer);
  if (range.numbers == 1 && range.begin == 0) return StepAnswer::end;
  const bool all = offers_all && range.numbers == 1 && range.begin == -1;
  if (all) range = {2, first, last, 1};
  const bool good = range.numbers > 0 && range.begin >= first && range.end <= last && range.step > 0;
  if (!good) return StepAnswer::bad;
  for (std::int64_t i = range.begin; i <= range.end; i += range.step) indices.push_back(static_cast<int>(i));
  return all ? StepAnswer::end : StepAnswer::more;
}

Answer ask_step_list(const Console& console, bool offers_all, int first, int last, std::vector<int>& indices) {
  for (;;) {
    std::string answer;
    const Answer status = ask_text(console, offers_all ? kStepListOrAll : kStepList, "", answer);
    if (status != Answer::ok) return status;
    if (TakeStepAnswer(answer, offers_all, first, last, indices) == StepAnswer::end) return Answer::ok;
  }
}

void pause_for_return(const Console& console) {
  std::string ignored;
  static_cast<void>(ReadAnswer(console, kHitReturn, "", ignored));
}

}  // namespace zaview
