#include "base/message.h"

namespace zaview {

void SayLine(const Console& console, std::string_view line) {
  const std::size_t last = line.find_last_not_of(' ');
  std::string text(line.substr(0, last == std::string_view::npos ? 0 : last + 1));
  text += '\n';
  console.write(console.self, text);
  console.flush(console.self);
}

}  // namespace zaview
