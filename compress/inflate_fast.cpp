// The fast loop of inflate, for where there is plenty of input and of room.
//
// It holds up to 64 bits of the input, so that an item (48 bits at most) needs one load; it looks
// codes up in flat tables of small entries, which it falls back from to those of HuftBuild for
// codes that are longer; it copies matches by units that may go too far; and it looks at the next
// code before it copies, since that is what the next step waits for.
//
// An entry holds, from the low bit on:
//   8 bits  how many bits the code takes, with its extra bits
//   2 bits  how many literals it stands for: 0, 1 or 2
//   4 bits  how many bits the code takes without its extra bits, for lengths and distances
//   1 bit   free
//   1 bit   whether the tables of HuftBuild must be asked
//  16 bits  the base of the length or distance, or the literals, first one low

#include "compress/inflate_fast.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstring>

#include "compress/inflate.h"

namespace {

constexpr uint32_t kSizeMask = 0xFF;
constexpr unsigned kLiteralsShift = 8;
constexpr uint32_t kOneLiteral = 1u << kLiteralsShift;
constexpr uint32_t kTwoLiterals = 2u << kLiteralsShift;
constexpr uint32_t kAnyLiteral = kOneLiteral | kTwoLiterals;
constexpr unsigned kCodeSizeShift = 10;
constexpr uint32_t kCodeSizeMask = 0xF;
constexpr uint32_t kAskHuft = 1u << 15;
constexpr unsigned kValueShift = 16;

// Pairs of literals pay in a table that is large enough for them, and that pays if hardly anything
// else comes.
constexpr unsigned kUsualLiteralBits = 10;
constexpr unsigned kPairLiteralBits = ZIP_FAST_LITERAL_BITS;

constexpr unsigned kWindowMask = ZIP_WINDOW_SIZE - 1;
constexpr unsigned kCopyUnit = 16;
constexpr unsigned kMaxLiteralsOfStep = 8;
// Bits that are there after a refill, and the most that a step takes before the next one.
constexpr unsigned kRefilledBits = 56;
static_assert(4 * kPairLiteralBits <= kRefilledBits);
static_assert(MAX_BITS + 5 + MAX_BITS + 13 <= kRefilledBits);
// The last item of a half may go beyond it, and the last copy beyond the item.
static_assert(kMaxLiteralsOfStep + MAX_MATCH - kFastOutput + kCopyUnit <= MIN_LOOKAHEAD);
static_assert(3 * sizeof(uint64_t) <= kFastInput);

uint64_t load64(const unsigned char* bytes) {
  uint64_t word;
  memcpy(&word, bytes, sizeof word);
  if constexpr (std::endian::native == std::endian::big) {
    word = __builtin_bswap64(word);
  }
  return word;
}

constexpr uint64_t lowBits(unsigned count) {
  return (uint64_t{1} << count) - 1;
}

uint32_t flatEntry(const huft& entry, unsigned codeBits) {
  if (entry.extra == kHuftLiteral) {
    return uint32_t{entry.v.base} << kValueShift | kOneLiteral | codeBits;
  }
  if (entry.extra < kHuftEndOfBlock) {
    return uint32_t{entry.v.base} << kValueShift | codeBits << kCodeSizeShift |
           (codeBits + entry.extra);
  }
  return kAskHuft;
}

bool isLink(const huft& entry) {
  return entry.extra > kHuftLiteral && entry.extra != kHuftInvalid;
}

// Flattens a table of `bits` index bits and those it links to into one of `flatBits`.
void flatten(uint32_t* flat, unsigned flatBits, const huft* table, unsigned bits) {
  const unsigned size = 1u << flatBits;
  const unsigned tableSize = 1u << bits;
  for (unsigned i = 0; i < tableSize; ++i) {
    flat[i] = flatEntry(table[i], table[i].bits);
  }
  for (unsigned filled = tableSize; filled < size; filled *= 2) {
    memcpy(flat + filled, flat, filled * sizeof *flat);
  }
  for (unsigned i = 0; i < tableSize; ++i) {
    if (!isLink(table[i])) {
      continue;
    }
    const uint64_t mask = lowBits(table[i].extra - kHuftLiteral);
    for (unsigned k = i; k < size; k += tableSize) {
      const huft& entry = table[i].v.next[(k >> bits) & mask];
      if (!isLink(entry) && bits + entry.bits <= flatBits) {
        flat[k] = flatEntry(entry, bits + entry.bits);
      }
    }
  }
}

// Joins literals with the ones behind them. From the end on, since the entry of what follows has
// the lower index.
void joinLiterals(uint32_t* flat, unsigned flatBits) {
  for (unsigned i = 1u << flatBits; i-- > 0;) {
    const uint32_t first = flat[i];
    if ((first & kOneLiteral) == 0) {
      continue;
    }
    const uint32_t second = flat[i >> (first & kSizeMask)];
    const uint32_t size = (first & kSizeMask) + (second & kSizeMask);
    if ((second & kOneLiteral) != 0 && size <= flatBits) {
      const uint32_t literals = (first >> kValueShift) | (second >> kValueShift) << 8;
      flat[i] = literals << kValueShift | kTwoLiterals | size;
    }
  }
}

template <unsigned Unit>
inline __attribute__((always_inline)) void copyUnits(unsigned char* to, const unsigned char* from,
                                                     unsigned length) {
  const unsigned char* const end = to + length;
  do {
    unsigned char unit[Unit];
    memcpy(unit, from, Unit);
    memcpy(to, unit, Unit);
    to += Unit;
    from += Unit;
  } while (to < end);
}

// Copies a match that doesn't wrap around, and up to kCopyUnit - 1 bytes more.
inline __attribute__((always_inline)) void copyMatch(unsigned char* to, const unsigned char* from,
                                                     unsigned length, unsigned distance) {
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

// Copies a match whose source goes on at the start of the window, where it may run into `to`.
void copyAroundTheEnd(unsigned char* window, unsigned char* to, unsigned source, unsigned length) {
  const unsigned first = ZIP_WINDOW_SIZE - source;
  memcpy(to, window + source, first);
  for (unsigned i = first; i < length; ++i) {
    to[i] = window[i - first];
  }
}

inline __attribute__((always_inline)) FastResult decode(ZipControlBlock* block,
                                                        const BlockCode& code) {
  const uint32_t* const literals = block->fastLiterals;
  const uint32_t* const distances = block->fastDistances;
  const uint64_t literalMask = lowBits(block->fastLiteralBits);
  const uint64_t distanceMask = lowBits(ZIP_FAST_DISTANCE_BITS);
  unsigned char* const window = block->window;
  const unsigned char* const firstInput = block->inputBuffer + block->inputPosition;
  const unsigned char* const inputLimit = block->inputBuffer + block->inputFill - kFastInput;
  unsigned char* const outputLimit = window + block->windowStart + WSIZE - kFastOutput;
  const unsigned char* input = firstInput;
  unsigned char* output = window + block->windowStart + block->outputCount;
  // The bits above `count` are those of the byte at `input`, or zeros: the next refill gives them
  // the same value.
  uint64_t bits = block->bitAccumulator;
  unsigned count = block->bitCount;
  FastResult result = FastResult::Paused;

  const auto refill = [&] {
    bits |= load64(input) << count;
    input += (63 - count) >> 3;
    count |= kRefilledBits;
  };
  const auto drop = [&](uint32_t size) {
    bits >>= size;
    count -= size;
  };
  const auto putLiterals = [&](uint32_t entry) {
    const unsigned char pair[2] = {static_cast<unsigned char>(entry >> kValueShift),
                                   static_cast<unsigned char>(entry >> (kValueShift + 8))};
    memcpy(output, pair, sizeof pair);
    output += (entry & kAnyLiteral) >> kLiteralsShift;
    drop(entry & kSizeMask);
  };
  const auto takeValue = [&](uint32_t entry) {
    const uint64_t codeAndExtra = bits & lowBits(entry & kSizeMask);
    drop(entry & kSizeMask);
    return (entry >> kValueShift) +
           static_cast<unsigned>(codeAndExtra >> ((entry >> kCodeSizeShift) & kCodeSizeMask));
  };
  const auto takeCode = [&](const huft* table, unsigned indexBits) {
    const huft* entry = table + (bits & lowBits(indexBits));
    while (isLink(*entry)) {
      drop(entry->bits);
      entry = entry->v.next + (bits & lowBits(entry->extra - kHuftLiteral));
    }
    drop(entry->bits);
    return entry;
  };
  const auto takeExtra = [&](const huft* entry) {
    const unsigned value = entry->v.base + static_cast<unsigned>(bits & lowBits(entry->extra));
    drop(entry->extra);
    return value;
  };

  refill();
  uint32_t entry = literals[bits & literalMask];
  do {
    if ((entry & kAnyLiteral) != 0) {
      putLiterals(entry);
      entry = literals[bits & literalMask];
      if ((entry & kAnyLiteral) != 0) {
        putLiterals(entry);
        entry = literals[bits & literalMask];
        if ((entry & kAnyLiteral) != 0) {
          putLiterals(entry);
          entry = literals[bits & literalMask];
          if ((entry & kAnyLiteral) != 0) {
            putLiterals(entry);
            refill();
            entry = literals[bits & literalMask];
            continue;
          }
        }
      }
      refill();
    }
    unsigned length;
    if ((entry & kAskHuft) == 0) {
      length = takeValue(entry);
    } else {
      const huft* longCode = takeCode(code.literals, code.literalBits);
      if (longCode->extra == kHuftLiteral) {
        *output++ = static_cast<unsigned char>(longCode->v.base);
        refill();
        entry = literals[bits & literalMask];
        continue;
      }
      if (longCode->extra >= kHuftEndOfBlock) {
        result =
            longCode->extra == kHuftEndOfBlock ? FastResult::EndOfBlock : FastResult::BadStream;
        break;
      }
      length = takeExtra(longCode);
    }
    unsigned distance;
    entry = distances[bits & distanceMask];
    if ((entry & kAskHuft) == 0) {
      distance = takeValue(entry);
    } else {
      const huft* longCode = takeCode(code.distances, code.distanceBits);
      if (longCode->extra == kHuftInvalid) {
        result = FastResult::BadStream;
        break;
      }
      distance = takeExtra(longCode);
    }
    refill();
    entry = literals[bits & literalMask];

    const unsigned target = static_cast<unsigned>(output - window);
    const unsigned source = (target - distance) & kWindowMask;
    if (source > target && source + length > ZIP_WINDOW_SIZE) {
      copyAroundTheEnd(window, output, source, length);
    } else {
      copyMatch(output, window + source, length, distance);
    }
    output += length;
  } while (input <= inputLimit && output < outputLimit);

  // Whole bytes that this loop has taken go back, so that it can't be told from one that takes them
  // one by one.
  for (; count > 7 && input > firstInput; count -= 8) {
    --input;
  }
  block->inputPosition = static_cast<unsigned>(input - block->inputBuffer);
  block->bitAccumulator = static_cast<unsigned>(bits & lowBits(count));
  block->bitCount = count;
  block->outputCount = static_cast<unsigned>(output - window) - block->windowStart;
  return result;
}

using Decode = FastResult (*)(ZipControlBlock* block, const BlockCode& code);

#if defined(__x86_64__)

// The same with shifts by any register, which is what the loop mostly does.
__attribute__((target("bmi2"))) FastResult decodeWithBmi2(ZipControlBlock* block,
                                                          const BlockCode& code) {
  return decode(block, code);
}

Decode fastestDecode() {
  return __builtin_cpu_supports("bmi2") != 0 ? decodeWithBmi2 : inflateFastAnywhere;
}

#else

Decode fastestDecode() {
  return inflateFastAnywhere;
}

#endif

}  // namespace

bool fitsFastTables(const BlockCode& code) {
  return code.literalBits <= kUsualLiteralBits && code.distanceBits <= ZIP_FAST_DISTANCE_BITS;
}

void makeFastTables(ZipControlBlock* block, const BlockCode& code) {
  uint32_t* literals = block->fastLiterals;
  flatten(literals, kUsualLiteralBits, code.literals, code.literalBits);
  constexpr unsigned kSize = 1u << kUsualLiteralBits;
  const auto literalCount = std::count_if(
      literals, literals + kSize, [](uint32_t entry) { return (entry & kAnyLiteral) != 0; });
  block->fastLiteralBits = kUsualLiteralBits;
  if (literalCount > ptrdiff_t{kSize / 8} * 7) {
    block->fastLiteralBits = kPairLiteralBits;
    flatten(literals, kPairLiteralBits, code.literals, code.literalBits);
    joinLiterals(literals, kPairLiteralBits);
  }
  flatten(block->fastDistances, ZIP_FAST_DISTANCE_BITS, code.distances, code.distanceBits);
}

FastResult inflateFastAnywhere(ZipControlBlock* block, const BlockCode& code) {
  return decode(block, code);
}

FastResult inflateFast(ZipControlBlock* block, const BlockCode& code) {
  static const Decode fastest = fastestDecode();
  return fastest(block, code);
}
