// Averages of the highest 1/N peaks with a confidence half width that respects clusters of dependent peaks.
#pragma once

#include <span>

#include "stats/peaks.h"
#include "stats/record_stats.h"

namespace zaview {

// iopt of the routines below: averages with their half widths; averages alone.
inline constexpr int kPeakHalfWidths = 0, kPeakAveragesOnly = 1;

struct PeakAverage {
  float xpkN = 0, xpkNci = 0;
  int npN = 0, Nclpks = 0, Mclmax = 0;  // kept peaks, clusters, largest cluster
};

// The average of the int(np/N + 0.5) highest of np peaks, values as they stand, and its half width: peaks at most ndti
// steps behind the one before, in one record, form a cluster, and only inside a cluster do peaks depend on each other.
// fact -1 ranks the most negative first.
void CalcPeakAvgN(int N, int iopt, const PeakList& peaks, float fact, int ndti, float probCoef, PeakAverage& out);

struct RecordPeakStats {  // of all peaks, bottoms (b), tops (t), each with its half width (ci); counts; length in steps
  float xpkN = 0, xpkNb = 0, xpkNt = 0, xpkNci = 0, xpkNbci = 0, xpkNtci = 0;
  int Npks = 0, Npksb = 0, Npkst = 0, ndti = 0;
};

// The parts of these statistics that one record and an ensemble share.
inline constexpr float kPeakCutoff = 0.05F;  // autocorrelation below which peaks count as independent
[[nodiscard]] StatFault PeakFaults(std::span<const int> N, int iopt, float prob);
// Is any of N below the number of peaks, so that its interval needs ndti?
[[nodiscard]] bool NeedsDependence(std::span<const int> N, int iopt, const Peaks& peaks);
void AveragePeaks(std::span<const int> N, int iopt, const Peaks& peaks, int ndti, float probCoef,
                  std::span<RecordPeakStats> out);

[[nodiscard]] StatFault CalcRecordPeakStats(int N, int iopt, std::span<const float> x, float prob,
                                            RecordPeakStats& out);

// Several N of one record at once: peaks and dependence length are found once. out[j] belongs to N[j].
[[nodiscard]] StatFault CalcRecordPeakStats(std::span<const int> N, int iopt, std::span<const float> x, float prob,
                                            std::span<RecordPeakStats> out);

}  // namespace zaview
