#include "gks/kernel/paint_recording.h"

namespace zaview {

GksPaint RecordingPaint(PictureRecording& recording, int width, int height) {
  recording = PictureRecording{};
  recording.width = width;
  recording.height = height;
  GksPaint paint;
  paint.self = &recording;
  return paint;
}

}  // namespace zaview
