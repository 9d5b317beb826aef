#include "os/FaultySystem.h"

#include <fcntl.h>
#include <sys/types.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdint>

namespace {

constexpr int kCalls = 5;
constexpr int kNever = -1;

struct State {
  int count = 0;
  int failAt = kNever;
  int error = 0;
};
State states[kCalls];
size_t limit = SIZE_MAX;
int descriptors = 0;
faulty::Opened opened = {};

State& stateOf(faulty::Call call) {
  return states[static_cast<int>(call)];
}

// Counts the call, and sets errno if it is the one to fail.
bool fails(faulty::Call call) {
  State& state = stateOf(call);
  if (state.count++ != state.failAt) {
    return false;
  }
  errno = state.error;
  return true;
}

}  // namespace

extern "C" {

int __real_open(const char* path, int flags, ...);
ssize_t __real_read(int fd, void* buffer, size_t size);
ssize_t __real_write(int fd, const void* buffer, size_t size);
off_t __real_lseek(int fd, off_t offset, int whence);
int __real_close(int fd);

int __wrap_open(const char* path, int flags, ...);
ssize_t __wrap_read(int fd, void* buffer, size_t size);
ssize_t __wrap_write(int fd, const void* buffer, size_t size);
off_t __wrap_lseek(int fd, off_t offset, int whence);
int __wrap_close(int fd);

int __wrap_open(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const auto mode = (flags & O_CREAT) != 0 ? va_arg(arguments, unsigned) : 0;
  va_end(arguments);
  const int result = fails(faulty::Call::Open) ? -1 : __real_open(path, flags, mode);
  opened = {flags, mode, result};
  descriptors += result >= 0 ? 1 : 0;
  return result;
}

ssize_t __wrap_read(int fd, void* buffer, size_t size) {
  return fails(faulty::Call::Read) ? -1 : __real_read(fd, buffer, std::min(size, limit));
}

ssize_t __wrap_write(int fd, const void* buffer, size_t size) {
  return fails(faulty::Call::Write) ? -1 : __real_write(fd, buffer, std::min(size, limit));
}

off_t __wrap_lseek(int fd, off_t offset, int whence) {
  return fails(faulty::Call::Seek) ? -1 : __real_lseek(fd, offset, whence);
}

int __wrap_close(int fd) {
  const bool isToFail = fails(faulty::Call::Close);
  const int error = errno;
  const int result = __real_close(fd);
  descriptors -= result == 0 ? 1 : 0;
  if (isToFail) {
    errno = error;
    return -1;
  }
  return result;
}

}  // extern "C"

namespace faulty {

Failure::Failure(Call call, int error, int index) {
  State& state = stateOf(call);
  state.failAt = state.count + index;
  state.error = error;
}

Failure::~Failure() {
  for (State& state : states) {
    state.failAt = kNever;
  }
}

ShortCounts::ShortCounts(int limitOfBytes) {
  limit = static_cast<size_t>(limitOfBytes);
}

ShortCounts::~ShortCounts() {
  limit = SIZE_MAX;
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
