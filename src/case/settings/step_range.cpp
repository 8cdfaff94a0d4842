#include "case/settings/step_range.h"

#include <string>

#include "base/message.h"
#include "base/number_parse.h"
#include "case/size_history.h"

namespace zaview {
namespace {

// False: no number stands there.
bool ParseRange(std::string_view answer, StepRange& asked) {
  int numbers[] = {0, 0, 1};
  std::size_t position = 0;
  std::size_t n = 0;
  double number = 0;
  while (n < 3 && parse_real(answer, position, number) != ParseEnd::none) numbers[n++] = RoundToInt(number);
  asked = {numbers[0], n > 1 ? numbers[1] : numbers[0], numbers[2]};
  return n > 0;
}

}  // namespace

bool TakeStepRange(const CaseStore& case_store, StepRange asked, StepRange& range) {
  const int first = case_store.first_step;
  const int last = case_store.last_step;
  if (asked.first == 0) asked = {first, last, 1};
  if (asked.first < first || asked.last > last || asked.last < asked.first || asked.increment < 1) return false;
  range = asked;
  return true;
}

std::vector<int> StepsOf(const CaseStore& case_store, const StepRange& range) {
  std::vector<int> steps;
  for (int i = 0; i < range.count(); ++i)
    if (!InGap(case_store, range.step(i))) steps.push_back(range.step(i));
  return steps;
}

Answer AskStepRange(const Console& console, const CaseStore& case_store, std::string_view prompt,
                    std::string_view fault, StepRange& range) {
  for (;;) {
    std::string line;
    const Answer answer = ask_text(console, prompt, "", line);
    if (answer != Answer::ok) return answer;
    StepRange asked;
    if (ParseRange(line, asked) && TakeStepRange(case_store, asked, range)) return Answer::ok;
    SayLine(console, fault);
  }
}

}  // namespace zaview
