// Numbers that are written as words. The tables of the readers are not turned round, since they
// give one number to several words.
#ifndef ZQXML_XML_WRITERS_WORDS_H
#define ZQXML_XML_WRITERS_WORDS_H

#include <cstdint>
#include <span>

// The word of a number in a list that begins with that of `first`; 0, the tag without a text, for a
// number that is not listed.
constexpr int wordOf(std::span<const int> words, uint32_t number, uint32_t first = 1) {
  const uint32_t index = number - first;
  return index < words.size() ? words[index] : 0;
}

#endif
