#include "gks/plot/dense_curve.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

#include "base/grow.h"
#include "gks/kernel/gks_transform.h"

namespace zaview {

namespace {

struct Place {  // of a point in the picture
  int column = 0;
  int row = 0;   // within the window, if lines are clipped there
  int side = 0;  // -1 left of the window, 1 right of it
  bool finite = false;
};

class Places {
 public:
  explicit Places(const GksState& gks) : gks_(gks), window_(gksSortedWindow(gks)) {
    if (!gks.attribute.clip) return;
    const int a = PlaceOf({window_.xmin, window_.ymin}).y, b = PlaceOf({window_.xmin, window_.ymax}).y;
    top_ = std::min(a, b);
    bottom_ = std::max(a, b);
  }

  Place Of(float x, float y) const {
    Place out;
    out.finite = std::isfinite(x) && std::isfinite(y);
    if (!out.finite) return out;
    const GksPixel pixel = PlaceOf({x, y});
    out.column = pixel.x;
    out.row = std::clamp(pixel.y, top_, bottom_);
    if (x < window_.xmin) out.side = -1;
    if (x > window_.xmax) out.side = 1;
    return out;
  }

  bool OnEdge(int row) const { return row <= top_ || row >= bottom_; }

 private:
  // In pixels, or where lines have exact places in parts of them.
  GksPixel PlaceOf(GksPoint world) const {
    if (!gks_.paint.scalable) return gksToPixel(gks_, world);
    constexpr float kColumns = 3.0F, kRows = 16.0F;  // of a pixel
    const GksPoint at = gksToPixelExact(gks_, world);
    const auto part = [](float place, float parts) {
      constexpr float kLimit = 1.0e6F;  // pixels
      return static_cast<int>(std::floor(std::clamp(place, -kLimit, kLimit) * parts));
    };
    return {part(at.x, kColumns), part(at.y, kRows)};
  }

  const GksState& gks_;
  GksRectangle window_;
  int top_ = std::numeric_limits<int>::min(), bottom_ = std::numeric_limits<int>::max();
};

struct Point {
  std::size_t index = 0;
  int row = 0;
};

class Run {  // of points in one column
 public:
  void Start(Point at) { first_ = highest_ = lowest_ = last_ = other_ = at; }

  void Extend(Point at) {
    if (at.row != last_.row) other_ = last_;
    if (at.row < highest_.row) highest_ = at;
    if (at.row > lowest_.row) lowest_ = at;
    last_ = at;
  }

  int last_row() const { return last_.row; }

  // The end of a line isn't drawn itself. Where the run ends its line the point before counts too, the last one in
  // another row: the line may have come and gone there.
  std::array<std::size_t, 5> Kept(bool ends_line) const {
    const auto [from, to] = std::minmax(highest_.index, lowest_.index);
    return {first_.index, from, to, ends_line ? other_.index : to, last_.index};
  }

 private:
  Point first_, highest_, lowest_, last_, other_;
};

void Put(std::span<const float> x, std::span<const float> y, const std::array<std::size_t, 5>& kept, CurvePoints& out) {
  for (std::size_t i = 0; i < kept.size(); ++i) {
    if (i > 0 && kept[i] <= *std::max_element(kept.begin(), kept.begin() + static_cast<std::ptrdiff_t>(i))) continue;
    out.x.push_back(x[kept[i]]);
    out.y.push_back(y[kept[i]]);
  }
}

}  // namespace

bool ThinCurve(const GksState& gks, std::span<const float> x, std::span<const float> y, bool log_y, CurvePoints& out) {
  const std::size_t n = std::min(x.size(), y.size());
  out.x.clear();
  out.y.clear();
  if (!Reserve(out.x, n) || !Reserve(out.y, n)) return false;
  const Places places(gks);
  Run run;
  Place before;
  bool any = false;
  for (std::size_t i = 0; i < n; ++i) {
    if (log_y && !(y[i] > 0.0F)) continue;
    const Place here = places.Of(x[i], log_y ? std::log10(y[i]) : y[i]);
    if (any && here.finite && before.finite && here.column == before.column && here.side == before.side) {
      run.Extend({i, here.row});
      continue;
    }
    if (any) Put(x, y, run.Kept(!here.finite || places.OnEdge(run.last_row())), out);
    run.Start({i, here.row});
    before = here;
    any = true;
  }
  if (any) Put(x, y, run.Kept(true), out);
  return true;
}

bool CoarseCurve(std::span<const float> x, std::span<const float> y, std::size_t columns, CurvePoints& out) {
  const std::size_t n = std::min(x.size(), y.size()),
                    run = std::max<std::size_t>(n / std::max<std::size_t>(columns, 1), 1);
  out.x.clear();
  out.y.clear();
  if (!Reserve(out.x, n) || !Reserve(out.y, n)) return false;
  for (std::size_t from = 0; from < n; from += run) {
    const std::size_t to = std::min(from + run, n);
    std::size_t low = from, high = from;
    for (std::size_t i = from; i < to; ++i) {
      if (y[i] < y[low] || std::isnan(y[low])) low = i;
      if (y[i] > y[high] || std::isnan(y[high])) high = i;
    }
    Put(x, y, {from, std::min(low, high), std::max(low, high), to - 1, to - 1}, out);
  }
  return true;
}

}  // namespace zaview
