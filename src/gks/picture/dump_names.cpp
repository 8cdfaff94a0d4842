#include "gks/picture/dump_names.h"

namespace zaview {

std::string DumpName(int number, std::string_view extension) {
  return fmt::format("dump{:04}.{}", number, extension);
}

int FreeBlock(const Files& files, std::string_view extension, int from, int count) {
  int free = 0;
  for (int n = from; n <= kLastDump; ++n) {
    free = files.facts(files.self, DumpName(n, extension)).exists ? 0 : free + 1;
    if (free >= count) return n - free + 1;
  }
  return 0;
}

bool TakeName(const Files& files, const std::string& name) {
  const FileHandle file = files.open_write(files.self, name, WriteHow::create_new, 0);
  if (file == kNoFile) return !files.facts(files.self, name).exists;
  static_cast<void>(files.close(files.self, file));
  return true;
}

bool TakeFreeName(const Files& files, std::string_view extension, std::string& name) {
  for (int n = FreeBlock(files, extension, 1, 1); n > 0; n = FreeBlock(files, extension, n + 1, 1)) {
    name = DumpName(n, extension);
    if (TakeName(files, name)) return true;
  }
  return false;
}

}  // namespace zaview
