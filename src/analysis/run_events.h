// Events of a run: the largest roll and pitch either way, slams of a point on the ship, water on deck. Histories are
// non-dimensional. Pure, but for DeckImmersion.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "analysis/run_event.h"
#include "base/platform.h"
#include "case/case_store.h"
#include "case/wave_at_cg.h"

namespace zaview {

struct RunEventRow {
  RunEventKind kind;
  std::string_view word;  // of scripts
  std::string_view name;
  char letter;  // on a bar
};
[[nodiscard]] const RunEventRow& RowOf(RunEventKind kind);
[[nodiscard]] const RunEventRow* FindRunEvent(std::string_view word);  // in capitals; null: there is none

// Speed of a point into the water, over sqrt(g L), from which its entry is a slam: M. K. Ochi, Extreme behavior of a
// ship in rough seas - slamming and shipping of green water, Transactions SNAME 72 (1964); 12 ft/s of a ship of 520 ft.
inline constexpr double kSlamVelocity = 0.093;

struct RunHistories {  // an entry a step from first_step on; empty: not known
  int first_step = 1;
  std::span<const float> time, roll, pitch;
  std::span<const float> point_immersion;  // of the point that slams, eta - z: above 0 it is in the water
  std::span<const float> deck_immersion;   // of the edge of the deck, where it is deepest
  double slam_velocity = kSlamVelocity;    // over sqrt(g L), L the reference length
  std::span<const StepGap> gaps;           // steps that hold nothing
};
// In the order of their steps.
// - Largest roll and pitch either way: the first step where several are as large; none of a history that stands still.
// - Slam: the step at which the point is in the water after one at which it was out, if it came in as fast as
//   slam_velocity, by the difference of the two.
// - Deck wet: the first step of each spell.
// False: memory is out.
[[nodiscard]] bool FindEvents(const RunHistories& run, std::vector<RunEvent>& events);

// By a step, an event after (direction above 0) or before it; null: there is none. events: as FindEvents gives them.
[[nodiscard]] const RunEvent* NextEvent(std::span<const RunEvent> events, int step, int direction);
// The first of a kind.
[[nodiscard]] const RunEvent* FirstOf(std::span<const RunEvent> events, RunEventKind kind);

struct EventSteps {
  int first = 1, last = 0;
};
// The steps in so much time about a step, half of it on either side, as far as there are any. time: from first_step on,
// in the unit of `length`.
[[nodiscard]] EventSteps StepsAbout(std::span<const float> time, int first_step, int step, double length);

// Immersion of the deepest of these points, ship axes, at every step in use: the wave of the moment at its place less
// its height. EnsureSeaway must have been ok. no_wave: told.
[[nodiscard]] WaveAnswer DeckImmersion(const Console& console, const CaseStore& store, std::span<const Vector3> points,
                                       std::vector<float>& deepest);

}  // namespace zaview
