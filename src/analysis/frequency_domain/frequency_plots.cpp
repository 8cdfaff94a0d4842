#include "analysis/frequency_domain/frequency_plots.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "analysis/frequency_domain/frequency_case.h"
#include "base/number_format.h"

namespace zaview {
namespace {

constexpr std::string_view kFrequency = "Frequency (rad/time)";
constexpr std::string_view kWaveFrequency = "Wave frequency (rad/time)";
constexpr float kHalfTurn = 180;

void AddUnlessZero(ResultCurve curve, ResultPanel& panel) {
  const bool zero = std::all_of(curve.y.begin(), curve.y.end(), [](float y) { return y == 0; });
  if (!zero) panel.curves.push_back(std::move(curve));
}

// A phase that passes 360 goes on at 0: no line between the two.
void AddPhase(float x, float y, ResultCurve& curve) {
  if (!curve.y.empty() && std::abs(y - curve.y.back()) > kHalfTurn) {
    curve.x.push_back(x);
    curve.y.push_back(std::numeric_limits<float>::quiet_NaN());
  }
  curve.x.push_back(x);
  curve.y.push_back(y);
}

ResultPanel PanelOf(std::string_view x_name, std::string y_name) {
  ResultPanel panel;
  panel.x_name = x_name;
  panel.y_name = std::move(y_name);
  return panel;
}

// Amplitude and phase of the six modes: at(row, mode), over x(row).
template <typename X, typename At>
std::vector<ResultPanel> PolarPanels(const FrequencyLooks& looks, std::string_view amplitude, std::size_t rows, X x,
                                     At at) {
  std::vector<ResultPanel> panels = {PanelOf(kWaveFrequency, std::string(amplitude)),
                                     PanelOf(kWaveFrequency, "Phase (deg)")};
  for (std::size_t i = 0; i < kModes; ++i) {
    ResultCurve size{std::string(kModeWords[i]), {}, {}}, phase = size;
    for (std::size_t row = 0; row < rows; ++row) {
      const Polar pair = looks.sign[i] < 0 ? Reversed(at(row, i)) : at(row, i);
      const auto w = static_cast<float>(x(row) / looks.T);
      size.x.push_back(w);
      size.y.push_back(static_cast<float>(pair.amplitude));
      AddPhase(w, static_cast<float>(pair.phase), phase);
    }
    const std::size_t before = panels[0].curves.size();
    AddUnlessZero(std::move(size), panels[0]);
    if (panels[0].curves.size() > before) panels[1].curves.push_back(std::move(phase));
  }
  return panels;
}

void AddRadiation(const FrequencyLooks& looks, const RadiationResult& result, std::vector<ResultPanel>& panels) {
  const RadiationTable& table = result.table;
  const auto j = static_cast<std::size_t>(table.motion - 1);
  ResultPanel mass = PanelOf(kFrequency, fmt::format("Added mass, {}", kModeWords[j]));
  ResultPanel damping = PanelOf(kFrequency, fmt::format("Damping, {}", kModeWords[j]));
  for (std::size_t i = 0; i < kModes; ++i) {
    const std::string index = fmt::format("{}{}", i + 1, j + 1);
    ResultCurve A{'A' + index, {}, {}}, B{'B' + index, {}, {}};
    for (std::size_t k = 0; k < table.w.size(); ++k) {
      const CoefficientPair pair = CoefficientsAt(CoefficientForm::plain, table, result.parts, i, k);
      const float sign = looks.sign[i] * looks.sign[j];
      A.x.push_back(static_cast<float>(table.w[k] / looks.T));
      A.y.push_back(static_cast<float>(pair.A) * sign);
      B.y.push_back(static_cast<float>(pair.B) * sign);
    }
    B.x = A.x;
    AddUnlessZero(std::move(A), mass);
    AddUnlessZero(std::move(B), damping);
  }
  panels.push_back(std::move(mass));
  panels.push_back(std::move(damping));
}

void AddExcitation(const FrequencyLooks& looks, const ExcitationTable& table, std::vector<ResultPanel>& panels) {
  std::vector<std::size_t> met;  // components at which a wave is met
  for (std::size_t k = 0; k < table.w.size(); ++k)
    if (table.w[k] >= 0) met.push_back(k);
  const std::string name = fmt::format("Wave force, heading {}{}", Shown{static_cast<float>(table.heading)},
                                       table.following ? fmt::format(" branch {}", table.branch) : "");
  std::vector<ResultPanel> added = PolarPanels(
      looks, name, met.size(), [&](std::size_t row) { return table.w[met[row]]; },
      [&](std::size_t row, std::size_t mode) {
        const ForcePair force = ExcitationAt(WavePart::total, table, mode, met[row]);
        return PolarOf(force.real, force.imaginary);
      });
  for (ResultPanel& panel : added) panels.push_back(std::move(panel));
}

}  // namespace

ResultPlot CoefficientPlot(const FrequencyLooks& looks, const std::vector<RadiationResult>& radiation,
                           const std::vector<ExcitationTable>& excitation) {
  ResultPlot plot;
  plot.title = fmt::format("Coefficients for ZAVO file {}", looks.file_name);
  for (const RadiationResult& result : radiation) AddRadiation(looks, result, plot.panels);
  for (const ExcitationTable& table : excitation) AddExcitation(looks, table, plot.panels);
  return plot;
}

ResultPlot ResponsePlot(const FrequencyLooks& looks, double heading, const std::vector<ResponseRow>& rows) {
  ResultPlot plot;
  plot.title = fmt::format("RAOs for ZAVO file {} heading= {}", looks.file_name, Shown{static_cast<float>(heading)});
  plot.panels = PolarPanels(
      looks, "Motion over wave amplitude", rows.size(), [&](std::size_t row) { return rows[row].w; },
      [&](std::size_t row, std::size_t mode) { return rows[row].motion[mode]; });
  return plot;
}

}  // namespace zaview
