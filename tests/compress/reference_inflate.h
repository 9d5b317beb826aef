// A decoder of RFC 1951 that reads bit by bit and knows nothing of tables, windows or buffers: the second opinion on what
// the library decodes.
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

struct Decoded {
  Verdict verdict = Verdict::Valid;
  Bytes data;                // what came out before the fault
  size_t bytesRead = 0;      // up to the end of the last byte that the stream touches
  bool wasFarAway = false;   // whether a distance pointed before the data; zeros stand there
};

// Decodes a deflate stream. Beyond the RFC it accepts, as the library does: a code of one symbol of one bit wherever it
// stands, and a repetition of the previous code length where there is none, which stands for 0.
Decoded inflate(const unsigned char* input, size_t length);

}  // namespace reference

#endif
