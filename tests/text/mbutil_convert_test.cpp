#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <utility>

#include "fault/FailingAllocations.h"
#include "zqxml/zqxml.h"

namespace {

constexpr int kJis = 3;
constexpr int kEuc = 4;
constexpr int kShiftJis = 5;
constexpr int kBig5 = 9;
constexpr int kEucH = 10;

class Conversions : public testing::Test {
 protected:
  void TearDown() override { InitMbutilExt(0); }
};

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

 private:
  std::string content;
  FILE* stream;
};

// What a call writes to a stream.
template <typename Call>
std::string written(Call call) {
  char* text = nullptr;
  size_t size = 0;
  FILE* stream = open_memstream(&text, &size);
  call(stream);
  fclose(stream);
  const std::unique_ptr<char, decltype(&free)> owner(text, free);
  return {text, size};
}

TEST_F(Conversions, EachPairHasItsConverter) {
  // The same source means something in each of the code sets.
  const std::string source = "a\x01\xB1\xA1\x83\x5C\x1B$B0!\x1B(Bz";
  char* (*const kByPair[])(const char*, char*) = {
      jis2shiftx, jis2eucx,  euc2shiftx,     euc2jisx,       shift2eucx,     shift2jisx,
      big2euchx,  euch2bigx, c8859_2To1250x, c8859_5To1251x, c1250To8859_2x, c1251To8859_5x,
  };
  const std::pair<int, int> kPairs[] = {{3, 5},  {3, 4},  {4, 5},   {4, 3},   {5, 4},   {5, 3},
                                        {9, 10}, {10, 9}, {14, 23}, {17, 24}, {23, 14}, {24, 17}};
  std::map<std::pair<int, int>, std::string> expected;
  for (size_t i = 0; i < std::size(kPairs); ++i) {
    char target[128];
    expected[kPairs[i]] = kByPair[i](source.c_str(), target);
    EXPECT_NE(expected[kPairs[i]], source) << i;
  }
  for (int from = -1; from <= 66; ++from) {
    for (int to = -1; to <= 66; ++to) {
      char target[128];
      EXPECT_EQ(convertStrExt(source.c_str(), from, target, to), target);
      const auto pair = expected.find({from, to});
      EXPECT_EQ(target, pair == expected.end() ? source : pair->second) << from << " " << to;
    }
  }
}

TEST_F(Conversions, NullIsLeftAlone) {
  for (const auto& [from, to] : {std::pair{4, 5}, std::pair{4, 4}, std::pair{9, 10},
                                 std::pair{14, 23}, std::pair{3, 4}, std::pair{5, 3}}) {
    char target[] = "abc";
    EXPECT_EQ(convertStrExt(nullptr, from, target, to), target);
    EXPECT_STREQ(target, "abc");
    EXPECT_EQ(convertStrExt("a", from, nullptr, to), nullptr);
  }
  char target[] = "abc";
  InitMbutilExt(kEuc);
  EXPECT_EQ(mbconvertnativestring(target, nullptr, kShiftJis), 0);
  EXPECT_EQ(mbconvertnativestring(nullptr, "a", kShiftJis), 0);
  EXPECT_EQ(UnixCodingToWindowsCodingExt(nullptr, target), nullptr);
  EXPECT_EQ(UnixCodingToWindowsCodingExt("a", nullptr), nullptr);
  EXPECT_EQ(WindowsCodingToUnixCodingExt(nullptr, target), nullptr);
  EXPECT_EQ(WindowsCodingToUnixCodingExt("a", nullptr), nullptr);
  EXPECT_STREQ(target, "abc");
}

TEST_F(Conversions, FromTheNativeCodeSet) {
  char target[16];
  InitMbutilExt(kEuc);
  EXPECT_EQ(mbconvertnativestring(target, "\xA5\xBD", kShiftJis), 1);
  EXPECT_STREQ(target, "\x83\x5C");
  EXPECT_EQ(mbconvertnativestring(target, "\xA5\xBD", kEuc), 1);
  EXPECT_STREQ(target, "\xA5\xBD");
}

TEST_F(Conversions, BetweenUnixAndWindows) {
  char target[16];
  for (const int native : {kEuc, kShiftJis}) {
    InitMbutilExt(native);
    EXPECT_EQ(UnixCodingToWindowsCodingExt("\xA5\xBD", target), target);
    EXPECT_STREQ(target, "\x83\x5C") << native;
    EXPECT_EQ(WindowsCodingToUnixCodingExt("\x83\x5C", target), target);
    EXPECT_STREQ(target, "\xA5\xBD") << native;
  }
  for (const int native : {0, kJis, kBig5, kEucH}) {
    InitMbutilExt(native);
    EXPECT_EQ(UnixCodingToWindowsCodingExt("\xA5\xBD", target), target);
    EXPECT_STREQ(target, "\xA5\xBD") << native;
    EXPECT_EQ(WindowsCodingToUnixCodingExt("\x83\x5C", target), target);
    EXPECT_STREQ(target, "\x83\x5C") << native;
  }
}

TEST_F(Conversions, TheLongerOfTwoLengths) {
  struct Row {
    int native;
    const char* text;
    int length;
  };
  constexpr Row kRows[] = {
      {5, nullptr, 0},
      {5, "", 0},
      {5, "a\xB1\x83\x5C", 5},  // the half-width character grows to two bytes
      {4, "a\xB1\x83\x5C", 4},
      {9, "a\xC9\x40", 5},  // plane 2 grows to four bytes
      {9, "a\xA4\x40", 3},
      {9, "\xA4", 2},               // "??"
      {10, "\x8E\xA2\xA1\xA1", 4},  // shrinks to two
      {10, "\xC4", 2},              // "??"
      {10, "a\xC4\xA1", 3},
      {8, "\xA4", 1},
      {0, "abc", 3},
  };
  for (const Row& row : kRows) {
    InitMbutilExt(row.native);
    EXPECT_EQ(MaxStringLengthOnWinAndUnix(row.text), row.length) << row.native;
  }
}

TEST_F(Conversions, SupportedForFiles) {
  for (int from = -1; from <= 66; ++from) {
    for (int to = -1; to <= 66; ++to) {
      const bool expected = (from == 5 && to == 4) || (from == 4 && to == 5) ||
                            (from == 9 && to == 10) || (from == 10 && to == 9) ||
                            (from == 3 && to == 5) || (from == 3 && to == 4);
      EXPECT_EQ(IsConversionSupport(from, to), expected ? 1 : 0) << from << " " << to;
    }
  }
}

TEST_F(Conversions, Languages) {
  const auto language = [](int codeSet) {
    return codeSet >= 3 && codeSet <= 5     ? 'j'
           : codeSet >= 7 && codeSet <= 10  ? 'c'
           : codeSet >= 11 && codeSet <= 13 ? 'k'
                                            : '-';
  };
  for (int first = -1; first <= 66; ++first) {
    for (int second = -1; second <= 66; ++second) {
      const bool expected = language(first) != '-' && language(first) == language(second);
      EXPECT_EQ(sameLanguage(first, second), expected ? 1 : 0) << first << " " << second;
    }
  }
}

TEST_F(Conversions, LinesAreRead) {
  InitMbutilExt(kEuc);
  Stream stream(
      "\x83\x5C"
      "a\n\x83\x5C\x83\x5C\n");
  char line[10];
  memset(line, '#', sizeof line);
  EXPECT_EQ(mbfgets(line, 10, stream, kShiftJis), line);
  // The rest is zeroed, up to the last byte, which is only written if the line is as long.
  EXPECT_EQ(memcmp(line,
                   "\xA5\xBD"
                   "a\n\0\0\0\0\0#",
                   10),
            0);
  memset(line, '#', sizeof line);
  EXPECT_EQ(mbfgets(line, 6, stream, kShiftJis), line);
  EXPECT_EQ(memcmp(line, "\xA5\xBD\xA5\xBD\n\0####", 10), 0);
  EXPECT_EQ(mbfgets(line, 10, stream, kShiftJis), nullptr);
}

TEST_F(Conversions, ALineThatGrowsIsCutBetweenCharacters) {
  InitMbutilExt(kEuc);
  char line[] = "########";
  {
    // Four half-width characters become eight bytes, of which four find room.
    Stream stream("\xB1\xB2\xB3\xB4\n");
    EXPECT_EQ(mbfgets(line, 6, stream, kShiftJis), line);
    EXPECT_EQ(memcmp(line, "\x8E\xB1\x8E\xB2\0###", 8), 0);
    EXPECT_EQ(fgetc(stream), EOF);
  }
  Stream stream("ab\n");
  EXPECT_EQ(mbfgets(line, 1, stream, kShiftJis), line);
  EXPECT_STREQ(line, "");
  EXPECT_EQ(fgetc(stream), 'a');
  EXPECT_EQ(mbfgets(line, 0, stream, kShiftJis), nullptr);
  EXPECT_EQ(mbfgets(line, -1, stream, kShiftJis), nullptr);
  EXPECT_EQ(mbfgets(nullptr, 5, stream, kShiftJis), nullptr);
  EXPECT_EQ(mbfgets(line, 5, nullptr, kShiftJis), nullptr);
}

TEST_F(Conversions, LinesPassWithoutACodeSet) {
  for (const auto& [native, codeSet] : {std::pair{kEuc, 0}, std::pair{0, kShiftJis}}) {
    InitMbutilExt(native);
    Stream stream("\x83\x5C\n");
    char line[] = "#####";
    EXPECT_EQ(mbfgets(line, 5, stream, codeSet), line);
    EXPECT_EQ(memcmp(line, "\x83\x5C\n\0#", 5), 0);
  }
}

TEST_F(Conversions, LinesInJisFindRoom) {
  InitMbutilExt(kJis);
  Stream stream(
      "\xB1"
      "A\xB1"
      "A\xB1\n");
  char line[64];
  EXPECT_EQ(mbfgets(line, 64, stream, kShiftJis), line);
  EXPECT_STREQ(line, "\x1B$B%\"\x1B(JA\x1B$B%\"\x1B(JA\x1B$B%\"\x1B(J\n");
}

TEST_F(Conversions, TextsAreWritten) {
  InitMbutilExt(kEuc);
  EXPECT_EQ(written([](FILE* stream) { EXPECT_GE(mbfputs("\xA5\xBDz", stream, kShiftJis), 0); }),
            "\x83\x5Cz");
  EXPECT_EQ(written([](FILE* stream) { EXPECT_GE(mbfputs("\xA5\xBDz", stream, 0), 0); }),
            "\xA5\xBDz");
  EXPECT_EQ(written([](FILE* stream) {
              EXPECT_GE(mbfputs("\x8E\xB1"
                                "a",
                                stream, kJis),
                        0);
            }),
            "\x1B$B%\"\x1B(Ja");
  EXPECT_EQ(written([](FILE* stream) { EXPECT_EQ(mbfputs(nullptr, stream, kJis), 0); }), "");
  EXPECT_EQ(mbfputs("a", nullptr, kJis), -1);
  InitMbutilExt(0);
  EXPECT_EQ(written([](FILE* stream) { EXPECT_GE(mbfputs("\xA5\xBDz", stream, kShiftJis), 0); }),
            "\xA5\xBDz");
  EXPECT_EQ(mbfputs(nullptr, nullptr, kJis), 0);
  EXPECT_EQ(mbfputs("a", nullptr, kJis), -1);
}

TEST_F(Conversions, TextsOfTheWorstGrowthFindRoom) {
  // In JIS nine bytes for two.
  InitMbutilExt(kShiftJis);
  std::string text;
  std::string expected;
  for (int i = 0; i < 1000; ++i) {
    text +=
        "\xB1"
        "A";
    expected += "\x1B$B%\"\x1B(JA";
  }
  EXPECT_EQ(written([&](FILE* stream) { mbfputs(text.c_str(), stream, kJis); }), expected);
}

TEST_F(Conversions, BlocksEndBetweenCharacters) {
  struct Row {
    int codeSet;
    const char* text;
    int count;
    int delivered;
  };
  constexpr Row kRows[] = {
      {4, "ab\xB1\xA1", 4, 4},
      {4, "ab\xB1\xA1", 3, 2},
      {4, "ab\xB1\xA1", 9, 4},
      {4, "ab\xB1", 9, 3},  // at the end of the stream as it is
      {4, "a\x8F\xB0\xA1z", 2, 1},
      {4, "a\x8F\xB0\xA1z", 3, 1},
      {4, "a\x8F\xB0\xA1z", 4, 4},
      {10, "a\x8E\xA2\xA1\xA1z", 4, 1},
      {10, "a\x8E\xA2\xA1\xA1z", 3, 1},
      {10, "a\x8E\xA2\xA1\xA1z", 5, 5},
      {4, "a\xFFz", 2, 1},  // an invalid last byte is taken for half a character
      {4, "\xFFz", 1, 0},
      {4, "\xB1\xA1", 1, 0},
      {4,
       "a\xFF"
       "bz",
       3, 3},
      {5, "a\x83\x5Cz", 2, 1},
      {0, "a\xB1z", 2, 2},
      {3, "a\xB1z", 2, 2},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(testing::Message() << row.codeSet << " " << row.text << " " << row.count);
    InitMbutilExt(kEuc);
    Stream stream(row.text);
    char block[] = "##########";
    EXPECT_EQ(mbfreadstringtype(block, row.count, stream, row.codeSet), row.delivered);
    EXPECT_EQ(block[row.delivered], '\0');
    EXPECT_EQ(memcmp(block, row.text, static_cast<size_t>(row.delivered)), 0);
    EXPECT_EQ(ftell(stream), row.delivered);
  }
}

TEST_F(Conversions, BlocksWithZerosEndBetweenCharactersToo) {
  InitMbutilExt(kEuc);
  Stream stream(std::string("a\0b\xB1\xA1", 5));
  char block[8];
  EXPECT_EQ(mbfreadstring(block, 4, stream), 3);
  EXPECT_EQ(memcmp(block, "a\0b", 4), 0);
}

TEST_F(Conversions, BlocksOfASingleByteProcess) {
  InitMbutilExt(0);
  Stream stream("ab\xB1\xA1");
  char block[] = "#####";
  EXPECT_EQ(mbfreadstringtype(block, 3, stream, kEuc), 3);
  EXPECT_STREQ(block, "ab\xB1##");
}

TEST_F(Conversions, BlocksOfNothing) {
  InitMbutilExt(kEuc);
  Stream stream("ab");
  char block[] = "###";
  EXPECT_EQ(mbfreadstring(block, 0, stream), 0);
  EXPECT_EQ(mbfreadstring(block, -1, stream), 0);
  EXPECT_EQ(mbfreadstring(nullptr, 1, stream), 0);
  EXPECT_EQ(mbfreadstring(block, 1, nullptr), 0);
  EXPECT_STREQ(block, "###");
  EXPECT_EQ(mbfreadstring(block, 2, stream), 2);
  EXPECT_EQ(mbfreadstring(block, 2, stream), 0);
  EXPECT_STREQ(block, "");
}

TEST_F(Conversions, ABlockOfAPipeIsDeliveredWhole) {
  InitMbutilExt(kEuc);
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  ASSERT_EQ(write(ends[1], "a\xB1\xA1", 3), 3);
  close(ends[1]);
  FILE* stream = fdopen(ends[0], "r");
  char block[4];
  EXPECT_EQ(mbfreadstring(block, 2, stream), 2);
  EXPECT_STREQ(block, "a\xB1");
  fclose(stream);
}

class FileConversions : public testing::Test {
 protected:
  void SetUp() override {
    char name[] = "/tmp/zqxml_convert_XXXXXX";
    ASSERT_NE(mkdtemp(name), nullptr);
    folder = name;
    source = folder + "/source";
    target = folder + "/target";
  }
  void TearDown() override {
    unlink(source.c_str());
    unlink(target.c_str());
    rmdir(folder.c_str());
    InitMbutilExt(0);
  }

  static void save(const std::string& path, const std::string& content) {
    std::ofstream(path, std::ios::binary) << content;
  }
  static std::string load(const std::string& path) {
    std::ostringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    return content.str();
  }
  bool hasTarget() const { return access(target.c_str(), F_OK) == 0; }
  int convert(int append, int codeSet) const {
    return mbconvertfile2native_ex(source.c_str(), target.c_str(), append, codeSet);
  }

  std::string folder;
  std::string source;
  std::string target;
};

TEST_F(FileConversions, ReplaceOrAppend) {
  InitMbutilExt(kEuc);
  save(source, "a\x83\x5C\n\xB1");
  save(target, "old");
  EXPECT_EQ(convert(0, kShiftJis), 1);
  EXPECT_EQ(load(target), "a\xA5\xBD\n\x8E\xB1");
  EXPECT_EQ(convert(1, kShiftJis), 1);
  EXPECT_EQ(load(target),
            "a\xA5\xBD\n\x8E\xB1"
            "a\xA5\xBD\n\x8E\xB1");
  save(source, "");
  EXPECT_EQ(convert(0, kShiftJis), 1);
  EXPECT_EQ(load(target), "");
}

TEST_F(FileConversions, OfTheNativeCodeSetDoNothing) {
  save(source, "abc");
  for (const int codeSet : {0, kEuc, kShiftJis, kBig5}) {
    InitMbutilExt(codeSet);
    EXPECT_EQ(convert(0, codeSet), 0);
    EXPECT_FALSE(hasTarget());
  }
  InitMbutilExt(kJis);
  EXPECT_EQ(convert(0, kEuc), 0);
  EXPECT_FALSE(hasTarget());
}

TEST_F(FileConversions, WithoutAFile) {
  InitMbutilExt(kEuc);
  EXPECT_EQ(convert(0, kShiftJis), 0);
  EXPECT_FALSE(hasTarget());
  save(source, "abc");
  EXPECT_EQ(mbconvertfile2native_ex(source.c_str(), "/nowhere/target", 0, kShiftJis), 0);
  EXPECT_EQ(mbconvertfile2native_ex(nullptr, target.c_str(), 0, kShiftJis), 0);
  EXPECT_EQ(mbconvertfile2native_ex(source.c_str(), nullptr, 0, kShiftJis), 0);
  EXPECT_EQ(mbconvertfile2native_ex(source.c_str(), "/dev/full", 0, kShiftJis), 0);
  EXPECT_EQ(mbconvertfile2native_ex(folder.c_str(), target.c_str(), 0, kShiftJis), 0);
}

// More than a stream keeps back before it writes.
TEST_F(FileConversions, AFullDiskIsNoticedOnTheWay) {
  InitMbutilExt(kEuc);
  save(source, std::string(500000, 'x'));
  EXPECT_EQ(mbconvertfile2native_ex(source.c_str(), "/dev/full", 0, kShiftJis), 0);
}

TEST_F(FileConversions, CharactersAcrossBlocksStayWhole) {
  for (int ahead = 20990; ahead <= 21010; ++ahead) {
    InitMbutilExt(kEuc);
    std::string text(static_cast<size_t>(ahead), 'x');
    std::string expected = text;
    for (int i = 0; i < 30000; ++i) {
      text += "\x83\x5C";
      expected += "\xA5\xBD";
    }
    save(source, text);
    ASSERT_EQ(convert(0, kShiftJis), 1);
    ASSERT_TRUE(load(target) == expected) << ahead;
  }
}

TEST_F(FileConversions, TheLongestGrowthFindsRoom) {
  InitMbutilExt(kEucH);
  std::string text;
  std::string expected;
  for (int i = 0; i < 30000; ++i) {
    text += "\xC9\x40";
    expected += "\x8E\xA2\xA1\xA1";
  }
  save(source, text);
  ASSERT_EQ(convert(0, kBig5), 1);
  EXPECT_TRUE(load(target) == expected);
}

TEST_F(FileConversions, AZeroCutsItsBlock) {
  InitMbutilExt(kEuc);
  std::string text(21000, 'x');
  text[3] = '\0';
  save(source, text + "y");
  ASSERT_EQ(convert(0, kShiftJis), 1);
  EXPECT_EQ(load(target), "xxxy");
}

TEST_F(FileConversions, JisBeginsEachBlockInTheModeOfOneByte) {
  InitMbutilExt(kEuc);
  // The second block holds the second character.
  save(source, std::string(20995, 'x') + "\x1B$B%=%=\x1B(B");
  ASSERT_EQ(convert(0, kJis), 1);
  EXPECT_EQ(load(target), std::string(20995, 'x') + "\xA5\xBD%=");
}

long openFiles() {
  long count = 0;
  for (int fd = 0; fd < 256; ++fd) {
    count += fcntl(fd, F_GETFD) >= 0 ? 1 : 0;
  }
  return count;
}

TEST_F(FileConversions, ExhaustedMemory) {
  InitMbutilExt(kEuc);
  save(source, "a\x83\x5C");
  const long blocks = fault::liveBlocks();
  const long files = openFiles();
  const long failures = fault::forEachFailure([this](auto arm) {
    int result = -1;
    bool happened = false;
    {
      const auto armed = arm();
      result = convert(0, kShiftJis);
      happened = fault::FailingAllocations::happened();
    }
    EXPECT_EQ(result, happened ? 0 : 1);
    return happened;
  });
  EXPECT_EQ(failures, 4);
  EXPECT_EQ(fault::liveBlocks(), blocks);
  EXPECT_EQ(openFiles(), files);
}

TEST_F(Conversions, ExhaustedMemory) {
  InitMbutilExt(kEuc);
  const long blocks = fault::liveBlocks();
  const auto count = [](auto call, auto check) {
    return fault::forEachFailure([&](auto arm) {
      bool happened = false;
      {
        const auto armed = arm();
        call();
        happened = fault::FailingAllocations::happened();
      }
      check(happened);
      return happened;
    });
  };
  {
    Stream stream(std::string(100, '\n'));
    char line[8];
    char* result = nullptr;
    EXPECT_EQ(count([&] { result = mbfgets(line, 8, stream, kShiftJis); },
                    [&](bool happened) { EXPECT_EQ(result, happened ? nullptr : line); }),
              4);
    int number = 0;
    const std::unique_ptr<FILE, decltype(&fclose)> sink(fopen("/dev/null", "w"), fclose);
    EXPECT_EQ(count([&] { number = mbfputs("a", sink.get(), kShiftJis); },
                    [&](bool happened) { EXPECT_EQ(number < 0, happened); }),
              2);
    EXPECT_EQ(count([&] { number = AccumulateAsciiForStr("a"); },
                    [&](bool happened) { EXPECT_EQ(number, happened ? -1 : 'a'); }),
              2);
  }
  EXPECT_EQ(fault::liveBlocks(), blocks);
}

}  // namespace
