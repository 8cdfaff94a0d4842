// Large pages for memory that is about to be filled: it comes a few hundred pages at a time, not one by one.
#pragma once

#include <cstddef>
#include <vector>

namespace zaview {

struct Room {
  const void* begin = nullptr;
  std::size_t bytes = 0;
};

// Rooms that stand side by side are taken together; puts them in the order of their places. The whole of them then
// counts as memory in use, so only those that will be filled belong here. Does nothing where the machine has no such
// pages, or too little memory to be sure of them: only speed depends on it.
void UseLargePages(std::vector<Room>& rooms);

}  // namespace zaview
