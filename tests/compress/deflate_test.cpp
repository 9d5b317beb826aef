// What the matching finds and where blocks end, read back from the streams by the plain decoder.

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "calls.h"
#include "inputs.h"
#include "reference_inflate.h"
#include "zqxml/compress_inner.h"

using calls::Bytes;
using inputs::Kind;
using reference::Block;
using reference::Decoded;
using reference::Item;

namespace {

Decoded decodedAt(unsigned level, const Bytes& data) {
  const Bytes stream = calls::streamOf(calls::compress(level, data).data);
  Decoded decoded = reference::inflate(stream.data(), stream.size());
  EXPECT_EQ(decoded.verdict, reference::Verdict::Valid);
  EXPECT_TRUE(decoded.data == data);
  return decoded;
}

std::vector<Item> matchesAt(unsigned level, const Bytes& data) {
  std::vector<Item> items = decodedAt(level, data).items();
  items.erase(std::remove_if(items.begin(), items.end(),
                             [](const Item& item) { return item.distance == 0; }),
              items.end());
  return items;
}

Bytes literals(const std::string& text) {
  return Bytes(text.begin(), text.end());
}

// Bytes without any match of three: all pairs of a high and a low half, so that no three bytes come
// twice.
Bytes withoutMatches(size_t length) {
  Bytes bytes;
  for (unsigned a = 0; bytes.size() < length; ++a) {
    bytes.push_back(static_cast<unsigned char>(a >> 8 & 0x7F));
    bytes.push_back(static_cast<unsigned char>(0x80 | (a >> 4 & 0xF)));
    bytes.push_back(static_cast<unsigned char>(0xC0 | (a & 0xF)));
  }
  bytes.resize(length);
  return bytes;
}

// A word, zeros, and the word again at the given distance. Nothing between them has the hash of the
// word.
Bytes repeatedAt(const std::string& word, size_t distance) {
  Bytes bytes = literals("?");
  const Bytes first = literals(word);
  bytes.insert(bytes.end(), first.begin(), first.end());
  bytes.insert(bytes.end(), distance - first.size(), 0);
  bytes.insert(bytes.end(), first.begin(), first.end());
  bytes.push_back('!');
  return bytes;
}

bool hasMatch(const std::vector<Item>& matches, unsigned distance, unsigned length) {
  return std::find(matches.begin(), matches.end(), Item{distance, length}) != matches.end();
}

}  // namespace

class Level : public testing::TestWithParam<unsigned> {};
INSTANTIATE_TEST_SUITE_P(All, Level, testing::Range(1u, 10u));

TEST_P(Level, FirstPositionIsNeverMatched) {
  EXPECT_TRUE(matchesAt(GetParam(), literals("aaaa")).empty());
  EXPECT_TRUE(matchesAt(GetParam(), literals("abcdabcd")).size() == 1);
  EXPECT_EQ(matchesAt(GetParam(), literals("abcdabcd")), (std::vector<Item>{{4, 3}}));
  EXPECT_EQ(matchesAt(GetParam(), literals("aaaaaaaa")), (std::vector<Item>{{1, 6}}));
}

TEST_P(Level, MatchIsFoundUpToMaxDist) {
  const std::string word = "abcdefghij";
  EXPECT_TRUE(hasMatch(matchesAt(GetParam(), repeatedAt(word, MAX_DIST)), MAX_DIST, 10));
  EXPECT_FALSE(hasMatch(matchesAt(GetParam(), repeatedAt(word, MAX_DIST + 1)), MAX_DIST + 1, 10));
}

// The latest string with the same hash counts up to 32,506, those before it only up to 32,505.
TEST_P(Level, LaterMembersOfTheChainReachOneLess) {
  const unsigned far = MAX_DIST;
  const auto build = [&](size_t distance) {
    Bytes bytes = repeatedAt("abcdefghij", distance);
    // Three of the bytes stand nearer, too.
    const Bytes near = literals("abc#");
    std::copy(near.begin(), near.end(), bytes.end() - 3000);
    // No match reaches from the zeros into the word.
    bytes[bytes.size() - 12] = 1;
    return bytes;
  };
  EXPECT_TRUE(hasMatch(matchesAt(GetParam(), build(far - 1)), far - 1, 10));
  EXPECT_FALSE(hasMatch(matchesAt(GetParam(), build(far)), far, 10));
}

TEST_P(Level, MatchOfThreeBeyondTooFar) {
  const bool isFast = GetParam() <= 3;
  EXPECT_TRUE(hasMatch(matchesAt(GetParam(), repeatedAt("abc", TOO_FAR)), TOO_FAR, 3));
  // Only lazy matching knows this limit.
  EXPECT_EQ(hasMatch(matchesAt(GetParam(), repeatedAt("abc", TOO_FAR + 1)), TOO_FAR + 1, 3),
            isFast);
  EXPECT_TRUE(hasMatch(matchesAt(GetParam(), repeatedAt("abcd", TOO_FAR + 1)), TOO_FAR + 1, 4));
}

TEST_P(Level, LongestMatchHas258Bytes) {
  const std::vector<Item> matches = matchesAt(GetParam(), Bytes(1000, 'x'));
  ASSERT_EQ(matches.size(), 4u);
  EXPECT_EQ(matches[0], (Item{1, 258}));
  EXPECT_EQ(matches[1].value, 258u);
  EXPECT_EQ(matches[2].value, 258u);
  EXPECT_EQ(matches[3].value, 1000u - 2 - 3 * 258);
}

TEST_P(Level, SameOutputOnEveryRun) {
  for (const Kind kind : {Kind::Text, Kind::Binary, Kind::Random}) {
    const Bytes data = inputs::make(kind, 150000);
    const Bytes first = calls::compress(GetParam(), data).data;
    // Whatever the heap held before.
    free(memset(malloc(2 << 20), 0x5A, 2 << 20));
    EXPECT_TRUE(calls::compress(GetParam(), data).data == first);
  }
}

TEST_P(Level, BlocksHold32767ItemsOrEndEarly) {
  const Decoded random = decodedAt(GetParam(), inputs::make(Kind::Random, 100000));
  ASSERT_EQ(random.blocks.size(), 4u);
  for (size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(random.blocks[i].items.size(), 32767u);
  }
  const Decoded xml = decodedAt(GetParam(), inputs::make(Kind::Xml, 1 << 20));
  for (size_t i = 0; i + 1 < xml.blocks.size(); ++i) {
    const size_t items = xml.blocks[i].items.size();
    EXPECT_TRUE(items == 32767 || (GetParam() > 2 && items % 4096 == 0)) << items;
  }
}

TEST_P(Level, NoBlockIsStored) {
  for (const inputs::Input& input : inputs::some(60, 150000)) {
    for (const Block& block : decodedAt(GetParam(), input.data).blocks) {
      EXPECT_NE(block.kind, 0u) << input.name;
    }
  }
}

TEST_P(Level, CodesStayWithinTheirLimits) {
  unsigned longest = 0;
  for (const unsigned values : {16u, 18u, 20u, 22u}) {
    for (const Block& block : decodedAt(GetParam(), inputs::fibonacci(values)).blocks) {
      longest = std::max(longest, block.longestCode);
      EXPECT_LE(block.longestCode, 15u);
      EXPECT_LE(block.longestLengthCode, 7u);
    }
  }
  EXPECT_GT(longest, 9u);
}

TEST(Deflate, EarlyEndOfBlocksFromLevel3On) {
  // Runs that compress well, with few matches in between.
  Bytes data;
  for (unsigned i = 0; data.size() < 4000000; ++i) {
    const Bytes random = inputs::make(Kind::Random, 3, i);
    data.insert(data.end(), random.begin(), random.end());
    data.insert(data.end(), 258, static_cast<unsigned char>(i));
  }
  const auto firstBlock = [&](unsigned level) {
    return decodedAt(level, data).blocks.front().items.size();
  };
  EXPECT_EQ(firstBlock(2), 32767u);
  EXPECT_EQ(firstBlock(3), 4096u);
  EXPECT_EQ(firstBlock(6), 4096u);
}

TEST(Deflate, FastAndLazyMatchingDiffer) {
  const Bytes data = inputs::make(Kind::Text, 50000);
  const auto bytesAt = [&](unsigned level) { return calls::compress(level, data).data; };
  for (unsigned level = 1; level < 8; ++level) {
    EXPECT_NE(bytesAt(level), bytesAt(level + 1)) << level;
  }
}

// "bcde" begins one byte after "abc": lazy matching waits for it, fast matching doesn't.
TEST(Deflate, LazyMatchingWaitsForALongerMatch) {
  const Bytes data = literals("?abcX bcdefghi -abcdefghi");
  EXPECT_EQ(matchesAt(3, data), (std::vector<Item>{{15, 3}, {11, 6}}));
  EXPECT_EQ(matchesAt(4, data), (std::vector<Item>{{11, 8}}));
}

TEST(Deflate, EmptyInputIsAFixedBlockWithItsEnd) {
  for (unsigned level = 1; level <= 9; ++level) {
    const Decoded decoded = decodedAt(level, {});
    ASSERT_EQ(decoded.blocks.size(), 1u);
    EXPECT_EQ(decoded.blocks[0].kind, 1u);
    EXPECT_TRUE(decoded.blocks[0].items.empty());
  }
}

// The last item fills the block, so that another one follows that is empty.
TEST(Deflate, FullLastBlockIsFollowedByAnEmptyOne) {
  const Decoded decoded = decodedAt(1, inputs::make(Kind::Random, 32767, 12));
  const size_t matches = 32767 - decoded.blocks[0].items.size();
  if (matches == 0) {
    ASSERT_EQ(decoded.blocks.size(), 2u);
    EXPECT_TRUE(decoded.blocks[1].items.empty());
    EXPECT_EQ(decoded.blocks[1].kind, 1u);
  }
  // Without any match at all.
  const Decoded plain = decodedAt(1, withoutMatches(32767));
  ASSERT_EQ(plain.blocks.size(), 2u);
  EXPECT_EQ(plain.blocks[0].items.size(), 32767u);
  EXPECT_TRUE(plain.blocks[1].items.empty());
}

// A dynamic block without matches has two distance codes, 0 and 1, which are never used.
TEST(Deflate, ForcedDistanceCodes) {
  const Decoded decoded = decodedAt(6, withoutMatches(30000));
  ASSERT_EQ(decoded.blocks[0].kind, 2u);
  EXPECT_EQ(decoded.blocks[0].distanceCodes, 2u);
}

TEST(Tally, AnswersWhenTheBlockMustEnd) {
  const auto block = std::make_unique<ZipControlBlock>();
  InitZipControlBlock(block.get());
  TreeInit(block.get());
  block->stringStart = 0;
  block->blockStart = 0;
  for (unsigned i = 1; i < LIT_BUFSIZE - 1; ++i) {
    ASSERT_EQ(TreeTally(block.get(), 0, i % 256), 0) << i;
  }
  EXPECT_EQ(TreeTally(block.get(), 0, 'x'), 1);
  EXPECT_EQ(block->lastLiteral, 32767u);
  EXPECT_EQ(block->lastFlags, 4095u);
}

TEST(Tally, CountsLiteralsAndMatches) {
  const auto block = std::make_unique<ZipControlBlock>();
  InitZipControlBlock(block.get());
  TreeInit(block.get());
  EXPECT_EQ(TreeTally(block.get(), 0, 97), 0);
  EXPECT_EQ(TreeTally(block.get(), 1, 0), 0);        // 3 bytes
  EXPECT_EQ(TreeTally(block.get(), 32768, 255), 0);  // 258 bytes
  EXPECT_EQ(block->dynamicLiteralTree[97].frequency, 1);
  EXPECT_EQ(block->dynamicLiteralTree[257].frequency, 1);
  EXPECT_EQ(block->dynamicLiteralTree[285].frequency, 1);
  EXPECT_EQ(block->dynamicLiteralTree[END_BLOCK].frequency, 1);
  EXPECT_EQ(block->dynamicDistanceTree[0].frequency, 1);
  EXPECT_EQ(block->dynamicDistanceTree[29].frequency, 1);
  EXPECT_EQ(block->lastLiteral, 3u);
  EXPECT_EQ(block->lastDistance, 2u);
  EXPECT_EQ(block->distanceBuffer[1], 32767);
  EXPECT_EQ(block->inputBuffer[2], 255);
  EXPECT_EQ(block->flags, 6);
  EXPECT_EQ(block->flagBit, 8);
}

TEST(Bits, ReversedCodes) {
  EXPECT_EQ(BitStringReverse(0, 5), 0u);
  EXPECT_EQ(BitStringReverse(1, 1), 1u);
  EXPECT_EQ(BitStringReverse(1, 5), 16u);
  EXPECT_EQ(BitStringReverse(6, 4), 6u);
  EXPECT_EQ(BitStringReverse(0x1234, 15), 0x1624u);
  EXPECT_EQ(BitStringReverse(0xFFFF, 3), 7u);
}

TEST(Bits, AreSentByTwoBytes) {
  const auto block = std::make_unique<ZipControlBlock>();
  InitZipControlBlock(block.get());
  SendBits(block.get(), 5, 3);
  SendBits(block.get(), 0xFFFF1, 13);  // only 13 bits count for what is sent
  EXPECT_EQ(block->outputCount, 0u);
  EXPECT_EQ(block->bitValid, 16);
  SendBits(block.get(), 0xABCD, 16);
  EXPECT_EQ(block->outputCount, 2u);
  EXPECT_EQ(block->outputBuffer[0], 0x8D);
  EXPECT_EQ(block->outputBuffer[1], 0xFF);
  EXPECT_EQ(block->bitBuffer, 0xABCDu);
  EXPECT_EQ(block->bitValid, 16);
  BitStringWindup(block.get());
  EXPECT_EQ(block->outputCount, 4u);
  EXPECT_EQ(block->outputBuffer[2], 0xCD);
  EXPECT_EQ(block->outputBuffer[3], 0xAB);
  SendBits(block.get(), 1, 1);
  BitStringWindup(block.get());
  EXPECT_EQ(block->outputCount, 5u);
  EXPECT_EQ(block->outputBuffer[4], 1);
  BitStringWindup(block.get());
  EXPECT_EQ(block->outputCount, 5u);
}

TEST(Trees, FixedCodes) {
  const auto block = std::make_unique<ZipControlBlock>();
  InitZipControlBlock(block.get());
  TreeInit(block.get());
  const ZipCode* literal = block->staticLiteralTree;
  const auto is = [](const ZipCode& symbol, unsigned code, int length) {
    return symbol.length == length && symbol.code == BitStringReverse(code, length);
  };
  EXPECT_TRUE(is(literal[0], 0x30, 8));
  EXPECT_TRUE(is(literal[143], 0xBF, 8));
  EXPECT_TRUE(is(literal[144], 0x190, 9));
  EXPECT_TRUE(is(literal[255], 0x1FF, 9));
  EXPECT_TRUE(is(literal[256], 0, 7));
  EXPECT_TRUE(is(literal[279], 0x17, 7));
  EXPECT_TRUE(is(literal[280], 0xC0, 8));
  EXPECT_TRUE(is(literal[287], 0xC7, 8));
  for (unsigned i = 0; i < D_CODES; ++i) {
    EXPECT_TRUE(is(block->staticDistanceTree[i], i, 5)) << i;
  }
  EXPECT_EQ(block->lengthCode[255], 28);
  EXPECT_EQ(block->lengthCode[254], 27);
  EXPECT_EQ(block->baseDistance[29], 24576);
}

TEST(Trees, ForcedSymbols) {
  const auto block = std::make_unique<ZipControlBlock>();
  InitZipControlBlock(block.get());
  struct {
    int used;  // -1 for none
    int first, second;
  } const cases[] = {{-1, 0, 1}, {0, 0, 1}, {1, 1, 2}, {2, 2, 0}, {29, 29, 0}};
  for (const auto& c : cases) {
    TreeInit(block.get());
    if (c.used >= 0) {
      block->dynamicDistanceTree[c.used].frequency = 10;
    }
    BuildTree(block.get(), &block->distanceDescriptor);
    for (int symbol = 0; symbol < D_CODES; ++symbol) {
      EXPECT_EQ(block->dynamicDistanceTree[symbol].length,
                symbol == c.first || symbol == c.second ? 1 : 0)
          << c.used << " " << symbol;
    }
    EXPECT_EQ(block->distanceDescriptor.maxCode, std::max(c.first, c.second));
    // The forced ones count nothing: ten times one bit and the extra bits.
    const unsigned extra = c.used == 29 ? 13 : 0;
    EXPECT_EQ(block->optimalLength, c.used < 0 ? 0 : 10 * (1 + extra));
    EXPECT_EQ(block->staticLength, c.used < 0 ? 0 : 10 * (5 + extra));
  }
}

namespace {

constexpr uint16_t kBases[] = {10, 20, 30};
constexpr uint16_t kExtras[] = {1, 2, 99};

}  // namespace

TEST(HuftBuild, Results) {
  const auto block = std::make_unique<ZipControlBlock>();
  InitZipControlBlock(block.get());
  struct {
    const char* name;
    std::vector<unsigned> lengths;
    int result;
    bool hasTable;
    unsigned bits;
  } const cases[] = {
      {"all lengths 0", {0, 0, 0}, 0, false, 0},
      {"one code of one bit", {0, 1, 0}, 0, true, 1},
      {"one code of two bits", {0, 2, 0}, 1, true, 2},
      {"two codes", {1, 1}, 0, true, 1},
      {"too many", {1, 1, 1}, 2, false, 0},
      {"incomplete", {1, 2}, 1, true, 2},
      {"complete", {1, 2, 2}, 0, true, 2},
      {"longer than the index", {1, 2, 3, 4, 5, 5}, 0, true, 4},
      {"shorter than the index", {3, 3, 3, 3, 3, 3, 3, 3}, 0, true, 3},
      {"all longer than the index", std::vector<unsigned>(64, 6), 0, true, 6},
      {"beyond 16", {17}, 2, false, 0},
      {"too many symbols", std::vector<unsigned>(289, 0), 2, false, 0},
  };
  for (const auto& c : cases) {
    huft* table = nullptr;
    unsigned bits = 4;
    EXPECT_EQ(HuftBuild(block.get(), c.lengths.data(), static_cast<unsigned>(c.lengths.size()),
                        STATIC_L_CODES, nullptr, nullptr, &table, &bits),
              c.result)
        << c.name;
    EXPECT_EQ(table != nullptr, c.hasTable) << c.name;
    if (c.hasTable || c.result == 0) {
      EXPECT_EQ(bits, c.bits) << c.name;
    }
    EXPECT_EQ(HuftFree(table), 0);
  }
}

TEST(HuftBuild, Entries) {
  const auto block = std::make_unique<ZipControlBlock>();
  InitZipControlBlock(block.get());
  block->huftCount = 0;
  // Symbols 0 and 1 are simple, 2 and 3 take base and extra bits, 4 is invalid by its 99.
  const unsigned lengths[] = {1, 2, 3, 4, 4};
  huft* table = nullptr;
  unsigned bits = 2;
  ASSERT_EQ(HuftBuild(block.get(), lengths, 5, 2, kBases, kExtras, &table, &bits), 0);
  ASSERT_EQ(bits, 2u);
  // Two tables of two bits, and a head each.
  EXPECT_EQ(block->huftCount, 10u);
  for (const unsigned index : {0u, 2u}) {
    EXPECT_EQ(table[index].extra, 16);
    EXPECT_EQ(table[index].bits, 1);
    EXPECT_EQ(table[index].v.base, 0);
  }
  EXPECT_EQ(table[1].extra, 16);
  EXPECT_EQ(table[1].bits, 2);
  EXPECT_EQ(table[1].v.base, 1);
  EXPECT_EQ(table[3].extra, 16 + 2);
  EXPECT_EQ(table[3].bits, 2);
  const huft* next = table[3].v.next;
  for (const unsigned index : {0u, 2u}) {
    EXPECT_EQ(next[index].extra, 1);
    EXPECT_EQ(next[index].bits, 1);
    EXPECT_EQ(next[index].v.base, 10);
  }
  EXPECT_EQ(next[1].extra, 2);
  EXPECT_EQ(next[1].v.base, 20);
  EXPECT_EQ(next[3].extra, 99);
  HuftFree(table);
}

TEST(HuftBuild, FillsAnIncompleteCodeWithInvalidEntries) {
  const auto block = std::make_unique<ZipControlBlock>();
  InitZipControlBlock(block.get());
  const unsigned lengths[] = {0, 1};
  huft* table = nullptr;
  unsigned bits = 7;
  ASSERT_EQ(HuftBuild(block.get(), lengths, 2, 2, nullptr, nullptr, &table, &bits), 0);
  EXPECT_EQ(bits, 1u);
  EXPECT_EQ(table[0].extra, 16);
  EXPECT_EQ(table[0].v.base, 1);
  EXPECT_EQ(table[1].extra, 99);
  HuftFree(table);
}

TEST(HuftBuild, EndOfBlockIsASimpleSymbol) {
  const auto block = std::make_unique<ZipControlBlock>();
  InitZipControlBlock(block.get());
  std::vector<unsigned> lengths(257, 0);
  lengths[255] = lengths[256] = 1;
  huft* table = nullptr;
  unsigned bits = 9;
  ASSERT_EQ(HuftBuild(block.get(), lengths.data(), 257, 257, nullptr, nullptr, &table, &bits), 0);
  EXPECT_EQ(table[0].extra, 16);
  EXPECT_EQ(table[1].extra, 15);
  HuftFree(table);
}

// The plain search, called by itself.
TEST(LongestMatchAlone, FindsTheLongestAndOfEqualsTheNearest) {
  const auto block = std::make_unique<ZipControlBlock>();
  InitZipControlBlock(block.get());
  const Bytes data = literals("?abcdX?abcdeX?abcdeX?abcdef");
  block->inputFd = 0;
  block->inputMemory = data.data();
  block->inputLength = static_cast<unsigned>(data.size());
  block->level = 9;
  TreeInit(block.get());
  LongestMatchInit(block.get());
  EXPECT_EQ(block->lookahead, data.size());
  EXPECT_EQ(block->endOfInput, 1);
  block->prev[7] = 1;
  block->prev[14] = 7;
  block->stringStart = 21;
  block->previousLength = 2;
  EXPECT_EQ(LongestMatch(block.get(), 14), 5u);
  EXPECT_EQ(block->matchStart, 14u);
  EXPECT_EQ(LongestMatch(block.get(), 1), 4u);
  EXPECT_EQ(block->matchStart, 1u);
  // What doesn't beat the step before is not a match.
  block->previousLength = 5;
  EXPECT_EQ(LongestMatch(block.get(), 14), 5u);
  EXPECT_EQ(block->matchStart, 1u);
}
