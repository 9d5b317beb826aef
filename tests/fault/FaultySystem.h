// The system calls of the library, which can be made to fail or to do less than asked. A test
// program is linked so that they come here, see zqxml_faulty_system() in CMakeLists.txt; so do the
// files that the XML parser opens.
#ifndef ZQXML_TESTS_FAULT_FAULTYSYSTEM_H
#define ZQXML_TESTS_FAULT_FAULTYSYSTEM_H

#include <cstdio>

#include "fault/FailingAllocations.h"

namespace faulty {

// The calls on descriptors also stand for those that the C library makes for its streams.
enum class Call { Open, Read, Write, Seek, Close, Stat, CatalogOpen, CatalogGet, CatalogClose };
inline constexpr int kCalls = 9;

// While it lives, call number `index` (from 0) of its kind fails with an errno, and with
// Mode::FromThere all later ones too. A failing close closes all the same, as the kernel does.
class Failure {
 public:
  Failure(Call call, int error, int index = 0, fault::Mode mode = fault::Mode::Once);
  ~Failure();
  Failure(const Failure&) = delete;
  Failure& operator=(const Failure&) = delete;

  // Whether a call has failed.
  static bool happened();
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

// Opens a file as a stream of the C library whose calls can fail; null if that fails.
FILE* openFile(const char* path, const char* mode);

// What the last open was asked for.
struct Opened {
  int flags;
  unsigned mode;
  int result;
};
Opened lastOpened();

}  // namespace faulty

#endif
