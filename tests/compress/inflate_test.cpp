// Streams that the library's own compressor never writes: of zlib, of other shapes, and broken
// ones.

#include <gtest/gtest.h>
#include <zlib.h>

#include <algorithm>
#include <functional>
#include <ostream>

#include "calls.h"
#include "inputs.h"
#include "reference_deflate.h"
#include "reference_inflate.h"
#include "stream_builder.h"

using calls::Bytes;
using inputs::Kind;

namespace {

constexpr int kChecksum = ZQ_MESSAGE_COMPRESS_CHECKSUM;
constexpr int kInvalid = ZQ_MESSAGE_COMPRESS_STREAM;

Bytes deflatedByZlib(const Bytes& data, int level, int strategy, int memoryLevel = 8) {
  z_stream stream = {};
  EXPECT_EQ(deflateInit2(&stream, level, Z_DEFLATED, -15, memoryLevel, strategy), Z_OK);
  Bytes out(deflateBound(&stream, data.size()) + 64);
  Bytes input = data;
  input.push_back(0);
  stream.next_in = input.data();
  stream.avail_in = static_cast<unsigned>(data.size());
  stream.next_out = out.data();
  stream.avail_out = static_cast<unsigned>(out.size());
  EXPECT_EQ(deflate(&stream, Z_FINISH), Z_STREAM_END);
  out.resize(stream.total_out);
  deflateEnd(&stream);
  return out;
}

Bytes inflatedByZlib(const Bytes& raw, size_t expectedLength) {
  z_stream stream = {};
  EXPECT_EQ(inflateInit2(&stream, -15), Z_OK);
  Bytes out(expectedLength + 1);
  Bytes input = raw;
  stream.next_in = input.data();
  stream.avail_in = static_cast<unsigned>(raw.size());
  stream.next_out = out.data();
  stream.avail_out = static_cast<unsigned>(out.size());
  EXPECT_EQ(inflate(&stream, Z_FINISH), Z_STREAM_END);
  EXPECT_EQ(stream.avail_in, 0u);
  out.resize(stream.total_out);
  inflateEnd(&stream);
  return out;
}

Bytes wrapFor(const Bytes& stream, const Bytes& data) {
  return calls::wrap(stream, static_cast<unsigned>(data.size()), reference::crc32(data));
}

// Decodes a stream by the library and by the plain decoder: both must tell the same.
void expectSameAsReference(const Bytes& stream, const std::string& what) {
  const reference::Decoded expected = reference::inflate(stream.data(), stream.size());
  Bytes used = stream;
  if (expected.verdict == reference::Verdict::Valid) {
    used.resize(expected.bytesRead);
  }
  const calls::Result result = calls::decompress(wrapFor(used, expected.data));
  switch (expected.verdict) {
    case reference::Verdict::Valid:
      ASSERT_EQ(result.status, 0) << what;
      ASSERT_TRUE(result.data == expected.data) << what;
      break;
    case reference::Verdict::Invalid:
      ASSERT_EQ(result.status, kInvalid) << what;
      break;
    case reference::Verdict::Truncated:
      ASSERT_TRUE(result.status >= ZQ_MESSAGE_COMPRESS_CHECKSUM && result.status <= kInvalid)
          << what << ": " << result.status;
      break;
  }
}

}  // namespace

TEST(Zlib, ReadsWhatTheLibraryWrites) {
  for (const inputs::Input& input : inputs::all()) {
    for (unsigned level = 1; level <= 9; ++level) {
      const Bytes stream = calls::streamOf(calls::compress(level, input.data).data);
      ASSERT_TRUE(inflatedByZlib(stream, input.data.size()) == input.data)
          << input.name << ", level " << level;
    }
  }
}

TEST(Zlib, ReadsTwentyMegabytes) {
  for (const Kind kind : {Kind::Text, Kind::Random}) {
    const Bytes data = inputs::make(kind, 20 << 20, 2);
    const Bytes stream = calls::streamOf(calls::compress(1, data).data);
    ASSERT_TRUE(inflatedByZlib(stream, data.size()) == data);
  }
}

TEST(Zlib, StreamsOfAllLevelsAndStrategiesAreRead) {
  for (const inputs::Input& input : inputs::some(70, 200000)) {
    for (int level = 0; level <= 9; ++level) {
      const Bytes stream = deflatedByZlib(input.data, level, Z_DEFAULT_STRATEGY);
      const calls::Result result = calls::decompress(wrapFor(stream, input.data));
      ASSERT_EQ(result.status, 0) << input.name << ", level " << level;
      ASSERT_TRUE(result.data == input.data) << input.name << ", level " << level;
    }
    for (const int strategy : {Z_FILTERED, Z_HUFFMAN_ONLY, Z_RLE, Z_FIXED}) {
      const Bytes stream = deflatedByZlib(input.data, 6, strategy, 1);
      const calls::Result result = calls::decompress(wrapFor(stream, input.data));
      ASSERT_EQ(result.status, 0) << input.name << ", strategy " << strategy;
      ASSERT_TRUE(result.data == input.data) << input.name << ", strategy " << strategy;
    }
  }
}

TEST(Zlib, TwentyMegabytesAreRead) {
  for (const Kind kind : {Kind::Text, Kind::Binary, Kind::Random, Kind::Base64}) {
    const Bytes data = inputs::make(kind, 20 << 20, 9);
    const calls::Result result =
        calls::decompress(wrapFor(deflatedByZlib(data, 1, Z_DEFAULT_STRATEGY), data));
    ASSERT_EQ(result.status, 0);
    ASSERT_TRUE(result.data == data);
  }
}

// Items of all lengths and distances at all places of the window, so that matches cross its middle
// and its end.
TEST(Inflate, RandomItemsOverSeveralWindows) {
  for (unsigned seed = 1; seed <= 60; ++seed) {
    inputs::Random random(seed);
    StreamBuilder stream;
    size_t length = 0;
    const unsigned literals = 1 + seed % 7;
    stream.block(false, 1);
    while (length < 200000) {
      if (random.below(literals) == 0 && length > 0) {
        unsigned limit = 32768;
        switch (random.below(4)) {
          case 0:
            limit = 20;
            break;
          case 1:
            limit = 1000;
            break;
          default:
            break;
        }
        limit = static_cast<unsigned>(std::min<size_t>(limit, length));
        // Half of the far ones are as far as they can be.
        const unsigned distance =
            random.below(2) == 0 ? 1 + random.below(limit) : limit - random.below(limit) / 100;
        const unsigned matchLength = random.below(8) == 0 ? 258 : 3 + random.below(256);
        stream.fixedMatch(matchLength, distance);
        length += matchLength;
      } else {
        stream.fixedSymbol(random.below(256));
        ++length;
      }
      if (random.below(3000) == 0) {
        stream.fixedEnd().stored(false, inputs::make(Kind::Random, random.below(40000), seed));
        stream.block(false, 1);
      }
    }
    stream.fixedEnd().stored(true, {});
    ASSERT_NO_FATAL_FAILURE(expectSameAsReference(stream.data(), "seed " + std::to_string(seed)));
  }
}

// Sources that begin before a border of the window and run into what is being written.
TEST(Inflate, MatchesAcrossTheBordersOfTheWindow) {
  for (const unsigned border : {32768u, 65536u, 98304u}) {
    const Bytes before = inputs::make(Kind::Random, border, border);
    for (const unsigned behind : {0u, 1u, 2u, 5u, 16u, 40u}) {
      for (const unsigned distance : {1u, 3u, 8u, 17u, 41u, 60u, 300u, 32768u}) {
        StreamBuilder stream;
        stream.stored(false, Bytes(before.begin(), before.begin() + border / 2));
        stream.stored(false, Bytes(before.begin() + border / 2, before.end()));
        stream.block(false, 1);
        for (unsigned i = 0; i < behind; ++i) {
          stream.fixedSymbol('a' + i);
        }
        stream.fixedMatch(258, distance).fixedMatch(20, distance).fixedEnd();
        stream.stored(true, inputs::make(Kind::Random, 100));
        ASSERT_NO_FATAL_FAILURE(expectSameAsReference(
            stream.data(), std::to_string(behind) + " " + std::to_string(distance)));
      }
    }
  }
}

// Every distance from every place of the first window; what lies before the data is zeros.
TEST(Inflate, FarDistancesGiveZeros) {
  for (const unsigned before : {0u, 1u, 100u, 32766u, 32767u, 32768u, 40000u}) {
    for (const unsigned distance : {1u, 2u, 7u, 101u, 20000u, 32767u, 32768u}) {
      StreamBuilder stream;
      stream.stored(false, inputs::make(Kind::Random, before, 4));
      stream.block(true, 1).fixedMatch(258, distance).fixedSymbol('x').fixedEnd();
      const reference::Decoded decoded =
          reference::inflate(stream.data().data(), stream.data().size());
      EXPECT_EQ(decoded.wasFarAway, distance > before);
      ASSERT_NO_FATAL_FAILURE(expectSameAsReference(
          stream.data(), std::to_string(before) + " " + std::to_string(distance)));
    }
  }
}

TEST(Inflate, MatchesRepeatThemselves) {
  for (unsigned distance = 1; distance <= 40; ++distance) {
    for (const unsigned length : {3u, 4u, 15u, 16u, 17u, 40u, 257u, 258u}) {
      StreamBuilder stream;
      stream.block(true, 1);
      for (unsigned i = 0; i < 40; ++i) {
        stream.fixedSymbol('a' + i);
      }
      stream.fixedMatch(length, distance).fixedEnd();
      ASSERT_NO_FATAL_FAILURE(expectSameAsReference(stream.data(), std::to_string(distance)));
    }
  }
}

// Each kind of block finds its own tables again behind the other kind.
TEST(Inflate, FixedAndDynamicBlocksInTurn) {
  StreamBuilder stream;
  const auto fixedBlock = [&stream](bool isLast) {
    stream.block(isLast, 1);
    for (unsigned i = 0; i < 200; ++i) {
      stream.fixedSymbol(i);
    }
    stream.fixedMatch(9, 100).fixedEnd();
  };
  for (int round = 0; round < 3; ++round) {
    fixedBlock(false);
    fixedBlock(false);
    // Code lengths 0, 1 and runs of zeros; literals 0 and END_BLOCK of one bit each.
    std::vector<unsigned> lengths(19, 0);
    lengths[18] = 1;
    lengths[0] = 2;
    lengths[1] = 2;
    stream.dynamic(false, 257, 1, lengths);
    stream.code(3, 2);                    // literal 0
    stream.code(0, 1).bits(138 - 11, 7);  // 1 to 138
    stream.code(0, 1).bits(117 - 11, 7);  // 139 to 255
    stream.code(3, 2).code(2, 2);         // END_BLOCK, no distance
    for (int i = 0; i < 400; ++i) {
      stream.code(0, 1);
    }
    stream.code(1, 1);
  }
  fixedBlock(true);
  const reference::Decoded decoded = reference::inflate(stream.data().data(), stream.data().size());
  ASSERT_EQ(decoded.verdict, reference::Verdict::Valid);
  EXPECT_EQ(decoded.data.size(), 7 * 209u + 3 * 400u);
  ASSERT_NO_FATAL_FAILURE(expectSameAsReference(stream.data(), ""));
}

// What comes before and behind decides whether the fast or the careful loop meets the case.
struct Case {
  const char* name;
  int status;
  std::function<void(StreamBuilder&)> build;
  const char* data;
};

void PrintTo(const Case& c, std::ostream* out) {
  *out << c.name;
}

class StreamCase : public testing::TestWithParam<Case> {};

namespace {

constexpr unsigned kLast = 1;

// Lengths of the two symbols 0 and 1 of the code length code, one bit each: code 0 stands for
// length 0, code 1 for 1.
const std::vector<unsigned> kZeroAndOne = {1, 1};

void zeros(StreamBuilder& stream, unsigned count) {
  for (unsigned i = 0; i < count; ++i) {
    stream.code(0, 1);
  }
}

const Case kCases[] = {
    {"StoredEmpty", 0, [](StreamBuilder& s) { s.stored(kLast, {}); }, ""},
    {"Stored", 0,
     [](StreamBuilder& s) {
       s.stored(kLast, {'a', 'b'});
     },
     "ab"},
    {"StoredBitsUpToTheByteAreIgnored", 0,
     [](StreamBuilder& s) {
       s.block(kLast, 0)
           .bits(0x1F, 5)     // padding, not zero
           .bits(1, 16)       // length
           .bits(0xFFFE, 16)  // complement
           .bits('a', 8);
     },
     "a"},
    {"StoredWrongComplement", kInvalid,
     [](StreamBuilder& s) {
       s.block(kLast, 0).toByteBoundary().bits(1, 16).bits(0xFFFF, 16).bits('a', 8);
     },
     ""},
    {"Kind3", kInvalid, [](StreamBuilder& s) { s.block(kLast, 3); }, ""},
    {"FixedEmpty", 0, [](StreamBuilder& s) { s.block(kLast, 1).fixedEnd(); }, ""},
    {"FixedAllKindsOfLiterals", 0,
     [](StreamBuilder& s) {
       s.block(kLast, 1).fixedSymbol('a').fixedSymbol(200).fixedSymbol('b').fixedEnd();
     },
     "a\310b"},
    {"FixedSymbol286", kInvalid,
     [](StreamBuilder& s) { s.block(kLast, 1).fixedSymbol('a').fixedSymbol(286).fixedEnd(); }, ""},
    {"FixedSymbol287", kInvalid,
     [](StreamBuilder& s) { s.block(kLast, 1).fixedSymbol('a').fixedSymbol(287).fixedEnd(); }, ""},
    {"FixedDistance30", kInvalid,
     [](StreamBuilder& s) {
       s.block(kLast, 1).fixedSymbol('a').fixedSymbol(257).code(30, 5).fixedEnd();
     },
     ""},
    {"FixedDistance31", kInvalid,
     [](StreamBuilder& s) {
       s.block(kLast, 1).fixedSymbol('a').fixedSymbol(257).code(31, 5).fixedEnd();
     },
     ""},
    {"Length257And258", 0,
     [](StreamBuilder& s) {
       s.block(kLast, 1).fixedSymbol('a');
       s.fixedSymbol(284).bits(30, 5).code(0, 5);  // 257 bytes from distance 1
       s.fixedSymbol(285).code(0, 5);              // 258 bytes
       s.fixedEnd();
     },
     nullptr},
    {"Length284With31Is258", 0,
     [](StreamBuilder& s) {
       s.block(kLast, 1).fixedSymbol('a').fixedSymbol(284).bits(31, 5).code(0, 5).fixedEnd();
     },
     nullptr},
    {"TooManyLiteralCodes", kInvalid,
     [](StreamBuilder& s) { s.dynamic(kLast, 287, 1, kZeroAndOne); }, ""},
    {"MostLiteralCodes", 0,
     [](StreamBuilder& s) {
       s.dynamic(kLast, 286, 1, kZeroAndOne);
       zeros(s, 256);
       s.code(1, 1);  // length 1 for END_BLOCK
       zeros(s, 28);
       s.code(1, 1);  // and for 285
       zeros(s, 1);   // no distance
       s.code(0, 1);  // END_BLOCK
     },
     ""},
    {"TooManyDistanceCodes", kInvalid,
     [](StreamBuilder& s) { s.dynamic(kLast, 257, 31, kZeroAndOne); }, ""},
    {"MostDistanceCodes", 0,
     [](StreamBuilder& s) {
       s.dynamic(kLast, 257, 30, kZeroAndOne);
       zeros(s, 255);
       s.code(1, 1).code(1, 1);  // literal 255 and END_BLOCK
       zeros(s, 28);
       s.code(1, 1).code(1, 1);  // distances 28 and 29
       s.code(0, 1).code(1, 1);  // literal 255, END_BLOCK
     },
     "\377"},
    {"NoCodeLengthCode", kInvalid,
     [](StreamBuilder& s) { s.dynamic(kLast, 257, 1, {}).bits(0, 32); }, ""},
    {"CodeLengthCodeOversubscribed", kInvalid,
     [](StreamBuilder& s) {
       s.dynamic(kLast, 257, 1, {1, 1, 1}).bits(0, 32);
     },
     ""},
    {"CodeLengthCodeIncomplete", kInvalid,
     [](StreamBuilder& s) {
       s.dynamic(kLast, 257, 1, {1, 2}).bits(0, 32);
     },
     ""},
    {"CodeLengthCodeOfOneSymbol", kInvalid,
     [](StreamBuilder& s) {
       s.dynamic(kLast, 257, 1, {0, 1});  // only length 1, code 0
       zeros(s, 258);                     // 257 literals of one bit are too many
     },
     ""},
    {"CodeLengthCodeOfOneSymbolOtherBit", kInvalid,
     [](StreamBuilder& s) { s.dynamic(kLast, 257, 1, {1}).code(1, 1).bits(0, 64); }, ""},
    {"RepeatWithoutPreviousIsZero", 0,
     [](StreamBuilder& s) {
       std::vector<unsigned> lengths(19, 0);
       lengths[0] = lengths[1] = 2;
       lengths[16] = lengths[18] = 2;  // codes: 0 is 00, 1 is 01, 16 is 10, 18 is 11
       s.dynamic(kLast, 257, 1, lengths);
       s.code(2, 2).bits(3, 2);         // 6 times the previous length, which is 0
       s.code(3, 2).bits(127, 7);       // 138 zeros
       s.code(3, 2).bits(111 - 11, 7);  // 111 zeros: 255 up to here
       s.code(1, 2).code(1, 2);         // literal 255 and END_BLOCK
       s.code(0, 2);                    // no distance
       s.code(0, 1).code(1, 1);         // literal 255, END_BLOCK
     },
     "\377"},
    {"RepeatGoesFromLiteralsToDistances", 0,
     [](StreamBuilder& s) {
       std::vector<unsigned> lengths(19, 0);
       lengths[1] = lengths[2] = 2;
       lengths[16] = lengths[18] = 2;  // codes: 1 is 00, 2 is 01, 16 is 10, 18 is 11
       s.dynamic(kLast, 257, 4, lengths);
       s.code(3, 2).bits(127, 7);       // 138 zeros
       s.code(3, 2).bits(115 - 11, 7);  // 115 zeros: 253 up to here
       s.code(1, 2).code(2, 2).bits(
           3, 2);                // 2, and 6 times more: literals 253 to 256, distances 0 to 2
       s.code(1, 2);             // distance 3
       s.code(2, 2).code(3, 2);  // literal 255, END_BLOCK
     },
     "\377"},
    {"RepeatPastTheTotal", kInvalid,
     [](StreamBuilder& s) {
       std::vector<unsigned> lengths(19, 0);
       lengths[0] = lengths[18] = 1;  // 0 is 0, 18 is 1
       s.dynamic(kLast, 257, 1, lengths);
       s.code(1, 1).bits(127, 7);       // 138
       s.code(1, 1).bits(121 - 11, 7);  // 121: one too many
     },
     ""},
    {"AllLengthsZero", kInvalid,
     [](StreamBuilder& s) {
       s.dynamic(kLast, 257, 1, kZeroAndOne);
       zeros(s, 258);
       s.bits(0, 32);
     },
     ""},
    {"LiteralCodeOversubscribed", kInvalid,
     [](StreamBuilder& s) {
       s.dynamic(kLast, 257, 1, kZeroAndOne);
       s.code(1, 1).code(1, 1);
       zeros(s, 254);
       s.code(1, 1);
       zeros(s, 1);
     },
     ""},
    {"LiteralCodeIncomplete", kInvalid,
     [](StreamBuilder& s) {
       s.dynamic(kLast, 257, 1, {2, 0, 1, 2});  // 2 is 0, 0 is 10, 3 is 11
       for (unsigned i = 0; i < 256; ++i) {
         s.code(2, 2);
       }
       s.code(0, 1).code(2, 2).bits(0, 32);
     },
     ""},
    {"LiteralCodeOfEndAlone", 0,
     [](StreamBuilder& s) {
       s.dynamic(kLast, 257, 1, kZeroAndOne);
       zeros(s, 256);
       s.code(1, 1);  // END_BLOCK of one bit
       zeros(s, 1);   // no distance
       s.code(0, 1);
     },
     ""},
    {"LiteralCodeOfEndAloneOtherBit", kInvalid,
     [](StreamBuilder& s) {
       s.dynamic(kLast, 257, 1, kZeroAndOne);
       zeros(s, 256);
       s.code(1, 1);
       zeros(s, 1);
       s.code(1, 1).bits(0, 32);
     },
     ""},
    {"DistanceCodeOfOneSymbol", 0,
     [](StreamBuilder& s) {
       // Lengths 0, 1 and 2 in the code length code: 2 is 0, 0 is 10, 1 is 11.
       s.dynamic(kLast, 258, 1, {2, 2, 1});
       for (unsigned i = 0; i < 97; ++i) {
         s.code(2, 2);
       }
       s.code(3, 2);  // literal 'a' of one bit
       for (unsigned i = 98; i < 256; ++i) {
         s.code(2, 2);
       }
       s.code(0, 1).code(0, 1);  // END_BLOCK and 257 of two bits
       s.code(3, 2);             // distance 1 of one bit
       s.code(0, 1);             // 'a'
       s.code(3, 2).code(0, 1);  // 3 bytes from distance 1
       s.code(2, 2);             // END_BLOCK
     },
     "aaaa"},
    {"DistanceCodeOfOneSymbolOtherBit", kInvalid,
     [](StreamBuilder& s) {
       s.dynamic(kLast, 258, 1, {2, 2, 1});
       for (unsigned i = 0; i < 97; ++i) {
         s.code(2, 2);
       }
       s.code(3, 2);
       for (unsigned i = 98; i < 256; ++i) {
         s.code(2, 2);
       }
       s.code(0, 1).code(0, 1).code(3, 2);
       s.code(0, 1);             // 'a'
       s.code(3, 2).code(1, 1);  // a distance that is not in the code
       s.bits(0, 32);
     },
     ""},
    {"DistanceCodeOfOneSymbolOfTwoBits", kInvalid,
     [](StreamBuilder& s) {
       s.dynamic(kLast, 258, 1, {2, 2, 1});
       for (unsigned i = 0; i < 97; ++i) {
         s.code(2, 2);
       }
       s.code(3, 2);
       for (unsigned i = 98; i < 256; ++i) {
         s.code(2, 2);
       }
       s.code(0, 1).code(0, 1);
       s.code(0, 1);  // distance 1 of two bits: incomplete
       s.bits(0, 32);
     },
     ""},
    {"MatchWithoutDistanceCode", kInvalid,
     [](StreamBuilder& s) {
       s.dynamic(kLast, 258, 1, {2, 2, 1});
       for (unsigned i = 0; i < 97; ++i) {
         s.code(2, 2);
       }
       s.code(3, 2);
       for (unsigned i = 98; i < 256; ++i) {
         s.code(2, 2);
       }
       s.code(0, 1).code(0, 1);
       s.code(2, 2);             // no distance
       s.code(0, 1).code(3, 2);  // 'a', then a match
       s.bits(0, 32);
     },
     ""},
    {"BlocksOfAllKinds", 0,
     [](StreamBuilder& s) {
       s.stored(false, {'a'}).block(false, 1).fixedSymbol('b').fixedEnd();
       s.dynamic(false, 257, 1, kZeroAndOne);
       zeros(s, 99);
       s.code(1, 1);  // 'c'
       zeros(s, 156);
       s.code(1, 1);
       zeros(s, 1);
       s.code(0, 1).code(1, 1);
       s.block(kLast, 1).fixedMatch(3, 3).fixedEnd();
     },
     "abcabc"},
};

}  // namespace

TEST_P(StreamCase, GivesItsStatus) {
  const Case& c = GetParam();
  StreamBuilder stream;
  c.build(stream);
  const reference::Decoded decoded = reference::inflate(stream.data().data(), stream.data().size());
  if (c.status == 0 && c.data != nullptr) {
    EXPECT_EQ(std::string(decoded.data.begin(), decoded.data.end()), c.data);
  }
  EXPECT_EQ(decoded.verdict == reference::Verdict::Valid, c.status == 0);
  const calls::Result result = calls::decompress(wrapFor(stream.data(), decoded.data));
  EXPECT_EQ(result.status, c.status);
  if (c.status == 0) {
    EXPECT_TRUE(result.data == decoded.data);
  }
}

// Bytes behind the trailer are ignored, and they let the fast loop meet the same fields.
TEST_P(StreamCase, GivesItsStatusWithBytesBehindTheTrailer) {
  const Case& c = GetParam();
  StreamBuilder stream;
  c.build(stream);
  const reference::Decoded decoded = reference::inflate(stream.data().data(), stream.data().size());
  Bytes container = wrapFor(stream.data(), decoded.data);
  container.insert(container.end(), 100, 0x5A);
  const calls::Result result = calls::decompress(container);
  EXPECT_EQ(result.status, c.status);
  if (c.status == 0) {
    EXPECT_TRUE(result.data == decoded.data);
  }
}

INSTANTIATE_TEST_SUITE_P(Streams, StreamCase, testing::ValuesIn(kCases),
                         [](const auto& stream) { return std::string(stream.param.name); });

TEST(Inflate, RandomBytesGiveWhatThePlainDecoderGives) {
  for (unsigned seed = 0; seed < 20000; ++seed) {
    inputs::Random random(seed);
    Bytes stream = inputs::make(Kind::Random, 40 + random.below(200), seed);
    // A dynamic block, or any block.
    if (seed % 2 == 0) {
      stream[0] = static_cast<unsigned char>((stream[0] & ~7u) | 5);
    }
    ASSERT_NO_FATAL_FAILURE(expectSameAsReference(stream, "seed " + std::to_string(seed)));
  }
}

// Random complete codes, so that dynamic blocks with codes of all lengths are met.
TEST(Inflate, DynamicBlocksWithRandomCodes) {
  for (unsigned seed = 1; seed <= 400; ++seed) {
    inputs::Random random(seed);
    // A complete code: start with one symbol of length 0 and split at random.
    const auto complete = [&random](unsigned symbols, unsigned limit) {
      std::vector<unsigned> lengths = {1, 1};
      while (lengths.size() < symbols) {
        const size_t place = random.below(4) == 0
                                 ? lengths.size() - 1
                                 : random.below(static_cast<uint32_t>(lengths.size()));
        if (lengths[place] < limit) {
          lengths.push_back(++lengths[place]);
        }
      }
      return lengths;
    };
    const unsigned literalCount = 257 + random.below(30);
    const unsigned distanceCount = 2 + random.below(29);
    std::vector<unsigned> literals = complete(literalCount, 15);
    for (size_t i = literals.size(); i > 1; --i) {
      std::swap(literals[i - 1], literals[random.below(static_cast<uint32_t>(i))]);
    }
    const std::vector<unsigned> distances = complete(distanceCount, 15);
    // Lengths are sent by 4 bits each: symbols 0 to 15.
    StreamBuilder stream;
    stream.stored(false, inputs::make(Kind::Text, 40000, seed));
    stream.dynamic(true, literalCount, distanceCount, std::vector<unsigned>(16, 4));
    for (const unsigned length : literals) {
      stream.code(length, 4);
    }
    for (const unsigned length : distances) {
      stream.code(length, 4);
    }
    const auto codesOf = [](const std::vector<unsigned>& lengths) {
      std::vector<unsigned> codes(lengths.size());
      unsigned code = 0;
      for (unsigned length = 1; length <= 15; ++length) {
        code *= 2;
        for (size_t i = 0; i < lengths.size(); ++i) {
          if (lengths[i] == length) {
            codes[i] = code++;
          }
        }
      }
      return codes;
    };
    const std::vector<unsigned> literalCodes = codesOf(literals);
    const std::vector<unsigned> distanceCodes = codesOf(distances);
    for (unsigned item = 0; item < 3000; ++item) {
      unsigned symbol = random.below(literalCount);
      if (symbol == 256) {
        continue;
      }
      stream.code(literalCodes[symbol], literals[symbol]);
      if (symbol > 256) {
        const unsigned extra = StreamBuilder::lengthExtra(symbol);
        stream.bits(random.below(1u << extra), extra);
        const unsigned distance = random.below(distanceCount);
        stream.code(distanceCodes[distance], distances[distance]);
        const unsigned distanceExtra = StreamBuilder::distanceExtra(distance);
        stream.bits(random.below(1u << distanceExtra), distanceExtra);
      }
    }
    stream.code(literalCodes[256], literals[256]);
    const reference::Decoded decoded =
        reference::inflate(stream.data().data(), stream.data().size());
    ASSERT_EQ(decoded.verdict, reference::Verdict::Valid) << seed;
    ASSERT_NO_FATAL_FAILURE(expectSameAsReference(stream.data(), std::to_string(seed)));
  }
}

TEST(Inflate, CutTrailersGive3004) {
  const Bytes data = inputs::make(Kind::Text, 5000);
  const Bytes container = calls::compress(6, data).data;
  for (size_t cut = 1; cut <= 4; ++cut) {
    const calls::Result result =
        calls::decompress(Bytes(container.begin(), container.end() - static_cast<long>(cut)));
    EXPECT_EQ(result.status, kChecksum) << cut;
    EXPECT_TRUE(result.data == data) << cut;
  }
}

TEST(Inflate, CutLastStoredBlockGives3004) {
  StreamBuilder stream;
  stream.stored(true, inputs::make(Kind::Random, 65535));
  const Bytes container = calls::wrap(stream.data(), 65535, 0);
  for (const size_t cut : {5u, 100u, 65535u + 4u}) {
    const calls::Result result =
        calls::decompress(Bytes(container.begin(), container.end() - static_cast<long>(cut)));
    EXPECT_EQ(result.status, kChecksum) << cut;
    EXPECT_EQ(result.data.size(), 65535u) << cut;
  }
}

// A fixed block goes on for ever on what is made up behind the end.
TEST(Inflate, MadeUpBytesComeToAnEnd) {
  StreamBuilder stream;
  stream.block(false, 1).fixedSymbol('a');
  Bytes container = {0x1F, 0x8C, 1, 0, 0xFF, 0xFF, 0xFF, 0xFF};
  container.insert(container.end(), stream.data().begin(), stream.data().end());
  for (const int error : {0, EIO}) {
    errno = error;
    const calls::Result result = calls::decompress(container);
    EXPECT_EQ(result.status, kInvalid);
    EXPECT_LT(result.data.size(), 70000u * 258);
  }
}

// Whole bytes that the last code didn't need are the trailer's.
TEST(Inflate, UnusedBytesGoBackToTheTrailer) {
  for (unsigned literals = 0; literals < 40; ++literals) {
    StreamBuilder stream;
    Bytes data;
    stream.block(true, 1);
    for (unsigned i = 0; i < literals; ++i) {
      const unsigned char literal = static_cast<unsigned char>(i % 3 == 0 ? 200 : 'a');
      stream.fixedSymbol(literal);
      data.push_back(literal);
    }
    stream.fixedEnd();
    const Bytes container = wrapFor(stream.data(), data);
    const calls::Result result = calls::decompress(container);
    EXPECT_EQ(result.status, 0) << literals;
    EXPECT_TRUE(result.data == data) << literals;
  }
}
