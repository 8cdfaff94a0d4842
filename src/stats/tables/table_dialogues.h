// Statistics tables of the current record from the menu: a file is asked for, written, and RETURN awaited.
#pragma once

#include "base/platform.h"
#include "case/case_store.h"
#include "case/output_settings.h"
#include "case/plot_data.h"
#include "frame/ground/prompts.h"
#include "stats/tables/stat_table.h"

namespace zaview {

struct StatDialogue {  // what the dialogues of statistics work on: answers change the settings
  const Platform& platform;
  OutputSettings& settings;
  EnsembleCases cases;
  StatisticsState& state;
  [[nodiscard]] StatWork work() const { return {platform, settings, cases, state}; }
};

// All curves of the quantity.
void AskStatisticsFile(const StatDialogue& dialogue, const QuantityRequest& request);
void AskIntervalFile(const StatDialogue& dialogue, const QuantityRequest& request);

// ---- What these and the dialogues of ensembles have in common

// The probability level, the present one as the default, asked until 0 < p < 1.
[[nodiscard]] Answer AskProbability(const Console& console, OutputSettings& settings);

}  // namespace zaview
