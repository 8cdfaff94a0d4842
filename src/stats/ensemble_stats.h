// Statistics of an ensemble: records of one quantity from several runs of the same condition, each with the weight of
// its length, w(i) = np(i)/sum(np). Two schemes for the uncertainty: with few records the dependence inside each record
// counts (autocovariances averaged over the records), with many the spread between records is the measure.
// Single precision, one running sum a formula. Pure.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "stats/peak_stats.h"
#include "stats/record_stats.h"

namespace zaview {

using EnsembleRecords = std::span<const std::span<const float>>;  // record i holds np(i) samples, 0 allowed

enum class EnsembleScheme : std::uint8_t { small, large };
// nmany 0: small; 1: large; below 0: large from 30 records on; above 1: large from nmany records on.
[[nodiscard]] EnsembleScheme SchemeOf(int nmany, int nr);

struct EnsembleStats {
  float xme = 0, xve = 0, xse = 0, VarMe = 0, VarVe = 0, VarSe = 0;
  float xmeci = 0, xveci = 0, xseci = 0, xmin = 0, xmax = 0;
  std::vector<float> xm, xv;  // of each record
};

// iopt, faults as CalcRecordStats; no samples at all: zeros.
[[nodiscard]] StatFault CalcEnsembleStats(int iopt, EnsembleRecords X, float prob, int nmany, EnsembleStats& out);

// Peak averages over all records with one threshold xme; iopt as CalcRecordPeakStats. out[j] belongs to N[j].
[[nodiscard]] StatFault CalcEnsemblePeakStats(std::span<const int> N, int iopt, EnsembleRecords X, float prob,
                                              std::span<RecordPeakStats> out);

struct EnsembleAutoCov {
  std::vector<float> ratio;           // Rax(k)/Rax(0), k = 0..M, M = npmax/2; 0 where Rax(0) is 0
  std::vector<float> env_lag, env_R;  // envelope points
  float Rax0 = 0;                     // Rax(0); only with `whole`
  bool reached = false;               // the envelope falls to the cut-off; if not, the two below are 0
  int ndti = 0;
  float lag = 0;  // dti = dt x lag, untruncated
};
// whole: the ratios and all envelope points are wanted, else only ndti and lag (lags are made as far as the walk goes).
void CalcEnsembleAutoCov(EnsembleRecords X, float cutoff, bool whole, EnsembleAutoCov& out);

}  // namespace zaview
