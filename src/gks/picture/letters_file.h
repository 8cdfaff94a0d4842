// The file of the scalable font, as a part of the program. Private to gks/picture.
#pragma once

#include <span>

namespace zaview {

[[nodiscard]] std::span<const unsigned char> LettersFile();

}  // namespace zaview
