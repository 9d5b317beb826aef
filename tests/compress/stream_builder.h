// Writes deflate streams field by field (RFC 1951).
#ifndef ZQXML_TESTS_COMPRESS_STREAM_BUILDER_H
#define ZQXML_TESTS_COMPRESS_STREAM_BUILDER_H

#include <initializer_list>
#include <vector>

class StreamBuilder {
 public:
  using Bytes = std::vector<unsigned char>;

  // A number, low bit first.
  StreamBuilder& bits(unsigned value, unsigned count) {
    for (unsigned i = 0; i < count; ++i) {
      bit(i < 32 ? (value >> i) & 1 : 0);
    }
    return *this;
  }

  // A Huffman code, high bit first.
  StreamBuilder& code(unsigned value, unsigned count) {
    while (count > 0) {
      bit((value >> --count) & 1);
    }
    return *this;
  }

  StreamBuilder& toByteBoundary() {
    used = 0;
    return *this;
  }

  // Last-block flag and kind.
  StreamBuilder& block(bool isLast, unsigned kind) { return bits(isLast ? 1 : 0, 1).bits(kind, 2); }

  StreamBuilder& stored(bool isLast, const Bytes& data) {
    const auto length = static_cast<unsigned>(data.size());
    block(isLast, 0).toByteBoundary().bits(length, 16).bits(length ^ 0xFFFF, 16);
    bytes.insert(bytes.end(), data.begin(), data.end());
    return *this;
  }

  // A literal, length or end symbol of the fixed code (3.2.6).
  StreamBuilder& fixedSymbol(unsigned symbol) {
    if (symbol < 144) {
      return code(0x30 + symbol, 8);
    }
    if (symbol < 256) {
      return code(0x190 + symbol - 144, 9);
    }
    if (symbol < 280) {
      return code(symbol - 256, 7);
    }
    return code(0xC0 + symbol - 280, 8);
  }

  StreamBuilder& fixedEnd() { return fixedSymbol(256); }

  StreamBuilder& fixedMatch(unsigned length, unsigned distance) {
    unsigned symbol = 285;
    if (length < 258) {
      symbol = 284;
      while (lengthBase(symbol) > length) {
        --symbol;
      }
    }
    fixedSymbol(symbol).bits(length - lengthBase(symbol), lengthExtra(symbol));
    unsigned distanceSymbol = 29;
    while (distanceBase(distanceSymbol) > distance) {
      --distanceSymbol;
    }
    return code(distanceSymbol, 5)
        .bits(distance - distanceBase(distanceSymbol), distanceExtra(distanceSymbol));
  }

  // The head of a dynamic block up to the lengths of the code length code, which are given by
  // symbol.
  StreamBuilder& dynamic(bool isLast, unsigned literals, unsigned distances,
                         const std::vector<unsigned>& codeLengths) {
    constexpr unsigned kOrder[] = {16, 17, 18, 0, 8,  7, 9,  6, 10, 5,
                                   11, 4,  12, 3, 13, 2, 14, 1, 15};
    block(isLast, 2).bits(literals - 257, 5).bits(distances - 1, 5).bits(19 - 4, 4);
    for (const unsigned symbol : kOrder) {
      bits(symbol < codeLengths.size() ? codeLengths[symbol] : 0, 3);
    }
    return *this;
  }

  const Bytes& data() const { return bytes; }

  static unsigned lengthExtra(unsigned symbol) {
    return symbol < 265 || symbol == 285 ? 0 : (symbol - 261) / 4;
  }
  static unsigned lengthBase(unsigned symbol) {
    if (symbol == 285) {
      return 258;
    }
    return symbol < 265 ? symbol - 254 : ((4 + (symbol - 261) % 4) << lengthExtra(symbol)) + 3;
  }
  static unsigned distanceExtra(unsigned symbol) { return symbol < 4 ? 0 : (symbol - 2) / 2; }
  static unsigned distanceBase(unsigned symbol) {
    return symbol < 4 ? symbol + 1 : ((2 + symbol % 2) << distanceExtra(symbol)) + 1;
  }

 private:
  void bit(unsigned value) {
    if (used == 0) {
      bytes.push_back(0);
    }
    bytes.back() = static_cast<unsigned char>(bytes.back() | value << used);
    used = (used + 1) % 8;
  }

  Bytes bytes;
  unsigned used = 0;
};

#endif
