#include "fault/FaultySystem.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <nl_types.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdint>

namespace {

using faulty::Call;

constexpr int kNever = -1;

struct State {
  int count = 0;
  int failAt = kNever;
  bool failFromThere = false;
  int error = 0;
};
State states[faulty::kCalls];
// Whether anything may fail, so that files of the C library are to be watched.
int faultsAlive = 0;
bool hasHappened = false;
size_t limit = SIZE_MAX;
int descriptors = 0;
faulty::Opened opened = {};

State& stateOf(Call call) {
  return states[static_cast<int>(call)];
}

// Counts the call, and sets errno if it is the one to fail.
bool fails(Call call) {
  State& state = stateOf(call);
  const int index = state.count++;
  if (state.failAt == kNever ||
      (state.failFromThere ? index < state.failAt : index != state.failAt)) {
    return false;
  }
  hasHappened = true;
  errno = state.error;
  return true;
}

FILE* realOpenFile(const char* path, const char* mode) {
  using Function = FILE* (*)(const char*, const char*);
  static const auto function = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "fopen"));
  return function(path, mode);
}

}  // namespace

extern "C" {

int __real_open(const char* path, int flags, ...);
ssize_t __real_read(int fd, void* buffer, size_t size);
ssize_t __real_write(int fd, const void* buffer, size_t size);
off_t __real_lseek(int fd, off_t offset, int whence);
int __real_close(int fd);
int __real_fstat(int fd, struct stat* status);
int __real_stat(const char* path, struct stat* status);
nl_catd __real_catopen(const char* name, int flag);
char* __real_catgets(nl_catd catalog, int set, int number, const char* message);
int __real_catclose(nl_catd catalog);

int __wrap_open(const char* path, int flags, ...);
ssize_t __wrap_read(int fd, void* buffer, size_t size);
ssize_t __wrap_write(int fd, const void* buffer, size_t size);
off_t __wrap_lseek(int fd, off_t offset, int whence);
int __wrap_close(int fd);
int __wrap_fstat(int fd, struct stat* status);
int __wrap_stat(const char* path, struct stat* status);
nl_catd __wrap_catopen(const char* name, int flag);
char* __wrap_catgets(nl_catd catalog, int set, int number, const char* message);
int __wrap_catclose(nl_catd catalog);

int __wrap_open(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const auto mode = (flags & O_CREAT) != 0 ? va_arg(arguments, unsigned) : 0;
  va_end(arguments);
  const int result = fails(Call::Open) ? -1 : __real_open(path, flags, mode);
  opened = {flags, mode, result};
  descriptors += result >= 0 ? 1 : 0;
  return result;
}

ssize_t __wrap_read(int fd, void* buffer, size_t size) {
  return fails(Call::Read) ? -1 : __real_read(fd, buffer, std::min(size, limit));
}

ssize_t __wrap_write(int fd, const void* buffer, size_t size) {
  return fails(Call::Write) ? -1 : __real_write(fd, buffer, std::min(size, limit));
}

off_t __wrap_lseek(int fd, off_t offset, int whence) {
  return fails(Call::Seek) ? -1 : __real_lseek(fd, offset, whence);
}

int __wrap_close(int fd) {
  const bool isToFail = fails(Call::Close);
  const int error = errno;
  const int result = __real_close(fd);
  descriptors -= result == 0 ? 1 : 0;
  if (isToFail) {
    errno = error;
    return -1;
  }
  return result;
}

int __wrap_fstat(int fd, struct stat* status) {
  return fails(Call::Stat) ? -1 : __real_fstat(fd, status);
}

int __wrap_stat(const char* path, struct stat* status) {
  return fails(Call::Stat) ? -1 : __real_stat(path, status);
}

nl_catd __wrap_catopen(const char* name, int flag) {
  return fails(Call::CatalogOpen) ? reinterpret_cast<nl_catd>(-1) : __real_catopen(name, flag);
}

char* __wrap_catgets(nl_catd catalog, int set, int number, const char* message) {
  return fails(Call::CatalogGet) ? const_cast<char*>(message)
                                 : __real_catgets(catalog, set, number, message);
}

int __wrap_catclose(nl_catd catalog) {
  const int result = __real_catclose(catalog);
  return fails(Call::CatalogClose) ? -1 : result;
}

// In the place of the C library's for the whole program, the XML parser included.
FILE* fopen(const char* path, const char* mode) {
  return faultsAlive > 0 ? faulty::openFile(path, mode) : realOpenFile(path, mode);
}

}  // extern "C"

namespace {

// The calls of a stream of the C library, on the descriptor of another one that stands behind it.
int descriptorOf(void* cookie) {
  return fileno(static_cast<FILE*>(cookie));
}

ssize_t readFile(void* cookie, char* buffer, size_t size) {
  return __wrap_read(descriptorOf(cookie), buffer, size);
}

// As the C library does it: what a short write leaves is written too. A failure is fewer bytes.
ssize_t writeFile(void* cookie, const char* buffer, size_t size) {
  size_t done = 0;
  while (done < size) {
    const ssize_t written = __wrap_write(descriptorOf(cookie), buffer + done, size - done);
    if (written < 0) {
      break;
    }
    done += static_cast<size_t>(written);
  }
  return static_cast<ssize_t>(done);
}

int seekFile(void* cookie, off64_t* offset, int whence) {
  const off_t place = __wrap_lseek(descriptorOf(cookie), *offset, whence);
  if (place < 0) {
    return -1;
  }
  *offset = place;
  return 0;
}

int closeFile(void* cookie) {
  const bool isToFail = fails(Call::Close);
  const int error = errno;
  const int result = fclose(static_cast<FILE*>(cookie));
  if (isToFail) {
    errno = error;
    return EOF;
  }
  return result;
}

}  // namespace

namespace faulty {

FILE* openFile(const char* path, const char* mode) {
  if (fails(Call::Open)) {
    return nullptr;
  }
  FILE* file = realOpenFile(path, mode);
  return file == nullptr ? nullptr
                         : fopencookie(file, mode, {readFile, writeFile, seekFile, closeFile});
}

Failure::Failure(Call call, int error, int index, fault::Mode mode) {
  State& state = stateOf(call);
  state.failAt = state.count + index;
  state.failFromThere = mode == fault::Mode::FromThere;
  state.error = error;
  hasHappened = false;
  ++faultsAlive;
}

Failure::~Failure() {
  for (State& state : states) {
    state.failAt = kNever;
  }
  --faultsAlive;
}

bool Failure::happened() {
  return hasHappened;
}

ShortCounts::ShortCounts(int limitOfBytes) {
  limit = static_cast<size_t>(limitOfBytes);
  ++faultsAlive;
}

ShortCounts::~ShortCounts() {
  limit = SIZE_MAX;
  --faultsAlive;
}

int count(Call call) {
  return stateOf(call).count;
}

int openDescriptors() {
  return descriptors;
}

Opened lastOpened() {
  return opened;
}

}  // namespace faulty
