#include "views/dense_curve.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "base/grow.h"
#include "gks/gks_transform.h"

namespace zaview {

namespace {

struct Column {
  int pixel = 0;
  int side = 0;  // -1 left of the window, 1 right of it
  bool finite = true;
  bool operator==(const Column&) const = default;
};

struct Run {  // indices into the curve
  std::size_t first = 0, lowest = 0, highest = 0, last = 0;
  std::size_t other = 0;  // the last point that isn't as high as the last one
};

class Thinning {
 public:
  Thinning(std::span<const float> x, std::span<const float> y, CurvePoints& out) : x_(x), y_(y), out_(out) {}

  void Start(std::size_t i) { run_ = {i, i, i, i, i}; }

  void Extend(std::size_t i) {
    if (y_[i] != y_[run_.last]) run_.other = run_.last;
    if (y_[i] < y_[run_.lowest]) run_.lowest = i;
    if (y_[i] > y_[run_.highest]) run_.highest = i;
    run_.last = i;
  }

  // The end of a polyline isn't drawn itself, so there the way to it counts.
  void Flush(bool at_end) {
    Keep(run_.first);
    Keep(std::min(run_.lowest, run_.highest));
    Keep(std::max(run_.lowest, run_.highest));
    if (at_end) Keep(run_.other);
    Keep(run_.last);
  }

 private:
  void Keep(std::size_t i) {
    if (any_ && i <= kept_) return;
    out_.x.push_back(x_[i]);
    out_.y.push_back(y_[i]);
    kept_ = i;
    any_ = true;
  }

  std::span<const float> x_, y_;
  CurvePoints& out_;
  Run run_;
  std::size_t kept_ = 0;
  bool any_ = false;
};

Column ColumnOf(const GksState& gks, const GksRectangle& window, float x, float y) {
  if (!std::isfinite(x) || !std::isfinite(y)) return {0, 0, false};
  Column out;
  out.pixel = gksToPixel(gks, {x, 0.0F}).x;
  if (x < window.xmin) out.side = -1;
  if (x > window.xmax) out.side = 1;
  return out;
}

}  // namespace

bool ThinCurve(const GksState& gks, std::span<const float> x, std::span<const float> y, bool log_y, CurvePoints& out) {
  const std::size_t n = std::min(x.size(), y.size());
  out.x.clear();
  out.y.clear();
  if (!Reserve(out.x, n) || !Reserve(out.y, n)) return false;
  const GksRectangle window = gksSortedWindow(gks);
  Thinning thinning(x, y, out);
  Column column;
  bool any = false;
  for (std::size_t i = 0; i < n; ++i) {
    if (log_y && !(y[i] > 0.0F)) continue;
    const Column here = ColumnOf(gks, window, x[i], y[i]);
    if (any && here.finite && here == column) {
      thinning.Extend(i);
      continue;
    }
    if (any) thinning.Flush(!here.finite);
    thinning.Start(i);
    column = here;
    any = true;
  }
  if (any) thinning.Flush(true);
  return true;
}

}  // namespace zaview
