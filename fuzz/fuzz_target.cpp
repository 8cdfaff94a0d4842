// The entry of every fuzz target; ZAVIEW_TRY is the routine of try_input.h that it drives.
#include <cstddef>
#include <cstdint>

#include "fuzz/try_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  zaview::ZAVIEW_TRY({reinterpret_cast<const char*>(data), size});
  return 0;
}
