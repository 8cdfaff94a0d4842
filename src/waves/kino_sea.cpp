#include "waves/kino_sea.h"

#include <cmath>
#include <iterator>
#include <vector>

#include <fmt/format.h>

#include "base/grow.h"
#include "base/line_source.h"
#include "base/list_read.h"
#include "base/message.h"
#include "base/number_format.h"
#include "base/number_parse.h"
#include "base/text.h"
#include "waves/components.h"

namespace zaview {
namespace {

// ---- Writing

constexpr std::string_view kTableHead = "    Frequency      Phase (deg)    Amplitude     Heading (deg)";
constexpr std::string_view kGridHead =
    "       KX             KY         Amplitude      Phase (deg)    Frequency     Heading (deg)";
constexpr std::string_view kModeHead = "    Amplitude     Phase (deg)    Frequency";
constexpr std::string_view kDepthOption = "-depth";
constexpr std::string_view kScaleOption = "-wave_scale";
constexpr std::string_view kFirst = "Wave components computed from a ";
constexpr std::string_view kAdded = "Plus wave components computed from a ";
constexpr std::string_view kAddedByHeight = "plus wave components computed from a ";  // deliberate: JONSWAP by height

enum Kind : int { calm = 0, regular = 1, stokes = 2, superposition = 3, grid = 4, second_order = -1 };

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

// The kind number and the counts ahead of the rows.
void AppendKind(const Seaway& seaway, bool always_a_list, std::string& text) {
  const auto out = std::back_inserter(text);
  switch (seaway.ISEA) {
    case 0:
      fmt::format_to(out, "{}\n", static_cast<int>(calm));
      break;
    case 3:
      fmt::format_to(out, "{}\n{}\n", static_cast<int>(stokes), seaway.WSPEC);
      break;
    case 4:
      fmt::format_to(out, "{}\n{} {}\n", static_cast<int>(grid), seaway.alternative.WAVEDIM1,
                     seaway.alternative.WAVEDIM2);
      break;
    case 5:
      fmt::format_to(out, "{}\n{} {}\n", static_cast<int>(second_order), seaway.modes.MODE_AMP.size(),
                     Number(static_cast<double>(seaway.modes.WAVE_HEAD)));
      break;
    default:
      if (seaway.waves.size() == 1 && !always_a_list) fmt::format_to(out, "{}\n", static_cast<int>(regular));
      else fmt::format_to(out, "{}\n{}\n", static_cast<int>(superposition), seaway.waves.size());
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
    fmt::format_to(out, " and water depth set via:\n{} {}\n", kDepthOption, Number(seaway.WDEPTH * units.L));
  const WaveScaling& scaling = seaway.scaling;
  if (scaling.WSCSTP.empty()) return;
  text += "To duplicate wave scaling, use the KINO option:\n";
  text += kScaleOption;
  for (std::size_t i = 0; i < scaling.WSCSTP.size(); ++i) {
    const double time = scaling.TINIT + (scaling.WSCSTP[i] - 1.0) * scaling.DTH;
    fmt::format_to(out, " {} {}", Number(time * std::sqrt(units.L / units.g)), Number(scaling.WSCFAC[i]));
  }
  text += '\n';
}

// ---- Reading

constexpr std::string_view kReading = "Reading KINO seaway file {}";
constexpr std::string_view kNoCount = "ERROR - Could not parse number of wave components from KINO file";
constexpr std::string_view kFault = "ERROR reading KINO seaway file";
constexpr std::string_view kCorrupted = "      Wave definition may be corrupted";
constexpr std::string_view kUnchanged = "      Wave definition unchanged";
constexpr std::string_view kDepthTaken = "Water depth= {}";
constexpr std::string_view kScalingTaken = "Wave scaling at {} times";
constexpr std::size_t kMostEntries = 10'000'000;

struct SeaText {
  LineSource source;
  bool in_data = false;  // lines that don't begin with a number are passed over until the data has begun
};

bool BeginsNumber(std::string_view line) {
  line = TrimStart(line);
  return !line.empty() && line.find_first_of("0123456789+-.") == 0;
}

ListLines::Next NextSeaLine(void* self, std::string_view& line) {
  SeaText& text = *static_cast<SeaText*>(self);
  while (NextRawLine(text.source, line)) {
    if (!text.in_data && !BeginsNumber(line)) continue;
    text.in_data = true;
    return ListLines::Next::line;
  }
  return ListLines::Next::end_of_file;
}

bool ReadInteger(const ListLines& lines, int& value) {
  return ReadIntegers(lines, {&value, 1}) == ListStatus::ok;
}

// `rows` rows of `reals` each, behind what the record holds.
bool TakeRows(const ListLines& lines, std::size_t rows, std::size_t reals, std::vector<float>& record) {
  std::vector<double> row(reals);
  for (std::size_t i = 0; i < rows; ++i) {
    if (ReadReals(lines, row) != ListStatus::ok || !Grow(record, record.size() + reals)) return false;
    for (std::size_t j = 0; j < reals; ++j) record[record.size() - reals + j] = static_cast<float>(row[j]);
  }
  return true;
}

bool IsCount(double count) {
  return count >= 0 && count <= static_cast<double>(kMostEntries);
}

struct KindReader {
  const Console& console;
  const ListLines& lines;
  std::vector<float>& record;  // ISEA, gravity, depth, then the data as SetSpectrum takes it
};

bool ReadSuperposition(KindReader& in) {
  int n = 0;
  if (!ReadInteger(in.lines, n) || !IsCount(n)) {
    SayLine(in.console, kNoCount);
    return false;
  }
  Say(in.console, "Superposition of {} regular linear waves", n);
  in.record.push_back(static_cast<float>(n));
  return TakeRows(in.lines, static_cast<std::size_t>(n), 4, in.record);
}

bool ReadGrid(KindReader& in) {
  SayLine(in.console, "Linear wave (old MIT recon style)");
  int n[2] = {0, 0};
  if (ReadIntegers(in.lines, n) != ListStatus::ok || n[0] < 0 || n[1] < 0) return false;
  if (!IsCount(static_cast<double>(n[0]) * n[1])) return false;
  in.record.push_back(static_cast<float>(n[0]));
  in.record.push_back(static_cast<float>(n[1]));
  return TakeRows(in.lines, static_cast<std::size_t>(n[0]) * static_cast<std::size_t>(n[1]), 6, in.record);
}

bool ReadModes(KindReader& in) {
  SayLine(in.console, "Long crested 2nd order Stokes wave");
  int n = 0;
  double heading = 0;
  const ListItem items[] = {&n, &heading};
  if (ReadList(in.lines, items) != ListStatus::ok || !IsCount(n)) return false;
  in.record.push_back(static_cast<float>(n));
  in.record.push_back(static_cast<float>(heading));
  return TakeRows(in.lines, static_cast<std::size_t>(n), 3, in.record);
}

bool ReadStokes(KindReader& in) {
  SayLine(in.console, "Regular stokes wave");
  int order = 0;
  if (!ReadInteger(in.lines, order) || order < 0 || order > 5) return false;
  in.record.push_back(static_cast<float>(order));
  return TakeRows(in.lines, 1, 4, in.record);
}

bool ReadRegular(KindReader& in) {
  SayLine(in.console, "Regular linear wave");
  in.record.push_back(1.0F);
  return TakeRows(in.lines, 1, 4, in.record);
}

bool ReadCalm(KindReader& in) {
  SayLine(in.console, "Calm Water");
  return true;
}

struct KindRow {
  int kind;
  float ISEA;
  bool (*read)(KindReader& in);
};
constexpr KindRow kKinds[] = {
    {calm, 0, ReadCalm}, {regular, 1, ReadRegular},    {stokes, 3, ReadStokes}, {superposition, 1, ReadSuperposition},
    {grid, 4, ReadGrid}, {second_order, 5, ReadModes},
};

const KindRow* FindKind(int kind) {
  for (const KindRow& row : kKinds)
    if (row.kind == kind) return &row;
  return nullptr;
}

// The count, the comments and the kind number; null: they can't be read.
const KindRow* ReadHead(const Console& console, SeaText& text, const ListLines& lines) {
  int comments = 0;
  if (!ReadInteger(lines, comments) || comments < 0) return nullptr;
  for (int i = 0; i < comments; ++i) {
    std::string_view line;
    if (!NextRawLine(text.source, line)) return nullptr;
    Say(console, "Comment line: {}", line);
  }
  int kind = 0;
  const bool read = ReadInteger(lines, kind);
  return read ? FindKind(kind) : nullptr;
}

KinoSeaStatus Fail(const Console& console, bool kind_taken) {
  SayLine(console, kFault);
  SayLine(console, kind_taken ? kCorrupted : kUnchanged);
  return kind_taken ? KinoSeaStatus::corrupted : KinoSeaStatus::unchanged;
}

// The numbers behind the option that a line begins with, as far as they are numbers; false: another line.
bool OptionNumbers(std::string_view line, std::string_view option, std::vector<double>& numbers) {
  line = TrimStart(line);
  if (!StartsWith(line, option)) return false;
  line.remove_prefix(option.size());
  numbers.clear();
  for (;;) {
    line = TrimStart(line);
    const std::string_view word = line.substr(0, line.find_first_of(" \t\r,"));
    double value = 0;
    if (word.empty() || !ParseDouble(word, value) || !std::isfinite(value) || !Grow(numbers, numbers.size() + 1)) break;
    numbers.back() = value;
    line.remove_prefix(word.size());
  }
  return true;
}

// What is no number there leaves the sea as it is: the file may be anybody's.
void TakeClosing(const Console& console, SeaText& text, KinoSeaUnits units, Seaway& seaway) {
  const double second = std::sqrt(units.g / units.L);
  std::vector<double> numbers;
  std::string_view line;
  while (NextRawLine(text.source, line)) {
    if (OptionNumbers(line, kDepthOption, numbers) && !numbers.empty() && numbers[0] > 0) {
      seaway.WDEPTH = numbers[0] / units.L;
      Say(console, kDepthTaken, Number(numbers[0]));
    }
    if (!OptionNumbers(line, kScaleOption, numbers) || numbers.size() < 2 || numbers.size() % 2 != 0) continue;
    seaway.scaling = {{}, {}, 0, 1};
    for (std::size_t i = 0; i < numbers.size(); i += 2) {
      seaway.scaling.WSCSTP.push_back(1 + numbers[i] * second);
      seaway.scaling.WSCFAC.push_back(numbers[i + 1]);
    }
    Say(console, kScalingTaken, numbers.size() / 2);
  }
}

KinoSeaStatus ReadOpened(const Console& console, SeaText& text, KinoSeaUnits units, Seaway& seaway) {
  const ListLines lines{&text, NextSeaLine};
  text.in_data = true;
  const KindRow* row = ReadHead(console, text, lines);
  if (row == nullptr) return Fail(console, false);
  text.in_data = false;
  Seaway taken;  // calm, until all of it is there
  std::vector<float> record{row->ISEA, static_cast<float>(units.g), 0.0F};
  KindReader in{console, lines, record};
  const bool read = row->read(in) && SetSpectrum(console, record, units.g, units.L, taken);
  if (read) TakeClosing(console, text, units, taken);
  else taken = Seaway{};
  seaway = std::move(taken);
  return read ? KinoSeaStatus::ok : Fail(console, true);
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
    AppendKind(seaway, form.always_a_list, text);
    AppendData(seaway, units, text);
    AppendClosing(seaway, units, text);
    return true;
  };
  return Guarded(append, false);
}

KinoSeaStatus ReadKinoSeaway(const Platform& platform, const std::string& name, KinoSeaUnits units, Seaway& seaway) {
  const Files& files = platform.files;
  const FileHandle file = files.open_read(files.self, name);
  if (file == kNoFile) return KinoSeaStatus::cannot_open;
  Say(platform.console, kReading, name);
  BlockStream stream;
  StartStream(stream, files, file);
  SeaText text;
  text.source.stream = &stream;
  const KinoSeaStatus status = ReadOpened(platform.console, text, units, seaway);
  (void)files.close(files.self, file);  // nothing was written
  return status;
}

}  // namespace zaview
