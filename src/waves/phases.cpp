#include "waves/phases.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "base/clean_text.h"
#include "base/grow.h"
#include "base/list_item.h"
#include "base/message.h"
#include "base/number_parse.h"
#include "frame/ground/input_file.h"

namespace zaview {
namespace {

inline constexpr std::string_view kReading = "Reading phase file {}";
inline constexpr std::string_view kCannotOpen = "ERR??? - error opening phase file {}{}";
inline constexpr std::string_view kUnreadable = "ERR??? - error reading phase file {}";
inline constexpr std::string_view kTooMany = "ERR??? - too many phases in phase file: {} ; limit= {}";
inline constexpr std::string_view kNone = "ERR??? - no phases read from phase file: {}";
inline constexpr std::string_view kStop = "Wave phase setup/read error";

// Angles of -180.0 to 180.0 by one decimal, from a generator whose first state is the length of the table: such that
// everyone's table is the same.
template <std::size_t n>
constexpr std::array<float, n> MakeTable() {
  std::array<float, n> table{};
  std::int64_t s = n;
  for (float& angle : table) {
    s = 16807 * s % 2147483647;
    angle = static_cast<float>(static_cast<double>(s % 3601 - 1800) / 10.0);
  }
  return table;
}
constexpr auto kTable271 = MakeTable<271>();
constexpr auto kTable1009 = MakeTable<1009>();

// The generator's two sequences.
constexpr std::int64_t kModulus1 = 2147483563, kModulus2 = 2147483399;

std::int64_t Next1(std::int64_t s) {
  const std::int64_t k = s / 53668;
  s = 40014 * (s - k * 53668) - k * 12211;
  return s < 0 ? s + kModulus1 : s;
}
std::int64_t Next2(std::int64_t s) {
  const std::int64_t k = s / 52774;
  s = 40692 * (s - k * 52774) - k * 3791;
  return s < 0 ? s + kModulus2 : s;
}

enum class Take : std::uint8_t { more, ended, too_many, unreadable };

Take TakeItem(std::string_view token, std::vector<float>& phases) {
  RepeatedItem item;
  float value = 0;
  if (!SplitRepeat(token, item) || (!item.null && !ParseFloat(item.value, value))) return Take::unreadable;
  if (!std::isfinite(value)) return Take::unreadable;  // one such wave would take the whole sea away
  if (phases.size() + item.repeat > kPhaseFileLimit) return Take::too_many;
  phases.insert(phases.end(), static_cast<std::size_t>(item.repeat), value);
  return Take::more;
}

Take TakeLine(std::string_view line, std::vector<float>& phases) {
  std::size_t at = 0;
  while (at < line.size()) {
    if (line[at] == '/') return Take::ended;
    if (EndsItem(line[at])) {
      ++at;
      continue;
    }
    std::size_t end = at;
    while (end < line.size() && !EndsItem(line[end])) ++end;
    if (const Take take = TakeItem(line.substr(at, end - at), phases); take != Take::more) return take;
    at = end;
  }
  return Take::more;
}

bool Stop(const Console& console) {
  SayLine(console, kStop);
  return false;
}

// The name as it stands, or in the folder of the file that names it.
}  // namespace

std::span<const float> PhaseTable271() {
  return kTable271;
}

std::span<const float> PhaseTable1009() {
  return kTable1009;
}

PhaseGenerator::PhaseGenerator(int IWVRLZ) {
  constexpr int kWarmUps = 8;
  s1_ = s2_ = std::abs(std::int64_t{IWVRLZ});
  if (s1_ == 0) s1_ = 1, s2_ = 696969;
  for (int i = 0; i < kWarmUps; ++i) s1_ = Next1(s1_);
  for (auto entry = entry_.rbegin(); entry != entry_.rend(); ++entry) *entry = s1_ = Next1(s1_);
  y_ = entry_[0];
}

float PhaseGenerator::Next() {
  constexpr std::int64_t kDivisor = 67108862;
  constexpr float kScale = 4.6566134e-10F, kMost = 0.9999999F;
  s1_ = Next1(s1_);
  s2_ = Next2(s2_);
  std::int64_t& entry = entry_[static_cast<std::size_t>(y_ / kDivisor)];
  y_ = entry - s2_;
  entry = s1_;
  if (y_ < 1) y_ += kModulus1 - 1;
  const float r = std::min(kScale * static_cast<float>(y_), kMost);
  return (r - 0.5F) * 360.0F;
}

bool ReadPhaseFile(const Platform& platform, std::string_view name, std::string_view folder,
                   std::vector<float>& phases) {
  const Console& console = platform.console;
  const std::string found = NamedFile(platform.files, name, folder);
  const std::string file(found.empty() ? name : found);
  phases.clear();
  Say(console, kReading, file);
  std::vector<CleanLine> lines;
  const CleanFault fault =
      found.empty() ? CleanFault::cannot_open : CopyCleanText(platform.files, file, nullptr, lines);
  if (fault != CleanFault::none) {
    if (fault == CleanFault::cannot_open) Say(console, kCannotOpen, file, WhyNotOpened(platform.files, file));
    else Say(console, kUnreadable, file);
    return Stop(console);
  }
  if (!Reserve(phases, kPhaseFileLimit)) return Stop(console);
  for (const CleanLine& line : lines) {
    const Take take = TakeLine(line.text, phases);
    if (take == Take::ended) break;
    if (take == Take::more) continue;
    if (take == Take::too_many) Say(console, kTooMany, file, kPhaseFileLimit);
    else Say(console, kUnreadable, file);
    return Stop(console);
  }
  if (!phases.empty()) return true;
  Say(console, kNone, file);
  return Stop(console);
}

}  // namespace zaview
