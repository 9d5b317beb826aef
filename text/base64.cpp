// Base64 (RFC 2045).

#include "zqxml/base64.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "text/base64_ways.h"

namespace {

constexpr size_t kLineBytes = ZQ_BASE64_LINE_BYTES;
constexpr size_t kLineSize = 77;  // its characters and the new line

// With a zero at the end.
size_t encodedSize(size_t length) {
  const size_t rest = length % kLineBytes;
  return length / kLineBytes * kLineSize + (rest == 0 ? 0 : (rest + 2) / 3 * 4 + 1) + 1;
}

}  // namespace

int EncodeBase64(const void* input, unsigned length, char** text) {
  if (text == nullptr) {
    return 0;
  }
  *text = nullptr;
  const size_t count = input == nullptr ? 0 : length;
  auto* block = static_cast<char*>(malloc(encodedSize(count)));
  if (block == nullptr) {
    return ZQ_MESSAGE_OUT_OF_MEMORY;
  }
  *base64Way().encode(static_cast<const unsigned char*>(input), count, block) = '\0';
  *text = block;
  return 0;
}

int EncodeBase64Line(const void* input, unsigned length, const char* lineEnd, char* target) {
  if (target == nullptr) {
    return 0;
  }
  *target = '\0';
  if (length > ZQ_BASE64_LINE_BYTES) {
    return ZQ_MESSAGE_BASE64_LENGTH;
  }
  const size_t count = input == nullptr ? 0 : length;
  char* end = portableBase64.encode(static_cast<const unsigned char*>(input), count, target);
  if (count > 0) {
    --end;  // the new line, in whose place the line end comes
  }
  strcpy(end, lineEnd == nullptr ? "" : lineEnd);
  return 0;
}

int DecodeBase64(const char* text, unsigned char** bytes, unsigned* length) {
  if (bytes != nullptr) {
    *bytes = nullptr;
  }
  if (length != nullptr) {
    *length = 0;
  }
  const size_t characters = text == nullptr ? 0 : strlen(text);
  auto* block = static_cast<unsigned char*>(malloc(characters / 4 * 3 + characters % 4 + 1));
  if (block == nullptr) {
    return ZQ_MESSAGE_OUT_OF_MEMORY;
  }
  const unsigned char* end = base64Way().decode(text, characters, block);
  const auto count = static_cast<size_t>(end - block);
  if (count > std::numeric_limits<unsigned>::max()) {
    free(block);
    return ZQ_MESSAGE_OUT_OF_MEMORY;
  }
  if (length != nullptr) {
    *length = static_cast<unsigned>(count);
  }
  if (bytes != nullptr) {
    *bytes = block;
  } else {
    free(block);
  }
  return 0;
}
