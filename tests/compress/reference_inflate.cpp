#include "reference_inflate.h"

#include <algorithm>
#include <array>
#include <utility>

namespace reference {

namespace {

struct Stop {
  Verdict verdict;
};

class Decoder {
 public:
  Decoder(const unsigned char* bytes, size_t length) : input(bytes), inputBits(length * 8) {}

  Decoded run() {
    try {
      while (!block()) {
      }
    } catch (const Stop& stop) {
      out.verdict = stop.verdict;
    }
    out.bytesRead = (at + 7) / 8;
    return std::move(out);
  }

 private:
  unsigned bit() {
    if (at == inputBits) {
      throw Stop{Verdict::Truncated};
    }
    const unsigned value = (input[at / 8] >> (at % 8)) & 1u;
    ++at;
    return value;
  }

  // 3.1.1: all but Huffman codes starts with the least significant bit.
  unsigned number(unsigned bits) {
    unsigned value = 0;
    for (unsigned i = 0; i < bits; ++i) {
      value |= bit() << i;
    }
    return value;
  }

  // 3.2.2: codes of a length are consecutive, in the order of their symbols; shorter codes come
  // before longer ones.
  struct Code {
    std::array<unsigned, 16> first = {};  // first code of each length
    std::array<std::vector<unsigned>, 16> symbols;
    bool empty = true;

    explicit Code(const std::vector<unsigned>& lengths) {
      unsigned used = 0;
      for (unsigned symbol = 0; symbol < lengths.size(); ++symbol) {
        if (lengths[symbol] != 0) {
          symbols[lengths[symbol]].push_back(symbol);
          ++used;
        }
      }
      empty = used == 0;
      long space = 1;
      unsigned code = 0;
      for (size_t length = 1; length <= 15; ++length) {
        space = 2 * space - static_cast<long>(symbols[length].size());
        if (space < 0) {
          throw Stop{Verdict::Invalid};
        }
        code = (code + (length == 1 ? 0 : static_cast<unsigned>(symbols[length - 1].size()))) * 2;
        first[length] = code;
      }
      isComplete = space == 0;
      isSingle = used == 1 && symbols[1].size() == 1;
    }

    bool isComplete = false;
    bool isSingle = false;
  };

  static void requireComplete(const Code& code) {
    if (!code.empty && !code.isComplete && !code.isSingle) {
      throw Stop{Verdict::Invalid};
    }
  }

  unsigned symbol(const Code& code) {
    unsigned value = 0;
    if (code.empty) {
      throw Stop{Verdict::Invalid};
    }
    for (size_t length = 1; length <= 15; ++length) {
      value = value * 2 + bit();
      const std::vector<unsigned>& symbols = code.symbols[length];
      if (value >= code.first[length] && value - code.first[length] < symbols.size()) {
        return symbols[value - code.first[length]];
      }
      if (code.isSingle) {
        break;
      }
    }
    throw Stop{Verdict::Invalid};
  }

  // Returns whether it was the last block.
  bool block() {
    const bool last = bit() == 1;
    out.blocks.push_back({});
    out.blocks.back().kind = number(2);
    switch (out.blocks.back().kind) {
      case 0:
        stored();
        break;
      case 1:
        fixed();
        break;
      case 2:
        dynamic();
        break;
      default:
        throw Stop{Verdict::Invalid};
    }
    return last;
  }

  void stored() {
    at = (at + 7) / 8 * 8;
    const unsigned length = number(16);
    if (number(16) != 65535 - length) {
      throw Stop{Verdict::Invalid};
    }
    for (unsigned i = 0; i < length; ++i) {
      out.data.push_back(static_cast<unsigned char>(number(8)));
    }
  }

  void fixed() {
    std::vector<unsigned> literals;
    literals.insert(literals.end(), 144, 8);
    literals.insert(literals.end(), 112, 9);
    literals.insert(literals.end(), 24, 7);
    literals.insert(literals.end(), 8, 8);
    // Symbols 30 and 31 take part in the code and never stand for a distance.
    items(Code(literals), Code(std::vector<unsigned>(32, 5)));
  }

  void dynamic() {
    const unsigned literalCount = number(5) + 257;
    const unsigned distanceCount = number(5) + 1;
    const unsigned lengthCount = number(4) + 4;
    if (literalCount > 286 || distanceCount > 30) {
      throw Stop{Verdict::Invalid};
    }
    constexpr size_t kOrder[] = {16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15};
    std::vector<unsigned> lengths(19, 0);
    for (unsigned i = 0; i < lengthCount; ++i) {
      lengths[kOrder[i]] = number(3);
    }
    const Code lengthCode(lengths);
    requireComplete(lengthCode);
    std::vector<unsigned> all;
    while (all.size() < literalCount + distanceCount) {
      const unsigned next = symbol(lengthCode);
      if (next < 16) {
        all.push_back(next);
        continue;
      }
      unsigned value = 0;
      unsigned count;
      if (next == 16) {
        value = all.empty() ? 0 : all.back();
        count = 3 + number(2);
      } else if (next == 17) {
        count = 3 + number(3);
      } else {
        count = 11 + number(7);
      }
      all.insert(all.end(), count, value);
    }
    if (all.size() > literalCount + distanceCount) {
      throw Stop{Verdict::Invalid};
    }
    const auto border = all.begin() + literalCount;
    const Code literals(std::vector<unsigned>(all.begin(), border));
    requireComplete(literals);
    const Code distances(std::vector<unsigned>(border, all.end()));
    requireComplete(distances);
    Block& current = out.blocks.back();
    current.longestLengthCode = *std::max_element(lengths.begin(), lengths.end());
    current.longestCode = *std::max_element(all.begin(), all.end());
    current.distanceCodes = distanceCount;
    items(literals, distances);
  }

  void items(const Code& literals, const Code& distances) {
    for (;;) {
      const unsigned next = symbol(literals);
      if (next == 256) {
        return;
      }
      if (next < 256) {
        out.blocks.back().items.push_back({0, next});
        out.data.push_back(static_cast<unsigned char>(next));
        continue;
      }
      if (next > 285) {
        throw Stop{Verdict::Invalid};
      }
      const unsigned length = lengthOf(next);
      const unsigned distanceSymbol = symbol(distances);
      if (distanceSymbol > 29) {
        throw Stop{Verdict::Invalid};
      }
      const size_t distance = distanceOf(distanceSymbol);
      out.blocks.back().items.push_back({static_cast<unsigned>(distance), length});
      for (unsigned i = 0; i < length; ++i) {
        if (distance > out.data.size()) {
          out.wasFarAway = true;
          out.data.push_back(0);
        } else {
          out.data.push_back(out.data[out.data.size() - distance]);
        }
      }
    }
  }

  // 3.2.5: four symbols for each number of extra bits, after eight without any; 258 has one of its
  // own.
  unsigned lengthOf(unsigned code) {
    if (code == 285) {
      return 258;
    }
    if (code < 265) {
      return code - 257 + 3;
    }
    const unsigned extra = (code - 261) / 4;
    return ((4 + (code - 261) % 4) << extra) + 3 + number(extra);
  }

  // Two symbols for each number of extra bits, after four without any.
  size_t distanceOf(unsigned code) {
    if (code < 4) {
      return code + 1;
    }
    const unsigned extra = (code - 2) / 2;
    return ((size_t{2} + code % 2) << extra) + 1 + number(extra);
  }

  const unsigned char* input;
  size_t inputBits;
  size_t at = 0;
  Decoded out;
};

}  // namespace

std::vector<Item> Decoded::items() const {
  std::vector<Item> list;
  for (const Block& block : blocks) {
    list.insert(list.end(), block.items.begin(), block.items.end());
  }
  return list;
}

Decoded inflate(const unsigned char* input, size_t length) {
  return Decoder(input, length).run();
}

}  // namespace reference
