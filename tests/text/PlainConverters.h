// The converters between Japanese and Chinese code sets once more, slow and plain: a byte at a
// time.
#ifndef ZQXML_TESTS_TEXT_PLAINCONVERTERS_H
#define ZQXML_TESTS_TEXT_PLAINCONVERTERS_H

#include <cstddef>
#include <string>

struct PlainConverter {
  const char* name;
  char* (*converter)(const char* source, char* target);
  std::string (*plain)(const std::string& text);
  int (*measure)(
      const char* text);  // gives the length of what `plain` gives; null if there is none
  bool toJis;

  // What the converter has to write.
  std::string converted(const std::string& text) const;

  // The size of the block that it may ask for.
  size_t targetSize(size_t length) const;
};

inline constexpr size_t kPlainConverterCount = 8;
extern const PlainConverter kPlainConverters[kPlainConverterCount];

#endif
