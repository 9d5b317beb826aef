// A decoder of RFC 1951 that reads bit by bit and knows nothing of tables, windows or buffers: the
// second opinion on what the library decodes.
#ifndef ZQXML_TESTS_COMPRESS_REFERENCE_INFLATE_H
#define ZQXML_TESTS_COMPRESS_REFERENCE_INFLATE_H

#include <cstddef>
#include <vector>

namespace reference {

using Bytes = std::vector<unsigned char>;

enum class Verdict {
  Valid,
  Invalid,    // the stream breaks a rule
  Truncated,  // the stream goes on behind the end of the input
};

struct Item {
  unsigned distance;  // 0 for a literal
  unsigned value;     // literal, or length of the match
  bool operator==(const Item&) const = default;
};

struct Block {
  unsigned kind;             // 0 stored, 1 fixed, 2 dynamic
  std::vector<Item> items;   // not of stored blocks
  unsigned longestCode = 0;  // of literals, lengths and distances of a dynamic block
  unsigned longestLengthCode = 0;
  unsigned distanceCodes = 0;
};

struct Decoded {
  Verdict verdict = Verdict::Valid;
  Bytes data;               // what came out before the fault
  size_t bytesRead = 0;     // up to the end of the last byte that the stream touches
  bool wasFarAway = false;  // whether a distance pointed before the data; zeros stand there
  std::vector<Block> blocks;

  std::vector<Item> items() const;  // of all blocks
};

// Decodes a deflate stream. Beyond the RFC it accepts, as the library does: a code of one symbol of
// one bit wherever it stands, and a repetition of the previous code length where there is none,
// which stands for 0.
Decoded inflate(const unsigned char* input, size_t length);

}  // namespace reference

#endif
