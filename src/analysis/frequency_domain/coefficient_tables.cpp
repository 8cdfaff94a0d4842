#include "analysis/frequency_domain/coefficient_tables.h"

#include <algorithm>
#include <iterator>
#include <span>

#include "analysis/frequency_domain/frequency_case.h"
#include "base/number_format.h"
#include "base/table_text.h"
#include "base/text.h"

namespace zaview {
namespace {

struct KindWords {
  std::string_view title;  // of tables over frequency
  std::string_view name;   // behind "Frequency Independent"
};
constexpr KindWords kKinds[] = {  // in the order of CoefficientKind
    {"Added Mass Coefficients", "Added Mass"},
    {"Damping Coefficients", "Damping"},
    {"Stiffness", "Stiffness"}};

constexpr std::string_view kPlainTransforms = " (plain transforms)";
constexpr std::string_view kFromFile = " from ZAVO file ";
constexpr std::string_view kExcitation = "Wave Excitation Coefficients";
constexpr std::string_view kFrequencyHead = "   freq. ";

struct PartWords {
  WavePart part;
  std::string_view word;
};
constexpr PartWords kParts[] = {
    {WavePart::total, ""}, {WavePart::diffraction, " diffraction"}, {WavePart::froude_krylov, " Froude-Krylov"}};

struct ModeHead {
  std::string_view group, name;
};
constexpr ModeHead kModeHeads[] = {{"---- Surge ----", "Surge"}, {"----  Sway ----", "Sway"},
                                   {"---- Heave ----", "Heave"}, {"----  Roll ----", "Roll"},
                                   {"---- Pitch ----", "Pitch"}, {"----  Yaw  ----", "Yaw"}};
constexpr int kGroupWidth = 2 * (kCellWidth + 1);

void BeginBlock(std::string& text) {
  if (!text.empty()) text += '\n';
}

void EndLine(std::string& text) {
  text.resize(TrimEnd(text).size());
  text += '\n';
}

// ---- Heads of amplitudes and phases

struct FrequencyName {
  std::string_view upper, lower, whole;  // two lines, or one
};

void AppendWideHead(std::span<const FrequencyName> frequencies, std::string& text) {
  std::string upper, lower;
  for (const FrequencyName& name : frequencies) {
    fmt::format_to(std::back_inserter(upper), "{}{:>{}}", upper.empty() ? "" : " ", name.upper, kCellWidth);
    fmt::format_to(std::back_inserter(lower), "{}{:>{}}", lower.empty() ? "" : " ", name.lower, kCellWidth);
  }
  for (const ModeHead& mode : kModeHeads) {
    fmt::format_to(std::back_inserter(upper), "{:^{}}", mode.group, kGroupWidth);
    fmt::format_to(std::back_inserter(lower), " {:>{}} {:>{}}", "Amplitude", kCellWidth, "Phase", kCellWidth);
  }
  EndLine(upper);
  text += upper + lower + '\n';
}

void AppendHead(const FrequencyLooks& looks, std::span<const FrequencyName> frequencies, std::string& text) {
  if (looks.separator == Separator::space) return AppendWideHead(frequencies, text);
  std::vector<std::string> names;
  for (const FrequencyName& name : frequencies) names.emplace_back(name.whole);
  for (const ModeHead& mode : kModeHeads) {
    names.push_back(fmt::format("{} Amplitude", mode.name));
    names.push_back(fmt::format("{} Phase", mode.name));
  }
  AppendHeading(text, LayoutFor(looks.separator, names), names);
}

void AppendPolar(const FrequencyLooks& looks, std::size_t mode, const Polar& pair, std::vector<float>& cells) {
  const Polar shown = looks.sign[mode] < 0 ? Reversed(pair) : pair;
  cells.push_back(static_cast<float>(shown.amplitude));
  cells.push_back(static_cast<float>(shown.phase));
}

// ---- Tables of coefficients

void AppendMotion(const FrequencyLooks& looks, CoefficientKind kind, CoefficientForm form,
                  const RadiationResult& result, std::string& text) {
  const RadiationTable& table = result.table;
  const auto j = static_cast<std::size_t>(table.motion - 1);
  BeginBlock(text);
  fmt::format_to(std::back_inserter(text), "{}{}{}{}\nMotion in {}{}\n", kKinds[static_cast<std::size_t>(kind)].title,
                 form == CoefficientForm::plain ? kPlainTransforms : "", kFromFile, looks.file_name, kModeWords[j],
                 result.ship > 0 ? fmt::format(", ship {}", result.ship) : "");
  std::vector<std::string> names = {std::string(kFrequencyHead)};
  names.insert(names.end(), kModeWords.begin(), kModeWords.end());
  const TableLayout layout = LayoutFor(looks.separator, names);
  AppendHeading(text, layout, names);
  for (std::size_t k = 0; k < table.w.size(); ++k) {
    std::vector<float> cells = {static_cast<float>(table.w[k] / looks.T)};
    for (std::size_t i = 0; i < kModes; ++i) {
      const CoefficientPair pair = CoefficientsAt(form, table, result.parts, i, k);
      const double value = kind == CoefficientKind::added_mass ? pair.A : pair.B;
      cells.push_back(static_cast<float>(value) * looks.sign[i] * looks.sign[j]);
    }
    AppendRow(text, layout, cells);
  }
}

const SixBySix& MatrixOf(const IndependentParts& parts, CoefficientKind kind) {
  if (kind == CoefficientKind::added_mass) return parts.A;
  return kind == CoefficientKind::damping ? parts.B : parts.C;
}

void AppendMatrix(const FrequencyLooks& looks, const SixBySix& matrix, std::string& text) {
  TableLayout layout;
  layout.separator = looks.separator;
  for (std::size_t i = 0; i < kModes; ++i) {
    std::array<float, kModes> cells{};
    for (std::size_t j = 0; j < kModes; ++j)
      cells[j] = static_cast<float>(matrix[i][j]) * looks.sign[i] * looks.sign[j];
    AppendRow(text, layout, cells);
  }
}

}  // namespace

FrequencyLooks LooksOf(const CaseStore& store, const OutputSettings& settings) {
  return {store.file_name, settings.writing.separator, settings.units.cnvfac, settings.units.scales.T};
}

void AppendRadiation(const FrequencyLooks& looks, CoefficientKind kind, const RadiationResult& result,
                     std::string& text) {
  AppendMotion(looks, kind, CoefficientForm::literal, result, text);
  AppendMotion(looks, kind, CoefficientForm::plain, result, text);
}

void AppendIndependent(const FrequencyLooks& looks, CoefficientKind kind, const IndependentParts& parts,
                       std::string& text) {
  BeginBlock(text);
  fmt::format_to(std::back_inserter(text), "Frequency Independent {}{}{}\n",
                 kKinds[static_cast<std::size_t>(kind)].name, kFromFile, looks.file_name);
  AppendMatrix(looks, MatrixOf(parts, kind), text);
}

void AppendStiffness(const FrequencyLooks& looks, const IndependentParts& parts, std::string& text) {
  BeginBlock(text);
  fmt::format_to(std::back_inserter(text), "Stiffness{}{} (Frequency Independent)\n", kFromFile, looks.file_name);
  AppendMatrix(looks, parts.C, text);
}

void AppendExcitation(const FrequencyLooks& looks, const ExcitationTable& table, std::string& text) {
  constexpr FrequencyName kFrequencies[] = {{"Wave     ", "Frequency", "Wave Frequency"},
                                            {"Encounter", "Frequency", "Encounter Frequency"}};
  TableLayout layout;
  layout.separator = looks.separator;
  for (const PartWords& part : kParts) {
    BeginBlock(text);
    fmt::format_to(std::back_inserter(text), "{}{}{}\nHeading= {}{}{}\n", kExcitation, kFromFile, looks.file_name,
                   Shown{static_cast<float>(table.heading)},
                   table.following ? fmt::format(" branch {}", table.branch) : "", part.word);
    AppendHead(looks, kFrequencies, text);
    for (std::size_t k = 0; k < table.we.size(); ++k) {
      if (table.w[k] < 0) continue;
      std::vector<float> cells = {static_cast<float>(table.w[k] / looks.T), static_cast<float>(table.we[k] / looks.T)};
      for (std::size_t i = 0; i < kModes; ++i) {
        const ForcePair force = ExcitationAt(part.part, table, i, k);
        AppendPolar(looks, i, PolarOf(force.real, force.imaginary), cells);
      }
      AppendRow(text, layout, cells);
    }
  }
}

void AppendResponses(const FrequencyLooks& looks, double heading, const std::vector<ResponseRow>& rows,
                     std::string& text) {
  constexpr FrequencyName kFrequencies[] = {{"Wave     ", "Frequency", "Frequency"}};
  BeginBlock(text);
  fmt::format_to(std::back_inserter(text), "RAO output for ZAVO file {} heading= {}\n", looks.file_name,
                 Shown{static_cast<float>(heading)});
  AppendHead(looks, kFrequencies, text);
  TableLayout layout;
  layout.separator = looks.separator;
  for (const ResponseRow& row : rows) {
    std::vector<float> cells = {static_cast<float>(row.w / looks.T)};
    for (std::size_t i = 0; i < kModes; ++i) AppendPolar(looks, i, row.motion[i], cells);
    AppendRow(text, layout, cells);
  }
}

}  // namespace zaview
