#include "script/selectors.h"

#include <algorithm>
#include <vector>

#include "base/number_parse.h"
#include "base/text.h"
#include "case/quantity_catalogue.h"
#include "case/settings/point_settings.h"
#include "script/nearest_word.h"

namespace zaview {

namespace {

constexpr std::string_view kInvalidQuantity = "ERROR - Invalid quantity specifier: {}";
constexpr std::string_view kNearest = "        the nearest quantity is {}";
constexpr std::string_view kHelp = "        zaview -help quantities tells them";
constexpr std::string_view kAllRefused = "ERROR - Option ALL not valid for {} command ...";
constexpr std::string_view kFewPlain = "ERROR - Insufficient arguments for {} command ...";
constexpr std::string_view kFewPoint = "ERROR - Insufficient arguments for {} command for point motion...";
constexpr std::string_view kBadMissile = "ERROR - Invalid option index for {} command for missile data...";
constexpr std::string_view kNoLoad = "ERROR - Invalid quantity for {} command ...";
constexpr std::string_view kCurveFault = "ERROR - Invalid curve index for {} option {}";
constexpr std::string_view kOneCurve = "        {} has one curve";
constexpr std::string_view kCurves = "        {} has the curves 1 to {}";

// The only ones of a transient added mass run.
constexpr SelectorRow kImpulsiveSelectors[] = {
    {"TADM", kTransientAddedMass},
    {"FIRF", kImpulse},
};

// How many numbers follow, in the order plain, point, missile: without a curve index, with one; and what is said if
// some are missing.
struct TailRow {
  int numbers, numbers_with_curve;
  std::string_view few;
  int status;
};
constexpr TailRow kTails[] = {
    {0, 1, kFewPlain, kScriptBadArgument}, {3, 4, kFewPoint, kScriptFailed}, {8, 8, kFewMissile, kScriptFailed}};

void SayQuantityMeant(const Console& console, std::span<const SelectorRow> rows, std::string_view word) {
  const std::string capitals = Capitals(word);
  NearestWord nearest{capitals};
  for (const SelectorRow& row : rows) nearest.Offer(row.word);
  if (nearest.nearest.empty()) SayLine(console, kHelp);
  else Say(console, kNearest, nearest.nearest);
}

}  // namespace

int ParseQuantitySpecifier(WordScanner& scanner, std::span<const SelectorRow> rows, std::string& word) {
  word = NextScriptWord(scanner, kKeyword);
  const std::string capitals = Capitals(TrimEnd(word));
  if (capitals == "ALL") return kSelectAll;
  if (capitals == "OFF") return kSelectOff;
  const auto found =
      std::find_if(rows.rbegin(), rows.rend(), [&capitals](const SelectorRow& row) { return row.word == capitals; });
  return found == rows.rend() ? kSelectNone : static_cast<int>(rows.rend() - found);
}

std::span<const SelectorRow> SelectorWords(bool impulsive) {
  if (impulsive) return kImpulsiveSelectors;
  static const std::vector<SelectorRow> rows = [] {
    std::vector<SelectorRow> words;
    for (const QuantityRow& row : AllQuantities())
      for (const std::string_view word : row.words)
        if (!word.empty()) words.push_back({word, row.iqnt});
    return words;
  }();
  return rows;
}

int ReadSelector(ScriptCall& call, Selector& selector) {
  const std::span<const SelectorRow> rows = SelectorWords(call.session.case_store.tadm_case);
  const int index = ParseQuantitySpecifier(call.words, rows, selector.word);
  if (index == kSelectAll) return Fail(call, kScriptBadArgument, kAllRefused, call.command);
  if (index < 1) {
    Say(call.console(), kInvalidQuantity, selector.word);
    SayQuantityMeant(call.console(), rows, selector.word);
    return kScriptBadArgument;
  }
  const SelectorRow& row = rows[static_cast<std::size_t>(index - 1)];
  selector.iqnt = row.iqnt;
  selector.form = IsPointQuantity(row.iqnt) ? TailForm::point : TailForm::plain;
  if (FindQuantity(row.iqnt)->need == QuantityNeed::missile) selector.form = TailForm::missile;
  return kScriptOk;
}

bool ReadCurveOrAll(ScriptCall& call, Selector& selector, int& curve) {
  const std::string word = NextScriptWord(call.words, kKeyword);
  selector.all_curves = Capitals(word) == "ALL";
  float index = 0;
  if (!selector.all_curves && !ParseFloat(word, index)) return false;
  curve = RoundToInt(static_cast<double>(index));
  return true;
}

int ReadTail(ScriptCall& call, Selector& selector, CurveIndex curve, QuantityRequest& request) {
  const TailRow& tail = kTails[static_cast<std::size_t>(selector.form)];
  const bool or_all = curve == CurveIndex::given_or_all && selector.form != TailForm::missile;
  const int n = curve == CurveIndex::none || or_all ? tail.numbers : tail.numbers_with_curve;
  int index = 1;  // of a missile
  std::vector<float> values;
  if (!ParseRealList(call.words, n, values) || (or_all && !ReadCurveOrAll(call, selector, index)))
    return Fail(call, tail.status, fmt::runtime(tail.few), call.command);
  request = {};
  request.iqnt = selector.iqnt;
  if (selector.form != TailForm::plain) std::copy_n(values.begin(), 3, request.point.begin());
  if (selector.form == TailForm::missile) {
    if (RoundToInt(static_cast<double>(values[3])) != 1) return Fail(call, kScriptFailed, kBadMissile, call.command);
    std::copy_n(values.begin() + 4, 4, request.missile.begin());
  }
  RememberPoint(request, call.session.output.point);
  if (curve == CurveIndex::none) return kScriptOk;
  if (!or_all && selector.form != TailForm::missile) index = RoundToInt(static_cast<double>(values.back()));
  request.curve = index;
  return kScriptOk;
}

int CheckCurve(ScriptCall& call, const Selector& selector, const QuantityRequest& request) {
  if (selector.all_curves) return kScriptOk;
  const int count = CurveCount(call.session.case_store, request.iqnt);
  if (request.curve >= 1 && request.curve <= count) return kScriptOk;
  Say(call.console(), kCurveFault, call.command, selector.word);
  if (count == 1) Say(call.console(), kOneCurve, selector.word);
  else if (count > 1) Say(call.console(), kCurves, selector.word, count);
  return kScriptBadArgument;
}

bool HasQuantity(const ScriptCall& call, const Selector& selector) {
  const QuantityRow* row = FindQuantity(selector.iqnt);
  return row != nullptr && row->need != QuantityNeed::file_only &&
         QuantityValid(call.session.case_store, selector.iqnt);
}

int ReadCurve(ScriptCall& call, Selector& selector, QuantityRequest& request, std::string_view not_valid,
              CurveIndex curve) {
  if (const int status = ReadSelector(call, selector); status != kScriptOk) return status;
  if (!HasQuantity(call, selector))
    return Fail(call, kScriptBadArgument, fmt::runtime(not_valid), call.command, selector.word);
  if (const int status = ReadTail(call, selector, curve, request); status != kScriptOk) return status;
  return CheckCurve(call, selector, request);
}

int ReadLoadAndStep(ScriptCall& call, Selector& selector, int& step) {
  const CaseStore& store = call.session.case_store;
  if (const int status = ReadSelector(call, selector); status != kScriptOk) return status;
  const QuantityRow* row = FindQuantity(selector.iqnt);
  if (row == nullptr || row->load_kind == 0 || selector.form != TailForm::plain)
    return Fail(call, kScriptBadArgument, kNoLoad, call.command);
  if (!QuantityValid(store, selector.iqnt))
    return Fail(call, kScriptBadArgument, kNotValid, call.command, selector.word);
  std::vector<float> values;
  if (!ParseRealList(call.words, 1, values)) return Fail(call, kScriptBadArgument, kFewPlain, call.command);
  step = std::max(store.first_step, std::min(StepCount(values[0]), store.last_step));
  return kScriptOk;
}

}  // namespace zaview
