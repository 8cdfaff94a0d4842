#include "stats/tables/statistic_values.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/message.h"
#include "base/side_by_side.h"
#include "base/text.h"
#include "control/input_scales.h"
#include "geometry/input_hull.h"
#include "stats/record_stats.h"
#include "waves/regular_wave.h"

namespace zaview {
namespace {

constexpr int kThird = 3, kHundredth = 100;

constexpr bool Between(int low, int number, int high) {
  return low <= number && number <= high;
}

bool NeedsPeaks(int number) {
  return number == kStatTable || IsSideOf(kStatThird, number) || IsSideOf(kStatNth, number) ||
         IsSideOf(kStatHundredth, number) || number == kStatNdtf || number == kStatTransfer;
}

void FindMean(std::span<const float> x, RecordValues& values) {
  const RecordStats stats = MeanAndExtremes(x);
  values.xm = stats.xm;
  values.xmin = stats.xmin;
  values.xmax = stats.xmax;
}

void FindPeaks(int N, std::span<const float> x, RecordValues& values) {
  const int all[] = {kThird, std::max(1, N), kHundredth};
  HighestPeaks peaks[std::size(all)];
  CalcAvgHighestPeaks(all, x, values.xm, peaks);
  values.third = peaks[0];
  values.nth = peaks[1];
  values.hundredth = peaks[2];
}

// What of a curve needs its mean and nothing else.
enum class Part : std::uint8_t { peaks, between, variance, phase };

std::vector<Part> PartsOf(int number, bool phases) {
  std::vector<Part> parts;
  if (NeedsPeaks(number)) parts.push_back(Part::peaks);
  if (number == kStatTable || Between(kStatBetweenUpcrossings, number, kStatBetweenPeaks))
    parts.push_back(Part::between);
  if (number == kStatTable || number == kStatStdev || number == kStatVariance || number == kStatSsa)
    parts.push_back(Part::variance);
  if (phases) parts.push_back(Part::phase);
  return parts;
}

// The first row that holds quantity and component. No quantities: 30 and above that no other row names.
struct NormalRow {
  std::array<int, 7> quantities;
  int first, last;  // components
  Normal kind;
};
constexpr int kAll = std::numeric_limits<int>::max();
constexpr int kFirstOther = 30;
constexpr NormalRow kNormals[] = {
    {{1, 4, 27}, 1, 3, Normal::a},
    {{1, 4, 27}, 4, 6, Normal::ka},
    {{2, 5, 28}, 1, 3, Normal::a_we},
    {{2, 5, 28}, 4, 6, Normal::ka_we},
    {{3, 29}, 1, 3, Normal::a_we2},
    {{3, 29}, 4, 6, Normal::ka_we2},
    {{6, 7, 8, 9, 10, 11, 12}, 1, 3, Normal::force},
    {{6, 7, 8, 9, 10, 11, 12}, 4, 6, Normal::moment},
    {{13, 15, 17, 19, 21, 23}, 1, kAll, Normal::force},
    {{14, 16, 18, 20, 22, 24}, 1, kAll, Normal::moment},
    {{25, 26}, 1, 3, Normal::a},
    {{31, 32}, 1, 3, Normal::a},
    {{31, 32}, 4, 6, Normal::a_we},
    {{31, 32}, 7, 9, Normal::a_we2},
    {{}, 1, 1, Normal::a},
    {{}, 2, 2, Normal::a_we},
    {{}, 3, 3, Normal::a_we2},
};

bool Holds(const NormalRow& row, int iqnt, int component) {
  const bool others = row.quantities[0] == 0;
  const bool named = std::find(row.quantities.begin(), row.quantities.end(), iqnt) != row.quantities.end();
  return (others ? iqnt >= kFirstOther && iqnt != 31 && iqnt != 32 : named) && Between(row.first, component, row.last);
}

// Largest less smallest x of the hull, non-dimensional; 1 without any.
float LengthAlongX(const Hull* hull) {
  if (hull == nullptr) return 1.0F;
  const HullBox box = BoxOf(*hull, 0, false);
  return box.high[0] > box.low[0] ? static_cast<float>(box.high[0] - box.low[0]) : 1.0F;
}

}  // namespace

DataFault TakeRecord(const StatWork& work, const QuantityRequest& request, std::string_view too_many_skipped,
                     std::string_view no_memory, StatRecord& record) {
  const Console& console = work.console();
  const OutputSettings& settings = work.settings;
  CaseStore& case_store = work.current();
  const DataFault fault = SetPlotData(console, settings, request, case_store, record.data);
  if (fault == DataFault::no_memory) SayLine(console, no_memory);
  if (fault == DataFault::no_memory || fault == DataFault::no_wave) return DataFault::said;
  if (fault != DataFault::none) return fault;
  if (record.data.y.empty()) return DataFault::not_valid;
  record.range = StatPoints(case_store, settings);
  if (record.data.n > 0 && record.range.n > 0) return DataFault::none;
  SayLine(console, too_many_skipped);
  return DataFault::said;
}

void FindRecordValues(const StatisticName& statistic, const StatRecord& record, const WavePhase* wave, int threads,
                      std::vector<RecordValues>& values, std::vector<float>& phases) {
  const std::size_t curves = record.data.y.size();
  values.assign(curves, {});
  phases.assign(wave != nullptr ? curves : 0, 0.0F);
  SideBySide(curves, threads, [&](std::size_t i) { FindMean(record.curve(i), values[i]); });
  const std::vector<Part> parts = PartsOf(statistic.number, wave != nullptr);
  SideBySide(curves * parts.size(), threads, [&](std::size_t task) {
    const std::size_t i = task / parts.size();
    const std::span<const float> x = record.curve(i);
    const Part part = parts[task % parts.size()];
    if (part == Part::peaks) FindPeaks(statistic.N, x, values[i]);
    else if (part == Part::between) CalcAvgBetween(record.t(), x, values[i].xm, values[i].between);
    else if (part == Part::variance) values[i].xv = VarianceAbout(values[i].xm, x);
    else phases[i] = PhaseLag(*wave, x, values[i].xm);
  });
}

bool FindNormalisers(const ControlRecords& records, const OutputSettings& settings, const Hull* hull,
                     Normalisers& out) {
  constexpr float kNoEncounter = 1.0e-6F;
  out = Normalisers{};
  RegularWave wave;
  if (!FindRegularWave(records, wave)) return false;

  const float w = static_cast<float>(wave.w);
  const float k = static_cast<float>(wave.k);
  const float A = static_cast<float>(wave.A);
  const float U = static_cast<float>(records.USHIP * InputScalesOf(records).velocity);
  const float cos_beta = static_cast<float>(std::cos(wave.beta));
  const float L = settings.units.LENOUT;
  const float g = settings.units.GRAVOUT;
  const float root = std::sqrt(g / L);
  float we = std::abs(w - (U * cos_beta) * k) * root;
  if (we < kNoEncounter) we = w * root;
  const float a = L * A;
  const float ka = (settings.units.ANGOUT * k) * A;
  const float B = settings.statistics.ndtf_beam > 0.0F ? settings.statistics.ndtf_beam : LengthAlongX(hull) * L;
  const float Ln = settings.statistics.ndtf_length > 0.0F ? settings.statistics.ndtf_length : L;
  const float force_unit = ((g * B) * Ln) * a, moment_unit = ((g * B) * (Ln * Ln)) * a;
  out.of(Normal::a) = a;
  out.of(Normal::a_we) = a * we;
  out.of(Normal::a_we2) = a * (we * we);
  out.of(Normal::ka) = ka;
  out.of(Normal::ka_we) = ka * we;
  out.of(Normal::ka_we2) = ka * (we * we);
  out.of(Normal::force) = force_unit * settings.units.RHOOUT;
  out.of(Normal::moment) = moment_unit * settings.units.RHOOUT;
  return true;
}

bool NeedsBeam(int iqnt, int component) {
  Normal kind = Normal::a;
  return FindNormal(iqnt, component, kind) && (kind == Normal::force || kind == Normal::moment);
}

bool FindNormal(int iqnt, int component, Normal& kind) {
  for (const NormalRow& row : kNormals) {
    if (!Holds(row, iqnt, component)) continue;
    kind = row.kind;
    return true;
  }
  return false;
}

void AppendBareLine(Separator separator, std::string_view label, std::span<const float> values, std::string& text,
                    std::string_view no_number) {
  TableLayout layout;
  layout.no_number = no_number;
  layout.separator = separator;
  if (!IsBlank(label)) {
    text += label;
    text += static_cast<char>(separator);
  }
  AppendRow(text, layout, values);
}

}  // namespace zaview
