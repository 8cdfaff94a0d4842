// Seaway files and phase files of any bytes; what was taken from one and written again must read back the same.
#include <array>
#include <cstdlib>

#include <fmt/format.h>

#include "fake_platform.h"
#include "fuzz/try_input.h"
#include "waves/incident_wave.h"
#include "waves/kino_sea.h"
#include "waves/phases.h"

namespace zaview {

namespace {

constexpr KinoSeaUnits kAsStored{1, 1};  // so that writing and reading don't round

void EvaluateAtOnePoint(const Seaway& seaway) {
  IncidentWave wave;
  if (!PrepareIncidentWave(seaway, wave)) return;
  std::array<float, 17> value{};
  const std::span<float> all = value;
  const Vector3 point = {0.1, -0.2, -0.3};
  const WaveOutputs out = {all.subspan(0, 1), all.subspan(1, 1), all.subspan(2, 1),
                           all.subspan(3, 1), all.subspan(4, 1), all.subspan(5, 1),
                           all.subspan(6, 1), all.subspan(7, 1), all.subspan(8)};
  (void)EvalIncidentWave(wave, {2.5, 1}, {}, {&point, 1}, out);
}

std::string Written(const Seaway& seaway) {
  ControlRecords records;
  records.LENIN = records.GRAVIN = 1;
  std::string text;
  if (!KINOSE(records, seaway, kAsStored, "run.out", text)) std::abort();
  return text;
}

void CheckReadsBack(FakePlatform& fake, const std::string& text) {
  // A line that begins with a word, as these do, is passed over.
  if (text.find("nan") != std::string::npos || text.find("inf") != std::string::npos) return;
  fake.Put("b.sea", text);
  Seaway again;
  if (ReadKinoSeaway(fake.Get(), "b.sea", kAsStored, again) != KinoSeaStatus::ok) std::abort();
  if (Written(again) != text) std::abort();
}

}  // namespace

void TryKinoSea(std::string_view input) {
  FakePlatform fake;
  const Platform platform = fake.Get();
  fake.Put("a.sea", std::string(input));
  Seaway seaway;
  if (ReadKinoSeaway(platform, "a.sea", kAsStored, seaway) == KinoSeaStatus::ok) {
    EvaluateAtOnePoint(seaway);
    CheckReadsBack(fake, Written(seaway));
  } else if (seaway.ISEA != 0 || seaway.waves.size() != 0) {
    std::abort();
  }
  if (fake.OpenHandles() != 0) std::abort();
}

void TryPhases(std::string_view input) {
  FakePlatform fake;
  const Platform platform = fake.Get();
  fake.Put("cases/phases", std::string(input));
  std::vector<float> phases, again;
  if (ReadPhaseFile(platform, "phases", "cases/", phases)) {
    if (phases.empty() || phases.size() > kPhaseFileLimit) std::abort();
    fake.Put("phases", fmt::format("{:.9g}\n", fmt::join(phases, "\n")));
    if (!ReadPhaseFile(platform, "phases", "cases/", again)) std::abort();
    if (fmt::format("{}", fmt::join(phases, " ")) != fmt::format("{}", fmt::join(again, " "))) std::abort();
  }
  if (fake.OpenHandles() != 0) std::abort();
}

}  // namespace zaview
