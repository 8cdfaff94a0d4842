/* Loaded ahead of the program (LD_PRELOAD) by tools/reliability.py: the n-th of its calls of one kind fails, or kills it.
 *   FAULT_CALL  open, write, close, rename, ftruncate or alloc
 *   FAULT_AT    which one fails, from 1; 0: none
 *   FAULT_DO    an errno, or -9: the program is killed ahead of it
 *   FAULT_COUNT a file that takes the number of calls when the program ends */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <signal.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

extern void* __libc_malloc(size_t);
extern void* __libc_calloc(size_t, size_t);
extern void* __libc_realloc(void*, size_t);
extern void* __libc_memalign(size_t, size_t);

static volatile int ready, what, number;
static volatile long at = -1, count;
enum { OPEN = 1, WRITE, CLOSE, RENAME, FTRUNCATE, ALLOC };

__attribute__((constructor)) static void Begin(void) {
  static const char* const names[] = {"", "open", "write", "close", "rename", "ftruncate", "alloc"};
  const char* call = getenv("FAULT_CALL");
  for (int i = OPEN; call && i <= ALLOC; ++i)
    if (strcmp(call, names[i]) == 0) what = i;
  at = getenv("FAULT_AT") ? atol(getenv("FAULT_AT")) : 0;
  number = getenv("FAULT_DO") ? atoi(getenv("FAULT_DO")) : ENOSPC;
  ready = 1;
}

__attribute__((destructor)) static void End(void) {
  const char* name = getenv("FAULT_COUNT");
  ready = 0;
  FILE* const out = name ? fopen(name, "w") : NULL;
  if (!out) return;
  fprintf(out, "%ld\n", count);
  fclose(out);
}

/* Does this call fail? */
static int Fails(int kind) {
  if (!ready || kind != what) return 0;
  if (__atomic_add_fetch(&count, 1, __ATOMIC_RELAXED) != at) return 0;
  if (number == -9) kill(getpid(), SIGKILL);
  errno = number;
  return 1;
}

#define REAL(result, name, ...)                             \
  static result (*real)(__VA_ARGS__);                       \
  if (!real) real = (result(*)(__VA_ARGS__))dlsym(RTLD_NEXT, name)

static int Writes(int flags) { return (flags & (O_WRONLY | O_RDWR)) != 0; }

int open(const char* path, int flags, ...) {
  REAL(int, "open", const char*, int, ...);
  va_list list;
  va_start(list, flags);
  const mode_t mode = va_arg(list, mode_t);
  va_end(list);
  if (Writes(flags) && Fails(OPEN)) return -1;
  return real(path, flags, mode);
}
int open64(const char* path, int flags, ...) {
  REAL(int, "open64", const char*, int, ...);
  va_list list;
  va_start(list, flags);
  const mode_t mode = va_arg(list, mode_t);
  va_end(list);
  if (Writes(flags) && Fails(OPEN)) return -1;
  return real(path, flags, mode);
}
ssize_t write(int file, const void* bytes, size_t size) {
  REAL(ssize_t, "write", int, const void*, size_t);
  if (file > 2 && Fails(WRITE)) return -1;
  return real(file, bytes, size);
}
int close(int file) {
  REAL(int, "close", int);
  if (!Fails(CLOSE)) return real(file);
  real(file);
  errno = number;
  return -1;
}
int rename(const char* from, const char* to) {
  REAL(int, "rename", const char*, const char*);
  return Fails(RENAME) ? -1 : real(from, to);
}
int ftruncate(int file, off_t size) {
  REAL(int, "ftruncate", int, off_t);
  return Fails(FTRUNCATE) ? -1 : real(file, size);
}
int ftruncate64(int file, off64_t size) {
  REAL(int, "ftruncate64", int, off64_t);
  return Fails(FTRUNCATE) ? -1 : real(file, size);
}

/* What libraries do while they are loaded is not counted. */
void* dlopen(const char* name, int how) {
  REAL(void*, "dlopen", const char*, int);
  const int was = ready;
  ready = 0;
  void* const library = real(name, how);
  ready = was;
  return library;
}

void* malloc(size_t size) { return Fails(ALLOC) ? NULL : __libc_malloc(size); }
void* calloc(size_t n, size_t size) { return Fails(ALLOC) ? NULL : __libc_calloc(n, size); }
void* realloc(void* old, size_t size) { return Fails(ALLOC) ? NULL : __libc_realloc(old, size); }
void* aligned_alloc(size_t to, size_t size) { return Fails(ALLOC) ? NULL : __libc_memalign(to, size); }
