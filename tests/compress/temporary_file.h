// A file without a name, for the calls that take descriptors.
#ifndef ZQXML_TESTS_COMPRESS_TEMPORARY_FILE_H
#define ZQXML_TESTS_COMPRESS_TEMPORARY_FILE_H

#include <sys/mman.h>
#include <unistd.h>

#include <stdexcept>
#include <vector>

class TemporaryFile {
 public:
  using Bytes = std::vector<unsigned char>;

  explicit TemporaryFile(const Bytes& content = {}) : fd(memfd_create("test", 0)) {
    if (fd <= 0 ||
        pwrite(fd, content.data(), content.size(), 0) != static_cast<ssize_t>(content.size())) {
      throw std::runtime_error("no temporary file");
    }
  }
  ~TemporaryFile() { close(fd); }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  int descriptor() const { return fd; }
  off_t offset() const { return lseek(fd, 0, SEEK_CUR); }
  void seek(off_t to) const { lseek(fd, to, SEEK_SET); }

  Bytes content() const {
    Bytes bytes(static_cast<size_t>(size()));
    if (pread(fd, bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size())) {
      throw std::runtime_error("no content");
    }
    return bytes;
  }

 private:
  off_t size() const {
    const off_t here = offset();
    const off_t end = lseek(fd, 0, SEEK_END);
    seek(here);
    return end;
  }

  int fd;
};

#endif
