// CRC-32, in two ways.
//
// Slicing: sixteen tables tell what a byte does to the register 0 to 15 bytes later, so that
// sixteen bytes are taken in one step.
//
// Carry-less multiplication: bytes are the coefficients of a polynomial, and a CRC is its
// remainder. 16 bytes that lie `d` bits ahead of others can be replaced by their product with x^d
// mod P, added to those others; a multiplication of 64 by 32 bits fits into 128. So four lanes of
// 16 bytes are folded 512 bits further on in each step, then into one lane, and what is left is a
// message of 16 bytes with the same remainder. (V. Gopal et al., "Fast CRC Computation for Generic
// Polynomials Using PCLMULQDQ Instruction", 2009.)

#include "compress/crc32.h"

#include <array>
#include <bit>
#include <cstring>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace {

constexpr uint32_t kPolynomial = 0xEDB88320;
constexpr size_t kSlices = 16;

using Tables = std::array<std::array<uint32_t, 256>, kSlices>;

constexpr Tables kTables = [] {
  Tables tables = {};
  for (uint32_t byte = 0; byte < 256; ++byte) {
    uint32_t value = byte;
    for (int bit = 0; bit < 8; ++bit) {
      value = (value >> 1) ^ ((value & 1) != 0 ? kPolynomial : 0);
    }
    tables[0][byte] = value;
  }
  for (size_t slice = 1; slice < kSlices; ++slice) {
    for (size_t byte = 0; byte < 256; ++byte) {
      const uint32_t before = tables[slice - 1][byte];
      tables[slice][byte] = (before >> 8) ^ tables[0][before & 0xFF];
    }
  }
  return tables;
}();
static_assert(kTables[0][1] == 0x77073096 && kTables[0][255] == 0x2D02EF8D);

uint32_t load32(const unsigned char* bytes) {
  uint32_t word;
  memcpy(&word, bytes, sizeof word);
  if constexpr (std::endian::native == std::endian::big) {
    word = __builtin_bswap32(word);
  }
  return word;
}

// What four bytes do that are followed by `behind` more bytes of the step.
uint32_t slice(uint32_t word, size_t behind) {
  return kTables[behind + 3][word & 0xFF] ^ kTables[behind + 2][(word >> 8) & 0xFF] ^
         kTables[behind + 1][(word >> 16) & 0xFF] ^ kTables[behind][word >> 24];
}

using Function = uint32_t (*)(uint32_t, const unsigned char*, size_t);

Function fastestCrc32() {
  return hasCarrylessMultiplication() ? updateCrc32Carryless : updateCrc32Slicing;
}

}  // namespace

uint32_t updateCrc32Slicing(uint32_t value, const unsigned char* bytes, size_t count) {
  for (; count >= kSlices; count -= kSlices, bytes += kSlices) {
    value = slice(value ^ load32(bytes), 12) ^ slice(load32(bytes + 4), 8) ^
            slice(load32(bytes + 8), 4) ^ slice(load32(bytes + 12), 0);
  }
  for (; count > 0; --count, ++bytes) {
    value = (value >> 8) ^ kTables[0][(value ^ *bytes) & 0xFF];
  }
  return value;
}

uint32_t updateCrc32(uint32_t value, const unsigned char* bytes, size_t count) {
  static const Function function = fastestCrc32();
  return function(value, bytes, count);
}

#if defined(__x86_64__)

namespace {

// x^exponent mod P as a factor of carry-less multiplication: reflected, and shifted by one since
// the product of two reflected numbers of 64 bits comes out one bit too low.
constexpr uint64_t powerOfX(unsigned exponent) {
  uint32_t value = uint32_t{1} << 31;
  for (; exponent > 0; --exponent) {
    value = (value >> 1) ^ ((value & 1) != 0 ? kPolynomial : 0);
  }
  return uint64_t{value} << 1;
}
static_assert(powerOfX(4 * 128 + 32) == 0x154442BD4 && powerOfX(4 * 128 - 32) == 0x1C6E41596);
static_assert(powerOfX(128 + 32) == 0x1751997D0 && powerOfX(128 - 32) == 0x0CCAA009E);

constexpr size_t kLane = 16;
constexpr size_t kLanes = 4;
constexpr size_t kStep = kLane * kLanes;

#define ZQXML_CARRYLESS __attribute__((target("pclmul,sse4.1")))

ZQXML_CARRYLESS __m128i loadLane(const unsigned char* bytes) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
}

// Moves a lane ahead by the distance of `factors` and adds what stands there.
ZQXML_CARRYLESS __m128i fold(__m128i lane, __m128i factors, __m128i there) {
  const __m128i low = _mm_clmulepi64_si128(lane, factors, 0x00);
  const __m128i high = _mm_clmulepi64_si128(lane, factors, 0x11);
  return _mm_xor_si128(_mm_xor_si128(low, high), there);
}

ZQXML_CARRYLESS __m128i factorsFor(unsigned distance) {
  return _mm_set_epi64x(static_cast<int64_t>(powerOfX(distance - 32)),
                        static_cast<int64_t>(powerOfX(distance + 32)));
}

}  // namespace

bool hasCarrylessMultiplication() {
  return __builtin_cpu_supports("pclmul") != 0 && __builtin_cpu_supports("sse4.1") != 0;
}

ZQXML_CARRYLESS uint32_t updateCrc32Carryless(uint32_t value, const unsigned char* bytes,
                                              size_t count) {
  if (count < 2 * kStep) {
    return updateCrc32Slicing(value, bytes, count);
  }
  __m128i lanes[kLanes];
  for (size_t i = 0; i < kLanes; ++i) {
    lanes[i] = loadLane(bytes + i * kLane);
  }
  lanes[0] = _mm_xor_si128(lanes[0], _mm_cvtsi32_si128(static_cast<int>(value)));
  bytes += kStep;
  count -= kStep;
  const __m128i farFactors = factorsFor(8 * kStep);
  for (; count >= kStep; count -= kStep, bytes += kStep) {
    for (size_t i = 0; i < kLanes; ++i) {
      lanes[i] = fold(lanes[i], farFactors, loadLane(bytes + i * kLane));
    }
  }
  const __m128i nearFactors = factorsFor(8 * kLane);
  __m128i rest = lanes[0];
  for (size_t i = 1; i < kLanes; ++i) {
    rest = fold(rest, nearFactors, lanes[i]);
  }
  for (; count >= kLane; count -= kLane, bytes += kLane) {
    rest = fold(rest, nearFactors, loadLane(bytes));
  }
  unsigned char left[kLane];
  _mm_storeu_si128(reinterpret_cast<__m128i*>(left), rest);
  return updateCrc32Slicing(updateCrc32Slicing(0, left, kLane), bytes, count);
}

#else

bool hasCarrylessMultiplication() {
  return false;
}

uint32_t updateCrc32Carryless(uint32_t value, const unsigned char* bytes, size_t count) {
  return updateCrc32Slicing(value, bytes, count);
}

#endif
