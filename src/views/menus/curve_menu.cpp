// The menu of curve selection: quantity, curves, records.
#include <algorithm>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "base/text.h"
#include "case/quantity_catalogue.h"
#include "case/settings/point_settings.h"
#include "menu/menu_build.h"
#include "views/menus/menus.h"
#include "views/menus/option_builder.h"
#include "views/state/plot_kinds.h"
#include "views/state/plot_scopes.h"
#include "views/state/plot_selection.h"

namespace zaview {

namespace {

constexpr std::size_t kQuantityColumns = 50;
constexpr int kQuantityLines = 12, kMostLines = 12;  // of a list that is as high as its items, before it scrolls

using Plot = DataPlotState;

constexpr KeyScope kOfQuantity = kOfComponents;
constexpr KeyScope kSeveral = kHistory | kLoadDist;

const QuantityRow* QuantityOf(const Session& s) {
  return s.case_store.time_history() ? FindQuantity(s.data_plot.quantity.iqnt) : nullptr;
}

bool IsOfMissile(const Session& s, int) {
  const QuantityRow* const row = QuantityOf(s);
  return row != nullptr && row->need == QuantityNeed::missile;
}

bool IsOfPoint(const Session& s, int index) {
  return QuantityOf(s) != nullptr && IsPointQuantity(s.data_plot.quantity.iqnt) && !IsOfMissile(s, index);
}

// ---- Lists
// `one`: a single choice. They scroll when they get long.
void BeginList(MenuToolkit& kit, bool one, int count, int value) {
  const bool in_box = count > kMostLines;
  const int mode = one ? (in_box ? kOneInBox : kOneChoice) : (in_box ? kSeveralInBox : kSeveralChoices);
  gksMenuSelectionList(kit, mode, std::max(count, 1), value, kMostLines);
}

void BuildQuantityList(MenuToolkit& kit, Session& s) {
  std::vector<int> shown;
  for (int iqnt = 1; iqnt <= QuantityCount(s.case_store); ++iqnt)
    if (CanShowOfPoint(s.platform.console, s.case_store, s.data_plot, iqnt)) shown.push_back(iqnt);
  const int count = std::max(static_cast<int>(shown.size()), 1);
  gksMenuSelectionList(kit, kOneInBox, count, s.data_plot.quantity.iqnt, std::min(count, kQuantityLines));
  for (const int iqnt : shown)
    gksMenuAddListItem(kit, CutAtLetter(QuantityLabel(s.case_store, iqnt), kQuantityColumns), iqnt);
}

// One of a point that was never given begins with the origin of the input, and asks for it.
std::string_view SetQuantity(Session& s, const OptionEvent& event) {
  PointSettings& point = s.output.point;
  const int iqnt = event.integer;
  const bool of_new_point = s.case_store.time_history() && !PointGiven(point, iqnt);
  if (of_new_point) {
    QuantityRequest request{.iqnt = iqnt};
    UsePoint(point, request);
    RememberPoint(request, point);
  }
  (void)TakeQuantity(s.platform.console, s.case_store, point, s.data_plot, iqnt, false);
  if (of_new_point) InvokePointMenu(s, MenuMode::open);
  return {};
}

int CurvesOf(const Session& s) {
  return CurveCount(s.case_store, s.data_plot.quantity.iqnt);
}

std::string CurveText(const Session& s, int component) {
  return fmt::format("{} {}", component, CurveLabel(s.case_store, s.output, s.data_plot.quantity.iqnt, component));
}

void BuildCurveList(MenuToolkit& kit, Session& s) {
  const int count = CurvesOf(s);
  BeginList(kit, true, count, std::max(s.data_plot.plot_component, 1));
  for (int i = 1; i <= count; ++i) gksMenuAddListItem(kit, CurveText(s, i), i);
}

void BuildPanelList(MenuToolkit& kit, Session& s) {
  const std::vector<ResultPanel>& panels = s.data_plot.result.panels;
  BeginList(kit, true, static_cast<int>(panels.size()) + 1, s.data_plot.plot_component);
  gksMenuAddListItem(kit, "All", 0);
  for (std::size_t i = 0; i < panels.size(); ++i)
    gksMenuAddListItem(kit, fmt::format("{} {}", i + 1, panels[i].y_name), static_cast<int>(i) + 1);
}

std::string_view SetCurve(Session& s, const OptionEvent& event) {
  (void)TakeComponent(s.data_plot, s.case_store, event.integer);
  return {};
}

void BuildCurvesList(MenuToolkit& kit, Session& s) {
  const int count = CurvesOf(s);
  BeginList(kit, false, count, 0);
  for (int i = 1; i <= count; ++i) {
    gksMenuAddListItem(kit, CurveText(s, i), i);
    gksMenuSetAttribute(kit, MenuAttribute::style, IsCurveDrawn(s.data_plot, i) ? kItemChosen : 0);
  }
}

std::string_view SetCurves(Session& s, const OptionEvent& event) {
  const int component = event.integer;
  (void)ShowCurve(s.data_plot, s.case_store, component, !IsCurveDrawn(s.data_plot, component));
  return {};
}

std::string_view SetAllCurves(Session& s, const OptionEvent&) {
  (void)ShowAllCurves(s.data_plot);
  return {};
}

constexpr std::string_view kStatistics[] = {"Mean", "St.dev", "Variance", "Sig Amp"};

void BuildStatisticList(MenuToolkit& kit, Session& s) {
  int number = 0;
  BeginList(kit, true, static_cast<int>(std::size(kStatistics)), s.data_plot.statistic);
  for (const std::string_view name : kStatistics) gksMenuAddListItem(kit, name, ++number);
}

std::string_view SetStatistic(Session& s, const OptionEvent& event) {
  s.data_plot.statistic = event.integer;
  return {};
}

// Of a case that is in store, or of the one in use.
const CaseStore& RecordAt(const Session& s, int irec) {
  return irec == s.ensemble.irec ? s.case_store : s.ensemble.record[static_cast<std::size_t>(irec - 1)];
}

void BuildRecordList(MenuToolkit& kit, Session& s) {
  constexpr int kEnsemble = 0;
  const int nrec = s.ensemble.nrec;
  const bool together = ShowsEnsemble(s.data_plot);
  BeginList(kit, true, nrec + 1, together ? kEnsemble : s.ensemble.irec);
  for (int i = 1; i <= nrec; ++i) {
    const CaseStore& record = RecordAt(s, i);
    gksMenuAddListItem(kit, fmt::format("IWVRLZ {:<3} {}", record.control.seaway.IWVRLZ, record.file_name), i);
  }
  if (RowOf(s.data_plot.kind).averages != Averages::no) gksMenuAddListItem(kit, "Ensemble", kEnsemble);
}

std::string_view SetRecord(Session& s, const OptionEvent& event) {
  (void)TakeRecord(s.platform.console, s.output.point, s.case_store, s.ensemble, s.data_plot, event.integer);
  return {};
}

bool HasRecords(const Session& s, int) {
  return s.ensemble.nrec > 1;
}

bool HasWave(const Session& s, int) {
  return s.case_store.time_history();
}

// ---- Rows
constexpr OptionItem Text(std::string_view text, KeyScope scope, OptionStands stands = nullptr) {
  return {.kind = OptionKind::text, .text = text, .scope = scope, .stands = stands};
}

constexpr OptionItem List(void (*build)(MenuToolkit& kit, Session& session), OptionSets sets, KeyScope scope,
                          OptionStands stands = nullptr) {
  return {.kind = OptionKind::element, .value = {nullptr, sets}, .scope = scope, .stands = stands, .build = build};
}

constexpr OptionItem kChange = {.kind = OptionKind::point, .text = "Change"};

constexpr OptionItem kRows[] = {
    Text("Quantity", kOfQuantity),
    List(BuildQuantityList, SetQuantity, kOfQuantity),
    Row({}, kOfQuantity),
    Check("Keep axis limits when changing quantity", Flag<&Session::data_plot, &Plot::keep_scale>),
    Row("Point for ship-fixed point motions:", kAlways, IsOfPoint),
    kChange,
    Row("Point for missile motion/load calc:", kAlways, IsOfMissile),
    kChange,
    Row("Coefficients missile motion/load calc:", kAlways, IsOfMissile),
    kChange,
    Text("Curve:", kOneCurve),
    List(BuildCurveList, SetCurve, kOneCurve),
    Text("Panel:", kResult),
    List(BuildPanelList, SetCurve, kResult),
    Row("Curve(s):", kSeveral),
    Button("All", SetAllCurves),
    List(BuildCurvesList, SetCurves, kSeveral),
    Row({}, kHistory, HasWave),
    Check("Overlay Wave at CG", Flag<&Session::data_plot, &Plot::wave_overlay>),
    Check("separate scale", Flag<&Session::data_plot, &Plot::wave_own_scale>),
    Text("Statistic:", kInterval),
    List(BuildStatisticList, SetStatistic, kInterval),
    Text("Record:", kOfQuantity, HasRecords),
    List(BuildRecordList, SetRecord, kOfQuantity, HasRecords),
};

constexpr OptionBlock kBlocks[] = {{kRows}};

}  // namespace

ViewOptions CurveOptions(const Session& session) {
  return {kBlocks, ScopeOf(session.data_plot.kind)};
}

}  // namespace zaview
