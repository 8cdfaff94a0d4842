// From the definition of a seaway in the control data to its list of wave components.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "base/platform.h"
#include "control/control_records.h"
#include "waves/seaway.h"

namespace zaview {

struct SpectrumOptions {  // -1: not set
  double SPEC_CUTOFF = -1, SPEC_FREQ1 = -1, SPEC_FREQ2 = -1;
  int SPEC_DISTOPT = -1, SPEC_SPREADOPT = -1, SPEC_PHASEOPTION = -1;
};
[[nodiscard]] SpectrumOptions PrimaryOptions(const ControlRecords& records);  // of $OPTIONS:
[[nodiscard]] SpectrumOptions AddedOptions(const AddedSeawayInput& added);    // of $ADDSEA:

enum class SeawayFault : std::uint8_t { none, bad_seaway, out_of_memory };

// Appends the components of a spectral seaway (ISEA 2, 6, 7, 8): for each heading, for each frequency,
// AMPW0 = sqrt(2 S(w) D(theta) dtheta dw). In input units, amplitudes formed in double and scaled by `length`,
// frequencies by `frequency`, then rounded. `phases` replaces the table of options -1 to 3 when not empty.
struct ComponentScales {
  double length = 1, frequency = 1;
};
[[nodiscard]] SeawayFault SetupWaveComponents(const SeawayInput& input, const SpectrumOptions& options,
                                              std::span<const float> phases, double g, ComponentScales scales,
                                              WaveComponents& waves, std::vector<double>* sppt = nullptr);

// The whole seaway of a case, $ADDSEA: included, non-dimensional. Traces "sppt=" where a clustered spacing is laid and
// says, on a fault, its line.
[[nodiscard]] SeawayFault GetZAVOSeaway(const Console& console, const ControlRecords& records, const PhaseLists& phases,
                                        Seaway& seaway);

// Unpacks a seaway record, 4-byte reals: ISEA, gravity, depth, then for ISEA 1, 2, 6, 7, 8 a count and frequency,
// phase, amplitude, heading of each; ISEA 3 the order and one such component; ISEA 4 both dimensions and KX, KY,
// amplitude, phase, frequency, heading of each entry; ISEA 5 the count, the heading, and amplitude, phase, frequency of
// each mode. Depth and amplitudes / L, frequencies x sqrt(L/g), wave numbers x L. False (told): the gravity of the
// record is not above 0 or off by more than 10 %, or the record is too short; off by more than 1 % is a warning.
[[nodiscard]] bool SetSpectrum(const Console& console, std::span<const float> record, double gravity, double length,
                               Seaway& seaway);

}  // namespace zaview
