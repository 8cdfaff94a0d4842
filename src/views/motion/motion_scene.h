// Ship, sea and track of the current step, drawn into the picture that was begun.
#pragma once

#include <string>

#include "frame/session.h"

namespace zaview {

enum class SceneFault : unsigned char { none, no_memory, no_opengl };

// What is drawn in between steps without rest is not smooth. On a fault by OpenGL `why` tells the cause.
[[nodiscard]] SceneFault DrawMotionScene(Session& session, std::string& why);

}  // namespace zaview
