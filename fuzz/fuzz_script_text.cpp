#include <cstddef>
#include <cstdint>

#include "fuzz/try_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  zaview::TryScriptText({reinterpret_cast<const char*>(data), size});
  return 0;
}
