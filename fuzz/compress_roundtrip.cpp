// Compresses what comes and decompresses it again; some of it beside the plain compressor of the
// tests, whose bytes must be the same.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "fault/FailingAllocations.h"
#include "fuzz/Input.h"
#include "tests/compress/reference_deflate.h"
#include "zqxml/compress.h"

namespace {

using fuzz::require;
using Bytes = std::vector<unsigned char>;

// Makes much data of a few: each two bytes say how many bytes to take from the input and how often.
Bytes expand(const uint8_t* data, size_t size, size_t maxLength) {
  Bytes bytes;
  while (size > 2 && bytes.size() < maxLength) {
    const size_t length = std::min<size_t>(data[0] % 64 + 1u, size - 2);
    const size_t times = data[1] < 192 ? data[1] % 8 + 1u : (data[1] - 191u) * 40u;
    for (size_t i = 0; i < times && bytes.size() < maxLength; ++i) {
      bytes.insert(bytes.end(), data + 2, data + 2 + length);
    }
    data += 2 + length;
    size -= 2 + length;
  }
  return bytes;
}

void check(unsigned level, const Bytes& data, bool withReference) {
  const unsigned char none = 0;
  void* block = nullptr;
  unsigned length = 0;
  require(ZQCompressMemToMem(level, data.empty() ? &none : data.data(),
                             static_cast<unsigned>(data.size()), &block, &length) == 0,
          "bytes are compressed");
  if (withReference) {
    const Bytes expected = reference::compress(data, static_cast<int>(level));
    require(length == expected.size() && memcmp(block, expected.data(), length) == 0,
            "bytes are compressed as plainly");
  }
  void* back = nullptr;
  unsigned backLength = 0;
  require(ZQDecompressMemToMem(block, length, &back, &backLength) == 0, "they are decompressed");
  require(
      backLength == data.size() && (backLength == 0 || memcmp(back, data.data(), backLength) == 0),
      "they come back");
  free(back);
  free(block);
}

void checkFailure(unsigned level, const Bytes& data, long index) {
  const long before = fault::liveBlocks();
  void* block = nullptr;
  unsigned length = 0;
  {
    const fault::FailingAllocations armed(index);
    ZQCompressMemToMem(level, data.data(), static_cast<unsigned>(data.size()), &block, &length);
  }
  free(block);
  require(fault::liveBlocks() == before, "a failure gives all back");
}

}  // namespace

void fuzz::run(const uint8_t* data, size_t size) {
  if (size < 2) {
    return;
  }
  const unsigned level = 1 + data[0] % 9;
  const unsigned variant = data[1];
  data += 2;
  size -= 2;
  const Bytes input(data, data + size);
  if (variant < 2) {
    check(level, expand(data, size, 70000), false);
  } else if (variant < 4) {
    check(level, expand(data, size, 20000), true);
  } else if (variant < 16) {
    checkFailure(level, input, variant % 4);
  } else {
    check(level, input, variant < 32);
  }
}
