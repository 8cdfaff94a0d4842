#include "script/selectors.h"

#include <algorithm>
#include <vector>

#include "base/number_parse.h"
#include "base/text.h"
#include "case/quantity_catalogue.h"
#include "case/settings/point_settings.h"
#include "script/open_script_file.h"

namespace zaview {

namespace {

inline constexpr std::string_view kInvalidQuantity = "ERROR - Invalid quantity specifier: {}";
inline constexpr std::string_view kAllRefused = "ERROR - Option ALL not valid for {} command ...";
inline constexpr std::string_view kFewPlain = "ERROR - Insufficient arguments for {} command ...";
inline constexpr std::string_view kFewPoint = "ERROR - Insufficient arguments for {} command for point motion...";
inline constexpr std::string_view kBadMissile = "ERROR - Invalid option index for {} command for missile data...";
inline constexpr std::string_view kCurveFault = "ERROR - Invalid curve index for {} option {}";

// In their order; some reach a quantity by another word.
// clang-format off
constexpr SelectorRow kSelectors[] = {
    {"MOT",          1},  {"VEL",          2},  {"ACC",          3},  {"UMOT",         4},
    {"VSHIP",        5},  {"FTOT",         6},  {"FHYD",         7},  {"FLIN",         8},
    {"FNONLIN",      9},  {"FHSFK",        10}, {"FOTH",         11}, {"FEXT",         12},
    {"VSF",          13}, {"VBM",          14}, {"HSF",          15}, {"HBM",          16},
    {"AXF",          17}, {"TRM",          18}, {"VSFY",         19}, {"VBMY",         20},
    {"HSFY",         21}, {"HBMY",         22}, {"AXFY",         23}, {"TRMY",         24},
    {"WAV",          25}, {"WAV0",         26}, {"POINT_MOT",    27}, {"POINT_VEL",    28},
    {"POINT_ACC",    29}, {"POINT_REL",    30}, {"POINT_VIN",    31}, {"POINT_VING",   32},
    {"VMNVR",        33}, {"KINO_MOT",     34}, {"KINO_SEA",     35}, {"POINT_ALL",    36},
    {"POINT_ALL1",   37}, {"POINT_ALLI",   38}, {"VELG",         39}, {"PMG",          1},
    {"VMG",          2},  {"VMGG",         39}, {"VELS",         5},  {"ACCG",         40},
    {"SEA",          35}, {"FTOTS",        41}, {"FHYDS",        42}, {"FLINS",        43},
    {"FNONLINS",     44}, {"FHSFKS",       45}, {"FOTHS",        46}, {"FEXTS",        47},
    {"POINT_MISS",   48},
};
// clang-format on

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
  return kSelectors;
}

int ReadSelector(ScriptCall& call, Selector& selector) {
  const std::span<const SelectorRow> rows = SelectorWords(call.session.case_store.tadm_case);
  const int index = ParseQuantitySpecifier(call.words, rows, selector.word);
  if (index == kSelectAll) return Fail(call, kScriptBadArgument, kAllRefused, call.command);
  if (index < 1) return Fail(call, kScriptBadArgument, kInvalidQuantity, selector.word);
  const SelectorRow& row = rows[static_cast<std::size_t>(index - 1)];
  selector.iqnt = row.iqnt;
  selector.form = TailForm::plain;
  if (StartsWith(row.word, "POINT")) selector.form = TailForm::point;
  if (row.word == "POINT_MISS") selector.form = TailForm::missile;
  return kScriptOk;
}

int ReadTail(ScriptCall& call, const Selector& selector, CurveIndex curve, QuantityRequest& request) {
  const TailRow& tail = kTails[static_cast<std::size_t>(selector.form)];
  const int n = curve == CurveIndex::given ? tail.numbers_with_curve : tail.numbers;
  std::vector<float> values;
  if (!ParseRealList(call.words, n, values)) return Fail(call, tail.status, fmt::runtime(tail.few), call.command);
  request = {};
  request.iqnt = selector.iqnt;
  if (selector.form != TailForm::plain) std::copy_n(values.begin(), 3, request.point.begin());
  if (selector.form == TailForm::missile) {
    if (RoundToInt(static_cast<double>(values[3])) != 1) return Fail(call, kScriptFailed, kBadMissile, call.command);
    std::copy_n(values.begin() + 4, 4, request.missile.begin());
  }
  RememberPoint(request, call.session.output.point);
  if (curve == CurveIndex::none) return kScriptOk;
  request.curve = selector.form == TailForm::missile ? 1 : RoundToInt(static_cast<double>(values.back()));
  return kScriptOk;
}

int CheckCurve(ScriptCall& call, const Selector& selector, const QuantityRequest& request) {
  if (request.curve >= 1 && request.curve <= CurveCount(call.session.case_store, request.iqnt)) return kScriptOk;
  return Fail(call, kScriptBadArgument, kCurveFault, call.command, selector.word);
}

int ReadCurve(ScriptCall& call, Selector& selector, QuantityRequest& request, std::string_view not_valid) {
  if (const int status = ReadSelector(call, selector); status != kScriptOk) return status;
  const QuantityRow* row = FindQuantity(selector.iqnt);
  const bool valid =
      row != nullptr && row->need != QuantityNeed::file_only && QuantityValid(call.session.case_store, selector.iqnt);
  if (!valid) return Fail(call, kScriptBadArgument, fmt::runtime(not_valid), call.command, selector.word);
  if (const int status = ReadTail(call, selector, CurveIndex::given, request); status != kScriptOk) return status;
  return CheckCurve(call, selector, request);
}

}  // namespace zaview
