#include "case/kino_motions.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <string_view>

#include <fmt/format.h>

#include "base/grow.h"
#include "base/line_source.h"
#include "base/list_read.h"
#include "base/number_format.h"
#include "base/text.h"

namespace zaview {
namespace {

constexpr std::size_t kCommentColumns = 80;
constexpr std::size_t kFewSteps = 1024;  // room to begin with
constexpr std::size_t kMostSteps = static_cast<std::size_t>(std::numeric_limits<int>::max());

using Step = std::array<double, 7>;

ListLines::Next NextLine(LineSource& source, std::string_view& line) {
  return NextRawLine(source, line) ? ListLines::Next::line : ListLines::Next::end_of_file;
}

// A list that passes over blank lines, and one that they end.
ListLines AnyLines(LineSource& source) {
  return {&source, [](void* self, std::string_view& line) { return NextLine(*static_cast<LineSource*>(self), line); }};
}
ListLines LinesToBlank(LineSource& source) {
  return {&source, [](void* self, std::string_view& line) {
            const ListLines::Next next = NextLine(*static_cast<LineSource*>(self), line);
            return next == ListLines::Next::line && IsBlank(line) ? ListLines::Next::stop : next;
          }};
}

bool Append(const Step& step, KinoMotions& motions) {
  const std::size_t n = motions.steps();
  if (n == kMostSteps) return false;
  for (std::vector<double>& column : motions.column)
    if (n == column.capacity() && !Reserve(column, std::max(kFewSteps, 2 * n))) return false;
  for (std::size_t i = 0; i < step.size(); ++i) motions.column[i].push_back(step[i]);
  return true;
}

// NaN rises above nothing, and nothing above an infinite time.
bool Rises(double time, double previous) {
  return static_cast<float>(time) > static_cast<float>(previous) && std::isfinite(static_cast<float>(time));
}

MotionsFault ReadSteps(LineSource& source, KinoMotions& motions) {
  const ListLines lines = LinesToBlank(source);
  double previous = -std::numeric_limits<double>::infinity();
  for (;;) {
    Step step{};
    if (ReadReals(lines, step) != ListStatus::ok) return MotionsFault::none;
    if (!Rises(step[0], previous)) return MotionsFault::not_increasing;
    if (!Append(step, motions)) return MotionsFault::out_of_memory;
    previous = step[0];
  }
}

}  // namespace

MotionsFault ReadKinoMotions(const Files& files, FileHandle file, KinoMotions& motions) {
  motions = KinoMotions{};
  BlockStream stream;
  StartStream(stream, files, file);
  LineSource source;
  source.stream = &stream;
  std::string_view line;
  MotionsFault fault = MotionsFault::none;
  if (NextRawLine(source, line)) motions.comment = TrimEnd(line.substr(0, kCommentColumns));
  double length = 0;
  if (ReadReals(AnyLines(source), {&length, 1}) == ListStatus::ok) fault = ReadSteps(source, motions);
  if (length > 0 && std::isfinite(length)) motions.length = length;
  if (stream.fault) return MotionsFault::read_error;
  return fault == MotionsFault::none && motions.steps() == 0 ? MotionsFault::no_steps : fault;
}

void AppendKinoStep(std::string& text, const std::array<double, 7>& step) {
  for (const double& value : step)
    fmt::format_to(std::back_inserter(text), "{}{:.9g}", &value == step.data() ? "" : " ", Finite(value) + 0.0);
  text += '\n';
}

}  // namespace zaview
