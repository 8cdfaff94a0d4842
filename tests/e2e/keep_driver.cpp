// Only in sanitizer builds of the program: the driver's own leaks can't be named, and so not be passed over, once its
// library is unloaded.
extern "C" int dlclose(void*) {
  return 0;
}
