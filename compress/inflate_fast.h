// The fast loop of inflate.
#ifndef ZQXML_COMPRESS_INFLATE_FAST_H
#define ZQXML_COMPRESS_INFLATE_FAST_H

#include "zqxml/compress_inner.h"

// The code of a block: the tables of HuftBuild.
struct BlockCode {
  const huft* literals;
  const huft* distances;
  unsigned literalBits;   // index bits
  unsigned distanceBits;  // index bits
};

enum class FastResult { Paused, EndOfBlock, BadStream };

// What has to be there for the loop to start: bytes in `inputBuffer`, and room in the half of the
// window.
constexpr unsigned kFastInput = 24;
constexpr unsigned kFastOutput = 24;

// Whether the flat tables are as wide as those of a code, which those of all blocks are.
bool fitsFastTables(const BlockCode& code);

// Makes the flat tables of the fast loop.
void makeFastTables(ZipControlBlock* block, const BlockCode& code);

// Decodes items as long as input and room last. `outputCount` may be WSIZE and more afterwards, up
// to MIN_LOOKAHEAD: the bytes beyond lie behind the half. What the block holds of the input is what
// a reader of single bytes would hold.
FastResult inflateFast(ZipControlBlock* block, const BlockCode& code);

// The way that every processor knows, which does exactly the same.
FastResult inflateFastAnywhere(ZipControlBlock* block, const BlockCode& code);

#endif
