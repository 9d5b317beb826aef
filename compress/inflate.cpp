// The decoder of deflate streams (RFC 1951).
//
// The window serves as a ring of two halves: one is filled while the other one holds what matches
// may still refer to, and each is written out when it is full. A distance that points before the
// start of the data finds zeros there; the checksum tells. The input is read byte by byte near its
// end, since behind the end bytes are made up and each status follows from how far a stream gets on
// them.

#include "compress/inflate.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "compress/inflate_fast.h"
#include "compress/zutil.h"

namespace {

constexpr int kGood = 0;
constexpr int kBadStream = 1;
constexpr int kUnknownKind = 2;

constexpr unsigned kWindowMask = ZIP_WINDOW_SIZE - 1;

// A stored block can ask for 65,535 bytes behind the end of the input; whatever asks for more would
// do so for ever.
constexpr unsigned kMaxMadeUpBytes = 70000;

constexpr unsigned kMaxLiteralCodes = 286;
constexpr unsigned kMaxDistanceCodes = 30;
constexpr unsigned kFirstLength = 257;

constexpr unsigned char border[BL_CODES] = {16, 17, 18, 0, 8,  7, 9,  6, 10, 5,
                                            11, 4,  12, 3, 13, 2, 14, 1, 15};
constexpr uint16_t cplens[] = {3,  4,  5,  6,  7,  8,  9,  10,  11,  13,  15,  17,  19,  23, 27, 31,
                               35, 43, 51, 59, 67, 83, 99, 115, 131, 163, 195, 227, 258, 0,  0};
constexpr uint16_t cplext[] = {0,           0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2,
                               2,           3, 3, 3, 3, 4, 4, 4, 4, 5, 5, 5, 5, 0, kHuftInvalid,
                               kHuftInvalid};
constexpr uint16_t cpdist[] = {1,    2,    3,    4,    5,    7,    9,    13,    17,    25,
                               33,   49,   65,   97,   129,  193,  257,  385,   513,   769,
                               1025, 1537, 2049, 3073, 4097, 6145, 8193, 12289, 16385, 24577};
constexpr uint16_t cpdext[] = {0, 0, 0, 0, 1, 1, 2, 2,  3,  3,  4,  4,  5,  5,  6,
                               6, 7, 7, 8, 8, 9, 9, 10, 10, 11, 11, 12, 12, 13, 13};
constexpr uint16_t mask_bits[] = {0x0000, 0x0001, 0x0003, 0x0007, 0x000F, 0x001F,
                                  0x003F, 0x007F, 0x00FF, 0x01FF, 0x03FF, 0x07FF,
                                  0x0FFF, 0x1FFF, 0x3FFF, 0x7FFF, 0xFFFF};

// The bits of the input, low bit first. The accumulator of the block is taken over, and given back
// by store().
class BitReader {
 public:
  explicit BitReader(ZipControlBlock* controlBlock)
      : block(controlBlock),
        accumulator(controlBlock->bitAccumulator),
        count(controlBlock->bitCount) {}

  // Sees to at least `bits` (up to 16) bits; false at the end of what may be made up.
  bool need(unsigned bits) {
    while (count < bits) {
      const unsigned byte = nextInputByte(block);
      if (block->inputFill == 0 && ++block->madeUpBytes > kMaxMadeUpBytes) {
        return false;
      }
      accumulator |= byte << count;
      count += 8;
    }
    return true;
  }

  unsigned peek(unsigned bits) const { return accumulator & mask_bits[bits]; }

  void drop(unsigned bits) {
    accumulator >>= bits;
    count -= bits;
  }

  bool read(unsigned bits, unsigned* value) {
    if (!need(bits)) {
      return false;
    }
    *value = peek(bits);
    drop(bits);
    return true;
  }

  void dropToByteBoundary() { drop(count % 8); }

  void store() const {
    block->bitAccumulator = accumulator;
    block->bitCount = count;
  }

 private:
  ZipControlBlock* block;
  unsigned accumulator;
  unsigned count;
};

// Frees its table on the way out.
struct Table {
  huft* entries = nullptr;
  unsigned bits;

  explicit Table(unsigned wantedBits) : bits(wantedBits) {}
  Table(const Table&) = delete;
  Table& operator=(const Table&) = delete;
  ~Table() { HuftFree(entries); }
};

// Takes the next code from the input. Null for an invalid one.
const huft* nextCode(BitReader& reader, const huft* table, unsigned indexBits) {
  if (table == nullptr || !reader.need(indexBits)) {
    return nullptr;
  }
  const huft* entry = table + reader.peek(indexBits);
  while (entry->extra > kHuftLiteral) {
    if (entry->extra == kHuftInvalid) {
      return nullptr;
    }
    reader.drop(entry->bits);
    const unsigned bits = entry->extra - kHuftLiteral;
    if (!reader.need(bits)) {
      return nullptr;
    }
    entry = entry->v.next + reader.peek(bits);
  }
  reader.drop(entry->bits);
  return entry;
}

// Writes out the half of the window that is full, and goes on in the other one.
void turnWindow(ZipControlBlock* block) {
  FlushWindow(block);
  block->windowStart ^= WSIZE;
}

void putWindowByte(ZipControlBlock* block, unsigned byte) {
  block->window[block->windowStart + block->outputCount++] = static_cast<unsigned char>(byte);
  if (block->outputCount == WSIZE) {
    turnWindow(block);
  }
}

void copyMatch(ZipControlBlock* block, unsigned length, unsigned distance) {
  while (length > 0) {
    const unsigned target = block->windowStart + block->outputCount;
    const unsigned source = (target - distance) & kWindowMask;
    const unsigned stretch =
        std::min({length, WSIZE - block->outputCount, ZIP_WINDOW_SIZE - source});
    unsigned char* to = block->window + target;
    const unsigned char* from = block->window + source;
    if (std::max(source, target) - std::min(source, target) >= stretch) {
      memcpy(to, from, stretch);
    } else {
      for (unsigned i = 0; i < stretch; ++i) {
        to[i] = from[i];
      }
    }
    length -= stretch;
    block->outputCount += stretch;
    if (block->outputCount == WSIZE) {
      turnWindow(block);
    }
  }
}

// What stands for a code without symbols.
constexpr huft kNoSymbols = {kHuftInvalid, 0, {0}};

// Decodes an item bit by bit; `atEnd` tells whether it was the end of the block.
int inflateItem(ZipControlBlock* block, const BlockCode& code, bool* atEnd) {
  BitReader reader(block);
  const huft* entry = nextCode(reader, code.literals, code.literalBits);
  if (entry == nullptr) {
    return kBadStream;
  }
  *atEnd = entry->extra == kHuftEndOfBlock;
  if (entry->extra == kHuftLiteral) {
    putWindowByte(block, entry->v.base);
  } else if (!*atEnd) {
    unsigned length;
    if (!reader.read(entry->extra, &length)) {
      return kBadStream;
    }
    length += entry->v.base;
    entry = nextCode(reader, code.distances, code.distanceBits);
    unsigned distance;
    if (entry == nullptr || !reader.read(entry->extra, &distance)) {
      return kBadStream;
    }
    copyMatch(block, length, distance + entry->v.base);
  }
  reader.store();
  return kGood;
}

// Brings the window in order after the fast loop, whose last item may have crossed the end of the
// half.
void settleWindow(ZipControlBlock* block) {
  if (block->outputCount < WSIZE) {
    return;
  }
  const unsigned excess = block->outputCount - WSIZE;
  block->outputCount = WSIZE;
  turnWindow(block);
  if (block->windowStart == 0) {
    memcpy(block->window, block->window + ZIP_WINDOW_SIZE, excess);
  }
  block->outputCount = excess;
}

// The body of InflateCodes. `hasFastTables` tells whether the block holds the fast tables of this
// code.
int inflateCodes(ZipControlBlock* block, BlockCode code, bool* hasFastTables) {
  if (code.literals == nullptr) {
    code.literals = &kNoSymbols;
    code.literalBits = 0;
  }
  if (code.distances == nullptr) {
    code.distances = &kNoSymbols;
    code.distanceBits = 0;
  }
  const bool canBeFast = fitsFastTables(code);
  for (bool atEnd = false; !atEnd;) {
    if (canBeFast && block->inputPosition + kFastInput <= block->inputFill &&
        block->outputCount < WSIZE - kFastOutput) {
      if (!*hasFastTables) {
        makeFastTables(block, code);
        *hasFastTables = true;
      }
      const FastResult result = inflateFast(block, code);
      if (result == FastResult::BadStream) {
        return kBadStream;
      }
      settleWindow(block);
      atEnd = result == FastResult::EndOfBlock;
    } else if (const int result = inflateItem(block, code, &atEnd); result != kGood) {
      return result;
    }
  }
  return kGood;
}

// The code of fixed blocks. It takes much longer to build than a small block to decode, so one
// serves all fixed blocks of a stream.
class FixedCode {
 public:
  // As InflateFixed.
  int inflate(ZipControlBlock* block) {
    if (const int result = build(block); result != kGood) {
      return result;
    }
    return inflateCodes(block, {literals.entries, distances.entries, literals.bits, distances.bits},
                        &hasFastTables);
  }

  void loseFastTables() { hasFastTables = false; }

 private:
  int build(ZipControlBlock* block) {
    if (distances.entries != nullptr) {
      block->huftCount = huftCount;
      return kGood;
    }
    std::array<unsigned, STATIC_L_CODES> lengths;
    std::fill_n(lengths.begin(), 144, 8u);
    std::fill_n(lengths.begin() + 144, 112, 9u);
    std::fill_n(lengths.begin() + 256, 24, 7u);
    std::fill_n(lengths.begin() + 280, 8, 8u);
    if (const int result = HuftBuild(block, lengths.data(), STATIC_L_CODES, kFirstLength, cplens,
                                     cplext, &literals.entries, &literals.bits);
        result != 0) {
      return result;
    }
    std::fill_n(lengths.begin(), kMaxDistanceCodes, kDistanceLength);
    // Two of the codes of five bits are not in use, so this set is incomplete.
    const int result = HuftBuild(block, lengths.data(), kMaxDistanceCodes, 0, cpdist, cpdext,
                                 &distances.entries, &distances.bits);
    huftCount = block->huftCount;
    return result > 1 ? result : kGood;
  }

  static constexpr unsigned kDistanceLength = 5;
  Table literals{7};
  Table distances{kDistanceLength};
  unsigned huftCount = 0;
  bool hasFastTables = false;
};

int inflateBlock(ZipControlBlock* block, int* isLast, FixedCode& fixed) {
  BitReader reader(block);
  unsigned last;
  unsigned kind;
  if (!reader.read(1, &last) || !reader.read(2, &kind)) {
    return kBadStream;
  }
  reader.store();
  *isLast = static_cast<int>(last);
  switch (kind) {
    case 0:
      return InflateStored(block);
    case 1:
      return fixed.inflate(block);
    case 2:
      fixed.loseFastTables();
      return InflateDynamic(block);
    default:
      return kUnknownKind;
  }
}

}  // namespace

int Inflate(ZipControlBlock* block) {
  block->outputCount = 0;
  block->bitCount = 0;
  block->bitAccumulator = 0;
  block->windowStart = 0;
  block->madeUpBytes = 0;
  memset(block->window + WSIZE, 0, WSIZE);
  FixedCode fixed;
  int isLast = 0;
  while (isLast == 0) {
    block->huftCount = 0;
    if (const int result = inflateBlock(block, &isLast, fixed); result != kGood) {
      return result;
    }
  }
  for (; block->bitCount > 7; block->bitCount -= 8) {
    if (block->inputPosition > 0) {
      --block->inputPosition;
    }
  }
  FlushWindow(block);
  return kGood;
}

int InflateBlock(ZipControlBlock* block, int* isLast) {
  FixedCode fixed;
  return inflateBlock(block, isLast, fixed);
}

int InflateStored(ZipControlBlock* block) {
  BitReader reader(block);
  reader.dropToByteBoundary();
  unsigned length;
  unsigned complement;
  if (!reader.read(16, &length) || !reader.read(16, &complement) ||
      length != (~complement & 0xFFFF)) {
    return kBadStream;
  }
  reader.store();
  while (length > 0) {
    const unsigned available = block->inputFill - std::min(block->inputPosition, block->inputFill);
    if (available == 0) {
      unsigned byte;
      if (!reader.read(8, &byte)) {
        return kBadStream;
      }
      putWindowByte(block, byte);
      --length;
      continue;
    }
    const unsigned stretch = std::min({length, available, WSIZE - block->outputCount});
    memcpy(block->window + block->windowStart + block->outputCount,
           block->inputBuffer + block->inputPosition, stretch);
    block->inputPosition += stretch;
    block->outputCount += stretch;
    length -= stretch;
    if (block->outputCount == WSIZE) {
      turnWindow(block);
    }
  }
  return kGood;
}

int InflateFixed(ZipControlBlock* block) {
  return FixedCode().inflate(block);
}

int InflateDynamic(ZipControlBlock* block) {
  BitReader reader(block);
  unsigned literalCodes;
  unsigned distanceCodes;
  unsigned bitLengthCodes;
  if (!reader.read(5, &literalCodes) || !reader.read(5, &distanceCodes) ||
      !reader.read(4, &bitLengthCodes)) {
    return kBadStream;
  }
  literalCodes += 257;
  distanceCodes += 1;
  bitLengthCodes += 4;
  if (literalCodes > kMaxLiteralCodes || distanceCodes > kMaxDistanceCodes) {
    return kBadStream;
  }
  std::array<unsigned, kMaxLiteralCodes + kMaxDistanceCodes> lengths = {};
  for (unsigned i = 0; i < bitLengthCodes; ++i) {
    if (!reader.read(3, &lengths[border[i]])) {
      return kBadStream;
    }
  }
  {
    Table bitLengths(7);
    if (const int result = HuftBuild(block, lengths.data(), BL_CODES, BL_CODES, nullptr, nullptr,
                                     &bitLengths.entries, &bitLengths.bits);
        result != 0) {
      return result;
    }
    const unsigned total = literalCodes + distanceCodes;
    unsigned previous = 0;
    for (unsigned i = 0; i < total;) {
      const huft* entry = nextCode(reader, bitLengths.entries, bitLengths.bits);
      if (entry == nullptr) {
        return kBadStream;
      }
      const unsigned symbol = entry->v.base;
      if (symbol < 16) {
        previous = symbol;
        lengths[i++] = symbol;
        continue;
      }
      // 16 repeats the length before it, 17 and 18 stand for runs of zeros.
      constexpr unsigned kExtraBits[] = {2, 3, 7};
      constexpr unsigned kMinRepeats[] = {3, 3, 11};
      unsigned repeats;
      if (!reader.read(kExtraBits[symbol - 16], &repeats)) {
        return kBadStream;
      }
      repeats += kMinRepeats[symbol - 16];
      if (repeats > total - i) {
        return kBadStream;
      }
      if (symbol != 16) {
        previous = 0;
      }
      std::fill_n(lengths.begin() + i, repeats, previous);
      i += repeats;
    }
  }
  reader.store();

  Table literals(9);
  if (const int result = HuftBuild(block, lengths.data(), literalCodes, kFirstLength, cplens,
                                   cplext, &literals.entries, &literals.bits);
      result != 0) {
    return result;
  }
  Table distances(6);
  if (const int result = HuftBuild(block, lengths.data() + literalCodes, distanceCodes, 0, cpdist,
                                   cpdext, &distances.entries, &distances.bits);
      result != 0) {
    return result;
  }
  return InflateCodes(block, literals.entries, distances.entries, literals.bits, distances.bits);
}

int InflateCodes(ZipControlBlock* block, const huft* literalTable, const huft* distanceTable,
                 unsigned literalBits, unsigned distanceBits) {
  bool hasFastTables = false;
  return inflateCodes(block, {literalTable, distanceTable, literalBits, distanceBits},
                      &hasFastTables);
}
