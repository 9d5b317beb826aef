// The fast loop of inflate comes in a way for the processor at hand and one for every processor:
// both leave a block exactly alike, whatever they meet.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <vector>

#include "compress/inflate_fast.h"
#include "inputs.h"
#include "zqxml/compress_inner.h"

namespace {

using Lengths = std::vector<unsigned>;

constexpr uint16_t kLengthBases[] = {3,  4,   5,   6,   7,   8,   9,   10, 11, 13, 15,
                                     17, 19,  23,  27,  31,  35,  43,  51, 59, 67, 83,
                                     99, 115, 131, 163, 195, 227, 258, 0,  0};
constexpr uint16_t kLengthExtras[] = {0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2,  2, 2,
                                      3, 3, 3, 3, 4, 4, 4, 4, 5, 5, 5, 5, 0, 99, 99};
constexpr uint16_t kDistanceBases[] = {
    1,   2,   3,   4,   5,   7,    9,    13,   17,   25,   33,   49,   65,    97,    129,
    193, 257, 385, 513, 769, 1025, 1537, 2049, 3073, 4097, 6145, 8193, 12289, 16385, 24577};
constexpr uint16_t kDistanceExtras[] = {0, 0, 0, 0, 1, 1, 2, 2,  3,  3,  4,  4,  5,  5,  6,
                                        6, 7, 7, 8, 8, 9, 9, 10, 10, 11, 11, 12, 12, 13, 13};

// A complete code: one symbol of length 0, split at random.
Lengths randomLengths(inputs::Random& random, unsigned symbols) {
  Lengths lengths = {1, 1};
  while (lengths.size() < symbols) {
    const size_t place = random.below(static_cast<uint32_t>(lengths.size()));
    if (lengths[place] < MAX_BITS) {
      lengths.push_back(++lengths[place]);
    }
  }
  for (size_t i = lengths.size(); i > 1; --i) {
    std::swap(lengths[i - 1], lengths[random.below(static_cast<uint32_t>(i))]);
  }
  return lengths;
}

Lengths fixedLengths() {
  Lengths lengths(288, 8);
  std::fill_n(lengths.begin() + 144, 112, 9u);
  std::fill_n(lengths.begin() + 256, 24, 7u);
  return lengths;
}

struct Blocks {
  std::unique_ptr<ZipControlBlock> chosen = std::make_unique<ZipControlBlock>();
  std::unique_ptr<ZipControlBlock> anywhere = std::make_unique<ZipControlBlock>();

  bool areAlike() const { return memcmp(chosen.get(), anywhere.get(), sizeof *chosen) == 0; }

  template <typename Change>
  void inBoth(Change change) const {
    change(*chosen);
    change(*anywhere);
  }
};

// Lets both ways read random bytes by a code, and counts how they ended.
void compareWays(unsigned seed, const Lengths& literals, const Lengths& distances,
                 std::array<unsigned, 3>& ends) {
  inputs::Random random(seed);
  const Blocks blocks;
  const inputs::Bytes input = inputs::make(inputs::Kind::Random, ZIP_INPUT_UNIT, seed);
  const inputs::Bytes window =
      inputs::make(inputs::Kind::Random, sizeof(ZipControlBlock::window), seed + 1);
  blocks.inBoth([&](ZipControlBlock& block) {
    memcpy(block.inputBuffer, input.data(), input.size());
    block.inputFill = ZIP_INPUT_UNIT;
    memcpy(block.window, window.data(), window.size());
    block.windowStart = seed % 2 * WSIZE;
  });

  huft* literalTable = nullptr;
  huft* distanceTable = nullptr;
  BlockCode code = {nullptr, nullptr, 9, 6};
  ASSERT_LE(HuftBuild(blocks.chosen.get(), literals.data(), static_cast<unsigned>(literals.size()),
                      257, kLengthBases, kLengthExtras, &literalTable, &code.literalBits),
            1);
  ASSERT_LE(
      HuftBuild(blocks.chosen.get(), distances.data(), static_cast<unsigned>(distances.size()), 0,
                kDistanceBases, kDistanceExtras, &distanceTable, &code.distanceBits),
      1);
  code.literals = literalTable;
  code.distances = distanceTable;
  ASSERT_TRUE(fitsFastTables(code));
  blocks.anywhere->huftCount = blocks.chosen->huftCount;
  blocks.inBoth([&](ZipControlBlock& block) { makeFastTables(&block, code); });

  const ZipControlBlock& block = *blocks.chosen;
  while (block.inputPosition + kFastInput <= block.inputFill) {
    const FastResult result = inflateFast(blocks.chosen.get(), code);
    ASSERT_EQ(inflateFastAnywhere(blocks.anywhere.get(), code), result) << seed;
    ASSERT_TRUE(blocks.areAlike()) << seed << " at " << block.inputPosition;
    ++ends[static_cast<size_t>(result)];
    const unsigned skipped = result == FastResult::BadStream ? 1 : 0;
    const bool isFull = block.outputCount >= WSIZE - kFastOutput;
    const unsigned start = isFull ? WSIZE - block.windowStart : block.windowStart;
    blocks.inBoth([&](ZipControlBlock& each) {
      each.inputPosition += skipped;
      each.windowStart = start;
      each.outputCount = isFull ? 0 : each.outputCount;
    });
  }
  HuftFree(literalTable);
  HuftFree(distanceTable);
}

}  // namespace

TEST(InflateWays, RandomCodes) {
  std::array<unsigned, 3> ends = {};
  for (unsigned seed = 1; seed <= 60; ++seed) {
    inputs::Random random(seed);
    const Lengths literals = randomLengths(random, 257 + random.below(30));
    const Lengths distances = randomLengths(random, 2 + random.below(29));
    ASSERT_NO_FATAL_FAILURE(compareWays(seed, literals, distances, ends));
  }
  EXPECT_GT(ends[static_cast<size_t>(FastResult::Paused)], 0u);
  EXPECT_GT(ends[static_cast<size_t>(FastResult::EndOfBlock)], 0u);
}

// Two of the lengths and two of the distances are not in use.
TEST(InflateWays, TheFixedCodes) {
  std::array<unsigned, 3> ends = {};
  for (unsigned seed = 1; seed <= 10; ++seed) {
    ASSERT_NO_FATAL_FAILURE(compareWays(seed, fixedLengths(), Lengths(30, 5), ends));
  }
  EXPECT_GT(ends[static_cast<size_t>(FastResult::EndOfBlock)], 0u);
  EXPECT_GT(ends[static_cast<size_t>(FastResult::BadStream)], 0u);
}

// Long runs of literals are read in pairs.
TEST(InflateWays, CodesOfLiterals) {
  std::array<unsigned, 3> ends = {};
  for (unsigned seed = 1; seed <= 10; ++seed) {
    Lengths literals(257, 15);
    std::fill_n(literals.begin(), 15, 4u);
    std::fill_n(literals.begin() + 15, 241, 12u);
    literals[256] = 12;
    ASSERT_NO_FATAL_FAILURE(compareWays(seed, literals, Lengths(2, 1), ends));
  }
  EXPECT_GT(ends[static_cast<size_t>(FastResult::Paused)], 0u);
}
