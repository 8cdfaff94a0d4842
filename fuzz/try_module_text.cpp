// Modules of any bytes, parsed and written, must parse to what is written the same.
#include <cstdlib>

#include "control/module_table.h"
#include "control/parse_modules.h"
#include "fake_platform.h"
#include "fuzz/try_input.h"

namespace zaview {

namespace {

std::string Rewritten(FakePlatform& fake, const std::string& name) {
  const Platform platform = fake.Get();
  BlockStream stream;
  StartStream(stream, platform.files, platform.files.open_read(platform.files.self, name));
  LineSource source;
  source.stream = &stream;
  HeaderText lines{&source};
  ControlRecords records;
  std::string text;
  if (KeepModules(lines, records.modules) == ModuleStatus::ok) {
    ParseModules(platform, "cases/run.out", records);
    (void)CheckModules(platform.console, records);
    SayIgnoredModules(platform.console, records, 2);
    WriteModules(records, text);
  }
  (void)platform.files.close(platform.files.self, stream.file);
  return text;
}

}  // namespace

void TryModuleText(std::string_view input) {
  const auto [modules, named] = TwoFiles(input);
  FakePlatform fake;
  fake.Put("modules", std::string(modules));
  fake.Put("cases/named.txt", std::string(named));
  const std::string once = Rewritten(fake, "modules");
  fake.Put("again", once);
  if (Rewritten(fake, "again") != once) std::abort();
  if (fake.OpenHandles() != 0) std::abort();
}

}  // namespace zaview
