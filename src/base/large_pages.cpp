#include "base/large_pages.h"

#include <algorithm>
#include <cstdint>
#include <functional>

#ifdef __linux__
#include <sys/mman.h>
#include <unistd.h>
#endif

namespace zaview {

#ifdef __linux__

namespace {

constexpr std::uintptr_t kPage = 4096;
constexpr std::uintptr_t kLargePage = 2U << 20U;

#ifdef MADV_COLLAPSE
constexpr int kCollapse = MADV_COLLAPSE;
#else
constexpr int kCollapse = 25;  // newer than the headers of some systems; an older kernel refuses it
#endif

void* At(std::uintptr_t place) {
  return reinterpret_cast<void*>(place);  // NOLINT(performance-no-int-to-ptr)
}

// A large page that was never touched comes as one with its first byte. In others the heap has set its marks, so that
// there are small pages: they are joined at once. One by one, as a call ends at the first that needs no joining.
void UseBetween(std::uintptr_t begin, std::uintptr_t end) {
  begin -= begin % kPage;
  if (end - begin < kLargePage || ::madvise(At(begin), end - begin, MADV_HUGEPAGE) != 0) return;
  for (begin += (kLargePage - begin % kLargePage) % kLargePage; begin + kLargePage <= end; begin += kLargePage)
    static_cast<void>(::madvise(At(begin), kLargePage, kCollapse));
}

bool Affordable(const std::vector<Room>& rooms) {
  constexpr std::uint64_t kShare = 4;  // of the memory: a file may be far shorter than it says
  const long pages = ::sysconf(_SC_PHYS_PAGES);
  std::uint64_t left = pages > 0 ? static_cast<std::uint64_t>(pages) * kPage / kShare : 0;
  for (const Room& room : rooms) {
    if (room.bytes > left) return false;
    left -= room.bytes;
  }
  return true;
}

}  // namespace

void UseLargePages(std::vector<Room>& rooms) {
  if (!Affordable(rooms)) return;
  std::sort(rooms.begin(), rooms.end(), [](const Room& a, const Room& b) { return std::less<>()(a.begin, b.begin); });
  std::uintptr_t begin = 0, end = 0;
  for (const Room& room : rooms) {
    const auto at = reinterpret_cast<std::uintptr_t>(room.begin);
    if (at > end && at - end > 2 * kPage) {  // more than the heap leaves between two rooms
      UseBetween(begin, end);
      begin = at;
    }
    end = std::max(end, at + room.bytes);
  }
  UseBetween(begin, end);
}

#else

void UseLargePages(std::vector<Room>&) {}

#endif

}  // namespace zaview
