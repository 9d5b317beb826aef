// What the targets share: choices, numbers and texts that are taken from an input, and the check
// that stops a run.
#ifndef ZQXML_FUZZ_INPUT_H
#define ZQXML_FUZZ_INPUT_H

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace fuzz {

// What a target does with an input.
void run(const uint8_t* data, size_t size);

inline void require(bool holds, const char* what) {
  if (!holds) {
    fprintf(stderr, "Not so: %s\n", what);
    abort();
  }
}

// A zero-terminated text in a block of its exact size, so that reading beyond its end is found.
class Text {
 public:
  Text(const char* text, size_t size) : length_(strnlen(text, size)), block(new char[length_ + 1]) {
    memcpy(block.get(), text, length_);
    block[length_] = '\0';
  }
  explicit Text(const std::string& text) : Text(text.data(), text.size()) {}

  char* get() const { return block.get(); }
  operator char*() const { return block.get(); }
  size_t length() const { return length_; }

 private:
  size_t length_;
  std::unique_ptr<char[]> block;
};

// Reads an input from its front. Behind its end all is zero and empty.
class Input {
 public:
  Input(const uint8_t* bytes, size_t count) : next(bytes), left(count) {}

  bool atEnd() const { return left == 0; }
  size_t size() const { return left; }
  const uint8_t* data() const { return next; }

  int byte() {
    if (left == 0) {
      return 0;
    }
    --left;
    return *next++;
  }

  int below(int limit) { return byte() % limit; }

  int number() {
    unsigned value = 0;
    for (int i = 0; i < 4; ++i) {
      value = value << 8 | static_cast<unsigned>(byte());
    }
    return static_cast<int>(value);
  }

  // Up to a zero byte or the end.
  Text text() {
    Text text(reinterpret_cast<const char*>(next), left);
    const size_t used = text.length() < left ? text.length() + 1 : left;
    next += used;
    left -= used;
    return text;
  }

 private:
  const uint8_t* next;
  size_t left;
};

// A number made of all bytes of an input (FNV-1a): where nothing in the input chooses what else a
// run does, this does.
inline uint32_t digestOf(const uint8_t* bytes, size_t count) {
  uint32_t digest = 2166136261U;
  for (size_t i = 0; i < count; ++i) {
    digest = (digest ^ bytes[i]) * 16777619U;
  }
  return digest ^ digest >> 15;
}

}  // namespace fuzz

#endif
