// The operations that the eight calls are made of, one by one.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <numeric>
#include <utility>

#include "calls.h"
#include "fault/FailingAllocations.h"
#include "inputs.h"
#include "reference_deflate.h"
#include "stream_builder.h"
#include "temporary_file.h"
#include "zqxml/compress_inner.h"

using calls::Bytes;
using inputs::Kind;

namespace {

using Block = std::unique_ptr<ZipControlBlock>;

// A block as ZQProcessInput makes it, with a source in memory. The large buffers hold what a heap
// may hold.
Block blockFor(const Bytes& source, unsigned mode = ZIP_COMPRESS) {
  Block block(new ZipControlBlock);
  memset(static_cast<void*>(block.get()), 0x5A, sizeof *block);
  InitZipControlBlock(block.get());
  block->inputFd = 0;
  block->outputFd = 0;
  block->inputMemory = source.data();
  block->inputLength = static_cast<unsigned>(source.size());
  block->mode = mode;
  return block;
}

Bytes resultOf(const ZipControlBlock& block) {
  return Bytes(block.outputMemory, block.outputMemory + block.bytesOut);
}

Bytes waitingIn(const ZipControlBlock& block) {
  return Bytes(block.outputBuffer, block.outputBuffer + block.outputCount);
}

// A descriptor that can be measured and not read.
class Folder {
 public:
  Folder() : fd(open("/", O_RDONLY | O_DIRECTORY)) {}
  ~Folder() { close(fd); }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  int descriptor() const { return fd; }

 private:
  int fd;
};

// What all lengths of a code take of the code space, in units of the longest one; a complete code
// takes it all.
unsigned takenSpace(const ZipCode* tree, int maxCode, int longest) {
  unsigned space = 0;
  for (int symbol = 0; symbol <= maxCode; ++symbol) {
    if (tree[symbol].length != 0) {
      space += 1u << (longest - tree[symbol].length);
    }
  }
  return space;
}

}  // namespace

TEST(Zip, ALengthThatLeavesNoRoomForTheFrameGives3007) {
  for (const uint64_t length : {UINT64_MAX, UINT64_MAX - 7}) {
    const Bytes source;
    const Block block = blockFor(source);
    EXPECT_EQ(ZQZip(block.get(), length), ZQ_MESSAGE_COMPRESS_MEMORY);
    EXPECT_EQ(block->status, static_cast<unsigned>(ZQ_MESSAGE_COMPRESS_MEMORY));
    EXPECT_EQ(block->outputMemory, nullptr);
  }
}

TEST(FlushOutbuf, WithNothingWaitingWritesNothing) {
  const TemporaryFile target;
  const Bytes source;
  const Block block = blockFor(source);
  block->outputFd = target.descriptor();
  FlushOutbuf(block.get());
  EXPECT_EQ(block->status, 0u);
  EXPECT_EQ(block->bytesOut, 0u);
  EXPECT_TRUE(target.content().empty());
  // Not even to a descriptor that would refuse it.
  block->outputFd = -1;
  FlushOutbuf(block.get());
  EXPECT_EQ(block->status, 0u);
}

TEST(FillInbuf, TakesUnitsAndTellsTheEnd) {
  const Bytes source = inputs::make(Kind::Random, 32768 + 5);
  const Block block = blockFor(source, ZIP_DECOMPRESS);
  EXPECT_EQ(FillInbuf(block.get(), 0), source[0]);
  EXPECT_EQ(block->inputFill, 32768u);
  EXPECT_EQ(block->inputPosition, 1u);
  EXPECT_EQ(block->bytesIn, 32768u);
  EXPECT_EQ(FillInbuf(block.get(), 1), source[32768]);
  EXPECT_EQ(block->inputFill, 5u);
  EXPECT_EQ(block->bytesIn, 32773u);
  EXPECT_EQ(FillInbuf(block.get(), 1), -1);
  EXPECT_EQ(block->inputFill, 0u);
  errno = 0;
  EXPECT_EQ(FillInbuf(block.get(), 0), ZQ_MESSAGE_COMPRESS_END_OF_INPUT);
  // Whoever has set it.
  errno = EIO;
  EXPECT_EQ(FillInbuf(block.get(), 0), ZQ_MESSAGE_COMPRESS_READ);
  errno = 0;
  EXPECT_EQ(block->bytesIn, 32773u);
  EXPECT_EQ(block->status, 0u);
}

TEST(FillInbuf, AFailedReadIsAnEnd) {
  const Folder folder;
  const Block block = blockFor({}, ZIP_DECOMPRESS);
  block->inputFd = folder.descriptor();
  EXPECT_EQ(FillInbuf(block.get(), 1), -1);
  EXPECT_EQ(FillInbuf(block.get(), 0), ZQ_MESSAGE_COMPRESS_READ);
  EXPECT_EQ(block->status, 0u);
  errno = 0;
}

TEST(WriteBuf, GrowsMemoryAndLeavesCountingToItsCallers) {
  const Block block = blockFor({});
  EXPECT_EQ(WriteBuf(block.get(), "abc", 3), 0);
  EXPECT_EQ(block->bytesOut, 0u);
  block->bytesOut += 3;
  EXPECT_EQ(block->outputMemory[3], '\0');
  EXPECT_EQ(block->outputCapacity, 3u);
  const Bytes more = inputs::make(Kind::Random, 1000);
  EXPECT_EQ(WriteBuf(block.get(), more.data(), 1000), 0);
  block->bytesOut += 1000;
  Bytes expected = {'a', 'b', 'c'};
  expected.insert(expected.end(), more.begin(), more.end());
  EXPECT_EQ(resultOf(*block), expected);
  EXPECT_EQ(block->outputMemory[1003], '\0');
  free(block->outputMemory);
}

TEST(WriteBuf, PutsBytesBehindThoseThatAreCounted) {
  const Block block = blockFor({});
  EXPECT_EQ(WriteBuf(block.get(), "abcdef", 6), 0);
  block->bytesOut = 4;
  EXPECT_EQ(WriteBuf(block.get(), "xyz", 3), 0);
  block->bytesOut += 3;
  EXPECT_EQ(resultOf(*block), (Bytes{'a', 'b', 'c', 'd', 'x', 'y', 'z'}));
  EXPECT_EQ(block->outputMemory[7], '\0');
  EXPECT_EQ(block->outputCapacity, 7u);
  free(block->outputMemory);
}

TEST(WriteBuf, Failures) {
  const Block block = blockFor({});
  {
    const fault::FailingAllocations armed(0, fault::Mode::FromThere);
    EXPECT_EQ(WriteBuf(block.get(), "abc", 3), ZQ_MESSAGE_COMPRESS_MEMORY);
  }
  EXPECT_EQ(block->status, unsigned{ZQ_MESSAGE_COMPRESS_MEMORY});
  block->outputFd = open("/dev/null", O_RDONLY);
  EXPECT_EQ(WriteBuf(block.get(), "abc", 3), ZQ_MESSAGE_COMPRESS_WRITE);
  EXPECT_EQ(block->status, unsigned{ZQ_MESSAGE_COMPRESS_WRITE});
  close(block->outputFd);
  errno = 0;
}

TEST(Copy, AFailedReadIsItsResultAlone) {
  const Folder folder;
  const Block block = blockFor({}, ZIP_COPY);
  block->inputFd = folder.descriptor();
  EXPECT_EQ(ZQCopy(block.get()), ZQ_MESSAGE_COMPRESS_READ);
  EXPECT_EQ(block->status, 0u);
  const calls::Result result = calls::take([&](void** memory, unsigned* length) {
    return ZQDecompressFileToMem(folder.descriptor(), memory, length);
  });
  EXPECT_EQ(result.status, 0);
  EXPECT_TRUE(result.isNull);
  errno = 0;
}

TEST(Copy, CountsWhatItCopies) {
  const Bytes data = inputs::make(Kind::Text, 70000);
  const TemporaryFile file(data);
  const Block fromFile = blockFor({}, ZIP_COPY);
  fromFile->inputFd = file.descriptor();
  const Block fromMemory = blockFor(data, ZIP_COPY);
  for (const Block* block : {&fromFile, &fromMemory}) {
    EXPECT_EQ(ZQCopy(block->get()), 0);
    EXPECT_EQ((*block)->bytesIn, 70000u);
    EXPECT_EQ((*block)->bytesOut, 70000u);
    EXPECT_TRUE(resultOf(**block) == data);
    free((*block)->outputMemory);
  }
}

TEST(Copy, NeedsASource) {
  int unused = 0;
  void* block = &unused;
  unsigned length = 77;
  EXPECT_EQ(ZQProcessInput(ZIP_COPY, 0, 0, 0, nullptr, 5, &block, &length),
            ZQ_MESSAGE_COMPRESS_ARGUMENT);
  EXPECT_EQ(block, &unused);
  EXPECT_EQ(length, 77u);
  EXPECT_EQ(ZQProcessInput(ZIP_COPY, 0, 0, 0, nullptr, 0, &block, &length), 0);
  EXPECT_EQ(block, nullptr);
  EXPECT_EQ(length, 0u);
}

TEST(Header, IsReadOrTheModeIsChanged) {
  const Bytes header = {0x1F, 0x8C, 9, 8, 0x78, 0x56, 0x34, 0xF2};
  struct {
    const char* name;
    Bytes source;
    unsigned mode;
    unsigned inputPosition;
    unsigned originalLength;
  } const cases[] = {
      {"whole", header, ZIP_DECOMPRESS, 8, 0xF2345678},
      {"too short", Bytes(header.begin(), header.end() - 1), ZIP_COPY, 0, 0},
      {"empty", {}, ZIP_COPY, 0, 0},
      {"first byte", {0x1E, 0x8C, 1, 0, 1, 2, 3, 4}, ZIP_COPY, 0, 0},
      {"gzip", {0x1F, 0x8B, 8, 0, 1, 2, 3, 4}, ZIP_COPY, 0, 0},
  };
  for (const auto& c : cases) {
    const Block block = blockFor(c.source, ZIP_DECOMPRESS);
    VerifyCompressedDataHeader(block.get(), c.source.size());
    EXPECT_EQ(block->mode, c.mode) << c.name;
    EXPECT_EQ(block->inputPosition, c.inputPosition) << c.name;
    EXPECT_EQ(block->originalLength, c.originalLength) << c.name;
    EXPECT_EQ(block->status, 0u) << c.name;
  }
}

TEST(Reading, CountsAndAddsToTheChecksum) {
  const Bytes data = inputs::make(Kind::Random, 1000);
  const TemporaryFile file(data);
  const Block fromFile = blockFor({});
  fromFile->inputFd = file.descriptor();
  const Block fromMemory = blockFor(data);
  Bytes buffer(2000);
  const auto check = [&](ZipControlBlock* block,
                         int (*readSome)(ZipControlBlock*, unsigned char*, unsigned)) {
    EXPECT_EQ(readSome(block, buffer.data(), 400), 400);
    EXPECT_EQ(block->crc, reference::crc32(Bytes(data.begin(), data.begin() + 400)));
    EXPECT_EQ(readSome(block, buffer.data() + 400, 1600), 600);
    EXPECT_EQ(block->bytesIn, 1000u);
    EXPECT_EQ(block->crc, reference::crc32(data));
    EXPECT_EQ(readSome(block, buffer.data() + 1000, 1000), 0);
    EXPECT_EQ(block->bytesIn, 1000u);
    EXPECT_TRUE(std::equal(data.begin(), data.end(), buffer.begin()));
  };
  check(fromFile.get(), FileRead);
  check(fromMemory.get(), MemRead);
  const Folder folder;
  fromFile->inputFd = folder.descriptor();
  EXPECT_EQ(FileRead(fromFile.get(), buffer.data(), 100), -1);
  EXPECT_EQ(fromFile->bytesIn, 1000u);
  errno = 0;
}

TEST(Window, SlidesFromMaxDistInTheUpperHalfOn) {
  const Bytes source = inputs::make(Kind::Random, 65536);
  for (const unsigned start : {65273u, 65274u}) {
    const Block block = blockFor(source);
    block->level = 4;
    TreeInit(block.get());
    LongestMatchInit(block.get());
    ASSERT_EQ(block->lookahead, 65536u);
    block->stringStart = start;
    block->lookahead = 65536 - start;
    block->blockStart = 100;
    block->matchStart = 60000;
    block->endOfInput = 1;
    uint16_t* const tables[] = {block->head, block->prev};
    for (uint16_t* table : tables) {
      table[0] = 32767;
      table[1] = 32768;
      table[2] = 32769;
      table[32767] = 65273;
    }
    FillWindow(block.get());
    const bool slides = start == 65274;
    EXPECT_EQ(block->stringStart, slides ? 65274u - 32768 : start);
    EXPECT_EQ(block->blockStart, slides ? 100 - 32768 : 100);
    EXPECT_EQ(block->matchStart, slides ? 60000u - 32768 : 60000u);
    EXPECT_EQ(block->lookahead, 65536 - start);
    for (const uint16_t* table : tables) {
      EXPECT_EQ(table[0], slides ? 0 : 32767);
      EXPECT_EQ(table[1], slides ? 0 : 32768);
      EXPECT_EQ(table[2], slides ? 1 : 32769);
      EXPECT_EQ(table[32767], slides ? 65273 - 32768 : 65273);
    }
    EXPECT_EQ(memcmp(block->window, source.data() + (slides ? 32768 : 0), 32768), 0);
    EXPECT_EQ(memcmp(block->window + 32768, source.data() + 32768, 32768), 0);
  }
}

TEST(Window, StartsWithTheFirstBytesOrAtTheEnd) {
  const Bytes source = {1, 2, 3};
  const Block block = blockFor(source);
  EXPECT_EQ(LongestMatchInit(block.get()), 0);
  EXPECT_EQ(block->lookahead, 3u);
  EXPECT_EQ(block->endOfInput, 1);
  EXPECT_EQ(block->insertHash, (1u << 5) ^ 2);
  EXPECT_EQ(block->window[3], 0);
  EXPECT_TRUE(std::all_of(block->head, block->head + HASH_SIZE, [](unsigned h) { return h == 0; }));
  const Block empty = blockFor({});
  EXPECT_EQ(LongestMatchInit(empty.get()), 0);
  EXPECT_EQ(empty->lookahead, 0u);
  EXPECT_EQ(empty->endOfInput, 1);
}

TEST(DeflateAlone, ReturnsTheLengthOfTheStream) {
  for (const Kind kind : inputs::kAllKinds) {
    for (const size_t length : {0u, 1u, 100u, 150000u}) {
      const Bytes data = inputs::make(kind, length);
      for (const unsigned level : {1u, 3u, 4u, 6u, 9u}) {
        const Block block = blockFor(data);
        block->level = level;
        UpdateCRC(block.get(), nullptr, 0);
        TreeInit(block.get());
        LongestMatchInit(block.get());
        const unsigned bytes = level <= 3 ? DeflateFast(block.get()) : Deflate(block.get());
        FlushOutbuf(block.get());
        EXPECT_EQ(bytes, block->bytesOut) << length << ", level " << level;
        EXPECT_TRUE(resultOf(*block) == reference::deflate(data, static_cast<int>(level)));
        free(block->outputMemory);
      }
    }
  }
}

// The longest item there is, first in a block, behind any number of bits that wait.
TEST(CompressBlockAlone, LongestItemBehindWaitingBits) {
  for (int waiting = 0; waiting <= 16; ++waiting) {
    const Block block = blockFor({});
    TreeInit(block.get());
    std::vector<ZipCode> literals(L_CODES, ZipCode{});
    std::vector<ZipCode> distances(D_CODES, ZipCode{});
    literals[END_BLOCK].length = 1;
    literals[281].code = 0x5AA5;
    literals[281].length = 15;
    distances[29].code = 0x2DB6;
    distances[29].length = 15;
    SendBits(block.get(), (1u << waiting) - 1, waiting);
    EXPECT_EQ(TreeTally(block.get(), 32768, 159), 0);
    block->flagBuffer[0] = block->flags;
    CompressBlock(block.get(), literals.data(), distances.data());
    BitStringWindup(block.get());
    StreamBuilder expected;
    expected.bits((1u << waiting) - 1, static_cast<unsigned>(waiting));
    expected.bits(0x5AA5, 15).bits(31, 5);     // length 162
    expected.bits(0x2DB6, 15).bits(8191, 13);  // distance 32,768
    expected.bits(0, 1);                       // END_BLOCK
    EXPECT_EQ(waitingIn(*block), expected.data()) << waiting;
  }
}

TEST(FlushBlockAlone, TakesTheFixedCodeOnTies) {
  const Block block = blockFor({});
  TreeInit(block.get());
  TreeTally(block.get(), 0, 'a');
  // 3 bits of head, 8 and 7 of the codes; 7 more for the last byte.
  EXPECT_EQ(FlushBlock(block.get(), nullptr, 0, 1), (3u + 8 + 7 + 7) / 8);
  EXPECT_EQ(waitingIn(*block), (Bytes{0x4B, 0x04, 0x00}));
  EXPECT_EQ(block->lastLiteral, 0u);
  EXPECT_EQ(block->dynamicLiteralTree[97].frequency, 0);
  EXPECT_EQ(block->dynamicLiteralTree[END_BLOCK].frequency, 1);
  EXPECT_EQ(block->flagBit, 1);
}

TEST(TreesAlone, HeapPrefersFrequencyThenDepth) {
  const Block block = blockFor({});
  ZipCode tree[8] = {};
  for (const unsigned node : {1u, 2u, 3u, 4u}) {
    tree[node].frequency = 5;
    block->depth[node] = static_cast<unsigned char>(5 - node);
  }
  tree[4].frequency = 6;
  const int heap[] = {0, 1, 2, 3, 4};
  std::copy(std::begin(heap), std::end(heap), block->heap);
  block->heapLength = 4;
  PQDownHeap(block.get(), tree, 1);
  // Of 2 and 3 the lower one comes up.
  EXPECT_EQ(block->heap[1], 3);
  EXPECT_EQ(block->heap[2], 2);
  EXPECT_EQ(block->heap[3], 1);
  // The moving node stays ahead of its equal.
  block->depth[3] = block->depth[2];
  PQDownHeap(block.get(), tree, 1);
  EXPECT_EQ(block->heap[1], 3);
  // The left one of two equal children comes up.
  tree[3].frequency = 9;
  tree[1].frequency = tree[2].frequency;
  block->depth[1] = block->depth[2];
  PQDownHeap(block.get(), tree, 1);
  EXPECT_EQ(block->heap[1], 1) << "the right one is smaller or equal";
}

TEST(TreesAlone, LengthsAreCutToTheLimitAndStayComplete) {
  const Block block = blockFor({});
  TreeInit(block.get());
  unsigned frequencies[22];
  const auto fill = [&frequencies](ZipCode* tree, int count) {
    unsigned one = 1;
    unsigned two = 1;
    for (int symbol = 0; symbol < count; ++symbol) {
      frequencies[symbol] = one;
      tree[symbol].frequency = static_cast<uint16_t>(one);
      two += std::exchange(one, two);
    }
  };
  fill(block->bitLengthTree, BL_CODES);
  BuildTree(block.get(), &block->bitLengthDescriptor);
  EXPECT_EQ(takenSpace(block->bitLengthTree, BL_CODES - 1, MAX_BL_BITS), 1u << MAX_BL_BITS);
  EXPECT_EQ(block->bitLengthTree[0].length, MAX_BL_BITS);
  EXPECT_EQ(block->bitLengthTree[BL_CODES - 1].length, 1);
  unsigned bits = 0;
  constexpr unsigned kExtra[] = {2, 3, 7};
  for (int symbol = 0; symbol < BL_CODES; ++symbol) {
    bits += frequencies[symbol] *
            (block->bitLengthTree[symbol].length + (symbol >= 16 ? kExtra[symbol - 16] : 0));
  }
  EXPECT_EQ(block->optimalLength, bits);
  block->dynamicLiteralTree[END_BLOCK].frequency = 0;
  fill(block->dynamicLiteralTree, 22);
  BuildTree(block.get(), &block->literalDescriptor);
  EXPECT_EQ(takenSpace(block->dynamicLiteralTree, 21, MAX_BITS), 1u << MAX_BITS);
  EXPECT_EQ(block->dynamicLiteralTree[0].length, MAX_BITS);
}

TEST(TreesAlone, CodesFollowFromLengths) {
  const Block block = blockFor({});
  // The example of RFC 1951, 3.2.2.
  constexpr uint16_t kLengths[] = {3, 3, 3, 3, 3, 2, 4, 4};
  constexpr unsigned kCodes[] = {2, 3, 4, 5, 6, 0, 14, 15};
  ZipCode tree[8] = {};
  memset(block->bitLengthCount, 0, sizeof block->bitLengthCount);
  for (int symbol = 0; symbol < 8; ++symbol) {
    tree[symbol].length = kLengths[symbol];
    ++block->bitLengthCount[kLengths[symbol]];
  }
  GenCodes(block.get(), tree, 7);
  for (int symbol = 0; symbol < 8; ++symbol) {
    EXPECT_EQ(tree[symbol].code, BitStringReverse(kCodes[symbol], kLengths[symbol])) << symbol;
  }
}

namespace {

struct LengthRun {
  uint16_t length;
  unsigned count;
};

struct Runs {
  const char* name;
  std::vector<LengthRun> runs;
  // Symbols with their extra bits, as they are sent.
  std::vector<std::pair<unsigned, unsigned>> sent;
};

const Runs kRuns[] = {
    {"two zeros", {{0, 2}}, {{0, 0}, {0, 0}}},
    {"three zeros", {{0, 3}}, {{17, 0}}},
    {"ten zeros", {{0, 10}}, {{17, 7}}},
    {"eleven zeros", {{0, 11}}, {{18, 0}}},
    {"138 zeros", {{0, 138}}, {{18, 127}}},
    {"139 zeros", {{0, 139}}, {{18, 127}, {0, 0}}},
    {"three of 5", {{5, 3}}, {{5, 0}, {5, 0}, {5, 0}}},
    {"four of 5", {{5, 4}}, {{5, 0}, {16, 0}}},
    {"seven of 5", {{5, 7}}, {{5, 0}, {16, 3}}},
    {"eight of 5", {{5, 8}}, {{5, 0}, {16, 3}, {5, 0}}},
    {"ten of 5", {{5, 10}}, {{5, 0}, {16, 3}, {16, 0}}},
    {"thirteen of 5", {{5, 13}}, {{5, 0}, {16, 3}, {16, 3}}},
    {"5 after zeros", {{0, 4}, {5, 4}, {6, 3}}, {{17, 1}, {5, 0}, {16, 0}, {6, 0}, {6, 0}, {6, 0}}},
};

}  // namespace

TEST(TreesAlone, RunsOfLengths) {
  for (const Runs& c : kRuns) {
    const Block block = blockFor({});
    TreeInit(block.get());
    std::vector<ZipCode> tree;
    for (const LengthRun& run : c.runs) {
      ZipCode code = {};
      code.length = run.length;
      tree.insert(tree.end(), run.count, code);
    }
    const int maxCode = static_cast<int>(tree.size()) - 1;
    tree.push_back({});
    ScanTree(block.get(), tree.data(), maxCode);
    EXPECT_EQ(tree.back().length, 65535) << c.name;
    std::vector<unsigned> counts(BL_CODES, 0);
    StreamBuilder expected;
    for (unsigned symbol = 0; symbol < BL_CODES; ++symbol) {
      block->bitLengthTree[symbol].length = 5;
    }
    for (const auto& [symbol, extra] : c.sent) {
      ++counts[symbol];
      expected.bits(symbol, 5).bits(extra, symbol == 16   ? 2
                                           : symbol == 17 ? 3
                                           : symbol == 18 ? 7
                                                          : 0);
    }
    for (unsigned symbol = 0; symbol < BL_CODES; ++symbol) {
      EXPECT_EQ(block->bitLengthTree[symbol].frequency, counts[symbol]) << c.name << " " << symbol;
      block->bitLengthTree[symbol].code = static_cast<uint16_t>(symbol);
    }
    SendTree(block.get(), tree.data(), maxCode);
    BitStringWindup(block.get());
    EXPECT_EQ(waitingIn(*block), expected.data()) << c.name;
  }
}

namespace {

struct InflateResult {
  const char* name;
  int result;
  StreamBuilder stream;
};

}  // namespace

TEST(InflateAlone, TellsKindsOfFaults) {
  const InflateResult cases[] = {
      {"good", 0, StreamBuilder().stored(true, {1, 2, 3})},
      {"wrong complement", 1, StreamBuilder().block(true, 0).toByteBoundary().bits(7, 32)},
      {"symbol 286", 1, StreamBuilder().block(true, 1).fixedSymbol(286).bits(0, 32)},
      {"kind 3", 2, StreamBuilder().block(true, 3).bits(0, 32)},
      {"three code lengths of one bit", 2, StreamBuilder().dynamic(true, 257, 1, {1, 1, 1})},
      {"code lengths incomplete", 1, StreamBuilder().dynamic(true, 257, 1, {1, 2})},
  };
  for (const InflateResult& c : cases) {
    const Block block = blockFor(c.stream.data(), ZIP_DECOMPRESS);
    UpdateCRC(block.get(), nullptr, 0);
    EXPECT_EQ(Inflate(block.get()), c.result) << c.name;
    free(block->outputMemory);
  }
  const StreamBuilder fixed = StreamBuilder().block(true, 1).fixedEnd();
  const Block block = blockFor(fixed.data(), ZIP_DECOMPRESS);
  const fault::FailingAllocations armed(0, fault::Mode::FromThere);
  EXPECT_EQ(Inflate(block.get()), 3);
}

TEST(InflateAlone, StandsBehindTheStreamAndCountsTheTablesOfTheLastBlock) {
  StreamBuilder stream;
  stream.block(false, 1).fixedEnd().block(true, 1).fixedSymbol('a').fixedEnd();
  const auto length = static_cast<unsigned>(stream.data().size());
  Bytes source = stream.data();
  source.insert(source.end(), {0xAA, 0xBB, 0xCC, 0xDD});
  const Block block = blockFor(source, ZIP_DECOMPRESS);
  EXPECT_EQ(Inflate(block.get()), 0);
  EXPECT_EQ(block->inputPosition, length);
  EXPECT_EQ(block->bytesOut, 1u);
  EXPECT_EQ(block->outputCount, 0u);
  // Literals: 128 entries, 76 tables of one more bit and 28 of two; distances: 32 entries. And the
  // head of each table.
  EXPECT_EQ(block->huftCount, 129u + 76 * 3 + 28 * 5 + 33);
  free(block->outputMemory);
}

TEST(InflateBlockAlone, TellsWhetherItIsTheLast) {
  for (const bool isLast : {false, true}) {
    StreamBuilder stream;
    stream.stored(isLast, {7});
    const Block block = blockFor(stream.data(), ZIP_DECOMPRESS);
    block->bitCount = 0;
    block->bitAccumulator = 0;
    int last = 99;
    EXPECT_EQ(InflateBlock(block.get(), &last), 0);
    EXPECT_EQ(last, isLast ? 1 : 0);
    EXPECT_EQ(block->outputCount, 1u);
    EXPECT_EQ(block->window[0], 7);
  }
}

TEST(InflateBlockAlone, GivesItsTablesBack) {
  const Bytes data = inputs::make(Kind::Text, 400000);
  const Bytes stream = calls::streamOf(calls::compress(1, data).data);
  const Block block = blockFor(stream, ZIP_DECOMPRESS);
  block->outputFd = open("/dev/null", O_WRONLY);
  block->bitCount = 0;
  block->bitAccumulator = 0;
  const long before = fault::liveBlocks();
  unsigned blocks = 0;
  for (int last = 0; last == 0; ++blocks) {
    block->huftCount = 0;
    ASSERT_EQ(InflateBlock(block.get(), &last), 0);
    EXPECT_GT(block->huftCount, 0u);
    ASSERT_EQ(fault::liveBlocks(), before) << blocks;
  }
  EXPECT_GT(blocks, 2u);
  close(block->outputFd);
}

// Tables that are wider than those of the library's own blocks.
TEST(InflateCodesAlone, TakesTablesOfAnyWidth) {
  for (const unsigned width : {7u, 9u, 10u, 11u, 13u, 15u, 16u}) {
    // Lengths 1, 2, 3 ... 15, 15; the last one is END_BLOCK.
    std::vector<unsigned> lengths(257, 0);
    std::iota(lengths.begin(), lengths.begin() + 15, 1u);
    lengths[256] = 15;
    StreamBuilder stream;
    Bytes expected;
    for (unsigned i = 0; i < 300; ++i) {
      const unsigned symbol = i * 7 % 15;
      const unsigned length = symbol + 1;
      stream.code((1u << length) - 2, length);
      expected.push_back(static_cast<unsigned char>(symbol));
    }
    stream.code(0x7FFF, 15).bits(0, 32);
    const Block block = blockFor(stream.data(), ZIP_DECOMPRESS);
    block->bitCount = 0;
    block->bitAccumulator = 0;
    huft* table = nullptr;
    unsigned bits = width;
    ASSERT_EQ(HuftBuild(block.get(), lengths.data(), 257, 257, nullptr, nullptr, &table, &bits), 0);
    EXPECT_EQ(bits, std::min(width, 15u));
    // The buffer holds the input, as after a first byte that was given back.
    FillInbuf(block.get(), 0);
    block->inputPosition = 0;
    EXPECT_EQ(InflateCodes(block.get(), table, nullptr, bits, 0), 0) << width;
    EXPECT_EQ(Bytes(block->window, block->window + block->outputCount), expected) << width;
    HuftFree(table);
  }
}
