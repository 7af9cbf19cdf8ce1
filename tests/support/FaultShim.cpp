// The C library's checks would define the same functions as this file.
#undef _FORTIFY_SOURCE

#include "tests/support/FaultShim.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <limits.h>
#include <signal.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>

// Nothing is allocated here: these functions are below malloc too.

namespace {

enum class Kind { None, Fail, Full, Kill };
enum class Use { Open, Write, Change, Clean };  // Clean: does not fail

struct Plan {
  Kind kind = Kind::None;
  long call = 0;
  char folder[PATH_MAX] = "";
  char report[PATH_MAX] = "";
};

Plan gPlan;
std::atomic<long> gCalls = 0;
std::atomic<long> gMemoryCalls = 0;
std::atomic<long> gMemoryFault = 0;

template <typename Function>
Function* Next(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

void Copy(char* to, const char* variable) {
  const char* const text = getenv(variable);
  snprintf(to, PATH_MAX, "%s", text == nullptr ? "" : text);
}

bool IsInFolder(const char* path) {
  const size_t length = strlen(gPlan.folder);
  return strncmp(path, gPlan.folder, length) == 0 && path[length] == '/';
}

void Report(const char* call, const char* path) {
  char line[PATH_MAX + 64];
  const int length = snprintf(line, sizeof line, "%s %s\n", call, path + strlen(gPlan.folder) + 1);
  const long file =
      syscall(SYS_openat, AT_FDCWD, gPlan.report, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  syscall(SYS_write, file, line, length);
  syscall(SYS_close, file);
}

bool Counts(Use use) {
  switch (gPlan.kind) {
    case Kind::None:
      return false;
    case Kind::Fail:
      return use != Use::Clean;
    case Kind::Full:
      return use == Use::Write;
    case Kind::Kill:
      return true;
  }
  return false;
}

// What to do with a call.
Kind Judge(const char* call, const char* path, Use use) {
  if (gPlan.call <= 0 || !Counts(use) || !IsInFolder(path)) {
    return Kind::None;
  }
  const long number = ++gCalls;
  if (number < gPlan.call || (number > gPlan.call && gPlan.kind != Kind::Full)) {
    return Kind::None;
  }
  if (number == gPlan.call) {
    Report(call, path);
  }
  errno = use == Use::Write ? ENOSPC : EIO;
  return gPlan.kind;
}

[[noreturn]] void Die() {
  syscall(SYS_kill, getpid(), SIGKILL);
  _exit(1);
}

// True if the call must fail.
bool Fails(const char* call, const char* path, Use use) {
  char folder[PATH_MAX];
  char absolute[2 * PATH_MAX];
  if (path[0] != '/' && gPlan.kind != Kind::None && getcwd(folder, sizeof folder) != nullptr) {
    snprintf(absolute, sizeof absolute, "%s/%s", folder, path);
    path = absolute;
  }
  const Kind kind = Judge(call, path, use);
  if (kind == Kind::Kill) {
    Die();
  }
  return kind != Kind::None;
}

Kind JudgeOpen(const char* call, int descriptor, Use use) {
  char link[64];
  char path[PATH_MAX];
  snprintf(link, sizeof link, "/proc/self/fd/%d", descriptor);
  const ssize_t length = gPlan.kind == Kind::None ? -1 : readlink(link, path, sizeof path - 1);
  path[length < 0 ? 0 : length] = '\0';
  return Judge(call, path, use);
}

bool FailsOpen(const char* call, int descriptor, Use use) {
  const Kind kind = JudgeOpen(call, descriptor, use);
  if (kind == Kind::Kill) {
    Die();
  }
  return kind != Kind::None;
}

// Writes by `write(bytes, size)`; before a kill, half of it.
template <typename Write>
ssize_t WriteOrFail(const char* call, int descriptor, size_t size, const Write& write) {
  const Kind kind = JudgeOpen(call, descriptor, Use::Write);
  if (kind == Kind::Kill) {
    write(size / 2);
    Die();
  }
  return kind == Kind::None ? write(size) : -1;
}

bool FailsMemory() {
  const bool fails = ++gMemoryCalls == gMemoryFault;
  errno = fails ? ENOMEM : errno;
  return fails;
}

mode_t ModeOf(int flags, va_list rest) {
  return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;
}

// Opens by the function of that name. `rest` is what follows the flags.
int OpenOrFail(const char* name, const char* path, int flags, va_list rest) {
  const mode_t mode = ModeOf(flags, rest);
  return Fails("open", path, Use::Open)
             ? -1
             : Next<int(const char*, int, mode_t)>(name)(path, flags, mode);
}

__attribute__((constructor)) void Begin() {
  FaultShimBegin();
}

}  // namespace

extern "C" {

#pragma GCC visibility push(default)

void FaultShimBegin() {
  Copy(gPlan.folder, "POSTWRIGHT_FAULT_FOLDER");
  Copy(gPlan.report, "POSTWRIGHT_FAULT_REPORT");
  const char* const call = getenv("POSTWRIGHT_FAULT_CALL");
  const char* const kind = getenv("POSTWRIGHT_FAULT_KIND");
  gPlan.call = call == nullptr ? 0 : strtol(call, nullptr, 10);
  gCalls = 0;
  gPlan.kind = kind == nullptr || gPlan.folder[0] == '\0' ? Kind::None
               : strcmp(kind, "fail") == 0                ? Kind::Fail
               : strcmp(kind, "full") == 0                ? Kind::Full
               : strcmp(kind, "kill") == 0                ? Kind::Kill
                                                          : Kind::None;
}

void FaultShimFailMemory(long call) {
  gMemoryFault = call;
  gMemoryCalls = 0;
}

long FaultShimMemoryCalls() {
  return gMemoryCalls;
}

// Opening.

int open(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const int opened = OpenOrFail("open", path, flags, rest);
  va_end(rest);
  return opened;
}

int open64(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const int opened = OpenOrFail("open64", path, flags, rest);
  va_end(rest);
  return opened;
}

// Called by code built with _FORTIFY_SOURCE, as Debian's libraries are, if it creates no file.
int __open_2(const char* path, int flags) {
  return open(path, flags);
}

int __open64_2(const char* path, int flags) {
  return open64(path, flags);
}

FILE* fopen(const char* path, const char* mode) {
  return Fails("open", path, Use::Open) ? nullptr : Next<decltype(fopen)>("fopen")(path, mode);
}

FILE* fopen64(const char* path, const char* mode) {
  return Fails("open", path, Use::Open) ? nullptr : Next<decltype(fopen64)>("fopen64")(path, mode);
}

int mkostemp(char* path, int flags) {
  return Fails("open", path, Use::Open) ? -1 : Next<decltype(mkostemp)>("mkostemp")(path, flags);
}

int mkostemps(char* path, int ending, int flags) {
  return Fails("open", path, Use::Open)
             ? -1
             : Next<decltype(mkostemps)>("mkostemps")(path, ending, flags);
}

// Writing.

ssize_t write(int descriptor, const void* bytes, size_t size) {
  return WriteOrFail("write", descriptor, size, [=](size_t count) {
    return Next<decltype(write)>("write")(descriptor, bytes, count);
  });
}

ssize_t pwrite64(int descriptor, const void* bytes, size_t size, off64_t offset) {
  return WriteOrFail("write", descriptor, size, [=](size_t count) {
    return Next<decltype(pwrite64)>("pwrite64")(descriptor, bytes, count, offset);
  });
}

ssize_t writev(int descriptor, const iovec* parts, int count) {
  return WriteOrFail("write", descriptor, static_cast<size_t>(count), [=](size_t taken) {
    return Next<decltype(writev)>("writev")(descriptor, parts, static_cast<int>(taken));
  });
}

// Changing. Nothing is really synced: a killed process loses nothing that the system has.

int fsync(int descriptor) {
  return FailsOpen("fsync", descriptor, Use::Change) ? -1 : 0;
}

int fdatasync(int descriptor) {
  return FailsOpen("fdatasync", descriptor, Use::Change) ? -1 : 0;
}

int ftruncate(int descriptor, off_t size) {
  return FailsOpen("ftruncate", descriptor, Use::Change)
             ? -1
             : Next<decltype(ftruncate)>("ftruncate")(descriptor, size);
}

int ftruncate64(int descriptor, off64_t size) {
  return FailsOpen("ftruncate", descriptor, Use::Change)
             ? -1
             : Next<decltype(ftruncate64)>("ftruncate64")(descriptor, size);
}

int rename(const char* from, const char* to) {
  return Fails("rename", from, Use::Change) ? -1 : Next<decltype(rename)>("rename")(from, to);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) {
  return Fails("rename", from, Use::Change)
             ? -1
             : Next<decltype(renameat2)>("renameat2")(fromFolder, from, toFolder, to, flags);
}

// Cleaning up.

int unlink(const char* path) {
  return Fails("unlink", path, Use::Clean) ? -1 : Next<decltype(unlink)>("unlink")(path);
}

int remove(const char* path) {
  return Fails("unlink", path, Use::Clean) ? -1 : Next<decltype(remove)>("remove")(path);
}

int chmod(const char* path, mode_t mode) {
  return Fails("chmod", path, Use::Clean) ? -1 : Next<decltype(chmod)>("chmod")(path, mode);
}

int fchmod(int descriptor, mode_t mode) {
  return FailsOpen("chmod", descriptor, Use::Clean)
             ? -1
             : Next<decltype(fchmod)>("fchmod")(descriptor, mode);
}

// Memory. The C library's own names can be called before any symbol can be looked up.

void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* block, size_t size);

void* malloc(size_t size) {
  return FailsMemory() ? nullptr : __libc_malloc(size);
}

void* calloc(size_t count, size_t size) {
  return FailsMemory() ? nullptr : __libc_calloc(count, size);
}

void* realloc(void* block, size_t size) {
  return FailsMemory() ? nullptr : __libc_realloc(block, size);
}

#pragma GCC visibility pop

}  // extern "C"
