// Data to compress: the same on every run and every machine.
#ifndef ZQXML_TESTS_COMPRESS_INPUTS_H
#define ZQXML_TESTS_COMPRESS_INPUTS_H

#include <cstdint>
#include <string>
#include <vector>

namespace inputs {

using Bytes = std::vector<unsigned char>;

struct Input {
  std::string name;
  Bytes data;
};

// A generator of numbers that is the same everywhere (Marsaglia's xorshift64*).
class Random {
 public:
  explicit Random(uint64_t seed) : state(seed * 2 + 1) {}

  uint32_t next() {
    state ^= state >> 12;
    state ^= state << 25;
    state ^= state >> 27;
    return static_cast<uint32_t>((state * 0x2545F4914F6CDD1D) >> 32);
  }

  // From 0 to limit - 1.
  uint32_t below(uint32_t limit) { return static_cast<uint32_t>((uint64_t{next()} * limit) >> 32); }

 private:
  uint64_t state;
};

enum class Kind { Text, Source, Xml, Binary, Random, Base64 };
inline constexpr Kind kAllKinds[] = {Kind::Text,   Kind::Source, Kind::Xml,
                                     Kind::Binary, Kind::Random, Kind::Base64};

std::string nameOf(Kind kind);

Bytes make(Kind kind, size_t length, uint64_t seed = 1);

// `length` bytes that repeat the first `period` ones, which are random.
Bytes periodic(size_t length, size_t period);

// Bytes of which each value is about `ratio` times as frequent as the next one.
Bytes skewed(size_t length, double ratio, unsigned values);

// Every value `i` occurs as often as the Fibonacci number `i` says, which makes the deepest of
// trees.
Bytes fibonacci(unsigned values);

// Runs of zeros of up to `longest` bytes, with single small bytes between them.
Bytes runs(size_t length, unsigned longest);

// Strings of four bytes with one and the same hash, on a little-endian machine.
Bytes collisions(size_t length);

// More than 200 inputs of up to 131,073 bytes, of all kinds.
const std::vector<Input>& all();

// Those of `all()` that are shorter than `limit`, at most `count`, spread over the kinds.
std::vector<Input> some(size_t count, size_t limit);

}  // namespace inputs

#endif
