// Names without regard to case, by the letters of ASCII: in Turkish locales "I" and "i" are two
// letters to the C library.
#ifndef ZQXML_TEXT_ASCIICASE_H
#define ZQXML_TEXT_ASCIICASE_H

#include <algorithm>
#include <string_view>

constexpr char asciiLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr bool equalsIgnoringAsciiCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char one, char other) { return asciiLower(one) == asciiLower(other); });
}

constexpr bool startsWithIgnoringAsciiCase(std::string_view text, std::string_view prefix) {
  return equalsIgnoringAsciiCase(text.substr(0, prefix.size()), prefix);
}

#endif
