// Every multi-byte function against the plain reference, on generated strings of every code set.

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <random>
#include <string>

#include "text/Reference.h"
#include "zqxml/zqxml.h"

namespace {

// A sanitizer takes ten times as long, and what it looks for is seen in fewer strings.
#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define SANITIZED
#endif
#endif
#ifdef SANITIZED
constexpr int kStrings = 10000;
#else
constexpr int kStrings = 100000;
#endif

std::string shown(const std::string& text) {
  std::string result;
  char byte[8];
  for (const char c : text) {
    snprintf(byte, sizeof byte, "%02X ", static_cast<unsigned char>(c));
    result += byte;
  }
  return result;
}

// A text on the heap, exactly as long as it is, so that a read beyond it is seen.
class Exact {
 public:
  explicit Exact(const std::string& text) : bytes(new char[text.size() + 1]) {
    memcpy(bytes.get(), text.c_str(), text.size() + 1);
  }
  operator char*() { return bytes.get(); }
  std::string text() const { return bytes.get(); }

 private:
  std::unique_ptr<char[]> bytes;
};

int placeOf(const char* found, const char* text) {
  return found == nullptr ? -1 : static_cast<int>(found - text);
}

int signOf(int value) {
  return value < 0 ? -1 : value > 0 ? 1 : 0;
}

class MultiByteReference : public testing::TestWithParam<int> {
 protected:
  void SetUp() override { InitMbutilExt(GetParam()); }
  void TearDown() override { InitMbutilExt(0); }

  std::string randomText(size_t maxCharacters) {
    std::string text;
    for (size_t i = random() % (maxCharacters + 1); i > 0; --i) {
      text += reference.randomCharacter(random);
    }
    return text;
  }

  int randomBelow(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }

  const Reference reference{GetParam()};
  std::mt19937 random{static_cast<unsigned>(GetParam())};
};

// Calls `check` with generated texts until one of its expectations fails.
#define FOR_EACH_STRING(maxCharacters)                            \
  for (int round = 0; round < kStrings && !HasFailure(); ++round) \
    if (const std::string text = randomText(maxCharacters); true) \
      if (SCOPED_TRACE(shown(text)); true)

TEST_P(MultiByteReference, Lengths) {
  EXPECT_EQ(mbmaxcharlen(), reference.longest());
  for (int byte = 0; byte < 256; ++byte) {
    EXPECT_EQ(mb_isleadbyte(byte), reference.leads(byte) ? 1 : 0) << byte;
  }
  FOR_EACH_STRING(4) {
    Exact bytes(text);
    for (int count = 0; count <= 5; ++count) {
      EXPECT_EQ(mb_mblen(bytes, count), reference.length(text, 0, count)) << count;
    }
    const int length = reference.length(text, 0, 8);
    EXPECT_EQ(mbbytesinchar(bytes), length > 0 ? length : 1);
    const int index = randomBelow(static_cast<int>(text.size()) + 3);
    const int start = reference.index(text, index);
    EXPECT_EQ(mbidx(bytes, index), start) << index;
    const bool atEnd = start == static_cast<int>(text.size());
    const int next = start + mbbytesinchar(bytes + start);
    EXPECT_EQ(mbnextidx(bytes, start), atEnd ? 0 : next);
    EXPECT_EQ(mbnextchar(bytes, start), atEnd ? nullptr : bytes + next);
  }
}

TEST_P(MultiByteReference, Copies) {
  FOR_EACH_STRING(8) {
    Exact bytes(text);
    const int count = randomBelow(static_cast<int>(text.size()) + 4);
    int length = 0;
    const std::string expected = reference.copied(text, count, &length);
    std::string target(static_cast<size_t>(count) + 1, '#');
    EXPECT_EQ(mbstrncpyi(target.data(), bytes, count), length);
    EXPECT_EQ(shown(target), shown(expected + "#"));
    std::fill(target.begin(), target.end(), '#');
    EXPECT_EQ(mbstrncpy(target.data(), bytes, count), target.data());
    EXPECT_EQ(shown(target), shown(expected + "#"));
  }
}

TEST_P(MultiByteReference, Comparisons) {
  FOR_EACH_STRING(6) {
    // Often a text that begins as this one does, in other letters.
    std::string other = randomText(6);
    if (randomBelow(4) > 0) {
      other = text.substr(0, static_cast<size_t>(randomBelow(static_cast<int>(text.size()) + 1))) +
              (randomBelow(2) == 0 ? other : "");
      other = randomBelow(2) == 0 ? reference.upper(other) : other;
    }
    SCOPED_TRACE(shown(other));
    Exact left(text);
    Exact right(other);
    EXPECT_EQ(mbstricmp(left, right), reference.compared(text, other));
    const int count = randomBelow(static_cast<int>(text.size()) + 3);
    EXPECT_EQ(signOf(mbstrnicmp(left, right, count)), reference.comparedUpTo(text, other, count))
        << count;
    EXPECT_EQ(mbcharcmp(left, right, count), reference.comparedExactly(text, other, count))
        << count;
  }
}

TEST_P(MultiByteReference, Case) {
  FOR_EACH_STRING(8) {
    Exact one(text);
    EXPECT_EQ(mbstrtoupper(one), static_cast<int>(text.size()));
    EXPECT_EQ(shown(one.text()), shown(reference.upper(text)));
    Exact two(text);
    EXPECT_EQ(mbstrtolower(two), static_cast<int>(text.size()));
    EXPECT_EQ(shown(two.text()), shown(reference.lower(text)));
  }
}

TEST_P(MultiByteReference, Searches) {
  FOR_EACH_STRING(8) {
    Exact bytes(text);
    // A byte of the text, whatever it is part of.
    const char byte = text.empty() ? 'a' : text[static_cast<size_t>(random()) % text.size()];
    EXPECT_EQ(placeOf(mbstrchr(bytes, byte), bytes), reference.firstThatBeginsWith(text, byte));
    EXPECT_EQ(placeOf(mbstrchrEncr(bytes, static_cast<unsigned char>(byte)), bytes),
              reference.firstThatBeginsWith(text, byte));
    EXPECT_EQ(placeOf(mbstrrchr(bytes, byte), bytes), reference.lastThatBeginsWith(text, byte));
    const std::string set = randomText(3);
    SCOPED_TRACE(shown(set));
    Exact setBytes(set);
    const int found = reference.firstOf(text, set);
    EXPECT_EQ(placeOf(mbstrpbrk(bytes, setBytes), bytes), found);
    EXPECT_EQ(mbstrcspn(bytes, setBytes), found < 0 ? static_cast<int>(text.size()) : found);
    // A piece of the text, cut anywhere, or another text.
    const size_t start = static_cast<size_t>(randomBelow(static_cast<int>(text.size()) + 1));
    const std::string needle =
        randomBelow(4) == 0 ? set : text.substr(start, 1 + static_cast<size_t>(randomBelow(5)));
    SCOPED_TRACE(shown(needle));
    Exact needleBytes(needle);
    EXPECT_EQ(placeOf(mbstrstr(bytes, needleBytes), bytes), reference.find(text, needle));
    EXPECT_EQ(placeOf(mbstrrstr(bytes, needleBytes), bytes), reference.findLast(text, needle));
  }
}

TEST_P(MultiByteReference, Tokens) {
  FOR_EACH_STRING(10) {
    const std::string delimiters = "," + randomText(2);
    SCOPED_TRACE(shown(delimiters));
    const std::vector<std::string> expected = reference.tokens(text, delimiters);
    Exact one(text);
    Exact two(text);
    Exact set(delimiters);
    std::vector<std::string> tokens;
    std::vector<std::string> tokensReentrant;
    for (char* token = mbstrtok(one, set); token != nullptr; token = mbstrtok(nullptr, set)) {
      tokens.push_back(token);
    }
    char* position = nullptr;
    for (char* token = mbstrtok_r(two, set, &position); token != nullptr;
         token = mbstrtok_r(nullptr, set, &position)) {
      tokensReentrant.push_back(token);
    }
    EXPECT_EQ(tokens, expected);
    EXPECT_EQ(tokensReentrant, expected);
    EXPECT_EQ(position, nullptr);
  }
}

TEST_P(MultiByteReference, Validity) {
  constexpr int kTypes[] = {104, 105, 106, 0};
  FOR_EACH_STRING(5) {
    Exact bytes(text);
    const int promised = reference.length(text, 0, 1);
    const int whole = reference.length(text, 0, 8);
    const bool isValid = promised >= 0 && (promised < 2 || whole > 1);
    int length = 99;
    EXPECT_EQ(mbvalidchar(bytes, &length, GetParam()), isValid ? 1 : 0);
    EXPECT_EQ(length, promised);
    const int invalid = reference.firstInvalid(text);
    int index = -1;
    EXPECT_EQ(mbvalidatestring(bytes, &index, GetParam()), invalid < 0 ? 1 : 0);
    EXPECT_EQ(index, invalid);
    const int type = kTypes[randomBelow(4)];
    const int unfit = reference.firstInvalid(text, type);
    index = -1;
    EXPECT_EQ(mbvalidatestringtype(bytes, &index, type), unfit < 0 ? 1 : 0) << type;
    EXPECT_EQ(index, unfit) << type;
    length = 99;
    const bool firstFits = unfit != 0 && (!text.empty() || type != 104);
    EXPECT_EQ(mbvalidchartype(bytes, &length, GetParam(), type), firstFits ? 1 : 0) << type;
    EXPECT_EQ(length, promised);
  }
}

TEST_P(MultiByteReference, BlocksOfStreams) {
  constexpr size_t kRoom = 64;
  char content[kRoom];
  FOR_EACH_STRING(6) {
    if (text.empty()) {
      continue;
    }
    ASSERT_LT(text.size(), kRoom);
    memcpy(content, text.data(), text.size());
    FILE* stream = fmemopen(content, text.size(), "r");
    const int count = 1 + randomBelow(static_cast<int>(text.size()) + 2);
    std::string block(static_cast<size_t>(count) + 2, '#');
    const int expected = reference.delivered(text, count);
    EXPECT_EQ(mbfreadstringtype(block.data(), count, stream, GetParam()), expected) << count;
    EXPECT_EQ(shown(block.substr(0, static_cast<size_t>(expected) + 1)),
              shown(text.substr(0, static_cast<size_t>(expected)) + '\0'));
    EXPECT_EQ(block.back(), '#');
    EXPECT_EQ(ftell(stream), expected);
    fclose(stream);
  }
}

INSTANTIATE_TEST_SUITE_P(CodeSets, MultiByteReference, testing::ValuesIn(kMultiByteCodeSets),
                         [](const auto& codeSet) { return std::to_string(codeSet.param); });

}  // namespace
