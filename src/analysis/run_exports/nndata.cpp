#include "analysis/run_exports/nndata.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string_view>

#include "analysis/do_or_say.h"
#include "base/clean_text.h"
#include "base/grow.h"
#include "base/message.h"
#include "base/number_parse.h"
#include "base/table_text.h"
#include "base/text.h"
#include "case/plot_data.h"
#include "case/quantity_catalogue.h"
#include "case/wave_at_cg.h"
#include "control/control_text.h"
#include "control/module_io.h"
#include "geometry/geometry_text.h"
#include "waves/incident_wave.h"
#include "waves/wave_scale.h"

namespace zaview {
namespace {

constexpr std::string_view kNotOpen = "ERROR opening NNDATA module file {}{}";
constexpr std::string_view kTooLong = "ERROR - NNDATA module file {} is too long";
constexpr std::string_view kBadSet = "ERR201 - Error reading data set {} of input module NNDATA";
constexpr std::string_view kShortSet = "ERR202 - End-of-file reading data set {} of input module NNDATA";
constexpr std::string_view kBadCount = "ERROR - Illegal value ({}) for number of {}, 0 to {}";
constexpr std::string_view kNotValid = "ERROR - NNDATA : {} not valid for this output file";
constexpr std::string_view kTitle = "NNDATA output for ZAVO file {}\n";
constexpr std::string_view kNoMemory = "ERROR allocating memory for the network data";
constexpr std::string_view kPrefix = "NNDATA";

// ---- The module

struct Reader {
  const Console& console;
  NetworkInput& input;
};

bool Judge(const Console& console, ListStatus status, int set) {
  if (status == ListStatus::ok) return true;
  Say(console, fmt::runtime(status == ListStatus::error ? kBadSet : kShortSet), set);
  return false;
}

bool CountGood(const Console& console, double count, std::string_view what) {
  if (count >= 0 && count <= kMostNetworkPoints) return true;
  Say(console, kBadCount, count, what, kMostNetworkPoints);
  return false;
}

bool TakePoints(const Reader& reader, const ListLines& lines) {
  int n = 0;
  if (!Judge(reader.console, ReadIntegers(lines, std::span(&n, 1)), 2)) return false;
  if (!CountGood(reader.console, n, "NNDATA points")) return false;
  std::vector<Triple>& points = reader.input.NNDATA_RPT;
  points.resize(static_cast<std::size_t>(n));
  return std::all_of(points.begin(), points.end(),
                     [&](Triple& point) { return Judge(reader.console, ReadPoints(lines, std::span(&point, 1)), 2); });
}

bool TakeGrid(const Reader& reader, const ListLines& lines) {
  std::array<double, 6> values{};
  if (!Judge(reader.console, ReadReals(lines, values), 3)) return false;
  NetworkGrid& grid = reader.input.NNDATA_FSGT;
  for (std::size_t axis = 0; axis < 2; ++axis) {
    const double* given = &values[3 * axis];
    if (!std::isfinite(given[0]) || !std::isfinite(given[1])) return Judge(reader.console, ListStatus::error, 3);
    if (!CountGood(reader.console, given[2], "NNDATA grid points")) return false;
    grid.low[axis] = given[0];
    grid.high[axis] = given[1];
    grid.count[axis] = RoundToInt(given[2]);
  }
  return CountGood(reader.console, static_cast<double>(grid.count[0]) * grid.count[1], "NNDATA grid points");
}

struct SetLines {
  const ModuleDataSet& set;
  std::size_t next = 0;
};

ListLines ListsOf(SetLines& text) {
  return {&text, [](void* self, std::string_view& line) {
            SetLines& lines = *static_cast<SetLines*>(self);
            if (lines.next == lines.set.lines.size()) return ListLines::Next::end_of_file;
            line = lines.set.lines[lines.next++];
            return ListLines::Next::line;
          }};
}

bool TakeAnnounced(const Reader& reader, const std::vector<ModuleDataSet>& sets) {
  for (const ModuleDataSet& set : sets) {
    SetLines text{set};
    if (set.number == 1 && !set.lines.empty()) reader.input.NNDATA_FILE = TextField(set.lines.front(), kNameLength);
    if (set.number == 2 && !TakePoints(reader, ListsOf(text))) return false;
    if (set.number == 3 && !TakeGrid(reader, ListsOf(text))) return false;
  }
  return true;
}

bool TakeInOrder(const Reader& reader, std::span<const CleanLine> lines) {
  CleanLists text{lines};
  if (lines.empty()) return true;
  reader.input.NNDATA_FILE = TextField(lines[text.next++].text, kNameLength);
  if (NothingLeft(text)) return true;
  if (!TakePoints(reader, ListsOf(text))) return false;
  return NothingLeft(text) || TakeGrid(reader, ListsOf(text));
}

bool BeginsModule(std::string_view line) {
  return StartsWith(TrimStart(line), "$");
}

bool BeginsOurs(std::string_view line) {
  line = TrimStart(line);
  return StartsWith(line, "$") && Capitals(Trim(line.substr(1, line.find(':') - 1))) == kPrefix;
}

// What stands behind the module's own line, or ahead of the first if it has none, up to the next module.
template <typename Line, typename TextOf>
void KeepModule(std::vector<Line>& lines, TextOf text_of) {
  const auto ours = std::find_if(lines.begin(), lines.end(), [&](const Line& l) { return BeginsOurs(text_of(l)); });
  if (ours != lines.end()) lines.erase(lines.begin(), ours + 1);
  const auto behind = std::find_if(lines.begin(), lines.end(), [&](const Line& l) { return BeginsModule(text_of(l)); });
  lines.erase(behind, lines.end());
}

bool TakeModule(const Platform& platform, const std::string& name, NetworkInput& input) {
  ModuleText module;
  std::vector<CleanLine> clean;
  const CleanFault fault = CopyCleanText(platform.files, name, &module.lines, clean);
  if (fault == CleanFault::too_long) Say(platform.console, kTooLong, name);
  else if (fault != CleanFault::none) Say(platform.console, kNotOpen, name, WhyNotOpened(platform.files, name));
  if (fault != CleanFault::none) return false;
  KeepModule(module.lines, [](const std::string& line) { return std::string_view(line); });
  KeepModule(clean, [](const CleanLine& line) { return std::string_view(line.text); });
  std::vector<ModuleDataSet> sets;
  if (!SplitDataSets(module, kPrefix, sets)) return false;
  const Reader reader{platform.console, input};
  return sets.size() > 1 ? TakeAnnounced(reader, sets) : TakeInOrder(reader, clean);
}

// ---- The columns

struct Columns {
  std::vector<std::string> names;
  std::vector<std::vector<float>> values;  // by step
};

struct Maker {
  const Console& console;
  const OutputSettings& settings;
  CaseStore& store;
};

// The curves of a quantity, named as its own are, or by `name`.
DataFault AddCurves(const Maker& maker, const QuantityRequest& request, const std::string& name, Columns& columns) {
  if (!QuantityValid(maker.store, request.iqnt)) {
    Say(maker.console, kNotValid, cQntLong(request.iqnt));
    return DataFault::said;
  }
  PlotData data;
  const DataFault fault = SetPlotData(maker.console, maker.settings, request, maker.store, data);
  if (fault != DataFault::none) return fault;
  if (columns.values.empty()) {
    columns.names.emplace_back("Time");
    columns.values.push_back(data.x);
  }
  for (std::size_t k = 0; k < data.y.size(); ++k) {
    columns.names.push_back(name.empty() ? data.labels[k] : name);
    columns.values.push_back(std::move(data.y[k]));
  }
  return DataFault::none;
}

DataFault AddPoints(const Maker& maker, const std::vector<Triple>& points, Columns& columns) {
  constexpr int kPosition = 27, kRelative = 30;  // quantities
  constexpr int kZ = 3, kDeltaZ = 4;             // their curves
  int number = 0;
  for (const Triple& point : points) {
    QuantityRequest request;
    request.point = point;
    ++number;
    for (const auto& [iqnt, curve, name] : {std::tuple{kPosition, kZ, "Z"}, std::tuple{kRelative, kDeltaZ, "deltaZ"}}) {
      request.iqnt = iqnt;
      request.curve = curve;
      const DataFault fault = AddCurves(maker, request, fmt::format("{}({})", name, number), columns);
      if (fault != DataFault::none) return fault;
    }
  }
  return DataFault::none;
}

DataFault MakeColumns(const Maker& maker, const NetworkInput& input, Columns& columns) {
  constexpr int kQuantities[] = {4, 5, 3, 41, 25};  // motion, vmgshp, acc, Ftotals, eta_cg
  for (const int iqnt : kQuantities) {
    QuantityRequest request;
    request.iqnt = iqnt;
    if (const DataFault fault = AddCurves(maker, request, "", columns); fault != DataFault::none) return fault;
  }
  return AddPoints(maker, input.NNDATA_RPT, columns);
}

// ---- The grid

double GridPlace(const NetworkGrid& grid, std::size_t axis, int i) {
  if (grid.count[axis] < 2) return grid.low[axis];
  return grid.low[axis] + i * (grid.high[axis] - grid.low[axis]) / (grid.count[axis] - 1);
}

// About the CG, turned by the yaw; non-dimensional.
void PlaceGrid(const NetworkGrid& grid, const CaseStore& store, int step, double LENOUT, std::vector<Vector3>& places) {
  const double cy = std::cos(store.pmgg.at(6, step)), sy = std::sin(store.pmgg.at(6, step));
  places.clear();
  for (int i = 0; i < grid.count[0]; ++i) {
    for (int j = 0; j < grid.count[1]; ++j) {
      const double x = GridPlace(grid, 0, i) / LENOUT, y = GridPlace(grid, 1, j) / LENOUT;
      places.push_back({store.pmgg.at(1, step) + (x * cy - y * sy), store.pmgg.at(2, step) + (x * sy + y * cy), 0});
    }
  }
}

void NameGrid(const NetworkGrid& grid, std::vector<std::string>& names) {
  for (int i = 1; i <= grid.count[0]; ++i)
    for (int j = 1; j <= grid.count[1]; ++j) names.push_back(fmt::format("eta({},{})", i, j));
}

struct GridWave {
  std::vector<Vector3> places;
  std::vector<float> eta;
};

bool GridAtStep(const Maker& maker, const NetworkGrid& grid, int step, GridWave& at) {
  const CaseStore& c = maker.store;
  const double LENOUT = maker.settings.units.LENOUT;
  PlaceGrid(grid, c, step, LENOUT, at.places);
  at.eta.resize(at.places.size());
  WaveOptions options;
  options.elevation_only = true;
  WaveOutputs outputs;
  outputs.eta = at.eta;
  const WaveMoment moment{c.time.at(1, step), WaveScaleAtStep(c.seaway.scaling, step).scale};
  if (EvalIncidentWave(c.wave, moment, options, at.places, outputs) != WaveFault::none) return false;
  for (float& eta : at.eta) eta *= maker.settings.units.LENOUT;
  return true;
}

DataFault WriteRows(const Maker& maker, const NetworkInput& input, Columns& columns, OutputFile& out) {
  const NetworkGrid& grid = input.NNDATA_FSGT;
  NameGrid(grid, columns.names);
  std::string text = out.had_text ? "\n" : "";
  fmt::format_to(std::back_inserter(text), kTitle, maker.store.file_name);
  const TableLayout layout = LayoutFor(maker.settings.writing.separator, columns.names);
  AppendHeading(text, layout, columns.names);
  std::vector<float> cells;
  GridWave wave;
  for (std::size_t row = 0; row < columns.values.front().size(); ++row) {
    cells.clear();
    for (const std::vector<float>& column : columns.values) cells.push_back(column[row]);
    if (grid.count[0] > 0 && grid.count[1] > 0) {
      if (!GridAtStep(maker, grid, maker.store.first_step + static_cast<int>(row), wave)) return DataFault::no_wave;
      cells.insert(cells.end(), wave.eta.begin(), wave.eta.end());
    }
    AppendRow(text, layout, cells);
    WriteGathered(out, text);
  }
  WriteOutput(out, text);
  return DataFault::none;
}

}  // namespace

bool ReadNetworkInput(const Platform& platform, const std::string& name, NetworkInput& input) {
  input = NetworkInput{};
  return DoOrSay(platform.console, kNoMemory, [&] { return TakeModule(platform, name, input); });
}

DataFault WriteNetworkData(const Console& console, const OutputSettings& settings, const NetworkInput& input,
                           CaseStore& case_store, OutputFile& out) {
  OutputSettings every_step = settings;
  every_step.reading.step_stride = 1;
  const Maker maker{console, every_step, case_store};
  return Guarded(
      [&] {
        Columns columns;
        const DataFault fault = MakeColumns(maker, input, columns);
        return fault == DataFault::none ? WriteRows(maker, input, columns, out) : fault;
      },
      DataFault::no_memory);
}

}  // namespace zaview
