// Buffered input and output of a control block.

#include "compress/zutil.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "compress/crc32.h"
#include "zqxml/messages.h"

namespace {

constexpr uint64_t kMaxResult = std::numeric_limits<uint32_t>::max();

// Makes the result `size` bytes large, with a NUL behind them. Memory is got for half as many more:
// a damaged stream may deliver a thousand times its length, and its pieces must not be copied each
// time.
bool growOutputMemory(ZipControlBlock* block, uint64_t size) {
  if (size > kMaxResult) {
    return false;
  }
  if (size > block->outputRoom) {
    const uint64_t room = std::min(size + size / 2, kMaxResult);
    void* grown = realloc(block->outputMemory, room + 1);
    if (grown == nullptr) {
      return false;
    }
    block->outputMemory = static_cast<unsigned char*>(grown);
    block->outputRoom = static_cast<unsigned>(room);
  }
  block->outputMemory[size] = '\0';
  block->outputCapacity = static_cast<unsigned>(size);
  return true;
}

int writeToMemory(ZipControlBlock* block, const void* buffer, unsigned length) {
  if (length == 0) {
    return 0;
  }
  const uint64_t size = uint64_t{block->bytesOut} + length;
  if (block->outputLost || (size > block->outputCapacity && !growOutputMemory(block, size))) {
    // A gap in the data would be worse than their end.
    block->outputLost = 1;
    block->status = ZQ_MESSAGE_COMPRESS_MEMORY;
    return ZQ_MESSAGE_COMPRESS_MEMORY;
  }
  memcpy(block->outputMemory + block->bytesOut, buffer, length);
  block->outputHeld = size;
  return 0;
}

}  // namespace

int FillInbuf(ZipControlBlock* block, int endOfInputAllowed) {
  block->inputFill = 0;
  size_t count = 0;
  if (block->inputFd != 0) {
    const ssize_t got = read(block->inputFd, block->inputBuffer, ZIP_INPUT_UNIT);
    count = got < 0 ? 0 : static_cast<size_t>(got);
  } else {
    count = std::min<size_t>(ZIP_INPUT_UNIT, block->inputLength - block->bytesIn);
    if (count > 0) {
      memcpy(block->inputBuffer, block->inputMemory + block->bytesIn, count);
    }
  }
  if (count > 0) {
    block->inputFill = static_cast<unsigned>(count);
    block->bytesIn += static_cast<unsigned>(count);
    block->inputPosition = 1;
    return block->inputBuffer[0];
  }
  if (endOfInputAllowed != 0) {
    return -1;
  }
  return errno != 0 ? ZQ_MESSAGE_COMPRESS_READ : ZQ_MESSAGE_COMPRESS_END_OF_INPUT;
}

void FlushOutbuf(ZipControlBlock* block) {
  if (block->outputCount != 0) {
    WriteBuf(block, block->outputBuffer, block->outputCount);
    block->bytesOut += block->outputCount;
    block->outputCount = 0;
  }
}

int WriteBuf(ZipControlBlock* block, const void* buffer, unsigned length) {
  if (block->outputFd == 0) {
    return writeToMemory(block, buffer, length);
  }
  const ssize_t written = write(block->outputFd, buffer, length);
  if (written < 0 || static_cast<size_t>(written) != length) {
    block->status = ZQ_MESSAGE_COMPRESS_WRITE;
    return ZQ_MESSAGE_COMPRESS_WRITE;
  }
  return 0;
}

unsigned UpdateCRC(ZipControlBlock* block, const unsigned char* buffer, unsigned length) {
  constexpr uint32_t kStart = 0xFFFFFFFF;
  block->crcRegister = buffer == nullptr ? kStart : updateCrc32(block->crcRegister, buffer, length);
  return ~block->crcRegister;
}
