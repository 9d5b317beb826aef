// Counts the heap blocks of a test program and makes chosen allocations fail.
//
// malloc, calloc, realloc, strdup, strndup and free of the code under test are linked to the
// counting twins, and operator new and delete stand on them, so that the library, the test and the
// C++ side of the XML parser are all counted. What the C library allocates for itself is not.
#ifndef ZQXML_TESTS_FAULT_FAILINGALLOCATIONS_H
#define ZQXML_TESTS_FAULT_FAILINGALLOCATIONS_H

#include <initializer_list>

namespace fault {

enum class Mode { Once, FromThere };

// While an object of this class lives, the allocation number `index` (from 0) of the calling thread
// fails; with Mode::FromThere all later ones too. Assertions of a test framework allocate: make
// them after its end.
class FailingAllocations {
 public:
  explicit FailingAllocations(long index, Mode mode = Mode::Once);
  ~FailingAllocations();
  FailingAllocations(const FailingAllocations&) = delete;
  FailingAllocations& operator=(const FailingAllocations&) = delete;

  // Whether an allocation has failed, so whether the loop over the index has to go on.
  static bool happened();
};

// Blocks of the whole program that are allocated and not given back.
long liveBlocks();

// Allocations of the calling thread since it started.
long allocationCount();

// Calls `scenario(arm)` with failing allocation 0, 1, ... in both modes until none fails any more,
// and returns how many failures were injected. The scenario holds the result of `arm()` around the
// call under test, makes its assertions after that, and returns FailingAllocations::happened() as
// it was at the end of the call.
template <typename Scenario>
long forEachFailure(Scenario scenario) {
  long injected = 0;
  for (const Mode mode : {Mode::Once, Mode::FromThere}) {
    for (long index = 0;; ++index) {
      const auto arm = [index, mode] { return FailingAllocations(index, mode); };
      if (!scenario(arm)) {
        break;
      }
      ++injected;
    }
  }
  return injected;
}

}  // namespace fault

#endif
