#include "xml/writers/maskwords.h"

#include "xml/ZQXMLTagHash.h"

namespace {

// Joins what `append` adds for each of the first `bits` that are set.
template <typename Append>
std::string join(uint32_t mask, uint32_t bits, Append append) {
  std::string text;
  for (uint32_t bit = 0; bit < bits; ++bit) {
    if ((mask >> bit & 1) != 0) {
      if (!text.empty()) {
        text += ' ';
      }
      append(text, bit);
    }
  }
  return text;
}

}  // namespace

std::string maskWords(std::span<const int> words, uint32_t mask) {
  return join(mask, static_cast<uint32_t>(words.size()),
              [words](std::string& text, uint32_t bit) { text += tagText(words[bit]); });
}

std::string maskNumbers(uint32_t mask, uint32_t bits, uint32_t first) {
  return join(mask, bits,
              [first](std::string& text, uint32_t bit) { text += std::to_string(bit + first); });
}
