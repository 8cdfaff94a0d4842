#include <string>
#include <vector>

#include "base/platform_posix.h"
#include "frame/zaview_exit.h"
#include "frame/zaview_main.h"

int main(int count, char** words) {
  const zaview::Platform platform = zaview::PosixPlatform();
  const std::vector<std::string> arguments(words + (count > 0 ? 1 : 0), words + count);
  zaview::zaview_exit(platform, zaview::zaview_main(platform, arguments));
}
