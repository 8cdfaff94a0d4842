// Motions and seaway files of any bytes become a case; written as KINO files it must then stay the same.
#include <array>
#include <cstdlib>

#include "fake_platform.h"
#include "frame/zaview_main.h"
#include "fuzz/try_input.h"

namespace zaview {

namespace {

// What the format can't hold (dimensional values beyond 4 bytes) is lost the first time only: b and c are the same.
constexpr std::string_view kScript =
    "READ_KINO in sea \"\" 9.81 1025 0 0 5 0 0 3\n"
    "WRITE_HISTORY MOT mot.txt\n"
    "WRITE_HISTORY POINT_MOT 1 2 3 point.txt\n"
    "WRITE_HISTORY UMOT umot.txt:UNFORM\n"
    "WRITE_STAT TABLE MOT 4 \"roll\" table.txt\n"
    "WRITE_KINO a\n"
    "READ_KINO a a \"\" 9.81 1025 0 0 0 0 0 0\n"
    "WRITE_KINO b\n"
    "READ_KINO b b \"\" 9.81 1025 0 0 0 0 0 0\n"
    "WRITE_KINO c\n";

std::string BehindFirstLine(const std::string& text) {
  return text.substr(text.find('\n') + 1);
}

}  // namespace

void TryKinoFiles(std::string_view input) {
  const auto [motions, seaway] = TwoFiles(input);
  FakePlatform fake;
  fake.Put("in.mot", std::string(motions));
  fake.Put("sea.sea", std::string(seaway.empty() ? "0\n0\n" : seaway));
  fake.Put("s.script", std::string(kScript));
  const std::array<std::string, 2> arguments{"-script", "s.script"};
  try {
    (void)zaview_main(fake.Get(), arguments);
  } catch (const FakeExit&) {
    return;
  }
  if (fake.OpenHandles() != 0) std::abort();
  if (fake.files.count("c.mot") != 0 && BehindFirstLine(fake.Bytes("b.mot")) != BehindFirstLine(fake.Bytes("c.mot")))
    std::abort();
}

}  // namespace zaview
