#include "case/read/irf_sections.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>

#include "base/grow.h"
#include "base/message.h"
#include "base/number_parse.h"
#include "base/text.h"
#include "case/read/step_rows.h"

namespace zaview {
namespace {

inline constexpr std::string_view kEndLine = "END OF INPUT FILE ECHO";
inline constexpr std::string_view kNoEndLine = "LOGIC ERROR parsing output file header";
inline constexpr std::string_view kUnrecognized = "ERR489 - Unrecognized IRF : {}";
inline constexpr std::string_view kNoShip = "LOGIC ERROR parsing ship index from IRF label: {}";
inline constexpr std::string_view kNoSteps = "ERROR - number of steps missing in IRF label : {}";
inline constexpr std::string_view kNoIrfs[] = {
    "ERR490 - No IRF calculations found - The ZAVO output file may ...", "    ... be from an older version of ZAVO,",
    "    ... not have had to compute any IRF's  (i.e. all were up to date),"};
inline constexpr std::string_view kNoMatrices[] = {
    "WRN491 - IRF output file did not contain frequency independent added",
    "         mass and damping coefficients, so there is nothing to", "         process for the added mass IRF"};
inline constexpr std::string_view kBadData = "ERROR - Error reading IRF data : {}, line {}";
inline constexpr std::string_view kDataEnds = "ERROR - Unexpected file end in IRF data : {}";
inline constexpr std::string_view kNoMemory = "ERROR allocating IRF data, istat= 1";

struct KindWords {
  std::string_view words;
  IrfKind kind;
};
constexpr KindWords kKinds[] = {
    {"steady forward speed", IrfKind::steady},
    {"radiation in surge", IrfKind::surge},
    {"radiation in sway", IrfKind::sway},
    {"radiation in heave", IrfKind::heave},
    {"radiation in roll", IrfKind::roll},
    {"radiation in pitch", IrfKind::pitch},
    {"radiation in yaw", IrfKind::yaw},
    {"diffraction head", IrfKind::diffraction_head},
    {"diffraction follow 1", IrfKind::diffraction_follow_1},
    {"diffraction follow 2", IrfKind::diffraction_follow_2},
    {"diffraction follow 3", IrfKind::diffraction_follow_3},
    {"added mass", IrfKind::added_mass},
    {"air cushion pressure", IrfKind::air_cushion},
};

constexpr char kMark = '!';  // in column 1 of a label
constexpr std::size_t kLabelLine = 256;
constexpr std::size_t kLabelColumn = 16;  // columns ahead of the label
constexpr std::size_t kRoom = 65'536;     // bytes asked for at a time
constexpr std::size_t kForces = 6;
constexpr double kHeadSea = 180.0;  // degrees

// ---- Labels

// The word that begins at or behind `position`, up to a blank, a tab or a comma.
std::string_view WordFrom(std::string_view text, std::size_t position) {
  const std::size_t begin = text.find_first_not_of(" \t=:#", position);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_first_of(" \t,", begin) - begin);
}

bool ParseShip(std::string_view label, int& ship) {
  constexpr std::string_view kWord = "ship";
  const std::size_t at = label.find(kWord);
  return at == std::string_view::npos || ParseInteger(WordFrom(label, at + kWord.size()), ship);
}

// The integer ahead of " steps"; a lone " step" is taken as well.
bool ParseSteps(std::string_view label, std::size_t& steps) {
  std::size_t at = label.find(" steps");
  if (at == std::string_view::npos) at = label.find(" step");
  if (at == std::string_view::npos) return false;
  const std::string_view ahead = TrimEnd(label.substr(0, at));
  const std::size_t separator = ahead.find_last_of(" \t,");
  int value = 0;
  if (!ParseInteger(ahead.substr(separator == std::string_view::npos ? 0 : separator + 1), value)) return false;
  steps = static_cast<std::size_t>(std::max(0, value));
  return value >= 0;
}

double HeadingOf(std::string_view label, IrfKind kind) {
  constexpr std::string_view kWord = "heading ";
  const double usual = kind == IrfKind::diffraction_head ? kHeadSea : 0.0;
  const std::size_t at = label.find(kWord);
  double heading = usual;
  return at != std::string_view::npos && ParseDouble(WordFrom(label, at + kWord.size()), heading) ? heading : usual;
}

// ---- Blocks

struct IrfReader {
  const Console& console;
  LineSource& source;
  CaseStore& fresh;
  std::vector<std::size_t> steps{};  // of each block, as its label says
};

IrfStatus SayFault(const IrfReader& r, std::string_view message) {
  SayLine(r.console, message);
  return IrfStatus::failed;
}

IrfStatus ReadLabel(IrfReader& r, std::string_view line) {
  const std::string_view label = TrimEnd(line.substr(std::min(kLabelColumn, line.size())));
  const auto* const row = std::find_if(std::begin(kKinds), std::end(kKinds),
                                       [label](const KindWords& kind) { return Contains(label, kind.words); });
  IrfBlock block;
  std::size_t steps = 0;
  if (row == std::end(kKinds)) return SayFault(r, fmt::format(kUnrecognized, line));
  if (!ParseShip(label, block.ship)) return SayFault(r, fmt::format(kNoShip, label));
  if (!ParseSteps(label, steps)) return SayFault(r, fmt::format(kNoSteps, label));
  block.label = label;
  block.kind = row->kind;
  const bool diffraction = IsDiffraction(block.kind);
  if (diffraction) block.heading = HeadingOf(label, block.kind);
  block.has_matrices = block.kind == IrfKind::added_mass && Contains(label, "(with aij");
  if (!Grow(block.time.component, 1) || !Grow(block.force.component, kForces) ||
      (diffraction && !Grow(block.froude_krylov.component, kForces)) || !Grow(r.steps, r.steps.size() + 1) ||
      !Grow(r.fresh.irfs, r.fresh.irfs.size() + 1))
    return SayFault(r, kNoMemory);
  r.steps.back() = steps;
  r.fresh.irfs.back() = std::move(block);
  if (row->kind == IrfKind::added_mass && !r.fresh.irfs.back().has_matrices) SayLines(r.console, kNoMatrices);
  return IrfStatus::ok;
}

enum class DataEnd : std::uint8_t { ok, error, file_end, no_memory };

// n lists of `reals` reals each. take(rows) keeps the rows it gets; false: memory is out.
template <typename Take>
DataEnd ReadLists(LineSource& source, std::size_t reals, std::size_t n, const Take& take) {
  if (n == 0) return DataEnd::ok;
  BlockStream& stream = *source.stream;
  const StepShape shape{{reals}, reals};
  StepRows rows;
  if (!MakeRows(shape, rows)) return DataEnd::no_memory;
  const std::size_t room = rows.room;
  while (n > 0) {
    // At the file's end nothing more comes, and the scan says what that means.
    if (rows.end == ScanEnd::more || stream.begin == stream.end) static_cast<void>(FillStream(stream, kRoom));
    const char* const begin = stream.buffer.data() + stream.begin;
    const char* const finish = stream.buffer.data() + stream.end;
    rows.room = std::min(room, n);
    ScanRows({begin, finish, finish, stream.at_end}, shape, rows);
    source.line_number += static_cast<std::int64_t>(CountLineEnds(begin, rows.at));
    stream.begin += static_cast<std::size_t>(rows.at - begin);
    stream.offset += rows.at - begin;
    if (!take(rows)) return DataEnd::no_memory;
    n -= rows.count;
    DropWholeRows(shape, rows);
    if (n == 0) break;
    if (rows.end == ScanEnd::error) return DataEnd::error;
    if (rows.end == ScanEnd::file_end || rows.end == ScanEnd::empty) return DataEnd::file_end;
  }
  return DataEnd::ok;
}

DataEnd ReadMatrices(LineSource& source, IrfBlock& block) {
  std::size_t row = 0;
  return ReadLists(source, kForces, 3 * kForces, [&](const StepRows& rows) {
    for (std::size_t k = 0; k < rows.count; ++k, ++row)
      std::copy_n(rows.values.get() + k * kForces, kForces, block.matrices[row / kForces][row % kForces].begin());
    return true;
  });
}

DataEnd ReadHistories(LineSource& source, std::size_t steps, IrfBlock& block) {
  std::vector<std::vector<float>*> columns;
  for (StepHistory* history : {&block.time, &block.force, &block.froude_krylov})
    for (std::vector<float>& column : history->component) columns.push_back(&column);
  return ReadLists(source, columns.size(), steps, [&](const StepRows& rows) {
    const std::size_t kept = columns.front()->size();
    for (std::size_t c = 0; c < columns.size(); ++c) {
      if (!Grow(*columns[c], kept + rows.count)) return false;
      for (std::size_t k = 0; k < rows.count; ++k) (*columns[c])[kept + k] = rows.values[k * columns.size() + c];
    }
    return true;
  });
}

// no_end: what the end of the file inside the data means.
IrfStatus ReadData(IrfReader& r, std::size_t index, std::string_view no_end) {
  IrfBlock& block = r.fresh.irfs[index];
  DataEnd end = block.has_matrices ? ReadMatrices(r.source, block) : DataEnd::ok;
  if (end == DataEnd::ok) end = ReadHistories(r.source, r.steps[index], block);
  switch (end) {
    case DataEnd::ok:
      return IrfStatus::ok;
    case DataEnd::error:
      return SayFault(r, fmt::format(kBadData, r.fresh.file_name, r.source.line_number + 1));
    case DataEnd::file_end:
      return SayFault(r, no_end);
    case DataEnd::no_memory:
      break;
  }
  return SayFault(r, kNoMemory);
}

// ---- The order of labels and data

// Passes over blank lines; whether the next line begins with a mark.
bool MarkFollows(LineSource& source) {
  BlockStream& stream = *source.stream;
  for (;;) {
    if (stream.begin == stream.end && !FillStream(stream, kRoom)) return false;
    const char c = stream.buffer[stream.begin];
    if (c != '\n' && c != '\r') return c == kMark;
    if (c == '\n') ++source.line_number;
    ++stream.begin;
    ++stream.offset;
  }
}

enum class Mark : std::uint8_t { label, end_line, file_end };

// The next label or the end line; other lines are passed over.
Mark NextMark(LineSource& source, std::string_view& line) {
  while (NextRawLine(source, line)) {
    line = line.substr(0, kLabelLine);
    if (Contains(line, kEndLine)) return Mark::end_line;
    if (!line.empty() && line.front() == kMark) return Mark::label;
  }
  return Mark::file_end;
}

// Labels to the end line, each with its data behind it; or, told by the first one that has data, all labels ahead of
// the end line and the data behind that. collected: the second form.
IrfStatus ReadBlocks(IrfReader& r, bool& collected) {
  bool form_known = false;
  std::string_view line;
  Mark mark = NextMark(r.source, line);
  for (; mark == Mark::label; mark = NextMark(r.source, line)) {
    if (ReadLabel(r, line) != IrfStatus::ok) return IrfStatus::failed;
    const std::size_t index = r.steps.size() - 1;
    const bool has_data = r.steps[index] > 0 || r.fresh.irfs[index].has_matrices;
    if (has_data && !form_known) collected = MarkFollows(r.source);
    form_known = form_known || has_data;
    if (!collected && ReadData(r, index, kNoEndLine) != IrfStatus::ok) return IrfStatus::failed;
  }
  return mark == Mark::end_line ? IrfStatus::ok : SayFault(r, kNoEndLine);
}

int ImpulsiveMode(const ControlRecords& control) {
  const auto found = std::find_if(control.SWTCH.begin(), control.SWTCH.end(), [](int on) { return on != 0; });
  return found == control.SWTCH.end() ? 0 : static_cast<int>(found - control.SWTCH.begin()) + 1;
}

}  // namespace

bool IsDiffraction(IrfKind kind) {
  return kind >= IrfKind::diffraction_head && kind <= IrfKind::diffraction_follow_3;
}

IrfStatus ReadIrfSections(const Console& console, LineSource& source, CaseStore& fresh) {
  fresh.rvm = ImpulsiveMode(fresh.control);
  IrfReader r{console, source, fresh};
  bool collected = false;
  if (ReadBlocks(r, collected) != IrfStatus::ok) return IrfStatus::failed;
  if (collected) {
    const std::string data_end = fmt::format(kDataEnds, fresh.file_name);
    for (std::size_t index = 0; index < r.steps.size(); ++index)
      if (ReadData(r, index, data_end) != IrfStatus::ok) return IrfStatus::failed;
  }
  if (!fresh.irf_case || !fresh.irfs.empty()) return IrfStatus::ok;
  SayLines(console, kNoIrfs);
  return IrfStatus::failed;
}

}  // namespace zaview
