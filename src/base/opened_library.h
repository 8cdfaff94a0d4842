// Calls of a library that is opened on need, so that what does without it starts without it.
#pragma once

#include <dlfcn.h>

namespace zaview {

// False: the library has no such call.
template <typename Call>
[[nodiscard]] bool Load(void* library, const char* name, Call& call) {
  call = reinterpret_cast<Call>(dlsym(library, name));
  return call != nullptr;
}

}  // namespace zaview
