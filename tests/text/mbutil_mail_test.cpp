#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "fault/FailingAllocations.h"
#include "zqxml/zqxml.h"

namespace {

constexpr int kJis = 3;
constexpr int kEuc = 4;
constexpr int kShiftJis = 5;
constexpr int kBig5 = 9;
constexpr int kEucH = 10;

#define ESC "\x1B"

// Calls `write(target, text)` with two blocks that are exactly as long as they are told to be.
template <typename Write>
std::string written(const std::string& text, size_t targetSize, Write write) {
  const std::unique_ptr<char[]> source(new char[text.size() + 1]);
  memcpy(source.get(), text.c_str(), text.size() + 1);
  const std::unique_ptr<char[]> target(new char[targetSize]);
  memset(target.get(), '#', targetSize);
  EXPECT_EQ(write(target.get(), source.get()), target.get());
  EXPECT_NE(memchr(target.get(), '\0', targetSize), nullptr);
  return target.get();
}

std::string printable(const std::string& text) {
  return written(text, 4 * text.size() + 1, convertToQuotedPrintable);
}

std::string fromPrintable(const std::string& line) {
  return written(line, line.size() + 1, convertFromQuotedPrintable);
}

std::string jisWords(const std::string& text, const std::string& charset = "iso-2022-jp") {
  return written(text, text.size() * (charset.size() + 18) + charset.size() + 8,
                 [&](char* target, const char* source) {
                   return convertSubjectToBase64(target, source, charset.c_str());
                 });
}

std::string subject(const std::string& text, int mailCodeSet, int codeSet) {
  return written(text, 48 * text.size() + 64, [&](char* target, const char* source) {
    return convertSubjectForMail(target, source, mailCodeSet, codeSet);
  });
}

struct Row {
  std::string source;
  std::string target;
};

std::string repeated(const std::string& text, size_t count) {
  std::string result;
  for (; count > 0; --count) {
    result += text;
  }
  return result;
}

TEST(QuotedPrintable, EncodesEachByteAsTold) {
  EXPECT_EQ(printable(""), "");
  for (int byte = 1; byte < 256; ++byte) {
    char expected[4] = {static_cast<char>(byte)};
    if (byte < 33 || byte > 126 || byte == '=') {
      snprintf(expected, sizeof expected, "=%02X", static_cast<unsigned>(byte));
    }
    EXPECT_EQ(printable(std::string(1, static_cast<char>(byte))), expected);
  }
}

TEST(QuotedPrintable, BreaksLinesBehindMoreThan49Characters) {
  const std::string fortyNine(49, 'x');
  const Row kRows[] = {
      {fortyNine, fortyNine},
      {fortyNine + "y", fortyNine + "y=\r\n"},
      {fortyNine + "yz", fortyNine + "y=\r\nz"},
      {fortyNine + "\n", fortyNine + "=0A=\r\n"},
      {std::string(47, 'x') + " z", std::string(47, 'x') + "=20=\r\nz"},
      {std::string(48, 'x') + " z", std::string(48, 'x') + "=20=\r\nz"},
      {std::string(46, 'x') + " z", std::string(46, 'x') + "=20z=\r\n"},
      {fortyNine + "y" + fortyNine + "z!", fortyNine + "y=\r\n" + fortyNine + "z=\r\n!"},
      {std::string(16, ' '), repeated("=20", 16)},
      {std::string(17, ' '), repeated("=20", 17) + "=\r\n"},
      {std::string(35, ' '), repeated("=20", 17) + "=\r\n" + repeated("=20", 17) + "=\r\n" + "=20"},
      {"a=b?c_d e\tf", "a=3Db?c_d=20e=09f"},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(printable(row.source), row.target) << row.source;
  }
}

TEST(QuotedPrintable, DecodesALine) {
  const Row kRows[] = {
      {"", ""},
      {"abc", "abc"},
      {"a=3Db", "a=b"},
      {"=3d=e3=E3=aF=Fa", "=\xE3\xE3\xAF\xFA"},
      {"=09=0A=0D=20=7F=FF", "\t\n\r \x7F\xFF"},
      // A line ends at the first of its ends.
      {"a\nb", "a"},
      {"a\rb", "a"},
      {"a\r\nb", "a"},
      {"\nb", ""},
      // Soft breaks.
      {"a=", "a"},
      {"a=\n", "a"},
      {"a=\r\nb", "a"},
      {"a=\rb", "a"},
      // No digits.
      {"=zz", "zz"},
      {"a=z4b", "az4b"},
      {"=z=41", "zA"},
      {"==41", "=41"},
      {"=\xE3\xE3", "\xE3"},
      {"= 41", " 41"},
      {"=\x01\x01", "\x01"},
      {"=G1=g1=/1=:1=@1=`1", "G1g1/1:1@1`1"},
      // One digit.
      {"=4z", "4z"},
      {"=az41", "az41"},
      {"=4=41", "4=41"},
      {"=4==41", "4=A"},
      {"=4\xE3\xE3", "4\xE3"},
      {"=4g=4G=4/=4:=4@=4`", "4g4G4/4:4@4`"},
      {"a=4", "a4"},
      {"a=4\nb", "a4"},
      {"a=4\r\nb", "a4"},
      // What is not printable is dropped.
      {"a\tb", "a\tb"},
      {"a\x01\x08\x0B\x0C\x1F\x7F\x80\xFF"
       "b",
       "ab"},
      {" ~", " ~"},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(fromPrintable(row.source), row.target) << row.source;
    std::string inPlace = row.source;
    convertFromQuotedPrintable(inPlace.data(), inPlace.data());
    EXPECT_EQ(inPlace.c_str(), row.target) << row.source;
  }
}

bool isDigit(char byte) {
  return byte != '\0' && strchr("0123456789ABCDEFabcdef", byte) != nullptr;
}

std::string plainlyDecoded(std::string line) {
  line = line.substr(0, line.find_first_of("\r\n"));
  if (line.empty()) {
    return "";
  }
  if (line[0] != '=') {
    const bool stays = line[0] == '\t' || (line[0] >= 32 && line[0] <= 126);
    return (stays ? line.substr(0, 1) : "") + plainlyDecoded(line.substr(1));
  }
  if (line.size() < 3) {
    return line.substr(1);
  }
  if (isDigit(line[1]) && isDigit(line[2])) {
    return static_cast<char>(std::stoi(line.substr(1, 2), nullptr, 16)) +
           plainlyDecoded(line.substr(3));
  }
  const size_t taken = isDigit(line[1]) ? 2 : 1;
  return line.substr(1, taken) + plainlyDecoded(line.substr(1 + taken));
}

TEST(QuotedPrintable, DecodingAgreesWithAPlainOne) {
  constexpr char kBytes[] = "===4Afzg \t~\x01\x7F\xE3";
  std::mt19937 random(9);
  for (int round = 0; round < 20000; ++round) {
    std::string line;
    for (size_t length = random() % 12; length > 0; --length) {
      line += random() % 40 == 0 ? '\n' : kBytes[random() % (sizeof kBytes - 1)];
    }
    ASSERT_EQ(fromPrintable(line), plainlyDecoded(line)) << line;
  }
}

TEST(QuotedPrintable, AZeroByteComesOut) {
  char target[8];
  memset(target, '#', sizeof target);
  convertFromQuotedPrintable(target, "a=00b");
  EXPECT_EQ(memcmp(target, "a\0b\0####", 8), 0);
}

TEST(QuotedPrintable, EveryByteIsDecodedAsTold) {
  for (int byte = 1; byte < 256; ++byte) {
    const std::string line(1, static_cast<char>(byte));
    const bool stays = byte == '\t' || (byte >= 32 && byte <= 126 && byte != '=');
    EXPECT_EQ(fromPrintable(line), stays ? line : "") << byte;
  }
}

// The lines of an encoded text, decoded and joined.
std::string allLinesDecoded(const std::string& text) {
  std::string result;
  for (size_t start = 0; start <= text.size();) {
    const size_t end = std::min(text.find("\r\n", start), text.size());
    result += fromPrintable(text.substr(start, end - start));
    start = end + 2;
  }
  return result;
}

TEST(QuotedPrintable, RandomTextsComeBack) {
  std::mt19937 random(7);
  for (size_t length = 0; length <= 600; ++length) {
    std::string text(length, '\0');
    for (char& byte : text) {
      byte = static_cast<char>(1 + random() % (length % 2 == 0 ? 255 : 126));
    }
    const std::string encoded = printable(text);
    ASSERT_EQ(allLinesDecoded(encoded), text);
    size_t start = 0;
    for (size_t end; (end = encoded.find("=\r\n", start)) != std::string::npos; start = end + 3) {
      ASSERT_GE(end - start, 50u);
      ASSERT_LE(end - start, 52u);
    }
    ASSERT_LT(encoded.size() - start, 50u);
  }
}

TEST(JisWords, Subjects) {
  const Row kRows[] = {
      {"", ""},
      {"Plain text? =_ \n\xE3", "Plain text? =_ \n\xE3"},
      // Groups of ESC $ B, % =, and, ahead of the next ESC, nothing.
      {ESC "$B%=" ESC "(J", "=?iso-2022-jp?B?GyRCJT0=?=\n \t=?iso-2022-jp?B?GyhK?="},
      {"Re: " ESC "$B%=", "Re: =?iso-2022-jp?B?GyRCJT0=?="},
      {ESC "$B%=%" ESC "(J", "=?iso-2022-jp?B?GyRCJT0l?=\n \t=?iso-2022-jp?B?GyhK?="},
      {ESC "$B%" ESC "(Ja", "=?iso-2022-jp?B?GyRCJQ==?=\n \t=?iso-2022-jp?B?GyhKYQ==?="},
      {ESC "$B" ESC "(J", "=?iso-2022-jp?B?GyRC?=\n \t=?iso-2022-jp?B?GyhK?="},
      // An ESC by itself is a group of its own.
      {ESC, "=?iso-2022-jp?B?Gw==?="},
      {ESC ESC, "=?iso-2022-jp?B?Gw==?=\n \t=?iso-2022-jp?B?Gw==?="},
      {"a" ESC "b" ESC "cde" ESC,
       "a=?iso-2022-jp?B?G2I=?=\n \t=?iso-2022-jp?B?G2NkZQ==?=\n \t=?iso-2022-jp?B?Gw==?="},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(jisWords(row.source), row.target) << row.source;
  }
  EXPECT_EQ(jisWords(ESC "$B%=", ""), "=??B?GyRCJT0=?=");
}

// The opening has 16 characters and the groups 4 each; a word that has 71 takes no more.
TEST(JisWords, AreSplit) {
  const std::string open = "=?iso-2022-jp?B?";
  const std::string group = "JSUl";  // %%%
  const auto text = [](size_t groups) { return ESC "$B" + repeated("%%%", groups); };
  // 16 + 4 + 13 x 4 = 72.
  const std::string full = open + "GyRC" + repeated(group, 13) + "?=";
  EXPECT_EQ(full.size(), 74u);
  EXPECT_EQ(jisWords(text(12)), open + "GyRC" + repeated(group, 12) + "?=");
  // A full word isn't closed twice, neither at the end of the text nor ahead of an ESC.
  EXPECT_EQ(jisWords(text(13)), full);
  EXPECT_EQ(jisWords(text(13) + ESC "(J"), full + "\n \t" + open + "GyhK?=");
  EXPECT_EQ(jisWords(text(14)), full + "\n \t" + open + "GyRC" + group + "?=");
  EXPECT_EQ(jisWords(text(13) + "%"), full + "\n \t" + open + "GyRCJQ==?=");
  // The repeated group counts.
  EXPECT_EQ(jisWords(text(26)), full + "\n \t" + full);
  EXPECT_EQ(jisWords(text(27)), full + "\n \t" + full + "\n \t" + open + "GyRC" + group + "?=");
  // What stands before the first ESC doesn't count.
  EXPECT_EQ(jisWords(std::string(60, 'x') + text(13)), std::string(60, 'x') + full);
}

TEST(JisWords, ALongerCharsetMakesShorterWords) {
  const auto open = [](size_t length) { return "=?" + std::string(length, 'c') + "?B?"; };
  const std::string text = ESC "$B%%%%%%";
  // The opening has 5 characters more than the charset.
  for (const size_t length : {58u, 61u}) {
    EXPECT_EQ(jisWords(text, std::string(length, 'c')),
              open(length) + "GyRCJSUl?=\n \t" + open(length) + "GyRCJSUl?=");
  }
  EXPECT_EQ(jisWords(text, std::string(57, 'c')), open(57) + "GyRCJSUlJSUl?=");
  EXPECT_EQ(jisWords(text, std::string(62, 'c')),
            open(62) + "GyRC?=\n \t" + open(62) + "GyRCJSUl?=\n \t" + open(62) + "GyRCJSUl?=");
  // The opening alone has more than 71.
  EXPECT_EQ(jisWords(text, std::string(100, 'c')),
            open(100) + "GyRC?=\n \t" + open(100) + "GyRCJSUl?=\n \t" + open(100) + "GyRCJSUl?=");
}

TEST(JisWords, WorstTextsFindRoom) {
  for (const std::string& charset :
       {std::string(), std::string("iso-2022-jp"), std::string(90, 'c')}) {
    for (const char* pattern : {ESC, ESC "a", ESC "abc", ESC "abcd", "a"}) {
      const std::string text = std::string(ESC) + repeated(pattern, 200);
      EXPECT_GT(jisWords(text, charset).size(), text.size());
    }
  }
}

// Word by word, from a list of the parts that begin with an ESC.
std::string plainlyWorded(const std::string& text, const std::string& charset) {
  std::string result = text.substr(0, text.find('\x1B'));
  std::vector<std::string> words;
  for (size_t start = result.size(); start < text.size();) {
    const size_t end = std::min(text.find('\x1B', start + 1), text.size());
    std::string first;
    std::string word = "=?" + charset + "?B?";
    for (size_t place = start; place < end; place += 3) {
      const std::string bytes = text.substr(place, std::min<size_t>(3, end - place));
      char group[5];
      EncodeBase64Line(bytes.data(), static_cast<unsigned>(bytes.size()), "", group);
      if (place == start) {
        first = group;
      } else if (word.size() >= 71) {
        words.push_back(word + "?=");
        word = "=?" + charset + "?B?" + first;
      }
      word += group;
    }
    words.push_back(word + "?=");
    start = end;
  }
  for (size_t i = 0; i < words.size(); ++i) {
    result += (i == 0 ? "" : "\n \t") + words[i];
  }
  return result;
}

TEST(JisWords, AgreeWithPlainOnes) {
  std::mt19937 random(11);
  for (size_t length = 0; length <= 500; ++length) {
    std::string text(length, '\0');
    const unsigned escapes = 1 + static_cast<unsigned>(random() % 100);
    for (char& byte : text) {
      byte = random() % escapes == 0 ? '\x1B' : static_cast<char>(1 + random() % 255);
    }
    const std::string charset(random() % 90, 'c');
    ASSERT_EQ(jisWords(text, charset), plainlyWorded(text, charset));
  }
}

class Subjects : public testing::Test {
 protected:
  void TearDown() override { InitMbutilExt(0); }
};

TEST_F(Subjects, InOtherCodeSetsAreQuoted) {
  InitMbutilExt(0);
  const std::string fifty(50, 'x');
  const Row kRows[] = {
      {"", ""},
      {"plain", "=?iso-8859-1?Q?plain?="},
      {"a b", "=?iso-8859-1?Q?a=20b?="},
      {"What?_=", "=?iso-8859-1?Q?What?_=3D?="},
      {"\xE4\xF6", "=?iso-8859-1?Q?=E4=F6?="},
      {"=\r\n", "=?iso-8859-1?Q?=3D=0D=0A?="},
      // A break at the end of the text begins no further word.
      {fifty, "=?iso-8859-1?Q?" + fifty + "?="},
      {fifty + "y", "=?iso-8859-1?Q?" + fifty + "?=\n \t=?iso-8859-1?Q?y?="},
      {fifty + fifty, "=?iso-8859-1?Q?" + fifty + "?=\n \t=?iso-8859-1?Q?" + fifty + "?="},
      {std::string(18, ' '),
       "=?iso-8859-1?Q?" + repeated("=20", 17) + "?=\n \t=?iso-8859-1?Q?=20?="},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(subject(row.source, 0, 0), row.target) << row.source;
  }
}

TEST_F(Subjects, AreConvertedAndNamed) {
  struct Case {
    int mailCodeSet;
    int codeSet;
    const char* text;
    const char* target;
  };
  constexpr Case kCases[] = {
      {14, 23, "\x8A", "=?iso-8859-2?Q?=A9?="},    {17, 24, "\xCF", "=?iso-8859-5?Q?=BF?="},
      {24, 17, "\xBF", "=?cp-1251?Q?=CF?="},       {9, 10, "\xC4\xA1", "=?iso-2022-cn?Q?=A4@?="},
      {10, 9, "\xA4@", "=?iso-8859-1?Q?=C4=A1?="}, {12, 12, "\xB0\xA1", "=?iso-2022-kr?Q?=B0=A1?="},
      {4, 5, "\x83\\", "=?iso-8859-1?Q?=A5=BD?="}, {25, 0, "\xE4", "=?cp-1253?Q?=E4?="},
      {65, 5, "\x83\\", "=?iso-8859-1?Q?=83\\?="},
  };
  for (const Case& row : kCases) {
    EXPECT_EQ(subject(row.text, row.mailCodeSet, row.codeSet), row.target)
        << row.mailCodeSet << " " << row.codeSet;
  }
}

TEST_F(Subjects, AreTheLinesOfQuotedPrintable) {
  std::mt19937 random(12);
  for (size_t length = 0; length <= 300; ++length) {
    std::string text(length, '\0');
    for (char& byte : text) {
      byte = static_cast<char>(1 + random() % (length % 2 == 0 ? 255 : 127));
    }
    std::string expected;
    std::string lines = printable(text);
    while (!lines.empty()) {
      const size_t end = std::min(lines.find("=\r\n"), lines.size());
      expected +=
          (expected.empty() ? "=?cp-1258?Q?" : "\n \t=?cp-1258?Q?") + lines.substr(0, end) + "?=";
      lines.erase(0, end + 3);
    }
    ASSERT_EQ(subject(text, 30, 0), expected);
  }
}

TEST_F(Subjects, InJisAreCutToPieces) {
  const std::string open = "=?iso-2022-jp?B?";
  const Row kRows[] = {
      {"", ""},
      {"plain", "plain"},
      {"abcdefghijklmnopqrst", "abcdefghijklmnopqrst"},
      {"abcdefghijklmnopqrstu", "abcdefghijklmnopqrst\n \tu"},
      {"\xA5\xBD", open + "GyRCJT0=?=\n \t" + open + "GyhK?="},
      {"Re: \xA5\xBD!", "Re: " + open + "GyRCJT0=?=\n \t" + open + "GyhKIQ==?="},
      {std::string(19, 'a') + "\xA5\xBD",
       std::string(19, 'a') + "\n \t" + open + "GyRCJT0=?=\n \t" + open + "GyhK?="},
      {std::string(18, 'a') + "\xA5\xBD"
                              "b",
       std::string(18, 'a') + open + "GyRCJT0=?=\n \t" + open + "GyhK?=\n \tb"},
  };
  InitMbutilExt(kEuc);
  for (const Row& row : kRows) {
    EXPECT_EQ(subject(row.source, kJis, kEuc), row.target) << row.source;
  }
}

// Deliberate: the native code set tells where characters end, not the one of the text.
TEST_F(Subjects, AreCutByTheNativeCodeSet) {
  const std::string open = "=?iso-2022-jp?B?";
  const std::string text = std::string(19, 'a') + "\xA5\xBD";
  InitMbutilExt(0);
  EXPECT_EQ(subject(text, kJis, kEuc), std::string(19, 'a') + "\xA5\n \t\xBD");
  InitMbutilExt(kShiftJis);
  EXPECT_EQ(subject(text, kJis, kEuc), std::string(19, 'a') + "\xA5\n \t\xBD");
  EXPECT_EQ(subject(std::string(19, 'a') + "\x83\\", kJis, kShiftJis),
            std::string(19, 'a') + "\n \t" + open + "GyRCJT0=?=\n \t" + open + "GyhK?=");
}

TEST_F(Subjects, WithoutAConverterToJisArePassed) {
  InitMbutilExt(0);
  EXPECT_EQ(subject("\xE4" + std::string(20, 'b'), kJis, 0),
            "\xE4" + std::string(19, 'b') + "\n \tb");
  EXPECT_EQ(subject(ESC "$B%=" ESC "(J", kJis, kJis), jisWords(ESC "$B%=" ESC "(J"));
}

TEST_F(Subjects, WorstTextsFindRoom) {
  std::mt19937 random(3);
  // Half-width katakana between ASCII grow most, and those between escapes more.
  const std::string characters[] = {"\xB1", "\x8E\xB1", "A", ESC, "\xA5\xBD", "\x8E\xA2\xA1\xA1"};
  for (const int native : {0, kEuc, kShiftJis, kEucH}) {
    InitMbutilExt(native);
    for (const int codeSet : {0, kJis, kEuc, kShiftJis, kBig5, kEucH}) {
      for (const int mailCodeSet : {0, kJis, kEuc, kShiftJis, kBig5, kEucH, 14}) {
        for (const std::string& first : characters) {
          for (const std::string& second : characters) {
            for (const size_t count : {1u, 5u, 9u, 10u, 30u}) {
              const std::string text = repeated(first + second, count);
              subject(text, mailCodeSet, codeSet);
              subject(text + first, mailCodeSet, codeSet);
            }
          }
        }
        for (int round = 0; round < 20; ++round) {
          std::string text;
          for (size_t length = random() % 60; length > 0; --length) {
            text += characters[random() % std::size(characters)];
          }
          subject(text, mailCodeSet, codeSet);
        }
      }
    }
  }
}

TEST_F(Subjects, OfGrowingPairsTakeTheToldRoom) {
  InitMbutilExt(kShiftJis);
  EXPECT_EQ(subject(repeated("\xB1"
                             "A",
                             10),
                    kJis, kShiftJis)
                .size(),
            577u);
}

TEST(Mail, NullIsLeftAlone) {
  char target[] = "abc";
  EXPECT_EQ(convertToQuotedPrintable(target, nullptr), target);
  EXPECT_EQ(convertToQuotedPrintable(nullptr, "a"), nullptr);
  EXPECT_EQ(convertFromQuotedPrintable(target, nullptr), target);
  EXPECT_EQ(convertFromQuotedPrintable(nullptr, "a"), nullptr);
  EXPECT_EQ(convertSubjectToBase64(target, nullptr, "a"), target);
  EXPECT_EQ(convertSubjectToBase64(target, "a", nullptr), target);
  EXPECT_EQ(convertSubjectToBase64(nullptr, "a", "a"), nullptr);
  EXPECT_EQ(convertSubjectForMail(target, nullptr, 3, 4), target);
  EXPECT_EQ(convertSubjectForMail(nullptr, "a", 3, 4), nullptr);
  EXPECT_STREQ(target, "abc");
}

TEST(Mail, TransferEncodings) {
  for (int codeSet = -1; codeSet <= 66; ++codeSet) {
    EXPECT_STREQ(getTransferEncodingFromCodeSet(codeSet), codeSet == 3 ? "7bit" : "8bit");
  }
}

// A stream over a text.
class Stream {
 public:
  explicit Stream(std::string text) : content(std::move(text)) {
    stream = fmemopen(content.data(), content.size(), "r");
  }
  ~Stream() { fclose(stream); }
  Stream(const Stream&) = delete;
  Stream& operator=(const Stream&) = delete;
  operator FILE*() { return stream; }
  std::string rest() {
    std::string text;
    for (int byte; (byte = fgetc(stream)) != EOF;) {
      text += static_cast<char>(byte);
    }
    return text;
  }

 private:
  std::string content;
  FILE* stream;
};

class Lines : public testing::Test {
 protected:
  void TearDown() override { InitMbutilExt(0); }

  // The next line, read into a block of its size; null is the text "null".
  static std::string next(FILE* stream, int size, int kind, int from = 0, int to = 0) {
    const std::unique_ptr<char[]> buffer(new char[static_cast<size_t>(size)]);
    memset(buffer.get(), '#', static_cast<size_t>(size));
    const char* line = getLine(buffer.get(), size, stream, from, kind, to);
    if (line == nullptr) {
      return "null";
    }
    EXPECT_EQ(line, buffer.get());
    EXPECT_EQ(line[size - 1], '\0');
    return line;
  }
};

TEST_F(Lines, ArePlainInMostKinds) {
  for (const int kind : {0, 1, 2, 5, -1, 99}) {
    InitMbutilExt(kEuc);
    Stream stream("a=41\n\x83\\=\nlonger than the room\nlast");
    EXPECT_EQ(next(stream, 10, kind, kShiftJis, kEuc), "a=41\n");
    EXPECT_EQ(next(stream, 10, kind, kShiftJis, kEuc), "\xA5\xBD=\n");
    EXPECT_EQ(next(stream, 10, kind, kShiftJis, kEuc), "longer th");
    EXPECT_EQ(next(stream, 10, kind, kShiftJis, kEuc), "an the ro");
    EXPECT_EQ(next(stream, 10, kind, kShiftJis, kEuc), "om\n");
    EXPECT_EQ(next(stream, 10, kind, kShiftJis, kEuc), "last");
    EXPECT_EQ(next(stream, 10, kind, kShiftJis, kEuc), "null");
  }
}

TEST_F(Lines, ThatGrowAreCutBetweenCharacters) {
  InitMbutilExt(kEuc);
  for (const int kind : {0, ZQ_TRANSFER_QUOTED_PRINTABLE}) {
    Stream stream(kind == 0 ? "\xB1\xB2\xB3\xB4\nb" : "=B1=\n=B2=\n=B3=\n=B4\nb");
    EXPECT_EQ(next(stream, 6, kind, kShiftJis, kEuc), "\x8E\xB1\x8E\xB2");
    EXPECT_EQ(stream.rest(), "b");
  }
}

TEST_F(Lines, FillTheBufferWithZeros) {
  InitMbutilExt(kEuc);
  for (const int kind : {0, ZQ_TRANSFER_QUOTED_PRINTABLE}) {
    Stream stream("ab\n");
    char buffer[8];
    memset(buffer, '#', sizeof buffer);
    EXPECT_EQ(getLine(buffer, 8, stream, 0, kind, 0), buffer);
    EXPECT_EQ(memcmp(buffer, "ab\n\0\0\0\0\0", 8), 0);
  }
}

TEST_F(Lines, OfQuotedPrintable) {
  struct Case {
    const char* content;
    const char* line;
    const char* rest;
  };
  constexpr Case kCases[] = {
      {"a=41b\nnext", "aAb\n", "next"},
      {"a=41b\r\nnext", "aAb\n", "next"},
      {"\nnext", "\n", "next"},
      {"one=\ntwo=\r\nthree\nnext", "onetwothree\n", "next"},
      {"one=\n\nnext", "one\n", "next"},
      {"one=\n=\n=\ntwo\nnext", "onetwo\n", "next"},
      {"end", "end\n", ""},
      // The stream ends inside.
      {"one=\n", "one\n", ""},
      {"one=\ntwo=", "onetwo\n", ""},
      {"=", "\n", ""},
      // Escapes don't go over the end of a line.
      {"=4=\n1\nnext", "4=1\n", "next"},
      {"a=3D\nnext", "a=\n", "next"},
      // The last "=" decides, also behind a carriage return that ends what is decoded.
      {"a==\nb\nnext", "a=b\n", "next"},
      {"a\rb=\nc\nnext", "ac\n", "next"},
      {"a\r=\nc\nnext", "ac\n", "next"},
      {"a= \nnext", "a \n", "next"},
      {"a=00b\nnext", "a\n", "next"},
      {"\xE3z\x01\n", "z\n", ""},
  };
  for (const Case& row : kCases) {
    Stream stream(row.content);
    EXPECT_EQ(next(stream, 64, ZQ_TRANSFER_QUOTED_PRINTABLE), row.line) << row.content;
    EXPECT_EQ(stream.rest(), row.rest) << row.content;
    EXPECT_EQ(next(stream, 64, ZQ_TRANSFER_QUOTED_PRINTABLE), "null");
  }
}

TEST_F(Lines, OfQuotedPrintableThatAreLongerThanTheRoomAreSeveral) {
  Stream stream("abcdefghij=\nk\nl\n");
  EXPECT_EQ(next(stream, 8, ZQ_TRANSFER_QUOTED_PRINTABLE), "abcdefg");
  EXPECT_EQ(next(stream, 8, ZQ_TRANSFER_QUOTED_PRINTABLE), "hijk\n");
  EXPECT_EQ(next(stream, 8, ZQ_TRANSFER_QUOTED_PRINTABLE), "l\n");
  // What is joined is longer than the room: the rest is lost.
  Stream joined("abcde=\nfghij=\nk\nl\n");
  EXPECT_EQ(next(joined, 8, ZQ_TRANSFER_QUOTED_PRINTABLE), "abcdefg");
  EXPECT_EQ(next(joined, 8, ZQ_TRANSFER_QUOTED_PRINTABLE), "l\n");
}

TEST_F(Lines, OfQuotedPrintableAreConvertedOnceJoined) {
  InitMbutilExt(kEuc);
  Stream stream("=83=\n=5C=1B\n");
  EXPECT_EQ(next(stream, 64, ZQ_TRANSFER_QUOTED_PRINTABLE, kShiftJis, kEuc), "\xA5\xBD\x1B\n");
  Stream jis("=1B$B%=3D=\n%=3D=\n=1B(J!\n");
  EXPECT_EQ(next(jis, 64, ZQ_TRANSFER_QUOTED_PRINTABLE, kJis, kShiftJis), "\x83\\\x83\\!\n");
}

TEST_F(Lines, OfQuotedPrintableMayBeMany) {
  Stream stream(repeated("abcdefghi=\n", 5000) + "z\nnext");
  EXPECT_EQ(next(stream, 50000, ZQ_TRANSFER_QUOTED_PRINTABLE), repeated("abcdefghi", 5000) + "z\n");
  EXPECT_EQ(stream.rest(), "next");
}

TEST_F(Lines, ThatArentRead) {
  Stream stream("abc");
  char buffer[] = "###";
  EXPECT_EQ(getLine(buffer, 4, stream, kShiftJis, ZQ_TRANSFER_UNREAD, kEuc), buffer);
  EXPECT_EQ(getLine(buffer, 0, stream, kShiftJis, ZQ_TRANSFER_UNREAD, kEuc), buffer);
  EXPECT_STREQ(buffer, "###");
  EXPECT_EQ(stream.rest(), "abc");
}

TEST_F(Lines, WithoutRoomOrStream) {
  for (const int kind : {0, ZQ_TRANSFER_QUOTED_PRINTABLE}) {
    Stream stream("abc");
    char buffer[] = "###";
    for (const int size : {1, 0, -1}) {
      EXPECT_EQ(getLine(buffer, size, stream, 0, kind, 0), nullptr);
    }
    EXPECT_EQ(getLine(nullptr, 4, stream, 0, kind, 0), nullptr);
    EXPECT_EQ(getLine(buffer, 4, nullptr, 0, kind, 0), nullptr);
    EXPECT_STREQ(buffer, "###");
    EXPECT_EQ(next(stream, 2, kind), "a");
    EXPECT_EQ(next(stream, 2, kind), "b");
  }
}

TEST_F(Lines, ExhaustedMemory) {
  InitMbutilExt(kEuc);
  const long blocks = fault::liveBlocks();
  const auto count = [](const char* content, int kind) {
    return fault::forEachFailure([&](auto arm) {
      Stream stream(content);
      char buffer[32];
      const char* line = nullptr;
      bool happened = false;
      {
        const auto armed = arm();
        line = getLine(buffer, sizeof buffer, stream, kShiftJis, kind, kEuc);
        happened = fault::FailingAllocations::happened();
      }
      EXPECT_EQ(line, happened ? nullptr : buffer);
      return happened;
    });
  };
  EXPECT_EQ(count("a\n", 0), 4);
  EXPECT_EQ(count("a=\nb=\nc=\nd\n", ZQ_TRANSFER_QUOTED_PRINTABLE), 4);
  EXPECT_EQ(count("abcdefghijklmnopqrstuvwxyz=\nabcdefghijklmnopqrstuvwxyz=\nabcdefg\n",
                  ZQ_TRANSFER_QUOTED_PRINTABLE),
            6);
  EXPECT_EQ(fault::liveBlocks(), blocks);
}

TEST_F(Subjects, ExhaustedMemory) {
  InitMbutilExt(kEuc);
  const long blocks = fault::liveBlocks();
  for (const int mailCodeSet : {0, kJis}) {
    const long failures = fault::forEachFailure([&](auto arm) {
      char target[256] = "old";
      const char* result = nullptr;
      bool happened = false;
      {
        const auto armed = arm();
        result = convertSubjectForMail(target, "ab", mailCodeSet, kEuc);
        happened = fault::FailingAllocations::happened();
      }
      EXPECT_EQ(result, target);
      EXPECT_STREQ(target, happened ? "" : mailCodeSet == 0 ? "=?iso-8859-1?Q?ab?=" : "ab");
      return happened;
    });
    EXPECT_EQ(failures, mailCodeSet == 0 ? 2 : 0);
  }
  EXPECT_EQ(fault::liveBlocks(), blocks);
}

}  // namespace
