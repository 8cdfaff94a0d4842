#include "case/version_label.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>

#include "base/message.h"
#include "base/text.h"

namespace zaview {
namespace {

struct VariantRow {
  VersionVariant variant;
  std::string_view word;       // in the version line
  std::string_view shown;      // ahead of "version" in the message
  std::optional<int> VERSION;  // used for the file; none: the value of the line
};
constexpr VariantRow kVariants[] = {
    {VersionVariant::rvm, "RVM", "RVM ", 293},    {VersionVariant::wexmark, "WEXMARK", "WEXMARK ", std::nullopt},
    {VersionVariant::gyre, "GYRE", "GYRE ", -1},  {VersionVariant::tambrine, "TAMBRINE", "ZAVO-TAMBRINE ", 407},
    {VersionVariant::none, "", "", std::nullopt},  // the last row fits every line
};

struct KindRow {
  FileKind kind;
  std::string_view word;
};
constexpr KindRow kKinds[] = {
    {FileKind::primary, "Primary"},   {FileKind::pressure, "Pressure"},
    {FileKind::geometry, "Geometry"}, {FileKind::balance_check, "Balance Check"},
    {FileKind::beam, "Dynamic Beam"}, {FileKind::beam, "Elastic Beam"},
};

constexpr std::string_view kLabelled = "Output file is labeled {}version {}";
constexpr std::size_t kNumbersFrom = 11;   // column 12
constexpr int kLargestNumber = 1'000'000;  // a longer group of digits counts as this

// The first groups of digits, as many as fit; returns how many there are.
std::size_t DigitGroups(std::string_view text, std::array<int, 4>& groups) {
  std::size_t n = 0;
  bool inside = false;
  for (const char c : text) {
    const bool digit = c >= '0' && c <= '9';
    if (digit && !inside) {
      if (n == groups.size()) break;
      groups[n++] = 0;
    }
    if (digit) groups[n - 1] = std::min(groups[n - 1] * 10 + (c - '0'), kLargestNumber);
    inside = digit;
  }
  return n;
}

const VariantRow& VariantOf(std::string_view line) {
  return *std::find_if(std::begin(kVariants), std::end(kVariants) - 1,
                       [line](const VariantRow& row) { return Contains(line, row.word); });
}

void ScanVersionLine(std::string_view line, VersionLabel& label) {
  if (line.size() <= kNumbersFrom) return;
  const VersionVariant variant = VariantOf(line).variant;
  std::array<int, 4> number{};
  const std::size_t found = DigitGroups(line.substr(kNumbersFrom), number);
  const std::size_t first = variant == VersionVariant::wexmark ? 1 : 0;
  if (found < first + 2) return;
  label = {true, variant, 100 * number[first] + 10 * number[first + 1] + number[first + 2]};
}

}  // namespace

void ScanPreambleLine(std::string_view line, VersionLabel& label, FileKind& kind) {
  if (Contains(line, "VERSION   :") || Contains(line, "RELEASE   :")) ScanVersionLine(line, label);
  if (!Contains(line, "Output File")) {
    if (Contains(line, "Standard Output")) kind = FileKind::standard_output;
    return;
  }
  for (const KindRow& row : kKinds) {
    if (!Contains(line, row.word)) continue;
    kind = row.kind;
    return;
  }
}

void AdoptVersionLabel(const Console& console, const VersionLabel& label, OutputLabels& labels) {
  labels.gyre = label.found && label.variant == VersionVariant::gyre;
  if (!label.found) {
    labels.VERSION = 0;
    SayLine(console, kNoVersion);
    return;
  }
  for (const VariantRow& row : kVariants) {
    if (row.variant != label.variant) continue;
    labels.VERSION = row.VERSION.value_or(label.value);
    Say(console, kLabelled, row.shown, label.value);
  }
}

}  // namespace zaview
