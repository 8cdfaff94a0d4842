#include <algorithm>
#include <cmath>
#include <vector>

#include "base/grow.h"
#include "base/line_source.h"
#include "base/list_read.h"
#include "base/message.h"
#include "base/number_format.h"
#include "base/number_parse.h"
#include "base/text.h"
#include "waves/components.h"
#include "waves/kino_sea.h"

namespace zaview {
namespace {

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

// `rows` rows of `reals` each, behind what the record holds. One value that is not finite would take the whole sea
// away.
bool TakeRows(const ListLines& lines, std::size_t rows, std::size_t reals, std::vector<float>& record) {
  std::vector<double> row(reals);
  for (std::size_t i = 0; i < rows; ++i) {
    if (ReadReals(lines, row) != ListStatus::ok || !Grow(record, record.size() + reals)) return false;
    if (!std::all_of(row.begin(), row.end(), [](double x) { return std::isfinite(x); })) return false;
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
  if (ReadIntegers(in.lines, n) != ListStatus::ok || !IsCount(n[0]) || !IsCount(n[1])) return false;
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
  if (ReadList(in.lines, items) != ListStatus::ok || !IsCount(n) || !std::isfinite(heading)) return false;
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
  KinoSeaKind kind;
  float ISEA;
  bool (*read)(KindReader& in);
};
constexpr KindRow kKinds[] = {
    {KinoSeaKind::calm, 0, ReadCalm},     {KinoSeaKind::regular, 1, ReadRegular},
    {KinoSeaKind::stokes, 3, ReadStokes}, {KinoSeaKind::superposition, 1, ReadSuperposition},
    {KinoSeaKind::grid, 4, ReadGrid},     {KinoSeaKind::second_order, 5, ReadModes},
};

const KindRow* FindKind(int kind) {
  for (const KindRow& row : kKinds)
    if (static_cast<int>(row.kind) == kind) return &row;
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
    // What is 0 as a 4-byte number would be written as 0, and that is deep water.
    if (OptionNumbers(line, kKinoDepthOption, numbers) && !numbers.empty() && static_cast<float>(numbers[0]) > 0) {
      seaway.WDEPTH = numbers[0] / units.L;
      Say(console, kDepthTaken, SentenceNumber(static_cast<float>(numbers[0])));
    }
    if (!OptionNumbers(line, kKinoScaleOption, numbers) || numbers.size() < 2 || numbers.size() % 2 != 0) continue;
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
