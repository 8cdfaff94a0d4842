// Only in sanitizer builds. Blocks of thread-local storage of libraries that are opened at run time (EGL) are found by
// a guess that depends on where memory lies; a wrong one ends the search for leaks with a fault of its own.
extern "C" const char* __asan_default_options() {  // NOLINT: the sanitizer's name
  return "intercept_tls_get_addr=0";
}
