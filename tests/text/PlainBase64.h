// Base64 bit by bit, without tables: what the library's functions are compared with.
#ifndef ZQXML_TESTS_TEXT_PLAINBASE64_H
#define ZQXML_TESTS_TEXT_PLAINBASE64_H

#include <cstddef>
#include <cstring>
#include <string>

inline constexpr char kAlphabet[] =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

inline std::string plainlyEncoded(const std::string& bytes) {
  std::string text;
  for (size_t start = 0; start < bytes.size(); start += 57) {
    const std::string line = bytes.substr(start, 57);
    std::string characters;
    for (size_t bit = 0; bit < line.size() * 8; bit += 6) {
      unsigned value = 0;
      for (size_t i = bit; i < bit + 6; ++i) {
        const unsigned byte = i / 8 < line.size() ? static_cast<unsigned char>(line[i / 8]) : 0u;
        value = value << 1 | (byte >> (7 - i % 8) & 1u);
      }
      characters += kAlphabet[value];
    }
    while (characters.size() % 4 != 0) {
      characters += '=';
    }
    text += characters + "\n";
  }
  return text;
}

inline std::string plainlyDecoded(const std::string& text) {
  std::string bytes;
  unsigned value = 0;
  int bits = 0;
  for (const char character : text) {
    const char* place = character == '\0' ? nullptr : strchr(kAlphabet, character);
    if (place != nullptr) {
      value = (value << 6 | static_cast<unsigned>(place - kAlphabet)) & 0xFFFF;
      bits += 6;
      if (bits >= 8) {
        bits -= 8;
        bytes += static_cast<char>(value >> bits);
      }
    }
  }
  return bytes;
}

#endif
