// The items of a block, as the matching loops record them.
#ifndef ZQXML_COMPRESS_TREES_H
#define ZQXML_COMPRESS_TREES_H

#include "zqxml/compress_inner.h"

// Symbol of a distance less 1.
inline unsigned distanceSymbol(const ZipControlBlock* block, unsigned distance) {
  return block->distanceCode[distance < 256 ? distance : 256 + (distance >> 7)];
}

// Whether a block that compresses well so far should end, so that the next one gets trees of its
// own.
bool blockShouldEnd(const ZipControlBlock* block, unsigned stringStart);

// The body of TreeTally, for the inner loops, which keep the position in the window to themselves.
inline bool tallyItem(ZipControlBlock* block, unsigned stringStart, unsigned distance,
                      unsigned literalOrLength) {
  constexpr unsigned kCheckInterval = 0x1000;
  constexpr unsigned kLastLevelWithoutCheck = 2;
  block->inputBuffer[block->lastLiteral++] = static_cast<unsigned char>(literalOrLength);
  if (distance == 0) {
    ++block->dynamicLiteralTree[literalOrLength].frequency;
  } else {
    const unsigned symbol = END_BLOCK + 1u + block->lengthCode[literalOrLength];
    ++block->dynamicLiteralTree[symbol].frequency;
    --distance;
    ++block->dynamicDistanceTree[distanceSymbol(block, distance)].frequency;
    block->distanceBuffer[block->lastDistance++] = static_cast<uint16_t>(distance);
    block->flags = static_cast<unsigned char>(block->flags | block->flagBit);
  }
  block->flagBit = static_cast<unsigned char>(block->flagBit << 1);
  if (block->flagBit == 0) {
    block->flagBuffer[block->lastFlags++] = block->flags;
    block->flags = 0;
    block->flagBit = 1;
  }
  if (block->lastLiteral % kCheckInterval == 0 && block->level > kLastLevelWithoutCheck &&
      blockShouldEnd(block, stringStart)) {
    return true;
  }
  return block->lastLiteral == LIT_BUFSIZE - 1 || block->lastDistance == DIST_BUFSIZE;
}

#endif
