#include <gtest/gtest.h>

#include <cctype>
#include <cstring>
#include <string>
#include <vector>

#include "text/mbutil_state.h"
#include "zqxml/zqxml.h"

namespace {

constexpr int kEuc = 4;
constexpr int kShiftJis = 5;
constexpr int kEucH = 10;
constexpr int kLatin2 = 14;
constexpr int kUtf8 = 65;

// A process with a native code set of its own, for as long as it lives.
class Process {
 public:
  explicit Process(int codeSet) : previous(InitMbutilExt(codeSet)) {}
  ~Process() { InitMbutilExt(previous); }
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

 private:
  int previous;
};

int placeOf(const char* found, const char* text) {
  return found == nullptr ? -1 : static_cast<int>(found - text);
}

TEST(MultiByteState, FlagsFollowTheCodeSet) {
  InitMbutilExt(0);
  int previous = 0;
  for (int codeSet = -1; codeSet <= 70; ++codeSet) {
    EXPECT_EQ(InitMbutilExt(codeSet), previous);
    const bool isMultiByte = codeSet >= 3 && codeSet <= 13 && codeSet != 6;
    EXPECT_EQ(mbIsMultiByte(), isMultiByte ? 1 : 0) << codeSet;
    EXPECT_EQ(mbIsJapanese(), codeSet >= 3 && codeSet <= 5 ? 1 : 0) << codeSet;
    EXPECT_EQ(MBUTIL_Initialized, 1);
    EXPECT_TRUE(codeSetChosenByHost);
    previous = codeSet;
  }
  EXPECT_EQ(InitMbutil(), 70);
  EXPECT_FALSE(codeSetChosenByHost);
  EXPECT_EQ(InitMbutilExt(0), 0);
}

TEST(MultiByteLengths, FactsOfTheCodeSets) {
  constexpr int kLongest[] = {1, 1, 1, 1, 3, 2, 1, 2, 2, 2, 4, 2, 2, 2};
  for (int codeSet = -2; codeSet <= 70; ++codeSet) {
    const bool isKnown = codeSet >= 0 && codeSet < 14;
    EXPECT_EQ(mbmaxcharlenExt(codeSet), isKnown ? kLongest[codeSet] : 1) << codeSet;
  }
  struct Leads {
    int codeSet;
    std::vector<std::pair<int, int>> ranges;
  };
  const Leads kLeads[] = {
      {0, {}},
      {3, {}},
      {4, {{0x8E, 0x8F}, {0xA1, 0xFE}}},
      {5, {{0x81, 0x9F}, {0xE0, 0xEF}}},
      {6, {}},
      {7, {{0xA1, 0xFE}}},
      {8, {{0xA1, 0xFE}}},
      {9, {{0xA1, 0xFE}}},
      {10, {{0x8E, 0x8E}, {0xA1, 0xFE}}},
      {11, {{0x81, 0xFE}}},
      {12, {{0x84, 0xD3}, {0xD8, 0xDE}, {0xE0, 0xF9}}},
      {13, {{0xA1, 0xFE}}},
      {14, {}},
      {65, {}},
  };
  for (const Leads& row : kLeads) {
    for (int byte = 0; byte < 256; ++byte) {
      bool leads = false;
      for (const auto& [first, last] : row.ranges) {
        leads = leads || (byte >= first && byte <= last);
      }
      EXPECT_EQ(isleadbyteExt(byte, row.codeSet), leads ? 1 : 0) << row.codeSet << " " << byte;
      EXPECT_EQ(isleadbyteExt(static_cast<signed char>(byte), row.codeSet), leads ? 1 : 0);
    }
  }
}

struct Length {
  int codeSet;
  const char* text;
  int count;
  int length;
};

constexpr Length kLengths[] = {
    // Nothing, in code sets with and without a form of their own.
    {4, nullptr, 3, 0},
    {4, "", 3, 0},
    {4, "a", 0, 0},
    {4, "a", -1, 0},
    {4, "\xB1\xA1", -5, 0},
    {0, nullptr, 3, 1},
    {0, "", 0, 1},
    {3, "\x1B$B", 3, 1},
    {3, "\xB1", 0, 1},
    {14, "\xB1", 1, 1},
    {65, "\xE2\x82\xAC", 3, 1},
    {-1, "a", 1, 1},
    // A count of 1 tells what the lead byte promises, whatever follows.
    {4, "\xB1", 1, 2},
    {4, "\xB1 ", 1, 2},
    {4, "\x8E ", 1, 2},
    {4, "\x8F ", 1, 3},
    {4, "\x80", 1, -1},
    {4, "\xA0", 1, -1},
    {4, "\xFF", 1, -1},
    {5, "\x83 ", 1, 2},
    {5, "\x80", 1, -1},
    {5, "\xA0", 1, -1},
    {5, "\xB1", 1, 1},
    {5, "\xF0", 1, -1},
    {10, "\x8E ", 1, 4},
    {10, "\x8F", 1, -1},
    {12, "\xD4\xA1", 1, -1},
    // EUC
    {4, "a\xB1", 3, 1},
    {4, "\xB1\xA1", 2, 2},
    {4, "\xFE\xFE", 3, 2},
    {4, "\xB1\xA0", 3, -1},
    {4, "\xB1\xFF", 3, -1},
    {4, "\xB1", 3, -1},
    {4, "\x8E\xA1", 3, 2},
    {4, "\x8E\xDF", 3, 2},
    {4, "\x8E\xE0", 3, -1},
    {4, "\x8E", 3, -1},
    {4, "\x8F\xB0\xA1", 3, 3},
    {4, "\x8F\xB0 ", 2, 3},
    {4, "\x8F\xB0 ", 3, -1},
    {4, "\x8F \xA1", 2, -1},
    {4, "\x8F\xB0", 3, -1},
    {4, "\x8F", 2, -1},
    // Shift-JIS
    {5, "\x83\x5C", 2, 2},
    {5, "\x81\x40", 2, 2},
    {5, "\xEF\xFC", 2, 2},
    {5, "\x83\x7F", 2, 2},
    {5, "\x83\x3F", 2, -1},
    {5, "\x83\xFD", 2, -1},
    {5, "\xDF\x20", 2, 1},
    {5, "\xF0\x40", 2, -1},
    {5, "\x83", 2, -1},
    // GB2312, EUC_C, EUC_K
    {7, "\xB0\xA1", 2, 2},
    {7, "\xB0\x40", 2, -1},
    {8, "\xB0\xA1", 2, 2},
    {8, "\xB0\x40", 2, -1},
    {13, "\xB0\xA1", 2, 2},
    {13, "\xB0\x40", 2, -1},
    // Big5
    {9, "\xA4\x40", 2, 2},
    {9, "\xA4\x7E", 2, 2},
    {9, "\xA4\x7F", 2, -1},
    {9, "\xA4\xA0", 2, -1},
    {9, "\xA4\xFE", 2, 2},
    // EUC_H takes the trails of Big5 too.
    {10, "\xA4\x40", 4, 2},
    {10, "\xA4\x7F", 4, -1},
    {10, "\x8E\xA2\xA1\xA1", 4, 4},
    {10, "\x8E\xB0\xFE\xFE", 4, 4},
    {10, "\x8E\xA1\xA1\xA1", 4, -1},
    {10, "\x8E\xB1\xA1\xA1", 4, -1},
    {10, "\x8E\xA2  ", 2, 4},
    {10, "\x8E\xA2\xA1 ", 3, 4},
    {10, "\x8E\xA2\xA1 ", 4, -1},
    {10, "\x8E\xA2 \xA1", 3, -1},
    {10, "\x8E\xA2\xA1", 4, -1},
    // KSC 5601 of 1987 and of 1992
    {11, "\x81\x41", 2, 2},
    {11, "\x81\x5A", 2, 2},
    {11, "\x81\x5B", 2, -1},
    {11, "\x81\x60", 2, -1},
    {11, "\x81\x61", 2, 2},
    {11, "\x81\x7A", 2, 2},
    {11, "\x81\x7B", 2, -1},
    {11, "\x81\x80", 2, -1},
    {11, "\x81\x81", 2, 2},
    {11, "\x81\x40", 2, -1},
    {12, "\x84\x41", 2, 2},
    {12, "\x84\x7E", 2, 2},
    {12, "\x84\x7F", 2, -1},
    {12, "\x84\x80", 2, -1},
    {12, "\xF9\xFE", 2, 2},
    {12, "\xFA\xA1", 2, -1},
    {12, "\xDF\xA1", 2, -1},
};

TEST(MultiByteLengths, FormsOfCharacters) {
  for (const Length& row : kLengths) {
    EXPECT_EQ(mblenExt(row.text, row.count, row.codeSet), row.length)
        << row.codeSet << " " << (row.text == nullptr ? "null" : row.text) << " " << row.count;
    Process process(row.codeSet);
    EXPECT_EQ(mb_mblen(row.text, row.count), row.length);
  }
}

TEST(MultiByteLengths, OneInPlaceOfNoCharacter) {
  EXPECT_EQ(mbbytesinchartype(nullptr, kEuc), 1);
  EXPECT_EQ(mbbytesinchartype("", kEuc), 1);
  EXPECT_EQ(mbbytesinchartype("\xB1", kEuc), 1);
  EXPECT_EQ(mbbytesinchartype("\x8F\xB0\xA1", kEuc), 3);
  EXPECT_EQ(mbbytesinchartype("\x8E\xA2\xA1\xA1", kEucH), 4);
  EXPECT_EQ(mbbytesinchartype("\x8E\xA2\xA1\xA1", 0), 1);
}

TEST(MultiByteLengths, IndexesMoveToTheStartOfTheirCharacter) {
  Process process(kEuc);
  const char* text = "a\x8F\xB0\xA1\xB1\xA1z";
  constexpr int kStarts[] = {0, 1, 1, 1, 4, 4, 6, 7, 7, 7};
  for (int i = 0; i < 10; ++i) {
    EXPECT_EQ(mbidx(text, i), kStarts[i]) << i;
    EXPECT_EQ(mbidxtype(text, i, kEuc), kStarts[i]) << i;
  }
  EXPECT_EQ(mbidx(text, -3), 0);
  EXPECT_EQ(mbidx(nullptr, 3), 0);
  EXPECT_EQ(mbnextidx(text, 1), 4);
  EXPECT_EQ(mbnextidx(text, 6), 7);
  EXPECT_EQ(mbnextidx(text, 7), 0);
  EXPECT_EQ(mbnextidx(text, -1), 0);
  EXPECT_EQ(mbnextidx(nullptr, 0), 0);
  EXPECT_EQ(mbnextchar(text, 4), text + 6);
  EXPECT_EQ(mbnextchar(text, 6), text + 7);
  EXPECT_EQ(mbnextchar(text, 7), nullptr);
  EXPECT_EQ(mbnextchar(nullptr, 0), nullptr);
}

TEST(MultiByteLengths, IndexesStayInASingleByteProcess) {
  Process process(0);
  EXPECT_EQ(mbidx("\xB1\xA1", 1), 1);
  EXPECT_EQ(mbidxtype("\xB1\xA1", 1, kEuc), 1);
  EXPECT_EQ(mbidxtype("ab", 99, kEuc), 99);
  EXPECT_EQ(mbidxtype(nullptr, 5, kEuc), 5);
  EXPECT_EQ(mbnextidx("\xB1\xA1", 0), 1);
}

TEST(MultiByteLengths, PrintableBytes) {
  for (const int codeSet : {0, kLatin2, kUtf8, kEuc}) {
    Process process(codeSet);
    for (int byte = 0; byte < 0x80; ++byte) {
      EXPECT_EQ(ismbcprint(byte), isprint(byte) != 0 ? 1 : 0) << codeSet << " " << byte;
    }
  }
  Process single(0);
  EXPECT_EQ(ismbcprint(0xB1), 0);
  Process shiftJis(kShiftJis);
  for (int byte = 0x80; byte < 0x100; ++byte) {
    const bool begins = byte != 0x80 && byte != 0xA0 && byte < 0xF0;
    EXPECT_EQ(ismbcprint(byte), begins ? 1 : 0) << byte;
    EXPECT_EQ(ismbcprint(static_cast<signed char>(byte)), begins ? 1 : 0) << byte;
  }
}

TEST(MultiByteCopy, HalfACharacterIsLeftOut) {
  Process process(kShiftJis);
  const char* text = "a\x83\x5Cz";
  char target[8];
  struct Row {
    int count;
    int copied;
    const char* expected;
  };
  constexpr Row kRows[] = {
      {0, 0, "########"},          {1, 1, "a#######"},       {2, 1, "a\0######"},
      {3, 3, "a\x83\x5C#####"},    {4, 4, "a\x83\x5Cz####"}, {5, 4, "a\x83\x5Cz\0###"},
      {7, 4, "a\x83\x5Cz\0\0\0#"}, {-1, 0, "########"},
  };
  for (const Row& row : kRows) {
    memset(target, '#', sizeof target);
    EXPECT_EQ(mbstrncpyi(target, text, row.count), row.copied) << row.count;
    EXPECT_EQ(memcmp(target, row.expected, sizeof target), 0) << row.count;
    memset(target, '#', sizeof target);
    EXPECT_EQ(mbstrncpy(target, text, row.count), target);
    EXPECT_EQ(memcmp(target, row.expected, sizeof target), 0) << row.count;
  }
}

TEST(MultiByteCopy, ASingleByteProcessCutsAnywhere) {
  Process process(0);
  char target[] = "####";
  EXPECT_EQ(mbstrncpyi(target, "a\x83\x5C", 2), 2);
  EXPECT_STREQ(target, "a\x83##");
  EXPECT_EQ(mbstrncpyi(target, "b", 3), 1);
  EXPECT_EQ(memcmp(target, "b\0\0#", 4), 0);
}

TEST(MultiByteCopy, NullIsLeftAlone) {
  for (const int codeSet : {0, kEuc}) {
    Process process(codeSet);
    char target[] = "abc";
    EXPECT_EQ(mbstrncpy(target, nullptr, 3), target);
    EXPECT_EQ(mbstrncpyi(target, nullptr, 3), 0);
    EXPECT_EQ(mbstrncpy(nullptr, "a", 1), nullptr);
    EXPECT_EQ(mbstrncpyi(nullptr, "a", 1), 0);
    EXPECT_STREQ(target, "abc");
  }
}

struct Comparison {
  int codeSet;
  const char* left;
  const char* right;
  int count;
  int folded;      // mbstricmp
  int foldedUpTo;  // mbstrnicmp
  int exact;       // mbcharcmp
};

constexpr Comparison kComparisons[] = {
    {5, "", "", 5, 0, 0, 0},
    {5, "a", "", 5, 1, 1, 1},
    {5, "", "a", 5, -1, -1, -1},
    {5, "abC", "ABc", 5, 0, 0, 1},
    {5, "ab", "abc", 5, -1, -1, -1},
    {5, "abc", "ab", 5, 1, 1, 1},
    {5, "ab", "abc", 2, -1, 0, 0},
    {5, "abx", "aby", 2, -1, 0, 0},
    {5, "a", "b", 0, -1, 0, 0},
    {5, "a", "b", -1, -1, 0, 0},
    // The longer character is the greater one, also where its first byte is not.
    {5, "\x83\x41", "\xB1", 5, 1, -1, 1},
    {5, "\xB1", "\x83\x41", 5, -1, 1, -1},
    {5, "\x83\x41", "z", 5, 1, 1, 1},
    // The second byte of a character has no case.
    {5, "\x83\x41", "\x83\x61", 5, -1, -1, -1},
    {5, "\x83\x61", "\x83\x41", 5, 1, 1, 1},
    {5, "\x83\x41\x41", "\x83\x41\x61", 5, 0, 0, -1},
    // Bytes above 127 are greater than ASCII.
    {5, "\xB1", "a", 5, 1, 1, 1},
    {5, "a", "\xB1", 5, -1, -1, -1},
    // A character that crosses the count is compared whole.
    {5, "\x83\x41", "\x83\x42", 1, -1, -1, -1},
    // Cut characters.
    {5, "\x83", "\x83", 5, 0, 0, 0},
    {5, "\x83", "\x83\x41", 5, -1, -1, -1},
    {5, "\x83\x41", "\x83", 5, 1, 1, 1},
    {4, "\x8F", "\x8F", 9, 0, 0, 0},
    {4, "\x8F\xB0", "\x8F\xB0", 9, 0, 0, 0},
    {4, "\x8F\xB0\xA1", "\x8F\xB0\xA2", 9, -1, -1, -1},
    // A single-byte process: case is folded by the C library, and mbcharcmp looks at one byte.
    {0, "abC", "ABc", 5, 0, 0, 1},
    {0, "abC", "abc", 5, 0, 0, 0},
    {0, "ab", "ac", 5, -1, -1, 0},
    {0, "ab", "ac", 1, -1, 0, 0},
    {0, "ac", "ab", 2, 1, 1, 0},
    {0, "\xB1", "a", 2, 1, 1, 1},
    {0, "b", "a", 0, 1, 0, 1},
    // Null.
    {5, nullptr, "a", 5, 0, 0, 0},
    {5, "a", nullptr, 5, 0, 0, 0},
    {0, nullptr, "a", 5, 0, 0, 0},
    {0, "a", nullptr, 5, 0, 0, 0},
};

TEST(MultiByteCompare, Order) {
  const auto sign = [](int value) { return (value > 0) - (value < 0); };
  for (const Comparison& row : kComparisons) {
    SCOPED_TRACE(testing::Message() << row.codeSet << " " << (row.left ? row.left : "null") << " "
                                    << (row.right ? row.right : "null") << " " << row.count);
    Process process(row.codeSet);
    EXPECT_EQ(mbstricmp(row.left, row.right), row.folded);
    EXPECT_EQ(sign(mbstrnicmp(row.left, row.right, row.count)), row.foldedUpTo);
    EXPECT_EQ(mbcharcmp(row.left, row.right, row.count), row.exact);
  }
}

TEST(MultiByteCase, OnlyCharactersOfOneByteChange) {
  Process process(kShiftJis);
  char text[] = "aB\x83\x61\x83\x41Z";
  EXPECT_EQ(mbstrtoupper(text), 7);
  EXPECT_STREQ(text, "AB\x83\x61\x83\x41Z");
  EXPECT_EQ(mbstrtolower(text), 7);
  EXPECT_STREQ(text, "ab\x83\x61\x83\x41z");
  EXPECT_EQ(mbtoupper(text), 1);
  EXPECT_EQ(mbtoupper(text + 2), 2);
  EXPECT_EQ(mbtolower(text + 4), 2);
  EXPECT_STREQ(text, "Ab\x83\x61\x83\x41z");
  EXPECT_EQ(mbtolower(text), 1);
  EXPECT_STREQ(text, "ab\x83\x61\x83\x41z");
  char cut[] = "\x83";
  EXPECT_EQ(mbtoupper(cut), 1);
  EXPECT_STREQ(cut, "\x83");
}

TEST(MultiByteCase, ASingleByteProcessChangesEachByte) {
  Process process(0);
  char text[] = "\x83\x61";
  EXPECT_EQ(mbtoupper(text), 1);
  EXPECT_EQ(mbstrtoupper(text), 2);
  EXPECT_STREQ(text, "\x83\x41");
  EXPECT_EQ(mbstrtolower(text), 2);
  EXPECT_STREQ(text, "\x83\x61");
}

TEST(MultiByteCase, NothingToChange) {
  for (const int codeSet : {0, kEuc}) {
    Process process(codeSet);
    EXPECT_EQ(mbtoupper(nullptr), 0);
    EXPECT_EQ(mbtolower(nullptr), 0);
    EXPECT_EQ(mbstrtoupper(nullptr), 0);
    EXPECT_EQ(mbstrtolower(nullptr), 0);
    char empty[] = "";
    EXPECT_EQ(mbstrtoupper(empty), 0);
    EXPECT_EQ(mbstrtolower(empty), 0);
  }
}

TEST(MultiByteSearch, TrailBytesAreNotFound) {
  Process process(kShiftJis);
  const char* text = "\x83\x5C\\\x83\x5C\\";
  EXPECT_EQ(placeOf(mbstrchr(text, '\\'), text), 2);
  EXPECT_EQ(placeOf(mbstrchrEncr(text, '\\'), text), 2);
  EXPECT_EQ(placeOf(mbstrrchr(text, '\\'), text), 5);
  EXPECT_EQ(placeOf(mbstrchr(text, 0x83), text), 0);
  EXPECT_EQ(placeOf(mbstrrchr(text, static_cast<signed char>(0x83)), text), 3);
  EXPECT_EQ(mbstrchr("\x83\x5C", '\\'), nullptr);
  EXPECT_EQ(mbstrrchr("\x83\x5C", '\\'), nullptr);
  EXPECT_EQ(placeOf(mbstrpbrk(text, "x\\"), text), 2);
  EXPECT_EQ(placeOf(mbstrpbrk(text, "x\x83\x5C"), text), 0);
  EXPECT_EQ(mbstrpbrk(text, "\x83\x5D"), nullptr);
  EXPECT_EQ(mbstrcspn(text, "\\"), 2);
  EXPECT_EQ(mbstrcspn(text, "\x83\x5D"), 6);
}

TEST(MultiByteSearch, TheTerminatorIsFoundInASingleByteProcessAlone) {
  Process single(0);
  EXPECT_EQ(placeOf(mbstrchr("ab", 0), "ab"), 2);
  EXPECT_STREQ(mbstrchrEncr("ab", 0), "");
  EXPECT_STREQ(mbstrrchr("ab", 0), "");
  EXPECT_EQ(placeOf(mbstrchr("\x83\x5C", '\\'), "\x83\x5C"), 1);
  Process multi(kEuc);
  EXPECT_EQ(mbstrchr("ab", 0), nullptr);
  EXPECT_EQ(mbstrchrEncr("ab", 0), nullptr);
  EXPECT_EQ(mbstrrchr("ab", 0), nullptr);
}

struct Search {
  int codeSet;
  const char* haystack;
  const char* needle;
  int first;
  int last;
};

constexpr Search kSearches[] = {
    {5,
     "ab\x83\x61"
     "bab",
     "ab", 0, 5},
    {5,
     "\x83\x61"
     "ab",
     "ab", 2, 2},
    {5,
     "\x83\x61"
     "b",
     "ab", -1, -1},
    {5, "a\x83\x61", "\x83\x61", 1, 1},
    // The needle would end inside a character.
    {5, "a\x83\x61", "a\x83", -1, -1},
    {5, "aaa", "aa", 0, 1},
    {5, "ab", "", -1, -1},
    {5, "", "", -1, -1},
    {5, "", "a", -1, -1},
    {5, "a\nb\n", "\n", 1, 3},
    {5, "\x83\nb", "\n", 1, 1},
    {4, "\xB1\xA2\xA1\xB1\xA2\xA1", "\xA1\xB1", 2, 2},
    {4, "\xB1\xA2\xA1\xB1", "\xA2\xA1", -1, -1},
    {0, "abab", "ab", 0, 2},
    {0,
     "\x83\x61"
     "b",
     "ab", 1, 1},
    {0, "ab", "", 0, -1},
    {0, "", "", 0, -1},
    {0, "a\nb\n", "\n", 1, 3},
};

TEST(MultiByteSearch, Texts) {
  for (const Search& row : kSearches) {
    Process process(row.codeSet);
    EXPECT_EQ(placeOf(mbstrstr(row.haystack, row.needle), row.haystack), row.first)
        << row.codeSet << " " << row.haystack << " " << row.needle;
    EXPECT_EQ(placeOf(mbstrrstr(row.haystack, row.needle), row.haystack), row.last)
        << row.codeSet << " " << row.haystack << " " << row.needle;
  }
}

TEST(MultiByteSearch, Null) {
  for (const int codeSet : {0, kEuc}) {
    Process process(codeSet);
    const char* text = "ab";
    EXPECT_EQ(mbstrchr(nullptr, 'a'), nullptr);
    EXPECT_EQ(mbstrchrEncr(nullptr, 'a'), nullptr);
    EXPECT_EQ(mbstrrchr(nullptr, 'a'), nullptr);
    EXPECT_EQ(mbstrstr(nullptr, "a"), nullptr);
    EXPECT_EQ(mbstrstr(nullptr, nullptr), nullptr);
    EXPECT_EQ(mbstrstr(text, nullptr), text);
    EXPECT_EQ(mbstrrstr(nullptr, "a"), nullptr);
    EXPECT_EQ(mbstrrstr(text, nullptr), text);
    EXPECT_EQ(mbstrpbrk(nullptr, "a"), nullptr);
    EXPECT_EQ(mbstrpbrk(text, nullptr), nullptr);
    EXPECT_EQ(mbstrcspn(nullptr, "a"), 0);
    EXPECT_EQ(mbstrcspn(text, nullptr), 2);
  }
}

struct Tokens {
  int codeSet;
  std::string text;
  const char* delimiters;
  std::vector<std::string> tokens;
};

TEST(MultiByteTokens, OneDelimiterIsSkipped) {
  const Tokens kRows[] = {
      {4, "a,b", ",", {"a", "b"}},
      {4, "a,,b", ",", {"a", "b"}},
      {4, "a,,,b", ",", {"a", "", "b"}},
      {4, ",,a", ",", {"", "a"}},
      {4, ",a", ",", {"a"}},
      {4, "a,", ",", {"a"}},
      {4, "a,,", ",", {"a", ""}},
      {4, ",", ",", {""}},
      {4, "", ",", {}},
      {4, "a b;c", "; ", {"a", "b", "c"}},
      {4, "abc", "", {"abc"}},
      {4, "a\xA1\xA4z", "\xA1\xA4", {"a", "z"}},
      {5, "\x83\x5C\\a", "\\", {"\x83\x5C", "a"}},
      {0, "a,,,b,", ",", {"a", "b"}},
      {0, ",", ",", {}},
      {0, "\x83\x5C\\a", "\\", {"\x83", "a"}},
  };
  for (const Tokens& row : kRows) {
    SCOPED_TRACE(row.text);
    Process process(row.codeSet);
    std::string text = row.text;
    std::vector<std::string> tokens;
    for (char* token = mbstrtok(text.data(), row.delimiters); token != nullptr;
         token = mbstrtok(nullptr, row.delimiters)) {
      tokens.push_back(token);
    }
    EXPECT_EQ(tokens, row.tokens);
    EXPECT_EQ(mbstrtok(nullptr, row.delimiters), nullptr);
    text = row.text;
    tokens.clear();
    char* position = nullptr;
    for (char* token = mbstrtok_r(text.data(), row.delimiters, &position); token != nullptr;
         token = mbstrtok_r(nullptr, row.delimiters, &position)) {
      tokens.push_back(token);
    }
    EXPECT_EQ(tokens, row.tokens);
  }
}

TEST(MultiByteTokens, TheTextIsCutAtADelimiterAlone) {
  Process process(kEuc);
  char text[] =
      "a\xA1\xA4"
      "b";
  char* position = nullptr;
  EXPECT_EQ(mbstrtok_r(text, "\xA1\xA4", &position), text);
  EXPECT_EQ(position, text + 3);
  EXPECT_EQ(memcmp(text,
                   "a\0\xA4"
                   "b",
                   5),
            0);
  EXPECT_EQ(mbstrtok_r(nullptr, "\xA1\xA4", &position), text + 3);
  EXPECT_EQ(position, nullptr);
  EXPECT_EQ(mbstrtok_r(nullptr, "\xA1\xA4", &position), nullptr);
}

TEST(MultiByteTokens, PositionsOfDifferentCallersAreApart) {
  Process process(kEuc);
  char one[] = "a,b";
  char two[] = "c,d";
  char* first = nullptr;
  char* second = nullptr;
  EXPECT_STREQ(mbstrtok_r(one, ",", &first), "a");
  EXPECT_STREQ(mbstrtok_r(two, ",", &second), "c");
  EXPECT_STREQ(mbstrtok_r(nullptr, ",", &first), "b");
  EXPECT_STREQ(mbstrtok_r(nullptr, ",", &second), "d");
  EXPECT_EQ(mbstrtok_r(one, ",", nullptr), nullptr);
}

TEST(MultiByteTokens, ASingleByteProcessHasThePositionOfStrtok) {
  Process process(0);
  char one[] = "a,b";
  char two[] = "c,d";
  char* position = one;
  EXPECT_STREQ(mbstrtok_r(one, ",", &position), "a");
  EXPECT_EQ(position, one);
  EXPECT_STREQ(strtok(two, ","), "c");
  EXPECT_STREQ(mbstrtok_r(nullptr, ",", &position), "d");
  EXPECT_EQ(position, one);
  EXPECT_EQ(mbstrtok(one, nullptr), nullptr);
}

// In a program of its own, since it depends on what was called before.
TEST(MultiByteTokensDeathTest, ANullTextAtFirstGivesNull) {
  testing::GTEST_FLAG(death_test_style) = "threadsafe";
  EXPECT_EXIT(
      {
        InitMbutilExt(0);
        char* position = nullptr;
        exit(mbstrtok(nullptr, ",") == nullptr && mbstrtok_r(nullptr, ",", &position) == nullptr
                 ? 0
                 : 1);
      },
      testing::ExitedWithCode(0), "");
}

TEST(MultiByteValidity, Characters) {
  struct Row {
    int codeSet;
    const char* text;
    int length;
    int valid;
  };
  constexpr Row kRows[] = {
      {4, nullptr, 0, 1},
      {4, "", 0, 1},
      {4, "a", 1, 1},
      {4, "\xB1\xA1", 2, 1},
      {4, "\xB1 ", 2, 0},
      {4, "\xB1", 2, 0},
      {4, "\xFF", -1, 0},
      {4, "\x8F\xB0\xA1", 3, 1},
      {4, "\x8F\xB0 ", 3, 0},
      {4, "\x8E\xE0", 2, 0},
      {5, "\xB1", 1, 1},
      {10, "\x8E\xA2\xA1\xA1", 4, 1},
      {10, "\x8E\xA2\xA1", 4, 0},
      {0, "\xFF", 1, 1},
      {0, nullptr, 1, 1},
  };
  Process process(0);
  for (const Row& row : kRows) {
    int length = 99;
    EXPECT_EQ(mbvalidchar(row.text, &length, row.codeSet), row.valid) << row.codeSet;
    EXPECT_EQ(length, row.length);
    EXPECT_EQ(mbvalidchar(row.text, nullptr, row.codeSet), row.valid);
    length = 99;
    EXPECT_EQ(mbvalidchartype(row.text, &length, row.codeSet, 0), row.valid);
    EXPECT_EQ(length, row.length);
    EXPECT_EQ(mbvalidchartype(row.text, nullptr, row.codeSet, 0), row.valid);
  }
}

TEST(MultiByteValidity, PatternsOfEveryByte) {
  for (int byte = 0; byte < 256; ++byte) {
    const char text[] = {static_cast<char>(byte), '\0'};
    const bool isSpace = byte == ' ' || (byte >= 9 && byte <= 13);
    EXPECT_EQ(mbvalidchartype(text, nullptr, kLatin2, 104),
              isSpace || (byte > 0x20 && byte < 0x7F) ? 1 : 0)
        << byte;
    EXPECT_EQ(mbvalidchartype(text, nullptr, kLatin2, 105), byte >= 'a' && byte <= 'z' ? 0 : 1);
    EXPECT_EQ(mbvalidchartype(text, nullptr, kLatin2, 106), byte >= 'A' && byte <= 'Z' ? 0 : 1);
    EXPECT_EQ(mbvalidchartype(text, nullptr, kLatin2, 103), 1);
    EXPECT_EQ(mbvalidchartype(text, nullptr, kLatin2, 107), 1);
    for (const int codeSet : {0, kLatin2}) {
      Process process(codeSet);
      for (const int type : {104, 105, 106, 107}) {
        int index = -1;
        const int expected = byte == 0 ? 1 : mbvalidchartype(text, nullptr, kLatin2, type);
        EXPECT_EQ(mbvalidatestringtype(text, &index, type), expected) << byte << " " << type;
        EXPECT_EQ(index, expected == 1 ? -1 : 0);
      }
    }
  }
  // A character of several bytes fits every pattern.
  EXPECT_EQ(mbvalidchartype("\x83\x61", nullptr, kShiftJis, 105), 1);
  EXPECT_EQ(mbvalidchartype("\x83", nullptr, kShiftJis, 0), 0);
  EXPECT_EQ(mbvalidchartype("\xB1", nullptr, kShiftJis, 104), 0);
  EXPECT_EQ(mbvalidchartype(nullptr, nullptr, kShiftJis, 105), 1);
}

TEST(MultiByteValidity, TheFirstInvalidCharacterIsTold) {
  Process process(kEuc);
  int index = -1;
  EXPECT_EQ(mbvalidatestring("a\xB1\xA1", &index, kEuc), 1);
  EXPECT_EQ(mbvalidatestring("", &index, kEuc), 1);
  EXPECT_EQ(index, -1);
  EXPECT_EQ(mbvalidatestring("a\xB1\xA1\xB1", &index, kEuc), 0);
  EXPECT_EQ(index, 3);
  EXPECT_EQ(mbvalidatestring("\x8F\xB0", &index, kEuc), 0);
  EXPECT_EQ(index, 0);
  EXPECT_EQ(mbvalidatestring("ab\xFF", &index, kEuc), 0);
  EXPECT_EQ(index, 2);
  EXPECT_EQ(mbvalidatestring("a\xB1", &index, kLatin2), 1);
  EXPECT_EQ(mbvalidatestring(nullptr, &index, kEuc), 0);
  EXPECT_EQ(mbvalidatestring("a", nullptr, kEuc), 0);
  EXPECT_EQ(mbvalidatestringtype(nullptr, &index, 104), 0);
  EXPECT_EQ(mbvalidatestringtype("a", nullptr, 104), 0);
  EXPECT_EQ(index, 2);
  EXPECT_EQ(mbvalidatestringtype("A\xB1\xA1z", &index, 105), 0);
  EXPECT_EQ(index, 3);
  EXPECT_EQ(mbvalidatestringtype("\xB1\xA1Z", &index, 106), 0);
  EXPECT_EQ(index, 2);
}

TEST(MultiByteValidity, ASingleByteProcessValidatesPatternsAlone) {
  Process process(0);
  int index = -1;
  EXPECT_EQ(mbvalidatestring("\xB1", &index, kEuc), 1);
  EXPECT_EQ(mbvalidatestring(nullptr, nullptr, kEuc), 1);
  EXPECT_EQ(index, -1);
  EXPECT_EQ(mbvalidatestringtype("ab\x01", &index, 104), 0);
  EXPECT_EQ(index, 2);
  EXPECT_EQ(mbvalidatestringtype(nullptr, &index, 104), 0);
  EXPECT_EQ(mbvalidatestringtype("a", nullptr, 104), 0);
}

}  // namespace
