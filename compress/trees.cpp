// Blocks: the items that the matching found, counted, given Huffman codes and sent.
//
// A block is coded with the fixed codes of the format or with its own, whichever takes fewer bytes.
// Stored blocks are never written, not even for data that don't shrink. Which codes come out is
// settled by the rules for ties in PQDownHeap, so they must not change.

#include "compress/trees.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

#include "compress/zutil.h"

namespace {

constexpr int kStaticBlock = 1;
constexpr int kDynamicBlock = 2;
constexpr int kHeaderBits = 3;

constexpr int kStaticDistanceBits = 5;
constexpr int kMaxBaseDistance = 256;

// Symbols for runs in the lengths of a code (RFC 1951, 3.2.7).
constexpr int kRepeatPrevious = 16;
constexpr int kRepeatZero = 17;
constexpr int kRepeatZeroLong = 18;
constexpr int kMinRepeat = 3;
constexpr int kMinRepeatLong = 11;

constexpr int kLengthExtraBits[LENGTH_CODES] = {0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2,
                                                2, 3, 3, 3, 3, 4, 4, 4, 4, 5, 5, 5, 5, 0};
constexpr int kDistanceExtraBits[D_CODES] = {0, 0, 0, 0, 1, 1, 2, 2,  3,  3,  4,  4,  5,  5,  6,
                                             6, 7, 7, 8, 8, 9, 9, 10, 10, 11, 11, 12, 12, 13, 13};
constexpr int kBitLengthExtraBits[BL_CODES] = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
                                               0, 0, 0, 0, 0, 0, 2, 3, 7};

constexpr unsigned char kBitLengthOrder[BL_CODES] = {16, 17, 18, 0, 8,  7, 9,  6, 10, 5,
                                                     11, 4,  12, 3, 13, 2, 14, 1, 15};

bool smaller(const ZipControlBlock* block, const ZipCode* tree, int a, int b) {
  return tree[a].frequency < tree[b].frequency ||
         (tree[a].frequency == tree[b].frequency && block->depth[a] <= block->depth[b]);
}

// Walks the lengths of a tree and gives `send` each symbol of their run-length form: symbol, value
// and number of its extra bits.
template <typename Send>
void forEachLengthSymbol(const ZipCode* tree, int maxCode, Send send) {
  constexpr int kNone = -1;
  int previous = kNone;
  int next = tree[0].length;
  int run = 0;
  int maxRun = next == 0 ? 138 : 7;
  int minRun = next == 0 ? 3 : 4;
  for (int symbol = 0; symbol <= maxCode; ++symbol) {
    const int length = next;
    next = tree[symbol + 1].length;
    if (++run < maxRun && length == next) {
      continue;
    }
    if (run < minRun) {
      for (; run > 0; --run) {
        send(length, 0, 0);
      }
    } else if (length != 0) {
      if (length != previous) {
        send(length, 0, 0);
        --run;
      }
      send(kRepeatPrevious, run - kMinRepeat, kBitLengthExtraBits[kRepeatPrevious]);
    } else if (run < kMinRepeatLong) {
      send(kRepeatZero, run - kMinRepeat, kBitLengthExtraBits[kRepeatZero]);
    } else {
      send(kRepeatZeroLong, run - kMinRepeatLong, kBitLengthExtraBits[kRepeatZeroLong]);
    }
    run = 0;
    previous = length;
    maxRun = next == 0 ? 138 : length == next ? 6 : 7;
    minRun = next == 0 || length == next ? 3 : 4;
  }
}

// Cuts lengths beyond the limit to it, and makes up for that by longer codes elsewhere (the number
// of codes that fit into the limit is what counts).
void shortenOverflow(ZipControlBlock* block, const ZipTreeDescriptor* descriptor, int overflow) {
  const int maxLength = descriptor->maxLength;
  for (; overflow > 0; overflow -= 2) {
    int length = maxLength - 1;
    while (block->bitLengthCount[length] == 0) {
      --length;
    }
    --block->bitLengthCount[length];
    block->bitLengthCount[length + 1] =
        static_cast<uint16_t>(block->bitLengthCount[length + 1] + 2);
    --block->bitLengthCount[maxLength];
  }
  int place = HEAP_SIZE;
  for (int length = maxLength; length > 0; --length) {
    int count = block->bitLengthCount[length];
    while (count > 0) {
      const int node = block->heap[--place];
      if (node > descriptor->maxCode) {
        continue;
      }
      ZipCode& leaf = descriptor->dynamicTree[node];
      block->optimalLength += static_cast<unsigned>(length - leaf.length) * leaf.frequency;
      leaf.length = static_cast<uint16_t>(length);
      --count;
    }
  }
}

// A code and what follows it.
struct BitGroup {
  uint32_t bits;
  uint32_t count;
};

BitGroup withExtraBits(const ZipCode& symbol, unsigned extra, unsigned extraBits) {
  return {symbol.code | extra << symbol.length, symbol.length + extraBits};
}

// Sends bits as SendBits does, but stores them by whole bytes, of which eight are written at a
// time.
class BitWriter {
 public:
  explicit BitWriter(ZipControlBlock* controlBlock)
      : block(controlBlock),
        bits(controlBlock->bitBuffer),
        count(static_cast<unsigned>(controlBlock->bitValid)),
        next(controlBlock->outputBuffer + controlBlock->outputCount) {
    store();
  }

  void put(uint32_t value, unsigned valueBits) {
    bits |= uint64_t{value} << count;
    count += valueBits;
  }

  // Keeps less than 8 bits. To be called before 64 have been put.
  void store() {
    uint64_t bytes = bits;
    if constexpr (std::endian::native == std::endian::big) {
      bytes = __builtin_bswap64(bytes);
    }
    memcpy(next, &bytes, sizeof bytes);
    next += count >> 3;
    bits >>= count & ~7u;
    count &= 7;
    if (next >= block->outputBuffer + ZIP_OUTPUT_UNIT) {
      writeUnit();
    }
  }

  void finish() {
    store();
    block->bitBuffer = static_cast<uint32_t>(bits);
    block->bitValid = static_cast<int>(count);
    block->outputCount = static_cast<unsigned>(next - block->outputBuffer);
  }

 private:
  // Writes a whole unit and moves what is behind it to the front.
  void writeUnit() {
    const auto rest = next - (block->outputBuffer + ZIP_OUTPUT_UNIT);
    block->outputCount = ZIP_OUTPUT_UNIT;
    FlushOutbuf(block);
    next = std::copy_n(block->outputBuffer + ZIP_OUTPUT_UNIT, rest, block->outputBuffer);
  }

  ZipControlBlock* block;
  uint64_t bits;
  unsigned count;
  unsigned char* next;
};
// What is kept, a length and a distance.
static_assert(7 + MAX_BITS + 5 + MAX_BITS + 13 < 64);
static_assert(sizeof(ZipControlBlock::outputBuffer) >= ZIP_OUTPUT_UNIT + 2 * sizeof(uint64_t));

unsigned asBytes(unsigned bits) {
  return (bits + kHeaderBits + 7) >> 3;
}

}  // namespace

bool blockShouldEnd(const ZipControlBlock* block, unsigned stringStart) {
  constexpr unsigned kLiteralBits = 8;
  constexpr unsigned kDistanceBits = 5;
  uint64_t bits = uint64_t{block->lastLiteral} * kLiteralBits;
  for (int symbol = 0; symbol < D_CODES; ++symbol) {
    bits += uint64_t{block->dynamicDistanceTree[symbol].frequency} *
            (kDistanceBits + static_cast<unsigned>(kDistanceExtraBits[symbol]));
  }
  const int64_t estimate = static_cast<int64_t>(bits >> 3);
  const int64_t covered = int64_t{stringStart} - block->blockStart;
  return block->lastDistance < block->lastLiteral / 2 && estimate < covered / 2;
}

int TreeTally(ZipControlBlock* block, unsigned distance, unsigned literalOrLength) {
  return tallyItem(block, block->stringStart, distance, literalOrLength) ? 1 : 0;
}

void TreeInit(ZipControlBlock* block) {
  block->compressedLength = 0;

  int length = 0;
  for (int code = 0; code < LENGTH_CODES - 1; ++code) {
    block->baseLength[code] = length;
    for (int i = 0; i < 1 << kLengthExtraBits[code]; ++i) {
      block->lengthCode[length++] = static_cast<unsigned char>(code);
    }
  }
  // The greatest length has a code of its own, without extra bits.
  block->baseLength[LENGTH_CODES - 1] = length - 1;
  block->lengthCode[length - 1] = LENGTH_CODES - 1;

  int distance = 0;
  int code = 0;
  for (; distance < kMaxBaseDistance; ++code) {
    block->baseDistance[code] = distance;
    for (int i = 0; i < 1 << kDistanceExtraBits[code]; ++i) {
      block->distanceCode[distance++] = static_cast<unsigned char>(code);
    }
  }
  for (distance >>= 7; code < D_CODES; ++code) {
    block->baseDistance[code] = distance << 7;
    for (int i = 0; i < 1 << (kDistanceExtraBits[code] - 7); ++i) {
      block->distanceCode[256 + distance++] = static_cast<unsigned char>(code);
    }
  }
  // No distance above 256 falls into the first two of these.
  block->distanceCode[256] = 0;
  block->distanceCode[257] = 0;

  memset(block->bitLengthCount, 0, sizeof block->bitLengthCount);
  for (int symbol = 0; symbol < STATIC_L_CODES; ++symbol) {
    const int bits = symbol < 144 ? 8 : symbol < 256 ? 9 : symbol < 280 ? 7 : 8;
    block->staticLiteralTree[symbol].length = static_cast<uint16_t>(bits);
    ++block->bitLengthCount[bits];
  }
  GenCodes(block, block->staticLiteralTree, STATIC_L_CODES - 1);
  for (unsigned symbol = 0; symbol < D_CODES; ++symbol) {
    block->staticDistanceTree[symbol].length = kStaticDistanceBits;
    block->staticDistanceTree[symbol].code =
        static_cast<uint16_t>(BitStringReverse(symbol, kStaticDistanceBits));
  }
  InitBlock(block);
}

void InitBlock(ZipControlBlock* block) {
  const auto clearFrequencies = [](ZipCode* tree, int count) {
    std::for_each(tree, tree + count, [](ZipCode& symbol) { symbol.frequency = 0; });
  };
  clearFrequencies(block->dynamicLiteralTree, L_CODES);
  clearFrequencies(block->dynamicDistanceTree, D_CODES);
  clearFrequencies(block->bitLengthTree, BL_CODES);
  block->dynamicLiteralTree[END_BLOCK].frequency = 1;
  block->optimalLength = 0;
  block->staticLength = 0;
  block->lastLiteral = 0;
  block->lastDistance = 0;
  block->lastFlags = 0;
  block->flags = 0;
  block->flagBit = 1;
  block->literalDescriptor = {block->dynamicLiteralTree,
                              block->staticLiteralTree,
                              kLengthExtraBits,
                              END_BLOCK + 1,
                              L_CODES,
                              MAX_BITS,
                              0};
  block->distanceDescriptor = {block->dynamicDistanceTree,
                               block->staticDistanceTree,
                               kDistanceExtraBits,
                               0,
                               D_CODES,
                               MAX_BITS,
                               0};
  block->bitLengthDescriptor = {block->bitLengthTree, nullptr, kBitLengthExtraBits, 0, BL_CODES,
                                MAX_BL_BITS,          0};
}

void PQDownHeap(ZipControlBlock* block, const ZipCode* tree, int node) {
  int* heap = block->heap;
  const int moving = heap[node];
  for (int child = 2 * node; child <= block->heapLength; child = 2 * node) {
    if (child < block->heapLength && smaller(block, tree, heap[child + 1], heap[child])) {
      ++child;
    }
    if (smaller(block, tree, moving, heap[child])) {
      break;
    }
    heap[node] = heap[child];
    node = child;
  }
  heap[node] = moving;
}

void GenBitLengths(ZipControlBlock* block, const ZipTreeDescriptor* descriptor) {
  ZipCode* tree = descriptor->dynamicTree;
  memset(block->bitLengthCount, 0, sizeof block->bitLengthCount);
  tree[block->heap[block->heapMax]].length = 0;
  int overflow = 0;
  for (int place = block->heapMax + 1; place < HEAP_SIZE; ++place) {
    const int node = block->heap[place];
    int length = tree[tree[node].parent].length + 1;
    if (length > descriptor->maxLength) {
      length = descriptor->maxLength;
      ++overflow;
    }
    tree[node].length = static_cast<uint16_t>(length);
    if (node > descriptor->maxCode) {
      continue;
    }
    ++block->bitLengthCount[length];
    const int extra =
        node >= descriptor->extraBase ? descriptor->extraBits[node - descriptor->extraBase] : 0;
    const unsigned frequency = tree[node].frequency;
    block->optimalLength += frequency * static_cast<unsigned>(length + extra);
    if (descriptor->staticTree != nullptr) {
      block->staticLength +=
          frequency * static_cast<unsigned>(descriptor->staticTree[node].length + extra);
    }
  }
  if (overflow > 0) {
    shortenOverflow(block, descriptor, overflow);
  }
}

void GenCodes(ZipControlBlock* block, ZipCode* tree, int maxCode) {
  std::array<unsigned, MAX_BITS + 1> nextCode = {};
  unsigned code = 0;
  for (size_t length = 1; length <= MAX_BITS; ++length) {
    code = (code + block->bitLengthCount[length - 1]) << 1;
    nextCode[length] = code;
  }
  for (int symbol = 0; symbol <= maxCode; ++symbol) {
    const int length = tree[symbol].length;
    if (length != 0) {
      tree[symbol].code =
          static_cast<uint16_t>(BitStringReverse(nextCode[static_cast<size_t>(length)]++, length));
    }
  }
}

void BuildTree(ZipControlBlock* block, ZipTreeDescriptor* descriptor) {
  ZipCode* tree = descriptor->dynamicTree;
  int* heap = block->heap;
  int maxCode = -1;
  block->heapLength = 0;
  block->heapMax = HEAP_SIZE;
  for (int symbol = 0; symbol < descriptor->elements; ++symbol) {
    if (tree[symbol].frequency != 0) {
      heap[++block->heapLength] = symbol;
      maxCode = symbol;
      block->depth[symbol] = 0;
    } else {
      tree[symbol].length = 0;
    }
  }
  // A code needs two symbols at least. The forced ones get one bit each and are never sent.
  while (block->heapLength < 2) {
    const int forced = maxCode < 2 ? ++maxCode : 0;
    heap[++block->heapLength] = forced;
    tree[forced].frequency = 1;
    block->depth[forced] = 0;
    --block->optimalLength;
    if (descriptor->staticTree != nullptr) {
      block->staticLength -= descriptor->staticTree[forced].length;
    }
  }
  descriptor->maxCode = maxCode;

  for (int node = block->heapLength / 2; node >= 1; --node) {
    PQDownHeap(block, tree, node);
  }
  for (int node = descriptor->elements; block->heapLength >= 2; ++node) {
    const int first = heap[1];
    heap[1] = heap[block->heapLength--];
    PQDownHeap(block, tree, 1);
    const int second = heap[1];
    heap[--block->heapMax] = first;
    heap[--block->heapMax] = second;
    tree[node].frequency = static_cast<uint16_t>(tree[first].frequency + tree[second].frequency);
    block->depth[node] =
        static_cast<unsigned char>(std::max(block->depth[first], block->depth[second]) + 1);
    tree[first].parent = static_cast<uint16_t>(node);
    tree[second].parent = static_cast<uint16_t>(node);
    heap[1] = node;
    PQDownHeap(block, tree, 1);
  }
  heap[--block->heapMax] = heap[1];
  GenBitLengths(block, descriptor);
  GenCodes(block, tree, maxCode);
}

void ScanTree(ZipControlBlock* block, ZipCode* tree, int maxCode) {
  constexpr uint16_t kEndOfLengths = 0xFFFF;
  tree[maxCode + 1].length = kEndOfLengths;
  forEachLengthSymbol(tree, maxCode, [block](int symbol, int /*extra*/, int /*bits*/) {
    ++block->bitLengthTree[symbol].frequency;
  });
}

void SendTree(ZipControlBlock* block, const ZipCode* tree, int maxCode) {
  forEachLengthSymbol(tree, maxCode, [block](int symbol, int extra, int bits) {
    SendBits(block, block->bitLengthTree[symbol].code, block->bitLengthTree[symbol].length);
    SendBits(block, static_cast<unsigned>(extra), bits);
  });
}

int BuildBitLengthTree(ZipControlBlock* block) {
  constexpr int kMinIndex = 3;
  ScanTree(block, block->dynamicLiteralTree, block->literalDescriptor.maxCode);
  ScanTree(block, block->dynamicDistanceTree, block->distanceDescriptor.maxCode);
  BuildTree(block, &block->bitLengthDescriptor);
  int index = BL_CODES - 1;
  while (index > kMinIndex && block->bitLengthTree[kBitLengthOrder[index]].length == 0) {
    --index;
  }
  block->optimalLength += 3 * (static_cast<unsigned>(index) + 1) + 5 + 5 + 4;
  return index;
}

void SendAllTrees(ZipControlBlock* block, int literalCodes, int distanceCodes, int bitLengthCodes) {
  SendBits(block, static_cast<unsigned>(literalCodes - 257), 5);
  SendBits(block, static_cast<unsigned>(distanceCodes - 1), 5);
  SendBits(block, static_cast<unsigned>(bitLengthCodes - 4), 4);
  for (int i = 0; i < bitLengthCodes; ++i) {
    SendBits(block, block->bitLengthTree[kBitLengthOrder[i]].length, 3);
  }
  SendTree(block, block->dynamicLiteralTree, literalCodes - 1);
  SendTree(block, block->dynamicDistanceTree, distanceCodes - 1);
}

void CompressBlock(ZipControlBlock* block, const ZipCode* literalTree,
                   const ZipCode* distanceTree) {
  // The code of each length with its extra bits behind it. The symbol behind the last one in use
  // has the mark of ScanTree for a length.
  std::array<BitGroup, 256> lengths = {};
  for (unsigned length = 0; length < lengths.size(); ++length) {
    const unsigned symbol = block->lengthCode[length];
    const ZipCode& code = literalTree[END_BLOCK + 1 + symbol];
    if (code.length <= MAX_BITS) {
      lengths[length] =
          withExtraBits(code, length - static_cast<unsigned>(block->baseLength[symbol]),
                        static_cast<unsigned>(kLengthExtraBits[symbol]));
    }
  }
  BitWriter writer(block);
  const uint16_t* nextDistance = block->distanceBuffer;
  for (unsigned item = 0; item < block->lastLiteral; ++item) {
    const unsigned literalOrLength = block->inputBuffer[item];
    if (((block->flagBuffer[item >> 3] >> (item & 7)) & 1) == 0) {
      const ZipCode literal = literalTree[literalOrLength];
      writer.put(literal.code, literal.length);
    } else {
      const BitGroup length = lengths[literalOrLength];
      writer.put(length.bits, length.count);
      const unsigned distance = *nextDistance++;
      const unsigned symbol = distanceSymbol(block, distance);
      const BitGroup group = withExtraBits(
          distanceTree[symbol], distance - static_cast<unsigned>(block->baseDistance[symbol]),
          static_cast<unsigned>(kDistanceExtraBits[symbol]));
      writer.put(group.bits, group.count);
    }
    writer.store();
  }
  writer.put(literalTree[END_BLOCK].code, literalTree[END_BLOCK].length);
  writer.finish();
}

unsigned FlushBlock(ZipControlBlock* block, const unsigned char* /*buffer*/,
                    unsigned /*storedLength*/, int isLast) {
  block->flagBuffer[block->lastFlags] = block->flags;
  BuildTree(block, &block->literalDescriptor);
  BuildTree(block, &block->distanceDescriptor);
  const int lastBitLength = BuildBitLengthTree(block);

  const unsigned lastFlag = isLast != 0 ? 1 : 0;
  if (asBytes(block->staticLength) <= asBytes(block->optimalLength)) {
    SendBits(block, (kStaticBlock << 1) + lastFlag, kHeaderBits);
    CompressBlock(block, block->staticLiteralTree, block->staticDistanceTree);
    block->compressedLength += kHeaderBits + block->staticLength;
  } else {
    SendBits(block, (kDynamicBlock << 1) + lastFlag, kHeaderBits);
    SendAllTrees(block, block->literalDescriptor.maxCode + 1, block->distanceDescriptor.maxCode + 1,
                 lastBitLength + 1);
    CompressBlock(block, block->dynamicLiteralTree, block->dynamicDistanceTree);
    block->compressedLength += kHeaderBits + block->optimalLength;
  }
  InitBlock(block);
  if (isLast != 0) {
    BitStringWindup(block);
    block->compressedLength += 7;
  }
  return block->compressedLength >> 3;
}
