// What is worth looking at in a run. Data only.
#pragma once

#include <cstdint>

namespace zaview {

enum class RunEventKind : std::uint8_t { slam, deck_wet, roll_max, roll_min, pitch_max, pitch_min };

struct RunEvent {
  RunEventKind kind = RunEventKind::slam;
  int step = 0;
  bool operator==(const RunEvent&) const = default;
};

}  // namespace zaview
