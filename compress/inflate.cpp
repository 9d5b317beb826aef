// The decoder of deflate streams (RFC 1951).
//
// The window serves as a ring of two halves: one is filled while the other one holds what matches may still refer to, and
// each is written out when it is full. A distance that points before the start of the data finds zeros there; the
// checksum tells. The input is read byte by byte near its end, since behind the end bytes are made up and each status
// follows from how far a stream gets on them.

#include "compress/inflate.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

#include "compress/zutil.h"

namespace {

constexpr int kGood = 0;
constexpr int kBadStream = 1;
constexpr int kUnknownKind = 2;

constexpr unsigned kWindowMask = ZIP_WINDOW_SIZE - 1;

// A stored block can ask for 65,535 bytes behind the end of the input; whatever asks for more would do so for ever.
constexpr unsigned kMaxMadeUpBytes = 70000;

constexpr unsigned kMaxLiteralCodes = 286;
constexpr unsigned kMaxDistanceCodes = 30;
constexpr unsigned kFirstLength = 257;

constexpr unsigned char border[BL_CODES] = {16, 17, 18, 0, 8,  7, 9,  6, 10, 5,
                                            11, 4,  12, 3, 13, 2, 14, 1, 15};
constexpr uint16_t cplens[] = {3,  4,  5,  6,  7,  8,  9,  10, 11,  13,  15,  17,  19,  23,  27, 31,
                               35, 43, 51, 59, 67, 83, 99, 115, 131, 163, 195, 227, 258, 0,  0};
constexpr uint16_t cplext[] = {0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2,           2,
                               3, 3, 3, 3, 4, 4, 4, 4, 5, 5, 5, 5, 0, kHuftInvalid, kHuftInvalid};
constexpr uint16_t cpdist[] = {1,   2,   3,   4,   5,   7,    9,    13,   17,   25,
                               33,  49,  65,  97,  129, 193,  257,  385,  513,  769,
                               1025, 1537, 2049, 3073, 4097, 6145, 8193, 12289, 16385, 24577};
constexpr uint16_t cpdext[] = {0, 0, 0, 0, 1, 1, 2, 2,  3,  3,  4,  4,  5,  5,  6,
                               6, 7, 7, 8, 8, 9, 9, 10, 10, 11, 11, 12, 12, 13, 13};
constexpr uint16_t mask_bits[] = {0x0000, 0x0001, 0x0003, 0x0007, 0x000F, 0x001F,
                                  0x003F, 0x007F, 0x00FF, 0x01FF, 0x03FF, 0x07FF,
                                  0x0FFF, 0x1FFF, 0x3FFF, 0x7FFF, 0xFFFF};

// The bits of the input, low bit first. The accumulator of the block is taken over, and given back by store().
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

// The fast loop reads eight bytes at a time, twice for an item, and its copies write up to 15 bytes too many. The window
// has room for both behind its end.
constexpr unsigned kFastInput = 24;
constexpr unsigned kFastOutput = 16;
constexpr unsigned kMaxFastItems = 3 + MAX_MATCH;
constexpr unsigned kCopyUnit = 16;
static_assert(kMaxFastItems - kFastOutput + kCopyUnit <= MIN_LOOKAHEAD);

uint64_t load64(const unsigned char* bytes) {
  uint64_t word;
  memcpy(&word, bytes, sizeof word);
  if constexpr (std::endian::native == std::endian::big) {
    word = __builtin_bswap64(word);
  }
  return word;
}

uint64_t lowBits(unsigned count) { return (uint64_t{1} << count) - 1; }

template <unsigned Unit>
void copyUnits(unsigned char* to, const unsigned char* from, unsigned length) {
  const unsigned char* end = to + length;
  do {
    unsigned char unit[Unit];
    memcpy(unit, from, Unit);
    memcpy(to, unit, Unit);
    to += Unit;
    from += Unit;
  } while (to < end);
}

// Copies a match of which neither end crosses the end of the window.
inline void copyWide(unsigned char* to, const unsigned char* from, unsigned length,
                     unsigned distance) {
  if (distance >= kCopyUnit) {
    copyUnits<kCopyUnit>(to, from, length);
  } else if (distance >= 8) {
    copyUnits<8>(to, from, length);
  } else if (distance == 1) {
    memset(to, *from, length);
  } else {
    for (unsigned i = 0; i < length; ++i) {
      to[i] = from[i];
    }
  }
}

enum class Fast { Paused, EndOfBlock, BadStream };

// Decodes items while there is plenty of input, up to the end of the half of the window. The bits that are left go back:
// no more than the slow loop could have read are held.
Fast inflateFast(ZipControlBlock* block, const huft* literalTable, const huft* distanceTable,
                 unsigned literalBits, unsigned distanceBits) {
  const uint64_t literalMask = lowBits(literalBits);
  const uint64_t distanceMask = lowBits(distanceBits);
  unsigned char* const window = block->window;
  const unsigned char* const firstInput = block->inputBuffer + block->inputPosition;
  const unsigned char* const inputLimit = block->inputBuffer + block->inputFill - kFastInput;
  unsigned char* const halfEnd = window + block->windowStart + WSIZE;
  unsigned char* const outputLimit = halfEnd - kFastOutput;
  const unsigned char* input = firstInput;
  unsigned char* output = window + block->windowStart + block->outputCount;
  uint64_t accumulator = block->bitAccumulator;
  unsigned count = block->bitCount;
  Fast result = Fast::Paused;

  const auto refill = [&] {
    accumulator |= load64(input) << count;
    input += (63 - count) >> 3;
    count |= 56;
  };
  const auto drop = [&](unsigned bits) {
    accumulator >>= bits;
    count -= bits;
  };
  while (input <= inputLimit && output < outputLimit) {
    refill();
    const huft* entry = literalTable + (accumulator & literalMask);
    if (entry->extra == kHuftLiteral) {
      *output++ = static_cast<unsigned char>(entry->v.base);
      drop(entry->bits);
      entry = literalTable + (accumulator & literalMask);
      if (entry->extra == kHuftLiteral) {
        *output++ = static_cast<unsigned char>(entry->v.base);
        drop(entry->bits);
        entry = literalTable + (accumulator & literalMask);
        if (entry->extra == kHuftLiteral) {
          *output++ = static_cast<unsigned char>(entry->v.base);
          drop(entry->bits);
          continue;
        }
      }
      refill();
    }
    while (entry->extra > kHuftLiteral) {
      if (entry->extra == kHuftInvalid) {
        return Fast::BadStream;
      }
      drop(entry->bits);
      entry = entry->v.next + (accumulator & lowBits(entry->extra - kHuftLiteral));
    }
    drop(entry->bits);
    if (entry->extra == kHuftLiteral) {
      *output++ = static_cast<unsigned char>(entry->v.base);
      continue;
    }
    if (entry->extra == kHuftEndOfBlock) {
      result = Fast::EndOfBlock;
      break;
    }
    const unsigned length =
        entry->v.base + static_cast<unsigned>(accumulator & lowBits(entry->extra));
    drop(entry->extra);
    entry = distanceTable + (accumulator & distanceMask);
    while (entry->extra > kHuftLiteral) {
      if (entry->extra == kHuftInvalid) {
        return Fast::BadStream;
      }
      drop(entry->bits);
      entry = entry->v.next + (accumulator & lowBits(entry->extra - kHuftLiteral));
    }
    drop(entry->bits);
    const unsigned distance =
        entry->v.base + static_cast<unsigned>(accumulator & lowBits(entry->extra));
    drop(entry->extra);

    const unsigned target = static_cast<unsigned>(output - window);
    const unsigned source = (target - distance) & kWindowMask;
    if (source + length > ZIP_WINDOW_SIZE) {
      const unsigned first = ZIP_WINDOW_SIZE - source;
      memcpy(output, window + source, first);
      for (unsigned i = first; i < length; ++i) {
        output[i] = window[i - first];
      }
    } else {
      copyWide(output, window + source, length, distance);
    }
    output += length;
  }

  for (; count > 7 && input > firstInput; count -= 8) {
    --input;
  }
  block->inputPosition = static_cast<unsigned>(input - block->inputBuffer);
  block->bitAccumulator = static_cast<unsigned>(accumulator & lowBits(count));
  block->bitCount = count;
  block->outputCount = static_cast<unsigned>(output - window) - block->windowStart;
  if (output >= halfEnd) {
    const unsigned excess = static_cast<unsigned>(output - halfEnd);
    block->outputCount = WSIZE;
    turnWindow(block);
    if (block->windowStart == 0) {
      memcpy(window, halfEnd, excess);
    }
    block->outputCount = excess;
  }
  return result;
}

}  // namespace

int Inflate(ZipControlBlock* block) {
  block->outputCount = 0;
  block->bitCount = 0;
  block->bitAccumulator = 0;
  block->windowStart = 0;
  block->madeUpBytes = 0;
  memset(block->window + WSIZE, 0, WSIZE);
  int isLast = 0;
  while (isLast == 0) {
    block->huftCount = 0;
    if (const int result = InflateBlock(block, &isLast); result != kGood) {
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
      return InflateFixed(block);
    case 2:
      return InflateDynamic(block);
    default:
      return kUnknownKind;
  }
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
  for (; length > 0; --length) {
    unsigned byte;
    if (!reader.read(8, &byte)) {
      return kBadStream;
    }
    putWindowByte(block, byte);
  }
  reader.store();
  return kGood;
}

int InflateFixed(ZipControlBlock* block) {
  constexpr unsigned kDistanceLength = 5;
  std::array<unsigned, STATIC_L_CODES> lengths;
  std::fill_n(lengths.begin(), 144, 8u);
  std::fill_n(lengths.begin() + 144, 112, 9u);
  std::fill_n(lengths.begin() + 256, 24, 7u);
  std::fill_n(lengths.begin() + 280, 8, 8u);
  Table literals(7);
  if (const int result = HuftBuild(block, lengths.data(), STATIC_L_CODES, kFirstLength, cplens,
                                   cplext, &literals.entries, &literals.bits);
      result != 0) {
    return result;
  }
  std::fill_n(lengths.begin(), kMaxDistanceCodes, kDistanceLength);
  Table distances(kDistanceLength);
  // Two of the codes of five bits are not in use, so this set is incomplete.
  if (const int result = HuftBuild(block, lengths.data(), kMaxDistanceCodes, 0, cpdist, cpdext,
                                   &distances.entries, &distances.bits);
      result > 1) {
    return result;
  }
  return InflateCodes(block, literals.entries, distances.entries, literals.bits, distances.bits);
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
  const bool canBeFast = literalTable != nullptr && distanceTable != nullptr;
  for (;;) {
    if (canBeFast && block->inputPosition + kFastInput <= block->inputFill &&
        block->outputCount < WSIZE - kFastOutput) {
      switch (inflateFast(block, literalTable, distanceTable, literalBits, distanceBits)) {
        case Fast::EndOfBlock:
          return kGood;
        case Fast::BadStream:
          return kBadStream;
        case Fast::Paused:
          break;
      }
    }
    BitReader reader(block);
    const huft* entry = nextCode(reader, literalTable, literalBits);
    if (entry == nullptr) {
      return kBadStream;
    }
    if (entry->extra == kHuftLiteral) {
      putWindowByte(block, entry->v.base);
      reader.store();
      continue;
    }
    if (entry->extra == kHuftEndOfBlock) {
      reader.store();
      return kGood;
    }
    unsigned length;
    if (!reader.read(entry->extra, &length)) {
      return kBadStream;
    }
    length += entry->v.base;
    entry = nextCode(reader, distanceTable, distanceBits);
    unsigned distance;
    if (entry == nullptr || !reader.read(entry->extra, &distance)) {
      return kBadStream;
    }
    copyMatch(block, length, distance + entry->v.base);
    reader.store();
  }
}
