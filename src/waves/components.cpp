#include "waves/components.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <numbers>

#include "base/grow.h"
#include "base/message.h"
#include "base/number_format.h"
#include "control/input_scales.h"
#include "control/options_lookup.h"
#include "control/spectrum_check.h"
#include "waves/headings.h"
#include "waves/phases.h"
#include "waves/spectra.h"

namespace zaview {
namespace {

inline constexpr std::string_view kNoComponents = "ERROR - wave components cannot be computed for ISEA= {}";
inline constexpr std::string_view kMemory = "ERR325 - Error allocating memory for the seaway";

constexpr int kGenerator = 4;  // SPEC_PHASEOPTION

bool IsLinear(int ISEA) {
  return ISEA == 1 || IsSpectrum(ISEA);
}

// Entry `index` of a list that repeats itself in both directions.
float Wrapped(std::span<const float> list, std::int64_t index) {
  const auto n = static_cast<std::int64_t>(list.size());
  return list[static_cast<std::size_t>(((index % n) + n) % n)];
}

std::int64_t Realization(const SeawayInput& input) {
  return std::abs(std::int64_t{input.IWVRLZ}) - 1;
}

// Moves the inner frequencies by the angles of a table.
void Perturb(const Spectrum& spectrum, const SeawayInput& input, int phase_option, Frequencies& f) {
  constexpr double kShare = 0.4;  // of the width, at the largest angle
  const bool short_table = phase_option == 1 || phase_option == 3 || phase_option == kGenerator;
  const std::span<const float> table = short_table ? PhaseTable271() : PhaseTable1009();
  const std::size_t n = f.w.size();
  for (std::size_t i = 1; i + 1 < n; ++i) {
    const float angle =
        Wrapped(table, Realization(input) * static_cast<std::int64_t>(n) + static_cast<std::int64_t>(i));
    f.w[i] += f.width[i] * kShare * static_cast<double>(angle) / 180.0;
  }
  FindWidths(f.w, f.width);
  for (std::size_t i = 0; i < n; ++i) f.S[i] = SpectrumAt(spectrum, f.w[i]);
}

struct PhaseSource {
  std::span<const float> list;  // empty: the generator
  std::int64_t shift = 0;
};

PhaseSource SourceOf(const SeawayInput& input, int option, std::span<const float> phases) {
  if (option == kGenerator) return {};
  PhaseSource source;
  source.list = option == 1 || option == 3 ? PhaseTable1009() : PhaseTable271();
  if (!phases.empty()) source.list = phases;
  const bool by_frequencies = option == 2 || option == 3;
  source.shift = Realization(input) * (by_frequencies ? input.NFREQ : 1);
  return source;
}

bool GrowComponents(WaveComponents& waves, std::size_t n) {
  for (std::vector<float>* list : {&waves.FREQW, &waves.PHASEW, &waves.AMPW0, &waves.HEADW})
    if (!Grow(*list, n)) return false;
  return true;
}

void AddScaling(const ControlRecords& records, const InputScales& scales, WaveScaling& scaling) {
  scaling.WSCSTP.assign(records.seaway.WSCSTP.begin(), records.seaway.WSCSTP.end());
  scaling.WSCFAC = records.seaway.WSCFAC;
  scaling.TINIT = records.TINIT * scales.time;
  scaling.DTH = records.DTH * scales.time;
}

bool AddListed(const SeawayInput& input, const InputScales& scales, WaveComponents& waves) {
  if (!GrowComponents(waves, input.waves.size())) return false;
  for (std::size_t i = 0; i < input.waves.size(); ++i) {
    const WaveComponentInput& wave = input.waves[i];
    waves.FREQW[i] = static_cast<float>(wave.FREQW * scales.frequency);
    waves.PHASEW[i] = static_cast<float>(wave.PHASEW);
    waves.AMPW0[i] = static_cast<float>(wave.AMPW0 * scales.length);
    waves.HEADW[i] = static_cast<float>(wave.HEADW);
  }
  return true;
}

bool AddAlternative(const ControlRecords& records, const InputScales& scales, AlternativeWaves& out) {
  const SeawayInput& input = records.seaway;
  out.WAVEDIM1 = input.WAVEDIM1;
  out.WAVEDIM2 = input.WAVEDIM2;
  for (std::vector<float>* list : {&out.KX, &out.KY, &out.AMP, &out.PHASE, &out.FREQ, &out.HEAD})
    if (!Grow(*list, input.alternative.size())) return false;
  for (std::size_t i = 0; i < input.alternative.size(); ++i) {
    const AlternativeWaveInput& wave = input.alternative[i];
    out.KX[i] = static_cast<float>(wave.KX * records.LENIN);
    out.KY[i] = static_cast<float>(wave.KY * records.LENIN);
    out.AMP[i] = static_cast<float>(wave.AMP * scales.length);
    out.PHASE[i] = static_cast<float>(wave.PHASE);
    out.FREQ[i] = static_cast<float>(wave.FREQ * scales.frequency);
    out.HEAD[i] = static_cast<float>(wave.HEAD);
  }
  return true;
}

bool AddModes(const SeawayInput& input, const InputScales& scales, WaveModes& out) {
  out.WAVE_HEAD = static_cast<float>(input.WAVE_HEAD);
  for (std::vector<float>* list : {&out.MODE_AMP, &out.MODE_PHASE, &out.MODE_FREQ})
    if (!Grow(*list, input.modes.size())) return false;
  for (std::size_t i = 0; i < input.modes.size(); ++i) {
    out.MODE_AMP[i] = static_cast<float>(input.modes[i].MODE_AMP * scales.length);
    out.MODE_PHASE[i] = static_cast<float>(input.modes[i].MODE_PHASE);
    out.MODE_FREQ[i] = static_cast<float>(input.modes[i].MODE_FREQ * scales.frequency);
  }
  return true;
}

SeawayFault AddSpectral(const Console& console, const SeawayInput& input, const SpectrumOptions& options,
                        std::span<const float> phases, const ControlRecords& records, const InputScales& scales,
                        WaveComponents& waves) {
  std::vector<double> sppt;
  const SeawayFault fault =
      SetupWaveComponents(input, options, phases, records.GRAVIN, {scales.length, scales.frequency}, waves, &sppt);
  for (const double ratio : sppt) Trace(console, "sppt= {:.7g}", ratio);
  return fault;
}

// The kinds in their own lists; a spectrum becomes components.
SeawayFault AddPrimary(const Console& console, const ControlRecords& records, const InputScales& scales,
                       const PhaseLists& phases, Seaway& seaway) {
  const SeawayInput& input = records.seaway;
  bool added = true;
  switch (input.ISEA) {
    case 0:
      return SeawayFault::none;
    case 1:
    case 3:
      added = AddListed(input, scales, seaway.waves);
      break;
    case 4:
      added = AddAlternative(records, scales, seaway.alternative);
      break;
    case 5:
      added = AddModes(input, scales, seaway.modes);
      break;
    case 2:
    case 6:
    case 7:
    case 8:
      return AddSpectral(console, input, PrimaryOptions(records), phases.primary, records, scales, seaway.waves);
    default:
      return SeawayFault::bad_seaway;
  }
  return added ? SeawayFault::none : SeawayFault::out_of_memory;
}

// ---- The packed record

struct RecordReader {
  std::span<const float> record;
  std::size_t next = 0;
  bool ended = false;
  float Take() {
    ended = ended || next >= record.size();
    return ended ? 0.0F : record[next++];
  }
  // A count of entries of `reals` each, which must all be there.
  std::size_t Count(double count, std::size_t reals) {
    const double left = static_cast<double>(record.size() - std::min(next, record.size()));
    if (!(count >= 0) || !(count * static_cast<double>(reals) <= left)) {
      ended = true;
      return 0;
    }
    return static_cast<std::size_t>(count);
  }
};

struct RecordScales {
  double L = 1, frequency = 1;
};

bool UnpackComponents(RecordReader& in, std::size_t count, RecordScales scales, WaveComponents& waves) {
  if (!GrowComponents(waves, count)) return false;
  for (std::size_t i = 0; i < count; ++i) {
    waves.FREQW[i] = static_cast<float>(static_cast<double>(in.Take()) * scales.frequency);
    waves.PHASEW[i] = in.Take();
    waves.AMPW0[i] = static_cast<float>(static_cast<double>(in.Take()) / scales.L);
    waves.HEADW[i] = in.Take();
  }
  return true;
}

bool UnpackAlternative(RecordReader& in, RecordScales scales, AlternativeWaves& out) {
  const double first = static_cast<double>(in.Take());
  const double second = static_cast<double>(in.Take());
  if (!(first >= 0) || !(second >= 0)) return false;
  const std::size_t count = in.Count(first * second, 6);
  if (in.ended) return false;
  out.WAVEDIM1 = static_cast<int>(first);
  out.WAVEDIM2 = static_cast<int>(second);
  for (std::vector<float>* list : {&out.KX, &out.KY, &out.AMP, &out.PHASE, &out.FREQ, &out.HEAD})
    if (!Grow(*list, count)) return false;
  for (std::size_t i = 0; i < count; ++i) {
    out.KX[i] = static_cast<float>(static_cast<double>(in.Take()) * scales.L);
    out.KY[i] = static_cast<float>(static_cast<double>(in.Take()) * scales.L);
    out.AMP[i] = static_cast<float>(static_cast<double>(in.Take()) / scales.L);
    out.PHASE[i] = in.Take();
    out.FREQ[i] = static_cast<float>(static_cast<double>(in.Take()) * scales.frequency);
    out.HEAD[i] = in.Take();
  }
  return true;
}

bool UnpackModes(RecordReader& in, RecordScales scales, WaveModes& out) {
  const std::size_t count = in.Count(static_cast<double>(in.Take()), 3);
  out.WAVE_HEAD = in.Take();
  for (std::vector<float>* list : {&out.MODE_AMP, &out.MODE_PHASE, &out.MODE_FREQ})
    if (!Grow(*list, count)) return false;
  for (std::size_t i = 0; i < count; ++i) {
    out.MODE_AMP[i] = static_cast<float>(static_cast<double>(in.Take()) / scales.L);
    out.MODE_PHASE[i] = in.Take();
    out.MODE_FREQ[i] = static_cast<float>(static_cast<double>(in.Take()) * scales.frequency);
  }
  return !in.ended;
}

bool UnpackKind(RecordReader& in, int ISEA, RecordScales scales, Seaway& seaway) {
  if (IsLinear(ISEA)) {
    seaway.ISEA = 1;
    const std::size_t count = in.Count(static_cast<double>(in.Take()), 4);
    return !in.ended && UnpackComponents(in, count, scales, seaway.waves);
  }
  if (ISEA == 3) {
    seaway.WSPEC = static_cast<int>(std::clamp(in.Take(), 0.0F, 5.0F));
    return UnpackComponents(in, 1, scales, seaway.waves) && !in.ended;
  }
  if (ISEA == 4) return UnpackAlternative(in, scales, seaway.alternative);
  if (ISEA == 5) return UnpackModes(in, scales, seaway.modes);
  seaway.ISEA = 0;  // anything else has no components
  return true;
}

bool GravityIsGood(const Console& console, float g, double gravity) {
  if (!(g > 0.0F)) {
    Say(console, "ERROR in SetSpectrum : illegal value for gravity constant= {}", Shown{g});
    return false;
  }
  const double off = std::abs(static_cast<double>(g) - gravity) / gravity;
  if (!(off <= 0.1)) {
    Say(console, "ERROR in SetSpectrum : gravity constant in seaway definition = {}", Shown{g});
    Say(console, "             does not match gravity constant in simulation setup  = {}",
        Shown{static_cast<float>(gravity)});
    return false;
  }
  if (off > 0.01) {
    Say(console, "WARNING in SetSpectrum : gravity constant in seaway definition = {}", Shown{g});
    Say(console, "         does not exactly match gravity constant in simulation setup  = {}",
        Shown{static_cast<float>(gravity)});
  }
  return true;
}

}  // namespace

SpectrumOptions PrimaryOptions(const ControlRecords& records) {
  SpectrumOptions options;
  options.SPEC_CUTOFF = RealOption(records, {"SPEC_CUTOFF"});
  options.SPEC_FREQ1 = RealOption(records, {"SPEC_FREQ1"});
  options.SPEC_FREQ2 = RealOption(records, {"SPEC_FREQ2"});
  options.SPEC_DISTOPT = IntegerOption(records, {"SPEC_DISTOPT"});
  options.SPEC_SPREADOPT = IntegerOption(records, {"SPEC_SPREADOPT"});
  options.SPEC_PHASEOPTION = IntegerOption(records, {"SPEC_PHASEOPTION", "SPEC_PHASEOPT"});
  return options;
}

SpectrumOptions AddedOptions(const AddedSeawayInput& added) {
  return {added.SPEC_CUTOFF,  added.SPEC_FREQ[0],   added.SPEC_FREQ[1],
          added.SPEC_DISTOPT, added.SPEC_SPREADOPT, added.SPEC_PHASEOPTION};
}

SeawayFault SetupWaveComponents(const SeawayInput& input, const SpectrumOptions& options, std::span<const float> phases,
                                double g, ComponentScales scales, WaveComponents& waves, std::vector<double>* sppt) {
  Spectrum spectrum;
  Frequencies f;
  Headings headings;
  FrequencyRequest request;
  request.NFREQ = input.NFREQ;
  request.even_spacing = options.SPEC_DISTOPT == 1 || options.SPEC_DISTOPT == 3 || input.IWVRLZ < 0;
  request.cutoff = options.SPEC_CUTOFF;
  request.freq1 = options.SPEC_FREQ1;
  request.freq2 = options.SPEC_FREQ2;
  if (!MakeSpectrum(input, g, spectrum) || !SPECTR(spectrum, request, f)) return SeawayFault::bad_seaway;
  if (sppt != nullptr) *sppt = f.sppt;
  if (options.SPEC_DISTOPT == 2 || options.SPEC_DISTOPT == 3) Perturb(spectrum, input, options.SPEC_PHASEOPTION, f);
  if (!LayHeadings(input.NHEAD, input.SPREAD, options.SPEC_SPREADOPT, headings)) return SeawayFault::out_of_memory;

  const std::size_t before = waves.size();
  const std::size_t count = f.w.size() * headings.offset.size();
  if (!GrowComponents(waves, before + count)) return SeawayFault::out_of_memory;
  const PhaseSource source = SourceOf(input, options.SPEC_PHASEOPTION, phases);
  PhaseGenerator generator(input.IWVRLZ);
  std::size_t n = 0;
  for (std::size_t j = 0; j < headings.offset.size(); ++j) {
    const double heading = headings.offset[j] * 180.0 / std::numbers::pi + input.SEAHD;
    for (std::size_t i = 0; i < f.w.size(); ++i, ++n) {
      const std::size_t at = before + n;
      const double energy = 2.0 * f.S[i] * headings.share[j] * f.width[i];
      waves.FREQW[at] = static_cast<float>(f.w[i] * scales.frequency);
      waves.AMPW0[at] = static_cast<float>(std::sqrt(std::max(0.0, energy)) * scales.length);
      waves.HEADW[at] = static_cast<float>(heading);
      waves.PHASEW[at] =
          source.list.empty() ? generator.Next() : Wrapped(source.list, static_cast<std::int64_t>(n) + source.shift);
    }
  }
  return SeawayFault::none;
}

SeawayFault GetZAVOSeaway(const Console& console, const ControlRecords& records, const PhaseLists& phases,
                          Seaway& seaway) {
  seaway = Seaway{};
  const InputScales scales = InputScalesOf(records);
  const int ISEA = records.seaway.ISEA;
  seaway.ISEA = IsLinear(ISEA) ? 1 : ISEA;
  seaway.WSPEC = ISEA == 3 ? records.seaway.WSPEC : 0;
  seaway.WDEPTH = records.WDEPTH * scales.length;
  AddScaling(records, scales, seaway.scaling);
  SeawayFault fault = AddPrimary(console, records, scales, phases, seaway);
  if (fault == SeawayFault::none && IsLinear(ISEA) && !records.added_seaway.empty()) {
    const AddedSeawayInput& added = records.added_seaway.front();
    fault = AddSpectral(console, added.sea, AddedOptions(added), phases.added, records, scales, seaway.waves);
  }
  if (fault == SeawayFault::bad_seaway) Say(console, kNoComponents, ISEA);
  if (fault == SeawayFault::out_of_memory) SayLine(console, kMemory);
  return fault;
}

bool SetSpectrum(const Console& console, std::span<const float> record, double gravity, double length, Seaway& seaway) {
  RecordReader in{record};
  const float kind = in.Take();
  const float g = in.Take();
  const float depth = in.Take();
  if (!GravityIsGood(console, g, gravity)) return false;
  Seaway unpacked;
  unpacked.scaling = seaway.scaling;
  unpacked.ISEA = static_cast<int>(std::clamp(kind, -1.0F, 100.0F));
  unpacked.WDEPTH = static_cast<double>(depth) / length;
  const RecordScales scales{length, std::sqrt(length / static_cast<double>(g))};
  if (!UnpackKind(in, unpacked.ISEA, scales, unpacked) || in.ended) {
    SayLine(console, "ERROR in SetSpectrum : seaway definition is incomplete");
    return false;
  }
  seaway = std::move(unpacked);
  return true;
}

}  // namespace zaview
