// Descriptors that fail, read short or write short: read, write, lseek and fstat of the library
// come here.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <vector>

#include "calls.h"
#include "inputs.h"
#include "reference_deflate.h"
#include "temporary_file.h"

using calls::Bytes;
using inputs::Kind;

namespace {

// What happens to the calls of this test; off unless a test asks for it.
struct Faults {
  size_t readAtMost = SIZE_MAX;
  size_t writeAtMost = SIZE_MAX;
  int failReadFrom = -1;   // number of the first read that fails
  int failWriteFrom = -1;  // number of the first write that fails
  int failOnlyWrite = -1;  // number of the one write that fails
  int failSeek = -1;       // number of the one seek that fails
  bool failStat = false;
  off_t claimedSize = -1;

  int reads = 0;
  int seeks = 0;
  std::vector<size_t> writes;
};

Faults* gFaults = nullptr;

class Faulty {
 public:
  explicit Faulty(Faults faults) : own(faults) { gFaults = &own; }
  ~Faulty() { gFaults = nullptr; }
  Faulty(const Faulty&) = delete;
  Faulty& operator=(const Faulty&) = delete;
  const Faults& seen() const { return own; }

 private:
  Faults own;
};

}  // namespace

extern "C" {

ssize_t __real_read(int fd, void* buffer, size_t count);
ssize_t __real_write(int fd, const void* buffer, size_t count);
off_t __real_lseek(int fd, off_t offset, int whence);
int __real_fstat(int fd, struct stat* status);

ssize_t __wrap_read(int fd, void* buffer, size_t count);
ssize_t __wrap_write(int fd, const void* buffer, size_t count);
off_t __wrap_lseek(int fd, off_t offset, int whence);
int __wrap_fstat(int fd, struct stat* status);

ssize_t __wrap_read(int fd, void* buffer, size_t count) {
  if (gFaults == nullptr) {
    return __real_read(fd, buffer, count);
  }
  const int number = gFaults->reads++;
  if (gFaults->failReadFrom >= 0 && number >= gFaults->failReadFrom) {
    errno = EIO;
    return -1;
  }
  return __real_read(fd, buffer, std::min(count, gFaults->readAtMost));
}

ssize_t __wrap_write(int fd, const void* buffer, size_t count) {
  if (gFaults == nullptr) {
    return __real_write(fd, buffer, count);
  }
  const int number = static_cast<int>(gFaults->writes.size());
  gFaults->writes.push_back(count);
  if (number == gFaults->failOnlyWrite ||
      (gFaults->failWriteFrom >= 0 && number >= gFaults->failWriteFrom)) {
    errno = ENOSPC;
    return -1;
  }
  return __real_write(fd, buffer, std::min(count, gFaults->writeAtMost));
}

off_t __wrap_lseek(int fd, off_t offset, int whence) {
  if (gFaults != nullptr && gFaults->seeks++ == gFaults->failSeek) {
    errno = ESPIPE;
    return -1;
  }
  return __real_lseek(fd, offset, whence);
}

int __wrap_fstat(int fd, struct stat* status) {
  if (gFaults != nullptr && gFaults->failStat) {
    errno = EIO;
    return -1;
  }
  const int result = __real_fstat(fd, status);
  if (gFaults != nullptr && gFaults->claimedSize >= 0) {
    status->st_size = gFaults->claimedSize;
  }
  return result;
}

}  // extern "C"

namespace {

calls::Result decompressFile(const TemporaryFile& file) {
  return calls::take([&](void** block, unsigned* length) {
    return ZQDecompressFileToMem(file.descriptor(), block, length);
  });
}

calls::Result compressFile(unsigned level, const TemporaryFile& file) {
  file.seek(0);
  return calls::take([&](void** block, unsigned* length) {
    return ZQCompressFileToMem(level, file.descriptor(), block, length);
  });
}

}  // namespace

TEST(Descriptors, ShortReadsWhileDecompressing) {
  const Bytes data = inputs::make(Kind::Text, 40000);
  const TemporaryFile packed(calls::compress(6, data).data);
  const TemporaryFile plain(data);
  for (const size_t most : {1u, 2u, 3u, 7u, 8u, 9u, 100u, 4096u}) {
    Faults faults;
    faults.readAtMost = most;
    const Faulty faulty(faults);
    const calls::Result result = decompressFile(packed);
    EXPECT_EQ(result.status, 0) << most;
    EXPECT_TRUE(result.data == data) << most;
    const calls::Result copied = decompressFile(plain);
    EXPECT_EQ(copied.status, 0) << most;
    EXPECT_TRUE(copied.data == data) << most;
  }
}

// The first byte alone looks like a container.
TEST(Descriptors, ShortReadInsideTheMagicLosesNothing) {
  Bytes data = inputs::make(Kind::Text, 1000);
  data[0] = 0x1F;
  const TemporaryFile plain(data);
  Faults faults;
  faults.readAtMost = 1;
  const Faulty faulty(faults);
  const calls::Result result = decompressFile(plain);
  EXPECT_EQ(result.status, 0);
  EXPECT_TRUE(result.data == data);
}

TEST(Descriptors, ShortReadsWhileCompressing) {
  for (const Kind kind : {Kind::Text, Kind::Random}) {
    const Bytes data = inputs::make(kind, 200000);
    const TemporaryFile plain(data);
    for (const unsigned level : {1u, 6u, 9u}) {
      for (const size_t most : {1u, 100u, 4096u, 32768u, 40000u}) {
        Faults faults;
        faults.readAtMost = most;
        const Faulty faulty(faults);
        const calls::Result result = compressFile(level, plain);
        EXPECT_EQ(result.status, 0);
        const calls::Result back = calls::decompress(result.data);
        EXPECT_EQ(back.status, 0);
        EXPECT_TRUE(back.data == data) << most;
      }
    }
  }
}

// Whole reads give what memory gives.
TEST(Descriptors, FilesCompressAsMemory) {
  const Bytes data = inputs::make(Kind::Xml, 300000);
  const TemporaryFile plain(data);
  for (unsigned level = 1; level <= 9; ++level) {
    EXPECT_TRUE(compressFile(level, plain).data == calls::compress(level, data).data) << level;
  }
}

TEST(Descriptors, FailedReadEndsTheCompression) {
  const Bytes data = inputs::make(Kind::Text, 200000);
  const TemporaryFile plain(data);
  for (const int from : {0, 1, 2}) {
    Faults faults;
    faults.failReadFrom = from;
    const Faulty faulty(faults);
    const calls::Result result = compressFile(6, plain);
    EXPECT_EQ(result.status, 0) << from;
    // The header keeps the promise, the trailer tells what was there.
    const calls::Result back = calls::decompress(result.data);
    EXPECT_EQ(back.status, ZQ_MESSAGE_COMPRESS_LENGTH) << from;
    EXPECT_LT(back.data.size(), data.size()) << from;
    EXPECT_TRUE(std::equal(back.data.begin(), back.data.end(), data.begin())) << from;
  }
}

TEST(Descriptors, FailedReadEndsTheDecompression) {
  const Bytes data = inputs::make(Kind::Random, 100000);
  const TemporaryFile packed(calls::compress(6, data).data);
  for (const int from : {0, 1, 2, 3}) {
    Faults faults;
    faults.failReadFrom = from;
    const Faulty faulty(faults);
    const calls::Result result = decompressFile(packed);
    if (from == 0) {
      // Not even the magic: nothing to copy, and the failure of a copy isn't told.
      EXPECT_EQ(result.status, 0);
      EXPECT_TRUE(result.data.empty());
    } else {
      EXPECT_GE(result.status, ZQ_MESSAGE_COMPRESS_CHECKSUM) << from;
      EXPECT_LE(result.status, ZQ_MESSAGE_COMPRESS_STREAM) << from;
    }
  }
}

TEST(Descriptors, FailedReadOfACopyIsNotTold) {
  const Bytes data = inputs::make(Kind::Text, 100000);
  const TemporaryFile plain(data);
  Faults faults;
  faults.failReadFrom = 2;
  const Faulty faulty(faults);
  const calls::Result result = decompressFile(plain);
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.data, Bytes(data.begin(), data.begin() + 65536));
}

// A file that shrinks between fstat and read.
TEST(Descriptors, FileIsShorterThanItSays) {
  const TemporaryFile one(Bytes{0x1F});
  const TemporaryFile seven(Bytes{0x1F, 0x8C, 1, 0, 0, 0, 0});
  const TemporaryFile none;
  Faults faults;
  faults.claimedSize = 100;
  const Faulty faulty(faults);
  EXPECT_EQ(decompressFile(one).data, Bytes{0x1F});
  EXPECT_EQ(decompressFile(none).data, Bytes{});
  errno = 0;
  // The missing byte of the length and all that follows are made up: a fixed block without an end.
  EXPECT_EQ(decompressFile(seven).status, ZQ_MESSAGE_COMPRESS_STREAM);
}

TEST(Descriptors, SeekAndStatFailuresGive3009) {
  const TemporaryFile in(Bytes(100, 'x'));
  const TemporaryFile out;
  const auto failSeek = [](int number) {
    Faults faults;
    faults.failSeek = number;
    return faults;
  };
  Faults failStat;
  failStat.failStat = true;
  {
    const Faulty faulty(failSeek(0));
    EXPECT_EQ(ZQDecompressFileToFile(in.descriptor(), out.descriptor()), ZQ_MESSAGE_COMPRESS_SEEK);
  }
  {
    const Faulty faulty(failStat);
    EXPECT_EQ(ZQDecompressFileToFile(in.descriptor(), out.descriptor()), ZQ_MESSAGE_COMPRESS_SEEK);
  }
  for (const int number : {0, 1}) {
    const Faulty faulty(failSeek(number));
    EXPECT_EQ(ZQCompressFileToFile(6, in.descriptor(), out.descriptor()), ZQ_MESSAGE_COMPRESS_SEEK);
  }
  {
    const Faulty faulty(failStat);
    EXPECT_EQ(ZQCompressFileToFile(6, in.descriptor(), out.descriptor()), ZQ_MESSAGE_COMPRESS_SEEK);
  }
  EXPECT_TRUE(out.content().empty());
}

TEST(Descriptors, WritesAreWholeUnits) {
  const Bytes data = inputs::make(Kind::Random, 100000);
  const Bytes container = calls::compress(6, data).data;
  const TemporaryFile out;
  {
    const Faulty faulty({});
    EXPECT_EQ(ZQCompressMemToFile(6, data.data(), 100000, out.descriptor()), 0);
    std::vector<size_t> units(container.size() / 16384, 16384);
    units.push_back(container.size() % 16384);
    EXPECT_EQ(faulty.seen().writes, units);
  }
  EXPECT_EQ(out.content(), container);
  {
    const Faulty faulty({});
    EXPECT_EQ(ZQDecompressMemToFile(container.data(), static_cast<unsigned>(container.size()),
                                    out.descriptor()),
              0);
    EXPECT_EQ(faulty.seen().writes, (std::vector<size_t>{32768, 32768, 32768, 100000 % 32768}));
  }
  {
    const Faulty faulty({});
    EXPECT_EQ(ZQDecompressMemToFile(data.data(), 100000, out.descriptor()), 0);
    EXPECT_EQ(faulty.seen().writes, std::vector<size_t>{100000});
  }
}

TEST(Descriptors, ShortAndFailedWritesGive3003AndTheWorkGoesOn) {
  const Bytes data = inputs::make(Kind::Random, 100000);
  const Bytes container = calls::compress(6, data).data;
  Faults shortWrites;
  shortWrites.writeAtMost = 1000;
  Faults failAll;
  failAll.failWriteFrom = 0;
  Faults failOne;
  failOne.failOnlyWrite = 1;
  Faults failLast;
  failLast.failWriteFrom = 3;
  for (const Faults& faults : {shortWrites, failAll, failOne, failLast}) {
    const TemporaryFile out;
    {
      const Faulty faulty(faults);
      EXPECT_EQ(ZQCompressMemToFile(6, data.data(), 100000, out.descriptor()),
                ZQ_MESSAGE_COMPRESS_WRITE);
      EXPECT_EQ(faulty.seen().writes.size(), container.size() / 16384 + 1);
    }
    {
      const Faulty faulty(faults);
      // The checksum and the length are those of what was decoded, not of what was written.
      EXPECT_EQ(ZQDecompressMemToFile(container.data(), static_cast<unsigned>(container.size()),
                                      out.descriptor()),
                ZQ_MESSAGE_COMPRESS_WRITE);
      EXPECT_EQ(faulty.seen().writes.size(), 4u);
    }
  }
  const TemporaryFile plain(data);
  const TemporaryFile out;
  const Faulty faulty(failOne);
  // A copy stops at once.
  EXPECT_EQ(ZQDecompressFileToFile(plain.descriptor(), out.descriptor()),
            ZQ_MESSAGE_COMPRESS_WRITE);
  EXPECT_EQ(faulty.seen().writes.size(), 2u);
}

// The later of two failures is the one that is returned.
TEST(Descriptors, LastFailureCounts) {
  const Bytes data = inputs::make(Kind::Random, 100000);
  const Bytes stream = calls::streamOf(calls::compress(6, data).data);
  const TemporaryFile out;
  Faults failOne;
  failOne.failOnlyWrite = 0;
  const auto decompress = [&](const Bytes& container) {
    const Faulty faulty(failOne);
    return ZQDecompressMemToFile(container.data(), static_cast<unsigned>(container.size()),
                                 out.descriptor());
  };
  EXPECT_EQ(decompress(calls::wrap(stream, 100000, reference::crc32(data))),
            ZQ_MESSAGE_COMPRESS_WRITE);
  EXPECT_EQ(decompress(calls::wrap(stream, 100000, 0)), ZQ_MESSAGE_COMPRESS_CHECKSUM);
  EXPECT_EQ(decompress(calls::wrap(stream, 5, 0)), ZQ_MESSAGE_COMPRESS_LENGTH);
}

TEST(Descriptors, HeaderLengthIsModulo4GiB) {
  const TemporaryFile plain(Bytes(10, 'x'));
  Faults faults;
  faults.claimedSize = (off_t{1} << 32) + 10;
  const TemporaryFile out;
  {
    const Faulty faulty(faults);
    EXPECT_EQ(ZQCompressFileToFile(6, plain.descriptor(), out.descriptor()), 0);
  }
  EXPECT_TRUE(out.content() == calls::compress(6, Bytes(10, 'x')).data);
}
