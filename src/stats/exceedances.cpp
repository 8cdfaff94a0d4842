#include "stats/exceedances.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "stats/gauss_probability.h"

namespace zaview {

namespace {

// What enters, leaves and lies in the state of each direction. Entering and leaving give the level that is crossed.
template <Direction option>
struct Rule {
  float v;

  [[nodiscard]] bool In(float x, float& level) const {
    if constexpr (option == Direction::down) {
      level = v;
      return x <= v;
    } else {
      level = option == Direction::both && !(x >= v) ? -v : v;
      return x >= v || (option == Direction::both && x <= -v);
    }
  }
  [[nodiscard]] int Side(float x) const {
    const int high = option != Direction::down && x >= v ? 1 : 0;
    return high + (option != Direction::up && x <= Low() ? 2 : 0);
  }
  [[nodiscard]] bool Enters(float a, float b, float& level) const {
    if (option != Direction::down && a < v && v <= b) {
      level = v;
      return true;
    }
    const float low = Low();
    if (option == Direction::up || !(a > low && low >= b)) return false;
    level = low;
    return true;
  }
  [[nodiscard]] bool Leaves(float a, float b, float level) const {
    return FromAbove(level) ? a >= level && level > b : a <= level && level < b;
  }
  // The level that is entered downward.
  [[nodiscard]] float Low() const { return option == Direction::both ? -v : v; }
  [[nodiscard]] bool FromAbove(float level) const {
    return option == Direction::up || (option == Direction::both && level == v);
  }
};

constexpr std::size_t kChunk = 1024;  // samples

template <Direction option>
void CountRecord(std::span<const float> x, std::span<const float> t, int record, const Rule<option>& rule, int ndep,
                 ExceedanceCount& out) {
  const std::size_t np = std::min(x.size(), t.size());
  if (np < 2) return;
  const auto time_at = [&](std::size_t i, float level) {
    return t[i - 1] + ((level - x[i - 1]) / (x[i] - x[i - 1])) * (t[i] - t[i - 1]);
  };
  float level = 0.0F;
  bool in = rule.In(x[0], level);
  float tc = t[0];
  int last = 0;  // position of the last counted one, from 1
  const auto step = [&](std::size_t i) {
    const float a = x[i - 1];
    const float b = x[i];
    if (in) {
      if (!rule.Leaves(a, b, level)) return;
      out.Tex = (out.Tex + time_at(i, level)) - tc;
      in = false;
    }
    // A jump from one side to the other leaves and enters at the same step.
    if (!rule.Enters(a, b, level)) return;
    in = true;
    tc = time_at(i, level);
    ++out.total;
    const int position = static_cast<int>(i) + 1;
    if (last != 0 && position - last < ndep) return;
    ++out.nind;
    last = position;
    out.list.push_back({record, position, tc});
  };
  // Only a sample on another side than the one before can change the state. These are found without a branch.
  std::array<std::size_t, kChunk> other_side;
  int before = rule.Side(x[0]);
  for (std::size_t begin = 1; begin < np; begin += kChunk) {
    std::size_t found = 0;
    for (std::size_t i = begin; i < std::min(np, begin + kChunk); ++i) {
      const int side = rule.Side(x[i]);
      other_side[found] = i;
      found += static_cast<std::size_t>(side != before);
      before = side;
    }
    for (std::size_t j = 0; j < found; ++j) step(other_side[j]);
  }
  if (in) out.Tex = (out.Tex + t[np - 1]) - tc;
}

template <Direction option>
void CountAll(EnsembleRecords X, EnsembleRecords times, float v, int ndep, ExceedanceCount& out) {
  const Rule<option> rule{v};
  for (std::size_t r = 0; r < std::min(X.size(), times.size()); ++r)
    CountRecord(X[r], times[r], static_cast<int>(r) + 1, rule, ndep, out);
}

Block BlockOf(std::span<const float> x, int record, std::int64_t first, std::int64_t last) {
  const std::span<const float> part =
      x.subspan(static_cast<std::size_t>(first), static_cast<std::size_t>(last - first));
  Block block{record, static_cast<int>(first) + 1, static_cast<int>(last), part[0], part[0]};
  for (const float value : part) {
    block.min = value < block.min ? value : block.min;
    block.max = value > block.max ? value : block.max;
  }
  return block;
}

bool Exceeds(const Block& block, float v, Direction option) {
  switch (option) {
    case Direction::both:
      return block.max > v || block.min < -v;
    case Direction::up:
      return block.max > v;
    case Direction::down:
      return block.min < v;
  }
  return false;
}

}  // namespace

void CountExceedances(EnsembleRecords X, EnsembleRecords times, float v, Direction option, int ndep,
                      ExceedanceCount& out) {
  out = ExceedanceCount{};
  switch (option) {
    case Direction::both:
      return CountAll<Direction::both>(X, times, v, ndep, out);
    case Direction::up:
      return CountAll<Direction::up>(X, times, v, ndep, out);
    case Direction::down:
      return CountAll<Direction::down>(X, times, v, ndep, out);
  }
}

ExceedanceLimits LimitsOf(int nind, std::int64_t N, float prob) {
  if (nind <= 0 || N <= 0) return {};
  float ka = 0.0F;
  (void)getGaussPDFka(prob, ka);
  const float n = static_cast<float>(nind);
  const float all = static_cast<float>(N);
  const float p = n / all;
  const float h = std::sqrt((all * p) * (1.0F - p)) * ka;
  return {std::max(n - h, 0.0F), n + h};
}

void CountBlocks(EnsembleRecords X, float v, Direction option, int ndep, BlockCount& out) {
  out = BlockCount{};
  const std::int64_t length = std::max(ndep, 1);
  float sum_min = 0.0F;
  float sum_max = 0.0F;
  for (std::size_t r = 0; r < X.size(); ++r) {
    const std::int64_t n = static_cast<std::int64_t>(X[r].size());
    if (n < 1) continue;
    const std::int64_t nb = std::max<std::int64_t>(n / length, 1);
    for (std::int64_t j = 0; j < nb; ++j) {
      const Block block = BlockOf(X[r], static_cast<int>(r) + 1, j * n / nb, (j + 1) * n / nb);
      sum_min += block.min;
      sum_max += block.max;
      if (Exceeds(block, v, option)) ++out.exceeding;
      out.blocks.push_back(block);
    }
  }
  if (out.blocks.empty()) return;
  out.average_min = sum_min / static_cast<float>(out.blocks.size());
  out.average_max = sum_max / static_cast<float>(out.blocks.size());
}

}  // namespace zaview
