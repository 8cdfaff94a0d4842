#include "gks/picture/letters_file.h"

asm(".pushsection .rodata\n"
    ".balign 16\n"
    "zaview_letters_file:\n"
    ".incbin \"" ZAVIEW_LETTERS
    "\"\n"
    "zaview_letters_end:\n"
    ".popsection\n");

extern "C" {
extern const unsigned char zaview_letters_file[], zaview_letters_end[];
}

namespace zaview {

std::span<const unsigned char> LettersFile() {
  return {zaview_letters_file, zaview_letters_end};
}

}  // namespace zaview
