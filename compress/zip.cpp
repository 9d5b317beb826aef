// Compression: header, stream, trailer, and what the matching reads.

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "compress/container.h"
#include "compress/zutil.h"
#include "zqxml/messages.h"

namespace {

// Room for header and trailer, and hardly more: data that don't shrink make the result grow.
constexpr uint64_t kSpareOutput = 8;

void put32(ZipControlBlock* block, uint32_t value) {
  for (int shift = 0; shift < 32; shift += 8) {
    putOutputByte(block, (value >> shift) & 0xFF);
  }
}

bool allocateOutput(ZipControlBlock* block, uint64_t inputLength) {
  if (inputLength > std::numeric_limits<uint64_t>::max() - kSpareOutput) {
    return false;
  }
  const uint64_t size = inputLength + kSpareOutput;
  block->outputMemory = static_cast<unsigned char*>(malloc(size));
  if (block->outputMemory == nullptr) {
    return false;
  }
  constexpr uint64_t kMaxCapacity = std::numeric_limits<uint32_t>::max();
  block->outputCapacity = static_cast<unsigned>(std::min(size, kMaxCapacity));
  return true;
}

void shrinkOutput(ZipControlBlock* block) {
  void* shrunk = realloc(block->outputMemory, block->outputHeld);
  if (shrunk == nullptr) {
    block->status = ZQ_MESSAGE_COMPRESS_MEMORY;
    return;
  }
  block->outputMemory = static_cast<unsigned char*>(shrunk);
  block->outputCapacity = static_cast<unsigned>(block->outputHeld);
  block->outputRoom = 0;
}

}  // namespace

int ZQZip(ZipControlBlock* block, uint64_t inputLength) {
  const bool toMemory = block->outputFd == 0;
  if (toMemory && !allocateOutput(block, inputLength)) {
    block->status = ZQ_MESSAGE_COMPRESS_MEMORY;
    return static_cast<int>(block->status);
  }
  block->outputCount = 0;
  putOutputByte(block, kMagic0);
  putOutputByte(block, kMagic1);
  putOutputByte(block, 1);
  putOutputByte(block, 0);
  put32(block, static_cast<uint32_t>(inputLength));
  block->crc = UpdateCRC(block, nullptr, 0);
  TreeInit(block);
  LongestMatchInit(block);
  Deflate(block);
  put32(block, block->crc);
  FlushOutbuf(block);
  if (toMemory && !block->outputLost) {
    shrinkOutput(block);
  }
  return static_cast<int>(block->status);
}

int FileRead(ZipControlBlock* block, unsigned char* buffer, unsigned length) {
  const ssize_t count = read(block->inputFd, buffer, length);
  if (count <= 0) {
    return static_cast<int>(count);
  }
  block->crc = UpdateCRC(block, buffer, static_cast<unsigned>(count));
  block->bytesIn += static_cast<unsigned>(count);
  return static_cast<int>(count);
}

int MemRead(ZipControlBlock* block, unsigned char* buffer, unsigned length) {
  const unsigned count = std::min(length, block->inputLength - block->bytesIn);
  if (count > 0) {
    memcpy(buffer, block->inputMemory + block->bytesIn, count);
    block->crc = UpdateCRC(block, buffer, count);
    block->bytesIn += count;
  }
  return static_cast<int>(count);
}
