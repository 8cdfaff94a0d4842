#include "stats/bootstrap_blocks.h"

#include <algorithm>
#include <numeric>

#include "stats/peaks.h"

namespace zaview {

namespace {

void TakePeaks(const PeakList& list, const BlockRecords& records, double sign, double base, PeakHeights& out) {
  const std::size_t count = list.value.size();
  out.first.assign(records.samples() + 1, 0);
  for (std::size_t i = 0; i < count; ++i) {
    out.height.push_back(sign * (static_cast<double>(list.value[i]) - base));
    const std::size_t record = static_cast<std::size_t>(list.record[i]) - 1;
    ++out.first[records.start[record] + static_cast<std::size_t>(list.step[i])];
  }
  std::partial_sum(out.first.begin(), out.first.end(), out.first.begin());
  out.order.resize(count);
  std::iota(out.order.begin(), out.order.end(), 0U);
  std::sort(out.order.begin(), out.order.end(), [&heights = out.height](std::uint32_t a, std::uint32_t b) {
    return heights[a] > heights[b] || (heights[a] == heights[b] && a < b);
  });
}

}  // namespace

void LayOutRecords(EnsembleRecords X, bool with_peaks, BlockRecords& out) {
  out = BlockRecords{};
  std::vector<std::span<const float>> filled;
  out.start.push_back(0);
  double total = 0;
  for (const std::span<const float> x : X) {
    if (x.empty()) continue;
    filled.push_back(x);
    out.start.push_back(out.start.back() + x.size());
    for (const float v : x) total += static_cast<double>(v);
  }
  if (filled.empty()) return;
  out.mean = total / static_cast<double>(out.samples());
  out.sum.assign(1, 0.0);
  out.squares.assign(1, 0.0);
  out.sum.reserve(out.samples() + 1);
  out.squares.reserve(out.samples() + 1);
  for (const std::span<const float> x : filled) {
    for (const float v : x) {
      const double c = static_cast<double>(v) - out.mean;
      out.sum.push_back(out.sum.back() + c);
      out.squares.push_back(out.squares.back() + c * c);
    }
  }
  if (!with_peaks) return;
  Peaks peaks;
  GetPeaks(filled, static_cast<float>(out.mean), peaks);
  TakePeaks(peaks.all, out, 1.0, 0.0, out.peaks[0]);
  TakePeaks(peaks.top, out, 1.0, out.mean, out.peaks[1]);
  TakePeaks(peaks.bottom, out, -1.0, out.mean, out.peaks[2]);
}

TimeBlock BlockAt(const BlockRecords& records, std::size_t first_sample, std::size_t length) {
  const auto next = std::upper_bound(records.start.begin(), records.start.end(), first_sample);
  const std::size_t begin = *(next - 1), end = *next;
  length = std::min(length, end - begin);
  const std::size_t to = first_sample + length;
  TimeBlock block;
  block.length = static_cast<double>(length);
  block.parts[0] = {first_sample, std::min(to, end)};
  block.parts[1] = {begin, to > end ? begin + (to - end) : begin};
  return block;
}

double SumOf(const TimeBlock& block, std::span<const double> ahead) {
  double sum = 0;
  for (const TimeBlock::Part& part : block.parts) sum += ahead[part.to] - ahead[part.from];
  return sum;
}

RandomStream::RandomStream(std::uint64_t seed, std::uint64_t resample) : state_(seed) {
  state_ = Next() + resample;
  state_ = Next();
}

std::uint64_t RandomStream::Next() {
  constexpr std::uint64_t kGolden = 0x9e3779b97f4a7c15, kFirst = 0xbf58476d1ce4e5b9, kSecond = 0x94d049bb133111eb;
  state_ += kGolden;
  std::uint64_t z = state_;
  z = (z ^ (z >> 30)) * kFirst;
  z = (z ^ (z >> 27)) * kSecond;
  return z ^ (z >> 31);
}

std::size_t RandomStream::Below(std::size_t count) {
  return static_cast<std::size_t>(((Next() >> 32) * static_cast<std::uint64_t>(count)) >> 32);
}

}  // namespace zaview
