// Decompression: stream, trailer, and what inflate delivers.

#include <algorithm>
#include <cstdlib>

#include "compress/zutil.h"
#include "zqxml/messages.h"

namespace {

// What a stream of `sourceLength` bytes can give, and a little: a match of 258 bytes takes at least
// two bits. A header that promises more is not believed before the data come.
uint64_t reachableLength(uint64_t sourceLength) {
  constexpr uint64_t kMaxRatio = 1032;
  constexpr uint64_t kSpare = 65536;
  constexpr uint64_t kMaxLength = uint64_t{1} << 32;
  return std::min(sourceLength, kMaxLength) * kMaxRatio + kSpare;
}

bool allocateOutput(ZipControlBlock* block) {
  const uint64_t capacity =
      std::min<uint64_t>(block->originalLength, reachableLength(block->sourceLength));
  block->outputMemory = static_cast<unsigned char*>(malloc(capacity + 1));
  if (block->outputMemory == nullptr) {
    return false;
  }
  block->outputMemory[capacity] = '\0';
  block->outputCapacity = static_cast<unsigned>(capacity);
  return true;
}

}  // namespace

int ZQUnzip(ZipControlBlock* block) {
  constexpr int kNoMemory = 3;
  block->crc = UpdateCRC(block, nullptr, 0);
  if (block->outputFd == 0 && !allocateOutput(block)) {
    block->status = ZQ_MESSAGE_COMPRESS_MEMORY;
    return static_cast<int>(block->status);
  }
  const int result = Inflate(block);
  if (block->outputMemory != nullptr) {
    block->outputMemory[block->outputHeld] = '\0';
  }
  if (result != 0) {
    block->status = result == kNoMemory ? ZQ_MESSAGE_COMPRESS_MEMORY : ZQ_MESSAGE_COMPRESS_STREAM;
    return static_cast<int>(block->status);
  }
  uint32_t storedCrc = 0;
  for (int shift = 0; shift < 32; shift += 8) {
    storedCrc |= static_cast<uint32_t>(nextInputByte(block)) << shift;
  }
  if (storedCrc != block->crc) {
    block->status = ZQ_MESSAGE_COMPRESS_CHECKSUM;
  }
  if (block->originalLength != block->bytesOut) {
    block->status = ZQ_MESSAGE_COMPRESS_LENGTH;
  }
  return static_cast<int>(block->status);
}

void FlushWindow(ZipControlBlock* block) {
  if (block->outputCount != 0) {
    const unsigned char* bytes = block->window + block->windowStart;
    block->crc = UpdateCRC(block, bytes, block->outputCount);
    WriteBuf(block, bytes, block->outputCount);
    block->bytesOut += block->outputCount;
    block->outputCount = 0;
  }
}
