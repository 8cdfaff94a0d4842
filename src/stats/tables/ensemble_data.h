// The records of an ensemble for one curve, loaded once for its key, and their dependence length.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "base/platform.h"
#include "case/case_store.h"
#include "case/ensemble_store.h"
#include "case/output_settings.h"
#include "case/plot_data.h"
#include "stats/statistics_state.h"

namespace zaview {

struct EnsembleCases {  // where the records stand: the current one in the case store, the others in the ensemble store
  CaseStore& current;
  EnsembleStore& ensemble;
  // Records from 1 to count(); without an ensemble the current case is record 1.
  [[nodiscard]] int count() const;
  [[nodiscard]] CaseStore& record(int irec) const;
};

struct StatWork {  // what all tables of statistics are made from
  const Platform& platform;
  const OutputSettings& settings;
  EnsembleCases cases;
  StatisticsState& state;
  [[nodiscard]] const Console& console() const { return platform.console; }
  [[nodiscard]] CaseStore& current() const { return cases.current; }
};

// The key of one curve of the current case.
[[nodiscard]] EnsembleKey KeyOf(const OutputSettings& settings, const QuantityRequest& request,
                                const CaseStore& current);
[[nodiscard]] EnsembleKey::Record RecordOf(const CaseStore& record);

// What a table of statistics says when memory is out.
inline constexpr std::string_view kNoWorkingArrays = "ERR493 - Error allocating working arrays for statistics";

// One curve of each record over its own steps in use, the skip counts of the current one for all. Says "Calculating
// Ensemble ..." where waves or point motions have to be made. Loads only if the key differs. A record without points
// is empty; without points in any of them `too_many_skipped` is said.
[[nodiscard]] DataFault LoadEnsemble(const StatWork& work, const QuantityRequest& request,
                                     std::string_view too_many_skipped);

// Views of the loaded samples, and of their times.
[[nodiscard]] std::vector<std::span<const float>> SamplesOf(const EnsembleData& data);
[[nodiscard]] std::vector<std::span<const float>> TimesOf(const EnsembleData& data);

[[nodiscard]] std::int64_t SampleCount(const EnsembleData& data);  // of all records
[[nodiscard]] float MeanOfAll(const EnsembleData& data);           // of all samples, one sum; 0 without any

// Loads, and makes state.dependence current: "Computing autocorrelation...", "Done" when it has to be computed,
// and a line where the cut-off isn't reached.
[[nodiscard]] DataFault UpdateDependence(const StatWork& work, const QuantityRequest& request);

// "Dependence time= 12.5 (25 steps)"
[[nodiscard]] std::string DependenceLine(const DependenceResult& dependence);

// "Position of CG, pmgg(3)"
[[nodiscard]] std::string EnsembleCurveName(const OutputSettings& settings, const QuantityRequest& request,
                                            const EnsembleCases& cases);

}  // namespace zaview
