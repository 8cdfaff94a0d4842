#include <cmath>
#include <iterator>
#include <vector>

#include <fmt/format.h>

#include "base/grow.h"
#include "base/number_format.h"
#include "waves/kino_sea.h"

namespace zaview {
namespace {

constexpr std::string_view kTableHead = "    Frequency      Phase (deg)    Amplitude     Heading (deg)";
constexpr std::string_view kGridHead =
    "       KX             KY         Amplitude      Phase (deg)    Frequency     Heading (deg)";
constexpr std::string_view kModeHead = "    Amplitude     Phase (deg)    Frequency";
constexpr std::string_view kFirst = "Wave components computed from a ";
constexpr std::string_view kAdded = "Plus wave components computed from a ";
constexpr std::string_view kAddedByHeight = "plus wave components computed from a ";  // deliberate: JONSWAP by height

constexpr double kUsualGravity = 9.81;  // what a reader takes if it is told nothing
constexpr double kSameGravity = 0.001;  // of it

// From input units to those of the file.
struct FileScales {
  double length = 1, time = 1, speed = 1;
};
FileScales ScalesOf(const ControlRecords& records, KinoSeaUnits units) {
  const double length = units.L / records.LENIN;
  const double gravity = units.g / records.GRAVIN;
  return {length, std::sqrt(length / gravity), std::sqrt(length * gravity)};
}

std::string Number(double value) {
  return SentenceNumber(static_cast<float>(value));
}

using Lines = std::vector<std::string>;

void TellOchiMode(const std::string& height, const std::string& period, double shape, std::string_view mode,
                  Lines& lines) {
  lines.push_back(fmt::format("with significant wave height= {}, modal period= {}{}", height, period, mode));
  lines.push_back(fmt::format("and shape parameter= {}{}", Number(shape), mode));
}

void TellSpectrum(const SeawayInput& sea, const FileScales& scales, std::string_view lead, Lines& lines) {
  const auto height = [&](double H) { return Number(H * scales.length); };
  const auto period = [&](double T) { return Number(T * scales.time); };
  if (sea.ISEA == 2 && !(sea.TMODAL > 0)) {
    lines.push_back(fmt::format("{}Pierson-Moskowitz one-parameter spectrum", lead));
    lines.push_back(fmt::format("with significant wave height= {}", height(sea.SIGWHT)));
  } else if (sea.ISEA == 2) {
    lines.push_back(fmt::format("{}Bretschneider two-parameter spectrum", lead));
    lines.push_back(
        fmt::format("with significant wave height= {} and modal period= {}", height(sea.SIGWHT), period(sea.TMODAL)));
  } else if (sea.ISEA == 6) {
    lines.push_back(fmt::format("{}JONSWAP three-parameter spectrum", lead));
    lines.push_back(fmt::format("with Wind speed= {}, fetch= {}", Number(sea.VWIND10 * scales.speed),
                                Number(sea.FETCH * scales.length)));
    lines.push_back(fmt::format("and peakedness parameter= {}", Number(sea.PEAKPRM)));
  } else if (sea.ISEA == 7) {
    const bool two = sea.SIGWHT2 > 0;
    lines.push_back(fmt::format("{}OCHI {}-parameter spectrum", lead, two ? "six" : "three"));
    TellOchiMode(height(sea.SIGWHT1), period(sea.TMODAL1), sea.SHAPE1, two ? " (1st mode)" : "", lines);
    if (two) TellOchiMode(height(sea.SIGWHT2), period(sea.TMODAL2), sea.SHAPE2, " (2nd mode)", lines);
  } else {
    lines.push_back(fmt::format("{}JONSWAP three-parameter spectrum", lead));
    lines.push_back(
        fmt::format("with significant wave height= {}, modal period= {}", height(sea.SIGWHT), period(sea.TOMODAL)));
    lines.push_back(fmt::format("and peakedness parameter= {}", Number(sea.PEAKPRM)));
  }
}

void TellKind(const ControlRecords& records, const Seaway& seaway, const FileScales& scales, Lines& lines) {
  const SeawayInput& sea = records.seaway;
  if (seaway.ISEA == 0) {
    lines.emplace_back("Calm Water (no incident wave)");
  } else if (seaway.ISEA == 3) {
    lines.push_back(fmt::format("Regular stokes wave of order {}", seaway.WSPEC));
    lines.emplace_back(" NOTE: frequency is nominal (input) frequency");
  } else if (seaway.ISEA == 4) {
    lines.emplace_back("Linear wave (old MIT recon format)");
  } else if (seaway.ISEA == 5) {
    lines.emplace_back("Long-crested 2nd order Stokes wave");
  } else if (sea.ISEA == 1 || sea.ISEA == 0 || sea.ISEA == 3) {
    lines.emplace_back("Specified linear wave components");
  } else {
    TellSpectrum(sea, scales, kFirst, lines);
  }
  if (records.added_seaway.empty()) return;
  const SeawayInput& added = records.added_seaway.front().sea;
  TellSpectrum(added, scales, added.ISEA == 8 ? kAddedByHeight : kAdded, lines);
}

// Nine digits: a 4-byte value comes back as it was, but for the conversion of its units. The longest fill their column:
// the blank ahead keeps them apart.
template <typename... Values>
void AppendRow(std::string& text, Values... values) {
  (fmt::format_to(std::back_inserter(text), " {:>14.9g}", values), ...);
  text += '\n';
}

void AppendData(const Seaway& seaway, KinoSeaUnits units, std::string& text) {
  const double frequency = std::sqrt(units.g / units.L);
  const auto real = [](float value) { return static_cast<double>(value); };
  const WaveComponents& waves = seaway.waves;
  const AlternativeWaves& alternative = seaway.alternative;
  const WaveModes& modes = seaway.modes;
  for (std::size_t i = 0; i < waves.size(); ++i)
    AppendRow(text, real(waves.FREQW[i]) * frequency, real(waves.PHASEW[i]), real(waves.AMPW0[i]) * units.L,
              real(waves.HEADW[i]));
  for (std::size_t i = 0; i < alternative.KX.size(); ++i)
    AppendRow(text, real(alternative.KX[i]) / units.L, real(alternative.KY[i]) / units.L,
              real(alternative.AMP[i]) * units.L, real(alternative.PHASE[i]), real(alternative.FREQ[i]) * frequency,
              real(alternative.HEAD[i]));
  for (std::size_t i = 0; i < modes.MODE_AMP.size(); ++i)
    AppendRow(text, real(modes.MODE_AMP[i]) * units.L, real(modes.MODE_PHASE[i]), real(modes.MODE_FREQ[i]) * frequency);
}

KinoSeaKind KindToWrite(const Seaway& seaway, bool always_a_list) {
  switch (seaway.ISEA) {
    case 0:
      return KinoSeaKind::calm;
    case 3:
      return KinoSeaKind::stokes;
    case 4:
      return KinoSeaKind::grid;
    case 5:
      return KinoSeaKind::second_order;
    default:
      return seaway.waves.size() == 1 && !always_a_list ? KinoSeaKind::regular : KinoSeaKind::superposition;
  }
}

// The kind number and the counts ahead of the rows.
void AppendKind(const Seaway& seaway, KinoSeaKind kind, std::string& text) {
  const auto out = std::back_inserter(text);
  fmt::format_to(out, "{}\n", static_cast<int>(kind));
  switch (kind) {
    case KinoSeaKind::calm:
    case KinoSeaKind::regular:
      break;
    case KinoSeaKind::stokes:
      fmt::format_to(out, "{}\n", seaway.WSPEC);
      break;
    case KinoSeaKind::superposition:
      fmt::format_to(out, "{}\n", seaway.waves.size());
      break;
    case KinoSeaKind::grid:
      fmt::format_to(out, "{} {}\n", seaway.alternative.WAVEDIM1, seaway.alternative.WAVEDIM2);
      break;
    case KinoSeaKind::second_order:
      fmt::format_to(out, "{} {}\n", seaway.modes.MODE_AMP.size(), Number(static_cast<double>(seaway.modes.WAVE_HEAD)));
      break;
  }
}

std::string_view HeadOf(int ISEA) {
  if (ISEA == 0) return {};
  return ISEA == 4 ? kGridHead : ISEA == 5 ? kModeHead : kTableHead;
}

// Words for whoever reads the file. The options among them are read again: -depth and -wave_scale make the seaway.
void AppendClosing(const Seaway& seaway, KinoSeaUnits units, std::string& text) {
  const auto out = std::back_inserter(text);
  const bool own_gravity = std::fabs(units.g - kUsualGravity) > kSameGravity * kUsualGravity;
  text += "\nRead this file with the -sea option";
  text += own_gravity ? " and gravity set via:\n" : "\n";
  if (own_gravity) fmt::format_to(out, "-grav {}\n", Number(units.g));
  if (seaway.WDEPTH > 0)
    fmt::format_to(out, " and water depth set via:\n{} {}\n", kKinoDepthOption, Number(seaway.WDEPTH * units.L));
  const WaveScaling& scaling = seaway.scaling;
  if (scaling.WSCSTP.empty()) return;
  text += "To duplicate wave scaling, use the KINO option:\n";
  text += kKinoScaleOption;
  for (std::size_t i = 0; i < scaling.WSCSTP.size(); ++i) {
    const double time = scaling.TINIT + (scaling.WSCSTP[i] - 1.0) * scaling.DTH;
    fmt::format_to(out, " {} {}", Number(time * std::sqrt(units.L / units.g)), Number(scaling.WSCFAC[i]));
  }
  text += '\n';
}

}  // namespace

bool KINOSE(const ControlRecords& records, const Seaway& seaway, KinoSeaUnits units, std::string_view name,
            std::string& text, const KinoSeaForm& form) {
  const auto append = [&] {
    Lines comments{fmt::format("Seaway file from {}", name)};
    TellKind(records, seaway, ScalesOf(records, units), comments);
    comments.insert(comments.end(), form.comments.begin(), form.comments.end());
    if (!HeadOf(seaway.ISEA).empty()) comments.emplace_back(HeadOf(seaway.ISEA));
    text = fmt::format("{}\n", comments.size());
    for (const std::string& line : comments) text += line + '\n';
    AppendKind(seaway, KindToWrite(seaway, form.always_a_list), text);
    AppendData(seaway, units, text);
    AppendClosing(seaway, units, text);
    return true;
  };
  return Guarded(append, false);
}

}  // namespace zaview
