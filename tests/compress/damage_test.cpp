// Damaged containers: each call returns soon, with a status that is told or with the right data.

#include <gtest/gtest.h>

#include <ctime>

#include "calls.h"
#include "inputs.h"
#include "stream_builder.h"

using calls::Bytes;

namespace {

constexpr size_t kMaxMadeUpBytes = 70000;
constexpr size_t kMaxRatio = 1032;

// 3004 to 3006, or 0 and the right data.
void expectToldOutcome(const Bytes& container, const Bytes& data, const std::string& what) {
  // Of this process alone, whatever else the machine does.
  const std::clock_t start = std::clock();
  const calls::Result result = calls::decompress(container);
  const std::clock_t taken = std::clock() - start;
  if (result.status == 0) {
    ASSERT_TRUE(result.data == data) << what;
  } else {
    ASSERT_GE(result.status, ZQ_MESSAGE_COMPRESS_CHECKSUM) << what;
    ASSERT_LE(result.status, ZQ_MESSAGE_COMPRESS_STREAM) << what;
  }
  ASSERT_LE(result.data.size(), (container.size() + kMaxMadeUpBytes) * kMaxRatio) << what;
  ASSERT_LT(taken, 5 * CLOCKS_PER_SEC) << what;
}

void expectPrefixIsTold(const Bytes& container, size_t length, const inputs::Input& input) {
  const Bytes prefix(container.begin(), container.begin() + static_cast<long>(length));
  const std::string what = input.name + ", " + std::to_string(length);
  if (length < 8) {
    // Too short for a header: plain data.
    const calls::Result result = calls::decompress(prefix);
    ASSERT_EQ(result.status, 0) << what;
    ASSERT_EQ(result.data, prefix) << what;
    return;
  }
  // The byte that is missing may be the one that is made up for it.
  ASSERT_NO_FATAL_FAILURE(expectToldOutcome(prefix, input.data, what));
}

// Small inputs of all kinds and lengths.
std::vector<inputs::Input> smallInputs(size_t count) {
  std::vector<inputs::Input> list;
  for (size_t i = 0; i < count; ++i) {
    const inputs::Kind kind = inputs::kAllKinds[i % std::size(inputs::kAllKinds)];
    list.push_back({inputs::nameOf(kind), inputs::make(kind, 1 + i * 37 % 64, i)});
  }
  return list;
}

}  // namespace

TEST(Damage, AllPrefixesOfSmallContainers) {
  unsigned level = 0;
  for (const inputs::Input& input : smallInputs(200)) {
    const Bytes container = calls::compress(1 + level++ % 9, input.data).data;
    for (size_t length = 0; length < container.size(); ++length) {
      ASSERT_NO_FATAL_FAILURE(expectPrefixIsTold(container, length, input));
    }
  }
}

TEST(Damage, PrefixesOfLargeContainers) {
  for (const inputs::Input& input : inputs::some(60, 200000)) {
    const Bytes container = calls::compress(6, input.data).data;
    const size_t step = 1 + container.size() / 20;
    for (size_t length = 0;
         length<container.size(); length += container.size() - length> 8 ? step : 1) {
      ASSERT_NO_FATAL_FAILURE(expectPrefixIsTold(container, length, input));
    }
  }
}

TEST(Damage, SingleBits) {
  for (const inputs::Input& input : smallInputs(50)) {
    const Bytes container = calls::compress(6, input.data).data;
    for (size_t bit = 0; bit < container.size() * 8; ++bit) {
      Bytes damaged = container;
      damaged[bit / 8] = static_cast<unsigned char>(damaged[bit / 8] ^ 1u << bit % 8);
      const std::string what = input.name + ", bit " + std::to_string(bit);
      if (bit < 16) {
        // No magic: plain data.
        ASSERT_EQ(calls::decompress(damaged).data, damaged) << what;
      } else if (bit < 32) {
        ASSERT_EQ(calls::decompress(damaged).status, 0) << what;
      } else if (bit < 64) {
        ASSERT_EQ(calls::decompress(damaged).status, ZQ_MESSAGE_COMPRESS_LENGTH) << what;
      } else if (bit >= (container.size() - 4) * 8) {
        ASSERT_EQ(calls::decompress(damaged).status, ZQ_MESSAGE_COMPRESS_CHECKSUM) << what;
      } else {
        ASSERT_NO_FATAL_FAILURE(expectToldOutcome(damaged, input.data, what));
      }
    }
  }
}

TEST(Damage, RandomBytesInTheMiddle) {
  for (const inputs::Input& input : inputs::some(40, 140000)) {
    const Bytes container = calls::compress(6, input.data).data;
    for (unsigned seed = 0; seed < 25; ++seed) {
      inputs::Random random(seed);
      Bytes damaged = container;
      for (unsigned i = 0; i <= seed % 4; ++i) {
        damaged[8 + random.below(static_cast<uint32_t>(container.size() - 8))] =
            static_cast<unsigned char>(random.next());
      }
      ASSERT_NO_FATAL_FAILURE(
          expectToldOutcome(damaged, input.data, input.name + ", " + std::to_string(seed)));
    }
  }
}

// Ten bits each, so the tables of the fixed code can't be made for every one.
TEST(Damage, ManyEmptyBlocksTakeNoLongTime) {
  StreamBuilder stream;
  for (int i = 0; i < 800000; ++i) {
    stream.block(false, 1).fixedEnd();
  }
  stream.block(true, 1).fixedEnd();
  const std::clock_t start = std::clock();
  const calls::Result result = calls::decompress(calls::wrap(stream.data(), 0, 0));
  EXPECT_LT(std::clock() - start, 2 * CLOCKS_PER_SEC);
  EXPECT_EQ(result.status, 0);
  EXPECT_TRUE(result.data.empty());
}

// The densest stream there is, which then goes on behind the end of the input.
TEST(Damage, MadeUpBytesGiveBoundedOutput) {
  for (const unsigned first : {1u, 2u}) {
    StreamBuilder stream;
    // Code length code: 18 of one bit, 1 of two bits; literals 0 and 285 or 256 and 285, distances
    // 0 and 1.
    std::vector<unsigned> lengths(19, 0);
    lengths[18] = 1;
    lengths[1] = 2;
    lengths[0] = 2;
    stream.dynamic(false, 286, 2, lengths);
    if (first == 1) {
      stream.code(3, 2);                    // literal 0
      stream.code(0, 1).bits(138 - 11, 7);  // 1 to 138
      stream.code(0, 1).bits(138 - 11, 7);  // 139 to 276
      for (int i = 277; i < 285; ++i) {
        stream.code(2, 2);
      }
    } else {
      stream.code(0, 1).bits(138 - 11, 7);  // 0 to 137
      stream.code(0, 1).bits(118 - 11, 7);  // 138 to 255
      stream.code(3, 2);                    // END_BLOCK
      stream.code(0, 1).bits(28 - 11, 7);   // 257 to 284
    }
    stream.code(3, 2);             // 285
    stream.code(3, 2).code(3, 2);  // distances 0 and 1
    for (int i = 0; i < 64; ++i) {
      stream.code(1, 1).code(0, 1);
    }
    ASSERT_NO_FATAL_FAILURE(expectToldOutcome(calls::wrap(stream.data(), 0xFFFFFFFF, 0), {}, ""));
    ASSERT_NO_FATAL_FAILURE(expectToldOutcome(calls::wrap(stream.data(), 0, 0), {}, ""));
  }
}
