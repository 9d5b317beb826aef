// A file that is never on a disk, and its name.
#ifndef ZQXML_FUZZ_FILE_H
#define ZQXML_FUZZ_FILE_H

#include <sys/mman.h>
#include <unistd.h>

#include <string>

#include "fuzz/Input.h"

namespace fuzz {

class File {
 public:
  File() : fd(memfd_create("file", MFD_CLOEXEC)), name("/proc/self/fd/" + std::to_string(fd)) {
    require(fd >= 0, "a file can be made");
  }
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  ~File() { close(fd); }

  int descriptor() const { return fd; }
  const std::string& path() const { return name; }

  void store(const void* bytes, size_t size) const {
    require(ftruncate(fd, 0) == 0 && pwrite(fd, bytes, size, 0) == static_cast<ssize_t>(size),
            "the file can be written");
  }

  std::string content() const {
    std::string bytes(static_cast<size_t>(lseek(fd, 0, SEEK_END)), '\0');
    require(pread(fd, bytes.data(), bytes.size(), 0) == static_cast<ssize_t>(bytes.size()),
            "the file can be read");
    return bytes;
  }

 private:
  int fd;
  std::string name;
};

}  // namespace fuzz

#endif
