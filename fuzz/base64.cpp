// Any bytes to Base64 and any text from it, beside a plain coder. The first byte of an input
// chooses what is done, the rest is coded. With half of the inputs an allocation fails.

#include <zqxml/base64.h>

#include <algorithm>
#include <string>

#include "fuzz/Failure.h"
#include "text/PlainBase64.h"
#include "text/base64_ways.h"

namespace {

using fuzz::require;

// A block of its exact size.
std::unique_ptr<unsigned char[]> blockOf(const std::string& bytes) {
  std::unique_ptr<unsigned char[]> block(new unsigned char[bytes.size()]);
  memcpy(block.get(), bytes.data(), bytes.size());
  return block;
}

bool isSame(const std::string& expected, const void* bytes, size_t length) {
  return length == expected.size() && (length == 0 || memcmp(bytes, expected.data(), length) == 0);
}

template <typename Arm>
void encode(const std::string& bytes, const std::string& expected, Arm arm) {
  const auto input = blockOf(bytes);
  char* text = nullptr;
  int result = 0;
  {
    [[maybe_unused]] const auto armed = arm();
    result = EncodeBase64(input.get(), static_cast<unsigned>(bytes.size()), &text);
  }
  if (text == nullptr) {
    require(result == ZQ_MESSAGE_OUT_OF_MEMORY && !std::is_same_v<decltype(arm()), fuzz::Unarmed>,
            "bytes are encoded");
  } else {
    require(result == 0 && text == expected, "bytes are encoded as plainly");
  }
  free(text);
}

template <typename Arm>
void decode(const std::string& text, const std::string& expected, Arm arm) {
  const fuzz::Text input(text);
  unsigned char* bytes = nullptr;
  unsigned length = 99;
  int result = 0;
  {
    [[maybe_unused]] const auto armed = arm();
    result = DecodeBase64(input, &bytes, &length);
  }
  if (bytes == nullptr) {
    require(result == ZQ_MESSAGE_OUT_OF_MEMORY && length == 0 &&
                !std::is_same_v<decltype(arm()), fuzz::Unarmed>,
            "a text is decoded");
  } else {
    require(result == 0 && isSame(expected, bytes, length), "a text is decoded as plainly");
  }
  free(bytes);
}

void encodeInOtherWay(const std::string& bytes, const std::string& expected) {
  const auto input = blockOf(bytes);
  const std::unique_ptr<char[]> target(new char[expected.size() + 1]);
  const char* end = portableBase64.encode(input.get(), bytes.size(), target.get());
  require(isSame(expected, target.get(), static_cast<size_t>(end - target.get())),
          "all ways encode the same");
}

void decodeInOtherWay(const std::string& text, const std::string& expected) {
  const fuzz::Text input(text);
  const std::unique_ptr<unsigned char[]> target(
      new unsigned char[text.size() / 4 * 3 + text.size() % 4 + 1]);
  const unsigned char* end = portableBase64.decode(input, text.size(), target.get());
  require(isSame(expected, target.get(), static_cast<size_t>(end - target.get())),
          "all ways decode the same");
}

void encodeLine(const std::string& bytes, const std::string& lineEnd) {
  const auto input = blockOf(bytes);
  const fuzz::Text end(lineEnd);
  constexpr size_t kLine = 76;
  const std::unique_ptr<char[]> target(new char[kLine + end.length() + 1]);
  const int result =
      EncodeBase64Line(input.get(), static_cast<unsigned>(bytes.size()), end, target.get());
  std::string expected;
  if (bytes.size() <= ZQ_BASE64_LINE_BYTES) {
    expected = plainlyEncoded(bytes);
    expected = expected.substr(0, std::min(kLine, expected.find('\n'))) + end.get();
  }
  require(target.get() == expected, "a line is encoded as plainly");
  require(result == (bytes.size() <= ZQ_BASE64_LINE_BYTES ? 0 : 8936), "a long line is refused");
}

}  // namespace

void fuzz::run(const uint8_t* data, size_t size) {
  const uint32_t digest = fuzz::digestOf(data, size);
  fuzz::Input input(data, size);
  const int choice = input.below(3);
  const std::string bytes(reinterpret_cast<const char*>(input.data()), input.size());
  if (choice == 0) {
    const std::string expected = plainlyEncoded(bytes);
    encode(bytes, expected, fuzz::unarmed);
    encodeInOtherWay(bytes, expected);
    decode(expected, bytes, fuzz::unarmed);
    if (fuzz::isFailing(digest)) {
      fuzz::withFailure(digest, 1, [&](auto arm) { encode(bytes, expected, arm); });
    }
  } else if (choice == 1) {
    const std::string text = bytes.c_str();
    const std::string expected = plainlyDecoded(text);
    decode(text, expected, fuzz::unarmed);
    decodeInOtherWay(text, expected);
    if (fuzz::isFailing(digest)) {
      fuzz::withFailure(digest, 1, [&](auto arm) { decode(text, expected, arm); });
    }
  } else {
    const size_t length = std::min<size_t>(bytes.size(), digest % 64);
    encodeLine(bytes.substr(0, length), bytes.substr(length));
  }
}
