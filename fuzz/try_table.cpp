// A table of any bytes becomes a case; what is written of it with commas must then be read without a gap.
#include <array>
#include <cstdlib>

#include "fake_platform.h"
#include "frame/zaview_main.h"
#include "fuzz/try_input.h"

namespace zaview {

void TryTable(std::string_view input) {
  constexpr std::string_view kScript =
      "COMMA\n"
      "READ in.csv\n"
      "WRITE_STAT TABLE MEASURED 1 \"a\" table.txt\n"
      "WRITE_HISTORY MEASURED a.csv\n"
      "WRITE_HISTORY MOT mot.csv\n"
      "WRITE_KINO a\n"
      "READ_ENSEMBLE a.csv\n"
      "READ_ENSEMBLE in.csv\n";
  FakePlatform fake;
  fake.Put("in.csv", std::string(input));
  fake.Put("s.script", std::string(kScript));
  const std::array<std::string, 2> arguments{"-script", "s.script"};
  try {
    (void)zaview_main(fake.Get(), arguments);
  } catch (const FakeExit&) {
    return;
  }
  if (fake.OpenHandles() != 0) std::abort();
}

}  // namespace zaview
