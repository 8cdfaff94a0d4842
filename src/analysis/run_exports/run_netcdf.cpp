#include "analysis/run_exports/run_netcdf.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "analysis/do_or_say.h"
#include "analysis/run_exports/netcdf_file.h"
#include "base/message.h"
#include "base/text.h"
#include "case/case_control_text.h"
#include "case/plot_data.h"
#include "case/quantity_catalogue.h"
#include "case/quantity_label.h"

namespace zaview {
namespace {

constexpr std::string_view kNoLibrary = "ERROR - the library of NetCDF files (libnetcdf19) is not here";
constexpr std::string_view kNoMemory = "ERROR - no memory for the NetCDF file";
constexpr std::string_view kNothing = "ERROR - there are no time steps to write";
constexpr std::string_view kLeftOut = "WARNING - {} can't be had and is left out";

struct Column {  // of the file, behind the time
  int iqnt = 0, curve = 0;
};

bool IsWritten(const CaseStore& store, int iqnt) {
  const QuantityRow* row = FindQuantity(iqnt);
  return row != nullptr && !IsPointQuantity(iqnt) && !IsKinoFile(iqnt) && row->need != QuantityNeed::file_only &&
         QuantityValid(store, iqnt);
}

// The columns of a quantity, loaded once for all of them.
class Quantity {
 public:
  Quantity(const Console& console, const OutputSettings& settings, CaseStore& store)
      : console_(console), settings_(settings), store_(store) {}
  [[nodiscard]] DataFault Load(int iqnt) {
    if (iqnt == loaded_) return DataFault::none;
    QuantityRequest request;
    request.iqnt = iqnt;
    DataFault fault = SetPlotData(console_, settings_, request, store_, data_);
    if (fault == DataFault::none && data_.n <= 0) fault = DataFault::not_valid;
    loaded_ = fault == DataFault::none ? iqnt : 0;
    return fault;
  }
  [[nodiscard]] const PlotData& data() const { return data_; }

 private:
  const Console& console_;
  const OutputSettings& settings_;
  CaseStore& store_;
  PlotData data_;
  int loaded_ = 0;
};

std::string NameOf(const QuantityRow& row, int curve, int curves) {
  std::string name(row.words[0]);
  std::transform(name.begin(), name.end(), name.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return curves > 1 ? fmt::format("{}_{}", name, curve) : name;
}

void Describe(const OutputSettings& settings, const CaseStore& store, std::vector<Column>& columns,
              NetcdfTable& table) {
  std::string control_text;
  if (!AppendControlText(store, control_text)) control_text.clear();
  table.attributes = {
      {"Conventions", "CF-1.8"},
      {"title", std::string(Trim(store.control.DESCR))},
      {"source", store.from_table() ? "Measured data, written by ZAVIEW" : "ZAVO run, written by ZAVIEW"},
      {"run_file", store.file_name},
      {"control_text", control_text}};
  table.variables.push_back({"time", "Time", std::string(TimeUnit(store, settings))});
  for (const QuantityRow& row : AllQuantities()) {
    if (!IsWritten(store, row.iqnt)) continue;
    const int curves = CurveCount(store, row.iqnt);
    for (int curve = 1; curve <= curves; ++curve) {
      columns.push_back({row.iqnt, curve});
      table.variables.push_back({NameOf(row, curve, curves),
                                 fmt::format("{}, {}", row.long_label, CurveLabel(store, settings, row.iqnt, curve)),
                                 CurveUnit(store, settings, row.iqnt, curve)});
    }
  }
}

// Quantities whose waves can't be evaluated are told and left out. False (told): the work was given up.
bool LeaveOutWhatCantBeHad(const Console& console, Quantity& quantity, std::vector<Column>& columns,
                           NetcdfTable& table) {
  int last = 0;
  bool good = true;
  for (std::size_t i = 0; i < columns.size();) {
    if (columns[i].iqnt != last) {
      last = columns[i].iqnt;
      const bool needs_wave = FindQuantity(last)->need == QuantityNeed::wave;
      const DataFault fault = needs_wave ? quantity.Load(last) : DataFault::none;
      if (fault == DataFault::said) return false;
      good = fault == DataFault::none;
      if (!good) Say(console, kLeftOut, cQntLong(last));
    }
    if (good) {
      ++i;
      continue;
    }
    columns.erase(columns.begin() + static_cast<std::ptrdiff_t>(i));
    table.variables.erase(table.variables.begin() + static_cast<std::ptrdiff_t>(i + 1));
  }
  return true;
}

bool Write(const Console& console, const OutputSettings& settings, CaseStore& store, OutputFile& out) {
  NetcdfTable table;
  std::vector<Column> columns;
  Describe(settings, store, columns, table);
  Quantity quantity(console, settings, store);
  if (!LeaveOutWhatCantBeHad(console, quantity, columns, table)) return false;
  DataFault loaded = columns.empty() ? DataFault::not_valid : quantity.Load(columns[0].iqnt);
  if (loaded != DataFault::none) {
    if (loaded != DataFault::said) SayLine(console, kNothing);
    return false;
  }
  table.rows = static_cast<std::size_t>(quantity.data().n);
  const std::vector<float> time = quantity.data().x;
  table.values = [&](std::size_t variable, std::vector<float>& values) {
    if (variable == 0) {
      values = time;
      return true;
    }
    const Column& column = columns[variable - 1];
    loaded = quantity.Load(column.iqnt);
    if (loaded == DataFault::none) values = quantity.data().y[static_cast<std::size_t>(column.curve - 1)];
    return loaded == DataFault::none;
  };
  std::string bytes;
  const NetcdfFault fault = EncodeNetcdf(table, bytes);
  if (fault == NetcdfFault::none) WriteOutput(out, bytes);
  else if (loaded != DataFault::said) SayLine(console, fault == NetcdfFault::no_library ? kNoLibrary : kNoMemory);
  return fault == NetcdfFault::none;
}

}  // namespace

bool WriteRunNetcdf(const Console& console, const OutputSettings& settings, CaseStore& store, OutputFile& out) {
  return DoOrSay(console, kNoMemory, [&] { return Write(console, settings, store, out); });
}

}  // namespace zaview
