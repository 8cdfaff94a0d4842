// How the making of a table ends.
#pragma once

#include <cstdint>

namespace zaview {

enum class TableFault : std::uint8_t {
  none,
  said,       // the message has been said
  not_valid,  // the quantity is not in this file
  no_memory
};

}  // namespace zaview
