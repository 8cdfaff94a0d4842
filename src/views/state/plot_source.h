// What data plots are made of: to make their data, and to draw them.
#pragma once

#include "frame/session.h"
#include "gks/plot/plot_look.h"
#include "stats/tables/ensemble_data.h"

namespace zaview {

struct PlotSource {  // made on first need: seaway, hull, the records of the ensemble
  const Platform& platform;
  const OutputSettings& output;
  CaseStore& store;
  EnsembleStore& ensemble;
  StatisticsState& statistics;
  [[nodiscard]] const Console& console() const { return platform.console; }
  [[nodiscard]] StatWork work() const { return {platform, output, {store, ensemble}, statistics}; }
};

struct PlotFacts {  // only looked at
  const OutputSettings& output;
  const CaseStore& store;
  const EnsembleStore& ensemble;
  const StatisticsState& statistics;
  const PlotLook& look = ClassicLook();
};

[[nodiscard]] inline PlotSource SourceOf(Session& s) {
  return {s.platform, s.output, s.case_store, s.ensemble, s.statistics};
}
[[nodiscard]] inline PlotFacts FactsOf(const Session& s) {
  return {s.output, s.case_store, s.ensemble, s.statistics, LookOf(s.gks)};
}

}  // namespace zaview
