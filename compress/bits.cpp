// The bit string of deflate: low bit first, in units of two bytes.

#include "compress/zutil.h"

namespace {

constexpr int kBufferBits = 16;

void putBuffer(ZipControlBlock* block) {
  putOutputByte(block, block->bitBuffer & 0xFF);
  putOutputByte(block, block->bitBuffer >> 8);
}

}  // namespace

void SendBits(ZipControlBlock* block, unsigned value, int length) {
  constexpr unsigned kMask = 0xFFFF;
  const unsigned joined = value << block->bitValid;
  block->bitBuffer = (block->bitBuffer | joined) & kMask;
  if (block->bitValid <= kBufferBits - length) {
    block->bitValid += length;
    return;
  }
  putBuffer(block);
  const int sent = kBufferBits - block->bitValid;
  block->bitBuffer = (value & kMask) >> sent;
  block->bitValid = length - sent;
}

unsigned BitStringReverse(unsigned code, int length) {
  unsigned reversed = 0;
  for (; length > 0; --length, code >>= 1) {
    reversed = (reversed << 1) | (code & 1);
  }
  return reversed;
}

void BitStringWindup(ZipControlBlock* block) {
  constexpr int kByteBits = 8;
  if (block->bitValid > kByteBits) {
    putBuffer(block);
  } else if (block->bitValid > 0) {
    putOutputByte(block, block->bitBuffer & 0xFF);
  }
  block->bitBuffer = 0;
  block->bitValid = 0;
}
