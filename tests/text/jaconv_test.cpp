#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <map>
#include <memory>
#include <string>

#include "text/jaconv_tables.h"
#include "zqxml/zqxml.h"

namespace {

using Converter = char* (*)(const char*, char*);

// Converts between two blocks that are exactly as long as they are told to be.
std::string converted(Converter converter, const std::string& source, size_t targetSize) {
  const std::unique_ptr<char[]> from(new char[source.size() + 1]);
  memcpy(from.get(), source.c_str(), source.size() + 1);
  const std::unique_ptr<char[]> to(new char[targetSize]);
  EXPECT_EQ(converter(from.get(), to.get()), to.get());
  return to.get();
}

std::string converted(Converter converter, const std::string& source) {
  const bool toJis = converter == shift2jisx || converter == euc2jisx;
  const size_t length = source.size();
  return converted(converter, source, toJis ? 5 * length + 9 : 3 * length + 1);
}

struct Row {
  Converter converter;
  const char* source;
  const char* target;
};

#define ESC "\x1B"

constexpr Row kRows[] = {
    // Shift-JIS to EUC
    {shift2eucx, "", ""},
    {shift2eucx, "abc\\~\n", "abc\\~\n"},
    {shift2eucx, "\x83\x5C", "\xA5\xBD"},
    {shift2eucx, "\x81\x40\xEF\xFC", "\xA1\xA1\xFE\xFE"},
    {shift2eucx, "\x9F\xFC\xE0\x40", "\xDE\xFE\xDF\xA1"},
    {shift2eucx, "\x81\x7E\x81\x80\x81\x9E\x81\x9F", "\xA1\xDF\xA1\xE0\xA1\xFE\xA2\xA1"},
    {shift2eucx, "\xA1\xDF", "\x8E\xA1\x8E\xDF"},
    {shift2eucx, "\x83\x20\x83\xFD\x83\n", "\x83\x20\x83\xFD\x83\n"},
    {shift2eucx, "\x80\xA0\xF0\xFF", "\x80\xA0\xF0\xFF"},
    {shift2eucx, "a\x83", "a\x83"},
    {shift2eucx, "\x83\x83\x83\x5C", "\xA5\xE3\xA5\xBD"},
    // EUC to Shift-JIS
    {euc2shiftx, "", ""},
    {euc2shiftx, "\xA5\xBD", "\x83\x5C"},
    {euc2shiftx, "\xA1\xA1\xFE\xFE", "\x81\x40\xEF\xFC"},
    {euc2shiftx, "\xDE\xFE\xDF\xA1", "\x9F\xFC\xE0\x40"},
    {euc2shiftx, "\x8E\xA1\x8E\xDF", "\xA1\xDF"},
    {euc2shiftx,
     "\x8E\xE0\x8E"
     "a\x8E\x8E",
     "\x8E\xE0\x8E"
     "a\x8E\x8E"},
    {euc2shiftx, "\xA5 \xA5\n\xA5\xA0", "\xA5 \xA5\n\xA5\xA0"},
    {euc2shiftx, "\x8F\xB0\xA1\xA5\xBD", "\x8F\xB0\xA1\x83\x5C"},
    {euc2shiftx, "\x8F\xA5\x8F", "\x8F\xA5\x8F"},
    {euc2shiftx,
     "\x8F"
     "a\xA5\xBD",
     "\x8F"
     "a\x83\x5C"},
    {euc2shiftx, "\x8F\xA5", "\x8F\xA5"},
    {euc2shiftx, "\x8F", "\x8F"},
    {euc2shiftx, "a\xA5", "a\xA5"},
    {euc2shiftx, "a\x8E", "a\x8E"},
    {euc2shiftx, "\x80\x9F\xA0\xFF", "\x80\x9F\xA0\xFF"},
    // Shift-JIS to JIS
    {shift2jisx, "", ""},
    {shift2jisx, "ab", "ab"},
    {shift2jisx, "\x83\x5C", ESC "$B%=" ESC "(J"},
    {shift2jisx,
     "\x83\x5C\x83\x5C"
     "a\x83\x5C",
     ESC "$B%=%=" ESC "(Ja" ESC "$B%=" ESC "(J"},
    {shift2jisx, "\x83\x5C\n", ESC "$B%=" ESC "(J\n"},
    {shift2jisx, "\x83\x5C\r", ESC "$B%=" ESC "(J\r"},
    {shift2jisx, "\x83\x5C\x80", ESC "$B%=" ESC "(J\x80"},
    // Half-width: each by itself, a mark too.
    {shift2jisx, "\xB6\xDE", ESC "$B%+!+" ESC "(J"},
    {shift2jisx,
     "\xB1"
     "A",
     ESC "$B%\"" ESC "(JA"},
    {shift2jisx, "\xA1\xDF", ESC "$B!#!," ESC "(J"},
    // A lead with an unfit trail doesn't change the mode.
    {shift2jisx, "\x83\x5C\x83\x20\x83\x5C", ESC "$B%=\x83\x20%=" ESC "(J"},
    {shift2jisx, "\x83\n", "\x83\n"},
    {shift2jisx, "\x83\x5C\x83", ESC "$B%=\x83" ESC "(J"},
    {shift2jisx, "\x83", "\x83"},
    // EUC to JIS
    {euc2jisx, "", ""},
    {euc2jisx, "\xA5\xBD", ESC "$B%=" ESC "(J"},
    {euc2jisx,
     "\xA5\xBD"
     "a\xA5\xBD\n",
     ESC "$B%=" ESC "(Ja" ESC "$B%=" ESC "(J\n"},
    {euc2jisx, "\x8E\xB6\x8E\xDE", ESC "$B%+!+" ESC "(J"},
    {euc2jisx, "\xA5\xBD\xA5\x20\xA5\xBD", ESC "$B%=\xA5\x20%=" ESC "(J"},
    {euc2jisx, "\xA5\xBD\x8E\x20\xA5\xBD", ESC "$B%=\x8E\x20%=" ESC "(J"},
    {euc2jisx, "\xA5\xBD\xA5", ESC "$B%=\xA5" ESC "(J"},
    {euc2jisx, "\xA5\xBD\x8E", ESC "$B%=\x8E" ESC "(J"},
    {euc2jisx, "\xA5\xBD\x8F\xB0\xA1\xA5\xBD", ESC "$B%=" ESC "(J\x8F\xB0\xA1" ESC "$B%=" ESC "(J"},
    {euc2jisx, "\xA5\xBD\x8F\xB0", ESC "$B%=" ESC "(J\x8F\xB0"},
    {euc2jisx, "\x8F\xA5\xBD", "\x8F\xA5\xBD"},
    {euc2jisx,
     "\x8F"
     "a\xA5\xBD",
     "\x8F"
     "a" ESC "$B%=" ESC "(J"},
    // JIS to Shift-JIS
    {jis2shiftx, "", ""},
    {jis2shiftx, "ab", "ab"},
    {jis2shiftx, ESC "$B%=" ESC "(Ja",
     "\x83\x5C"
     "a"},
    {jis2shiftx, ESC "$@%=" ESC "(Ba",
     "\x83\x5C"
     "a"},
    {jis2shiftx, ESC "$X%=", "\x83\x5C"},
    {jis2shiftx, ESC "K%=" ESC "Ha",
     "\x83\x5C"
     "a"},
    {jis2shiftx, ESC "K%=" ESC "Xa",
     "\x83\x5C"
     "a"},
    {jis2shiftx, ESC "(Xa", "a"},
    {jis2shiftx, ESC "$B%=\na", "\x83\x5C\na"},
    {jis2shiftx, ESC "$B%=\ra", "\x83\x5C\ra"},
    {jis2shiftx, ESC "$B!!!", "\x81\x40!"},
    {jis2shiftx, ESC "$B %", "\x80\xA3"},  // a blank is half of a pair
    {jis2shiftx, ESC "$B!" ESC "!!", "\x81\x3A\x81\x40"},
    {jis2shiftx, "a" ESC, "a"},
    {jis2shiftx, "a" ESC "$", "a"},
    {jis2shiftx, "a" ESC "(", "a"},
    {jis2shiftx, "a" ESC "K", "a"},
    {jis2shiftx, "\xB1\x83", "\xB1\x83"},
    // JIS to EUC
    {jis2eucx, "", ""},
    {jis2eucx, ESC "$B%=" ESC "(Ja",
     "\xA5\xBD"
     "a"},
    {jis2eucx, ESC "$B%=\n%=", "\xA5\xBD\n%="},
    {jis2eucx, ESC "$B%=%", "\xA5\xBD%"},
    {jis2eucx, ESC "$B", ""},
    {jis2eucx, "\xB1", "\xB1"},
    // Big5 to EUC_H
    {big2euchx, "", ""},
    {big2euchx, "ab\n", "ab\n"},
    {big2euchx, "\xA1\x40\xA4\x40", "\xA1\xA1\xC4\xA1"},
    {big2euchx, "\xC9\x40\xC9\x41", "\x8E\xA2\xA1\xA1\x8E\xA2\xA1\xA2"},
    {big2euchx, "\xA1\xF4\xA1\xF5", "\xA2\xD5??"},            // the last one of a run
    {big2euchx, "\xA1\xF6\xA1\xF7\xA1\xF8", "????\xA2\xD9"},  // runs of one
    {big2euchx, "\xC6\xA1", "??"},
    {big2euchx, "\xC9\x4A", "??"},  // between two runs
    {big2euchx, "\xA4\x20z", "??z"},
    {big2euchx, "\xA4\x7Fz", "??z"},
    {big2euchx, "\x80z\xA0z\xFFz", "??????"},
    {big2euchx, "a\xA4", "a??"},
    {big2euchx, "\xF9\xD4\xF9\xD5\xF9\xD6\xFE\xFE", "\x8E\xA2\xF2\xC3??????"},
    // EUC_H to Big5
    {euch2bigx, "", ""},
    {euch2bigx, "ab\n", "ab\n"},
    {euch2bigx, "\xA1\xA1\xC4\xA1", "\xA1\x40\xA4\x40"},
    {euch2bigx, "\x8E\xA2\xA1\xA1", "\xC9\x40"},
    {euch2bigx, "\x8E\xA1\xC4\xA1", "\xA4\x40"},  // plane 1 in the long form
    {euch2bigx, "\x8E\xA3\xA1\xA1z", "??z"},
    {euch2bigx, "\x8E\xB0\xFE\xFEz", "??z"},
    {euch2bigx, "\x8E\xA0\xFE\xFEz", "??z"},
    {euch2bigx,
     "\x8E"
     "abcz",
     "??z"},
    {euch2bigx, "\x8E\xA2\xA1\x40z", "??z"},
    {euch2bigx, "\x8E\xA2\xA1", "??"},
    {euch2bigx, "\x8E", "??"},
    {euch2bigx, "\xC4", "??"},
    {euch2bigx, "\xC4zz", "??z"},
    {euch2bigx, "\xA2\xD6\xA2\xD7\xA2\xD8\xA2\xD9", "??????\xA1\xF8"},
    {euch2bigx, "\xFD\xCA\xFD\xCB\xFE\xA1", "\xC6\x7D????"},
    {euch2bigx, "\x80\x8D\x8F\xA0\xFF", "\x80\x8D\x8F\xA0\xFF"},
    // Code pages
    {c8859_5To1251x, "\x01\x02\x03\x04\x05\x06\x07\x08\t\n\x0B\x0C\r\x0E\x0F\x1F az\x7F",
     "\xA4\xA6\xA9\xAB\xAC\xAE\xB0\xB1\xB4\xB5\xB6\xB7\xBB\xA5\x0F\x1F az\x7F"},
    {c8859_5To1251x, "\x80\x9F\xA0\xA1\xB0\xF0\xFF", "\x80\x9F\xA0\xA8\xC0\xB9\x9F"},
    {c1251To8859_5x, "\n\t az\x7F", "\n\t az\x7F"},
    {c1251To8859_5x, "\xA4\xA6\xA9\xAB\xAC\xAE\xB0\xB1\xB4\xB5\xB6\xB7\xBB\xA5",
     "\x01\x02\x03\x04\x05\x06\x07\x08\t\n\x0B\x0C\r\x0E"},
    {c1251To8859_5x, "\x80\x82\x98\xA0\xA8\xC0\xFF", "\xA2\x82\x98\xA0\xA1\xB0\xEF"},
    {c8859_2To1250x, "\x01\x02\x03\x04\x05\x06\x07\x08\t\n\x0B\r\x1F az\x7F",
     "\xA6\xA9\xAB\xAC\xAE\xB1\xB5\xB6\xB7\xBB\x0B\r\x1F az\x7F"},
    {c8859_2To1250x, "\x80\x9F\xA0\xA1\xA9\xB1\xBF\xC0\xFF",
     "\x80\x9F\xA0\xA5\x8A\xB9\xBF\xC0\xFF"},
    {c1250To8859_2x, "\xA6\xA9\xAB\xAC\xAE\xB1\xB5\xB6\xB7\xBB",
     "\x01\x02\x03\x04\x05\x06\x07\x08\t\n"},
    {c1250To8859_2x, "\x80\x8A\xA5\xB9\xBF\xC0\xFF\n", "\x80\xA9\xA1\xB1\xBF\xC0\xFF\n"},
};

TEST(Converters, Texts) {
  int number = 0;
  for (const Row& row : kRows) {
    EXPECT_EQ(testing::PrintToString(converted(row.converter, row.source)),
              testing::PrintToString(std::string(row.target)))
        << "row " << number;
    ++number;
  }
}

TEST(Converters, NullIsLeftAlone) {
  for (const Converter converter :
       {shift2eucx, euc2shiftx, shift2jisx, jis2shiftx, jis2eucx, euc2jisx, big2euchx, euch2bigx,
        c8859_5To1251x, c1251To8859_5x, c8859_2To1250x, c1250To8859_2x}) {
    char target[] = "abc";
    EXPECT_EQ(converter(nullptr, target), target);
    EXPECT_STREQ(target, "abc");
    EXPECT_EQ(converter("a", nullptr), nullptr);
  }
}

TEST(Characters, OfShiftJisAndJis) {
  // By counting: the rows of JIS two to a lead byte, over the trails without 0x7F.
  int lead = 0x81;
  int trail = 0x40;
  for (int row = 0x21; row <= 0x7E; ++row) {
    for (int cell = 0x21; cell <= 0x7E; ++cell) {
      auto first = static_cast<unsigned char>(row);
      auto second = static_cast<unsigned char>(cell);
      jis2sjis(&first, &second);
      EXPECT_EQ(first, lead) << row << " " << cell;
      EXPECT_EQ(second, trail) << row << " " << cell;
      sjis2jis(&first, &second);
      EXPECT_EQ(first, row);
      EXPECT_EQ(second, cell);
      trail = trail == 0x7E ? 0x80 : trail + 1;
      if (trail == 0xFD) {
        trail = 0x40;
        lead = lead == 0x9F ? 0xE0 : lead + 1;
      }
    }
  }
}

TEST(Characters, OutOfRangeAreTakenModulo256) {
  for (int first = 0; first < 256; ++first) {
    for (int second = 0; second < 256; ++second) {
      auto a = static_cast<unsigned char>(first);
      auto b = static_cast<unsigned char>(second);
      jis2sjis(&a, &b);
      const int cell = first % 2 == 0 ? 0x7E : second < 0x60 ? 0x1F : 0x20;
      EXPECT_EQ(a, ((first + 1) / 2 + (first < 0x5F ? 0x70 : 0xB0)) % 256);
      EXPECT_EQ(b, (second + cell) % 256);
      a = static_cast<unsigned char>(first);
      b = static_cast<unsigned char>(second);
      sjis2jis(&a, &b);
      const int row = (first - (first < 0xA0 ? 0x70 : 0xB0)) * 2 - (second < 0x9F ? 1 : 0);
      const int trail = second >= 0x9F ? 0x7E : second >= 0x80 ? 0x20 : 0x1F;
      EXPECT_EQ(a, (row + 512) % 256);
      EXPECT_EQ(b, (second - trail + 256) % 256);
    }
  }
}

struct Katakana {
  int kind;
  unsigned char byte;
  const char* ahead;
  int wide;
  int taken;
};

constexpr Katakana kKatakana[] = {
    {5, 0xB6, "\xDE", 0x834B, 1},     {5, 0xB6, "\xDF", 0x834A, 0},
    {5, 0xB6, "a", 0x834A, 0},        {5, 0xB6, "", 0x834A, 0},
    {5, 0xC4, "\xDE", 0x8368, 1},     {5, 0xC5, "\xDE", 0x8369, 0},
    {5, 0xB5, "\xDE", 0x8349, 0},     {5, 0xCA, "\xDE", 0x836F, 1},
    {5, 0xCA, "\xDF", 0x8370, 1},     {5, 0xCE, "\xDE", 0x837B, 1},
    {5, 0xCE, "\xDF", 0x837C, 1},     {5, 0xCF, "\xDF", 0x837D, 0},
    {5, 0xB3, "\xDE", 0x8394, 1},     {5, 0xB3, "\xDF", 0x8345, 0},
    {5, 0xDE, "\xDE", 0x814A, 0},     {5, 0xB6, "\x8E\xDE", 0x834A, 0},
    {4, 0xB6, "\x8E\xDE", 0x834B, 2}, {4, 0xB6, "\x8E\xDF", 0x834A, 0},
    {4, 0xB6, "\xDE", 0x834A, 0},     {4, 0xB6, "\x8E", 0x834A, 0},
    {4, 0xCA, "\x8E\xDF", 0x8370, 2}, {4, 0xB3, "\x8E\xDE", 0x8394, 2},
    {1, 0xB6, "\xDE", 0x834A, 0},     {1, 0xB6, "\x8E\xDE", 0x834A, 0},
    {1, 0xA1, "", 0x8142, 0},         {1, 0xDF, "", 0x814B, 0},
};

TEST(HalfWidthKatakana, JoinTheirMarks) {
  for (const Katakana& row : kKatakana) {
    unsigned char text[4] = {};
    memcpy(text, row.ahead, strlen(row.ahead));
    unsigned char* source = text;
    unsigned char first = row.byte;
    unsigned char second = 0;
    han2zen(&source, &first, &second, row.kind);
    EXPECT_EQ(first << 8 | second, row.wide) << row.kind << " " << int{row.byte};
    EXPECT_EQ(source - text, row.taken);
  }
}

// Shift-JIS for the half-width bytes that a mark joins.
const std::map<int, int> kVoicedForms = {
    {0xB3, 0x8394}, {0xB6, 0x834B}, {0xB7, 0x834D}, {0xB8, 0x834F}, {0xB9, 0x8351}, {0xBA, 0x8353},
    {0xBB, 0x8355}, {0xBC, 0x8357}, {0xBD, 0x8359}, {0xBE, 0x835B}, {0xBF, 0x835D}, {0xC0, 0x835F},
    {0xC1, 0x8361}, {0xC2, 0x8364}, {0xC3, 0x8366}, {0xC4, 0x8368}, {0xCA, 0x836F}, {0xCB, 0x8372},
    {0xCC, 0x8375}, {0xCD, 0x8378}, {0xCE, 0x837B}};
const std::map<int, int> kSemiVoicedForms = {
    {0xCA, 0x8370}, {0xCB, 0x8373}, {0xCC, 0x8376}, {0xCD, 0x8379}, {0xCE, 0x837C}};

TEST(HalfWidthKatakana, NoOthersJoinAMark) {
  for (const int kind : {1, 4, 5}) {
    for (int byte = 0xA1; byte <= 0xDF; ++byte) {
      auto plainFirst = static_cast<unsigned char>(byte);
      unsigned char plainSecond = 0;
      han2zen(nullptr, &plainFirst, &plainSecond, 1);
      for (int mark = 0x01; mark < 0x100; ++mark) {
        unsigned char text[3] = {static_cast<unsigned char>(kind == 4 ? 0x8E : mark),
                                 static_cast<unsigned char>(kind == 4 ? mark : 0)};
        const std::map<int, int> none;
        const auto& forms = kind == 1      ? none
                            : mark == 0xDE ? kVoicedForms
                            : mark == 0xDF ? kSemiVoicedForms
                                           : none;
        const auto joined = forms.find(byte);
        unsigned char* source = text;
        auto first = static_cast<unsigned char>(byte);
        unsigned char second = 0;
        han2zen(&source, &first, &second, kind);
        const bool joins = joined != forms.end();
        ASSERT_EQ(first << 8 | second, joins ? joined->second : plainFirst << 8 | plainSecond)
            << kind << " " << byte << " " << mark;
        ASSERT_EQ(source - text, joins ? kind == 4 ? 2 : 1 : 0)
            << kind << " " << byte << " " << mark;
      }
    }
  }
}

TEST(HalfWidthKatakana, HaveATable) {
  // Shift-JIS for 0xA1 to 0xDF.
  constexpr int kWide[] = {0x8142, 0x8175, 0x8176, 0x8141, 0x8145, 0x8392, 0x8340, 0x8342, 0x8344,
                           0x8346, 0x8348, 0x8383, 0x8385, 0x8387, 0x8362, 0x815B, 0x8341, 0x8343,
                           0x8345, 0x8347, 0x8349, 0x834A, 0x834C, 0x834E, 0x8350, 0x8352, 0x8354,
                           0x8356, 0x8358, 0x835A, 0x835C, 0x835E, 0x8360, 0x8363, 0x8365, 0x8367,
                           0x8369, 0x836A, 0x836B, 0x836C, 0x836D, 0x836E, 0x8371, 0x8374, 0x8377,
                           0x837A, 0x837D, 0x837E, 0x8380, 0x8381, 0x8382, 0x8384, 0x8386, 0x8388,
                           0x8389, 0x838A, 0x838B, 0x838C, 0x838D, 0x838F, 0x8393, 0x814A, 0x814B};
  static_assert(std::size(kWide) == 63);
  for (int byte = 0; byte < 256; ++byte) {
    auto first = static_cast<unsigned char>(byte);
    unsigned char second = 7;
    han2zen(nullptr, &first, &second, 1);
    const bool isKatakana = byte >= 0xA1 && byte <= 0xDF;
    EXPECT_EQ(first << 8 | second, isKatakana ? kWide[byte - 0xA1] : byte << 8 | 7) << byte;
  }
}

TEST(EscapeSequences, SwitchTheMode) {
  for (int byte = 1; byte < 256; ++byte) {
    for (const int before : {0, 1}) {
      unsigned char text[] = "Xa";
      unsigned char* source = text;
      int mode = before;
      const int after = byte == '$' || byte == 'K' ? 1 : 0;
      EXPECT_EQ(SkipESCSeq(&source, byte, &mode), after != before ? 1 : 0) << byte;
      EXPECT_EQ(mode, after) << byte;
      EXPECT_EQ(source - text, byte == '$' || byte == '(' ? 1 : 0) << byte;
    }
  }
  unsigned char end[] = "";
  unsigned char* source = end;
  int mode = 0;
  EXPECT_EQ(SkipESCSeq(&source, '$', &mode), 1);
  EXPECT_EQ(source, end);
}

TEST(Characters, PromiseTheirLength) {
  EXPECT_EQ(bytesInEucChar(nullptr), 0);
  EXPECT_EQ(bytesInEucChar(""), 0);
  EXPECT_EQ(bytesInShiftChar(nullptr), 0);
  EXPECT_EQ(bytesInShiftChar(""), 0);
  for (int byte = 1; byte < 256; ++byte) {
    const char text[] = {static_cast<char>(byte), '\0'};
    const int inEuc = byte < 0x80                                    ? 1
                      : byte == 0x8F                                 ? 3
                      : byte == 0x8E || (byte > 0xA0 && byte < 0xFF) ? 2
                                                                     : -1;
    EXPECT_EQ(bytesInEucChar(text), inEuc) << byte;
    const int inShift = byte < 0x80                                    ? 1
                        : byte >= 0xA1 && byte <= 0xDF                 ? 1
                        : byte == 0x80 || byte == 0xA0 || byte >= 0xF0 ? -1
                                                                       : 2;
    EXPECT_EQ(bytesInShiftChar(text), inShift) << byte;
  }
}

TEST(Lengths, AreThoseOfTheConvertedText) {
  EXPECT_EQ(eucLength(nullptr), 0);
  EXPECT_EQ(shiftLength(nullptr), 0);
  EXPECT_EQ(big5Length(nullptr), 0);
  EXPECT_EQ(euchLength(nullptr), 0);
  EXPECT_EQ(eucLength("a\x83\x5C\xB1\x83\x20\x80"), 8);
  EXPECT_EQ(shiftLength("a\xA5\xBD\x8E\xB1\x8E"
                        "a\x8F\xB0\xA1\x80"),
            10);
  EXPECT_EQ(big5Length("a\xC4\xA1\x8E\xA2\xA1\xA1\x80"), 6);
  EXPECT_EQ(euchLength("a\xA4\x40\xC9\x40\xC6\xA1"), 9);
  for (const Row& row : kRows) {
    const int length = static_cast<int>(strlen(row.target));
    if (row.converter == shift2eucx) {
      EXPECT_EQ(eucLength(row.source), length) << row.source;
    } else if (row.converter == euc2shiftx) {
      EXPECT_EQ(shiftLength(row.source), length) << row.source;
    } else if (row.converter == euch2bigx) {
      EXPECT_EQ(big5Length(row.source), length) << row.source;
    } else if (row.converter == big2euchx) {
      EXPECT_EQ(euchLength(row.source), length) << row.source;
    }
  }
}

TEST(Orders, OfBig5) {
  int order = 0;
  for (int lead = 0; lead < 256; ++lead) {
    for (int trail = 0; trail < 256; ++trail) {
      const unsigned char code[] = {static_cast<unsigned char>(lead),
                                    static_cast<unsigned char>(trail)};
      const bool isCode = lead >= 0xA1 && lead <= 0xFE &&
                          ((trail >= 0x40 && trail <= 0x7E) || (trail >= 0xA1 && trail <= 0xFE));
      EXPECT_EQ(Big5Order(code), isCode ? order : -1) << lead << " " << trail;
      if (isCode) {
        unsigned char back[] = {0, 0, 7};
        Big5Code(order, back);
        EXPECT_EQ(memcmp(back, code, 2), 0) << order;
        EXPECT_EQ(back[2], 7);
        ++order;
      }
    }
  }
  EXPECT_EQ(order, 94 * 157);
  EXPECT_EQ(Big5Order(nullptr), -1);
}

TEST(Orders, OfCns) {
  int order = 0;
  for (int row = 0; row < 256; ++row) {
    for (int cell = 0; cell < 256; ++cell) {
      const unsigned char code[] = {static_cast<unsigned char>(row),
                                    static_cast<unsigned char>(cell)};
      const bool isCode = row >= 0xA1 && row <= 0xFE && cell >= 0xA1 && cell <= 0xFE;
      EXPECT_EQ(CnsOrder(code), isCode ? order : -1) << row << " " << cell;
      if (isCode) {
        unsigned char back[] = {0, 0, 7};
        CnsCode(order, back);
        EXPECT_EQ(memcmp(back, code, 2), 0) << order;
        EXPECT_EQ(back[2], 7);
        ++order;
      }
    }
  }
  EXPECT_EQ(order, 94 * 94);
  EXPECT_EQ(CnsOrder(nullptr), -1);
}

TEST(Big5, ACharacterAlone) {
  const auto convert = [](const char* code) {
    unsigned char target[3] = {7, 7, 7};
    const int result = Big5ToCnsCodeConvert(reinterpret_cast<const unsigned char*>(code), target);
    EXPECT_EQ(target[2], 7);
    return result == 0 ? target[0] << 8 | target[1] : result == -1 && target[0] == 7 ? -1 : -2;
  };
  EXPECT_EQ(convert("\xA4\x40"), 0xC4A1);
  EXPECT_EQ(convert("\xC9\x40"), 0xA1A1);  // the plane isn't told
  EXPECT_EQ(convert("\xA1\xF5"), -1);
  EXPECT_EQ(convert("\xA1\xF6"), -1);
  EXPECT_EQ(convert("\xC6\xA1"), -1);
  EXPECT_EQ(convert("\xA4\x20"), -1);
  EXPECT_EQ(convert("ab"), -1);
  EXPECT_EQ(Big5ToCnsCodeConvert(nullptr, nullptr), -1);
  EXPECT_EQ(Big5ToCnsCodeConvert(reinterpret_cast<const unsigned char*>("\xA4\x40"), nullptr), -1);
}

TEST(Big5, TheTablesMirrorOneAnother) {
  static_assert(Big5CnsTableSize == 106);
  int filled = 0;
  for (const Big5CnsTable& row : Big5ToCnsTable) {
    if (row.first == 0x7FFFFFFF) {
      EXPECT_EQ(row.last, 0x7FFFFFFF);
      continue;
    }
    ++filled;
    EXPECT_EQ(row.last - row.first, row.otherLast - row.otherFirst);
    const int plane = (row.plane - 1) * 94 * 94;
    int mirrored = 0;
    for (const Big5CnsTable& other : CnsToBig5Table) {
      mirrored += other.first == row.otherFirst + plane && other.last == row.otherLast + plane &&
                          other.otherFirst == row.first && other.otherLast == row.last &&
                          other.plane == 0
                      ? 1
                      : 0;
    }
    EXPECT_EQ(mirrored, 1);
  }
  EXPECT_EQ(filled, 71);
  EXPECT_EQ(Big5ToCnsTable[70].first, (0xF9 - 0xA1) * 157 + 0xD2 - 0x62);
  EXPECT_EQ(Big5ToCnsTable[71].first, 0x7FFFFFFF);
  EXPECT_EQ(CnsToBig5Table[71].first, 0x7FFFFFFF);
}

TEST(Numbers, BecomeAscii) {
  struct Number {
    int native;
    const char* source;
    const char* target;
  };
  constexpr Number kNumbers[] = {
      {5, "\x82\x4F\x82\x50\x82\x51\x82\x52\x82\x53\x82\x54\x82\x55\x82\x56\x82\x57\x82\x58",
       "0123456789"},
      {5, "\x81\x44\x81\x42\x81\x5E\x81\x45\x81\x46", "..//:"},
      {5, "a1\x83\x5C\xB1\x82\x59\x82\x4E", "a1\x83\x5C\xB1\x82\x59\x82\x4E"},
      {5, "\x82\x4F\x82", "0\x82"},
      {4, "\xA3\xB0\xA3\xB1\xA3\xB2\xA3\xB3\xA3\xB4\xA3\xB5\xA3\xB6\xA3\xB7\xA3\xB8\xA3\xB9",
       "0123456789"},
      {4, "\xA1\xA5\x8E\xA1\xA1\xA3\xA1\xBF\xA1\xA7\xA1\xA1\xA1\xCA\xA1\xCB", ".../: ()"},
      {4, "\xB0\xA1\x8F\xA3\xB0\xA3\xB0",
       "\xB0\xA1\x8F\xA3\xB0"
       "0"},
      {4, "\x8F\xB0\xA3\xB0z\xA3", "\x8F\xB0\xA3\xB0z\xA3"},
      {7, "\xA3\xB0\xA3\xB1\xA3\xB2\xA3\xB3\xA3\xB4\xA3\xB5\xA3\xB6\xA3\xB7\xA3\xB8\xA3\xB9",
       "0123456789"},
      {7, "\xA3\xBA\xA3\xAF\xA3\xA8\xA3\xA9\xA3\xAE\xA3\xBB", ":/().\xA3\xBB"},
      {12, "\xA3\xB0\xA3\xB1\xA3\xB2\xA3\xB3\xA3\xB4\xA3\xB5\xA3\xB6\xA3\xB7\xA3\xB8\xA3\xB9",
       "0123456789"},
      {12, "\xA3\xBA\xA3\xAF\xA3\xA8\xA3\xA9\xA3\xAE", ":/()."},
      {9, "\xA2\xAF\xA2\xB0\xA2\xB1\xA2\xB2\xA2\xB3\xA2\xB4\xA2\xB5\xA2\xB6\xA2\xB7\xA2\xB8",
       "0123456789"},
      {9, "\xA1\x52\xA2\x41\xA1\x5D\xA1\x5E\xA1\x4F\xA4\x40", ":/().\xA4\x40"},
      {10, "\xA2\xAF\xA2\xB0\xA2\xB1\xA2\xB2\xA2\xB3\xA2\xB4\xA2\xB5\xA2\xB6\xA2\xB7\xA2\xB8",
       "0123456789"},
      {10, "\xA1\x52\xA2\x41\xA1\x5D\xA1\x5E\xA1\xA5\xA1\xA8\xA1\x4F", ":/().:\xA1\x4F"},
      // The second half of a character of four bytes is looked at.
      {10, "\x8E\xA2\xA2\xAF\x8E\xA2\xA1\xA1",
       "\x8E\xA2"
       "0\x8E\xA2\xA1\xA1"},
      {8, "\xA3\xB0", "\xA3\xB0"},
      {11, "\xA3\xB0", "\xA3\xB0"},
      {13, "\xA3\xB0", "\xA3\xB0"},
      {0, "\xA3\xB0", "\xA3\xB0"},
      {5, "", ""},
  };
  for (const Number& row : kNumbers) {
    InitMbutilExt(row.native);
    const std::unique_ptr<char[]> target(new char[strlen(row.source) + 1]);
    EXPECT_EQ(ConvertMBNumberToSBNumber(row.source, target.get()), 0);
    EXPECT_STREQ(target.get(), row.target) << row.native;
  }
  char target[] = "abc";
  EXPECT_EQ(ConvertMBNumberToSBNumber(nullptr, target), 0);
  EXPECT_EQ(ConvertMBNumberToSBNumber("a", nullptr), 0);
  EXPECT_STREQ(target, "abc");
  InitMbutilExt(0);
}

int detected(const std::string& text) {
  FILE* stream = text.empty() ? fopen("/dev/null", "r")
                              : fmemopen(const_cast<char*>(text.data()), text.size(), "r");
  const int code = DetectJPCodeType(stream);
  fclose(stream);
  return code;
}

TEST(Detection, OfAStream) {
  const std::pair<std::string, int> kTexts[] = {
      {"", 0},
      {"plain ASCII\n", 0},
      {ESC "$B%=", 3},
      {ESC "$@%=", 3},
      {ESC "K", 3},
      {ESC "$X\x83\x5C", 5},
      {ESC "(B", 0},
      {ESC, 0},
      {ESC "$", 0},
      {"a\x81\x40", 5},
      {"\x8D", 5},
      {"\x8F", 5},
      {"\x9F", 5},
      {"\x80\xA0\xFF", 0},
      // Behind 0x8E
      {"\x8E\x40", 5},
      {"\x8E\x7E", 5},
      {"\x8E\x7F", 0},
      {"\x8E\x80", 5},
      {"\x8E\xA0", 5},
      {"\x8E\xA1", 6},
      {"\x8E\xDF", 6},
      {"\x8E\xE0", 5},
      {"\x8E\xFC", 5},
      {"\x8E\xFD", 0},
      {"\x8E", 0},
      {"\x8E\x3F", 0},
      // Behind 0xA1 to 0xDF
      {"\xB1\xF0", 4},
      {"\xB1\xFE", 4},
      {"\xB1\xFF", 0},
      {"\xB1\xA1", 6},
      {"\xB1\xDF", 6},
      {"\xB1\xA0", 0},
      {"\xB1\x41", 5},
      {"\xB1\n", 5},
      {"\xB1\x9F", 5},
      {"\xB1", 0},
      {"\xB1\xE0", 6},
      {"\xB1\xE0\x81", 5},
      {"\xB1\xEF\x8F", 5},
      {"\xB1\xE0\x8E", 6},
      {"\xB1\xE0\x41\x42\xE1\xFD", 4},
      {"\xB1\xE0\xFE", 4},
      {"\xB1\xE0\x20\xFE", 4},
      {"\xB1\xE0 \xB1\xE0", 6},
      // 0xE0 and up
      {"\xF0", 4},
      {"\xFE", 4},
      {"\xE0\x40", 5},
      {"\xE0\x7E", 5},
      {"\xE0\x7F", 0},
      {"\xE0\x80", 5},
      {"\xE0\xA0", 5},
      {"\xE0\xA1", 6},
      {"\xE0\xFC", 6},
      {"\xE0\xFD", 4},
      {"\xEF\xFE", 4},
      {"\xE0\xFF", 0},
      {"\xE0", 0},
      // What is open stays so until something decides.
      {"\xB1\xA1 \xB1\xA1 abc", 6},
      {"\xB1\xA1 \xB1\xF0", 4},
      {"\xB1\xA1 \x82\xA0", 5},
      {"\xB1\xA1" ESC "$B", 3},
      {"\xB1\xA1\x80", 6},
  };
  for (const auto& [text, code] : kTexts) {
    EXPECT_EQ(detected(text), code) << testing::PrintToString(text);
  }
  EXPECT_EQ(DetectJPCodeType(nullptr), 0);
}

TEST(Detection, ReadsNoFurtherThanNeeded) {
  char text[] = "a\x81\x40\x82";
  FILE* stream = fmemopen(text, 4, "r");
  EXPECT_EQ(DetectJPCodeType(stream), 5);
  EXPECT_EQ(ftell(stream), 2);
  fclose(stream);
}

}  // namespace
