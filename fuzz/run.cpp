// The entry of all targets: passes the input on, and looks for what is not given back. What is made
// once for all runs, and the XML parser's tables when they grow, are kept; so a run has to keep
// something each time to be stopped for it.

#include "fault/FailingAllocations.h"
#include "fuzz/Input.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  constexpr int kAttempts = 4;
  bool isLeaking = true;
  for (int attempt = 0; attempt < kAttempts && isLeaking; ++attempt) {
    const long before = fault::liveBlocks();
    fuzz::run(data, size);
    isLeaking = fault::liveBlocks() > before;
  }
  fuzz::require(!isLeaking, "a run gives all back");
  return 0;
}
