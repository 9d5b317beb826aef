// The system calls of the stream layer, which can be made to fail or to do less than asked. The
// test program is linked so that they come here (--wrap).
#ifndef ZQXML_TESTS_OS_FAULTYSYSTEM_H
#define ZQXML_TESTS_OS_FAULTYSYSTEM_H

namespace faulty {

enum class Call { Open, Read, Write, Seek, Close };

// While it lives, call number `index` (from 0) of its kind fails with an errno. A failing close
// closes all the same, as the kernel does.
class Failure {
 public:
  Failure(Call call, int error, int index = 0);
  ~Failure();
  Failure(const Failure&) = delete;
  Failure& operator=(const Failure&) = delete;
};

// While it lives, reads and writes move at most so many bytes.
class ShortCounts {
 public:
  explicit ShortCounts(int limit);
  ~ShortCounts();
  ShortCounts(const ShortCounts&) = delete;
  ShortCounts& operator=(const ShortCounts&) = delete;
};

// How often a call was made so far.
int count(Call call);

// Descriptors that were opened and are not closed.
int openDescriptors();

// What the last open was asked for.
struct Opened {
  int flags;
  unsigned mode;
  int result;
};
Opened lastOpened();

}  // namespace faulty

#endif
