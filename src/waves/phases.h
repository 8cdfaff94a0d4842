// Where the phases of wave components come from: two stored tables of pseudo-random angles, a file of angles, or the
// generator of P. L'Ecuyer (Communications of the ACM 31, 1988) with the shuffle of C. Bays and S. D. Durham (ACM
// Transactions on Mathematical Software 2, 1976). The tables come from the generator of S. K. Park and K. W. Miller
// (Communications of the ACM 31, 1988). Degrees, from -180 to 180.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/platform.h"

namespace zaview {

inline constexpr std::size_t kPhaseFileLimit = 10000;

[[nodiscard]] std::span<const float> PhaseTable271();
[[nodiscard]] std::span<const float> PhaseTable1009();

class PhaseGenerator {  // SPEC_PHASEOPTION 4, seeded by |IWVRLZ|; 0 starts the second sequence at 696969
 public:
  explicit PhaseGenerator(int IWVRLZ);
  [[nodiscard]] float Next();  // the next angle

 private:
  std::array<std::int64_t, 32> entry_{};
  std::int64_t s1_ = 1, s2_ = 1, y_ = 0;
};

// Says "Reading phase file" and, on a fault (false), its line and "Wave phase setup/read error". The name is looked
// for in the working directory, then in `folder` (of the file that names it). 1 to kPhaseFileLimit angles.
[[nodiscard]] bool ReadPhaseFile(const Platform& platform, std::string_view name, std::string_view folder,
                                 std::vector<float>& phases);

}  // namespace zaview
