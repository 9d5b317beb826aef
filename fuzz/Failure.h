// Calls during which an allocation fails.
#ifndef ZQXML_FUZZ_FAILURE_H
#define ZQXML_FUZZ_FAILURE_H

#include <cstdint>

#include "fault/FailingAllocations.h"
#include "fuzz/Input.h"

namespace fuzz {

// The digests that make a run fail an allocation: half of them.
inline bool isFailing(uint32_t digest) {
  return (digest & 1) != 0;
}

// For a call whose memory doesn't run out.
struct Unarmed {};
inline Unarmed unarmed() {
  return {};
}

// Calls `body(arm)` once more with an allocation that fails, which the digest chooses among the
// `count` of a good call. The body holds the result of `arm()` around the call under test, and
// gives everything back.
template <typename Body>
void withFailure(uint32_t digest, long count, Body body) {
  if (count < 1) {
    return;
  }
  const long index = static_cast<long>(digest >> 1 & 0xFFFFFF) % count;
  const fault::Mode mode = digest >> 31 == 0 ? fault::Mode::Once : fault::Mode::FromThere;
  const auto arm = [index, mode] { return fault::FailingAllocations(index, mode); };
  body(arm);
}

}  // namespace fuzz

#endif
