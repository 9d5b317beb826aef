#include "compress/crc32.h"

#include <gtest/gtest.h>

#include <cstring>

#include "inputs.h"
#include "reference_deflate.h"
#include "zqxml/compress_inner.h"

namespace {

using Function = uint32_t (*)(uint32_t, const unsigned char*, size_t);

const struct {
  const char* name;
  Function function;
} kWays[] = {
    {"chosen", updateCrc32}, {"slicing", updateCrc32Slicing}, {"carryless", updateCrc32Carryless}};

}  // namespace

TEST(Crc32, KnownValues) {
  const auto* digits = reinterpret_cast<const unsigned char*>("123456789");
  const std::vector<unsigned char> zeros(32, 0);
  for (const auto& way : kWays) {
    if (way.function == updateCrc32Carryless && !hasCarrylessMultiplication()) {
      continue;
    }
    EXPECT_EQ(~way.function(~0u, digits, 9), 0xCBF43926u) << way.name;
    EXPECT_EQ(~way.function(~0u, zeros.data(), zeros.size()), 0x190A55ADu) << way.name;
    EXPECT_EQ(~way.function(~0u, digits, 0), 0u) << way.name;
  }
}

TEST(Crc32, AllWaysAgreeAtAllLengthsAndAlignments) {
  const inputs::Bytes data = inputs::make(inputs::Kind::Random, 1200);
  for (size_t offset = 0; offset < 32; ++offset) {
    for (size_t length = 0; length <= 1100; ++length) {
      const unsigned char* bytes = data.data() + offset;
      const uint32_t start = static_cast<uint32_t>(0x9E3779B9u * (length + 1));
      const uint32_t expected = updateCrc32Slicing(start, bytes, length);
      ASSERT_EQ(updateCrc32(start, bytes, length), expected) << offset << " " << length;
      if (hasCarrylessMultiplication()) {
        ASSERT_EQ(updateCrc32Carryless(start, bytes, length), expected) << offset << " " << length;
      }
    }
  }
}

TEST(Crc32, SlicingAgreesWithSingleBits) {
  for (size_t length = 0; length < 200; ++length) {
    const inputs::Bytes data = inputs::make(inputs::Kind::Random, length, length);
    ASSERT_EQ(~updateCrc32Slicing(~0u, data.data(), length), reference::crc32(data)) << length;
  }
}

TEST(Crc32, PiecesGiveTheWhole) {
  const inputs::Bytes data = inputs::make(inputs::Kind::Random, 5000);
  const uint32_t whole = updateCrc32(~0u, data.data(), data.size());
  for (size_t cut = 0; cut <= data.size(); cut += 7) {
    const uint32_t first = updateCrc32(~0u, data.data(), cut);
    ASSERT_EQ(updateCrc32(first, data.data() + cut, data.size() - cut), whole) << cut;
  }
}

TEST(Crc32, NullStartsTheRegister) {
  const auto block = std::make_unique<ZipControlBlock>();
  InitZipControlBlock(block.get());
  const auto* digits = reinterpret_cast<const unsigned char*>("123456789");
  EXPECT_EQ(UpdateCRC(block.get(), digits, 4), 0x9BE3E0A3u);
  EXPECT_EQ(UpdateCRC(block.get(), digits + 4, 5), 0xCBF43926u);
  EXPECT_EQ(UpdateCRC(block.get(), nullptr, 9), 0u);
  EXPECT_EQ(block->crcRegister, 0xFFFFFFFFu);
  EXPECT_EQ(UpdateCRC(block.get(), digits, 9), 0xCBF43926u);
}
