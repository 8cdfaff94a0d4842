#include "script/selectors.h"

#include <algorithm>
#include <array>
#include <vector>

#include "base/number_parse.h"
#include "base/text.h"
#include "case/quantity_catalogue.h"
#include "script/open_script_file.h"

namespace zaview {

namespace {

inline constexpr std::string_view kInvalidQuantity = "ERROR - Invalid quantity specifier: {}";
inline constexpr std::string_view kAllRefused = "ERROR - Option ALL not valid for {} command ...";
inline constexpr std::string_view kFewPlain = "ERROR - Insufficient arguments for {} command ...";
inline constexpr std::string_view kFewPoint = "ERROR - Insufficient arguments for {} command for point motion...";
inline constexpr std::string_view kFewMissile = "ERROR - Insufficient arguments for {} command for missile data...";
inline constexpr std::string_view kBadMissile = "ERROR - Invalid option index for {} command for missile data...";
inline constexpr std::string_view kCurveFault = "ERROR - Invalid curve index for {} option {}";

// Selectors in their order, and the quantities they name. Rows 40 to 43 and 45 reach a quantity by another word.
constexpr std::array<std::string_view, 53> kSelectors = {
    "MOT",        "VEL",        "ACC",       "UMOT",      "VSHIP",      "FTOT",  "FHYD",     "FLIN",      "FNONLIN",
    "FHSFK",      "FOTH",       "FEXT",      "VSF",       "VBM",        "HSF",   "HBM",      "AXF",       "TRM",
    "VSFY",       "VBMY",       "HSFY",      "HBMY",      "AXFY",       "TRMY",  "WAV",      "WAV0",      "POINT_MOT",
    "POINT_VEL",  "POINT_ACC",  "POINT_REL", "POINT_VIN", "POINT_VING", "VMNVR", "KINO_MOT", "KINO_SEA",  "POINT_ALL",
    "POINT_ALL1", "POINT_ALLI", "VELG",      "PMG",       "VMG",        "VMGG",  "VELS",     "ACCG",      "SEA",
    "FTOTS",      "FHYDS",      "FLINS",     "FNONLINS",  "FHSFKS",     "FOTHS", "FEXTS",    "POINT_MISS"};

constexpr std::array<int, 53> kSelectorQuantity = {
    1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27,
    28, 29, 30, 31, 32, 33, 34, 35, 36, 37, 38, 39, 1,  2,  39, 5,  40, 35, 41, 42, 43, 44, 45, 46, 47, 48};

// The only ones of a transient added mass run: quantities kTransientAddedMass and kImpulse.
constexpr std::array<std::string_view, 2> kImpulsiveSelectors = {"TADM", "FIRF"};

// How many numbers follow, in the order plain, point, missile: without a curve index, with one; and what is said if
// some are missing.
struct TailRow {
  int numbers, numbers_with_curve;
  std::string_view few;
  int status;
};
constexpr TailRow kTails[] = {
    {0, 1, kFewPlain,   kScriptBadArgument},
    {3, 4, kFewPoint,   kScriptFailed     },
    {8, 8, kFewMissile, kScriptFailed     }
};

}  // namespace

int ParseQuantitySpecifier(WordScanner& scanner, std::span<const std::string_view> names, std::string& word) {
  word = NextScriptWord(scanner, kKeyword);
  const std::string capitals = Capitals(word);
  if (capitals == "ALL") return kSelectAll;
  if (capitals == "OFF") return kSelectOff;
  const auto found = std::find(names.rbegin(), names.rend(), std::string_view(TrimEnd(capitals)));
  return found == names.rend() ? kSelectNone : static_cast<int>(names.rend() - found);
}

int ReadSelector(ScriptCall& call, Selector& selector) {
  const bool impulsive = call.session.case_store.tadm_case;
  const std::span<const std::string_view> names = impulsive ? std::span<const std::string_view>(kImpulsiveSelectors)
                                                            : std::span<const std::string_view>(kSelectors);
  const int index = ParseQuantitySpecifier(call.words, names, selector.word);
  if (index == kSelectAll) return Fail(call, kScriptBadArgument, kAllRefused, call.command);
  if (index < 1) return Fail(call, kScriptBadArgument, kInvalidQuantity, selector.word);
  if (impulsive) {
    selector.iqnt = index;
    selector.form = TailForm::plain;
    return kScriptOk;
  }
  const auto row = static_cast<std::size_t>(index - 1);
  selector.iqnt = kSelectorQuantity[row];
  selector.form = TailForm::plain;
  if (StartsWith(kSelectors[row], "POINT")) selector.form = TailForm::point;
  if (kSelectors[row] == "POINT_MISS") selector.form = TailForm::missile;
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
