#include "case/read/ensemble_match.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

#include "base/data_fault.h"
#include "base/grow.h"
#include "base/message.h"
#include "case/read/finish_case_read.h"
#include "case/wave_at_cg.h"
#include "control/input_scales.h"

namespace zaview {
namespace {

inline constexpr std::string_view kAssumedRealization =
    "Case assumed to be new realization of previous case(s) - adding to ensemble data";
inline constexpr std::string_view kCannotMatch = "Case cannot be matched previous case(s) - resetting ensemble data";
inline constexpr std::string_view kIdentical = "Case seems to be identical to previous case - resetting ensemble data";
inline constexpr std::string_view kRealization =
    "Case seems to be new realization of previous case(s) - adding to ensemble data";
inline constexpr std::string_view kNoMatch = "Case does not match previous case(s) - resetting ensemble data";

constexpr double kSameSpeed = 1E-4;  // over sqrt(gL)

double SpeedOf(const CaseStore& c) {
  return c.control.USHIP * InputScalesOf(c.control).velocity;
}

bool SameLoads(const SectionLoads& a, const SectionLoads& b) {
  return a.NBCA == b.NBCA && a.IVM == b.IVM && a.IHM == b.IHM && a.ITM == b.ITM && a.nycut == b.nycut &&
         a.ivmy == b.ivmy && a.ihmy == b.ihmy && a.itmy == b.itmy;
}

bool SameColumns(const CaseStore& a, const CaseStore& b) {
  return std::equal(a.measured_columns.begin(), a.measured_columns.end(), b.measured_columns.begin(),
                    b.measured_columns.end(), [](const MeasuredColumn& one, const MeasuredColumn& other) {
                      return one.name == other.name && one.unit == other.unit;
                    });
}

// A table doesn't tell what sea it was measured in: only the user knows. Stored values must be over the same length.
Match CompareTables(EnsembleMode ensemble_mode, const CaseStore& held, const CaseStore& fresh) {
  const auto same = [](double a, double b) { return static_cast<float>(a) == static_cast<float>(b); };  // as in use
  const bool same_scales =
      same(held.control.GRAVOUT, fresh.control.GRAVOUT) && same(held.control.LENOUT, fresh.control.LENOUT);
  if (ensemble_mode != EnsembleMode::forced || !same_scales) return Match::none;
  const bool with_run = !held.from_table() || !fresh.from_table();
  const bool comparable = with_run ? held.motions_known && fresh.motions_known : SameColumns(held, fresh);
  return comparable ? Match::realization : Match::none;
}

struct Outcome {
  std::string_view words;
  bool added;
};

Outcome OutcomeOf(EnsembleMode ensemble_mode, Match match) {
  const bool forced = ensemble_mode == EnsembleMode::forced;
  if (match == Match::none) return {forced ? kCannotMatch : kNoMatch, false};
  if (forced) return {kAssumedRealization, true};
  return match == Match::identical ? Outcome{kIdentical, false} : Outcome{kRealization, true};
}

// The case read last: the newest record.
CaseStore& LastCase(EnsembleStore& ensemble, CaseStore& case_store) {
  return ensemble.irec == ensemble.nrec ? case_store : ensemble.record[static_cast<std::size_t>(ensemble.nrec - 1)];
}

bool AddRecord(CaseStore& fresh, EnsembleStore& ensemble, CaseStore& case_store) {
  if (!Grow(ensemble.record, static_cast<std::size_t>(ensemble.nrec) + 1)) return false;
  ensemble.record[static_cast<std::size_t>(ensemble.irec - 1)] = std::move(case_store);
  case_store = std::move(fresh);
  ensemble.irec = ++ensemble.nrec;
  return true;
}

}  // namespace

Match CompareCases(const Console& console, EnsembleMode ensemble_mode, CaseStore& held, CaseStore& fresh) {
  if (!held.time_history() || !fresh.time_history() || held.combined || fresh.combined) return Match::none;
  if (held.from_table() || fresh.from_table()) return CompareTables(ensemble_mode, held, fresh);
  if (!SameLoads(held.loads, fresh.loads)) return Match::none;
  const bool speed_counts = ensemble_mode == EnsembleMode::automatic;
  if (speed_counts && !(std::fabs(SpeedOf(held) - SpeedOf(fresh)) <= kSameSpeed)) return Match::none;
  if (held.control.seaway.ISEA != fresh.control.seaway.ISEA) return Match::none;
  if (EnsureSeaway(console, held) != WaveAnswer::ok || EnsureSeaway(console, fresh) != WaveAnswer::ok)
    return Match::none;
  return CompareSeaways(held.seaway, fresh.seaway);
}

void match_case_to_ensemble(const Console& console, EnsembleMode ensemble_mode, CaseStore& fresh,
                            EnsembleStore& ensemble, CaseStore& case_store) {
  MarkChanged(ensemble, fresh);
  if (ensemble.nrec > 0 && !fresh.combined) {
    const Match match = CompareCases(console, ensemble_mode, LastCase(ensemble, case_store), fresh);
    const Outcome outcome = OutcomeOf(ensemble_mode, match);
    SayLine(console, outcome.words);
    if (outcome.added && AddRecord(fresh, ensemble, case_store)) return;
    if (outcome.added) SayLine(console, kReportNoMemory);
  }
  case_store = std::move(fresh);
  reset_ensemble(case_store, ensemble);
}

void TrimOtherRecords(const OutputSettings& settings, EnsembleStore& ensemble) {
  for (std::size_t i = 0; i < ensemble.record.size(); ++i)
    if (static_cast<int>(i) + 1 != ensemble.irec) (void)RetrimCase(settings, ensemble.record[i]);
}

void MarkChanged(EnsembleStore& ensemble, CaseStore& case_store) {
  case_store.serial = ++ensemble.last_serial;
}

void reset_ensemble(CaseStore& case_store, EnsembleStore& ensemble) {
  MarkChanged(ensemble, case_store);
  ensemble.record = {};
  ensemble.nrec = ensemble.irec = case_store.has_steps() ? 1 : 0;
}

bool SelectRecord(int irec, EnsembleStore& ensemble, CaseStore& case_store) {
  if (irec < 1 || irec > ensemble.nrec) return false;
  if (irec == ensemble.irec) return true;
  ensemble.record[static_cast<std::size_t>(ensemble.irec - 1)] = std::move(case_store);
  case_store = std::move(ensemble.record[static_cast<std::size_t>(irec - 1)]);
  ensemble.irec = irec;
  return true;
}

}  // namespace zaview
