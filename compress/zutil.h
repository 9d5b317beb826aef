// Byte by byte input and output of a control block.
#ifndef ZQXML_COMPRESS_ZUTIL_H
#define ZQXML_COMPRESS_ZUTIL_H

#include "zqxml/compress_inner.h"

// The next byte of the source. Behind its end bytes are made up from the failure numbers of
// FillInbuf; `inputFill` is 0 after such a byte.
inline unsigned nextInputByte(ZipControlBlock* block) {
  if (block->inputPosition < block->inputFill) {
    return block->inputBuffer[block->inputPosition++];
  }
  return static_cast<unsigned>(FillInbuf(block, 0)) & 0xFF;
}

inline void putOutputByte(ZipControlBlock* block, unsigned byte) {
  block->outputBuffer[block->outputCount++] = static_cast<unsigned char>(byte);
  if (block->outputCount == ZIP_OUTPUT_UNIT) {
    FlushOutbuf(block);
  }
}

#endif
