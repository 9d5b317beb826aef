// Base64 by tables, and with 32 characters at a time.

#include "text/base64_ways.h"

#include <array>
#include <cstdint>
#include <cstring>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

constexpr char EncodeBase64Table[64] = {
    'A', 'B', 'C', 'D', 'E', 'F', 'G', 'H', 'I', 'J', 'K', 'L', 'M', 'N', 'O', 'P',
    'Q', 'R', 'S', 'T', 'U', 'V', 'W', 'X', 'Y', 'Z', 'a', 'b', 'c', 'd', 'e', 'f',
    'g', 'h', 'i', 'j', 'k', 'l', 'm', 'n', 'o', 'p', 'q', 'r', 's', 't', 'u', 'v',
    'w', 'x', 'y', 'z', '0', '1', '2', '3', '4', '5', '6', '7', '8', '9', '+', '/'};

const unsigned char DecodeBase64Table[128] = {
    255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255,  //
    255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255,  //
    255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 255, 62,  255, 255, 255, 63,   //
    52,  53,  54,  55,  56,  57,  58,  59,  60,  61,  255, 255, 255, 255, 255, 255,  //
    255, 0,   1,   2,   3,   4,   5,   6,   7,   8,   9,   10,  11,  12,  13,  14,   //
    15,  16,  17,  18,  19,  20,  21,  22,  23,  24,  25,  255, 255, 255, 255, 255,  //
    255, 26,  27,  28,  29,  30,  31,  32,  33,  34,  35,  36,  37,  38,  39,  40,   //
    41,  42,  43,  44,  45,  46,  47,  48,  49,  50,  51,  255, 255, 255, 255, 255};

namespace {

constexpr size_t kLineBytes = 57;
constexpr unsigned kValues = 64;

// The two characters of each twelve bits.
using Pairs = std::array<std::array<char, 2>, 4096>;
constexpr Pairs kPairs = [] {
  Pairs pairs = {};
  for (size_t bits = 0; bits < pairs.size(); ++bits) {
    pairs[bits] = {EncodeBase64Table[bits >> 6], EncodeBase64Table[bits & 63]};
  }
  return pairs;
}();

int valueOf(unsigned char character) {
  return character < sizeof DecodeBase64Table ? DecodeBase64Table[character] : 255;
}

void putPair(unsigned bits, char* target) {
  memcpy(target, kPairs[bits].data(), 2);
}

char* encodeLine(const unsigned char* bytes, size_t length, char* target) {
  for (; length >= 3; length -= 3, bytes += 3, target += 4) {
    const unsigned group = static_cast<unsigned>(bytes[0] << 16 | bytes[1] << 8 | bytes[2]);
    putPair(group >> 12, target);
    putPair(group & 0xFFF, target + 2);
  }
  if (length > 0) {
    const unsigned second = length == 2 ? bytes[1] : 0;
    const unsigned group = static_cast<unsigned>(bytes[0]) << 16 | second << 8;
    putPair(group >> 12, target);
    putPair(group & 0xFFF, target + 2);
    target[3] = '=';
    if (length == 1) {
      target[2] = '=';
    }
    target += 4;
  }
  *target++ = '\n';
  return target;
}

char* encodeByTable(const unsigned char* bytes, size_t length, char* target) {
  while (length > 0) {
    const size_t count = length < kLineBytes ? length : kLineBytes;
    target = encodeLine(bytes, count, target);
    bytes += count;
    length -= count;
  }
  return target;
}

// The rest of a text and of a target.
struct Decoder {
  Decoder(const char* text, size_t length, unsigned char* target)
      : in(reinterpret_cast<const unsigned char*>(text)), end(in + length), out(target) {}

  // Four characters at a time, up to the first one that has no value.
  void takeWholeGroups() {
    while (end - in >= 4) {
      const auto a = static_cast<unsigned>(valueOf(in[0]));
      const auto b = static_cast<unsigned>(valueOf(in[1]));
      const auto c = static_cast<unsigned>(valueOf(in[2]));
      const auto d = static_cast<unsigned>(valueOf(in[3]));
      if ((a | b | c | d) >= kValues) {
        return;
      }
      in += 4;
      put(a << 18 | b << 12 | c << 6 | d, 3);
    }
  }

  // The next four values, whatever stands between them, or those that are left.
  void takeGroup() {
    unsigned bits = 0;
    int count = 0;
    while (in != end && count < 4) {
      const auto value = static_cast<unsigned>(valueOf(*in++));
      if (value < kValues) {
        bits |= value << (18 - 6 * count);
        ++count;
      }
    }
    put(bits, count - 1);
  }

  void skipOthers() {
    while (in != end && valueOf(*in) == 255) {
      ++in;
    }
  }

  void put(unsigned bits, int count) {
    for (; count > 0; --count, bits <<= 8) {
      *out++ = static_cast<unsigned char>(bits >> 16);
    }
  }

  unsigned char* takeRest() {
    while (in != end) {
      takeWholeGroups();
      takeGroup();
    }
    return out;
  }

  const unsigned char* in;
  const unsigned char* end;
  unsigned char* out;
};

unsigned char* decodeByTable(const char* text, size_t length, unsigned char* target) {
  return Decoder(text, length, target).takeRest();
}

}  // namespace

const Base64Way portableBase64 = {encodeByTable, decodeByTable};

const Base64Way& base64Way() {
  static const Base64Way* const fast = avx2Base64();
  return fast == nullptr ? portableBase64 : *fast;
}

#if defined(__x86_64__)

namespace {

#define ZQXML_AVX2 __attribute__((target("avx2")))

// Both lanes of a register with the same 16 bytes.
template <typename... Bytes>
ZQXML_AVX2 __m256i twice(Bytes... bytes) {
  return _mm256_broadcastsi128_si256(_mm_setr_epi8(static_cast<char>(bytes)...));
}

// 24 bytes to 32 characters. Reads 28 bytes. (W. Mula, D. Lemire, "Faster Base64 Encoding and
// Decoding Using AVX2 Instructions", 2018.)
ZQXML_AVX2 void encodeStep(const unsigned char* bytes, char* target) {
  const __m256i input = _mm256_inserti128_si256(
      _mm256_castsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes))),
      _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes + 12)), 1);
  // Three bytes in each word of 32 bits, in the order 1 0 2 1, so that multiplication can move each
  // six bits to a byte of their own.
  const __m256i words =
      _mm256_shuffle_epi8(input, twice(1, 0, 2, 1, 4, 3, 5, 4, 7, 6, 8, 7, 10, 9, 11, 10));
  const __m256i evenBits = _mm256_mulhi_epu16(
      _mm256_and_si256(words, _mm256_set1_epi32(0x0FC0FC00)), _mm256_set1_epi32(0x04000040));
  const __m256i oddBits = _mm256_mullo_epi16(_mm256_and_si256(words, _mm256_set1_epi32(0x003F03F0)),
                                             _mm256_set1_epi32(0x01000010));
  const __m256i values = _mm256_or_si256(evenBits, oddBits);
  // The kind of character: 13 for A to Z, 0 for a to z, 1 to 10 for digits, 11 and 12 for the rest.
  const __m256i isCapital = _mm256_cmpgt_epi8(_mm256_set1_epi8(26), values);
  const __m256i kinds = _mm256_or_si256(_mm256_subs_epu8(values, _mm256_set1_epi8(51)),
                                        _mm256_and_si256(isCapital, _mm256_set1_epi8(13)));
  const __m256i distances = _mm256_shuffle_epi8(
      twice('a' - 26, '0' - 52, '0' - 52, '0' - 52, '0' - 52, '0' - 52, '0' - 52, '0' - 52,
            '0' - 52, '0' - 52, '0' - 52, '+' - 62, '/' - 63, 'A', 0, 0),
      kinds);
  _mm256_storeu_si256(reinterpret_cast<__m256i*>(target), _mm256_add_epi8(values, distances));
}

ZQXML_AVX2 char* encodeByAvx2(const unsigned char* bytes, size_t length, char* target) {
  constexpr size_t kStepBytes = 24;
  constexpr size_t kStepCharacters = 32;
  constexpr size_t kLineCharacters = 76;
  // Three steps read and write beyond a line; what follows it has to be long enough for that.
  constexpr size_t kRead = 2 * kStepBytes + 28;
  for (; length >= kRead; length -= kLineBytes, bytes += kLineBytes) {
    encodeStep(bytes, target);
    encodeStep(bytes + kStepBytes, target + kStepCharacters);
    encodeStep(bytes + 2 * kStepBytes, target + 2 * kStepCharacters);
    target[kLineCharacters] = '\n';
    target += kLineCharacters + 1;
  }
  _mm256_zeroupper();
  return encodeByTable(bytes, length, target);
}

// 32 characters to 24 bytes, and returns a bit for each character that has no value. Writes 32
// bytes. By the same authors.
ZQXML_AVX2 unsigned decodeStep(const unsigned char* text, unsigned char* target) {
  const __m256i input = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(text));
  const __m256i slash = _mm256_set1_epi8('/');
  const __m256i high = _mm256_and_si256(_mm256_srli_epi32(input, 4), slash);
  const __m256i low = _mm256_and_si256(input, slash);
  // A character has a value if what its high and its low half stand for have no bit in common.
  const __m256i faults =
      _mm256_and_si256(_mm256_shuffle_epi8(twice(0x10, 0x10, 0x01, 0x02, 0x04, 0x08, 0x04, 0x08,
                                                 0x10, 0x10, 0x10, 0x10, 0x10, 0x10, 0x10, 0x10),
                                           high),
                       _mm256_shuffle_epi8(twice(0x15, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11,
                                                 0x11, 0x11, 0x13, 0x1A, 0x1B, 0x1B, 0x1B, 0x1A),
                                           low));
  const __m256i isSlash = _mm256_cmpeq_epi8(input, slash);
  const __m256i distances = _mm256_shuffle_epi8(twice(0, 63 - '/', 62 - '+', 52 - '0', -'A', -'A',
                                                      26 - 'a', 26 - 'a', 0, 0, 0, 0, 0, 0, 0, 0),
                                                _mm256_add_epi8(isSlash, high));
  const __m256i values = _mm256_add_epi8(input, distances);
  const __m256i pairs = _mm256_maddubs_epi16(values, _mm256_set1_epi32(0x01400140));
  const __m256i groups = _mm256_madd_epi16(pairs, _mm256_set1_epi32(0x00011000));
  const __m256i bytes =
      _mm256_shuffle_epi8(groups, twice(2, 1, 0, 6, 5, 4, 10, 9, 8, 14, 13, 12, -1, -1, -1, -1));
  _mm256_storeu_si256(
      reinterpret_cast<__m256i*>(target),
      _mm256_permutevar8x32_epi32(bytes, _mm256_setr_epi32(0, 1, 2, 4, 5, 6, 3, 7)));
  const __m256i isFit = _mm256_cmpeq_epi8(faults, _mm256_setzero_si256());
  return ~static_cast<unsigned>(_mm256_movemask_epi8(isFit));
}

ZQXML_AVX2 unsigned char* decodeByAvx2(const char* text, size_t length, unsigned char* target) {
  constexpr int kStep = 32;
  // The least number of characters that have room for the 32 bytes that a step writes.
  constexpr ptrdiff_t kLeast = 44;
  Decoder rest(text, length, target);
  while (rest.end - rest.in >= kLeast) {
    const unsigned others = decodeStep(rest.in, rest.out);
    const int fit = others == 0 ? kStep : __builtin_ctz(others);
    const ptrdiff_t groups = fit / 4;
    rest.in += groups * 4;
    rest.out += groups * 3;
    if (fit == kStep) {
      continue;
    }
    if (fit % 4 == 0) {
      rest.skipOthers();
    } else {
      rest.takeGroup();
    }
  }
  _mm256_zeroupper();
  return rest.takeRest();
}

constexpr Base64Way kAvx2 = {encodeByAvx2, decodeByAvx2};

}  // namespace

const Base64Way* avx2Base64() {
  return __builtin_cpu_supports("avx2") != 0 ? &kAvx2 : nullptr;
}

#else

const Base64Way* avx2Base64() {
  return nullptr;
}

#endif
