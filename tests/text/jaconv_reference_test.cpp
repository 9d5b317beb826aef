// The converters between Japanese and Chinese code sets against plain ones, a byte at a time, on
// random texts of every length and at every alignment.

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <random>
#include <string>

#include "text/PlainConverters.h"

namespace {

constexpr size_t kMaxLength = 4096;
constexpr size_t kWord = 8;

class ConverterReference : public testing::TestWithParam<PlainConverter> {};

// Runs of ASCII, of characters of two bytes, and of anything, with escape sequences of JIS.
std::string randomText(std::mt19937& random, size_t length) {
  std::string text;
  const auto between = [&random](unsigned first, unsigned last) {
    return static_cast<char>(first + random() % (last - first + 1));
  };
  while (text.size() < length) {
    const auto kind = random() % 6;
    if (kind == 5) {
      text += random() % 2 == 0 ? "\x1B$B" : "\x1B(J";
      continue;
    }
    for (auto i = random() % 40; i > 0; --i) {
      if (kind < 2) {
        text += between(1, 127);
      } else if (kind == 2) {
        text += between(0xA1, 0xFE);
        text += between(0xA1, 0xFE);
      } else if (kind == 3) {
        text += random() % 2 == 0 ? between(0x81, 0x9F) : between(0xE0, 0xEF);
        text += between(0x40, 0xFC);
      } else {
        text += between(1, 255);
      }
    }
  }
  text.resize(length);
  return text;
}

TEST_P(ConverterReference, EveryLengthAndAlignment) {
  const PlainConverter& row = GetParam();
  std::mt19937 random(1);
  for (size_t length = 0; length <= kMaxLength && !HasFailure(); ++length) {
    const std::string text = randomText(random, length);
    const std::string expected = row.converted(text);
    for (size_t alignment = 0; alignment < kWord; ++alignment) {
      const size_t targetAlignment = (alignment * 3 + length) % kWord;
      const size_t targetSize = row.targetSize(length);
      const std::unique_ptr<char[]> source(new char[alignment + length + 1]);
      const std::unique_ptr<char[]> target(new char[targetAlignment + targetSize]);
      memcpy(source.get() + alignment, text.c_str(), length + 1);
      row.converter(source.get() + alignment, target.get() + targetAlignment);
      ASSERT_STREQ(target.get() + targetAlignment, expected.c_str()) << length << " " << alignment;
    }
  }
}

TEST_P(ConverterReference, LengthsAreMeasured) {
  const PlainConverter& row = GetParam();
  std::mt19937 random(2);
  for (size_t length = 0; row.measure != nullptr && length <= 1000; ++length) {
    const std::string text = randomText(random, length);
    EXPECT_EQ(row.measure(text.c_str()), static_cast<int>(row.plain(text).size()));
  }
}

INSTANTIATE_TEST_SUITE_P(All, ConverterReference, testing::ValuesIn(kPlainConverters),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
