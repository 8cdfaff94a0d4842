// Ship, sea and track of the current step, drawn into the picture that was begun.
#pragma once

#include <string>

#include "frame/session.h"
#include "views/motion/motion_stage.h"
#include "views/state/motion_settings.h"

namespace zaview {

[[nodiscard]] StageInput InputOf(const Session& session);
[[nodiscard]] SeenSizes SizesOf(Session& session);  // ahead of the first picture too

enum class SceneFault : unsigned char { none, no_memory, no_opengl };

// What a run shows without storing it is not smooth: it would be slower. stage: what stands where in it. On a fault by
// OpenGL `why` tells the cause.
[[nodiscard]] SceneFault DrawMotionScene(Session& session, MotionStage& stage, std::string& why);

}  // namespace zaview
