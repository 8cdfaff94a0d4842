// What the statistics tables print: the record they take, its values by statistic number, and what a transfer function
// is divided by.
#pragma once

#include <array>
#include <span>
#include <string_view>
#include <vector>

#include "case/plot_data.h"
#include "geometry/hull.h"
#include "stats/fourier.h"
#include "stats/tables/stat_table.h"

namespace zaview {

// The curves of a request and the points that statistics take of them.
struct StatRecord {
  PlotData data;
  StatRange range;
  [[nodiscard]] std::span<const float> t() const { return Cut(data.x); }
  [[nodiscard]] std::span<const float> curve(std::size_t i) const { return Cut(data.y[i]); }  // from 0

 private:
  [[nodiscard]] std::span<const float> Cut(const std::vector<float>& all) const {
    return std::span(all).subspan(static_cast<std::size_t>(range.first), static_cast<std::size_t>(range.n));
  }
};

// Fills a record of at least one point. The two texts are said where no point is left, or memory is out.
[[nodiscard]] DataFault TakeRecord(const StatWork& work, const QuantityRequest& request,
                                   std::string_view too_many_skipped, std::string_view no_memory, StatRecord& record);

// Values of all curves, and where wave isn't null their phases, degrees behind it. Statistic 0 fills everything; any
// other number only what that statistic needs. N: of statistics 8 to 11. Sums of their own run side by side: the same
// bits for any threads (as in SideBySide).
void FindRecordValues(const StatisticName& statistic, const StatRecord& record, const WavePhase* wave, int threads,
                      std::vector<RecordValues>& values, std::vector<float>& phases);

// Kinds of divisor: wave amplitude a or slope ka with powers of the encounter frequency, force, moment.
enum class Normal : std::uint8_t { a, a_we, a_we2, ka, ka_we, ka_we2, force, moment };

// By kind, in output units. With w, k, A, beta of the wave, U the steady speed (all non-dimensional), L, g, rho the
// output scales: a = L A, ka = ANGOUT k A, we = |w - U cos(beta) k| sqrt(g/L) (below 1e-6: w sqrt(g/L)),
// force g B Ln a rho, moment g B Ln^2 a rho. Beam B and length Ln as the user has set them, else
// Ln = L, and B = L times the x extent of the hull (literally: the user who wants the beam sets it), L without a hull.
struct Normalisers {
  std::array<float, 8> value{};  // found by kind
  [[nodiscard]] float& of(Normal kind) { return value[static_cast<std::size_t>(kind)]; }
  [[nodiscard]] float of(Normal kind) const { return value[static_cast<std::size_t>(kind)]; }
};

// False: the case isn't one regular wave. hull: null where there is none, or no beam is needed.
[[nodiscard]] bool FindNormalisers(const ControlRecords& records, const OutputSettings& settings, const Hull* hull,
                                   Normalisers& out);
// Does a curve of this quantity need force or moment, which are made with the beam?
[[nodiscard]] bool NeedsBeam(int iqnt, int component);
// False: this component of the quantity has none.
[[nodiscard]] bool FindNormal(int iqnt, int component, Normal& kind);

// One bare line: label, separator, values. The label stands as typed, so that it may hold columns of its own; a blank
// one is left out. no_number: as of a TableLayout.
void AppendBareLine(Separator separator, std::string_view label, std::span<const float> values, std::string& text,
                    std::string_view no_number = {});

}  // namespace zaview
