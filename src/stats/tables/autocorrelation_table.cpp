#include "stats/tables/autocorrelation_table.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <vector>

#include "base/message.h"
#include "base/table_text.h"
#include "case/quantity_catalogue.h"
#include "case/quantity_label.h"
#include "stats/autocovariance.h"
#include "stats/tables/statistic_values.h"

namespace zaview {
namespace {

inline constexpr std::string_view kTooManySkipped =
    "ERR495 - Too many steps skipped or trimmed in autocorrelation setup";
inline constexpr std::string_view kNoMemory = "ERR493 - Error allocated data for autocorrelation";
inline constexpr std::string_view kBadRecord = "ERROR - Invalid argument to AutoCovariance";

// Every rate-th sample, the first one included.
std::vector<float> Sampled(std::span<const float> all, std::size_t rate) {
  std::vector<float> some;
  some.reserve((all.size() - 1) / rate + 1);
  for (std::size_t i = 0; i < all.size(); i += rate) {
    some.push_back(all[i]);
    if (all.size() - i <= rate) break;
  }
  return some;
}

bool FindCurves(std::span<const float> t, std::span<const float> x, std::size_t rate, AutocorrelationCurves& out) {
  if (!AutoCovariance(Sampled(t, rate), Sampled(x, rate), out.dtau, out.R)) return false;
  EnvelopeExtremes(out.R, out.upper, out.lower);
  out.R0 = out.R[0];
  const float scale = out.R0 > 0.0F ? 1.0F / out.R0 : 1.0F;
  for (float& value : out.R) value = value * scale;
  return true;
}

DataFault Make(const StatWork& work, const QuantityRequest& request, AutocorrelationCurves& curves) {
  QuantityRequest one = request;
  one.curve = std::max(1, request.curve);
  StatRecord record;
  const DataFault fault = TakeRecord(work, one, kTooManySkipped, kNoMemory, record);
  if (fault != DataFault::none) return fault;
  const auto rate = static_cast<std::size_t>(std::max(1, work.settings.statistics.autocorrelation_rate));
  if (FindCurves(record.t(), record.curve(0), rate, curves)) return DataFault::none;
  SayLine(work.console(), kBadRecord);
  return DataFault::said;
}

void WriteRows(const AutocorrelationCurves& curves, std::span<const int> places, const TableLayout& layout,
               std::string& text, OutputFile& out) {
  for (const int place : places) {
    const auto i = static_cast<std::size_t>(place);
    const float cells[] = {curves.dtau[i], curves.R[i]};
    AppendRow(text, layout, cells);
    WriteGathered(out, text);
  }
}

DataFault WriteTable(const StatWork& work, const QuantityRequest& request, OutputFile& out) {
  const OutputSettings& settings = work.settings;
  AutocorrelationCurves curves;
  const DataFault fault = Make(work, request, curves);
  if (fault != DataFault::none) return fault;
  std::vector<int> all(curves.R.size());
  std::iota(all.begin(), all.end(), 0);
  const std::string names[] = {"dTime", "Rx"};
  const TableLayout layout = LayoutFor(settings.writing.separator, names);
  std::string text = out.had_text ? "\n" : "";
  fmt::format_to(std::back_inserter(text), "Autocorrelation of {} for ZAVO file {}{}\n", cQntLong(request.iqnt),
                 work.current().file_name, PointNote(work.current(), request));
  const struct {
    std::string_view title;
    const std::vector<int>& places;
  } blocks[] = {{"", all}, {"\nUpper envelope\n", curves.upper}, {"\nLower envelope\n", curves.lower}};
  for (const auto& block : blocks) {
    text += block.title;
    AppendHeading(text, layout, names);
    WriteRows(curves, block.places, layout, text, out);
  }
  WriteOutput(out, text);
  return DataFault::none;
}

}  // namespace

DataFault MakeAutocorrelation(const StatWork& work, const QuantityRequest& request, AutocorrelationCurves& curves) {
  curves = {};
  return MakeOrSay(work.console(), kNoMemory, [&] { return Make(work, request, curves); });
}

DataFault WriteAutocorrelation(const StatWork& work, const QuantityRequest& request, OutputFile& out) {
  return MakeOrSay(work.console(), kNoMemory, [&] { return WriteTable(work, request, out); });
}

}  // namespace zaview
