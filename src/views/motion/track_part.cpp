#include "views/motion/track_part.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "base/grow.h"

namespace zaview {

bool MakeTrack(const MotionStage& stage, const StageInput& input, int stride, std::vector<ScenePlace>& track) {
  const CaseStore& store = input.store;
  const int first = store.first_step, last = stage.step, step = std::max(stride, 1);
  track.clear();
  if (last < first) return true;
  if (!Reserve(track, static_cast<std::size_t>((last - first) / step) + 2)) return false;
  PicturePoint before{};
  for (int i = first;; i = std::min(i + step, last)) {
    const auto place = [&](int k) { return static_cast<double>(store.pmgg.at(k, i)) * stage.length; };
    const ScenePoint at = InScene(stage, {place(1), place(2), place(3)});
    const PicturePoint pixel = ToPicture(stage.eye, at, input.width, input.height);
    const bool apart = pixel.scale <= 0 || std::hypot(pixel.x - before.x, pixel.y - before.y) >= 1.0;
    if (track.empty() || apart || i == last) {
      track.push_back({static_cast<float>(at.x), static_cast<float>(at.y), static_cast<float>(at.z)});
      before = pixel;
    }
    if (i == last) return true;
  }
}

}  // namespace zaview
