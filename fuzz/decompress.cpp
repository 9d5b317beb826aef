// Decompresses what comes: as a container, or as the stream of one. The plain decoder of the tests
// must be of the same opinion about the stream. With some of the inputs allocations fail.

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "compress/crc32.h"
#include "fault/FailingAllocations.h"
#include "fuzz/Input.h"
#include "tests/compress/reference_inflate.h"
#include "zqxml/compress.h"

namespace {

using fuzz::require;
using Bytes = std::vector<unsigned char>;

struct Result {
  int status = 0;
  void* block = nullptr;
  unsigned length = 0;
};

Result decompress(const Bytes& container) {
  Result result;
  result.status = ZQDecompressMemToMem(container.data(), static_cast<unsigned>(container.size()),
                                       &result.block, &result.length);
  return result;
}

void append32(Bytes& bytes, uint32_t value) {
  for (int shift = 0; shift < 32; shift += 8) {
    bytes.push_back(static_cast<unsigned char>(value >> shift));
  }
}

void checkStream(Bytes stream) {
  // Most streams soon come to an end on zeros: the end of a fixed block, then a stored one with a
  // wrong length.
  stream.insert(stream.end(), 24, 0);
  const reference::Decoded expected = reference::inflate(stream.data(), stream.size());
  const bool isValid = expected.verdict == reference::Verdict::Valid;
  Bytes container = {0x1F, 0x8C, 1, 0};
  append32(container, static_cast<uint32_t>(expected.data.size()));
  container.insert(container.end(), stream.begin(),
                   isValid ? stream.begin() + static_cast<long>(expected.bytesRead) : stream.end());
  append32(container, ~updateCrc32Slicing(~0u, expected.data.data(), expected.data.size()));
  const Result result = decompress(container);
  if (isValid) {
    require(result.status == 0 && result.length == expected.data.size(), "a valid stream is read");
    require(result.length == 0 || memcmp(result.block, expected.data.data(), result.length) == 0,
            "it gives its bytes");
  } else if (expected.verdict == reference::Verdict::Invalid) {
    require(result.status == ZQ_MESSAGE_COMPRESS_STREAM, "an invalid stream is refused");
  } else {
    require(result.status != 0, "a stream that ends early is refused");
  }
  free(result.block);
}

void checkFailure(const Bytes& container, long index) {
  const long before = fault::liveBlocks();
  Result result;
  {
    const fault::FailingAllocations armed(index, fault::Mode::FromThere);
    result = decompress(container);
  }
  free(result.block);
  require(fault::liveBlocks() == before, "a failure gives all back");
}

}  // namespace

void fuzz::run(const uint8_t* data, size_t size) {
  if (size == 0) {
    return;
  }
  const Bytes input(data + 1, data + size);
  constexpr unsigned kContainer = 0;
  constexpr unsigned kFailing = 1;
  switch (data[0] % 8) {
    case kContainer:
      free(decompress(input).block);
      break;
    case kFailing: {
      Bytes container = {0x1F, 0x8C, 1, 0, 0, 0x10, 0, 0};
      container.insert(container.end(), input.begin(), input.end());
      container.insert(container.end(), 24, 0);
      checkFailure(container, data[0] / 8);
      break;
    }
    default:
      checkStream(input);
  }
}
