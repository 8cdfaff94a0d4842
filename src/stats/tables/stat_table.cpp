#include "stats/tables/stat_table.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "base/message.h"
#include "base/table_text.h"
#include "base/text.h"
#include "case/case_hull.h"
#include "case/quantity_catalogue.h"
#include "case/quantity_label.h"
#include "stats/fourier.h"
#include "stats/tables/statistic_values.h"
#include "waves/regular_wave.h"

namespace zaview {
namespace {

inline constexpr std::string_view kTooManySkipped = "ERR495 - Too many steps skipped or trimmed in statistics output";
inline constexpr std::string_view kNotRegular =
    "ERR494 - NDTF/RAO and phase statistics only available for regular wave cases";
inline constexpr std::string_view kUnknown = "LOGIC ERROR in WRSTAT : isel0= {}";
inline constexpr std::string_view kNoWavePhase = "LOGIC ERROR - Wave phase calculation failed";
inline constexpr std::string_view kNoNormaliser = "ERROR - NDTF/RAO is not defined for {}, {}";

// In the order of the table. NDTF/RAO, phases and transfer function stand there for regular waves only.
constexpr int kTableRows[] = {
    1,  2,  3,  4,  5,  6,  7, 8, 9, 10, 11, 12, 13, 14, kStatNdtf, kStatPhase, kStatPhaseLead, kStatTransfer,
    18, 19, 24, 20, 21, 22, 23};
constexpr int kWaveAtCg = 25;                     // the quantity that phases refer to
constexpr std::size_t kParallelSamples = 20'000;  // below this a second thread costs more than it saves

bool IsPhase(int number) {
  return number == kStatPhase || number == kStatPhaseLead;
}
bool IsTransfer(int number) {
  return number == kStatNdtf || number == kStatTransfer;
}

// One statistic of all curves asked for.
struct StatColumns {
  int iqnt = 0;
  int first_curve = 1;
  std::vector<RecordValues> curves;
  std::vector<float> phases;  // degrees behind the wave at the CG; empty: not wanted or not to be had
  bool regular = false;
  Normalisers normals;
};

float TransferValue(const StatColumns& columns, int number, std::size_t i) {
  Normal kind = Normal::a;
  const int component = columns.first_curve + static_cast<int>(i);
  if (number == kStatNdtf && !FindNormal(columns.iqnt, component, kind)) return 0.0F;
  const float divisor = columns.normals.of(kind);
  return divisor == 0.0F ? 0.0F : StatisticValue(kStatThird, columns.curves[i]) / divisor;
}

float CellOf(const StatColumns& columns, int number, std::size_t i) {
  if (number == kStatPhase) return columns.phases[i];
  if (number == kStatPhaseLead) return 360.0F - columns.phases[i];
  return IsTransfer(number) ? TransferValue(columns, number, i) : StatisticValue(number, columns.curves[i]);
}

void CellsOf(const StatColumns& columns, int number, std::vector<float>& cells) {
  cells.clear();
  for (std::size_t i = 0; i < columns.curves.size(); ++i) cells.push_back(CellOf(columns, number, i));
}

bool AnyNormaliser(const StatColumns& columns) {
  Normal kind = Normal::a;
  for (std::size_t i = 0; i < columns.curves.size(); ++i)
    if (FindNormal(columns.iqnt, columns.first_curve + static_cast<int>(i), kind)) return true;
  return false;
}

bool RowShown(const StatColumns& columns, int number) {
  if (number == kStatTransfer) return columns.regular;
  if (IsPhase(number)) return !columns.phases.empty();
  return number != kStatNdtf || (columns.regular && AnyNormaliser(columns));
}

// Is this single statistic to be had? If not, it has been said why.
bool Available(const Console& console, const StatColumns& columns, const StatRecord& record, int number) {
  if (!IsPhase(number) && !IsTransfer(number)) return true;
  if (!columns.regular) {
    SayLine(console, kNotRegular);
    return false;
  }
  Normal kind = Normal::a;
  for (std::size_t i = 0; number == kStatNdtf && i < record.data.labels.size(); ++i) {
    if (FindNormal(columns.iqnt, columns.first_curve + static_cast<int>(i), kind)) continue;
    Say(console, kNoNormaliser, cQntLong(columns.iqnt), record.data.labels[i]);
    return false;
  }
  return true;
}

// The phase of the wave at the CG, made again only for another record. Null (told): the wave can't be had.
const WavePhase* UpdateWavePhase(const StatWork& work) {
  QuantityRequest at_cg;
  at_cg.iqnt = kWaveAtCg;
  at_cg.curve = 1;
  WaveData& wave = work.state.wave;
  EnsembleKey key = KeyOf(work.settings, at_cg, work.current());
  if (!wave.known || wave.key != key) {
    wave.known = false;
    StatRecord record;
    if (TakeRecord(work, at_cg, kTooManySkipped, kNoWorkingArrays, record) != DataFault::none) return nullptr;
    (void)FindWavePhase(record.t(), record.curve(0), wave.phase);
    wave.key = std::move(key);
    wave.known = true;
  }
  if (!wave.phase.found) SayLine(work.console(), kNoWavePhase);
  return &wave.phase;
}

void AppendTable(const StatColumns& columns, const StatRequest& request, const OutputSettings& settings,
                 const StatRecord& record, const CaseStore& c, const OutputFile& out, std::string& text) {
  std::vector<std::string> names{"Statistic     "};
  names.insert(names.end(), record.data.labels.begin(), record.data.labels.end());
  if (names.size() == 2 && !IsBlank(request.text)) names[1] = request.text;
  const TableLayout layout = LayoutFor(settings.writing.separator, names);
  if (out.had_text) text += '\n';
  fmt::format_to(std::back_inserter(text), "Statistics of {} for ZAVO file {}{}\n", cQntLong(columns.iqnt), c.file_name,
                 PointNote(c, request.quantity));
  AppendHeading(text, layout, names);
  std::vector<float> cells;
  for (const int number : kTableRows) {
    if (!RowShown(columns, number)) continue;
    CellsOf(columns, number, cells);
    AppendLabelledRow(text, layout, StatisticLabel(number, !out.to_console), cells);
  }
}

void AppendLine(const StatColumns& columns, const StatRequest& request, const OutputSettings& settings,
                std::string& text) {
  std::vector<float> cells;
  CellsOf(columns, request.statistic.number, cells);
  AppendBareLine(settings.writing.separator, request.text, cells, text);
}

// The hull, read where a transfer function of these curves needs it and the user has set no beam; null: none.
const Hull* HullForBeam(const StatWork& work, const StatColumns& columns, int curves, int number) {
  const OutputSettings& settings = work.settings;
  if ((number != kStatTable && number != kStatNdtf) || settings.statistics.ndtf_beam > 0.0F) return nullptr;
  for (int i = 0; i < curves; ++i)
    if (NeedsBeam(columns.iqnt, columns.first_curve + i))
      return EnsureHull(work.platform, work.current()) ? &work.current().hull : nullptr;
  return nullptr;
}

bool Regular(const ControlRecords& records) {
  RegularWave wave;
  return FindRegularWave(records, wave);
}

DataFault WriteStatistics(const StatWork& work, const StatRequest& request, OutputFile& out) {
  const Console& console = work.console();
  const OutputSettings& settings = work.settings;
  CaseStore& case_store = work.current();
  SampleMemory& memory = work.state.memory;
  StatRecord record;
  record.data.x.swap(memory.x);
  record.data.y.swap(memory.y);
  const DataFault fault = TakeRecord(work, request.quantity, kTooManySkipped, kNoWorkingArrays, record);
  if (fault != DataFault::none) return fault;
  StatColumns columns;
  columns.iqnt = request.quantity.iqnt;
  columns.first_curve = std::max(1, request.quantity.curve);
  const int number = request.statistic.number;
  columns.regular = Regular(case_store.control);
  if (columns.regular) {
    const int curves = static_cast<int>(record.data.y.size());
    const Hull* hull = HullForBeam(work, columns, curves, number);
    columns.regular = FindNormalisers(case_store.control, settings, hull, columns.normals);
  }
  if (!Available(console, columns, record, number)) return DataFault::said;

  const WavePhase* wave = nullptr;
  if (columns.regular && (number == kStatTable || IsPhase(number))) wave = UpdateWavePhase(work);
  if (wave == nullptr && IsPhase(number)) return DataFault::said;
  const std::size_t samples = record.data.y.size() * static_cast<std::size_t>(record.range.n);
  FindRecordValues(request.statistic, record, wave, samples > kParallelSamples ? 0 : 1, columns.curves, columns.phases);
  std::string text;
  if (number == kStatTable) AppendTable(columns, request, settings, record, case_store, out, text);
  else AppendLine(columns, request, settings, text);
  WriteOutput(out, text);
  record.data.x.swap(memory.x);
  record.data.y.swap(memory.y);
  return DataFault::none;
}

}  // namespace

DataFault WRSTAT(const StatWork& work, const StatRequest& request, OutputFile& out) {
  const Console& console = work.console();
  const int number = request.statistic.number;
  if (number != kStatTable && StatisticLabel(number, false).empty()) {
    Say(console, kUnknown, number);
    return DataFault::said;
  }
  return MakeOrSay(console, kNoWorkingArrays, [&] { return WriteStatistics(work, request, out); });
}

}  // namespace zaview
