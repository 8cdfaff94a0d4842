// Quantity selectors and the numbers behind them.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "case/plot_data.h"
#include "script/script_call.h"

namespace zaview {

inline constexpr int kSelectAll = 0, kSelectNone = -1, kSelectOff = -2;

struct SelectorRow {
  std::string_view word;
  int iqnt;  // number in the quantity catalogue
};

// All words, of runs in time or of transient added mass.
[[nodiscard]] std::span<const SelectorRow> SelectorWords(bool impulsive);

// Takes the next word of the line: kSelectAll for ALL, kSelectOff for OFF, the index (from 1) of the last row whose
// word is the same in capitals, or kSelectNone. word: as typed.
[[nodiscard]] int ParseQuantitySpecifier(WordScanner& scanner, std::span<const SelectorRow> rows, std::string& word);

enum class TailForm : unsigned char { plain, point, missile };

struct Selector {
  std::string word;  // as typed
  int iqnt = 0;
  TailForm form = TailForm::plain;
  bool all_curves = false;  // ALL stood in the place of the curve index
};

// 0, or the status of the failure that has been said.
[[nodiscard]] int ReadSelector(ScriptCall& call, Selector& selector);

inline constexpr std::string_view kFewMissile = "ERROR - Insufficient arguments for {} command for missile data...";

enum class CurveIndex : unsigned char { none, given, given_or_all };

// The numbers behind the selector: plain `i`; point `x y z i`; missile x y z, an option index that is 1, four numbers.
// Without a curve index the `i` is missing and all curves are asked for; given_or_all takes ALL for it as well. Doesn't
// test the index against the case.
[[nodiscard]] int ReadTail(ScriptCall& call, Selector& selector, CurveIndex curve, QuantityRequest& request);

// A curve index, or ALL: curve is 0 then. False: neither.
[[nodiscard]] bool ReadCurveOrAll(ScriptCall& call, Selector& selector, int& curve);

// Is the curve index one of this case?
[[nodiscard]] int CheckCurve(ScriptCall& call, const Selector& selector, const QuantityRequest& request);

// Selector and tail with its curve index, tested against the case. not_valid: what is said of a quantity that this
// case lacks, with slots {0} command and {1} selector.
inline constexpr std::string_view kNotValid = "ERROR - {0} option {1} not valid for this output file";
[[nodiscard]] bool HasQuantity(const ScriptCall& call, const Selector& selector);
[[nodiscard]] int ReadCurve(ScriptCall& call, Selector& selector, QuantityRequest& request,
                            std::string_view not_valid = kNotValid, CurveIndex curve = CurveIndex::given);

// A quantity of sectional loads and a time step; step: the nearest one in use.
[[nodiscard]] int ReadLoadAndStep(ScriptCall& call, Selector& selector, int& step);

inline constexpr std::string_view kBadIrf = "WARNING - IRF index {} not valid for {}";  // the script goes on

}  // namespace zaview
