// The ways of Base64 against one another, on random input of every length and at every alignment,
// from and to blocks that are exactly as long as they need to be.

#include "text/base64_ways.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr size_t kMaxLength = 4096;
constexpr size_t kAlignments = 32;

// A block whose last byte is the last one of what was asked for, at an alignment.
template <typename Byte>
class Block {
 public:
  Block(size_t alignment, size_t size)
      : memory(new (std::align_val_t{kAlignments}) Byte[alignment + size]),
        start(memory + alignment) {}
  ~Block() { operator delete[](memory, std::align_val_t{kAlignments}); }
  Block(const Block&) = delete;
  Block& operator=(const Block&) = delete;
  Byte* get() { return start; }

 private:
  Byte* memory;
  Byte* start;
};

size_t encodedSize(size_t length) {
  const size_t rest = length % 57;
  return length / 57 * 77 + (rest == 0 ? 0 : (rest + 2) / 3 * 4 + 1) + 1;
}

std::string encoded(const Base64Way& way, const std::string& bytes, size_t alignment) {
  Block<unsigned char> input(alignment, bytes.size());
  memcpy(input.get(), bytes.data(), bytes.size());
  const std::unique_ptr<char[]> target(new char[encodedSize(bytes.size())]);
  const char* end = way.encode(input.get(), bytes.size(), target.get());
  return {target.get(), static_cast<size_t>(end - target.get())};
}

std::string decoded(const Base64Way& way, const std::string& text, size_t alignment) {
  Block<char> input(alignment, text.size());
  memcpy(input.get(), text.data(), text.size());
  const size_t size = text.size() / 4 * 3 + text.size() % 4 + 1;
  const std::unique_ptr<unsigned char[]> target(new unsigned char[size]);
  const unsigned char* end = way.decode(input.get(), text.size(), target.get());
  return {reinterpret_cast<char*>(target.get()), static_cast<size_t>(end - target.get())};
}

class Base64Ways : public testing::Test {
 protected:
  void SetUp() override {
    if (avx2Base64() == nullptr) {
      EXPECT_EQ(&base64Way(), &portableBase64);
      GTEST_SKIP() << "this processor has one way only";
    }
    EXPECT_EQ(&base64Way(), avx2Base64());
  }

  std::mt19937 random{20};
};

TEST_F(Base64Ways, EncodeTheSame) {
  std::string bytes(kMaxLength, '\0');
  for (char& byte : bytes) {
    byte = static_cast<char>(random());
  }
  for (size_t length = 0; length <= kMaxLength; ++length) {
    const std::string part = bytes.substr(kMaxLength - length);
    const std::string expected = encoded(portableBase64, part, 0);
    for (size_t alignment = 0; alignment < kAlignments; ++alignment) {
      ASSERT_TRUE(encoded(*avx2Base64(), part, alignment) == expected)
          << length << " " << alignment;
    }
  }
}

TEST_F(Base64Ways, EncodeEveryValueTheSameAtEveryPlace) {
  for (size_t place = 0; place < 57; ++place) {
    for (int byte = 0; byte < 256; ++byte) {
      std::string bytes(114, 'U');
      bytes[place] = static_cast<char>(byte);
      ASSERT_EQ(encoded(*avx2Base64(), bytes, 0), encoded(portableBase64, bytes, 0));
    }
  }
}

// `strangers` of a thousand characters have no value.
std::string randomText(std::mt19937& random, size_t length, unsigned strangers) {
  std::string text(length, '\0');
  for (char& character : text) {
    character = random() % 1000 < strangers ? static_cast<char>(random())
                                            : EncodeBase64Table[random() % 64];
  }
  return text;
}

TEST_F(Base64Ways, DecodeTheSame) {
  for (size_t length = 0; length <= kMaxLength; ++length) {
    constexpr unsigned kStrangers[] = {0, 3, 30, 300};
    std::string text = randomText(random, length, kStrangers[length % 4]);
    if (length % 2 == 0) {
      for (size_t end = 76; end < length; end += 77) {
        text[end] = '\n';
      }
    }
    const std::string expected = decoded(portableBase64, text, 0);
    for (size_t alignment = 0; alignment < kAlignments; ++alignment) {
      ASSERT_TRUE(decoded(*avx2Base64(), text, alignment) == expected)
          << length << " " << alignment;
    }
  }
}

TEST_F(Base64Ways, DecodeEveryByteTheSameAtEveryPlace) {
  for (size_t place = 0; place < 64; ++place) {
    for (int byte = 0; byte < 256; ++byte) {
      std::string text = randomText(random, 120, 0);
      text[place] = static_cast<char>(byte);
      ASSERT_EQ(decoded(*avx2Base64(), text, 0), decoded(portableBase64, text, 0))
          << byte << " " << place;
    }
  }
}

}  // namespace
