// A routine of which the program chooses a form with wider vectors when it starts, where the processor has them.
// Sanitizers and other compilers take the plain form. No clone may fuse a multiplication with an addition: all give the
// same bits.
#pragma once

#if defined(__GNUC__) && !defined(__clang__) && defined(__x86_64__) && !defined(ZAVIEW_NO_TARGET_CLONES)
#define ZAVIEW_VECTOR_CLONES __attribute__((target_clones("avx2", "default")))
#else
#define ZAVIEW_VECTOR_CLONES
#endif
