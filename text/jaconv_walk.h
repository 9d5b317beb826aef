// What the converters share: how they read their source and write their target.
#ifndef ZQXML_TEXT_JACONV_WALK_H
#define ZQXML_TEXT_JACONV_WALK_H

#include <cstddef>
#include <cstdint>
#include <cstring>

// The rest of a source and of a target. NUL is never taken, whatever a byte before it promises.
struct Conversion {
  Conversion(const char* source, char* target)
      : in(reinterpret_cast<const unsigned char*>(source)), end(in + strlen(source)), out(target) {}

  bool atEnd() const { return in == end; }

  // The byte ahead; 0 at the end.
  unsigned char next() const { return *in; }

  unsigned char take() { return *in++; }

  void put(int byte) { *out++ = static_cast<char>(byte); }

  void put(int first, int second) {
    put(first);
    put(second);
  }

  // Copies the ASCII characters ahead, of which texts have long runs, in words of eight bytes.
  void copyAscii() {
    constexpr uint64_t kHighBits = 0x8080808080808080;
    uint64_t word;
    while (end - in >= static_cast<ptrdiff_t>(sizeof word)) {
      memcpy(&word, in, sizeof word);
      if ((word & kHighBits) != 0) {
        break;
      }
      memcpy(out, &word, sizeof word);
      in += sizeof word;
      out += sizeof word;
    }
    while (next() != 0 && next() < 0x80) {
      put(take());
    }
  }

  const unsigned char* in;
  const unsigned char* end;
  char* out;
};

// Runs a converter over a text and ends the target. `step` takes and puts at least one byte.
template <typename Step>
char* convert(const char* source, char* target, Step step) {
  if (source == nullptr || target == nullptr) {
    return target;
  }
  Conversion conversion(source, target);
  while (!conversion.atEnd()) {
    step(conversion);
  }
  conversion.put('\0');
  return target;
}

#endif
