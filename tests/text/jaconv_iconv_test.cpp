// Every character of each converter against iconv of the C library, as a second opinion. What is
// different is listed.

#include <gtest/gtest.h>
#include <iconv.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "zqxml/zqxml.h"

namespace {

using Converter = char* (*)(const char*, char*);

class Iconv {
 public:
  Iconv(const char* to, const char* from) : converter(iconv_open(to, from)) {
    EXPECT_NE(converter, reinterpret_cast<iconv_t>(-1)) << to << " " << from;
  }
  ~Iconv() { iconv_close(converter); }
  Iconv(const Iconv&) = delete;
  Iconv& operator=(const Iconv&) = delete;

  // Empty if it doesn't know the character.
  std::string operator()(std::string text) const {
    char target[64];
    char* in = text.data();
    size_t inLeft = text.size();
    char* out = target;
    size_t outLeft = sizeof target;
    iconv(converter, nullptr, nullptr, nullptr, nullptr);
    if (iconv(converter, &in, &inLeft, &out, &outLeft) != 0 || inLeft != 0) {
      return "";
    }
    iconv(converter, nullptr, nullptr, &out, &outLeft);
    return {target, sizeof target - outLeft};
  }

 private:
  iconv_t converter;
};

std::string ours(Converter converter, const std::string& text) {
  char target[64];
  return converter(text.c_str(), target);
}

std::string hex(const std::string& text) {
  std::string result;
  char byte[3];
  for (const char c : text) {
    snprintf(byte, sizeof byte, "%02X", static_cast<unsigned char>(c));
    result += byte;
  }
  return result;
}

// All pairs of a lead and a trail byte behind a prefix.
std::vector<std::string> pairs(int firstLead, int lastLead, int firstTrail, int lastTrail,
                               const std::string& prefix = "") {
  std::vector<std::string> result;
  for (int lead = firstLead; lead <= lastLead; ++lead) {
    for (int trail = firstTrail; trail <= lastTrail; ++trail) {
      result.push_back(prefix + static_cast<char>(lead) + static_cast<char>(trail));
    }
  }
  return result;
}

std::vector<std::string> bytes(int first, int last) {
  std::vector<std::string> result;
  for (int byte = first; byte <= last; ++byte) {
    result.emplace_back(1, static_cast<char>(byte));
  }
  return result;
}

using Differences = std::map<std::string, std::string>;  // source, our target; in hex

// Compares, and returns how many characters both know.
int compare(const std::vector<std::string>& characters, Converter converter, const Iconv& peer,
            const Differences& differences = {}) {
  int known = 0;
  std::set<std::string> met;
  for (const std::string& character : characters) {
    const std::string expected = hex(peer(character));
    if (expected.empty()) {
      continue;
    }
    ++known;
    const std::string source = hex(character);
    const auto told = differences.find(source);
    const std::string got = hex(ours(converter, character));
    if (told == differences.end()) {
      EXPECT_EQ(got, expected) << source;
    } else {
      met.insert(source);
      EXPECT_EQ(got, told->second) << source;
      EXPECT_NE(got, expected) << source << " is no difference";
    }
  }
  EXPECT_EQ(met.size(), differences.size()) << "a difference is of no character";
  return known;
}

TEST(JapaneseAgainstIconv, EucToShiftJis) {
  const Iconv peer("SHIFT_JIS", "EUC-JP");
  EXPECT_EQ(compare(pairs(0xA1, 0xFE, 0xA1, 0xFE), euc2shiftx, peer), 6879);
  EXPECT_EQ(compare(pairs(0x8E, 0x8E, 0xA1, 0xDF), euc2shiftx, peer), 63);
}

TEST(JapaneseAgainstIconv, ShiftJisToEuc) {
  const Iconv peer("EUC-JP", "SHIFT_JIS");
  EXPECT_EQ(compare(pairs(0x81, 0x9F, 0x40, 0xFC), shift2eucx, peer), 4899);
  EXPECT_EQ(compare(pairs(0xE0, 0xEF, 0x40, 0xFC), shift2eucx, peer), 1980);
  EXPECT_EQ(compare(bytes(0xA1, 0xDF), shift2eucx, peer), 63);
}

// Iconv goes back to ASCII at the end, we go to JIS X 0201.
TEST(JapaneseAgainstIconv, ToJis) {
  const Iconv fromEuc("ISO-2022-JP", "EUC-JP");
  const Iconv fromShiftJis("ISO-2022-JP", "SHIFT_JIS");
  int known = 0;
  const auto check = [&known](Converter converter, const Iconv& peer, const std::string& source) {
    std::string expected = peer(source);
    if (!expected.empty()) {
      ++known;
      ASSERT_EQ(expected.back(), 'B') << hex(source);
      expected.back() = 'J';
      EXPECT_EQ(hex(ours(converter, source)), hex(expected)) << hex(source);
    }
  };
  for (const std::string& source : pairs(0xA1, 0xFE, 0xA1, 0xFE)) {
    check(euc2jisx, fromEuc, source);
  }
  EXPECT_EQ(known, 6879);
  for (const std::string& source : pairs(0x81, 0xEF, 0x40, 0xFC)) {
    const bool leads = static_cast<unsigned char>(source[0]) < 0xA0 ||
                       static_cast<unsigned char>(source[0]) > 0xDF;
    if (leads) {
      check(shift2jisx, fromShiftJis, source);
    }
  }
  EXPECT_EQ(known, 2 * 6879);
}

TEST(JapaneseAgainstIconv, FromJis) {
  const Iconv toEuc("EUC-JP", "ISO-2022-JP");
  const Iconv toShiftJis("SHIFT_JIS", "ISO-2022-JP");
  for (const char* escape : {"\x1B$B", "\x1B$@"}) {
    const std::vector<std::string> characters = pairs(0x21, 0x7E, 0x21, 0x7E, escape);
    EXPECT_EQ(compare(characters, jis2eucx, toEuc), 6879) << escape;
    EXPECT_EQ(compare(characters, jis2shiftx, toShiftJis), 6879) << escape;
  }
}

TEST(JapaneseAgainstIconv, EveryCharacterComesBack) {
  for (const std::string& euc : pairs(0xA1, 0xFE, 0xA1, 0xFE)) {
    const std::string shiftJis = ours(euc2shiftx, euc);
    EXPECT_EQ(hex(ours(shift2eucx, shiftJis)), hex(euc));
    EXPECT_EQ(hex(ours(jis2eucx, ours(euc2jisx, euc))), hex(euc));
    EXPECT_EQ(hex(ours(jis2shiftx, ours(shift2jisx, shiftJis))), hex(shiftJis));
  }
  for (const std::string& katakana : bytes(0xA1, 0xDF)) {
    EXPECT_EQ(hex(ours(euc2shiftx, ours(shift2eucx, katakana))), hex(katakana));
  }
}

// The last character of each run of the tables, which has no counterpart.
constexpr int kRunEnds[] = {
    0xA1F5, 0xA1F6, 0xA1F7, 0xA2AE, 0xA3BF, 0xA3E0, 0xACFD, 0xACFE, 0xAFCF, 0xBBC7, 0xBE51, 0xBE52,
    0xC1AA, 0xC2CA, 0xC2CB, 0xC360, 0xC3B8, 0xC3B9, 0xC3BA, 0xC455, 0xC456, 0xC67E, 0xC949, 0xC96B,
    0xC9BD, 0xC9BE, 0xC9EC, 0xCAF6, 0xCAF7, 0xD6CB, 0xD6CC, 0xD779, 0xD77A, 0xDADE, 0xDADF, 0xDBA6,
    0xDDFB, 0xE8A2, 0xE975, 0xEB5A, 0xEBF0, 0xEBF1, 0xECDD, 0xECDE, 0xEDA9, 0xEEEA, 0xEEEB, 0xF055,
    0xF056, 0xF0CA, 0xF0CB, 0xF162, 0xF16A, 0xF16B, 0xF267, 0xF268, 0xF2C2, 0xF374, 0xF465, 0xF4B4,
    0xF4B5, 0xF4FC, 0xF662, 0xF663, 0xF976, 0xF9C3, 0xF9C4, 0xF9C5, 0xF9C6, 0xF9D1, 0xF9D5};
static_assert(std::size(kRunEnds) == 71);

const std::string kUnknown = "3F3F";

std::string codeOf(int code) {
  return {static_cast<char>(code >> 8), static_cast<char>(code & 0xFF)};
}

// What iconv has beyond Big5 itself: hanzi and signs of common extensions.
constexpr int kExtensions[] = {0xF9D6, 0xF9D7, 0xF9D8, 0xF9D9, 0xF9DA, 0xF9DB, 0xF9DC, 0xF9E9,
                               0xF9EA, 0xF9EB, 0xF9F9, 0xF9FA, 0xF9FB, 0xF9FC, 0xF9FD};

// Symbols go by position, where the two charmaps of iconv have different characters at the same
// position; and C255 is in plane 3 there.
const Differences kSymbolsFromBig5 = {
    {"A155", "A1B6"}, {"A156", "A1B7"}, {"A157", "A1B8"}, {"A158", "A1B9"},
    {"A1AB", "A1EA"}, {"A1AC", "A1EB"}, {"A1E1", "A2C2"}, {"A1E2", "A2C3"},
    {"A2CC", "A4BE"}, {"A2CE", "A4C0"}, {"C255", "F6C1"},
};
const Differences kSymbolsFromEucH = {
    {"A1B6", "A155"}, {"A1B7", "A156"}, {"A1B9", "A158"}, {"A1EA", "A1AB"},
    {"A1EB", "A1AC"}, {"A2C2", "A1E1"}, {"A2C3", "A1E2"}, {"A2DE", "A1FD"},
};

TEST(ChineseAgainstIconv, Big5ToEucH) {
  const Iconv peer("EUC-TW", "BIG5");
  Differences differences = kSymbolsFromBig5;
  for (const int code : kExtensions) {
    differences[hex(codeOf(code))] = kUnknown;
  }
  for (const int code : kRunEnds) {
    // Iconv lacks one of them.
    if (code != 0xA3E0) {
      differences[hex(codeOf(code))] = kUnknown;
    }
  }
  EXPECT_EQ(compare(pairs(0xA1, 0xF9, 0x40, 0xFE), big2euchx, peer, differences), 13461);
  for (const int code : kRunEnds) {
    EXPECT_EQ(ours(big2euchx, codeOf(code)), "??") << hex(codeOf(code));
  }
}

TEST(ChineseAgainstIconv, EucHToBig5) {
  const Iconv peer("BIG5", "EUC-TW");
  const Iconv back("EUC-TW", "BIG5");
  Differences onPlane1 = kSymbolsFromEucH;
  Differences onPlane2;
  for (const int code : kRunEnds) {
    const std::string euch = back(codeOf(code));
    if (peer(euch) == codeOf(code)) {
      (euch.size() == 2 ? onPlane1 : onPlane2)[hex(euch)] = kUnknown;
    }
  }
  EXPECT_EQ(compare(pairs(0xA1, 0xFE, 0xA1, 0xFE), euch2bigx, peer, onPlane1), 5793);
  EXPECT_EQ(compare(pairs(0xA1, 0xFE, 0xA1, 0xFE, "\x8E\xA2"), euch2bigx, peer, onPlane2), 7650);
}

TEST(ChineseAgainstIconv, EveryCharacterWithACounterpartComesBack) {
  int count = 0;
  for (const std::string& big5 : pairs(0xA1, 0xFE, 0x40, 0xFE)) {
    const std::string euch = ours(big2euchx, big5);
    if (euch != "??") {
      ++count;
      EXPECT_EQ(hex(ours(euch2bigx, euch)), hex(big5));
    }
  }
  // The symbols, both levels of hanzi less two that are there twice, and less one for each run.
  EXPECT_EQ(count, 441 + 5401 + 7652 - 2 - 71);
}

Differences carried(const std::vector<int>& windows, bool toWindows) {
  Differences differences;
  int control = 1;
  for (const int byte : windows) {
    const std::string code(1, static_cast<char>(control++));
    const std::string carriedByte(1, static_cast<char>(byte));
    if (toWindows) {
      differences[hex(code)] = hex(carriedByte);
    } else {
      EXPECT_EQ(hex(ours(windows.size() == 14 ? c1251To8859_5x : c1250To8859_2x, carriedByte)),
                hex(code));
    }
  }
  return differences;
}

TEST(CodePagesAgainstIconv, Cyrillic) {
  const std::vector<int> extra = {164, 166, 169, 171, 172, 174, 176,
                                  177, 180, 181, 182, 183, 187, 165};
  EXPECT_EQ(
      compare(bytes(1, 255), c8859_5To1251x, Iconv("CP1251", "ISO-8859-5"), carried(extra, true)),
      127 + 96);
  EXPECT_EQ(
      compare(bytes(1, 255), c1251To8859_5x, Iconv("ISO-8859-5", "CP1251"), carried(extra, false)),
      127 + 96);
}

TEST(CodePagesAgainstIconv, Latin2) {
  const std::vector<int> extra = {166, 169, 171, 172, 174, 177, 181, 182, 183, 187};
  EXPECT_EQ(
      compare(bytes(1, 255), c8859_2To1250x, Iconv("CP1250", "ISO-8859-2"), carried(extra, true)),
      127 + 96);
  EXPECT_EQ(
      compare(bytes(1, 255), c1250To8859_2x, Iconv("ISO-8859-2", "CP1250"), carried(extra, false)),
      127 + 96);
}

TEST(CodePagesAgainstIconv, EveryWindowsByteComesBack) {
  for (int byte = 1; byte < 256; ++byte) {
    const std::string text(1, static_cast<char>(byte));
    // Control codes that carry bytes are those bytes on the way back.
    if (byte > 14) {
      EXPECT_EQ(hex(ours(c8859_5To1251x, ours(c1251To8859_5x, text))), hex(text));
    }
    if (byte > 10) {
      EXPECT_EQ(hex(ours(c8859_2To1250x, ours(c1250To8859_2x, text))), hex(text));
    }
  }
}

}  // namespace
