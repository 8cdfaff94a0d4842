#include "case/seaway_match.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "base/list_read.h"
#include "control/control_text.h"
#include "control/input_scales.h"
#include "control/options_lookup.h"

namespace zaview {
namespace {

float Scaled(double value, double scale) {
  return static_cast<float>(value * scale);
}

// ---- Kinds that list their waves

// same(i) compares row i of both lists.
template <typename Same>
bool AllRows(std::size_t n, Same same) {
  for (std::size_t i = 0; i < n; ++i)
    if (!same(i)) return false;
  return true;
}

Match ByPhases(bool phases_agree) {
  return phases_agree ? Match::identical : Match::realization;
}

struct Scales {  // of one case
  explicit Scales(const ControlRecords& control) : input(InputScalesOf(control)) {}
  InputScales input;
  [[nodiscard]] float Frequency(double value) const { return Scaled(value, input.frequency); }
  [[nodiscard]] float Length(double value) const { return Scaled(value, input.length); }
  [[nodiscard]] float Number(double value) const { return static_cast<float>(value); }
};

Match CompareComponents(const ControlRecords& held, const ControlRecords& fresh) {
  const std::vector<WaveComponentInput>& a = held.seaway.waves;
  const std::vector<WaveComponentInput>& b = fresh.seaway.waves;
  const Scales p(held);
  const Scales q(fresh);
  if (a.size() != b.size()) return Match::none;
  const bool same = AllRows(a.size(), [&](std::size_t i) {
    return p.Frequency(a[i].FREQW) == q.Frequency(b[i].FREQW) && p.Length(a[i].AMPW0) == q.Length(b[i].AMPW0) &&
           p.Number(a[i].HEADW) == q.Number(b[i].HEADW);
  });
  if (!same) return Match::none;
  return ByPhases(AllRows(a.size(), [&](std::size_t i) { return p.Number(a[i].PHASEW) == q.Number(b[i].PHASEW); }));
}

// Wave numbers are non-dimensional times the length.
Match CompareAlternative(const ControlRecords& held, const ControlRecords& fresh) {
  const std::vector<AlternativeWaveInput>& a = held.seaway.alternative;
  const std::vector<AlternativeWaveInput>& b = fresh.seaway.alternative;
  const Scales p(held);
  const Scales q(fresh);
  if (a.size() != b.size()) return Match::none;
  const bool same = AllRows(a.size(), [&](std::size_t i) {
    return p.Frequency(a[i].FREQ) == q.Frequency(b[i].FREQ) && p.Length(a[i].AMP) == q.Length(b[i].AMP) &&
           p.Number(a[i].HEAD) == q.Number(b[i].HEAD) && Scaled(a[i].KX, held.LENIN) == Scaled(b[i].KX, fresh.LENIN) &&
           Scaled(a[i].KY, held.LENIN) == Scaled(b[i].KY, fresh.LENIN);
  });
  if (!same) return Match::none;
  return ByPhases(AllRows(a.size(), [&](std::size_t i) { return p.Number(a[i].PHASE) == q.Number(b[i].PHASE); }));
}

Match CompareModes(const ControlRecords& held, const ControlRecords& fresh) {
  const std::vector<WaveModeInput>& a = held.seaway.modes;
  const std::vector<WaveModeInput>& b = fresh.seaway.modes;
  const Scales p(held);
  const Scales q(fresh);
  if (a.size() != b.size() || p.Number(held.seaway.WAVE_HEAD) != q.Number(fresh.seaway.WAVE_HEAD)) return Match::none;
  const bool same = AllRows(a.size(), [&](std::size_t i) {
    return p.Frequency(a[i].MODE_FREQ) == q.Frequency(b[i].MODE_FREQ) &&
           p.Length(a[i].MODE_AMP) == q.Length(b[i].MODE_AMP);
  });
  if (!same) return Match::none;
  return ByPhases(
      AllRows(a.size(), [&](std::size_t i) { return p.Number(a[i].MODE_PHASE) == q.Number(b[i].MODE_PHASE); }));
}

// ---- Spectra

constexpr int kShortTable = 271;  // stored phase angles
constexpr int kLongTable = 1009;

struct SpectrumOptions {
  double cutoff = -1, freq1 = -1, freq2 = -1;
  int distribution = -1, spreading = -1, phases = -1;
  std::string phase_file;
};

// What decides frequencies, amplitudes and headings; what has no effect is 0.
struct SpectrumShape {
  std::array<float, 6> parameters{};
  float heading = 0, spread = 0;
  std::int64_t frequencies = 0, headings = 1;
  bool cos_fourth = false;
  std::array<float, 2> range{};
  float cutoff = 0;
  bool even_spacing = false;
  std::int64_t table = 0, table_start = 0;  // of the angles that move the frequencies; table 0: they stay
  bool operator==(const SpectrumShape&) const = default;
};

struct PhaseSource {
  std::int64_t table = 0;  // length of a stored one; 0: the generator; -1: a file
  std::string file;
  std::int64_t shift = 0;  // first entry, or the seed
  bool operator==(const PhaseSource&) const = default;
};

struct Spectrum {
  SpectrumShape shape;
  PhaseSource phases;
};

std::int64_t Wrapped(std::int64_t n, std::int64_t length) {
  return ((n % length) + length) % length;
}

std::array<float, 6> Parameters(const SeawayInput& sea, const InputScales& scales) {
  const auto length = [&](double value) { return Scaled(value, scales.length); };
  const auto time = [&](double value) { return Scaled(value, scales.time); };
  const auto number = [](double value) { return static_cast<float>(value); };
  switch (sea.ISEA) {
    case 2:  // without a period the height gives it
      return {length(sea.SIGWHT), time(std::max(0.0, sea.TMODAL))};
    case 6:
      return {Scaled(sea.VWIND10, scales.velocity), length(sea.FETCH), number(sea.PEAKPRM)};
    case 7: {
      const std::array<float, 3> one = {length(sea.SIGWHT1), time(sea.TMODAL1), number(sea.SHAPE1)};
      const std::array<float, 3> two = {length(sea.SIGWHT2), time(sea.TMODAL2), number(sea.SHAPE2)};
      if (!(sea.SIGWHT2 > 0)) return {one[0], one[1], one[2]};
      const bool swapped = sea.TMODAL2 > sea.TMODAL1;  // the lower frequency goes first
      const std::array<float, 3>& low = swapped ? two : one;
      const std::array<float, 3>& high = swapped ? one : two;
      return {low[0], low[1], low[2], high[0], high[1], high[2]};
    }
    default:
      return {length(sea.SIGWHT), time(sea.TOMODAL), number(sea.PEAKPRM)};
  }
}

// Half width of the fan where no spread is given: below this the headings cover it by a rule of their own.
constexpr double kLeastSpread = 1E-5;
constexpr double kDefaultCutoff = 0.001;

SpectrumShape ShapeOf(const SeawayInput& sea, const SpectrumOptions& options, const InputScales& scales) {
  SpectrumShape shape;
  shape.parameters = Parameters(sea, scales);
  shape.heading = static_cast<float>(sea.SEAHD);
  shape.frequencies = std::max(0, sea.NFREQ);
  shape.headings = std::max(1, sea.NHEAD) | 1;  // always odd
  if (shape.headings > 1) {
    shape.spread = sea.SPREAD > kLeastSpread ? static_cast<float>(sea.SPREAD) : 0.0F;
    shape.cos_fourth = options.spreading == 2;
  }
  if (options.freq2 > options.freq1)
    shape.range = {Scaled(options.freq1, scales.frequency), Scaled(options.freq2, scales.frequency)};
  else shape.cutoff = static_cast<float>(options.cutoff > 0 ? options.cutoff : kDefaultCutoff);
  shape.even_spacing = options.distribution == 1 || options.distribution == 3 || sea.IWVRLZ < 0;
  const bool moved = options.distribution == 2 || options.distribution == 3;
  if (moved && sea.NFREQ > 2) {  // the first and the last stay
    const bool short_table = options.phases == 1 || options.phases == 3 || options.phases == 4;
    shape.table = short_table ? kShortTable : kLongTable;
    const std::int64_t realization = std::abs(std::int64_t{sea.IWVRLZ});
    shape.table_start = Wrapped((realization - 1) * shape.frequencies, shape.table);
  }
  return shape;
}

PhaseSource PhasesOf(const SeawayInput& sea, const SpectrumOptions& options) {
  constexpr int kGenerator = 4;
  const std::int64_t realization = std::abs(std::int64_t{sea.IWVRLZ});
  if (options.phases == kGenerator) return {0, "", realization};
  const bool by_frequencies = options.phases == 2 || options.phases == 3;
  const std::int64_t shift = (realization - 1) * (by_frequencies ? std::max(0, sea.NFREQ) : 1);
  if (!options.phase_file.empty()) return {-1, options.phase_file, shift};
  const std::int64_t table = options.phases == 1 || options.phases == 3 ? kLongTable : kShortTable;
  return {table, "", Wrapped(shift, table)};
}

Spectrum SpectrumOf(const SeawayInput& sea, const SpectrumOptions& options, const InputScales& scales) {
  return {ShapeOf(sea, options, scales), PhasesOf(sea, options)};
}

SpectrumOptions OptionsOf(const ControlRecords& control) {
  SpectrumOptions options;
  options.cutoff = RealOption(control, {"SPEC_CUTOFF"});
  options.freq1 = RealOption(control, {"SPEC_FREQ1"});
  options.freq2 = RealOption(control, {"SPEC_FREQ2"});
  options.distribution = IntegerOption(control, {"SPEC_DISTOPT"});
  options.spreading = IntegerOption(control, {"SPEC_SPREADOPT"});
  options.phases = IntegerOption(control, {"SPEC_PHASEOPTION", "SPEC_PHASEOPT"});
  (void)FindOption(control, {"SPEC_PHASEFILE"}, options.phase_file);
  return options;
}

Match CompareSpectra(const Spectrum& held, const Spectrum& fresh) {
  return held.shape == fresh.shape ? ByPhases(held.phases == fresh.phases) : Match::none;
}

// ---- The second seaway

const ModuleText* SecondSeaway(const ControlRecords& control) {
  const auto module = std::find_if(control.modules.rbegin(), control.modules.rend(),
                                   [](const ModuleText& text) { return text.name == "ADDSEA"; });
  return module == control.modules.rend() ? nullptr : &*module;
}

struct DataLines {
  const std::vector<std::string>& lines;
  std::size_t next = 0;
};

ListLines::Next NextDataOf(void* self, std::string_view& line) {
  auto& text = *static_cast<DataLines*>(self);
  while (text.next < text.lines.size()) {
    const std::string& raw = text.lines[text.next++];
    if (IsCommentLine(raw)) continue;
    line = WithoutComment(raw);
    return ListLines::Next::line;
  }
  return ListLines::Next::end_of_file;
}

bool ReadKind(const ListLines& lines, SeawayInput& sea) {
  const auto list = [&](auto... items) {
    const std::array<ListItem, sizeof...(items)> all = {items...};
    return ReadList(lines, all) == ListStatus::ok;
  };
  switch (sea.ISEA) {
    case 2:
      return list(&sea.SIGWHT, &sea.TMODAL);
    case 6:
      return list(&sea.VWIND10, &sea.FETCH, &sea.PEAKPRM);
    case 7:
      return list(&sea.SIGWHT1, &sea.TMODAL1, &sea.SHAPE1, &sea.SIGWHT2, &sea.TMODAL2, &sea.SHAPE2);
    case 8:
      return list(&sea.SIGWHT, &sea.TOMODAL, &sea.PEAKPRM);
    default:
      return false;
  }
}

// False: not as such a module should be. Options that are missing at its end are not set.
bool ReadSecondSeaway(const ModuleText& module, SeawayInput& sea, SpectrumOptions& options) {
  DataLines text{module.lines};
  const ListLines lines{&text, NextDataOf};
  const ListItem kind[] = {&sea.ISEA};
  if (ReadList(lines, kind) != ListStatus::ok || !ReadKind(lines, sea)) return false;
  const ListItem row[] = {&sea.SEAHD, &sea.SPREAD, &sea.NFREQ, &sea.NHEAD, &sea.IWVRLZ};
  if (ReadList(lines, row) != ListStatus::ok) return false;
  const ListItem range[] = {&options.freq1, &options.freq2};
  ListStatus status = ReadList(lines, range);
  if (status != ListStatus::ok) return status == ListStatus::end_of_file;
  const ListItem choices[] = {&options.cutoff, &options.distribution, &options.spreading, &options.phases};
  status = ReadList(lines, choices);
  if (status != ListStatus::ok) return status == ListStatus::end_of_file;
  std::string_view name;
  if (NextDataOf(&text, name) == ListLines::Next::line) options.phase_file = TextField(name, kNameLength);
  return true;
}

Match CompareSecondSeaways(const ControlRecords& held, const ControlRecords& fresh) {
  const ModuleText* const a = SecondSeaway(held);
  const ModuleText* const b = SecondSeaway(fresh);
  if (a == nullptr || b == nullptr) return a == b ? Match::identical : Match::none;
  SeawayInput sea_a;
  SeawayInput sea_b;
  SpectrumOptions options_a;
  SpectrumOptions options_b;
  if (!ReadSecondSeaway(*a, sea_a, options_a) || !ReadSecondSeaway(*b, sea_b, options_b))
    return a->lines == b->lines ? Match::identical : Match::none;
  if (sea_a.ISEA != sea_b.ISEA) return Match::none;
  return CompareSpectra(SpectrumOf(sea_a, options_a, InputScalesOf(held)),
                        SpectrumOf(sea_b, options_b, InputScalesOf(fresh)));
}

Match ComparePrimary(const ControlRecords& held, const ControlRecords& fresh) {
  switch (held.seaway.ISEA) {
    case 0:
      return Match::identical;
    case 1:
    case 3:
      return CompareComponents(held, fresh);
    case 4:
      return CompareAlternative(held, fresh);
    case 5:
      return CompareModes(held, fresh);
    default:
      return CompareSpectra(SpectrumOf(held.seaway, OptionsOf(held), InputScalesOf(held)),
                            SpectrumOf(fresh.seaway, OptionsOf(fresh), InputScalesOf(fresh)));
  }
}

// Only beside these may a second seaway stand.
bool IsLinear(int ISEA) {
  return ISEA == 1 || ISEA == 2 || (ISEA >= 6 && ISEA <= 8);
}

}  // namespace

Match CompareSeaways(const ControlRecords& held, const ControlRecords& fresh) {
  if (held.seaway.ISEA != fresh.seaway.ISEA) return Match::none;
  const Match primary = ComparePrimary(held, fresh);
  if (primary == Match::none || !IsLinear(held.seaway.ISEA)) return primary;
  return std::min(primary, CompareSecondSeaways(held, fresh));
}

}  // namespace zaview
