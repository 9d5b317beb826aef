#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "fault/FailingAllocations.h"
#include "text/PlainBase64.h"
#include "text/base64_ways.h"
#include "zqxml/zqxml.h"

namespace {

std::string randomBytes(size_t length, unsigned seed) {
  std::mt19937 random(seed);
  std::string bytes(length, '\0');
  for (char& byte : bytes) {
    byte = static_cast<char>(random());
  }
  return bytes;
}

// From a block that is exactly as long as told.
std::string encoded(const std::string& bytes) {
  const std::unique_ptr<char[]> input(new char[bytes.size()]);
  memcpy(input.get(), bytes.data(), bytes.size());
  char* text = nullptr;
  EXPECT_EQ(EncodeBase64(input.get(), static_cast<unsigned>(bytes.size()), &text), 0);
  const std::unique_ptr<char, decltype(&free)> owner(text, free);
  return text == nullptr ? "null" : text;
}

std::string decoded(const std::string& text) {
  const std::unique_ptr<char[]> input(new char[text.size() + 1]);
  memcpy(input.get(), text.c_str(), text.size() + 1);
  unsigned char* bytes = nullptr;
  unsigned length = 77;
  EXPECT_EQ(DecodeBase64(input.get(), &bytes, &length), 0);
  EXPECT_NE(bytes, nullptr);
  const std::unique_ptr<unsigned char, decltype(&free)> owner(bytes, free);
  return {reinterpret_cast<char*>(bytes), length};
}

struct Pair {
  std::string bytes;
  std::string text;
};

// The examples of RFC 4648, and what lies at the edges.
const Pair kPairs[] = {
    {"", ""},
    {"f", "Zg==\n"},
    {"fo", "Zm8=\n"},
    {"foo", "Zm9v\n"},
    {"foob", "Zm9vYg==\n"},
    {"fooba", "Zm9vYmE=\n"},
    {"foobar", "Zm9vYmFy\n"},
    {"A", "QQ==\n"},
    {std::string(1, '\0'), "AA==\n"},
    {std::string(3, '\0'), "AAAA\n"},
    {"\xFB\xEF\xBE", "++++\n"},
    {"\xFF\xFF\xFF", "////\n"},
    {"\xFF", "/w==\n"},
    {"\xFF\xFF", "//8=\n"},
    {std::string(56, 'a'),
     "YWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWE=\n"},
    {std::string(57, 'a'),
     "YWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFh\n"},
    {std::string(58, 'a'),
     "YWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFh\nYQ==\n"},
    {std::string(60, 'a'),
     "YWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFh\nYWFh\n"},
};

TEST(Base64, KnownTexts) {
  for (const Pair& pair : kPairs) {
    EXPECT_EQ(encoded(pair.bytes), pair.text);
    EXPECT_EQ(decoded(pair.text), pair.bytes) << pair.text;
  }
}

TEST(Base64, LinesHold57BytesAndAllEndWithANewLine) {
  for (const size_t length : {1u, 56u, 57u, 58u, 113u, 114u, 115u, 570u, 1000u}) {
    const std::string text = encoded(std::string(length, 'x'));
    size_t lines = 0;
    for (size_t start = 0; start < text.size();) {
      const size_t end = text.find('\n', start);
      ASSERT_NE(end, std::string::npos) << length;
      ++lines;
      if (end + 1 < text.size()) {
        EXPECT_EQ(end - start, 76u) << length;
      }
      start = end + 1;
    }
    EXPECT_EQ(lines, (length + 56) / 57) << length;
  }
}

TEST(Base64, EveryLengthAgreesWithBits) {
  for (size_t length = 0; length <= 1200; ++length) {
    const std::string bytes = randomBytes(length, static_cast<unsigned>(length));
    const std::string text = encoded(bytes);
    ASSERT_EQ(text, plainlyEncoded(bytes)) << length;
    ASSERT_EQ(decoded(text), bytes) << length;
  }
}

TEST(Base64, LargeDataComeBack) {
  for (const size_t length : {100000u, 1000003u}) {
    const std::string bytes = randomBytes(length, 5);
    const std::string text = encoded(bytes);
    ASSERT_TRUE(text == plainlyEncoded(bytes));
    ASSERT_TRUE(decoded(text) == bytes);
  }
}

TEST(Base64, NothingIsAnEmptyText) {
  const char byte = 'a';
  for (const auto& [input, length] :
       {std::pair<const char*, unsigned>{nullptr, 0}, {nullptr, 9}, {&byte, 0}}) {
    char* text = nullptr;
    EXPECT_EQ(EncodeBase64(input, length, &text), 0);
    ASSERT_NE(text, nullptr);
    EXPECT_STREQ(text, "");
    free(text);
  }
  EXPECT_EQ(EncodeBase64("abc", 3, nullptr), 0);
}

TEST(Base64, Lines) {
  struct Row {
    std::string bytes;
    const char* lineEnd;
    std::string text;
  };
  const Row kRows[] = {
      {"", "", ""},
      {"", "\r\n", "\r\n"},
      {"", nullptr, ""},
      {"a", "", "YQ=="},
      {"a", "\n", "YQ==\n"},
      {"ab", "\r\n", "YWI=\r\n"},
      {"abc", " and more", "YWJj and more"},
      {"abc", nullptr, "YWJj"},
      {std::string(57, 'a'), "\n", kPairs[15].text},
      {std::string(57, 'a'), "",
       "YWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFh"},
  };
  for (const Row& row : kRows) {
    const std::unique_ptr<char[]> target(new char[row.text.size() + 1]);
    EXPECT_EQ(EncodeBase64Line(row.bytes.data(), static_cast<unsigned>(row.bytes.size()),
                               row.lineEnd, target.get()),
              0);
    EXPECT_EQ(target.get(), row.text);
  }
}

TEST(Base64, LongerLinesAreRefused) {
  const std::string bytes(200, 'a');
  for (const unsigned length : {58U, 59U, 200U, 0xFFFFFFFFU}) {
    char target[] = "####";
    EXPECT_EQ(EncodeBase64Line(bytes.data(), length, "\n", target), 8936);
    EXPECT_EQ(memcmp(target, "\0###", 5), 0);
  }
}

TEST(Base64, LinesOfNothing) {
  char target[] = "####";
  EXPECT_EQ(EncodeBase64Line(nullptr, 5, "\n", target), 0);
  EXPECT_STREQ(target, "\n");
  EXPECT_EQ(EncodeBase64Line("abc", 3, "\n", nullptr), 0);
}

TEST(Base64, Tables) {
  EXPECT_EQ(std::string(EncodeBase64Table, sizeof EncodeBase64Table), kAlphabet);
  static_assert(sizeof DecodeBase64Table == 128);
  for (int character = 0; character < 128; ++character) {
    const char* place = character == 0 ? nullptr : strchr(kAlphabet, character);
    EXPECT_EQ(DecodeBase64Table[character], place == nullptr ? 255 : place - kAlphabet)
        << character;
  }
}

TEST(Base64, WhatIsNoCharacterIsSkipped) {
  const Pair kRows[] = {
      {"foobar", "Zm9vYmFy"},
      {"foobar", "Zm9v\nYmFy\n"},
      {"foobar", "Zm9v\r\nYmFy\r\n"},
      {"foobar",
       " Z-m_9.v\tY\nm\x80"
       "Fy\xFF"},
      {"foobar", "\n\n\nZ\nm\n9\nv\nY\nm\nF\ny"},
      {"", "===="},
      {"", "\n \x80\xFF*,-@[`{"},
      {"fo", "Zm8"},
      {"f", "Zg"},
      {"f", "Zg="},
      {"", "Z"},
      {"foo", "Zm9vY"},
      // What stands behind padding goes on where the characters before it ended.
      {"f\x06\x60", "Zg==Zg=="},
      {"foofoo", "Zm9v====Zm9v"},
  };
  for (const Pair& row : kRows) {
    EXPECT_EQ(decoded(row.text), row.bytes) << row.text;
    EXPECT_EQ(plainlyDecoded(row.text), row.bytes) << row.text;
  }
}

TEST(Base64, EveryOtherByteIsSkippedAtEveryPlace) {
  const std::string bytes = randomBytes(57, 3);
  const std::string text = encoded(bytes).substr(0, 76);
  for (int byte = 1; byte < 256; ++byte) {
    if (strchr(kAlphabet, byte) != nullptr) {
      continue;
    }
    for (size_t place = 0; place <= text.size(); ++place) {
      std::string broken = text;
      broken.insert(place, 1, static_cast<char>(byte));
      ASSERT_EQ(decoded(broken), bytes) << byte << " " << place;
    }
  }
}

TEST(Base64, DecodingNothing) {
  for (const char* text : {static_cast<const char*>(nullptr), ""}) {
    unsigned char* bytes = nullptr;
    unsigned length = 9;
    EXPECT_EQ(DecodeBase64(text, &bytes, &length), 0);
    EXPECT_EQ(length, 0u);
    EXPECT_NE(bytes, nullptr);
    free(bytes);
  }
}

TEST(Base64, NullOutputsAreSkipped) {
  unsigned length = 0;
  EXPECT_EQ(DecodeBase64("Zm9v", nullptr, &length), 0);
  EXPECT_EQ(length, 3u);
  unsigned char* bytes = nullptr;
  EXPECT_EQ(DecodeBase64("Zm9v", &bytes, nullptr), 0);
  EXPECT_EQ(memcmp(bytes, "foo", 3), 0);
  free(bytes);
  EXPECT_EQ(DecodeBase64("Zm9v", nullptr, nullptr), 0);
}

TEST(Base64, ExhaustedMemory) {
  const long blocks = fault::liveBlocks();
  const auto count = [](auto call) {
    return fault::forEachFailure([&](auto arm) {
      bool happened = false;
      int result = -1;
      {
        const auto armed = arm();
        result = call();
        happened = fault::FailingAllocations::happened();
      }
      EXPECT_EQ(result, happened ? 300 : 0);
      return happened;
    });
  };
  char place = 0;
  char* text = nullptr;
  EXPECT_EQ(count([&] {
              text = &place;
              const int result = EncodeBase64("abc", 3, &text);
              EXPECT_EQ(text == nullptr, result != 0);
              free(text);
              return result;
            }),
            2);
  EXPECT_EQ(count([&] {
              unsigned char* bytes = reinterpret_cast<unsigned char*>(&place);
              unsigned length = 9;
              const int result = DecodeBase64("Zm9v", &bytes, &length);
              EXPECT_EQ(bytes == nullptr, result != 0);
              EXPECT_EQ(length, result != 0 ? 0u : 3u);
              free(bytes);
              return result;
            }),
            2);
  EXPECT_EQ(fault::liveBlocks(), blocks);
}

}  // namespace
