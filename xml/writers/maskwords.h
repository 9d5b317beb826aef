// Bit masks that are written as words with blanks between them.
#ifndef ZQXML_XML_WRITERS_MASKWORDS_H
#define ZQXML_XML_WRITERS_MASKWORDS_H

#include <cstdint>
#include <span>
#include <string>

// The words of the bits that are set, in the order of the words: the first is that of bit 0. Bits
// beyond the words are left out.
std::string maskWords(std::span<const int> words, uint32_t mask);

// The numbers of the bits that are set among the first `bits`, counted from `first`.
std::string maskNumbers(uint32_t mask, uint32_t bits, uint32_t first);

#endif
